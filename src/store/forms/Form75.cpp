#include "store/forms/Form75.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Empresas.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

Form75::Form75(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form75"));
    setWindowTitle(QStringLiteral("Quilmar Pro [Modificar]"));

    const char* const etiquetas[9] = {"Código:",   "Nombre:",    "NIF/CIF:",
                                      "Calle:",    "Nº:",        "Ciudad:",
                                      "C.Postal:", "Provincia:", "Fecha inicial periodo contable"};
    auto* formulario = new QFormLayout;
    for (int i = 0; i < 9; ++i) {
        Text[i] = new QLineEdit;
        Text[i]->setObjectName(QStringLiteral("Text%1").arg(i + 1));
        formulario->addRow(QString::fromUtf8(etiquetas[i]), Text[i]);
    }
    // The code names the company's folder; it is shown, not changed.
    Text[0]->setReadOnly(true);
    Text[0]->setMaxLength(3);
    const Campo campos[7] = {Campo::NombreEmpresa, Campo::NIF,    Campo::Domicilio,
                             Campo::NumeroCalle,   Campo::Ciudad, Campo::CPostalEmpresa,
                             Campo::Provincia};
    for (int i = 0; i < 7; ++i)
        LimitarCampo(Text[i + 1], campos[i]);
    Text[8]->setMaxLength(10);

    DatosNuevaEmpresa e;
    try {
        e = LeerDatosEmpresa(s_);
    } catch (const ErrorQuilmar& err) {
        d_.Informar(err.mensaje());
    }
    Text[0]->setText(e.Codigo);
    Text[1]->setText(e.Nombre);
    Text[2]->setText(e.NIF);
    Text[3]->setText(e.Domicilio);
    Text[4]->setText(e.Numero);
    Text[5]->setText(e.Ciudad);
    Text[6]->setText(e.CPostal);
    Text[7]->setText(e.Provincia);
    Text[8]->setText(e.FechaIni.isValid() ? e.FechaIni.toString(QStringLiteral("dd/MM/yyyy"))
                                          : QString());

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    auto* cancelar = botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    cancelar->setObjectName(QStringLiteral("Cancelar"));
    connect(aceptar, &QPushButton::clicked, this, &Form75::aceptar);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(formulario);
    columna->addWidget(botones);
    setMinimumWidth(460);
    PrepararVentana(this, a, 75);
}

void Form75::aceptar() {
    const QString fecha = ValidarFecha(Text[8]->text(), d_);
    if (fecha.isEmpty())
        return;
    DatosNuevaEmpresa e;
    e.Codigo = Text[0]->text();
    e.Nombre = Text[1]->text();
    e.NIF = Text[2]->text();
    e.Domicilio = Text[3]->text();
    e.Numero = Text[4]->text();
    e.Ciudad = Text[5]->text();
    e.CPostal = Text[6]->text();
    e.Provincia = Text[7]->text();
    e.FechaIni = FechaDeTexto(fecha);
    try {
        GuardarDatosEmpresa(s_, e);
    } catch (const ErrorQuilmar& err) {
        d_.Informar(err.mensaje());
        return;
    }
    Q_EMIT datosGuardados(e.Nombre.trimmed());
    accept();
}

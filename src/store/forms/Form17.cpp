#include "store/forms/Form17.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Empresas.h"
#include "store/ListasEmpresas.h"
#include "store/Plantilla.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QLineEdit* campo(const QString& nombre, int largo = 0) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    if (largo > 0)
        e->setMaxLength(largo);
    return e;
}

QString textoFinal(const QDate& inicio) {
    return inicio.isValid() ? inicio.addYears(1).addDays(-1).toString(QStringLiteral("dd/MM/yyyy"))
                            : QString();
}

} // namespace

Form17::Form17(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form17"));
    setWindowTitle(QStringLiteral("Quilmar [Datos Empresa]"));

    Text1 = campo(QStringLiteral("Text1"), 3);
    SoloCifras(Text1, 3);
    Text1->setMaximumWidth(60);
    Text2 = campo(QStringLiteral("Text2"));
    LimitarCampo(Text2, Campo::NombreEmpresa);
    Text3 = campo(QStringLiteral("Text3"));
    LimitarCampo(Text3, Campo::NIF);
    Text4 = campo(QStringLiteral("Text4"));
    LimitarCampo(Text4, Campo::Domicilio);
    Text5 = campo(QStringLiteral("Text5"));
    LimitarCampo(Text5, Campo::NumeroCalle);
    Text5->setMaximumWidth(80);
    Text6 = campo(QStringLiteral("Text6"));
    LimitarCampo(Text6, Campo::Ciudad);
    Text7 = campo(QStringLiteral("Text7"), 5);
    SoloCifras(Text7, 5);
    Text7->setMaximumWidth(80);
    Combo2 = new QComboBox;
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setEditable(true);
    LimitarCampo(Combo2->lineEdit(), Campo::Provincia);
    Combo2->addItem(QString());
    try {
        const TablaTsv provincias = LeerTsv(QStringLiteral(":/data/plan/provincias.tsv"));
        for (int i = 0; i < provincias.filas.size(); ++i)
            Combo2->addItem(provincias.valor(i, QStringLiteral("Provincia")));
    } catch (const ErrorQuilmar&) {
        // The field stays free text.
    }
    Text8 = campo(QStringLiteral("Text8"), 10);
    Text8->setMaximumWidth(100);
    const QDate inicio(QDate::currentDate().year(), 1, 1);
    Text8->setText(inicio.toString(QStringLiteral("dd/MM/yyyy")));
    Label10 = new QLabel(textoFinal(inicio));
    Label10->setObjectName(QStringLiteral("Label10"));

    auto* datos = new QGroupBox(QStringLiteral("Datos de la Empresa"));
    auto* rejilla = new QGridLayout(datos);
    auto etiqueta = [](const QString& t) {
        return new QLabel(t);
    };
    rejilla->addWidget(etiqueta(QStringLiteral("Código:")), 0, 0);
    rejilla->addWidget(Text1, 0, 1);
    rejilla->addWidget(etiqueta(QStringLiteral("Nombre:")), 1, 0);
    rejilla->addWidget(Text2, 1, 1, 1, 3);
    rejilla->addWidget(etiqueta(QStringLiteral("NIF/CIF:")), 2, 0);
    rejilla->addWidget(Text3, 2, 1);
    rejilla->addWidget(etiqueta(QStringLiteral("Domicilio:")), 3, 0);
    rejilla->addWidget(Text4, 3, 1);
    rejilla->addWidget(etiqueta(QStringLiteral("Num.:")), 3, 2);
    rejilla->addWidget(Text5, 3, 3);
    rejilla->addWidget(etiqueta(QStringLiteral("Ciudad:")), 4, 0);
    rejilla->addWidget(Text6, 4, 1);
    rejilla->addWidget(etiqueta(QStringLiteral("C.Postal:")), 4, 2);
    rejilla->addWidget(Text7, 4, 3);
    rejilla->addWidget(etiqueta(QStringLiteral("Provincia:")), 5, 0);
    rejilla->addWidget(Combo2, 5, 1);
    rejilla->setColumnStretch(1, 1);

    auto* periodo = new QGroupBox(QStringLiteral("Periodo contable"));
    auto* fechas = new QFormLayout(periodo);
    fechas->addRow(QStringLiteral("Fecha inicial periodo contable"), Text8);
    fechas->addRow(QStringLiteral("Fecha final periodo contable"), Label10);

    auto* cuentas = new QGroupBox(QStringLiteral("Cuentas"));
    auto* columnaCuentas = new QGridLayout(cuentas);
    Option1 = new QRadioButton(QStringLiteral("Genéricas"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("De otra Empresa"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option1->setChecked(true);
    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    columnaCuentas->addWidget(Option1, 0, 0);
    columnaCuentas->addWidget(Option2, 1, 0);
    columnaCuentas->addWidget(Combo1, 1, 1);
    const char* const copias[6] = {"Copiar Conceptos predefinidos",
                                   "Copiar Asientos periódicos",
                                   "Copiar Asientos prediseñados",
                                   "Copiar Inventario",
                                   "Copiar Sectores",
                                   "Copiar Vencimientos"};
    for (int i = 0; i < 6; ++i) {
        Check[i] = new QCheckBox(QString::fromUtf8(copias[i]));
        Check[i]->setObjectName(QStringLiteral("Check%1").arg(i + 1));
        columnaCuentas->addWidget(Check[i], 2 + i / 2, i % 2);
    }
    columnaCuentas->setColumnStretch(1, 1);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    auto* cancelar = botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    cancelar->setObjectName(QStringLiteral("Cancelar"));

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(datos);
    columna->addWidget(periodo);
    columna->addWidget(cuentas);
    columna->addWidget(botones);

    connect(aceptar, &QPushButton::clicked, this, &Form17::aceptar);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(Text1, &QLineEdit::editingFinished, this, &Form17::codigoTerminado);
    connect(Text8, &QLineEdit::editingFinished, this, &Form17::fechaTerminada);
    connect(Option2, &QRadioButton::toggled, this, &Form17::origenCambiado);
    origenCambiado();
    PrepararVentana(this, a, 17);
}

void Form17::codigoTerminado() {
    if (Text1->text() == QLatin1String("100"))
        d_.Informar(MsgCodigoReservado);
}

void Form17::fechaTerminada() {
    const QString valida = ValidarFecha(Text8->text(), d_);
    const QDate fecha = FechaDeTexto(valida);
    if (fecha.isValid())
        Text8->setText(fecha.toString(QStringLiteral("dd/MM/yyyy")));
    Label10->setText(textoFinal(fecha));
}

void Form17::origenCambiado() {
    const bool otra = Option2->isChecked();
    Combo1->clear();
    if (otra) {
        for (const RegistroNemp& r : ListaEmpresas(s_))
            if (r.Codigo != QLatin1String("100"))
                Combo1->addItem(r.Nombre, QStringLiteral("Emp") + r.Codigo);
    }
    Combo1->setEnabled(otra);
    for (QCheckBox* c : Check) {
        if (!otra)
            c->setChecked(false);
        c->setEnabled(otra);
    }
}

void Form17::aceptar() {
    const QString valida = ValidarFecha(Text8->text(), d_);
    if (valida.isEmpty())
        return;
    DatosNuevaEmpresa d;
    d.Codigo = Text1->text();
    d.Nombre = Text2->text();
    d.NIF = Text3->text();
    d.Domicilio = Text4->text();
    d.Numero = Text5->text();
    d.Ciudad = Text6->text();
    d.CPostal = Text7->text();
    d.Provincia = Combo2->currentText();
    d.FechaIni = FechaDeTexto(valida);
    if (Option2->isChecked()) {
        if (Combo1->currentIndex() < 0) {
            d_.Informar(MsgSeleccioneEmpresa);
            return;
        }
        d.EmpresaOrigen = Combo1->currentData().toString();
        d.CopiarConceptos = Check[0]->isChecked();
        d.CopiarPeriodicos = Check[1]->isChecked();
        d.CopiarPredisenados = Check[2]->isChecked();
        d.CopiarInventario = Check[3]->isChecked();
        d.CopiarSectores = Check[4]->isChecked();
        d.CopiarVencimientos = Check[5]->isChecked();
    }
    setCursor(Qt::WaitCursor);
    try {
        CrearEmpresa(s_, a_, d);
    } catch (const ErrorQuilmar& e) {
        unsetCursor();
        d_.Informar(e.mensaje());
        return;
    }
    unsetCursor();
    creado_ = d.Nombre.trimmed();
    accept();
}

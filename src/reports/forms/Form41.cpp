#include "reports/forms/Form41.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

Form41::Form41(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form41"));
    setWindowTitle(QStringLiteral("Distribución por meses de una Cuenta"));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItems(VistaArea::De(s).digitos());
    Combo1->setCurrentIndex(-1);
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setMinimumContentsLength(30);

    auto* marco = new QGroupBox(QStringLiteral("Seleccione la Subcuenta"), this);
    auto* formulario = new QFormLayout(marco);
    formulario->addRow(QStringLiteral("Area"), Combo1);
    formulario->addRow(QStringLiteral("Subcuenta"), Combo2);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(marco);
    columna->addLayout(botones);

    connect(Combo1, &QComboBox::activated, this, [this] { llenarSubcuentas(); });
    connect(Command1, &QPushButton::clicked, this, &Form41::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 41);
}

void Form41::llenarSubcuentas() {
    Combo2->clear();
    try {
        Conexion c = AbrirDatos(s_);
        for (const SubcuentaDeLista& l : VistaArea::De(s_).subcuentas(
                 c, s_, Combo1->currentText(), false, OrdenSubcuentas::Nombre))
            Combo2->addItem(l.Cuenta, l.NCuenta);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo2->setCurrentIndex(-1);
}

void Form41::aceptar() {
    try {
        const auto c =
            ValidarCuentaGrafico(Combo1->currentIndex() < 0 ? QString() : Combo1->currentText(),
                                 Combo2->currentText(), s_, d_);
        if (!c)
            return;
        cuenta_ = *c;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    accept();
}

#include "reports/forms/Form2.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "reports/ComparacionAnos.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

Form2::Form2(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Comparación de ejercicios"));
    Option1 = new QRadioButton(QStringLiteral("Comparar Areas"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Comparar Subcuentas"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    auto* grupo = new QButtonGroup(this);
    grupo->addButton(Option1);
    grupo->addButton(Option2);
    Option1->setChecked(true);

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    try {
        ejercicios_ = EjerciciosEmpresa(s);
        std::sort(ejercicios_.begin(), ejercicios_.end());
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    for (int n = 2; n <= qMax(2, int(ejercicios_.size())); ++n)
        Combo1->addItem(QString::number(n));
    Combo1->setCurrentIndex(-1);
    for (int ano : ejercicios_)
        Combo2->addItem(QString::number(ano));
    Combo2->setCurrentIndex(-1);
    Combo3 = new QComboBox(this);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->addItems(VistaArea::De(s).digitos());
    Combo3->setCurrentIndex(-1);
    Combo4 = new QComboBox(this);
    Combo4->setObjectName(QStringLiteral("Combo4"));
    Combo4->setMinimumContentsLength(30);

    auto* marco = new QGroupBox(this);
    auto* formulario = new QFormLayout(marco);
    auto* opciones = new QHBoxLayout;
    opciones->addWidget(Option1);
    opciones->addWidget(Option2);
    formulario->addRow(opciones);
    formulario->addRow(QStringLiteral("Seleccione número de años a comparar"), Combo1);
    formulario->addRow(QStringLiteral("Desde el año"), Combo2);
    formulario->addRow(QStringLiteral("Area"), Combo3);
    formulario->addRow(QStringLiteral("Subcuenta"), Combo4);

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

    connect(Option1, &QRadioButton::toggled, this, [this] { actualizarCajas(); });
    connect(Combo3, &QComboBox::activated, this, [this] { llenarSubcuentas(); });
    connect(Command1, &QPushButton::clicked, this, &Form2::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    actualizarCajas();
    PrepararVentana(this, a, 2);
}

void Form2::actualizarCajas() {
    Combo4->setEnabled(Option2->isChecked());
    if (Option2->isChecked() && Combo4->count() == 0 && Combo3->currentIndex() >= 0)
        llenarSubcuentas();
}

void Form2::llenarSubcuentas() {
    Combo4->clear();
    if (!Option2->isChecked() || Combo3->currentIndex() < 0)
        return;
    try {
        Conexion c = AbrirDatos(s_);
        const QList<SubcuentaDeLista> lista = VistaArea::De(s_).subcuentas(
            c, s_, Combo3->currentText(), false, OrdenSubcuentas::Nombre);
        if (lista.isEmpty())
            d_.Informar(MsgCompSinCuentas);
        for (const SubcuentaDeLista& l : lista)
            Combo4->addItem(l.Cuenta, l.NCuenta);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo4->setCurrentIndex(-1);
}

void Form2::aceptar() {
    CajasAnosGrafico c;
    c.porAreas = Option1->isChecked();
    c.numero = Combo1->currentIndex() < 0 ? 0 : Combo1->currentText().toInt();
    c.primerAno = Combo2->currentIndex() < 0 ? 0 : Combo2->currentText().toInt();
    c.area = Combo3->currentIndex() < 0 ? QString() : Combo3->currentText();
    c.subcuenta = Combo4->currentIndex() < 0 ? QString() : Combo4->currentText();
    try {
        const auto sel = ValidarAnosGrafico(c, s_, d_);
        if (!sel)
            return;
        seleccion_ = *sel;
        anos_ = AnosDelGrafico(ejercicios_, sel->primerAno, sel->numero);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    accept();
}

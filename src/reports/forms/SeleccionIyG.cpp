#include "reports/forms/SeleccionIyG.h"

#include "chart/Sectores.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

SeleccionIyGBase::SeleccionIyGBase(Sesion& s, Dialogo& d, const QString& nombre,
                                   const QString& titulo, QWidget* padre)
    : QDialog(padre), s_(s), d_(d) {
    setObjectName(nombre);
    setWindowTitle(titulo);
    DTPicker1 = new QDateEdit(this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new QDateEdit(this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (QDateEdit* f : {DTPicker1, DTPicker2}) {
        f->setCalendarPopup(true);
        f->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        if (s.FechaIniEj.isValid())
            f->setDateRange(s.FechaIniEj, s.FechaFinEj);
    }
    DTPicker1->setDate(s.FechaIniEj);
    DTPicker2->setDate(s.FechaFinEj);

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItem(QString());
    try {
        for (const FilaSector& f : ListaSectores(s))
            Combo1->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar& e) {
        // The lists can still be had for every sector.
        d.Informar(e.mensaje());
    }
    Combo1->setMinimumContentsLength(16);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
}

void SeleccionIyGBase::componer(Ajustes& a, int numero, const QString& marco,
                                const QList<QRadioButton*>& opciones) {
    auto* fechas = new QGroupBox(QStringLiteral("Fechas"), this);
    auto* gf = new QGridLayout(fechas);
    gf->addWidget(new QLabel(QStringLiteral("Entre"), fechas), 0, 0);
    gf->addWidget(DTPicker1, 0, 1);
    gf->addWidget(new QLabel(QStringLiteral("y"), fechas), 0, 2);
    gf->addWidget(DTPicker2, 0, 3);

    auto* tipo = new QGroupBox(marco, this);
    auto* grupo = new QButtonGroup(tipo);
    auto* gt = new QVBoxLayout(tipo);
    for (QRadioButton* o : opciones) {
        o->setParent(tipo);
        grupo->addButton(o);
        gt->addWidget(o);
    }
    opciones.first()->setChecked(true);

    auto* sector = new QHBoxLayout;
    sector->addWidget(new QLabel(QStringLiteral("Sector"), this));
    sector->addWidget(Combo1, 1);

    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(fechas);
    columna->addWidget(tipo);
    columna->addLayout(sector);
    columna->addLayout(botones);
    PrepararVentana(this, a, numero);
}

bool SeleccionIyGBase::fechasValidas() {
    if (ValidarFechasIyG(desde(), hasta(), d_))
        return true;
    DTPicker1->setFocus();
    return false;
}

QDate SeleccionIyGBase::desde() const {
    return DTPicker1->date();
}

QDate SeleccionIyGBase::hasta() const {
    return DTPicker2->date();
}

QString SeleccionIyGBase::sector() const {
    return Combo1->currentText().trimmed();
}

Form12::Form12(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : SeleccionIyGBase(s, d, QStringLiteral("Form12"),
                       QStringLiteral("Ingresos y Gastos (Totales)"), padre) {
    Option1 = new QRadioButton(QStringLiteral("Ingresos y Gastos"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Sólo Ingresos"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option3 = new QRadioButton(QStringLiteral("Sólo Gastos"));
    Option3->setObjectName(QStringLiteral("Option3"));
    componer(a, 12, QStringLiteral("Tipo"), {Option1, Option2, Option3});
    connect(Command1, &QPushButton::clicked, this, &Form12::aceptar);
}

void Form12::aceptar() {
    if (!fechasValidas())
        return;
    seleccion_.desde = desde();
    seleccion_.hasta = hasta();
    seleccion_.tipo = Option2->isChecked()   ? TipoIyG::SoloIngresos
                      : Option3->isChecked() ? TipoIyG::SoloGastos
                                             : TipoIyG::Ambos;
    seleccion_.sector = sector();
    accept();
}

Form30::Form30(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : SeleccionIyGBase(s, d, QStringLiteral("Form30"), QStringLiteral("Lista de Ingresos y Gastos"),
                       padre) {
    Option1 = new QRadioButton(QStringLiteral("Ingresos"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Gastos"));
    Option2->setObjectName(QStringLiteral("Option2"));
    componer(a, 30, QStringLiteral("Clase"), {Option1, Option2});
    connect(Command1, &QPushButton::clicked, this, &Form30::aceptar);
}

void Form30::aceptar() {
    if (!fechasValidas())
        return;
    seleccion_.desde = desde();
    seleccion_.hasta = hasta();
    seleccion_.clase = Option2->isChecked() ? ClaseIyG::Gastos : ClaseIyG::Ingresos;
    seleccion_.sector = sector();
    accept();
}

#include "reports/forms/CajasSubcuenta.h"

#include "chart/Sectores.h"
#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

CajasSubcuenta::CajasSubcuenta(Sesion& s, QWidget* padre) : QWidget(padre), s_(s) {
    setObjectName(QStringLiteral("CajasSubcuenta"));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItems(VistaArea::De(s).digitos());
    Combo1->setCurrentIndex(-1);
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setMinimumContentsLength(28);
    Combo3 = new QComboBox(this);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->addItem(QString());
    try {
        for (const FilaSector& f : ListaSectores(s))
            Combo3->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar&) {
        // Without sectors the box offers every line only.
    }
    Combo3->setMinimumContentsLength(14);
    DTPicker1 = new CajaFecha({}, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha({}, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    DTPicker1->setDate(s.FechaIniEj);
    DTPicker2->setDate(s.FechaFinEj);

    auto* g = new QGridLayout(this);
    g->setContentsMargins(0, 0, 0, 0);
    g->addWidget(new QLabel(QStringLiteral("Area"), this), 0, 0);
    g->addWidget(Combo1, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Subcuenta"), this), 0, 2);
    g->addWidget(Combo2, 0, 3);
    g->addWidget(new QLabel(QStringLiteral("Sector"), this), 0, 4);
    g->addWidget(Combo3, 0, 5);
    g->addWidget(new QLabel(QStringLiteral("Entre"), this), 1, 0);
    g->addWidget(DTPicker1, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("y"), this), 1, 2, Qt::AlignRight);
    g->addWidget(DTPicker2, 1, 3, Qt::AlignLeft);
    g->setColumnStretch(3, 1);

    connect(Combo1, &QComboBox::activated, this, [this] {
        llenarSubcuentas();
        Q_EMIT areaCambiada();
    });
    connect(Combo2, &QComboBox::activated, this, &CajasSubcuenta::cambiada);
    connect(Combo3, &QComboBox::activated, this, &CajasSubcuenta::cambiada);
    for (CajaFecha* f : {DTPicker1, DTPicker2})
        connect(f, &CajaFecha::editingFinished, this, &CajasSubcuenta::cambiada);
}

void CajasSubcuenta::llenarSubcuentas() {
    Combo2->clear();
    const QString area = Combo1->currentText();
    if (area.isEmpty())
        return;
    Conexion c = AbrirDatos(s_);
    for (const SubcuentaDeLista& l : VistaArea::De(s_).subcuentas(c, s_, area))
        Combo2->addItem(l.Cuenta, l.NCuenta);
    Combo2->setCurrentIndex(-1);
}

bool CajasSubcuenta::fechasValidas(Dialogo& d) {
    return ComprobarFechas({DTPicker1, DTPicker2}, d);
}

CajasMovimientos CajasSubcuenta::cajas() const {
    CajasMovimientos c;
    c.desde = DTPicker1->date();
    c.hasta = DTPicker2->date();
    c.area = Combo1->currentText();
    c.subcuenta = Combo2->currentText();
    c.sector = Combo3->currentText();
    return c;
}

void CajasSubcuenta::poner(const PeticionMovimientos& p) {
    const QSignalBlocker b1(Combo1), b2(Combo2), b3(DTPicker1), b4(DTPicker2);
    if (p.desde.isValid())
        DTPicker1->setDate(p.desde);
    if (p.hasta.isValid())
        DTPicker2->setDate(p.hasta);
    if (p.ncuenta.isEmpty())
        return;
    Combo1->setCurrentIndex(Combo1->findText(VistaArea::De(s_).digitoDe(p.ncuenta)));
    llenarSubcuentas();
    int i = Combo2->findData(p.ncuenta);
    if (i < 0) {
        // A parked subaccount is not in the list, but a book may still ask for its movements.
        Combo2->addItem(p.nombre.trimmed(), p.ncuenta);
        i = Combo2->count() - 1;
    }
    Combo2->setCurrentIndex(i);
}

void CajasSubcuenta::ponerSector(const QString& sector) {
    const QSignalBlocker b(Combo3);
    Combo3->setCurrentIndex(qMax(0, Combo3->findText(sector)));
}

#include "tax/forms/Form25.h"

#include "chart/Sectores.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form25::Form25(Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro, QWidget* padre)
    : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form25"));
    setWindowTitle(QStringLiteral("Seleccionar"));
    seleccion_.libro = libro;

    DTPicker1 = new CajaFecha({}, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha({}, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (CajaFecha* f : {DTPicker1, DTPicker2})
        if (s.FechaIniEj.isValid())
            f->setDateRange(s.FechaIniEj, s.FechaFinEj);
    DTPicker1->setDate(s.FechaIniEj);
    DTPicker2->setDate(s.FechaFinEj);

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItem(QString());
    try {
        for (const FilaSector& f : ListaSectores(s))
            Combo1->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar& e) {
        // The books can still be had for every sector.
        d.Informar(e.mensaje());
    }

    Check1 = new QCheckBox(QStringLiteral("Asiento"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Check2 = new QCheckBox(QStringLiteral("NIF"), this);
    Check2->setObjectName(QStringLiteral("Check2"));
    Check2->setEnabled(EsLibroFacturas(libro));

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Entre"), this), 0, 0);
    g->addWidget(DTPicker1, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("y"), this), 0, 2);
    g->addWidget(DTPicker2, 0, 3);
    g->addWidget(new QLabel(QStringLiteral("Sector"), this), 1, 0);
    g->addWidget(Combo1, 1, 1, 1, 3);
    auto* marcas = new QHBoxLayout;
    marcas->addWidget(Check1);
    marcas->addWidget(Check2);
    marcas->addStretch(1);
    g->addLayout(marcas, 2, 1, 1, 3);

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
    columna->addLayout(g);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form25::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 25);
}

void Form25::aceptar() {
    if (!ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    SeleccionLibroIva sel;
    sel.libro = seleccion_.libro;
    sel.desde = DTPicker1->date();
    sel.hasta = DTPicker2->date();
    sel.sector = Combo1->currentText().trimmed();
    sel.verAsiento = Check1->isChecked();
    sel.verNIF = Check2->isEnabled() && Check2->isChecked();
    if (!ValidarSeleccionLibroIva(sel, s_, d_)) {
        DTPicker1->setFocus();
        return;
    }
    seleccion_ = sel;
    accept();
}

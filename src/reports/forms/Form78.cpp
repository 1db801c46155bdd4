#include "reports/forms/Form78.h"

#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

Form78::Form78(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form78"));
    setWindowTitle(QStringLiteral("Sumas y Saldos"));
    DTPicker1 = new CajaFecha;
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha;
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (CajaFecha* f : {DTPicker1, DTPicker2}) {
        if (s.FechaIniEj.isValid())
            f->setDateRange(s.FechaIniEj, s.FechaFinEj);
    }
    DTPicker1->setDate(s.FechaIniEj);
    DTPicker2->setDate(s.FechaFinEj);

    auto* marco = new QGroupBox(QStringLiteral("Seleccionar Fecha"));
    auto* fechas = new QFormLayout(marco);
    fechas->addRow(QStringLiteral("Desde"), DTPicker1);
    fechas->addRow(QStringLiteral("Hasta"), DTPicker2);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"));
    Command2->setObjectName(QStringLiteral("Command2"));
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(marco);
    columna->addLayout(botones);

    connect(Command1, &QPushButton::clicked, this, [this, &d] {
        if (ComprobarFechas({DTPicker1, DTPicker2}, d))
            accept();
    });
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 78);
}

QDate Form78::desde() const {
    return DTPicker1->date();
}

QDate Form78::hasta() const {
    return DTPicker2->date();
}

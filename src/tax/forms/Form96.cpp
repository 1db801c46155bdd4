#include "tax/forms/Form96.h"

#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/forms/CajaFecha.h"
#include "tax/Modelo115.h"
#include "tax/forms/Form92.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form96::Form96(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("Form96"));
    setWindowTitle(QStringLiteral("Modelo 115"));
    const auto [d1, d2] = TrimestreInicial(s);
    DTPicker1 = new CajaFecha(d1, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha(d2, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    auto* periodo = new QGroupBox(QStringLiteral("Seleccione Periodo:"));
    auto* gp = new QHBoxLayout(periodo);
    gp->addWidget(new QLabel(QStringLiteral("Desde")));
    gp->addWidget(DTPicker1);
    gp->addWidget(new QLabel(QStringLiteral("Hasta")));
    gp->addWidget(DTPicker2);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(periodo);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form96::aceptar);
    PrepararVentana(this, a);
}

QDate Form96::desde() const {
    return DTPicker1->date();
}

QDate Form96::hasta() const {
    return DTPicker2->date();
}

void Form96::aceptar() {
    if (!ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    if (const auto msg = ComprobarPeriodo115(desde(), hasta())) {
        d_.Informar(*msg);
        return;
    }
    accept();
}

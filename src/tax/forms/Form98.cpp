#include "tax/forms/Form98.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Formato.h"
#include "store/Sesion.h"
#include "tax/Modelo347.h"
#include "tax/forms/CamposModelo.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form98::Form98(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form98"));
    setWindowTitle(QStringLiteral("Modelo 347"));
    // The declaration is of a whole year: the exercise's, or this year's without one.
    QDate d1 = s.FechaIniEj, d2 = s.FechaFinEj;
    if (!d1.isValid() || !d2.isValid()) {
        d1 = QDate(QDate::currentDate().year(), 1, 1);
        d2 = QDate(d1.year(), 12, 31);
    }
    DTPicker1 = new QDateEdit(d1, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new QDateEdit(d2, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (QDateEdit* f : {DTPicker1, DTPicker2}) {
        f->setCalendarPopup(true);
        f->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    }
    Text1 = new CajaCasilla(QStringLiteral("Text1"), s.PuntoDecimal, this);
    Text1->setText(a.leer(QStringLiteral("Datos"), QStringLiteral("Lim347"), LimiteDefecto347));
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Desde")), 0, 0);
    g->addWidget(DTPicker1, 0, 1);
    g->addWidget(new QLabel(QStringLiteral("Hasta")), 0, 2);
    g->addWidget(DTPicker2, 0, 3);
    g->addWidget(new QLabel(QStringLiteral("Limite de operaciones:")), 1, 0, 1, 2);
    g->addWidget(Text1, 1, 2, 1, 2);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(g);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form98::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a);
}

QDate Form98::desde() const {
    return DTPicker1->date();
}

QDate Form98::hasta() const {
    return DTPicker2->date();
}

void Form98::aceptar() {
    if (const auto msg = ComprobarPeriodo347(desde(), hasta(), Text1->text(), limite_)) {
        d_.Informar(*msg);
        const bool fechas = desde() > hasta() || desde().year() != hasta().year();
        (fechas ? static_cast<QWidget*>(DTPicker1) : Text1)->setFocus();
        return;
    }
    a_.escribir(QStringLiteral("Datos"), QStringLiteral("Lim347"),
                Formato(limite_, QStringLiteral("standard")));
    accept();
}

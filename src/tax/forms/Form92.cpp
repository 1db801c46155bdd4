#include "tax/forms/Form92.h"

#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"
#include "tax/CasillasModelo.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

std::pair<QDate, QDate> TrimestreInicial(const Sesion& s, const QDate& hoy) {
    QDate dia = hoy;
    if (s.FechaIniEj.isValid() && (hoy < s.FechaIniEj || hoy > s.FechaFinEj))
        dia = s.FechaIniEj;
    const QDate inicio(dia.year(), (dia.month() - 1) / 3 * 3 + 1, 1);
    return {inicio, inicio.addMonths(3).addDays(-1)};
}

Form92::Form92(Sesion& s, Ajustes& a, Dialogo& d, const QString& argumento, QWidget* padre)
    : QDialog(padre), d_(d), argumento_(argumento) {
    setObjectName(QStringLiteral("Form92"));
    setWindowTitle(QStringLiteral("Modelo 303"));
    const auto [d1, d2] = TrimestreInicial(s);
    DTPicker1 = new CajaFecha(d1, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha(d2, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);

    auto* fechas = new QGridLayout;
    fechas->addWidget(new QLabel(QStringLiteral("Seleccionar Periodo:")), 0, 0, 1, 4);
    fechas->addWidget(new QLabel(QStringLiteral("Desde")), 1, 0);
    fechas->addWidget(DTPicker1, 1, 1);
    fechas->addWidget(new QLabel(QStringLiteral("Hasta")), 1, 2);
    fechas->addWidget(DTPicker2, 1, 3);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(fechas);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form92::aceptar);
    PrepararVentana(this, a);
}

QDate Form92::desde() const {
    return DTPicker1->date();
}

QDate Form92::hasta() const {
    return DTPicker2->date();
}

void Form92::aceptar() {
    if (!ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    // The return before 2009 was another one: nothing to fill.
    if (argumento_ != QLatin1String("303")) {
        reject();
        return;
    }
    if (desde() > hasta()) {
        d_.Informar(MsgPeriodoInvertido);
        return;
    }
    accept();
}

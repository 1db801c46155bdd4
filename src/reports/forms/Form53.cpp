#include "reports/forms/Form53.h"

#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

Form53::Form53(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("Form53"));
    setWindowTitle(QStringLiteral("Mayor"));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    for (QLineEdit* t : {Text1, Text2}) {
        t->setMaxLength(3);
        t->setValidator(
            new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,3}")), t));
        t->setMaximumWidth(t->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 12);
        t->installEventFilter(this);
    }
    DTPicker1 = new CajaFecha({}, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha({}, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    DTPicker1->setDate(s.FechaIniEj);
    DTPicker2->setDate(s.FechaFinEj);

    auto* g = new QGridLayout;
    g->addWidget(new QLabel(QStringLiteral("Cuentas"), this), 0, 0);
    g->addWidget(new QLabel(QStringLiteral("entre"), this), 0, 1);
    g->addWidget(Text1, 0, 2);
    g->addWidget(new QLabel(QStringLiteral("y"), this), 0, 3);
    g->addWidget(Text2, 0, 4);
    g->addWidget(new QLabel(QStringLiteral("Fechas"), this), 1, 0);
    g->addWidget(new QLabel(QStringLiteral("entre"), this), 1, 1);
    g->addWidget(DTPicker1, 1, 2);
    g->addWidget(new QLabel(QStringLiteral("y"), this), 1, 3);
    g->addWidget(DTPicker2, 1, 4);
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
    connect(Command1, &QPushButton::clicked, this, &Form53::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 53);
}

bool Form53::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut && (objeto == Text1 || objeto == Text2) &&
        CuentaIncompleta(static_cast<QLineEdit*>(objeto)->text()))
        d_.Informar(MsgMayorTresDigitos);
    return QDialog::eventFilter(objeto, evento);
}

void Form53::aceptar() {
    if (!ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    CajasMayor c{DTPicker1->date(), DTPicker2->date(), Text1->text(), Text2->text()};
    int caja = 0;
    const auto sel = ValidarSeleccionMayor(c, d_, &caja);
    if (!sel) {
        (caja == 0   ? static_cast<QWidget*>(Text1)
         : caja == 1 ? static_cast<QWidget*>(Text2)
                     : DTPicker1)
            ->setFocus();
        return;
    }
    seleccion_ = *sel;
    accept();
}

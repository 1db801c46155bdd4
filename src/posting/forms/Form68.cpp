#include "posting/forms/Form68.h"

#include "store/Sesion.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form68::Form68(const Sesion& s, bool hayPunteadas, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form68"));
    setWindowTitle(QStringLiteral("Quilmar [Caja del Día]"));
    auto* raiz = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    Option1 = new QRadioButton(QStringLiteral("Todas"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Sólo las punteadas"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Option2->setEnabled(hayPunteadas);
    Option3 = new QRadioButton(QStringLiteral("Las comprendidas entre Fechas:"), this);
    Option3->setObjectName(QStringLiteral("Option3"));
    Option1->setChecked(true);
    const QDate hoy = QDate::currentDate();
    const QDate dia = hoy >= s.FechaIniEj && hoy <= s.FechaFinEj ? hoy : s.FechaIniEj;
    DTPicker1 = new QDateEdit(dia, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new QDateEdit(dia, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (QDateEdit* f : {DTPicker1, DTPicker2}) {
        f->setCalendarPopup(true);
        f->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        f->setEnabled(false);
    }
    g->addWidget(Option1, 0, 0, 1, 3);
    g->addWidget(Option2, 1, 0, 1, 3);
    g->addWidget(Option3, 2, 0, 1, 3);
    g->addWidget(DTPicker1, 3, 1);
    g->addWidget(DTPicker2, 3, 2);
    g->setColumnMinimumWidth(0, 20);
    raiz->addLayout(g);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    raiz->addLayout(botones);
    connect(Option3, &QRadioButton::toggled, this, [this](bool si) {
        DTPicker1->setEnabled(si);
        DTPicker2->setEnabled(si);
    });
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
}

CriterioPasar Form68::criterio() const {
    CriterioPasar c;
    if (Option2->isChecked())
        c.modo = ModoPasar::Punteadas;
    else if (Option3->isChecked())
        c.modo = ModoPasar::EntreFechas;
    c.desde = DTPicker1->date();
    c.hasta = DTPicker2->date();
    return c;
}

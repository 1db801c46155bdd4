#include "tax/forms/Form94.h"

#include "chart/Sectores.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"
#include "tax/forms/Form92.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString Sector(const QCheckBox* filtro, const QComboBox* combo) {
    const QString s = combo->currentText().trimmed();
    return filtro->isChecked() && !s.isEmpty() ? s : SinSector;
}

} // namespace

Form94::Form94(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("Form94"));
    setWindowTitle(QStringLiteral("Modelo 130"));
    // Section I runs from 1 January; the quarter in hand is the usual end.
    const QDate fin = TrimestreInicial(s).second;
    DTPicker1 = new CajaFecha(QDate(fin.year(), 1, 1), this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha(fin, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));

    QStringList sectores{QString()};
    try {
        for (const FilaSector& f : ListaSectores(s))
            sectores << f.Sector;
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    auto combo = [&](const char* nombre) {
        auto* c = new QComboBox(this);
        c->setObjectName(QString::fromLatin1(nombre));
        c->addItems(sectores);
        return c;
    };
    auto check = [&](const char* nombre, const QString& texto) {
        auto* c = new QCheckBox(texto, this);
        c->setObjectName(QString::fromLatin1(nombre));
        return c;
    };
    Check1 = check("Check1", QStringLiteral("I. Actividades económicas en estimación directa, "
                                            "modalidad normal o simplificada"));
    Check2 = check("Check2", QStringLiteral("II. Actividades agrícolas, ganaderas, forestales o "
                                            "pesqueras"));
    Check3 = check("Check3", QStringLiteral("Sólo los sectores:"));
    Check4 = check("Check4", QStringLiteral("Sólo los sectores:"));
    Combo1 = combo("Combo1");
    Combo2 = combo("Combo2");
    Combo3 = combo("Combo3");
    Combo4 = combo("Combo4");
    Check1->setChecked(true);

    auto* periodo = new QGroupBox(QStringLiteral("Seleccione Periodo:"));
    auto* gp = new QHBoxLayout(periodo);
    gp->addWidget(new QLabel(QStringLiteral("Desde")));
    gp->addWidget(DTPicker1);
    gp->addWidget(new QLabel(QStringLiteral("Hasta")));
    gp->addWidget(DTPicker2);
    gp->addStretch(1);

    auto* actividades = new QGroupBox(QStringLiteral("Seleccione Actividades:"));
    auto* ga = new QGridLayout(actividades);
    ga->addWidget(Check1, 0, 0, 1, 3);
    ga->addWidget(Check3, 1, 0);
    ga->addWidget(Combo1, 1, 1);
    ga->addWidget(Combo2, 1, 2);
    ga->addWidget(Check2, 2, 0, 1, 3);
    ga->addWidget(Check4, 3, 0);
    ga->addWidget(Combo3, 3, 1);
    ga->addWidget(Combo4, 3, 2);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(periodo);
    columna->addWidget(actividades);
    columna->addLayout(botones);

    for (QCheckBox* c : {Check1, Check2, Check3, Check4})
        connect(c, &QCheckBox::toggled, this, &Form94::habilitar);
    connect(Command1, &QPushButton::clicked, this, &Form94::aceptar);
    habilitar();
    PrepararVentana(this, a);
}

void Form94::habilitar() {
    Check3->setEnabled(Check1->isChecked());
    Check4->setEnabled(Check2->isChecked());
    Combo1->setEnabled(Check1->isChecked() && Check3->isChecked());
    Combo2->setEnabled(Combo1->isEnabled());
    Combo3->setEnabled(Check2->isChecked() && Check4->isChecked());
    Combo4->setEnabled(Combo3->isEnabled());
}

QDate Form94::desde() const {
    return DTPicker1->date();
}

QDate Form94::hasta() const {
    return DTPicker2->date();
}

Actividades130 Form94::actividades() const {
    Actividades130 a;
    a.seccionI = Check1->isChecked();
    a.seccionII = Check2->isChecked();
    if (a.seccionI) {
        a.sectoresI[0] = Sector(Check3, Combo1);
        a.sectoresI[1] = Sector(Check3, Combo2);
    }
    if (a.seccionII) {
        a.sectoresII[0] = Sector(Check4, Combo3);
        a.sectoresII[1] = Sector(Check4, Combo4);
    }
    return a;
}

void Form94::aceptar() {
    if (!ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    if (const auto msg = ComprobarPeriodo130(actividades(), desde(), hasta())) {
        d_.Informar(*msg);
        return;
    }
    accept();
}

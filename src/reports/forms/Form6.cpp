#include "reports/forms/Form6.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "store/forms/CajaFecha.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QString Numero(double n) {
    return QString::number(n, 'g', 15);
}

} // namespace

Form6::Form6(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Diario"));
    double maximo = 0;
    try {
        maximo = MaxAsiento(s);
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    inicial_ = SeleccionDiarioInicial(s, maximo);

    Option1 = new QRadioButton(QStringLiteral("Asientos"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Fechas"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option1->setChecked(true);
    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit;
    Text2->setObjectName(QStringLiteral("Text2"));
    DTPicker1 = new CajaFecha;
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    DTPicker2 = new CajaFecha;
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    for (CajaFecha* f : {DTPicker1, DTPicker2}) {
        if (s.FechaIniEj.isValid())
            f->setDateRange(s.FechaIniEj, s.FechaFinEj);
    }

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Option1, 0, 0);
    rejilla->addWidget(new QLabel(QStringLiteral("desde")), 0, 1);
    rejilla->addWidget(Text1, 0, 2);
    rejilla->addWidget(new QLabel(QStringLiteral("hasta")), 0, 3);
    rejilla->addWidget(Text2, 0, 4);
    rejilla->addWidget(Option2, 1, 0);
    rejilla->addWidget(new QLabel(QStringLiteral("desde")), 1, 1);
    rejilla->addWidget(DTPicker1, 1, 2);
    rejilla->addWidget(new QLabel(QStringLiteral("hasta")), 1, 3);
    rejilla->addWidget(DTPicker2, 1, 4);

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
    columna->addLayout(rejilla);
    columna->addLayout(botones);

    connect(Option1, &QRadioButton::toggled, this, &Form6::opcionElegida);
    connect(Command1, &QPushButton::clicked, this, &Form6::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    opcionElegida();
    Command1->setEnabled(maximo > 0);
    PrepararVentana(this, a, 6);
}

void Form6::opcionElegida() {
    // The other option's boxes are locked and go back to the defaults.
    const bool numeros = Option1->isChecked();
    Text1->setText(Numero(inicial_.desdeAsiento));
    Text2->setText(Numero(inicial_.hastaAsiento));
    DTPicker1->setDate(inicial_.desde);
    DTPicker2->setDate(inicial_.hasta);
    Text1->setEnabled(numeros);
    Text2->setEnabled(numeros);
    DTPicker1->setEnabled(!numeros);
    DTPicker2->setEnabled(!numeros);
}

void Form6::aceptar() {
    if (Option2->isChecked() && !ComprobarFechas({DTPicker1, DTPicker2}, d_))
        return;
    CajasSeleccionDiario c;
    c.porFechas = Option2->isChecked();
    c.desdeAsiento = Text1->text();
    c.hastaAsiento = Text2->text();
    c.desde = DTPicker1->date();
    c.hasta = DTPicker2->date();
    int caja = 0;
    const auto sel = ValidarSeleccionDiario(c, s_, d_, &caja);
    if (!sel) {
        if (c.porFechas)
            DTPicker1->setFocus();
        else
            (caja == 0 ? Text1 : Text2)->setFocus();
        return;
    }
    seleccion_ = *sel;
    accept();
}

#include "posting/forms/Form59.h"

#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QString corta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

} // namespace

Form59::Form59(Ajustes& a, Dialogo& d, const QString& origen, const QDate& fecha, QWidget* padre)
    : QDialog(padre), d_(d), origen_(origen), fecha_(fecha) {
    setObjectName(QStringLiteral("Form59"));
    setWindowTitle(QStringLiteral("Quilmar"));
    setModal(true);

    auto* grupo = new QGroupBox(QStringLiteral("Periodicidad"), this);
    auto* rejilla = new QGridLayout(grupo);
    int fila = 0;
    for (const RitmoPeriodico& r : Ritmos()) {
        auto* opcion = new QRadioButton(r.nombre, grupo);
        opcion->setObjectName(QStringLiteral("Option1_%1").arg(fila));
        const QDate paso = PasoPeriodicidad(fecha, r.periodicidad);
        auto* etiqueta = new QLabel(corta(paso), grupo);
        rejilla->addWidget(opcion, fila, 0);
        rejilla->addWidget(etiqueta, fila, 1);
        connect(opcion, &QRadioButton::toggled, this, [this, paso](bool marcada) {
            if (marcada)
                Text1->setText(corta(paso));
        });
        Option1 << opcion;
        ++fila;
    }
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaximumWidth(110);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));

    auto* proxima = new QHBoxLayout;
    proxima->addWidget(
        new QLabel(QStringLiteral("El próximo asiento se contabilizará en fecha:"), this));
    proxima->addWidget(Text1);
    proxima->addStretch();
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(new QLabel(QStringLiteral("Asiento del ") + corta(fecha), this));
    todo->addWidget(grupo);
    todo->addLayout(proxima);
    todo->addLayout(botones);

    // A month after the entry, as most periodic entries go.
    for (int i = 0; i < Ritmos().size(); ++i)
        if (Ritmos()[i].periodicidad == 12)
            Option1[i]->setChecked(true);
    Text1->setText(corta(ProximaPorDefecto(fecha)));
    connect(Command1, &QPushButton::clicked, this, &Form59::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 59);
}

void Form59::aceptar() {
    int elegida = -1;
    for (int i = 0; i < Option1.size(); ++i)
        if (Option1[i]->isChecked())
            elegida = i;
    if (elegida < 0) {
        d_.Informar(QStringLiteral("Elija la periodicidad del asiento."));
        return;
    }
    const QDate f = FechaDeTexto(ValidarFecha(Text1->text(), d_));
    if (!f.isValid()) {
        Text1->setFocus();
        Text1->selectAll();
        return;
    }
    eleccion_ = {f, Ritmos()[elegida].periodicidad};
    accept();
}

EleccionPeriodicidad PantallaPeriodicidadForm59::Elegir(const QString& origen, const QDate& fecha) {
    Form59 f(a_, d_, origen, fecha, padre_);
    f.exec();
    return f.eleccion();
}

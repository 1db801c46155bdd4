#include "reports/forms/Form9.h"

#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "reports/forms/CajasSubcuenta.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

Form9::Form9(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form9"));
    setWindowTitle(QStringLiteral("Movimientos de una Subcuenta"));
    cajas_ = new CajasSubcuenta(s, this);
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
    columna->addWidget(cajas_);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form9::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 9);
}

void Form9::aceptar() {
    if (!cajas_->fechasValidas(d_))
        return;
    try {
        const auto sel = ValidarSeleccionMovimientos(cajas_->cajas(), s_, d_);
        if (!sel)
            return;
        seleccion_ = *sel;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    accept();
}

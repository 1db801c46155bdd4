#include "platform/forms/VistaRejilla.h"

#include "platform/Rejilla.h"
#include "platform/forms/TablaRejilla.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

VistaRejilla::VistaRejilla(QWidget* padre)
    : QWidget(padre), tabla_(new TablaRejilla(this)), pie_(new QWidget(this)),
      totales_(new QHBoxLayout(pie_)) {
    auto* capas = new QVBoxLayout(this);
    capas->setContentsMargins(0, 0, 0, 0);
    capas->addWidget(tabla_, 1);
    capas->addWidget(pie_);
    totales_->setContentsMargins(0, 0, 0, 0);
    pie_->hide();
}

void VistaRejilla::mostrar(const Rejilla* rejilla) {
    tabla_->mostrar(rejilla);
    llenarTotales();
}

void VistaRejilla::actualizar() {
    tabla_->actualizar();
    llenarTotales();
}

void VistaRejilla::llenarTotales() {
    while (QLayoutItem* item = totales_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const Rejilla* r = tabla_->rejilla();
    const bool hay = r && !r->Totales().isEmpty();
    pie_->setVisible(hay);
    if (!hay)
        return;
    totales_->addStretch(1);
    for (const Rejilla::Total& t : r->Totales()) {
        auto* etiqueta = new QLabel(t.etiqueta, pie_);
        auto* valor = new QLabel(t.valor, pie_);
        valor->setObjectName(QStringLiteral("total:") + t.etiqueta);
        valor->setFrameShape(QFrame::Panel);
        valor->setFrameShadow(QFrame::Sunken);
        valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        valor->setMinimumWidth(
            valor->fontMetrics().horizontalAdvance(QStringLiteral("000.000.000,00")));
        valor->setTextInteractionFlags(Qt::TextSelectableByMouse);
        totales_->addWidget(etiqueta);
        totales_->addWidget(valor);
    }
}

QLabel* VistaRejilla::valorTotal(const QString& etiqueta) const {
    return pie_->findChild<QLabel*>(QStringLiteral("total:") + etiqueta);
}

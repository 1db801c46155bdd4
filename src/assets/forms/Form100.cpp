#include "assets/forms/Form100.h"

#include "assets/Centros.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Campos.h"
#include "store/forms/CampoTexto.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

Form100::Form100(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form100"));
    setWindowTitle(QStringLiteral("Quilmar [Centros]"));
    auto* raiz = new QVBoxLayout(this);
    Grid1 = NuevaLista(this, QStringLiteral("Grid1"), {QStringLiteral("Localización")});
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(Grid1, 1);
    auto* fila = new QHBoxLayout;
    fila->addWidget(new QLabel(QStringLiteral("Centro:"), this));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    LimitarCampo(Text1, Campo::Localizacion);
    fila->addWidget(Text1, 1);
    raiz->addLayout(fila);

    auto* botones = new QHBoxLayout;
    auto* anadir = new QPushButton(QStringLiteral("&Añadir"), this);
    anadir->setObjectName(QStringLiteral("Command1"));
    auto* modificar = new QPushButton(QStringLiteral("&Modificar"), this);
    modificar->setObjectName(QStringLiteral("Command2"));
    auto* salir = new QPushButton(QStringLiteral("&Salir"), this);
    salir->setObjectName(QStringLiteral("Command3"));
    for (QPushButton* b : {anadir, modificar, salir})
        b->setAutoDefault(false);
    botones->addWidget(anadir);
    botones->addWidget(modificar);
    botones->addStretch();
    botones->addWidget(salir);
    raiz->addLayout(botones);

    menu_ = new QMenu(this);
    QAction* eliminar = menu_->addAction(QStringLiteral("Eliminar"));
    eliminar->setObjectName(QStringLiteral("mnuEliminar"));
    connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = Grid1->rowAt(p.y());
        if (f < 0)
            return;
        Grid1->selectRow(f);
        menu_->popup(Grid1->viewport()->mapToGlobal(p));
    });
    connect(eliminar, &QAction::triggered, this, &Form100::Eliminar);
    connect(anadir, &QPushButton::clicked, this, &Form100::Anadir);
    connect(modificar, &QPushButton::clicked, this, &Form100::Modificar);
    connect(salir, &QPushButton::clicked, this, &QDialog::accept);
    // The name of the selected location goes to the box, ready to be changed.
    connect(Grid1, &QTableWidget::itemSelectionChanged, this,
            [this] { Text1->setText(CeldaSeleccionada(Grid1, 0)); });

    resize(380, 420);
    PrepararVentana(this, a, 100);
    llenar();
}

void Form100::llenar() {
    Grid1->setRowCount(0);
    try {
        for (const Centro& c : ListaCentros(s_))
            AnadirFila(Grid1, {c.Localizacion});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form100::Anadir() {
    try {
        if (!AnadirCentro(s_, d_, Text1->text())) {
            Text1->setFocus();
            return;
        }
        Text1->clear();
        llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form100::Modificar() {
    try {
        if (!RenombrarCentro(s_, d_, CeldaSeleccionada(Grid1, 0), Text1->text()))
            return;
        Text1->clear();
        llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form100::Eliminar() {
    const QString nombre = CeldaSeleccionada(Grid1, 0);
    if (nombre.isEmpty())
        return;
    try {
        if (EliminarCentro(s_, d_, nombre)) {
            Text1->clear();
            llenar();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

#include "chart/forms/FORM84.h"

#include "chart/Sectores.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/forms/CampoTexto.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int ColId = 1;
}

FORM84::FORM84(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("FORM84"));
    setWindowTitle(QStringLiteral("Quilmar [Sectores]"));
    auto* raiz = new QVBoxLayout(this);
    Grid1 = NuevaLista(this, QStringLiteral("Grid1"),
                       {QStringLiteral("Sector"), QStringLiteral("IdSector")}, 1);
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(Grid1, 1);
    auto* fila = new QHBoxLayout;
    fila->addWidget(new QLabel(QStringLiteral("Sector:"), this));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    LimitarCampo(Text1, Campo::Sector);
    fila->addWidget(Text1, 1);
    raiz->addLayout(fila);
    auto* botones = new QHBoxLayout;
    auto* aceptar = new QPushButton(QStringLiteral("Aceptar"), this);
    aceptar->setObjectName(QStringLiteral("Command1"));
    auto* salir = new QPushButton(QStringLiteral("Salir"), this);
    salir->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {aceptar, salir})
        b->setAutoDefault(false);
    botones->addWidget(aceptar);
    botones->addStretch();
    botones->addWidget(salir);
    raiz->addLayout(botones);

    mnuSectores = new QMenu(this);
    mnuSectores->setObjectName(QStringLiteral("mnuSectores"));
    QAction* modificar = mnuSectores->addAction(QStringLiteral("Modificar"));
    modificar->setObjectName(QStringLiteral("mnuModificar"));
    QAction* eliminar = mnuSectores->addAction(QStringLiteral("Eliminar"));
    eliminar->setObjectName(QStringLiteral("mnuEliminar"));

    connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = Grid1->rowAt(p.y());
        if (f < 0)
            return;
        Grid1->selectRow(f);
        mnuSectores->popup(Grid1->viewport()->mapToGlobal(p));
    });
    connect(modificar, &QAction::triggered, this, [this] { ModificarSeleccionado(); });
    connect(eliminar, &QAction::triggered, this, [this] { EliminarSeleccionado(); });
    connect(aceptar, &QPushButton::clicked, this, [this] { Aceptar(); });
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);

    resize(380, 420);
    PrepararVentana(this, a, 84);
    llenar();
}

void FORM84::llenar() {
    Grid1->setRowCount(0);
    try {
        for (const FilaSector& f : ListaSectores(s_))
            AnadirFila(Grid1, {f.Sector, QString::number(f.IdSector)});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void FORM84::Aceptar() {
    try {
        if (!GuardarSector(s_, d_, editando_, Text1->text()))
            return;
        editando_ = 0;
        Text1->clear();
        llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void FORM84::ModificarSeleccionado() {
    const QString id = CeldaSeleccionada(Grid1, ColId);
    if (id.isEmpty())
        return;
    editando_ = id.toLongLong();
    Text1->setText(CeldaSeleccionada(Grid1, 0));
    Text1->setFocus();
}

void FORM84::EliminarSeleccionado() {
    const QString id = CeldaSeleccionada(Grid1, ColId);
    if (id.isEmpty())
        return;
    try {
        const int n = EliminarSector(s_, d_, id.toLongLong());
        if (n < 0)
            return;
        editando_ = 0;
        Text1->clear();
        llenar();
        if (n > 0)
            Q_EMIT asientosEliminados();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

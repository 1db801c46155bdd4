#include "chart/forms/Form21.h"

#include "chart/Aparcar.h"
#include "chart/Listados.h"
#include "chart/NCuenta.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int ColNCuenta = 3;
}

Form21::Form21(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form21"));
    setWindowTitle(QStringLiteral("Quilmar [Aparcar]"));
    auto* raiz = new QVBoxLayout(this);
    auto* listas = new QHBoxLayout;
    MSFlexGrid1 = NuevaLista(this, QStringLiteral("MSFlexGrid1"), {QStringLiteral("Area")});
    for (int i = 0; i < NumeroAreas; ++i)
        AnadirFila(MSFlexGrid1, {NombreListaArea(i)});
    MSFlexGrid2 = NuevaLista(this, QStringLiteral("MSFlexGrid2"),
                             {QStringLiteral("Cuenta"), QStringLiteral("Aparcada"),
                              QStringLiteral("Desde"), QStringLiteral("NCuenta")},
                             1);
    MSFlexGrid2->horizontalHeader()->resizeSection(0, 260);
    MSFlexGrid2->setContextMenuPolicy(Qt::CustomContextMenu);
    listas->addWidget(MSFlexGrid1, 1);
    listas->addWidget(MSFlexGrid2, 3);
    raiz->addLayout(listas, 1);

    auto* botones = new QHBoxLayout;
    auto* imprimir = new QPushButton(QStringLiteral("Imprimir"), this);
    imprimir->setObjectName(QStringLiteral("Command1"));
    auto* exportar = new QPushButton(QStringLiteral("Exportar"), this);
    exportar->setObjectName(QStringLiteral("Command3"));
    for (QPushButton* b : {imprimir, exportar}) {
        b->setAutoDefault(false);
        botones->addWidget(b);
    }
    botones->addStretch();
    auto* salir = new QPushButton(QStringLiteral("Salir"), this);
    salir->setObjectName(QStringLiteral("Command2"));
    salir->setAutoDefault(false);
    botones->addWidget(salir);
    raiz->addLayout(botones);

    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("mnuMenuAparcar"));
    QAction* aparcar = menu_->addAction(QStringLiteral("Aparcar"));
    aparcar->setObjectName(QStringLiteral("mnuAparcarCuenta"));
    QAction* desaparcar = menu_->addAction(QStringLiteral("Desaparcar"));
    desaparcar->setObjectName(QStringLiteral("mnuDesaparcarCuenta"));

    connect(MSFlexGrid1, &QTableWidget::cellClicked, this, [this](int f) { MostrarArea(f); });
    connect(MSFlexGrid2, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = MSFlexGrid2->rowAt(p.y());
        if (f < 0)
            return;
        MSFlexGrid2->selectRow(f);
        menu_->popup(MSFlexGrid2->viewport()->mapToGlobal(p));
    });
    connect(aparcar, &QAction::triggered, this, [this] { AparcarSeleccionada(); });
    connect(desaparcar, &QAction::triggered, this, [this] { DesaparcarSeleccionada(); });
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    connect(imprimir, &QPushButton::clicked, this, [this] { Imprimir(); });
    connect(exportar, &QPushButton::clicked, this, [this] {
        try {
            ExportarListado(this, d_, ListadoAparcar(s_, area_));
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    });

    resize(640, 480);
    PrepararVentana(this, a, 21);
    MostrarArea(0);
}

void Form21::MostrarArea(int area) {
    if (area < 0 || area >= NumeroAreas)
        return;
    area_ = area;
    MSFlexGrid1->selectRow(area);
    llenar();
}

void Form21::llenar() {
    MSFlexGrid2->setRowCount(0);
    try {
        for (const FilaAparcar& f : ListaAparcar(s_, area_))
            AnadirFila(MSFlexGrid2, {f.Cuenta, f.Aparcada ? QStringLiteral("SI") : QString(),
                                     f.Desde, f.NCuenta});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form21::AparcarSeleccionada() {
    const QString n = CeldaSeleccionada(MSFlexGrid2, ColNCuenta);
    if (n.isEmpty())
        return;
    try {
        if (Aparcar(s_, d_, n)) {
            llenar();
            Q_EMIT areasCambiadas();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form21::DesaparcarSeleccionada() {
    const QString n = CeldaSeleccionada(MSFlexGrid2, ColNCuenta);
    if (n.isEmpty())
        return;
    try {
        if (Desaparcar(s_, d_, n)) {
            llenar();
            Q_EMIT areasCambiadas();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form21::Imprimir() {
    try {
        ImprimirListado(this, a_, ListadoAparcar(s_, area_));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

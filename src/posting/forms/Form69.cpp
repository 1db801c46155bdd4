#include "posting/forms/Form69.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/Predisenados.h"
#include "store/Conexiones.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString Nombres = QStringLiteral("Nombres");
const QString Codigos = QStringLiteral("Codigos");

} // namespace

Form69::Form69(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form69"));
    setWindowTitle(QStringLiteral("Asientos prediseñados"));
    setModal(true);

    auto* barra = new QMenuBar(this);
    QMenu* menu = barra->addMenu(QStringLiteral("&Ordenar"));
    mnuCodigos = menu->addAction(QStringLiteral("Ordenar por Códigos"));
    mnuCodigos->setObjectName(QStringLiteral("mnuCodigos"));
    mnuCodigos->setCheckable(true);
    mnuNombres = menu->addAction(QStringLiteral("Ordenar por Nombres"));
    mnuNombres->setObjectName(QStringLiteral("mnuNombres"));
    mnuNombres->setCheckable(true);

    MSFlexGrid1 = new QTableWidget(0, 2, this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setHorizontalHeaderLabels({QStringLiteral("Código"), QStringLiteral("Nombre")});
    MSFlexGrid1->verticalHeader()->setVisible(false);
    MSFlexGrid1->horizontalHeader()->setStretchLastSection(true);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->setColumnWidth(0, 70);
    MSFlexGrid1->installEventFilter(this);
    Label1 = new QLabel(QStringLiteral("INTRO o doble clic para contabilizar"), this);
    Label1->setObjectName(QStringLiteral("Label1"));

    auto* todo = new QVBoxLayout(this);
    todo->setMenuBar(barra);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addWidget(Label1);

    connect(mnuCodigos, &QAction::triggered, this, [this] { ordenar(false); });
    connect(mnuNombres, &QAction::triggered, this, [this] { ordenar(true); });
    connect(MSFlexGrid1, &QTableWidget::cellDoubleClicked, this,
            [this](int fila, int) { elegir(fila); });
    resize(420, 420);
    PrepararVentana(this, a_, 69);
    LlenarFlex();
    MSFlexGrid1->setFocus();
}

void Form69::LlenarFlex() {
    QList<ResumenPredisenado> lista;
    try {
        Conexion c = AbrirBavar(s_);
        lista = ListaPredisenados(c);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    const bool porNombres =
        a_.leer(QStringLiteral("Valores"), QStringLiteral("OrdenF12"), Codigos) == Nombres;
    if (porNombres)
        std::stable_sort(lista.begin(), lista.end(), [](const auto& x, const auto& y) {
            return QString::localeAwareCompare(x.Nombre, y.Nombre) < 0;
        });
    mnuCodigos->setChecked(!porNombres);
    mnuNombres->setChecked(porNombres);
    MSFlexGrid1->setRowCount(0);
    for (const ResumenPredisenado& p : lista) {
        const int f = MSFlexGrid1->rowCount();
        MSFlexGrid1->insertRow(f);
        auto* codigo = new QTableWidgetItem(CodigoPredi(p.Codigo));
        codigo->setData(Qt::UserRole, p.Codigo);
        MSFlexGrid1->setItem(f, 0, codigo);
        MSFlexGrid1->setItem(f, 1, new QTableWidgetItem(p.Nombre));
    }
    if (MSFlexGrid1->rowCount() > 0)
        MSFlexGrid1->selectRow(0);
}

void Form69::ordenar(bool porNombres) {
    a_.escribir(QStringLiteral("Valores"), QStringLiteral("OrdenF12"),
                porNombres ? Nombres : Codigos);
    LlenarFlex();
}

void Form69::elegir(int fila) {
    if (fila < 0 || fila >= MSFlexGrid1->rowCount())
        return;
    elegido_ = MSFlexGrid1->item(fila, 0)->data(Qt::UserRole).toInt();
    accept();
}

bool Form69::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == MSFlexGrid1 && evento->type() == QEvent::KeyPress &&
        EsIntro(static_cast<QKeyEvent*>(evento))) {
        elegir(MSFlexGrid1->currentRow());
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

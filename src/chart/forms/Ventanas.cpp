#include "chart/forms/Ventanas.h"

#include "chart/Listados.h"
#include "platform/Ajustes.h"
#include "platform/forms/ExportarDialogo.h"
#include "platform/forms/ImprimirLibro.h"

#include <QHeaderView>
#include <QTableWidget>

QTableWidget* NuevaLista(QWidget* padre, const QString& nombre, const QStringList& titulos,
                         int ocultas) {
    auto* t = new QTableWidget(0, titulos.size(), padre);
    t->setObjectName(nombre);
    t->setHorizontalHeaderLabels(titulos);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->verticalHeader()->setVisible(false);
    t->verticalHeader()->setDefaultSectionSize(t->fontMetrics().height() + 6);
    t->setAlternatingRowColors(true);
    for (int i = titulos.size() - ocultas; i < titulos.size(); ++i)
        t->setColumnHidden(i, true);
    // The last visible column takes the spare width (the hidden keys come after it).
    const int ultima = titulos.size() - ocultas - 1;
    if (ultima >= 0)
        t->horizontalHeader()->setSectionResizeMode(ultima, QHeaderView::Stretch);
    return t;
}

int AnadirFila(QTableWidget* t, const QStringList& celdas) {
    const int f = t->rowCount();
    t->insertRow(f);
    for (int c = 0; c < celdas.size() && c < t->columnCount(); ++c)
        t->setItem(f, c, new QTableWidgetItem(celdas.at(c)));
    return f;
}

QString CeldaSeleccionada(const QTableWidget* t, int columna) {
    const QList<QTableWidgetItem*> sel = t->selectedItems();
    if (sel.isEmpty())
        return {};
    const QTableWidgetItem* i = t->item(sel.first()->row(), columna);
    return i ? i->text() : QString();
}

int BuscarEnLista(const QTableWidget* t, const QString& texto, int desde) {
    const QString buscado = texto.trimmed();
    if (buscado.isEmpty())
        return -1;
    for (int f = desde + 1; f < t->rowCount(); ++f)
        for (int c = 0; c < t->columnCount(); ++c) {
            if (t->isColumnHidden(c))
                continue;
            const QTableWidgetItem* i = t->item(f, c);
            if (i && i->text().contains(buscado, Qt::CaseInsensitive))
                return f;
        }
    return -1;
}

void ImprimirListado(QWidget* padre, Ajustes& ajustes, const Listado& listado) {
    OpcionesImpresion o;
    o.titulo = listado.titulo;
    o.impresora = ajustes.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
    ImprimirLibro(
        padre, [&listado](Impresora& imp, int) { DibujarListado(imp, listado); }, o);
}

void ExportarListado(QWidget* padre, Dialogo& dialogo, const Listado& listado) {
    ExportarConDialogo(padre, listado.rejilla, dialogo);
}

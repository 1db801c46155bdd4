#include "platform/forms/TablaRejilla.h"

#include "platform/Rejilla.h"
#include "platform/forms/ModeloRejilla.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QStyledItemDelegate>
#include <vector>

namespace {
// Rows looked at to fit the column widths: enough to see the usual contents, few enough to
// cost nothing on a large book.
constexpr int FilasMuestra = 2000;
constexpr int AnchoMaximo = 420;

// The editor of a writable column: a line of at most largo characters.
class EditorLinea : public QStyledItemDelegate {
public:
    EditorLinea(int largo, QObject* padre) : QStyledItemDelegate(padre), largo_(largo) {}
    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& opcion,
                          const QModelIndex& indice) const override {
        QWidget* w = QStyledItemDelegate::createEditor(padre, opcion, indice);
        if (auto* linea = qobject_cast<QLineEdit*>(w))
            linea->setMaxLength(largo_);
        return w;
    }

private:
    int largo_;
};
} // namespace

TablaRejilla::TablaRejilla(QWidget* padre) : QTableView(padre), modelo_(new ModeloRejilla(this)) {
    setModel(modelo_);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setWordWrap(false);
    setAlternatingRowColors(true);
    setSortingEnabled(false);
    verticalHeader()->hide();
    // Every row the same height: the view then never measures rows it doesn't show.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setHighlightSections(false);
    modelo_->ponerFuente(font());
}

const Rejilla* TablaRejilla::rejilla() const {
    return modelo_->rejilla();
}

void TablaRejilla::mostrar(const Rejilla* rejilla) {
    modelo_->ponerRejilla(rejilla);
    aplicarFormaDeRejilla();
    ajustarAnchos();
}

void TablaRejilla::ponerEscribible(int columna, int largo) {
    modelo_->ponerEscribible(columna);
    setItemDelegateForColumn(columna, new EditorLinea(largo, this));
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed);
}

void TablaRejilla::terminarEdicion() {
    if (state() != QAbstractItemView::EditingState)
        return;
    if (QWidget* editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void TablaRejilla::actualizar() {
    modelo_->recargar();
    aplicarFormaDeRejilla();
}

void TablaRejilla::aplicarFormaDeRejilla() {
    clearSpans();
    const Rejilla* r = rejilla();
    if (!r)
        return;
    for (int c = 0; c < r->Columnas(); ++c)
        setColumnHidden(c, r->columna(c).oculta);
    for (int f = 0; f < r->Filas(); ++f)
        if (const auto tramo = r->Combinada(f))
            setSpan(f, tramo->desde, 1, tramo->hasta - tramo->desde + 1);
}

void TablaRejilla::ajustarAnchos() {
    const Rejilla* r = rejilla();
    if (!r)
        return;
    QFont negrita = font();
    negrita.setBold(true);
    const QFontMetrics normal(font()), gruesa(negrita);
    const int margen = 2 * style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 14;
    const int muestra = qMin(r->Filas(), FilasMuestra);
    for (int c = 0; c < r->Columnas(); ++c) {
        int ancho = horizontalHeader()->fontMetrics().horizontalAdvance(r->columna(c).titulo);
        for (int f = 0; f < muestra; ++f) {
            const auto tramo = r->Combinada(f);
            if (tramo && c == tramo->desde)
                continue; // a merged text spreads over its neighbours
            const QStringView s = r->celda(f, c);
            if (!s.isEmpty())
                ancho = qMax(ancho,
                             (r->Negrita(f, c) ? gruesa : normal).horizontalAdvance(s.toString()));
        }
        setColumnWidth(c, qMin(ancho + margen, AnchoMaximo));
    }
}

QString TablaRejilla::textoSeleccion() const {
    const Rejilla* r = rejilla();
    if (!r || !selectionModel())
        return {};
    const QItemSelection seleccion = selectionModel()->selection();
    if (seleccion.isEmpty())
        return {};
    // Rows and columns touched by any range; ranges are few even when rows are many.
    std::vector<bool> filas(r->Filas(), false), columnas(r->Columnas(), false);
    for (const QItemSelectionRange& rango : seleccion) {
        for (int f = rango.top(); f <= rango.bottom(); ++f)
            filas[f] = true;
        for (int c = rango.left(); c <= rango.right(); ++c)
            columnas[c] = true;
    }
    QList<int> visibles;
    for (int c = 0; c < r->Columnas(); ++c)
        if (columnas[c] && !isColumnHidden(c))
            visibles << c;
    QString texto;
    for (int f = 0; f < r->Filas(); ++f) {
        if (!filas[f])
            continue;
        for (int k = 0; k < visibles.size(); ++k) {
            if (k > 0)
                texto += u'\t';
            const int c = visibles[k];
            if (seleccion.size() == 1 || selectionModel()->isSelected(modelo_->index(f, c)))
                texto += r->celda(f, c);
        }
        texto += u'\n';
    }
    return texto;
}

void TablaRejilla::copiar() const {
    const QString texto = textoSeleccion();
    if (!texto.isEmpty())
        QApplication::clipboard()->setText(texto);
}

std::unique_ptr<QMenu> TablaRejilla::crearMenu(const QModelIndex& indice) {
    auto menu = std::make_unique<QMenu>(this);
    QAction* copiarAccion = menu->addAction(QStringLiteral("Copiar"), this, &TablaRejilla::copiar);
    copiarAccion->setShortcut(QKeySequence::Copy);
    copiarAccion->setEnabled(selectionModel() && selectionModel()->hasSelection());
    Q_EMIT prepararMenu(menu.get(), indice.isValid() ? indice.row() : -1,
                        indice.isValid() ? indice.column() : -1);
    return menu;
}

void TablaRejilla::keyPressEvent(QKeyEvent* evento) {
    if (evento->matches(QKeySequence::Copy)) {
        copiar();
        evento->accept();
        return;
    }
    QTableView::keyPressEvent(evento);
}

void TablaRejilla::contextMenuEvent(QContextMenuEvent* evento) {
    const QModelIndex indice = indexAt(viewport()->mapFromGlobal(evento->globalPos()));
    // A right click on an unselected cell selects it, so "Copiar" copies what was clicked.
    if (indice.isValid() && !selectionModel()->isSelected(indice))
        setCurrentIndex(indice);
    auto menu = crearMenu(indice);
    menu->exec(evento->globalPos());
}

void TablaRejilla::changeEvent(QEvent* evento) {
    if (evento->type() == QEvent::FontChange) {
        modelo_->ponerFuente(font());
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    }
    QTableView::changeEvent(evento);
}

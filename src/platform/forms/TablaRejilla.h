#pragma once
// The table of every list window: a QTableView over a Rejilla, fast with hundreds of thousands
// of rows (one model, uniform rows, widths measured on a sample), with merged rows as spans,
// hidden columns hidden, copy of the selection as tab-separated text (Ctrl+C and the context
// menu's "Copiar"), and a hook for the window's own context-menu entries.
//
// Usage (in a list window):
//     tabla_ = new TablaRejilla(this);
//     connect(tabla_, &TablaRejilla::prepararMenu, this, [this](QMenu* menu, int fila, int) {
//         menu->addAction(QStringLiteral("Ver Asiento"), this, [this, fila] { verAsiento(fila); });
//     });
//     LlenarDiario(rejilla_, ...);        // the logic fills the grid
//     tabla_->mostrar(&rejilla_);         // or tabla_->actualizar() when it is already shown
// VistaRejilla (VistaRejilla.h) adds the totals under the table. A column may be opened to typing
// with ponerEscribible (the notes column of a statement).

#include <QTableView>
#include <memory>

class ModeloRejilla;
class QMenu;
class Rejilla;

class TablaRejilla : public QTableView {
    Q_OBJECT
public:
    explicit TablaRejilla(QWidget* padre = nullptr);

    // Shows a grid (not owned): rows, spans, hidden columns, widths fitted to the contents.
    void mostrar(const Rejilla* rejilla);
    // The shown grid changed: rows, spans and hidden columns again; widths are kept.
    void actualizar();
    const Rejilla* rejilla() const;
    ModeloRejilla* modelo() const { return modelo_; }
    // Lets the user type in the cells of a column, at most largo characters (double click, F2 or
    // just typing); what is typed comes out of modelo()->celdaEscrita. The other columns stay
    // read-only.
    void ponerEscribible(int columna, int largo);
    // A cell being typed in keeps what was typed and closes, as if Enter had been pressed: for
    // the actions (print, export, another list) that don't take the focus from the table.
    void terminarEdicion();

    // The selected cells as tab-separated lines: the rows and the visible columns that hold a
    // selected cell, in order, with the unselected cells among them empty.
    QString textoSeleccion() const;
    void copiar() const;
    // The context menu of a cell: "Copiar", then the window's entries added in prepararMenu.
    std::unique_ptr<QMenu> crearMenu(const QModelIndex& indice);

Q_SIGNALS:
    // Before the context menu shows: add the window's entries for that cell (-1 when none).
    void prepararMenu(QMenu* menu, int fila, int columna);

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void changeEvent(QEvent* evento) override;

private:
    void aplicarFormaDeRejilla();
    void ajustarAnchos();

    ModeloRejilla* modelo_;
};

#pragma once
// The Qt model over a Rejilla: rows and cells straight from the grid, bold, colour and
// right-aligned figures by role. Nothing is copied, so a list of any size costs only the rows on
// screen.
//
// Usage: TablaRejilla (TablaRejilla.h) makes and uses one; a window needs it directly only to
// put the grid in another view. After the logic changes the grid, call recargar().
//
// Columns the user may type in (the notes of a statement) are named with ponerEscribible();
// the model never writes the grid itself: it hands the typed text to celdaEscrita, whose
// receiver writes it where it belongs (the grid shown, and any copy the window keeps).

#include <QAbstractTableModel>
#include <QFont>

class Rejilla;

class ModeloRejilla : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeloRejilla(QObject* padre = nullptr);

    // The grid shown; not owned, it must outlive the model or be replaced first.
    void ponerRejilla(const Rejilla* rejilla);
    const Rejilla* rejilla() const { return rejilla_; }
    // The grid changed (rows added, removed, sorted, cells written): show it again.
    void recargar();
    // The font of the view, made bold for bold cells.
    void ponerFuente(const QFont& fuente);
    // A column whose cells the user may type in; none by default.
    void ponerEscribible(int columna) {
        if (!escribibles_.contains(columna))
            escribibles_ << columna;
    }
    bool escribible(int columna) const { return escribibles_.contains(columna); }

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& indice) const override;
    bool setData(const QModelIndex& indice, const QVariant& valor, int rol = Qt::EditRole) override;

Q_SIGNALS:
    // The user typed texto into a cell of a writable column; the receiver writes it in the grid.
    void celdaEscrita(int fila, int columna, const QString& texto);

private:
    const Rejilla* rejilla_ = nullptr;
    QFont negrita_;
    QList<int> escribibles_;
};

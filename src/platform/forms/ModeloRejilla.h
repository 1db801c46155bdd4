#pragma once
// The Qt model over a Rejilla: rows and cells straight from the grid, bold, colour and
// right-aligned figures by role. Nothing is copied, so a list of any size costs only the rows on
// screen.
//
// Usage: TablaRejilla (TablaRejilla.h) makes and uses one; a window needs it directly only to
// put the grid in another view. After the logic changes the grid, call recargar().

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

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;

private:
    const Rejilla* rejilla_ = nullptr;
    QFont negrita_;
};

#pragma once
// A list window's body: the table of a Rejilla and, under it, the grid's totals as captions with
// their values ("Totales", "1.234,56"), right-aligned.
//
// Usage:
//     auto* vista = new VistaRejilla(this);
//     layout->addWidget(vista);
//     LlenarSyS(rejilla_, ...);
//     vista->mostrar(&rejilla_);          // table and totals
//     vista->tabla()->copiar();           // the table itself for menus and selection

#include <QWidget>

class QHBoxLayout;
class QLabel;
class Rejilla;
class TablaRejilla;

class VistaRejilla : public QWidget {
    Q_OBJECT
public:
    explicit VistaRejilla(QWidget* padre = nullptr);
    TablaRejilla* tabla() const { return tabla_; }
    // Shows a grid (not owned) with its totals.
    void mostrar(const Rejilla* rejilla);
    // The grid changed: rows and totals again.
    void actualizar();
    // The label showing the value of a total, or null (for tests and for windows that style it).
    QLabel* valorTotal(const QString& etiqueta) const;

private:
    void llenarTotales();

    TablaRejilla* tabla_;
    QWidget* pie_;
    QHBoxLayout* totales_;
};

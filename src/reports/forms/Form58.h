#pragma once
// "Quilmar [Ingresos y Gastos por meses]": the income and expense subaccounts month by month for
// the calendar year of the exercise, with the blocks' totals and the differences by month. The
// sector box above the list is chosen in Form15 ("..."); the list is filled again at once. Print
// (landscape, the print font of the configuration), export and copy as every list.
//
// Usage (the board): Form58* f = Form58::Abrir(sesion, ajustes, dialogo, this);

#include "reports/IngresosGastos.h"
#include "reports/forms/VentanaLibro.h"

class QLineEdit;
class QPushButton;

class Form58 : public VentanaLibro {
    Q_OBJECT
public:
    Form58(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The window, shown, with its fill started.
    static Form58* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    const SeleccionMesesIyG& seleccion() const { return sel_; }
    // Sets the sector box (empty: every sector) and fills the list again.
    void ponerSector(const QString& sector);

public Q_SLOTS:
    void LlenarMeses();
    // "...": Form15, then the list again with the sector chosen.
    void ElegirSector();
    void Imprimir();
    void Refrescar() override;

private:
    SeleccionMesesIyG sel_;
    QLineEdit* Text1;      // "Sector"
    QPushButton* Command1; // "..."
};

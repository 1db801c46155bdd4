#pragma once
// "Quilmar [Lista de Ingresos y Gastos]": the lines of the income or the expense subaccounts of a
// period (Form30 chooses the period, the side and the sector), with their "TOTAL" under the list.
// A list without lines says "No hay registros." and closes. A double click opens the line's
// entry through the journal's hook (Form5::VerModificarAsiento); print (the print font of the
// configuration), export and copy as every list.
//
// Usage (the board): if (Form31* f = Form31::Abrir(sesion, ajustes, dialogo, this)) ...

#include "reports/IngresosGastos.h"
#include "reports/forms/VentanaLibro.h"

class Form31 : public VentanaLibro {
    Q_OBJECT
public:
    Form31(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionListaIyG& sel,
           QWidget* padre = nullptr);

    // Form30, then the list, shown, with its fill started. Null when Form30 was cancelled.
    static Form31* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    const SeleccionListaIyG& seleccion() const { return sel_; }
    // The entry number of a row, or 0.
    long asientoDeFila(int fila) const;

public Q_SLOTS:
    void LlenarLista();
    void Imprimir();
    void Refrescar() override;

private:
    void verAsiento(int fila);

    SeleccionListaIyG sel_;
};

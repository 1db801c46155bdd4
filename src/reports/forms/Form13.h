#pragma once
// "Quilmar [Ingresos y Gastos]": the totals of the income and expense subaccounts with the share
// of each in its block, the blocks' totals and the result (Form12 chooses the period, the kind
// and the sector). The menu "Ordenar" sorts the subaccounts of each block by account (mnuOrdenar)
// or by amount (mnuOrdenImportes); print (the print font of the configuration, no option form),
// export and copy as every list. A double click on a subaccount opens its movements with the
// list's dates, through the hook the ledger's screens install:
//     Form13::VerMovimientos() = [](QWidget* ventana, const PeticionMovimientos& p) { ... };
//
// Usage (the board): if (Form13* f = Form13::Abrir(sesion, ajustes, dialogo, this)) ...

#include "reports/IngresosGastos.h"
#include "reports/forms/Form5.h"
#include "reports/forms/VentanaLibro.h"

class QLabel;

class Form13 : public VentanaLibro {
    Q_OBJECT
public:
    Form13(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionIyG& sel, QWidget* padre = nullptr);

    // Form12, then the list, shown, with its fill started. Null when Form12 was cancelled.
    static Form13* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    static Form5::GanchoMovimientos& VerMovimientos();

    const SeleccionIyG& seleccion() const { return sel_; }
    OrdenIyG orden() const { return orden_; }
    std::optional<PeticionMovimientos> peticionDeFila(int fila) const;

public Q_SLOTS:
    void LlenarIyG();
    void Ordenar(OrdenIyG orden);
    // "Imprimir": the preview of the printed list, then the printer or a PDF.
    void Imprimir();
    void Refrescar() override;

private:
    void verMovimientos(int fila);

    SeleccionIyG sel_;
    OrdenIyG orden_ = OrdenIyG::Cuenta;
};

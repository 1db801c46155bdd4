#pragma once
// "Quilmar [Mayor]": the ledger of a range of accounts (LlenarMayor). Actions: copy,
// "Ver/Modificar Asiento" (also a double click on a row with a number), "Eliminar Asiento" (the
// journal's question and refusal), print (Form85: new page per account or subaccount) and export.
//
// Usage (the board): Form55::AbrirConForm53(sesion, ajustes, dialogo, tablero).

#include "reports/Mayor.h"
#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

class Form55 : public VentanaLibro {
    Q_OBJECT
public:
    Form55(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionMayor& sel, QWidget* padre = nullptr);
    // Form53 first; null when it was cancelled. The window is shown and filled.
    static Form55* AbrirConForm53(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    const SeleccionMayor& seleccion() const { return sel_; }
    long asientoDeFila(int fila) const;
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    void LlenarMayor();
    void Imprimir();
    void Refrescar() override;

Q_SIGNALS:
    void asientoEliminado(long nas);

private:
    void verAsiento(int fila);
    void eliminarAsiento();

    SeleccionMayor sel_;
    OpcionesLibro opciones_;
};

#pragma once
// "Quilmar [Movimientos de una Subcuenta]": one subaccount's lines with the running balance, the
// boxes of Form9 at the top (changing them fills the list again), and under the grid the PERIODO
// and ACUMULADO lines. Actions: copy, "Ver/Modificar Asiento" (also a double click on a row
// with a number), "Eliminar Asiento" (the journal's question and refusal), print (Form80) and
// export.
//
// Usage:
//     Form10::AbrirConForm9(sesion, ajustes, dialogo, tablero);      // the board's menu entry
//     // Another book opening the movements of a row (the journal, the trial balance):
//     PeticionMovimientos p{desde, hasta, {}, ncuenta, nombre};
//     Form10* f = Form10::Abrir(sesion, ajustes, dialogo, p, ventana); // shown and filled
// The area box is set from the code by the setting CArea, whatever p.area holds.

#include "reports/Movimientos.h"
#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

class CajasSubcuenta;
class QLabel;

class Form10 : public VentanaLibro {
    Q_OBJECT
public:
    Form10(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The list on a subaccount and dates, shown and filled.
    static Form10* Abrir(Sesion& s, Ajustes& a, Dialogo& d, const PeticionMovimientos& p,
                         QWidget* padre = nullptr);
    // Form9 first; null when it was cancelled.
    static Form10* AbrirConForm9(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Shows a selection in the boxes and fills the list with it.
    void Mostrar(const SeleccionMovimientos& sel);
    const SeleccionMovimientos& seleccion() const { return sel_; }
    const TotalesMovimientos& totales() const { return totales_; }
    CajasSubcuenta* cajas() const { return cajas_; }
    long asientoDeFila(int fila) const;
    // The label of a total: "PeriodoDebe", "PeriodoHaber", "PeriodoSaldo", "AcumuladoDebe"...
    QLabel* etiqueta(const QString& nombre) const;
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    void LlenarMayor();
    void Imprimir();
    void Refrescar() override;

Q_SIGNALS:
    void asientoEliminado(long nas);

private:
    void cajasCambiadas();
    void mostrarTotales();
    void verAsiento(int fila);
    void eliminarAsiento();

    SeleccionMovimientos sel_;
    TotalesMovimientos totales_;
    OpcionesLibro opciones_;
    bool conSeleccion_ = false;
    CajasSubcuenta* cajas_;
    QWidget* pie_;
};

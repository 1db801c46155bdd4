#pragma once
// The boxes that choose one subaccount's movements, in Form9 and again at the top of Form10:
// area (the digits of the setting CArea), subaccount (its names, parked ones left out), sector
// (empty: every line) and the two dates "Entre" ... "y" .... Choosing an area fills the
// subaccount box.
//
// Usage:
//     auto* cajas = new CajasSubcuenta(sesion, this);
//     cajas->poner(peticion);                       // a subaccount and dates, or nothing
//     auto sel = ValidarSeleccionMovimientos(cajas->cajas(), sesion, dialogo);
//     connect(cajas, &CajasSubcuenta::cambiada, ...) // the user changed a box (not the area)

#include "reports/Movimientos.h"

#include <QWidget>

class QComboBox;
class CajaFecha;
class Dialogo;
struct Sesion;

class CajasSubcuenta : public QWidget {
    Q_OBJECT
public:
    explicit CajasSubcuenta(Sesion& s, QWidget* padre = nullptr);

    CajasMovimientos cajas() const;
    // The two dates checked as the posting screen checks them; a refused one takes the focus.
    bool fechasValidas(Dialogo& d);
    // Shows a subaccount (its area chosen by the setting CArea) and the dates, without signals.
    void poner(const PeticionMovimientos& p);
    void ponerSector(const QString& sector);

Q_SIGNALS:
    // The subaccount, the sector or a date was changed by the user.
    void cambiada();
    // The area was changed by the user (the subaccount box is refilled and left unchosen).
    void areaCambiada();

private:
    void llenarSubcuentas();

    Sesion& s_;
    QComboBox* Combo1; // area
    QComboBox* Combo2; // subaccount
    QComboBox* Combo3; // sector
    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
};

#pragma once
// "Movimientos de una Subcuenta": the choice of a subaccount, a sector and two dates before the
// list Form10 opens. "&Aceptar" checks the rules in order (ValidarSeleccionMovimientos).

#include "reports/Movimientos.h"

#include <QDialog>

class Ajustes;
class CajasSubcuenta;
class QPushButton;
struct Sesion;

class Form9 : public QDialog {
    Q_OBJECT
public:
    Form9(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const SeleccionMovimientos& seleccion() const { return seleccion_; }
    CajasSubcuenta* cajas() const { return cajas_; }

private:
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    SeleccionMovimientos seleccion_;
    CajasSubcuenta* cajas_;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

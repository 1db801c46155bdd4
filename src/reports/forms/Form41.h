#pragma once
// "Distribución por meses de una Cuenta": the subaccount of the chart of one account by month.
// "Seleccione la Subcuenta" with the area (the digits of the setting CArea) and the subaccounts
// of that area, parked ones left out. "&Aceptar" without an area says "Seleccione primero el Area
// al que pertenece la Subcuenta"; a name not in the chart, "Error en la cuenta.".
//
// Usage: Form41 f(sesion, ajustes, dialogo, this); if (f.exec() == QDialog::Accepted) f.cuenta()

#include "reports/Graficos.h"

#include <QDialog>

class QComboBox;
class QPushButton;

class Form41 : public QDialog {
    Q_OBJECT
public:
    Form41(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const CuentaGrafico& cuenta() const { return cuenta_; }

private:
    void llenarSubcuentas();
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    CuentaGrafico cuenta_;
    QComboBox* Combo1;     // "Area"
    QComboBox* Combo2;     // "Subcuenta"
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

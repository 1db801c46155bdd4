#pragma once
// Form33, "Quilmar [Cuadro amortización]": the repayment table of the calculator's registers,
// with print, export and copy.

#include "reports/forms/VentanaLibro.h"

class Calculadora;

class Form33 : public VentanaLibro {
    Q_OBJECT
public:
    Form33(Sesion& s, Ajustes& a, Dialogo& d, const Calculadora& k, QWidget* padre = nullptr);
    void Imprimir();

private:
    const Calculadora& k_;
};

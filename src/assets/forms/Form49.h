#pragma once
// Form49: the budget set against the journal for a period, in three columns (Presupuestado,
// Realizado, Diferencias), with print, export and copy.

#include "assets/Presupuestos.h"
#include "reports/forms/VentanaLibro.h"

class Form49 : public VentanaLibro {
    Q_OBJECT
public:
    Form49(Sesion& s, Ajustes& a, Dialogo& d, const QString& ruta, const PeriodoPresupuesto& per,
           QWidget* padre = nullptr);
    void Imprimir();
    void Refrescar() override;

private:
    QString ruta_;
    PeriodoPresupuesto per_;
    Presupuesto p_;
};

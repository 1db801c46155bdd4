#pragma once
// "Comparación de ejercicios": what the chart of the last years compares. "Comparar Areas" or
// "Comparar Subcuentas", "Seleccione número de años a comparar", the first year (the company's
// exercises in order), the area and, comparing subaccounts, the subaccount of that area (its
// list by name, parked ones left out; "No hay Cuentas creadas." when it has none). "&Aceptar"
// follows the rules of ValidarAnosGrafico and takes the company's exercises from the first year
// chosen on.
//
// Usage: Form2 f(s, a, d, this); if (f.exec() == QDialog::Accepted) GraficoAnos(s, f.seleccion(),
// f.anos());

#include "reports/Graficos.h"

#include <QDialog>

class QComboBox;
class QPushButton;
class QRadioButton;

class Form2 : public QDialog {
    Q_OBJECT
public:
    Form2(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    const SeleccionAnosGrafico& seleccion() const { return seleccion_; }
    const QList<int>& anos() const { return anos_; }

private:
    void llenarSubcuentas();
    void actualizarCajas();
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    SeleccionAnosGrafico seleccion_;
    QList<int> anos_;
    QList<int> ejercicios_;
    QRadioButton* Option1; // "Comparar Areas"
    QRadioButton* Option2; // "Comparar Subcuentas"
    QComboBox* Combo1;     // number of years
    QComboBox* Combo2;     // first year
    QComboBox* Combo3;     // area
    QComboBox* Combo4;     // subaccount
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

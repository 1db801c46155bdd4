#pragma once
// "Quilmar [Comparación entre años]" (menu mnuES): one area or one subaccount month by month, a
// row per exercise, each read from its own database. The choices stand above the list: the
// number of years ("Seleccione número de años a comparar"), the first year ("años desde"),
// "Por Areas" or "Por Cuentas" with the area and the subaccount, and the sector; "&Ver" fills the
// list. Print (landscape, "COMPARACION ENTRE AÑOS"), export and copy as every list.
//
// Usage (the board): Form42* f = Form42::Abrir(sesion, ajustes, dialogo, this);

#include "reports/ComparacionAnos.h"
#include "reports/forms/VentanaLibro.h"

#include <optional>

class QComboBox;
class QPushButton;
class QRadioButton;

class Form42 : public VentanaLibro {
    Q_OBJECT
public:
    Form42(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    static Form42* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    CajasComparacion cajas() const;
    // The selection of the last "&Ver" that passed its rules.
    const std::optional<SeleccionComparacion>& seleccion() const { return sel_; }

public Q_SLOTS:
    // "&Ver": the rules in order, then the list.
    void Ver();
    void Imprimir();
    void Refrescar() override;

private:
    void llenarSubcuentas();
    void actualizarCajas();

    std::optional<SeleccionComparacion> sel_;
    QComboBox* Combo1;     // number of years
    QComboBox* Combo2;     // first year
    QRadioButton* Option1; // "Por Areas"
    QRadioButton* Option2; // "Por Cuentas"
    QComboBox* Combo3;     // area
    QComboBox* Combo4;     // subaccount
    QComboBox* Combo5;     // sector
    QPushButton* Command1; // "&Ver"
};

#pragma once
// "Diario": which lines the journal shows, by entry numbers ("Asientos", desde/hasta) or by dates
// ("Fechas", two date pickers bounded by the exercise). The defaults are the whole exercise;
// without entries "&Aceptar" stays disabled.
//
// Usage: Form5::Abrir shows it modally and, when accepted, opens the journal with seleccion().

#include "reports/Diario.h"

#include <QDialog>

class Ajustes;
class Dialogo;
class CajaFecha;
class QLineEdit;
class QPushButton;
class QRadioButton;
struct Sesion;

class Form6 : public QDialog {
    Q_OBJECT
public:
    Form6(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    // The accepted selection.
    const SeleccionDiario& seleccion() const { return seleccion_; }

private:
    void opcionElegida();
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    SeleccionDiario inicial_;
    SeleccionDiario seleccion_;
    QRadioButton* Option1; // "Asientos"
    QRadioButton* Option2; // "Fechas"
    QLineEdit* Text1;      // desde
    QLineEdit* Text2;      // hasta
    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

#pragma once
// "Seleccionar": the choice before any of the four tax books opens. The two dates ("Entre", the
// open exercise by default and as their limits), the sector (an empty first item for all), and
// the check boxes "Asiento" (show the entry number) and "NIF" (show the party's tax number; only
// the invoice books have that column, so it is disabled in the other two). "&Aceptar" refuses a
// second date earlier than the first, with the first date taking the focus.
//
// Usage: VentanaLibroIva::Abrir shows it modally and opens the book with seleccion().

#include "tax/LibrosIva.h"

#include <QDialog>

class Ajustes;
class QCheckBox;
class QComboBox;
class CajaFecha;
class QPushButton;
struct Sesion;

class Form25 : public QDialog {
    Q_OBJECT
public:
    Form25(Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro, QWidget* padre = nullptr);
    const SeleccionLibroIva& seleccion() const { return seleccion_; }

private:
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    SeleccionLibroIva seleccion_;
    CajaFecha* DTPicker1;  // first date
    CajaFecha* DTPicker2;  // second date
    QComboBox* Combo1;     // "Sector"
    QCheckBox* Check1;     // "Asiento"
    QCheckBox* Check2;     // "NIF"
    QPushButton* Command1; // "&Aceptar"
    QPushButton* Command2; // "&Cancelar"
};

#pragma once
// "Quilmar [Eliminar]": the choice of the entries the menu deletes, one ("Un Asiento") or a range
// ("Varios Asientos"). It only chooses; the menu asks and deletes.

#include "journal/EliminarAsientos.h"

#include <QDialog>
#include <optional>

class Ajustes;
class Dialogo;
class QLineEdit;
class QPushButton;
class QRadioButton;

class Form45 : public QDialog {
    Q_OBJECT
public:
    Form45(Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The numbers chosen once accepted; nothing when cancelled.
    std::optional<EleccionEliminar> eleccion() const { return eleccion_; }

    QRadioButton* Option1; // Un Asiento
    QRadioButton* Option2; // Varios Asientos
    QLineEdit* Text1;      // Número
    QLineEdit* Text2;      // Desde Nº
    QLineEdit* Text3;      // hasta Nº
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar

private:
    void opcion();
    void aceptar();

    Dialogo& d_;
    std::optional<EleccionEliminar> eleccion_;
};

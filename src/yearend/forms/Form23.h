#pragma once
// The close of the exercise ("Cerrar ejercicio"), opened from the exercise screen: carry the
// balances to an exercise that exists, to one made on the spot, or nowhere.

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
struct Sesion;

class Form23 : public QDialog {
    Q_OBJECT
public:
    Form23(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Whether the close was done (the dialog is then accepted).
    bool cerrado() const { return cerrado_; }

private:
    void opcionElegida();
    void aceptar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    bool cerrado_ = false;
    QRadioButton* Option1; // carry the balances
    QRadioButton* Option2; // no transfer
    QRadioButton* Option3; // to an exercise that exists
    QRadioButton* Option4; // to a new one
    QComboBox* Combo1;     // the existing exercises
    QLineEdit* Text1;      // opening entry number
    QLineEdit* Text2;      // the year to create
    QLabel* Label1;        // "Selecciónelo"
    QLabel* Label2;        // "e indique el número del asiento de apertura..."
    QLabel* Label3;        // "Indique el ejercicio que se va a crear"
};

#pragma once
// Configuration: screen font, printer and print font, where the databases are, and how a
// subaccount's area is shown. Every choice is written at once.

#include <QDialog>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QRadioButton;
struct Sesion;

class Form54 : public QDialog {
    Q_OBJECT
public:
    Form54(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

Q_SIGNALS:
    // CArea changed ("Imagenes" or "Plan").
    void areaCambiada(const QString& carea);

private:
    void mostrarUbicacion();
    void modificarUbicacion();
    void escribir(const QString& clave, const QString& valor);

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QComboBox* Combo1;     // screen font
    QComboBox* Combo2;     // its size
    QComboBox* Combo3;     // printer
    QComboBox* Combo4;     // print font
    QComboBox* Combo5;     // its size
    QRadioButton* Option1; // databases in this computer
    QRadioButton* Option2; // in another computer of the network
    QLabel* Label5;        // the folder of a client installation
    QRadioButton* Option3; // areas as the pictures
    QRadioButton* Option4; // areas as the groups of the chart
};

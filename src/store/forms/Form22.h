#pragma once
// The exercises of the current company: make a new one, go to another, close or reopen the
// current one, delete one.

#include <QDialog>
#include <functional>

class Ajustes;
class Dialogo;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
struct Sesion;

class Form22 : public QDialog {
    Q_OBJECT
public:
    Form22(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The year close, installed by the screen that does it; true when the exercise was closed.
    // Until it is installed the option stays disabled.
    using GanchoCierre = std::function<bool(Sesion&, Ajustes&, Dialogo&, QWidget*)>;
    static GanchoCierre& CierreEjercicio();

Q_SIGNALS:
    void anoCreado(int ano);
    void anoEliminado(int ano);
    // The session is on another year, or the state of its exercise changed.
    void ejercicioCambiado();

private:
    void llenarListas();
    void opcionElegida();
    void aceptar();
    void nuevo();
    void seleccionar();
    void cerrar();
    void abrir();
    void eliminar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QRadioButton* Option[5]; // nuevo, seleccionar, cerrar, abrir, eliminar
    QLabel* Label1;          // "Indique el año (con cuatro cifras)"
    QLineEdit* Text1;
    QComboBox* Combo1; // go to
    QLabel* Label3;    // of Cerrar ejercicio
    QLabel* Label4;    // of Abrir ejercicio
    QComboBox* Combo2; // delete
};

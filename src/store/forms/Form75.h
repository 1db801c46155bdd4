#pragma once
// Changes the data of the current company as its exercise keeps them.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
struct Sesion;

class Form75 : public QDialog {
    Q_OBJECT
public:
    Form75(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

Q_SIGNALS:
    // The data were written (the name on the board may have changed).
    void datosGuardados(const QString& nombre);

private:
    void aceptar();

    Sesion& s_;
    Dialogo& d_;
    QLineEdit* Text[9]; // Código, Nombre, NIF/CIF, Calle, Nº, Ciudad, C.Postal, Provincia, Fecha
};

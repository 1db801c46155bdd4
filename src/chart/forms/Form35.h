#pragma once
// Form35, "Quilmar [Conceptos Predefinidos]": numbered descriptions for the lines of an entry.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QMenu;
class QTableWidget;
struct Sesion;

class Form35 : public QDialog {
    Q_OBJECT
public:
    Form35(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    void Aceptar();
    void ModificarSeleccionado(); // mnuModificar
    void EliminarSeleccionado();  // mnuEliminar
    void Imprimir();              // mnuImprimirC: "Conceptos predefinidos"

private:
    void llenar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QTableWidget* Grid1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QLineEdit* Text2 = nullptr;
    QMenu* menu_ = nullptr;
};

#pragma once
// Form48, "Quilmar [Tipos de IVA]": the VAT subaccounts with their rate and kind.

#include <QDialog>
#include <QStringList>

class Ajustes;
class Dialogo;
class QComboBox;
class QLineEdit;
class QMenu;
class QTableWidget;
struct Sesion;

class Form48 : public QDialog {
    Q_OBJECT
public:
    Form48(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    void Guardar();               // Añadir/Modif.
    void ModificarSeleccionada(); // mnuTipos, Modificar: the row to the fields
    void EliminarSeleccionada();  // mnuTipos, Eliminar
    void Imprimir();              // "Subcuentas de IVA"

private:
    void llenar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    QTableWidget* FG1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QStringList codigos_; // NCuenta of each entry of Combo1
    QComboBox* Combo2 = nullptr;
    QMenu* mnuTipos = nullptr;
};

#pragma once
// FORM84, the list of sectors: add, rename (the name also changes where the company's tables use
// it) and delete (with the posted entries that carry the sector).

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QMenu;
class QTableWidget;
struct Sesion;

class FORM84 : public QDialog {
    Q_OBJECT
public:
    FORM84(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    void Aceptar();
    void ModificarSeleccionado(); // mnuSectores, Modificar
    void EliminarSeleccionado();  // mnuSectores, Eliminar

Q_SIGNALS:
    // Entries were deleted with a sector: screens showing the journal must reload.
    void asientosEliminados();

private:
    void llenar();

    Sesion& s_;
    Dialogo& d_;
    qint64 editando_ = 0;
    QTableWidget* Grid1 = nullptr;
    QLineEdit* Text1 = nullptr;
    QMenu* mnuSectores = nullptr;
};

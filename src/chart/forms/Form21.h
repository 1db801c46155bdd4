#pragma once
// Form21, "Quilmar [Aparcar]": the areas, and the subaccounts of the chosen one with whether and
// since when they are parked; a context menu parks and unparks.

#include <QDialog>

class Ajustes;
class Dialogo;
class QMenu;
class QTableWidget;
struct Sesion;

class Form21 : public QDialog {
    Q_OBJECT
public:
    Form21(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    void MostrarArea(int area);
    // The actions of the context menu, on the selected row.
    void AparcarSeleccionada();
    void DesaparcarSeleccionada();
    // The list of the area on show, "LISTADO DE CUENTAS".
    void Imprimir();

Q_SIGNALS:
    // Parking changed what the board shows.
    void areasCambiadas();

private:
    void llenar();

    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    int area_ = 0;
    QTableWidget* MSFlexGrid1 = nullptr;
    QTableWidget* MSFlexGrid2 = nullptr;
    QMenu* menu_ = nullptr;
};

#pragma once
// Form100, "Quilmar [Centros]": the locations of the inventory. A name typed in Text1 is added
// with "&Añadir", or given to the location selected in the list with "&Modificar"; the list's
// context menu deletes the selected one (mnuEliminar).

#include <QDialog>

class Ajustes;
class Dialogo;
class QLineEdit;
class QMenu;
class QTableWidget;
struct Sesion;

class Form100 : public QDialog {
    Q_OBJECT
public:
    Form100(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    QTableWidget* lista() const { return Grid1; }

public Q_SLOTS:
    void Anadir();
    void Modificar();
    void Eliminar();

private:
    void llenar();

    const Sesion& s_;
    Dialogo& d_;
    QTableWidget* Grid1;
    QLineEdit* Text1;
    QMenu* menu_;
};

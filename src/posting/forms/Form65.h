#pragma once
// Form65, "Quilmar [Páginas web]": the pages the bank button of the board offers, a name and an
// address each.

#include <QDialog>

class Ajustes;
class QPushButton;
class QTableWidget;

class Form65 : public QDialog {
    Q_OBJECT
public:
    explicit Form65(Ajustes& a, QWidget* padre = nullptr);

    QTableWidget* Grid1;   // Nombre, Dirección
    QPushButton* Command1; // Añadir
    QPushButton* Command2; // Eliminar
    QPushButton* Command3; // Aceptar
    QPushButton* Command4; // Cancelar

private:
    void guardar();
    void anadirFila();
    Ajustes& a_;
};

#pragma once
// "Quilmar [Buscar]": finds a text in one column of the journal's grid, from the first row
// ("Buscar &Primero") or from the row after the last found ("Buscar &Siguiente"), without regard
// to case, selecting the row found. It belongs to the journal window and closes with it.

#include <QDialog>

class Dialogo;
class QLineEdit;
class QListWidget;
class QPushButton;
class TablaRejilla;

class Form57 : public QDialog {
    Q_OBJECT
public:
    Form57(TablaRejilla* tabla, Dialogo& d, QWidget* padre);
    // The row of the last match, or -1.
    int filaEncontrada() const { return fila_; }

private:
    void buscar(bool primero);
    void textoCambiado();

    TablaRejilla* tabla_;
    Dialogo& d_;
    int fila_ = -1;
    QLineEdit* Text1;      // "Buscar asiento que contenga:"
    QListWidget* List1;    // "En el campo:"
    QPushButton* Command1; // "Buscar &Primero"
    QPushButton* Command2; // "Buscar &Siguiente"
    QPushButton* Command3; // "&Salir"
};

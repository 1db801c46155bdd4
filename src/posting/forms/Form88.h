#pragma once
// Form88, "Quilmar [Ver Casación]": the lines of one matching group with their state, the sums of
// their debits and credits and what is still to match ("Diferencia"), and whether the group is
// "Casados totalmente" or "Casados parcialmente".
//
// Usage:
//     Form88 f(sesion, dialogo, clave, this);
//     f.exec();

#include "posting/Punteo.h"

#include <QDialog>

class Dialogo;
class QLabel;
class QPushButton;
class QTableWidget;
struct Sesion;

class Form88 : public QDialog {
    Q_OBJECT
public:
    Form88(Sesion& s, Dialogo& d, double clave, QWidget* padre = nullptr);

    QTableWidget* grid() const { return Grid1; }
    QLabel* estado() const { return Label1; }
    QLabel* sumas() const { return Label2; }

private:
    QLabel* Label1; // the group's state
    QTableWidget* Grid1;
    QLabel* Label2; // sums and difference
    QPushButton* Command1;
};

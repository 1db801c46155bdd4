#pragma once
// Reorganisation of the data ("Quilmar [Reorganización de Datos]"): checks the journal, rebuilds
// Mayor and checks the VAT records, with a bar that shows how far each stage has gone.

#include <QDialog>

class Ajustes;
class Dialogo;
class QLabel;
class QProgressBar;
class QPushButton;
struct Sesion;

class Form20 : public QDialog {
    Q_OBJECT
public:
    Form20(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Whether the process ran to its end.
    bool hecho() const { return hecho_; }

private:
    void Command1_Click();

    Sesion& s_;
    Dialogo& d_;
    bool hecho_ = false;
    QLabel* Label1;         // the explanation and the question
    QLabel* Label2;         // the stage under way
    QProgressBar* Picture1; // its share done
    QPushButton* Command1;  // &Aceptar
    QPushButton* Command2;  // &Salir
};

#pragma once
// "Modelo 347": the period of the annual declaration of third parties and the limit of
// operations a party must pass (setting Lim347 of section Datos, kept on "&Aceptar").
//
// Usage (the menu entry mnuM347):
//     Form98 f(s, a, d, tablero);
//     if (f.exec() == QDialog::Accepted) ... f.desde(), f.hasta(), f.limite()

#include <QDate>
#include <QDialog>

class Ajustes;
class Dialogo;
class QDateEdit;
class QLineEdit;
class QPushButton;
struct Sesion;

class Form98 : public QDialog {
    Q_OBJECT
public:
    Form98(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    QDate desde() const;
    QDate hasta() const;
    double limite() const { return limite_; }

    QDateEdit* DTPicker1;
    QDateEdit* DTPicker2;
    QLineEdit* Text1;      // Limite de operaciones:
    QPushButton* Command1; // &Aceptar
    QPushButton* Command2; // &Cancelar

private:
    void aceptar();

    Ajustes& a_;
    Dialogo& d_;
    double limite_ = 0;
};

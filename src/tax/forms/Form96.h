#pragma once
// "Modelo 115" — "Seleccione Periodo:": the dates of the rent-withholding return. "&Aceptar"
// refuses reversed dates and dates of two years, and closes accepted.
//
// Usage (the menu entry mnuM115):
//     Form96 f(s, a, d, tablero);
//     if (f.exec() == QDialog::Accepted) ... f.desde(), f.hasta()

#include <QDate>
#include <QDialog>

class Ajustes;
class Dialogo;
class CajaFecha;
class QPushButton;
struct Sesion;

class Form96 : public QDialog {
    Q_OBJECT
public:
    Form96(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);
    QDate desde() const;
    QDate hasta() const;

    CajaFecha* DTPicker1;
    CajaFecha* DTPicker2;
    QPushButton* Command1; // &Aceptar

private:
    void aceptar();

    Dialogo& d_;
};

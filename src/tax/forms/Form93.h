#pragma once
// "Quilmar [Modelo 130]": the income-tax instalment on screen, box by box. Enter or leaving a
// changed box recalculates; "&Imprimir Borrador" prints the draft; "Imprimir Mod. oficial"
// checks the return and makes the file for the tax authority.
//
// Usage (after Form94):
//     auto* f = new Form93(s, a, d, modelo, tablero);   // modelo filled by Llenar130
//     f->setAttribute(Qt::WA_DeleteOnClose);
//     f->show();

#include "tax/Modelo130.h"
#include "tax/forms/CamposModelo.h"

#include <QHash>

class QPushButton;

class Form93 : public PantallaModelo {
    Q_OBJECT
public:
    Form93(Sesion& s, Ajustes& a, Dialogo& d, const Modelo130& modelo, QWidget* padre = nullptr);

    const Modelo130& modelo() const { return m_; }

    void ImprimirBorrador();
    void ImprimirModOficial();

    QPushButton* Command1; // &Imprimir Borrador
    QPushButton* Command2; // Imprimir Mod. oficial
    QPushButton* Command3; // Ay&uda
    QPushButton* Command4; // &Salir

private:
    QWidget* crearCampos();
    // Takes the box's text (0: the amount to pay) and recalculates; false after telling the
    // user that the text is no amount.
    bool casillaEditada(int n);
    void leerCampos();
    bool confirmarCasillas();
    void mostrar();

    Modelo130 m_;
    QHash<int, CajaCasilla*> casillas_;
    CajaCasilla* importe_;
    QLineEdit *ejercicio_, *periodo_, *nif_, *apellidos_, *nombre_;
    CajaMarca *aDeducir_, *complementaria_, *negativa_, *efectivo_, *adeudo_;
    CajasCuenta* cargo_;
    QLineEdit* justificante_;
};

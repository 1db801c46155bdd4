#pragma once
// "Quilmar [Modelo 303]": the VAT return as an on-screen copy of the official form. Every box
// can be changed by hand; Enter or leaving a changed box recalculates. "&Imprimir Borrador"
// prints the draft, "Imprimir Mod. oficial" explains that there is no official print,
// "Presentación internet" checks the return and makes the file for the tax authority.
//
// Usage (after Form92):
//     auto* f = new Form109(s, a, d, modelo, tablero);   // modelo filled by Llenar303
//     f->setAttribute(Qt::WA_DeleteOnClose);
//     f->show();

#include "store/Sesion.h"
#include "tax/Modelo303.h"
#include "tax/forms/CamposModelo.h"

#include <QHash>

class QPushButton;

class Form109 : public PantallaModelo {
    Q_OBJECT
public:
    Form109(Sesion& s, Ajustes& a, Dialogo& d, const Modelo303& modelo, QWidget* padre = nullptr);

    // The return as the screen holds it (after the last recalculation).
    const Modelo303& modelo() const { return m_; }

    void ImprimirBorrador();
    void ImprimirModOficial();
    void PresentacionInternet();

    QPushButton* Command1; // &Imprimir Borrador
    QPushButton* Command2; // Imprimir Mod. oficial
    QPushButton* Command3; // Presentación internet
    QPushButton* Command4; // Ay&uda
    QPushButton* Command5; // &Salir

private:
    QWidget* crearCampos();
    // Takes the box's text (0: the amount to pay) and recalculates; false after telling the
    // user that the text is no amount.
    bool casillaEditada(int n);
    // Fields other than the boxes into the return.
    void leerCampos();
    // Boxes typed but not yet taken (an action pressed with a key): taken now. False after
    // telling the user of a box that holds no amount.
    bool confirmarCasillas();
    void mostrar();

    Modelo303 m_;
    // The books the return was filled from: the draft's breakdown comes from the same company
    // and exercise even if the board has moved to another meanwhile.
    const Sesion libros_;
    QHash<int, CajaCasilla*> casillas_;
    CajaCasilla* importe_;
    QLineEdit *ejercicio_, *periodo_, *nif_, *apellidos_, *nombre_;
    CajaMarca *si_, *no_, *sinActividad_, *efectivo_, *adeudo_, *complementaria_;
    CajasCuenta *devolucion_, *cargo_;
    QLineEdit* justificante_;
};

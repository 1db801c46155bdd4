#pragma once
// "Quilmar [Modelo 115]": the rent-withholding return on screen: the tax office, the
// identification and address of the filer, the boxes, the payment. Enter or leaving a changed
// box recalculates; "&Imprimir Borrador" prints the draft; "Imprimir Mod. oficial" checks the
// return and makes the file for the tax authority.
//
// Usage (after Form96):
//     auto* f = new Form95(s, a, d, modelo, tablero);   // modelo filled by Llenar115
//     f->setAttribute(Qt::WA_DeleteOnClose);
//     f->show();

#include "tax/Modelo115.h"
#include "tax/forms/CamposModelo.h"

#include <QHash>

class QPushButton;

class Form95 : public PantallaModelo {
    Q_OBJECT
public:
    Form95(Sesion& s, Ajustes& a, Dialogo& d, const Modelo115& modelo, QWidget* padre = nullptr);

    const Modelo115& modelo() const { return m_; }

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

    Modelo115 m_;
    QHash<int, CajaCasilla*> casillas_; // 2 to 5
    CajaCasilla* importe_;
    // Text fields by the name of their object, with the member of the return they hold.
    QList<std::pair<QLineEdit*, QString Modelo115::*>> textos_;
    CajaMarca *complementaria_, *efectivo_, *adeudo_;
    CajasCuenta* cargo_;
};

#pragma once
// "Quilmar [Asientos Prediseñados]": every template by code and name. "&Nuevo" and "&Ver" open
// the editor (Form74); "&Imprimir" prints "Listado de Asientos Tipo" after FORM90; the menu
// copies, opens ("Ver Asiento") or deletes ("Eliminar Asiento") a template. The hint tells how
// templates are posted: Control and the code on the board or on the maintenance screen, F12
// for the list.

#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

class Form1;

extern const QString MsgComoContabilizarPredisenado;

class Form67 : public VentanaLibro {
    Q_OBJECT
public:
    Form67(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Opens the window (or brings forward the one open) and fills it.
    static Form67* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // AsTipo: fills template `codigo`, asking its variable fields line by line (Form76), and
    // hands the entry to the maintenance screen as a new entry. Nothing changes when the code
    // doesn't exist, the user cancels, or a formula fails. True when the entry landed there.
    static bool AsTipo(Sesion& s, Ajustes& a, Dialogo& d, int codigo, QWidget* padre = nullptr);

    // The code of the template on a row of the list, or -1.
    int codigoDeFila(int fila) const;
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    void LlenarFlex();
    void Nuevo();
    void Ver(int fila);
    void Eliminar(int fila);
    void Imprimir();
    void Refrescar() override;

private:
    OpcionesLibro opciones_;
};

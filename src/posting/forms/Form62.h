#pragma once
// "Quilmar [Asientos periódicos]": the periodic entries, one row per entry with its first and
// next dates, name and rhythm. The right-click menu (mnuPer) copies, opens an entry in Form63
// ("Ver/Modificar Asiento", also by a double click) or deletes it; "I&mprimir" prints
// "Listado de Asientos Periódicos" after FORM90; "Exportar" saves the list.

#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

class Form62 : public VentanaLibro {
    Q_OBJECT
public:
    Form62(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // Opens the window (or brings forward the one open) and fills it.
    static Form62* Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre = nullptr);

    // The name of the entry on a row of the list.
    QString nombreDeFila(int fila) const;
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    void LlenarFlex();
    // "I&mprimir": FORM90, then the list.
    void Imprimir();
    void VerModificar(int fila);
    void EliminarAsiento(int fila);
    void Refrescar() override;

private:
    OpcionesLibro opciones_;
};

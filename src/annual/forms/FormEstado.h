#pragma once
// The window of a statement: the balance sheet (Form81 up to 2007, Form105 from 2008) and the
// profit and loss account (Form82, Form106). Its object name is the form's. Two lists shown one
// at a time (assets and liabilities, or debit and credit; Form106 has one), printing through
// Form83 and export of the list on show.
//
// Usage (the board's menu):
//     if (FormEstado* f = FormEstado::Abrir(s, a, d, TipoEstado::Balance, tablero))
//         tablero->registrarLibro(f, QStringLiteral("Anuales"));
// From 2008 Abrir asks "Desea obtener el Balance con desglose hasta las subcuentas?" first.
// The PYMES layouts take a note typed beside any line ("Notas Mem."): it stays while the window
// is open, through a fill again, goes into the print and the export, and is never saved.

#include "annual/Estados.h"
#include "reports/OpcionesLibro.h"
#include "reports/forms/VentanaLibro.h"

class FormEstado : public VentanaLibro {
    Q_OBJECT
public:
    FormEstado(Sesion& s, Ajustes& a, Dialogo& d, Modelo modelo, bool desglose,
               QWidget* padre = nullptr);
    ~FormEstado() override;

    // The question on the breakdown where the layout asks it, then the window, shown and filled.
    // Null when the exercise has no movement (the user has been told).
    static FormEstado* Abrir(Sesion& s, Ajustes& a, Dialogo& d, TipoEstado tipo,
                             QWidget* padre = nullptr);

    const EstadoCuentas& estado() const { return estado_; }
    // Which list is on show: 1 (assets, debit) or 2 (liabilities, credit).
    int listaVisible() const { return lista_; }
    const OpcionesLibro& opciones() const { return opciones_; }

public Q_SLOTS:
    // Fills both lists; false when there is nothing in the exercise.
    bool Llenar();
    void MostrarLista(int lista);
    // "Command3": Form83, then the statement (preview, printer or PDF).
    void Imprimir();
    void Refrescar() override;
    // A note typed beside row fila of the list on show ("Notas Mem.", PYMES layouts).
    void EscribirNota(int fila, const QString& texto);

private:
    // The list on show as the window shows it: the level columns narrow, as indents, and the
    // last text column wide enough for every label that spreads over them.
    void AjustarAnchos();

    Modelo modelo_;
    bool desglose_;
    EstadoCuentas estado_;
    int lista_ = 1;
    OpcionesLibro opciones_;
};

#pragma once
// Seeing and changing a periodic entry (Form63 without the screen): its lines in the grid of the
// maintenance screen, edited one by one with the same fields and checks (no VAT data: those are
// typed at each posting), its next date, rhythm and sector; "&Aceptar" writes it anew.

#include "posting/GestionAsientos.h"
#include "posting/Periodicos.h"

#include <QString>
#include <QStringList>

class Dialogo;
struct Sesion;

class EditorPeriodico {
public:
    EditorPeriodico(const Sesion& s, Dialogo& d);

    RejillaF7 Rejilla; // Cuenta, Concepto, Debe, Haber, NCuenta, ..., Documento

    // The entry.
    QString Nombre;
    QDate FechaIni;
    QString Fecha;        // the next date, as typed
    QString FechaCargada; // the next date as loaded, "dd/MM/yyyy"
    qint16 Periodicidad = 12;
    QString Sector;

    // The line fields.
    QString Area;
    QStringList Nombres; // subaccounts of the area ...
    QStringList Codigos; // ... and their codes in step
    QString Cuenta;
    QString NCuenta;
    QString Concepto;
    QString Debe;
    QString Haber;
    QString Documento;
    QString Saldo;
    QString TextoDescuadre; // "Descuadre "
    int FilaSeleccionada = 0;

    // Loads an entry by name. False when it has no rows.
    bool Cargar(const QString& nombre);
    // The entry as the screen holds it.
    AsientoPeriodico Asiento() const;

    // --- Public operations, as on the maintenance screen --------------------------------------
    void Descuadre();
    void Resaltar() { Rejilla.Resaltar(); }
    bool Cuadrado() const;

    // --- Lines -----------------------------------------------------------------------------
    QStringList Areas() const;
    void ElegirArea(const QString& area);
    bool ElegirSubcuenta(int indice);
    void SeleccionarLinea(int fila);
    void VaciarLinea();
    // "Añadir Apunte", "Modificar Apunte" (the selected line): the checks of the maintenance
    // screen, with "El importe introducido no es válido." for an amount that isn't one.
    bool AnadirApunte();
    bool ModificarApunte();
    // "Eliminar Apunte": asks, then removes the line from the grid.
    bool EliminarApunte(int fila);

    // "Eliminar Asiento": asks, then deletes every row of the entry. True when they went.
    bool EliminarAsiento();
    // "&Aceptar": a change of date is confirmed; an unbalanced entry refused; otherwise every row
    // of the name is written anew and "Modificación realizada." shown. True when written.
    bool Aceptar();

private:
    bool lineaDeCampos(int fila);
    void mostrarSaldo();

    const Sesion& s_;
    Dialogo& d_;
};

extern const QString MsgCambiarFechaPeriodico;
extern const QString MsgModificacionRealizada;

#pragma once
// The due-date screen without the screen: its fields as plain members that the screen mirrors,
// the lists it offers, and what its buttons and menu do: add, change and delete a due date, fill
// and colour the list, search it, purge it. Every write tells VencimientosCambiados, so that the
// board paints its lights again.
//
// Usage (what a test or the screen does):
//     GestionVencimientos g(sesion, dialogo);
//     g.Cargar(hoy);
//     g.ElegirTipo("Cobro"); g.ElegirArea("4"); g.ElegirSubcuenta(0); ...
//     g.Importe = "1.210,00";
//     g.Anadir(hoy, QDateTime::currentDateTime());   // the list gains the row

#include "platform/Dialogo.h"
#include "platform/Rejilla.h"
#include "posting/ListaVencimientos.h"
#include "posting/Vencimientos.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

class RejillaAsiento;
struct DatosVencimientoLinea;
struct Sesion;

// What a line of the maintenance screen hands to the due-date screen, as a line of the posting
// screen does: "Pago" when its debit is above 0, else "Cobro"; the area of its code, its name,
// description, amount, document and sector; the date is the entry's.
DatosVencimientoLinea VencimientoDeLineaF7(const RejillaAsiento& r, int fila, const Sesion& s,
                                           const QString& fecha);

class GestionVencimientos {
public:
    GestionVencimientos(Sesion& s, Dialogo& d);

    // The fields, as the screen shows them.
    QString FechaV;      // "F.Vencimiento", as typed
    QString Tipo;        // "Tipo": Cobro, Pago or empty
    QString Area;        // "Area": a digit or empty
    QStringList Nombres; // "Subcuenta": the subaccounts of the area ...
    QStringList Codigos; // ... and their codes in step
    QString Cuenta;      // the name chosen
    QString NCuenta1;    // its code
    QString Concepto;
    QString FechaE;          // "F.Emisión"
    QStringList CajaNombres; // "Caja/Banco": subaccounts of area 1 ...
    QStringList CajaCodigos; // ... and their codes
    QString CajaBanco;       // the name chosen
    QString NCuenta2;        // its code
    QString Situacion = SituacionPendiente;
    QString Importe;
    QString Documento, Remesa, Sector;
    QString Forma;
    // The due date copied from the list by a double click, which "&Modificar" and "&Eliminar"
    // work on; 0 when none.
    double IdVenc = 0;

    // The subaccounts offered by "Subcta C/P:", by name, and their codes.
    QStringList FiltroNombres, FiltroCodigos;
    // The filters of the list as last applied.
    FiltrosVenc Filtros;
    Rejilla Lista = RejillaVencimientos();
    double Total = 0;

    // After every write: the board's lights.
    std::function<void()> VencimientosCambiados;

    // The lists of the fields and the empty fields; F.Emisión is today.
    void Cargar(const QDate& hoy);
    QStringList Areas() const;

    void ElegirTipo(const QString& tipo);
    void ElegirArea(const QString& area);
    // Chooses a subaccount of the area, with the warning of an area that fits badly the type.
    bool ElegirSubcuenta(int indice);
    void ElegirCaja(int indice);
    void ElegirSituacion(const QString& situacion);
    // Borrar: empties the fields (the state goes back to "Pendiente", F.Emisión to today).
    void Borrar(const QDate& hoy);
    // The fields pre-filled from a line of an entry.
    void Prellenar(const DatosVencimientoLinea& l);
    CamposVencimiento Campos() const;

    // "&Añadir": the checks, the row written and added to the list as it stands. True when
    // written.
    bool Anadir(const QDate& hoy, const QDateTime& ahora);
    // "&Modificar": the row copied by a double click rewritten, and the list filled again.
    bool Modificar(const QDate& hoy);
    // "&Eliminar": after the question, the row deleted, taken off the list, and Borrar.
    bool Eliminar(const QDate& hoy);
    // The double click: a row of the list copied to the fields. False when it holds no key.
    bool CargarFila(int fila);

    // "&Ver": the checks of the filters, then LlenarVenc with them.
    bool Ver(const FiltrosVenc& filtros, const QDate& hoy, const Progreso& progreso = {});
    // LlenarVenc: the list again with the filters last applied.
    void LlenarVenc(const QDate& hoy, const Progreso& progreso = {});

    // The purges of the menu, then LlenarVenc. The rows deleted, or -1 when declined.
    int EliminarVenc(int meses, const QDate& hoy);
    int EliminarCobradosPagados(const QDate& hoy);

private:
    void cambiado();
    void ponerTotal();
    int filaDeClave(double id) const;

    Sesion& s_;
    Dialogo& d_;
};

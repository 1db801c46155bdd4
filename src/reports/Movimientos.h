#pragma once
// The movements of one subaccount (Form9 chooses it, Form10 lists it): which lines, the grid with
// its six columns and a running balance by the subaccount's nature, the "Saldo Inicial" row when
// the list starts after the first day of the exercise, and the PERIODO and ACUMULADO lines.
// The printed book is ImpresionMayor.h; the whole ledger of a range of accounts is Mayor.h.
//
// Usage:
//     CajasMovimientos cajas{desde, hasta, area, nombreSubcuenta, sector};   // Form9's boxes
//     auto sel = ValidarSeleccionMovimientos(cajas, sesion, dialogo);        // "&Aceptar"
//     Rejilla r = RejillaMovimientos();
//     Conexion c = AbrirDatos(sesion);
//     const TotalesMovimientos t = LlenarMovimientos(c, sesion, *sel, r);
//     t.periodo.saldo, t.acumulado ...                                       // the two lines
//
// Order: the lines stand by entry number as a number (9 before 10, 999 before 1.000), and within
// an entry by line number. The screen of old sorted the column as text, which puts "10" before
// "9"; an accountant reads the list by number.

#include "platform/Dialogo.h"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;
class Rejilla;
struct Sesion;

// What a book hands to the movements of a subaccount (the journal's "Ver Movimientos de la
// Subcuenta", the trial balance's double click): the dates of the list and the subaccount.
struct PeticionMovimientos {
    QDate desde, hasta; // the list's dates (the exercise's when selected by numbers)
    QString area;       // the digit of the area box, by the setting CArea
    QString ncuenta;
    QString nombre; // the subaccount's name as the row shows it
};

struct SeleccionMovimientos {
    QDate desde, hasta;
    QString ncuenta;
    QString nombre;
    QString sector; // empty: every line
};

// What Form9's boxes (and Form10's own) hold.
struct CajasMovimientos {
    QDate desde, hasta;
    QString area;      // the digit chosen in the area box, empty when none
    QString subcuenta; // the subaccount's name as the box shows it
    QString sector;
};

inline const QString MsgMovFechas =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");
inline const QString MsgMovArea =
    QStringLiteral("Tiene que seleccionar el Area al que pertenece la Subcuenta.");
inline const QString MsgMovSubcuenta = QStringLiteral("Tiene que seleccionar la Subcuenta.");
inline const QString MsgMovErrorCuenta = QStringLiteral("Error en la cuenta.");
// Form10's own boxes, changed with no area chosen.
inline const QString MsgMovAreaForm10 = QStringLiteral("Tiene que seleccionar el Area.");

// "&Aceptar" of Form9: the rules in their order, the subaccount found by its name. On a failure
// the user is told and nothing is returned.
std::optional<SeleccionMovimientos> ValidarSeleccionMovimientos(const CajasMovimientos& cajas,
                                                                const Sesion& s, Dialogo& dialogo);

// Debit nature (areas 1, 4, 5, 6): balance = debit - credit; the others credit - debit.
bool NaturalezaDeudora(const QString& ncuenta);
// The balance of sums by the subaccount's nature.
double SaldoPorNaturaleza(const QString& ncuenta, double debe, double haber);

enum ColumnaMovimientos {
    ColMovAsiento,
    ColMovFecha,
    ColMovConcepto,
    ColMovDebe,
    ColMovHaber,
    ColMovSaldo,
    ColumnasMovimientos
};

// "Nº As.", "Fecha", "Concepto", "Debe", "Haber", "Saldo".
Rejilla RejillaMovimientos();

inline const QString TextoSaldoInicial = QStringLiteral("Saldo Inicial");

struct LineaTotales {
    double debe = 0, haber = 0, saldo = 0;
};

struct TotalesMovimientos {
    LineaTotales periodo;   // "PERIODO"
    LineaTotales acumulado; // "ACUMULADO"
    // False when the list starts on the first day of the exercise or has fewer than two rows:
    // only the period line shows, with the last balance.
    bool conAcumulado = false;
    double anteriorDebe = 0, anteriorHaber = 0; // sums before the from date (no sector filter)
};

// LlenarMovimientos (LlenarMayor of Form10): the grid emptied and filled. The previous sums of the
// initial row ignore the sector; the period's lines take it.
TotalesMovimientos LlenarMovimientos(Conexion& c, const Sesion& s, const SeleccionMovimientos& sel,
                                     Rejilla& rejilla);

// Deleting an entry from these lists is the journal's EliminarAsientoDiario (Diario.h).

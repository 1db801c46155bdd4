#pragma once
// The trial balance on screen, "Balance de Sumas y Saldos": every subaccount with movement
// between two dates, sorted by its three-digit account, each account's subaccounts under a bold
// row with the account's name and subtotals, and the totals under the list.
//
// Usage:
//     Rejilla r = RejillaSyS();
//     Conexion c = AbrirDatos(sesion);
//     LlenarSyS(c, sesion, desde, hasta, r);  // rows, and "ACUMULADOS" debit, credit, balance
// The printed book is ImpresionSumasSaldos.h.

#include <QDate>
#include <QString>

class Conexion;
class Rejilla;
struct Sesion;

// Columns of the grid of Form11.
enum ColumnaSyS {
    ColSySCodigo, // "Código": NCuenta, or the three-digit account on a group row
    ColSySCuenta, // "Cuenta": the subaccount's or the account's name
    ColSySDebe,   // "#,##0.00"
    ColSySHaber,
    ColSySSaldo,   // debit minus credit
    ColSySNCuenta, // hidden: NCuenta; empty on group rows
    ColSySGrupo,   // hidden: the group key, characters two to four of NCuenta
    ColumnasSyS
};

// An empty grid with the seven columns, the last two hidden.
Rejilla RejillaSyS();

// The captions of the totals under the list: "ACUMULADOS" stands before the debit total; the
// credit and the balance follow it without captions of their own.
inline const QString TotalSySDebe = QStringLiteral("ACUMULADOS");
inline const QString TotalSySHaber = QStringLiteral(" ");
inline const QString TotalSySSaldo = QStringLiteral("  ");

// True when the dates are exactly the first and last day of the session's exercise: the sums
// are then read from Mayor instead of the journal.
bool EjercicioEntero(const Sesion& s, const QDate& desde, const QDate& hasta);

struct ResultadoSyS {
    double debe = 0, haber = 0; // totals of the subaccount rows
    int subcuentas = 0;         // subaccount rows
    bool ejercicioEntero = false;
};

// LlenarSyS: the subaccounts of Mayor with either sum not zero. For the whole exercise their
// sums in Mayor; for any other period the sums of their journal lines between the dates, and a
// subaccount with no line in the period gets no row (one whose lines are zero gets zeros). Rows
// are sorted by the group key; each run of one key is headed by a bold row with the account's
// name from Grupos and its subtotals, when the account is in Grupos. The grid is emptied first.
ResultadoSyS LlenarSyS(Conexion& c, const Sesion& s, const QDate& desde, const QDate& hasta,
                       Rejilla& rejilla);

#pragma once
// The ledger book ("Quilmar [Mayor]"): which accounts and dates (Form53), and the grid of Form55:
// for each three-digit account of the range that has a group, each of its subaccounts with lines
// in the period, a bold merged head ("572. Bancos..." once per account, "Subcuenta : Banco..."
// per subaccount), the "Saldo Inicial" row when the previous sums are not zero, the lines in
// order of date and entry number with a running balance by nature, and two blank rows.
// The printed ledger is ImpresionMayor.h.
//
// Usage:
//     CajasMayor cajas{desde, hasta, QStringLiteral("570"), QStringLiteral("572")};
//     auto sel = ValidarSeleccionMayor(cajas, dialogo);      // "&Aceptar" of Form53
//     Rejilla r = RejillaMayor();
//     Conexion c = AbrirDatos(sesion);
//     LlenarMayor(c, sesion, *sel, r);
//
// The whole range is read from the journal at once, ordered by account, subaccount, date, entry
// and line, with the previous sums of all subaccounts in one grouped read: a ledger of a
// 250,000-line year costs one pass, not a query per subaccount.

#include "platform/Dialogo.h"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;
class Rejilla;
struct Sesion;

struct SeleccionMayor {
    QDate desde, hasta;
    int desdeCuenta = 0, hastaCuenta = 999; // three-digit accounts of the plan
};

struct CajasMayor {
    QDate desde, hasta;
    QString desdeCuenta, hastaCuenta;
};

inline const QString MsgMayorFechas =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");
inline const QString MsgMayorSinCuenta =
    QStringLiteral("Tiene que introducir el número de Cuenta, con tres dígitos. Puede ver la "
                   "relación de Cuentas en el menú Gestión Contable, Gestión de Cuentas.");
inline const QString MsgMayorCuentasInvertidas =
    QStringLiteral("La Cuenta inicial no puede ser mayor que la final.");
inline const QString MsgMayorTresDigitos =
    QStringLiteral("Debe introducir los tres dígitos de la Cuenta.");

// "&Aceptar" of Form53: the rules in their order. caja says which box takes the focus (0 the
// first account, 1 the second, 2 the first date).
std::optional<SeleccionMayor> ValidarSeleccionMayor(const CajasMayor& cajas, Dialogo& dialogo,
                                                    int* caja = nullptr);
// An account box that loses focus holding one or two digits (an empty box is left to
// "&Aceptar").
bool CuentaIncompleta(const QString& texto);

// The same six columns as the movements: "Nº As.", "Fecha", "Concepto", "Debe", "Haber", "Saldo".
Rejilla RejillaMayor();

inline const QString PrefijoSubcuentaMayor = QStringLiteral("Subcuenta : ");

enum class CabeceraMayor { Ninguna, Cuenta, Subcuenta };
// What a row of the ledger's grid is: a head of an account, of a subaccount, or a plain row.
CabeceraMayor TipoCabeceraMayor(const Rejilla& r, int fila);

// LlenarMayor of Form55: the grid emptied and filled. progreso hears (lines done, 0) now and
// then.
void LlenarMayor(Conexion& c, const Sesion& s, const SeleccionMayor& sel, Rejilla& rejilla,
                 const Progreso& progreso = {});

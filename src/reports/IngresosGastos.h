#pragma once
// The management lists of the income (group 7) and expense (group 6) subaccounts, read-only:
// totals by subaccount with the share of each in its block ("Ingresos y Gastos (Totales)"), the
// lines of one side ("Lista de Ingresos y Gastos") and the table by month ("INGRESOS Y GASTOS POR
// MESES"). The regularisation entry (Clase "R") never counts, so that the lists keep their
// meaning in a closed exercise.
//
// Usage (Form12's "&Aceptar", then Form13; the command line does the same):
//     SeleccionIyG sel{desde, hasta, TipoIyG::Ambos, sector};
//     if (!ValidarFechasIyG(sel.desde, sel.hasta, dialogo)) return;   // told to the user
//     Rejilla r = RejillaTotalesIyG();
//     Conexion c = AbrirDatos(sesion);
//     const ResultadoTotalesIyG res = LlenarTotalesIyG(c, sel, r);
//     OrdenarTotalesIyG(r, OrdenIyG::Importe);                          // mnuOrdenImportes
// The month table (Form58) always takes the calendar year of the exercise, from 1 January:
//     Rejilla m = RejillaMesesIyG();
//     LlenarMesesIyG(c, {sesion.AnoActual, sector}, m);
// The printed lists are ImpresionIngresosGastos.h; the comparison across years is
// ComparacionAnos.h.

#include "platform/Dialogo.h"
#include "store/Meses.h"

#include <QDate>
#include <QString>
#include <QStringList>

class Ajustes;
class Conexion;
class Rejilla;
struct OpcionesLibro;
struct Sesion;

inline const QString MsgFechasIyG =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");
inline const QString MsgSinRegistrosIyG = QStringLiteral("No hay registros.");

// The first date not after the second; false after telling the user.
bool ValidarFechasIyG(const QDate& desde, const QDate& hasta, Dialogo& dialogo);

// The print options of these lists, which have no option form of their own: the print font of
// the configuration (Valores\NFImprimir, TFImprimir), the left edge at 600 twips, today as the
// work date.
OpcionesLibro OpcionesListadoIyG(const Ajustes& ajustes, const QDate& hoy = QDate::currentDate());

// ---- Totals by subaccount (Form12 / Form13) ----

enum class TipoIyG { Ambos, SoloIngresos, SoloGastos }; // "Ingresos y Gastos", "Sólo ..."

struct SeleccionIyG {
    QDate desde, hasta;
    TipoIyG tipo = TipoIyG::Ambos;
    QString sector; // empty: every line
};

enum ColumnaTotalesIyG {
    ColTotSubcuenta,  // "SUBCUENTA": the name, or the words of a block row
    ColTotAcumulado,  // "ACUMULADO": "standard"
    ColTotNCuenta,    // hidden: NCuenta on subaccount rows, empty on the others
    ColTotPorcentaje, // "PORCENTAJE": share of the block's total, "standard"
    ColumnasTotalesIyG
};

inline const QString FilaIngresos = QStringLiteral("INGRESOS");
inline const QString FilaGastos = QStringLiteral("GASTOS");
inline const QString FilaTotalIngresos = QStringLiteral("Total Ingresos");
inline const QString FilaTotalGastos = QStringLiteral("Total Gastos");
inline const QString FilaResultadoPositivo = QStringLiteral("RESULTADO POSITIVO");
inline const QString FilaResultadoNegativo = QStringLiteral("RESULTADO NEGATIVO");

Rejilla RejillaTotalesIyG();

struct ResultadoTotalesIyG {
    double ingresos = 0, gastos = 0; // block totals, to the cent
    int subcuentasIngresos = 0, subcuentasGastos = 0;
};

// LlenarTotalesIyG: the grid emptied and filled. Each block asked for: a bold heading row, one row
// per subaccount of that group in Mayor whose lines in the period (and sector) add up to other
// than zero — Haber - Debe for income, Debe - Haber for expense — with its share of the block's
// total, and a bold total row at 100. With both blocks a last bold row "RESULTADO POSITIVO" (the
// difference is zero or more) or "RESULTADO NEGATIVO", with income minus expense. A block whose
// total is zero shows no shares. Rows come in order of NCuenta.
ResultadoTotalesIyG LlenarTotalesIyG(Conexion& c, const SeleccionIyG& sel, Rejilla& rejilla);

enum class OrdenIyG {
    Cuenta,  // mnuOrdenar: by NCuenta
    Importe, // mnuOrdenImportes: largest amount first
};
// Sorts the subaccount rows within each block; heading, total and result rows stay in place.
void OrdenarTotalesIyG(Rejilla& rejilla, OrdenIyG orden);

// ---- Lines of one side (Form30 / Form31) ----

enum class ClaseIyG { Ingresos, Gastos };

struct SeleccionListaIyG {
    QDate desde, hasta;
    ClaseIyG clase = ClaseIyG::Ingresos;
    QString sector;
};

enum ColumnaListaIyG {
    ColLisAsiento,  // "Nº As."
    ColLisFecha,    // "Fecha"
    ColLisCuenta,   // "Cuenta": the subaccount's name
    ColLisConcepto, // "Concepto"
    ColLisImporte,  // "Importe": Haber - Debe for income, Debe - Haber for expense
    ColumnasListaIyG
};

inline const QString TotalListaIyG = QStringLiteral("TOTAL");

Rejilla RejillaListaIyG();

// The lines of group 7 (income) or 6 (expense) between the dates, regularisation left out, in
// order of entry and line; "TOTAL" under the grid. Returns the number of lines.
int LlenarListaIyG(Conexion& c, const SeleccionListaIyG& sel, Rejilla& rejilla);

// ---- By month (Form58) ----

struct SeleccionMesesIyG {
    int ano = 0;    // the calendar year: 1 January to 31 December, whatever the exercise's start
    QString sector; // empty: every line
};

enum ColumnaMesesIyG {
    ColMesSubcuenta, // "Subcuenta"
    ColMesEnero,     // "Enero" ... "Diciembre": ColMesEnero + 0..11
    ColMesTotal = ColMesEnero + 12,
    ColMesNCuenta, // hidden
    ColumnasMesesIyG
};

inline const QString FilaDiferencias = QStringLiteral("DIFERENCIAS");

Rejilla RejillaMesesIyG();

struct ResultadoMesesIyG {
    double ingresos[12] = {}, gastos[12] = {};
    double totalIngresos = 0, totalGastos = 0;
};

// LlenarMesesIyG: "INGRESOS", a row per income subaccount of Mayor with lines in the year, each
// line in the month of its date, the row's "TOTAL", then "Total Ingresos"; the same for
// "GASTOS"; and a last row "DIFERENCIAS", income minus expense by month. A month without amount
// shows nothing; totals always show.
ResultadoMesesIyG LlenarMesesIyG(Conexion& c, const SeleccionMesesIyG& sel, Rejilla& rejilla);

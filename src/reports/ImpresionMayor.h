#pragma once
// The printed ledger, "MAYOR", in its two books, both walking the grid of their list window:
// the movements of one subaccount (Form10 with Form80: carried sums of debit, credit and the last
// balance, page end at H - 2200, and at the foot of the last page the lines "Periodo" and
// "Acumulado" at H - 1985) and the whole ledger (Form55 with Form85: heads in bold from the left
// edge, no sums at all, page end at H - 1600 and the page number at H - 1200, a new page at each
// account or subaccount when asked; a page that starts inside a subaccount repeats its head).
//
// Usage:
//     DibujarMovimientos(imp, rejilla, totales, seleccion, opciones);  // one copy
//     DibujarMayor(imp, rejilla, seleccion, empresa, opciones);
// Each draws one copy from its own initial state, so it serves as a DibujoLibro as it is.

#include "reports/Mayor.h"
#include "reports/MotorLibro.h"
#include "reports/Movimientos.h"
#include "reports/OpcionesLibro.h"

class Impresora;
class Rejilla;

constexpr double FinPaginaMovimientos = 2200, ReglaMovimientos = 2085, PieMovimientos = 1985;
constexpr double FinPaginaMayor = 1600, PaginaMayor = 1200;

inline const QString TituloMayor = QStringLiteral("MAYOR");
inline const QString PalabrasPeriodo = QStringLiteral("Periodo . . . . . . . . . . . . . .");
inline const QString PalabrasAcumulado = QStringLiteral("Acumulado . . . . . . . . . . .");

// "Nº As.", "FECHA", "CONCEPTO", "DEBE", "HABER", "SALDO"; d is the shift, W the page width.
QList<ColumnaLibro> ColumnasMayor(double d, double W);

void DibujarMovimientos(Impresora& imp, const Rejilla& rejilla, const TotalesMovimientos& totales,
                        const SeleccionMovimientos& sel, const OpcionesLibro& op);

void DibujarMayor(Impresora& imp, const Rejilla& rejilla, const SeleccionMayor& sel,
                  const QString& empresa, const OpcionesLibro& op);

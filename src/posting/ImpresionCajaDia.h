#pragma once
// The printed day cash, "Caja del Día": it walks the pad's list, one line per movement with its
// eight columns, carries the result (takings less payments) from page to page, and closes with
// the takings, the payments, the result and the pad's closing note. Margin and fonts are those
// of the FORM90 group "CDia".
//
// Usage:
//     ImprimirLibro(ventana, [&](Impresora& imp, int) {
//         DibujarCajaDia(imp, rejilla, empresa, opciones);   // opciones from FORM90 "CDia"
//     }, {TituloCajaDia, impresora});

#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

class Impresora;
class Rejilla;

inline const QString TituloCajaDia = QStringLiteral("Caja del Día");
inline const QString NotaCajaDia = QStringLiteral(
    "Si el resultado  es igual a cero no debe marcar con una 'X' la forma de ingreso.");

// A page ends at H - 2200; the foot's rules at H - 2085 and its first line at H - 1985.
constexpr double FinPaginaCajaDia = 2200, ReglaCajaDia = 2085, TotalesCajaDia = 1985;

// The columns between the left edge L and the right end R of the rules.
QList<ColumnaLibro> ColumnasCajaDia(double L, double R);

// The grid is RejillaCajaDia's. Nothing is printed when it has no rows.
void DibujarCajaDia(Impresora& imp, const Rejilla& rejilla, const QString& empresa,
                    const OpcionesLibro& op);

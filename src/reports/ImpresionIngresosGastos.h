#pragma once
// The income and expense lists on paper, each walking its window's grid on the frame of the
// books (MotorLibro.h), with the print font of the configuration (OpcionesListadoIyG):
//
// - "INGRESOS Y GASTOS, TOTALES": "CUENTA" (the name filled with " . ." to the figures),
//   "ACUMULADO", "PORCENTAJE". The running sum is the block's: it starts again at "INGRESOS"
//   and at "GASTOS", is carried as "Suma anterior . . ." and "Suma y sigue . . .", and the last
//   row of the list ("RESULTADO POSITIVO", or the block's total when only one is listed) stands
//   at the foot of the last page, where the other books put their totals.
// - "LISTA DE INGRESOS Y GASTOS": "Nº As.", "FECHA", "CUENTA", "CONCEPTO", "IMPORTE", carried
//   "Suma anterior . . .", "Suma y sigue . . . ." and the total "TOTAL . . . . . . . . .".
// - "INGRESOS Y GASTOS POR MESES" and "COMPARACION ENTRE AÑOS": the month table laid across a
//   landscape sheet, "Año " and the year (or "Area: " / "Subcuenta: ") under the company, the
//   page number at the foot of each page and no carried sums.
//
// Usage:
//     const OpcionesLibro op = OpcionesListadoIyG(ajustes);
//     ImprimirLibro(ventana, [&](Impresora& imp, int) {
//         DibujarTotalesIyG(imp, rejilla, seleccion, empresa, op);
//     }, {TituloTotalesIyG, impresora});
// A list without rows of subaccounts or lines prints nothing.

#include "platform/Impresora.h"
#include "reports/ComparacionAnos.h"
#include "reports/IngresosGastos.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

#include <QPageLayout>

class Rejilla;

inline const QString TituloTotalesIyG = QStringLiteral("INGRESOS Y GASTOS, TOTALES");
inline const QString TituloListaIyG = QStringLiteral("LISTA DE INGRESOS Y GASTOS");
inline const QString TituloMesesIyG = QStringLiteral("INGRESOS Y GASTOS POR MESES");
inline const QString TituloComparacion = QStringLiteral("COMPARACION ENTRE AÑOS");

inline const QString SumaAnteriorIyG = QStringLiteral("Suma anterior . . .");
inline const QString SumaSigueTotalesIyG = QStringLiteral("Suma y sigue . . .");
inline const QString SumaSigueListaIyG = QStringLiteral("Suma y sigue . . . .");
inline const QString CierreListaIyG = QStringLiteral("TOTAL . . . . . . . . .");

// The two month tables want the width of a landscape sheet.
constexpr QPageLayout::Orientation OrientacionMeses = QPageLayout::Landscape;

// Columns on paper, from the left edge L, the shift d and the page width W.
QList<ColumnaLibro> ColumnasLibroTotalesIyG(double L, double d, double W);
QList<ColumnaLibro> ColumnasLibroListaIyG(double L, double d, double W);
// The first column's heading ("CUENTA", "AÑO"), the twelve months and "TOTAL".
QList<ColumnaLibro> ColumnasLibroMeses(const QString& primera, double L, double d, double W);

void DibujarTotalesIyG(Impresora& imp, const Rejilla& rejilla, const SeleccionIyG& sel,
                       const QString& empresa, const OpcionesLibro& op);
void DibujarListaIyG(Impresora& imp, const Rejilla& rejilla, const SeleccionListaIyG& sel,
                     const QString& empresa, const OpcionesLibro& op);
void DibujarMesesIyG(Impresora& imp, const Rejilla& rejilla, const SeleccionMesesIyG& sel,
                     const QString& empresa, const OpcionesLibro& op);
void DibujarComparacion(Impresora& imp, const Rejilla& rejilla, const SeleccionComparacion& sel,
                        const QString& empresa, const OpcionesLibro& op);

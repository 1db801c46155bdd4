#pragma once
// The drawing of a chart computed by the logic (reports/Graficos.h) with Qt Charts: bars or a
// pie, a flat or a 3-D look, with or without each point's amount. One drawing serves the screen
// (Form40's view), the printer and its PDF (one page), the clipboard and the command line's PNG
// and PDF, so that all of them show the same picture.
//
// Usage:
//     QChart* chart = CrearGrafico(datos, aspecto);      // for a QChartView, which takes it
//     vista->setChart(chart);
//     QImage png = ImagenGrafico(datos, aspecto, QSize(1200, 800));
//     ImprimirPdf(ruta, DibujoGrafico(datos, aspecto), {titulo, A4, OrientacionGrafico});
//
// Every font of the chart has a size in pixels of the chart's own surface, so that the picture
// scales as a whole onto paper of any resolution. The 3-D look is drawn by two items of the
// chart's scene: the depth of each bar (its top and right faces) or the thickness under a pie,
// behind the series; and the amounts, over everything.

#include "reports/Graficos.h"

#include "platform/Impresora.h"

#include <QImage>
#include <QPageLayout>
#include <QSize>

class QChart;
class QPainter;

// A chart fits a landscape sheet.
constexpr QPageLayout::Orientation OrientacionGrafico = QPageLayout::Landscape;

// A new chart (not owned by anything) of the series with the look asked. Pies only for the kinds
// that admit them; the others are bars whatever the look says.
QChart* CrearGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto);

// Paints the chart into a rectangle of any painter: laid out at a fixed width of 1200 units with
// the rectangle's proportions, then scaled into it.
void PintarGrafico(QPainter& pintor, const QRectF& destino, const DatosGrafico& datos,
                   const AspectoGrafico& aspecto);

// The chart as a picture on white.
QImage ImagenGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto, const QSize& tamano);

// One printed page: the chart within the margins of the sheet.
DibujoLibro DibujoGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto);

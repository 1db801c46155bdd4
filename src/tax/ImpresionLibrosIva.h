#pragma once
// The four tax books on paper: the book's title, the company with "Desde … hasta …" and the work
// date, "Sector: …" when the book is cut by one, the column headings between rules, then the
// rows of the list's grid. A page ends when the pen comes within 1,400 twips of its foot, with
// "Página nº " and its number and no carried sums. The income and expense books close with
// "Total Ingresos del periodo . . ." or "Total Gastos del periodo . . ." and the total under the
// list, on a new page when less than 2,000 twips are left; the invoice books close with their
// rows of totals per rate, which are rows of the grid.
//
// Usage:
//     ImpresionLibroIva impreso(rejilla, seleccion, empresa, opciones);  // opciones from FORM52
//     ImprimirLibro(ventana, impreso.Dibujo(), {...});                    // desktop
//     ImprimirPdf(ruta, impreso.Dibujo());                                // command line
//     ImpresoraGrabadora imp; impreso.Dibujar(imp);                       // tests
//
// The entry numbers print when the selection shows them (the option form's "Imprimir Nº de
// Asiento" sets it), and the columns to their right move left when they don't; the same for the
// NIF in the invoice books. A book without records prints nothing at all. "Página inicial" of
// FORM52 is kept as the number typed minus 1 and added to the printer's page: typing 7 numbers
// the first page 7.

#include "platform/Impresora.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"
#include "tax/LibrosIva.h"

#include <QPageLayout>

class Rejilla;

// The invoice books' nine columns want a landscape sheet; the income and expense books stand on
// a portrait one.
QPageLayout::Orientation OrientacionLibroIva(LibroIva libro);

constexpr double FinPaginaLibroIva = 1400;
constexpr double FinPaginaCierreLibroIva = 2000; // room the closing line needs
constexpr double PiePaginaLibroIva = 1000;       // "Página nº " at H - 1000

inline const QString CierreIngresos =
    QStringLiteral("Total Ingresos del periodo .   .   .   .   .   .   .   .");
inline const QString CierreGastos =
    QStringLiteral("Total Gastos del periodo .   .   .   .   .   .");

// The printed columns and the grid column each takes, left to right.
struct ColumnasImpresasIva {
    QList<ColumnaLibro> columnas;
    QList<int> deRejilla;
};
ColumnasImpresasIva ColumnasLibroIva(const SeleccionLibroIva& sel, double d, double W);

class ImpresionLibroIva {
public:
    // The grid is read when drawing and must outlive the object.
    ImpresionLibroIva(const Rejilla& rejilla, const SeleccionLibroIva& sel, const QString& empresa,
                      const OpcionesLibro& op);

    void Dibujar(Impresora& imp, int copia = 1);
    DibujoLibro Dibujo();

private:
    const Rejilla& r_;
    SeleccionLibroIva sel_;
    QString empresa_;
    OpcionesLibro op_;
};

#pragma once
// The printed inventory, "Inventario de Bienes de inversión": it walks the inventory's list, one
// line per element with its thirteen columns, the rate printed "#0.#0", and the page number at
// the foot of every page. It prints on a landscape sheet; its columns share out the width
// between the left margin and the right edge, so any sheet and margin keep them all.
//
// Usage:
//     ImpresionInventario impreso(rejilla, empresa, opciones);   // opciones from FORM90 "Invent"
//     ImprimirLibro(ventana, impreso.Dibujo(), {TituloInventario, impresora,
//                   QPageLayout::Landscape});                     // desktop
//     ImprimirPdf(ruta, impreso.Dibujo(), {..., QPageLayout::Landscape}); // command line
//     ImpresoraGrabadora imp; impreso.Dibujar(imp);               // tests

#include "platform/Impresora.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

class Rejilla;

inline const QString TituloInventario = QStringLiteral("Inventario de Bienes de inversión");

// The page ends at H - 1600 with the page number alone at H - 1200: the inventory has no sums.
constexpr double FinPaginaInventario = 1600, PiePaginaInventario = 1200;

// The columns between the left edge L and the right end R of the rules.
QList<ColumnaLibro> ColumnasLibroInventario(double L, double R);

class ImpresionInventario {
public:
    // The grid (RejillaInventario) is read when drawing and must outlive the object.
    ImpresionInventario(const Rejilla& rejilla, const QString& empresa, const OpcionesLibro& op);

    void Dibujar(Impresora& imp, int copia = 1);
    DibujoLibro Dibujo();

private:
    const Rejilla& r_;
    QString empresa_;
    OpcionesLibro op_;
};

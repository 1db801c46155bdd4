#pragma once
// The printed list of due dates, "VENCIMIENTOS": the rows of the list as they stand on screen,
// on a landscape page, with the company, "Fecha: " and the work date in the head and "Página nº "
// at the foot of each page. No sums are carried: the list mixes collections and payments.
//
// Usage:
//     ImpresionVenc impreso(rejilla, empresa, opciones);   // opciones from FORM90, group Venc
//     ImprimirLibro(ventana, impreso.Dibujo(), {"VENCIMIENTOS", impresora, Landscape}); // desktop
//     ImprimirPdf(ruta, impreso.Dibujo(), {..., QPageLayout::Landscape});             // CLI
//     ImpresoraGrabadora imp(PaginaVencimientos); impreso.Dibujar(imp, 1);            // tests

#include "platform/Impresora.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

class Rejilla;

inline const QString TituloVencimientos = QStringLiteral("VENCIMIENTOS");
// The page end and the place of the page number, as the whole ledger has them.
constexpr double FinPaginaVenc = 1600, PiePaginaVenc = 1200;
// An A4 sheet lying down, in twips.
inline const QSizeF PaginaVencimientos(16840, 11900);

// The twelve printed columns from x0 to the right end R of the rules: their nominal widths
// shared out over the room there is, amounts right-aligned.
QList<ColumnaLibro> ColumnasLibroVenc(double x0, double R);

class ImpresionVenc {
public:
    // The grid is read when drawing and must outlive the object.
    ImpresionVenc(const Rejilla& rejilla, const QString& empresa, const OpcionesLibro& op);
    void Dibujar(Impresora& imp, int copia = 1);
    DibujoLibro Dibujo();

private:
    const Rejilla& r_;
    QString empresa_;
    OpcionesLibro op_;
};

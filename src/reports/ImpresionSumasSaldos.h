#pragma once
// The printed trial balance, "BALANCE DE SUMAS Y SALDOS": it walks the list's grid, group rows in
// bold, with carried sums of debit, credit and their difference on every page after the first,
// "Suma y sigue . . ." at each page end and the totals at the foot of the last page. The running
// sums take only the subaccount rows: a group row's subtotal would count its rows twice.
//
// Usage:
//     ImpresionSyS impreso(rejilla, empresa, desde, hasta, opciones);  // opciones from Form79
//     ImprimirLibro(ventana, impreso.Dibujo(), {...});                  // desktop
//     ImprimirPdf(ruta, impreso.Dibujo());                              // command line
//     ImpresoraGrabadora imp; impreso.Dibujar(imp, 1);                  // tests

#include "platform/Impresora.h"
#include "reports/MotorLibro.h"
#include "reports/OpcionesLibro.h"

class Rejilla;

// The constants of the page end and the foot.
constexpr double FinPaginaSyS = 2150, ReglaSyS = 2035, TotalesSyS = 1835;

inline const QString TituloSyS = QStringLiteral("BALANCE DE SUMAS Y SALDOS");

// "CODIGO" at the left edge L, "CUENTA" at 1500 + d x 5/6, and the right edges of "DEBE"
// W - 4400 + d/3, "HABER" W - 2700 + d/6 and "SALDO" W - 1000 (sums 0, 1 and 2).
QList<ColumnaLibro> ColumnasLibroSyS(double L, double d, double W);

class ImpresionSyS {
public:
    // The grid is read when drawing and must outlive the object.
    ImpresionSyS(const Rejilla& rejilla, const QString& empresa, const QDate& desde,
                 const QDate& hasta, const OpcionesLibro& op);

    // Draws one copy. Every copy is the same book: its sums start at zero.
    void Dibujar(Impresora& imp, int copia = 1);
    DibujoLibro Dibujo();

    // The running sums at the end of the last drawing: debit, credit, difference.
    const QList<double>& sumas() const { return sumas_; }

private:
    const Rejilla& r_;
    QString empresa_;
    QDate desde_, hasta_;
    OpcionesLibro op_;
    QList<double> sumas_{0, 0, 0};
};

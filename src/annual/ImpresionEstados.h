#pragma once
// The printed balance sheet and profit and loss account: the lists of the statement's window
// walked row by row, bold rows bold, the first list then the second one on a new page, and only
// the page number at each page's foot.
//
// Usage:
//     DibujarEstado(imp, estado, empresa, s.FechaIniEj, s.FechaFinEj, opciones);
// The options come from the option form Form83 ("Imprimir Año N-1" prints the previous year's
// column).

#include <QDate>
#include <QString>

class Impresora;
struct EstadoCuentas;
struct OpcionesLibro;

// The title of the printed statement, "BALANCE DE SITUACION"...
QString TituloEstado(const EstadoCuentas& e);

void DibujarEstado(Impresora& imp, const EstadoCuentas& e, const QString& empresa,
                   const QDate& desde, const QDate& hasta, const OpcionesLibro& op);

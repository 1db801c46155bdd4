#pragma once
// The output of a book from the command line, shared by the book verbs: the grid of its list
// window as text, CSV or a workbook, or the printed book as PDF, with the print options of its
// option form.
//
// Usage (a book verb):
//     const OpcionesLibro op = OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::Form79));
//     LibroCli libro;
//     libro.titulo = QStringLiteral("BALANCE DE SUMAS Y SALDOS");
//     libro.rejilla = [&] { Rejilla r = ...; LlenarSyS(..., r); return r; };
//     libro.dibujo = [&](Impresora& imp, int copia) { DibujarSyS(imp, ..., op); };
//     return SalidaLibroCli(c, libro);
// The help text of the verb ends with AyudaSalidaLibro.

#include "platform/Impresora.h"
#include "reports/OpcionesLibro.h"

#include <QDate>
#include <QPageLayout>
#include <functional>

class ContextoCli;
class Rejilla;

// The date of option --nombre, or defecto when it is not given; throws Rechazo when it is no date.
QDate FechaOpcion(ContextoCli& c, const QString& nombre, const QDate& defecto);

// Options common to the book verbs, as their help lists them.
extern const QString AyudaSalidaLibro;

// The print options: the group's stored settings, replaced by --margen MM, --fuente F,
// --tamano T, --pagina-inicial P (where the form has it), --fecha-trabajo FECHA, under the same
// rules as the option form (an empty --margen "" is 0...). Nothing is stored. Throws Rechazo on a
// work date that is not a date.
OpcionesLibro OpcionesImpresionCli(ContextoCli& c, const ConfigOpciones& config);

struct LibroCli {
    QString titulo;                                               // of the PDF
    std::function<Rejilla()> rejilla;                             // the list window's grid, filled
    DibujoLibro dibujo;                                           // the printed book
    QPageLayout::Orientation orientacion = QPageLayout::Portrait; // of its sheets
};

// --formato txt|csv|xlsx|pdf (txt by default) and --salida FICHERO (txt and csv go to standard
// output without it; xlsx and pdf need it), --copias N for pdf. An empty printed book writes no
// file and says so on standard error. Returns the exit code.
int SalidaLibroCli(ContextoCli& c, const LibroCli& libro);

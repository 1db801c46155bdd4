#pragma once
// Entries from a semicolon-separated file: a header naming the columns (NAs, NAp, Fecha, NCuenta,
// Concepto, Debe, Haber, and optionally Documento, Sector; NAp may be absent), then one line per
// journal line. Consecutive lines with one NAs make one entry, posted through the journal writer
// under a new number. The whole file is one transaction: every entry is posted, or none is.

#include <QString>
#include <functional>

struct Sesion;

struct ResultadoImportacion {
    long asientos = 0;
    long lineas = 0;  // journal lines written
    long primero = 0; // first and last entry numbers given
    long ultimo = 0;
};

// Entries posted so far, and bytes of the file read out of its size.
using ProgresoImportacion = std::function<void(long asientos, qint64 leido, qint64 total)>;

// Throws Rechazo with "Línea N: " and the reason at the first bad line; nothing is written then.
// A line passes the checks of an entry given on the command line (ComprobarAsiento.h: a
// description, texts within their fields and without control characters, a sector of the list,
// amounts the books take), and besides: a known subaccount, a date in the exercise, no field
// beyond the header's columns; an entry must balance and have some amount that is not 0,00; the
// exercise must be open. Progress is reported every thousand entries and at the end. `lineas`
// counts the journal lines written.
ResultadoImportacion ImportarAsientos(Sesion& s, const QString& ruta,
                                      const ProgresoImportacion& progreso = {});

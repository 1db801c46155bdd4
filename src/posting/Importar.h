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
    long lineas = 0;
    long primero = 0; // first and last entry numbers given
    long ultimo = 0;
};

// Entries posted so far, and bytes of the file read out of its size.
using ProgresoImportacion = std::function<void(long asientos, qint64 leido, qint64 total)>;

// Throws Rechazo with "Línea N: " and the reason at the first bad line (unknown subaccount, date
// outside the exercise, unbalanced entry, closed exercise, a field that can't be read); nothing
// is written then. Progress is reported every thousand entries and at the end.
ResultadoImportacion ImportarAsientos(Sesion& s, const QString& ruta,
                                      const ProgresoImportacion& progreso = {});

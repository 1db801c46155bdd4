#pragma once
// The printout of the entry on the posting screen, before it is posted: its number, date, and
// one line per grid row with subaccount, description and amounts, with the sums at the foot.

#include <QString>

class Impresora;
class RejillaAsiento;

struct OpcionesAsientoImpreso {
    long numero = 0; // the number the entry is expected to take
    QString fecha;   // as the date field shows it
    QString fuente = QStringLiteral("Arial");
    double tamano = 9;
    double margen = 10 * 56.7; // left margin, twips
};

void ImprimirAsiento(Impresora& imp, const RejillaAsiento& r, const OpcionesAsientoImpreso& o);

#pragma once
// The printout of the entry on the posting and maintenance screens: its number, date (and on the
// maintenance screen its difference), and one line per grid row with subaccount, description and
// amounts, with the sums at the foot.

#include "posting/RejillaAsiento.h"

#include <QString>
#include <QStringList>
#include <optional>

class Impresora;

struct OpcionesAsientoImpreso {
    long numero = 0; // the number the entry is expected to take
    QString fecha;   // as the date field shows it
    QString fuente = QStringLiteral("Arial");
    double tamano = 9;
    double margen = 10 * 56.7; // left margin, twips
};

// With a difference, the heading shows it after "Descuadre: ". Lines given as cabecera stand in
// place of the number, date and difference (a periodic entry is headed by its name, next date,
// rhythm and difference).
void ImprimirAsiento(Impresora& imp, const RejillaAsiento& r, const OpcionesAsientoImpreso& o,
                     const ColumnasAsiento& c = {},
                     const std::optional<QString>& descuadre = std::nullopt,
                     const QStringList& cabecera = {});

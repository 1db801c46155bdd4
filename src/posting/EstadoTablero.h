#pragma once
// What the board keeps between entries, as the posting screen leaves it.

#include <QString>

struct EstadoTablero {
    // The money subaccount (area 1) of the last posted entry: quick entries in the income and
    // expense areas go against it. Empty when the last entry used none.
    QString NombreDinero;
    QString CuentaDinero;
};

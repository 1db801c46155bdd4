#pragma once
// The street tables (VIAS.db) the address of a rented property is chosen from: kinds of street,
// provinces, and the towns of a province.

#include <QList>
#include <QString>

class Conexion;

// A name shown and the code kept behind it.
struct OpcionVias {
    QString nombre;
    QString codigo;
};

// SIGLAS_X: "CALLE" / "CL"..., as the table holds them.
QList<OpcionVias> TiposVia(Conexion& vias);
// PROVINCE: "ZARAGOZA" / "50"..., as the table holds them.
QList<OpcionVias> ProvinciasVias(Conexion& vias);
// MUNICIPE: the towns whose postal code starts with the province's code, by name, each name and
// statistical code once.
QList<OpcionVias> MunicipiosVias(Conexion& vias, const QString& codigoProvincia);

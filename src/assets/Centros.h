#pragma once
// The locations of the fixed assets (Centros, in the company database): where each element of
// the inventory stands. Names are unique without regard to case; a location that holds elements
// cannot go.

#include <QList>
#include <QString>

class Dialogo;
struct Sesion;

struct Centro {
    qint64 NCentro = 0;
    QString Localizacion;
};

// Every location, by name.
QList<Centro> ListaCentros(const Sesion& s);
// The location of that name (without regard to case), or NCentro 0 when there is none.
Centro CentroDeNombre(const Sesion& s, const QString& nombre);

// Adds a location under the number MAX(NCentro) + 1. False, after telling the user, when the
// name is empty, too long or already there.
bool AnadirCentro(const Sesion& s, Dialogo& d, const QString& nombre);
// Renames a location after asking. False, after telling the user, when refused or not confirmed.
bool RenombrarCentro(const Sesion& s, Dialogo& d, const QString& actual, const QString& nuevo);
// Deletes a location after asking; refused while an element stands in it.
bool EliminarCentro(const Sesion& s, Dialogo& d, const QString& nombre);

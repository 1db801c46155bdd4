#pragma once
// Sectors: a free analytic dimension carried by name on journal lines, day-cash notes, due dates,
// periodic and predesigned entries. The list lives in the exercise database.

#include <QList>
#include <QString>

class Dialogo;
struct Sesion;

struct FilaSector {
    qint64 IdSector = 0;
    QString Sector;
};

QList<FilaSector> ListaSectores(Sesion& s);
// The key of the first sector of this name, 0 when there is none.
qint64 IdDeSector(Sesion& s, const QString& nombre);

// Adds a sector (idSector 0) or renames one; a rename also reaches the due dates, predesigned
// and periodic entries of the company, but not the journal. False, after telling the user, when
// refused.
bool GuardarSector(Sesion& s, Dialogo& d, qint64 idSector, const QString& nombre);

// Deletes a sector behind its guards and three confirmations, and with it every posted entry that
// carries it, each deleted as by hand so that Mayor and the VAT records stay true. All in one
// transaction. Returns the number of entries deleted, or -1 when nothing was done.
int EliminarSector(Sesion& s, Dialogo& d, const QString& nombre);

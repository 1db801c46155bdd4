#pragma once
// Sectors: a free analytic dimension carried by name on journal lines, day-cash notes, due dates,
// periodic and predesigned entries. The list lives in the exercise database.

#include <QList>
#include <QString>

class Conexion;
class Dialogo;
struct Sesion;

struct FilaSector {
    qint64 IdSector = 0;
    QString Sector;
};

QList<FilaSector> ListaSectores(Sesion& s);
// The key of the first sector of this name, 0 when there is none. Names compare as the list
// keeps them: without regard to the case of the letters A to Z.
qint64 IdDeSector(Sesion& s, const QString& nombre);
// The name as the list spells it, or an empty text when no sector has it.
QString NombreSector(Conexion& datos, const QString& nombre);

// Adds a sector (idSector 0) or renames one; a rename also reaches the due dates, predesigned
// and periodic entries of the company, but not the journal. The name is a text of its field and
// must not be another sector's. False, after telling the user, when refused. The list lives with
// the company's tables, not with the books, so a closed exercise does not stop it.
bool GuardarSector(Sesion& s, Dialogo& d, qint64 idSector, const QString& nombre);

// Deletes a sector behind its guards and three confirmations, and with it every posted entry that
// carries it, each deleted as by hand so that Mayor and the VAT records stay true. All in one
// transaction. When another row of the list has the same name (a list made before names had to
// differ), only this row goes: the entries stand under the one that stays. In a closed exercise
// the sector can go only when no entry carries it. Returns the number of entries deleted, or -1
// when nothing was done.
int EliminarSector(Sesion& s, Dialogo& d, qint64 idSector);

#pragma once
// The code a subaccount of the old chart has in the 2007 chart. The adaptation of an exercise
// keeps, in Transnp.dat in the company folder, the subaccounts it moved (18-byte records: old
// code, new code); what the file does not hold follows the group translation, keeping the last
// five digits; what neither knows keeps its code. The close uses it when it carries balances into
// an adapted exercise.

#include <QList>
#include <QString>

struct Sesion;

// Whether balances carried from anoOrigen into anoDestino change code.
bool TraduccionNecesaria(int anoOrigen, int anoDestino);

struct RegistroTransnp {
    QString antiguo;
    QString nuevo;
};

constexpr int LongitudTransnp = 18;

QString RutaTransnp(const Sesion& s);
// The records of a Transnp.dat, in order; none when the file is missing.
QList<RegistroTransnp> LeerTransnp(const QString& ruta);
// Writes a whole Transnp.dat (beside and renamed over). Throws ErrorAlmacen on failure.
void EscribirTransnp(const QString& ruta, const QList<RegistroTransnp>& registros);

// The translation over records already read: the first record with the old code, else the
// group translation, else the code itself.
QString TraducirCon(const QList<RegistroTransnp>& registros, const QString& ncuenta);

// The same over the company's Transnp.dat.
QString TraducirCuenta(const Sesion& s, const QString& ncuenta);

// The name of a subaccount created in the target under a translated code: its last four
// characters give way to "(*)", which asks the user to review it. A name too short to cut keeps
// all of it.
QString NombreTraducido(const QString& nombre);

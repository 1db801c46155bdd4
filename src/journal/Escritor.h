#pragma once
// The journal writer: every way of making an entry ends here. An entry is written whole or not at
// all: VAT records, journal lines (debit lines first, then credit lines, NAp running on) and the
// running totals of Mayor, in one transaction, under a number drawn inside that transaction.

#include "platform/Errores.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <optional>

class Conexion;
struct Sesion;

// The VAT record of one line of account 472 or 477.
struct DatosIvaApunte {
    QString Contra;  // customer or supplier subaccount
    QString Factura; // invoice number
    double Base = 0; // Base, Porcentaje, Cuota and Retencion are kept as 32-bit floats
    double Porcentaje = 0;
    double Cuota = 0;
    QString Clase = QStringLiteral("IVA"); // "IVA" or "Recargo"
    bool LIVA = true;                      // enters the VAT books
    bool L347 = false;                     // true keeps it out of the Modelo 347 sums
    QString TipOp = QStringLiteral("N");   // "N", "S" or "A"
    double Retencion = 0;
};

struct Apunte {
    QString NCuenta;
    QString Concepto;
    double Debe = 0;
    double Haber = 0;
    QString Documento;
    QString Sector;
    int CasacionN = 0;    // reconciliation mark
    double CasacionH = 0; // its group key, a day number; 0 when none
    bool Punteo = false;
    std::optional<DatosIvaApunte> Iva;
};

// Which lines enter the passes: the posting screen writes only positive amounts; entry
// maintenance writes every amount that is not zero (negative amounts included).
enum class PasadaImportes { SoloPositivos, NoCero };

struct OpcionesEscritura {
    PasadaImportes pasada = PasadaImportes::SoloPositivos;
    // Empty: a new number, MAX(NAs) + 1; otherwise this number (rewriting), 0 included, since an
    // entry can be renumbered to 0.
    std::optional<long> numero;
    // "R", "F", "I" for the year close; empty on ordinary entries. The regularisation and final
    // entries are the close itself, so they are written into an exercise already marked closed.
    QString Clase;
    // False: debit lines first, then credit lines, as every entry a user makes. True: the lines
    // in the order given, each with its own debit and credit (the year close lists them by
    // account or by balance).
    bool enOrden = false;
    // The exercise written: empty for the connection's own database, or the alias of another
    // one attached to it (BaseAdjunta), whose Diario, Mayor and Empresa are then the ones used.
    QString base;
    bool comprobarFecha = true;
    // False when the caller has already checked every subaccount against the chart.
    bool comprobarCuentas = true;
    // With transaccionPropia false only: the Mayor totals are gathered here by subaccount, and the
    // caller writes them with SumarMayor before its commit. Inside one transaction nobody sees
    // the difference from bringing Mayor up line by line, and a long import saves a write a line.
    QHash<QString, std::pair<double, double>>* mayorPendiente = nullptr;
    // False: the caller holds a transaction that it rolls back whole on any failure (an import of
    // many entries), so the entry needs no savepoint of its own.
    bool transaccionPropia = true;
    // False: the lines take their NAp in the order given (day cash writes its two lines in the
    // order of its accounts, not debit first).
    bool debePrimero = true;
};

// A refusal of the writer, with the message the user is shown.
class ErrorAsiento : public Rechazo {
public:
    using Rechazo::Rechazo;
};

extern const QString MsgEjercicioCerrado;

// What the writer refuses in any line, whoever gives it: an amount (debit, credit, VAT base,
// quota, withholding) that is not a finite number within ImporteMaximo, a control character in a
// text, a document, sector or invoice number longer than its field. Throws Rechazo with the
// message of the amount or of the field.
void ComprobarApunte(const Apunte& a);

// Writes an entry and returns its number. Refuses a closed exercise, a date outside it, an
// unknown subaccount (ErrorAsiento) and a line that ComprobarApunte refuses; store failures throw
// ErrorAlmacen. Nothing is left written on failure. The matching groups its lines belong to are
// graded again by their new sums. The session's UltimoAsiento follows the number drawn, even when
// no line has an amount to write: such an entry leaves no row, yet the number rises as it always
// did, and the next entry takes the same number from the journal.
long EscribirAsiento(Conexion& c, Sesion& s, const QDate& fecha, const QList<Apunte>& apuntes,
                     const OpcionesEscritura& opciones = {});

// Deletes an entry: its journal lines, their VAT records, and their amounts from Mayor, in one
// transaction; the matching groups its lines belonged to are graded again by what is left, and
// UltimoAsiento is lowered when the last entry goes. False when the number has no lines.
// base: as in OpcionesEscritura, the exercise attached under that alias.
bool ElimAsiento(Conexion& c, Sesion& s, long nas, const QString& base = {});

// Adds gathered totals (debit, credit) to Mayor.
void SumarMayor(Conexion& c, const QHash<QString, std::pair<double, double>>& totales);

// Subaccounts whose Mayor totals differ from the sums of their journal lines (to the cent).
QStringList DescuadresMayor(Conexion& c, const QString& base = {});

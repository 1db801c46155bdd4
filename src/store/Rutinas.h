#pragma once
// Small rules every screen shares: how a typed date becomes a date, how amounts are typed and
// shown, day numbers, the decimal mark.

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QString>
#include <optional>

class Dialogo;

// Turns a typed date ("3/2/08", "030208", "30208", "1208") into a date text, or an empty text
// after telling the user why. An empty input returns empty, silently.
QString ValidarFecha(const QString& texto, Dialogo& dialogo);
extern const QString MsgFechaNoValida; // "La fecha introducida no es una fecha válida."

// Parses a date text as the user types it: d/m/yy, d/m/yyyy (also with "-") or yyyy-MM-dd.
// Two-digit years 00-29 are 2000-2029 and 30-99 are 1930-1999. Invalid gives a null date.
QDate FechaDeTexto(const QString& texto);

// Dates are stored as ISO text.
inline QString FechaISO(const QDate& d) {
    return d.toString(Qt::ISODate);
}
inline QDate DeISO(const QString& s) {
    return QDate::fromString(s.left(10), Qt::ISODate);
}

// "," to ".", blanks out, "+-" and "-+" to "-".
QString NormalizarNumero(const QString& texto);
// "0" for an empty text, else the amount in "General Number" format.
QString ANumero(const QString& texto);
// "0" for an empty text, else the amount in "standard" format.
QString AImporte(const QString& texto);
// The value of an amount text as screens and grids hold it: with a "," the "." are thousands
// ("1.234,56"); without one a "." is the decimal mark ("1234.56"). Not a number gives 0.
double ValorImporte(const QString& texto, bool* ok = nullptr);

// The largest amount the books accept, in any field and on any path: typed, imported, computed
// for a line. Up to it every amount is held exact to the cent.
constexpr double ImporteMaximo = 999999999999.99;
// "El importe «texto» no es válido: ..." naming the maximum.
QString MsgImporteNoValido(const QString& texto);
// An amount as typed or given (ValorImporte's rules: digits, one sign, "." and ","), rounded to
// the cent. Nothing when it is not a plain finite number within ImporteMaximo ("1e308", "inf",
// "nan" and "12abc" included). An empty text is not an amount either.
std::optional<double> LeerImporte(const QString& texto);
// True for a finite value whose cents lie within ImporteMaximo.
bool ImporteAdmitido(double valor);
// LeerImporte for a path that stops at a bad amount: Rechazo with MsgImporteNoValido.
double ImporteDeTexto(const QString& texto);
// MsgImporteNoValido for a value already read (a computed amount, or one a caller let through).
QString MsgValorNoValido(double valor);

// Day numbers count days from 30 December 1899, the fraction being the time of day.
double DiaSerie(const QDateTime& momento);
double DiaSerie(const QDate& fecha);
QDateTime DeDiaSerie(double dias);

// True when the locale writes decimals with a point (7 / 2 written as text has no comma). The
// system's own locale by default: the program's texts are Spanish whatever the machine's
// settings, but the decimal key of the user's keyboard follows the machine.
bool DetectarPuntoDecimal(const QLocale& local = QLocale::system());

constexpr double CambioPesetaEuro = 166.386;

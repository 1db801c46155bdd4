#pragma once
// The display formats the books and screens use, always in the Spanish way: "." groups thousands
// and "," marks decimals.

#include <QDate>
#include <QString>

// Number formats: "standard" (and "Standard", "#,##0.00"), "General Number", "#,##0", "#,###",
// "#,###.##", "00#", "0.00", "#0.#0" (a rate: two decimals, no grouping). "#,###" and "#,###.##"
// show zero as nothing.
QString Formato(double valor, const QString& formato);
// Date formats: "short date" (dd/MM/yyyy), "yy/MM/dd", "yyyy/MM/dd", "MM/dd/yy", or any Qt date
// pattern. An invalid date gives an empty text.
QString FormatoFecha(const QDate& fecha, const QString& formato);

// Rounds half away from zero on the decimal value, as the books always did (2.675 gives 2.68).
double Redondear(double valor, int decimales);
inline double Centimos(double valor) {
    return Redondear(valor, 2);
}
// A value held as a 32-bit float, as some of the books keep it.
inline double ASimple(double valor) {
    return static_cast<double>(static_cast<float>(valor));
}

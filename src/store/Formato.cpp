#include "store/Formato.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {

QString agrupar(const QString& entero) {
    QString r;
    const int n = entero.size();
    for (int i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            r += QLatin1Char('.');
        r += entero.at(i);
    }
    return r;
}

// Fixed decimals with grouping; the minus only when the rounded value is not zero.
QString fijo(double valor, int decimales, bool grupos, bool quitarCerosFinales) {
    const double v = Redondear(valor, decimales);
    QString s = QString::number(std::fabs(v), 'f', decimales);
    QString entero = s.section(QLatin1Char('.'), 0, 0);
    QString fraccion = decimales > 0 ? s.section(QLatin1Char('.'), 1, 1) : QString();
    if (quitarCerosFinales)
        while (fraccion.endsWith(QLatin1Char('0')))
            fraccion.chop(1);
    QString r = grupos ? agrupar(entero) : entero;
    if (!fraccion.isEmpty())
        r += QLatin1Char(',') + fraccion;
    if (v < 0)
        r.prepend(QLatin1Char('-'));
    return r;
}

} // namespace

double Redondear(double valor, int decimales) {
    // Half away from zero on the decimal the value stands for, read to the fifteen significant
    // digits a double always holds: that is what was typed (2.675, held as 2.67499999..., gives
    // 2.68), and it drops the last-bit noise of a product such as base x rate. The rounded whole
    // number of units is exact, and one correctly rounded division gives the double nearest to
    // it, so every amount the books accept is exact to the cent.
    if (!std::isfinite(valor) || valor == 0 || decimales < 0 || decimales > 15)
        return valor + 0.0;
    char texto[40];
    char cifras[24];
    int n = 0, exponente = 0;
    bool negativo = false;
    // The significant digits of the value and its decimal exponent, to `precision` + 1 digits.
    auto leer = [&](int precision) {
        char* const fin = std::to_chars(texto, texto + sizeof texto - 1, valor,
                                        std::chars_format::scientific, precision)
                              .ptr;
        *fin = '\0';
        const char* p = texto;
        negativo = *p == '-';
        if (negativo)
            ++p;
        n = 0;
        for (; p < fin && *p != 'e'; ++p)
            if (*p != '.')
                cifras[n++] = *p;
        exponente = std::atoi(p + 1);
    };
    leer(14);
    // How many of the significant digits stand before the rounding point.
    int enteras = exponente + decimales + 1;
    if (enteras > 17)
        return valor; // far beyond any amount: there is nothing to round at that scale
    // A sum of many amounts (a subaccount's total, a book's) can pass a million million, where
    // fifteen digits no longer reach the cents; a double still holds them up to some 7 x 10^13,
    // so it is read to one digit past the rounding point (seventeen digits at most).
    if (enteras >= 15) {
        leer(std::min(enteras, 16));
        enteras = exponente + decimales + 1;
    }
    qint64 unidades = 0;
    for (int i = 0; i < enteras; ++i)
        unidades = unidades * 10 + (i < n ? cifras[i] - '0' : 0);
    if (enteras >= 0 && enteras < n && cifras[enteras] >= '5')
        ++unidades;
    static constexpr double Potencias[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double r = static_cast<double>(unidades) / Potencias[decimales];
    return (negativo ? -r : r) + 0.0;
}

QString Formato(double valor, const QString& formato) {
    const QString f = formato.trimmed();
    if (f.compare(QLatin1String("standard"), Qt::CaseInsensitive) == 0 ||
        f == QLatin1String("#,##0.00"))
        return fijo(valor, 2, true, false);
    if (f.compare(QLatin1String("General Number"), Qt::CaseInsensitive) == 0) {
        QString s = QString::number(valor, 'g', 15);
        if (s.contains(QLatin1Char('e')))
            s = QString::number(valor, 'f', 2);
        s.replace(QLatin1Char('.'), QLatin1Char(','));
        return s == QLatin1String("-0") ? QStringLiteral("0") : s;
    }
    if (f == QLatin1String("#,##0"))
        return fijo(valor, 0, true, false);
    if (f == QLatin1String("#,###"))
        return Redondear(valor, 0) == 0 ? QString() : fijo(valor, 0, true, false);
    if (f == QLatin1String("#,###.##"))
        return Redondear(valor, 2) == 0 ? QString() : fijo(valor, 2, true, true);
    if (f == QLatin1String("00#"))
        return QStringLiteral("%1").arg(static_cast<long long>(Redondear(valor, 0)), 3, 10,
                                        QLatin1Char('0'));
    // "#0.#0": the decimal places are held by the last placeholder, so it shows two like "0.00".
    if (f == QLatin1String("0.00") || f == QLatin1String("#0.#0"))
        return fijo(valor, 2, false, false);
    return fijo(valor, 2, true, false);
}

QString FormatoFecha(const QDate& fecha, const QString& formato) {
    if (!fecha.isValid())
        return {};
    const QString f = formato.trimmed();
    if (f.compare(QLatin1String("short date"), Qt::CaseInsensitive) == 0)
        return fecha.toString(QStringLiteral("dd/MM/yyyy"));
    return fecha.toString(f);
}

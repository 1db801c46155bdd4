#include "store/Formato.h"

#include <cmath>

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
    // Amounts are rounded to cents far more often than anything else: no pow for them.
    const double f = decimales == 2 ? 100.0 : std::pow(10.0, decimales);
    const double x = valor * f;
    // A nudge far above the float error of x and far below any decimal that matters, so that
    // 2.675 (stored as 2.67499999...) rounds up as the decimal value says.
    const double r = std::round(x + std::copysign(std::fabs(x) * 1e-12 + 1e-12, x));
    return r / f + 0.0;
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
    if (f == QLatin1String("0.00"))
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

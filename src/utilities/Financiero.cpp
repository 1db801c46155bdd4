#include "utilities/Financiero.h"

#include <algorithm>
#include <cmath>

namespace {

std::optional<double> finito(double v) {
    if (!std::isfinite(v))
        return std::nullopt;
    return v;
}

// ((1 + r)^n - 1) / r, which tends to n as r tends to 0.
double factorAnualidad(double r, double n) {
    if (std::fabs(r) < 1e-12)
        return n;
    return std::expm1(n * std::log1p(r)) / r;
}

} // namespace

std::optional<double> Pago(double r, double n, double va, double vf, bool inicio) {
    if (n == 0)
        return std::nullopt;
    if (r == 0)
        return finito(-(va + vf) / n);
    const double t = inicio ? 1 : 0;
    const double q = std::pow(1 + r, n);
    return finito(-(vf + va * q) / ((1 + r * t) * factorAnualidad(r, n)));
}

std::optional<double> ValorActual(double r, double n, double pago, double vf, bool inicio) {
    if (r == 0)
        return finito(-(vf + pago * n));
    const double t = inicio ? 1 : 0;
    const double q = std::pow(1 + r, n);
    return finito(-(vf + pago * (1 + r * t) * factorAnualidad(r, n)) / q);
}

std::optional<double> ValorFinal(double r, double n, double pago, double va, bool inicio) {
    if (r == 0)
        return finito(-(va + pago * n));
    const double t = inicio ? 1 : 0;
    const double q = std::pow(1 + r, n);
    return finito(-(va * q + pago * (1 + r * t) * factorAnualidad(r, n)));
}

std::optional<double> Periodos(double r, double pago, double va, double vf, bool inicio) {
    if (r == 0) {
        if (pago == 0)
            return std::nullopt;
        return finito(-(va + vf) / pago);
    }
    if (r <= -1)
        return std::nullopt;
    const double t = inicio ? 1 : 0;
    const double a = pago * (1 + r * t);
    const double num = a - vf * r;
    const double den = a + va * r;
    if (den == 0 || num / den <= 0)
        return std::nullopt;
    return finito(std::log(num / den) / std::log1p(r));
}

std::optional<double> Tasa(double n, double pago, double va, double vf, bool inicio,
                           double estimacion) {
    if (n <= 0)
        return std::nullopt;
    const double t = inicio ? 1 : 0;
    // The balance left at the end, which is 0 at the rate sought.
    auto f = [&](double r) {
        return va * std::pow(1 + r, n) + pago * (1 + r * t) * factorAnualidad(r, n) + vf;
    };
    double r = estimacion;
    for (int paso = 0; paso < 200; ++paso) {
        if (r <= -1)
            return std::nullopt;
        const double h = std::max(1e-7, std::fabs(r) * 1e-6);
        const double y = f(r);
        const double d = (f(r + h) - f(r - h)) / (2 * h);
        if (!std::isfinite(y) || !std::isfinite(d) || d == 0)
            return std::nullopt;
        const double siguiente = r - y / d;
        if (std::fabs(siguiente - r) < 1e-12) {
            // Converged: accept only a true root, not a flat stretch.
            const double escala =
                std::max({std::fabs(va), std::fabs(vf), std::fabs(pago * n), 1.0});
            if (std::fabs(f(siguiente)) > 1e-7 * escala)
                return std::nullopt;
            return finito(siguiente);
        }
        r = siguiente;
    }
    return std::nullopt;
}

std::optional<double> InteresPeriodo(double r, double per, double n, double va, double vf,
                                     bool inicio) {
    if (per < 1 || per > n)
        return std::nullopt;
    const std::optional<double> pmt = Pago(r, n, va, vf, inicio);
    if (!pmt)
        return std::nullopt;
    // The interest of a period is the rate on the balance owed at its start; with payments at
    // the start of the period, the first payment carries no interest.
    double saldo;
    if (per == 1) {
        if (inicio)
            return 0.0;
        saldo = -va;
    } else if (inicio) {
        const std::optional<double> v = ValorFinal(r, per - 2, *pmt, va, true);
        if (!v)
            return std::nullopt;
        saldo = *v - *pmt;
    } else {
        const std::optional<double> v = ValorFinal(r, per - 1, *pmt, va, false);
        if (!v)
            return std::nullopt;
        saldo = *v;
    }
    return finito(saldo * r);
}

std::optional<double> PrincipalPeriodo(double r, double per, double n, double va, double vf,
                                       bool inicio) {
    const std::optional<double> pmt = Pago(r, n, va, vf, inicio);
    const std::optional<double> interes = InteresPeriodo(r, per, n, va, vf, inicio);
    if (!pmt || !interes)
        return std::nullopt;
    return finito(*pmt - *interes);
}

std::optional<double> TaeDeNominal(double nominal, double n) {
    if (n <= 0)
        return std::nullopt;
    const std::optional<double> v = ValorFinal(nominal / 100 / n, n, 0, -100);
    if (!v)
        return std::nullopt;
    return finito(*v - 100);
}

std::optional<double> NominalDeTae(double tae, double n) {
    if (n <= 0)
        return std::nullopt;
    const std::optional<double> r = Tasa(n, 0, -100, 100 + tae);
    if (!r)
        return std::nullopt;
    return finito(*r * n * 100);
}

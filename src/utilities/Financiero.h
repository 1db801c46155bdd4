#pragma once
// Time-value functions with the conventions of the spreadsheet functions PMT, PV, FV, NPER, RATE,
// IPMT and PPMT: money received is positive, money paid negative; the rate is per period, as a
// fraction; inicio true when payments fall at the start of each period. Each answers nothing
// when the figures admit no result (division by zero, logarithm of a non-positive value, a rate
// that does not converge, a result that is not finite).

#include <optional>

std::optional<double> Pago(double tasa, double n, double va, double vf = 0, bool inicio = false);
std::optional<double> ValorActual(double tasa, double n, double pago, double vf = 0,
                                  bool inicio = false);
std::optional<double> ValorFinal(double tasa, double n, double pago, double va = 0,
                                 bool inicio = false);
std::optional<double> Periodos(double tasa, double pago, double va, double vf = 0,
                               bool inicio = false);
std::optional<double> Tasa(double n, double pago, double va, double vf = 0, bool inicio = false,
                           double estimacion = 0.1);
// Interest and principal of period periodo (1 to n) of the payment Pago(tasa, n, va, vf, inicio).
std::optional<double> InteresPeriodo(double tasa, double periodo, double n, double va,
                                     double vf = 0, bool inicio = false);
std::optional<double> PrincipalPeriodo(double tasa, double periodo, double n, double va,
                                       double vf = 0, bool inicio = false);

// The effective yearly rate, in percent, of a nominal yearly rate in percent compounded n times a
// year, and the nominal rate of an effective one.
std::optional<double> TaeDeNominal(double nominalPorCien, double n);
std::optional<double> NominalDeTae(double taePorCien, double n);

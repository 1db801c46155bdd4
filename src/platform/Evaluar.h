#pragma once
// Arithmetic of formulas: the amounts of predesigned entries and the figures of the notes to the
// accounts are written as expressions and worked out here.
//
// Usage:
//     const ResultadoEvaluar r = Evaluar(QStringLiteral("(1.210,50 - 10) * 21 / 100"));
//     if (!r.ok()) { dialogo.Informar(r.mensaje); return; }
//     const double v = *r.valor;
//
// The language is the arithmetic of a VBScript Eval:
//   numbers     digits with one decimal mark, "." or "," ("1.5", "1,5", ".5", "5."), and an
//               optional exponent ("1E3", "2,5e-2"); no thousands separators;
//   operators   by binding, tightest first: unary "-" and "+"; "^" (left to right: 2^3^2 = 64,
//               and -2^2 = 4, as the script engine computes it); "*" "/"; "\" (integer
//               division); "Mod" (any case); "+" "-". Parentheses group.
//   "\" and "Mod" round both operands to whole numbers first (half to even, 2.5 -> 2) and need
//   them within the 32-bit range; "\" truncates toward zero and Mod takes the dividend's sign.
// Errors never throw: the result carries a kind and a Spanish message. A division by zero, a
// result out of range, a name (anything but Mod), a negative base with a fractional exponent,
// bad syntax or nesting deeper than 256 levels are errors. The work is linear in the length.

#include <QString>
#include <optional>

enum class ErrorEvaluar {
    Ninguno,
    Sintaxis,
    DivisionPorCero,
    Desbordamiento,
    NombreDesconocido,
    ArgumentoNoValido, // a negative base with a fractional exponent
    DemasiadoComplejo, // nesting too deep
};

struct ResultadoEvaluar {
    std::optional<double> valor;
    ErrorEvaluar error = ErrorEvaluar::Ninguno;
    QString mensaje;   // empty when ok
    int posicion = -1; // where the error was found (index into the text), -1 when ok
    bool ok() const { return valor.has_value(); }
};

ResultadoEvaluar Evaluar(const QString& expresion);

#pragma once
// The line tables of the balance sheet and of the profit and loss account, in the layout of each
// chart: up to 2007 the normal forms of the old plan (Form81, Form82), from 2008 the PYMES forms
// (Form105, Form106). The engine (Estados.h) runs them in order; the labels are shown as written
// here, the odd ones included, since the printed statements have always carried them so.

#include <QString>
#include <span>

// Lines that are not filled from account prefixes.
enum class Especial {
    Ninguna,
    Resultado,   // balance sheet: income minus expense of the year (groups 6 and 7)
    Explotacion, // profit and loss: the result rows after each block
    Financiero,
    Ordinario,      // old layout only
    Extraordinario, // old layout only
    AntesImpuestos,
    Ejercicio,
};

struct LineaEstado {
    // 0 a title above level-1 headings, 1 a letter ("B) Inmovilizado"), 2 a Roman numeral, 3 an
    // Arabic number; in the old profit and loss 1 is "A2." and 2 is "a)".
    int nivel = 1;
    const char16_t* etiqueta = u"";
    // Plan-digit prefixes joined by commas; a trailing "*" marks a prefix that enters only when
    // its balance stands on this side (see Estados.h).
    const char16_t* cuentas = u"";
    // The label this line is written with when the previous year's pass meets it first.
    const char16_t* etiquetaAnterior = nullptr;
    Especial especial = Especial::Ninguna;
};

std::span<const LineaEstado> LineasActivo81();
std::span<const LineaEstado> LineasPasivo81();
std::span<const LineaEstado> LineasActivo105();
std::span<const LineaEstado> LineasPasivo105();
std::span<const LineaEstado> LineasPyG82();
std::span<const LineaEstado> LineasPyG106();

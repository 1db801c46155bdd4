#pragma once
// The code a subaccount takes when its balance is carried into an exercise of the 2007 chart.
// Balances carried from an exercise before 2008 into one of 2008 or later change code where the
// chart moved the subaccount; the opening entry then uses the new code.

#include <QString>

struct Sesion;

// Whether balances carried from anoOrigen into anoDestino change code.
bool TraduccionNecesaria(int anoOrigen, int anoDestino);

// The code in the new chart of the subaccount ncuenta of the current company (its folder holds
// the table of subaccounts moved when the chart was adapted). A code the chart did not move comes
// back as it is. For now no subaccount is moved: the table and the groups that change are filled
// in by the adaptation to the new chart.
QString TraducirCuenta(const Sesion& s, const QString& ncuenta);

// The name of a subaccount created in the target under a translated code: its last four
// characters give way to "(*)", which asks the user to review it. A name too short to cut keeps
// all of it.
QString NombreTraducido(const QString& nombre);

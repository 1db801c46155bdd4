#pragma once
// Undoing the close of an exercise: the regularisation and final entries go, and the exercise is
// open again. The opening entry the close made in another exercise stays: closing again updates
// it through its number.

#include <QString>

struct Sesion;

// "El ejercicio 2026 no está cerrado: no hay ningún cierre que invertir."
QString MsgEjercicioNoCerrado(int ano);

// Deletes the entries NAsReg and NAsFin of the current exercise (a 0 removes nothing), and marks
// the exercise open with both numbers 0, in the database and in the session, in one transaction.
// Refuses (Rechazo, nothing written) an exercise that is not closed.
void InvertirCierre(Sesion& s);

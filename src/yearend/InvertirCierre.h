#pragma once
// Undoing the close of an exercise: the regularisation and final entries go, and the exercise is
// open again.

struct Sesion;

// Deletes the entries NAsReg and NAsFin of the current exercise (a 0 removes nothing), and marks
// the exercise open with both numbers 0, in the database and in the session, in one transaction.
void InvertirCierre(Sesion& s);

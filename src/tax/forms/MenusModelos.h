#pragma once
// The tax returns on the board's "Impuestos" menu: mnuM300 (Form92, then Form109), mnuM130
// (Form94, then Form93), mnuM115 (Form96, then Form95) and mnuM347 (Form98, then Form97). Each
// return window is filled from the books of the open exercise and lives until the user closes it.

class Ajustes;
class Dialogo;
class Form1;
class Form109;
class Form93;
class Form95;
class Form97;
struct Sesion;

void ConectarModelos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// The period dialog, then the filled return window (shown, deleted on close). Null when the
// dialog was closed, or for an exercise before 2009 (the 303 did not exist).
Form109* AbrirModelo303(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);
Form93* AbrirModelo130(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);
Form95* AbrirModelo115(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);
Form97* AbrirModelo347(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

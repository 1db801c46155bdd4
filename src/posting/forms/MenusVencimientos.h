#pragma once
// Due dates on the board: mnuVencimientos and toolbar button 11 open the due-date screen
// (Form89); the lights "Cobros" and "Pagos" open it on their kind; the "..." of a line of the
// posting and maintenance screens opens it pre-filled from the line. Whatever the screen writes
// repaints the lights, and a change of company or year closes it.

class Ajustes;
class Dialogo;
class Form1;
class Form89;
struct Sesion;

void ConectarVencimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// Opens the screen (or brings forward the one open), its writes wired to the board's lights.
Form89* AbrirVencimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

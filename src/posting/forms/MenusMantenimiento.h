#pragma once
// Entry maintenance on the board: mnuAsientos and toolbar button 5 open the maintenance screen
// (Form7), mnuEliminarAs deletes entries through Form45, and mnuRenumerar and toolbar button 10
// renumber the journal through Form16, closing an open journal screen first. Whatever changes
// the journal makes the open books refresh.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarMantenimiento(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// The two menu actions, for the board's wiring and the tests.
void EliminarAsientosDesdeMenu(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);
void RenumerarDesdeMenu(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

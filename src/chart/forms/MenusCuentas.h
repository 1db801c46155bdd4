#pragma once
// The chart's screens on the board's menus: mnuGC (Form73, also toolbar button 2), mnuAparcar
// (Form21), mnuTipos (Form48), mnuSector (FORM84) and mnuConceptos (Form35). Changes to the chart
// or to parking make the board refill its areas; renames and entries deleted with a sector make
// the open books refresh.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarCuentas(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

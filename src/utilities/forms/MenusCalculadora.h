#pragma once
// The calculator on the board: mnuCalculadora and its toolbar button open Form32.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarCalculadora(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

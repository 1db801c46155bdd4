#pragma once
// The adaptation to the 2007 chart on the board's menu: mnuAdaptar asks the longer question,
// adapts the open exercise and refills the areas, whose subaccounts may have changed code.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarAdaptacion(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

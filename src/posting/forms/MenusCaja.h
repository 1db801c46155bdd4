#pragma once
// Day cash and reconciliation on the board's menus: mnuCaja opens the day-cash pad (Form60) and
// mnuPunteo the reconciliation screen (Form86). Entries sent from the pad make the open books
// refresh; a change of company or year closes both windows, whose lines belong to the books left.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarCajaYPunteo(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

#pragma once
// The inventory's screens on the board's menus: mnuInventario (Form99) and mnuAmortizaciones
// (Form101). The open books refresh after a depreciation run posts entries.

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarInventario(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

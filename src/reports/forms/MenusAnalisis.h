#pragma once
// The income and expense analyses and the charts on the board's menus, each window registered
// with the board as "Analisis" (refreshed when entries change, closed with the company):
// mnuIngGas (Form12, then Form13; also toolbar button 14), mnuListaIG (Form30, then Form31),
// mnuIGmeses (Form58; also button 15), mnuES (Form42) and mnuGráficos (Form40). A double click
// on a subaccount of Form13 opens its movements (Form10).

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarAnalisis(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

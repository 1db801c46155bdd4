#pragma once
// The annual accounts on the board's menus: mnuSituacion opens the balance sheet and mnuPyG the
// profit and loss account, in the layout of the exercise's year, registered with the board as
// "Anuales" so that they fill again when entries change. The notes: mnuMemNueva makes the
// exercise's model, mnuMemElaborar opens the model to be edited, mnuMemVer makes the notes and
// opens them, mnuFormulas the formulas (Form14, or Form107 on the 2007 chart).

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarAnuales(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

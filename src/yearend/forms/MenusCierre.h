#pragma once
// The year end on the board: the close of the exercise behind the option "Cerrar ejercicio" of the
// exercise screen (Form23), and the reorganisation of the data on the menu (mnuReorganizar,
// Form20).

class Ajustes;
class Dialogo;
class Form1;
struct Sesion;

void ConectarCierre(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

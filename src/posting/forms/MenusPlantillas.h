#pragma once
// Periodic and predesigned entries on the desktop: the menu entries mnuPeriodicos (Form62) and
// mnuPredisenados (Form67), the board's F12 (the list Form69) and Ctrl + three digits (a
// template by its code), the same keys and the "Pred." field on the maintenance screen, the
// periodic-entry button of the posting and maintenance screens, and the start-up run of the
// periodic entries that fall due, after the rest of the start-up.

class Ajustes;
class Dialogo;
class Form1;
class Form4;
class Form7;
class QWidget;
struct Sesion;

void ConectarPlantillas(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// The hooks of one screen (what ConectarPlantillas does for every screen made from then on).
void ConectarPlantillasForm4(Form4& f, Sesion& s, Ajustes& a, Dialogo& d);
void ConectarPlantillasForm7(Form7& f, Sesion& s, Ajustes& a, Dialogo& d);

// F12: the list, then the template chosen. Ctrl + digits: the template of that code.
void ElegirPredisenado(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre);

// The start-up run with the confirmation screen and the posting screen.
void ContAsPerEscritorio(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

#pragma once
// Budgets on the board's menus: mnuCrearP (Form47), mnuModificarP (a budget file, then Form47 in
// MODIFICAR) and mnuAbrir (a budget file, Form50 for the period, then Form49).

#include <QString>

class Ajustes;
class Dialogo;
class Form1;
class QWidget;
struct Sesion;

void ConectarPresupuestos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d);

// The file dialog of budgets, in the company folder; empty when cancelled.
QString ElegirPresupuesto(QWidget* padre, const Sesion& s);

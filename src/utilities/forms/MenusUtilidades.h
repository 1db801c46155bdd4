#pragma once
// The utilities on the board: mnuAvisos (Form37, also toolbar button 16), mnuCalendario (Form39),
// and under "Copias de seguridad" mnuCopia (Form46), mnuRestaurar (Form110, which ends the
// program once a company is restored) and mnuCompactar. At start-up, once the company is loaded
// and before the periodic entries, the reminders' step rolls repeating reminders forward and
// opens a window Form38 for each one due (NuevoAviso). While the board has a company open, this
// process holds that company's shared lock, so nobody compacts or restores it meanwhile.

#include <QDate>

class Ajustes;
class Dialogo;
class Form1;
struct Aviso;
struct Sesion;

// `hoy`, when given, replaces today's date for the start-up step (tests).
void ConectarUtilidades(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, QDate hoy = {});

// A window Form38 for a reminder that falls due, over the board, not blocking it.
void NuevoAviso(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso,
                const QDate& hoy = {});

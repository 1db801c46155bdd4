#pragma once
// The exercises of a company: choosing one (from the access list, the exercise screen or the
// board's year box), making a new one from another, and deleting one.

#include <QList>
#include <QString>
#include <functional>

class Ajustes;
class Conexion;
class Dialogo;
struct Sesion;

extern const QString MsgEnUso;                   // "El archivo está en uso."
extern const QString MsgIndiqueAno;              // "Indique el año (con cuatro cifras)"
extern const QString MsgSeleccioneEjercicio;     // "Tiene que seleccionar un ejercicio."
extern const QString MsgSituarseEnOtroEjercicio; // "Para eliminar un ejercicio tiene antes ..."

// The check that carries a company to the 2007 chart. It is called when an exercise is chosen
// (anoAnterior 0) and when one is made from another (anoAnterior, the year it was made from);
// the adaptation itself decides whether there is anything to do. Empty until it is installed.
using GanchoAdaptacion = std::function<void(Sesion&, Dialogo&, int anoAnterior)>;
GanchoAdaptacion& AdaptacionPlan();
void ComprobarAdaptacionPlan(Sesion& s, Dialogo& d, int anoAnterior);

// The years of the current company, in the order of its Selan.dat.
QList<int> EjerciciosEmpresa(const Sesion& s);

// The message for an exercise listed in Selan.dat whose database is gone.
QString MsgFaltaEjercicio(const Sesion& s, int ano);

// Databases older than the account of negative results of earlier years get it.
void AnadirCuentaResultadosNegativos(Conexion& ejercicio);

// Makes a company and year the session's: checks that the exercise database is there (else tells
// the user and changes nothing), writes the Inicio settings, loads the exercise state, repairs
// the chart and runs the adaptation check. False when the exercise can't be opened.
bool EntrarEnEmpresa(Sesion& s, Ajustes& a, Dialogo& d, const QString& empresa,
                     const QString& nombre, int ano);

// Another year of the current company: AnoActual, Inicio\Año and the exercise state. With
// adaptar, the adaptation check runs too (the exercise screen does it, the board's box doesn't).
// False, with the session untouched, when the exercise can't be opened.
bool CambiarEjercicio(Sesion& s, Ajustes& a, Dialogo& d, int ano, bool adaptar);

// A new exercise of the current company, copied from the exercise `desde` (the current one when
// 0): the chart and lists stay, the journal, ledger, VAT records and day cash are emptied, the
// Empresa row starts the same day and month of the new year, open, and Selan.dat gets its record.
// The session moves to the new year. Throws Rechazo when refused, leaving nothing made.
void CrearEjercicio(Sesion& s, Dialogo& d, int ano, int desde = 0);

// Deletes an exercise of the current company after two confirmations: its Selan.dat record and
// its database; the company database stays. False when refused or not confirmed.
bool EliminarEjercicio(Sesion& s, Dialogo& d, int ano);

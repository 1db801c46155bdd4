#pragma once
// Carrying the chart and data of an exercise made from the old general chart to the 2007 chart
// for small firms: groups added, renamed and deleted, subaccounts moved to their new groups (kept
// in Transnp.dat for the close), and the subaccounts named elsewhere translated. A group 5219 in
// the chart marks it adapted, so running it again changes nothing. The whole adaptation of an
// exercise is one transaction over the exercise and the company databases.

#include "yearend/TraducirCuenta.h"

#include <QList>
#include <QString>

class Dialogo;
struct Sesion;

extern const QString MsgAdaptacionConcluida;
extern const QString MsgAdaptacionRevisar;
// Told by the menu and the command line when there is nothing to do.
extern const QString MsgYaAdaptada;

// The notice before adapting; with preguntando, the longer question of the menu.
QString MsgAdaptar(const QString& empresa, int ano, bool preguntando);

struct ResultadoAdaptacion {
    enum Estado { YaAdaptada, NoConfirmada, Hecha } estado;
    QList<RegistroTransnp> movidas; // the subaccounts that changed code
};

// Whether the chart of the current exercise is already the 2007 one.
bool PlanAdaptado(const Sesion& s);

// Adapts the current exercise telling the user, without asking (a new exercise of 2008 made from
// an older one).
ResultadoAdaptacion AdaptarPlan(Sesion& s, Dialogo& d);
// The same after the longer question, No ending it (the menu, opening an exercise of 2008 or
// later that was never adapted).
ResultadoAdaptacion AdaptarPlanPreguntando(Sesion& s, Dialogo& d);

// Installs the check that company and exercise selection and CrearEjercicio run.
void InstalarAdaptacionPlan();

#pragma once
// The month grid of the reminders' calendar (Form39): six weeks of seven days from Monday, the
// days of the month laid from the weekday of the 1st, and a mark on each day a reminder falls on.
//
// A reminder marks its own day when it is not yet past and the month shown is its month. One
// repeated `Periodo` times a year also marks its day of the month in every month shown, not
// before its own, whose distance in months from its date divided by 12 / Periodo is whole.

#include "store/Meses.h"
#include "utilities/Avisos.h"

#include <QDate>
#include <QList>
#include <array>

constexpr int CeldasCalendario = 42;

struct CeldaCalendario {
    QDate dia;          // null for a cell outside the month
    bool marca = false; // a reminder falls on this day
};

using MesCalendario = std::array<CeldaCalendario, CeldasCalendario>;

// The cells of a month.
MesCalendario LlenarCalendario(const QList<Aviso>& avisos, int ano, int mes, const QDate& hoy);

// The reminders that mark a day, as a click on it lists them.
QList<Aviso> AvisosDelDia(const QList<Aviso>& avisos, const QDate& dia, const QDate& hoy);

// Whether a reminder marks that day.
bool MarcaDia(const Aviso& aviso, const QDate& dia, const QDate& hoy);

// "Lun" to "Dom".
const QStringList& NombresDias();

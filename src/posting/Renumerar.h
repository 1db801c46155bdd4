#pragma once
// Renumbering the journal: the whole of it by date, or one entry to a free number. Only the
// entry numbers change: NAp, Mayor and the VAT records don't depend on them.

#include "platform/Dialogo.h"

#include <QString>

class Conexion;
struct Sesion;

// The whole journal numbered by date, the old number deciding the order within a date: walking
// the lines by date and old number, a line whose old number differs from the line before opens
// the next number. One transaction, set-based; progress is told as the lines are rewritten.
// Returns the highest number (0 for an empty journal), which the session takes as UltimoAsiento.
long RenumerarDiario(Conexion& c, Sesion& s, const Progreso& progreso = {});

// "&Aceptar" of the two options of the renumbering screen, with their checks and messages. Both
// end with "Proceso finalizado." when done.
enum class CampoRenumerar { Ninguno, Asiento, PasaA };
struct ResultadoRenumerar {
    bool hecho = false;
    CampoRenumerar foco = CampoRenumerar::Ninguno; // the field that takes the focus on a refusal
};
ResultadoRenumerar RenumerarDiarioCompleto(Sesion& s, Dialogo& d, const Progreso& progreso = {});
ResultadoRenumerar RenumerarUnAsiento(Sesion& s, Dialogo& d, const QString& asiento,
                                      const QString& pasaA);

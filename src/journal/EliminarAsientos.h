#pragma once
// Deleting entries from the menu: the choice of the deletion screen (one entry, or a range), the
// menu's question, and the deletion, a range in one transaction.

#include "platform/Dialogo.h"

#include <QString>
#include <optional>

struct Sesion;

// The numbers chosen; hasta is 0 for one entry.
struct EleccionEliminar {
    long desde = 0;
    long hasta = 0;
};

// "&Aceptar" of the deletion screen: one entry ("Número") or several ("Desde Nº", "hasta Nº",
// the first strictly below the second). Nothing when refused; the user was told why.
std::optional<EleccionEliminar> ValidarEliminar(Dialogo& d, bool varios, const QString& numero,
                                                const QString& desde, const QString& hasta);

// The menu after the choice: a closed exercise is refused, the question is asked, and the
// entries are deleted (gaps in a range are skipped), all or none. Returns how many entries went,
// or -1 when nothing was done (refused, answered No, or failed; the user was told).
int EliminarAsientos(Sesion& s, Dialogo& d, const EleccionEliminar& e,
                     const Progreso& progreso = {});

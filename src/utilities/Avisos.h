#pragma once
// Reminders: dated texts of the installation (table Avisos of Bavis.db), once or a number of
// times a year. Kept by Form37, shown on the month calendar Form39, and at start-up rolled one
// step forward when past and shown in a window Form38 each from DiasAv days before their date.
//
// Usage (start-up):
//     for (const Aviso& a : PasoAvisosArranque(s, ajustes, QDate::currentDate()))
//         NuevoAviso(a);

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

class Ajustes;
class Conexion;
class Dialogo;
struct Sesion;

struct Aviso {
    long NAviso = 0;
    QDate Fecha; // the next time it falls due
    QString Texto;
    int Periodo = 0; // times a year, 1 to 12; 0 once only
};

inline const QString MsgAvisoIncompleto =
    QStringLiteral("Debe cumplimentar los campos de Fecha y Texto del Aviso.");
inline const QString MsgAvisoPasado =
    QStringLiteral("La fecha introducida es anterior a la fecha actual.");
inline const QString MsgAvisoSinElegir =
    QStringLiteral("No ha seleccionado ningún Aviso para modificar. Haga doble clic sobre el "
                   "Aviso que quiera modificar.");
inline const QString MsgAvisoNoEncontrado = QStringLiteral("No se encontró el Aviso.");
inline const QString MsgPeriodicidad =
    QStringLiteral("El valor de la periodicidad estará comprendido entre 1 y 12. El 1 será "
                   "periodicidad anual y 12 periodicidad mensual.");
inline const QString MsgDiasAvisoNoValido =
    QStringLiteral("El número de días de antelación al Aviso introducido no es correcto");

// The reminders by date, as Form37 lists them; or in the order they were added (table order).
QList<Aviso> LeerAvisos(Conexion& bavis);
QList<Aviso> LeerAvisosEnOrden(Conexion& bavis);
std::optional<Aviso> LeerAviso(Conexion& bavis, long naviso);

// The times a year typed in Form37: a whole number from 1 to 12, else nothing (the caller shows
// MsgPeriodicidad).
std::optional<int> LeerPeriodo(const QString& texto);

// What Form37's "&Aceptar" takes: the date (null when the field is empty), the text, and the
// times a year when the check box is on.
struct DatosAviso {
    QDate Fecha;
    QString Texto;
    bool Periodico = false;
    QString Periodo;
};

// "&Aceptar": refuses an empty date or text, a date before today and a period outside 1 to 12
// (telling why, and nothing is written); then adds the reminder, or changes reminder
// `modificar` (0: none chosen, which is refused). Returns the reminder's number, or 0 when
// refused. A text with control characters or too long is refused with the field's message.
long GuardarAviso(const Sesion& s, Dialogo& d, const DatosAviso& datos, bool anadir, long modificar,
                  const QDate& hoy);

// Deletes a reminder after asking "Está seguro de que desea eliminar el Aviso de fecha ... y
// texto ... ?". False when not found or not confirmed.
bool EliminarAvisoPreguntando(const Sesion& s, Dialogo& d, long naviso);

// Opening Form37 or Form39 with ElimAuto "SI" (the default) deletes every reminder dated before
// today, repeating ones included. Returns how many were deleted.
int EliminarAvisosVencidos(const Sesion& s, const Ajustes& a, const QDate& hoy);

// The settings of Form37 as typed: DiasAv (days of warning) and ElimAuto.
// Closing Form37: a DiasAv that is not a whole number of days refuses the close
// (MsgDiasAvisoNoValido); above 30 it asks "Ha introducido como número de días de antelación con
// que se producirá el Aviso <n> Es correcto?", and No refuses the close. Otherwise both settings
// are saved and it answers true.
bool GuardarOpcionesAvisos(Ajustes& a, Dialogo& d, const QString& diasAv, bool elimAuto);

// DiasAv as stored (7 when missing or not a number).
int DiasAviso(const Ajustes& a);

// Whole months of one step of a reminder repeated `periodo` times a year: 12 / periodo, rounded
// to the nearest month where it is not whole (5 times a year steps 2 months).
int MesesPorPaso(int periodo);
// The date one step later (the day kept, or the month's last day when it has fewer days).
QDate SiguienteFecha(const QDate& fecha, int periodo);

// A reminder falls due from DiasAv days before its date until its date, both included.
bool AvisoDebido(const QDate& fecha, int diasAv, const QDate& hoy);

// The start-up step, in table order: a repeating reminder dated before today moves one step
// forward and is saved (one step per start however late it is); then the reminders that fall
// due are returned, for a window each.
QList<Aviso> PasoAvisosArranque(const Sesion& s, const Ajustes& a, const QDate& hoy);
// What that step would show today, without writing anything.
QList<Aviso> AvisosPendientes(const Sesion& s, const Ajustes& a, const QDate& hoy);

#pragma once
// Periodic entries: a named set of lines posted again and again at a fixed rhythm (rents,
// salaries, fees). Kept in Periodicos of the company database, one row per line; the lines of an
// entry share Nombre, Periodicidad, FechaIni, FechaProx and Sector. Made from a finished entry of
// the posting or maintenance screen (HacerPeriodico), listed, edited and deleted, and posted at
// start-up when due (ContAsPer.h).
//
// Usage (the command line, making one from entry 12):
//     const QList<LineaPeriodico> lineas = LineasDeAsiento(s, 12, fecha, sector);
//     PantallaPeriodicidadFija form59(periodicidad, proxima);
//     HacerPeriodico(s, d, form59, QStringLiteral("F7"), fecha, sector, lineas);

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

// A rhythm as the periodicity screen offers it: its caption and the postings a year it stands
// for, which is what Periodicidad keeps.
struct RitmoPeriodico {
    QString nombre; // "Mensual"
    qint16 periodicidad = 0;
};
// The eight rhythms, from daily to yearly.
const QList<RitmoPeriodico>& Ritmos();
// "Mensual" for 12; empty for a value that is no rhythm.
QString NombreRitmo(qint16 periodicidad);
// The periodicity of a rhythm named in any case ("mensual", "Mensual"); nothing when none.
std::optional<qint16> PeriodicidadDeNombre(const QString& nombre);

// One step of the rhythm: 1 day, 1 week, 2 weeks, 1 month, 2 months, 3 months, 6 months, 1 year.
// A month step keeps the calendar day where the month has it (31 January + 1 month is the last
// day of February). A value that is no rhythm gives the date unchanged.
QDate PasoPeriodicidad(const QDate& fecha, qint16 periodicidad);
// FechaProx moved on: one step, and for the rhythms of whole months the day of FechaIni given
// back where the month has it, so that an entry begun on 31 January falls on 28 (or 29)
// February and on 31 March again.
QDate AvanzarFechaProx(const QDate& fechaIni, const QDate& fechaProx, qint16 periodicidad);

struct LineaPeriodico {
    QString NCuenta;
    QString Concepto;
    double Debe = 0;
    double Haber = 0;
    QString Documento;
};

struct AsientoPeriodico {
    QString Nombre;
    qint16 Periodicidad = 0;
    QDate FechaIni; // the date of the entry it was made from
    QDate FechaProx;
    QString Sector;
    QList<LineaPeriodico> Lineas;
};

// Falls due when FechaProx is on or before today and on or before the last day of the exercise,
// compared as texts "yyyy/MM/dd" as the program always did.
bool VencePeriodico(const AsientoPeriodico& a, const QDate& hoy, const QDate& finEjercicio);

// The names, one per entry, in the order of the table's grouping.
QStringList NombresPeriodicos(Conexion& bavar);
// Every entry with its lines, in the order of its rows.
QList<AsientoPeriodico> LeerPeriodicos(Conexion& bavar);
// One entry by its name; nothing when it has no rows.
std::optional<AsientoPeriodico> LeerPeriodico(Conexion& bavar, const QString& nombre);
// A name already taken, compared after trimming and regardless of case (the table groups its rows
// that way, so two names that differ only in case would be one entry).
bool ExistePeriodico(Conexion& bavar, const QString& nombre);

// Writes the rows of an entry, one per line, in one transaction.
void GuardarPeriodico(Conexion& bavar, const AsientoPeriodico& a);
// Every row of the name deleted and the entry written anew, in one transaction: what the line
// editor saves. The name may change. False when the old name had no rows.
bool ReescribirPeriodico(Conexion& bavar, const QString& nombreAnterior, const AsientoPeriodico& a);
// Deletes every row of the name. False when it had none.
bool EliminarPeriodico(Conexion& bavar, const QString& nombre);
// FechaProx of every row of the name moved one step on from `desde`, unless someone else moved it
// meanwhile. Returns the new date, or nothing when the rows no longer stood at `desde`.
std::optional<QDate> MoverFechaProx(Conexion& bavar, const QString& nombre, const QDate& desde);

// What the periodicity screen gives back: the next date and the rhythm. A cancelled screen gives
// the date 1 January 1950, the sign that nothing was chosen.
struct EleccionPeriodicidad {
    QDate FechaProx;
    qint16 Periodicidad = 0;
};
inline const QDate FechaSinEleccion{1950, 1, 1};

// The periodicity screen: told which form called it ("F4", "F7") and the date of the entry.
class PantallaPeriodicidad {
public:
    virtual ~PantallaPeriodicidad() = default;
    virtual EleccionPeriodicidad Elegir(const QString& origen, const QDate& fecha) = 0;
};

// What the periodicity screen offers: the next date field starts one month after the entry's
// date, and each rhythm stands beside the entry's date plus its step.
QDate ProximaPorDefecto(const QDate& fecha);

// Saves the lines of a finished entry as a periodic entry: the question, the name (asked until it
// is unique and fits; an empty answer ends), the periodicity screen, the rows. Nothing happens
// when there are no lines or the first has no amount. True when the entry was made.
extern const QString MsgHacerPeriodico;
extern const QString MsgNombrePeriodico;
extern const QString MsgNombreRepetido;
bool HacerPeriodico(const Sesion& s, Dialogo& d, PantallaPeriodicidad& pantalla,
                    const QString& origen, const QDate& fecha, const QString& sector,
                    const QList<LineaPeriodico>& lineas);

// The lines of a posted entry in the order of the journal, with its date and the sector of its
// first line. Nothing when the number has no lines.
std::optional<QList<LineaPeriodico>> LineasDeAsiento(const Sesion& s, long nas, QDate& fecha,
                                                     QString& sector);

extern const QString
    MsgEliminarPeriodico; // "Está seguro de que desea eliminar el asiento periódico "
extern const QString MsgNoSePudoEliminar; // "No se pudo eliminar el asiento."
// "Eliminar Asiento": asks, then deletes the rows of the name. True when they went.
bool EliminarPeriodicoPreguntando(const Sesion& s, Dialogo& d, const QString& nombre);

#pragma once
// Posting the periodic entries that fall due, once at start-up: for each entry, each date due is
// confirmed (or posted at once under "C&ontabilizar todos") and FechaProx moves on one step after
// each posting that went through, so a program left unused for a month asks, or posts, once per
// date missed. An entry with a VAT line can't go under "all": its VAT data have to be typed.
//
// Usage (the command line, which posts what it can and leaves the rest due):
//     PantallasPeriodicosCli p;                 // answers "all" where allowed, "no" elsewhere
//     const ResultadoContAsPer r = ContAsPer(s, d, tablero, p, hoy);
//     for (const PosteoPeriodico& x : r.Contabilizados) print(x.Numero);

#include "posting/Periodicos.h"

#include <QDate>
#include <QList>
#include <QString>

class Conexion;
class Dialogo;
class RejillaAsiento;
struct CamposForm4;
struct EstadoTablero;
struct Sesion;

// The actions of the confirmation screen.
enum class AccionForm61 {
    Contabilizar,      // "&Contabilizar": the posting screen, to change amounts and post
    ContabilizarTodos, // "C&ontabilizar todos": posted now, and every later date of the entry
    NoContabilizar,    // "&No contabilizar": nothing changes; the next entry
    Eliminar           // "No contabilizar y &eliminar asiento periódico"
};

// What the run needs of the screens.
class PantallasPeriodicos {
public:
    virtual ~PantallasPeriodicos() = default;
    // The confirmation: "Asiento: " + name, "Fecha: " + date. "C&ontabilizar todos" is offered
    // only when todos is true.
    virtual AccionForm61 Confirmar(const QString& nombre, const QDate& fecha, bool todos) = 0;
    // The posting screen filled with the entry at its date due (CargarPeriodicoEnForm4), with
    // origin "F61" so that amounts and documents can be changed, shown until the user posts or
    // cancels. Returns the number posted, or 0 when nothing was posted.
    virtual long ContabilizarEnForm4(const AsientoPeriodico& a) = 0;
};

extern const QString MsgDocumentoPeriodico; // "Por favor introduzca el número del Documento, ..."

// Fills the posting grid with an entry at its date due (date, subaccount name, description, the
// debit or credit when above 0, code, document) and returns the screen's fields: the date, and
// the description, amount and document of the last line.
CamposForm4 CargarPeriodicoEnForm4(RejillaAsiento& r, Conexion& datos, const AsientoPeriodico& a);

// A line of account 472 or 477: its VAT data must be typed at each posting.
bool TieneLineasIva(const AsientoPeriodico& a);

// Every date at which the entry falls due from its FechaProx on, as the start-up would take them.
QList<QDate> FechasPendientes(const AsientoPeriodico& a, const QDate& hoy,
                              const QDate& finEjercicio);

struct PosteoPeriodico {
    QString Nombre;
    QDate Fecha;
    long Numero = 0;
};

struct PendientePeriodico {
    QString Nombre;
    QDate Fecha;
    QString Motivo; // why it was left due, for the command line
};

struct ResultadoContAsPer {
    QList<PosteoPeriodico> Contabilizados;
    QList<PendientePeriodico> Pendientes; // left due under "all", with the reason
    bool Detenido = false;                // the exercise is closed: the run stopped
};

extern const QString MotivoIva;
extern const QString MotivoFueraEjercicio;
extern const QString MotivoNoContabilizado;

// The run. A store failure is told and ends the run; what was posted stays posted, with its
// FechaProx moved.
ResultadoContAsPer ContAsPer(Sesion& s, Dialogo& d, EstadoTablero& tablero,
                             PantallasPeriodicos& pantallas, const QDate& hoy);

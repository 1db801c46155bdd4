#pragma once
// Closing an exercise: the regularisation entry (the income and expense of groups 7 and 6 into
// the result of the exercise), the final entry (every other balance to zero) and, when the
// balances are carried forward, the opening entry of the target exercise. A close is written
// whole or not at all, in both exercise files at once.

#include <QString>
#include <functional>

class Conexion;
class Dialogo;
struct Sesion;

extern const QString CuentaResultado;         // "012900002", result of the exercise
extern const QString CuentaRemanente;         // "012000103", where a profit is carried
extern const QString CuentaResultadoNegativo; // "012100104", where a loss is carried

extern const QString ConceptoRegularizacion; // "Asiento de regularización"
extern const QString ConceptoFinal;          // "Asiento Final"
extern const QString ConceptoInicial;        // "Asiento inicial"

extern const QString MsgSeleccioneAnoTraspaso; // "Tiene que seleccionar el año al que ..."
extern const QString MsgAnoDistintoDelActual;  // "El año seleccionado tiene que ser distinto ..."

// Progress of long work by stage: the stage's name, and how much of it is done.
using ProgresoEtapa = std::function<void(const QString& etapa, qint64 hecho, qint64 total)>;

// The exercise that receives the balances, attached to the connection of the one being closed.
struct DestinoTraspaso {
    QString base;     // the alias it is attached under (BaseAdjunta)
    Sesion* sesion;   // its state: dates and highest entry, kept up to date
    long asiento = 1; // number of its opening entry; an opening entry there is replaced
    // The code a subaccount takes there; empty when codes go as they are.
    std::function<QString(const QString&)> traducir;
};

// The regularisation entry on the last day of the exercise, inside the caller's transaction or
// in one of its own: a line for each subaccount of groups 6 and 7 with a balance, the income
// (group 7) on the debit side and the expense (group 6) on the credit side, a negative balance
// staying negative in its column; and the difference on the result subaccount, on the credit
// side for a profit and on the debit side for a loss, when income and expense differ. Marks the
// exercise closed with NAsReg, in Empresa and in the session. Without balances of groups 6 and 7
// nothing is written and 0 comes back.
long HacerRegularizacion(Conexion& c, Sesion& s);

// The final entry on the last day of the exercise: every balance left outside groups 6 and 7,
// from the largest debit balance down to the largest credit balance, each on the side that
// cancels it; balances that show as zero to the cent are left as they are. Marks the exercise
// closed with NAsFin. With a destino, the entry with its number there is replaced by the opening
// entry on its first day: the same balances on their own sides, the result going to 012000103
// (a profit) or 012100104 (a loss), codes through destino.traducir, and a subaccount missing
// there created. Returns the number of the final entry, 0 when there was no balance.
long HacerFinal(Conexion& c, Sesion& s, const DestinoTraspaso* destino = nullptr,
                const ProgresoEtapa& progreso = {});

// Where a close sends the balances: the year (0: nowhere) and its opening entry.
struct Traspaso {
    int ano = 0;
    long asiento = 1;
};

// The whole close of the current exercise, both entries and the opening entry in the target, in
// one transaction over both files. Refuses (Rechazo, nothing written) an exercise already closed,
// the current year as target, a missing or closed target, and an opening number that belongs to
// an entry of the target other than an opening entry. The session follows: closed, NAsReg,
// NAsFin, UltimoAsiento; it stays in the current year.
void CerrarEjercicio(Sesion& s, const Traspaso& traspaso, const ProgresoEtapa& progreso = {});

// What the closing screen (or the command line) asks for.
struct PeticionCierre {
    enum class Modo { Existente, Nuevo, SinTraspaso };
    Modo modo = Modo::Existente;
    QString ano;     // the target year: chosen from the list, or to be created
    QString asiento; // the opening entry of an existing target; empty when there is none
};

// The box a refusal sends the user back to.
enum class CampoCierre { Ninguno, Ano, Asiento, AnoNuevo };

struct RespuestaCierre {
    bool cerrado = false;
    int anoDestino = 0; // the year the balances went to, 0 without transfer
    CampoCierre foco = CampoCierre::Ninguno;
};

// The close as the user asks for it: the checks and questions in their order (a No ends it with
// nothing changed), the target year created when it is new, then CerrarEjercicio. Refusals are
// told through the Dialogo; a failure of the close itself is thrown (ErrorQuilmar). Neither the
// move to the target year nor the closing "Proceso terminado." are done here.
RespuestaCierre PedirCierre(Sesion& s, Dialogo& d, const PeticionCierre& peticion,
                            const ProgresoEtapa& progreso = {});

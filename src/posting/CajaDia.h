#pragma once
// The day-cash pad without the screen: quick two-account movements of the day (takings and
// payments) kept in DelDia, out of the books until they are sent to the journal. Each movement
// sent becomes an entry of its own with two lines in the order of its accounts (the cash or bank
// subaccount first), no VAT, and its row leaves the pad in the same transaction: a movement is
// always either in the pad or in the journal, whatever stops the run.
//
// Usage (the screen, or the command line):
//     CajaDia caja(sesion, dialogo);
//     CamposCaja m{fecha, true, "157000001", "470000002", "50", "", "", ""};
//     caja.Anadir(m);                                   // Nº = MAX + 1; "Cobro del día"
//     ResultadoPasar r = caja.PasarAlDiario({ModoPasar::Todas}, progreso);

#include "platform/Dialogo.h"
#include "platform/Rejilla.h"

#include <QDate>
#include <QList>
#include <QSet>
#include <QString>
#include <functional>
#include <optional>

class Conexion;
struct Sesion;

// One row of DelDia with the names of its subaccounts.
struct MovimientoCaja {
    long Numero = 0; // Nº
    QDate Fecha;
    bool Cobro = true; // CP "Cobro"; false: "Pago"
    QString NCuenta1;  // "Cuenta de trabajo": the cash or bank subaccount
    QString NCuenta2;  // "Cta origen/destino"
    QString Cuenta1, Cuenta2;
    QString Concepto;
    double Importe = 0;
    QString Documento;
    QString Sector;
};

// The fields of the screen as typed (the command line gives the same).
struct CamposCaja {
    QDate fecha;
    bool cobro = true;
    QString ncuenta1;
    QString ncuenta2;
    QString importe;
    QString concepto;
    QString documento;
    QString sector;
};

extern const QString MsgFaltaTrabajo; // "Tiene que introducir la Subcuenta de trabajo."
extern const QString MsgFaltaOrigen;  // "Tiene que introducir la Subcuenta de origen/destino."
extern const QString MsgFaltaImporte; // "Tiene que introducir el Importe."
extern const QString MsgSinAcceso;    // "No se pudo acceder a la base de datos"
extern const QString CobroDelDia;     // "Cobro del día"
extern const QString PagoDelDia;      // "Pago del día"
QString PreguntaModificarCaja(long numero);
QString PreguntaEliminarCaja(long numero);

// The pad by date and number: the order in which it is shown and sent.
QList<MovimientoCaja> LeerCajaDia(Conexion& c);

// The list of the screen: "Nº", the tick ("-1" when ticked), "Fecha", "C/P", "Cuenta de trabajo",
// "Cta origen/destino", "Importe", "Concepto", "Documento", "Sector", and the two codes hidden.
namespace ColCaja {
enum : int {
    Numero = 0,
    Punteo,
    Fecha,
    CP,
    Cuenta1,
    Cuenta2,
    Importe,
    Concepto,
    Documento,
    Sector,
    NCuenta1,
    NCuenta2,
    Total
};
}
Rejilla RejillaCajaDia();
// Fills the list; rows whose number is in punteados come ticked. Totals: "Cobros", "Pagos",
// "Resultado".
void LlenarRejillaCajaDia(const QList<MovimientoCaja>& movimientos, Rejilla& r,
                          const QSet<long>& punteados = {});

// What "Al &Diario" sends.
enum class ModoPasar {
    Todas,      // "Todas"
    Punteadas,  // "Sólo las punteadas"
    EntreFechas // "Las comprendidas entre Fechas:", both included
};
struct CriterioPasar {
    ModoPasar modo = ModoPasar::Todas;
    QSet<long> punteadas; // numbers of the ticked rows
    QDate desde, hasta;
};
// The question before sending: "Está seguro de que desea traspasar al Diario todos los apuntes?"...
QString PreguntaPasar(ModoPasar modo);

struct ResultadoPasar {
    bool empezado = false; // false: refused or answered No; nothing was sent
    int pasados = 0;
    int pendientes = 0;   // taken but not sent (a failure stopped the run)
    QList<long> asientos; // the entries written, in order
    QString error;        // the failure that stopped the run, already told
};

class CajaDia {
public:
    CajaDia(Sesion& s, Dialogo& d);

    // "&Añadir": the checks, the number drawn as MAX(Nº) + 1 inside the write, an empty
    // description taking "Cobro del día" or "Pago del día". The number, or nothing (told).
    std::optional<long> Anadir(const CamposCaja& m);
    // "&Modificar": the same checks, then the question; the row rewritten under its number.
    bool Modificar(long numero, const CamposCaja& m);
    // "&Eliminar", after the question.
    bool Eliminar(long numero);

    // "Al &Diario": a closed exercise is refused, the question is asked, and each movement taken
    // is posted in its own transaction with the deletion of its row. A failure stops the run
    // there (told); what was sent before stays sent. progreso is told after each movement.
    // antesDeConfirmar runs inside each movement's transaction, once its entry is written and
    // its row deleted, before the commit (a test stops the process there).
    ResultadoPasar PasarAlDiario(const CriterioPasar& criterio, const Progreso& progreso = {},
                                 const std::function<void(long numero)>& antesDeConfirmar = {});

private:
    // The checked movement, or nothing after telling the user why.
    std::optional<MovimientoCaja> comprobar(const CamposCaja& m);

    Sesion& s_;
    Dialogo& d_;
};

#pragma once
// The register of due dates (table Vencimientos of the company database): collections and
// payments to come, who, how much, when, by which means and in which state. It posts nothing to
// the journal. Here: the forms of payment and the states, the key, the checks of a due date in
// their order, the warnings that don't stop, and the writing, changing and purging of rows, each
// one transaction.
//
// Usage (what "&Añadir" does, headless):
//     CamposVencimiento c;                 // the fields as typed
//     c.FechaV = "30/06/2026"; c.Tipo = "Cobro"; ...
//     if (auto v = ComprobarVencimiento(c, AltaVenc::Alta, dialogo, hoy)) {
//         Conexion b = AbrirBavar(s);
//         AnadirVencimiento(b, *v, QDateTime::currentDateTime());   // v->IdVenc is set
//     }

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

// "Efecto", "Pagaré", "Cheque", "Efectivo", "Transferencia", "Tarjeta", "Cargo cta.".
const QStringList& FormasVencimiento();
// "Sin formalizar", "Pendiente", "Cobrado", "Pagado", "Devuelto", "Reclamado", "Moroso",
// "En Gestión", "Fallido".
const QStringList& SituacionesVencimiento();
inline const QString TipoCobro = QStringLiteral("Cobro");
inline const QString TipoPago = QStringLiteral("Pago");
inline const QString SituacionPendiente = QStringLiteral("Pendiente");
// A due date is settled once collected or paid.
bool Liquidado(const QString& situacion);

// A name as a user may write it on the command line ("pagare", "en-gestion", "CARGO CTA") turned
// into the register's own spelling; empty when it names none of the list.
QString NombreDeLista(const QStringList& lista, const QString& escrito);

// The key, IdVenc: the moment of writing as a day number, kept to ten decimals. Its text is the
// number in the Spanish way ("46203,6152777778"); a point is read as well as a comma, so a key
// written under either locale finds its row.
double IdVencDeMomento(const QDateTime& momento);
QString TextoIdVenc(double id);
std::optional<double> IdVencDeTexto(const QString& texto);

struct Vencimiento {
    double IdVenc = 0;
    QDate FechaV; // due
    QDate FechaE; // issued
    QString Tipo; // Cobro or Pago
    QString Forma;
    QString NCuenta1; // the customer, supplier or other counterpart
    QString NCuenta2; // the cash or bank subaccount it goes through
    QString Concepto;
    QString Situacion = SituacionPendiente;
    double Importe = 0;
    QString Documento, Remesa, Sector; // optional: empty ones are stored as nothing
};

// The fields of the screen (or the command line's options) as typed.
struct CamposVencimiento {
    QString FechaV, FechaE; // typed dates; an empty FechaE is today
    QString Tipo, Forma, NCuenta1, NCuenta2, Concepto, Situacion, Importe;
    QString Documento, Remesa, Sector;
};

enum class AltaVenc { Alta, Modificacion };

// The messages of the checks, in their order.
inline const QString MsgVencAnterior =
    QStringLiteral("La fecha de vencimiento es anterior a la actual. Es correcto?");
inline const QString MsgVencAntesEmision =
    QStringLiteral("La fecha de vencimiento tiene que ser posterior a la de emisión.");
inline const QString MsgVencSinSubcuenta = QStringLiteral(
    "Tiene que seleccionar la Subcuenta. Primero seleccione el Area a la que pertenece");
inline const QString MsgVencSinTipo =
    QStringLiteral("Tiene que seleccionar el Tipo de vencimiento");
inline const QString MsgVencSinForma =
    QStringLiteral("Tiene que seleccionar la forma de cobro/pago del vencimiento");
inline const QString MsgVencSinCaja =
    QStringLiteral("Tiene que seleccionar la cuenta de Banco o Caja por donde se realizará el "
                   "cobro/pago del vencimiento.");
inline const QString MsgVencSinConcepto = QStringLiteral("Tiene que introducir el Concepto.");
inline const QString MsgVencSinImporte =
    QStringLiteral("Tiene que introducir el Importe del vencimiento.");
inline const QString MsgVencSinFecha = QStringLiteral("No ha introducido la fecha de vencimiento.");
inline const QString MsgVencImporteNegativo =
    QStringLiteral("El importe del vencimiento tiene que ser mayor que cero.");
inline const QString MsgCobroPagado =
    QStringLiteral("Si el Vencimiento es del tipo 'Cobro' la situación no puede ser 'Pagado'");
inline const QString MsgPagoCobrado =
    QStringLiteral("Si el Vencimiento es del tipo 'Pago' la situación no puede ser 'Cobrado'");
inline const QString MsgSinModificar =
    QStringLiteral("No se pudo hacer la modificación en la base de datos.");
inline const QString MsgNoHayRegistros = QStringLiteral("No hay registros.");

// The checks of "&Añadir" in their order (a due date before today only asks; one before its
// issue is refused), or of "&Modificar" (the six after those two). Dates that are not dates and
// amounts that are not amounts are refused too, and so are texts too long for their field and a
// state that contradicts the type. The first failure is told and nothing comes back.
std::optional<Vencimiento> ComprobarVencimiento(const CamposVencimiento& campos, AltaVenc modo,
                                                Dialogo& d, const QDate& hoy);

// The warning, without stopping, of a subaccount whose area fits badly with the type (a
// collection from area 2 or 6, a payment to area 4 or 3); empty when it fits.
QString AvisoAreaTipo(const QString& tipo, const QString& ncuenta);

// The state as chosen for the type: a collection can't be "Pagado" nor a payment "Cobrado";
// those are told and give "Pendiente".
QString SituacionAdmitida(const QString& tipo, const QString& situacion, Dialogo& d);

// --- The store ------------------------------------------------------------------------------

// Writes a new row; its key is the moment given, moved on by the smallest step of the key when
// another row holds it already. Sets and returns v.IdVenc.
double AnadirVencimiento(Conexion& bavar, Vencimiento& v, const QDateTime& ahora);
// Rewrites the row of v.IdVenc; false when there is none.
bool ModificarVencimiento(Conexion& bavar, const Vencimiento& v);
// Deletes the row of a key; false when there is none.
bool EliminarVencimiento(Conexion& bavar, double id);
std::optional<Vencimiento> LeerVencimiento(Conexion& bavar, double id);
// Sets the state of a row; false when there is none.
bool CambiarSituacion(Conexion& bavar, double id, const QString& situacion);

// The limit of "Eliminar Vencidos y no Cobrados/Pagados": today less n months (0: today).
QDate LimitePurga(int meses, const QDate& hoy);
// Deletes every row due before the date; the number deleted.
int EliminarVencidosAntesDe(Conexion& bavar, const QDate& limite);
// Deletes every collected or paid row; the number deleted.
int EliminarLiquidados(Conexion& bavar);

// The two purges as the menu does them: the question, the deletion, "No hay registros." when
// nothing was there. The number deleted, or -1 when the user said No.
int EliminarVenc(const Sesion& s, Dialogo& d, int meses, const QDate& hoy);
int EliminarCobradosPagados(const Sesion& s, Dialogo& d);

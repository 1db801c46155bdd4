#pragma once
// Reconciliation of journal lines without the screen: ticking a line (Punteo) as checked against a
// bank statement, and matching (casación) a starting line of a subaccount with lines of the
// opposite side of that subaccount until the group nets to zero (an invoice and its payments).
// The groups, their keys and their four states are journal/Casaciones.h. Every action is one
// transaction and returns the lines it changed, as they now stand, for the screen to show.
//
// Usage (the screen's context menu, or the command line):
//     Punteo p(sesion, dialogo);
//     p.ComoInicio(12, 1);                              // the invoice line starts a group
//     p.ComoFinal(15, 2, elegir);                       // a payment joins it; the states follow
//     QList<LineaPunteo> l = LeerLineasPunteo(c, {"400000001"});

#include "platform/Rejilla.h"

#include <QDate>
#include <QList>
#include <QString>
#include <functional>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

// One line of the journal with its marks.
struct LineaPunteo {
    long NAs = 0;
    long NAp = 0;
    QDate Fecha;
    QString NCuenta;
    QString Cuenta; // subaccount name
    QString Concepto;
    double Debe = 0;
    double Haber = 0;
    QString Documento;
    bool Punteo = false;
    int CasacionN = 0;
    double CasacionH = 0; // group key; 0 when the line belongs to no group

    bool EnGrupo() const { return CasacionH != 0; }
};

// The views of the screen ("Seleccionar registros").
enum class VistaPunteo {
    Todos,               // "Ver todos los registros"
    Punteados,           // "Ver Punteados"
    NoPunteados,         // "Ver no Punteados"
    CasadosTotalmente,   // "Ver Casados totalmente": states 1 and 2
    CasadosParcialmente, // "Ver Casados parcialmente": states 0 and 3 of a group
    NoCasados,           // "Ver no Casados": no group
};

// Which lines are shown: one subaccount or all (empty), a period (invalid dates: no limit), a view.
struct SeleccionPunteo {
    QString ncuenta;
    QDate desde, hasta;
    VistaPunteo vista = VistaPunteo::Todos;
};

// The start to join, among the candidates (the picking screen, or an argument of the command line):
// its index, or nothing when the user cancelled.
using ElegirInicio = std::function<std::optional<int>(const QString& subcuenta,
                                                      const QList<LineaPunteo>& candidatos)>;

extern const QString MsgNoHayInicio;      // "No hay Inicio para esta casación."
extern const QString MsgAnularCasacion;   // "Está seguro de que desea anular esta partida ..."
extern const QString MsgProcesoTerminado; // "Proceso terminado."
extern const QString MsgYaEnCasacion;     // the line already belongs to a group
extern const QString MsgSinCasacion;      // the line belongs to no group
// "No se encontró el Asiento nº 1.234."
QString MsgNoSeEncontro(long nas);

// The state of a line in words: "Inicio", "Casado parcialmente", "Inicio (casado)", "Casado
// totalmente", or empty for a line in no group.
QString TextoEstadoCasacion(const LineaPunteo& l);

// The lines of a selection, by entry and line number.
QList<LineaPunteo> LeerLineasPunteo(Conexion& c, const SeleccionPunteo& sel);
std::optional<LineaPunteo> LeerLineaPunteo(Conexion& c, long nas, long nap);
// The lines of a group, by entry and line number.
QList<LineaPunteo> LineasCasacion(Conexion& c, double clave);
// The starts a line can join: open starts of its subaccount on the opposite side (with the same
// document when given), by entry and line number.
QList<LineaPunteo> CandidatosInicio(Conexion& c, const LineaPunteo& linea,
                                    const std::optional<QString>& documento = std::nullopt);

// The lines as a list (the command line, export): "Nº As.", "NAp", "Fecha", "NCuenta", "Cuenta",
// "Concepto", "Debe", "Haber", "Documento", "Punteo" ("X" when ticked), "Casación" (the state in
// words) and "Grupo" (the key as written).
Rejilla RejillaPunteo();
void LlenarRejillaPunteo(const QList<LineaPunteo>& lineas, Rejilla& r);

// "NAS:NAP" as the command line names a line; nothing when it is not one.
std::optional<std::pair<long, long>> LeerNasNap(const QString& texto);

class Punteo {
public:
    Punteo(Sesion& s, Dialogo& d);

    // Turns the tick of a line over. The line as it now stands; nothing when it is not found.
    std::optional<LineaPunteo> Puntear(long nas, long nap);
    // Sets the ticks of several lines, all or none. False when a line is not found.
    bool FijarPunteo(const QList<std::pair<long, long>>& lineas, bool punteado);

    // "Como Inicio": the line starts a group of its own under a new key.
    QList<LineaPunteo> ComoInicio(long nas, long nap);
    // "Como Final": the line joins an open start of its subaccount on the opposite side (the one
    // there is, or the one chosen), and the group is graded. With porDocumento only starts of the
    // line's document are candidates ("Casar por Documento", "El registro seleccionado").
    QList<LineaPunteo> ComoFinal(long nas, long nap, const ElegirInicio& elegir,
                                 bool porDocumento = false);
    // "Todos los registros": every line of the selection (its subaccount and dates; the view
    // plays no part) with a document and no group joins the first open start of its document
    // on the opposite side of its subaccount. Returns how many lines were joined, -1 on failure.
    int CasarTodosPorDocumento(const SeleccionPunteo& sel);
    // The command line's matching: the first line is the start (marked now when it is in no group;
    // an open start takes more lines) and each other line joins it. All or none: a line that
    // can't go into the group refuses the whole with MsgNoHayInicio.
    QList<LineaPunteo> Casar(const QList<std::pair<long, long>>& lineas);
    // "Anular Casación", after asking: the line leaves its group, and what is left is graded by its
    // sum. Returns the line and the rest of its group.
    QList<LineaPunteo> Anular(long nas, long nap);
    // "Verificar Casaciones existentes": every group graded by its sum. Lines whose state
    // changed, or -1 on failure.
    int CompCasa();

private:
    template <typename F>
    auto enTransaccion(F hacer) -> std::optional<decltype(hacer(std::declval<Conexion&>()))>;
    std::optional<LineaPunteo> buscar(Conexion& c, long nas, long nap);
    void unir(Conexion& c, const LineaPunteo& linea, const LineaPunteo& inicio);

    Sesion& s_;
    Dialogo& d_;
};

#pragma once
// The series of the eleven charts of "Quilmar [Gráficos]", computed apart from any drawing: the
// balances of an area (the 25 largest and "Resto de conceptos"), income against expense (the 15
// largest of each and "Resto de Ingresos" / "Resto de Gastos"), income and expense by month, one
// subaccount by month, and one area or subaccount across exercises. The screen and the command
// line draw what these give (reports/forms/LienzoGrafico.h); the command line also writes it as
// CSV through RejillaGrafico.
//
// Usage:
//     const EntradaGrafico& e = EntradasGraficos().at(indice);       // Combo1's entry
//     Conexion c = AbrirDatos(sesion);
//     DatosGrafico g = GraficoArea(c, sesion, e);                     // kind 1
//     DatosGrafico m = GraficoCuenta(c, sesion, ncuenta, nombre);     // kind 2, after Form41
//     DatosGrafico a = GraficoAnos(sesion, seleccionAnos);            // kind 6, after Form2
//     const AspectoGrafico aspecto = LeerAspectoGrafico(ajustes);     // 2D/3D, bars/pie, amounts
//     if (DibujaCircular(g.tipo, aspecto)) ... a pie, else bars
//
// Nothing here writes. The charts on balances of a closed exercise take the balances before the
// close by leaving out the lines of the regularisation and final entries (Clase "R" and "F"):
// the books stay exactly as they were, entry numbers included.

#include "platform/Dialogo.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Ajustes;
class Conexion;
class Rejilla;
struct Sesion;

enum class TipoGrafico {
    Area = 1,           // GraficoArea: the balances of an area's subaccounts
    Cuenta = 2,         // GraficoCuenta: one subaccount by month
    IngresosGastos = 3, // GraficoIyG
    Meses = 5,          // GraficoMeses
    Anos = 6,           // GraficoAnos: comparison of exercises
};

// An entry of the list of charts.
struct EntradaGrafico {
    QString texto; // "Ingresos del ejercicio"
    TipoGrafico tipo = TipoGrafico::Area;
    int area = -1; // the area digit of kind 1 (first digit of NCuenta), else -1
    QString clave; // its name on the command line: "ingresos", "cuenta", "anos"...
};

// The eleven entries in the order of the list.
const QList<EntradaGrafico>& EntradasGraficos();
// The entry of a command-line name, or null.
const EntradaGrafico* EntradaGraficoDeClave(const QString& clave);

struct SerieGrafico {
    QString nombre;        // "Ingresos", "Gastos"; for one series, what it measures
    QList<double> valores; // one per point, to the cent
};

struct DatosGrafico {
    TipoGrafico tipo = TipoGrafico::Area;
    QString titulo;
    QString tituloX, tituloY;
    QStringList puntos;         // the label of each point
    QList<SerieGrafico> series; // one or two
    // Income and expense: each point belongs to one series only (the other holds 0), so that the
    // bars of a point stand alone instead of beside an empty one.
    bool puntosSeparados = false;
    // Total of every row the points stand for (the remainder point included), by series.
    QList<double> totales;
};

// Pies are drawn only for the kinds of one series of parts: 1 and 2. The others stay bars.
bool AdmiteCircular(TipoGrafico tipo);

// The look kept in Valores: Dimensiones ("2D", "3D"), TipoChart ("Barras", "Circular"),
// VerImport ("SI", "NO").
struct AspectoGrafico {
    bool tresD = false;
    bool circular = false;
    bool cantidades = false; // each point labelled with its amount in "standard"
};
AspectoGrafico LeerAspectoGrafico(const Ajustes& ajustes);
void GuardarDimensiones(Ajustes& ajustes, bool tresD);
void GuardarTipoChart(Ajustes& ajustes, bool circular);
void GuardarVerImport(Ajustes& ajustes, bool cantidades);

// A pie only when asked and the kind admits one.
bool DibujaCircular(TipoGrafico tipo, const AspectoGrafico& aspecto);

inline constexpr int PuntosArea = 25;
inline constexpr int PuntosIyG = 15;
inline const QString PuntoRestoConceptos = QStringLiteral("Resto de conceptos");
inline const QString PuntoRestoIngresos = QStringLiteral("Resto de Ingresos");
inline const QString PuntoRestoGastos = QStringLiteral("Resto de Gastos");

// Kind 1: the subaccounts of the area (first digit) with a balance before closing, sorted down by
// the balance of the area's nature (credit for 0, 2, 3; debit for 1, 4, 5, 6); the first 25 as
// points and the rest summed into "Resto de conceptos".
DatosGrafico GraficoArea(Conexion& c, const Sesion& s, const EntradaGrafico& entrada);

// Kind 3: income (group 7, credit - debit) and expense (group 6, debit - credit) from the
// balances before closing, each sorted down, 15 points each and their remainders.
DatosGrafico GraficoIyG(Conexion& c, const Sesion& s, const EntradaGrafico& entrada);

// Kind 5: income and expense by month from the journal, regularisation left out.
DatosGrafico GraficoMeses(Conexion& c, const Sesion& s, const EntradaGrafico& entrada);

// Kind 2: one subaccount by month by its nature, closing entries left out.
DatosGrafico GraficoCuenta(Conexion& c, const Sesion& s, const QString& ncuenta,
                           const QString& nombre);

// What Form2 chooses for kind 6.
struct SeleccionAnosGrafico {
    bool porAreas = true;
    QString area;    // the digit of the area box
    QString ncuenta; // the subaccount, without porAreas
    QString nombre;  // the subaccount's name; for an area, its digit
    int numero = 0;  // how many years
    int primerAno = 0;
};

inline const QString MsgGrafNumeroAnos =
    QStringLiteral("Tiene que seleccionar el número de años que se van a comparar.");
inline const QString MsgGrafPrimerAno =
    QStringLiteral("Tiene que seleccionar el año desde el que se va a comparar.");
inline const QString MsgGrafArea = QStringLiteral("Tiene que seleccionar un Area.");
inline const QString MsgGrafCuenta = QStringLiteral("Tiene que seleccionar una Cuenta.");
inline const QString MsgGrafAreaPrimero =
    QStringLiteral("Seleccione primero el Area al que pertenece la Subcuenta");
inline const QString MsgGrafErrorCuenta = QStringLiteral("Error en la cuenta.");

// What Form2's boxes hold.
struct CajasAnosGrafico {
    bool porAreas = true; // "Comparar Areas", else "Comparar Subcuentas"
    int numero = 0;       // 0: none chosen
    int primerAno = 0;    // 0: none chosen
    QString area;         // the digit chosen, empty when none
    QString subcuenta;    // the subaccount's name as its box shows it
};

// Form2's "&Aceptar": the number of years, the first year, the area, then (comparing
// subaccounts) the subaccount, found by its name within the area. Nothing on failure, after
// telling the user.
std::optional<SeleccionAnosGrafico> ValidarAnosGrafico(const CajasAnosGrafico& cajas,
                                                       const Sesion& s, Dialogo& dialogo);

// Form41's "&Aceptar": an area first ("Seleccione primero el Area al que pertenece la
// Subcuenta"), then a subaccount of that name ("Error en la cuenta."). The code and the name.
struct CuentaGrafico {
    QString ncuenta, nombre;
};
std::optional<CuentaGrafico> ValidarCuentaGrafico(const QString& area, const QString& subcuenta,
                                                  const Sesion& s, Dialogo& dialogo);

// The years compared: the company's exercises in order of year, from the first chosen, n in all
// (fewer when the company has fewer from there on).
QList<int> AnosDelGrafico(const QList<int>& ejercicios, int primerAno, int numero);

// Kind 6: one point per year, named by the year, with the total of the area or subaccount in
// that year's database by the nature of each line's subaccount, closing entries left out. A year
// whose database is missing gives the point "2025 (sin ejercicio)" with nothing in it.
DatosGrafico GraficoAnos(const Sesion& s, const SeleccionAnosGrafico& sel, const QList<int>& anos);

// The hidden grid of a chart: the point's label, then one column per series.
Rejilla RejillaGrafico(const DatosGrafico& datos);

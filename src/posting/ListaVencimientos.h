#pragma once
// The list of due dates: the filters under "  Ver" turned into the query, the grid with its
// "Total Importe", the colour of each row by urgency, and the search in a column.
//
// Usage:
//     FiltrosVenc f;                      // nothing ticked: every due date since 31/12/2000
//     f.Tipo = TipoFiltro::Pagos;
//     f.PorSituacion = true; f.Situacion = "Pendiente";
//     if (ComprobarFiltros(f, dialogo)) {
//         Rejilla r = RejillaVencimientos();
//         const double total = LlenarVenc(sesion, f, hoy, r);   // "Total Importe" set in r
//         QColor c = ColorFilaVenc(r, 0, hoy);                   // the first column's colour
//     }

#include "platform/Dialogo.h"
#include "platform/Rejilla.h"

#include <QColor>
#include <QDate>
#include <QHash>
#include <QString>
#include <QVariantList>
#include <optional>

class Conexion;
struct Sesion;
struct Vencimiento;

// Columns of the list, in the order of its rows.
namespace ColV {
enum : int {
    FechaV = 0,
    Tipo,
    Forma,
    Subcuenta, // name of NCuenta1
    Concepto,
    CajaBanco, // name of NCuenta2
    Importe,   // "standard"
    Situacion,
    Documento,
    Remesa,
    Sector,
    FechaE,
    IdVenc,   // the key as text; hidden
    NCuenta1, // hidden
    NCuenta2, // hidden: the bank or cash code, for a double click
    Total
};
}

inline const QString EtiquetaTotalVenc = QStringLiteral("Total Importe");

Rejilla RejillaVencimientos();

// The option group "Cobros", "Pagos", "Todos".
enum class TipoFiltro { Cobros, Pagos, Todos };
// "Cobro", "Pago" or "Todos", as kept in Datos\TipoVenc, and back (anything else is Todos).
QString TextoTipoFiltro(TipoFiltro t);
TipoFiltro TipoFiltroDeTexto(const QString& t);

// The filters, each a check box with its value.
struct FiltrosVenc {
    // Ticked: only the due dates already past (before today). Unticked: every one from
    // 31/12/2000 on, with no upper date.
    bool Vencidos = false;
    bool PorSituacion = false;
    QString Situacion;
    bool PorFecha = false; // "Fecha Venc.": from and to, as typed
    QString Desde, Hasta;
    bool PorForma = false;
    QString Forma;
    bool PorRemesa = false;
    QString Remesa;
    bool PorSubcuenta = false; // "Subcta C/P:"
    QString Subcuenta;         // its NCuenta
    TipoFiltro Tipo = TipoFiltro::Todos;
};

// The checks of "&Ver" on the ticked filters; the first failure is told.
bool ComprobarFiltros(const FiltrosVenc& f, Dialogo& d);

// The query of LlenarVenc: each unticked filter matches everything ("%"), the date range stands
// between the form and the remittance, the lower date follows the state, and the type closes it
// unless "Todos". Ordered by due date.
struct ConsultaVenc {
    QString sql;
    QVariantList valores;
};
ConsultaVenc ConsultaLlenarVenc(const FiltrosVenc& f, const QDate& hoy);
// The lower date when "Vencidos" is not ticked.
inline const QDate FechaMinimaVenc(2000, 12, 31);

// The cells of a row of the list; names are the subaccounts' (a code without a name shows
// itself).
QStringList FilaVencimiento(const Vencimiento& v, const QHash<QString, QString>& nombres);
// The names of the chart of the exercise, by NCuenta (empty when no exercise is open).
QHash<QString, QString> NombresSubcuentas(const Sesion& s);

// What a row adds to "Total Importe": its amount, or minus it for a payment under "Todos".
double AporteAlTotal(const Vencimiento& v, TipoFiltro tipo);

// Fills the list, sets "Total Importe" in the grid and returns it.
double LlenarVenc(const Sesion& s, const FiltrosVenc& f, const QDate& hoy, Rejilla& r,
                  const Progreso& progreso = {});
// The total read back from the list's rows (after a row was added or removed on screen).
double TotalDeLista(const Rejilla& r, TipoFiltro tipo);

// The colour of the first column by the state and the due date: settled, due today, overdue,
// due within the next seven days, later.
enum class UrgenciaVenc { Liquidado, Hoy, Vencido, Proximo, Lejano };
UrgenciaVenc Urgencia(const QDate& fechaV, const QString& situacion, const QDate& hoy);
QColor ColorUrgencia(UrgenciaVenc u);
// A colour given as the number a Windows colour property holds (&HBBGGRR).
QColor ColorDeBGR(quint32 bgr);
QColor ColorFilaVenc(const Rejilla& r, int fila, const QDate& hoy);

// "&Buscar" / "Bus&car Siguiente": the first row from desde on whose cell in the column holds
// the text (any case). Nothing, after telling why, when the text or the column is missing or
// the end of the list is reached.
std::optional<int> BuscarVenc(const Rejilla& r, int columna, const QString& texto, int desde,
                              Dialogo& d);

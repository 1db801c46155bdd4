#pragma once
// The journal book on screen: which lines (Form6: by entry numbers or by dates), the grid of
// Form5 with its fourteen columns and its totals, and the deletion of an entry from the list.
// The printed journal is ImpresionDiario.h; the search over the grid is BuscarDiario.h.
//
// Usage:
//     SeleccionDiario sel = SeleccionDiarioInicial(sesion, MaxAsiento(sesion)); // Form6 opening
//     cajas... ; auto elegida = ValidarSeleccionDiario(cajas, sesion, dialogo);   // "&Aceptar"
//     Rejilla r = RejillaDiario();
//     Conexion c = AbrirDatos(sesion);
//     LlenarDiario(c, *elegida, r, progreso);   // rows, and the totals "Totales" under the list

#include "platform/Dialogo.h"

#include <QDate>
#include <QString>
#include <optional>

class Conexion;
class Rejilla;
struct Sesion;

// The lines of the journal a list or a print takes.
struct SeleccionDiario {
    bool porFechas = false;
    double desdeAsiento = 1, hastaAsiento = 0; // NAs bounds (a typed 3.5 stays 3.5)
    // Fecha bounds; when selecting by numbers, the exercise's dates (used only by the actions
    // that open other books from the list).
    QDate desde, hasta;
};

// Form6 on opening: entries 1 (0 when there are none) to the highest number, and the first and
// last day of the exercise.
SeleccionDiario SeleccionDiarioInicial(const Sesion& s, double maxAsiento);

// What Form6's boxes hold.
struct CajasSeleccionDiario {
    bool porFechas = false;
    QString desdeAsiento, hastaAsiento;
    QDate desde, hasta;
};

inline const QString MsgAsientoNoValido =
    QStringLiteral("El número de asiento introducido no es válido.");
inline const QString MsgFechasInvertidas =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");

// "&Aceptar" of Form6: both numbers numeric (a decimal point or comma counts as numeric), or the
// first date not after the second. On a failure the user is told and nothing is returned; caja
// says which box takes the focus (0 the first, 1 the second).
std::optional<SeleccionDiario> ValidarSeleccionDiario(const CajasSeleccionDiario& cajas,
                                                      const Sesion& s, Dialogo& dialogo,
                                                      int* caja = nullptr);

// Columns of the grid of Form5.
enum ColumnaDiario {
    ColAsiento,   // "Asiento", "#,###"
    ColApunte,    // "Ap."
    ColFecha,     // "Fecha", short date
    ColSubcuenta, // "Subcuenta": the subaccount's name
    ColConcepto,
    ColDebe, // "#,##0.00"
    ColHaber,
    ColNCuenta, // hidden: the code the actions on a line take
    ColSector,
    ColDocumento,
    ColBaseIva, // "#,###.##"
    ColCuotaIva,
    ColCliPro,
    ColFactura,
    ColumnasDiario
};

// An empty grid with the fourteen columns.
Rejilla RejillaDiario();

// LlenarDiario: the lines of the selection in entry and line order, with their VAT data, and the
// totals under the list. Both totals are sums of Debe, as the journal has always shown them (in
// a balanced journal they agree with the credit). The grid is emptied first. progreso, when
// given, hears (rows done, lines selected) every few thousand rows.
void LlenarDiario(Conexion& c, const SeleccionDiario& sel, Rejilla& rejilla,
                  const Progreso& progreso = {});

// The texts of the two totals under the list: a caption and an unnamed second value.
inline const QString TotalDiarioDebe = QStringLiteral("Totales");
inline const QString TotalDiarioHaber = QString();

// "Eliminar Asiento" of the list: refused in a closed exercise; asks "Está seguro de que desea
// eliminar el Asiento número n?" (No by default); deletes through the journal writer. True when
// the entry was deleted (the list then closes).
bool EliminarAsientoDiario(Sesion& s, Dialogo& dialogo, long nas);

#pragma once
// The four legal books of the tax subsystem, read-only: the income book ("Libro de Ingresos") and
// the expense book ("Libro de Gastos") from the journal lines of groups 7 and 6, and the books of
// issued and received invoices ("Libro de Facturas expedidas", "Libro de Facturas recibidas")
// from the VAT records, closed by their totals per rate.
//
// Usage (Form25's "&Aceptar", then the book's window or the command line):
//     SeleccionLibroIva sel{LibroIva::Expedidas, desde, hasta, sector, verAsiento, verNif};
//     if (!ValidarSeleccionLibroIva(sel, sesion, dialogo)) return;     // told to the user
//     Rejilla r = RejillaLibroIva(sel);
//     Conexion c = AbrirDatos(sesion);
//     const ResultadoLibroIva res = LlenarLibroIva(c, sel, r);
//     res.total;          // income and expense books: also the "TOTAL" under the grid
//     res.iva, res.recargo; // invoice books: the rows that close the book, as single floats
// The printed books are ImpresionLibrosIva.h.
//
// Choices kept on purpose, as these books have always been: "Nº Orden" reads 1,00, 2,00...; the
// invoice column of the income and expense books comes from the first VAT record of the entry,
// whatever line it belongs to; the totals per rate are summed in single precision and shown as
// the plain figure of that float ("1234,5", "1,234568E+07"), in the order each rate first
// appears, a rate being matched by exact equality.

#include "platform/Dialogo.h"

#include <QDate>
#include <QList>
#include <QString>
#include <optional>

class Conexion;
class Rejilla;
struct Sesion;

enum class LibroIva { Ingresos, Gastos, Expedidas, Recibidas };

// Title of a book ("Libro de Facturas expedidas"), which is also what Form25 takes and what the
// page head prints; its window's caption ("Quilmar [Libro de Ingresos]"); its form's name and
// number ("Form18", 18; Form34, Form26, Form51).
QString TituloLibroIva(LibroIva libro);
QString CaptionLibroIva(LibroIva libro);
QString NombreFormLibroIva(LibroIva libro);
int NumeroFormLibroIva(LibroIva libro);
std::optional<LibroIva> LibroIvaDeTitulo(const QString& titulo);
inline bool EsLibroFacturas(LibroIva libro) {
    return libro == LibroIva::Expedidas || libro == LibroIva::Recibidas;
}

struct SeleccionLibroIva {
    LibroIva libro = LibroIva::Ingresos;
    QDate desde, hasta;
    QString sector;          // empty: every sector
    bool verAsiento = false; // "Asiento": the entry number
    bool verNIF = false;     // "NIF": the party's tax number (invoice books only)
};

inline const QString MsgLibroFechas =
    QStringLiteral("La fecha inicial debe ser menor o igual que la final.");
inline const QString MsgLibroFueraEjercicio =
    QStringLiteral("La fecha introducida no pertenece al año de trabajo.");

// "&Aceptar" of Form25 (and the command line): the second date not before the first, both within
// the open exercise (Form25's pickers cannot leave it). False after telling the user.
bool ValidarSeleccionLibroIva(const SeleccionLibroIva& sel, const Sesion& s, Dialogo& dialogo);

// Columns of the income and expense books.
enum ColumnaLibroCuentas {
    ColLibOrden,    // "Nº Orden": 1,00, 2,00...
    ColLibAsiento,  // NAs
    ColLibFecha,    // short date
    ColLibFactura,  // "Factura" (income) or "Expedidor" (expense), from the entry's VAT record
    ColLibConcepto, // the subaccount's name
    ColLibImporte,  // Haber - Debe (income) or Debe - Haber (expense), "standard"
    ColLibNCuenta,  // hidden
    ColumnasLibroCuentas
};

// Columns of the book of issued invoices.
enum ColumnaExpedidas {
    ColExpAsiento, // blank unless verAsiento
    ColExpFecha,
    ColExpFactura,
    ColExpNIF, // blank unless verNIF
    ColExpDestinatario,
    ColExpBaseIva,     // "B.I. IVA": the base of an IVA record
    ColExpBaseRecargo, // "B.I. Recargo": the base of a Recargo record
    ColExpTipo,
    ColExpCuota,
    ColExpNCuenta, // hidden: the customer's subaccount
    ColumnasExpedidas
};

// Columns of the book of received invoices.
enum ColumnaRecibidas {
    ColRecOrden,
    ColRecAsiento,
    ColRecFecha,
    ColRecFactura,
    ColRecNIF,
    ColRecExpedidor,
    ColRecBaseIva,
    ColRecTipo,
    ColRecCuota,
    ColRecNCuenta, // hidden: the supplier's subaccount
    ColumnasRecibidas
};

// An empty grid with the book's columns; "Asiento" and "NIF" are hidden when their flags are
// off, the subaccount always.
Rejilla RejillaLibroIva(const SeleccionLibroIva& sel);

// The caption of the total under the income and expense books.
inline const QString TotalLibroIva = QStringLiteral("TOTAL");

// Dark blue of the total rows of the invoice books (red 0, green 0, blue 192).
constexpr quint32 ColorTotalesIva = 0x0000C0;

// The plain text of a single-precision value, as the totals per rate show it: up to seven
// significant figures, decimal comma, an exponent from ten million on ("1,234568E+07").
QString TextoSimple(float valor);

// One rate of the closing rows of an invoice book, summed in single precision.
struct TotalTipoIva {
    float tipo = 0, base = 0, cuota = 0;
};

struct ResultadoLibroIva {
    int registros = 0;                // journal lines or VAT records listed
    double total = 0;                 // income and expense books
    QList<TotalTipoIva> iva, recargo; // invoice books, in order of first appearance
};

// Fills the grid anew (emptied first) with the book of sel.libro. An income or expense book gets
// its "TOTAL"; an invoice book ends with one empty row and then one row per rate, "Total IVA al
// 21%" (and in the issued book "Total Recargo al 5,2%"), painted dark blue from the party's
// column on. The sector is a bound value: any name works, quotes included.
ResultadoLibroIva LlenarLibroIva(Conexion& c, const SeleccionLibroIva& sel, Rejilla& rejilla,
                                 const Progreso& progreso = {});

// Where a row's party or subaccount stands, for "Ver movimientos": the hidden column. A row is a
// record's (and opens the movements) when it has a date; the empty row and the totals have none.
int ColumnaNCuentaLibroIva(LibroIva libro);
int ColumnaFechaLibroIva(LibroIva libro);
// The party column of an invoice book (where the total rows' words stand) and, in an income or
// expense book, the concept column.
int ColumnaNombreLibroIva(LibroIva libro);

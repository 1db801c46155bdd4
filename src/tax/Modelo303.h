#pragma once
// The VAT return, Modelo 303: its boxes filled from the VAT records of a period, recalculated
// after each change, checked before the file for the tax authority is made, printed as a draft.
// Nothing here writes to the books.
//
// Usage (what Form92 and Form109 do, and the command line):
//     Modelo303 m = Nuevo303(con, d1, d2);    // period text, exercise, the company's NIF
//     Llenar303(con, m);                       // rate lines, 22 and 23, then the recalculation
//     m.casillas[41] = 150.0; Recalcular303(m, 41);
//     if (Presentar303(sesion, m, dialogo, elegirCarpeta)) ...   // checks, Gen303.txt, copy
//     DibujarBorrador303(imp, m, Desglose303(con, m.desde, m.hasta), "Arial", 9);

#include "tax/CasillasModelo.h"
#include "tax/FicheroHacienda.h"

#include <QByteArray>
#include <QList>
#include <array>

class Conexion;
class Dialogo;
class Impresora;
struct Sesion;

struct Modelo303 {
    QDate desde, hasta;
    int anoFechas = 0; // the year of the first date, against which Ejercicio is checked
    QString ejercicio, periodo;
    QString nif, apellidos, nombre;
    // "¿Está inscrito en el Registro de devolución mensual?": SI and NO marks.
    bool inscritoSi = false, inscritoNo = false;
    bool sinActividad = false;
    std::array<Casilla, 51> casillas; // 1 to 50; [0] unused
    Casilla importe;                  // "Importe:" of the payment block (I)
    CuentaBanco cuentaDevolucion;
    bool efectivo = false, adeudo = false; // "En efectivo", "Adeudo en cuenta"
    CuentaBanco cuentaCargo;
    bool complementaria = false;
    QString justificante;
    FirmaModelo firma;

    Casilla& operator[](int n) { return casillas.at(n); }
    const Casilla& operator[](int n) const { return casillas.at(n); }
};

// The rates asked for, in this order: each rate with records takes the next line.
extern const QList<double> TiposIva303;
extern const QList<double> TiposRecargo303;

// A return for the period: dates, period text, Ejercicio and its year from the first date, the
// company's NIF and name, today's date under the signature.
Modelo303 Nuevo303(Conexion& c, const QDate& desde, const QDate& hasta,
                   const QDate& hoy = QDate::currentDate());

// Fills the boxes from the VAT records of the period that enter the VAT books: the output VAT
// rate lines (the general regime from line 1, a fourth rate running on into the surcharge lines,
// which the surcharge rates then fill again from line 4; lines beyond the sixth are dropped),
// boxes 22 and 23 from the input VAT of every rate, then the recalculation. Rates are compared
// within a thousandth, since they are kept in single precision. A store failure throws
// ErrorAlmacen with the boxes filled so far left in place.
void Llenar303(Conexion& c, Modelo303& m);

// After a change of box `editada` (0: none): the quota of a rate line whose base or rate changed
// and holds both, the totals 21, 37, 38, 40 (38 when 39 is empty, else 38 x 39 / 100), 46 and
// 48, and then either 49 and 50 emptied with the amount to pay set from 48, when 48 is above 0,
// or the amount to pay emptied with the payment marks and the charge account.
void Recalcular303(Modelo303& m, int editada = 0);

// The checks of the presentation, in order; the first that fails, or nothing. A one-digit
// numeric period gets its leading 0 here.
std::optional<FalloModelo> Comprobar303(Modelo303& m);

// The 1,353 bytes of Gen303.txt (fewer when an amount of the short kind is present).
QByteArray Fichero303(const Modelo303& m);

// "Presentación internet": the checks (the first failure is told and returned), then the file,
// the validator and the copy for the upload. Throws ErrorQuilmar when a file cannot be written.
std::optional<FalloModelo> Presentar303(const Sesion& s, Modelo303& m, Dialogo& d,
                                        const ElegirCarpeta& elegir,
                                        ResultadoEntrega* resultado = nullptr);

// The input VAT of the period by rate, for the draft: one line per rate asked for, with no
// amounts when the rate has no records.
struct LineaDesglose303 {
    double tipo = 0;
    Casilla base, cuota;
};
QList<LineaDesglose303> Desglose303(Conexion& c, const QDate& desde, const QDate& hasta);

// The draft: every box of the return in its section, amounts in "standard".
void DibujarBorrador303(Impresora& imp, const Modelo303& m, const QList<LineaDesglose303>& desglose,
                        const QString& fuente, double tamano);

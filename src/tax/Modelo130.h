#pragma once
// The quarterly income-tax instalment of the self-employed, Modelo 130: section I (activities in
// direct assessment, from the journal since 1 January), section II (farming, the quarter's
// income), the settlement, its checks, the file for the tax authority and the draft. Nothing
// here writes to the books.
//
// Usage (Form94, then Form93; and the command line):
//     Actividades130 a;  a.seccionI = true;
//     if (auto msg = ComprobarPeriodo130(a, d1, d2)) ...   // told to the user, Form94 stays
//     Modelo130 m = Nuevo130(con, d1, d2);
//     Llenar130(con, m, a, dialogo);
//     m.casillas[16] = 700.0; Recalcular130(m, dialogo);    // 16 cut to 660,14, with its message

#include "tax/CasillasModelo.h"
#include "tax/FicheroHacienda.h"

#include <QByteArray>
#include <QList>
#include <array>

class Conexion;
class Dialogo;
class Impresora;
struct Sesion;

// The marker of a sector not chosen.
inline const QString SinSector = QStringLiteral("MMM");

// What Form94 asks: the sections and up to two sectors for each ("MMM" when not chosen).
struct Actividades130 {
    bool seccionI = false, seccionII = false;
    QString sectoresI[2] = {SinSector, SinSector};
    QString sectoresII[2] = {SinSector, SinSector};
    // 1: section I only, 2: section II only, 3: both.
    int Modo() const { return (seccionI ? 1 : 0) + (seccionII ? 2 : 0); }
};

// The checks of Form94's "&Aceptar", in order; the message of the first that fails.
std::optional<QString> ComprobarPeriodo130(const Actividades130& a, const QDate& desde,
                                           const QDate& hasta);

struct Modelo130 {
    QDate desde, hasta;
    int anoFechas = 0; // the year of the last date, against which Ejercicio is checked
    QString ejercicio, periodo;
    QString nif, apellidos, nombre;
    bool aDeducir = false;            // "Declaración a deducir en siguientes pagos fraccionados"
    bool complementaria = false;      // "Declaración complementaria"
    bool negativa = false;            // "Declaración Negativa"
    std::array<Casilla, 20> casillas; // 1 to 19; [0] unused
    Casilla importe;                  // "Importe:" (I)
    bool efectivo = false, adeudo = false;
    CuentaBanco cuentaCargo;
    QString justificante;
    FirmaModelo firma;

    Casilla& operator[](int n) { return casillas.at(n); }
    const Casilla& operator[](int n) const { return casillas.at(n); }
};

// A return for the period: dates, the quarter of the last date as Periodo, its year as
// Ejercicio, the company's NIF and name, today's date under the signature.
Modelo130 Nuevo130(Conexion& c, const QDate& desde, const QDate& hasta,
                   const QDate& hoy = QDate::currentDate());

// Fills the journal boxes: 01 and 02 (section I: income and expense of the period outside the
// sectors of section II), 08 (section II: the quarter's income, of its sector when one is
// chosen; two sectors match no line at all, as the form has always asked), then the
// recalculation. Regularisation and closing entries are left out.
void Llenar130(Conexion& c, Modelo130& m, const Actividades130& a, Dialogo& d);

// The recalculation after a change: 03, 04 (20 % of a positive 03; left as it was otherwise),
// 07, 09, 11, 12 (never below 0), 13 made positive, 14, 15 and 16 made positive and 16 cut to
// 660,14 with its message and compared with 2 % of 03 and of 08, 17, 19, and the amount to pay.
// Returns the field that takes the focus after a message ("Casilla16"), or nothing.
std::optional<QString> Recalcular130(Modelo130& m, Dialogo& d);

inline constexpr double MaximoVivienda130 = 660.14;
inline constexpr double MaximoMinoracion130 = 100;

// The checks of "Imprimir Mod. oficial", in order; the first that fails, or nothing.
std::optional<FalloModelo> Comprobar130(const Modelo130& m);

// The 880 bytes of Gen130.txt.
QByteArray Fichero130(const Modelo130& m);

// "Imprimir Mod. oficial": the checks (the first failure is told and returned), then the file,
// the validator and, without it, the copy for the upload. Throws ErrorQuilmar when a file
// cannot be written.
std::optional<FalloModelo> Presentar130(const Sesion& s, Modelo130& m, Dialogo& d,
                                        const ElegirCarpeta& elegir,
                                        ResultadoEntrega* resultado = nullptr);

// The draft: the three sections with every box, amounts in "standard".
void DibujarBorrador130(Impresora& imp, const Modelo130& m, const QString& fuente, double tamano);

#pragma once
// The return of withholdings on rents paid, Modelo 115: base and withholdings of the period from
// the VAT records marked as rent, the result, its checks, the file for the tax authority and the
// draft. Nothing here writes to the books.
//
// Usage (Form96, then Form95; and the command line):
//     if (auto msg = ComprobarPeriodo115(d1, d2)) ...      // told to the user, Form96 stays
//     Modelo115 m = Nuevo115(con, d1, d2);
//     Llenar115(con, m);                                   // boxes 2 and 3, then 5 and I
//     m.casillas[4] = 80.0; Recalcular115(m);

#include "tax/CasillasModelo.h"
#include "tax/FicheroHacienda.h"

#include <QByteArray>
#include <array>

class Conexion;
class Dialogo;
class Impresora;
struct Sesion;

// The checks of Form96's "&Aceptar": reversed dates, or dates of two years.
std::optional<QString> ComprobarPeriodo115(const QDate& desde, const QDate& hasta);

struct Modelo115 {
    QDate desde, hasta;
    int anoFechas = 0;
    // The tax office: five-digit code and its two name fields.
    QString administracion, delegacion, nombreAdministracion;
    QString ejercicio, periodo;
    QString nif, apellidos, nombre;
    QString siglas;                  // "Calle/Pza./Avda" (2)
    QString via;                     // "Nombre de la vía pública" (17)
    QString numero;                  // (4)
    QString escalera;                // "Esc." (2)
    QString piso;                    // (2)
    QString puerta;                  // "Pta." (2)
    QString telefono;                // (9)
    QString municipio;               // (20)
    QString provincia;               // (15)
    QString cpostal;                 // (5)
    QString perceptores;             // box 1, "Nº de perceptores": digits
    std::array<Casilla, 6> casillas; // 2 to 5; [0] and [1] unused
    Casilla importe;                 // "Importe:" (I)
    bool complementaria = false, efectivo = false, adeudo = false;
    QString justificante;
    CuentaBanco cuentaCargo;
    FirmaModelo firma;

    Casilla& operator[](int n) { return casillas.at(n); }
    const Casilla& operator[](int n) const { return casillas.at(n); }
};

// A return for the period: dates, period text, Ejercicio, the company's NIF, name and town,
// today's date under the signature.
Modelo115 Nuevo115(Conexion& c, const QDate& desde, const QDate& hasta,
                   const QDate& hoy = QDate::currentDate());

// Boxes 2 and 3 from the rent records of the period that count for the Modelo 347 (L347 false,
// TipOp "A"); empty when there are none. Then the recalculation.
void Llenar115(Conexion& c, Modelo115& m);

// 5 = 3 - 4 (an empty box counting as 0), never below 0; the amount to pay takes 5.
void Recalcular115(Modelo115& m);

// The checks of "Imprimir Mod. oficial", in order; the first that fails, or nothing.
std::optional<FalloModelo> Comprobar115(const Modelo115& m);

// The 753 bytes of Gen115.txt.
QByteArray Fichero115(const Modelo115& m);

// "Imprimir Mod. oficial": the checks (the first failure is told and returned), then the file,
// the validator and the copy for the upload. Throws ErrorQuilmar when a file cannot be written.
std::optional<FalloModelo> Presentar115(const Sesion& s, Modelo115& m, Dialogo& d,
                                        const ElegirCarpeta& elegir,
                                        ResultadoEntrega* resultado = nullptr);

void DibujarBorrador115(Impresora& imp, const Modelo115& m, const QString& fuente, double tamano);

#pragma once
// The annual declaration of third parties, Modelo 347: the customers and suppliers whose
// operations of the year pass a limit, gathered from the VAT records, with the business premises
// rented out; the declarant's summary sheet; the checks of the official form in their order.
// Nothing here writes to the books. The file for the tax authority is in Fichero347.h, the draft
// and the listing in Listado347.h, the rules of each field in Campos347.h.
//
// Usage (Form98, then Form97; and the command line):
//     double limite = 0;
//     if (auto msg = ComprobarPeriodo347(d1, d2, textoLimite, limite)) ...   // told, Form98 stays
//     Modelo347 m = Nuevo347(con, d1, d2, limite);          // summary sheet and the parties
//     if (auto f = Comprobar347(m, 1, dialogo)) ...         // f->mensaje, focus on f->campo

#include "tax/CasillasModelo.h"

#include <QList>

class Conexion;
class Dialogo;

// One declared party, as a line of the sheets "Relación de declarados".
struct Declarado347 {
    QString nif;                // "N.I.F. del declarado" (9; a longer one stops the file)
    QString nifRepresentante;   // "N.I.F. del representante"
    QString nombre;             // capitals, 40
    QString provincia;          // two digits, 99 abroad or unknown
    QString pais;               // two letters, for foreign parties
    QString clave;              // "Clave operación", A to G
    Casilla importe;            // "Importe de las operaciones"
    bool seguro = false;        // "Operación seguro"
    bool arrendamiento = false; // "Arrendamiento local negocio"
    Casilla metalico;           // "Importe percibido en metálico"
    QString anoMetalico;        // year of the cash amount
    Casilla transmisiones;      // "Importe percibido por transmisiones de inmuebles sujetas a IVA"
    QString ncuenta;            // the subaccount it was gathered from; empty for one typed in

    // Neither NIF nor name: a line the checks drop when it is the last one.
    bool Vacio() const { return nif.trimmed().isEmpty() && nombre.trimmed().isEmpty(); }
};

// One business premises rented out, a line of the sheets "Relación de inmuebles" and its
// address (Form108).
struct Inmueble347 {
    QString nif, nifRepresentante, nombre; // the tenant's
    Casilla importe;                       // "Importe de la operación"
    QString situacion;                     // "1" to "4"
    QString referencia;                    // cadastral reference, 25
    QString tipoVia;                       // code of the kind of street ("CL"), 5
    QString via;                           // street name, 50
    QString tipoNumero;                    // "NUM", "KM." or "S/N"
    QString numero;                        // house number, 5 digits
    QString calificador;                   // "BIS", "DUP", "MOD" or "ANT"
    QString bloque, portal, escalera, planta, puerta;
    QString complemento;  // 40
    QString localidad;    // 30, when not the municipality
    QString municipio;    // name, 30
    QString codMunicipio; // 5 digits
    QString provincia;    // name, as the street tables give it
    QString codProvincia; // 2 digits
    QString cpostal;      // 5 digits
};

// The three kinds of sheet of the return.
enum class Hoja347 { Resumen, Declarados, Inmuebles };

// Lines of each sheet.
inline constexpr int DeclaradosPorHoja = 5;
inline constexpr int InmueblesPorHoja = 4;
// Sheets for a count: the count divided by the lines of a sheet, a fraction adding one.
int Hojas347(int cantidad, int porHoja);

struct Modelo347 {
    QDate desde, hasta;
    int anoFechas = 0; // the year of the first date, that "Ejercicio" must hold
    double limite = 0;

    // The summary sheet.
    QString nif;           // "N.I.F."
    QString nombre;        // "APELLIDOS Y NOMBRE, DENOMINACION O RAZON SOCIAL" (40)
    QString telefono;      // "TELEFONO DE CONTACTO" (9)
    QString contacto;      // the person to contact, who signs (40)
    QString representante; // NIF of the legal representative (9)
    QString ejercicio;
    bool impreso = false, telematico = false;
    bool complementaria = false; // "Declaración complem.inclusión datos"
    bool modificacion = false;   // "Declaración complem.modif/anul.datos"
    bool sustitutiva = false;
    QString justificante; // "Número identificativo de la declaración anterior" (13)
    QString numDeclarados;
    Casilla totalDeclarados;
    QString numInmuebles;
    Casilla totalInmuebles;

    QList<Declarado347> declarados;
    QList<Inmueble347> inmuebles;
};

// The limit of Form98 as it starts: setting Lim347 of section Datos, "3005,06" when missing.
inline const QString LimiteDefecto347 = QStringLiteral("3005,06");

// The checks of Form98's "&Aceptar", in order; the limit read into `limite`.
std::optional<QString> ComprobarPeriodo347(const QDate& desde, const QDate& hasta,
                                           const QString& limite, double& valor);

// A return for the period: dates, Ejercicio, the company's NIF and name, then the gathering.
Modelo347 Nuevo347(Conexion& c, const QDate& desde, const QDate& hasta, double limite);

// The parties of the period from the VAT records, grouped by subaccount, its name, NIF and
// province code (two subaccounts with one NIF stay two parties): each whose base plus quota,
// held in single precision, is strictly above the limit (held alike). Key A for a subaccount of
// area 2, B otherwise; the group's smallest operation type marks insurance (S) or rent (A);
// province 99 without a province code. Both lists start anew; the summary takes the parties'
// count and total.
void Reunir347(Conexion& c, Modelo347& m);

// The failure of a check: its message, and where the focus goes: the sheet, the line (index in
// the list, -1 on the summary) and the field (a name of Campos347).
struct Fallo347 {
    QString mensaje;
    Hoja347 hoja = Hoja347::Resumen;
    int indice = -1;
    QString campo;
};

// The checks of "Imprimir &Mod. oficial" (indice 0) and "Envío Telemático" (1), in order. The
// button sets its presentation mark and clears the other one; trailing parties without NIF or
// name are dropped. A company asking for paper is told through `d` that it must file over the
// internet, and the checks go on. The first failure is returned (not told).
std::optional<Fallo347> Comprobar347(Modelo347& m, int indice, Dialogo& d);

// "Hoja nº <n> / <total>"
QString TextoHoja347(int hoja, int total);

inline const QString MsgLimite347 = QStringLiteral(
    "Debe introducir el límite de operaciones. En el 347 se incluirán los Clientes o Proveedores "
    "cuyas operaciones del periodo superen ese límite.");
inline const QString MsgRegistrosEnBlanco =
    QStringLiteral("Por favor no deje registros en blanco.");
inline const QString MsgNifAntesQueDomicilio =
    QStringLiteral("Debe introducir primero el NIF del declarado");

#pragma once
// The posting screen without the screen: the lines of an entry as the board builds them, the
// amount, date, description, document and sector the user gives, and the press of "&Aceptar",
// which fills the new lines, applies a change, or posts the entry (VAT data of the 472/477 lines
// first, through a VAT screen the caller provides).

#include "posting/CapturaIva.h"
#include "posting/RejillaAsiento.h"
#include "posting/TrabajoIva.h"

#include <QDate>
#include <QString>
#include <functional>

class Conexion;
class Dialogo;
struct EstadoTablero;
struct Sesion;

// State of the posting screen, set by whoever opens it.
struct EstadoForm4 {
    QString Modo =
        QStringLiteral("DOS"); // how the last line was added: "DOS", "D", "D2", "H", "H2"
    QString Origen = QStringLiteral("F4"); // "F4" board, "F61" periodic, "F67" predesigned
    double ImporteAnterior = 0;            // amount last applied to the grid
    bool IVAAceptado = true;               // false while a VAT screen is open and not accepted
    qint16 UltimaFilaIVA = 0;              // highest row with VAT data accepted; 0 when none
    QDate FechaProx;                       // answers of the periodicity screen
    qint16 Periodicidad = 0;
};

// The fields of the screen, as typed.
struct CamposForm4 {
    QString Fecha;
    QString Concepto;
    QString Importe;
    QString Documento;
    QString Sector;
};

enum class CampoForm4 { Ninguno, Fecha, Concepto, Importe, Documento, Sector };

struct ResultadoAceptar {
    enum class Tipo {
        Aviso,         // a check failed; the user was told
        Relleno,       // the new lines took the amount
        Cambio,        // a change was applied
        Abandonado,    // the VAT step ended the press; nothing written
        Contabilizado, // posted: the screen closes
        Fallo          // the writing failed; the user was told, nothing was written
    };
    Tipo tipo = Tipo::Aviso;
    CampoForm4 foco = CampoForm4::Ninguno; // the field that takes the focus
    long numero = 0;                       // the entry number when posted
    QString fecha;                         // the date as the field should show it
};

// Shows the VAT screen for one line and returns when it is accepted or cancelled. The screen
// calls captura.PrimeraVista() when it first shows and captura.Aceptar() on "&Aceptar".
class PantallaIva {
public:
    virtual ~PantallaIva() = default;
    virtual void Mostrar(CapturaIva& captura) = 0;
};

// One line of account 472 or 477 as the VAT screen is prepared from it.
struct LineaIva {
    int fila = 0;
    QString NCuenta;
    QString Concepto;
    QString Debe;
    QString Haber;
    QString Contra;      // default counterparty
    QString Factura;     // invoice number offered
    QString Base;        // base offered; empty to work it out from the quota
    QString PresetLibro; // "True", "False" or empty
    QString Preset347;
};

// Account of a subaccount: characters two to four of NCuenta.
inline QString CuentaDe(const QString& ncuenta) {
    return ncuenta.trimmed().mid(1, 3);
}
inline bool EsLineaIva(const QString& ncuenta) {
    const QString c = CuentaDe(ncuenta);
    return c == QLatin1String("472") || c == QLatin1String("477");
}

// Prepares the VAT screen for a line: heading and class by side, quota, rate and class from
// TiposIVA, presets, the base offered, the counterparty list. False when the line can't have VAT
// data (no rate, or no customer or supplier subaccounts): the user was told, and the press ends.
// A settlement entry (470/475 on some line) clears both boxes.
bool PrepararCapturaIva(CapturaIva& c, const Sesion& s, Dialogo& d, const QString& origen,
                        const LineaIva& linea, bool liquidacion,
                        const std::function<double(double)>& aproxima);

extern const QString MsgDescuadre;
extern const QString
    MsgCumplimentar; // "Debe cumplimentar los campos de Fecha, Concepto e Importe."
extern const QString MsgImporteErroneo; // "El importe introducido es erróneo."

class Contabilizar {
public:
    Contabilizar(Sesion& s, Dialogo& d, EstadoTablero& tablero);

    RejillaAsiento Rejilla;
    TrabajoIva Iva;
    EstadoForm4 Estado;
    // The VAT screen; without one every VAT line counts as cancelled.
    PantallaIva* Pantalla = nullptr;
    // Hooks: PermitirPeriod does nothing yet; AsientoPeriodicoHecho tells the confirmation of a
    // periodic entry that it was posted.
    std::function<void()> PermitirPeriod;
    std::function<void(long)> AsientoPeriodicoHecho;

    // The press of "&Aceptar".
    ResultadoAceptar Aceptar(const CamposForm4& campos);

    // Steps of the press, for the command line and the tests.
    void Rellenar(const QString& fecha, const CamposForm4& campos, double importe);
    bool AplicarCambio(const QString& fecha, const CamposForm4& campos, double importe);
    // From the balance test on: merge, VAT, write.
    ResultadoAceptar Publicar(const QString& sector);
    bool CapturarIva();
    void ContraDinero();

    // For the board: a fresh entry of two lines (row 1 debit, row 2 credit, no amounts), and a
    // line added to it, taking the date and description of row 1. Returns the new row.
    void CargarLineas(const QString& nombre1, const QString& ncuenta1, const QString& nombre2,
                      const QString& ncuenta2);
    int AnadirLinea(const QString& nombre, const QString& ncuenta);

    // The columns the user may edit, by origin.
    void AplicarOrigen(const QString& origen);
    // A cell edited by hand: an amount the books take (rewritten in "standard"; an empty cell is
    // 0, except in the last row, whose amount goes to the amount field), a document of its
    // field's size. A refusal is told ("El importe introducido es erróneo." for what is no
    // number) and the cell keeps what it held.
    bool ValidarCelda(int fila, int col, QString& texto);

    // The reconciliation mark of a line: the start of a match.
    void MarcarInicioCasacion(int fila);

private:
    Sesion& s_;
    Dialogo& d_;
    EstadoTablero& tablero_;
};

// Exact balance of the grid (the test of periodic confirmations): every typed decimal counts,
// float noise does not.
bool CuadraExacto(const RejillaAsiento& r);
// Balance to the cent.
bool CuadraCentimos(const RejillaAsiento& r);

// First value of the date field: today when today's year is the exercise's and no entry was
// accepted yet; the date of the last accepted entry when there was one (still only when today's
// year is the exercise's); otherwise the first day of the exercise.
QDate FechaInicialForm4(const Sesion& s, const QDate& hoy);

// The name of a predefined description, when a number is typed in the description box; empty
// when the number names none.
QString ConceptoDeCodigo(const Sesion& s, const QString& texto);
// The predefined descriptions and the sectors (with an empty item last) for the two combos.
QStringList ConceptosPredefinidos(const Sesion& s);
QStringList SectoresConVacio(const Sesion& s);

// The balance of a subaccount by its nature, in "standard" format: credit areas 0, 2 and 3 show
// SaldoH - SaldoD, the others SaldoD - SaldoH; "0,00" without movements.
QString SaldoPorNaturaleza(Conexion& c, const QString& ncuenta);

// What a line hands to the due-date screen.
struct DatosVencimientoLinea {
    QString Tipo; // "Pago" when the debit cell is above 0, else "Cobro"
    QString Area; // first character of the code, second by plan groups
    QString Nombre;
    QString NCuenta;
    QString Concepto;
    QString Fecha;
    double Importe = 0;
    QString Documento;
    QString Sector;
    QString Situacion = QStringLiteral("Pendiente");
};
DatosVencimientoLinea VencimientoDeLinea(const RejillaAsiento& r, int fila, const Sesion& s,
                                         const QString& sector);

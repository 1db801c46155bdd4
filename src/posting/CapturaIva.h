#pragma once
// The VAT data of one line of account 472 (supplier side) or 477 (customer side): the rules of
// the VAT screen without the screen. The caller prepares it, a screen (or the command line, or a
// test) shows and edits its fields, and Aceptar stores one row of the caller's work arrays.
// Nothing is written to the database here.

#include <QString>
#include <QStringList>

class Dialogo;
struct Sesion;
struct TrabajoIva;

class CapturaIva {
public:
    // The caller's work arrays and the two flags the screen answers in.
    CapturaIva(const Sesion& s, Dialogo& d, TrabajoIva& trabajo, qint16& ultimaFilaIVA,
               bool& ivaAceptado);

    // Set by the caller before showing.
    QString OrigenIVA;     // "F4" for the posting screen, otherwise the maintenance screen
    QString ClaseCP;       // "P" (472) or "C" (477)
    qint16 FilaIVA = 0;    // grid row of the line: the index into the arrays
    QString CuentaIVA;     // NCuenta of the VAT line
    QString CuentaContra;  // NCuenta of the counterparty chosen
    QString CuentaDefecto; // default counterparty; may be empty

    // The fields, as the screen shows them.
    QString Encabezado; // "Proveedor" or "Cliente"
    QString Base;       // number as text, may begin with "-"
    QString Porcentaje; // display only, " 21,00"
    QString Cuota;      // display only: the amount of the line
    QString Clase;      // " IVA" or " Recargo"
    QString Factura;
    QString Area;           // area filter of the counterparty list; empty for the caller's list
    QStringList Nombres;    // counterparty names ...
    QStringList Codigos;    // ... and their codes, in step
    QString Contrapartida;  // the name in the counterparty box
    bool LibroIva = true;   // "Incorporar a Libro de IVA "
    bool Modelo347 = false; // "Incorporar a 347 (Ingresos y Pagos)"
    bool Modelo347Visible = true;
    bool Abono = false;                          // "Factura de abono"
    QString TipoOperacion = QStringLiteral("N"); // "N" Ingreso/Pago, "S" Seguro, "A" Arrendamiento
    QString Retencion;                           // "Importe Retención"; empty when not given

    bool ListasVisibles() const { return LibroIva || Modelo347; }
    bool RetencionVisible() const { return Modelo347 && TipoOperacion == QLatin1String("A"); }

    // Items of the area filter: an empty one, then the area digits (1 to 7 when the chart is
    // shown by plan groups).
    QStringList Areas() const;

    // Credit note: the base turns negative (and the 347 box is ticked), or positive again; the
    // quota is worked out anew from the base either way.
    void MarcarAbono(bool abono);

    // Replaces the counterparty list with the unparked subaccounts of an area.
    void ElegirArea(const QString& area);
    // A counterparty chosen from the list, by position.
    void ElegirContrapartida(int indice);
    // A counterparty typed by name; false (and the user told) when no subaccount has that name.
    bool ElegirContrapartida(const QString& nombre);
    // A counterparty given by its code (picked on the chart screen): the list becomes its area's
    // and the code is chosen in it. False when it is not an unparked subaccount.
    bool ElegirCodigo(const QString& ncuenta);

    // The default counterparty goes to the box; says where the focus goes first.
    enum class Foco { Factura, Contrapartida, Aceptar };
    Foco PrimeraVista();

    // The press of "&Aceptar". False: refused, the user told why, and the screen stays.
    bool Aceptar();

    // What the screen is told: the caller's flags after a press.
    bool aceptado() const { return aceptado_; }

private:
    const Sesion& s_;
    Dialogo& d_;
    TrabajoIva& trabajo_;
    qint16& ultimaFila_;
    bool& aceptado_;
};

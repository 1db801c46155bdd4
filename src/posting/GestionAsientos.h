#pragma once
// The entry maintenance screen without the screen: any entry of the journal opened by number,
// its lines changed, added or removed one by one, and saved again under the same number; new
// entries made line by line. The fields are plain members that the screen mirrors, and the press
// of the button (its three captions) runs here, with the VAT screen of the 472/477 lines through
// the same capture as the posting screen.

#include "journal/Escritor.h"
#include "posting/CapturaIva.h"
#include "posting/Contabilizar.h"
#include "posting/RejillaAsiento.h"
#include "posting/TrabajoIva.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

// Columns of the maintenance grid. The reconciliation picture and the ticking mark come after the
// columns the books have always kept, so that those keep their places.
namespace ColF7 {
enum : int {
    Cuenta = 0,    // subaccount name
    Concepto = 1,  //
    Debe = 2,      // "standard"; empty for 0
    Haber = 3,     //
    NCuenta = 4,   // hidden
    IdIVA = 5,     // hidden; 0 or empty when the line has no VAT record
    Documento = 6, //
    CasacionN = 7, // reconciliation mark; empty when not marked. Hidden: the picture shows it
    CasacionH = 8, // key of its group (a day number, full precision); hidden
    Sector = 9,    //
    Imagen = 10,   // reconciliation picture
    Punteo = 11,   // ticking mark (-1/0), kept through a rewrite; hidden
    // What a new entry made elsewhere offers the VAT screen of a line (all hidden): the
    // counterparty, invoice and base, and the presets of the two boxes ("True", "False", empty).
    Contra = 12,
    Factura = 13,
    Base = 14,
    LibroIva = 15,
    L347 = 16,
    Venc = 17, // due-date button: "..." on a line with a subaccount
    Total = 18
};
}

// The shared routines (CRepetidas, Aproxima, AdImagen, the printout) on this grid's columns.
ColumnasAsiento ColumnasF7();

// The maintenance grid: cells of the first four columns take the background of Resaltar.
class RejillaF7 : public RejillaAsiento {
public:
    explicit RejillaF7(QObject* padre = nullptr);
    // Applies the background 0xE0E0E0 to columns 0 to 3 of every row.
    void Resaltar();
    bool resaltada() const { return resaltada_; }
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;

private:
    bool resaltada_ = false;
};

// The captions of Command1, which are its states.
extern const QString CaptionAceptar;   // "&Aceptar": save the entry
extern const QString CaptionAnadir;    // "&Añadir": add the line in the fields
extern const QString CaptionModificar; // "&Modificar": replace the selected line

struct ResultadoF7 {
    enum class Tipo {
        Nada,       // nothing to do
        Aviso,      // a check failed; the user was told
        Linea,      // a line was added or replaced in the grid
        Vaciado,    // nothing had changed: the screen was emptied
        Fecha,      // only the date (and sector) changed, in place
        Guardado,   // the entry was written (new, or anew under its number)
        Abandonado, // the VAT step ended the press; nothing changed
        Fallo       // writing failed; the user was told and nothing changed
    };
    enum class Foco { Ninguno, Numero, Fecha, Area, Boton };
    Tipo tipo = Tipo::Nada;
    Foco foco = Foco::Ninguno;
    long numero = 0; // the entry written
    QDate fecha;     // the date used, for DateF7
};

// One line handed in by another screen (a predesigned entry lands here as a new entry), with what
// its VAT screen is to offer.
struct LineaF7 {
    QString NCuenta;
    QString Concepto;
    double Debe = 0;
    double Haber = 0;
    QString Documento;
    QString Sector;
    QString Contra;   // default counterparty
    QString Factura;  // invoice number offered
    QString Base;     // base offered; empty to work it out from the quota
    QString LibroIva; // presets of the two boxes: "True", "False" or empty
    QString L347;
};

class GestionAsientos {
public:
    GestionAsientos(Sesion& s, Dialogo& d);

    RejillaF7 Rejilla;
    TrabajoIva Iva;
    // The VAT screen; without one every VAT line counts as cancelled.
    PantallaIva* Pantalla = nullptr;

    // State of the form.
    bool EsNuevo = true;          // the entry on screen has no rows in Diario yet
    bool LineasCambiadas = false; // a line was added, changed or removed since loading
    bool FechaCambiada = false;   // the user confirmed a change of the date of a loaded entry
    bool IVAAceptado = true;
    qint16 UltimaFilaIVA = 0;

    // The fields, as the screen shows them.
    QString Numero;         // Text1: the number typed
    QString Label2;         // the number of the entry on show, "#,##0"
    long NumeroAsiento = 0; // the number that will be written; 0 for a new entry
    QString Fecha;          // Date1, "dd/MM/yyyy"
    QString Label8;         // the date the entry had when loaded; empty for a new one
    QString Area;           // Combo5: an area digit, or empty
    QStringList Nombres;    // Combo1: the subaccounts of the area ...
    QStringList Codigos;    // ... and Combo2, their codes in step
    QString Cuenta;         // Combo1: the subaccount name
    QString NCuenta;        // Combo2: its code
    QString Concepto;       // Combo3
    QString Debe;           // TDBN2
    QString Haber;          // TDBN3
    QString Documento;      // Text3
    QString Sector;         // Combo4
    QString Pred;           // Text2, "Pred."
    QString TextoDescuadre; // TDBN1, "Descuadre "
    QString Saldo;          // "Saldo ": SaldoD - SaldoH of the subaccount chosen
    QString Caption = QStringLiteral("&Aceptar"); // Command1
    int FilaSeleccionada = 0;                     // the grid row copied to the fields; 0 when none
    QString ClaseAsiento; // Clase of the loaded entry's lines ("I" for an opening entry)

    // Hooks to screens that come later; unset, their button and field are off. HacerPeriodico
    // is called with a balanced grid; Predisenado with a three-digit code.
    std::function<void()> AccionPeriodico;
    std::function<void(const QString&)> AccionPredisenado;
    // Step 15: the open journal, ledger or chart reports refresh.
    std::function<void()> LibrosCambiados;

    // --- Public operations -----------------------------------------------------------------
    double Aproxima(double importe) const;
    QList<int> AdImagen() const;
    void CRepetidas();
    // Refuses an unbalanced entry with "El asiento está descuadrado"; otherwise the hook.
    bool HacerPeriodico();
    // Sums both columns (zero cells skipped) and shows Debe - Haber in "standard".
    void Descuadre();
    void Resaltar() { Rejilla.Resaltar(); }
    // The difference as shown is 0: under half a cent counts as balanced.
    bool Cuadrado() const;

    // Loads an entry. False, after "No se encontró el Asiento nº ...", when it has no lines.
    bool VMAsiento(long nas);

    // --- The number field ------------------------------------------------------------------
    // A key typed in Text1: digits pass; "+" empties the form with the next number; anything
    // else is refused with "Debe introducir sólo cifras.". True when the key may go in.
    bool TeclaNumero(const QString& tecla);
    // "+": the form emptied, with the next number (the highest NAs + 1).
    void Siguiente();
    // Enter: loads the entry typed; a number not in the journal is refused.
    bool IntroNumero();

    // --- Lines -----------------------------------------------------------------------------
    // Area digits of Combo5 (0 to 6, or 1 to 7 when the chart is shown by plan groups).
    QStringList Areas() const;
    // Fills the subaccount lists with the unparked subaccounts of an area.
    void ElegirArea(const QString& area);
    // A subaccount chosen by position in the list, or by name. Shows its balance. Without an
    // area: "Seleccione primero el Area al que pertenece la Subcuenta".
    bool ElegirSubcuenta(int indice);
    bool ElegirSubcuenta(const QString& nombre);
    // A line field was typed in: the button turns to adding a line.
    void LineaTocada();
    // Clicking a row: its line goes to the fields and the button turns to "&Modificar".
    void SeleccionarLinea(int fila);
    // Toolbar 2: removes a line (the one selected in the grid), after asking. Nothing reaches the
    // journal until the entry is saved.
    bool QuitarLinea(int fila);
    // Empties the line fields and turns the button back to "&Aceptar".
    void VaciarLinea();

    // --- The press of Command1 ---------------------------------------------------------------
    ResultadoF7 Pulsar();

    // Toolbar 4: deletes the entry on show, after asking.
    bool EliminarAsiento();

    // The "Pred." field on Enter: a three-digit code for the predesigned entries.
    bool Predisenado();

    // The screen emptied to a new entry with the next number; the date stays.
    void Vaciar();
    // A new entry made elsewhere, to be checked and posted here: its lines, the next number, and
    // its date in the date field and in Label8. The sector field takes the first line's.
    void NuevoConLineas(const QList<LineaF7>& lineas, const QDate& fecha);

    // The highest NAs + 1.
    long SiguienteNumero() const;

private:
    int anadirFilaDeCampos();
    void camposAFila(int fila);
    void mostrarSaldo();
    bool capturarIva();
    QList<Apunte> apuntes() const;

    Sesion& s_;
    Dialogo& d_;
};

// The date of an entry changed in place: the journal rows and their VAT records take the date,
// the rows take the sector (empty when none); Mayor is not touched. A VAT record that is missing
// is reported with "Error en los datos de IVA. Debería anular el asiento y hacerlo de nuevo." and
// the rest goes on. One transaction. Returns the rows changed (0: the entry has no rows).
int CambiarFechaAsiento(Conexion& c, Dialogo& d, long nas, const QDate& fecha,
                        const QString& sector);

// An entry written anew: the old one deleted and the new lines written under the same number
// (nas given, 0 included), or a new entry under the next number (no nas), all in one transaction,
// so that a failure leaves the old entry as it was. Lines are written when their amount is not
// zero, debit lines first. Returns the number; throws ErrorQuilmar (Rechazo "No se pudo hacer la
// modificación." when the old entry is gone). The session's UltimoAsiento is restored on failure.
long ReescribirAsiento(Conexion& c, Sesion& s, std::optional<long> nas, const QDate& fecha,
                       const QList<Apunte>& lineas, const QString& clase = {});

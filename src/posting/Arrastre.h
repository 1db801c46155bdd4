#pragma once
// Posting by pictures: what a drop of one subaccount onto another means. The board's screen only
// turns mouse and key events into the calls below; which lines an entry gets, on which side, in
// which Modo, and what the user is told, is decided here from the board's state and the two rows.

#include <QList>
#include <QString>

// A row of an area's list: the subaccount's name (trimmed) and its NCuenta.
struct FilaArea {
    QString Nombre;
    QString NCuenta;
    bool operator==(const FilaArea&) const = default;
};

// The posting screen as the drop sees it, when it is open.
struct AsientoAbierto {
    bool Abierto = false;
    bool UltimaConImporte = false; // the last line has an amount on one side
    QString Nombre1;               // name of line 1 (F)
    QString Nombre2;               // name of line 2 (G)
};

// Everything a drop depends on.
struct EntradaSoltar {
    bool EjCerrado = false;
    int S = -1;            // AreaOrigen: the area where the drag began
    int T = -1;            // the area of the list dropped on
    FilaArea Origen;       // NombreOrigen, CuentaOrigen: the row picked up; empty when none
    FilaArea ActualS;      // the current row of the source area's list
    FilaArea Destino;      // the row dropped on
    FilaArea Dinero;       // NombreDinero, CuentaDinero: the money of the last posted entry
    bool AvisoRepe = true; // Opciones\AvisoRepe
    AsientoAbierto Form4;
};

struct DecisionSoltar {
    enum class Accion {
        Cancelar, // closed exercise: every list hides, nothing else
        Nada,     // the drop stops here (after the message, if any)
        Nuevo,    // a new entry: Lineas are line 1 (Debe) and line 2 (Haber)
        Anadir,   // Lineas are added, in order, to the open entry
        Mostrar,  // the open entry is only shown again
    };
    Accion accion = Accion::Nada;
    QString Mensaje;           // told to the user before anything else; empty for none
    bool Aviso = false;        // show the tip of quick entries (Form64)
    bool Rapido = false;       // a quick entry against the last money subaccount
    QList<FilaArea> Lineas;    // the rows of a new entry, or the lines to add
    QString Modo;              // the posting screen's new Modo; empty leaves it as it was
    bool VaciarOrigen = false; // NombreOrigen and CuentaOrigen are emptied
    char Prueba = 0;           // the test of an addition that matched, 'A' to 'E'

    // The lines are shown on the posting screen (names and balances of the last two).
    bool mostrarLineas() const {
        return accion == Accion::Nuevo || accion == Accion::Anadir || accion == Accion::Mostrar;
    }
};

extern const QString MsgNoCompletado; // "No ha completado los dos primeros apuntes."

// The areas whose balances are of credit nature, where a drag inside the area swaps the sides.
bool AmbasAcreedorasIguales(int s, int t);

// The drop: a pure function of the board's state and the rows.
DecisionSoltar DecidirSoltar(const EntradaSoltar& e);

// The board's drag state and the events that change it.
class EstadoArrastre {
public:
    int AreaOrigen = -1;   // where the last press fell: the source of a drag
    int AreaFlechas = -1;  // the area whose arrow is in use
    bool Armado = true;    // the next movement over the source list picks a subaccount
    FilaArea Origen;       // NombreOrigen, CuentaOrigen
    QString LetraBusqueda; // a letter typed during a drag, applied at the next movement

    // A press on an area (its picture or its list).
    void Pulsar(int area) { AreaOrigen = area; }
    // The pointer moves over the list of `area` on `fila`. True when that picks the row up:
    // the floating label then shows TextoFlotante().
    bool SobreLista(int area, const FilaArea& fila);
    // The text of the floating label: three blanks and the name.
    QString TextoFlotante() const;
    // A drop on a picture or the ground, or a drag given up.
    void Cancelar() { Armado = true; }
    // A drop on a row of the list of area `t`; applies the state changes of the decision.
    DecisionSoltar Soltar(int t, const FilaArea& destino, const FilaArea& actualS, bool ejCerrado,
                          const FilaArea& dinero, bool avisoRepe, const AsientoAbierto& form4);
};

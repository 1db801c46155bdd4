#pragma once
// The board's logic apart from the drop: the lists of the seven areas, the search by letter in a
// list, the keys gathered for a predesigned entry, the bank pages of the toolbar, and the first-use
// question.

#include "posting/Arrastre.h"

#include <QList>
#include <QString>
#include <array>
#include <optional>

class Ajustes;
class Conexion;
class Dialogo;
struct Sesion;

extern const QString MsgNoHayCuentas; // "No hay Cuentas creadas."

// The lists of the seven areas, by area digit, in the order of the table of subaccounts.
using ListasAreas = std::array<QList<FilaArea>, 7>;

// LlenarAreas: every subaccount that isn't parked goes to the list of its area (the first digit of
// its code); the session's UltimaSubcuenta takes the highest serial of all, parked or not. An
// empty chart, or one that can't be read, is told with "No hay Cuentas creadas.".
ListasAreas LlenarAreas(Sesion& s, Dialogo& d);
ListasAreas LlenarAreas(Conexion& c, Sesion& s, Dialogo& d);

// The area a subaccount belongs to on the board, or -1 for a code that names none.
int AreaDeCuenta(const QString& ncuenta);

// Search by letter: the first row, from the top, whose name begins with the letter or a later
// one (upper-cased; an accented letter counts as its plain letter). -1 when there is none.
int FilaPorLetra(const QList<FilaArea>& filas, const QString& letra);

// Ctrl and the digits typed while it is held, for a predesigned entry: Ctrl + 0 0 7 gives 7.
// Pressing Ctrl again during a gathering (a key held, or released and pressed between digits)
// doesn't start it over; any other key drops it.
class TeclasCtrl {
public:
    // Ctrl pressed: starts a gathering, unless one is under way.
    void Control();
    // A digit (of the row or of the numeric pad) typed with Ctrl held. When the fourth character
    // is gathered, the three digits are the code of the design and the gathering empties.
    std::optional<int> Digito(int digito);
    // Any other key.
    void Otra() { teclas_.clear(); }
    const QString& texto() const { return teclas_; }

private:
    QString teclas_;
};

// Pages of the bank and others, kept as Opciones\NCCBanco(n) (name) and Opciones\WCCBanco(n)
// (address) for n from 1; the list ends at the first n without a name.
struct PaginaWeb {
    QString Nombre;
    QString Direccion;
};
QList<PaginaWeb> PaginasBanco(const Ajustes& a);
// Writes the list, removing the pairs beyond it.
void GuardarPaginasBanco(Ajustes& a, const QList<PaginaWeb>& paginas);
extern const QString MsgSinPaginasBanco;

// The first-use question: asked unless an entry was made or the user asked not to be asked
// (Opciones\Ayudante is "NO"). True when the assistant is to be opened.
bool PreguntarAyudante(Ajustes& a, Dialogo& d, bool asientoHecho);
extern const QString MsgPreguntaAyudante;
extern const QString MsgNoPreguntarMas;

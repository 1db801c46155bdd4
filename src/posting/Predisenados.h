#pragma once
// Predesigned entries: templates, called by a three-digit code, for entries a firm makes often.
// Kept in AsPredi of the company database, one row per line, in the order of the rows. Each line
// says field by field how its value is had at posting, in a small language of cells:
//
//   a plain value   the value as typed (a date as 'dd/mm/aa', a subaccount or counterparty by
//                   its code)
//   "VARIABLE"      asked at posting;  "V=" + value: asked, with the value offered
//   "ANTERIOR"      the same field of the line before
//   "DEL DIA"       today's date (date field only)
//   "F=" + formula  a field of an earlier line ("F=C17"), or, in the amount and base, arithmetic
//                   over them ("F=C13*0,21")
//   "CUADRE"        the amount that balances the entry (last line's amount only)
//
// A field is named by "C", the line digit and the field digit: C10 the date of line 1, C11 its
// subaccount, C12 description, C13 amount, C14 sector, C15 document, C16 VAT base, C17 customer
// or supplier, C18 invoice. With three characters a name reaches line 9 at most.
//
// AsTipo fills a template (asking the variable fields line by line), resolves the cells in this
// order: variables, ANTERIOR, the formulas that copy a field, the arithmetic of amounts and
// bases, CUADRE; and gives the entry that lands in the maintenance screen as a new entry, never
// posted from here. Any error leaves nothing behind.
//
// Usage (the command line):
//     PantallaApunteCli respuestas(valores);     // answers the variable fields from --valor
//     if (auto a = AsTipo(s, d, respuestas, 7, hoy)) print(a->Lineas);

#include "posting/GestionAsientos.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

// The field digit of each programmable field.
namespace CampoPredi {
enum : int {
    Fecha = 0,
    Subcuenta = 1,
    Concepto = 2,
    Importe = 3,
    Sector = 4,
    Documento = 5,
    Base = 6,
    CliPro = 7,
    Factura = 8,
    Total = 9
};
}
// The field's name in messages and on the screen: "Fecha", "Subcuenta", ..., "Factura".
QString TituloCampoPredi(int campo);

// Most lines a template may have: a field name has room for one line digit.
constexpr int MaxApuntesPredi = 9;

struct LineaPredisenado {
    QString Etiqueta; // "C1" ... "C9": the line's code and the prefix of its field names
    QString DH;       // "D" or "H"
    std::array<QString, CampoPredi::Total> Campos; // the cells, by field digit
    bool LibroIVA = false;
    bool Mod347 = false;
    QString NCuenta; // the fixed subaccount
    QString NCliPro; // the fixed customer or supplier
    QString Coment;
};

struct Predisenado {
    int Codigo = 0;
    QString Nombre;
    QList<LineaPredisenado> Lineas;
};

// The kinds of cell.
enum class TipoCelda { Ninguno, Fija, Variable, Anterior, DelDia, Formula, Cuadre };
TipoCelda TipoDeCelda(const QString& celda);
// What a field of that kind shows in its box: the value, the formula, the default; empty for the
// kinds without text.
QString ValorDeCelda(const QString& celda);
// The cell stored for a kind and the text typed: a fixed value as typed, "F=" + formula,
// "V=" + default or "VARIABLE", "ANTERIOR", "DEL DIA", "CUADRE".
QString CeldaDe(TipoCelda tipo, const QString& valor);
// The kinds a field offers, in the order of its list.
QList<TipoCelda> TiposDeCampo(int campo);
// The word of a kind on the screen: "FIJA" or "FIJO" (by the field), "VARIABLE", "ANTERIOR",
// "DEL DIA", "FORMULA", "CUADRE".
QString PalabraTipo(TipoCelda tipo, int campo);
std::optional<TipoCelda> TipoDePalabra(const QString& palabra);

// A code as the lists show it: "007".
QString CodigoPredi(int codigo);
// A code typed: exactly three digits.
std::optional<int> LeerCodigoPredi(const QString& texto);

struct ResumenPredisenado {
    int Codigo = 0;
    QString Nombre;
};
// The templates, one per code and name.
QList<ResumenPredisenado> ListaPredisenados(Conexion& bavar);
std::optional<Predisenado> LeerPredisenado(Conexion& bavar, int codigo);
bool ExistePredisenado(Conexion& bavar, int codigo);
// Writes a template's rows (after deleting those of the code, when it has any), in one
// transaction.
void GuardarPredisenado(Conexion& bavar, const Predisenado& p);
bool EliminarPredisenado(Conexion& bavar, int codigo);
// Form67's "Eliminar Asiento": asks "Está seguro de que desea eliminar el asiento prediseñado
// 007, Nombre?", then deletes. True when it went.
bool EliminarPredisenadoPreguntando(const Sesion& s, Dialogo& d, int codigo, const QString& nombre);

// The customers and suppliers offered when a line's counterparty is asked at posting, by name.
QList<std::pair<QString, QString>> ClientesPredisenado(Conexion& datos);    // (NCuenta, Cuenta)
QList<std::pair<QString, QString>> ProveedoresPredisenado(Conexion& datos); // (NCuenta, Cuenta)

// The work table of a posting: one row per line, its cells as strings in these columns.
namespace ColTrabajo {
enum : int {
    Codigo = 0,
    Nombre,
    DH,
    Fecha, // the nine fields: Fecha + field digit
    Subcuenta,
    Concepto,
    Importe,
    Sector,
    Documento,
    BaseImp,
    CliPro,
    Factura,
    LibroIVA, // "True" or "False"
    Mod347,
    NCuenta,
    NCliPro,
    Etiqueta,
    Coment,
    Total
};
}
using TrabajoPredisenado = QList<QStringList>;

// The answers of one line (Form76): what each field shows, which of them are asked, and the
// check of "&Aceptar", which writes the answers back to the line's cells.
class RespuestasApunte {
public:
    // fechaRecordada: the date last typed in this screen (Valores\DateF76), offered when a date
    // is asked without a default of its own.
    RespuestasApunte(TrabajoPredisenado& trabajo, int linea, const QDate& hoy,
                     const QString& fechaRecordada = {});

    QString Codigo;        // "007"
    QString NombreAsiento; // the template's name
    QString Etiqueta;      // "C1"
    QString DH;
    bool Ticado = false; // the line goes to the VAT book or Modelo 347
    std::array<bool, CampoPredi::Total> Variable{};
    std::array<QString, CampoPredi::Total> Valores; // as the fields show them
    // "C13": the name of a field of this line.
    QString NombreCampo(int campo) const;

    // Checks the asked fields in order (date, subaccount, description, amount, sector, document,
    // base, counterparty, invoice), telling the first failure; on success writes them back.
    bool Aceptar(const Sesion& s, Dialogo& d);
    // The date typed in an asked date field, once accepted; empty when the date wasn't asked.
    QString FechaTecleada() const { return fechaTecleada_; }

private:
    TrabajoPredisenado& t_;
    int linea_;
    QString fechaTecleada_;
};

// Form76 for one line: shows it, and returns when the user accepts (the answers already written
// back through RespuestasApunte::Aceptar) or cancels.
class PantallaApunte {
public:
    virtual ~PantallaApunte() = default;
    virtual bool Pedir(TrabajoPredisenado& trabajo, int linea) = 0;
};

// What a template produces: the lines for the maintenance screen and the entry's date (that of
// its last line).
struct AsientoPredisenado {
    QList<LineaF7> Lineas;
    QDate Fecha;
};

extern const QString MsgNoExistePredisenado; // "No existe ese código de Asiento Prediseñado."

// AsTipo: fills template `codigo`. Nothing when it doesn't exist, the user cancels, or a cell
// can't be resolved (the user is told why).
std::optional<AsientoPredisenado> AsTipo(const Sesion& s, Dialogo& d, PantallaApunte& pantalla,
                                         int codigo, const QDate& hoy);

// The work table of a template, with its cells trimmed: step one of AsTipo, for the screens.
TrabajoPredisenado TrabajoDe(const Predisenado& p);
// The lines of the work table that ask something.
bool LineaConVariables(const QStringList& fila);

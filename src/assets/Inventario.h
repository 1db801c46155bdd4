#pragma once
// The fixed-asset inventory (Inventario in the company database, so that it outlives every
// exercise): one element per asset with its acquisition, location, depreciation plan, the two
// subaccounts its depreciation entries use, and its retirement. The element form's checks and
// messages, the list with its eleven views, and deletion live here; the depreciation runs in
// Amortizacion.h.
//
// Usage (the inventory window, headless the same):
//     FichaElemento f;                         // the form's fields as typed
//     f.Nombre = "Furgoneta"; f.Naturaleza = "Material"; f.FechaAdq = "01/03/2024"; ...
//     const ResultadoFicha r = AnadirElemento(s, dialogo, f);
//     if (!r.hecho) focus(r.foco);             // the user has been told why
//     Rejilla lista = RejillaInventario();
//     LlenarInventario(s, {VerInventario::NoDadosDeBaja}, lista);

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

class Conexion;
class Dialogo;
class Rejilla;
struct Sesion;

inline const QStringList NaturalezasElemento{QStringLiteral("Material"),
                                             QStringLiteral("Inmaterial")};
inline const QStringList CausasBaja{QStringLiteral("Transmisión"), QStringLiteral("Pérdida"),
                                    QStringLiteral("Deterioro"), QStringLiteral("Obsoleto"),
                                    QStringLiteral("Otros")};

// The element number as it is shown, "0000000#": 1 is "00000001".
QString FormatoElemento(qint64 n);

struct Elemento {
    qint64 NElemento = 0;
    QString Nombre;
    QString Naturaleza;
    QString Proveedor;
    qint64 NCentro = 0;
    QString Localizacion; // from Centros
    QDate FechaAdq;
    double Importe = 0;
    bool Amortizable = false;
    std::optional<double> Porcentaje; // yearly rate in percent; none when not depreciable
    double Amortizado = 0;            // accumulated depreciation
    QDate UltimaAmort;                // last depreciation date; null before the first
    QDate FinAmort;                   // end of the depreciation plan; null when open
    QDate FechaBaja;                  // retirement; null while in service
    QString CausaBaja;
    QString SubctaAmort; // accumulated depreciation (028...)
    QString SubctaDota;  // depreciation charge (668...)
};

// One element with its location, or nothing when the number is not in the inventory.
std::optional<Elemento> LeerElemento(const Sesion& s, qint64 n);
// The elements of table Inventario that meet a condition (SQL with its values bound), by number,
// without their location's name. esquema names where the table is: empty on a connection of the
// company database, "Bavar." on an exercise connection that has it attached (AdjuntarBavar).
QList<Elemento> ElementosDonde(Conexion& c, const QString& esquema, const QString& condicion,
                               const QVariantList& valores = {});

// A subaccount offered in the element form's lists: its code and name.
struct SubcuentaOfrecida {
    QString NCuenta;
    QString Cuenta;
};
// The accumulated-depreciation subaccounts (028...) and the charge subaccounts (668...), by name,
// parked ones left out.
QList<SubcuentaOfrecida> SubcuentasAmortizacion(const Sesion& s);
QList<SubcuentaOfrecida> SubcuentasDotacion(const Sesion& s);

// The fields of the element form, as typed. Amortizable is "SI", "NO" or empty; dates as the user
// types them; amounts in either decimal mark.
struct FichaElemento {
    QString Nombre;
    QString Naturaleza;
    QString FechaAdq;
    QString Importe;
    QString Proveedor;
    QString Localizacion;
    QString FechaBaja;
    QString CausaBaja;
    QString Amortizable;
    QString Porcentaje;
    QString FinAmort;
    QString UltimaAmort;
    QString Amortizado;
    QString SubctaAmort; // code
    QString SubctaDota;  // code
};
// The form's fields showing an element.
FichaElemento FichaDe(const Elemento& e);

// The field that takes the focus after a refusal.
enum class CampoElemento {
    Ninguno,
    Nombre,
    Naturaleza,
    FechaAdq,
    Importe,
    Proveedor,
    Localizacion,
    FechaBaja,
    CausaBaja,
    Amortizable,
    Porcentaje,
    FinAmort,
    UltimaAmort,
    Amortizado,
    SubctaAmort,
    SubctaDota,
};

struct ResultadoFicha {
    bool hecho = false;
    qint64 numero = 0;                           // the element added or changed
    CampoElemento foco = CampoElemento::Ninguno; // where the refusal points
};

// "&Añadir": the form's checks in order, each told to the user with the focus on its field, then
// the element under the number MAX(NElemento) + 1. "NO" in Amortizable stores no rate and no
// subaccounts. Store failures throw ErrorAlmacen.
ResultadoFicha AnadirElemento(const Sesion& s, Dialogo& d, const FichaElemento& f);

// "&Modificar" of element n: the same checks (with the retirement's date and cause asked for
// together), then a question for each change to UltimaAmort or Amortizado, which the program keeps;
// a No puts the old value back into the form (f) and the change goes on with it.
ResultadoFicha ModificarElemento(const Sesion& s, Dialogo& d, qint64 n, FichaElemento& f);

// "&Eliminar" after the question. The journal keeps the element's entries.
bool EliminarElemento(const Sesion& s, Dialogo& d, qint64 n);
// "Eliminar todos los elementos dados de baja" after the question: how many went, or -1 when not
// confirmed.
int EliminarDadosDeBaja(const Sesion& s, Dialogo& d);

// The views of the list ("Ver"): one at a time.
enum class VerInventario {
    Todos,
    DadosDeBaja,
    NoDadosDeBaja,
    ConAmortizacion, // last depreciation within the exercise
    SinAmortizacion,
    ConLocalizacion,
    Amortizables,
    NoAmortizables,
    Amortizados,   // Amortizado >= Importe
    NoAmortizados, // Amortizado <= Importe: an element exactly at its value is in both
    AdquiridosEntre,
};
struct FiltroInventario {
    VerInventario ver = VerInventario::Todos;
    QString localizacion; // ConLocalizacion
    QDate desde, hasta;   // AdquiridosEntre, both days included
};
// The option's caption: "Todos", "Dados de baja"...
QString TextoVer(VerInventario ver);

// Columns of the list: the element number as "0000000#", the fields as the form shows them, the
// two subaccount codes (hidden).
enum ColInventario {
    ColInvElemento,
    ColInvNombre,
    ColInvNaturaleza,
    ColInvFechaAdq,
    ColInvImporte,
    ColInvProveedor,
    ColInvLocalizacion,
    ColInvFechaBaja,
    ColInvCausaBaja,
    ColInvAmortizable,
    ColInvPorcentaje,
    ColInvFinAmort,
    ColInvUltimaAmort,
    ColInvAmortizado,
    ColInvSubctaAmort,
    ColInvSubctaDota,
    ColumnasInventario
};
Rejilla RejillaInventario();
// The row of an element.
QStringList FilaInventario(const Elemento& e);
// Fills the list with the elements of a view, by number. Returns how many.
int LlenarInventario(const Sesion& s, const FiltroInventario& filtro, Rejilla& r);

#pragma once
// The chart of accounts: accounts (table Grupos) and subaccounts (table Cuentas), with every check
// the chart screen makes before adding, renaming or deleting, in its order. Each action tells the
// user through the Dialogo and answers what happened; it writes in one transaction.

#include "chart/CliPro.h"

#include <optional>

#include <QList>
#include <QString>
#include <QStringList>

class Conexion;
class Dialogo;
struct Sesion;

// Accounts and subaccounts the books rely on; they can't be deleted.
extern const QStringList CuentasReservadas;    // NGrupo codes
extern const QStringList SubcuentasReservadas; // NCuenta codes
constexpr int MaxNombreCuenta = 60;
constexpr int MaxNombreSubcuenta = 30;

// The field a refusal sends the user back to.
enum class CampoPlan {
    Ninguno,
    NombreCuenta,    // Text2
    CodigoCuenta,    // Text13
    NombreSubcuenta, // Text1
    CuentaSubcuenta, // Combo2
};

struct ResultadoPlan {
    bool hecho = false;
    CampoPlan foco = CampoPlan::Ninguno;
    // A name over its limit is refused and given back cut to the limit, for the field to show.
    QString textoCortado;
    QString NCuenta; // the code of a new subaccount, the NGrupo of a new account
};

struct FilaGrupo {
    QString NGrupo;
    QString Grupo;
    QString codigo() const { return NGrupo.mid(1); } // the three plan digits
};

struct FilaSubcuenta {
    QString NCuenta;
    QString Cuenta;
    QString Grupo;
    QString NGrupo;
    bool Aparcada = false;
};

// Accounts of an area, in code order.
QList<FilaGrupo> GruposDeArea(Conexion& c, int area);
// Subaccounts of an area with the name of their account, by account name and then name. Without
// the parked ones when sinAparcadas (the lists to pick from).
QList<FilaSubcuenta> SubcuentasDeArea(Conexion& c, const Sesion& s, int area,
                                      bool sinAparcadas = false);

// Accounts.
ResultadoPlan AnadirCuenta(Sesion& s, Dialogo& d, int area, const QString& codigo,
                           const QString& nombre);
ResultadoPlan ModificarCuenta(Sesion& s, Dialogo& d, const QString& ngrupo, const QString& nombre);
ResultadoPlan EliminarCuenta(Sesion& s, Dialogo& d, const QString& ngrupo);

// Subaccounts. The card is written in areas 2 and 4 only.
struct NuevaSubcuenta {
    int area = -1;
    QString NGrupo; // the chosen account; empty when none was chosen
    QString Cuenta;
    FichaCliPro ficha;
};
ResultadoPlan AnadirSubcuenta(Sesion& s, Dialogo& d, const NuevaSubcuenta& n);
// Renames a subaccount and, in areas 2 and 4 when a card is given, rewrites its card.
ResultadoPlan ModificarSubcuenta(Sesion& s, Dialogo& d, const QString& ncuenta,
                                 const QString& nombre, const FichaCliPro* ficha = nullptr);
ResultadoPlan EliminarSubcuenta(Sesion& s, Dialogo& d, const QString& ncuenta);

// Titles of the printed lists of the chart.
extern const QString TituloListadoSubcuentas; // "Listado de Subcuentas"
extern const QString TituloListadoCuentas;    // "Listado de Cuentas"

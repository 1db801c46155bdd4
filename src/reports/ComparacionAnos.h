#pragma once
// "Comparación entre años": the movement of one area or one subaccount month by month, one row
// per exercise, each exercise read from its own database. The regularisation and final entries
// (Clase "R" and "F") are left out, so that a closed year compares with an open one.
//
// Usage (Form42's "&Ver"; the command line gives the years itself):
//     CajasComparacion cajas{numero, primerAno, porAreas, area, subcuenta, sector};
//     auto sel = ValidarComparacion(cajas, sesion, dialogo);   // rules in order, told to the user
//     Rejilla r = RejillaComparacion();
//     LlenarComparacion(sesion, *sel, r);
//
// A year of the range without a database of its own (never created, or deleted) keeps its row,
// "Año 2025 (sin ejercicio)", with its months and total empty: an empty row says there is
// nothing to compare, where zeros would say the year had no movement.

#include "platform/Dialogo.h"

#include <QList>
#include <QString>
#include <optional>

class Rejilla;
struct Sesion;

inline const QString MsgCompNumeroAnos =
    QStringLiteral("Tiene que seleccionar el número de años que se van a comparar.");
inline const QString MsgCompPrimerAno =
    QStringLiteral("Tiene que seleccionar el año desde el que se va a comparar.");
inline const QString MsgCompArea = QStringLiteral("Tiene que seleccionar un Area.");
inline const QString MsgCompSubcuenta = QStringLiteral("Tiene que seleccionar una Subcuenta.");
inline const QString MsgCompErrorCuenta = QStringLiteral("Error en la cuenta.");
inline const QString MsgCompSinCuentas = QStringLiteral("No hay Cuentas creadas.");
inline const QString TextoSinEjercicio = QStringLiteral("(sin ejercicio)");

// What Form42's boxes hold.
struct CajasComparacion {
    int numero = 0;    // "Seleccione número de años a comparar"; 0: none chosen
    int primerAno = 0; // "años desde"; 0: none chosen
    bool porAreas = true;
    QString area;      // the digit of the area box (by the setting CArea)
    QString subcuenta; // the subaccount's name as its box shows it
    QString sector;    // empty: every line
};

struct SeleccionComparacion {
    QList<int> anos;
    bool porAreas = true;
    QString area;    // the digit, with porAreas
    QString ncuenta; // the subaccount, without it
    QString nombre;  // the subaccount's name; the digit for an area
    QString sector;
    // The area's match by the setting CArea: first digit ("6%") or plan digit ("_6%").
    bool areaPorPlan = false;
};

// "&Ver": the number of years, the first year, the area or the subaccount, in that order; the
// subaccount is found by its name within the chosen area. Nothing on failure, after telling the
// user.
std::optional<SeleccionComparacion> ValidarComparacion(const CajasComparacion& cajas,
                                                       const Sesion& s, Dialogo& dialogo);

// The years first, first + 1, ... (n in all).
QList<int> AnosSeguidos(int primero, int numero);

enum ColumnaComparacion {
    ColCompAno,   // "Año": "Año 2024"
    ColCompEnero, // "Enero" ... "Diciembre"
    ColCompTotal = ColCompEnero + 12,
    ColumnasComparacion
};

Rejilla RejillaComparacion();

// The code matched: the area's LIKE pattern or the subaccount.
QString PatronComparacion(const SeleccionComparacion& sel);

struct AnoComparado {
    int ano = 0;
    bool existe = false; // the company has a database of that year
    double meses[12] = {};
    double total = 0;
};

// One year: the lines of the code in that year's database, each to the month of its date, by the
// nature of its subaccount (debit - credit in areas 1, 4, 5, 6; credit - debit in 0, 2, 3).
AnoComparado SumarAnoComparado(const Sesion& s, const SeleccionComparacion& sel, int ano);

// The grid emptied and filled, one row per year in the order given. Returns the years read.
QList<AnoComparado> LlenarComparacion(const Sesion& s, const SeleccionComparacion& sel,
                                      Rejilla& rejilla);

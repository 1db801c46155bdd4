#pragma once
// Parking: a parked subaccount leaves the board and the pick lists but keeps its entries and
// stays in every book. Parking is done from the company's last exercise only.

#include <QList>
#include <QString>
#include <QVariant>

class Dialogo;
struct Sesion;

// The test every list uses to leave out parked subaccounts: Aparcada is true and the year of
// Desde, read as a date, is not after the exercise year. Desde holds a plain year number, which
// read as a day number falls in 1905, so in practice Aparcada alone decides; the reading is kept
// so that a Desde written as a real date is honoured too.
bool EstaAparcada(const QVariant& aparcada, const QVariant& desde, int anoActual);

// Whether the session's exercise is the last one of the company, in the order of Selan.dat (the
// order of the board's list of exercises).
bool EsUltimoEjercicio(const Sesion& s);

struct FilaAparcar {
    QString NCuenta;
    QString Cuenta;
    bool Aparcada = false;
    QString Desde; // the year it was parked from, empty when not parked
};

// The subaccounts of an area (0 to 6) by name, parked or not, for the parking screen.
QList<FilaAparcar> ListaAparcar(Sesion& s, int area);

// Both ask for confirmation and refuse with the user's message; true when the row changed.
bool Aparcar(Sesion& s, Dialogo& d, const QString& ncuenta);
bool Desaparcar(Sesion& s, Dialogo& d, const QString& ncuenta);

// Printed list of the parking screen.
extern const QString TituloListadoAparcar; // "LISTADO DE CUENTAS"

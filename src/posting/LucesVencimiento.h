#pragma once
// The due-date lights of the board: the button of collections and the button of payments take the
// colour of the nearest due date of their kind that is neither collected nor paid.

#include <QColor>
#include <QDate>
#include <QString>

class Conexion;
struct Sesion;

enum class LuzVencimiento {
    Ninguna, // no due date ahead: the button keeps the system's colour
    Hoy,     // due today: orange
    Vencido, // already past: red
    Proximo, // due within eight days: yellow
    Lejano,  // later: green
};

// The light of a due date seen on a day.
LuzVencimiento ClasificarVencimiento(const QDate& fechaV, const QDate& hoy);
// The colour of a light; Ninguna gives an invalid colour (the button's own).
QColor ColorDeLuz(LuzVencimiento luz);

// ColorVenc for one kind, "Cobro" or "Pago": the first due date from today on, in Bavar.
LuzVencimiento ColorVenc(Conexion& bavar, const QString& tipo, const QDate& hoy);
LuzVencimiento ColorVenc(const Sesion& s, const QString& tipo, const QDate& hoy);

#pragma once
// The subaccount code NCuenta: nine digits, the area (1), the account of the accounting plan (3)
// and a serial (5) unique across the whole chart. The first four digits are the account, NGrupo.
// Also the seven areas of the board and which of them an account number belongs to.

#include <QString>
#include <QStringList>

class Conexion;

constexpr int NumeroAreas = 7;
// Customers and suppliers live in these two areas; only their subaccounts carry a card.
constexpr int AreaSeDebe = 2;
constexpr int AreaNosDeben = 4;
inline bool AreaConFicha(int area) {
    return area == AreaSeDebe || area == AreaNosDeben;
}

// Labels of the areas on the board, "(0) - Capital" ...
QString EtiquetaArea(int area);
// Names of the areas in the parking lists, "CAPITAL" ...
QString NombreListaArea(int area);
// Areas whose balance is shown as debit minus credit (1, 4, 5, 6); the others as credit minus
// debit.
bool AreaDeudora(int area);

// A code can be used only when it has nine characters once trimmed.
bool NCuentaValida(const QString& ncuenta);
// The board's refusal of a bad code.
QString MsgErrorEnCuenta(const QString& nombre);

// Writes a whole number through a digit mask of '0' (a digit, or 0) and '#' (a digit, or
// nothing), filled from the right; digits beyond the mask go in front.
QString FormatoMascara(qint64 valor, const QString& mascara);
extern const QString MascaraNCuenta; // "0###0000#"
// The code of serial `serie` of account `ngrupo`: (NGrupo as a number) x 100000 + serial,
// through the mask.
QString ComponerNCuenta(const QString& ngrupo, long serie);

// NºGrupo: the area whose list of plan accounts holds `codigo`, looking in areas 0 to 6 in order,
// or 10 when none does. The lists differ for exercises before 2008 and from 2008 on. The lists
// hold a few entries of two or four digits that a three-digit code never meets; they are kept as
// they are.
int NumGrupo(const QString& codigo, int anoEjercicio);
constexpr int SinArea = 10;
// The list of an area for an edition (for tests and for showing the user which area holds what).
QString ListaPlan(int area, int anoEjercicio);

// The highest serial among all subaccounts (the session's UltimaSubcuenta).
long UltimaSubcuenta(Conexion& c);
// The serial a new subaccount takes: the lowest n from 1 up to `ultima` that no subaccount uses;
// when all are taken, ultima + 1. So freed serials are reused, lowest first.
long SiguienteSerie(Conexion& c, long ultima);

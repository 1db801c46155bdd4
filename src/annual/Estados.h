#pragma once
// The balance sheet and the profit and loss account: one engine that runs the line tables of
// LineasEstado.h over the balances of the exercise and of the previous one, and lays the
// statement into the grids of its window, with headings only for lines that have an amount in
// either year.
//
// The balances are those before closing: the journal read leaving out the lines of the
// regularisation and closing entries (Clase "R" and "F"), so that looking at a statement never
// writes anything, whatever the state of either exercise.
//
// Usage:
//     const Modelo m = ModeloEstado(TipoEstado::Balance, s.AnoActual);   // Form81 or Form105
//     EstadoCuentas e = CalcularEstado(s, dialogo, m, desglose);
//     if (e.hayMovimientos) ... e.lista1 (assets / debit side / the whole account), e.lista2

#include "platform/Rejilla.h"

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

class Conexion;
class Dialogo;
struct Sesion;

enum class TipoEstado { Balance, PyG };
// The layouts: Form81 and Form82 for exercises up to 2007, Form105 and Form106 from 2008.
enum class Modelo { Form81, Form105, Form82, Form106 };

Modelo ModeloEstado(TipoEstado tipo, int ano);
// The old layouts always show the subaccounts; the PYMES ones only when the user asks.
bool DesgloseObligado(Modelo m);
// Has the "Notas Mem." column.
bool ConNotas(Modelo m);
// The mode the print options Form83 are opened with: "Balance", "Balance2008", "PyG", "PyG2008".
QString ModoImpresion(Modelo m);

inline const QString MsgSinMovimientos = QStringLiteral("No hay movimientos en el ejercicio.");
inline const QString PreguntaDesglose =
    QStringLiteral("Desea obtener el Balance con desglose hasta las subcuentas?");

// The balance of one subaccount before closing, with its name.
struct SaldoEstado {
    QString NCuenta, Cuenta;
    double SaldoD = 0, SaldoH = 0;
};
struct DatosEjercicio {
    QList<SaldoEstado> saldos; // those whose debit and credit differ, by NCuenta
    double resultado = 0;      // credit minus debit of groups 6 and 7
};
// Reads an exercise database leaving out the closing entries.
DatosEjercicio LeerDatosEstado(Conexion& c);

// Columns of a statement grid: three levels, the subaccount's name, "Notas Mem." in the PYMES
// layouts, and the amounts of the year and of the previous one.
enum ColumnaEstado { ColEstNivel1, ColEstNivel2, ColEstNivel3, ColEstSubcuenta };
int ColImporte(Modelo m);         // the exercise's amount
int ColImporteAnterior(Modelo m); // the previous year's
int ColNotas(Modelo m);           // -1 when the layout has none

Rejilla RejillaEstado(Modelo m, int ano, bool segunda);

struct EstadoCuentas {
    Modelo modelo = Modelo::Form105;
    int ano = 0;
    bool desglose = true;
    bool hayMovimientos = false;
    bool comparacion = false; // the previous year's column is filled
    // Balance: assets, and equity and liabilities. Old profit and loss: debit and credit sides.
    // PYMES profit and loss: the whole account in lista1, lista2 empty.
    Rejilla lista1, lista2;
    // The sums of the lines of each list, for the year and the previous one (the total rows of
    // the balance sheet).
    double total1[2] = {0, 0}, total2[2] = {0, 0};
    // Profit and loss: the result of the year and of the previous one (the last result row).
    double resultado[2] = {0, 0};
};

// Lays a statement from the data of both years (no previous: the column stays blank).
EstadoCuentas LlenarEstado(Modelo m, int ano, const DatosEjercicio& actual,
                           const std::optional<DatosEjercicio>& anterior, bool desglose);

// The session's exercise and, when its file is in the company folder and has movement, the
// previous one. With nothing in the exercise the user is told MsgSinMovimientos.
EstadoCuentas CalcularEstado(const Sesion& s, Dialogo& d, Modelo m, bool desglose);

// "Notas Mem.": what the user types beside a line of the PYMES layouts (the number of the note
// to the accounts that explains it). It lives as long as the window: it is never saved.
constexpr int LargoNota = 15;
// A typed note as the list keeps it: trimmed, without control characters, at most LargoNota.
QString TextoNota(const QString& texto);
// The notes of a list by the line they stand beside (its texts, and which repetition of them),
// so that a list laid again after entries changed keeps what was typed in it.
using NotasEstado = QHash<QString, QString>;
NotasEstado NotasDeLista(const Rejilla& r, Modelo m);
// Writes the notes back beside the lines that are still there; the others are dropped.
void PonerNotas(Rejilla& r, Modelo m, const NotasEstado& notas);

// The row of a list whose text cells hold etiqueta, from fila on; -1 when none (for tests and the
// command line).
int BuscarFila(const Rejilla& r, const QString& etiqueta, int desde = 0);

#pragma once
// Budgets: a named yearly plan of income and expense by subaccount with its distribution over the
// months, kept as a file of its own (<company folder>/<name>.prt) of 138-byte records, and its
// comparison with what the journal shows for a period.
//
// Usage:
//     Presupuesto p{QStringLiteral("Plan"), QStringLiteral("2026"), {}, {}};
//     PartidaPresupuesto q = NuevaPartida("760000001", 1200);
//     RepartirPorIgual(q, MesesTodos);
//     p.partidas << q;
//     GuardarPresupuesto(sesion, dialogo, p);                    // asks before replacing
//     Rejilla r = CompararPresupuesto(sesion, RutaPresupuesto(sesion, "Plan"), 2, 3);

#include "platform/Dialogo.h"
#include "store/Meses.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <array>

class Rejilla;
struct Sesion;

inline constexpr int LongitudRegistroPresupuesto = 138;

struct PartidaPresupuesto {
    QString NCuenta;
    QString Cuenta; // the subaccount's name, not kept in the file
    double Anual = 0;
    char Tipo = 'G'; // 'I' income (group 7), 'G' expense (group 6)
    // Element 0: how many months hold a share; 1 to 12: the share of each month, January first.
    std::array<double, 13> Meses{};
};

struct Presupuesto {
    QString Nombre;
    QString Ano;
    QString Sector; // empty for none
    QList<PartidaPresupuesto> partidas;
};

// Which months of the strip are marked, January first.
using MesesMarcados = std::array<bool, 12>;
inline constexpr MesesMarcados MesesTodos{true, true, true, true, true, true,
                                          true, true, true, true, true, true};

// One record as it lies in the file: texts in Windows-1252 padded with blanks, doubles
// little-endian without padding.
QByteArray RegistroPresupuesto(const PartidaPresupuesto& p, const QString& ano,
                               const QString& sector);
// The record read back; the year and sector it carries go to ano and sector when given.
PartidaPresupuesto PartidaDeRegistro(const QByteArray& registro, QString* ano = nullptr,
                                     QString* sector = nullptr);

// The folder's file of a budget name, and the name shown for a file (the file name without its
// folder and its last four characters, whatever they are).
QString RutaPresupuesto(const Sesion& s, const QString& nombre);
QString NombreDePresupuesto(const QString& ruta);
// The budgets of the company folder, by name.
QStringList ListaPresupuestos(const Sesion& s);

// A line of a subaccount of group 6 or 7 of the chart, with its name and type; throws Rechazo
// when the subaccount is not in the chart or not of those groups.
PartidaPresupuesto NuevaPartida(const Sesion& s, const QString& ncuenta, double anual);

// Shares the yearly amount among the marked months: each share in "standard", the rest of the
// rounding in the last marked month. Months not marked are emptied.
void RepartirPorIgual(PartidaPresupuesto& p, const MesesMarcados& marcados);

// The checks of adding a line with its distribution; an empty text when it may be added, else the
// message. Sets element 0 to the count of marked months holding more than 0.
QString ComprobarReparto(PartidaPresupuesto& p, const MesesMarcados& marcados);

// Checks year, name and sector, asks before replacing an existing budget, and writes the file
// through <name>.bak, putting the old file back if anything fails. Income lines go first.
// False when refused or cancelled (the reason already told); throws ErrorQuilmar on a failure
// after the old file has been put back. progreso (may be empty) is told of each record.
bool GuardarPresupuesto(const Sesion& s, Dialogo& d, const Presupuesto& p,
                        const Progreso& progreso = {});

// Every record of a budget file, with the names of the subaccounts from the chart when a session
// is given. Throws ErrorAlmacen when it cannot be read.
Presupuesto LeerPresupuesto(const QString& ruta, const Sesion* s = nullptr);

// The period of a comparison: whole months of the budget's exercise.
struct PeriodoPresupuesto {
    int mesDesde = 1; // calendar months, 1 to 12
    int mesHasta = 12;
    bool anual = true;
};
// " Anual", " Marzo" or " Febrero a Marzo".
QString EtiquetaPeriodo(const PeriodoPresupuesto& p);

// The budget set against the journal (without the regularisation entry) of its year: sections
// INGRESOS and GASTOS, one row per subaccount of the file, with their totals. Columns CUENTA,
// Presupuestado, Realizado, Diferencias and the hidden NCuenta. Throws ErrorQuilmar when the
// year has no exercise in the company.
Rejilla CompararPresupuesto(const Sesion& s, const QString& ruta, const PeriodoPresupuesto& per);

// The budget as its window prints it: sections INGRESOS and GASTOS with each line's name and
// yearly amount and the section totals (columns CUENTA, PRESUPUESTADO).
Rejilla RejillaPresupuesto(const Presupuesto& p);

struct DisenoTabla;
// The print designs of the budget and of its comparison.
DisenoTabla DisenoPresupuesto(const Presupuesto& p);
DisenoTabla DisenoComparacion(const QString& nombre, const QString& ano, const QString& periodo);

// "Completar con este mes": the month (1 to 12) takes what the others leave of the yearly amount.
// Returns the message to show; the month is changed only on "Distribución mensual completada.".
QString CompletarConMes(PartidaPresupuesto& p, int mes);

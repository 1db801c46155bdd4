#pragma once
// The formulas of the notes to the accounts: files of 126-byte records (name, type, period and
// content, Windows-1252, blank-padded, no header), one per company and chart, and the rules a
// formula must keep to be stored.
//
// Files: Fmemor.dat (old chart, exercises up to 2007), Fmemor8.dat (old chart from 2008) and
// Fmemor8np.dat (the 2007 chart). Each company folder has its own copy, taken from the program
// folder when missing. Every rewrite goes through 2<name>, which then replaces the file.
//
// Usage:
//     const PlanMemoria p = PlanMemoriaDe(s);
//     if (!AsegurarFormulas(s, p, dialogo)) return;
//     QList<FormulaMemoria> lista = LeerFormulas(RutaFormulas(s, p));

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Dialogo;
struct Sesion;

constexpr int LongitudFormula = 126;

struct FormulaMemoria {
    QString Nombre;    // "F001"
    QString Tipo;      // "Importe" or "Texto"
    QString Periodo;   // see PeriodosFormula
    QString Contenido; // up to 100 characters
    bool operator==(const FormulaMemoria&) const = default;
};

QByteArray RegistroFormula(const FormulaMemoria& f);
FormulaMemoria FormulaDeRegistro(const QByteArray& registro); // fields trimmed

// The old chart (Form14) or the 2007 one (Form107).
enum class PlanMemoria { Antiguo, Nuevo };

// From 2008 the notes follow the 2007 chart once the company's chart has been adapted to it; an
// exercise of 2008 or later kept in the old chart still uses the old formulas and model.
PlanMemoria PlanMemoriaDe(const Sesion& s);
QString FicheroFormulas(PlanMemoria p, int ano);
QString RutaFormulas(const Sesion& s, PlanMemoria p);         // in the company folder
QString RutaFormulasPrograma(const Sesion& s, PlanMemoria p); // the shipped copy

inline const QString MsgSinFormulas =
    QStringLiteral("No se ha encontrado el archivo de fórmulas para la Memoria");
inline const QString MsgArchivoEnUso = QStringLiteral("El archivo está en uso.");

// Makes sure the company has its formula file: copies the program's one when missing; false,
// after MsgSinFormulas, when neither exists.
bool AsegurarFormulas(const Sesion& s, PlanMemoria p, Dialogo& d);

QList<FormulaMemoria> LeerFormulas(const QString& ruta);
// Rewrites the whole file through its temporary 2<name>. Throws ErrorAlmacen.
void EscribirFormulas(const QString& ruta, const QList<FormulaMemoria>& formulas);

inline const QString TipoImporte = QStringLiteral("Importe");
inline const QString TipoTexto = QStringLiteral("Texto");
inline const QString PeriodoNinguno = QStringLiteral("Ninguno");
inline const QString PeriodoAnoN = QStringLiteral("Año N");
inline const QString PeriodoAnoN1 = QStringLiteral("Año N-1");
inline const QString PeriodoInicial = QStringLiteral("Fecha inicial");
inline const QString PeriodoFinal = QStringLiteral("Fecha Final");
inline const QString PeriodoAno = QStringLiteral("Año");

// The periods a stored formula may carry in each file.
QStringList PeriodosFormula(PlanMemoria p);

// The 2007 chart's screen asks the exercise and the period apart: "Año N" or "Año N-1", and the
// balance taken ("Fecha Final", "Fecha inicial", "Año"). The record holds one period: the
// previous year is "Año N-1" (its closing balance, the figure of a comparative column), the
// current year the period itself.
QStringList EjerciciosFormula();                         // "Año N", "Año N-1"
QStringList PeriodosEjercicio(const QString& ejercicio); // the periods the exercise takes
QString PeriodoGuardado(const QString& ejercicio, const QString& periodo);
QString EjercicioDePeriodo(const QString& guardado); // "Año N-1" or "Año N"
QString PeriodoDeGuardado(const QString& guardado);  // "Año N" shows as "Fecha Final"

// What the user typed on the formula screen or the command line.
struct EntradaFormula {
    QString digitos; // three digits
    QString tipo;
    QString ejercicio; // 2007 chart only
    QString periodo;   // as stored (see PeriodoGuardado)
    QString contenido;
};

enum class CampoFormula { Nombre, Contenido, Tipo, Ejercicio, Periodo };
struct ErrorFormula {
    QString mensaje;
    CampoFormula campo;
};

inline const QString MsgNombreFormula =
    QStringLiteral("El nombre de la fórmula debe tener tres dígitos.");
inline const QString MsgSinContenido =
    QStringLiteral("Debe introducir el contenido de la Fórmula.");
inline const QString MsgSinTipo =
    QStringLiteral("Tiene que seleccionar el Tipo de Fórmula que es.");
inline const QString MsgSinEjercicio = QStringLiteral("Tiene que seleccionar el Ejercicio.");
inline const QString MsgSinPeriodo =
    QStringLiteral("Tiene que seleccionar el Periodo al que va referida la Fórmula.");
inline const QString MsgContenidoErroneo = QStringLiteral(
    "Error en el contenido de la fórmula. Entre '<' y '>' tiene que haber siempre una F o una S "
    "y tres cifras.");
inline const QString MsgFuncionExiste = QStringLiteral("Esa función ya existe.");
inline const QString PreguntaSustituir =
    QStringLiteral("Esa función ya existe, desea sustituirla?");
QString PreguntaEliminarFormula(const QString& nombre);

// Every "<" opens a token of F or S (any case) and three digits closed by ">", and every ">"
// closes one.
bool ContenidoValido(const QString& contenido);
// The characters an amount formula is typed with.
bool TeclaFormula(QChar c);

// The checks of the entry, in order; the first that fails.
std::optional<ErrorFormula> ComprobarFormula(const EntradaFormula& e, PlanMemoria p);
FormulaMemoria FormulaDeEntrada(const EntradaFormula& e);

// Adds a formula (replacing one of that name only when the user agrees, on the 2007 chart), or
// replaces the formula `anterior` when it is given. False when nothing was written; the reason
// has been told. Throws ErrorAlmacen.
bool GuardarFormula(const QString& ruta, PlanMemoria p, const FormulaMemoria& f, Dialogo& d,
                    const std::optional<QString>& anterior = std::nullopt);
// Asks, then rewrites the file without it.
bool EliminarFormula(const QString& ruta, const QString& nombre, Dialogo& d);

#pragma once
// The notes to the accounts: a model document (Memabrev<yyyy>.rtf in the company folder) with
// formula tokens, and the notes made from it (Memoria<yyyy>.rtf) with every token replaced by
// its figure from the books.
//
// Tokens are "<" + a name of four characters + ">": "<F001>" a formula of the formula file (see
// FormulasMemoria.h); inside a formula also "<S430>", the balance of an account of three digits.
// A formula may use others down to a third level, where formula tokens are no longer replaced.
// Figures are those before closing (the journal without the lines of Clase "R" and "F"), read
// and never written: making the notes leaves the books as they were.
//
// Usage:
//     CalculoMemoria calculo(s, PlanMemoriaDe(s));
//     const QString v = calculo.Valor(QStringLiteral("F004"));   // "   12.345,67"
//     std::optional<QString> ruta = GenerarMemoria(s, dialogo);  // the notes, written

#include "annual/FormulasMemoria.h"

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class Ajustes;
class Dialogo;
struct Sesion;

// The kinds of balance of an S token: the balance by the account's nature at the end ("N"), the
// lines of the first day ("Ini"), the lines of the whole year ("Año").
enum class ClaseSaldo { N, Ini, Ano };

// Values are padded on the left with blanks up to the width, in Arial 10, of the widest figure of
// a small firm ("999.999.999,99"), so that figures after a tab stop end on one line.
QString RellenarValor(const QString& valor);

class CalculoMemoria {
public:
    CalculoMemoria(const Sesion& s, PlanMemoria plan);
    ~CalculoMemoria();

    // A formula's value for the document: texts as they stand, amounts in "standard" padded by
    // RellenarValor; empty when the name is no formula's, the formula cannot be worked out, or it
    // asks for a previous year that is not there.
    QString Valor(const QString& nombre);
    // The balance of account (three digits) in a kind, in the exercise or the previous one;
    // nothing when that exercise's file is missing.
    std::optional<double> SaldoF(const QString& cuenta, ClaseSaldo clase, bool anterior = false);

    // Replaces every "<xxxx>" of a document (RTF bytes) by its value; a "<" with fewer than five
    // characters after it, or without ">" five places on, stays as text.
    QByteArray Elaborar(const QByteArray& modelo);

private:
    struct Datos;
    const Datos* datos(bool anterior);
    // A formula's value at a nesting level (1 to 3): text, or the amount as a number.
    std::optional<QString> valorNivel(const QString& nombre, int nivel, bool& esTexto);

    const Sesion& s_;
    PlanMemoria plan_;
    QList<FormulaMemoria> formulas_;
    std::unique_ptr<Datos> actual_, anterior_;
    bool anteriorLeido_ = false;
};

// Where the documents lie.
QString RutaModeloMemoria(const Sesion& s); // Memabrev<yyyy>.rtf in the company folder
QString RutaMemoria(const Sesion& s);       // Memoria<yyyy>.rtf in the company folder
QString RutaModeloPrograma(const Sesion& s, PlanMemoria p); // Memabrev.rtf or MemabrevNP.rtf

inline const QString PreguntaEliminarMemoria =
    QStringLiteral("Ya existe la Memoria del ejercicio. Desea eliminarla?");
inline const QString PreguntaConfirmarEliminarMemoria =
    QStringLiteral("Se va a eliminar la Memoria del ejercicio. Es correcto?");
inline const QString PreguntaModeloPredeterminado =
    QStringLiteral("Desea utilizar el modelo predeterminado de Memoria para PYMES de Quilmar?");
inline const QString TituloElegirModelo =
    QStringLiteral("Seleccione la Memoria que desea utilizar como modelo, en formato rtf.");
inline const QString TituloElegirModeloNuevo = QStringLiteral(
    "Seleccione la Memoria que desea utilizar como modelo, en formato rtf. Tenga en cuenta que "
    "debe ser una memora adaptada al nuevo Plan General de Contabilidad.");
inline const QString MsgSinModelo = QStringLiteral("No está creada la Memoria del ejercicio.");
inline const QString MsgSinModeloActual =
    QStringLiteral("No está creada la memoria del ejercicio actual.");
inline const QString PreguntaProcesoLargo =
    QStringLiteral("Este proceso puede ser largo, desea continuar?");
QString MsgSinModeloPrograma(const QString& ruta);
QString MsgModeloNoRtf(const QString& ruta);

// "Nueva": makes the exercise's model, from the shipped one or from the user's RTF
// (`elegirModelo` asks for it with a title and answers a path, empty when cancelled). The path of
// the model when made.
std::optional<QString> NuevaMemoria(const Sesion& s, Dialogo& d,
                                    const std::function<QString(const QString&)>& elegirModelo);
// The model to be edited ("Elaborar modelo"): its path, or nothing after MsgSinModelo.
std::optional<QString> ModeloParaEditar(const Sesion& s, Dialogo& d);
// "Ver": makes the notes from the model (after the question of a long process when `preguntar`)
// and answers their path.
std::optional<QString> GenerarMemoria(const Sesion& s, Dialogo& d, bool preguntar = true);

// The program that opens the documents: the editor of the settings (Datos, Editor) when the user
// has set one, else the desktop's own for RTF files.
inline const QString MsgSinEditor = QStringLiteral(
    "No se ha encontrado ningún programa que abra documentos RTF. Instale un procesador de textos "
    "(LibreOffice Writer, AbiWord...) o elija el programa con el que desea abrirlos.");
QString MsgEditorNoArranca(const QString& editor);
// `abrir` replaces the desktop's opener (tests); `arrancar` the start of a set editor.
bool AbrirEnEditor(const QString& ruta, const Ajustes& a, Dialogo& d,
                   const std::function<bool(const QString&)>& abrir = {},
                   const std::function<bool(const QString&, const QString&)>& arrancar = {});

#pragma once
// Writing a grid to a file: an Excel workbook (.xlsx) or delimited text.
//
// Usage:
//     // A list window's export, after the file dialog (forms/ExportarDialogo.h does both):
//     if (!ExportarRejilla(rejilla, ruta, FormatoExportacion::Xlsx, dialogo)) return; // "No"
//     // The command line: --formato csv|xlsx|txt --salida FICHERO, or txt on standard output:
//     const auto formato = FormatoExportacionDeNombre(ctx.opcion("formato", "txt"));
//     if (salida.isEmpty()) EscribirDelimitado(rejilla, ctx.salida); else ExportarRejilla(...);
//
// What the grid holds is what is written: the header row first, every row, hidden columns
// included. In the workbook the header is bold and frozen, amount columns are numbers with two
// decimals, whole-number columns numbers with thousands, date columns dates (dd/mm/yyyy), bold
// cells bold, and the widths fit the contents; a merged row's text stands in its first cell,
// over the empty cells beside it (a workbook of any size is written in constant memory, where
// merged ranges are not possible). Text is UTF-8; .txt is tab-separated, .csv is separated by
// ";" (the comma is the decimal mark) with quotes where needed and a byte-order mark so that
// spreadsheets read the accents.

#include <QString>
#include <optional>

class Dialogo;
class QTextStream;
class Rejilla;

enum class FormatoExportacion { Xlsx, Texto, Csv };

// The file dialog's filters, the first one chosen by default.
inline const QString FiltroExcel = QStringLiteral("Archivo de Microsoft Excel (*.xlsx)");
inline const QString FiltroTexto = QStringLiteral(" Archivo de texto (*.txt)");
inline const QString PreguntaSustituir =
    QStringLiteral("Este archivo ya existe, desea sustiruirlo?");

// "xlsx", "txt", "csv" (any case), or nothing.
std::optional<FormatoExportacion> FormatoExportacionDeNombre(const QString& nombre);

// The header and rows, one line each, cells joined by the separator. With a separator other than
// a tab, a cell holding it or a quote is quoted.
void EscribirDelimitado(const Rejilla& rejilla, QTextStream& salida, QChar separador = u'\t');

// Writes the file, replacing any file of that name; a failure leaves the old file as it was.
// Throws ErrorQuilmar with a message for the user.
void ExportarRejilla(const Rejilla& rejilla, const QString& ruta, FormatoExportacion formato);

// The same, first asking PreguntaSustituir when the file exists: No writes nothing and returns
// false.
bool ExportarRejilla(const Rejilla& rejilla, const QString& ruta, FormatoExportacion formato,
                     Dialogo& dialogo);

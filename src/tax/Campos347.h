#pragma once
// The fields of the Modelo 347's three sheets: name, caption, width and what each accepts, and
// reading and writing them by name. The screens build their boxes from this table and the
// command line reads its options and its file of properties through it, so every path takes the
// same text and refuses it with the same words.
//
// Usage:
//     for (const Campo347& c : Campos347(Hoja347::Declarados)) ...   // c.nombre, c.ancho
//     PonerCampo347(m, Hoja347::Declarados, 0, QStringLiteral("Clave"), QStringLiteral("b"));
//     LeerCampo347(m, Hoja347::Declarados, 0, QStringLiteral("Clave"));   // "B"

#include "tax/Modelo347.h"

enum class Admite347 {
    Mayusculas,   // any printable character of Windows-1252, raised to capitals
    Alfanumerico, // capitals and digits (NIF, cadastral reference)
    Cifras,       // digits
    Letras,       // capitals A to Z (country)
    Clave,        // one of "ABCDEFG"
    Situacion,    // one of "1234"
    TipoNumero,   // "NUM", "KM." or "S/N"
    Calificador,  // "BIS", "DUP", "MOD" or "ANT"
    Marca,        // X or nothing
    Importe,      // an amount (LeerImporte), or nothing
};

struct Campo347 {
    QString nombre;   // of the box on the screen (with the line's number on the lists)
    QString etiqueta; // its caption
    int ancho = 0;    // most characters (0 for amounts and marks)
    Admite347 admite = Admite347::Mayusculas;
};

// The fields of a sheet, in the order of the screen.
const QList<Campo347>& Campos347(Hoja347 hoja);
// A field of a sheet by name; null when there is none.
const Campo347* BuscarCampo347(Hoja347 hoja, const QString& nombre);

// The values a list field offers (TipoNumero, Calificador); empty for the others.
QStringList Valores347(Admite347 admite);

// A typed character as the field takes it (raised to capitals), or a null QChar when refused.
QChar Caracter347(QChar c, Admite347 admite);
// A text as the field takes it: trimmed, raised, within the width; an amount in "standard",
// a mark "X" or empty. Throws Rechazo naming the field.
QString Texto347(const Campo347& campo, const QString& texto);

// The text of a field of the summary (indice ignored) or of line `indice` of a list; amounts in
// "standard", marks "X" or empty. An index past the list gives an empty text.
QString LeerCampo347(const Modelo347& m, Hoja347 hoja, int indice, const QString& campo);
// Writes a field through Texto347 (throws Rechazo). On a list, the index may be the list's size:
// a new line is added; further on, Rechazo with MsgRegistrosEnBlanco.
void PonerCampo347(Modelo347& m, Hoja347 hoja, int indice, const QString& campo,
                   const QString& texto);
// The same on one property alone (Form108 and the command line's file of properties).
QString LeerInmueble347(const Inmueble347& i, const QString& campo);
void PonerInmueble347(Inmueble347& i, const QString& campo, const QString& texto);
// Text for capitals-only fields: every character raised on its own, so the length stays.
QString Mayusculas347(const QString& texto);

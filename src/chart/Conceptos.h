#pragma once
// Predefined descriptions (table Conceptos of the company database): a number typed as the
// description of a line is replaced by its text.

#include <QList>
#include <QString>

class Dialogo;
struct Sesion;

struct FilaConcepto {
    qint64 Codigo = 0;
    QString Nombre;
};

QList<FilaConcepto> ListaConceptos(Sesion& s);
// The text of a number, empty when it has none.
QString TextoConcepto(Sesion& s, qint64 codigo);

// Adds the concept or, after asking, rewrites the text of an existing number. The code is typed
// text of digits; the text, one of its field. False, after telling the user, when refused or not
// confirmed. The list belongs to the company, not to an exercise: a closed exercise keeps it open.
bool GuardarConcepto(Sesion& s, Dialogo& d, const QString& codigo, const QString& nombre);
bool EliminarConcepto(Sesion& s, Dialogo& d, qint64 codigo);

extern const QString TituloListadoConceptos; // "Conceptos predefinidos"
extern const QString MsgModificarConcepto;   // the hint when a row is copied to the fields

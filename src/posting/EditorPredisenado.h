#pragma once
// Writing a predesigned entry (Form74 without the screen): the code and name, one line at a time
// in the fields (a side, and for each of the nine fields a kind and a text), the lines in a grid,
// and "&Guardar". Every check runs here, with the messages the screen shows, so that the command
// line refuses a template exactly where the screen would.
//
// Usage:
//     EditorPredisenado e(s, d);
//     e.Codigo = "007"; e.Nombre = "Alquiler";
//     e.DH = "D"; e.Campos[CampoPredi::Fecha] = {TipoCelda::Variable, {}}; ...
//     if (!e.AnadirAp()) return;      // told why
//     e.NuevoAp();                    // fields cleared, labels C20 ... C28
//     ...
//     e.Guardar();

#include "posting/Predisenados.h"

#include <QString>
#include <array>

class Dialogo;
struct Sesion;

// A field as the screen holds it: the kind chosen in its list and the text of its box (a fixed
// value, a formula without "F=", a default without "V="). A fixed subaccount or counterparty is
// its code.
struct CampoEditor {
    TipoCelda Tipo = TipoCelda::Ninguno;
    QString Valor;
};

class EditorPredisenado {
public:
    EditorPredisenado(const Sesion& s, Dialogo& d);

    QString Codigo; // as typed: three digits
    QString Nombre;
    QList<LineaPredisenado> Lineas; // the grid

    // The line in the fields.
    int Digito = 1; // its line digit: the labels read C<d>0 ... C<d>8
    QString DH;     // "D", "H", or empty when no side is chosen
    std::array<CampoEditor, CampoPredi::Total> Campos;
    bool LibroIVA = false;
    bool Mod347 = false;
    QString Coment;

    // "C1": the code of the line in the fields.
    QString Etiqueta() const;
    // "C13": the name of a field of the line in the fields.
    QString NombreCampo(int campo) const;

    // "Nu&evo Ap.": the fields emptied and named after the next line.
    void NuevoAp();
    // "&Añadir Ap.": the line in the fields checked and added. False (the user told why) when it
    // is refused or its code is already in the grid.
    bool AnadirAp();
    // "&Modificar Ap": the line of the same code replaced.
    bool ModificarAp();
    // A line of the grid (from 0) goes to the fields.
    void SeleccionarLinea(int indice);
    // "&Guardar": the checks of the whole template, the question before overwriting one of the
    // same code, and its rows. True when it was written.
    bool Guardar();
    // "Borrar &Todo": the screen emptied, the labels back to C10 ... C18.
    void BorrarTodo();
    // A stored template to the screen, its first line in the fields. False when it has no rows.
    bool Cargar(int codigo);

    // What may be typed in the date box: digits and "/".
    static bool TeclaFecha(QChar c);
    // What may be typed in a formula of an amount or base: digits, the decimal separators, the
    // characters 40 to 47 and the letter C.
    static bool TeclaFormulaImporte(QChar c);

private:
    std::optional<LineaPredisenado> validar();
    void vaciarCampos();

    const Sesion& s_;
    Dialogo& d_;
};

extern const QString MsgFormatoFecha;     // "Debe introducir la fecha en formato 'dd/mm/aa'."
extern const QString MsgCodigoTresCifras; // "Debe introducir el Código del Asiento con ..."
extern const QString MsgDosApuntes;       // "El Asiento Prediseñado debe tener almenos ..."
extern const QString MsgCuadreUltimo;     // "Sólo en el último Apunte puede estar ..."
// "Debe introducir la fórmula utilizando el nombre de otro campo, por ejemplo C17." with the
// example that fits the field.
QString MsgFormulaNombreCampo(int campo);

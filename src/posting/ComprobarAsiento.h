#pragma once
// The checks an entry given from outside the screens passes before the journal writer sees it:
// the command line's asiento and the import of a file apply the same ones, with the screens'
// messages where the screens have them. Each refusal throws Rechazo; the caller puts in front of
// it where the fault stands ("Línea 7: ", "--debe 572000001=1e308: ").
//
// Usage:
//     ComprobarAsiento comprobar(conexion);           // reads the sector list once
//     const QString concepto = comprobar.Concepto(texto);
//     const QString sector = comprobar.Sector(texto);  // as the list spells it
//     const double debe = comprobar.Importe(texto);    // rounded to the cent

#include <QHash>
#include <QString>

class Conexion;

extern const QString MsgAsientoSinImportes; // every amount of the entry is 0,00 to the cent

class ComprobarAsiento {
public:
    explicit ComprobarAsiento(Conexion& datos);

    // The description: not empty ("Debe cumplimentar los campos de Fecha, Concepto e Importe."),
    // within its field and without control characters. Trimmed.
    static QString Concepto(const QString& texto);
    // The document: within its field and without control characters. Trimmed; may be empty.
    static QString Documento(const QString& texto);
    // An amount as given (an empty text is 0): a number the books take, rounded to the cent.
    static double Importe(const QString& texto);

    // The sector: empty for none, otherwise a sector of the list, given back as the list spells
    // it ("tienda" is "Tienda"). Refuses an unknown one with "No existe el sector X.".
    QString Sector(const QString& texto) const;

private:
    QHash<QString, QString> sectores_; // by the name folded as the list compares it
};

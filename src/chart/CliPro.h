#pragma once
// The fiscal card of a customer (area 4) or supplier (area 2) subaccount: table CliPro, read by
// the VAT capture and the third-party declaration through ConCliPro.

#include <QString>
#include <QStringList>

class Conexion;

struct FichaCliPro {
    QString NCuenta;
    QString Cuenta; // the subaccount's name (read only)
    QString NIF;
    QString Domicilio;
    QString Municipio;
    QString CPostal;
    QString Provincia;
    QString Pais;
    QString Tfn1;
    QString Tfn2;
    QString Contacto;
    QString Observaciones;

    // Whether the card's own fields (everything but the codes and the name) differ.
    bool mismosDatos(const FichaCliPro& otra) const;
};

struct ResultadoCompCliPro {
    bool existe = false;
    QString NCuenta;
};

// Refuses (Rechazo, naming the field) a card field with a control character or longer than its
// field.
void ComprobarFicha(const FichaCliPro& f);

// Whether a non-empty NIF is already on a card, and on which subaccount.
ResultadoCompCliPro CompCliPro(Conexion& c, const QString& nif);
// Writes the card of f.NCuenta, adding the row when it has none. Texts are trimmed, and checked
// with ComprobarFicha first.
void InsCliPro(Conexion& c, const FichaCliPro& f);
// The card of a subaccount with its name; all fields empty when it has none.
FichaCliPro ObtCliPro(Conexion& c, const QString& ncuenta);
void ElimFicha(Conexion& c, const QString& ncuenta);

// The note shown on leaving the NIF field: the name of another subaccount of the same area whose
// card has this NIF, or an empty text.
QString NotaNIF(Conexion& c, int area, const QString& nif, const QString& ncuentaPropia);
QString MsgNotaNIF(const QString& nombre); // "Este NIF corresponde a la subcuenta " + name

// Names in areas 2 and 4 go to the tax files, which take no accents: á, é, í, ó, ú are refused.
bool TieneAcentos(const QString& texto);
extern const QString MsgSinAcentos;

// The lists behind the province and country boxes.
QStringList Provincias(Conexion& c);
QStringList Paises(Conexion& c);

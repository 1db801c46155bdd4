#pragma once
// The printed and exported lists of the chart's screens: the chart of an area (accounts or
// subaccounts), the parking list, the VAT subaccounts and the predefined concepts. Each is a grid
// (shown, exported as .xlsx or text) with a title and heading lines, drawn page by page on the
// printing surface with "Página nº " at the foot of each page.

#include "platform/Rejilla.h"

#include <QList>
#include <QString>
#include <QStringList>

class Conexion;
class Impresora;
struct Sesion;

struct Listado {
    QString titulo;
    QStringList encabezado; // lines under the title ("Empresa: ...", "Area: ...")
    Rejilla rejilla;
    QList<double> anchos; // width of each visible column, in twips
    QString fuente = QStringLiteral("Arial");
    double tamano = 9;
};

// The chart of an area: its accounts (Código, Cuenta) or its subaccounts (Código, Subcuenta,
// Cuenta), titled "Listado de Cuentas" or "Listado de Subcuentas".
Listado ListadoPlan(Sesion& s, int area, bool cuentas);
// The subaccounts of an area with their parking: CUENTA, APARCADA ("SI"), DESDE.
Listado ListadoAparcar(Sesion& s, int area);
// "Subcuentas de IVA": Tipo, Concepto, Clase.
Listado ListadoTiposIva(Sesion& s);
// "Conceptos predefinidos": Código, Concepto.
Listado ListadoConceptos(Sesion& s);

// Draws a list: the title and heading, the column titles on every page, the rows, and the page
// number at the foot of each page; ends the document.
void DibujarListado(Impresora& imp, const Listado& l);
extern const QString TextoPagina; // "Página nº "

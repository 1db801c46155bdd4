#pragma once
// The search of Form57 over the journal's grid: the fields of the list "En el campo:" with the
// grid column each one searches, and the walk from a row to the end.
//
// Usage:
//     int fila = BuscarEnRejilla(rejilla, CamposBusquedaDiario().at(i).columna, texto, 0);
//     if (fila < 0) dialogo.Informar(MsgFinDeLista);          // "Buscar &Primero"
//     fila = BuscarEnRejilla(rejilla, columna, texto, fila + 1);  // "Buscar &Siguiente"

#include <QList>
#include <QString>

class Rejilla;

struct CampoBusqueda {
    QString nombre; // as the list shows it
    int columna;    // of the journal's grid
};

// "Nº Asiento" 0, "Fecha" 2, "Subcuenta" 3, "Concepto" 4, "Debe" 5, "Haber" 6, "Sector" 7,
// "Documento" 9, "Base IVA" 10, "Cuota IVA" 11, "Cliente/Proveedor" 12, "Factura" 13: the columns
// the search has always taken, "Sector" included, which falls on the hidden code column.
const QList<CampoBusqueda>& CamposBusquedaDiario();

inline const QString MsgTextoABuscar = QStringLiteral("Tiene que introducir el texto a buscar.");
inline const QString MsgColumnaABuscar =
    QStringLiteral("Tiene que seleccionar la columna del Diario donde se va a buscar.");
inline const QString MsgFinDeLista = QStringLiteral("Se llegó al final de la lista.");

// The first row from `desde` to the last whose cell in the column contains the text, without
// regard to case; -1 past the end.
int BuscarEnRejilla(const Rejilla& rejilla, int columna, const QString& texto, int desde);

#pragma once
// A short list printed as it shows on screen: a few heading lines, the column titles, the rows
// of a grid (bold where the grid has them bold), a new page with the titles again when the page
// fills, and "Página nº N" at the foot of each page. For the small windows that print their grid
// as it stands (budget comparison, loan table).

#include "platform/Impresora.h"

#include <QList>
#include <QString>
#include <QStringList>

class Rejilla;

struct ColumnaTabla {
    int columna;    // of the grid
    double x;       // text: left edge; figures: right edge, in twips
    bool aDerecha;  // figures
    QString titulo; // empty: the grid's title
};

struct DisenoTabla {
    QString fuente = QStringLiteral("Arial");
    double tamano = 9;
    QStringList cabecera; // lines at the top of every page, the first one bold and larger
    QList<ColumnaTabla> columnas;
};

void DibujarTabla(Impresora& imp, const Rejilla& r, const DisenoTabla& d);

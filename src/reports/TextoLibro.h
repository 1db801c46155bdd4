#pragma once
// Fast writers of the texts a book puts in its cells, appending to a row being built, for lists
// of hundreds of thousands of lines. Each gives exactly what Formato / FormatoFecha give.
//
// Usage:
//     QString fila;
//     AnadirEnteroMiles(fila, nas);  fila += u'\t';    // Formato(nas, "#,###"): "1.234", 0 empty
//     AnadirFechaCorta(fila, "2024-03-01");             // "01/03/2024"
//     AnadirImporte(fila, 1234.5);                      // Formato(v, "standard"): "1.234,50"
//     AnadirTexto(fila, concepto);                      // tabs become blanks: a tab splits cells

#include <QString>

void AnadirImporte(QString& destino, double valor);
void AnadirEnteroMiles(QString& destino, long long valor);
// An ISO date text (yyyy-MM-dd...) as dd/MM/yyyy; anything else is appended as it is.
void AnadirFechaCorta(QString& destino, QStringView iso);
void AnadirTexto(QString& destino, QStringView texto);

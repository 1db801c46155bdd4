#pragma once
// The read-only list grids the chart's screens share, with hidden key columns.

#include <QStringList>

class Ajustes;
class Dialogo;
class QTableWidget;
struct Listado;
class QWidget;

// A list grid: whole rows selected one at a time, not editable; the last `ocultas` columns are
// hidden keys.
QTableWidget* NuevaLista(QWidget* padre, const QString& nombre, const QStringList& titulos,
                         int ocultas = 0);
// Appends a row of texts.
int AnadirFila(QTableWidget* t, const QStringList& celdas);
// Text of a cell of the selected row, empty when none is selected.
QString CeldaSeleccionada(const QTableWidget* t, int columna);
// Finds a text, without regard to case, in the visible cells from the row after `desde`; the row
// found, or -1.
int BuscarEnLista(const QTableWidget* t, const QString& texto, int desde);

// Prints a list through the print preview, on the printer of the settings.
void ImprimirListado(QWidget* padre, Ajustes& ajustes, const Listado& listado);
// Exports a list's grid after the save dialog.
void ExportarListado(QWidget* padre, Dialogo& dialogo, const Listado& listado);

#pragma once
// The export of every list window: the save dialog with the Excel and text filters (Excel
// first), the question before replacing a file, and the file written.
//
// Usage (the window's "&Exportar"):
//     DialogoVentanas dialogo(this);
//     ExportarConDialogo(this, rejilla_, dialogo);
// A cancelled dialog or a No to the question does nothing and says nothing; a failure to write
// is told through the Dialogo.

#include <QString>

class Dialogo;
class QWidget;
class Rejilla;

// Returns true when a file was written.
bool ExportarConDialogo(QWidget* padre, const Rejilla& rejilla, Dialogo& dialogo,
                        const QString& carpeta = {});

#pragma once
// Printing a book on the desktop: a print preview of the drawing, from which the user prints
// (the system's printer dialog, without page range, selection or print to file, and with the
// number of copies) or saves it as PDF.
//
// Usage (a list window's "&Imprimir", after its option form):
//     const int copias = ImprimirLibro(this, [&](Impresora& imp, int copia) {
//         DibujarDiario(imp, copia, opciones, sumas);   // the same routine the tests record
//     }, {QStringLiteral("LIBRO DIARIO"), ajustes.leer("Valores", "Impresora")});
// The drawing runs once for the preview (copy 1) and once per copy when printing: the printer
// makes one copy per pass, so a book whose copies differ (the journal's carried sums) draws
// each. A book that draws nothing shows no preview and prints nothing. Closing the preview or
// cancelling the printer dialog returns 0 without a message.

#include "platform/Impresora.h"

#include <QDialog>
#include <QPageLayout>
#include <QString>
#include <memory>

class QLabel;
class QPrinter;
class QPrintPreviewWidget;

struct OpcionesImpresion {
    QString titulo; // of the preview window and the print job
    // The printer chosen in the configuration; empty or "Predeterminada del sistema" is the
    // system's default.
    QString impresora;
    QPageLayout::Orientation orientacion = QPageLayout::Portrait;
};

// Returns the number of copies printed: 0 when nothing was printed (closed, cancelled, saved as
// PDF only, or nothing to print).
int ImprimirLibro(QWidget* padre, const DibujoLibro& dibujar,
                  const OpcionesImpresion& opciones = {});

// The preview window. ImprimirLibro shows it modally; tests drive it directly.
class VistaPrevia : public QDialog {
    Q_OBJECT
public:
    VistaPrevia(QPrinter* impresora, DibujoLibro dibujar, const QString& titulo,
                QWidget* padre = nullptr);
    ~VistaPrevia() override;

    int paginas() const;
    QPrintPreviewWidget* vista() const { return vista_; }
    int copiasImpresas() const { return copias_; }

public Q_SLOTS:
    // The printer dialog, then every copy; closes the preview once printed.
    void imprimir();
    // Prints the copies on the printer as it stands, one pass of the drawing per copy. False
    // (after telling the user) when the printer could not be used.
    bool imprimirCopias(int copias);
    // Asks for a file name, then writes the PDF.
    void elegirPdf();
    // Writes copy 1 as a PDF file, asking before replacing one. True when written.
    bool guardarPdf(const QString& ruta);

private:
    void pintar(QPrinter* impresora);
    void mostrarPagina();

    QPrinter* impresora_;
    DibujoLibro dibujar_;
    QString titulo_;
    QPrintPreviewWidget* vista_;
    QLabel* pagina_;
    int copias_ = 0;
};

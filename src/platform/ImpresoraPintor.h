#pragma once
// The printing surface on paper and PDF: QPainter on a paged device.
//
// Usage (the command line writes a book as PDF):
//     const int hojas = ImprimirPdf(ruta, [&](Impresora& imp, int copia) { libro.Dibujar(imp); });
//     if (hojas == 0) ...   // nothing was drawn: no file was made
// On the desktop, ImprimirLibro (forms/ImprimirLibro.h) uses ImpresoraPintor on a QPrinter.

#include "platform/Impresora.h"

#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <memory>

class QPagedPaintDevice;
class QPainter;

// QPainter on any paged device: a QPdfWriter here, a QPrinter on the desktop. Coordinates are
// scaled from twips to the device's resolution. Nothing touches the device until the first
// drawing, so an empty book makes no file and no print job.
class ImpresoraPintor : public Impresora {
public:
    // salida names the device in the error message ("la impresora X", a file's path).
    ImpresoraPintor(QPagedPaintDevice* dispositivo, const QString& salida);
    ~ImpresoraPintor() override;
    // Ends the print job (the destructor does it too). The first drawing opens the device and
    // throws ErrorQuilmar when it cannot.
    void Terminar();
    // Sheets sent to the device so far.
    int HojasEmitidas() const { return hojas_; }

protected:
    void dibujarTexto(double x, double y, const QString& texto, double ancho,
                      bool seguido) override;
    void dibujarLinea(double x1, double y1, double x2, double y2) override;
    void dibujarFigura(const QRectF& rectangulo, const DibujoFigura& dibujo) override;
    void alNuevaPagina() override;
    void alFinDocumento() override;

private:
    QPainter& pintor();

    QPagedPaintDevice* dispositivo_;
    QString salida_;
    std::unique_ptr<QPainter> pintor_;
    bool dibujadoEnDocumento_ = false;
    bool hojaNuevaPendiente_ = false;
    int paginasPendientes_ = 0;
    int hojas_ = 0;
};

struct OpcionesPdf {
    QString titulo;
    QPageSize tamano = QPageSize(QPageSize::A4);
    QPageLayout::Orientation orientacion = QPageLayout::Portrait;
    int copias = 1;
};

// Draws a book into a PDF file (no margins: X = 0 is the sheet's edge). Returns the number of
// sheets written; with none, no file is made. Throws ErrorQuilmar when the file cannot be
// written; an exception of the drawing leaves no file behind.
int ImprimirPdf(const QString& ruta, const DibujoLibro& dibujar, const OpcionesPdf& opciones = {});

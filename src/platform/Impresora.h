#pragma once
// The printing surface every book draws on: absolute positions in twips (1440 per inch,
// 1 mm = 56.7 twips), a pen, a font, text, lines and pages.
//
// Usage (a book's drawing routine, the same code for paper, PDF and tests):
//     void Dibujar(Impresora& imp, int copia) {
//         imp.PonerFuente(QStringLiteral("Arial Narrow"));   // resolves to Liberation Sans Narrow
//         imp.PonerTamano(9 + 6);
//         imp.PonerNegrita(true);
//         imp.IrA(600, 500);
//         imp.Escribir(QStringLiteral("LIBRO DIARIO"));      // pen: left edge, next line
//         imp.Linea(600, imp.Y(), imp.AnchoPagina() - 600, imp.Y());
//         imp.EscribirADerecha(Formato(total, "standard"), imp.AnchoPagina() - 1000);
//         const QString corto = imp.RecortarTexto(concepto, anchoColumna - 200);
//         if (imp.Y() >= imp.AltoPagina() - 2150) imp.NuevaPagina();  // Pagina() counts up
//         ...
//         imp.FinDocumento();                                // Pagina() is 1 again
//     }
// Backends: ImpresoraPintor.h (QPainter on a PDF writer or a printer; ImprimirPdf does a whole
// PDF run), ImpresoraGrabadora.h (keeps every call, for tests), and on the desktop
// forms/ImprimirLibro.h (preview, printer dialog, copies).
//
// The pen Y is the top of the line of text. A write draws at the pen and then moves the pen to
// the left edge (BordeIzquierdo, 0 unless set) of the next line, AltoLinea() lower; a continued
// write leaves the pen just after the text on the same line. Widths are those of the real font
// at the surface's scale, the same in every backend, so cuts and alignments in a test are those
// of the paper. "Arial", "Arial Narrow", "Courier New" (and "Times New Roman") are drawn and
// measured with their metric-compatible Liberation fonts.

#include <QFont>
#include <QFontMetricsF>
#include <QRawFont>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

constexpr double TwipsPorMm = 56.7;
// An A4 sheet with no margins, in twips: the page of ImprimirPdf and the default of the
// recording surface.
inline const QSizeF PaginaA4(11900, 16840);

// The family that draws a font name: the Liberation equivalents of the usual Windows fonts.
QString FamiliaImpresion(const QString& nombre);
// The font a surface draws with: size in points, scaled to twips (a 9-point font is 180 twips
// high), without kerning or hinting so widths are the font's own design widths.
QFont FuenteImpresion(const QString& nombre, double puntos, bool negrita);
// Width in twips of a text in a font, without a surface (e.g. to pad figures in a document).
double AnchoTextoImpresion(const QString& texto, const QString& fuente, double puntos,
                           bool negrita = false);
// Font names for a font box: the installed families plus "Arial", "Arial Narrow" and
// "Courier New", sorted.
QStringList FuentesImpresion();

class QPainter;

class Impresora {
public:
    virtual ~Impresora();
    Impresora(const Impresora&) = delete;
    Impresora& operator=(const Impresora&) = delete;

    // Size of the printable page, in twips: a printer's printable area (X = 0 is its left edge),
    // the whole sheet in a PDF and on the recording surface.
    double AnchoPagina() const { return pagina_.width(); }
    double AltoPagina() const { return pagina_.height(); }

    void PonerFuente(const QString& nombre);
    void PonerTamano(double puntos);
    void PonerNegrita(bool negrita);
    QString Fuente() const { return fuente_; }
    double Tamano() const { return tamano_; }
    bool Negrita() const { return negrita_; }
    // The Qt font in use (a Liberation family when the name is one of the usual Windows fonts).
    const QFont& FuenteQt() const { return qfont_; }

    double X() const { return x_; }
    double Y() const { return y_; }
    void PonerX(double x) { x_ = x; }
    void PonerY(double y) { y_ = y; }
    void IrA(double x, double y) {
        x_ = x;
        y_ = y;
    }
    // Where a write that ends its line puts the pen X: 0 unless set.
    double BordeIzquierdo() const { return borde_; }
    void PonerBordeIzquierdo(double x) { borde_ = x; }

    // Writes at the pen and ends the line: pen to the left edge, AltoLinea() lower.
    void Escribir(const QString& texto);
    // Writes at the pen and leaves the pen after the text, on the same line.
    void EscribirSeguido(const QString& texto);
    // Continued write that ends at the given X (right-aligned figures).
    void EscribirADerecha(const QString& texto, double derecha);
    double AnchoTexto(const QString& texto) const;
    // Height of a line of text in the current font (what a write moves the pen down).
    double AltoLinea() const;
    // The longest left part of the text whose width is not over the given width.
    QString RecortarTexto(const QString& texto, double ancho) const;

    // A straight line; the pen does not move.
    void Linea(double x1, double y1, double x2, double y2);
    // A picture the caller paints itself (a chart) into a rectangle of the page, in twips; the
    // painter is scaled to twips. The pen does not move.
    using DibujoFigura = std::function<void(QPainter&, const QRectF&)>;
    void Figura(const QRectF& rectangulo, const DibujoFigura& dibujo);

    // Ends the page: the next drawing goes on a new one. The pen goes to (left edge, 0).
    void NuevaPagina();
    // Ends the document. The next drawing starts another document, on a new sheet, whose first
    // page is number 1 again. A document where nothing was drawn leaves no sheet.
    void FinDocumento();
    // Number of the current page, from 1 in each document.
    int Pagina() const { return pagina_n_; }
    // Number of the current document, from 1.
    int Documento() const { return documento_; }

protected:
    explicit Impresora(QSizeF paginaTwips);
    // What each backend does; the base has already moved nothing when these are called.
    virtual void dibujarTexto(double x, double y, const QString& texto, double ancho,
                              bool seguido) = 0;
    virtual void dibujarLinea(double x1, double y1, double x2, double y2) = 0;
    // A surface without a painter draws no pictures.
    virtual void dibujarFigura(const QRectF& rectangulo, const DibujoFigura& dibujo);
    virtual void alNuevaPagina() = 0;
    virtual void alFinDocumento() = 0;
    // Distance from the top of a line to the baseline of its text, in the current font.
    double Ascenso() const { return metricas_->ascent(); }
    // The glyphs of a text in the current font and the pen offset of each from the start, read
    // straight from the font: the fonts are used without kerning or ligatures, so this is the
    // layout Qt would make, at a fraction of its cost (a book prints millions of texts). False
    // when the font lacks a glyph: the text then goes through Qt's layout, with font fallback.
    bool GlifosTexto(const QString& texto, QList<quint32>& glifos, QList<QPointF>& posiciones,
                     double* ancho = nullptr) const;
    const QRawFont& FuenteCruda() const { return crudo_; }

private:
    void actualizarFuente();
    void escribir(const QString& texto, bool seguido);

    QSizeF pagina_;
    QString fuente_ = QStringLiteral("Arial");
    double tamano_ = 9;
    bool negrita_ = false;
    QFont qfont_;
    std::optional<QFontMetricsF> metricas_;
    QRawFont crudo_;
    double x_ = 0, y_ = 0, borde_ = 0;
    int pagina_n_ = 1;
    int documento_ = 1;
};

// The drawing of a book: called once per copy (copia from 1). It may be called again for the
// same copy (a preview, then the printer), so it must start from its own initial state.
using DibujoLibro = std::function<void(Impresora&, int copia)>;

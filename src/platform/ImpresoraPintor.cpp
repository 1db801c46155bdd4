#include "platform/ImpresoraPintor.h"

#include "platform/Errores.h"

#include <QFile>
#include <QGlyphRun>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

namespace {
// Rules are drawn half a point wide, a fine line on paper and on screen.
constexpr double GrosorLinea = 10;

QSizeF PaginaDe(const QPagedPaintDevice* d) {
    return QSizeF(d->width() * 1440.0 / d->logicalDpiX(), d->height() * 1440.0 / d->logicalDpiY());
}
} // namespace

ImpresoraPintor::ImpresoraPintor(QPagedPaintDevice* dispositivo, const QString& salida)
    : Impresora(PaginaDe(dispositivo)), dispositivo_(dispositivo), salida_(salida) {}

ImpresoraPintor::~ImpresoraPintor() {
    if (pintor_ && pintor_->isActive())
        pintor_->end();
}

void ImpresoraPintor::Terminar() {
    if (pintor_ && pintor_->isActive())
        pintor_->end();
    pintor_.reset();
}

QPainter& ImpresoraPintor::pintor() {
    if (!pintor_) {
        pintor_ = std::make_unique<QPainter>();
        if (!pintor_->begin(dispositivo_)) {
            pintor_.reset();
            throw ErrorQuilmar(QStringLiteral("No se pudo abrir %1 para imprimir.").arg(salida_));
        }
        pintor_->scale(dispositivo_->logicalDpiX() / 1440.0, dispositivo_->logicalDpiY() / 1440.0);
        hojas_ = 1;
    }
    // Sheets owed by ended documents and pages are taken only when something is drawn on
    // them, so that a book never leaves a blank sheet at its end.
    if (hojaNuevaPendiente_ || paginasPendientes_ > 0) {
        const int saltos = paginasPendientes_ + (hojaNuevaPendiente_ ? 1 : 0);
        for (int i = 0; i < saltos; ++i) {
            dispositivo_->newPage();
            ++hojas_;
        }
        hojaNuevaPendiente_ = false;
        paginasPendientes_ = 0;
    }
    dibujadoEnDocumento_ = true;
    return *pintor_;
}

void ImpresoraPintor::dibujarTexto(double x, double y, const QString& texto, double, bool) {
    QPainter& p = pintor();
    p.setPen(Qt::black);
    // The glyphs straight from the font when it has them all: the same drawing, without
    // Qt's text layout, which would cost most of a long book's time.
    QList<quint32> glifos;
    QList<QPointF> posiciones;
    if (GlifosTexto(texto, glifos, posiciones)) {
        QGlyphRun tira;
        tira.setRawFont(FuenteCruda());
        tira.setGlyphIndexes(glifos);
        tira.setPositions(posiciones);
        p.drawGlyphRun(QPointF(x, y + Ascenso()), tira);
        return;
    }
    if (p.font() != FuenteQt())
        p.setFont(FuenteQt());
    p.drawText(QPointF(x, y + Ascenso()), texto);
}

void ImpresoraPintor::dibujarLinea(double x1, double y1, double x2, double y2) {
    QPainter& p = pintor();
    p.setPen(QPen(Qt::black, GrosorLinea, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void ImpresoraPintor::dibujarFigura(const QRectF& rectangulo, const DibujoFigura& dibujo) {
    QPainter& p = pintor();
    p.save();
    dibujo(p, rectangulo);
    p.restore();
}

void ImpresoraPintor::alNuevaPagina() {
    ++paginasPendientes_;
}

void ImpresoraPintor::alFinDocumento() {
    paginasPendientes_ = 0;
    if (dibujadoEnDocumento_)
        hojaNuevaPendiente_ = true;
    dibujadoEnDocumento_ = false;
}

int ImprimirPdf(const QString& ruta, const DibujoLibro& dibujar, const OpcionesPdf& opciones) {
    QPdfWriter pdf(ruta);
    pdf.setResolution(1440);
    pdf.setPageLayout(QPageLayout(opciones.tamano, opciones.orientacion, QMarginsF(0, 0, 0, 0)));
    pdf.setCreator(QStringLiteral("Quilmar"));
    pdf.setTitle(opciones.titulo);
    ImpresoraPintor imp(&pdf, ruta);
    try {
        for (int copia = 1; copia <= opciones.copias; ++copia)
            dibujar(imp, copia);
        imp.Terminar();
    } catch (...) {
        imp.Terminar();
        // Only a file this run began is removed; an untouched one stays as it was.
        if (imp.HojasEmitidas() > 0)
            QFile::remove(ruta);
        throw;
    }
    return imp.HojasEmitidas();
}

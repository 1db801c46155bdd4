#include "platform/forms/ImprimirLibro.h"

#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"
#include "platform/ImpresoraPintor.h"
#include "platform/forms/DialogoVentanas.h"
#include "platform/forms/Iconos.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <optional>

VistaPrevia::VistaPrevia(QPrinter* impresora, DibujoLibro dibujar, const QString& titulo,
                         QWidget* padre)
    : QDialog(padre), impresora_(impresora), dibujar_(std::move(dibujar)), titulo_(titulo),
      vista_(new QPrintPreviewWidget(impresora, this)), pagina_(new QLabel(this)) {
    setWindowTitle(QStringLiteral("Quilmar [Vista preliminar%1]")
                       .arg(titulo.isEmpty() ? QString() : QStringLiteral(" - ") + titulo));
    auto* barra = new QToolBar(this);
    // Actions with a picture show only the picture (their name is the tooltip); the rest, text.
    barra->setToolButtonStyle(Qt::ToolButtonFollowStyle);
    auto accion = [&](const QString& texto, std::optional<Accion> dibujo, auto receptor,
                      auto funcion) {
        QAction* a = barra->addAction(texto, receptor, funcion);
        a->setToolTip(QString(texto).remove(u'&'));
        if (dibujo)
            PonerIcono(a, *dibujo);
        return a;
    };
    accion(QStringLiteral("&Imprimir..."), Accion::Imprimir, this, &VistaPrevia::imprimir);
    accion(QStringLiteral("Guardar como &PDF..."), std::nullopt, this, &VistaPrevia::elegirPdf);
    barra->addSeparator();
    accion(QStringLiteral("Primera página"), Accion::PrimeraPagina, this,
           [this] { vista_->setCurrentPage(1); });
    accion(QStringLiteral("Página anterior"), Accion::PaginaAnterior, this,
           [this] { vista_->setCurrentPage(vista_->currentPage() - 1); });
    accion(QStringLiteral("Página siguiente"), Accion::PaginaSiguiente, this,
           [this] { vista_->setCurrentPage(vista_->currentPage() + 1); });
    accion(QStringLiteral("Última página"), Accion::UltimaPagina, this,
           [this] { vista_->setCurrentPage(vista_->pageCount()); });
    barra->addWidget(pagina_);
    barra->addSeparator();
    accion(QStringLiteral("Acercar"), std::nullopt, vista_, [this] { vista_->zoomIn(); });
    accion(QStringLiteral("Alejar"), std::nullopt, vista_, [this] { vista_->zoomOut(); });
    accion(QStringLiteral("Página entera"), std::nullopt, vista_, &QPrintPreviewWidget::fitInView);
    accion(QStringLiteral("Ancho de página"), std::nullopt, vista_,
           &QPrintPreviewWidget::fitToWidth);
    barra->addSeparator();
    accion(QStringLiteral("&Cerrar"), Accion::Cerrar, this, &QDialog::reject);

    auto* capas = new QVBoxLayout(this);
    capas->setContentsMargins(0, 0, 0, 0);
    capas->setSpacing(0);
    capas->addWidget(barra);
    capas->addWidget(vista_, 1);
    connect(vista_, &QPrintPreviewWidget::paintRequested, this, &VistaPrevia::pintar);
    connect(vista_, &QPrintPreviewWidget::previewChanged, this, &VistaPrevia::mostrarPagina);
    vista_->setZoomMode(QPrintPreviewWidget::FitToWidth);
    resize(900, 1000);
    vista_->updatePreview();
    mostrarPagina();
}

VistaPrevia::~VistaPrevia() = default;

int VistaPrevia::paginas() const {
    return vista_->pageCount();
}

void VistaPrevia::mostrarPagina() {
    // The count only: the current page changes with scrolling, which the widget doesn't tell.
    pagina_->setText(vista_->pageCount() == 1
                         ? QStringLiteral("  1 página  ")
                         : QStringLiteral("  %1 páginas  ").arg(vista_->pageCount()));
}

void VistaPrevia::pintar(QPrinter* impresora) {
    // The preview shows the first copy.
    try {
        ImpresoraPintor imp(impresora, titulo_);
        dibujar_(imp, 1);
        imp.Terminar();
    } catch (const ErrorQuilmar&) {
        // A book's failure ends its drawing without a message; what was drawn stays on view.
    }
}

void VistaPrevia::imprimir() {
    if (impresora_->outputFileName().isEmpty() && QPrinterInfo::availablePrinterNames().isEmpty()) {
        DialogoVentanas(this).Informar(
            QStringLiteral("No hay ninguna impresora instalada. Puede guardar el libro como PDF."));
        return;
    }
    QPrintDialog dialogo(impresora_, this);
    dialogo.setWindowTitle(QStringLiteral("Imprimir"));
    // No page range, no selection, no print to file: the book is printed whole, on paper.
    dialogo.setOptions(QAbstractPrintDialog::PrintShowPageSize);
    if (dialogo.exec() != QDialog::Accepted)
        return;
    if (imprimirCopias(qMax(1, impresora_->copyCount())))
        accept();
}

bool VistaPrevia::imprimirCopias(int copias) {
    // The book draws each copy itself.
    impresora_->setCopyCount(1);
    impresora_->setDocName(titulo_.isEmpty() ? QStringLiteral("Quilmar") : titulo_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        ImpresoraPintor imp(impresora_,
                            QStringLiteral("la impresora ") + impresora_->printerName());
        for (int copia = 1; copia <= copias; ++copia)
            dibujar_(imp, copia);
        imp.Terminar();
        copias_ = imp.HojasEmitidas() > 0 ? copias : 0;
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        DialogoVentanas(this).Informar(e.mensaje());
        return false;
    }
    QApplication::restoreOverrideCursor();
    return true;
}

void VistaPrevia::elegirPdf() {
    const QString ruta = QFileDialog::getSaveFileName(
        this, QStringLiteral("Guardar como PDF"), QString(),
        QStringLiteral("Documento PDF (*.pdf)"), nullptr, QFileDialog::DontConfirmOverwrite);
    if (ruta.isEmpty())
        return;
    guardarPdf(ruta.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)
                   ? ruta
                   : ruta + QStringLiteral(".pdf"));
}

bool VistaPrevia::guardarPdf(const QString& ruta) {
    DialogoVentanas dialogo(this);
    if (QFileInfo::exists(ruta) && !dialogo.Preguntar(PreguntaSustituir))
        return false;
    OpcionesPdf opciones;
    opciones.titulo = titulo_;
    opciones.tamano = impresora_->pageLayout().pageSize();
    opciones.orientacion = impresora_->pageLayout().orientation();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        const int hojas = ImprimirPdf(ruta, dibujar_, opciones);
        QApplication::restoreOverrideCursor();
        return hojas > 0;
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        dialogo.Informar(e.mensaje());
        return false;
    }
}

int ImprimirLibro(QWidget* padre, const DibujoLibro& dibujar, const OpcionesImpresion& opciones) {
    QPrinter impresora(QPrinter::HighResolution);
    const QString nombre = opciones.impresora.trimmed();
    if (!nombre.isEmpty() && nombre != QStringLiteral("Predeterminada del sistema") &&
        QPrinterInfo::availablePrinterNames().contains(nombre))
        impresora.setPrinterName(nombre);
    impresora.setPageOrientation(opciones.orientacion);
    impresora.setDocName(opciones.titulo);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    VistaPrevia vista(&impresora, dibujar, opciones.titulo, padre);
    QApplication::restoreOverrideCursor();
    // An empty book prints nothing at all.
    if (vista.paginas() == 0)
        return 0;
    vista.exec();
    return vista.copiasImpresas();
}

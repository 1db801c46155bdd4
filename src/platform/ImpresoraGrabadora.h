#pragma once
// The recording printing surface, for tests: it keeps every call with its coordinates, font and
// page, and measures text with the same real fonts as the paper.
//
// Usage:
//     ImpresoraGrabadora imp;            // an A4 sheet, as ImprimirPdf draws
//     Dibujar(imp, 1);
//     const Trazo* t = imp.buscar(QStringLiteral("Suma y sigue . . ."));
//     ASSERT_TRUE(t) << imp.volcado().toStdString();
//     EXPECT_EQ(t->pagina, 1);
//     EXPECT_DOUBLE_EQ(t->x, 4000);
//     EXPECT_TRUE(t->negrita);
//     EXPECT_EQ(imp.paginas(), 3);
//     EXPECT_EQ(imp.textosDePagina(2).first(), QStringLiteral("LIBRO DIARIO"));

#include "platform/Impresora.h"

// One call kept by the recording surface.
struct Trazo {
    enum Tipo { Texto, Linea, NuevaPagina, FinDocumento, Figura };
    Tipo tipo = Texto;
    int documento = 1;     // from 1
    int pagina = 1;        // from 1 in each document: the page the call was made on
    double x = 0, y = 0;   // text: the pen where it was written (Y is the top of the line)
    double x2 = 0, y2 = 0; // line: the other end; picture: its bottom right corner
    double ancho = 0;      // text: its width
    QString texto;
    QString fuente;
    double tamano = 0;
    bool negrita = false;
    bool seguido = false; // a continued write
};

class ImpresoraGrabadora : public Impresora {
public:
    explicit ImpresoraGrabadora(QSizeF paginaTwips = PaginaA4);

    const QList<Trazo>& trazos() const { return trazos_; }
    // Only the writes, in order.
    QList<Trazo> textos() const;
    // The n-th write (from 1) of exactly this text, or null.
    const Trazo* buscar(const QString& texto, int aparicion = 1) const;
    // The texts written on one page of one document, in order.
    QStringList textosDePagina(int pagina, int documento = 1) const;
    // How many pages a document has: its last page with any drawing, or 0 when none.
    int paginas(int documento = 1) const;
    // How many documents were ended.
    int documentosTerminados() const;
    // One line per call, to show in a failing test.
    QString volcado() const;

protected:
    void dibujarTexto(double x, double y, const QString& texto, double ancho,
                      bool seguido) override;
    void dibujarLinea(double x1, double y1, double x2, double y2) override;
    void dibujarFigura(const QRectF& rectangulo, const DibujoFigura& dibujo) override;
    void alNuevaPagina() override;
    void alFinDocumento() override;

private:
    Trazo nuevo(Trazo::Tipo tipo) const;
    QList<Trazo> trazos_;
};

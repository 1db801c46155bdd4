// The printing surface: fonts and their widths, the pen, pages and documents, cuts, and the PDF
// that the same drawing makes.

#include "ImprimirQt.h"
#include "platform/Errores.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/ImpresoraPintor.h"

#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QImage>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// Advance widths of the Windows fonts, in units of 2048 per em, as published in their metrics
// tables; their Liberation equivalents must match them glyph for glyph.
constexpr double DigitoArial = 1139, WArial = 1933, iArial = 455, DigitoNarrow = 934,
                 LetraCourier = 1229;
// 9 points are 180 twips.
double Twips9(double unidades) {
    return unidades / 2048.0 * 180.0;
}

QString Ejecutar(const QString& programa, const QStringList& argumentos) {
    QProcess p;
    p.start(programa, argumentos);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

bool Hay(const char* programa) {
    return !QStandardPaths::findExecutable(QLatin1String(programa)).isEmpty();
}

} // namespace

TEST(Impresora, FuentesDeWindowsSeDibujanConSusEquivalentesLiberation) {
    const struct {
        const char* nombre;
        const char* familia;
    } casos[] = {{"Arial", "Liberation Sans"},
                 {"arial narrow", "Liberation Sans Narrow"},
                 {"Courier New", "Liberation Mono"}};
    for (const auto& c : casos)
        for (bool negrita : {false, true}) {
            const QFontInfo info(FuenteImpresion(QLatin1String(c.nombre), 9, negrita));
            EXPECT_EQ(info.family(), QLatin1String(c.familia)) << c.nombre;
            EXPECT_EQ(info.bold(), negrita) << c.nombre;
        }

    // The widths are the original fonts' widths.
    ImpresoraGrabadora imp;
    imp.PonerFuente(QStringLiteral("Arial"));
    imp.PonerTamano(9);
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("0123456789")), 10 * Twips9(DigitoArial), 0.5);
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("W")), Twips9(WArial), 0.05);
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("i")), Twips9(iArial), 0.05);
    // No kerning: "AV" is the sum of its letters, as the Windows surface measures it.
    EXPECT_DOUBLE_EQ(imp.AnchoTexto(QStringLiteral("AV")),
                     imp.AnchoTexto(QStringLiteral("A")) + imp.AnchoTexto(QStringLiteral("V")));
    imp.PonerFuente(QStringLiteral("Arial Narrow"));
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("0123456789")), 10 * Twips9(DigitoNarrow), 0.5);
    imp.PonerFuente(QStringLiteral("Courier New"));
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("Wi.")), 3 * Twips9(LetraCourier), 0.1);
    // The size scales the width; bold Arial is wider than regular except in its figures.
    imp.PonerFuente(QStringLiteral("Arial"));
    imp.PonerTamano(18);
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("0123456789")), 20 * Twips9(DigitoArial), 1);
    imp.PonerNegrita(true);
    EXPECT_NEAR(imp.AnchoTexto(QStringLiteral("0123456789")), 20 * Twips9(DigitoArial), 1);
    EXPECT_GT(imp.AnchoTexto(QStringLiteral("Diario")),
              AnchoTextoImpresion(QStringLiteral("Diario"), QStringLiteral("Arial"), 18, false));

    EXPECT_TRUE(FuentesImpresion().contains(QStringLiteral("Arial Narrow")));
    EXPECT_TRUE(FuentesImpresion().contains(QStringLiteral("Liberation Sans")));
}

TEST(Impresora, RecortarTextoConLasMedidasReales) {
    ImpresoraGrabadora imp;
    imp.PonerFuente(QStringLiteral("Arial"));
    imp.PonerTamano(9);
    // Each figure is 100.1 twips wide: five are 500.5.
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("1234567890"), 500), QStringLiteral("1234"));
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("1234567890"), 501), QStringLiteral("12345"));
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("1234567890"), 5000), QStringLiteral("1234567890"));
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("1234567890"), 0), QString());
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("1234567890"), -200), QString());
    // Narrow letters then a wide one: four i are 160 twips, the W would make 330.
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("iiiiW"), 200), QStringLiteral("iiii"));
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("iiiiW"), 330), QStringLiteral("iiiiW"));
    imp.PonerFuente(QStringLiteral("Courier New"));
    EXPECT_EQ(imp.RecortarTexto(QStringLiteral("ABCDEFGH"), 500), QStringLiteral("ABCD"));

    // At every width the cut fits, one more character would not, and no character is split.
    imp.PonerFuente(QStringLiteral("Arial Narrow"));
    const QString concepto = QStringLiteral("Factura nº 2024/117 de Ñandú 😀 y Cía., S.L.");
    const double total = imp.AnchoTexto(concepto);
    for (double ancho = 0; ancho <= total + 50; ancho += 7) {
        const QString corte = imp.RecortarTexto(concepto, ancho);
        ASSERT_TRUE(concepto.startsWith(corte));
        ASSERT_LE(imp.AnchoTexto(corte), ancho);
        if (corte.size() < concepto.size()) {
            qsizetype siguiente = corte.size() + 1;
            if (concepto.at(corte.size()).isHighSurrogate())
                ++siguiente;
            ASSERT_GT(imp.AnchoTexto(concepto.left(siguiente)), ancho) << ancho;
        }
        ASSERT_FALSE(!corte.isEmpty() && corte.back().isHighSurrogate());
    }
}

TEST(Impresora, PlumaAlEscribirSeguidoYADerecha) {
    ImpresoraGrabadora imp;
    imp.PonerFuente(QStringLiteral("Arial"));
    imp.PonerTamano(9);
    // A line of Arial is its ascent, descent and line gap: 2355 units of 2048.
    EXPECT_NEAR(imp.AltoLinea(), Twips9(2355), 0.1);
    const double alto = imp.AltoLinea();

    imp.IrA(600, 500);
    imp.EscribirSeguido(QStringLiteral("Asiento nº "));
    const double ancho = imp.AnchoTexto(QStringLiteral("Asiento nº "));
    EXPECT_DOUBLE_EQ(imp.X(), 600 + ancho);
    EXPECT_DOUBLE_EQ(imp.Y(), 500);
    imp.Escribir(QStringLiteral("1.234"));
    EXPECT_DOUBLE_EQ(imp.X(), 0); // the left edge of the surface
    EXPECT_DOUBLE_EQ(imp.Y(), 500 + alto);
    imp.PonerBordeIzquierdo(600);
    imp.Escribir(QStringLiteral("Sector: A"));
    EXPECT_DOUBLE_EQ(imp.X(), 600);
    EXPECT_DOUBLE_EQ(imp.Y(), 500 + 2 * alto);
    imp.Escribir(QString()); // an empty write is a line feed
    EXPECT_DOUBLE_EQ(imp.Y(), 500 + 3 * alto);
    imp.PonerNegrita(true);
    imp.PonerTamano(12);
    imp.EscribirADerecha(QStringLiteral("1.234,56"), 9000);
    EXPECT_DOUBLE_EQ(imp.X(), 9000);

    const QList<Trazo> t = imp.textos();
    ASSERT_EQ(t.size(), 4) << imp.volcado().toStdString();
    EXPECT_EQ(t[0].texto, QStringLiteral("Asiento nº "));
    EXPECT_TRUE(t[0].seguido);
    EXPECT_DOUBLE_EQ(t[1].x, 600 + ancho);
    EXPECT_DOUBLE_EQ(t[1].y, 500);
    EXPECT_FALSE(t[1].seguido);
    EXPECT_DOUBLE_EQ(t[2].x, 0);
    EXPECT_DOUBLE_EQ(t[2].y, 500 + alto);
    EXPECT_TRUE(t[3].negrita);
    EXPECT_EQ(t[3].tamano, 12);
    EXPECT_DOUBLE_EQ(t[3].x + t[3].ancho, 9000);
    EXPECT_EQ(t[3].fuente, QStringLiteral("Arial"));
}

TEST(Impresora, PaginasYDocumentos) {
    ImpresoraGrabadora imp;
    EXPECT_EQ(imp.Pagina(), 1);
    imp.IrA(600, 500);
    imp.Escribir(QStringLiteral("uno"));
    imp.NuevaPagina();
    EXPECT_EQ(imp.Pagina(), 2);
    EXPECT_DOUBLE_EQ(imp.Y(), 0);
    imp.Escribir(QStringLiteral("dos"));
    imp.Linea(0, 10, 100, 10);
    imp.NuevaPagina();
    imp.Escribir(QStringLiteral("tres"));
    EXPECT_EQ(imp.Pagina(), 3);
    imp.FinDocumento();
    EXPECT_EQ(imp.Pagina(), 1);
    EXPECT_EQ(imp.Documento(), 2);
    imp.Escribir(QStringLiteral("otra copia"));
    imp.NuevaPagina();
    imp.Escribir(QStringLiteral("su segunda"));
    imp.FinDocumento();

    EXPECT_EQ(imp.paginas(1), 3);
    EXPECT_EQ(imp.paginas(2), 2);
    EXPECT_EQ(imp.documentosTerminados(), 2);
    EXPECT_EQ(imp.textosDePagina(2), QStringList{QStringLiteral("dos")});
    EXPECT_EQ(imp.textosDePagina(1, 2), QStringList{QStringLiteral("otra copia")});
    EXPECT_EQ(imp.textosDePagina(2, 2), QStringList{QStringLiteral("su segunda")});
    const Trazo* dos = imp.buscar(QStringLiteral("dos"));
    ASSERT_TRUE(dos);
    EXPECT_EQ(dos->pagina, 2);
    EXPECT_EQ(imp.buscar(QStringLiteral("dos"), 2), nullptr);
    EXPECT_TRUE(imp.volcado().contains(QStringLiteral("d1 p2 linea (0, 10) - (100, 10)")));
}

namespace {

// A page shaped like a book's, for the PDF checks and for looking at.
void PaginaDeMuestra(Impresora& imp, int copia) {
    const double W = imp.AnchoPagina();
    for (int pagina = 1; pagina <= 2; ++pagina) {
        imp.PonerFuente(QStringLiteral("Arial Narrow"));
        imp.PonerTamano(15);
        imp.PonerNegrita(true);
        imp.IrA(600, 500);
        imp.Escribir(QStringLiteral("LIBRO DIARIO"));
        imp.Linea(600, imp.Y(), W - 600, imp.Y());
        imp.PonerTamano(9);
        imp.PonerNegrita(false);
        imp.IrA(600, 1200);
        imp.EscribirSeguido(QStringLiteral("Copia %1, página ").arg(copia));
        imp.Escribir(QString::number(imp.Pagina()));
        imp.PonerFuente(QStringLiteral("Courier New"));
        imp.IrA(600, 1600);
        imp.Escribir(imp.RecortarTexto(
            QStringLiteral("Concepto muy largo que no cabe en su columna"), 3000));
        imp.PonerFuente(QStringLiteral("Arial"));
        imp.PonerY(1600);
        imp.EscribirADerecha(QStringLiteral("1.234.567,89"), W - 1000);
        if (pagina == 1)
            imp.NuevaPagina();
    }
    imp.FinDocumento();
}

} // namespace

TEST(Impresora, PdfConLasMismasPosicionesYFuentes) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("muestra.pdf"));
    double ancho = 0, alto = 0;
    const int hojas = ImprimirPdf(
        ruta,
        [&](Impresora& imp, int copia) {
            ancho = imp.AnchoPagina();
            alto = imp.AltoPagina();
            PaginaDeMuestra(imp, copia);
        },
        OpcionesPdf{QStringLiteral("Muestra"), QPageSize(QPageSize::A4), QPageLayout::Portrait, 2});
    EXPECT_EQ(hojas, 4);
    // The recording surface's default page is the PDF's page.
    EXPECT_NEAR(ancho, PaginaA4.width(), 1);
    EXPECT_NEAR(alto, PaginaA4.height(), 1);
    ASSERT_TRUE(QFile::exists(ruta));

    if (!Hay("pdfinfo") || !Hay("pdffonts") || !Hay("pdftotext") || !Hay("pdftoppm"))
        GTEST_SKIP() << "poppler-utils no está instalado";
    EXPECT_TRUE(Ejecutar(QStringLiteral("pdfinfo"), {ruta})
                    .contains(QRegularExpression(QStringLiteral("Pages:\\s+4\\n"))));
    // Every font drawn is a Liberation face: the names given were all Windows names.
    const QString fuentes = Ejecutar(QStringLiteral("pdffonts"), {ruta});
    QStringList nombres;
    for (const QString& linea : fuentes.split(u'\n').mid(2))
        if (!linea.trimmed().isEmpty())
            nombres << linea.section(u' ', 0, 0);
    nombres.sort();
    EXPECT_EQ(nombres,
              (QStringList{QStringLiteral("LiberationMono"), QStringLiteral("LiberationSans"),
                           QStringLiteral("LiberationSansNarrow"),
                           QStringLiteral("LiberationSansNarrow-Bold")}))
        << fuentes.toStdString();

    // Word boxes in points (20 twips): the title starts at X 600, the figure ends at W - 1000,
    // and the copy and page numbers are those drawn.
    const QString cajas =
        Ejecutar(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), ruta, QStringLiteral("-")});
    auto caja = [&](const QString& palabra, int aparicion) {
        QRegularExpression re(QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" "
                                             "xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">") +
                              QRegularExpression::escape(palabra) + QStringLiteral("</word>"));
        auto it = re.globalMatch(cajas);
        QRegularExpressionMatch m;
        for (int i = 0; i < aparicion && it.hasNext(); ++i)
            m = it.next();
        return m.hasMatch() ? QRectF(QPointF(m.captured(1).toDouble(), m.captured(2).toDouble()),
                                     QPointF(m.captured(3).toDouble(), m.captured(4).toDouble()))
                            : QRectF();
    };
    const QRectF titulo = caja(QStringLiteral("LIBRO"), 1);
    ASSERT_FALSE(titulo.isNull()) << cajas.toStdString();
    EXPECT_NEAR(titulo.left(), 600 / 20.0, 0.5);
    EXPECT_NEAR(titulo.top(), 500 / 20.0, 2);
    const QRectF cifra = caja(QStringLiteral("1.234.567,89"), 1);
    EXPECT_NEAR(cifra.right(), (ancho - 1000) / 20.0, 0.5);
    const QRectF cortado = caja(QStringLiteral("columna"), 1);
    EXPECT_TRUE(cortado.isNull()) << "the cut text reached the PDF whole";
    EXPECT_TRUE(cajas.contains(QStringLiteral(">Copia</word>")));
    EXPECT_FALSE(caja(QStringLiteral("2,"), 2).isNull()); // "Copia 2," on the second copy

    // Rendered at 72 dpi a pixel is a point: the rule under the title is ink, the margin is not.
    ASSERT_EQ(QProcess::execute(QStringLiteral("pdftoppm"),
                                {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("72"),
                                 QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"),
                                 QStringLiteral("1"), ruta, dir.filePath(QStringLiteral("p"))}),
              0);
    QImage png(dir.filePath(QStringLiteral("p-1.png")));
    ASSERT_FALSE(png.isNull());
    EXPECT_EQ(png.width(), 595);
    auto oscuro = [&](int x, int y) {
        return qGray(png.pixel(x, y)) < 128;
    };
    int tinta = 0;
    for (int y = int(titulo.bottom()); y < int(titulo.bottom()) + 8; ++y)
        tinta += oscuro(300, y);
    EXPECT_GT(tinta, 0) << "no rule under the title";
    for (int y = 0; y < png.height(); ++y)
        ASSERT_FALSE(oscuro(10, y)) << "ink in the left margin at " << y;

    // For a person to look at: QUILMAR_MUESTRAS=/some/folder keeps the PDF there.
    const QByteArray muestras = qgetenv("QUILMAR_MUESTRAS");
    if (!muestras.isEmpty()) {
        QDir().mkpath(QString::fromLocal8Bit(muestras));
        const QString destino = QDir(QString::fromLocal8Bit(muestras)).filePath("impresora.pdf");
        QFile::remove(destino);
        QFile::copy(ruta, destino);
    }
}

TEST(Impresora, PdfVacioSinHojaEnBlancoNiArchivo) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("vacio.pdf"));
    // A book with no rows: nothing drawn, no file.
    EXPECT_EQ(ImprimirPdf(ruta,
                          [](Impresora& imp, int) {
                              imp.NuevaPagina();
                              imp.FinDocumento();
                          }),
              0);
    EXPECT_FALSE(QFile::exists(ruta));

    // A page ended with nothing after it leaves no blank sheet; neither does an empty copy.
    const QString otra = dir.filePath(QStringLiteral("una.pdf"));
    EXPECT_EQ(ImprimirPdf(
                  otra,
                  [](Impresora& imp, int copia) {
                      if (copia == 2)
                          imp.Escribir(QStringLiteral("texto"));
                      imp.NuevaPagina();
                      imp.FinDocumento();
                  },
                  OpcionesPdf{{}, QPageSize(QPageSize::A4), QPageLayout::Portrait, 3}),
              1);
    EXPECT_TRUE(QFile::exists(otra));
}

TEST(Impresora, PdfConFalloNoDejaArchivoAMedias) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("roto.pdf"));
    EXPECT_THROW(ImprimirPdf(ruta,
                             [](Impresora& imp, int) {
                                 imp.Escribir(QStringLiteral("primera línea"));
                                 throw ErrorQuilmar(QStringLiteral("fallo del libro"));
                             }),
                 ErrorQuilmar);
    EXPECT_FALSE(QFile::exists(ruta));

    // A file that the failed run never touched stays.
    QFile previo(ruta);
    ASSERT_TRUE(previo.open(QIODevice::WriteOnly));
    previo.write("anterior");
    previo.close();
    EXPECT_THROW(
        ImprimirPdf(ruta, [](Impresora&, int) { throw ErrorQuilmar(QStringLiteral("x")); }),
        ErrorQuilmar);
    EXPECT_EQ(QFileInfo(ruta).size(), 8);

    try {
        ImprimirPdf(QStringLiteral("/no/existe/carpeta/libro.pdf"),
                    [](Impresora& imp, int) { imp.Escribir(QStringLiteral("x")); });
        FAIL() << "no error for a folder that does not exist";
    } catch (const ErrorQuilmar& e) {
        EXPECT_TRUE(e.mensaje().contains(QStringLiteral("/no/existe/carpeta/libro.pdf")));
    }
}

TEST(Impresora, OtraResolucionMismasPosiciones) {
    // A printer works at its own resolution; the surface scales twips to it, so the words land
    // where they land at 1440 dpi.
    if (!Hay("pdftotext"))
        GTEST_SKIP() << "poppler-utils no está instalado";
    struct Palabra {
        QString texto;
        double caja[4];
    };
    QTemporaryDir dir;
    QList<QList<Palabra>> resultados;
    for (int ppp : {1440, 600, 300}) {
        const QString ruta = dir.filePath(QStringLiteral("r%1.pdf").arg(ppp));
        {
            QPdfWriter pdf(ruta);
            pdf.setResolution(ppp);
            pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                          QMarginsF(0, 0, 0, 0)));
            ImpresoraPintor imp(&pdf, ruta);
            EXPECT_NEAR(imp.AnchoPagina(), PaginaA4.width(), 5);
            PaginaDeMuestra(imp, 1);
        }
        const QString texto = Ejecutar(QStringLiteral("pdftotext"),
                                       {QStringLiteral("-bbox"), ruta, QStringLiteral("-")});
        QList<Palabra> palabras;
        QRegularExpression re(QStringLiteral("<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" "
                                             "xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)<"));
        for (auto it = re.globalMatch(texto); it.hasNext();) {
            const auto m = it.next();
            palabras << Palabra{m.captured(5),
                                {m.captured(1).toDouble(), m.captured(2).toDouble(),
                                 m.captured(3).toDouble(), m.captured(4).toDouble()}};
        }
        ASSERT_GT(palabras.size(), 10);
        resultados << palabras;
    }
    for (int r = 1; r < resultados.size(); ++r) {
        ASSERT_EQ(resultados[r].size(), resultados[0].size());
        for (int i = 0; i < resultados[0].size(); ++i) {
            EXPECT_EQ(resultados[r][i].texto, resultados[0][i].texto);
            for (int k = 0; k < 4; ++k)
                EXPECT_NEAR(resultados[r][i].caja[k], resultados[0][i].caja[k], 0.15)
                    << resultados[0][i].texto.toStdString();
        }
    }
}

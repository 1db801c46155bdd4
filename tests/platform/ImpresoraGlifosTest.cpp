// Texts measured and drawn from the font's own glyphs give the widths of Qt's text layout, and
// texts the font cannot draw still go through Qt's layout with its font fallback.

#include "platform/ImpresoraGrabadora.h"
#include "platform/ImpresoraPintor.h"

#include <QPdfWriter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ImpresoraGlifos, AnchosComoLosDeQt) {
    const QStringList textos = {"Factura de suministros nº 1.234",
                                "ÁÉÍÓÚ áéíóú ñÑ çÇ ü €",
                                "AVATAR Wi.ff fi fl",
                                "[Base Iva: 1.250,00;  Cuota: 262,50]",
                                "",
                                "漢字 y letras",
                                "😀 emoji"};
    ImpresoraGrabadora imp;
    for (const char* fuente : {"Arial", "Arial Narrow", "Courier New"})
        for (double puntos : {7.0, 9.0, 15.0})
            for (bool negrita : {false, true}) {
                imp.PonerFuente(QLatin1String(fuente));
                imp.PonerTamano(puntos);
                imp.PonerNegrita(negrita);
                for (const QString& t : textos)
                    EXPECT_NEAR(imp.AnchoTexto(t),
                                AnchoTextoImpresion(t, QLatin1String(fuente), puntos, negrita),
                                1e-6)
                        << fuente << " " << puntos << " " << t.toStdString();
            }
}

TEST(ImpresoraGlifos, ElPdfConservaElTexto) {
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        GTEST_SKIP() << "pdftotext no está instalado";
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("g.pdf"));
    ImprimirPdf(ruta, [](Impresora& imp, int) {
        imp.PonerFuente(QStringLiteral("Arial Narrow"));
        imp.IrA(600, 600);
        imp.Escribir(QStringLiteral("Página nº 1: 1.234,56 €"));
        imp.Escribir(QStringLiteral("漢字 y letras"));
        imp.FinDocumento();
    });
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {ruta, QStringLiteral("-")});
    p.waitForFinished();
    const QString texto = QString::fromUtf8(p.readAllStandardOutput());
    EXPECT_TRUE(texto.contains(QStringLiteral("Página nº 1: 1.234,56 €"))) << texto.toStdString();
    EXPECT_TRUE(texto.contains(QStringLiteral("y letras"))) << texto.toStdString();
}

// quilmar-cli movimientos and mayor end to end: the list as text with its two lines of totals,
// CSV, the printed books as PDF, and the refusals.

#include "Entorno.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Ventas = "370000066", Compras = "660000044";

struct Libro : Entorno {
    Libro() {
        crearEmpresa("001", 2024, "Ferretería Ordás SL");
        for (int i = 1; i <= 10; ++i)
            asiento(QDate(2024, 1, 1).addDays(i * 20),
                    {Debe(Caja, i, QStringLiteral("Venta %1").arg(i)),
                     Haber(Ventas, i, QStringLiteral("Venta %1").arg(i))});
        asiento(QDate(2024, 2, 1), {Debe(Compras, 4, "Compra"), Haber(Caja, 4, "Compra")});
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(dir.path(), QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
};

QString TextoPdf(const QString& pdf) {
    QProcess p;
    p.start("pdftotext", {"-layout", pdf, "-"});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

TEST(MovimientosCli, TextoConTotalesCsvYPdf) {
    Libro e;
    ResultadoCli r = e.cli({"movimientos", Caja, "--desde", "01/03/2024"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(lineas.first(), "Nº As.\tFecha\tConcepto\tDebe\tHaber\tSaldo");
    // Before March: entries 1 and 2 (1 + 2) and the purchase (entry 11, -4).
    EXPECT_EQ(lineas.at(1), "\t01/03/2024\tSaldo Inicial\t3,00\t4,00\t-1,00");
    EXPECT_EQ(lineas.at(2), "3\t01/03/2024\tVenta 3\t3,00\t0,00\t2,00");
    EXPECT_EQ(lineas.at(lineas.size() - 3), "10\t19/07/2024\tVenta 10\t10,00\t0,00\t51,00");
    EXPECT_EQ(lineas.at(lineas.size() - 2), "PERIODO\t\t\t52,00\t0,00\t52,00");
    EXPECT_EQ(lineas.last(), "ACUMULADO\t\t\t55,00\t4,00\t51,00");

    r = e.cli({"movimientos", Caja, "--formato", "csv"});
    ASSERT_EQ(r.codigo, 0);
    EXPECT_TRUE(r.salida.contains("11;01/02/2024;Compra;0,00;4,00;"));
    EXPECT_FALSE(r.salida.contains("PERIODO"));

    r = e.cli({"movimientos", "199999999"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Error en la cuenta.")) << r.error.toStdString();

    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "sin pdftotext";
    const QString pdf = e.ruta("mov.pdf");
    r = e.cli({"movimientos", Caja, "--desde", "01/03/2024", "--formato", "pdf", "--salida", pdf,
               "--fecha-trabajo", "15/01/2025"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QString texto = TextoPdf(pdf);
    EXPECT_TRUE(texto.contains("MAYOR"));
    EXPECT_TRUE(texto.contains("SubCuenta: Caja"));
    EXPECT_TRUE(texto.contains(QRegularExpression("Periodo[ .]+52,00 +0,00 +52,00")))
        << texto.toStdString();
    EXPECT_TRUE(texto.contains(QRegularExpression("Acumulado[ .]+55,00 +4,00 +51,00")));
}

TEST(MayorCli, TextoPdfYRechazos) {
    Libro e;
    ResultadoCli r = e.cli({"mayor", "--desde-cuenta", "570", "--hasta-cuenta", "700"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n');
    EXPECT_EQ(lineas.at(1), "570. Caja, euros\t\t\t\t\t");
    EXPECT_EQ(lineas.at(2), "Subcuenta : Caja\t\t\t\t\t");
    EXPECT_EQ(lineas.at(3), "1\t21/01/2024\tVenta 1\t1,00\t0,00\t1,00");
    EXPECT_EQ(lineas.at(4), "11\t01/02/2024\tCompra\t0,00\t4,00\t-3,00"); // by date

    r = e.cli({"mayor", "--desde-cuenta", "700", "--hasta-cuenta", "570"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("La Cuenta inicial no puede ser mayor que la final."));
    r = e.cli({"mayor", "--desde-cuenta", "57", "--hasta-cuenta", "700"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Tiene que introducir el número de Cuenta, con tres dígitos."));

    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "sin pdftotext";
    const QString pdf = e.ruta("mayor.pdf");
    r = e.cli({"mayor", "--desde-cuenta", "570", "--hasta-cuenta", "700", "--nueva-pagina",
               "cuenta", "--formato", "pdf", "--salida", pdf});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList paginas = TextoPdf(pdf).split('\f', Qt::SkipEmptyParts);
    ASSERT_GE(paginas.size(), 3);
    EXPECT_TRUE(paginas.at(0).contains("570. Caja, euros"));
    EXPECT_TRUE(paginas.at(1).contains("600. Compras de mercaderías"));
    EXPECT_TRUE(paginas.at(2).contains("700. Ventas de mercaderías"));
    EXPECT_TRUE(paginas.at(2).contains("Página nº 3"));
    EXPECT_FALSE(paginas.at(0).contains("Suma y sigue"));
}

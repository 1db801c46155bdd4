// quilmar-cli sumas-saldos end to end: the list as text with its totals, a period, CSV and
// workbook files, the printed book as PDF, and the refusals.

#include "Entorno.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
              Proveedor = "240000009";

struct Balance : Entorno {
    Balance() {
        crearEmpresa("001", 2024, "Ferretería Ordás SL");
        asiento(QDate(2024, 1, 2), {Debe(Caja, 1500), Haber(Banco, 1500)});
        asiento(QDate(2024, 2, 3), {Debe(Compras, 1000), Haber(Proveedor, 1000)});
        asiento(QDate(2024, 5, 4), {Debe(Banco, 99.99), Haber(Caja, 99.99)});
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(
            dir.path(), QStringList{"--empresa", "Emp001", "--ano", "2024", "sumas-saldos"} + args);
    }
};

bool Hay(const char* programa) {
    return !QStandardPaths::findExecutable(QLatin1String(programa)).isEmpty();
}

QString Salida(const char* programa, const QStringList& args) {
    QProcess p;
    p.start(QLatin1String(programa), args);
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

TEST(CliSumasSaldos, ListaComoTextoConTotalesYPeriodo) {
    Balance e;
    ResultadoCli r = e.cli({});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    EXPECT_EQ(lineas,
              (QStringList{
                  "Código\tCuenta\tDebe\tHaber\tSaldo\tNCuenta\tGrupo",
                  "400\tProveedores\t0,00\t1.000,00\t-1.000,00\t\t400",
                  "240000009\tProveedores varios\t0,00\t1.000,00\t-1.000,00\t240000009\t400",
                  "570\tCaja, euros\t1.500,00\t99,99\t1.400,01\t\t570",
                  "157000001\tCaja\t1.500,00\t99,99\t1.400,01\t157000001\t570",
                  "572\tBancos e instituciones de crédito c/c vista, euros\t99,99\t"
                  "1.500,00\t-1.400,01\t\t572",
                  "157200003\tBanco\t99,99\t1.500,00\t-1.400,01\t157200003\t572",
                  "600\tCompras de mercaderías\t1.000,00\t0,00\t1.000,00\t\t600",
                  "660000044\tCompras de mercaderías\t1.000,00\t0,00\t1.000,00\t660000044"
                  "\t600",
                  "\tACUMULADOS\t2.599,99\t2.599,99\t0,00",
              }));

    // January to March: the May entry stays out.
    r = e.cli({"--desde", "01/01/2024", "--hasta", "31/03/2024"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("157000001\tCaja\t1.500,00\t0,00\t1.500,00"));
    EXPECT_TRUE(r.salida.endsWith("\tACUMULADOS\t2.500,00\t2.500,00\t0,00\n"));

    r = e.cli({"--desde", "32/01/2024"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("La fecha de --desde no es válida.")) << r.error.toStdString();
    r = e.cli({"--formato", "odt"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Formato desconocido: odt.")) << r.error.toStdString();
}

TEST(CliSumasSaldos, CsvLibroYPdf) {
    Balance e;
    ResultadoCli r = e.cli({"--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // The data alone: no totals line in CSV.
    EXPECT_TRUE(r.salida.contains("157200003;Banco;99,99;1.500,00;-1.400,01;157200003;572"));
    EXPECT_FALSE(r.salida.contains("ACUMULADOS"));

    r = e.cli({"--formato", "xlsx", "--salida", e.ruta("b.xlsx")});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    ASSERT_TRUE(QFile::exists(e.ruta("b.xlsx")));
    if (Hay("unzip")) {
        const QString hoja = Salida("unzip", {"-p", e.ruta("b.xlsx"), "xl/sharedStrings.xml"}) +
                             Salida("unzip", {"-p", e.ruta("b.xlsx"), "xl/worksheets/sheet1.xml"});
        EXPECT_TRUE(hoja.contains("Bancos e instituciones")) << hoja.left(400).toStdString();
        EXPECT_TRUE(hoja.contains("1400.01") || hoja.contains("-1400.01"));
    }

    if (!Hay("pdftotext"))
        GTEST_SKIP() << "falta pdftotext";
    const QString pdf = e.ruta("b.pdf");
    r = e.cli({"--formato", "pdf", "--salida", pdf, "--fecha-trabajo", "15/01/2025"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QString texto = Salida("pdftotext", {"-layout", pdf, "-"});
    EXPECT_TRUE(texto.contains("BALANCE DE SUMAS Y SALDOS"));
    EXPECT_TRUE(texto.contains("Ferretería Ordás SL"));
    EXPECT_TRUE(texto.contains("Desde 01/01/2024 hasta 31/12/2024"));
    EXPECT_TRUE(texto.contains("Fecha: 15/01/2025"));
    EXPECT_TRUE(texto.contains("Bancos e instituciones"));
    EXPECT_TRUE(texto.contains("Página nº 1"));
    // The totals of the subaccount rows only, debit, credit and difference.
    EXPECT_TRUE(texto.contains(QRegularExpression(
        "Totales \\. \\. \\. \\. \\. \\. \\. \\. \\. \\. \\. \\.\\s+2\\.599,99\\s+2\\.599,99")))
        << texto.toStdString();

    // A period without lines prints nothing.
    const QString vacio = e.ruta("vacio.pdf");
    r = e.cli(
        {"--formato", "pdf", "--salida", vacio, "--desde", "01/06/2024", "--hasta", "30/06/2024"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_FALSE(QFile::exists(vacio));
    EXPECT_TRUE(r.error.contains("No hay nada que imprimir")) << r.error.toStdString();
}

// The four tax books from quilmar-cli: each verb's list as text (with the total of the income and
// expense books), the flags and the sector, the refusals of dates and sectors, and the printed
// books as PDF.

#include "ComunLibrosIva.h"
#include "chart/Sectores.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace iva;

namespace {

struct Empresa : Entorno {
    Empresa() {
        crearEmpresa("001", 2024, "Ferretería Ordás SL");
        GuardarSector(sesion, dialogo, 0, QStringLiteral("D'Ana"));
        asiento(QDate(2024, 1, 10),
                {Debe(Clientes, 121), EnSector(Haber(Ventas, 100), "D'Ana"),
                 EnSector(ConIva(Haber(Rep21, 21), Clientes, "F-1", 100, 21), "D'Ana")});
        asiento(QDate(2024, 2, 1),
                {Debe(Alquiler, 800), ConIva(Debe(Sop21, 168), Acreedor, "ALQ-2", 800, 21),
                 Haber(Banco, 968)});
        asiento(QDate(2024, 3, 3), {Debe(Clientes, 55), Haber(Ventas, 50),
                                    ConIva(Haber(Rep10, 5), Clientes, "F-2", 50, 10)});
    }
    ResultadoCli cli(const QString& verbo, const QStringList& args = {}) {
        return EjecutarCli(dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024", verbo} + args);
    }
};

bool Hay(const char* programa) {
    return !QStandardPaths::findExecutable(QLatin1String(programa)).isEmpty();
}

QString TextoPdf(const QString& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {"-layout", pdf, "-"});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

TEST(CliLibrosIva, ListasComoTexto) {
    Empresa e;
    ResultadoCli r = e.cli("libro-ingresos");
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida.split('\n', Qt::SkipEmptyParts),
              (QStringList{"Nº Orden\tAsiento\tFecha\tFactura\tConcepto\tImporte\tNCuenta",
                           "1,00\t1\t10/01/2024\tF-1\tVentas de mercaderías\t100,00\t" + Ventas,
                           "2,00\t3\t03/03/2024\tF-2\tVentas de mercaderías\t50,00\t" + Ventas,
                           "\t\t\t\tTOTAL\t150,00"}));

    r = e.cli("libro-gastos", {"--desde", "01/02/2024", "--hasta", "01/02/2024"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.endsWith("\t\t\t\tTOTAL\t800,00\n")) << r.salida.toStdString();

    // The flags and a sector with a quote reach the book.
    r = e.cli("facturas-expedidas", {"--asiento", "--nif", "--sector", "D'Ana"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(
        r.salida.contains("1\t10/01/2024\tF-1\tB34567891\tClientes varios\t100,00\t\t21\t21,00"));
    EXPECT_FALSE(r.salida.contains("F-2"));

    r = e.cli("facturas-recibidas", {"--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("1,00;;01/02/2024;ALQ-2;;Acreedores varios;800,00;21;168,00"))
        << r.salida.toStdString();
    EXPECT_TRUE(r.salida.contains(";;;;;Total IVA al 21%;800;21;168;"));
}

TEST(CliLibrosIva, Rechazos) {
    Empresa e;
    ResultadoCli r = e.cli("libro-ingresos", {"--desde", "02/03/2024", "--hasta", "01/03/2024"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("La fecha inicial debe ser menor o igual que la final."))
        << r.error.toStdString();
    r = e.cli("facturas-recibidas", {"--hasta", "01/01/2025"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("La fecha introducida no pertenece al año de trabajo."))
        << r.error.toStdString();
    r = e.cli("libro-gastos", {"--sector", "Almacén"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("No existe el sector Almacén.")) << r.error.toStdString();
    r = e.cli("facturas-expedidas", {"--formato", "pdf"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("--salida")) << r.error.toStdString();
}

TEST(CliLibrosIva, LibrosImpresos) {
    if (!Hay("pdftotext"))
        GTEST_SKIP() << "falta pdftotext";
    Empresa e;
    const QString ingresos = e.ruta("ingresos.pdf");
    ResultadoCli r = e.cli("libro-ingresos", {"--formato", "pdf", "--salida", ingresos,
                                              "--fecha-trabajo", "15/01/2025", "--asiento"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QString texto = TextoPdf(ingresos);
    for (const char* t :
         {"Libro de Ingresos", "Ferretería Ordás SL", "Desde 01/01/2024 hasta 31/12/2024",
          "Fecha: 15/01/2025", "ASIENTO", "Página nº 1"})
        EXPECT_TRUE(texto.contains(QString::fromUtf8(t))) << t << "\n" << texto.toStdString();
    EXPECT_TRUE(texto.contains(QRegularExpression("Total Ingresos del periodo[ .]+150,00")))
        << texto.toStdString();

    const QString recibidas = e.ruta("recibidas.pdf");
    r = e.cli("facturas-recibidas",
              {"--formato", "pdf", "--salida", recibidas, "--sector", "D'Ana"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // The supplier's invoice is not in the sector: no records, no file.
    EXPECT_FALSE(QFile::exists(recibidas));
    EXPECT_TRUE(r.error.contains("No hay nada que imprimir")) << r.error.toStdString();

    r = e.cli("facturas-recibidas", {"--formato", "pdf", "--salida", recibidas});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    texto = TextoPdf(recibidas);
    EXPECT_TRUE(texto.contains("Libro de Facturas recibidas"));
    EXPECT_TRUE(texto.contains(QRegularExpression("Total IVA al 21%\\s+800\\s+21\\s+168")))
        << texto.toStdString();
    EXPECT_FALSE(texto.contains("ASIENTO"));
}

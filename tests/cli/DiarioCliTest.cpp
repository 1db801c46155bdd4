// quilmar-cli diario end to end: the grid as text, CSV and workbook, the printed book as PDF in
// both layouts, the selection by numbers or dates and its refusals.

#include "Entorno.h"
#include "store/Conexiones.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
              Proveedor = "240000009", IvaSop = "447200028";

struct Libro : Entorno {
    Libro() {
        crearEmpresa("001", 2024, "Ferretería Ordás SL");
        asiento(QDate(2024, 1, 2), {Debe(Caja, 1500, "Apertura"), Haber(Banco, 1500, "Apertura")});
        Apunte iva = Debe(IvaSop, 210, "Compra");
        DatosIvaApunte v;
        v.Contra = Proveedor;
        v.Factura = "F-9";
        v.Base = 1000;
        v.Cuota = 210;
        v.Porcentaje = 21;
        iva.Iva = v;
        asiento(QDate(2024, 2, 3),
                {Debe(Compras, 1000, "Compra"), iva, Haber(Proveedor, 1210, "Compra")});
        asiento(QDate(2024, 3, 4), {Debe(Caja, 99.99, "Cobro"), Haber(Banco, 99.99, "Cobro")});
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024", "diario"} + args);
    }
};

QString Texto(const QString& pdf) {
    QProcess p;
    p.start("pdftotext", {"-layout", pdf, "-"});
    p.waitForFinished();
    return QString::fromUtf8(p.readAllStandardOutput());
}

int Paginas(const QString& pdf) {
    QProcess p;
    p.start("pdfinfo", {pdf});
    p.waitForFinished();
    for (const QString& l : QString::fromUtf8(p.readAllStandardOutput()).split('\n'))
        if (l.startsWith("Pages:"))
            return l.mid(6).trimmed().toInt();
    return 0;
}

bool Hay(const char* programa) {
    return !QStandardPaths::findExecutable(QLatin1String(programa)).isEmpty();
}

} // namespace

TEST(CliDiario, ListaComoTextoYSeleccion) {
    Libro e;
    ResultadoCli r = e.cli({});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 8);
    EXPECT_EQ(lineas.at(0), "Asiento\tAp.\tFecha\tSubcuenta\tConcepto\tDebe\tHaber\tNCuenta\tSector"
                            "\tDocumento\tBase IVA\tCuota IVA\tCliente/Proveedor\tFactura");
    EXPECT_EQ(lineas.at(4), "2\t2\t03/02/2024\tIVA soportado 21%\tCompra\t210,00\t0,00\t" + IvaSop +
                                "\t\t\t1.000\t210\tProveedores varios\tF-9");

    r = e.cli({"--desde-asiento", "2", "--hasta-asiento", "2.5"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 4);
    for (int i = 1; i < 4; ++i)
        EXPECT_TRUE(lineas.at(i).startsWith("2\t")) << lineas.at(i).toStdString();

    r = e.cli({"--desde", "1/3/24", "--hasta", "31/3/2024"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 3);
    EXPECT_TRUE(lineas.at(1).startsWith("3\t1\t04/03/2024\tCaja\tCobro\t99,99\t"));

    r = e.cli({"--desde-asiento", "uno"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.salida.isEmpty());
    EXPECT_EQ(r.error.trimmed(), "El número de asiento introducido no es válido.");

    r = e.cli({"--desde", "31/12/2024", "--hasta", "1/1/2024"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "La fecha inicial debe ser menor o igual que la final.");

    r = e.cli({"--desde", "1/1/2024", "--hasta-asiento", "2"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_FALSE(r.error.isEmpty());
}

TEST(CliDiario, CsvYLibroExcel) {
    Libro e;
    ResultadoCli r = e.cli({"--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("Asiento;Ap.;Fecha;Subcuenta;Concepto;Debe;Haber"));
    EXPECT_TRUE(r.salida.contains("1;1;02/01/2024;Caja;Apertura;1.500,00;0,00;" + Caja));

    r = e.cli({"--formato", "xlsx"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_FALSE(QFile::exists(e.ruta("d.xlsx")));
    r = e.cli({"--formato", "xlsx", "--salida", e.ruta("d.xlsx")});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    ASSERT_TRUE(QFile::exists(e.ruta("d.xlsx")));
    if (Hay("unzip")) {
        QProcess p;
        p.start("unzip", {"-p", e.ruta("d.xlsx"), "xl/worksheets/sheet1.xml"});
        p.waitForFinished();
        const QString hoja = QString::fromUtf8(p.readAllStandardOutput());
        EXPECT_TRUE(hoja.contains("Cliente/Proveedor"));
        // Amounts are numbers in the workbook.
        bool cobro = false;
        QRegularExpression valor("<v>([^<]*)</v>");
        for (auto m = valor.globalMatch(hoja); m.hasNext();)
            if (qAbs(m.next().captured(1).toDouble() - 99.99) < 1e-9)
                cobro = true;
        EXPECT_TRUE(cobro);
    }
    r = e.cli({"--formato", "odt"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("odt"));
}

TEST(CliDiario, LibroImpresoEnPdf) {
    if (!Hay("pdftotext") || !Hay("pdfinfo"))
        GTEST_SKIP() << "faltan pdftotext o pdfinfo";
    Libro e;
    const QString oficial = e.ruta("oficial.pdf");
    ResultadoCli r = e.cli({"--formato", "pdf", "--salida", oficial, "--pagina-inicial", "7",
                            "--fecha-trabajo", "15/1/2025"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(Paginas(oficial), 1);
    QString t = Texto(oficial);
    for (const char* s : {"LIBRO DIARIO", "Ferretería Ordás SL", "Fecha: 15/01/2025", "Nº As.",
                          "CONCEPTO", "Totales . . . . . . . . . . . .", "2.809,99", "Página nº 7"})
        EXPECT_TRUE(t.contains(QString::fromUtf8(s))) << s << "\n" << t.toStdString();
    EXPECT_FALSE(t.contains("DOCUM."));
    EXPECT_FALSE(t.contains("Total Asiento"));

    const QString borrador = e.ruta("borrador.pdf");
    r = e.cli({"--formato", "pdf", "--salida", borrador, "--borrador", "--documento"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    t = Texto(borrador);
    // (The text read back from a PDF has its runs of blanks collapsed.)
    for (const char* s :
         {"DOCUM.", "Asiento nº 2", "Total Asiento", "[Base Iva: 1.000,00;", "Cuota: 210,00;",
          "Cli/Pro.: Proveedores varios;", "Fra.: F-9]", "Página nº 1"})
        EXPECT_TRUE(t.contains(QString::fromUtf8(s))) << s << "\n" << t.toStdString();

    // Two copies: the second starts from the totals of the first.
    const QString copias = e.ruta("copias.pdf");
    r = e.cli({"--formato", "pdf", "--salida", copias, "--copias", "2"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(Paginas(copias), 2);
    t = Texto(copias);
    EXPECT_TRUE(t.contains("Sumas anteriores . . ."));
    EXPECT_TRUE(t.contains("5.619,98"));

    // An empty selection makes no file.
    const QString vacio = e.ruta("vacio.pdf");
    r = e.cli(
        {"--formato", "pdf", "--salida", vacio, "--desde-asiento", "40", "--hasta-asiento", "50"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_FALSE(QFile::exists(vacio));
    EXPECT_FALSE(r.error.isEmpty());

    // The option rules of the journal's form.
    r = e.cli({"--formato", "pdf", "--salida", vacio, "--suma-debe", "100"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              "Si los valores iniciales del Debe o Haber son distintos de cero, deben tener valor "
              "tanto el Debe como el Haber.");
    r = e.cli({"--formato", "pdf", "--salida", vacio, "--margen", "1,5"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_FALSE(QFile::exists(vacio));
    r = e.cli({"--formato", "pdf"});
    EXPECT_EQ(r.codigo, 1);
}

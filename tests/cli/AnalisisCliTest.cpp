// quilmar-cli ingresos-gastos, comparar-ejercicios and grafico end to end: the lists as text, the
// month table and the lines with their total, the comparison with a year that has no database,
// a chart's series as CSV and its drawing as PNG and PDF, and the refusals.

#include "reports/ComparacionAnos.h"
#include "reports/ComunAnalisis.h"
#include "reports/Graficos.h"
#include "reports/IngresosGastos.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

struct Analisis : Entorno {
    Analisis() { AnoDeIngresosYGastos(*this); }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(dir.path(), QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    QStringList lineas(const QStringList& args) {
        const ResultadoCli r = cli(args);
        EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
        return r.salida.split('\n', Qt::SkipEmptyParts);
    }
    // The message of a refusal: exit code 1, nothing on standard output.
    QString rechazo(const QStringList& args) {
        const ResultadoCli r = cli(args);
        EXPECT_EQ(r.codigo, 1) << r.salida.toStdString();
        return r.error.trimmed();
    }
};

} // namespace

TEST(CliAnalisis, IngresosYGastosTotalesLineasYMeses) {
    Analisis e;
    EXPECT_EQ(e.lineas({"ingresos-gastos", "--tipo", "gastos", "--orden", "importes"}),
              (QStringList{"SUBCUENTA\tACUMULADO\tNCuenta\tPORCENTAJE", "GASTOS\t\t\t",
                           "Compras de mercaderías\t4.000,00\t660000044\t57,14",
                           "Arrendamientos\t2.400,00\t662100046\t34,28",
                           "Publicidad y propaganda\t600,25\t662700052\t8,57",
                           "Total Gastos\t7.000,25\t\t100,00"}));
    const QStringList todo =
        e.lineas({"ingresos-gastos", "--desde", "1/3/24", "--hasta", "31/3/24"});
    EXPECT_EQ(todo.last(), "RESULTADO POSITIVO\t6.800,50\t\t");

    // The lines of one side end with their total under the amounts.
    const QStringList lineas =
        e.lineas({"ingresos-gastos", "--lineas", "ingresos", "--sector", "Tienda"});
    EXPECT_EQ(lineas, (QStringList{"Nº As.\tFecha\tCuenta\tConcepto\tImporte",
                                   "2\t15/01/2024\tVentas de mercaderías\tPrueba\t7.000,00",
                                   "4\t20/03/2024\tPrestaciones de servicios\tPrueba\t3.000,50",
                                   "\t\t\tTOTAL\t10.000,50"}));

    // The month table of the calendar year, as CSV.
    const QStringList meses =
        e.lineas({"ingresos-gastos", "--por-meses", "--sector", "Web", "--formato", "csv"});
    ASSERT_FALSE(meses.isEmpty());
    EXPECT_TRUE(meses.first().startsWith("Subcuenta;Enero;Febrero;"));
    EXPECT_EQ(meses.last(), "DIFERENCIAS;;;5.000,00;;;;;;;;;-600,25;4.399,75;");

    // Printed: a PDF of the list.
    const QString pdf = e.ruta("totales.pdf");
    EXPECT_EQ(e.cli({"ingresos-gastos", "--formato", "pdf", "--salida", pdf}).codigo, 0);
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5) == "%PDF-");

    EXPECT_EQ(e.rechazo({"ingresos-gastos", "--por-meses", "--desde", "1/1/24"}),
              "La tabla por meses es siempre del año natural del ejercicio: no admite --desde ni "
              "--hasta.");
    EXPECT_EQ(e.rechazo({"ingresos-gastos", "--sector", "Nadie"}), "No existe el sector Nadie.");
    EXPECT_EQ(e.rechazo({"ingresos-gastos", "--desde", "1/1/23"}),
              "La fecha introducida no pertenece al año de trabajo.");
    EXPECT_EQ(e.rechazo({"ingresos-gastos", "--desde", "1/5/24", "--hasta", "1/4/24"}),
              MsgFechasIyG);
    EXPECT_EQ(e.rechazo({"ingresos-gastos", "--tipo", "todo"}),
              "--tipo admite todos, ingresos o gastos.");
}

TEST(CliAnalisis, CompararEjercicios) {
    Analisis e;
    const QStringList r =
        e.lineas({"comparar-ejercicios", "--anos", "2023,2024", "--cuenta", iyg::Ventas});
    ASSERT_EQ(r.size(), 3);
    EXPECT_EQ(r.at(1), "Año 2023 (sin ejercicio)" + QString("\t").repeated(13));
    EXPECT_EQ(r.at(2), "Año 2024\t7.000,00\t0,00\t5.000,00\t0,00\t0,00\t0,00\t0,00\t0,00\t0,00"
                       "\t0,00\t0,00\t0,00\t12.000,00");
    EXPECT_EQ(e.rechazo({"comparar-ejercicios", "--anos", "2024"}), MsgCompArea);
    EXPECT_EQ(e.rechazo({"comparar-ejercicios", "--anos", "24", "--area", "3"}),
              "Los años de --anos se dan con cuatro cifras, separados por comas (2024,2025).");
    EXPECT_EQ(e.rechazo({"comparar-ejercicios", "--anos", "2024", "--cuenta", "999999999"}),
              MsgCompErrorCuenta);
    EXPECT_EQ(e.rechazo({"comparar-ejercicios", "--anos", "2024", "--area", "9"}), MsgCompArea);
}

TEST(CliAnalisis, GraficoSeriesDibujoYRechazos) {
    Analisis e;
    EXPECT_EQ(e.lineas({"grafico", "ingresos-gastos"}),
              (QStringList{"Concepto;Ingresos;Gastos", "Ventas de mercaderías;12.000,00;0,00",
                           "Prestaciones de servicios;3.000,50;0,00",
                           "Otros ingresos financieros;500,00;0,00",
                           "Ingresos servicios diversos;0,00;0,00",
                           "Compras de mercaderías;0,00;4.000,00", "Arrendamientos;0,00;2.400,00",
                           "Publicidad y propaganda;0,00;600,25"}));

    // The same series in a closed exercise: the close is read around.
    CerrarComoElCierre(e);
    EXPECT_EQ(e.lineas({"grafico", "ingresos-gastos"}).at(1),
              "Ventas de mercaderías;12.000,00;0,00");

    const QString png = e.ruta("gastos.png");
    ASSERT_EQ(e.cli({"grafico", "gastos", "--circular", "--3d", "--cantidades", "--formato", "png",
                     "--salida", png})
                  .codigo,
              0);
    const QImage imagen(png);
    ASSERT_FALSE(imagen.isNull());
    EXPECT_EQ(imagen.size(), QSize(1200, 800));
    EXPECT_GT(imagen.convertToFormat(QImage::Format_Indexed8).colorCount(), 8);
    // The look chosen is for this picture: the command line writes no setting.
    QFile ini(e.ruta("QuilmarPro.ini"));
    EXPECT_FALSE(ini.open(QIODevice::ReadOnly) && ini.readAll().contains("TipoChart"));

    const QString pdf = e.ruta("cuenta.pdf");
    ASSERT_EQ(
        e.cli({"grafico", "cuenta", "--cuenta", iyg::Caja, "--formato", "pdf", "--salida", pdf})
            .codigo,
        0);
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString contenido = QString::fromLatin1(f.readAll());
    EXPECT_EQ(contenido.count(QRegularExpression("/Type\\s*/Page[^s]")), 1);

    EXPECT_EQ(e.rechazo({"grafico", "cuenta"}), MsgGrafCuenta);
    EXPECT_EQ(e.rechazo({"grafico", "tarta"}), "Gráfico desconocido: tarta (vea grafico --help).");
    EXPECT_EQ(e.rechazo({"grafico", "gastos", "--barras", "--circular"}),
              "Indique --circular o --barras, no las dos.");
    EXPECT_EQ(e.rechazo({"grafico", "gastos", "--formato", "png"}),
              "Indique el fichero png con --salida FICHERO.");
    EXPECT_EQ(e.rechazo({"grafico", "anos", "--anos", "2024"}), MsgGrafArea);
    // A picture that cannot be written is told in Spanish, naming the file.
    const QString sinCarpeta = e.ruta("no-existe/gastos.png");
    EXPECT_EQ(e.rechazo({"grafico", "gastos", "--formato", "png", "--salida", sinCarpeta}),
              "No se pudo escribir el archivo " + QDir::toNativeSeparators(sinCarpeta) + ".");
}

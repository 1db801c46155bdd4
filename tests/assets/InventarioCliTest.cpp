// quilmar-cli on the inventory end to end: locations and elements with the screen's checks, the
// list and its printed book, retirement and deletion, and depreciation runs that print the lines
// they posted.

#include "ComunInventario.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

struct Cli : Entorno {
    Cli() { crearEmpresa("001", 2025); }
    ResultadoCli operator()(const QStringList& args) {
        return EjecutarCli(dir.path(), QStringList{"--empresa", "Emp001", "--ano", "2025"} + args);
    }
    ResultadoCli alta(const QString& nombre, const QStringList& mas = {}) {
        return (*this)(QStringList{"elemento-anadir", "--descripcion", nombre, "--naturaleza",
                                   "Material", "--fecha-adq", "15/06/2020", "--importe", "1000",
                                   "--centro", "Oficina", "--porcentaje", "10", "--subcuenta-amort",
                                   inv::AmortMobiliario, "--subcuenta-dota", inv::DotaMaterial} +
                       mas);
    }
};

QStringList Lineas(const QString& texto) {
    return texto.split('\n', Qt::SkipEmptyParts);
}

} // namespace

TEST(CliInventario, AltasListaBajaYEliminacion) {
    Cli cli;
    ResultadoCli r = cli.alta("Mesa");
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "No se encontró el Centro.");
    ASSERT_EQ(cli({"centro-anadir", "Oficina"}).codigo, 0);
    r = cli({"centro-anadir", "oficina"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Ese Centro ya existe.");

    r = cli.alta("Mesa");
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "00000001\n");
    // The same checks as the screen, with the same message.
    r = cli.alta("Furgoneta", {"--fecha-adq", "02/01/2026"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "La fecha de adquisición del elemento es posterior a la de "
                                 "finalización del ejercio.");
    r = cli.alta("Furgoneta", {"--importe", "12abc"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), MsgImporteNoValido("12abc"));
    // The values of the lists are taken whatever their case.
    r = cli({"elemento-anadir", "--descripcion", "Cuadro", "--naturaleza", "material",
             "--fecha-adq", "01/02/2025", "--importe", "300", "--centro", "Oficina",
             "--amortizable", "NO"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "00000002\n");

    r = cli({"inventario"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QStringList l = Lineas(r.salida);
    ASSERT_EQ(l.size(), 3);
    EXPECT_TRUE(l.at(0).startsWith("Nº Elemento\tNombre\tNaturaleza\tFecha adquis.\tImporte"));
    EXPECT_EQ(l.at(2), "00000002\tCuadro\tMaterial\t01/02/2025\t300,00\t\tOficina\t\t\tNO\t\t\t\t"
                       "0,00\t\t");

    // Retirement needs its cause, as on the screen.
    r = cli({"elemento-baja", "1", "--fecha", "30/06/2025"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              "Si el elemento está dado de baja debe introducir la causa de dicha baja.");
    ASSERT_EQ(cli({"elemento-baja", "1", "--fecha", "30/06/2025", "--causa", "Pérdida"}).codigo, 0);
    r = cli({"inventario", "--ver", "bajas", "--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    l = Lineas(r.salida);
    ASSERT_EQ(l.size(), 2);
    EXPECT_TRUE(l.at(1).startsWith("00000001;Mesa;")) << l.at(1).toStdString();
    r = cli({"inventario", "--ver", "retirados"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("--ver no conoce 'retirados'")) << r.error.toStdString();

    // Deleting asks for --si.
    r = cli({"elemento-eliminar", "2"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Desea eliminar el elemento de Inventario 00000002 de nombre  "
                                 "Cuadro"));
    ASSERT_EQ(cli({"elemento-eliminar", "2", "--si"}).codigo, 0);
    l = Lineas(cli({"inventario"}).salida);
    EXPECT_EQ(l.size(), 2);
    // The number freed at the top is used again.
    EXPECT_EQ(cli({"elemento-anadir", "--descripcion", "Lámpara", "--naturaleza", "Material",
                   "--fecha-adq", "01/02/2025", "--importe", "40", "--centro", "Oficina",
                   "--amortizable", "NO"})
                  .salida,
              "00000002\n");

    // The printed book.
    const QString pdf = cli.ruta("inventario.pdf");
    r = cli({"inventario", "--formato", "pdf", "--salida", pdf});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5).startsWith("%PDF"));
}

TEST(CliInventario, AmortizarMuestraLoContabilizado) {
    Cli cli;
    ASSERT_EQ(cli({"centro-anadir", "Oficina"}).codigo, 0);
    ASSERT_EQ(cli.alta("Mesa").codigo, 0);
    ASSERT_EQ(cli.alta("Silla", {"--importe", "200"}).codigo, 0);

    // Without --si the question is answered No and nothing is written.
    ResultadoCli r = cli({"amortizar", "--fecha", "31/12/2025"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.salida.isEmpty());
    EXPECT_TRUE(r.error.contains("Desea realizar amortización a fecha 31/12/2025"));

    r = cli({"amortizar", "--fecha", "30/06/2025", "--elemento", "1", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // 1.000 x 10 % x 180 / 365 = 49,315...
    EXPECT_EQ(Lineas(r.salida),
              QStringList({"1\t30/06/2025\t668100064\tAmortización de elemento 1\t49,32\t",
                           "1\t30/06/2025\t028100040\tAmortización de elemento 1\t\t49,32"}));

    r = cli({"amortizar", "--fecha", "31/12/2025", "--agrupar", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // Mesa: 184 days, 50,41; Silla: 364 days, 19,95.
    EXPECT_EQ(Lineas(r.salida),
              QStringList({"2\t31/12/2025\t668100064\tAmortización inmovilizado\t70,36\t",
                           "2\t31/12/2025\t028100040\tAmortización inmovilizado\t\t70,36"}));
    EXPECT_TRUE(r.error.contains("Proceso terminado."));
    r = cli({"amortizar", "--fecha", "31/12/2025", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed().split('\n').last(),
              "No hay elementos de Inventario que amortizar.");
    r = cli({"inventario", "--ver", "con-amortizacion"});
    EXPECT_EQ(Lineas(r.salida).size(), 3);
}

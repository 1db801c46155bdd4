// quilmar-cli on budgets and the financial functions end to end.

#include "Entorno.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

struct Cli : Entorno {
    Cli() { crearEmpresa("001", 2024); }
    ResultadoCli operator()(const QStringList& args) {
        return EjecutarCli(dir.path(), QStringList{"--empresa", "Emp001"} + args);
    }
};

} // namespace

TEST(CliPresupuestos, CrearListarYComparar) {
    Cli cli;
    cli.asiento(QDate(2024, 3, 1), {Debe("157000001", 500), Haber("370000066", 500)});
    ResultadoCli r = cli({"presupuesto-crear", "Plan", "--ano", "2024", "--partida",
                          "662100046=600:reparto-igual", "--partida", "370000066=1200"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(QFile(cli.sesion.carpetaEmpresa() + "/Plan.prt").size(), 2 * 138);

    // Replacing asks, and without --si keeps the old one.
    r = cli({"presupuesto-crear", "Plan", "--ano", "2024", "--partida", "370000066=5"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Está seguro de que desea modificar el Presupuesto Plan?"));
    r = cli({"presupuesto-crear", "Otro", "--ano", "2024", "--partida", "157000001=5"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("no es de gastos (grupo 6) ni de ingresos (grupo 7)"));
    r = cli({"presupuesto-crear", "Otro", "--ano", "2024", "--partida", "370000066=1e400"});
    EXPECT_EQ(r.codigo, 1);
    r = cli({"presupuesto-crear", "Otro", "--ano", "1989", "--partida", "370000066=5"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(
        r.error.contains("El año debe ser posterior a 1990 e inferior al actual más cuatro."));

    r = cli({"presupuestos"});
    EXPECT_TRUE(r.salida.contains("Plan\t2024\t\t2")) << r.salida.toStdString();

    r = cli({"presupuesto-comparar", "Plan", "--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("Ventas de mercaderías;1.200,00;500,00;-700,00"))
        << r.salida.toStdString();
    // The income line has no months: a range of months budgets nothing for it.
    r = cli({"presupuesto-comparar", "Plan", "--desde-mes", "3", "--hasta-mes", "4"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("Arrendamientos\t100,00\t0,00\t-100,00"))
        << r.salida.toStdString();
    const QString pdf = cli.ruta("plan.pdf");
    r = cli({"presupuesto-comparar", "Plan", "--formato", "pdf", "--salida", pdf});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_GT(QFile(pdf).size(), 1000);
}

// 10.000 at 1 % a month over 36 months: 100 / (1 - 1,01^-36) = 332,1431...
TEST(CliPresupuestos, CalcularYCuadroDePrestamo) {
    Cli cli;
    ResultadoCli r =
        cli({"calcular", "pago", "--interes", "1", "--periodos", "36", "--va", "10000"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida.trimmed(), "-332,14");
    r = cli({"calcular", "valor-futuro", "--interes", "0", "--periodos", "3", "--pago", "-100"});
    EXPECT_EQ(r.salida.trimmed(), "300,00");
    r = cli({"calcular", "tae", "--interes", "12", "--periodos", "12"});
    EXPECT_EQ(r.salida.trimmed(), "12,682503%");
    r = cli({"calcular", "periodos", "--interes", "10", "--pago", "-50", "--va", "1000"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.salida.trimmed(), "Error");

    r = cli({"cuadro-prestamo", "--capital", "3000", "--interes", "1", "--periodos", "3"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 5);
    EXPECT_EQ(lineas[1], "1\t1.020,07\t30,00\t990,07");
    EXPECT_TRUE(lineas[4].startsWith("Totales\t"));
}

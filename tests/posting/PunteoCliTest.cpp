// quilmar-cli punteo, puntear, casar, anular-casacion, comprobar-casaciones and the day-cash
// verbs, run as the real program: what the command line adds to the logic.

#include "ComunAsientos.h"
#include "store/Conexiones.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class PunteoCli : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        Apunte f = Debe(Clientes, 100, "Factura V-1");
        f.Documento = "V-1";
        e.asiento(QDate(2024, 3, 1), {f, Haber(Ventas, 100, "Factura V-1")});
        e.asiento(QDate(2024, 4, 1), {Debe(Banco, 60, "Cobro"), Haber(Clientes, 60, "Cobro")});
        e.asiento(QDate(2024, 4, 9), {Debe(Banco, 40, "Cobro"), Haber(Clientes, 40, "Cobro")});
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    Entorno e;
};

TEST_F(PunteoCli, CasarPuntearListarYAnular) {
    // Same side: refused with the rule's message, nothing written.
    ResultadoCli r = cli({"casar", "1:1", "2:1"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("No hay Inicio para esta casación.")) << r.error.toStdString();
    r = cli({"casar", "1:1", "2:2"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"casar", "--final", "3:2"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("\tInicio (casado)\t")) << r.salida.toStdString();
    EXPECT_EQ(cli({"puntear", "2:2", "x"}).codigo, 1);
    ASSERT_EQ(cli({"puntear", "2:2", "3:2"}).codigo, 0);

    r = cli({"punteo", Clientes, "--vista", "punteados"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 3 + 4) << r.salida.toStdString();
    EXPECT_EQ(lineas[0], "Nº As.\tNAp\tFecha\tNCuenta\tCuenta\tConcepto\tDebe\tHaber\tDocumento\t"
                         "Punteo\tCasación\tGrupo");
    EXPECT_TRUE(lineas[1].startsWith("2\t2\t01/04/2024\t" + Clientes + "\t"));
    EXPECT_TRUE(lineas[1].contains("\t\t60,00\t\tX\tCasado totalmente\t4"))
        << lineas[1].toStdString();
    EXPECT_EQ(lineas[3], "Debe\t0,00");
    EXPECT_EQ(lineas[6], "Punteado Haber\t100,00");
    EXPECT_EQ(cli({"punteo", Clientes, "--vista", "raras"}).codigo, 1);
    EXPECT_EQ(cli({"punteo", Clientes, "--formato", "pdf", "--salida", e.ruta("p.pdf")}).codigo, 1);

    // Cancelling asks first; the rest of the group is graded again.
    r = cli({"anular-casacion", "3:2"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Está seguro de que desea anular esta partida de la casación?"));
    r = cli({"anular-casacion", "3:2", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"punteo", Clientes, "--vista", "parciales", "--formato", "csv"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida.split('\n', Qt::SkipEmptyParts).size(), 3) << r.salida.toStdString();

    r = cli({"comprobar-casaciones"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Proceso terminado.\nApuntes corregidos: 0\n");
}

TEST_F(PunteoCli, CajaDelDiaAnadirListarImprimirYPasar) {
    ResultadoCli r = cli({"caja-dia-anadir", "--fecha", "02/05/2024", "--tipo", "cobro",
                          "--subcuenta", Caja, "--contrapartida", Ventas, "--importe", "84,50"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "1\n");
    r = cli({"caja-dia-anadir", "--fecha", "03/05/2024", "--tipo", "pago", "--subcuenta", Caja,
             "--contrapartida", Compras, "--importe", "20", "--concepto", "Portes"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"caja-dia-anadir", "--fecha", "03/05/2024", "--tipo", "talón", "--subcuenta", Caja,
             "--contrapartida", Compras, "--importe", "20"});
    EXPECT_EQ(r.codigo, 1);
    r = cli({"caja-dia-anadir", "--fecha", "03/05/2024", "--tipo", "pago", "--contrapartida",
             Compras, "--importe", "20"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Tiene que introducir la Subcuenta de trabajo."));

    r = cli({"caja-dia"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("1\t\t02/05/2024\tCobro\tCaja\tVentas de mercaderías\t84,50\t"
                                  "Cobro del día"))
        << r.salida.toStdString();
    EXPECT_TRUE(r.salida.endsWith("Cobros\t84,50\nPagos\t20,00\nResultado\t64,50\n"));
    const QString pdf = e.ruta("caja.pdf");
    ASSERT_EQ(cli({"caja-dia", "--formato", "pdf", "--salida", pdf}).codigo, 0);
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5).startsWith("%PDF"));

    // A choice is needed, and the question's answer.
    EXPECT_EQ(cli({"caja-dia-pasar", "--si"}).codigo, 1);
    EXPECT_EQ(cli({"caja-dia-pasar", "--numeros", "2"}).codigo, 1);
    r = cli({"caja-dia-pasar", "--numeros", "2", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Traspasados al Diario: 1 apuntes.\nAsientos: 4 a 4\n");
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 4), QStringList({"1 " + Caja + " 0/20", "2 " + Compras + " 20/0"}));
    EXPECT_EQ(Filas(c, "SELECT \"Nº\" FROM DelDia"), QStringList({"1"}));
}

} // namespace

// quilmar-cli ver-asiento, eliminar-asiento and renumerar, run as the real program.

#include "ComunAsientos.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class MantenimientoCli : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        Apunte iva = Debe(IvaSop21, 21, "Compra");
        iva.Iva = DatosIvaApunte{Proveedor, "F-1", 100, 21, 21};
        iva.Documento = "A-1";
        e.asiento(QDate(2024, 3, 9),
                  {Debe(Compras, 100, "Compra"), iva, Haber(Proveedor, 121, "Compra")});
        e.asiento(QDate(2024, 3, 1), {Debe(Caja, 5, "Venta"), Haber(Ventas, 5, "Venta")});
        e.asiento(QDate(2024, 3, 5), {Debe(Banco, 7, "Cobro"), Haber(Clientes, 7, "Cobro")});
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    Entorno e;
};

TEST_F(MantenimientoCli, VerAsiento) {
    const ResultadoCli r = cli({"ver-asiento", "1"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 4);
    EXPECT_EQ(lineas[0],
              "NAp\tFecha\tNCuenta\tCuenta\tConcepto\tDebe\tHaber\tDocumento\tSector\tIVA");
    EXPECT_TRUE(lineas[2].startsWith("2\t09/03/2024\t" + IvaSop21 + "\t"))
        << lineas[2].toStdString();
    EXPECT_TRUE(lineas[2].endsWith("\tCompra\t21,00\t\tA-1\t\tsí")) << lineas[2].toStdString();
    EXPECT_TRUE(lineas[3].endsWith("\tCompra\t\t121,00\t\t\t")) << lineas[3].toStdString();

    const ResultadoCli no = cli({"ver-asiento", "1234"});
    EXPECT_EQ(no.codigo, 1);
    EXPECT_TRUE(no.error.contains("No se encontró el Asiento nº 1.234.")) << no.error.toStdString();
}

TEST_F(MantenimientoCli, EliminarYRenumerar) {
    // Without --si nothing goes.
    ResultadoCli r = cli({"eliminar-asiento", "2"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Está seguro de que desea eliminar el Asiento número 2?"));
    r = cli({"eliminar-asiento", "2", "--hasta", "2", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("El nº del Asiento inicial tiene que ser inferior al del final."));
    r = cli({"eliminar-asiento", "2", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Se eliminó el Asiento número 2.\n");
    {
        Conexion c = e.datos();
        EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario"), 2);
        EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    }

    // Renumbering by date: 3 (5 March) comes before 1 (9 March).
    r = cli({"renumerar", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Último asiento: 2\n");
    EXPECT_TRUE(r.error.contains("Proceso finalizado."));
    {
        Conexion c = e.datos();
        EXPECT_EQ(Filas(c, "SELECT DISTINCT NAs, Fecha FROM Diario ORDER BY NAs"),
                  QStringList({"1|2024-03-05", "2|2024-03-09"}));
    }
    r = cli({"renumerar", "--asiento", "2", "--a", "40", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Último asiento: 40\n");
    r = cli({"renumerar", "--asiento", "1", "--a", "40", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains(
        "No se puede hacer el cambio porque ya existe el número de asiento '40'."));
    r = cli({"ver-asiento", "40"});
    EXPECT_EQ(r.salida.count('\n'), 4) << "the purchase moved with its three lines";

    r = cli({"eliminar-asiento", "1", "--hasta", "40", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Eliminados 2 asientos.\n");
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

// An entry renumbered to 0 is an entry like any other: it is shown and deleted by its number,
// while what is not a number stays refused.
TEST_F(MantenimientoCli, ElAsientoCeroSeVeYSeElimina) {
    ResultadoCli r = cli({"renumerar", "--asiento", "2", "--a", "0", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"ver-asiento", "0"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 3);
    EXPECT_TRUE(lineas[1].startsWith("1\t01/03/2024\t" + Caja + "\t")) << lineas[1].toStdString();
    for (const char* malo : {"-1", "uno"}) {
        r = cli({"ver-asiento", malo});
        EXPECT_EQ(r.codigo, 1) << malo;
        EXPECT_TRUE(r.error.contains("Indique un número de asiento")) << r.error.toStdString();
    }
    r = cli({"eliminar-asiento", "0", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Se eliminó el Asiento número 0.\n");
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT DISTINCT NAs FROM Diario ORDER BY NAs"), QStringList({"1", "3"}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

} // namespace

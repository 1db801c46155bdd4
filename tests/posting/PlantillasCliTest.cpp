// quilmar-cli's verbs of periodic and predesigned entries, run as the real program: making them,
// their lists, what falls due and its posting, filling a template and posting it, and the
// refusals with the screens' messages.

#include "ComunAsientos.h"
#include "posting/EditorPredisenado.h"
#include "posting/Periodicos.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class PlantillasCli : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    int asientos() {
        Conexion c = e.datos();
        return Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario");
    }
    Entorno e;
};

} // namespace

TEST_F(PlantillasCli, PeriodicosDeUnAsientoHastaContabilizarlos) {
    e.asiento(QDate(2024, 1, 31), {Debe(Compras, 500, "Alquiler"), Haber(Banco, 500, "Alquiler")});
    e.asiento(QDate(2024, 1, 10), {Debe(Compras, 100, "Asesoría"), Debe(IvaSop21, 21, "Asesoría"),
                                   Haber(Proveedor, 121, "Asesoría")});

    // Without --si the question is answered No.
    ResultadoCli r = cli({"periodico-crear", "Alquiler", "--asiento", "1", "--ritmo", "mensual"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains(MsgHacerPeriodico)) << r.error.toStdString();
    r = cli({"--si", "periodico-crear", "Alquiler", "--asiento", "1", "--ritmo", "Mensual"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Asiento periódico \"Alquiler\": Mensual, próxima fecha 29/02/2024.\n");
    r = cli({"--si", "periodico-crear", "Asesoría", "--asiento", "2", "--ritmo", "trimestral",
             "--proxima", "10/04/24"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();

    // Refusals: a name taken (in any case), one too long, an unknown rhythm, no entry.
    r = cli({"--si", "periodico-crear", " alquiler ", "--asiento", "1", "--ritmo", "anual"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains(MsgNombreRepetido)) << r.error.toStdString();
    r = cli({"--si", "periodico-crear", QString(31, 'x'), "--asiento", "1", "--ritmo", "anual"});
    EXPECT_TRUE(r.error.contains("no puede tener más de 30 caracteres")) << r.error.toStdString();
    r = cli({"--si", "periodico-crear", "Otro", "--asiento", "1", "--ritmo", "cada día"});
    EXPECT_TRUE(r.error.contains("diaria, semanal, quincenal, mensual")) << r.error.toStdString();
    r = cli({"--si", "periodico-crear", "Otro", "--asiento", "9", "--ritmo", "anual"});
    EXPECT_EQ(r.error.trimmed(), "No se encontró el Asiento nº 9.");

    r = cli({"periodicos"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Fecha Ini.\tFecha Prox.\tNombre Asiento\tPeriodicidad\n"
                        "31/01/2024\t29/02/2024\tAlquiler\tMensual\n"
                        "10/01/2024\t10/04/2024\tAsesoría\tTrimestral\n");
    r = cli({"periodico-ver", "Asesoría"});
    EXPECT_TRUE(r.salida.contains("Fecha próximo vencimiento\t10/04/2024\n"));
    EXPECT_TRUE(r.salida.contains(IvaSop21 + "\tIVA soportado 21%\tAsesoría\t21,00\t\t\n"))
        << r.salida.toStdString();

    r = cli({"periodicos", "--pendientes", "--hoy", "30/04/2024"});
    EXPECT_EQ(r.salida, "Nombre\tFecha\tPeriodicidad\tIVA\n"
                        "Alquiler\t29/02/2024\tMensual\t\n"
                        "Alquiler\t31/03/2024\tMensual\t\n"
                        "Alquiler\t30/04/2024\tMensual\t\n"
                        "Asesoría\t10/04/2024\tTrimestral\tsí\n");

    // Posting what falls due asks first; the entry with VAT is left for the screen.
    r = cli({"periodicos", "--contabilizar", "--hoy", "30/04/2024"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(asientos(), 2);
    r = cli({"--si", "periodicos", "--contabilizar", "--hoy", "30/04/2024"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Contabilizado\tAlquiler\t29/02/2024\t3\n"
                        "Contabilizado\tAlquiler\t31/03/2024\t4\n"
                        "Contabilizado\tAlquiler\t30/04/2024\t5\n"
                        "Pendiente\tAsesoría\t10/04/2024\ttiene líneas de IVA: hay que "
                        "contabilizarlo en pantalla\n");
    {
        Conexion b = e.bavar();
        EXPECT_EQ(LeerPeriodico(b, "Alquiler")->FechaProx, QDate(2024, 5, 31));
        Conexion c = e.datos();
        EXPECT_EQ(
            Filas(c, "SELECT NAs, Fecha, SUM(Debe), SUM(Haber) FROM Diario WHERE NAs > 2 "
                     "GROUP BY NAs, Fecha ORDER BY NAs"),
            QStringList({"3|2024-02-29|500|500", "4|2024-03-31|500|500", "5|2024-04-30|500|500"}));
    }
    // Run again the same day: nothing more falls due.
    r = cli({"--si", "periodicos", "--contabilizar", "--hoy", "30/04/2024"});
    EXPECT_FALSE(r.salida.contains("Contabilizado"));
    EXPECT_EQ(asientos(), 5);

    r = cli({"periodico-eliminar", "Alquiler"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Está seguro de que desea eliminar el asiento periódico "
                                 "Alquiler?"));
    r = cli({"--si", "periodico-eliminar", "Alquiler"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"periodico-ver", "Alquiler"});
    EXPECT_EQ(r.error.trimmed(), "No existe el asiento periódico \"Alquiler\".");
}

TEST_F(PlantillasCli, PredisenadoEscritoRellenadoYContabilizado) {
    const QStringList crear{"predisenado-crear",
                            "007",
                            "--nombre",
                            "Compra con IVA",
                            "--linea",
                            "D;VARIABLE;" + Compras + ";VARIABLE;VARIABLE;;;;;",
                            "--linea",
                            "D;ANTERIOR;" + IvaSop21 + ";F=C12;F=C13*0,21;;;F=C13;" + Proveedor +
                                ";VARIABLE;si;no",
                            "--linea",
                            "H;ANTERIOR;F=C27;F=C12;CUADRE;;;;;"};
    // Refused where the screen would refuse: ANTERIOR in the first line, one line alone.
    ResultadoCli r = cli({"predisenado-crear", "007", "--nombre", "x", "--linea",
                          "D;ANTERIOR;" + Compras + ";x;1;;;;;"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), MsgDosApuntes);
    r = cli({"predisenado-crear", "007", "--nombre", "x", "--linea",
             "D;ANTERIOR;" + Compras + ";x;1;;;;;", "--linea",
             "H;ANTERIOR;" + Banco + ";x;1;;;;;"});
    EXPECT_EQ(r.error.trimmed(),
              "En el primer Apunte la Fecha no puede estar definida com 'ANTERIOR'.");
    r = cli({"predisenado-crear", "007", "--nombre", "x", "--linea",
             "D;01/01/24;" + Compras + ";x;F=C13;;;;;"});
    EXPECT_EQ(r.error.trimmed(), "La fórmula sólo puede referirse al Importe o Base Imponible de "
                                 "IVA de un Apunte anterior.");
    r = cli({"predisenado-crear", "7", "--nombre", "x", "--linea", "D;1;2;3"});
    EXPECT_TRUE(r.error.contains("--linea se escribe")) << r.error.toStdString();
    {
        Conexion b = e.bavar();
        EXPECT_EQ(Contar(b, "SELECT COUNT(*) FROM AsPredi"), 0);
    }

    r = cli(crear);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Guardado el Asiento Prediseñado 007, Compra con IVA: 3 apuntes.\n");
    r = cli({"predisenados"});
    EXPECT_EQ(r.salida, "Código\tNombre Asiento Tipo\n007\tCompra con IVA\n");

    // A field asked and not given is named.
    r = cli({"predisenado", "007", "--valor", "C10=15/03/24", "--valor", "C12=Compra"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Falta el valor del campo C13 (Importe del Apunte C1): añada "
                                 "--valor C13=VALOR.");
    r = cli({"predisenado", "007", "--valor", "C10=15/03/24", "--valor", "C12=Compra", "--valor",
             "C13=200", "--valor", "C28=F-9", "--valor", "C99=1"});
    EXPECT_EQ(r.error.trimmed(), "El campo C99 no se pide en el asiento prediseñado 007.");

    r = cli({"predisenado", "007", "--valor", "C10=15/03/24", "--valor", "C12=Compra", "--valor",
             "c13=200", "--valor", "C28=F-9"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QStringList lineas = r.salida.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lineas.size(), 4);
    EXPECT_EQ(lineas[2], "15/03/2024\t" + IvaSop21 + "\tIVA soportado 21%\tCompra\t42,00\t\t\t\t" +
                             Proveedor + "\tF-9\t200,00");
    EXPECT_EQ(lineas[3],
              "15/03/2024\t" + Proveedor + "\tProveedores varios\tCompra\t\t242,00\t\t\t\t\t");
    EXPECT_EQ(asientos(), 0) << "shown, not posted";

    r = cli({"predisenado", "007", "--valor", "C10=15/03/24", "--valor", "C12=Compra", "--valor",
             "C13=200", "--valor", "C28=F-9", "--contabilizar"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.endsWith("Contabilizado el asiento nº 1.\n"));
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 1),
              QStringList({"1 " + Compras + " 200/0", "2 " + IvaSop21 + " 42/0 iva",
                           "3 " + Proveedor + " 0/242"}));
    EXPECT_EQ(Filas(c, "SELECT NCuenta, NFactura, CAST(Base AS INTEGER), LIVA FROM DatosIVA"),
              QStringList({Proveedor + "|F-9|200|-1"}));

    r = cli({"--si", "predisenado-eliminar", "007"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"predisenado", "007"});
    EXPECT_EQ(r.error.trimmed(), "No existe ese código de Asiento Prediseñado.");
}

// quilmar-cli end to end on fresh folders: first use installs the demo company; companies are
// listed, created and repaired.

#include "Entorno.h"
#include "journal/Escritor.h"
#include "store/ListasEmpresas.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

TEST(CliEmpresas, PrimerUsoInstalaLaEmpresaDePruebas) {
    QTemporaryDir dir;
    const ResultadoCli r = EjecutarCli(dir.path(), {"empresas"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QString ano = QString::number(QDate::currentDate().year());
    EXPECT_EQ(r.salida, "Código\tEmpresa\tAño\nEmp100\tDe Pruebas\t" + ano + "\n");
    EXPECT_TRUE(r.error.isEmpty()) << r.error.toStdString();
    for (const char* f : {"Bavis.db", "VIAS.db", "PLoc.dat", "Emp100/Bavar.db", "Emp100/Selan.dat"})
        EXPECT_TRUE(QFile::exists(dir.filePath(f))) << f;

    // The demo year: whole, balanced entries, Mayor equal to the journal, VAT bound to its lines.
    Conexion c(dir.filePath("Emp100/Quilmar" + ano + ".db"), TipoBase::Ejercicio);
    EXPECT_GE(c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt(), 40);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM (SELECT NAs FROM Diario GROUP BY NAs HAVING "
                        "round(SUM(Debe) - SUM(Haber), 2) <> 0)")
                  .toInt(),
              0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_GE(c.escalar("SELECT COUNT(*) FROM ConDatosIVA").toInt(), 20);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA WHERE IdIVA NOT IN (SELECT IdIVA FROM "
                        "Diario)")
                  .toInt(),
              0);
    EXPECT_EQ(c.escalar("SELECT MIN(Fecha) >= ? AND MAX(Fecha) <= ? FROM Diario",
                        {ano + "-01-01", ano + "-12-31"})
                  .toInt(),
              1);

    // A second run does not install it again.
    EXPECT_EQ(EjecutarCli(dir.path(), {"empresas"}).salida, r.salida);
}

TEST(CliEmpresas, CrearEmpresaYReparar) {
    QTemporaryDir dir;
    ResultadoCli r =
        EjecutarCli(dir.path(), {"crear-empresa", "--codigo", "003", "--nombre", "Taller O'Brien",
                                 "--fecha-inicio", "010708", "--provincia", "Zaragoza"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Emp003\tTaller O'Brien\t2008\n");
    r = EjecutarCli(dir.path(), {"crear-empresa", "--codigo", "004", "--nombre", "Copia", "--de",
                                 "Emp100", "--copiar", "conceptos,sectores"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    r = EjecutarCli(dir.path(), {"empresas"});
    EXPECT_TRUE(r.salida.contains("Emp003\tTaller O'Brien\t2008\n"));
    EXPECT_TRUE(r.salida.contains("Emp004\tCopia\t"));

    QFile::remove(dir.filePath("Emp003/Selan.dat"));
    EXPECT_FALSE(EjecutarCli(dir.path(), {"empresas"}).salida.contains("Emp003"));
    r = EjecutarCli(dir.path(), {"reparar", "Emp003"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_TRUE(EjecutarCli(dir.path(), {"empresas"}).salida.contains("Emp003\tTaller O'Brien"));
}

TEST(CliEmpresas, ErroresEnEspanolYSalidaUno) {
    QTemporaryDir dir;
    ResultadoCli r = EjecutarCli(dir.path(), {"crear-empresa", "--codigo", "100", "--nombre", "X"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              "Por favor utilice otro código. Ese está reservado a la empresa 'De Pruebas'.");
    r = EjecutarCli(dir.path(), {"crear-empresa", "--codigo", "005", "--nombre", "X",
                                 "--fecha-inicio", "11108"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.startsWith("El programa no puede determinar cual es la fecha"));
    r = EjecutarCli(dir.path(), {"no-existe"});
    EXPECT_EQ(r.codigo, 1);
    r = EjecutarCli(dir.path(), {"crear-empresa", "--help"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_TRUE(r.salida.startsWith("Uso: quilmar-cli crear-empresa"));
    r = EjecutarCli(dir.path(), {"--help"});
    EXPECT_TRUE(r.salida.contains("empresas")) << r.salida.toStdString();
}

} // namespace

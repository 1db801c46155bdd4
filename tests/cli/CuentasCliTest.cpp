// quilmar-cli on the chart and the master tables, end to end on a fresh folder.

#include "Entorno.h"
#include "journal/Escritor.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

class CliCuentas : public ::testing::Test {
protected:
    void SetUp() override {
        const ResultadoCli r =
            EjecutarCli(dir.path(), {"crear-empresa", "--codigo", "001", "--nombre", "Taller",
                                     "--fecha-inicio", "01/01/2024"});
        ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(dir.path(), QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    Conexion datos() const {
        return Conexion(dir.filePath("Emp001/Quilmar2024.db"), TipoBase::Ejercicio);
    }
    QTemporaryDir dir;
};

TEST_F(CliCuentas, CuentasYSubcuentas) {
    ResultadoCli r = cli({"crear-cuenta", "--codigo", "404", "--area", "4", "--nombre", "X"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "El código de cuenta 404 debe crearlo en el área 2.");
    r = cli({"crear-cuenta", "--codigo", "400", "--area", "2", "--nombre", "X"});
    EXPECT_EQ(r.error.trimmed(), "Ya existe una Cuenta con el código '400'.");

    r = cli({"crear-subcuenta", "--cuenta", "430", "--area", "4", "--nombre", "Bar Sol", "--nif",
             "B22222222", "--provincia", "Huesca", "--pais", "España", "--cpostal", "22001"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "443000071\n");
    r = cli({"ficha", "443000071"});
    EXPECT_TRUE(r.salida.contains("Nombre\tBar Sol\n")) << r.salida.toStdString();
    EXPECT_TRUE(r.salida.contains("NIF\tB22222222\n"));
    EXPECT_TRUE(r.salida.contains("Provincia\tHuesca\n"));

    // The same NIF again: a question, answered No without --si.
    r = cli({"crear-subcuenta", "--cuenta", "430", "--area", "4", "--nombre", "Bar Sol 2", "--nif",
             "B22222222"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains(" Ya existe la subcuenta Bar Sol de Clientes/Proveedores con ese "
                                 "NIF. Desea dar de alta la nueva Subcuenta?"));
    EXPECT_TRUE(r.salida.isEmpty());
    r = cli({"--si", "crear-subcuenta", "--cuenta", "430", "--area", "4", "--nombre", "Bar Sol 2",
             "--nif", "B22222222"});
    EXPECT_EQ(r.salida, "443000072\n");
    r = cli({"crear-subcuenta", "--cuenta", "430", "--area", "4", "--nombre", "Café Sol"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Por favor no ponga acentos en las áreas SE DEBE ni NOS DEBEN.");

    r = cli({"cuentas", "--area", "4"});
    EXPECT_TRUE(r.salida.startsWith("Código\tNombre\tGrupo\n"));
    EXPECT_TRUE(r.salida.contains("4430\tClientes\t\n443000022\tClientes varios\tClientes\n"
                                  "443000071\tBar Sol\tClientes\n443000072\tBar Sol 2\tClientes\n"))
        << r.salida.toStdString();
    EXPECT_FALSE(r.salida.contains("157000001"));

    r = cli({"renombrar-subcuenta", "443000072", "--nombre", "Bar Luna"});
    EXPECT_EQ(r.codigo, 1) << "the question needs --si";
    r = cli({"--si", "renombrar-subcuenta", "443000072", "--nombre", "Bar Luna", "--provincia",
             "Teruel"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(cli({"ficha", "443000072"}).salida.contains("Provincia\tTeruel\n"));

    r = cli({"eliminar-subcuenta", "443000071"});
    EXPECT_EQ(r.codigo, 1);
    r = cli({"--si", "eliminar-subcuenta", "443000071"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    r = cli({"crear-subcuenta", "--cuenta", "629", "--area", "6", "--nombre", "Limpieza"});
    EXPECT_EQ(r.salida, "662900071\n") << "the freed serial is taken again";

    r = cli({"--si", "eliminar-subcuenta", "012900002"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Esta Subcuenta no se puede eliminar.");
}

TEST_F(CliCuentas, AparcarTiposDeIvaYConceptos) {
    ResultadoCli r = cli({"--si", "aparcar", "157200003"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(cli({"aparcadas"}).salida,
              "Subcuenta\tCuenta\tAparcada\tDesde\n157200003\tBanco\tSI\t2024\n");
    r = cli({"--si", "desaparcar", "157200003"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_EQ(cli({"aparcadas"}).salida, "Subcuenta\tCuenta\tAparcada\tDesde\n");

    r = cli({"tipo-iva", "157000001", "--porcentaje", "21", "--clase", "IVA"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              "Debe seleccionar la Subcuenta de IVA o de Recargo de equivalencia.");
    r = cli({"tipo-iva", "447200030", "--porcentaje", "5,5", "--clase", "Recargo"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(cli({"tipos-iva"}).salida.contains("447200030\tIVA soportado 4%\t5,5\tRecargo\n"));
    r = cli({"--si", "tipo-iva", "447200030", "--eliminar"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_FALSE(cli({"tipos-iva"}).salida.contains("447200030"));

    EXPECT_EQ(cli({"concepto", "4", "--nombre", "Cuota de autónomos"}).codigo, 0);
    r = cli({"concepto", "4", "--nombre", "Cuota"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Este código de Concepto ya existe, desea modificarlo?"));
    EXPECT_EQ(cli({"conceptos"}).salida, "Código\tConcepto\n4\tCuota de autónomos\n");
    EXPECT_EQ(cli({"--si", "concepto", "4", "--nombre", "Cuota"}).codigo, 0);
    EXPECT_EQ(cli({"conceptos"}).salida, "Código\tConcepto\n4\tCuota\n");
}

TEST_F(CliCuentas, Sectores) {
    EXPECT_EQ(cli({"sector-anadir", "Obra"}).codigo, 0);
    EXPECT_EQ(cli({"sector-anadir", "Taller"}).codigo, 0);
    EXPECT_EQ(cli({"sector-renombrar", "Obra", "--nombre", "Obras"}).codigo, 0);
    EXPECT_EQ(cli({"sectores"}).salida, "Sector\nObras\nTaller\n");
    ResultadoCli r = cli({"sector-renombrar", "Nada", "--nombre", "X"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "No existe el Sector 'Nada'.");

    {
        Sesion s;
        s.DataPath = s.AppPath = dir.path();
        s.EmpresaActual = "Emp001";
        s.AnoActual = 2024;
        s.FechaIniEj = QDate(2024, 1, 1);
        s.FechaFinEj = QDate(2024, 12, 31);
        Conexion c = datos();
        Apunte a = Debe("662900056", 40);
        a.Sector = "Obras";
        EscribirAsiento(c, s, QDate(2024, 5, 1), {a, Haber("157000001", 40)});
        EscribirAsiento(c, s, QDate(2024, 5, 2), {Debe("662900056", 7), Haber("157000001", 7)});
    }
    r = cli({"sector-eliminar", "Obras"});
    EXPECT_EQ(r.codigo, 1);
    r = cli({"--si", "sector-eliminar", "Obras"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Asientos eliminados: 1\n");
    Conexion c = datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 2);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = '662900056'").toDouble(), 7);
    EXPECT_EQ(cli({"sectores"}).salida, "Sector\nTaller\n");
}

TEST_F(CliCuentas, ListadosEnTextoHojaYPdf) {
    ResultadoCli r = cli({"cuentas", "--area", "1", "--formato", "txt"});
    EXPECT_EQ(r.salida, "Código\tSubcuenta\tCuenta\n"
                        "157200003\tBanco\tBancos e instituciones de crédito c/c vista, euros\n"
                        "157000001\tCaja\tCaja, euros\n");
    r = cli({"cuentas", "--area", "0", "--solo-cuentas", "--formato", "txt"});
    EXPECT_TRUE(r.salida.startsWith("Código\tCuenta\n100\tCapital social\n"));
    r = cli({"tipos-iva", "--formato", "csv"});
    EXPECT_TRUE(r.salida.contains("Tipo;Concepto;Clase\n"));
    EXPECT_TRUE(r.salida.contains("5,2;Recargo equiv. 5,2%;Recargo\n"));

    const QString pdf = dir.filePath("subcuentas.pdf");
    r = cli({"cuentas", "--area", "4", "--formato", "pdf", "--salida", pdf});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5) == "%PDF-");
    const QString hoja = dir.filePath("conceptos.xlsx");
    EXPECT_EQ(cli({"conceptos", "--formato", "xlsx", "--salida", hoja}).codigo, 0);
    EXPECT_TRUE(QFile::exists(hoja));

    r = cli({"conceptos", "--formato", "doc"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Formato desconocido: doc. Use txt, csv, xlsx o pdf.");
    r = cli({"aparcadas", "--formato", "txt"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Indique el área con --area, de 0 a 6.");
}

} // namespace

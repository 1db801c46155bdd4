// quilmar-cli asiento and importar, run as the real program on a temporary installation.

#include "ComunAsientos.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class AsientosCli : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    ResultadoCli importar(const QByteArray& contenido) {
        const QString ruta = e.ruta("asientos.csv");
        QFile f(ruta);
        f.open(QIODevice::WriteOnly | QIODevice::Truncate);
        f.write(contenido);
        f.close();
        return cli({"importar", ruta});
    }
    int lineas() {
        Conexion c = e.datos();
        return Contar(c, "SELECT COUNT(*) FROM Diario");
    }
    Entorno e;
};

TEST_F(AsientosCli, AsientoConIvaPorElMismoCaminoQueLaPantalla) {
    const ResultadoCli r = cli(
        {"asiento", "--fecha", "15324", "--concepto", "Compra de material", "--documento", "A-7",
         "--haber", Proveedor + "=121", "--debe", Compras + "=100", "--debe", IvaSop21 + "=21",
         "--iva", IvaSop21 + ":contrapartida=" + Proveedor + ",factura=F-1,base=100,00,m347=no"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "1\n");
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 1),
              QStringList({"1 " + Compras + " 100/0", "2 " + IvaSop21 + " 21/0 iva",
                           "3 " + Proveedor + " 0/121"}))
        << "debit lines first, whatever the order given";
    EXPECT_EQ(Unidos(c, "SELECT DISTINCT Fecha || Documento FROM Diario"), "2024-03-15A-7");
    EXPECT_EQ(c.escalar("SELECT NFactura || ':' || NCuenta || ':' || CAST(Base AS INTEGER) FROM "
                        "DatosIVA")
                  .toString(),
              "F-1:" + Proveedor + ":100");

    // A surcharge line refuses m347=si; a rent with withholding goes through.
    const ResultadoCli alquiler = cli(
        {"asiento", "--fecha", "1/4/2024", "--concepto", "Alquiler local", "--debe",
         Compras + "=1000", "--debe", IvaSop21 + "=210", "--haber", Banco + "=1210", "--iva",
         IvaSop21 + ":contrapartida=" + Acreedor + ",factura=R-4,m347=si,tipo=A,retencion=190"});
    ASSERT_EQ(alquiler.codigo, 0) << alquiler.error.toStdString();
    EXPECT_EQ(alquiler.salida, "2\n");
    EXPECT_EQ(c.escalar("SELECT TipOp || L347 || ':' || CAST(Retencion AS INTEGER) || ':' || "
                        "CAST(Base AS INTEGER) FROM DatosIVA WHERE NFactura = 'R-4'")
                  .toString(),
              "A-1:190:1000")
        << "the base is worked out from the quota when not given";
}

TEST_F(AsientosCli, RechazosComoLosDeLaPantalla) {
    struct Caso {
        QStringList args;
        QString mensaje;
        QString fecha = "15/03/2024";
    } casos[] = {
        {{"--debe", Compras + "=100", "--haber", Banco + "=99,99"},
         "El asiento está descuadrado. La suma de las partidas del Debe tienen que ser iguales a "
         "las del Haber."},
        {{"--debe", Compras + "=100", "--debe", IvaSop21 + "=21", "--haber", Proveedor + "=121"},
         "Debe seleccionar la Subcuenta de contrapartida."},
        {{"--debe", Compras + "=100", "--debe", IvaSop21 + "=21", "--haber", Proveedor + "=121",
          "--iva", IvaSop21 + ":contrapartida=" + Proveedor + ",base=90"},
         "La Base no se corresponde con el Porcentaje y Cuota."},
        {{"--debe", Compras + "=100", "--debe", Recargo + "=5,2", "--haber", Proveedor + "=105,2",
          "--iva", Recargo + ":contrapartida=" + Proveedor + ",m347=si"},
         "La subcuenta " + Recargo + " es de recargo: no admite m347=si."},
        {{"--debe", "999999999=100", "--haber", Banco + "=100"},
         "No existe la subcuenta 999999999."},
        {{"--debe", Caja + "=5", "--haber", Caja + "=5"},
         "Las líneas del asiento se anulan entre sí: no queda nada que contabilizar."},
        {{"--debe", Caja + "=5", "--haber", Banco + "=5", "--sector", "Ninguno"},
         "No existe el sector Ninguno."},
        {{"--debe", Compras + "=-5", "--haber", Banco + "=-5"},
         "--debe se escribe NCUENTA=IMPORTE, con un importe mayor que 0: '" + Compras + "=-5'."},
        {{"--debe", Compras + "=1", "--haber", Banco + "=1"},
         "La fecha introducida no pertenece al año de trabajo.",
         "2/1/2025"},
        {{"--debe", Compras + "=1", "--haber", Banco + "=1"},
         "El programa no puede determinar cual es la fecha introducida.",
         "11108"},
        // Amounts the books can't hold, and one that rounds to nothing, naming their line.
        {{"--debe", Compras + "=1e308", "--haber", Banco + "=1e308"},
         "--debe " + Compras + "=1e308: " + MsgImporteNoValido("1e308")},
        {{"--debe", Compras + "=5", "--haber", Banco + "=inf"},
         "--haber " + Banco + "=inf: " + MsgImporteNoValido("inf")},
        {{"--debe", Compras + "=1000000000000", "--haber", Banco + "=1000000000000"},
         "--debe " + Compras + "=1000000000000: " + MsgImporteNoValido("1000000000000")},
        {{"--debe", Compras + "=0,001", "--haber", Banco + "=0,001"},
         "--debe " + Compras + "=0,001: el importe es 0,00 al redondearlo al céntimo."},
        // Texts: within their fields, without control characters, a sector of the list.
        {{"--debe", Caja + "=5", "--haber", Banco + "=5", "--documento",
          QString(31, QLatin1Char('D'))},
         "El campo Documento no puede tener más de 30 caracteres."},
        {{"--debe", Caja + "=5", "--haber", Banco + "=5", "--documento", "A-1\x1b[2J"},
         MsgControles("Documento")},
        {{"--debe", Caja + "=5\t", "--haber", Banco + "=5"}, MsgControles("--debe")},
        {{"--debe", Caja + "=5", "--haber", Banco + "=5", "--sector",
          QString(21, QLatin1Char('S'))},
         "El campo Sector no puede tener más de 20 caracteres."},
    };
    auto asiento = [&](const Caso& c) {
        return cli(QStringList{"asiento", "--fecha", c.fecha, "--concepto", "Prueba"} + c.args);
    };
    for (const Caso& c : casos) {
        const ResultadoCli r = asiento(c);
        EXPECT_EQ(r.codigo, 1) << c.mensaje.toStdString();
        // The message of an unreadable date goes on with the ways to write one.
        EXPECT_TRUE(r.error.trimmed() == c.mensaje ||
                    (c.fecha == "11108" && r.error.startsWith(c.mensaje)))
            << r.error.toStdString();
    }
    for (const auto& [concepto, mensaje] :
         {std::pair{QString("Luz\nTotal 9.999,00"), MsgControles("Concepto")},
          std::pair{QString(41, QLatin1Char('c')),
                    QString("El campo Concepto no puede tener más de 40 "
                            "caracteres.")},
          std::pair{QString("  "), QString("Debe cumplimentar los campos de Fecha, Concepto e "
                                           "Importe.")}}) {
        const ResultadoCli r = cli({"asiento", "--fecha", "1/3/2024", "--concepto", concepto,
                                    "--debe", Caja + "=5", "--haber", Banco + "=5"});
        EXPECT_EQ(r.codigo, 1);
        EXPECT_EQ(r.error.trimmed(), mensaje);
    }
    const ResultadoCli factura =
        cli({"asiento", "--fecha", "1/3/2024", "--concepto", "Compra", "--debe", Compras + "=100",
             "--debe", IvaSop21 + "=21", "--haber", Proveedor + "=121", "--iva",
             IvaSop21 + ":contrapartida=" + Proveedor + ",factura=F-1\r9.999,00"});
    EXPECT_EQ(factura.error.trimmed(), MsgControles("Factura"));
    const ResultadoCli base =
        cli({"asiento", "--fecha", "1/3/2024", "--concepto", "Compra", "--debe", Compras + "=100",
             "--debe", IvaSop21 + "=21", "--haber", Proveedor + "=121", "--iva",
             IvaSop21 + ":contrapartida=" + Proveedor + ",base=1e308"});
    EXPECT_EQ(base.error.trimmed(), MsgImporteNoValido("1e308"));
    EXPECT_EQ(lineas(), 0);
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(asiento({{"--debe", Compras + "=1", "--haber", Banco + "=1"}, {}, "2/1/2024"})
                  .error.trimmed(),
              "El ejercicio está cerrado. Puede invertir el cierre en el menú Acceso, Ejercicio.");
    EXPECT_EQ(lineas(), 0);
}

TEST_F(AsientosCli, ImportarAgrupaPorNAsConNumerosNuevos) {
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1), Haber(Ventas, 1)});
    // Columns in another order, NAp giving the order of the lines, both date and decimal styles,
    // a quoted field with a semicolon.
    const ResultadoCli r = importar("\xEF\xBB\xBF"
                                    "Fecha;NAs;NAp;NCuenta;Concepto;Debe;Haber;Documento\r\n"
                                    "05/02/2024;7;2;" +
                                    Banco.toUtf8() +
                                    ";Pago luz;;121,50;R1\r\n"
                                    "05/02/2024;7;1;" +
                                    Compras.toUtf8() +
                                    ";\"Luz; febrero\";121.5;;R1\r\n"
                                    "\r\n"
                                    "2024-02-06;7b;1;" +
                                    Caja.toUtf8() +
                                    ";Venta;1.234,56;;\r\n"
                                    "2024-02-06;7b;2;" +
                                    Ventas.toUtf8() +
                                    ";Venta;;1234,56;\r\n"
                                    "2024-02-07;7;1;" +
                                    Caja.toUtf8() +
                                    ";Otra vez 7;10;;\r\n"
                                    "2024-02-07;7;2;" +
                                    Ventas.toUtf8() + ";Otra vez 7;;10;\r\n");
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Importados 3 asientos (6 apuntes), del nº 2 al nº 4.\n");
    EXPECT_TRUE(r.error.contains("Importando: 3 asientos (100 %)")) << r.error.toStdString();
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 2),
              QStringList({"1 " + Compras + " 121.5/0", "2 " + Banco + " 0/121.5"}));
    EXPECT_EQ(c.escalar("SELECT Concepto || '|' || Documento || '|' || Fecha FROM Diario WHERE "
                        "NAs = 2 AND NAp = 1")
                  .toString(),
              "Luz; febrero|R1|2024-02-05");
    EXPECT_EQ(LineasDiario(c, 3),
              QStringList({"1 " + Caja + " 1234.56/0", "2 " + Ventas + " 0/1234.56"}));
    EXPECT_EQ(LineasDiario(c, 4), QStringList({"1 " + Caja + " 10/0", "2 " + Ventas + " 0/10"}))
        << "NAs 7 again, not next to the first: a new entry";
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Caja}).toDouble(), 1245.56);
}

TEST_F(AsientosCli, ImportarTodoONadaConLaPrimeraLineaMala) {
    const QByteArray cabecera = "NAs;Fecha;NCuenta;Concepto;Debe;Haber\n";
    auto l = [](const char* nas, const char* fecha, const QString& cuenta, const char* d,
                const char* h) {
        return QByteArray(nas) + ";" + fecha + ";" + cuenta.toUtf8() + ";x;" + d + ";" + h + "\n";
    };
    const QByteArray bueno =
        l("1", "3/3/2024", Caja, "5", "") + l("1", "3/3/2024", Ventas, "", "5");
    struct Caso {
        QByteArray resto;
        QString mensaje;
    } casos[] = {
        {l("2", "3/3/2024", Caja, "5", "") + l("2", "3/3/2024", "999999999", "", "5"),
         "Línea 5: No existe la subcuenta 999999999."},
        {l("2", "3/3/2025", Caja, "5", "") + l("2", "3/3/2025", Ventas, "", "5"),
         "Línea 4: La fecha introducida no pertenece al año de trabajo."},
        {l("2", "3/3/2024", Caja, "5", "") + l("2", "3/3/2024", Ventas, "", "4,99") +
             l("3", "3/3/2024", "999999999", "", "5"),
         "Línea 4: El asiento está descuadrado. La suma de las partidas del Debe tienen que ser "
         "iguales a las del Haber."},
        {l("2", "31/2/2024", Caja, "5", ""),
         "Línea 4: la fecha '31/2/2024' no es válida (dd/mm/aaaa o aaaa-mm-dd)."},
        {l("2", "3/3/2024", Caja, "5 euros", ""), "Línea 4: " + MsgImporteNoValido("5 euros")},
    };
    for (const Caso& c : casos) {
        const ResultadoCli r = importar(cabecera + bueno + c.resto);
        EXPECT_EQ(r.codigo, 1) << c.mensaje.toStdString();
        EXPECT_EQ(r.error.trimmed(), c.mensaje);
        EXPECT_EQ(lineas(), 0) << "the good entry before it is not kept either";
    }
    ResultadoCli r = importar("NAs;Fecha;Cuenta;Debe;Haber\n");
    EXPECT_TRUE(r.error.startsWith("Línea 1: la columna 'Cuenta' no es ninguna"))
        << r.error.toStdString();
    r = importar("NAs;Fecha;NCuenta;Debe;Haber\n");
    EXPECT_EQ(r.error.trimmed(), "Línea 1: falta la columna Concepto.");
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    r = importar(cabecera + bueno);
    EXPECT_EQ(r.error.trimmed(), "Línea 2: El ejercicio está cerrado. Puede invertir el cierre en "
                                 "el menú Acceso, Ejercicio.");
    EXPECT_EQ(lineas(), 0);
}

// A file's line passes the checks of the command line's entry, with its line number; an entry
// that writes nothing is refused, and the count says what was written.
TEST_F(AsientosCli, ImportarComprobandoComoAsiento) {
    {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Sectores (Sector) VALUES ('Tienda')");
    }
    const QByteArray cabecera = "NAs;Fecha;NCuenta;Concepto;Debe;Haber;Documento;Sector\n";
    auto l = [](const char* nas, const QString& cuenta, const QByteArray& concepto, const char* d,
                const char* h, const QByteArray& resto = ";") {
        return QByteArray(nas) + ";3/3/2024;" + cuenta.toUtf8() + ";" + concepto + ";" + d + ";" +
               h + ";" + resto + "\n";
    };
    const QByteArray bueno = l("1", Caja, "x", "5", "") + l("1", Ventas, "x", "", "5");
    struct Caso {
        QByteArray resto;
        QString mensaje;
    } casos[] = {
        {l("2", Caja, "x", "5", "", ";Almacén") + l("2", Ventas, "x", "", "5"),
         "Línea 4: No existe el sector Almacén."},
        {l("2", Caja, "", "5", "") + l("2", Ventas, "x", "", "5"),
         "Línea 4: Debe cumplimentar los campos de Fecha, Concepto e Importe."},
        {l("2", Caja, "x", "5", "", ";;de más") + l("2", Ventas, "x", "", "5"),
         "Línea 4: la línea tiene 9 campos y la cabecera sólo nombra 8 columnas."},
        {l("2", Caja, QByteArray("Luz", 3) + '\0' + "marzo", "5", "") +
             l("2", Ventas, "x", "", "5"),
         "Línea 4: " + MsgControles("Concepto")},
        {l("2", Caja, "x", "5", "", "\"F\t1\";") + l("2", Ventas, "x", "", "5"),
         "Línea 4: " + MsgControles("Documento")},
        {l("2", Caja, "x", "5\x1b", "") + l("2", Ventas, "x", "", "5"),
         "Línea 4: " + MsgControles("Debe")},
        {l("2", Caja, QByteArray(41, 'c'), "5", "") + l("2", Ventas, "x", "", "5"),
         "Línea 4: El campo Concepto no puede tener más de 40 caracteres."},
        {l("2", Caja, "x", "1e308", "") + l("2", Ventas, "x", "", "1e308"),
         "Línea 4: " + MsgImporteNoValido("1e308")},
        {l("2", Caja, "x", "inf", "") + l("2", Ventas, "x", "", "inf"),
         "Línea 4: " + MsgImporteNoValido("inf")},
        {l("2", Caja, "x", "0,001", "") + l("2", Ventas, "x", "", "0,004"),
         "Línea 4: El asiento no tiene ningún importe: todos son 0,00 al redondearlos al "
         "céntimo."},
        {l("2", Caja, "x", "", "") + l("2", Ventas, "x", "", ""),
         "Línea 4: El asiento no tiene ningún importe: todos son 0,00 al redondearlos al "
         "céntimo."},
    };
    for (const Caso& c : casos) {
        const ResultadoCli r = importar(cabecera + bueno + c.resto);
        EXPECT_EQ(r.codigo, 1) << c.mensaje.toStdString();
        EXPECT_EQ(r.error.trimmed(), c.mensaje);
        EXPECT_EQ(lineas(), 0);
    }
    EXPECT_EQ(importar("NAs;Fecha;NCuenta;Concepto;Debe;Debe;Haber\n").error.trimmed(),
              "Línea 1: la columna Debe está repetida.");

    // The sector as the list spells it; a line of zero amounts in an entry writes nothing and is
    // not counted; fields left out at the end are empty.
    const ResultadoCli r = importar(cabecera + l("1", Caja, "Venta", "5", "", ";tienda") +
                                    l("1", Banco, "Venta", "0", "0") + "1;3/3/2024;" +
                                    Ventas.toUtf8() + ";Venta;;5\n");
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Importados 1 asientos (2 apuntes), del nº 1 al nº 1.\n");
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT NCuenta || '|' || Sector FROM Diario ORDER BY NAp"),
              QStringList({Caja + "|Tienda", Ventas + "|"}));
}

} // namespace

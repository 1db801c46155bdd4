// The due-date verbs of quilmar-cli, run as the real program on a temporary installation. The
// dates lie far from any clock's today (2001, 2099), so nothing depends on the day of the run.

#include "ComunAsientos.h"
#include "store/Conexiones.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class VencimientosCli : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    ResultadoCli cli(const QStringList& args) {
        return EjecutarCli(e.dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2024"} + args);
    }
    // A valid addition, with the options given replacing or adding to the usual ones.
    ResultadoCli anadir(const QStringList& cambios = {}) {
        QStringList a{"vencimiento-anadir",
                      "--subcuenta",
                      Clientes,
                      "--fecha",
                      "15/06/2099",
                      "--importe",
                      "1210,50",
                      "--tipo",
                      "cobro",
                      "--forma",
                      "pagare",
                      "--caja",
                      Banco,
                      "--concepto",
                      "Factura 7"};
        for (int i = 0; i + 1 < cambios.size(); i += 2) {
            const int j = a.indexOf(cambios[i]);
            if (j >= 0)
                a[j + 1] = cambios[i + 1];
            else
                a << cambios[i] << cambios[i + 1];
        }
        if (cambios.size() % 2)
            a << cambios.last();
        return cli(a);
    }
    int filas() {
        Conexion b = e.bavar();
        return b.escalar("SELECT COUNT(*) FROM Vencimientos").toInt();
    }
    Entorno e;
};

} // namespace

TEST_F(VencimientosCli, AnadirConSusComprobaciones) {
    const ResultadoCli r =
        anadir({"--documento", "F-7", "--remesa", "R1", "--emision", "1/6/2099"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.trimmed().contains(',')) << "the key, in the Spanish way";
    {
        Conexion b = e.bavar();
        QSqlQuery q = b.ejecutar("SELECT FechaV, FechaE, Tipo, Forma, NCuenta1, NCuenta2, "
                                 "Concepto, Situacion, Importe, Documento, Remesa, Sector FROM "
                                 "Vencimientos");
        ASSERT_TRUE(q.next());
        QStringList v;
        for (int i = 0; i < 12; ++i)
            v << q.value(i).toString();
        EXPECT_EQ(v, QStringList({"2099-06-15", "2099-06-01", "Cobro", "Pagaré", Clientes, Banco,
                                  "Factura 7", "Pendiente", "1210.5", "F-7", "R1", ""}));
        EXPECT_TRUE(q.value(11).isNull()) << "an empty sector is not written";
    }

    // A collection from a supplier is told, and still written.
    const ResultadoCli aviso = anadir({"--subcuenta", Proveedor});
    EXPECT_EQ(aviso.codigo, 0);
    EXPECT_TRUE(aviso.error.contains("Ha seleccionado una subcuenta del área 'Se debe', siendo el "
                                     "Vencimiento del tipo 'Cobro'."));
    EXPECT_EQ(filas(), 2);

    const QList<std::pair<QStringList, QString>> rechazos = {
        {{"--forma", ""}, "Tiene que seleccionar la forma de cobro/pago del vencimiento"},
        {{"--caja", ""},
         "Tiene que seleccionar la cuenta de Banco o Caja por donde se realizará el cobro/pago "
         "del vencimiento."},
        {{"--concepto", " "}, "Tiene que introducir el Concepto."},
        {{"--importe", "12abc"}, "El importe «12abc» no es válido"},
        {{"--importe", "0"}, "Tiene que introducir el Importe del vencimiento."},
        {{"--fecha", "31/02/2099"}, "La fecha introducida no es una fecha válida."},
        {{"--emision", "16/06/2099"},
         "La fecha de vencimiento tiene que ser posterior a la de emisión."},
        {{"--subcuenta", "443099999"}, "No existe la subcuenta 443099999."},
        {{"--caja", Clientes}, "no es del área 1"},
        {{"--tipo", "regalo"}, "--tipo «regalo» no es válido"},
        {{"--situacion", "pagado"},
         "Si el Vencimiento es del tipo 'Cobro' la situación no puede ser 'Pagado'"},
        {{"--sector", "Ninguno"}, "No existe el sector Ninguno."},
        // A past due date asks; without --si the answer is No.
        {{"--fecha", "1/1/2001", "--emision", "1/1/2001"},
         "La fecha de vencimiento es anterior a la actual. Es correcto?"},
    };
    for (const auto& [cambios, mensaje] : rechazos) {
        const ResultadoCli x = anadir(cambios);
        EXPECT_EQ(x.codigo, 1) << mensaje.toStdString();
        EXPECT_TRUE(x.error.contains(mensaje)) << x.error.toStdString();
    }
    EXPECT_EQ(filas(), 2) << "nothing half-written";
    EXPECT_EQ(anadir({"--fecha", "1/1/2001", "--emision", "1/1/2001", "--si"}).codigo, 0);
    EXPECT_EQ(filas(), 3);
}

TEST_F(VencimientosCli, ListaConTotalEstadoYPurga) {
    ASSERT_EQ(anadir({"--concepto", "cobro lejano", "--si"}).codigo, 0);
    ASSERT_EQ(anadir({"--concepto", "pago lejano", "--tipo", "pago", "--subcuenta", Proveedor,
                      "--importe", "200"})
                  .codigo,
              0);
    const ResultadoCli viejo = anadir({"--concepto", "cobro viejo", "--fecha", "2/1/2001",
                                       "--emision", "1/1/2001", "--importe", "5", "--si"});
    ASSERT_EQ(viejo.codigo, 0);

    const ResultadoCli todos = cli({"vencimientos"});
    ASSERT_EQ(todos.codigo, 0) << todos.error.toStdString();
    QStringList lineas = todos.salida.trimmed().split('\n');
    ASSERT_EQ(lineas.size(), 5) << todos.salida.toStdString();
    EXPECT_TRUE(lineas[0].startsWith("Fecha\tTipo\tForma\tSubcuenta\tConcepto\tCaja/Banco"));
    EXPECT_TRUE(lineas[1].startsWith("02/01/2001\tCobro\tPagaré\t"));
    EXPECT_TRUE(lineas[2].contains("\tcobro lejano\t"));
    EXPECT_EQ(lineas.last(), "Total Importe\t1.015,50") << "collections less payments";

    const ResultadoCli pagos = cli({"vencimientos", "--tipo", "pago", "--estado", "pendiente"});
    ASSERT_EQ(pagos.codigo, 0);
    lineas = pagos.salida.trimmed().split('\n');
    ASSERT_EQ(lineas.size(), 3);
    EXPECT_TRUE(lineas[1].contains("\tpago lejano\t"));
    EXPECT_EQ(lineas.last(), "Total Importe\t200,00");

    const ResultadoCli fechas =
        cli({"vencimientos", "--desde", "01/01/2099", "--hasta", "31/12/2099", "--vencidos"});
    ASSERT_EQ(fechas.codigo, 0);
    EXPECT_EQ(fechas.salida.trimmed().split('\n').size(), 2) << "header and total only";
    EXPECT_EQ(cli({"vencimientos", "--desde", "2/1/2099", "--hasta", "1/1/2099"}).codigo, 1);

    // The state of the old collection, by the key it printed, with either decimal mark.
    const QString clave = viejo.salida.trimmed();
    const ResultadoCli contradice = cli({"vencimiento-estado", clave, "--estado", "Pagado"});
    EXPECT_EQ(contradice.codigo, 1);
    EXPECT_TRUE(contradice.error.contains(
        "Si el Vencimiento es del tipo 'Cobro' la situación no puede ser 'Pagado'"));
    QString punto = clave;
    punto.replace(',', '.');
    ASSERT_EQ(cli({"vencimiento-estado", punto, "--estado", "cobrado"}).codigo, 0);
    EXPECT_EQ(cli({"vencimiento-estado", "123,5", "--estado", "cobrado"}).error.trimmed(),
              "No existe el vencimiento 123,5.");
    EXPECT_TRUE(cli({"vencimientos", "--estado", "cobrado"}).salida.contains("cobro viejo"));

    // Purges ask; the old one goes by age, the far ones stay.
    const ResultadoCli sinSi = cli({"vencimientos-purgar", "--meses", "24"});
    EXPECT_EQ(sinSi.codigo, 1);
    EXPECT_TRUE(sinSi.error.contains(
        "Desea eliminar todos los registros con fecha de vencimiento anterior a "));
    EXPECT_EQ(filas(), 3);
    EXPECT_EQ(cli({"vencimientos-purgar", "--meses", "3", "--si"}).codigo, 1);
    const ResultadoCli purga = cli({"vencimientos-purgar", "--meses", "24", "--si"});
    ASSERT_EQ(purga.codigo, 0) << purga.error.toStdString();
    EXPECT_EQ(purga.salida, "1\n");
    const ResultadoCli nada = cli({"vencimientos-purgar", "--cobrados", "--si"});
    EXPECT_EQ(nada.salida, "0\n");
    EXPECT_TRUE(nada.error.contains("No hay registros."));
    EXPECT_EQ(filas(), 2);

    // The printed list.
    const QString pdf = e.ruta("vencimientos.pdf");
    ASSERT_EQ(cli({"vencimientos", "--formato", "pdf", "--salida", pdf}).codigo, 0);
    QFile f(pdf);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.read(5).startsWith("%PDF"));
}

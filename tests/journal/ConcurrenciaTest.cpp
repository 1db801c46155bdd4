// Several processes posting into one exercise at once: every entry gets its own number, none is
// lost, the numbers have no gaps, and Mayor stays equal to the sums of the journal. Runs on the
// files and, in the server run, on PostgreSQL.

#include "journal/Escritor.h"
#include "posting/ComunAsientos.h"
#include "store/Conexiones.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <cmath>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

constexpr int Procesos = 4;
constexpr int AsientosPorProceso = 500;

} // namespace

// The work of one of the processes, started by the test below with the installation in its
// environment; disabled so that it never runs on its own.
TEST(ConcurrenciaHijo, DISABLED_Contabilizar) {
    const QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    Sesion s;
    s.AppPath = s.DataPath = env.value("QUILMAR_HIJO_CARPETA");
    s.UrlServidor = env.value("QUILMAR_HIJO_SERVIDOR");
    s.EmpresaActual = env.value("QUILMAR_HIJO_EMPRESA");
    s.AnoActual = static_cast<qint16>(env.value("QUILMAR_HIJO_ANO").toInt());
    const int hijo = env.value("QUILMAR_HIJO_NUMERO").toInt();
    ASSERT_FALSE(s.AppPath.isEmpty());
    CargarEjercicio(s);
    for (int i = 0; i < AsientosPorProceso; ++i) {
        // A fresh connection per entry, as each user action opens its own.
        Conexion c = AbrirDatos(s);
        // Amounts tell the process and the entry apart: hijo * 1000 + i + 0.25.
        const double importe = hijo * 1000 + i + 0.25;
        EscribirAsiento(c, s, QDate(2024, 1 + i % 12, 1 + i % 28),
                        {Debe(Compras, importe), Haber(Banco, importe)});
    }
}

TEST(Concurrencia, CuatroProcesosNumerosUnicosSinHuecosYMayorCuadrado) {
    Entorno e;
    e.crearEmpresa();
    QList<QProcess*> procesos;
    for (int h = 0; h < Procesos; ++h) {
        auto* p = new QProcess;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QUILMAR_HIJO_CARPETA", e.sesion.AppPath);
        env.insert("QUILMAR_HIJO_SERVIDOR", e.sesion.UrlServidor);
        env.insert("QUILMAR_HIJO_EMPRESA", e.sesion.EmpresaActual);
        env.insert("QUILMAR_HIJO_ANO", QString::number(e.sesion.AnoActual));
        env.insert("QUILMAR_HIJO_NUMERO", QString::number(h));
        p->setProcessEnvironment(env);
        p->setProcessChannelMode(QProcess::MergedChannels);
        p->start(QCoreApplication::applicationFilePath(),
                 {"--gtest_also_run_disabled_tests",
                  "--gtest_filter=ConcurrenciaHijo.DISABLED_Contabilizar"});
        procesos << p;
    }
    for (QProcess* p : procesos) {
        // Waits as long as it takes: the result, not the speed, is under test.
        p->waitForFinished(-1);
        const QString salida = QString::fromLocal8Bit(p->readAll());
        EXPECT_EQ(p->exitCode(), 0) << salida.toStdString();
        EXPECT_TRUE(salida.contains("[  PASSED  ] 1 test")) << salida.toStdString();
        delete p;
    }

    Conexion c = e.datos();
    const int total = Procesos * AsientosPorProceso;
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt(), total);
    EXPECT_EQ(c.escalar("SELECT MIN(NAs) FROM Diario").toInt(), 1);
    EXPECT_EQ(c.escalar("SELECT MAX(NAs) FROM Diario").toInt(), total);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 2 * total);
    // Every entry whole: one debit and one credit line of the same amount under one number.
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM (SELECT NAs FROM Diario GROUP BY NAs "
                        "HAVING COUNT(*) <> 2 OR SUM(Debe) <> SUM(Haber)) x")
                  .toInt(),
              0);
    // Nothing lost: each process's every amount is there once.
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT Debe) FROM Diario WHERE Debe <> 0").toInt(), total);
    // Mayor equals the sums of the journal, to the cent.
    QSqlQuery q = c.ejecutar("SELECT m.NCuenta, m.SaldoD, m.SaldoH, "
                             "(SELECT SUM(Debe) FROM Diario d WHERE d.NCuenta = m.NCuenta), "
                             "(SELECT SUM(Haber) FROM Diario d WHERE d.NCuenta = m.NCuenta) "
                             "FROM Mayor m");
    int cuentas = 0;
    while (q.next()) {
        ++cuentas;
        EXPECT_EQ(std::llround(q.value(1).toDouble() * 100),
                  std::llround(q.value(3).toDouble() * 100))
            << q.value(0).toString().toStdString();
        EXPECT_EQ(std::llround(q.value(2).toDouble() * 100),
                  std::llround(q.value(4).toDouble() * 100))
            << q.value(0).toString().toStdString();
    }
    EXPECT_EQ(cuentas, 2);
    const double suma = Procesos * (AsientosPorProceso * 0.25) +
                        AsientosPorProceso * (1000.0 * (0 + 1 + 2 + 3)) +
                        Procesos * (AsientosPorProceso * (AsientosPorProceso - 1) / 2.0);
    EXPECT_EQ(
        std::llround(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble() *
                     100),
        std::llround(suma * 100));
}

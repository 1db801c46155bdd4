// The year end from the command line, on the demo company: close with transfer to a new year,
// both trial balances, reversal, close again; the refusals; the reorganisation.

#include "Entorno.h"
#include "store/Conexiones.h"

#include <QFile>
#include <QMap>
#include <gtest/gtest.h>

namespace {

// On the engine of the test run: in the server run the books are on the server (the files the
// demo was made on stay beside them and must not be what is read).
ResultadoCli Cli(Entorno& e, int ano, const QStringList& args) {
    QStringList motor;
    if (e.sesion.enServidor())
        motor << "--servidor" << e.sesion.UrlServidor;
    return EjecutarCli(e.dir.path(),
                       motor + QStringList{"--empresa", "Emp100", "--ano", QString::number(ano)} +
                           args);
}

bool Existe(const Entorno& e, int ano) {
    Sesion s = e.sesion;
    s.EmpresaActual = "Emp100";
    return ExisteEjercicio(s, ano);
}

// The balance of each subaccount in the trial balance of a year, in cents.
QMap<QString, qint64> Saldos(Entorno& e, int ano) {
    const ResultadoCli r = Cli(e, ano, {"sumas-saldos"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    QMap<QString, qint64> m;
    for (const QString& linea : r.salida.split('\n', Qt::SkipEmptyParts)) {
        const QStringList c = linea.split('\t');
        if (c.size() < 6 || c[5].isEmpty() || c[5] == "NCuenta")
            continue;
        QString saldo = c[4];
        saldo.remove('.').replace(',', '.');
        m[c[5]] = qRound64(saldo.toDouble() * 100);
    }
    return m;
}

bool DeResultados(const QString& ncuenta) {
    return ncuenta.mid(1, 1) == "6" || ncuenta.mid(1, 1) == "7";
}

TEST(CierreCli, CierreConTraspasoInversionYOtroCierre) {
    Entorno e;
    e.instalarDemo();
    const QMap<QString, qint64> antes = Saldos(e, 2026);
    const QString sumasAntes = Cli(e, 2026, {"sumas-saldos"}).salida;
    ASSERT_FALSE(antes.isEmpty());

    // Without --si the questions are answered No: nothing is made.
    ResultadoCli r = Cli(e, 2026, {"cerrar-ejercicio", "--trasladar-a", "2027"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("traspasándolos al ejercicio 2027 , asiento nº 1. Es correcto? "
                                 "[No: falta --si]"))
        << r.error.toStdString();
    EXPECT_FALSE(Existe(e, 2027));

    r = Cli(e, 2026, {"cerrar-ejercicio", "--trasladar-a", "2027", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.startsWith("Cerrado el ejercicio 2026.\n")) << r.salida.toStdString();
    EXPECT_TRUE(
        r.salida.contains("Saldos traspasados al ejercicio 2027, asiento de apertura nº 1."));
    EXPECT_TRUE(r.error.contains("Asiento Final: 100 %")) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains("Proceso terminado."));

    // 2026 squared; 2027 opens with the balances of 2026, the result in 120 or 121.
    for (auto [ncuenta, saldo] : Saldos(e, 2026).asKeyValueRange())
        EXPECT_EQ(saldo, 0) << ncuenta.toStdString();
    QMap<QString, qint64> esperado;
    qint64 resultado = 0;
    for (auto [ncuenta, saldo] : antes.asKeyValueRange()) {
        if (DeResultados(ncuenta) || ncuenta == "012900002")
            resultado += saldo;
        else if (saldo != 0)
            esperado[ncuenta] += saldo;
    }
    ASSERT_NE(resultado, 0);
    esperado[resultado < 0 ? "012000103" : "012100104"] += resultado;
    QMap<QString, qint64> apertura = Saldos(e, 2027);
    apertura.removeIf([](auto par) { return par.value() == 0; });
    EXPECT_EQ(apertura, esperado);

    // Reversal: 2026 as it was, 2027 untouched.
    r = Cli(e, 2026, {"abrir-ejercicio", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(Cli(e, 2026, {"sumas-saldos"}).salida, sumasAntes);
    const QString sumas2027 = Cli(e, 2027, {"sumas-saldos"}).salida;
    r = Cli(e, 2026, {"abrir-ejercicio", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("El ejercicio 2026 no está cerrado")) << r.error.toStdString();

    // Closing again updates the opening entry nº 1: the same balances.
    r = Cli(e, 2026,
            {"cerrar-ejercicio", "--trasladar-a", "2027", "--asiento-apertura", "1", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(Cli(e, 2027, {"sumas-saldos"}).salida, sumas2027);
    r = Cli(e, 2026, {"cerrar-ejercicio", "--sin-traslado", "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("El ejercicio 2026 ya está cerrado.")) << r.error.toStdString();
}

TEST(CierreCli, OpcionesQueSeRechazan) {
    Entorno e;
    e.instalarDemo();
    const struct {
        QStringList args;
        const char* mensaje;
    } casos[] = {
        {{"cerrar-ejercicio", "--si"}, "Indique --trasladar-a AAAA o --sin-traslado."},
        {{"cerrar-ejercicio", "--sin-traslado", "--trasladar-a", "2027", "--si"},
         "Indique --trasladar-a AAAA o --sin-traslado."},
        {{"cerrar-ejercicio", "--trasladar-a", "27", "--si"}, "Indique el año (con cuatro cifras)"},
        {{"cerrar-ejercicio", "--trasladar-a", "2026", "--si"},
         "El año seleccionado tiene que ser distinto del actual."},
        {{"cerrar-ejercicio", "--trasladar-a", "2030", "--asiento-apertura", "3", "--si"},
         "El ejercicio 2030 no existe: se creará"},
        {{"cerrar-ejercicio", "--sin-traslado", "--asiento-apertura", "3", "--si"},
         "--asiento-apertura sólo se indica al traspasar los saldos."},
        {{"abrir-ejercicio", "--si"}, "El ejercicio 2026 no está cerrado"},
    };
    const QString sumas = Cli(e, 2026, {"sumas-saldos"}).salida;
    for (const auto& c : casos) {
        const ResultadoCli r = Cli(e, 2026, c.args);
        EXPECT_EQ(r.codigo, 1) << c.args.join(' ').toStdString();
        EXPECT_TRUE(r.error.contains(QString::fromUtf8(c.mensaje)))
            << c.args.join(' ').toStdString() << ": " << r.error.toStdString();
    }
    EXPECT_EQ(Cli(e, 2026, {"sumas-saldos"}).salida, sumas);
    EXPECT_FALSE(Existe(e, 2030));
}

TEST(CierreCli, ReorganizarUnLibroSano) {
    Entorno e;
    e.instalarDemo();
    const QString sumas = Cli(e, 2026, {"sumas-saldos"}).salida;
    const ResultadoCli r = Cli(e, 2026, {"reorganizar"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.startsWith("Mayor reconstruido: ")) << r.salida.toStdString();
    EXPECT_TRUE(r.salida.contains("Registros de IVA sin apunte eliminados: 0."));
    for (const char* etapa : {"Diario: 100 %", "Saldos: 100 %", "Registros IVA: 100 %"})
        EXPECT_TRUE(r.error.contains(etapa)) << r.error.toStdString();
    EXPECT_EQ(Cli(e, 2026, {"sumas-saldos"}).salida, sumas);
}

} // namespace

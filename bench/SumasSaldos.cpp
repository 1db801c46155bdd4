// The trial balance of a 250,000-line exercise (100,000 entries of two or three lines over 700
// subaccounts), each run as a whole quilmar-cli process writing text: the whole exercise (sums of
// Mayor) and a quarter (sums of the journal). For scale, the same in-process fill and SQLite's
// own aggregate of the journal for the whole year and for the quarter.
// Run: cmake -DQUILMAR_BENCH=ON ... && ./build/bench_SumasSaldos

#include "reports/SumasSaldos.h"
#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QSqlQuery>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>

namespace {

constexpr int Asientos = 100000;
constexpr int Clientes = 500, Proveedores = 200;

Apunte Linea(const QString& cuenta, double debe, double haber) {
    Apunte a;
    a.NCuenta = cuenta;
    a.Concepto = QStringLiteral("Movimiento de prueba");
    a.Debe = debe;
    a.Haber = haber;
    return a;
}

EmpresaDePrueba& Datos() {
    static EmpresaDePrueba* e = [] {
        auto* n = new EmpresaDePrueba;
        QElapsedTimer reloj;
        reloj.start();
        Conexion c = AbrirDatos(n->sesion);
        Transaccion t(c);
        QStringList clientes, proveedores;
        for (int i = 1; i <= Clientes; ++i)
            clientes << QStringLiteral("44309%1").arg(i, 4, 10, QLatin1Char('0'));
        for (int i = 1; i <= Proveedores; ++i)
            proveedores << QStringLiteral("24009%1").arg(i, 4, 10, QLatin1Char('0'));
        for (const QString& s : clientes + proveedores)
            c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES "
                                      "(?, ?, ?)"),
                       {s, QStringLiteral("Tercero %1").arg(s), s.left(4)});
        const QString ventas = "370000066", compras = "660000044", banco = "157200003",
                      ivaRep = "247700016", ivaSop = "447200028";
        for (int k = 0; k < Asientos; ++k) {
            const QDate fecha = QDate(2024, 1, 1).addDays(k * 366 / Asientos);
            const double base = std::round((100 + (k % 997) * 3.17) * 100) / 100;
            const double cuota = std::round(base * 21) / 100;
            QList<Apunte> ap;
            switch (k % 4) {
            case 0: // a sale
                ap = {Linea(clientes[k % Clientes], base + cuota, 0), Linea(ventas, 0, base),
                      Linea(ivaRep, 0, cuota)};
                break;
            case 1: // its collection
                ap = {Linea(banco, base, 0), Linea(clientes[(k / 2) % Clientes], 0, base)};
                break;
            case 2: // a purchase
                ap = {Linea(compras, base, 0), Linea(ivaSop, cuota, 0),
                      Linea(proveedores[k % Proveedores], 0, base + cuota)};
                break;
            default: // its payment
                ap = {Linea(proveedores[(k / 3) % Proveedores], base, 0), Linea(banco, 0, base)};
            }
            EscribirAsiento(c, n->sesion, fecha, ap);
        }
        t.confirmar();
        const qlonglong lineas =
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario")).toLongLong();
        std::fprintf(stderr, "Ejercicio de prueba: %d asientos, %lld apuntes en %.1f s\n", Asientos,
                     lineas, reloj.elapsed() / 1000.0);
        return n;
    }();
    return *e;
}

QString Cli() {
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("quilmar-cli"));
}

// One whole process: start, open the company, fill, write the text to a pipe.
void ProcesoCli(benchmark::State& estado, bool trimestre) {
    EmpresaDePrueba& d = Datos();
    QStringList args{"--datos", d.dir.path(), "--empresa",   "Emp001",
                     "--ano",   "2024",       "sumas-saldos"};
    if (trimestre)
        args << "--desde"
             << "01/04/2024"
             << "--hasta"
             << "30/06/2024";
    qint64 bytes = 0;
    for (auto _ : estado) {
        QProcess p;
        p.start(Cli(), args);
        p.waitForFinished(-1);
        const QByteArray salida = p.readAllStandardOutput();
        if (p.exitCode() != 0) {
            estado.SkipWithError(p.readAllStandardError().constData());
            break;
        }
        bytes = salida.size();
        estado.counters["lineas"] = salida.count('\n');
    }
    estado.counters["bytes"] = double(bytes);
}
BENCHMARK_CAPTURE(ProcesoCli, ejercicio, false)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10);
BENCHMARK_CAPTURE(ProcesoCli, trimestre, true)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(10);

// A process that does nothing but start and open the company: the floor of the two above.
void ProcesoVacio(benchmark::State& estado) {
    EmpresaDePrueba& d = Datos();
    for (auto _ : estado) {
        QProcess p;
        p.start(Cli(), {"--datos", d.dir.path(), "--empresa", "Emp001", "--ano", "2024",
                        "sumas-saldos", "--desde", "01/01/2030", "--hasta", "01/01/2030"});
        p.waitForFinished(-1);
    }
}
BENCHMARK(ProcesoVacio)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);

// The fill alone, in this process.
void Llenar(benchmark::State& estado, bool trimestre) {
    EmpresaDePrueba& d = Datos();
    const QDate desde = trimestre ? QDate(2024, 4, 1) : d.sesion.FechaIniEj;
    const QDate hasta = trimestre ? QDate(2024, 6, 30) : d.sesion.FechaFinEj;
    for (auto _ : estado) {
        Rejilla r = RejillaSyS();
        Conexion c = AbrirDatos(d.sesion);
        LlenarSyS(c, d.sesion, desde, hasta, r);
        estado.counters["filas"] = r.Filas();
    }
}
BENCHMARK_CAPTURE(Llenar, ejercicio, false)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK_CAPTURE(Llenar, trimestre, true)->Unit(benchmark::kMillisecond)->Iterations(10);

// SQLite's own sums of the journal by subaccount, the yardstick of the reads above.
void SumasSqlite(benchmark::State& estado, bool trimestre) {
    EmpresaDePrueba& d = Datos();
    const QString desde = trimestre ? "2024-04-01" : "2024-01-01";
    const QString hasta = trimestre ? "2024-06-30" : "2024-12-31";
    for (auto _ : estado) {
        Conexion c = AbrirDatos(d.sesion);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, SUM(Debe), SUM(Haber) FROM "
                                                "Diario WHERE Fecha BETWEEN ? AND ? GROUP BY "
                                                "NCuenta"),
                                 {desde, hasta});
        int n = 0;
        while (q.next())
            ++n;
        estado.counters["filas"] = n;
    }
}
// The same through the covering index Diario(NCuenta, Fecha, Debe, Haber), SQLite at its best.
void SumasSqliteIndice(benchmark::State& estado, bool trimestre) {
    EmpresaDePrueba& d = Datos();
    const QString desde = trimestre ? "2024-04-01" : "2024-01-01";
    const QString hasta = trimestre ? "2024-06-30" : "2024-12-31";
    for (auto _ : estado) {
        Conexion c = AbrirDatos(d.sesion);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, SUM(Debe), SUM(Haber) FROM "
                                                "Diario INDEXED BY IxDiarioCuenta WHERE Fecha "
                                                "BETWEEN ? AND ? GROUP BY NCuenta"),
                                 {desde, hasta});
        int n = 0;
        while (q.next())
            ++n;
        estado.counters["filas"] = n;
    }
}
BENCHMARK_CAPTURE(SumasSqliteIndice, ejercicio, false)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);
BENCHMARK_CAPTURE(SumasSqliteIndice, trimestre, true)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);
BENCHMARK_CAPTURE(SumasSqlite, ejercicio, false)->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK_CAPTURE(SumasSqlite, trimestre, true)->Unit(benchmark::kMillisecond)->Iterations(10);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Datos();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

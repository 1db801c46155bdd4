// Posting 10,000 entries of two to four lines, one in four with a VAT line, one by one through
// the journal writer, each in its own transaction.

#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

QList<Apunte> asiento(int i) {
    auto linea = [](const char* ncuenta, double debe, double haber) {
        Apunte a;
        a.NCuenta = QString::fromLatin1(ncuenta);
        a.Concepto = QStringLiteral("Asiento de rendimiento");
        a.Debe = debe;
        a.Haber = haber;
        a.Documento = QStringLiteral("D-1");
        return a;
    };
    const double a = (i % 97) + 1.25;
    if (i % 4 == 0) {
        const double cuota = Centimos(a * 0.21);
        Apunte iva = linea("447200028", cuota, 0);
        iva.Iva = DatosIvaApunte{QStringLiteral("240000009"), QStringLiteral("F-%1").arg(i), a, 21,
                                 cuota};
        return {linea("660000044", a, 0), iva, linea("240000009", 0, a + cuota)};
    }
    const int n = 2 + i % 3;
    const char* debe[] = {"660000044", "157000001", "157200003"};
    QList<Apunte> r;
    for (int k = 0; k < n - 1; ++k)
        r << linea(debe[k], a, 0);
    r << linea("370000066", 0, a * (n - 1));
    return r;
}

void BM_PublicarUnoAUno(benchmark::State& estado) {
    constexpr int N = 10000;
    for (auto _ : estado) {
        estado.PauseTiming();
        EmpresaDePrueba e;
        Conexion c = AbrirDatos(e.sesion);
        estado.ResumeTiming();
        for (int i = 1; i <= N; ++i)
            EscribirAsiento(c, e.sesion, QDate(2024, 1 + i % 12, 1 + i % 28), asiento(i));
        estado.PauseTiming();
        if (DescuadresMayor(c).size() != 0 ||
            c.escalar(QStringLiteral("SELECT COUNT(DISTINCT NAs) FROM Diario")).toInt() != N)
            estado.SkipWithError("the books are wrong");
        estado.ResumeTiming();
    }
    estado.counters["asientos/s"] = benchmark::Counter(static_cast<double>(N) * estado.iterations(),
                                                       benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PublicarUnoAUno)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// Importing 100,000 entries (about 250,000 lines) from one CSV file, as quilmar-cli importar
// does: one connection, one transaction.

#include "CsvAsientos.h"
#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "posting/Importar.h"
#include "store/Conexiones.h"

#include <QCoreApplication>
#include <QFile>
#include <benchmark/benchmark.h>

namespace {

QString escribirFichero(const QString& ruta, int asientos) {
    EscribirCsvAsientos(ruta, asientos);
    return ruta;
}

void BM_Importar100000(benchmark::State& estado) {
    constexpr int N = 100000;
    for (auto _ : estado) {
        estado.PauseTiming();
        EmpresaDePrueba e;
        const QString ruta = escribirFichero(e.dir.filePath(QStringLiteral("a.csv")), N);
        estado.ResumeTiming();
        const ResultadoImportacion r = ImportarAsientos(e.sesion, ruta);
        estado.PauseTiming();
        Conexion c = AbrirDatos(e.sesion);
        if (r.asientos != N || !DescuadresMayor(c).isEmpty())
            estado.SkipWithError("the books are wrong");
        estado.counters["apuntes"] = static_cast<double>(r.lineas);
        estado.ResumeTiming();
    }
}
BENCHMARK(BM_Importar100000)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

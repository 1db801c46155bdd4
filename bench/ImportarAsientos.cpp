// Importing 100,000 entries (about 250,000 lines) from one CSV file, as quilmar-cli importar
// does: one connection, one transaction.

#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "posting/Importar.h"
#include "store/Conexiones.h"

#include <QCoreApplication>
#include <QFile>
#include <benchmark/benchmark.h>

namespace {

// Two to four lines an entry, 262,500 lines in all.
QString escribirFichero(const QString& ruta, int asientos) {
    QFile f(ruta);
    f.open(QIODevice::WriteOnly);
    QByteArray b = "NAs;NAp;Fecha;NCuenta;Concepto;Debe;Haber;Documento\n";
    const char* debe[] = {"660000044", "157000001", "157200003"};
    const int forma[] = {2, 3, 2, 3, 2, 3, 4, 2};
    for (int i = 1; i <= asientos; ++i) {
        const int n = forma[i % 8];
        const QByteArray fecha =
            QStringLiteral("%1/%2/2024").arg(1 + i % 28).arg(1 + i % 12).toUtf8();
        const double a = (i % 997) / 4.0 + 1;
        for (int k = 0; k < n - 1; ++k)
            b += QByteArray::number(i) + ';' + QByteArray::number(k + 1) + ';' + fecha + ';' +
                 debe[k] + ";Asiento " + QByteArray::number(i) + ';' +
                 QByteArray::number(a, 'f', 2).replace('.', ',') + ";;D" + QByteArray::number(i) +
                 '\n';
        b += QByteArray::number(i) + ';' + QByteArray::number(n) + ';' + fecha +
             ";370000066;Asiento " + QByteArray::number(i) + ";;" +
             QByteArray::number(a * (n - 1), 'f', 2) + ";D" + QByteArray::number(i) + '\n';
    }
    f.write(b);
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

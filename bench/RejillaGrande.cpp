// A book-sized grid: 500,000 journal lines of fourteen columns, filled, shown in the list table
// (first screen and a jump to the last row), sorted, and exported. Run: make bench.

#include "platform/ExportarRejilla.h"
#include "platform/Rejilla.h"
#include "platform/forms/TablaRejilla.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Filas = 500000;

Rejilla Columnas() {
    return Rejilla({{"Asiento", TipoColumna::Entero},
                    {"Ap.", TipoColumna::Entero},
                    {"Fecha", TipoColumna::Fecha},
                    {"Subcuenta"},
                    {"Concepto"},
                    {"Debe", TipoColumna::Importe},
                    {"Haber", TipoColumna::Importe},
                    {"NCuenta", TipoColumna::Texto, true},
                    {"Sector"},
                    {"Documento"},
                    {"Base IVA", TipoColumna::Importe},
                    {"Cuota IVA", TipoColumna::Importe},
                    {"Cliente/Proveedor"},
                    {"Factura"}});
}

QString Linea(int i) {
    const int asiento = i / 4 + 1;
    const bool debe = i % 4 < 2;
    const QString importe =
        QStringLiteral("%1,%2").arg(1000 + i % 9000).arg(i % 100, 2, 10, QLatin1Char('0'));
    return QStringLiteral("%1\t%2\t%3/%4/2024\tBanco Santander cuenta corriente\tFactura de "
                          "suministros de oficina nº %5\t%6\t%7\t572000001\tA\tDOC-%5\t\t\t\t")
        .arg(asiento)
        .arg(i % 4 + 1)
        .arg(1 + i % 28, 2, 10, QLatin1Char('0'))
        .arg(1 + i % 12, 2, 10, QLatin1Char('0'))
        .arg(i)
        .arg(debe ? importe : QString())
        .arg(debe ? QString() : importe);
}

const Rejilla& Llena() {
    static const Rejilla r = [] {
        Rejilla g = Columnas();
        for (int i = 0; i < Filas; ++i)
            g.AgregarFila(Linea(i));
        return g;
    }();
    return r;
}

long MemoriaKb() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& l : f.readAll().split('\n'))
        if (l.startsWith("VmRSS:"))
            return l.mid(6).trimmed().split(' ').value(0).toLong();
    return 0;
}

void Llenar(benchmark::State& estado) {
    for (auto _ : estado) {
        estado.PauseTiming();
        const long antes = MemoriaKb();
        QStringList lineas;
        lineas.reserve(Filas);
        for (int i = 0; i < Filas; ++i)
            lineas << Linea(i);
        estado.ResumeTiming();
        Rejilla r = Columnas();
        for (const QString& l : lineas)
            r.AgregarFila(l);
        benchmark::DoNotOptimize(r.Filas());
        estado.PauseTiming();
        // The lines are shared with the grid: dropping them leaves the grid's own memory.
        lineas.clear();
        estado.counters["MB"] = double(MemoriaKb() - antes) / 1024.0;
        estado.ResumeTiming();
    }
}
BENCHMARK(Llenar)->Unit(benchmark::kMillisecond)->Iterations(1);

void Mostrar(benchmark::State& estado) {
    const Rejilla& r = Llena();
    for (auto _ : estado) {
        TablaRejilla tabla;
        tabla.resize(1200, 800);
        tabla.mostrar(&r);
        tabla.show();
        QApplication::processEvents();
        tabla.viewport()->grab(); // the first screen painted
        tabla.verticalScrollBar()->setValue(tabla.verticalScrollBar()->maximum());
        QApplication::processEvents();
        tabla.viewport()->grab(); // and the last
        benchmark::DoNotOptimize(tabla.model()->rowCount());
    }
}
BENCHMARK(Mostrar)->Unit(benchmark::kMillisecond)->Iterations(3);

void OrdenarNumero(benchmark::State& estado) {
    for (auto _ : estado) {
        estado.PauseTiming();
        Rejilla r = Llena();
        estado.ResumeTiming();
        r.Ordenar(5, Orden::Numero);
    }
}
BENCHMARK(OrdenarNumero)->Unit(benchmark::kMillisecond)->Iterations(3);

void OrdenarTexto(benchmark::State& estado) {
    for (auto _ : estado) {
        estado.PauseTiming();
        Rejilla r = Llena();
        estado.ResumeTiming();
        r.Ordenar(4, Orden::Texto);
    }
}
BENCHMARK(OrdenarTexto)->Unit(benchmark::kMillisecond)->Iterations(3);

void Exportar(benchmark::State& estado, FormatoExportacion formato, const char* nombre) {
    const Rejilla& r = Llena();
    QTemporaryDir dir;
    for (auto _ : estado)
        ExportarRejilla(r, dir.filePath(QLatin1String(nombre)), formato);
    estado.counters["MB"] = double(QFile(dir.filePath(QLatin1String(nombre))).size()) / 1048576.0;
}
BENCHMARK_CAPTURE(Exportar, xlsx, FormatoExportacion::Xlsx, "d.xlsx")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);
BENCHMARK_CAPTURE(Exportar, txt, FormatoExportacion::Texto, "d.txt")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// The journal of a 250,000-line exercise: the grid of its list window filled (LlenarDiario) and
// shown, and the official and draft books printed to PDF. The exercise is made once, in the
// setup, through the journal writer (62,500 entries of four lines, one in four with VAT data),
// inside one transaction so that it takes seconds.
// Run: cmake -DQUILMAR_BENCH=ON ... && ./build/bench_Diario

#include "reports/Diario.h"
#include "journal/Escritor.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/ImpresoraPintor.h"
#include "platform/Rejilla.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/ImpresionDiario.h"
#include "store/Conexiones.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <malloc.h>

namespace {

constexpr int Asientos = 62500; // four lines each

// Heap in use, in MB: what a structure really holds, whatever the allocator keeps from before.
double HeapMb() {
    return double(mallinfo2().uordblks) / 1048576.0;
}

// Peak resident memory of the process so far, in MB.
double PicoMb() {
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& l : f.readAll().split('\n'))
        if (l.startsWith("VmHWM:"))
            return l.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    return 0;
}

Apunte Linea(const QString& cuenta, const QString& concepto, double debe, double haber);

struct Instalacion {
    QTemporaryDir dir;
    Sesion s;
    std::unique_ptr<Ajustes> a;
};

Instalacion& Datos() {
    static Instalacion* i = [] {
        auto* n = new Instalacion;
        n->s.AppPath = n->s.DataPath = n->dir.path();
        n->a = std::make_unique<Ajustes>(n->dir.path());
        EscribirPLoc(n->s, n->s.AppPath);
        PrepararInstalacion(n->s);
        DatosNuevaEmpresa d;
        d.Codigo = QStringLiteral("001");
        d.Nombre = QStringLiteral("Distribuciones del Ebro SL");
        d.FechaIni = QDate(2024, 1, 1);
        CrearEmpresa(n->s, *n->a, d);

        QElapsedTimer reloj;
        reloj.start();
        Conexion c = AbrirDatos(n->s);
        auto primera = [&](const char* patron) {
            return c
                .escalar(QStringLiteral("SELECT NCuenta FROM Cuentas WHERE NCuenta LIKE ? "
                                        "ORDER BY NCuenta LIMIT 1"),
                         {QString::fromLatin1(patron)})
                .toString();
        };
        const QString compras = primera("_600%"), iva = primera("_472%"),
                      proveedor = primera("_400%"), banco = primera("_572%"),
                      ventas = primera("_700%"), cliente = primera("_430%");
        Transaccion t(c);
        for (int k = 0; k < Asientos; ++k) {
            const QDate fecha = QDate(2024, 1, 1).addDays(k * 366 / Asientos);
            const double base = std::round((100 + (k % 997) * 3.17) * 100) / 100;
            const QString concepto =
                QStringLiteral("Factura de suministros de oficina nº %1 del proveedor habitual")
                    .arg(k);
            QList<Apunte> ap;
            if (k % 4 == 0) {
                const double cuota = std::round(base * 21) / 100;
                Apunte a1 = Linea(compras, concepto, base, 0);
                Apunte a2 = Linea(iva, concepto, cuota, 0);
                DatosIvaApunte v;
                v.Contra = proveedor;
                v.Factura = QStringLiteral("F-%1").arg(k);
                v.Base = base;
                v.Porcentaje = 21;
                v.Cuota = cuota;
                a2.Iva = v;
                ap = {a1, a2, Linea(proveedor, concepto, 0, base + cuota - 10),
                      Linea(banco, concepto, 0, 10)};
            } else {
                ap = {Linea(cliente, concepto, base, 0), Linea(banco, concepto, 1, 0),
                      Linea(ventas, concepto, 0, base), Linea(cliente, concepto, 0, 1)};
            }
            for (Apunte& a : ap)
                a.Documento = QStringLiteral("DOC-%1").arg(k);
            EscribirAsiento(c, n->s, fecha, ap);
        }
        t.confirmar();
        const qlonglong lineas =
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario")).toLongLong();
        std::fprintf(stderr, "Ejercicio de prueba: %lld apuntes en %.1f s\n", lineas,
                     reloj.elapsed() / 1000.0);
        return n;
    }();
    return *i;
}

Apunte Linea(const QString& cuenta, const QString& concepto, double debe, double haber) {
    Apunte a;
    a.NCuenta = cuenta;
    a.Concepto = concepto;
    a.Debe = debe;
    a.Haber = haber;
    return a;
}

SeleccionDiario Todo() {
    Instalacion& d = Datos();
    return SeleccionDiarioInicial(d.s, MaxAsiento(d.s));
}

void LlenarRejilla(benchmark::State& estado) {
    Instalacion& d = Datos();
    const SeleccionDiario sel = Todo();
    for (auto _ : estado) {
        const double antes = HeapMb();
        Rejilla r = RejillaDiario();
        {
            Conexion c = AbrirDatos(d.s);
            LlenarDiario(c, sel, r);
        }
        estado.counters["filas"] = r.Filas();
        estado.counters["rejilla_MB"] = HeapMb() - antes;
        estado.counters["pico_MB"] = PicoMb();
    }
}
BENCHMARK(LlenarRejilla)->Unit(benchmark::kMillisecond)->Iterations(3);

// The fill as the window does it, then the table shown and scrolled to the end.
void LlenarYMostrar(benchmark::State& estado) {
    Instalacion& d = Datos();
    const SeleccionDiario sel = Todo();
    for (auto _ : estado) {
        Rejilla r = RejillaDiario();
        Conexion c = AbrirDatos(d.s);
        LlenarDiario(c, sel, r, [](qint64, qint64) {});
        TablaRejilla tabla;
        tabla.resize(1200, 800);
        tabla.mostrar(&r);
        tabla.show();
        QApplication::processEvents();
        tabla.verticalScrollBar()->setValue(tabla.verticalScrollBar()->maximum());
        QApplication::processEvents();
        tabla.viewport()->grab();
    }
}
BENCHMARK(LlenarYMostrar)->Unit(benchmark::kMillisecond)->Iterations(1);

void ImprimirPdfDiario(benchmark::State& estado, bool borrador) {
    Instalacion& d = Datos();
    QTemporaryDir salida;
    const QString ruta = salida.filePath(QStringLiteral("diario.pdf"));
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = 567;
    op.fechaTrabajo = QDate(2025, 1, 31);
    op.borrador = borrador;
    for (auto _ : estado) {
        ImpresionDiario impreso(d.s, Todo(), op);
        const int hojas = ImprimirPdf(ruta, impreso.Dibujo());
        estado.counters["hojas"] = hojas;
        estado.counters["pico_MB"] = PicoMb();
    }
    estado.counters["PDF_MB"] = double(QFile(ruta).size()) / 1048576.0;
}
BENCHMARK_CAPTURE(ImprimirPdfDiario, oficial, false)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(ImprimirPdfDiario, borrador, true)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Datos();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

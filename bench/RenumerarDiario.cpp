// Renumbering a journal of 250,000 lines (100,000 entries of two or three lines, one in four
// with a VAT record) whose numbers don't follow the dates, in one transaction.

#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "posting/Renumerar.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

constexpr int Asientos = 100000;

// The journal written straight into the table: numbers in posting order, dates scattered over
// the year, so that almost every line changes its number.
long llenarDiario(Conexion& c) {
    Transaccion t(c);
    const char* debe[] = {"660000044", "157000001", "157200003"};
    const QString sql = QStringLiteral(
        "INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Concepto, Debe, Haber, IdIVA) "
        "VALUES (?,?,?,?,?,?,?,?)");
    const QDate inicio(2024, 1, 1);
    long lineas = 0;
    qint64 id = 46000000000;
    for (int i = 1; i <= Asientos; ++i) {
        const QString fecha = FechaISO(inicio.addDays((i * 7919) % 366));
        const double a = (i % 97) + 1.25;
        const int n = 2 + (i % 2);
        int nap = 0;
        for (int k = 0; k < n - 1; ++k) {
            const bool iva = k == 1 && i % 4 == 1;
            const QString cuenta = iva ? QStringLiteral("447200028") : QString::fromLatin1(debe[k]);
            if (iva) {
                ++id;
                c.preparada(QStringLiteral("INSERT INTO DatosIVA (IdIVA, NCuenta, CP, Fecha, "
                                           "NFactura, Base, Porcentaje, Cuota) "
                                           "VALUES (?, '240000009', 'P', ?, 'F', ?, 21, ?)"),
                            {id, fecha, a * 100 / 21, a});
            }
            c.preparada(sql, {i, ++nap, fecha, cuenta, QStringLiteral("Rendimiento"), a, 0.0,
                              iva ? id : 0});
        }
        c.preparada(sql, {i, ++nap, fecha, QStringLiteral("370000066"),
                          QStringLiteral("Rendimiento"), 0.0, a * (n - 1), 0});
        lineas += n;
    }
    c.ejecutar(QStringLiteral("DELETE FROM Mayor"));
    c.ejecutar(QStringLiteral("INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) SELECT NCuenta, "
                              "round(SUM(Debe), 2), round(SUM(Haber), 2) FROM Diario GROUP BY "
                              "NCuenta"));
    t.confirmar();
    return lineas;
}

void BM_RenumerarDiario(benchmark::State& estado) {
    long lineas = 0;
    for (auto _ : estado) {
        estado.PauseTiming();
        EmpresaDePrueba e;
        Conexion c = AbrirDatos(e.sesion);
        lineas = llenarDiario(c);
        estado.ResumeTiming();
        const long ultimo = RenumerarDiario(c, e.sesion);
        estado.PauseTiming();
        // Numbers by date, every entry kept whole, the books as they were.
        const bool bien =
            ultimo == Asientos && DescuadresMayor(c).isEmpty() &&
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM (SELECT NAs, LAG(NAs) OVER (ORDER BY "
                                     "Fecha, NAs) AS Antes FROM Diario) WHERE NAs < Antes"))
                    .toInt() == 0 &&
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM (SELECT NAs FROM Diario GROUP BY NAs "
                                     "HAVING round(SUM(Debe) - SUM(Haber), 2) <> 0)"))
                    .toInt() == 0 &&
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM DatosIVA v JOIN Diario d ON "
                                     "d.IdIVA = v.IdIVA"))
                    .toInt() == Asientos / 4;
        if (!bien)
            estado.SkipWithError("the renumbered journal is wrong");
        estado.ResumeTiming();
    }
    estado.counters["lineas"] = static_cast<double>(lineas);
}
BENCHMARK(BM_RenumerarDiario)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

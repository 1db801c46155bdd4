// The same work on both engines, side by side: a 100,000-entry exercise (about 250,000 lines) on
// the files and the same exercise copied onto a PostgreSQL server on this machine (a throwaway
// cluster made by scripts/cluster-pruebas.sh and removed at the end). Timed in this process, as
// the screens and quilmar-cli run them: the trial balance of the whole exercise, the movements of
// the busiest subaccount over the whole exercise, and the import of 100,000 entries from one CSV
// file into an empty exercise. Each several times; median and maximum in seconds.
// Run: make bench, or ./build-bench/bench_Motores [runs]

#include "CsvAsientos.h"
#include "EjercicioGrande.h"
#include "Empresa.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "posting/Importar.h"
#include "reports/Movimientos.h"
#include "reports/SumasSaldos.h"
#include "store/Conexiones.h"
#include "store/Migracion.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace {

const QString Guion = QStringLiteral(QUILMAR_RAIZ "/scripts/cluster-pruebas.sh");

QString leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).trimmed() : QString();
}

QString cargaMedia() {
    return leer(QStringLiteral("/proc/loadavg")).section(QLatin1Char(' '), 0, 2);
}

// The cluster for the whole run, stopped and removed at exit.
class Cluster {
public:
    Cluster() {
        carpeta_.setAutoRemove(false);
        QProcess::execute(Guion, {QStringLiteral("arrancar"), carpeta_.path()});
        puerto_ = leer(carpeta_.filePath(QStringLiteral("puerto")));
        motivo_ = leer(carpeta_.filePath(QStringLiteral("motivo")));
    }
    ~Cluster() { QProcess::execute(Guion, {QStringLiteral("parar"), carpeta_.path()}); }
    bool disponible() const { return !puerto_.isEmpty(); }
    const QString& motivo() const { return motivo_; }
    // A new empty database of the cluster.
    Servidor nuevaBase() {
        Servidor s;
        s.host = QStringLiteral("127.0.0.1");
        s.puerto = puerto_.toInt();
        s.usuario = QStringLiteral("quilmar");
        s.base = QStringLiteral("postgres");
        {
            Conexion c(s, QStringLiteral("public"));
            c.ejecutar(QStringLiteral("CREATE DATABASE bench%1").arg(++bases_));
        }
        s.base = QStringLiteral("bench%1").arg(bases_);
        return s;
    }

private:
    QTemporaryDir carpeta_;
    QString puerto_, motivo_;
    int bases_ = 0;
};

// A company of the generic chart on the files, or the same copied onto a new database of the
// server.
std::unique_ptr<EmpresaDePrueba> empresa(Cluster* servidor,
                                         const std::function<void(Sesion&)>& llenar = {}) {
    auto e = std::make_unique<EmpresaDePrueba>();
    if (llenar)
        llenar(e->sesion);
    if (servidor) {
        const Servidor s = servidor->nuevaBase();
        MigrarAServidor(e->sesion, s);
        e->sesion.UrlServidor = s.url();
        CargarEjercicio(e->sesion);
    }
    return e;
}

struct Medida {
    double mediana = 0, maximo = 0;
    int veces = 0;
};

// Runs hacer n times; preparar (untimed) before each.
Medida medir(int n, const std::function<void()>& hacer,
             const std::function<void()>& preparar = {}) {
    std::vector<double> t;
    for (int i = 0; i < n; ++i) {
        if (preparar)
            preparar();
        QElapsedTimer reloj;
        reloj.start();
        hacer();
        t.push_back(reloj.nsecsElapsed() / 1e9);
    }
    std::sort(t.begin(), t.end());
    Medida m;
    m.veces = n;
    m.maximo = t.back();
    m.mediana = n % 2 ? t[n / 2] : (t[n / 2 - 1] + t[n / 2]) / 2;
    return m;
}

void comprobar(bool bien, const char* que) {
    if (!bien) {
        std::fprintf(stderr, "Resultado incorrecto: %s\n", que);
        std::exit(1);
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int veces = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const int vecesImportar = std::max(1, veces / 2);
    constexpr int Asientos = 100000;
    std::printf("Carga media al empezar: %s\n", qPrintable(cargaMedia()));

    Cluster cluster;
    if (!cluster.disponible()) {
        std::printf("Sin servidor PostgreSQL: %s\n", qPrintable(cluster.motivo()));
        return 1;
    }
    QElapsedTimer reloj;
    reloj.start();
    const auto llenar = [](Sesion& s) {
        LlenarEjercicioGrande(s, Asientos);
    };
    auto archivos = empresa(nullptr, llenar);
    auto servidor = empresa(&cluster, llenar);
    std::fprintf(stderr, "Ejercicio de %d asientos en ambos motores en %.1f s\n", Asientos,
                 reloj.elapsed() / 1000.0);

    // The busiest subaccount, and what the two engines must agree on.
    QString busiest;
    qlonglong lineasBusiest = 0;
    {
        Conexion c = AbrirDatos(archivos->sesion);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, COUNT(*) FROM Diario GROUP BY "
                                                "NCuenta ORDER BY COUNT(*) DESC, NCuenta LIMIT 1"));
        q.next();
        busiest = q.value(0).toString();
        lineasBusiest = q.value(1).toLongLong();
    }

    struct Fila {
        const char* nombre;
        Medida archivos, servidor;
    };
    std::vector<Fila> filas;
    const auto sumas = [](Sesion& s, int* n) {
        Rejilla r = RejillaSyS();
        Conexion c = AbrirDatos(s);
        LlenarSyS(c, s, s.FechaIniEj, s.FechaFinEj, r);
        *n = r.Filas();
    };
    int filasA = 0, filasS = 0;
    filas.push_back({"Sumas y saldos, todo el ejercicio",
                     medir(veces, [&] { sumas(archivos->sesion, &filasA); }),
                     medir(veces, [&] { sumas(servidor->sesion, &filasS); })});
    comprobar(filasA > 0 && filasA == filasS, "sumas y saldos distintos");

    const auto movimientos = [&](Sesion& s, int* n) {
        SeleccionMovimientos sel;
        sel.desde = s.FechaIniEj;
        sel.hasta = s.FechaFinEj;
        sel.ncuenta = busiest;
        Rejilla r = RejillaMovimientos();
        Conexion c = AbrirDatos(s);
        LlenarMovimientos(c, s, sel, r);
        *n = r.Filas();
    };
    filas.push_back({"Movimientos de la subcuenta con más apuntes",
                     medir(veces, [&] { movimientos(archivos->sesion, &filasA); }),
                     medir(veces, [&] { movimientos(servidor->sesion, &filasS); })});
    comprobar(filasA >= lineasBusiest && filasA == filasS, "movimientos distintos");

    QTemporaryDir trabajo;
    const QString csv = trabajo.filePath(QStringLiteral("asientos.csv"));
    if (!EscribirCsvAsientos(csv, Asientos)) {
        std::fprintf(stderr, "No se puede escribir %s\n", qPrintable(csv));
        return 1;
    }
    std::unique_ptr<EmpresaDePrueba> vacia;
    const auto importar = [&] {
        const ResultadoImportacion r = ImportarAsientos(vacia->sesion, csv);
        comprobar(r.asientos == Asientos, "importación incompleta");
    };
    filas.push_back({"Importar 100.000 asientos de un CSV",
                     medir(vecesImportar, importar, [&] { vacia = empresa(nullptr); }),
                     medir(vecesImportar, importar, [&] { vacia = empresa(&cluster); })});
    vacia.reset();

    std::printf("Ejercicio: %d asientos; subcuenta con más apuntes %s (%lld apuntes)\n", Asientos,
                qPrintable(busiest), lineasBusiest);
    std::printf("%-46s %22s %22s\n", "", "Archivos (SQLite)", "Servidor (PostgreSQL)");
    std::printf("%-46s %10s %11s %10s %11s\n", "Prueba (segundos)", "mediana", "máximo", "mediana",
                "máximo");
    for (const Fila& f : filas)
        std::printf("%-46s %10.3f %10.3f %10.3f %10.3f   (%d veces)\n", f.nombre,
                    f.archivos.mediana, f.archivos.maximo, f.servidor.mediana, f.servidor.maximo,
                    f.archivos.veces);
    std::printf("Carga media al terminar: %s\n", qPrintable(cargaMedia()));
    return 0;
}

// The close with transfer of a 100,000-entry (250,000-line) exercise, each run a whole quilmar-cli
// process on a fresh copy of the company: into a next year that exists (empty), and into a next
// year made on the spot. Reports wall time and peak resident memory of the process (wait4), and
// for scale the process that only opens the company.
// Run: make bench, or ./build-bench/bench_Cierre [veces]

#include "EjercicioGrande.h"
#include "Empresa.h"
#include "platform/Dialogo.h"
#include "store/Ejercicios.h"
#include "store/ListasEmpresas.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

struct Medida {
    double segundos = 0;
    long memoriaKb = 0;
    int codigo = -1;
};

// One process, its wall time and peak memory.
Medida Ejecutar(const QStringList& args) {
    const QByteArray programa =
        QDir(QCoreApplication::applicationDirPath()).filePath("quilmar-cli").toLocal8Bit();
    std::vector<QByteArray> textos{programa};
    for (const QString& a : args)
        textos.push_back(a.toLocal8Bit());
    std::vector<char*> argv;
    for (QByteArray& t : textos)
        argv.push_back(t.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&acciones, 2, "/dev/null", O_WRONLY, 0);
    QElapsedTimer reloj;
    reloj.start();
    pid_t pid = 0;
    Medida m;
    if (posix_spawn(&pid, programa.constData(), &acciones, nullptr, argv.data(), environ) != 0)
        return m;
    int estado = 0;
    rusage uso{};
    wait4(pid, &estado, 0, &uso);
    m.segundos = reloj.nsecsElapsed() / 1e9;
    m.memoriaKb = uso.ru_maxrss;
    m.codigo = WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
    posix_spawn_file_actions_destroy(&acciones);
    return m;
}

void Informe(const char* nombre, std::vector<Medida> v) {
    std::sort(v.begin(), v.end(),
              [](const Medida& a, const Medida& b) { return a.segundos < b.segundos; });
    long memoria = 0;
    for (const Medida& m : v) {
        memoria = std::max(memoria, m.memoriaKb);
        if (m.codigo != 0)
            std::printf("  ¡%s terminó con código %d!\n", nombre, m.codigo);
    }
    std::printf("%-34s min %.3f s  mediana %.3f s  max %.3f s  memoria máx %.1f MB  (%zu veces)\n",
                nombre, v.front().segundos, v[v.size() / 2].segundos, v.back().segundos,
                memoria / 1024.0, v.size());
}

void CopiarArchivo(const QString& de, const QString& a) {
    QFile::remove(a);
    if (!QFile::copy(de, a))
        std::fprintf(stderr, "No se pudo copiar %s\n", qPrintable(de));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const int veces = argc > 1 ? std::max(1, atoi(argv[1])) : 5;

    // The company: 2024 with 100,000 entries, and an empty 2025 made before it filled.
    EmpresaDePrueba e;
    QElapsedTimer reloj;
    reloj.start();
    {
        Sesion s = e.sesion;
        DialogoConsola d(false);
        CrearEjercicio(s, d, 2025);
        s = e.sesion;
        LlenarEjercicioGrande(s, 100000);
        Conexion c = AbrirDatos(s);
        std::printf("Ejercicio de prueba: %lld asientos, %lld apuntes, %.1f MB, hecho en %.1f s\n",
                    c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toLongLong(),
                    c.escalar("SELECT COUNT(*) FROM Diario").toLongLong(),
                    QFileInfo(s.rutaEjercicio()).size() / 1048576.0, reloj.elapsed() / 1000.0);
    }

    const QString carpeta = e.dir.filePath("Emp001");
    const QString plantilla = e.dir.filePath("plantilla");
    QDir().mkpath(plantilla);
    for (const char* f : {"Quilmar2024.db", "Quilmar2025.db", "Selan.dat", "Bavar.db"})
        CopiarArchivo(QDir(carpeta).filePath(f), QDir(plantilla).filePath(f));
    auto restaurar = [&] {
        for (const char* f : {"Quilmar2024.db", "Quilmar2025.db", "Selan.dat", "Bavar.db"})
            CopiarArchivo(QDir(plantilla).filePath(f), QDir(carpeta).filePath(f));
        for (const char* f : {"Quilmar2026.db", "Quilmar2026.db-wal", "Quilmar2026.db-shm"})
            QFile::remove(QDir(carpeta).filePath(f));
    };

    const QStringList base{"--datos", e.dir.path(), "--empresa", "Emp001", "--ano", "2024"};
    std::vector<Medida> vacio, existente, nuevo;
    for (int i = 0; i < veces; ++i) {
        vacio.push_back(Ejecutar(
            base + QStringList{"sumas-saldos", "--desde", "01/01/2030", "--hasta", "01/01/2030"}));
        restaurar();
        existente.push_back(
            Ejecutar(base + QStringList{"cerrar-ejercicio", "--trasladar-a", "2025", "--si"}));
        restaurar();
        // A year that does not exist: made from 2024 on the spot.
        QFile::remove(QDir(carpeta).filePath("Quilmar2025.db"));
        {
            // Out of the company's list too, so that the close creates it.
            Sesion sin = e.sesion;
            QList<RegistroSelan> quedan;
            for (const RegistroSelan& r : LeerSelan(sin.rutaSelan()))
                if (r.Ano != "2025")
                    quedan << r;
            EscribirSelan(sin.rutaSelan(), quedan);
        }
        nuevo.push_back(
            Ejecutar(base + QStringList{"cerrar-ejercicio", "--trasladar-a", "2025", "--si"}));
    }
    Informe("proceso que sólo abre la empresa", vacio);
    Informe("cierre, traspaso a 2025 existente", existente);
    Informe("cierre, traspaso a 2025 nuevo", nuevo);
    return 0;
}

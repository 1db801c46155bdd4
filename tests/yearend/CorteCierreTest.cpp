// A close with transfer killed at any point of its work on the files leaves both exercises as they
// were before it or as they are after it: no half entry, Mayor equal to the journal in both, the
// flags of the current exercise agreeing with the closing entries present.
//
// The close runs in a forked child on a copy of a 100,000-entry exercise and its next year. A
// file-system shim between SQLite and the disk counts every write, truncation, sync and deletion
// of a file and kills the child with SIGKILL just before the N-th; N is chosen over the whole run,
// densest over the commit. What is asserted does not depend on where the kill lands.

#include "EjercicioGrande.h"
#include "Entorno.h"
#include "HuellaCierre.h"
#include "ServidorPruebas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/Cierre.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// ---- The shim: a VFS over the system's own that counts and, when armed, kills -----------------

namespace corte {

sqlite3_vfs* real = nullptr;
sqlite3_vfs vfs;
sqlite3_io_methods metodos;
bool contando = false;
long cuenta = 0;
long limite = 0; // 0: count only

struct Archivo {
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* de(sqlite3_file* f) {
    return reinterpret_cast<Archivo*>(f)->real;
}

// The steps that order the commit (syncs and deletions), by number, while counting.
QList<long> hitos;

void paso(bool hito = false) {
    if (!contando)
        return;
    ++cuenta;
    if (hito)
        hitos << cuenta;
    if (limite > 0 && cuenta >= limite)
        raise(SIGKILL);
}

int cerrar(sqlite3_file* f) {
    return de(f)->pMethods->xClose(de(f));
}
int leer(sqlite3_file* f, void* b, int n, sqlite3_int64 o) {
    return de(f)->pMethods->xRead(de(f), b, n, o);
}
int escribir(sqlite3_file* f, const void* b, int n, sqlite3_int64 o) {
    paso();
    return de(f)->pMethods->xWrite(de(f), b, n, o);
}
int truncar(sqlite3_file* f, sqlite3_int64 n) {
    paso();
    return de(f)->pMethods->xTruncate(de(f), n);
}
int sincronizar(sqlite3_file* f, int banderas) {
    paso(true);
    return de(f)->pMethods->xSync(de(f), banderas);
}
int tamano(sqlite3_file* f, sqlite3_int64* n) {
    return de(f)->pMethods->xFileSize(de(f), n);
}
int bloquear(sqlite3_file* f, int n) {
    return de(f)->pMethods->xLock(de(f), n);
}
int desbloquear(sqlite3_file* f, int n) {
    return de(f)->pMethods->xUnlock(de(f), n);
}
int reservado(sqlite3_file* f, int* r) {
    return de(f)->pMethods->xCheckReservedLock(de(f), r);
}
int control(sqlite3_file* f, int op, void* a) {
    return de(f)->pMethods->xFileControl(de(f), op, a);
}
int sector(sqlite3_file* f) {
    return de(f)->pMethods->xSectorSize(de(f));
}
int caracteristicas(sqlite3_file* f) {
    return de(f)->pMethods->xDeviceCharacteristics(de(f));
}
int shmMap(sqlite3_file* f, int i, int t, int e, void volatile** p) {
    return de(f)->pMethods->xShmMap(de(f), i, t, e, p);
}
int shmLock(sqlite3_file* f, int o, int n, int b) {
    return de(f)->pMethods->xShmLock(de(f), o, n, b);
}
void shmBarrier(sqlite3_file* f) {
    de(f)->pMethods->xShmBarrier(de(f));
}
int shmUnmap(sqlite3_file* f, int b) {
    return de(f)->pMethods->xShmUnmap(de(f), b);
}
int fetch(sqlite3_file* f, sqlite3_int64 o, int n, void** p) {
    return de(f)->pMethods->xFetch(de(f), o, n, p);
}
int unfetch(sqlite3_file* f, sqlite3_int64 o, void* p) {
    return de(f)->pMethods->xUnfetch(de(f), o, p);
}

int abrir(sqlite3_vfs*, sqlite3_filename nombre, sqlite3_file* f, int banderas, int* salida) {
    auto* a = reinterpret_cast<Archivo*>(f);
    a->real = reinterpret_cast<sqlite3_file*>(a + 1);
    const int r = real->xOpen(real, nombre, a->real, banderas, salida);
    a->base.pMethods = a->real->pMethods ? &metodos : nullptr;
    return r;
}
int borrar(sqlite3_vfs*, const char* nombre, int sincronia) {
    paso(true);
    return real->xDelete(real, nombre, sincronia);
}

// Becomes the default VFS of the process, counting nothing until armed.
void instalar() {
    if (real)
        return;
    real = sqlite3_vfs_find(nullptr);
    vfs = *real;
    vfs.zName = "corte";
    vfs.pNext = nullptr;
    vfs.szOsFile = static_cast<int>(sizeof(Archivo)) + real->szOsFile;
    vfs.xOpen = abrir;
    vfs.xDelete = borrar;
    metodos = {3,        cerrar,      leer,      escribir, truncar, sincronizar,     tamano,
               bloquear, desbloquear, reservado, control,  sector,  caracteristicas, shmMap,
               shmLock,  shmBarrier,  shmUnmap,  fetch,    unfetch};
    sqlite3_vfs_register(&vfs, 1);
}

} // namespace corte

// ---- The two exercises and what may be seen of them ----------------------------------------

const QString Caja = "157000001", Banco = "157200003", Capital = "010000004";

// What a close changes in one file, and the checks that hold in any state. The entries a close
// writes or replaces are the highest numbers of the current year and the first ones of the next;
// the rest of the journal is covered by Mayor, which must equal it account by account.
QString Huella(const QString& ruta) {
    Conexion c(ruta, TipoBase::Ejercicio);
    const HuellaEjercicio r = HuellaCierre(c, "WHERE NAs <= 2 OR NAs > 100000", ruta.toStdString());
    if (!r.cerrado) {
        EXPECT_EQ(r.reg + r.fin, 0);
    }
    QString h = r.texto;
    h += c.escalar("SELECT COUNT(*) || ' ' || round(SUM(SaldoD), 2) || ' ' || round(SUM(SaldoH), "
                   "2) FROM Mayor")
             .toString();
    return h;
}

void Copiar(const QString& de, const QString& a) {
    QDir().mkpath(QFileInfo(a).absolutePath());
    QFile::remove(a);
    ASSERT_TRUE(QFile::copy(de, a)) << de.toStdString();
}

TEST(CorteCierre, MuerteEnCualquierPuntoDeUnCierreConTraspaso) {
    SOLO_EN_ARCHIVOS("cortes entre SQLite y el disco; en el servidor, MatarCierre");
    Entorno e;
    e.crearEmpresa("001", 2024, "Grande SL");
    // The next year first, while 2024 is small, with an opening entry to be replaced and an
    // ordinary entry.
    const Sesion s2024 = e.sesion;
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    {
        Conexion c = e.datos();
        OpcionesEscritura o;
        o.Clase = "I";
        EscribirAsiento(c, e.sesion, QDate(2025, 1, 1), {Debe(Caja, 80), Haber(Capital, 80)}, o);
        EscribirAsiento(c, e.sesion, QDate(2025, 2, 1), {Debe(Banco, 25), Haber(Caja, 25)});
    }
    e.sesion = s2024;
    LlenarEjercicioGrande(e.sesion, 100000);
    ASSERT_EQ(e.sesion.UltimoAsiento, 100000.0f);
    const QString plantilla24 = e.sesion.rutaEjercicio(2024),
                  plantilla25 = e.sesion.rutaEjercicio(2025);
    ASSERT_FALSE(QFile::exists(plantilla24 + "-wal")) << "the copies start from whole files";

    // A run on a copy in its own folder.
    int vez = 0;
    auto preparar = [&] {
        Sesion s = e.sesion;
        s.DataPath = s.AppPath = e.ruta(QStringLiteral("copia%1").arg(++vez));
        Copiar(plantilla24, s.rutaEjercicio(2024));
        Copiar(plantilla25, s.rutaEjercicio(2025));
        return s;
    };
    const Traspaso traspaso{2025, 1};

    // A whole run, counting: how many steps there are, and where the commit begins (the last
    // stage reports before it).
    corte::instalar();
    Sesion s = preparar();
    const QString antes = Huella(s.rutaEjercicio(2024)) + " | " + Huella(s.rutaEjercicio(2025));
    long comienzoCommit = 0;
    corte::cuenta = 0;
    corte::limite = 0;
    corte::hitos.clear();
    corte::contando = true;
    CerrarEjercicio(s, traspaso,
                    [&](const QString&, qint64, qint64) { comienzoCommit = corte::cuenta; });
    corte::contando = false;
    const long total = corte::cuenta;

    const QString despues = Huella(s.rutaEjercicio(2024)) + " | " + Huella(s.rutaEjercicio(2025));
    ASSERT_NE(antes, despues);
    ASSERT_GT(total, comienzoCommit + 10) << "the commit writes the files";

    // Kill points: two during the work before the commit, its start, and then just after each
    // sync and deletion of the commit and of what follows it (journals made safe, each file
    // written, the point of no return, the clean-up), and amid the long runs of writes between
    // them, where one file may be written and the other not yet.
    QList<long> puntos{1, std::max(1L, comienzoCommit / 2), comienzoCommit + 1};
    long anterior = comienzoCommit + 1;
    for (long h : corte::hitos) {
        if (h <= comienzoCommit)
            continue;
        if (h - anterior > 8)
            puntos << (anterior + h) / 2;
        puntos << h + 1;
        anterior = h + 1;
    }
    puntos.removeIf([&](long n) { return n > total; });
    int vistosAntes = 0, vistosDespues = 0;
    for (long n : puntos) {
        SCOPED_TRACE("muerte antes del paso " + std::to_string(n) + " de " + std::to_string(total));
        Sesion copia = preparar();
        const pid_t hijo = fork();
        ASSERT_GE(hijo, 0);
        if (hijo == 0) {
            corte::cuenta = 0;
            corte::limite = n;
            corte::contando = true;
            try {
                CerrarEjercicio(copia, traspaso);
            } catch (...) {
                _exit(3);
            }
            _exit(0);
        }
        int estado = 0;
        ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
        EXPECT_TRUE(WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL)
            << "the child was to die at that step, status " << estado;
        // Opening the files again finishes or undoes what the dead process left.
        const QString visto =
            Huella(copia.rutaEjercicio(2024)) + " | " + Huella(copia.rutaEjercicio(2025));
        if (visto == antes)
            ++vistosAntes;
        else if (visto == despues)
            ++vistosDespues;
        else
            ADD_FAILURE() << "neither before nor after:\n"
                          << visto.toStdString() << "\nbefore:\n"
                          << antes.toStdString() << "\nafter:\n"
                          << despues.toStdString();
        QDir(copia.DataPath).removeRecursively();
    }
    // Both outcomes were met, so the kill points straddle the moment of the commit.
    EXPECT_GT(vistosAntes, 0);
    EXPECT_GT(vistosDespues, 0);
}

} // namespace

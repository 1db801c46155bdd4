#include "platform/CopiasBase.h"

#include "platform/Errores.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {

constexpr int EsperaOcupada = 15000; // ms, as every connection of the store

QString nombre(const QString& ruta) {
    return QFileInfo(ruta).fileName();
}

QString carpeta(const QString& ruta) {
    return QDir::toNativeSeparators(QFileInfo(ruta).absolutePath());
}

QString danado(const QString& ruta) {
    return QStringLiteral("El archivo %1 está dañado o no es una base de datos de Quilmar.")
        .arg(nombre(ruta));
}

// A failure of SQLite told by its cause. `ruta` is the file the failure is about; `destino`,
// when given, the file being written (no space, no permission).
[[noreturn]] void lanzar(int codigo, const QString& ruta, const QString& destino = {}) {
    const QString escrito = destino.isEmpty() ? ruta : destino;
    switch (codigo & 0xff) {
    case SQLITE_FULL:
        throw ErrorAlmacen(
            QStringLiteral("No queda espacio en el disco de la carpeta %1.").arg(carpeta(escrito)));
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
        throw ErrorAlmacen(QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                               .arg(carpeta(escrito)));
    case SQLITE_CANTOPEN:
        throw ErrorAlmacen(QStringLiteral("No se puede abrir el archivo %1 en la carpeta %2.")
                               .arg(nombre(escrito), carpeta(escrito)));
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw ErrorAlmacen(QStringLiteral(
            "La base de datos está siendo utilizada por otro usuario. Inténtelo de nuevo."));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
        throw ErrorAlmacen(danado(ruta));
    case SQLITE_IOERR:
        throw ErrorAlmacen(QStringLiteral("Error de lectura o escritura en el disco con el archivo "
                                          "%1.")
                               .arg(nombre(escrito)));
    default:
        throw ErrorAlmacen(QStringLiteral("Error en la base de datos %1.").arg(nombre(ruta)));
    }
}

// One raw connection, closed on every way out.
class Bd {
public:
    Bd(const QString& ruta, bool soloLectura) : ruta_(ruta) {
        const int flags = soloLectura ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
        const int r = sqlite3_open_v2(QFile::encodeName(ruta).constData(), &h_, flags, nullptr);
        if (r != SQLITE_OK)
            lanzar(r, ruta);
        sqlite3_busy_timeout(h_, EsperaOcupada);
        sqlite3_extended_result_codes(h_, 0);
    }
    ~Bd() { sqlite3_close_v2(h_); }
    Bd(const Bd&) = delete;
    Bd& operator=(const Bd&) = delete;
    sqlite3* h() const { return h_; }

    // Runs one statement to its end, with one text value bound; the first column of each row.
    QStringList ejecutar(const char* sql, const QString& valor = {}, const QString& destino = {}) {
        sqlite3_stmt* st = nullptr;
        int r = sqlite3_prepare_v2(h_, sql, -1, &st, nullptr);
        if (r != SQLITE_OK)
            lanzar(r, ruta_, destino);
        if (!valor.isNull()) {
            const QByteArray v = valor.toUtf8();
            sqlite3_bind_text(st, 1, v.constData(), int(v.size()), SQLITE_TRANSIENT);
        }
        QStringList filas;
        while ((r = sqlite3_step(st)) == SQLITE_ROW) {
            const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
            filas << QString::fromUtf8(t ? t : "");
        }
        sqlite3_finalize(st);
        if (r != SQLITE_DONE)
            lanzar(sqlite3_errcode(h_), ruta_, destino);
        return filas;
    }

private:
    QString ruta_;
    sqlite3* h_ = nullptr;
};

QString tablaTestigo(TipoBase tipo) {
    switch (tipo) {
    case TipoBase::Ejercicio:
        return QStringLiteral("Empresa");
    case TipoBase::Bavar:
        return QStringLiteral("Conceptos");
    case TipoBase::Bavis:
        return QStringLiteral("Usuarios");
    case TipoBase::Vias:
        return QStringLiteral("MUNICIPE");
    case TipoBase::Cualquiera:
        break;
    }
    return {};
}

void sincronizar(const QString& ruta) {
    const int fd = ::open(QFile::encodeName(ruta).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

void quitarConCompania(const QString& ruta) {
    for (const char* fin : {"", "-journal", "-wal", "-shm"})
        QFile::remove(ruta + QLatin1String(fin));
}

} // namespace

void CopiarBase(const QString& origen, const QString& destino) {
    if (!QFileInfo::exists(origen))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.")
                               .arg(QDir::toNativeSeparators(origen)));
    quitarConCompania(destino);
    try {
        Bd bd(origen, true);
        // A read transaction of its own: the copy holds what was committed when it began.
        bd.ejecutar("VACUUM INTO ?", destino, destino);
    } catch (...) {
        quitarConCompania(destino);
        throw;
    }
    sincronizar(destino);
}

void ComprobarBase(const QString& ruta, TipoBase tipo) {
    if (!QFileInfo::exists(ruta))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    QStringList informe;
    try {
        Bd bd(ruta, true);
        informe = bd.ejecutar("PRAGMA integrity_check");
        if (informe != QStringList{QStringLiteral("ok")})
            throw ErrorAlmacen(danado(ruta));
        if (tipo == TipoBase::Cualquiera)
            return;
        if (bd.ejecutar("PRAGMA application_id") !=
            QStringList{QString::number(IdAplicacionQuilmar)})
            throw ErrorAlmacen(danado(ruta));
        if (bd.ejecutar("SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?",
                        tablaTestigo(tipo))
                .isEmpty())
            throw ErrorAlmacen(danado(ruta));
    } catch (const ErrorAlmacen& e) {
        // Whatever a damaged file makes SQLite answer, the user is told that it is damaged.
        if (e.mensaje().startsWith(QLatin1String("Error en la base de datos")))
            throw ErrorAlmacen(danado(ruta));
        throw;
    }
}

void CompactarBase(const QString& ruta) {
    if (!QFileInfo::exists(ruta))
        throw ErrorAlmacen(QStringLiteral("No se encuentra la base de datos %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    Bd bd(ruta, false);
    bd.ejecutar("VACUUM");
    // The compacted pages go from the log into the file, which then shrinks; a reader still on
    // the log only delays this until the next checkpoint.
    bd.ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
}

void SustituirBase(const QString& origen, const QString& destino) {
    Bd de(origen, true);
    Bd a(destino, false);
    sqlite3_backup* copia = sqlite3_backup_init(a.h(), "main", de.h(), "main");
    if (!copia)
        lanzar(sqlite3_errcode(a.h()), destino);
    int r = SQLITE_OK;
    // Busy or locked: the destination is in use for a moment; the store's wait applies.
    for (int intentos = 0; intentos < EsperaOcupada / 100; ++intentos) {
        r = sqlite3_backup_step(copia, -1);
        if (r != SQLITE_BUSY && r != SQLITE_LOCKED)
            break;
        sqlite3_sleep(100);
    }
    sqlite3_backup_finish(copia);
    if (r != SQLITE_DONE)
        lanzar(r == SQLITE_OK ? sqlite3_errcode(a.h()) : r, r == SQLITE_CORRUPT ? origen : destino,
               destino);
}

TipoBase TipoPorNombre(const QString& nombreFichero) {
    static const QRegularExpression ejercicio(QStringLiteral("^Quilmar\\d{4}\\.db$"),
                                              QRegularExpression::CaseInsensitiveOption);
    if (ejercicio.match(nombreFichero).hasMatch())
        return TipoBase::Ejercicio;
    if (nombreFichero.compare(QLatin1String("Bavar.db"), Qt::CaseInsensitive) == 0)
        return TipoBase::Bavar;
    if (nombreFichero.compare(QLatin1String("Bavis.db"), Qt::CaseInsensitive) == 0)
        return TipoBase::Bavis;
    if (nombreFichero.compare(QLatin1String("VIAS.db"), Qt::CaseInsensitive) == 0)
        return TipoBase::Vias;
    return TipoBase::Cualquiera;
}

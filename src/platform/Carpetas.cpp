#include "platform/Carpetas.h"

#include "platform/Errores.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

QString visible(const QString& ruta) {
    return QDir::toNativeSeparators(ruta);
}

[[noreturn]] void fallo(int codigo, const QString& origen, const QString& destino) {
    switch (codigo) {
    case ENOSPC:
    case EDQUOT:
        throw ErrorAlmacen(
            QStringLiteral("No queda espacio en el disco para copiar %1 en %2.")
                .arg(QFileInfo(origen).fileName(), visible(QFileInfo(destino).absolutePath())));
    case EACCES:
    case EPERM:
    case EROFS:
        throw ErrorAlmacen(QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                               .arg(visible(QFileInfo(destino).absolutePath())));
    default:
        throw ErrorAlmacen(
            QStringLiteral("No se pudo copiar el archivo %1 en la carpeta %2.")
                .arg(QFileInfo(origen).fileName(), visible(QFileInfo(destino).absolutePath())));
    }
}

// The file descriptors of a copy, closed on every way out.
struct Descriptor {
    int fd = -1;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
};

} // namespace

void CopiarFichero(const QString& origen, const QString& destino) {
    Descriptor de, a;
    de.fd = ::open(QFile::encodeName(origen).constData(), O_RDONLY | O_CLOEXEC);
    if (de.fd < 0) {
        if (errno == ENOENT)
            throw ErrorAlmacen(
                QStringLiteral("No se encuentra el archivo %1.").arg(visible(origen)));
        if (errno == EACCES || errno == EPERM)
            throw ErrorAlmacen(
                QStringLiteral("No tiene permiso para leer el archivo %1.").arg(visible(origen)));
        fallo(errno, origen, destino);
    }
    a.fd = ::open(QFile::encodeName(destino).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC,
                  0644);
    if (a.fd < 0)
        fallo(errno, origen, destino);
    char bloque[1 << 16];
    for (;;) {
        const ssize_t leidos = ::read(de.fd, bloque, sizeof bloque);
        if (leidos == 0)
            break;
        if (leidos < 0) {
            if (errno == EINTR)
                continue;
            throw ErrorAlmacen(
                QStringLiteral("No se pudo leer el archivo %1.").arg(visible(origen)));
        }
        for (ssize_t hecho = 0; hecho < leidos;) {
            const ssize_t n = ::write(a.fd, bloque + hecho, static_cast<size_t>(leidos - hecho));
            if (n < 0) {
                if (errno == EINTR)
                    continue;
                fallo(errno, origen, destino);
            }
            hecho += n;
        }
    }
    if (::fsync(a.fd) != 0)
        fallo(errno, origen, destino);
}

void SincronizarCarpeta(const QString& carpeta) {
    Descriptor d;
    d.fd = ::open(QFile::encodeName(carpeta).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (d.fd >= 0)
        ::fsync(d.fd);
}

Colocacion ColocarCarpeta(const QString& nueva, const QString& destino, const QString& apartada) {
    const QByteArray n = QFile::encodeName(nueva), d = QFile::encodeName(destino),
                     ap = QFile::encodeName(apartada);
    const QString padre = QFileInfo(destino).absolutePath();
    auto noSePudo = [&] {
        return ErrorAlmacen(QStringLiteral("No se pudo poner la copia en su lugar en la carpeta "
                                           "%1.")
                                .arg(visible(padre)));
    };
    if (!QFileInfo::exists(destino)) {
        if (::rename(n.constData(), d.constData()) != 0)
            throw noSePudo();
        SincronizarCarpeta(padre);
        return Colocacion::Nueva;
    }
    // One step where the file system allows it: there is no moment without a complete folder.
    if (::renameat2(AT_FDCWD, n.constData(), AT_FDCWD, d.constData(), RENAME_EXCHANGE) == 0) {
        SincronizarCarpeta(padre);
        return Colocacion::Intercambiada;
    }
    if (QFileInfo::exists(apartada) && !BorrarCarpeta(apartada))
        throw noSePudo();
    if (::rename(d.constData(), ap.constData()) != 0)
        throw noSePudo();
    if (::rename(n.constData(), d.constData()) != 0) {
        ::rename(ap.constData(), d.constData());
        throw noSePudo();
    }
    SincronizarCarpeta(padre);
    return Colocacion::Apartada;
}

bool BorrarCarpeta(const QString& carpeta) {
    QDir d(carpeta);
    return !d.exists() || d.removeRecursively();
}

QString RutaCanonica(const QString& ruta) {
    const QFileInfo f(ruta);
    const QString canonica = f.canonicalFilePath();
    return canonica.isEmpty() ? QDir::cleanPath(f.absoluteFilePath()) : canonica;
}

#include "platform/Ficheros.h"

#include "platform/Almacen.h"

#include <QFile>
#include <QSaveFile>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

// Windows-1252 differs from Latin-1 only in 0x80-0x9F. The five bytes it leaves undefined are
// read as the control characters of the same number, as Windows reads them, so that a list
// rewritten keeps every byte it had.
const char16_t Cp1252Altos[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Opens exclusively once: 0 locked, 1 busy (retry), -1 other failure. A missing file is free.
int intentarBloqueo(const QString& ruta, int& fd) {
    fd = ::open(QFile::encodeName(ruta).constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return errno == ENOENT ? 0 : (errno == EACCES || errno == EBUSY ? 1 : -1);
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0)
        return 0;
    const int e = errno;
    ::close(fd);
    fd = -1;
    return e == EWOULDBLOCK ? 1 : -1;
}

int bloquearConEsperas(const QString& ruta, bool& ok) {
    int fd = -1;
    for (int espera = 0;; ++espera) {
        const int r = intentarBloqueo(ruta, fd);
        if (r == 0) {
            ok = true;
            return fd;
        }
        if (r < 0 || espera == 10) {
            ok = false;
            return -1;
        }
        QThread::msleep(300);
    }
}

} // namespace

QByteArray ACp1252(const QString& texto) {
    QByteArray r;
    r.reserve(texto.size());
    for (QChar c : texto) {
        const char16_t u = c.unicode();
        if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) {
            r.append(static_cast<char>(u));
            continue;
        }
        char b = '?';
        for (int i = 0; i < 32; ++i)
            if (Cp1252Altos[i] == u)
                b = static_cast<char>(0x80 + i);
        r.append(b);
    }
    return r;
}

QString DeCp1252(const QByteArray& bytes) {
    QString r;
    r.reserve(bytes.size());
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        r.append(b >= 0x80 && b < 0xA0 ? QChar(Cp1252Altos[b - 0x80]) : QChar(b));
    }
    return r;
}

QByteArray CampoFijo(const QString& texto, int ancho) {
    QByteArray b = ACp1252(texto).left(ancho);
    return b.leftJustified(ancho, ' ');
}

bool FicheroRegistros::existe() const {
    return QFile::exists(ruta_);
}

int FicheroRegistros::cuenta() const {
    const qint64 n = QFile(ruta_).size();
    return static_cast<int>(n / longitud_);
}

QList<QByteArray> FicheroRegistros::leerTodos() const {
    QList<QByteArray> r;
    QFile f(ruta_);
    if (!f.open(QIODevice::ReadOnly))
        return r;
    const QByteArray todo = f.readAll();
    for (qsizetype i = 0; i + longitud_ <= todo.size(); i += longitud_)
        r << todo.mid(i, longitud_);
    return r;
}

QByteArray FicheroRegistros::ajustar(const QByteArray& r) const {
    return r.left(longitud_).leftJustified(longitud_, ' ');
}

void FicheroRegistros::anadir(const QByteArray& registro) const {
    QFile f(ruta_);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append) ||
        f.write(ajustar(registro)) != longitud_)
        throw ErrorAlmacen(MsgNoSeEscribe(ruta_));
}

void FicheroRegistros::reescribir(const QList<QByteArray>& registros) const {
    // Written beside and renamed over, so that a failure never leaves half a list.
    QSaveFile f(ruta_);
    f.setDirectWriteFallback(true);
    if (!f.open(QIODevice::WriteOnly))
        throw ErrorAlmacen(MsgNoSeEscribe(ruta_));
    for (const QByteArray& r : registros)
        f.write(ajustar(r));
    if (!f.commit())
        throw ErrorAlmacen(MsgNoSeEscribe(ruta_));
}

bool FicheroLibre(const QString& ruta) {
    bool ok = false;
    const int fd = bloquearConEsperas(ruta, ok);
    if (fd >= 0)
        ::close(fd);
    return ok;
}

BloqueoFichero::BloqueoFichero(const QString& ruta) {
    fd_ = bloquearConEsperas(ruta, ok_);
}

BloqueoFichero::~BloqueoFichero() {
    if (fd_ >= 0)
        ::close(fd_);
}

#include "store/BloqueoEmpresa.h"

#include "platform/Errores.h"
#include "store/Sesion.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

const QString MsgEmpresaOcupada =
    QStringLiteral("La empresa %1 se está compactando o restaurando en otro puesto. Inténtelo "
                   "de nuevo cuando termine.");

BloqueoEmpresa::BloqueoEmpresa(const QString& dataPath, const QString& empresa, Modo modo,
                               int esperaMs)
    : dataPath_(dataPath), empresa_(empresa), modo_(modo), espera_(esperaMs) {
    coger();
}

BloqueoEmpresa::~BloqueoEmpresa() {
    soltar();
}

QString BloqueoEmpresa::ruta(const QString& dataPath, const QString& empresa) {
    return QDir(dataPath).filePath(empresa + QStringLiteral(".lck"));
}

void BloqueoEmpresa::soltar() {
    if (fd_ >= 0)
        ::close(fd_); // closing the descriptor lets its lock go
    fd_ = -1;
}

bool BloqueoEmpresa::coger() {
    if (fd_ >= 0)
        return true;
    ocupado_ = false;
    const QByteArray r = QFile::encodeName(ruta(dataPath_, empresa_));
    int fd = ::open(r.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0)
        fd = ::open(r.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const int operacion = (modo_ == Modo::Compartido ? LOCK_SH : LOCK_EX) | LOCK_NB;
    const QDeadlineTimer plazo(espera_);
    while (::flock(fd, operacion) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || plazo.hasExpired()) {
            ocupado_ = errno == EWOULDBLOCK || errno == EINTR;
            ::close(fd);
            return false;
        }
        QThread::msleep(100);
    }
    fd_ = fd;
    return true;
}

namespace {

// The company this process has open. A process works on one company at a time (the board, a
// command), so the hold is the process's, not a session's.
std::shared_ptr<BloqueoEmpresa>& holdPropio() {
    static std::shared_ptr<BloqueoEmpresa> h;
    return h;
}

bool esLaDe(const std::shared_ptr<BloqueoEmpresa>& b, const QString& dataPath,
            const QString& empresa) {
    return b && b->empresa() == empresa && b->dataPath() == dataPath;
}

} // namespace

void MarcarEmpresaAbierta(const Sesion& s, int esperaMs) {
    std::shared_ptr<BloqueoEmpresa>& propio = holdPropio();
    if (s.EmpresaActual.isEmpty()) {
        propio.reset();
        return;
    }
    if (esLaDe(propio, s.DataPath, s.EmpresaActual) && propio->conseguido())
        return;
    propio.reset();
    // A data folder where no lock file can be made (read only) cannot be compacted or restored
    // either: the company is used without a hold.
    if (!QFile::exists(BloqueoEmpresa::ruta(s.DataPath, s.EmpresaActual)) &&
        !QFileInfo(s.DataPath).isWritable())
        return;
    auto b = std::make_shared<BloqueoEmpresa>(s.DataPath, s.EmpresaActual,
                                              BloqueoEmpresa::Modo::Compartido, esperaMs);
    if (!b->conseguido())
        throw ErrorAlmacen(MsgEmpresaOcupada.arg(s.EmpresaActual));
    propio = std::move(b);
}

EmpresaEnExclusiva::EmpresaEnExclusiva(const Sesion& s, const QString& empresa) {
    // flock() locks of two descriptors conflict even within one process: our own shared hold is
    // let go meanwhile.
    if (esLaDe(holdPropio(), s.DataPath, empresa)) {
        propia_ = holdPropio();
        propia_->soltar();
    }
    bloqueo_ =
        std::make_unique<BloqueoEmpresa>(s.DataPath, empresa, BloqueoEmpresa::Modo::Exclusivo, 0);
}

EmpresaEnExclusiva::~EmpresaEnExclusiva() {
    bloqueo_.reset();
    if (propia_)
        propia_->coger();
}

#include "store/Arranque.h"

#include "platform/Errores.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"

#include <QDir>
#include <QLockFile>

const QString MsgYaCargado = QStringLiteral("Ya está cargado el programa.");
const QString MsgSinCarpetaServidor =
    QStringLiteral("No se ha seleccionado la carpeta donde esté instalado el programa Servidor o "
                   "principal.");

InstanciaUnica::InstanciaUnica(const QString& carpeta) {
    QDir().mkpath(carpeta);
    bloqueo_ = std::make_unique<QLockFile>(QDir(carpeta).filePath(QStringLiteral("Quilmar.lck")));
    // Only a dead owner makes the lock stale: a program left open for days still holds it.
    bloqueo_->setStaleLockTime(0);
    conseguida_ = bloqueo_->tryLock(0);
}

InstanciaUnica::~InstanciaUnica() = default;

void PLocInicial(Sesion& s) {
    // A damaged PLoc.dat is replaced as a missing one is: the question that follows repairs it.
    if (!ExistePLoc(s) || PLocDanado(s)) {
        EscribirPLoc(s, s.AppPath);
        s.DataPath = s.AppPath;
    }
}

void ElegirInstalacion(Sesion& s, bool principal, const QString& carpetaServidor) {
    QString ruta = principal ? s.AppPath : carpetaServidor.trimmed();
    if (ruta.isEmpty() || !QDir::isAbsolutePath(ruta) || !QDir(ruta).exists())
        throw Rechazo(MsgSinCarpetaServidor);
    EscribirPLoc(s, ruta);
    s.DataPath = ruta;
}

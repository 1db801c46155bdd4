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
    if (!ExistePLoc(s))
        EscribirPLoc(s, s.AppPath);
    if (s.DataPath.isEmpty())
        s.DataPath = LeerPLoc(s);
}

void ElegirInstalacion(Sesion& s, bool principal, const QString& carpetaServidor) {
    QString ruta = principal ? s.AppPath : carpetaServidor.trimmed();
    if (ruta.isEmpty() || !QDir(ruta).exists())
        throw Rechazo(MsgSinCarpetaServidor);
    EscribirPLoc(s, ruta);
    s.DataPath = ruta;
}

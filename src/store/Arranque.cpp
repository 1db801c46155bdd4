#include "store/Arranque.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Instalacion.h"
#include "store/Migracion.h"
#include "store/Sesion.h"

#include <QDir>
#include <QLockFile>
#include <QRegularExpression>

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

QString ServidorElegido(const Ajustes& a) {
    return a.leer(QStringLiteral("Datos"), QStringLiteral("Servidor")).trimmed();
}

Servidor ServidorTecleado(const QString& host, const QString& puerto, const QString& base,
                          const QString& usuario) {
    static const QRegularExpression nombre(QStringLiteral("^[A-Za-z0-9._:\\[\\]-]+$"));
    static const QRegularExpression palabra(QStringLiteral("^[^\\s/@:?#]+$"));
    Servidor s;
    s.host = host.trimmed();
    s.base = base.trimmed();
    s.usuario = usuario.trimmed();
    if (s.host.isEmpty() || !nombre.match(s.host).hasMatch())
        throw Rechazo(QStringLiteral("Indique el nombre o la dirección del servidor."));
    bool ok = false;
    s.puerto = puerto.trimmed().toInt(&ok);
    if (!ok || s.puerto < 1 || s.puerto > 65535)
        throw Rechazo(QStringLiteral("El puerto del servidor es un número del 1 al 65535."));
    if (s.base.isEmpty() || !palabra.match(s.base).hasMatch())
        throw Rechazo(QStringLiteral("Indique el nombre de la base de datos del servidor."));
    if (s.usuario.isEmpty() || !palabra.match(s.usuario).hasMatch())
        throw Rechazo(QStringLiteral("Indique el usuario del servidor."));
    // The address as the setting will keep it must read back the same.
    return Servidor::DeUrl(s.url());
}

void ConectarServidor(const Servidor& servidor, Dialogo& d) {
    // A password typed wrong is asked again, a few times; one refused by the password file or
    // PGPASSWORD is told as it is.
    PruebaServidor r;
    for (int intento = 0;; ++intento) {
        r = ProbarServidor(servidor);
        const bool pedir = r.fallo == FalloServidor::FaltaClave ||
                           (r.fallo == FalloServidor::Acceso && ClaveServidorRecordada(servidor));
        if (!pedir || intento == 3)
            break;
        const QString clave =
            d.PedirClave(QStringLiteral("Contraseña del usuario %1 en el servidor %2:")
                             .arg(servidor.usuario, servidor.host));
        if (clave.isEmpty())
            break;
        RecordarClaveServidor(servidor, clave);
    }
    if (r.fallo != FalloServidor::Ninguno)
        throw Rechazo(r.mensaje);
}

void ElegirServidor(Sesion& s, Ajustes& a, Dialogo& d, const Servidor& servidor) {
    ConectarServidor(servidor, d);
    Sesion en = s;
    en.UrlServidor = servidor.url();
    bool instalado = false;
    {
        Conexion c(servidor, QStringLiteral("public"));
        instalado = c.existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = 'bavis'"));
    }
    if (!instalado) {
        if (!d.Preguntar(QStringLiteral("La base de datos %1 del servidor %2 no tiene todavía "
                                        "ninguna instalación de Quilmar. Desea copiar a ella "
                                        "las empresas de esta instalación?")
                             .arg(servidor.base, servidor.host)))
            throw Rechazo(QStringLiteral("No se ha elegido el servidor: no tiene ninguna "
                                         "instalación de Quilmar."));
        Sesion archivos = s;
        archivos.UrlServidor.clear();
        MigrarAServidor(archivos, servidor);
    }
    a.escribir(QStringLiteral("Datos"), QStringLiteral("Servidor"), en.UrlServidor);
    s.UrlServidor = en.UrlServidor;
}

void QuitarServidor(Sesion& s, Ajustes& a) {
    a.borrar(QStringLiteral("Datos"), QStringLiteral("Servidor"));
    s.UrlServidor.clear();
}

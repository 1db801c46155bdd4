#include "store/Instalacion.h"

#include "platform/Almacen.h"
#include "store/Esquema.h"
#include "store/Plantilla.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

QString CarpetaInstalacionPorDefecto() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Quilmar"));
}

bool ExistePLoc(const Sesion& s) {
    return QFile::exists(s.rutaPLoc());
}

QString LeerPLoc(const Sesion& s) {
    QFile f(s.rutaPLoc());
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll()).trimmed();
}

void EscribirPLoc(const Sesion& s, const QString& ruta) {
    QFile::remove(s.rutaPLoc());
    QSaveFile f(s.rutaPLoc());
    if (!f.open(QIODevice::WriteOnly) || f.write(ruta.trimmed().toUtf8()) < 0 || !f.commit())
        throw ErrorAlmacen(QStringLiteral("No se pudo escribir el archivo %1.").arg(s.rutaPLoc()));
}

bool PrepararInstalacion(const Sesion& s) {
    if (!QDir().mkpath(s.AppPath))
        throw ErrorAlmacen(QStringLiteral("No se pudo crear la carpeta %1.").arg(s.AppPath));
    bool nueva = false;
    if (!QFile::exists(s.rutaBavis())) {
        CrearBaseDatos(s.rutaBavis(), TipoBase::Bavis);
        Conexion c(s.rutaBavis(), TipoBase::Bavis);
        c.ejecutar(QStringLiteral("INSERT INTO Usuarios (Usuario, \"Contraseña\") VALUES (?, '')"),
                   {QStringLiteral("Administrador")});
        nueva = true;
    }
    if (!QFile::exists(s.rutaVias())) {
        CrearBaseDatos(s.rutaVias(), TipoBase::Vias);
        Conexion c(s.rutaVias(), TipoBase::Vias);
        CargarVias(c);
    }
    return nueva;
}

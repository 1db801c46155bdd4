#include "store/Instalacion.h"

#include "platform/Almacen.h"
#include "store/Esquema.h"
#include "store/Plantilla.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>

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

QString MsgPLocDanado(const Sesion& s) {
    return QStringLiteral(
               "El archivo PLoc.dat de la carpeta %1 está vacío o dañado: no dice dónde están las "
               "empresas. Para repararlo, indique de nuevo cómo se va a utilizar el programa, "
               "como servidor o principal, o como cliente con la carpeta del servidor: Quilmar se "
               "lo pregunta al abrirse, y desde la línea de órdenes sirve 'quilmar-cli "
               "instalacion --principal' o 'quilmar-cli instalacion --servidor CARPETA'.")
        .arg(QDir::toNativeSeparators(s.AppPath));
}

QString MsgSinCarpetaDatos(const QString& carpeta) {
    return QStringLiteral(
               "No se encuentra la carpeta %1, donde están las empresas según PLoc.dat. Si está "
               "en otro ordenador, compruebe que está encendido y que la red funciona; si ha "
               "cambiado de sitio, indique de nuevo cómo se va a utilizar el programa (Quilmar "
               "se lo pregunta al abrirse, o 'quilmar-cli instalacion').")
        .arg(QDir::toNativeSeparators(carpeta));
}

namespace {

// The folder PLoc.dat names, or empty when what it holds is no path at all.
QString rutaDePLoc(const Sesion& s) {
    QFile f(s.rutaPLoc());
    if (!f.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = f.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString texto = QString(utf8.decode(bytes)).trimmed();
    if (utf8.hasError() || texto.isEmpty() || !QDir::isAbsolutePath(texto))
        return {};
    for (const QChar c : texto)
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_NotAssigned)
            return {};
    return QDir::cleanPath(texto);
}

} // namespace

bool PLocDanado(const Sesion& s) {
    return ExistePLoc(s) && rutaDePLoc(s).isEmpty();
}

QString CarpetaDatos(const Sesion& s) {
    const QString ruta = rutaDePLoc(s);
    if (ruta.isEmpty())
        throw ErrorAlmacen(MsgPLocDanado(s));
    if (!QFileInfo(ruta).isDir())
        throw ErrorAlmacen(MsgSinCarpetaDatos(ruta));
    return ruta;
}

void ComprobarCarpetaDatos(const Sesion& s) {
    if (s.DataPath.isEmpty() || !QDir::isAbsolutePath(s.DataPath))
        throw ErrorAlmacen(MsgPLocDanado(s));
    if (!QFileInfo(s.DataPath).isDir())
        throw ErrorAlmacen(MsgSinCarpetaDatos(s.DataPath));
}

void EscribirPLoc(const Sesion& s, const QString& ruta) {
    QFile::remove(s.rutaPLoc());
    QSaveFile f(s.rutaPLoc());
    if (!f.open(QIODevice::WriteOnly) || f.write(ruta.trimmed().toUtf8()) < 0 || !f.commit())
        throw ErrorAlmacen(MsgNoSeEscribe(s.rutaPLoc()));
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
    // The models of the notes to the accounts and their formula files: each company takes its
    // copy from here, and a user may change these for every company at once.
    for (const char* nombre :
         {"Memabrev.rtf", "MemabrevNP.rtf", "Fmemor.dat", "Fmemor8.dat", "Fmemor8np.dat"}) {
        const QString destino = QDir(s.AppPath).filePath(QLatin1String(nombre));
        if (QFile::exists(destino))
            continue;
        if (!QFile::copy(QStringLiteral(":/data/memoria/") + QLatin1String(nombre), destino))
            throw ErrorAlmacen(MsgNoSeEscribe(destino));
        QFile::setPermissions(destino, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                           QFileDevice::ReadGroup | QFileDevice::ReadOther);
    }
    return nueva;
}

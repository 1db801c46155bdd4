#include "tax/FicheroHacienda.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <algorithm>
#include <cmath>

const QString MsgValidadorAusente =
    QStringLiteral("El programa de validación de la Agencia Tributaria no está instalado: el "
                   "archivo no ha sido validado.");

namespace {

// Why a file could not be written, in the user's words; empty when the system does not say.
QString Causa(const QFileDevice& f) {
    switch (f.error()) {
    case QFileDevice::PermissionsError:
        return QStringLiteral(" No tiene permiso para escribir en esa carpeta.");
    case QFileDevice::ResourceError:
        return QStringLiteral(" No queda espacio en el disco.");
    default:
        return {};
    }
}

} // namespace

void EscribirFicheroHacienda(const QString& ruta, const QByteArray& contenido) {
    QFile f(ruta);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        f.write(contenido) != contenido.size() || !f.flush()) {
        const QString causa = Causa(f);
        f.close();
        QFile::remove(ruta);
        throw ErrorQuilmar(QStringLiteral("No se pudo escribir el archivo %1.%2")
                               .arg(QDir::toNativeSeparators(ruta), causa));
    }
}

namespace {

// Runs the validator on the file and waits for it. False when it is not there or cannot start.
bool Validar(const QString& validador, const QString& fichero) {
    if (!QFileInfo(validador).isFile())
        return false;
    QProcess p;
    p.setProgram(validador);
    p.setArguments({QStringLiteral("/E:") + QDir::toNativeSeparators(fichero)});
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.start();
    if (!p.waitForStarted())
        return false;
    p.waitForFinished(-1);
    return true;
}

} // namespace

QByteArray CodificarImporte(const std::optional<double>& valor, int entero, Precision precision) {
    static const QByteArray Vacio("00000000000000000");
    static const QByteArray Relleno("0000000000000");
    if (!valor)
        return Vacio.left(entero + 2);
    const double v = precision == Precision::Simple ? ASimple(Centimos(*valor)) : Centimos(*valor);
    const double absoluto = std::fabs(v);
    const double parteEntera = std::floor(absoluto);
    const QByteArray cifras = QByteArray::number(static_cast<qint64>(parteEntera));
    QByteArray r;
    if (v >= 0) {
        r = Relleno.left(std::max<qsizetype>(0, entero - cifras.size()));
    } else {
        r = "N";
        r += Relleno.left(std::max<qsizetype>(0, entero - 1 - cifras.size()));
    }
    r += cifras;
    if (absoluto == parteEntera)
        r += "00";
    else
        r += Formato(absoluto, QStringLiteral("#,##0.00")).right(2).toLatin1();
    return r;
}

RegistroHacienda& RegistroHacienda::Texto(const QString& texto) {
    bytes_ += ACp1252(texto);
    return *this;
}

RegistroHacienda& RegistroHacienda::Campo(const QString& texto, int ancho) {
    bytes_ += CampoFijo(texto, ancho);
    return *this;
}

RegistroHacienda& RegistroHacienda::Blancos(int ancho) {
    bytes_ += QByteArray(ancho, ' ');
    return *this;
}

RegistroHacienda& RegistroHacienda::Importe(const std::optional<double>& valor, int entero,
                                            Precision precision) {
    bytes_ += CodificarImporte(valor, entero, precision);
    return *this;
}

RegistroHacienda& RegistroHacienda::Porcentaje(const std::optional<double>& valor) {
    return Importe(valor, 3);
}

RegistroHacienda& RegistroHacienda::FinLinea() {
    bytes_ += "\r\n";
    return *this;
}

QString RutaGenerado(const Sesion& s, const EntregaHacienda& e) {
    return QDir(QDir(s.AppPath).filePath(e.carpeta))
        .filePath(QStringLiteral("Gen%1.txt").arg(e.modelo));
}

QString NombreCopia(const EntregaHacienda& e) {
    return QStringLiteral("%1-%2.txt").arg(e.modelo, e.nif.trimmed());
}

ResultadoEntrega EntregarFichero(const Sesion& s, const EntregaHacienda& e,
                                 const QByteArray& contenido, Dialogo& d,
                                 const ElegirCarpeta& elegir) {
    const QDir carpeta(QDir(s.AppPath).filePath(e.carpeta));
    if (!QDir().mkpath(carpeta.path()))
        throw ErrorQuilmar(QStringLiteral("No se pudo crear la carpeta %1.")
                               .arg(QDir::toNativeSeparators(carpeta.path())));
    const QString generado = RutaGenerado(s, e);
    const QString errores = carpeta.filePath(NombreErrores);
    // A verdict left by an earlier run must not be taken for this file's.
    QFile::remove(generado);
    if (QFile::exists(errores) && !QFile::remove(errores))
        throw ErrorQuilmar(QStringLiteral("No se pudo borrar el archivo %1.")
                               .arg(QDir::toNativeSeparators(errores)));
    EscribirFicheroHacienda(generado, contenido);

    const bool validado = Validar(carpeta.filePath(NombreValidador), generado);
    if (!validado)
        d.Informar(MsgValidadorAusente);
    QFile f(errores);
    if (f.open(QIODevice::ReadOnly)) {
        const QString texto = DeCp1252(f.readAll()).trimmed();
        if (!texto.isEmpty()) {
            d.Informar(QStringLiteral("Errores: ") + texto);
            return ResultadoEntrega::Errores;
        }
    }
    if (validado && !e.copiaTrasValidador)
        return ResultadoEntrega::Validado;

    return CopiarParaEnvio(generado, e, d, elegir);
}

ResultadoEntrega CopiarParaEnvio(const QString& generado, const EntregaHacienda& e, Dialogo& d,
                                 const ElegirCarpeta& elegir) {
    const QString copia = NombreCopia(e);
    d.Informar(QStringLiteral("Se va a generar el archivo %1 para que posteriormente lo pueda "
                              "enviar por internet. Por favor seleccione la carpeta donde desea "
                              "guardarlo.")
                   .arg(copia));
    const QString destino = elegir ? elegir() : QString();
    if (destino.isEmpty())
        return ResultadoEntrega::Cancelado;
    if (!QFileInfo(destino).isDir())
        throw ErrorQuilmar(
            QStringLiteral("La carpeta %1 no existe.").arg(QDir::toNativeSeparators(destino)));
    const QString ruta = QDir(destino).filePath(copia);
    if (QFileInfo::exists(ruta) && !QFile::remove(ruta))
        throw ErrorQuilmar(QStringLiteral("No se pudo sustituir el archivo %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    if (!QFile::copy(generado, ruta))
        throw ErrorQuilmar(QStringLiteral("No se pudo copiar el archivo %1 en la carpeta %2.")
                               .arg(copia, QDir::toNativeSeparators(destino)));
    d.Informar(QStringLiteral("Se ha generado correctamente el archivo %1, que ahora puede "
                              "transmitir telemáticamente desde la página web de la Agencia "
                              "Tributaria, '%2'.")
                   .arg(copia, DireccionAgencia));
    return ResultadoEntrega::Copiado;
}

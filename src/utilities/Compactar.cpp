#include "utilities/Compactar.h"

#include "platform/Carpetas.h"
#include "platform/CopiasBase.h"
#include "platform/Errores.h"
#include "store/BloqueoEmpresa.h"
#include "store/CopiasServidor.h"
#include "store/Sesion.h"
#include "utilities/Copias.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

QString CarpetaCopbas(const Sesion& s) {
    return QDir(s.DataPath).filePath(QStringLiteral("Copbas"));
}

namespace {

// The safety copy of a database in Copbas, put over the earlier one only when complete.
void copiaDeSeguridad(const QString& base, const QString& copbas) {
    const QString final = QDir(copbas).filePath(QFileInfo(base).fileName());
    const QString nueva =
        QDir(copbas).filePath(QStringLiteral(".%1.copia").arg(QFileInfo(base).fileName()));
    CopiarBase(base, nueva);
    if (::rename(QFile::encodeName(nueva).constData(), QFile::encodeName(final).constData()) != 0) {
        QFile::remove(nueva);
        throw ErrorAlmacen(QStringLiteral("No se pudo guardar la copia de %1 en la carpeta %2.")
                               .arg(QFileInfo(base).fileName(), QDir::toNativeSeparators(copbas)));
    }
    SincronizarCarpeta(copbas);
}

} // namespace

bool CompactarBasesDatos(Sesion& s, Dialogo& d, const Progreso& progreso) {
    if (s.EmpresaActual.isEmpty()) {
        d.Informar(MsgCopiaSinEmpresa);
        return false;
    }
    if (!d.Preguntar(MsgCompactar))
        return false;
    EmpresaEnExclusiva sola(s, s.EmpresaActual);
    if (!sola.conseguida()) {
        d.Informar(sola.ocupada()
                       ? MsgEmpresaAbiertaOtro.arg(s.EmpresaActual)
                       : QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                             .arg(QDir::toNativeSeparators(s.DataPath)));
        return false;
    }
    if (s.enServidor()) {
        // The server compacts without rewriting the books: its upkeep marks the room of deleted
        // rows for reuse and renews the statistics its plans need, while others keep working.
        const QStringList esquemas{EsquemaServidor(s.rutaEjercicio()),
                                   EsquemaServidor(s.rutaBavar()), QStringLiteral("bavis")};
        qint64 paso = 0;
        try {
            MantenerEsquemas(s, esquemas, [&] {
                if (progreso)
                    progreso(++paso, esquemas.size());
            });
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
            return false;
        }
        d.Informar(MsgCompactacionTerminada);
        return true;
    }
    const QString copbas = CarpetaCopbas(s);
    const QStringList bases{s.rutaEjercicio(), s.rutaBavar(), s.rutaBavis()};
    try {
        if (!QDir().mkpath(copbas))
            throw ErrorAlmacen(QStringLiteral("No tiene permiso para escribir en la carpeta %1.")
                                   .arg(QDir::toNativeSeparators(s.DataPath)));
        qint64 paso = 0;
        for (const QString& base : bases) {
            copiaDeSeguridad(base, copbas);
            if (progreso)
                progreso(++paso, 2 * bases.size());
            CompactarBase(base);
            if (progreso)
                progreso(++paso, 2 * bases.size());
        }
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
    d.Informar(MsgCompactacionTerminada);
    return true;
}

#include "ServidorPruebas.h"

#include "platform/Almacen.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdlib>

namespace {

QString leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()).trimmed() : QString();
}

const QString Guion = QStringLiteral(QUILMAR_RAIZ "/scripts/cluster-pruebas.sh");

} // namespace

bool PruebasEnServidor() {
    return qgetenv("QUILMAR_PRUEBAS_MOTOR") == "servidor";
}

ServidorPruebas& ServidorPruebas::instancia() {
    static ServidorPruebas s;
    return s;
}

ServidorPruebas::ServidorPruebas() {
    // ctest starts one cluster for the whole run (a fixture) in the build folder; a test binary
    // run by hand starts its own.
    carpeta_ =
        qEnvironmentVariable("QUILMAR_PRUEBAS_CLUSTER", QStringLiteral(QUILMAR_CLUSTER_PRUEBAS));
    if (!QFile::exists(carpeta_ + QStringLiteral("/puerto")) &&
        !QFile::exists(carpeta_ + QStringLiteral("/motivo"))) {
        QTemporaryDir dir;
        dir.setAutoRemove(false);
        carpeta_ = dir.path();
        propio_ = true;
        QProcess p;
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(Guion, {QStringLiteral("arrancar"), carpeta_});
        p.waitForFinished(-1);
    }
    puerto_ = leer(carpeta_ + QStringLiteral("/puerto"));
    motivo_ = leer(carpeta_ + QStringLiteral("/motivo"));
    if (puerto_.isEmpty() && motivo_.isEmpty())
        motivo_ = QStringLiteral("el servidor de pruebas no arrancó (%1)").arg(carpeta_);
}

ServidorPruebas::~ServidorPruebas() {
    // At the end of the process Qt's application is gone: a plain command stops the cluster.
    if (propio_)
        std::system(
            QStringLiteral("'%1' parar '%2'").arg(Guion, carpeta_).toLocal8Bit().constData());
}

QString ServidorPruebas::nuevaBase() {
    const QString base =
        QStringLiteral("q%1_%2").arg(QCoreApplication::applicationPid()).arg(++bases_);
    Servidor raiz;
    raiz.host = QStringLiteral("127.0.0.1");
    raiz.puerto = puerto_.toInt();
    raiz.usuario = QStringLiteral("quilmar");
    raiz.base = QStringLiteral("postgres");
    Conexion c(raiz, QStringLiteral("public"));
    c.ejecutar(QStringLiteral("CREATE DATABASE %1").arg(base));
    raiz.base = base;
    return raiz.url();
}

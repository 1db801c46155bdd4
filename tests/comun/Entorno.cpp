#include "Entorno.h"

#include "ServidorPruebas.h"
#include "posting/EmpresaDemo.h"
#include "store/Conexiones.h"
#include "store/Empresas.h"
#include "store/Instalacion.h"
#include "store/Migracion.h"

#include <QProcess>
#include <gtest/gtest.h>

Entorno::Entorno() {
    sesion.AppPath = dir.path();
    sesion.DataPath = dir.path();
    ajustes = std::make_unique<Ajustes>(dir.path());
    EscribirPLoc(sesion, sesion.AppPath);
    PrepararInstalacion(sesion);
    // In the server run the installation lives on a database of its own on the test cluster.
    if (PruebasEnServidor() && ServidorPruebas::instancia().disponible()) {
        const QString url = ServidorPruebas::instancia().nuevaBase();
        MigrarAServidor(sesion, Servidor::DeUrl(url));
        sesion.UrlServidor = url;
        // quilmar-cli run on this folder works on the same server.
        ajustes->escribir(QStringLiteral("Datos"), QStringLiteral("Servidor"), url);
    }
    // The server run never falls back to the files unnoticed.
    if (PruebasEnServidor() && !sesion.enServidor())
        ADD_FAILURE() << "La pasada del servidor se ejecuta sin servidor";
}

void Entorno::enArchivos(const QString& empresa, const std::function<void()>& hacer) {
    if (!sesion.enServidor()) {
        hacer();
        return;
    }
    // The demo's year of entries is written on files and copied over.
    const QString url = sesion.UrlServidor;
    sesion.UrlServidor.clear();
    try {
        hacer();
    } catch (...) {
        sesion.UrlServidor = url;
        throw;
    }
    sesion.UrlServidor = url;
    MigrarEmpresaAServidor(sesion, Servidor::DeUrl(url), empresa);
    CargarEjercicio(sesion);
}

void Entorno::crearEmpresa(const QString& codigo, int ano, const QString& nombre) {
    DatosNuevaEmpresa d;
    d.Codigo = codigo;
    d.Nombre = nombre;
    d.FechaIni = QDate(ano, 1, 1);
    CrearEmpresa(sesion, *ajustes, d);
}

void Entorno::instalarDemo() {
    enArchivos(QStringLiteral("Emp100"), [&] { InstalarEmpresaDemo(sesion, *ajustes); });
}

Conexion Entorno::datos() const {
    return AbrirDatos(sesion);
}
Conexion Entorno::bavar() const {
    return AbrirBavar(sesion);
}

long Entorno::asiento(const QDate& fecha, const QList<Apunte>& apuntes) {
    Conexion c = datos();
    return EscribirAsiento(c, sesion, fecha, apuntes);
}

Apunte Debe(const QString& ncuenta, double importe, const QString& concepto) {
    Apunte a;
    a.NCuenta = ncuenta;
    a.Debe = importe;
    a.Concepto = concepto;
    return a;
}

Apunte Haber(const QString& ncuenta, double importe, const QString& concepto) {
    Apunte a;
    a.NCuenta = ncuenta;
    a.Haber = importe;
    a.Concepto = concepto;
    return a;
}

QString Unidos(Conexion& c, const QString& sql, const QVariantList& valores) {
    QStringList r;
    QSqlQuery q = c.ejecutar(sql, valores);
    while (q.next())
        r << q.value(0).toString();
    return r.join(QLatin1Char(','));
}

ResultadoCli EjecutarCli(const QString& datos, const QStringList& argumentos) {
    QProcess p;
    p.start(QStringLiteral(QUILMAR_CLI),
            QStringList{QStringLiteral("--datos"), datos} + argumentos);
    ResultadoCli r;
    if (!p.waitForFinished(120000)) {
        p.kill();
        ADD_FAILURE() << "quilmar-cli no terminó";
        return r;
    }
    r.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.salida = QString::fromUtf8(p.readAllStandardOutput());
    r.error = QString::fromUtf8(p.readAllStandardError());
    return r;
}

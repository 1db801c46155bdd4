#include "store/Migracion.h"

#include "platform/Almacen.h"
#include "store/CargarEmp.h"
#include "store/Esquema.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QSqlRecord>

namespace {

// Rows go to the server in runs of this many per statement: one round trip each.
constexpr int FilasPorOrden = 200;

QString comillas(const QString& nombre) {
    return QLatin1Char('"') + QString(nombre).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

} // namespace

// Copies one table: the columns both sides have (the server's rowid is SQLite's own, so the order
// of insertion that the program sorts by survives; into a file the rows go in that order, and
// SQLite numbers them alike), then moves the serial counters past them.
qint64 CopiarTabla(Conexion& origen, Conexion& destino, const QString& tabla) {
    const QStringList enOrigen = origen.columnas(tabla);
    QStringList nombres, leer;
    for (const QString& d : destino.columnas(tabla)) {
        if (d == QLatin1String("rowid")) {
            nombres << comillas(d);
            leer << QStringLiteral("rowid");
            continue;
        }
        for (const QString& o : enOrigen)
            if (o.compare(d, Qt::CaseInsensitive) == 0) {
                nombres << comillas(d);
                leer << comillas(o);
            }
    }
    const QString fila = QLatin1Char('(') +
                         QStringList(nombres.size(), QStringLiteral("?")).join(QLatin1Char(',')) +
                         QLatin1Char(')');
    const QString cabeza =
        QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(tabla, nombres.join(QLatin1Char(',')));
    QSqlQuery q = origen.ejecutar(
        QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(leer.join(QLatin1Char(',')), tabla));
    qint64 n = 0;
    QVariantList valores;
    int enCurso = 0;
    auto volcar = [&] {
        if (enCurso == 0)
            return;
        QStringList filas(enCurso, fila);
        destino.ejecutar(cabeza + filas.join(QLatin1Char(',')), valores);
        valores.clear();
        enCurso = 0;
    };
    while (q.next()) {
        // A NULL stays NULL: the store binds a null text as '' unless it is an invalid value.
        for (int i = 0; i < nombres.size(); ++i) {
            const QVariant v = q.value(i);
            valores << (v.isNull() ? QVariant() : v);
        }
        ++n;
        if (++enCurso == FilasPorOrden)
            volcar();
    }
    volcar();
    AjustarContadores(destino, tabla);
    return n;
}

namespace {

qint64 copiarBase(const QString& ruta, const Servidor& destino, const QString& esquema,
                  TipoBase tipo, QStringList& hechos) {
    Conexion origen(ruta, tipo);
    if (esquema.isEmpty())
        throw ErrorAlmacen(QStringLiteral("No se puede llevar al servidor el archivo %1.")
                               .arg(QDir::toNativeSeparators(ruta)));
    Conexion c(destino, esquema, TipoBase::Cualquiera, true);
    hechos << esquema;
    CrearEsquema(c, tipo);
    qint64 n = 0;
    Transaccion t(c);
    for (const QString& tabla : TablasDe(tipo))
        n += CopiarTabla(origen, c, tabla);
    t.confirmar();
    return n;
}

} // namespace

namespace {

void copiarEmpresa(const Sesion& s, const Servidor& destino, const QString& carpeta,
                   Conexion& bavis, QStringList& hechos, ResultadoMigracion& r,
                   const std::function<void(const QString&)>& avisar) {
    const QDir dir(s.carpetaEmpresa(carpeta));
    const QList<RegistroSelan> ejercicios = LeerSelan(dir.filePath(QStringLiteral("Selan.dat")));
    if (ejercicios.isEmpty())
        return;
    const QString bavar = dir.filePath(QStringLiteral("Bavar.db"));
    avisar(carpeta);
    r.filas += copiarBase(bavar, destino, EsquemaServidor(bavar), TipoBase::Bavar, hechos);
    ++r.empresas;
    Transaccion t(bavis);
    for (const RegistroSelan& e : ejercicios) {
        const QString ruta = dir.filePath(QStringLiteral("Quilmar%1.db").arg(e.Ano.trimmed()));
        // A year the list names but whose file is gone is left out, as the company list
        // leaves it unusable.
        if (!QFile::exists(ruta))
            continue;
        avisar(QStringLiteral("%1 %2").arg(carpeta, e.Ano));
        r.filas += copiarBase(ruta, destino, EsquemaServidor(ruta), TipoBase::Ejercicio, hechos);
        AnotarEjercicioServidor(bavis, e);
        ++r.ejercicios;
    }
    t.confirmar();
}

void deshacer(const Servidor& destino, const QStringList& hechos) {
    try {
        Conexion limpiar(destino, QStringLiteral("public"));
        for (const QString& e : hechos)
            limpiar.ejecutar(QStringLiteral("DROP SCHEMA IF EXISTS %1 CASCADE").arg(e));
    } catch (const ErrorQuilmar&) {
        // The first failure is the one to tell.
    }
}

bool existeEsquema(const Servidor& destino, const QString& esquema) {
    Conexion c(destino, QStringLiteral("public"));
    return c.existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"), {esquema});
}

} // namespace

ResultadoMigracion MigrarAServidor(const Sesion& s, const Servidor& destino,
                                   const std::function<void(const QString&)>& progreso) {
    ResultadoMigracion r;
    if (existeEsquema(destino, QStringLiteral("bavis")))
        throw Rechazo(
            QStringLiteral(
                "El servidor %1 ya tiene una instalación de Quilmar: no se copia nada encima.")
                .arg(destino.url()));
    QStringList hechos;
    auto avisar = [&](const QString& t) {
        if (progreso)
            progreso(t);
    };
    try {
        avisar(QStringLiteral("Bavis"));
        r.filas +=
            copiarBase(s.rutaBavis(), destino, QStringLiteral("bavis"), TipoBase::Bavis, hechos);
        Conexion bavis(destino, QStringLiteral("bavis"), TipoBase::Bavis);
        for (const QString& carpeta : CarpetasEmpresa(s.DataPath))
            copiarEmpresa(s, destino, carpeta, bavis, hechos, r, avisar);
    } catch (...) {
        deshacer(destino, hechos);
        throw;
    }
    return r;
}

ResultadoMigracion MigrarEmpresaAServidor(const Sesion& s, const Servidor& destino,
                                          const QString& carpeta) {
    ResultadoMigracion r;
    if (existeEsquema(
            destino,
            EsquemaServidor(QDir(s.carpetaEmpresa(carpeta)).filePath(QStringLiteral("Bavar.db")))))
        throw Rechazo(
            QStringLiteral("La empresa %1 ya está en el servidor %2.").arg(carpeta, destino.url()));
    QStringList hechos;
    try {
        Conexion bavis(destino, QStringLiteral("bavis"), TipoBase::Bavis);
        copiarEmpresa(s, destino, carpeta, bavis, hechos, r, [](const QString&) {});
    } catch (...) {
        deshacer(destino, hechos);
        throw;
    }
    return r;
}

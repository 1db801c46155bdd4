#include "store/CopiasServidor.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Esquema.h"
#include "store/ListasEmpresas.h"
#include "store/Migracion.h"
#include "store/Sesion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QString esquemaBavar(const Sesion& s, const QString& empresa) {
    return EsquemaServidor(QDir(s.carpetaEmpresa(empresa)).filePath(QStringLiteral("Bavar.db")));
}

QString esquemaEjercicio(const Sesion& s, const QString& empresa, const QString& ano) {
    return EsquemaServidor(
        QDir(s.carpetaEmpresa(empresa)).filePath(QStringLiteral("Quilmar%1.db").arg(ano)));
}

// The exercises of the company as the snapshot of `c` sees them, in the order they were made.
QList<RegistroSelan> ejerciciosEn(Conexion& c, const QString& codigo) {
    QList<RegistroSelan> r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Ano, Codigo, Nombre FROM bavis.Ejercicios "
                                            "WHERE Codigo = ? ORDER BY rowid"),
                             {codigo});
    while (q.next())
        r << RegistroSelan{q.value(0).toString(), q.value(1).toString(), q.value(2).toString()};
    return r;
}

// The schema the snapshot of `origen` is on, as a new SQLite file.
void volcarEsquema(Conexion& origen, const QString& esquema, const QString& ruta, TipoBase tipo) {
    origen.usarEsquema(esquema);
    // A backup's file keeps the rollback journal, as a copy of the files does: it may be read
    // where it lies (a read-only medium, a check) without leaving a log beside it.
    CrearBaseDatos(ruta, tipo, ModoDiario::Rollback);
    Conexion destino(ruta, tipo, false, ModoDiario::Rollback);
    destino.prepararEscrituraLarga();
    Transaccion t(destino);
    for (const QString& tabla : TablasDe(tipo))
        CopiarTabla(origen, destino, tabla);
    t.confirmar();
}

// Replaces the whole content of the schema `esquema` (made anew) with the database file `ruta`,
// in the transaction open on `c`.
void cargarEsquema(Conexion& c, const QString& esquema, const QString& ruta, TipoBase tipo) {
    c.ejecutar(QStringLiteral("CREATE SCHEMA ") + esquema);
    c.usarEsquema(esquema);
    CrearEsquema(c, tipo);
    Conexion origen(ruta, tipo);
    for (const QString& tabla : TablasDe(tipo))
        CopiarTabla(origen, c, tabla);
}

} // namespace

int FicherosEmpresaServidor(const Sesion& s, const QString& empresa) {
    return int(EjerciciosDe(s, empresa).size()) + 2;
}

void CopiarEmpresaDeServidor(const Sesion& s, const QString& empresa, const QString& carpeta,
                             const std::function<void()>& hecho) {
    auto uno = [&] {
        if (hecho)
            hecho();
    };
    const QString bavar = esquemaBavar(s, empresa);
    Conexion c = AbrirServidor(s, bavar, TipoBase::Bavar);
    // Every schema of the company is read in this one snapshot: a copy taken while others post
    // holds their entries whole or not at all, and the company's lists agree with its years.
    Transaccion foto(c, Transaccion::Modo::Lectura);
    const QList<RegistroSelan> ejercicios = ejerciciosEn(c, empresa.mid(3));
    if (ejercicios.isEmpty())
        throw ErrorAlmacen(QStringLiteral("No existe la empresa %1.").arg(empresa));
    const QDir dir(carpeta);
    volcarEsquema(c, bavar, dir.filePath(QStringLiteral("Bavar.db")), TipoBase::Bavar);
    uno();
    QStringList hechos;
    for (const RegistroSelan& e : ejercicios) {
        if (hechos.contains(e.Ano))
            continue;
        hechos << e.Ano;
        volcarEsquema(c, esquemaEjercicio(s, empresa, e.Ano),
                      dir.filePath(QStringLiteral("Quilmar%1.db").arg(e.Ano)), TipoBase::Ejercicio);
        uno();
    }
    EscribirSelan(dir.filePath(QStringLiteral("Selan.dat")), ejercicios);
    uno();
    foto.confirmar();
}

void CopiarBavisDeServidor(const Sesion& s, const QString& destino) {
    Conexion c = AbrirAvisos(s);
    Transaccion foto(c, Transaccion::Modo::Lectura);
    volcarEsquema(c, QStringLiteral("bavis"), destino, TipoBase::Bavis);
    foto.confirmar();
}

void RestaurarEmpresaEnServidor(const Sesion& s, const QString& carpeta, const QString& bavis) {
    const QDir dir(carpeta);
    const QString empresa = dir.dirName();
    const QString codigo = empresa.mid(3);
    QList<RegistroSelan> ejercicios = LeerSelan(dir.filePath(QStringLiteral("Selan.dat")));
    for (RegistroSelan& r : ejercicios)
        r.Codigo = codigo;
    const QString bavar = esquemaBavar(s, empresa);

    Conexion c = AbrirAvisos(s);
    // The schemas the company has now, each joined to the connection so that the transaction
    // takes the writers' lock of every one: nobody posts into a year being replaced.
    QStringList previos;
    {
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT nspname FROM pg_namespace WHERE nspname = ? OR nspname ~ ? "
                           "ORDER BY nspname"),
            {bavar, QStringLiteral("^%1_[0-9]{4}$").arg(bavar)});
        while (q.next())
            previos << q.value(0).toString();
    }
    for (int i = 0; i < previos.size(); ++i)
        c.adjuntarEsquema(QStringLiteral("previo%1").arg(i), previos.at(i));

    Transaccion t(c);
    for (const QString& e : previos)
        c.ejecutar(QStringLiteral("DROP SCHEMA %1 CASCADE").arg(e));
    cargarEsquema(c, bavar, dir.filePath(QStringLiteral("Bavar.db")), TipoBase::Bavar);
    QStringList hechos;
    for (const RegistroSelan& e : ejercicios) {
        if (hechos.contains(e.Ano))
            continue;
        hechos << e.Ano;
        cargarEsquema(c, esquemaEjercicio(s, empresa, e.Ano),
                      dir.filePath(QStringLiteral("Quilmar%1.db").arg(e.Ano)), TipoBase::Ejercicio);
    }
    c.usarEsquema(QStringLiteral("bavis"));
    c.ejecutar(QStringLiteral("DELETE FROM Ejercicios WHERE Codigo = ?"), {codigo});
    c.ejecutar(QStringLiteral("DELETE FROM Empresas WHERE Codigo = ?"), {codigo});
    for (const RegistroSelan& e : ejercicios)
        AnotarEjercicioServidor(c, e);
    if (!bavis.isEmpty()) {
        Conexion origen(bavis, TipoBase::Bavis);
        for (const QString& tabla : TablasDe(TipoBase::Bavis)) {
            c.ejecutar(QStringLiteral("DELETE FROM ") + tabla);
            CopiarTabla(origen, c, tabla);
        }
    }
    t.confirmar();
}

void MantenerEsquemas(const Sesion& s, const QStringList& esquemas,
                      const std::function<void()>& paso) {
    for (const QString& esquema : esquemas) {
        Conexion c = AbrirServidor(s, esquema);
        QStringList tablas;
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT tablename FROM pg_tables WHERE schemaname = ? ORDER BY 1"),
            {esquema});
        while (q.next())
            tablas << q.value(0).toString();
        // VACUUM refuses to run inside a transaction: each table on its own.
        for (const QString& tabla : tablas)
            c.ejecutar(QStringLiteral("VACUUM (ANALYZE) %1.\"%2\"").arg(esquema, tabla));
        if (paso)
            paso();
    }
}

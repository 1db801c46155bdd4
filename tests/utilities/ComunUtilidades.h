#pragma once
// Shared by the backup, restore and compaction tests: entries that say how many lines they have,
// the checks a book must pass whatever happened to it, and fingerprints of files and tables.

#include "Entorno.h"
#include "platform/Rejilla.h"
#include "posting/ComunAsientos.h"
#include "reports/SumasSaldos.h"
#include "store/Conexiones.h"
#include "store/Esquema.h"
#include "store/ListasEmpresas.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace utiles {

using namespace cuentas;

// Entry i: two or three lines, its description "C<i>-<lines>".
inline QList<Apunte> asientoContado(int i) {
    const double a = (i % 89) + 0.37;
    QList<Apunte> r;
    if (i % 2 == 0)
        r << Debe(Compras, a) << Haber(Caja, a);
    else
        r << Debe(Compras, a) << Debe(Banco, a + 1) << Haber(Ventas, 2 * a + 1);
    for (Apunte& x : r)
        x.Concepto = QStringLiteral("C%1-%2").arg(i).arg(r.size());
    return r;
}

// Posts entries desde..hasta in one transaction (quick, for bulk).
inline void publicar(Entorno& e, int desde, int hasta) {
    Conexion c = e.datos();
    Transaccion t(c);
    for (int i = desde; i <= hasta; ++i)
        EscribirAsiento(c, e.sesion, QDate(e.sesion.AnoActual, 1 + i % 12, 1 + i % 28),
                        asientoContado(i));
    t.confirmar();
}

// What a book must be, however it was copied: sound, Mayor equal to the sums of Diario, every
// "C" entry whole under one number. Returns the number of "C" entries.
inline int ComprobarLibro(Conexion& c) {
    if (!c.enServidor()) {
        EXPECT_EQ(c.escalar("PRAGMA integrity_check").toString(), "ok");
    }
    EXPECT_EQ(DescuadresMayor(c), QStringList());
    QSqlQuery q = c.ejecutar("SELECT Concepto, COUNT(*), COUNT(DISTINCT NAs), "
                             "round(SUM(Debe) - SUM(Haber), 2) FROM Diario "
                             "WHERE Concepto LIKE 'C%' GROUP BY Concepto");
    int n = 0;
    while (q.next()) {
        ++n;
        const int lineas = q.value(0).toString().section('-', 1).toInt();
        EXPECT_EQ(q.value(1).toInt(), lineas) << q.value(0).toString().toStdString();
        EXPECT_EQ(q.value(2).toInt(), 1) << q.value(0).toString().toStdString();
        EXPECT_EQ(q.value(3).toDouble(), 0.0) << q.value(0).toString().toStdString();
    }
    return n;
}

// The trial balance of the whole exercise, row by row.
inline QList<QStringList> SumasSaldos(Sesion& s) {
    CargarEjercicio(s);
    Conexion c = AbrirDatos(s);
    Rejilla r = RejillaSyS();
    LlenarSyS(c, s, s.FechaIniEj, s.FechaFinEj, r);
    QList<QStringList> filas;
    for (int f = 0; f < r.Filas(); ++f)
        filas << r.Fila(f);
    return filas;
}

// Every row of every table of a database, in table order.
inline QStringList Volcado(const QString& ruta) {
    Conexion c(ruta);
    QStringList r;
    QStringList tablas;
    QSqlQuery t = c.ejecutar("SELECT name FROM sqlite_master WHERE type = 'table' "
                             "AND name NOT LIKE 'sqlite_%' ORDER BY name");
    while (t.next())
        tablas << t.value(0).toString();
    for (const QString& tabla : tablas) {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(tabla));
        while (q.next()) {
            QStringList fila{tabla};
            for (int i = 0; i < q.record().count(); ++i)
                fila << q.value(i).toString();
            r << fila.join('|');
        }
    }
    return r;
}

// Name and content hash of every file under a folder (hidden ones too), to tell that nothing
// was touched. A database's passing files (-wal, -shm) are left out: their bytes change as soon
// as anybody reads, and what they hold is compared through the data itself (Libros).
inline QMap<QString, QByteArray> Firma(const QString& carpeta) {
    QMap<QString, QByteArray> r;
    const QDir raiz(carpeta);
    QList<QString> pendientes{carpeta};
    while (!pendientes.isEmpty()) {
        const QDir d(pendientes.takeFirst());
        for (const QFileInfo& f :
             d.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            if (f.isDir()) {
                pendientes << f.absoluteFilePath();
                continue;
            }
            if (f.fileName().endsWith("-wal") || f.fileName().endsWith("-shm"))
                continue;
            QFile x(f.absoluteFilePath());
            x.open(QIODevice::ReadOnly);
            r.insert(raiz.relativeFilePath(f.absoluteFilePath()),
                     QCryptographicHash::hash(x.readAll(), QCryptographicHash::Sha1));
        }
    }
    return r;
}

// Every row of every table of one database, on either engine, in the order the program reads
// them; with a count and sum of the journal first, so that a difference shows at a glance.
inline QStringList VolcadoBase(Conexion& c, TipoBase tipo) {
    QStringList r;
    if (tipo == TipoBase::Ejercicio) {
        QSqlQuery q = c.ejecutar("SELECT COUNT(*), round(SUM(Debe), 2), round(SUM(Haber), 2) "
                                 "FROM Diario");
        if (q.next())
            r << QStringLiteral("Diario %1 %2 %3")
                     .arg(q.value(0).toString(), q.value(1).toString(), q.value(2).toString());
    }
    for (const QString& tabla : TablasDe(tipo)) {
        const QStringList columnas = c.columnas(tabla);
        QStringList leer;
        for (const QString& col : columnas)
            if (col != "rowid")
                leer << '"' + col + '"';
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT %1 FROM %2 ORDER BY rowid").arg(leer.join(','), tabla));
        while (q.next()) {
            QStringList fila{tabla};
            for (int i = 0; i < leer.size(); ++i)
                fila << q.value(i).toString();
            r << fila.join('|');
        }
    }
    return r;
}

// The books of a company and the installation's own database, wherever the session keeps them:
// what a refused restore must leave as it was.
inline QStringList Libros(const Sesion& s, const QString& empresa) {
    Sesion x = s;
    x.EmpresaActual = empresa;
    QStringList r;
    {
        Conexion c = AbrirAvisos(x);
        r << VolcadoBase(c, TipoBase::Bavis);
    }
    {
        Conexion c = AbrirBavar(x);
        r << VolcadoBase(c, TipoBase::Bavar);
    }
    for (const RegistroSelan& e : EjerciciosDe(x, empresa)) {
        x.AnoActual = qint16(e.Ano.toInt());
        Conexion c = AbrirDatos(x);
        r << "Ejercicio " + e.Ano;
        r << VolcadoBase(c, TipoBase::Ejercicio);
    }
    return r;
}

// The books on a server are found by the command line through the installation's setting, as a
// user's desktop finds them.
inline void CliComoLaSesion(Entorno& e) {
    if (e.sesion.enServidor())
        e.ajustes->escribir("Datos", "Servidor", e.sesion.UrlServidor);
}

} // namespace utiles

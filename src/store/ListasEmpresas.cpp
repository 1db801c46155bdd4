#include "store/ListasEmpresas.h"

#include "platform/Almacen.h"
#include "platform/Ficheros.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {

// The schemas of a company on the server, "emp001" and "emp001_2026", with the year of each (0
// for the company's own).
QList<QPair<QString, int>> esquemasEmpresa(Conexion& c, const QString& codigo) {
    static const QRegularExpression patron(QStringLiteral("^emp(\\d{3})(?:_(\\d{4}))?$"));
    QList<QPair<QString, int>> r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT nspname FROM pg_namespace ORDER BY nspname"));
    while (q.next()) {
        const QString nombre = q.value(0).toString();
        const auto m = patron.match(nombre);
        if (m.hasMatch() && m.captured(1) == codigo)
            r << qMakePair(nombre, m.captured(2).toInt());
    }
    return r;
}

QByteArray registroSelan(const RegistroSelan& r) {
    return CampoFijo(r.Ano, 4) + CampoFijo(r.Codigo, 3) + CampoFijo(r.Nombre, 30);
}

QByteArray registroNemp(const RegistroNemp& r) {
    return CampoFijo(r.Codigo, 3) + CampoFijo(r.Nombre, 30);
}

} // namespace

QList<RegistroSelan> LeerSelan(const QString& ruta) {
    QList<RegistroSelan> r;
    for (const QByteArray& b : FicheroRegistros(ruta, LongitudSelan).leerTodos())
        r << RegistroSelan{DeCp1252(b.mid(0, 4)).trimmed(), DeCp1252(b.mid(4, 3)).trimmed(),
                           DeCp1252(b.mid(7, 30)).trimmed()};
    return r;
}

void AnadirSelan(const QString& ruta, const RegistroSelan& r) {
    FicheroRegistros(ruta, LongitudSelan).anadir(registroSelan(r));
}

void EscribirSelan(const QString& ruta, const QList<RegistroSelan>& registros) {
    QList<QByteArray> b;
    for (const RegistroSelan& r : registros)
        b << registroSelan(r);
    FicheroRegistros(ruta, LongitudSelan).reescribir(b);
}

QList<RegistroNemp> LeerNemp(const QString& ruta) {
    QList<RegistroNemp> r;
    for (const QByteArray& b : FicheroRegistros(ruta, LongitudNemp).leerTodos())
        r << RegistroNemp{DeCp1252(b.mid(0, 3)).trimmed(), DeCp1252(b.mid(3, 30)).trimmed()};
    return r;
}

void AnadirNemp(const QString& ruta, const RegistroNemp& r) {
    FicheroRegistros(ruta, LongitudNemp).anadir(registroNemp(r));
}

void EscribirNemp(const QString& ruta, const QList<RegistroNemp>& registros) {
    QList<QByteArray> b;
    for (const RegistroNemp& r : registros)
        b << registroNemp(r);
    FicheroRegistros(ruta, LongitudNemp).reescribir(b);
}

QList<RegistroSelan> EjerciciosDe(const Sesion& s, const QString& empresa) {
    if (!s.enServidor())
        return LeerSelan(QDir(s.carpetaEmpresa(empresa)).filePath(QStringLiteral("Selan.dat")));
    QList<RegistroSelan> r;
    Conexion c = AbrirAvisos(s);
    QSqlQuery q = c.ejecutar(
        QStringLiteral(
            "SELECT Ano, Codigo, Nombre FROM Ejercicios WHERE Codigo = ? ORDER BY rowid"),
        {empresa.mid(3)});
    while (q.next())
        r << RegistroSelan{q.value(0).toString(), q.value(1).toString(), q.value(2).toString()};
    return r;
}

QList<RegistroNemp> EmpresasDe(const Sesion& s) {
    QList<RegistroNemp> r;
    if (!s.enServidor()) {
        for (const QString& carpeta : CarpetasEmpresa(s.DataPath)) {
            const QList<RegistroSelan> e = EjerciciosDe(s, carpeta);
            if (!e.isEmpty())
                r << RegistroNemp{e.last().Codigo, e.last().Nombre};
        }
        return r;
    }
    Conexion c = AbrirAvisos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Codigo, Nombre FROM Empresas ORDER BY Codigo"));
    while (q.next())
        r << RegistroNemp{q.value(0).toString(), q.value(1).toString()};
    return r;
}

void AnotarEjercicioServidor(Conexion& bavis, const RegistroSelan& r) {
    bavis.ejecutar(QStringLiteral("DELETE FROM Ejercicios WHERE Codigo = ? AND Ano = ?"),
                   {r.Codigo, r.Ano});
    bavis.ejecutar(QStringLiteral("INSERT INTO Ejercicios (Ano, Codigo, Nombre) VALUES (?, ?, ?)"),
                   {r.Ano, r.Codigo, r.Nombre});
    bavis.ejecutar(QStringLiteral("DELETE FROM Empresas WHERE Codigo = ?"), {r.Codigo});
    bavis.ejecutar(QStringLiteral("INSERT INTO Empresas (Codigo, Nombre) VALUES (?, ?)"),
                   {r.Codigo, r.Nombre});
}

QList<RegistroNemp> ListaEmpresas(const Sesion& s) {
    return s.enServidor() ? EmpresasDe(s) : LeerNemp(s.rutaNemp());
}

QMap<QString, QList<int>> EsquemasEnServidor(const Sesion& s) {
    static const QRegularExpression patron(QStringLiteral("^emp(\\d{3})(?:_(\\d{4}))?$"));
    Conexion c = AbrirAvisos(s);
    QMap<QString, QList<int>> r;
    QSet<QString> conEsquema;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT nspname FROM pg_namespace ORDER BY nspname"));
    while (q.next()) {
        const auto m = patron.match(q.value(0).toString());
        if (!m.hasMatch())
            continue;
        if (m.captured(2).isEmpty())
            conEsquema << m.captured(1);
        else
            r[m.captured(1)] << m.captured(2).toInt();
    }
    for (const QString& codigo : conEsquema)
        r[codigo];
    for (auto it = r.begin(); it != r.end(); ++it) {
        std::sort(it->begin(), it->end());
        if (!conEsquema.contains(it.key()))
            it->prepend(-1);
    }
    return r;
}

void EliminarEjercicioServidor(const Sesion& s, const QString& codigo, int ano) {
    Conexion c = AbrirAvisos(s);
    // The exercise's own lock too, so that nobody is posting into it while it goes.
    const QString esquema = QStringLiteral("emp%1_%2").arg(codigo).arg(ano);
    const bool hay =
        c.existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"), {esquema});
    if (hay)
        c.adjuntarEsquema(QStringLiteral("ejercicio"), esquema);
    Transaccion t(c);
    if (hay)
        c.ejecutar(QStringLiteral("DROP SCHEMA %1 CASCADE").arg(esquema));
    c.ejecutar(QStringLiteral("DELETE FROM Ejercicios WHERE Codigo = ? AND Ano = ?"),
               {codigo, QString::number(ano)});
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT Nombre FROM Ejercicios WHERE Codigo = ? ORDER BY rowid DESC"),
        {codigo});
    if (q.next())
        c.ejecutar(QStringLiteral("UPDATE Empresas SET Nombre = ? WHERE Codigo = ?"),
                   {q.value(0).toString(), codigo});
    else
        c.ejecutar(QStringLiteral("DELETE FROM Empresas WHERE Codigo = ?"), {codigo});
    t.confirmar();
    if (hay)
        c.quitarEsquema(QStringLiteral("ejercicio"));
}

void EliminarEmpresaServidor(const Sesion& s, const QString& codigo) {
    Conexion c = AbrirAvisos(s);
    const QList<QPair<QString, int>> esquemas = esquemasEmpresa(c, codigo);
    Transaccion t(c);
    for (const auto& e : esquemas)
        c.ejecutar(QStringLiteral("DROP SCHEMA %1 CASCADE").arg(e.first));
    c.ejecutar(QStringLiteral("DELETE FROM Ejercicios WHERE Codigo = ?"), {codigo});
    c.ejecutar(QStringLiteral("DELETE FROM Empresas WHERE Codigo = ?"), {codigo});
    t.confirmar();
}

#include "store/ListasEmpresas.h"

#include "platform/Almacen.h"
#include "platform/Ficheros.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QDir>

namespace {

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

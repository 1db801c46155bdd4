#include "store/ListasEmpresas.h"

#include "platform/Ficheros.h"

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

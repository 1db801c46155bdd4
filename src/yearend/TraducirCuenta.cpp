#include "yearend/TraducirCuenta.h"

#include "platform/Ficheros.h"
#include "store/Sesion.h"
#include "yearend/TablasPlan2007.h"

#include <QDir>

bool TraduccionNecesaria(int anoOrigen, int anoDestino) {
    return anoOrigen < 2008 && anoDestino >= 2008;
}

QString RutaTransnp(const Sesion& s) {
    return QDir(s.carpetaEmpresa()).filePath(QStringLiteral("Transnp.dat"));
}

QList<RegistroTransnp> LeerTransnp(const QString& ruta) {
    QList<RegistroTransnp> r;
    const FicheroRegistros f(ruta, LongitudTransnp);
    if (!f.existe())
        return r;
    for (const QByteArray& reg : f.leerTodos())
        r.append({DeCp1252(reg.left(9)).trimmed(), DeCp1252(reg.mid(9, 9)).trimmed()});
    return r;
}

void EscribirTransnp(const QString& ruta, const QList<RegistroTransnp>& registros) {
    QList<QByteArray> l;
    for (const RegistroTransnp& r : registros)
        l << CampoFijo(r.antiguo, 9) + CampoFijo(r.nuevo, 9);
    FicheroRegistros(ruta, LongitudTransnp).reescribir(l);
}

QString TraducirCon(const QList<RegistroTransnp>& registros, const QString& ncuenta) {
    const QString codigo = ncuenta.trimmed();
    for (const RegistroTransnp& r : registros)
        if (r.antiguo == codigo)
            return r.nuevo;
    const QString grupo = GrupoTraducido(codigo.left(4));
    if (!grupo.isEmpty() && codigo.size() > 4)
        return grupo + codigo.right(5);
    return codigo;
}

QString TraducirCuenta(const Sesion& s, const QString& ncuenta) {
    return TraducirCon(LeerTransnp(RutaTransnp(s)), ncuenta);
}

QString NombreTraducido(const QString& nombre) {
    const QString n = nombre.trimmed();
    return (n.size() < 4 ? n : n.left(n.size() - 4)) + QStringLiteral("(*)");
}

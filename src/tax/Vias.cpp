#include "tax/Vias.h"

#include "platform/Almacen.h"

namespace {

QList<OpcionVias> Opciones(QSqlQuery& q) {
    QList<OpcionVias> r;
    while (q.next())
        r.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed()});
    return r;
}

} // namespace

QList<OpcionVias> TiposVia(Conexion& vias) {
    QSqlQuery q = vias.ejecutar(QStringLiteral("SELECT DESCRIPC, CODCALLE FROM SIGLAS_X"));
    return Opciones(q);
}

QList<OpcionVias> ProvinciasVias(Conexion& vias) {
    QSqlQuery q = vias.ejecutar(QStringLiteral("SELECT DESCRIPC, CLAVE FROM PROVINCE"));
    return Opciones(q);
}

QList<OpcionVias> MunicipiosVias(Conexion& vias, const QString& codigoProvincia) {
    const QString codigo = codigoProvincia.trimmed();
    if (codigo.isEmpty())
        return {};
    QSqlQuery q = vias.ejecutar(QStringLiteral("SELECT DISTINCT NOMBRE, CODINE FROM MUNICIPE "
                                               "WHERE CP LIKE ? ORDER BY NOMBRE"),
                                {codigo + QLatin1Char('%')});
    return Opciones(q);
}

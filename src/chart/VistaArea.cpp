#include "chart/VistaArea.h"

#include "chart/Aparcar.h"
#include "platform/Almacen.h"
#include "store/Sesion.h"

VistaArea VistaArea::De(const Sesion& s) {
    return De(s.CArea);
}

VistaArea VistaArea::De(const QString& carea) {
    return VistaArea(carea.trimmed().compare(QLatin1String("Plan"), Qt::CaseInsensitive) == 0);
}

QStringList VistaArea::digitos() const {
    QStringList r;
    const int primero = plan_ ? 1 : 0;
    for (int i = 0; i < 7; ++i)
        r << QString::number(primero + i);
    return r;
}

QString VistaArea::patron(const QString& digito) const {
    return (plan_ ? QStringLiteral("_") : QString()) + digito.trimmed() + QLatin1Char('%');
}

QString VistaArea::digitoDe(const QString& ncuenta) const {
    return ncuenta.trimmed().mid(plan_ ? 1 : 0, 1);
}

QList<SubcuentaDeLista> VistaArea::subcuentas(Conexion& c, const Sesion& s, const QString& digito,
                                              bool conAparcadas, OrdenSubcuentas orden) const {
    QString sql = QStringLiteral(
        "SELECT NCuenta, Cuenta, NGrupo, Aparcada, Desde FROM Cuentas WHERE NCuenta LIKE ?");
    switch (orden) {
    case OrdenSubcuentas::GrupoYNombre:
        sql += QStringLiteral(" ORDER BY NGrupo, Cuenta");
        break;
    case OrdenSubcuentas::Nombre:
        sql += QStringLiteral(" ORDER BY Cuenta");
        break;
    case OrdenSubcuentas::Codigo:
        sql += QStringLiteral(" ORDER BY NCuenta");
        break;
    }
    QList<SubcuentaDeLista> r;
    QSqlQuery q = c.ejecutar(sql, {patron(digito)});
    while (q.next()) {
        if (!conAparcadas && EstaAparcada(q.value(3), q.value(4), s.AnoActual))
            continue;
        r << SubcuentaDeLista{q.value(0).toString().trimmed(), q.value(1).toString().trimmed(),
                              q.value(2).toString().trimmed()};
    }
    return r;
}

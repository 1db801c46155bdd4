#include "posting/LucesVencimiento.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

LuzVencimiento ClasificarVencimiento(const QDate& fechaV, const QDate& hoy) {
    if (!fechaV.isValid())
        return LuzVencimiento::Ninguna;
    if (fechaV == hoy)
        return LuzVencimiento::Hoy;
    if (fechaV < hoy)
        return LuzVencimiento::Vencido;
    if (fechaV.addDays(-8) < hoy)
        return LuzVencimiento::Proximo;
    return LuzVencimiento::Lejano;
}

QColor ColorDeLuz(LuzVencimiento luz) {
    switch (luz) {
    case LuzVencimiento::Hoy:
        return QColor(0xFF, 0x80, 0x00);
    case LuzVencimiento::Vencido:
        return QColor(0xFF, 0x00, 0x00);
    case LuzVencimiento::Proximo:
        return QColor(0xFF, 0xFF, 0x00);
    case LuzVencimiento::Lejano:
        return QColor(0x00, 0xFF, 0x00);
    case LuzVencimiento::Ninguna:
        break;
    }
    return {};
}

LuzVencimiento ColorVenc(Conexion& bavar, const QString& tipo, const QDate& hoy) {
    // Dates are ISO text, so the text order is the order of the days.
    QSqlQuery q = bavar.ejecutar(
        QStringLiteral("SELECT FechaV FROM Vencimientos WHERE Situacion <> 'Cobrado' AND "
                       "Situacion <> 'Pagado' AND FechaV >= ? AND Tipo = ? ORDER BY FechaV "
                       "LIMIT 1"),
        {FechaISO(hoy), tipo});
    if (!q.next())
        return LuzVencimiento::Ninguna;
    return ClasificarVencimiento(DeISO(q.value(0).toString()), hoy);
}

LuzVencimiento ColorVenc(const Sesion& s, const QString& tipo, const QDate& hoy) {
    Conexion c = AbrirBavar(s);
    return ColorVenc(c, tipo, hoy);
}

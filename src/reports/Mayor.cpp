#include "reports/Mayor.h"

#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/Movimientos.h"
#include "reports/TextoLibro.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QHash>
#include <QSqlQuery>

namespace {

bool TresCifras(const QString& t) {
    if (t.size() != 3)
        return false;
    for (const QChar ch : t)
        if (!ch.isDigit())
            return false;
    return true;
}

QString Cuenta3(int n) {
    return QStringLiteral("%1").arg(n, 3, 10, QLatin1Char('0'));
}

struct Subcuenta {
    QString nombre;
    double anteriorDebe = 0, anteriorHaber = 0;
};

} // namespace

bool CuentaIncompleta(const QString& texto) {
    const QString t = texto.trimmed();
    return !t.isEmpty() && t.size() < 3;
}

std::optional<SeleccionMayor> ValidarSeleccionMayor(const CajasMayor& cajas, Dialogo& dialogo,
                                                    int* caja) {
    auto fallo = [&](const QString& mensaje, int donde) -> std::optional<SeleccionMayor> {
        if (caja)
            *caja = donde;
        dialogo.Informar(mensaje);
        return std::nullopt;
    };
    if (cajas.desde > cajas.hasta)
        return fallo(MsgMayorFechas, 2);
    const QString a = cajas.desdeCuenta.trimmed(), b = cajas.hastaCuenta.trimmed();
    if (!TresCifras(a))
        return fallo(MsgMayorSinCuenta, 0);
    if (!TresCifras(b))
        return fallo(MsgMayorSinCuenta, 1);
    if (a.toInt() > b.toInt())
        return fallo(MsgMayorCuentasInvertidas, 0);
    SeleccionMayor sel;
    sel.desde = cajas.desde;
    sel.hasta = cajas.hasta;
    sel.desdeCuenta = a.toInt();
    sel.hastaCuenta = b.toInt();
    return sel;
}

Rejilla RejillaMayor() {
    return RejillaMovimientos();
}

CabeceraMayor TipoCabeceraMayor(const Rejilla& r, int fila) {
    if (!r.Combinada(fila))
        return CabeceraMayor::Ninguna;
    return r.celda(fila, 0).startsWith(PrefijoSubcuentaMayor) ? CabeceraMayor::Subcuenta
                                                              : CabeceraMayor::Cuenta;
}

void LlenarMayor(Conexion& c, const Sesion& s, const SeleccionMayor& sel, Rejilla& rejilla,
                 const Progreso& progreso) {
    rejilla.Vaciar();
    rejilla.QuitarTotales();
    const QString primera = Cuenta3(sel.desdeCuenta), ultima = Cuenta3(sel.hastaCuenta);

    // The accounts that have a group: the first group whose plan digits are the account's.
    QHash<QString, QString> grupos;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT substr(NGrupo, 2, 3), Grupo FROM Grupos "
                                                "WHERE substr(NGrupo, 2, 3) BETWEEN ? AND ? "
                                                "ORDER BY rowid"),
                                 {primera, ultima});
        while (q.next()) {
            const QString a = q.value(0).toString();
            if (TresCifras(a) && !grupos.contains(a))
                grupos.insert(a, q.value(1).toString().trimmed());
        }
    }
    // The subaccounts are those of the sums table with a name in the chart.
    QHash<QString, Subcuenta> subcuentas;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM ConMayor WHERE "
                                                "substr(NCuenta, 2, 3) BETWEEN ? AND ?"),
                                 {primera, ultima});
        while (q.next())
            subcuentas.insert(q.value(0).toString(), {q.value(1).toString().trimmed()});
    }
    const bool conAnteriores = sel.desde > s.FechaIniEj;
    if (conAnteriores) {
        QSqlQuery q = c.ejecutar(
            QStringLiteral("SELECT NCuenta, TOTAL(Debe), TOTAL(Haber) FROM Diario WHERE Fecha "
                           "BETWEEN ? AND ? AND substr(NCuenta, 2, 3) BETWEEN ? AND ? "
                           "GROUP BY NCuenta"),
            {FechaISO(s.FechaIniEj), FechaISO(sel.desde.addDays(-1)), primera, ultima});
        while (q.next()) {
            auto i = subcuentas.find(q.value(0).toString());
            if (i != subcuentas.end()) {
                i->anteriorDebe = q.value(1).toDouble();
                i->anteriorHaber = q.value(2).toDouble();
            }
        }
    }

    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, NAs, Fecha, Concepto, Debe, Haber FROM Diario WHERE "
                       "Fecha BETWEEN ? AND ? AND substr(NCuenta, 2, 3) BETWEEN ? AND ? "
                       "ORDER BY substr(NCuenta, 2, 3), NCuenta, Fecha, NAs, NAp"),
        {FechaISO(sel.desde), FechaISO(sel.hasta), primera, ultima});

    const QString primerDia = FormatoFecha(s.FechaIniEj, QStringLiteral("short date"));
    QString cuentaActual, subcuentaActual, cuentaConCabecera;
    bool tomada = false, deudora = true;
    double saldo = 0;
    qint64 n = 0;
    QString fila;
    fila.reserve(256);
    auto cerrarSubcuenta = [&] {
        if (tomada) {
            rejilla.AgregarFila(QString());
            rejilla.AgregarFila(QString());
        }
    };
    while (q.next()) {
        const QString ncuenta = q.value(0).toString();
        if (ncuenta != subcuentaActual) {
            cerrarSubcuenta();
            subcuentaActual = ncuenta;
            cuentaActual = ncuenta.mid(1, 3);
            const auto grupo = grupos.constFind(cuentaActual);
            const auto sub = subcuentas.constFind(ncuenta);
            tomada = grupo != grupos.cend() && sub != subcuentas.cend();
            if (!tomada)
                continue;
            deudora = NaturalezaDeudora(ncuenta);
            if (cuentaActual != cuentaConCabecera) {
                const int f = rejilla.AgregarFila(cuentaActual + QStringLiteral(". ") + *grupo);
                rejilla.CombinarFila(f);
                rejilla.PonerNegritaFila(f);
                cuentaConCabecera = cuentaActual;
            }
            const int f = rejilla.AgregarFila(PrefijoSubcuentaMayor + sub->nombre);
            rejilla.CombinarFila(f);
            rejilla.PonerNegritaFila(f);
            saldo = 0;
            if (conAnteriores && (sub->anteriorDebe != 0 || sub->anteriorHaber != 0)) {
                saldo = deudora ? sub->anteriorDebe - sub->anteriorHaber
                                : sub->anteriorHaber - sub->anteriorDebe;
                fila = QLatin1Char('\t') + primerDia + QLatin1Char('\t') + TextoSaldoInicial +
                       QLatin1Char('\t');
                AnadirImporte(fila, sub->anteriorDebe);
                fila += u'\t';
                AnadirImporte(fila, sub->anteriorHaber);
                fila += u'\t';
                AnadirImporte(fila, saldo);
                rejilla.AgregarFila(fila);
            }
        }
        if (!tomada)
            continue;
        const double d = q.value(4).toDouble(), h = q.value(5).toDouble();
        saldo += deudora ? d - h : h - d;
        fila.clear();
        AnadirEnteroMiles(fila, q.value(1).toLongLong());
        fila += u'\t';
        AnadirFechaCorta(fila, q.value(2).toString());
        fila += u'\t';
        AnadirTexto(fila, q.value(3).toString().trimmed());
        fila += u'\t';
        AnadirImporte(fila, d);
        fila += u'\t';
        AnadirImporte(fila, h);
        fila += u'\t';
        AnadirImporte(fila, saldo);
        rejilla.AgregarFila(QString(fila.constData(), fila.size()));
        if (progreso && ++n % 5000 == 0)
            progreso(n, 0);
    }
    cerrarSubcuenta();
}

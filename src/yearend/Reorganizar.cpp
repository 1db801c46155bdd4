#include "yearend/Reorganizar.h"

#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <algorithm>
#include <cmath>

const QString EtapaDiario = QStringLiteral("Diario");
const QString EtapaSaldos = QStringLiteral("Saldos");
const QString EtapaRegistrosIva = QStringLiteral("Registros IVA");

QString MsgAsientoDescuadrado(long nas) {
    return QStringLiteral("El asiento número ") + Formato(nas, QStringLiteral("#,##0")) +
           QStringLiteral(" está descuadrado y debe modificarlo.");
}

QString MsgRevisarIva(long nas) {
    return QStringLiteral("Por favor, revise el Asiento nº ") +
           Formato(nas, QStringLiteral("#,###")) +
           QStringLiteral(". Compruebe los datos de IVA del mismo.");
}

namespace {

void avanzar(const ProgresoEtapa& p, const QString& etapa, qint64 hecho, qint64 total) {
    if (p)
        p(etapa, hecho, total);
}

// Each entry's lines summed in the order of their numbers; an imbalance above a thousandth is
// reported. Gaps in the numbers are not.
void comprobarDiario(Conexion& c, ResultadoReorganizacion& r,
                     const std::function<void(const QString&)>& avisar, const ProgresoEtapa& p) {
    const qint64 ultimo = c.escalar(QStringLiteral("SELECT MAX(NAs) FROM Diario")).toLongLong();
    avanzar(p, EtapaDiario, 0, ultimo);
    Lector l(c, QStringLiteral("SELECT NAs, Debe, Haber FROM Diario ORDER BY NAs, NAp"));
    qint64 actual = 0;
    double suma = 0;
    auto cerrarAsiento = [&] {
        if (actual != 0 && std::fabs(suma) > 0.001) {
            r.descuadrados << static_cast<long>(actual);
            if (avisar)
                avisar(MsgAsientoDescuadrado(static_cast<long>(actual)));
        }
    };
    qint64 avisado = 0;
    while (l.siguiente()) {
        const qint64 nas = l.entero(0);
        if (nas != actual) {
            cerrarAsiento();
            actual = nas;
            suma = 0;
            // About a hundred steps over the stage.
            if (nas - avisado >= std::max<qint64>(1, ultimo / 100)) {
                avanzar(p, EtapaDiario, nas, ultimo);
                avisado = nas;
            }
        }
        suma += l.real(1) - l.real(2);
    }
    cerrarAsiento();
    avanzar(p, EtapaDiario, ultimo, ultimo);
}

// Mayor emptied and filled again from the journal, subaccount by subaccount of the chart: lines
// of a code that is not in the chart stay out, as does a subaccount whose sums are both zero.
void rehacerSaldos(Conexion& c, ResultadoReorganizacion& r, const ProgresoEtapa& p) {
    Transaccion t(c);
    QStringList cuentas;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta FROM Cuentas ORDER BY NCuenta"));
        while (q.next())
            cuentas << q.value(0).toString();
    }
    c.ejecutar(QStringLiteral("DELETE FROM Mayor"));
    const qint64 total = cuentas.size();
    avanzar(p, EtapaSaldos, 0, total);
    for (qint64 i = 0; i < total; ++i) {
        QSqlQuery& q = c.preparada(
            QStringLiteral("SELECT SUM(Debe), SUM(Haber) FROM Diario WHERE NCuenta = ?"),
            {cuentas.at(i)});
        const double debe = q.next() ? Centimos(q.value(0).toDouble()) : 0;
        const double haber = q.isValid() ? Centimos(q.value(1).toDouble()) : 0;
        q.finish();
        if (debe != 0 || haber != 0) {
            c.preparada(
                QStringLiteral("INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) VALUES (?, ?, ?)"),
                {cuentas.at(i), debe, haber});
            ++r.subcuentas;
        }
        if ((i + 1) % 50 == 0)
            avanzar(p, EtapaSaldos, i + 1, total);
    }
    t.confirmar();
    avanzar(p, EtapaSaldos, total, total);
}

// VAT records that belong to no journal line go; journal lines whose record is missing are
// reported by their entry.
void comprobarIva(Conexion& c, ResultadoReorganizacion& r,
                  const std::function<void(const QString&)>& avisar, const ProgresoEtapa& p) {
    const qint64 total =
        c.escalar(QStringLiteral("SELECT COUNT(IdIVA) AS Total FROM DatosIVA")).toLongLong();
    avanzar(p, EtapaRegistrosIva, 0, total);
    {
        Transaccion t(c);
        QSqlQuery q = c.ejecutar(
            QStringLiteral("DELETE FROM DatosIVA WHERE NOT EXISTS (SELECT 1 FROM Diario WHERE "
                           "Diario.IdIVA = DatosIVA.IdIVA AND Diario.IdIVA <> 0)"));
        r.registrosIvaEliminados = q.numRowsAffected();
        q.finish();
        t.confirmar();
    }
    avanzar(p, EtapaRegistrosIva, total, total);
    QList<long> faltan;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral(
            "SELECT NAs, IdIVA FROM Diario WHERE IdIVA <> 0 AND NOT EXISTS (SELECT 1 FROM "
            "DatosIVA WHERE DatosIVA.IdIVA = Diario.IdIVA) ORDER BY NAs, NAp"));
        while (q.next())
            faltan << static_cast<long>(q.value(0).toLongLong());
    }
    for (long nas : faltan) {
        r.ivaSinRegistro << nas;
        if (avisar)
            avisar(MsgRevisarIva(nas));
    }
}

} // namespace

ResultadoReorganizacion Reorganizar(Sesion& s, const std::function<void(const QString&)>& avisar,
                                    const ProgresoEtapa& progreso) {
    ResultadoReorganizacion r;
    Conexion c = AbrirDatos(s);
    comprobarDiario(c, r, avisar, progreso);
    rehacerSaldos(c, r, progreso);
    comprobarIva(c, r, avisar, progreso);
    return r;
}

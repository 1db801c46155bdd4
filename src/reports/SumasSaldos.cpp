#include "reports/SumasSaldos.h"

#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/TextoLibro.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QHash>
#include <QSqlQuery>
#include <algorithm>
#include <vector>

Rejilla RejillaSyS() {
    return Rejilla({{QStringLiteral("Código")},
                    {QStringLiteral("Cuenta")},
                    {QStringLiteral("Debe"), TipoColumna::Importe},
                    {QStringLiteral("Haber"), TipoColumna::Importe},
                    {QStringLiteral("Saldo"), TipoColumna::Importe},
                    {QStringLiteral("NCuenta"), TipoColumna::Texto, true},
                    {QStringLiteral("Grupo"), TipoColumna::Texto, true}});
}

bool EjercicioEntero(const Sesion& s, const QDate& desde, const QDate& hasta) {
    return desde.isValid() && hasta.isValid() && desde == s.FechaIniEj && hasta == s.FechaFinEj;
}

namespace {

struct FilaSyS {
    QString ncuenta, cuenta, grupo;
    double debe = 0, haber = 0;
};

// One grid row: code, name, the three amounts, the code again and the group key.
QString TextoFila(const QString& codigo, const QString& nombre, double debe, double haber,
                  const QString& ncuenta, const QString& grupo) {
    QString t;
    t.reserve(128);
    t += codigo;
    t += u'\t';
    AnadirTexto(t, nombre);
    t += u'\t';
    AnadirImporte(t, debe);
    t += u'\t';
    AnadirImporte(t, haber);
    t += u'\t';
    AnadirImporte(t, debe - haber);
    t += u'\t';
    t += ncuenta;
    t += u'\t';
    t += grupo;
    return t;
}

} // namespace

ResultadoSyS LlenarSyS(Conexion& c, const Sesion& s, const QDate& desde, const QDate& hasta,
                       Rejilla& rejilla) {
    rejilla.Vaciar();
    rejilla.QuitarTotales();
    ResultadoSyS res;
    res.ejercicioEntero = EjercicioEntero(s, desde, hasta);

    // Only subaccounts that Mayor holds with a sum on either side take part, in both ways: one
    // whose Mayor sums are both zero is left out even if it has lines in the period.
    std::vector<FilaSyS> filas;
    QSqlQuery q =
        res.ejercicioEntero
            ? c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta, SaldoD, SaldoH FROM ConMayor "
                                        "WHERE SaldoD <> 0 OR SaldoH <> 0 ORDER BY NCuenta"))
            // The period's sums in one pass: for each such subaccount a range of the covering
            // index Diario(NCuenta, Fecha, Debe, Haber). CROSS JOIN keeps Mayor outside: left to
            // itself the planner walks the date index and reads every line of the period from
            // the table, three times slower on a quarter. The inner join drops a subaccount
            // without lines in the period; one whose lines are zero keeps its zeros.
            // MAX(m.Cuenta): one name per subaccount, which a server wants said.
            : c.ejecutar(
                  QStringLiteral("SELECT m.NCuenta, MAX(m.Cuenta), SUM(d.Debe), SUM(d.Haber) "
                                 "FROM ConMayor m CROSS JOIN Diario d "
                                 "ON d.NCuenta = m.NCuenta "
                                 "AND d.Fecha BETWEEN ? AND ? "
                                 "WHERE m.SaldoD <> 0 OR m.SaldoH <> 0 "
                                 "GROUP BY m.NCuenta ORDER BY m.NCuenta"),
                  {FechaISO(desde), FechaISO(hasta)});
    while (q.next()) {
        FilaSyS f;
        f.ncuenta = q.value(0).toString();
        f.cuenta = q.value(1).toString();
        f.debe = q.value(2).toDouble();
        f.haber = q.value(3).toDouble();
        f.grupo = f.ncuenta.mid(1, 3);
        res.debe += f.debe;
        res.haber += f.haber;
        filas.push_back(std::move(f));
    }
    res.subcuentas = int(filas.size());

    // By the group key as text; within a key the order read stays.
    std::stable_sort(filas.begin(), filas.end(),
                     [](const FilaSyS& a, const FilaSyS& b) { return a.grupo < b.grupo; });

    QHash<QString, QString> grupos;
    if (!filas.empty()) {
        QSqlQuery g = c.ejecutar(QStringLiteral("SELECT NGrupo, Grupo FROM Grupos"));
        while (g.next())
            grupos.insert(g.value(0).toString(), g.value(1).toString().trimmed());
    }

    for (size_t i = 0; i < filas.size();) {
        // A run of one key; its account is looked up by the first row's area and plan digits.
        size_t fin = i;
        double debe = 0, haber = 0;
        while (fin < filas.size() && filas[fin].grupo == filas[i].grupo) {
            debe += filas[fin].debe;
            haber += filas[fin].haber;
            ++fin;
        }
        const auto grupo = grupos.constFind(filas[i].ncuenta.left(4));
        if (grupo != grupos.constEnd()) {
            const int f = rejilla.AgregarFila(
                TextoFila(filas[i].grupo, *grupo, debe, haber, QString(), filas[i].grupo));
            for (int col = ColSySCodigo; col <= ColSySSaldo; ++col)
                rejilla.PonerNegrita(f, col);
        }
        for (; i < fin; ++i) {
            const FilaSyS& r = filas[i];
            rejilla.AgregarFila(
                TextoFila(r.ncuenta, r.cuenta, r.debe, r.haber, r.ncuenta, r.grupo));
        }
    }

    rejilla.PonerTotal(TotalSySDebe, Formato(res.debe, QStringLiteral("standard")));
    rejilla.PonerTotal(TotalSySHaber, Formato(res.haber, QStringLiteral("standard")));
    rejilla.PonerTotal(TotalSySSaldo, Formato(res.debe - res.haber, QStringLiteral("standard")));
    return res;
}

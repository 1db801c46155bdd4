#pragma once
// A busy exercise made in a second or two by set-based SQL in one transaction: `asientos` entries
// of two or three lines (about 2.5 lines an entry) spread over the year: sales to 500 customers,
// their collections, purchases from 200 suppliers and their payments, all in cents, every entry
// balanced, and Mayor equal to the sums of the journal. For the tests and benchmarks that need
// size; the journal writer is covered elsewhere.

#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QString>

inline void LlenarEjercicioGrande(Sesion& s, int asientos = 100000) {
    Conexion c = AbrirDatos(s);
    Transaccion t(c);
    // The third parties: customers 443090001... and suppliers 240090001...
    c.ejecutar(QStringLiteral(
        "WITH RECURSIVE k(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM k WHERE n < 500) "
        "INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) "
        "SELECT printf('44309%04d', n), printf('Cliente %d', n), '4430' FROM k "
        "UNION ALL SELECT printf('24009%04d', n), printf('Proveedor %d', n), '2400' FROM k "
        "WHERE n <= 200"));
    // Entry k + 1: a base of 100,00 to 3.260,89 in cents and its VAT at 21 %. By k % 4: a sale
    // (customer / sales / VAT charged), its collection (bank / customer), a purchase (purchases,
    // VAT paid / supplier), its payment (supplier / bank).
    // (Built by concatenation: the printf patterns would confuse QString::arg.)
    const QString cte = QStringLiteral(
        "WITH RECURSIVE k(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM k WHERE n < ? - 1), "
        "a AS (SELECT n, n + 1 AS nas, date(?, '+' || (n * 365 / ?) || ' days') AS fecha, "
        "10000 + (n % 997) * 317 AS b, ((10000 + (n % 997) * 317) * 21 + 50) / 100 AS q, "
        "printf('44309%04d', n % 500 + 1) AS cli, printf('44309%04d', (n / 2) % 500 + 1) AS cob, "
        "printf('24009%04d', n % 200 + 1) AS pro, printf('24009%04d', (n / 3) % 200 + 1) AS pag "
        "FROM k) "
        "INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Concepto, Debe, Haber) ");
    const QString ini = FechaISO(s.FechaIniEj);
    auto lineas = [&](int nap, const char* cuenta, const char* debe, const char* haber,
                      const char* donde) {
        c.ejecutar(cte + QStringLiteral("SELECT nas, ") + QString::number(nap) +
                       QStringLiteral(", fecha, ") + QLatin1String(cuenta) +
                       QStringLiteral(", 'Movimiento de prueba', ") + QLatin1String(debe) +
                       QStringLiteral(", ") + QLatin1String(haber) + QStringLiteral(" FROM a ") +
                       QLatin1String(donde),
                   {asientos, ini, asientos});
    };
    lineas(1,
           "CASE n % 4 WHEN 0 THEN cli WHEN 1 THEN '157200003' WHEN 2 THEN '660000044' ELSE pag "
           "END",
           "CASE n % 4 WHEN 0 THEN (b + q) / 100.0 ELSE b / 100.0 END", "0", "");
    lineas(2,
           "CASE n % 4 WHEN 0 THEN '370000066' WHEN 1 THEN cob WHEN 2 THEN '447200028' ELSE "
           "'157200003' END",
           "CASE n % 4 WHEN 2 THEN q / 100.0 ELSE 0 END",
           "CASE n % 4 WHEN 2 THEN 0 ELSE b / 100.0 END", "");
    lineas(3, "CASE n % 4 WHEN 0 THEN '247700016' ELSE pro END", "0",
           "CASE n % 4 WHEN 0 THEN q / 100.0 ELSE (b + q) / 100.0 END", "WHERE n % 2 = 0");
    c.ejecutar(QStringLiteral(
        "INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) "
        "SELECT NCuenta, round(SUM(Debe), 2), round(SUM(Haber), 2) FROM Diario WHERE true "
        "GROUP BY NCuenta ON CONFLICT(NCuenta) DO UPDATE SET SaldoD = excluded.SaldoD, SaldoH = "
        "excluded.SaldoH"));
    t.confirmar();
    CargarEjercicio(s, c);
}

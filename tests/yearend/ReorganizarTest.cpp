// The reorganisation: a healthy book comes out as it went in; a damaged one gets Mayor rebuilt
// from the journal, its orphan VAT records deleted, and its unbalanced entries and lines without
// their VAT record reported.

#include "yearend/Reorganizar.h"
#include "Entorno.h"
#include "posting/ComunAsientos.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

// Mayor's rows with an amount, and the rest of what the process may touch.
QString Libros(Sesion& s) {
    Conexion c = AbrirDatos(s);
    QString r;
    QSqlQuery q = c.ejecutar("SELECT NCuenta, SaldoD, SaldoH FROM Mayor WHERE SaldoD <> 0 OR "
                             "SaldoH <> 0 ORDER BY NCuenta");
    while (q.next())
        r += QStringLiteral("%1 %2 %3;")
                 .arg(q.value(0).toString())
                 .arg(q.value(1).toDouble())
                 .arg(q.value(2).toDouble());
    r += c.escalar("SELECT COUNT(*) || ' ' || SUM(Debe) || ' ' || SUM(Haber) || ' ' || "
                   "SUM(CASE WHEN IdIVA <> 0 THEN 1 ELSE 0 END) FROM Diario")
             .toString();
    r += " IVA " + c.escalar("SELECT COUNT(*) FROM DatosIVA").toString();
    return r;
}

struct Registro {
    QStringList avisos;
    QStringList etapas; // "etapa hecho/total" of the last report of each stage
    ResultadoReorganizacion r;
};

Registro Ejecutar(Sesion& s) {
    Registro g;
    g.r = Reorganizar(
        s, [&](const QString& a) { g.avisos << a; },
        [&](const QString& etapa, qint64 hecho, qint64 total) {
            const QString t = QStringLiteral("%1 %2/%3").arg(etapa).arg(hecho).arg(total);
            if (!g.etapas.isEmpty() && g.etapas.last().startsWith(etapa + " "))
                g.etapas.last() = t;
            else
                g.etapas << t;
        });
    return g;
}

TEST(Reorganizar, UnLibroSanoQuedaIgualTambienCerrado) {
    Entorno e;
    e.instalarDemo();
    const QString antes = Libros(e.sesion);
    const Registro g = Ejecutar(e.sesion);
    EXPECT_TRUE(g.avisos.isEmpty()) << g.avisos.join("\n").toStdString();
    EXPECT_EQ(Libros(e.sesion), antes);
    EXPECT_EQ(g.r.registrosIvaEliminados, 0);
    ASSERT_EQ(g.etapas.size(), 3);
    EXPECT_TRUE(g.etapas[0].startsWith("Diario "));
    EXPECT_TRUE(g.etapas[1].startsWith("Saldos "));
    EXPECT_TRUE(g.etapas[2].startsWith("Registros IVA "));
    for (const QString& etapa : g.etapas) {
        const QStringList partes = etapa.section(' ', -1).split('/');
        EXPECT_EQ(partes[0], partes[1]) << "each stage ends full: " << etapa.toStdString();
    }

    // Closing entries are lines like any other: rebuilt, every account stays squared.
    CerrarEjercicio(e.sesion, {});
    const QString cerrado = Libros(e.sesion);
    EXPECT_TRUE(Ejecutar(e.sesion).avisos.isEmpty());
    EXPECT_EQ(Libros(e.sesion), cerrado);
    Conexion c = AbrirDatos(e.sesion);
    EXPECT_FALSE(c.existe("SELECT 1 FROM Mayor WHERE round(SaldoD - SaldoH, 2) <> 0"));
}

TEST(Reorganizar, RehaceElMayorYAvisaDeLoQueNoPuedeArreglar) {
    Entorno e;
    e.crearEmpresa();
    e.asiento(QDate(2024, 2, 1), {Debe(Banco, 300), Haber(Ventas, 300)});
    Apunte iva = Debe(IvaSop21, 21);
    iva.Iva = DatosIvaApunte{Proveedor, "F-1", 100, 21, 21};
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 100), iva, Haber(Proveedor, 121)});
    const QString sano = Libros(e.sesion);
    {
        Conexion c = e.datos();
        // Mayor damaged three ways.
        c.ejecutar("UPDATE Mayor SET SaldoD = 999 WHERE NCuenta = ?", {Banco});
        c.ejecutar("DELETE FROM Mayor WHERE NCuenta = ?", {Compras});
        c.ejecutar("INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) VALUES ('999999999', 5, 0)");
        // Entries written by hand: one off by two thousandths, one off by one (which passes),
        // one with a line on a code the chart lacks and a line whose VAT record is missing.
        const char* lineas[][5] = {
            {"1234", "1", "157000001", "10.002", "0"}, {"1234", "2", "370000066", "0", "10"},
            {"1300", "1", "157000001", "10.001", "0"}, {"1300", "2", "370000066", "0", "10"},
            {"1400", "1", "999999999", "7", "0"},      {"1400", "2", "157000001", "0", "7"}};
        for (const auto& l : lineas)
            c.ejecutar("INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Debe, Haber) VALUES "
                       "(?, ?, '2024-06-01', ?, ?, ?)",
                       {QString(l[0]).toInt(), QString(l[1]).toInt(), l[2],
                        QString(l[3]).toDouble(), QString(l[4]).toDouble()});
        c.ejecutar("UPDATE Diario SET IdIVA = 77 WHERE NAs = 1234 AND NAp = 2");
        // A VAT record that belongs to no line.
        c.ejecutar("INSERT INTO DatosIVA (IdIVA, CP, NCuenta, Base, Cuota) VALUES (42, 'P', ?, "
                   "1, 1)",
                   {Proveedor});
    }
    const Registro g = Ejecutar(e.sesion);
    EXPECT_EQ(g.avisos,
              QStringList({"El asiento número 1.234 está descuadrado y debe modificarlo.",
                           "Por favor, revise el Asiento nº 1.234. Compruebe los datos de IVA "
                           "del mismo."}));
    EXPECT_EQ(g.r.descuadrados, QList<long>({1234}));
    EXPECT_EQ(g.r.ivaSinRegistro, QList<long>({1234}));
    EXPECT_EQ(g.r.registrosIvaEliminados, 1);

    Conexion c = e.datos();
    // Mayor equals the journal for every subaccount of the chart; the unknown code is left out.
    EXPECT_EQ(DescuadresMayor(c), QStringList({"999999999"}));
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Banco}).toDouble(), 300);
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble(), 100);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM DatosIVA").toInt(), 1);

    // Without the hand-made entries, the book is the healthy one again.
    c.ejecutar("DELETE FROM Diario WHERE NAs >= 1234");
    Ejecutar(e.sesion);
    EXPECT_EQ(Libros(e.sesion), sano);
}

TEST(Reorganizar, UnDiarioVacioDejaElMayorVacio) {
    Entorno e;
    e.crearEmpresa();
    e.datos().ejecutar("INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) VALUES (?, 1, 0)", {Caja});
    const Registro g = Ejecutar(e.sesion);
    EXPECT_TRUE(g.avisos.isEmpty());
    EXPECT_EQ(g.r.subcuentas, 0);
    EXPECT_EQ(e.datos().escalar("SELECT COUNT(*) FROM Mayor").toInt(), 0);
}

} // namespace

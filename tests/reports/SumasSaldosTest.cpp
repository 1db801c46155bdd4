// The trial balance on screen: the whole exercise from Mayor against the period read from the
// journal, which subaccounts a period keeps or drops, the group rows with their subtotals, the
// order by account, signs and the totals under the list.

#include "reports/SumasSaldos.h"
#include "ComunLibros.h"
#include "platform/Rejilla.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

struct Lista {
    Rejilla r = RejillaSyS();
    ResultadoSyS res;
};

Lista Llenar(Entorno& e, const QDate& desde, const QDate& hasta) {
    Lista l;
    Conexion c = e.datos();
    l.res = LlenarSyS(c, e.sesion, desde, hasta, l.r);
    return l;
}

int FilaDe(const Rejilla& r, const QString& codigo) {
    for (int f = 0; f < r.Filas(); ++f)
        if (r.Celda(f, ColSySCodigo) == codigo)
            return f;
    return -1;
}

QString Total(const Rejilla& r, const QString& etiqueta) {
    for (const Rejilla::Total& t : r.Totales())
        if (t.etiqueta == etiqueta)
            return t.valor;
    return QStringLiteral("<ninguno>");
}

// Debit, credit and balance under the list.
QStringList Totales(const Rejilla& r) {
    return {Total(r, TotalSySDebe), Total(r, TotalSySHaber), Total(r, TotalSySSaldo)};
}

// Entries spread over the year, with both sides of some subaccounts.
void Movimientos(Entorno& e) {
    e.crearEmpresa();
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1500), Haber(Banco, 1500)});
    e.asiento(QDate(2024, 2, 15), {Debe(Compras, 1000.10), Haber(Proveedor, 1000.10)});
    e.asiento(QDate(2024, 3, 31), {Debe(Clientes, 2500.55), Haber(Ventas, 2500.55)});
    e.asiento(QDate(2024, 4, 1), {Debe(Banco, 2500.55), Haber(Clientes, 2500.55)});
    e.asiento(QDate(2024, 7, 9), {Debe(Proveedor, 400), Haber(Caja, 400)});
    e.asiento(QDate(2024, 12, 31), {Debe(Caja, 0.01), Haber(Ventas, 0.01)});
}

} // namespace

TEST(SumasSaldos, EjercicioEnteroIgualPorMayorQuePorDiario) {
    Entorno e;
    Movimientos(e);
    const QDate ini = e.sesion.FechaIniEj, fin = e.sesion.FechaFinEj;
    ASSERT_EQ(ini, QDate(2024, 1, 1));
    const Lista rapida = Llenar(e, ini, fin);
    EXPECT_TRUE(rapida.res.ejercicioEntero);
    // Any other pair of dates reads the journal, even one that takes in every line.
    const Lista periodo = Llenar(e, ini.addDays(-1), fin);
    EXPECT_FALSE(periodo.res.ejercicioEntero);
    EXPECT_FALSE(EjercicioEntero(e.sesion, ini, fin.addDays(-1)));

    EXPECT_EQ(rapida.res.subcuentas, 6);
    ASSERT_EQ(rapida.r.Filas(), periodo.r.Filas());
    for (int f = 0; f < rapida.r.Filas(); ++f) {
        EXPECT_EQ(rapida.r.Fila(f), periodo.r.Fila(f)) << f;
        for (int col = 0; col < ColumnasSyS; ++col)
            EXPECT_EQ(rapida.r.Negrita(f, col), periodo.r.Negrita(f, col)) << f << "," << col;
    }
    EXPECT_EQ(Totales(rapida.r), QStringList({Std(7901.21), Std(7901.21), Std(0)}));
    EXPECT_EQ(Totales(rapida.r), Totales(periodo.r));

    // Caja: 1500 + 0,01 on the debit, 400 on the credit; Clientes with equal sides shows 0.
    const int caja = FilaDe(rapida.r, Caja);
    ASSERT_GE(caja, 0);
    EXPECT_EQ(rapida.r.Fila(caja),
              (QStringList{Caja, rapida.r.Celda(caja, ColSySCuenta), Std(1500.01), Std(400),
                           Std(1100.01), Caja, "570"}));
    const int clientes = FilaDe(rapida.r, Clientes);
    ASSERT_GE(clientes, 0);
    EXPECT_EQ(rapida.r.Celda(clientes, ColSySSaldo), Std(0));
    // A subaccount of credit nature shows its balance as debit minus credit all the same.
    const int ventas = FilaDe(rapida.r, Ventas);
    ASSERT_GE(ventas, 0);
    EXPECT_EQ(rapida.r.Celda(ventas, ColSySSaldo), Std(-2500.56));
}

TEST(SumasSaldos, PeriodoSinApuntesSinFilaYApuntesDeCeroConCeros) {
    Entorno e;
    Movimientos(e);
    {
        // A line of zero in March for Banco (Mayor unchanged), and a subaccount that Mayor holds
        // with both sums zero although it has a line: the latter never shows.
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Concepto, Debe, "
                                  "Haber) VALUES (99, 1, '2024-03-10', ?, 'Cero', 0, 0)"),
                   {Banco});
        c.ejecutar(QStringLiteral("INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Concepto, Debe, "
                                  "Haber) VALUES (99, 2, '2024-03-10', '157000099', 'X', 0, 0)"));
        c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES "
                                  "('157000099', 'Caja chica', '1570')"));
        c.ejecutar(QStringLiteral("INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) VALUES "
                                  "('157000099', 0, 0)"));
    }
    // March: Clientes and Ventas move; Banco has only its line of zero.
    const Lista marzo = Llenar(e, QDate(2024, 3, 1), QDate(2024, 3, 31));
    EXPECT_EQ(marzo.res.subcuentas, 3);
    const int banco = FilaDe(marzo.r, Banco);
    ASSERT_GE(banco, 0);
    EXPECT_EQ(marzo.r.Fila(banco).mid(ColSySDebe, 3), QStringList(3, Std(0)));
    EXPECT_EQ(marzo.r.Celda(FilaDe(marzo.r, Clientes), ColSySDebe), Std(2500.55));
    for (const QString& fuera : {Caja, Compras, Proveedor, QStringLiteral("157000099")})
        EXPECT_EQ(FilaDe(marzo.r, fuera), -1) << fuera.toStdString();
    EXPECT_EQ(Totales(marzo.r), QStringList({Std(2500.55), Std(2500.55), Std(0)}));

    // The period's bounds are inclusive: 2 January to 1 April takes the first four entries and
    // Banco's line of zero, not those of July and December.
    const Lista tramo = Llenar(e, QDate(2024, 1, 2), QDate(2024, 4, 1));
    const int caja = FilaDe(tramo.r, Caja);
    ASSERT_GE(caja, 0);
    EXPECT_EQ(tramo.r.Celda(caja, ColSySDebe), Std(1500));
    EXPECT_EQ(tramo.r.Celda(FilaDe(tramo.r, Banco), ColSySSaldo), Std(1000.55));
    EXPECT_EQ(Total(tramo.r, TotalSySDebe), Std(1500 + 1000.10 + 2500.55 + 2500.55));

    // Dates after the exercise leave an empty list with zero totals.
    const Lista nada = Llenar(e, QDate(2025, 1, 1), QDate(2025, 12, 31));
    EXPECT_EQ(nada.r.Filas(), 0);
    EXPECT_EQ(Totales(nada.r), QStringList(3, Std(0)));
}

TEST(SumasSaldos, GruposConSubtotalesEnNegritaYOrdenPorCuenta) {
    Entorno e;
    Movimientos(e);
    const QString Caja2 = "157000098";
    {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES "
                                  "(?, 'Caja de la tienda', '1570')"),
                   {Caja2});
    }
    e.asiento(QDate(2024, 5, 5), {Debe(Caja2, 70), Haber(Caja, 70)});
    {
        // Compras' account leaves Grupos: its subaccount stays, without a group row.
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("DELETE FROM Grupos WHERE NGrupo = '6600'"));
    }
    const Lista l = Llenar(e, e.sesion.FechaIniEj, e.sesion.FechaFinEj);
    const Rejilla& r = l.r;

    // The keys in order as text, each run headed when its account is in Grupos.
    QStringList codigos;
    for (int f = 0; f < r.Filas(); ++f)
        codigos << r.Celda(f, ColSySCodigo);
    EXPECT_EQ(codigos, (QStringList{"400", Proveedor, "430", Clientes, "570", Caja, Caja2, "572",
                                    Banco, Compras, "700", Ventas}));

    const int g570 = codigos.indexOf("570");
    Conexion c = e.datos();
    EXPECT_EQ(r.Celda(g570, ColSySCuenta),
              c.escalar(QStringLiteral("SELECT Grupo FROM Grupos WHERE NGrupo = '1570'"))
                  .toString()
                  .trimmed());
    // Caja 1500,01 / 470; Caja2 70 / 0.
    EXPECT_EQ(r.Fila(g570).mid(ColSySDebe, 3), QStringList({Std(1570.01), Std(470), Std(1100.01)}));
    EXPECT_TRUE(r.Celda(g570, ColSySNCuenta).isEmpty());
    for (int col = ColSySCodigo; col <= ColSySSaldo; ++col) {
        EXPECT_TRUE(r.Negrita(g570, col)) << col;
        EXPECT_FALSE(r.Negrita(g570 + 1, col)) << col;
    }
    // A credit-heavy account's subtotal is negative.
    EXPECT_EQ(r.Celda(codigos.indexOf("700"), ColSySSaldo), Std(-2500.56));
    // Group rows do not enter the totals.
    EXPECT_EQ(Totales(r), QStringList({Std(7971.21), Std(7971.21), Std(0)}));
    EXPECT_EQ(l.res.subcuentas, 7);
}

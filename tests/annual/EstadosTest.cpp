// The statements laid from small books made for each case: which subaccount falls in which line,
// the headings, both years' columns, the result rows.
#include "annual/Estados.h"

#include <gtest/gtest.h>

namespace {

// A subaccount of plan account `plan` (three digits) in area `area`.
SaldoEstado S(const QString& plan, double debe, double haber, int serie = 1,
              const QString& area = QStringLiteral("1")) {
    const QString n = area + plan + QStringLiteral("%1").arg(serie, 5, 10, QChar(u'0'));
    return {n, QStringLiteral("Cuenta ") + n, debe, haber};
}

DatosEjercicio Datos(QList<SaldoEstado> saldos) {
    DatosEjercicio d;
    d.saldos = saldos;
    for (const SaldoEstado& s : saldos)
        if (s.NCuenta.mid(1, 1) == u"6" || s.NCuenta.mid(1, 1) == u"7")
            d.resultado += s.SaldoH - s.SaldoD;
    return d;
}

QString Actual(const EstadoCuentas& e, const Rejilla& r, int f) {
    return r.Celda(f, ColImporte(e.modelo));
}
QString Anterior(const EstadoCuentas& e, const Rejilla& r, int f) {
    return r.Celda(f, ColImporteAnterior(e.modelo));
}

} // namespace

TEST(Balance, AccountsThatMayFallOnEitherSideGoByTheSignOfTheirBalance) {
    struct Caso {
        Modelo modelo;
        QString plan;
        double saldo; // debit minus credit
        QString lineaActivo, lineaPasivo;
        bool enActivo;
    };
    const QList<Caso> casos = {
        {Modelo::Form81, "551", 0.01, "2. Empresas del grupo, deudoras",
         "1. Deudas con empresas del grupo", true},
        {Modelo::Form81, "551", -0.01, "2. Empresas del grupo, deudoras",
         "1. Deudas con empresas del grupo", false},
        {Modelo::Form81, "552", 12.5, "3. Empresas asociadas, deudoras",
         "2. Deudas con empresas asociadas", true},
        {Modelo::Form81, "552", -12.5, "3. Empresas asociadas, deudoras",
         "2. Deudas con empresas asociadas", false},
        {Modelo::Form81, "553", 12.5, "4. Deudores diversos", "3. Otras deudas", true},
        {Modelo::Form105, "554", 0.01, "IV. Inversiones financieras a corto plazo",
         "3. Otras deudas a corto plazo", true},
        {Modelo::Form105, "554", -0.01, "IV. Inversiones financieras a corto plazo",
         "3. Otras deudas a corto plazo", false},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.plan.toStdString() + " " + std::to_string(c.saldo));
        const SaldoEstado s = c.saldo > 0 ? S(c.plan, c.saldo, 0) : S(c.plan, 0, -c.saldo);
        const EstadoCuentas e =
            LlenarEstado(c.modelo, c.modelo == Modelo::Form81 ? 2007 : 2010, Datos({s}), {}, true);
        const int fa = BuscarFila(e.lista1, c.lineaActivo);
        const int fp = BuscarFila(e.lista2, c.lineaPasivo);
        EXPECT_EQ(fa >= 0, c.enActivo);
        EXPECT_EQ(fp >= 0, !c.enActivo);
        const double importe = c.enActivo ? c.saldo : -c.saldo;
        EXPECT_EQ(c.enActivo ? e.total1[0] : e.total2[0], importe);
        EXPECT_EQ(c.enActivo ? e.total2[0] : e.total1[0], 0);
    }
    // The old liabilities repeat "3. Otras deudas" under a second short-term heading: a credit
    // balance of 553 stands in both, and the liabilities count it twice.
    const EstadoCuentas e =
        LlenarEstado(Modelo::Form81, 2007, Datos({S("553", 0, 12.5)}), {}, true);
    const int primera = BuscarFila(e.lista2, "3. Otras deudas");
    ASSERT_GE(primera, 0);
    EXPECT_GE(BuscarFila(e.lista2, "3. Otras deudas", primera + 1), 0);
    EXPECT_EQ(e.total2[0], 25);
}

TEST(Balance, OldLayoutHeadingsComeOnDemandWithTheirSums) {
    // Two subaccounts of 572 and one of 430; nothing else.
    const DatosEjercicio d =
        Datos({S("430", 100, 0), S("572", 50, 0), S("572", 25.5, 0, 2), S("100", 0, 175.5)});
    const EstadoCuentas e = LlenarEstado(Modelo::Form81, 2007, d, {}, false);
    const Rejilla& a = e.lista1;
    // The old layout always shows the subaccounts, whatever was asked.
    EXPECT_TRUE(e.desglose);
    ASSERT_EQ(a.Filas(), 8);
    EXPECT_EQ(a.Celda(0, ColEstNivel1), "D) Activo circulante");
    EXPECT_TRUE(a.Negrita(0, ColEstNivel1));
    EXPECT_EQ(Actual(e, a, 0), "175,50");
    EXPECT_EQ(a.Celda(1, ColEstNivel2), "III. Deudores");
    EXPECT_EQ(Actual(e, a, 1), "100,00");
    EXPECT_EQ(a.Celda(2, ColEstNivel3), "1. Clientes por ventas y prestaciones de servicios");
    EXPECT_EQ(a.Celda(3, ColEstSubcuenta), "Cuenta 143000001");
    EXPECT_EQ(Actual(e, a, 3), "100,00");
    EXPECT_EQ(a.Celda(4, ColEstNivel2), "VI. Tesorería");
    EXPECT_EQ(Actual(e, a, 4), "75,50");
    EXPECT_EQ(a.Celda(5, ColEstSubcuenta), "Cuenta 157200001");
    EXPECT_EQ(a.Celda(6, ColEstSubcuenta), "Cuenta 157200002");
    EXPECT_EQ(Actual(e, a, 6), "25,50");
    // The repeated "D) Activo circulante" of the accruals has nothing: no second heading.
    EXPECT_EQ(BuscarFila(a, "D) Activo circulante", 1), -1);
    EXPECT_EQ(a.Celda(2, ColEstNivel3).isEmpty(), false);
    EXPECT_EQ(Actual(e, a, 2), "100,00");
    EXPECT_EQ(a.Celda(7, ColEstNivel1),
              "TOTAL ACTIVO .  .  .  .  .  .  .  .  .  .  .  .  .  .  .  .  .");
    EXPECT_EQ(Actual(e, a, 7), "175,50");
    EXPECT_EQ(e.total1[0], 175.5);
    EXPECT_EQ(e.total2[0], 175.5);
    // A first exercise: the previous year's column is blank on every row.
    EXPECT_FALSE(e.comparacion);
    for (const Rejilla* r : {&e.lista1, &e.lista2})
        for (int f = 0; f < r->Filas(); ++f)
            EXPECT_EQ(Anterior(e, *r, f), "") << f;
}

TEST(Balance, ResultLineAndPreviousYearOnlyLines) {
    // This year: capital, cash and a profit. Last year: also a statutory reserve and a debt to
    // the group that no longer exist.
    const DatosEjercicio n = Datos({S("100", 0, 1000, 1, "0"), S("572", 1300, 0),
                                    S("700", 0, 500, 1, "3"), S("600", 200, 0, 1, "6")});
    const DatosEjercicio n1 =
        Datos({S("100", 0, 1000, 1, "0"), S("116", 0, 40, 1, "0"), S("572", 1240, 0),
               S("402", 0, 100, 1, "2"), S("705", 0, 100, 1, "3")});
    EstadoCuentas e = LlenarEstado(Modelo::Form81, 2007, n, n1, true);
    ASSERT_TRUE(e.comparacion);
    const Rejilla& p = e.lista2;
    const int res = BuscarFila(p, "VI. Pérdidas y ganancias (beneficio o pérdida)");
    ASSERT_GE(res, 0);
    EXPECT_EQ(Actual(e, p, res), "300,00");
    EXPECT_EQ(Anterior(e, p, res), "100,00");
    EXPECT_EQ(p.Celda(res + 1, ColEstSubcuenta), "Pérdidas y ganancias");
    // A heading met first by last year's pass carries that pass's wording.
    const int reserva = BuscarFila(p, "4. Reservas estaturias");
    ASSERT_GE(reserva, 0);
    EXPECT_EQ(Actual(e, p, reserva), "");
    EXPECT_EQ(Anterior(e, p, reserva), "40,00");
    EXPECT_EQ(BuscarFila(p, "4. Reservas estatutarias"), -1);
    EXPECT_GE(BuscarFila(p, "D) Acreedores a corto plazo"), 0);
    EXPECT_EQ(BuscarFila(p, "E) Acreedores a corto plazo"), -1);
    // Both sides balance in both years.
    EXPECT_EQ(e.total1[0], 1300);
    EXPECT_EQ(e.total2[0], 1300);
    EXPECT_EQ(e.total1[1], 1240);
    EXPECT_EQ(e.total2[1], 1240);
    // Lines follow the table, not NCuenta: the fund heads come before the creditors.
    EXPECT_LT(BuscarFila(p, "A) Fondos propios"), BuscarFila(p, "D) Acreedores a corto plazo"));
    // The same line met first by this year keeps the current wording.
    const EstadoCuentas alReves = LlenarEstado(Modelo::Form81, 2007, n1, n, true);
    EXPECT_GE(BuscarFila(alReves.lista2, "4. Reservas estatutarias"), 0);
}

TEST(Balance, PymesLayoutWithAndWithoutSubaccounts) {
    const DatosEjercicio n =
        Datos({S("100", 0, 3000, 1, "0"), S("170", 0, 2000, 1, "0"), S("572", 4000, 0),
               S("218", 1500, 0, 1, "5"), S("281", 0, 300, 1, "5"), S("629", 100, 0, 1, "6"),
               S("705", 0, 300, 1, "3")});
    for (bool desglose : {true, false}) {
        SCOPED_TRACE(desglose);
        const EstadoCuentas e = LlenarEstado(Modelo::Form105, 2026, n, {}, desglose);
        const Rejilla& a = e.lista1;
        const int nc = BuscarFila(a, "A) ACTIVO NO CORRIENTE");
        ASSERT_GE(nc, 0);
        EXPECT_EQ(Actual(e, a, nc), "1.200,00");
        const int mat = BuscarFila(a, "II) Inmovilizado material");
        EXPECT_EQ(Actual(e, a, mat), "1.200,00");
        EXPECT_EQ(BuscarFila(a, "Cuenta 521800001") >= 0, desglose);
        EXPECT_EQ(a.Celda(0, ColNotas(e.modelo)), "");
        EXPECT_EQ(a.columna(ColNotas(e.modelo)).titulo, "Notas Mem.");
        const Rejilla& p = e.lista2;
        EXPECT_EQ(p.columna(0).titulo, "PATRIMONIO NETO Y PASIVO");
        const int neto = BuscarFila(p, "A) PATRIMONIO NETO");
        EXPECT_EQ(Actual(e, p, neto), "3.200,00");
        EXPECT_EQ(Actual(e, p, BuscarFila(p, "VII. Resultado del ejercicio")), "200,00");
        EXPECT_EQ(Actual(e, p, BuscarFila(p, "B) PASIVO NO CORRIENTE")), "2.000,00");
        EXPECT_EQ(BuscarFila(p, "C) PASIVO CORRIENTE"), -1);
        const int total = BuscarFila(p, "TOTAL PATRIMONIO NETO Y PASIVO (A + B + C)");
        EXPECT_EQ(Actual(e, p, total), "5.200,00");
        EXPECT_EQ(Actual(e, a, BuscarFila(a, "TOTAL ACTIVO (A + B)")), "5.200,00");
    }
}

TEST(PerdidasGanancias, OldLayoutSidesAndMixedSignResultRows) {
    // This year a profit, last year a loss; 61 belongs to no old line; 71 by the sign.
    const DatosEjercicio n =
        Datos({S("700", 0, 1000, 1, "3"), S("600", 300, 0, 1, "6"), S("610", 50, 0, 1, "6"),
               S("619", 70, 0, 1, "6"), S("710", 0, 30, 1, "3"), S("768", 5, 0, 1, "3")});
    const DatosEjercicio n1 =
        Datos({S("700", 0, 100, 1, "3"), S("640", 400, 0, 1, "6"), S("710", 20, 0, 1, "3")});
    const EstadoCuentas e = LlenarEstado(Modelo::Form82, 2005, n, n1, false);
    const Rejilla& debe = e.lista1;
    const Rejilla& haber = e.lista2;
    EXPECT_EQ(debe.columna(0).titulo, "D E B E");
    EXPECT_EQ(haber.columna(0).titulo, "H A B E R");
    // 610 is a line of A2 a); 619 falls into no line, so it is left out.
    const int a2 = BuscarFila(debe, "A2. Aprovisionamientos");
    EXPECT_EQ(Actual(e, debe, a2), "350,00");
    EXPECT_EQ(BuscarFila(debe, "Cuenta 661900001"), -1);
    // 71 with a credit balance is B2 this year, with a debit balance A1 last year.
    const int b2 = BuscarFila(haber, "B2. Aumento de existencias de productos terminados");
    EXPECT_EQ(Actual(e, haber, b2), "30,00");
    EXPECT_EQ(Anterior(e, haber, b2), "");
    const int a1 = BuscarFila(debe, "A1. Reducción de existencias de productos terminados y "
                                    "en curso de fabricación");
    EXPECT_EQ(Actual(e, debe, a1), "");
    EXPECT_EQ(Anterior(e, debe, a1), "20,00");
    // 768 with a debit balance is not a positive exchange difference: out of the account.
    EXPECT_EQ(BuscarFila(haber, "B8. Diferencias positivas de cambio"), -1);
    // Operating: 1000 + 30 - 350 = 680 this year; 100 - 400 - 20 = -320 last year.
    const int ai =
        BuscarFila(debe, "AI. BENEFICIOS DE EXPLOTACION (B1+B2+B3+B4-A1-A2-A3-A4-A5-A6)");
    ASSERT_GE(ai, 0);
    EXPECT_EQ(Actual(e, debe, ai), "680,00");
    EXPECT_EQ(Anterior(e, debe, ai), "");
    const int bi = BuscarFila(haber, "BI. PERDIDAS DE EXPLOTACION (A1+A2+A3+A4+A5+A6-B1-B2-B3-B4)");
    ASSERT_GE(bi, 0);
    EXPECT_EQ(Actual(e, haber, bi), "");
    EXPECT_EQ(Anterior(e, haber, bi), "320,00");
    // No financial or extraordinary movement in either year: no rows for them.
    EXPECT_EQ(BuscarFila(debe, "AII. RESULTADOS FINANCIEROS POSITIVOS (B5+B6+B7+B8-A7-A8-A9)"), -1);
    EXPECT_EQ(BuscarFila(haber, "BII. RESULTADOS FINANCIEROS NEGATIVOS (A7+A8+A9-B5-B6-B7-B8)"),
              -1);
    const int avi = BuscarFila(debe, "AVI. RESULTADO DEL EJERCICIO (BENEFICIOS) (AV-A15-A16)");
    EXPECT_EQ(Actual(e, debe, avi), "680,00");
    const int bvi = BuscarFila(haber, "BVI. RESULTADO DEL EJERCICIO (PERDIDAS) (BV+A15+A16)");
    EXPECT_EQ(Anterior(e, haber, bvi), "320,00");
    EXPECT_EQ(e.resultado[0], 680);
    EXPECT_EQ(e.resultado[1], -320);
    // The balance sheet's result takes 619 and the 768 the account left out.
    EXPECT_EQ(n.resultado, 605);
}

TEST(PerdidasGanancias, OnlyIncomeGivesNoDebitRowsButTheResults) {
    const EstadoCuentas e =
        LlenarEstado(Modelo::Form82, 2005, Datos({S("705", 0, 80, 1, "3")}), {}, true);
    // Only the title of the debit side and the result rows of the profit.
    ASSERT_GE(e.lista1.Filas(), 1);
    EXPECT_EQ(e.lista1.Celda(0, ColEstNivel1), "A) GASTOS (A1 a A16)");
    for (int f = 1; f < e.lista1.Filas(); ++f) {
        EXPECT_TRUE(e.lista1.Celda(f, ColEstNivel1).startsWith(u'A')) << f;
        EXPECT_EQ(Actual(e, e.lista1, f), "80,00");
    }
    EXPECT_EQ(e.lista1.Filas(), 1 + 4); // AI, AIII, AV, AVI
}

TEST(PerdidasGanancias, PymesSignsAndResults) {
    const DatosEjercicio n =
        Datos({S("700", 0, 1000, 1, "3"), S("610", 100, 0, 1, "6"), S("640", 300, 0, 1, "6"),
               S("769", 0, 10, 1, "3"), S("662", 40, 0, 1, "6"), S("630", 100, 0, 1, "6")});
    const DatosEjercicio n1 = Datos({S("700", 0, 200, 1, "3"), S("678", 10, 0, 1, "6")});
    const EstadoCuentas e = LlenarEstado(Modelo::Form106, 2026, n, n1, false);
    const Rejilla& r = e.lista1;
    EXPECT_EQ(e.lista2.Filas(), 0);
    // Expenses show negative; 61 belongs to "4. Aprovisionamientos" here.
    EXPECT_EQ(Actual(e, r, BuscarFila(r, "4. Aprovisionamientos")), "-100,00");
    EXPECT_EQ(BuscarFila(r, "Cuenta 661000001"), -1); // no breakdown asked
    // Line 18 has an amount last year, so the operating result names it.
    const int expl = BuscarFila(r, "A) RESULTADO DE EXPLOTACION (1+2+3+4+5+6+7+8+9+10+11+18)");
    ASSERT_GE(expl, 0);
    EXPECT_EQ(Actual(e, r, expl), "600,00");
    EXPECT_EQ(Anterior(e, r, expl), "190,00");
    EXPECT_EQ(Actual(e, r, BuscarFila(r, "A) RESULTADO FINANCIERO (12+13+14+15+16)")), "-30,00");
    EXPECT_EQ(Actual(e, r, BuscarFila(r, "C) RESULTADO ANTES DE IMPUESTOS (A+B)")), "570,00");
    const int d = BuscarFila(r, "D) RESULTADO DEL EJERCICIO (C+17)");
    EXPECT_EQ(Actual(e, r, d), "470,00");
    EXPECT_EQ(Anterior(e, r, d), "190,00");
    EXPECT_TRUE(r.Negrita(d, ColEstNivel1));
    EXPECT_EQ(e.resultado[0], n.resultado);
    // Without line 18 in either year the short wording stands.
    const EstadoCuentas sin = LlenarEstado(Modelo::Form106, 2026, n, {}, false);
    EXPECT_GE(BuscarFila(sin.lista1, "A) RESULTADO DE EXPLOTACION (1+2+3+4+5+6+7+8+9+10+11)"), 0);
}

TEST(Estados, NothingInTheExerciseLaysNothing) {
    for (Modelo m : {Modelo::Form81, Modelo::Form105, Modelo::Form82, Modelo::Form106}) {
        const EstadoCuentas e = LlenarEstado(m, 2026, {}, Datos({S("572", 1, 0)}), true);
        EXPECT_FALSE(e.hayMovimientos);
        EXPECT_EQ(e.lista1.Filas(), 0);
        EXPECT_EQ(e.lista2.Filas(), 0);
    }
    EXPECT_EQ(ModeloEstado(TipoEstado::Balance, 2007), Modelo::Form81);
    EXPECT_EQ(ModeloEstado(TipoEstado::Balance, 2008), Modelo::Form105);
    EXPECT_EQ(ModeloEstado(TipoEstado::PyG, 2007), Modelo::Form82);
    EXPECT_EQ(ModeloEstado(TipoEstado::PyG, 2008), Modelo::Form106);
}

TEST(Estados, TypedNotesFollowTheirLinesWhenTheListIsLaidAgain) {
    // Two subaccounts of the same name in different lines, each with its note.
    const SaldoEstado caja = S("570", 100, 0);
    const SaldoEstado cliente = {QStringLiteral("143000001"), QStringLiteral("Cuenta 157000001"),
                                 40, 0};
    EstadoCuentas e =
        LlenarEstado(Modelo::Form105, 2026, Datos({cliente, caja, S("100", 0, 140)}), {}, true);
    const int col = ColNotas(e.modelo);
    const QString efectivo = QStringLiteral("VI. Efectivo y otros activos líquidos equivalentes");
    const int primera = BuscarFila(e.lista1, "Cuenta 157000001");
    const int segunda = BuscarFila(e.lista1, "Cuenta 157000001", primera + 1);
    ASSERT_GE(segunda, 0);
    e.lista1.PonerCelda(primera, col, TextoNota(QStringLiteral("3")));
    e.lista1.PonerCelda(segunda, col, TextoNota(QStringLiteral(" 8\t(caja)\n")));
    e.lista1.PonerCelda(BuscarFila(e.lista1, efectivo), col,
                        TextoNota(QStringLiteral("Nota 8 de la memoria anual")));
    // Trimmed, control characters out, cut to the room of a note.
    EXPECT_EQ(e.lista1.Celda(segunda, col), "8 (caja)");
    EXPECT_EQ(e.lista1.Celda(BuscarFila(e.lista1, efectivo), col), "Nota 8 de la me");
    const NotasEstado notas = NotasDeLista(e.lista1, e.modelo);
    EXPECT_EQ(notas.size(), 3);

    // Laid again after entries changed: a new line above (stocks), the clients' line gone. The
    // cash subaccount, now the first of its name, keeps its own note; the clients' is dropped.
    EstadoCuentas otraVez = LlenarEstado(Modelo::Form105, 2026,
                                         Datos({S("300", 5, 0), caja, S("100", 0, 105)}), {}, true);
    PonerNotas(otraVez.lista1, otraVez.modelo, notas);
    const Rejilla& r = otraVez.lista1;
    const int ahora = BuscarFila(r, "Cuenta 157000001");
    ASSERT_GE(ahora, 0);
    EXPECT_EQ(BuscarFila(r, "Cuenta 157000001", ahora + 1), -1);
    EXPECT_EQ(r.Celda(ahora, col), "8 (caja)");
    EXPECT_EQ(r.Celda(BuscarFila(r, efectivo), col), "Nota 8 de la me");
    int conNota = 0;
    for (int f = 0; f < r.Filas(); ++f)
        conNota += r.Celda(f, col).isEmpty() ? 0 : 1;
    EXPECT_EQ(conNota, 2);

    // The old layouts have no notes column: nothing is read.
    const EstadoCuentas viejo = LlenarEstado(Modelo::Form81, 2007, Datos({caja}), {}, true);
    EXPECT_TRUE(NotasDeLista(viejo.lista1, viejo.modelo).isEmpty());
}

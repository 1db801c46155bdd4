// The income and expense lists: totals with their shares per block and the result, what a period
// or a sector keeps, the sort within blocks, the lines of one side, the month table against the
// journal and its calendar year, and the comparison across exercises with a year that has no
// database. The regularisation never counts, so a closed exercise lists as an open one.

#include "reports/IngresosGastos.h"
#include "ComunAnalisis.h"
#include "platform/Rejilla.h"
#include "reports/ComparacionAnos.h"
#include "store/Ejercicios.h"
#include "store/Empresas.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace iyg;

namespace {

QString Std(double v) {
    return Formato(v, QStringLiteral("standard"));
}

Rejilla Totales(Entorno& e, const SeleccionIyG& sel) {
    Rejilla r = RejillaTotalesIyG();
    Conexion c = e.datos();
    LlenarTotalesIyG(c, sel, r);
    return r;
}

SeleccionIyG Ano(TipoIyG tipo = TipoIyG::Ambos, const QString& sector = {}) {
    return {QDate(2024, 1, 1), QDate(2024, 12, 31), tipo, sector};
}

QList<QStringList> Filas(const Rejilla& r) {
    QList<QStringList> f;
    for (int i = 0; i < r.Filas(); ++i)
        f << r.Fila(i);
    return f;
}

// Name, amount and share of each row: what the list shows.
QList<QStringList> Visibles(const Rejilla& r) {
    QList<QStringList> f;
    for (int i = 0; i < r.Filas(); ++i)
        f << QStringList{r.Celda(i, ColTotSubcuenta), r.Celda(i, ColTotAcumulado),
                         r.Celda(i, ColTotPorcentaje)};
    return f;
}

} // namespace

TEST(IngresosGastosTotales, BloquesConPorcentajesYResultado) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    const Rejilla r = Totales(e, Ano());
    // Diversos adds up to nothing in the year: no row.
    EXPECT_EQ(Visibles(r), (QList<QStringList>{{"INGRESOS", "", ""},
                                               {"Ventas de mercaderías", "12.000,00", "77,42"},
                                               {"Prestaciones de servicios", "3.000,50", "19,36"},
                                               {"Otros ingresos financieros", "500,00", "3,23"},
                                               {"Total Ingresos", "15.500,50", "100,00"},
                                               {"GASTOS", "", ""},
                                               {"Compras de mercaderías", "4.000,00", "57,14"},
                                               {"Arrendamientos", "2.400,00", "34,28"},
                                               {"Publicidad y propaganda", "600,25", "8,57"},
                                               {"Total Gastos", "7.000,25", "100,00"},
                                               {"RESULTADO POSITIVO", "8.500,25", ""}}));
    EXPECT_EQ(r.Celda(1, ColTotNCuenta), Ventas);
    EXPECT_TRUE(r.Celda(4, ColTotNCuenta).isEmpty());
    for (int f : {0, 4, 5, 9, 10})
        EXPECT_TRUE(r.Negrita(f, ColTotSubcuenta)) << f;
    EXPECT_FALSE(r.Negrita(1, ColTotSubcuenta));

    // February alone: the cancelled income gives no row, its block a total of nothing without a
    // share, and the expense a negative result.
    const Rejilla febrero = Totales(e, {QDate(2024, 2, 1), QDate(2024, 2, 29), TipoIyG::Ambos, {}});
    EXPECT_EQ(Visibles(febrero),
              (QList<QStringList>{{"INGRESOS", "", ""},
                                  {"Total Ingresos", "0,00", ""},
                                  {"GASTOS", "", ""},
                                  {"Compras de mercaderías", "4.000,00", "100,00"},
                                  {"Total Gastos", "4.000,00", "100,00"},
                                  {"RESULTADO NEGATIVO", "-4.000,00", ""}}));
}

TEST(IngresosGastosTotales, SectorTipoYPeriodo) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    // A sector keeps only its lines: subaccounts without any in it have no row.
    EXPECT_EQ(Visibles(Totales(e, Ano(TipoIyG::Ambos, "Web"))),
              (QList<QStringList>{{"INGRESOS", "", ""},
                                  {"Ventas de mercaderías", "5.000,00", "100,00"},
                                  {"Total Ingresos", "5.000,00", "100,00"},
                                  {"GASTOS", "", ""},
                                  {"Publicidad y propaganda", "600,25", "100,00"},
                                  {"Total Gastos", "600,25", "100,00"},
                                  {"RESULTADO POSITIVO", "4.399,75", ""}}));
    // One block only: no result row.
    EXPECT_EQ(Visibles(Totales(e, Ano(TipoIyG::SoloGastos, "Tienda"))),
              (QList<QStringList>{{"GASTOS", "", ""},
                                  {"Compras de mercaderías", "4.000,00", "100,00"},
                                  {"Total Gastos", "4.000,00", "100,00"}}));
    const Rejilla marzo =
        Totales(e, {QDate(2024, 3, 1), QDate(2024, 3, 31), TipoIyG::SoloIngresos, {}});
    EXPECT_EQ(Visibles(marzo),
              (QList<QStringList>{{"INGRESOS", "", ""},
                                  {"Ventas de mercaderías", "5.000,00", "62,50"},
                                  {"Prestaciones de servicios", "3.000,50", "37,50"},
                                  {"Total Ingresos", "8.000,50", "100,00"}}));
}

TEST(IngresosGastosTotales, OrdenPorImporteDentroDeCadaBloque) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    e.asiento(QDate(2024, 5, 5), {Debe(Reparaciones, 5000), Haber(Banco, 5000)});
    Rejilla r = Totales(e, Ano());
    const auto nombres = [](const Rejilla& r) {
        QStringList n;
        for (int i = 0; i < r.Filas(); ++i)
            n << r.Celda(i, ColTotSubcuenta);
        return n;
    };
    const QStringList porCuenta = nombres(r);
    EXPECT_EQ(porCuenta.mid(5, 6), (QStringList{"GASTOS", "Compras de mercaderías",
                                                "Arrendamientos", "Reparaciones y conservación",
                                                "Publicidad y propaganda", "Total Gastos"}));
    OrdenarTotalesIyG(r, OrdenIyG::Importe);
    EXPECT_EQ(nombres(r).mid(5, 6),
              (QStringList{"GASTOS", "Reparaciones y conservación", "Compras de mercaderías",
                           "Arrendamientos", "Publicidad y propaganda", "Total Gastos"}));
    // The income block was already largest first; headings, totals and result stay put, bold.
    EXPECT_EQ(nombres(r).mid(0, 5), porCuenta.mid(0, 5));
    EXPECT_EQ(nombres(r).last(), "RESULTADO POSITIVO");
    EXPECT_TRUE(r.Negrita(5, ColTotSubcuenta));
    EXPECT_FALSE(r.Negrita(6, ColTotSubcuenta));
    OrdenarTotalesIyG(r, OrdenIyG::Cuenta);
    EXPECT_EQ(nombres(r), porCuenta);
}

TEST(IngresosGastosTotales, LaRegularizacionNoCuenta) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    const QList<QStringList> abierto = Filas(Totales(e, Ano()));
    SeleccionListaIyG lineas{QDate(2024, 1, 1), QDate(2024, 12, 31), ClaseIyG::Gastos, {}};
    Rejilla antes = RejillaListaIyG();
    {
        Conexion c = e.datos();
        LlenarListaIyG(c, lineas, antes);
    }
    CerrarComoElCierre(e);
    ASSERT_TRUE(e.sesion.EjCerrado);
    // The regularisation brings every income and expense subaccount to zero: counted, the lists
    // would show nothing.
    EXPECT_EQ(Filas(Totales(e, Ano())), abierto);
    Rejilla despues = RejillaListaIyG();
    Conexion c = e.datos();
    LlenarListaIyG(c, lineas, despues);
    EXPECT_EQ(despues.Filas(), antes.Filas());
    EXPECT_EQ(despues.Totales().first().valor, "7.000,25");
}

TEST(IngresosGastosLista, ApuntesDeUnLadoConSuSigno) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    Rejilla r = RejillaListaIyG();
    Conexion c = e.datos();
    SeleccionListaIyG sel{QDate(2024, 1, 1), QDate(2024, 12, 31), ClaseIyG::Ingresos, {}};
    EXPECT_EQ(LlenarListaIyG(c, sel, r), 6);
    // In entry order, income as credit minus debit: the cancelling line shows negative.
    QStringList importes, asientos;
    for (int i = 0; i < r.Filas(); ++i) {
        importes << r.Celda(i, ColLisImporte);
        asientos << r.Celda(i, ColLisAsiento);
    }
    EXPECT_EQ(asientos, (QStringList{"2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(importes,
              (QStringList{"7.000,00", "5.000,00", "3.000,50", "500,00", "80,00", "-80,00"}));
    EXPECT_EQ(r.Fila(0),
              (QStringList{"2", "15/01/2024", "Ventas de mercaderías", "Prueba", "7.000,00"}));
    EXPECT_EQ(r.Totales().first().etiqueta, TotalListaIyG);
    EXPECT_EQ(r.Totales().first().valor, "15.500,50");

    sel.clase = ClaseIyG::Gastos;
    sel.sector = "Tienda";
    EXPECT_EQ(LlenarListaIyG(c, sel, r), 1);
    EXPECT_EQ(r.Celda(0, ColLisImporte), "4.000,00");
    sel.desde = sel.hasta = QDate(2024, 1, 1);
    EXPECT_EQ(LlenarListaIyG(c, sel, r), 0);
    EXPECT_EQ(r.Totales().first().valor, "0,00");
}

TEST(IngresosGastosMeses, CadaCeldaComoElDiarioDeEseMes) {
    Entorno e;
    e.instalarDemo();
    Rejilla r = RejillaMesesIyG();
    Conexion c = e.datos();
    const ResultadoMesesIyG res = LlenarMesesIyG(c, {e.sesion.AnoActual, {}}, r);
    ASSERT_GT(r.Filas(), 6);
    int subcuentas = 0;
    bool ingresos = true;
    double totalIngresos = 0, totalGastos = 0;
    for (int f = 0; f < r.Filas(); ++f) {
        const QString nc = r.Celda(f, ColMesNCuenta);
        if (r.Celda(f, ColMesSubcuenta) == FilaGastos)
            ingresos = false;
        if (nc.isEmpty())
            continue;
        ++subcuentas;
        EXPECT_EQ(nc.mid(1, 1), ingresos ? "7" : "6") << nc.toStdString();
        double total = 0;
        for (int m = 1; m <= 12; ++m) {
            // Each month read straight from the journal, regularisation left out.
            const double diario =
                c.escalar(QStringLiteral("SELECT COALESCE(SUM(Haber - Debe), 0) FROM Diario "
                                         "WHERE NCuenta = ? AND Clase <> 'R' AND Fecha BETWEEN ? "
                                         "AND ?"),
                          {nc, FechaISO(QDate(e.sesion.AnoActual, m, 1)),
                           FechaISO(QDate(e.sesion.AnoActual, m, 1).addMonths(1).addDays(-1))})
                    .toDouble();
            const double esperado = Centimos(ingresos ? diario : -diario);
            EXPECT_EQ(r.Celda(f, ColMesEnero + m - 1), esperado == 0 ? QString() : Std(esperado))
                << nc.toStdString() << " mes " << m;
            total += esperado;
        }
        EXPECT_EQ(r.Celda(f, ColMesTotal), Std(Centimos(total))) << nc.toStdString();
        (ingresos ? totalIngresos : totalGastos) += total;
    }
    EXPECT_GE(subcuentas, 5);
    EXPECT_DOUBLE_EQ(res.totalIngresos, Centimos(totalIngresos));
    EXPECT_DOUBLE_EQ(res.totalGastos, Centimos(totalGastos));
    // The last row, the differences by month and in all.
    const int ultima = r.Filas() - 1;
    EXPECT_EQ(r.Celda(ultima, ColMesSubcuenta), FilaDiferencias);
    EXPECT_EQ(r.Celda(ultima, ColMesTotal), Std(Centimos(totalIngresos - totalGastos)));
    for (int m = 0; m < 12; ++m) {
        const double d = Centimos(res.ingresos[m] - res.gastos[m]);
        EXPECT_EQ(r.Celda(ultima, ColMesEnero + m), d == 0 ? QString() : Std(d)) << m;
    }
}

TEST(IngresosGastosMeses, AnoNaturalAunqueElEjercicioEmpieceEnJulio) {
    Entorno e;
    DatosNuevaEmpresa d;
    d.Codigo = QStringLiteral("001");
    d.Nombre = QStringLiteral("Campaña SL");
    d.FechaIni = QDate(2024, 7, 1);
    CrearEmpresa(e.sesion, *e.ajustes, d);
    ASSERT_EQ(e.sesion.FechaFinEj, QDate(2025, 6, 30));
    e.asiento(QDate(2024, 8, 10), {Debe(Caja, 100), Haber(Ventas, 100)});
    e.asiento(QDate(2025, 3, 10), {Debe(Caja, 250), Haber(Ventas, 250)});
    Rejilla r = RejillaMesesIyG();
    Conexion c = e.datos();
    // The table of the exercise 2024 runs from 1 January to 31 December 2024: the March line,
    // which belongs to the exercise, stays out of it.
    const ResultadoMesesIyG res = LlenarMesesIyG(c, {e.sesion.AnoActual, {}}, r);
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_DOUBLE_EQ(res.totalIngresos, 100);
    EXPECT_DOUBLE_EQ(res.ingresos[7], 100);
    EXPECT_DOUBLE_EQ(res.ingresos[2], 0);
    EXPECT_EQ(r.Fila(1).mid(0, 1), QStringList{"Ventas de mercaderías"});
    EXPECT_EQ(r.Celda(1, ColMesEnero + 7), "100,00");
    EXPECT_EQ(r.Celda(1, ColMesEnero + 2), "");
}

TEST(ComparacionAnos, CadaAnoDeSuBaseYUnAnoSinEjercicio) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    CerrarComoElCierre(e);
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    ASSERT_EQ(e.sesion.AnoActual, 2025);
    e.asiento(QDate(2025, 4, 2), {Debe(Caja, 900), Haber(Ventas, 900)});
    e.asiento(QDate(2025, 4, 3), {Debe(Compras, 300), Haber(Caja, 300)});

    // The area of cash and banks: the final entry of 2024, which empties them on 31 December,
    // is left out, as the regularisation is for income.
    SeleccionComparacion sel;
    sel.anos = AnosSeguidos(2024, 3);
    sel.porAreas = true;
    sel.area = "1";
    Rejilla r = RejillaComparacion();
    const QList<AnoComparado> anos = LlenarComparacion(e.sesion, sel, r);
    ASSERT_EQ(r.Filas(), 3);
    EXPECT_EQ(r.Fila(0), (QStringList{"Año 2024", "27.000,00", "-4.000,00", "6.800,50", "0,00",
                                      "0,00", "500,00", "0,00", "0,00", "-1.200,00", "0,00", "0,00",
                                      "-600,25", "28.500,25"}));
    EXPECT_EQ(r.Celda(1, ColCompAno), "Año 2025");
    EXPECT_EQ(r.Celda(1, ColCompEnero + 3), "600,00");
    EXPECT_EQ(r.Celda(1, ColCompTotal), "600,00");
    // 2026 has no database: its row says so and shows no figures, not zeros.
    EXPECT_EQ(r.Fila(2).first(), "Año 2026 (sin ejercicio)");
    for (int col = ColCompEnero; col <= ColCompTotal; ++col)
        EXPECT_EQ(r.Celda(2, col), "") << col;
    EXPECT_FALSE(anos.at(2).existe);
    EXPECT_TRUE(anos.at(0).existe);

    // One subaccount of credit nature: the sales, without the regularisation of 2024.
    sel.porAreas = false;
    sel.ncuenta = Ventas;
    sel.anos = {2024, 2025};
    LlenarComparacion(e.sesion, sel, r);
    EXPECT_EQ(r.Celda(0, ColCompTotal), "12.000,00");
    EXPECT_EQ(r.Celda(0, ColCompEnero + 2), "5.000,00");
    EXPECT_EQ(r.Celda(1, ColCompTotal), "900,00");
    // A sector cuts every year.
    sel.sector = "Web";
    LlenarComparacion(e.sesion, sel, r);
    EXPECT_EQ(r.Celda(0, ColCompTotal), "5.000,00");
    EXPECT_EQ(r.Celda(1, ColCompTotal), "0,00");
}

TEST(ComparacionAnos, ReglasDeVerEnSuOrden) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    CajasComparacion cajas;
    const auto mensaje = [&] {
        e.dialogo.informados.clear();
        EXPECT_FALSE(ValidarComparacion(cajas, e.sesion, e.dialogo));
        return e.dialogo.informados.value(0);
    };
    EXPECT_EQ(mensaje(), MsgCompNumeroAnos);
    cajas.numero = 3;
    EXPECT_EQ(mensaje(), MsgCompPrimerAno);
    cajas.primerAno = 2023;
    EXPECT_EQ(mensaje(), MsgCompArea);
    cajas.porAreas = false;
    cajas.area = "3";
    EXPECT_EQ(mensaje(), MsgCompSubcuenta);
    cajas.subcuenta = "No existe";
    EXPECT_EQ(mensaje(), MsgCompErrorCuenta);
    cajas.subcuenta = "Ventas de mercaderías";
    const auto sel = ValidarComparacion(cajas, e.sesion, e.dialogo);
    ASSERT_TRUE(sel);
    EXPECT_EQ(sel->ncuenta, Ventas);
    EXPECT_EQ(sel->anos, (QList<int>{2023, 2024, 2025}));
    // With the areas of the plan, area 7 is the income group, matched on the second digit.
    cajas.porAreas = true;
    cajas.area = "7";
    e.sesion.CArea = "Plan";
    const auto plan = ValidarComparacion(cajas, e.sesion, e.dialogo);
    ASSERT_TRUE(plan);
    EXPECT_EQ(PatronComparacion(*plan), "_7%");
    Rejilla r = RejillaComparacion();
    LlenarComparacion(e.sesion, *plan, r);
    EXPECT_EQ(r.Celda(1, ColCompTotal), "15.500,50");
}

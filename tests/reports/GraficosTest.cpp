// The series of the charts: the 25 largest of an area and the remainder, the 15 largest income
// and expense and their remainders, each adding up to the exercise's totals; the order by the
// area's nature; income and expense by month against the month table; one subaccount by month;
// the comparison of exercises; the look kept in the settings; and a closed exercise charted on
// its balances before the close without a write.

#include "reports/Graficos.h"
#include "ComunAnalisis.h"
#include "platform/Rejilla.h"
#include "reports/ComparacionAnos.h"
#include "reports/IngresosGastos.h"
#include "store/Ejercicios.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace iyg;

namespace {

const EntradaGrafico& Entrada(const QString& clave) {
    const EntradaGrafico* e = EntradaGraficoDeClave(clave);
    EXPECT_TRUE(e) << clave.toStdString();
    return *e;
}

double Suma(const QList<double>& v) {
    return Centimos(std::accumulate(v.begin(), v.end(), 0.0));
}

// The sum over the journal, by nature, of the lines of a pattern, closing entries left out.
double DelDiario(Entorno& e, const QString& patron, bool acreedora) {
    Conexion c = e.datos();
    const double d = c.escalar(QStringLiteral("SELECT COALESCE(SUM(Debe - Haber), 0) FROM Diario "
                                              "WHERE NCuenta LIKE ? AND Clase <> 'R' AND "
                                              "Clase <> 'F'"),
                               {patron})
                         .toDouble();
    return Centimos(acreedora ? -d : d);
}

DatosGrafico Grafico(Entorno& e, const QString& clave) {
    Conexion c = e.datos();
    const EntradaGrafico& en = Entrada(clave);
    switch (en.tipo) {
    case TipoGrafico::IngresosGastos:
        return GraficoIyG(c, e.sesion, en);
    case TipoGrafico::Meses:
        return GraficoMeses(c, e.sesion, en);
    default:
        return GraficoArea(c, e.sesion, en);
    }
}

} // namespace

TEST(Graficos, VeinticincoMayoresYRestoDeConceptos) {
    Entorno e;
    e.crearEmpresa();
    // 25 expense subaccounts of 100, 200, ... 2.500: all of them are points.
    for (int i = 1; i <= 25; ++i)
        e.asiento(QDate(2024, 1 + i % 12, 1),
                  {Debe(NuevaSubcuenta(e, "6629", 90000 + i, QStringLiteral("Gasto %1").arg(i)),
                        100.0 * i),
                   Haber(Banco, 100.0 * i)});
    DatosGrafico g = Grafico(e, "gastos");
    ASSERT_EQ(g.puntos.size(), 25);
    EXPECT_FALSE(g.puntos.contains(PuntoRestoConceptos));
    EXPECT_EQ(g.tituloX, "CONCEPTOS");
    EXPECT_EQ(g.tituloY, "Importes");
    EXPECT_EQ(g.titulo, "Pruebas SL. Gastos del ejercicio. Año 2024");

    // Five more, of 0,01 to 0,05, and a refund that leaves one below zero: the 25 largest stay
    // points in descending order and the other six make "Resto de conceptos".
    for (int i = 26; i <= 30; ++i)
        e.asiento(QDate(2024, 6, 1),
                  {Debe(NuevaSubcuenta(e, "6629", 90000 + i, QStringLiteral("Gasto %1").arg(i)),
                        (i - 25) / 100.0),
                   Haber(Banco, (i - 25) / 100.0)});
    const QString abono = NuevaSubcuenta(e, "6629", 90031, QStringLiteral("Abono"));
    e.asiento(QDate(2024, 7, 1), {Debe(Banco, 40), Haber(abono, 40)});
    g = Grafico(e, "gastos");
    ASSERT_EQ(g.series.size(), 1);
    const QList<double>& v = g.series.first().valores;
    ASSERT_EQ(g.puntos.size(), 26);
    EXPECT_EQ(g.puntos.first(), "Gasto 25");
    EXPECT_EQ(g.puntos.at(24), "Gasto 1");
    EXPECT_EQ(g.puntos.last(), PuntoRestoConceptos);
    EXPECT_TRUE(std::is_sorted(v.begin(), v.begin() + 25, std::greater<>()));
    EXPECT_DOUBLE_EQ(v.last(), Centimos(0.15 - 40));
    EXPECT_EQ(g.tituloX, "CONCEPTOS (Se incluyen los 25 mayores)");
    // The points add up to the area's total as the journal has it.
    EXPECT_DOUBLE_EQ(Suma(v), DelDiario(e, "6%", false));
    EXPECT_DOUBLE_EQ(g.totales.first(), Suma(v));
}

TEST(Graficos, OrdenPorLaNaturalezaDelArea) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    e.asiento(QDate(2024, 2, 1), {Debe(Caja, 10), Haber("011200005", 10)});
    // Capital is of credit nature: its subaccounts by credit balance, the largest first.
    DatosGrafico capital = Grafico(e, "capital");
    EXPECT_EQ(capital.puntos, (QStringList{"Capital social", "Reserva legal"}));
    EXPECT_EQ(capital.series.first().valores, (QList<double>{20000, 10}));
    // Cash and banks are of debit nature.
    DatosGrafico efectivo = Grafico(e, "efectivo");
    EXPECT_EQ(efectivo.puntos.size(), 2);
    EXPECT_GT(efectivo.series.first().valores.at(0), efectivo.series.first().valores.at(1));
    EXPECT_DOUBLE_EQ(Suma(efectivo.series.first().valores), DelDiario(e, "1%", false));
    // Income (area 3) as credit balances: the cancelled subaccount has a point of nothing.
    DatosGrafico ingresos = Grafico(e, "ingresos");
    EXPECT_EQ(ingresos.puntos.first(), "Ventas de mercaderías");
    EXPECT_EQ(ingresos.series.first().valores.first(), 12000);
    EXPECT_EQ(ingresos.puntos.size(), 4);
    EXPECT_EQ(ingresos.series.first().valores.last(), 0);
}

TEST(Graficos, QuinceIngresosYQuinceGastosConSusRestos) {
    Entorno e;
    e.crearEmpresa();
    for (int i = 1; i <= 20; ++i)
        e.asiento(QDate(2024, 3, i),
                  {Debe(Caja, 10.0 * i + 0.01),
                   Haber(NuevaSubcuenta(e, "3759", 91000 + i, QStringLiteral("Ingreso %1").arg(i)),
                         10.0 * i + 0.01)});
    for (int i = 1; i <= 12; ++i)
        e.asiento(
            QDate(2024, 4, i),
            {Debe(NuevaSubcuenta(e, "6629", 92000 + i, QStringLiteral("Gasto %1").arg(i)), 7.0 * i),
             Haber(Caja, 7.0 * i)});
    const DatosGrafico g = Grafico(e, "ingresos-gastos");
    ASSERT_EQ(g.series.size(), 2);
    EXPECT_TRUE(g.puntosSeparados);
    // Fifteen income points and their remainder, then the twelve expenses, uncut.
    ASSERT_EQ(g.puntos.size(), 16 + 12);
    EXPECT_EQ(g.puntos.at(0), "Ingreso 20");
    EXPECT_EQ(g.puntos.at(15), PuntoRestoIngresos);
    EXPECT_EQ(g.puntos.at(16), "Gasto 12");
    EXPECT_FALSE(g.puntos.contains(PuntoRestoGastos));
    EXPECT_EQ(g.tituloX, "CONCEPTOS (Se incluyen los 15 mayores)");
    const QList<double>& ingresos = g.series.at(0).valores;
    const QList<double>& gastos = g.series.at(1).valores;
    // Each series is empty at the other's points.
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(gastos.at(i), 0) << i;
    for (int i = 16; i < g.puntos.size(); ++i)
        EXPECT_EQ(ingresos.at(i), 0) << i;
    EXPECT_DOUBLE_EQ(ingresos.at(15), 10 + 20 + 30 + 40 + 50 + 0.05);

    // The chart's totals are those of the income and expense list of the whole exercise.
    Rejilla r = RejillaTotalesIyG();
    Conexion c = e.datos();
    const ResultadoTotalesIyG t =
        LlenarTotalesIyG(c, {e.sesion.FechaIniEj, e.sesion.FechaFinEj, TipoIyG::Ambos, {}}, r);
    EXPECT_DOUBLE_EQ(Suma(ingresos), t.ingresos);
    EXPECT_DOUBLE_EQ(Suma(gastos), t.gastos);
    EXPECT_EQ(g.totales, (QList<double>{t.ingresos, t.gastos}));

    // Four expenses of 1 more: now both are cut, and one of them is the remainder.
    for (int i = 13; i <= 16; ++i)
        e.asiento(QDate(2024, 5, 1),
                  {Debe(NuevaSubcuenta(e, "6629", 92000 + i, QStringLiteral("Gasto %1").arg(i)), 1),
                   Haber(Caja, 1)});
    const DatosGrafico h = Grafico(e, "ingresos-gastos");
    EXPECT_EQ(h.puntos.last(), PuntoRestoGastos);
    EXPECT_DOUBLE_EQ(h.series.at(1).valores.last(), 1);
    EXPECT_DOUBLE_EQ(Suma(h.series.at(1).valores), DelDiario(e, "_6%", false));
}

TEST(Graficos, MesesCuentaYAnos) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    // Income and expense by month: the totals of the month table, month by month.
    const DatosGrafico meses = Grafico(e, "meses");
    Rejilla tabla = RejillaMesesIyG();
    {
        Conexion c = e.datos();
        const ResultadoMesesIyG m = LlenarMesesIyG(c, {2024, {}}, tabla);
        EXPECT_EQ(meses.puntos, NombresMeses());
        EXPECT_EQ(meses.series.at(0).valores,
                  QList<double>(std::begin(m.ingresos), std::end(m.ingresos)));
        EXPECT_EQ(meses.series.at(1).valores,
                  QList<double>(std::begin(m.gastos), std::end(m.gastos)));
    }
    EXPECT_EQ(meses.tituloX, "Meses");

    // One subaccount by its nature: the cash (debit) and the sales (credit) each positive.
    Conexion c = e.datos();
    const DatosGrafico caja = GraficoCuenta(c, e.sesion, Caja, "Caja");
    EXPECT_EQ(caja.titulo, "     Cuenta: Caja. Año 2024");
    EXPECT_EQ(caja.series.first().valores,
              (QList<double>{7000, 0, 5000, 0, 0, 0, 0, 0, 0, 0, 0, -600.25}));
    const DatosGrafico ventas = GraficoCuenta(c, e.sesion, Ventas, "Ventas");
    EXPECT_DOUBLE_EQ(ventas.totales.first(), 12000);

    // Across years: the company's exercises in order from the first chosen, n in all.
    EXPECT_EQ(AnosDelGrafico({2026, 2023, 2024, 2025}, 2024, 2), (QList<int>{2024, 2025}));
    EXPECT_EQ(AnosDelGrafico({2023, 2024}, 2024, 5), (QList<int>{2024}));
    SeleccionAnosGrafico sel;
    sel.porAreas = true;
    sel.area = "3";
    sel.nombre = "3";
    sel.numero = 2;
    sel.primerAno = 2024;
    const DatosGrafico anos = GraficoAnos(e.sesion, sel, {2024, 2025});
    EXPECT_EQ(anos.titulo, "     Area: 3. Comparación de los últimos 2 años desde 2024");
    EXPECT_EQ(anos.puntos, (QStringList{"2024", "2025 (sin ejercicio)"}));
    EXPECT_EQ(anos.series.first().valores, (QList<double>{15500.50, 0}));
    EXPECT_EQ(anos.tituloX, "Años");

    // The hidden grid that the command line writes as CSV.
    const Rejilla r = RejillaGrafico(meses);
    EXPECT_EQ(r.Titulos(), (QStringList{"Concepto", "Ingresos", "Gastos"}));
    EXPECT_EQ(r.Fila(0), (QStringList{"Enero", "7.000,00", "0,00"}));
}

TEST(Graficos, AspectoGuardadoYQueGraficosAdmitenCircular) {
    Entorno e;
    AspectoGrafico a = LeerAspectoGrafico(*e.ajustes);
    EXPECT_FALSE(a.tresD || a.circular || a.cantidades);
    GuardarDimensiones(*e.ajustes, true);
    GuardarTipoChart(*e.ajustes, true);
    GuardarVerImport(*e.ajustes, true);
    EXPECT_EQ(e.ajustes->leer("Valores", "Dimensiones"), "3D");
    EXPECT_EQ(e.ajustes->leer("Valores", "TipoChart"), "Circular");
    EXPECT_EQ(e.ajustes->leer("Valores", "VerImport"), "SI");
    a = LeerAspectoGrafico(*e.ajustes);
    EXPECT_TRUE(a.tresD && a.circular && a.cantidades);
    // Only the kinds of one series of parts are pies: the area and the account by month.
    QList<bool> circulares;
    for (const EntradaGrafico& en : EntradasGraficos())
        circulares << DibujaCircular(en.tipo, a);
    EXPECT_EQ(EntradasGraficos().size(), 11);
    EXPECT_EQ(circulares,
              (QList<bool>{true, true, true, true, true, true, true, true, false, false, false}));
    GuardarTipoChart(*e.ajustes, false);
    EXPECT_FALSE(DibujaCircular(TipoGrafico::Area, LeerAspectoGrafico(*e.ajustes)));
}

TEST(Graficos, ReglasDeForm41YForm2) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    const auto informado = [&] {
        const QString t = e.dialogo.informados.value(0);
        e.dialogo.informados.clear();
        return t;
    };
    EXPECT_FALSE(ValidarCuentaGrafico({}, "Caja", e.sesion, e.dialogo));
    EXPECT_EQ(informado(), MsgGrafAreaPrimero);
    EXPECT_FALSE(ValidarCuentaGrafico("1", "No existe", e.sesion, e.dialogo));
    EXPECT_EQ(informado(), MsgGrafErrorCuenta);
    const auto cuenta = ValidarCuentaGrafico("3", "Ventas de mercaderías", e.sesion, e.dialogo);
    ASSERT_TRUE(cuenta);
    EXPECT_EQ(cuenta->ncuenta, Ventas);

    CajasAnosGrafico cajas;
    cajas.porAreas = false;
    const QStringList esperados{MsgGrafNumeroAnos, MsgGrafPrimerAno, MsgGrafArea, MsgGrafCuenta,
                                MsgGrafErrorCuenta};
    for (const QString& esperado : esperados) {
        EXPECT_FALSE(ValidarAnosGrafico(cajas, e.sesion, e.dialogo));
        EXPECT_EQ(informado(), esperado);
        if (cajas.numero == 0)
            cajas.numero = 2;
        else if (cajas.primerAno == 0)
            cajas.primerAno = 2024;
        else if (cajas.area.isEmpty())
            cajas.area = "3";
        else
            cajas.subcuenta = "No existe";
    }
    cajas.subcuenta = "Ventas de mercaderías";
    const auto sel = ValidarAnosGrafico(cajas, e.sesion, e.dialogo);
    ASSERT_TRUE(sel);
    EXPECT_EQ(sel->ncuenta, Ventas);
    EXPECT_EQ(sel->nombre, "Ventas de mercaderías");
}

TEST(Graficos, EjercicioCerradoLeidoSinEscribir) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    QList<DatosGrafico> abiertos;
    QStringList claves;
    for (const EntradaGrafico& en : EntradasGraficos())
        if (en.tipo == TipoGrafico::Area || en.tipo == TipoGrafico::IngresosGastos ||
            en.tipo == TipoGrafico::Meses) {
            claves << en.clave;
            abiertos << Grafico(e, en.clave);
        }
    DatosGrafico caja;
    {
        Conexion c = e.datos();
        caja = GraficoCuenta(c, e.sesion, Caja, "Caja");
    }
    const auto [reg, fin] = CerrarComoElCierre(e);
    const float ultimo = e.sesion.UltimoAsiento;
    const auto lineas = [&] {
        Conexion c = e.datos();
        return c.escalar(QStringLiteral("SELECT COUNT(*) || '/' || SUM(NAs) FROM Diario"))
            .toString();
    };
    const QString antes = lineas();

    // Every chart of the closed exercise shows the balances before the close.
    for (int i = 0; i < claves.size(); ++i) {
        const DatosGrafico g = Grafico(e, claves.at(i));
        EXPECT_EQ(g.puntos, abiertos.at(i).puntos) << claves.at(i).toStdString();
        for (int s = 0; s < g.series.size(); ++s)
            EXPECT_EQ(g.series.at(s).valores, abiertos.at(i).series.at(s).valores)
                << claves.at(i).toStdString();
    }
    Conexion c = e.datos();
    EXPECT_EQ(GraficoCuenta(c, e.sesion, Caja, "Caja").series.first().valores,
              caja.series.first().valores);
    // The closing entries keep their numbers: nothing was taken out and put back.
    EXPECT_EQ(lineas(), antes);
    EXPECT_EQ(e.sesion.UltimoAsiento, ultimo);
    EXPECT_EQ(
        c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = ? AND Clase = 'R'", {qlonglong(reg)})
            .toInt(),
        7);
    EXPECT_TRUE(
        c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = ? AND Clase = 'F'", {qlonglong(fin)})
            .toInt() > 0);
}

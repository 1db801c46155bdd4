// The income and expense lists on paper: the block's running sum carried from page to page and
// started again at each block, the result at the foot, names filled with " . ." within their
// column; the lines with their total; the month tables across a landscape sheet; and an empty
// list that prints nothing.

#include "reports/ImpresionIngresosGastos.h"
#include "ComunAnalisis.h"
#include "ComunLibros.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/Rejilla.h"

#include <gtest/gtest.h>

using namespace iyg;

namespace {

// Income of 1.000 and a hundred expense subaccounts of 10, 20, ... 1.000: a negative result.
void CienGastos(Entorno& e) {
    e.crearEmpresa();
    // One connection for the whole fixture: a hundred entries post in a moment.
    Conexion c = e.datos();
    EscribirAsiento(c, e.sesion, QDate(2024, 1, 2), {Debe(Caja, 1000), Haber(Ventas, 1000)});
    for (int i = 1; i <= 100; ++i) {
        const QString nc = QStringLiteral("66299%1").arg(3000 + i, 4, 10, QLatin1Char('0'));
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, '6629')",
                   {nc, QStringLiteral("Gasto %1").arg(i)});
        EscribirAsiento(c, e.sesion, QDate(2024, 1 + i % 12, 1 + i % 28),
                        {Debe(nc, 10.0 * i), Haber(Banco, 10.0 * i)});
    }
}

const SeleccionIyG Ano{QDate(2024, 1, 1), QDate(2024, 12, 31), TipoIyG::Ambos, {}};

double Cifra(const QString& t) {
    return ValorCelda(t).value_or(0);
}

// The first figure written on the line of a text, right of it.
double CifraDeLinea(const ImpresoraGrabadora& imp, const Trazo* t) {
    const QStringList l = Linea(imp, t);
    return l.size() > 1 ? Cifra(l.at(1)) : 0;
}

} // namespace

TEST(ImpresionIngresosGastos, TotalesSumaDelBloqueDePaginaEnPaginaYResultadoAlPie) {
    Entorno e;
    CienGastos(e);
    Rejilla r = RejillaTotalesIyG();
    {
        Conexion c = e.datos();
        LlenarTotalesIyG(c, Ano, r);
    }
    ImpresoraGrabadora imp;
    DibujarTotalesIyG(imp, r, Ano, "Pruebas SL", Opciones());
    ASSERT_GE(imp.paginas(), 2) << imp.volcado().toStdString();
    EXPECT_EQ(imp.textosDePagina(1).first(), TituloTotalesIyG);

    // Page 1 ends with the sum of the expenses printed on it: the income block's 1.000 is not in
    // it, since the sum starts again with each block.
    const Trazo* sigue = imp.buscar(SumaSigueTotalesIyG);
    ASSERT_TRUE(sigue);
    EXPECT_EQ(sigue->pagina, 1);
    double gastosPagina1 = 0;
    int filas = 0;
    for (const Trazo& t : imp.textos())
        if (t.pagina == 1 && t.texto.startsWith("Gasto ")) {
            gastosPagina1 += CifraDeLinea(imp, &t);
            ++filas;
            // The name is filled with " . ." up to its column, never over the figures.
            EXPECT_TRUE(t.texto.contains(" . .")) << t.texto.toStdString();
            EXPECT_LE(t.x + t.ancho, imp.AnchoPagina() - 2800 - 1700 + 1) << t.texto.toStdString();
        }
    EXPECT_GT(filas, 20);
    EXPECT_DOUBLE_EQ(CifraDeLinea(imp, sigue), gastosPagina1);
    const Trazo* anterior = imp.buscar(SumaAnteriorIyG);
    ASSERT_TRUE(anterior);
    EXPECT_EQ(anterior->pagina, 2);
    EXPECT_DOUBLE_EQ(CifraDeLinea(imp, anterior), gastosPagina1);

    // The result closes the book at the foot of the last page, in bold, and only there.
    const int ultima = imp.paginas();
    const Trazo* resultado = imp.buscar(FilaResultadoNegativo + " . . .");
    ASSERT_TRUE(resultado);
    EXPECT_EQ(resultado->pagina, ultima);
    EXPECT_TRUE(resultado->negrita);
    EXPECT_DOUBLE_EQ(resultado->y, imp.AltoPagina() - 1835);
    EXPECT_DOUBLE_EQ(CifraDeLinea(imp, resultado), 1000 - 50500);
    EXPECT_FALSE(imp.buscar(FilaResultadoNegativo));
    EXPECT_TRUE(imp.buscar("Total Gastos"));
    EXPECT_EQ(imp.textosDePagina(ultima).last(), "Página nº " + QString::number(ultima));
}

TEST(ImpresionIngresosGastos, ListaConSumasYTotal) {
    Entorno e;
    CienGastos(e);
    Rejilla r = RejillaListaIyG();
    SeleccionListaIyG sel{QDate(2024, 1, 1), QDate(2024, 12, 31), ClaseIyG::Gastos, {}};
    {
        Conexion c = e.datos();
        ASSERT_EQ(LlenarListaIyG(c, sel, r), 100);
    }
    ImpresoraGrabadora imp;
    DibujarListaIyG(imp, r, sel, "Pruebas SL", Opciones());
    ASSERT_GE(imp.paginas(), 2);
    EXPECT_TRUE(imp.buscar("Gastos")) << "the side under the company";
    const Trazo* sigue = imp.buscar(SumaSigueListaIyG);
    ASSERT_TRUE(sigue);
    const Trazo* anterior = imp.buscar(SumaAnteriorIyG);
    ASSERT_TRUE(anterior);
    EXPECT_DOUBLE_EQ(CifraDeLinea(imp, sigue), CifraDeLinea(imp, anterior));
    const Trazo* total = imp.buscar(CierreListaIyG);
    ASSERT_TRUE(total);
    EXPECT_EQ(Linea(imp, total).last(), r.Totales().first().valor);
    EXPECT_EQ(r.Totales().first().valor, "50.500,00");
    // Every column on the paper, the figures right-aligned at W - 1000.
    const QStringList cabecera = Linea(imp, imp.buscar("Nº As."));
    EXPECT_EQ(cabecera, (QStringList{"Nº As.", "FECHA", "CUENTA", "CONCEPTO", "IMPORTE"}));
    EXPECT_DOUBLE_EQ(Derecha(imp.buscar("IMPORTE")), imp.AnchoPagina() - 1000);
}

TEST(ImpresionIngresosGastos, TablasDeMesesAlAnchoDeLaHoja) {
    Entorno e;
    CienGastos(e);
    Rejilla r = RejillaMesesIyG();
    {
        Conexion c = e.datos();
        LlenarMesesIyG(c, {2024, {}}, r);
    }
    ImpresoraGrabadora imp(QSizeF(PaginaA4.height(), PaginaA4.width()));
    DibujarMesesIyG(imp, r, {2024, "Tienda"}, "Pruebas SL", Opciones(0));
    ASSERT_GE(imp.paginas(), 2);
    EXPECT_TRUE(imp.buscar("Año 2024     Sector: Tienda"));
    // The headings stand apart: in this font "SEPTIEMBRE" would not fit its column, so every
    // month is headed by three letters.
    const Trazo* cuenta = imp.buscar("CUENTA");
    ASSERT_TRUE(cuenta);
    QList<Trazo> cabecera;
    for (const Trazo& t : imp.textos())
        if (t.pagina == 1 && t.y == cuenta->y)
            cabecera << t;
    ASSERT_EQ(cabecera.size(), 14);
    EXPECT_EQ(cabecera.at(1).texto, "ENE");
    EXPECT_EQ(cabecera.at(9).texto, "SEP");
    EXPECT_EQ(cabecera.last().texto, "TOTAL");
    for (int i = 1; i < cabecera.size(); ++i)
        EXPECT_LT(cabecera.at(i - 1).x + cabecera.at(i - 1).ancho, cabecera.at(i).x) << i;
    double derecha = 0;
    for (const Trazo& t : imp.textos()) {
        derecha = qMax(derecha, t.x + t.ancho);
        EXPECT_NE(t.texto, SumaSigueTotalesIyG);
    }
    EXPECT_LE(derecha, imp.AnchoPagina() - 600);
    // A row prints its months with an amount and its total: "Gasto 1" moved in February only.
    const Trazo* gasto1 = imp.buscar("Gasto 1");
    ASSERT_TRUE(gasto1);
    EXPECT_EQ(Linea(imp, gasto1), (QStringList{"Gasto 1", "10,00", "10,00"}));
    for (int p = 1; p <= imp.paginas(); ++p)
        EXPECT_EQ(imp.textosDePagina(p).last(), "Página nº " + QString::number(p));

    // The comparison across years: a year without database prints its words and no figures.
    SeleccionComparacion sel;
    sel.anos = {2024, 2025};
    sel.area = "6";
    Rejilla comp = RejillaComparacion();
    LlenarComparacion(e.sesion, sel, comp);
    ImpresoraGrabadora hoja(QSizeF(PaginaA4.height(), PaginaA4.width()));
    DibujarComparacion(hoja, comp, sel, "Pruebas SL", Opciones(0));
    EXPECT_EQ(hoja.textosDePagina(1).first(), TituloComparacion);
    EXPECT_TRUE(hoja.buscar("Area: 6"));
    EXPECT_EQ(Linea(hoja, hoja.buscar("Año 2025 (sin ejercicio)")).size(), 1);
    EXPECT_EQ(Linea(hoja, hoja.buscar("Año 2024")).last(), "50.500,00");
}

TEST(ImpresionIngresosGastos, SinSubcuentasNiLineasNoSeImprimeNada) {
    Entorno e;
    e.crearEmpresa();
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1000), Haber(Capital, 1000)});
    Conexion c = e.datos();
    Rejilla totales = RejillaTotalesIyG();
    LlenarTotalesIyG(c, Ano, totales);
    Rejilla lista = RejillaListaIyG();
    const SeleccionListaIyG sel{Ano.desde, Ano.hasta, ClaseIyG::Ingresos, {}};
    LlenarListaIyG(c, sel, lista);
    Rejilla meses = RejillaMesesIyG();
    LlenarMesesIyG(c, {2024, {}}, meses);
    ImpresoraGrabadora imp;
    DibujarTotalesIyG(imp, totales, Ano, "Pruebas SL", Opciones());
    DibujarListaIyG(imp, lista, sel, "Pruebas SL", Opciones());
    DibujarMesesIyG(imp, meses, {2024, {}}, "Pruebas SL", Opciones());
    EXPECT_TRUE(imp.trazos().isEmpty()) << imp.volcado().toStdString();
    // The grids themselves still show their blocks and totals of nothing.
    EXPECT_EQ(totales.Filas(), 5);
    EXPECT_EQ(meses.Celda(meses.Filas() - 1, ColMesTotal), "0,00");
}

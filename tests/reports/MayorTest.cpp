// The movements of a subaccount and the whole ledger: selection rules and messages, the initial
// row with and without a sector, balances by nature, the order of each book, the PERIODO and
// ACUMULADO lines, the ledger's heads and blank rows, and the printed layouts on the recording
// surface (the foot of the movements, the ledger's page number and its new pages).

#include "reports/Mayor.h"
#include "ComunLibros.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/Rejilla.h"
#include "reports/ImpresionMayor.h"
#include "reports/Movimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

Apunte ConSector(Apunte a, const QString& sector) {
    a.Sector = sector;
    return a;
}

// Twelve entries. Entries 9 and 10 stand in reverse order of date; entries 2 and 11 carry the
// sector "Tienda". Caja (debit nature) against Ventas (credit nature), and one purchase paid by
// the bank, so that Caja ends with a credit-side line.
struct Libro : Entorno {
    Libro() {
        crearEmpresa();
        asiento(QDate(2024, 1, 10), {Debe(Caja, 100, "Venta 1"), Haber(Ventas, 100, "Venta 1")});
        asiento(QDate(2024, 2, 10), {ConSector(Debe(Caja, 50, "Venta 2"), "Tienda"),
                                     ConSector(Haber(Ventas, 50, "Venta 2"), "Tienda")});
        for (int i = 3; i <= 8; ++i)
            asiento(QDate(2024, 3, i), {Debe(Caja, i, QStringLiteral("Venta %1").arg(i)),
                                        Haber(Ventas, i, QStringLiteral("Venta %1").arg(i))});
        asiento(QDate(2024, 5, 1), {Debe(Caja, 9, "Venta 9"), Haber(Ventas, 9, "Venta 9")});
        asiento(QDate(2024, 4, 1), {Debe(Caja, 10, "Venta 10"), Haber(Ventas, 10, "Venta 10")});
        asiento(QDate(2024, 6, 1), {ConSector(Debe(Caja, 1000, "Venta 11"), "Tienda"),
                                    ConSector(Haber(Ventas, 1000, "Venta 11"), "Tienda")});
        asiento(QDate(2024, 6, 2), {Debe(Compras, 30, "Compra"), Haber(Caja, 30, "Compra")});
    }
    TotalesMovimientos movimientos(const QString& ncuenta, QDate desde, QDate hasta, Rejilla& r,
                                   const QString& sector = {}) {
        SeleccionMovimientos sel{desde, hasta, ncuenta, QStringLiteral("Caja"), sector};
        Conexion c = datos();
        return LlenarMovimientos(c, sesion, sel, r);
    }
    Rejilla mayor(int desde, int hasta, QDate d1 = QDate(2024, 1, 1),
                  QDate d2 = QDate(2024, 12, 31)) {
        Rejilla r = RejillaMayor();
        SeleccionMayor sel{d1, d2, desde, hasta};
        Conexion c = datos();
        LlenarMayor(c, sesion, sel, r);
        return r;
    }
};

// Debit, credit and balance of a PERIODO or ACUMULADO line.
template <class Suma> std::tuple<double, double, double> Cifras(const Suma& s) {
    return {s.debe, s.haber, s.saldo};
}

QStringList Celdas(const Rejilla& r, int c) {
    QStringList l;
    for (int f = 0; f < r.Filas(); ++f)
        l << r.Celda(f, c);
    return l;
}

} // namespace

TEST(Movimientos, ReglasDeSeleccionEnSuOrden) {
    Libro e;
    CajasMovimientos c{QDate(2024, 3, 1), QDate(2024, 2, 1), QString(), QString(), QString()};
    EXPECT_FALSE(ValidarSeleccionMovimientos(c, e.sesion, e.dialogo));
    c.hasta = QDate(2024, 12, 31);
    EXPECT_FALSE(ValidarSeleccionMovimientos(c, e.sesion, e.dialogo));
    c.area = "1";
    EXPECT_FALSE(ValidarSeleccionMovimientos(c, e.sesion, e.dialogo));
    c.subcuenta = "No existe";
    EXPECT_FALSE(ValidarSeleccionMovimientos(c, e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"La fecha inicial debe ser menor o igual que la final.",
                           "Tiene que seleccionar el Area al que pertenece la Subcuenta.",
                           "Tiene que seleccionar la Subcuenta.", "Error en la cuenta."}));
    c.subcuenta = "Banco";
    c.sector = "Tienda";
    const auto sel = ValidarSeleccionMovimientos(c, e.sesion, e.dialogo);
    ASSERT_TRUE(sel);
    EXPECT_EQ(QStringList({sel->ncuenta, sel->nombre, sel->sector}),
              QStringList({Banco, "Banco", "Tienda"}));
}

TEST(Movimientos, OrdenNumericoSaldoPorNaturalezaYSoloPeriodo) {
    Libro e;
    Rejilla r = RejillaMovimientos();
    const TotalesMovimientos t = e.movimientos(Caja, QDate(2024, 1, 1), QDate(2024, 12, 31), r);
    // No initial row from the first day; numbers as numbers: 9 before 10 although 10 is older.
    EXPECT_EQ(Celdas(r, ColMovAsiento),
              QStringList({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}));
    EXPECT_EQ(r.Fila(8), QStringList({"9", "01/05/2024", "Venta 9", "9,00", "0,00", "192,00"}));
    EXPECT_EQ(r.Fila(11), QStringList({"12", "02/06/2024", "Compra", "0,00", "30,00", "1.172,00"}));
    EXPECT_FALSE(t.conAcumulado);
    EXPECT_EQ(Cifras(t.periodo), std::tuple(1202.0, 30.0, 1172.0));

    // Credit nature: Ventas grows with its credits; a debit-heavy credit subaccount goes
    // negative.
    e.movimientos(Ventas, QDate(2024, 1, 1), QDate(2024, 12, 31), r);
    EXPECT_EQ(r.Celda(r.Filas() - 1, ColMovSaldo), "1.202,00");
    e.asiento(QDate(2024, 7, 1), {Debe(Ventas, 2000, "Abono"), Haber(Caja, 2000, "Abono")});
    e.movimientos(Ventas, QDate(2024, 1, 1), QDate(2024, 12, 31), r);
    EXPECT_EQ(r.Celda(r.Filas() - 1, ColMovSaldo), "-798,00");
    EXPECT_TRUE(NaturalezaDeudora("600000001"));
    EXPECT_FALSE(NaturalezaDeudora("200000001"));
    EXPECT_DOUBLE_EQ(SaldoPorNaturaleza("012900002", 10, 4), -6);
}

TEST(Movimientos, SaldoInicialConYSinSectorYLineasPeriodoAcumulado) {
    Libro e;
    Rejilla r = RejillaMovimientos();
    TotalesMovimientos t = e.movimientos(Caja, QDate(2024, 3, 1), QDate(2024, 12, 31), r);
    // Before March: 100 + 50 (entry 2, sector Tienda).
    EXPECT_EQ(r.Fila(0),
              QStringList({"", "01/03/2024", "Saldo Inicial", "150,00", "0,00", "150,00"}));
    EXPECT_EQ(r.Celda(1, ColMovSaldo), "153,00");
    EXPECT_TRUE(t.conAcumulado);
    // The period's balance is the last balance less the initial row's.
    EXPECT_EQ(Cifras(t.periodo), std::tuple(1052.0, 30.0, 1022.0));
    EXPECT_EQ(Cifras(t.acumulado), std::tuple(1202.0, 30.0, 1172.0));

    // The sector filters the period's lines only: the initial row still holds entry 2 and the
    // balance mixes both views.
    t = e.movimientos(Caja, QDate(2024, 3, 1), QDate(2024, 12, 31), r, "Tienda");
    ASSERT_EQ(r.Filas(), 2);
    EXPECT_EQ(r.Celda(0, ColMovDebe), "150,00");
    EXPECT_EQ(r.Fila(1),
              QStringList({"11", "01/06/2024", "Venta 11", "1.000,00", "0,00", "1.150,00"}));
    EXPECT_DOUBLE_EQ(t.periodo.saldo, 1000);
    EXPECT_DOUBLE_EQ(t.acumulado.saldo, 1150);

    // Only the initial row: fewer than two rows, only the period line, with the last balance.
    t = e.movimientos(Caja, QDate(2024, 3, 1), QDate(2024, 3, 2), r);
    ASSERT_EQ(r.Filas(), 1);
    EXPECT_FALSE(t.conAcumulado);
    EXPECT_DOUBLE_EQ(t.periodo.saldo, 150);
    // An empty list from the first day: zeros.
    t = e.movimientos(Banco, QDate(2024, 1, 1), QDate(2024, 12, 31), r);
    EXPECT_EQ(r.Filas(), 0);
    EXPECT_DOUBLE_EQ(t.periodo.saldo, 0);
}

TEST(Mayor, ReglasDeSeleccion) {
    DialogoGuion d;
    int caja = -1;
    CajasMayor c{QDate(2024, 2, 1), QDate(2024, 1, 1), "570", "572"};
    EXPECT_FALSE(ValidarSeleccionMayor(c, d, &caja));
    EXPECT_EQ(caja, 2);
    c.hasta = QDate(2024, 12, 31);
    c.hastaCuenta = "";
    EXPECT_FALSE(ValidarSeleccionMayor(c, d, &caja));
    EXPECT_EQ(caja, 1);
    c.hastaCuenta = "500";
    EXPECT_FALSE(ValidarSeleccionMayor(c, d, &caja));
    EXPECT_EQ(d.informados,
              QStringList({"La fecha inicial debe ser menor o igual que la final.",
                           "Tiene que introducir el número de Cuenta, con tres dígitos. Puede ver "
                           "la relación de Cuentas en el menú Gestión Contable, Gestión de "
                           "Cuentas.",
                           "La Cuenta inicial no puede ser mayor que la final."}));
    c.hastaCuenta = "700";
    const auto sel = ValidarSeleccionMayor(c, d);
    ASSERT_TRUE(sel);
    EXPECT_EQ(sel->desdeCuenta, 570);
    EXPECT_EQ(sel->hastaCuenta, 700);
    EXPECT_TRUE(CuentaIncompleta("57"));
    EXPECT_FALSE(CuentaIncompleta(""));
    EXPECT_FALSE(CuentaIncompleta("570"));
}

TEST(Mayor, CabecerasSaldoInicialFilasEnBlancoYOrdenPorFecha) {
    Libro e;
    // 570 (Caja) to 700 (Ventas): Banco (572) has no lines and is left out; 600 (Compras) has a
    // line; 400 is out of range.
    Rejilla r = e.mayor(570, 700);
    QStringList primeras;
    for (int f = 0; f < r.Filas(); ++f)
        if (TipoCabeceraMayor(r, f) != CabeceraMayor::Ninguna) {
            primeras << r.Celda(f, 0);
            EXPECT_TRUE(r.Negrita(f, 0));
            ASSERT_TRUE(r.Combinada(f));
            EXPECT_EQ(r.Combinada(f)->hasta, ColumnasMovimientos - 1);
        }
    EXPECT_EQ(primeras,
              QStringList({"570. Caja, euros", "Subcuenta : Caja", "600. Compras de mercaderías",
                           "Subcuenta : Compras de "
                           "mercaderías",
                           "700. Ventas de mercaderías", "Subcuenta : Ventas de mercaderías"}));
    // Caja: heads, twelve lines by date (10 before 9), two blank rows.
    EXPECT_EQ(r.Celda(2, ColMovAsiento), "1");
    EXPECT_EQ(Celdas(r, ColMovAsiento).mid(10, 3), QStringList({"10", "9", "11"}));
    EXPECT_EQ(r.Celda(13, ColMovSaldo), "1.172,00");
    EXPECT_EQ(r.Fila(14), QStringList(6, QString()));
    EXPECT_EQ(r.Fila(15), QStringList(6, QString()));
    EXPECT_EQ(TipoCabeceraMayor(r, 16), CabeceraMayor::Cuenta);
    EXPECT_EQ(r.Fila(18), QStringList({"12", "02/06/2024", "Compra", "30,00", "0,00", "30,00"}));
    EXPECT_EQ(r.Filas(), 2 + 12 + 2 + 2 + 1 + 2 + 2 + 11 + 2);

    // From March: Caja and Ventas have previous sums and show them, dated the first day;
    // Compras has none and shows no initial row.
    r = e.mayor(570, 700, QDate(2024, 3, 1));
    EXPECT_EQ(r.Fila(2),
              QStringList({"", "01/01/2024", "Saldo Inicial", "150,00", "0,00", "150,00"}));
    const int compras = Celdas(r, 0).indexOf("Subcuenta : Compras de mercaderías");
    EXPECT_EQ(r.Celda(compras + 1, ColMovConcepto), "Compra");
    const int ventas = Celdas(r, 0).indexOf("Subcuenta : Ventas de mercaderías");
    EXPECT_EQ(r.Fila(ventas + 1),
              QStringList({"", "01/01/2024", "Saldo Inicial", "0,00", "150,00", "150,00"}));
    EXPECT_EQ(r.Celda(r.Filas() - 3, ColMovSaldo), "1.202,00");

    // Previous sums that are equal on both sides are not zero: the row shows with balance 0.
    e.asiento(QDate(2024, 1, 5), {Debe(Proveedor, 40, "Pago"), Haber(Proveedor, 40, "Pago")});
    e.asiento(QDate(2024, 8, 5), {Debe(Proveedor, 1, "Pago"), Haber(Caja, 1, "Pago")});
    r = e.mayor(400, 400, QDate(2024, 3, 1));
    EXPECT_EQ(r.Fila(2),
              QStringList({"", "01/01/2024", "Saldo Inicial", "40,00", "40,00", "0,00"}));
    // A range without groups or lines is empty.
    EXPECT_EQ(e.mayor(1, 99).Filas(), 0);
}

// The ledger must give what reading each subaccount on its own gives (the running balance of
// the last line of each subaccount equals its movements' last balance) over a busier journal.
TEST(Mayor, CoincideConLosMovimientosDeCadaSubcuenta) {
    Libro e;
    for (int i = 0; i < 40; ++i)
        e.asiento(QDate(2024, 1, 1).addDays((i * 37) % 360),
                  {Debe(i % 2 ? Banco : Compras, 10 + i, "X"), Haber(Proveedor, 10 + i, "X")});
    const QDate desde(2024, 4, 1);
    const Rejilla r = e.mayor(1, 999, desde);
    for (const QString& cuenta : {Caja, Banco, Compras, Proveedor, Ventas}) {
        Rejilla m = RejillaMovimientos();
        const TotalesMovimientos t = e.movimientos(cuenta, desde, QDate(2024, 12, 31), m);
        Conexion c = e.datos();
        const QString nombre =
            c.escalar("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?", {cuenta}).toString();
        const int cabeza = Celdas(r, 0).indexOf("Subcuenta : " + nombre);
        ASSERT_GE(cabeza, 0) << nombre.toStdString();
        int fin = cabeza + 1;
        while (!r.Celda(fin, ColMovFecha).isEmpty())
            ++fin;
        const int lineasMayor = fin - cabeza - 1;
        // The movements always have an initial row after the first day; the ledger only when
        // the previous sums are not zero.
        const bool inicial = t.anteriorDebe != 0 || t.anteriorHaber != 0;
        EXPECT_EQ(lineasMayor, m.Filas() - (inicial ? 0 : 1)) << nombre.toStdString();
        EXPECT_EQ(r.Celda(fin - 1, ColMovSaldo), Formato(t.acumulado.saldo, "standard"))
            << nombre.toStdString();
    }
}

TEST(ImpresionMayor, PieDeMovimientosConPeriodoYAcumulado) {
    Libro e;
    for (int i = 0; i < 120; ++i)
        e.asiento(QDate(2024, 7, 1), {Debe(Caja, 1, "Relleno"), Haber(Ventas, 1, "Relleno")});
    Rejilla r = RejillaMovimientos();
    const TotalesMovimientos t = e.movimientos(Caja, QDate(2024, 3, 1), QDate(2024, 12, 31), r);
    SeleccionMovimientos sel{QDate(2024, 3, 1), QDate(2024, 12, 31), Caja, "Caja", {}};
    const OpcionesLibro op = Opciones();
    ImpresoraGrabadora imp;
    DibujarMovimientos(imp, r, t, sel, op);
    const double H = imp.AltoPagina(), W = imp.AnchoPagina();
    const int paginas = imp.paginas();
    ASSERT_GE(paginas, 2) << imp.volcado().toStdString();
    EXPECT_EQ(imp.textosDePagina(1).mid(0, 2), QStringList({"MAYOR", "SubCuenta: Caja"}));

    const Trazo* periodo = imp.buscar(PalabrasPeriodo);
    const Trazo* acumulado = imp.buscar(PalabrasAcumulado);
    ASSERT_TRUE(periodo && acumulado);
    EXPECT_EQ(periodo->pagina, paginas);
    EXPECT_DOUBLE_EQ(periodo->x, 4000);
    EXPECT_DOUBLE_EQ(periodo->y, H - 1985);
    EXPECT_TRUE(periodo->negrita);
    EXPECT_GT(acumulado->y, periodo->y);
    EXPECT_DOUBLE_EQ(acumulado->x, 4000);
    // The figures of each line stand on it, right-aligned in their columns.
    const QList<ColumnaLibro> cols = ColumnasMayor(0, W);
    auto figura = [&](const QString& texto, double y) {
        for (const Trazo& x : imp.textos())
            if (x.texto == texto && x.y == y && x.pagina == paginas)
                return x.x + x.ancho;
        return -1.0;
    };
    EXPECT_DOUBLE_EQ(figura(Formato(t.periodo.debe, "standard"), periodo->y), cols[3].x);
    EXPECT_DOUBLE_EQ(figura(Formato(t.periodo.saldo, "standard"), periodo->y), cols[5].x);
    EXPECT_DOUBLE_EQ(figura(Formato(t.acumulado.saldo, "standard"), acumulado->y), cols[5].x);
    // Pages end at H - 2200 with the carried sums, debit, credit and the last balance.
    const Trazo* sigue = imp.buscar("Suma y sigue . . .");
    ASSERT_TRUE(sigue);
    EXPECT_EQ(sigue->pagina, 1);
    EXPECT_GE(sigue->y, H - 2200);
    EXPECT_LT(sigue->y, H - 2200 + 600);
    const Trazo* anteriores = imp.buscar("Sumas anteriores . . .");
    ASSERT_TRUE(anteriores);
    EXPECT_EQ(anteriores->pagina, 2);
    EXPECT_EQ(imp.buscar(PalabrasAcumulado, 2), nullptr);
}

TEST(ImpresionMayor, MayorSinSumasNumeroDePaginaYPaginaNueva) {
    Libro e;
    for (int i = 0; i < 90; ++i)
        e.asiento(QDate(2024, 7, 1), {Debe(Caja, 1, "Relleno"), Haber(Ventas, 1, "Relleno")});
    e.asiento(QDate(2024, 7, 2), {Debe(Banco, 5, "Traspaso"), Haber(Caja, 5, "Traspaso")});
    Conexion c = e.datos();
    SeleccionMayor sel{QDate(2024, 1, 1), QDate(2024, 12, 31), 570, 700};
    Rejilla r = RejillaMayor();
    LlenarMayor(c, e.sesion, sel, r);
    OpcionesLibro op;
    op.cancelado = false;
    op.fechaTrabajo = QDate(2025, 1, 15);

    auto pagina = [](const ImpresoraGrabadora& imp, const QString& texto) {
        const Trazo* t = imp.buscar(texto);
        return t ? t->pagina : 0;
    };
    ImpresoraGrabadora seguido;
    DibujarMayor(seguido, r, sel, "Pruebas SL", op);
    const double H = seguido.AltoPagina();
    EXPECT_EQ(seguido.buscar("Suma y sigue . . ."), nullptr);
    EXPECT_EQ(seguido.buscar("Sumas anteriores . . ."), nullptr);
    EXPECT_EQ(seguido.buscar("Totales . . . . . . . . . . . ."), nullptr);
    const int n = seguido.paginas();
    ASSERT_GE(n, 2);
    for (int p = 1; p <= n; ++p) {
        const Trazo* numero = seguido.buscar(QStringLiteral("Página nº %1").arg(p));
        ASSERT_TRUE(numero) << p;
        EXPECT_EQ(numero->pagina, p);
        EXPECT_DOUBLE_EQ(numero->y, H - 1200);
        EXPECT_DOUBLE_EQ(numero->x, 600);
    }
    // No row goes below the page end: every row starts above H - 1600.
    for (const Trazo& t : seguido.textos()) {
        if (!t.texto.startsWith("Página nº"))
            EXPECT_LT(t.y, H - 1600 + 1) << t.texto.toStdString();
    }
    // Heads bold at the left edge.
    const Trazo* cabeza = seguido.buscar("572. Bancos e instituciones de crédito c/c vista, euros");
    ASSERT_TRUE(cabeza);
    EXPECT_TRUE(cabeza->negrita);
    EXPECT_DOUBLE_EQ(cabeza->x, 600);
    // Caja (570) fills the first page and runs on; Banco (572) follows on the same page.
    EXPECT_EQ(pagina(seguido, "Subcuenta : Banco"), pagina(seguido, "Traspaso"));
    // A page that starts inside a subaccount says whose lines it carries, in bold at the edge:
    // every page's first row is a head.
    const QStringList segunda = seguido.textosDePagina(2);
    ASSERT_GT(segunda.indexOf("SALDO"), 0);
    EXPECT_EQ(segunda.at(segunda.indexOf("SALDO") + 1), "Subcuenta : Caja");
    EXPECT_EQ(segunda.count("Subcuenta : Caja"), 1);
    static const QRegularExpression esCabeza(QStringLiteral("^(Subcuenta : |\\d{3}\\. )"));
    for (int p = 2; p <= n; ++p) {
        const QStringList t = seguido.textosDePagina(p);
        EXPECT_TRUE(esCabeza.match(t.value(t.indexOf("SALDO") + 1)).hasMatch())
            << p << " " << t.value(t.indexOf("SALDO") + 1).toStdString();
    }
    for (const Trazo& t : seguido.textos())
        if (t.texto == "Subcuenta : Caja") {
            EXPECT_TRUE(t.negrita);
            EXPECT_DOUBLE_EQ(t.x, 600);
        }

    // A new page per account: each account head opens a page; Banco's subaccount head is on
    // the page of its account.
    op.nuevaPaginaCuenta = true;
    ImpresoraGrabadora cuenta;
    DibujarMayor(cuenta, r, sel, "Pruebas SL", op);
    const int banco = pagina(cuenta, "572. Bancos e instituciones de crédito c/c vista, euros");
    const int ventas = pagina(cuenta, "700. Ventas de mercaderías");
    EXPECT_EQ(cuenta.textosDePagina(banco).at(cuenta.textosDePagina(banco).indexOf("SALDO") + 1),
              "572. Bancos e instituciones de crédito c/c vista, euros");
    EXPECT_EQ(pagina(cuenta, "600. Compras de mercaderías"), banco + 1);
    EXPECT_EQ(ventas, banco + 2);
    EXPECT_EQ(pagina(cuenta, "Subcuenta : Banco"), banco);
    // The page before the new one ends with its number.
    EXPECT_TRUE(cuenta.textosDePagina(banco - 1).last().startsWith("Página nº"));

    // A second subaccount of 570: per account it follows Caja on its page; per subaccount it
    // opens a page of its own, and so do the other accounts' blocks.
    c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES ('157000101', "
               "'Caja tienda', '1570')");
    e.asiento(QDate(2024, 7, 3), {Debe("157000101", 7, "Arqueo"), Haber(Ventas, 7, "Arqueo")});
    LlenarMayor(c, e.sesion, sel, r);
    ImpresoraGrabadora porCuenta, porSubcuenta;
    DibujarMayor(porCuenta, r, sel, "Pruebas SL", op);
    op.nuevaPaginaCuenta = false;
    op.nuevaPaginaSubcuenta = true;
    DibujarMayor(porSubcuenta, r, sel, "Pruebas SL", op);
    const int ultimaCaja = pagina(porCuenta, "Subcuenta : Caja tienda");
    EXPECT_TRUE(porCuenta.textosDePagina(ultimaCaja).contains("Relleno"));
    const int propia = pagina(porSubcuenta, "Subcuenta : Caja tienda");
    EXPECT_FALSE(porSubcuenta.textosDePagina(propia).contains("Relleno"));
    EXPECT_EQ(porSubcuenta.paginas(), porCuenta.paginas() + 1);
    EXPECT_EQ(pagina(porSubcuenta, "572. Bancos e instituciones de crédito c/c vista, euros"),
              propia + 1);
    // The account's head stands once, over its first subaccount only.
    int cabezasCuenta = 0;
    for (int f = 0; f < r.Filas(); ++f)
        cabezasCuenta +=
            TipoCabeceraMayor(r, f) == CabeceraMayor::Cuenta && r.Celda(f, 0).startsWith("570.");
    EXPECT_EQ(cabezasCuenta, 1);
}

// The printed trial balance on the recording surface: column positions with and without a shift,
// group rows in bold, names cut to their column, page ends at their constant with the running
// sums of the subaccount rows only, carried sums from the second page and the foot's totals.

#include "reports/ImpresionSumasSaldos.h"
#include "ComunLibros.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/Rejilla.h"
#include "reports/SumasSaldos.h"
#include "store/Formato.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

Rejilla Llena(Entorno& e) {
    Rejilla r = RejillaSyS();
    Conexion c = e.datos();
    LlenarSyS(c, e.sesion, e.sesion.FechaIniEj, e.sesion.FechaFinEj, r);
    return r;
}

const Trazo* EnPagina(const ImpresoraGrabadora& imp, const QString& texto, int pagina) {
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Texto && t.texto == texto && t.pagina == pagina)
            return &t;
    return nullptr;
}

// n pairs of subaccounts of customers (430) and suppliers (400), one entry each, amounts 1..n.
void MuchasSubcuentas(Entorno& e, int n) {
    Conexion c = e.datos();
    Transaccion t(c);
    for (int i = 1; i <= n; ++i) {
        const QString cli = QStringLiteral("44306%1").arg(i, 4, 10, QLatin1Char('0'));
        const QString pro = QStringLiteral("24007%1").arg(i, 4, 10, QLatin1Char('0'));
        c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)"),
                   {cli, QStringLiteral("Cliente %1").arg(i), cli.left(4)});
        c.ejecutar(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)"),
                   {pro, QStringLiteral("Proveedor %1").arg(i), pro.left(4)});
        EscribirAsiento(c, e.sesion, QDate(2024, 1, 1).addDays(i), {Debe(cli, i), Haber(pro, i)});
    }
    t.confirmar();
}

} // namespace

TEST(ImpresionSumasSaldos, ColumnasCabeceraYFilasDeGrupo) {
    Entorno e;
    e.crearEmpresa();
    const QString largo =
        QStringLiteral("Bancos e instituciones de crédito cuenta corriente a la vista en euros "
                       "de la oficina principal de la calle Mayor número uno");
    {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("UPDATE Cuentas SET Cuenta = ? WHERE NCuenta = ?"),
                   {largo, Banco});
    }
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1234.5), Haber(Banco, 1234.5)});
    const Rejilla r = Llena(e);
    for (double margen : {567.0, 1134.0}) {
        const MargenLibro m = Margen(margen);
        ImpresionSyS impreso(r, QStringLiteral("Pruebas SL"), QDate(2024, 1, 1),
                             QDate(2024, 12, 31), Opciones(margen));
        ImpresoraGrabadora imp;
        impreso.Dibujar(imp);
        const double W = imp.AnchoPagina();
        ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
        EXPECT_EQ(imp.textosDePagina(1).first(), TituloSyS);
        EXPECT_TRUE(imp.buscar("Desde 01/01/2024 hasta 31/12/2024"));
        EXPECT_TRUE(imp.buscar("Fecha: 15/01/2025"));

        EXPECT_DOUBLE_EQ(imp.buscar("CODIGO")->x, m.L);
        EXPECT_DOUBLE_EQ(imp.buscar("CUENTA")->x, 1500 + m.d * 5 / 6);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("DEBE")), W - 4400 + m.d / 3);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("HABER")), W - 2700 + m.d / 6);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("SALDO")), W - 1000);

        // Group 570 in bold, then Caja plain; a zero prints as nothing.
        const Trazo* grupo = imp.buscar("570");
        ASSERT_TRUE(grupo);
        EXPECT_TRUE(grupo->negrita);
        EXPECT_DOUBLE_EQ(grupo->x, m.L);
        EXPECT_EQ(Linea(imp, grupo), (QStringList{"570", "Caja, euros", "1.234,50", "1.234,50"}));
        for (const Trazo& t : imp.textos())
            if (t.y == grupo->y)
                EXPECT_TRUE(t.negrita) << t.texto.toStdString();
        const Trazo* caja = imp.buscar(Caja);
        ASSERT_TRUE(caja);
        EXPECT_FALSE(caja->negrita);
        EXPECT_GT(caja->y, grupo->y);
        const QStringList fila = Linea(imp, imp.buscar(Banco));
        ASSERT_EQ(fila.size(), 4) << fila.join('|').toStdString();
        EXPECT_EQ(fila.at(2), "1.234,50");
        EXPECT_EQ(fila.at(3), "-1.234,50");
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("-1.234,50")), W - 1000);

        // The long name is cut to its column, never wrapped.
        const QString cortado = fila.at(1);
        EXPECT_TRUE(largo.startsWith(cortado));
        EXPECT_LT(cortado.size(), largo.size());
        const double xCuenta = 1500 + m.d * 5 / 6;
        const double anchoCuenta = (W - 4400 + m.d / 3) - 1700 - xCuenta;
        EXPECT_LE(imp.buscar(cortado)->ancho, anchoCuenta - 200);
    }
}

TEST(ImpresionSumasSaldos, PaginasSumasQueSiguenSinGruposYTotalesAlPie) {
    Entorno e;
    e.crearEmpresa();
    const int n = 80; // 160 subaccounts and 2 group rows: three pages
    MuchasSubcuentas(e, n);
    const Rejilla r = Llena(e);
    ImpresionSyS impreso(r, QStringLiteral("Pruebas SL"), QDate(2024, 1, 1), QDate(2024, 12, 31),
                         Opciones());
    ImpresoraGrabadora imp;
    impreso.Dibujar(imp);
    const double H = imp.AltoPagina();
    const int paginas = imp.paginas();
    ASSERT_GE(paginas, 2) << imp.volcado().toStdString();

    double sumaDebe = 0, sumaHaber = 0;
    for (int p = 1; p <= paginas; ++p) {
        // The rows of this page: their codes at the left edge, below the head.
        double ultimaY = 0, penultimaY = 0;
        for (const Trazo& t : imp.textos()) {
            if (t.pagina != p || t.x != Margen(567).L || t.texto.size() != 9 ||
                !t.texto.front().isDigit())
                continue;
            penultimaY = ultimaY;
            ultimaY = t.y;
            // Only subaccount rows run into the sums; the grid has their amounts.
            for (int f = 0; f < r.Filas(); ++f)
                if (r.Celda(f, ColSySNCuenta) == t.texto) {
                    sumaDebe += ValorCelda(r.celda(f, ColSySDebe)).value();
                    sumaHaber += ValorCelda(r.celda(f, ColSySHaber)).value();
                }
        }
        const Trazo* sigue = EnPagina(imp, "Suma y sigue . . .", p);
        const Trazo* anteriores = EnPagina(imp, "Sumas anteriores . . .", p);
        EXPECT_EQ(anteriores != nullptr, p > 1) << p;
        if (p < paginas) {
            ASSERT_TRUE(sigue) << p;
            // The page ends after the first row that reaches H - 2150.
            const double paso = ultimaY - penultimaY; // a row and its gap
            EXPECT_GT(paso, 20);
            EXPECT_GE(ultimaY + paso, H - FinPaginaSyS) << p;
            EXPECT_LT(penultimaY + paso, H - FinPaginaSyS) << p;
            EXPECT_DOUBLE_EQ(sigue->x, 4000);
            EXPECT_EQ(Linea(imp, sigue), (QStringList{"Suma y sigue . . .", Std(sumaDebe),
                                                      Std(sumaHaber), Std(sumaDebe - sumaHaber)}))
                << p;
            // The next page starts from the same sums.
            const Trazo* siguiente = EnPagina(imp, "Sumas anteriores . . .", p + 1);
            ASSERT_TRUE(siguiente);
            EXPECT_EQ(Linea(imp, siguiente).mid(1), Linea(imp, sigue).mid(1));
            EXPECT_TRUE(EnPagina(imp, QStringLiteral("Página nº %1").arg(p), p));
        } else {
            EXPECT_FALSE(sigue);
        }
    }
    // Every subaccount row was printed once and the sums are those of the list, not doubled by
    // the group rows.
    const double total = n * (n + 1) / 2;
    EXPECT_DOUBLE_EQ(sumaDebe, total);
    EXPECT_DOUBLE_EQ(sumaHaber, total);
    const Trazo* totales = EnPagina(imp, "Totales . . . . . . . . . . . .", paginas);
    ASSERT_TRUE(totales);
    EXPECT_TRUE(totales->negrita);
    EXPECT_DOUBLE_EQ(totales->y, H - TotalesSyS);
    EXPECT_DOUBLE_EQ(totales->x, 4000);
    EXPECT_EQ(Linea(imp, totales),
              (QStringList{"Totales . . . . . . . . . . . .", Std(total), Std(total), Std(0)}));
    EXPECT_EQ(impreso.sumas(), (QList<double>{total, total, 0}));
    // The short rules over the totals, one per money column.
    int reglas = 0;
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Linea && t.pagina == paginas && t.y == H - ReglaSyS && t.y2 == t.y)
            ++reglas;
    EXPECT_EQ(reglas, 3);
    EXPECT_TRUE(EnPagina(imp, QStringLiteral("Página nº %1").arg(paginas), paginas));

    // A second copy is the same book, with the same totals.
    ImpresoraGrabadora otra;
    impreso.Dibujar(otra, 2);
    EXPECT_EQ(otra.textosDePagina(paginas), imp.textosDePagina(paginas));
}

TEST(ImpresionSumasSaldos, ListaVaciaNoImprimeNada) {
    Entorno e;
    e.crearEmpresa();
    const Rejilla r = Llena(e);
    ImpresoraGrabadora imp;
    ImpresionSyS(r, QStringLiteral("Pruebas SL"), QDate(2024, 1, 1), QDate(2024, 12, 31),
                 Opciones())
        .Dibujar(imp);
    EXPECT_EQ(imp.paginas(), 0);
    EXPECT_TRUE(imp.textos().isEmpty());
}

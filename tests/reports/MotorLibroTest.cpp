// The print run every book shares, on the recording surface: page ends at H - T with the running
// sums carried over, the foot at its fixed place, page numbers, the margin and its shift, cuts,
// and an empty book.

#include "reports/MotorLibro.h"
#include "ComunLibros.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

struct Fila {
    QString concepto;
    double debe = 0, haber = 0;
};

QList<Fila> Filas(int n) {
    QList<Fila> r;
    for (int i = 1; i <= n; ++i)
        r << Fila{QStringLiteral("Fila %1").arg(i), i * 1.25, i % 3 == 0 ? 0.0 : 10.0};
    return r;
}

DisenoLibro Diseno(double d, double W) {
    DisenoLibro dis;
    dis.titulo = QStringLiteral("LIBRO DE PRUEBA");
    dis.cabecera = QStringLiteral("Pruebas SL");
    dis.columnas = {{QStringLiteral("CONCEPTO"), 2000 + d, false, 3000},
                    {QStringLiteral("DEBE"), W - 2600, true, 1400, 0},
                    {QStringLiteral("HABER"), W - 1000, true, 1600, 1}};
    return dis;
}

OpcionesLibro Opciones(double margen, int paginaInicial) {
    OpcionesLibro op = ::Opciones(margen);
    op.paginaInicial = paginaInicial;
    return op;
}

// Draws a book the way the grid-walking books do, returning the running sums at the end.
QList<double> Imprimir(ImpresoraGrabadora& imp, const QList<Fila>& filas, const OpcionesLibro& op,
                       DisenoLibro dis, QList<double> sumas = {0, 0}) {
    ImpresionLibro p(imp, dis, op, sumas);
    p.Empezar();
    for (const Fila& f : filas) {
        p.Fila({f.concepto, ImporteLibro(f.debe), ImporteLibro(f.haber)});
        sumas[0] += f.debe;
        sumas[1] += f.haber;
        p.FinDePaginaSiToca();
    }
    p.Terminar();
    return sumas;
}

QList<double> Imprimir(ImpresoraGrabadora& imp, const QList<Fila>& filas,
                       const OpcionesLibro& op = ::Opciones()) {
    return Imprimir(imp, filas, op, Diseno(Margen(op.margen).d, imp.AnchoPagina()));
}

// The rows' own writes (the concept cells) on a page.
QList<Trazo> FilasDePagina(const ImpresoraGrabadora& imp, int pagina) {
    QList<Trazo> r;
    for (const Trazo& t : imp.textos())
        if (t.pagina == pagina && t.texto.startsWith(QLatin1String("Fila ")))
            r << t;
    return r;
}

// The writes that follow a text on its line (the figures of a sums line).
QStringList Siguientes(const ImpresoraGrabadora& imp, const Trazo* t) {
    QStringList r;
    for (const Trazo& o : imp.textos())
        if (o.documento == t->documento && o.pagina == t->pagina && o.y == t->y && o.x > t->x)
            r << o.texto;
    return r;
}

} // namespace

TEST(MotorLibro, PaginasQueAcabanEnHmenosTConSumasArrastradas) {
    ImpresoraGrabadora imp;
    const QList<Fila> filas = Filas(150);
    const QList<double> total = Imprimir(imp, filas);
    const double H = imp.AltoPagina(), W = imp.AnchoPagina();
    ASSERT_GE(imp.paginas(), 3) << imp.volcado().toStdString();
    EXPECT_EQ(imp.documentosTerminados(), 1);

    double debeHastaAqui = 0, haberHastaAqui = 0;
    int hechas = 0;
    for (int p = 1; p <= imp.paginas(); ++p) {
        const QList<Trazo> enPagina = FilasDePagina(imp, p);
        ASSERT_GE(enPagina.size(), 2) << p;
        const double paso = enPagina.at(1).y - enPagina.at(0).y;
        if (p < imp.paginas()) {
            // The page ends after the first row whose pen passes H - 2150, not before.
            EXPECT_GE(enPagina.last().y + paso, H - 2150) << p;
            EXPECT_LT(enPagina.at(enPagina.size() - 2).y + paso, H - 2150) << p;
        }
        for (int i = 0; i < enPagina.size(); ++i) {
            debeHastaAqui += filas.at(hechas + i).debe;
            haberHastaAqui += filas.at(hechas + i).haber;
        }
        hechas += int(enPagina.size());

        // Sums carried from the page before, at X = 4000, from the second page on.
        const Trazo* anteriores = nullptr;
        for (const Trazo& t : imp.textos())
            if (t.pagina == p && t.texto == QLatin1String("Sumas anteriores . . ."))
                anteriores = &t;
        EXPECT_EQ(anteriores != nullptr, p > 1) << p;
        if (p < imp.paginas()) {
            const Trazo* sigue = imp.buscar(QStringLiteral("Suma y sigue . . ."), p);
            ASSERT_TRUE(sigue) << p;
            EXPECT_EQ(sigue->pagina, p);
            EXPECT_DOUBLE_EQ(sigue->x, 4000);
            EXPECT_EQ(Siguientes(imp, sigue),
                      QStringList({Std(debeHastaAqui), Std(haberHastaAqui)}));
            const Trazo* anterioresSiguiente =
                imp.buscar(QStringLiteral("Sumas anteriores . . ."), p);
            ASSERT_TRUE(anterioresSiguiente);
            EXPECT_EQ(anterioresSiguiente->pagina, p + 1);
            EXPECT_DOUBLE_EQ(anterioresSiguiente->x, 4000);
            EXPECT_EQ(Siguientes(imp, anterioresSiguiente), Siguientes(imp, sigue));
            // The page number on the line under "Suma y sigue", at X = 600.
            const Trazo* numero = imp.buscar(QStringLiteral("Página nº %1").arg(p));
            ASSERT_TRUE(numero);
            EXPECT_EQ(numero->pagina, p);
            EXPECT_DOUBLE_EQ(numero->x, 600);
            EXPECT_GT(numero->y, sigue->y);
        }
    }
    EXPECT_EQ(hechas, filas.size());
    EXPECT_EQ(imp.buscar(QStringLiteral("Suma y sigue . . ."), imp.paginas()), nullptr);

    // The foot of the last page: short rules at H - 1985 under the money columns, the totals in
    // bold at H - 1835, right-aligned in their columns, and the last page number.
    const Trazo* totales = imp.buscar(QStringLiteral("Totales . . . . . . . . . . . ."));
    ASSERT_TRUE(totales);
    EXPECT_EQ(totales->pagina, imp.paginas());
    EXPECT_DOUBLE_EQ(totales->y, H - 1835);
    EXPECT_DOUBLE_EQ(totales->x, 4000);
    EXPECT_TRUE(totales->negrita);
    EXPECT_EQ(Siguientes(imp, totales), QStringList({Std(total[0]), Std(total[1])}));
    for (const Trazo& t : imp.textos())
        if (t.y == totales->y && t.texto == Std(total[1])) {
            EXPECT_DOUBLE_EQ(t.x + t.ancho, W - 1000);
            EXPECT_TRUE(t.negrita);
        }
    int reglas = 0;
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Linea && t.pagina == imp.paginas() && t.y == H - 1985 && t.y2 == t.y) {
            ++reglas;
            EXPECT_TRUE(t.x2 == W - 2600 || t.x2 == W - 1000) << t.x2;
        }
    EXPECT_EQ(reglas, 2);
    EXPECT_TRUE(imp.buscar(QStringLiteral("Página nº %1").arg(imp.paginas())));
    EXPECT_DOUBLE_EQ(total[0], 150 * 151 / 2 * 1.25);
}

TEST(MotorLibro, CabeceraDeCadaPagina) {
    ImpresoraGrabadora imp;
    OpcionesLibro op = Opciones();
    DisenoLibro dis = Diseno(0, imp.AnchoPagina());
    dis.desde = QDate(2024, 1, 1);
    dis.hasta = QDate(2024, 6, 30);
    Imprimir(imp, Filas(80), op, dis);
    ASSERT_EQ(imp.paginas(), 2);
    for (int p = 1; p <= 2; ++p) {
        const QStringList t = imp.textosDePagina(p);
        ASSERT_GE(t.size(), 6);
        EXPECT_EQ(t.mid(0, 4),
                  QStringList({"LIBRO DE PRUEBA", "Pruebas SL", "Desde 01/01/2024 hasta 30/06/2024",
                               "Fecha: 15/01/2025"}));
        EXPECT_EQ(t.mid(4, 3), QStringList({"CONCEPTO", "DEBE", "HABER"}));
    }
    const Trazo* titulo = imp.buscar(QStringLiteral("LIBRO DE PRUEBA"));
    EXPECT_DOUBLE_EQ(titulo->y, 500);
    EXPECT_DOUBLE_EQ(titulo->tamano, 15);
    EXPECT_TRUE(titulo->negrita);
    const Trazo* empresa = imp.buscar(QStringLiteral("Pruebas SL"));
    EXPECT_DOUBLE_EQ(empresa->tamano, 12);
    EXPECT_TRUE(empresa->negrita);
    // The date stands at the right end of the rules; numeric headings are right-aligned.
    const Trazo* fecha = imp.buscar(QStringLiteral("Fecha: 15/01/2025"));
    EXPECT_DOUBLE_EQ(fecha->y, empresa->y);
    EXPECT_DOUBLE_EQ(fecha->x + fecha->ancho, imp.AnchoPagina() - 600);
    const Trazo* haber = imp.buscar(QStringLiteral("HABER"));
    EXPECT_DOUBLE_EQ(haber->x + haber->ancho, imp.AnchoPagina() - 1000);
    EXPECT_TRUE(haber->negrita);
    EXPECT_DOUBLE_EQ(haber->tamano, 9);
    // Rows are in the plain font.
    EXPECT_FALSE(imp.buscar(QStringLiteral("Fila 1"))->negrita);
    // A rule under the title, across.
    bool regla = false;
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Linea && t.pagina == 1 && t.y == t.y2 && t.y > titulo->y &&
            t.y < empresa->y && t.x2 == imp.AnchoPagina() - 600)
            regla = true;
    EXPECT_TRUE(regla);
}

TEST(MotorLibro, NumeroDeLaPrimeraPagina) {
    for (const auto& [inicial, primero] : {std::pair{0, 1}, {1, 1}, {7, 7}}) {
        ImpresoraGrabadora imp;
        Imprimir(imp, Filas(150), Opciones(567, inicial));
        QStringList numeros;
        for (const Trazo& t : imp.textos())
            if (t.texto.startsWith(QStringLiteral("Página nº ")))
                numeros << t.texto;
        ASSERT_EQ(numeros.size(), imp.paginas());
        for (int p = 0; p < numeros.size(); ++p)
            EXPECT_EQ(numeros.at(p), QStringLiteral("Página nº %1").arg(primero + p)) << inicial;
    }
    // Numbers past a thousand are grouped.
    ImpresoraGrabadora imp;
    Imprimir(imp, Filas(10), Opciones(567, 1234));
    EXPECT_TRUE(imp.buscar(QStringLiteral("Página nº 1.234")));
}

TEST(MotorLibro, ElMargenMueveElBordeYSoloPorEncimaDe600LasColumnas) {
    const struct {
        double margen, borde, concepto;
    } casos[] = {
        {0, 600, 2000}, {300, 300, 2000}, {567, 567, 2000}, {600, 600, 2000}, {1134, 1134, 2534}};
    for (const auto& c : casos) {
        ImpresoraGrabadora imp;
        Imprimir(imp, Filas(3), Opciones(c.margen));
        EXPECT_DOUBLE_EQ(imp.buscar(QStringLiteral("LIBRO DE PRUEBA"))->x, c.borde) << c.margen;
        EXPECT_DOUBLE_EQ(imp.buscar(QStringLiteral("Pruebas SL"))->x, c.borde) << c.margen;
        EXPECT_DOUBLE_EQ(imp.buscar(QStringLiteral("CONCEPTO"))->x, c.concepto) << c.margen;
        EXPECT_DOUBLE_EQ(imp.buscar(QStringLiteral("Fila 1"))->x, c.concepto) << c.margen;
        // Right-hand columns are measured from the page width and stay.
        const Trazo* haber = imp.buscar(QStringLiteral("HABER"));
        EXPECT_DOUBLE_EQ(haber->x + haber->ancho, imp.AnchoPagina() - 1000) << c.margen;
    }
    EXPECT_DOUBLE_EQ(Margen(0).L, 600);
    EXPECT_DOUBLE_EQ(Margen(0).d, 0);
    EXPECT_DOUBLE_EQ(Margen(599).d, 0);
    EXPECT_DOUBLE_EQ(Margen(700).d, 100);
}

TEST(MotorLibro, TextoCortadoYCeroEnBlanco) {
    ImpresoraGrabadora imp;
    const QString largo = QStringLiteral(
        "Fila con un concepto mucho más largo que su columna, que se corta y nunca se parte en "
        "dos líneas");
    Imprimir(imp, {Fila{largo, 0, 12.5}, Fila{QStringLiteral("Fila corta"), 3, 0}});
    const QList<Trazo> filas = FilasDePagina(imp, 1);
    ASSERT_EQ(filas.size(), 2);
    const Trazo& cortado = filas.at(0);
    EXPECT_TRUE(largo.startsWith(cortado.texto));
    EXPECT_LT(cortado.texto.size(), largo.size());
    EXPECT_LE(cortado.ancho, 3000 - 200);
    // The longest part that fits: one more character would not.
    imp.PonerFuente(QStringLiteral("Arial Narrow"));
    imp.PonerTamano(9);
    imp.PonerNegrita(false);
    EXPECT_GT(imp.AnchoTexto(largo.left(cortado.texto.size() + 1)), 3000 - 200);
    // A zero amount prints nothing: the first row has only its credit, the second its debit.
    QStringList enLinea1, enLinea2;
    for (const Trazo& t : imp.textos()) {
        if (t.y == filas.at(0).y)
            enLinea1 << t.texto;
        if (t.y == filas.at(1).y)
            enLinea2 << t.texto;
    }
    EXPECT_EQ(enLinea1, QStringList({cortado.texto, "12,50"}));
    EXPECT_EQ(enLinea2, QStringList({"Fila corta", "3,00"}));
    EXPECT_EQ(ImporteLibro(0.004), QString());
    EXPECT_EQ(ImporteLibro(-1234.5), QStringLiteral("-1.234,50"));
}

TEST(MotorLibro, LibroVacioNoImprimeNada) {
    ImpresoraGrabadora imp;
    const QList<double> sumas = Imprimir(imp, {});
    EXPECT_TRUE(imp.trazos().isEmpty()) << imp.volcado().toStdString();
    EXPECT_EQ(imp.paginas(), 0);
    EXPECT_EQ(sumas, (QList<double>{0, 0}));
}

TEST(MotorLibro, SumasDelDiarioEnLaPrimeraPaginaSoloSiHayAlgunaPositiva) {
    for (double inicial : {0.0, 500.0}) {
        ImpresoraGrabadora imp;
        DisenoLibro dis = Diseno(0, imp.AnchoPagina());
        dis.arrastreSiPositivas = true;
        Imprimir(imp, Filas(3), Opciones(), dis, {inicial, inicial});
        const Trazo* t = imp.buscar(QStringLiteral("Sumas anteriores . . ."));
        EXPECT_EQ(t != nullptr, inicial > 0);
        if (t) {
            EXPECT_EQ(t->pagina, 1);
            EXPECT_EQ(Siguientes(imp, t), QStringList({"500,00", "500,00"}));
        }
    }
}

TEST(MotorLibro, UltimaFilaQueCierraPaginaDejaElPieEnUnaPaginaConCabecera) {
    // As many rows as fill exactly the first page.
    ImpresoraGrabadora medida;
    Imprimir(medida, Filas(150));
    const int porPagina = int(FilasDePagina(medida, 1).size());
    ImpresoraGrabadora imp;
    Imprimir(imp, Filas(porPagina));
    ASSERT_EQ(imp.paginas(), 2) << imp.volcado().toStdString();
    EXPECT_TRUE(imp.buscar(QStringLiteral("Suma y sigue . . .")));
    const QStringList segunda = imp.textosDePagina(2);
    EXPECT_EQ(segunda.first(), QStringLiteral("LIBRO DE PRUEBA"));
    EXPECT_TRUE(segunda.contains(QStringLiteral("Totales . . . . . . . . . . . .")));
    EXPECT_TRUE(segunda.contains(QStringLiteral("Página nº 2")));
}

TEST(MotorLibro, LibroSinSumasSoloNumeraLasPaginas) {
    // The whole ledger: page end at H - 1600, page number at H - 1200, no sums at all.
    ImpresoraGrabadora imp;
    DisenoLibro dis = Diseno(0, imp.AnchoPagina());
    dis.sumas = false;
    dis.finPagina = 1600;
    dis.regla.reset();
    dis.totales = 1200;
    dis.bajadaFila = 20;
    Imprimir(imp, Filas(150), Opciones(), dis);
    ASSERT_GE(imp.paginas(), 2);
    for (const Trazo& t : imp.textos()) {
        EXPECT_FALSE(t.texto.startsWith(QLatin1String("Suma"))) << t.texto.toStdString();
        EXPECT_FALSE(t.texto.startsWith(QLatin1String("Totales")));
        if (t.texto.startsWith(QStringLiteral("Página nº "))) {
            EXPECT_DOUBLE_EQ(t.y, imp.AltoPagina() - 1200);
        }
    }
    for (int p = 1; p <= imp.paginas(); ++p)
        EXPECT_TRUE(imp.buscar(QStringLiteral("Página nº %1").arg(p))) << p;
    const QList<Trazo> filas = FilasDePagina(imp, 1);
    EXPECT_DOUBLE_EQ(filas.at(1).y - filas.at(0).y, [&] {
        imp.PonerFuente(QStringLiteral("Arial Narrow"));
        imp.PonerTamano(9);
        imp.PonerNegrita(false);
        return imp.AltoLinea() + 20;
    }());
    EXPECT_GE(filas.last().y + filas.at(1).y - filas.at(0).y, imp.AltoPagina() - 1600);
}

TEST(MotorLibro, VariasLineasDeCierre) {
    // The movements of a subaccount close with two lines of their own figures.
    ImpresoraGrabadora imp;
    DisenoLibro dis = Diseno(0, imp.AnchoPagina());
    dis.finPagina = 2200;
    dis.regla = 2085;
    dis.totales = 1985;
    QList<double> sumas{0, 0};
    ImpresionLibro p(imp, dis, Opciones(), sumas);
    p.Empezar();
    p.Fila({QStringLiteral("Fila 1"), QStringLiteral("1,00"), QString()});
    p.Terminar({{QStringLiteral("Periodo . . . . . . . . . . . . . ."), {1, 0}},
                {QStringLiteral("Acumulado . . . . . . . . . . ."), {101, 50}}});
    const Trazo* periodo = imp.buscar(QStringLiteral("Periodo . . . . . . . . . . . . . ."));
    const Trazo* acumulado = imp.buscar(QStringLiteral("Acumulado . . . . . . . . . . ."));
    ASSERT_TRUE(periodo && acumulado);
    EXPECT_DOUBLE_EQ(periodo->y, imp.AltoPagina() - 1985);
    EXPECT_GT(acumulado->y, periodo->y);
    EXPECT_EQ(Siguientes(imp, periodo), QStringList({"1,00", "0,00"}));
    EXPECT_EQ(Siguientes(imp, acumulado), QStringList({"101,00", "50,00"}));
    EXPECT_EQ(imp.buscar(QStringLiteral("Totales . . . . . . . . . . . .")), nullptr);
}

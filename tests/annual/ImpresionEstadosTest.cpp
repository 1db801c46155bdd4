// The printed statements on the recording surface: where each column stands, bold rows, the
// page ends with only the page number, the second list on a page of its own, the typed notes and
// the previous year's column as the print options say.
#include "annual/ImpresionEstados.h"
#include "annual/Estados.h"
#include "platform/ImpresoraGrabadora.h"
#include "reports/OpcionesLibro.h"
#include "store/Formato.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

namespace {

SaldoEstado S(const QString& plan, double debe, double haber, int serie = 1,
              const QString& nombre = {}) {
    const QString n =
        QStringLiteral("1") + plan + QStringLiteral("%1").arg(serie, 5, 10, QChar(u'0'));
    return {n, nombre.isEmpty() ? QStringLiteral("Cuenta ") + n : nombre, debe, haber};
}

DatosEjercicio Datos(const QList<SaldoEstado>& saldos) {
    DatosEjercicio d;
    d.saldos = saldos;
    for (const SaldoEstado& s : saldos)
        if (s.NCuenta.mid(1, 1) == u"6" || s.NCuenta.mid(1, 1) == u"7")
            d.resultado += s.SaldoH - s.SaldoD;
    return d;
}

OpcionesLibro Opciones(double margenMm, bool anoAnterior) {
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = MilimetrosATwips(margenMm);
    op.fuente = QStringLiteral("Arial Narrow");
    op.tamano = 9;
    op.fechaTrabajo = QDate(2027, 3, 31);
    op.anoAnterior = anoAnterior;
    return op;
}

// The right edge of a right-aligned figure.
double Derecha(const Trazo& t) {
    return t.x + t.ancho;
}

// Whether a vertical rule of the page runs through a written text.
bool Tachado(const ImpresoraGrabadora& imp, const Trazo& texto) {
    for (const Trazo& l : imp.trazos())
        if (l.tipo == Trazo::Linea && l.pagina == texto.pagina && l.x == l.x2 && l.x > texto.x &&
            l.x < texto.x + texto.ancho && qMin(l.y, l.y2) <= texto.y + 50 &&
            qMax(l.y, l.y2) >= texto.y + 50)
            return true;
    return false;
}

// The writes of a page on one line, left to right.
QList<Trazo> EnLinea(const ImpresoraGrabadora& imp, int pagina, double y) {
    QList<Trazo> r;
    for (const Trazo& t : imp.textos())
        if (t.pagina == pagina && t.y == y)
            r << t;
    std::sort(r.begin(), r.end(), [](const Trazo& a, const Trazo& b) { return a.x < b.x; });
    return r;
}

} // namespace

TEST(ImpresionEstados, OldBalanceSheetPositionsPagesAndBoldRows) {
    // 130 cash subaccounts fill the assets over several pages; the capital alone stands against.
    QList<SaldoEstado> saldos;
    for (int i = 1; i <= 130; ++i)
        saldos << S("572", 10 * i, 0, i);
    saldos << S("100", 0, 10 * 130 * 131 / 2);
    const EstadoCuentas e = LlenarEstado(Modelo::Form81, 2007, Datos(saldos),
                                         Datos({S("572", 4, 0), S("100", 0, 4)}), false);
    ASSERT_TRUE(e.comparacion);
    ImpresoraGrabadora imp;
    const double W = imp.AnchoPagina(), H = imp.AltoPagina();
    // A 30 mm margin: L = 1701, and the columns shift by d = 1101 (a sixth or a half of it).
    const OpcionesLibro op = Opciones(30, false);
    const double L = 1701, d = 1101;
    DibujarEstado(imp, e, QStringLiteral("Antigua SL"), QDate(2007, 1, 1), QDate(2007, 12, 31), op);
    ASSERT_EQ(imp.documentosTerminados(), 1) << imp.volcado().toStdString();

    EXPECT_EQ(imp.textosDePagina(1).first(), "BALANCE DE SITUACION");
    const Trazo* ejercicio =
        imp.buscar(QStringLiteral("Ejercicio 2007 : desde %1 hasta %2")
                       .arg(FormatoFecha(QDate(2007, 1, 1), QStringLiteral("short date")),
                            FormatoFecha(QDate(2007, 12, 31), QStringLiteral("short date"))));
    ASSERT_TRUE(ejercicio);
    const Trazo* activo = imp.buscar("ACTIVO");
    ASSERT_TRUE(activo);
    EXPECT_EQ(activo->pagina, 1);
    EXPECT_DOUBLE_EQ(activo->x, L);
    // The level columns are indents under one heading: no rule of the heading box crosses it.
    EXPECT_FALSE(Tachado(imp, *activo));

    const Trazo* nivel1 = imp.buscar("D) Activo circulante");
    const Trazo* nivel2 = imp.buscar("VI. Tesorería");
    const Trazo* subcuenta = imp.buscar("Cuenta 157200001");
    const Trazo* total = imp.buscar(e.lista1.Celda(e.lista1.Filas() - 1, ColEstNivel1));
    ASSERT_TRUE(nivel1 && nivel2 && subcuenta && total);
    EXPECT_DOUBLE_EQ(nivel1->x, L);
    EXPECT_DOUBLE_EQ(nivel2->x, 900 + d / 6);
    EXPECT_DOUBLE_EQ(subcuenta->x, 1500 + d / 2);
    EXPECT_TRUE(nivel1->negrita);
    EXPECT_FALSE(nivel2->negrita);
    EXPECT_FALSE(subcuenta->negrita);
    EXPECT_TRUE(total->negrita);
    // The year's figure ends at W - 2800 + d/6; without "Imprimir Año N-1" the previous year,
    // though known, is not printed: neither its heading nor its 4,00.
    const Trazo* importe = imp.buscar("10,00");
    ASSERT_TRUE(importe);
    EXPECT_EQ(importe->y, subcuenta->y);
    EXPECT_NEAR(Derecha(*importe), W - 2800 + d / 6, 0.01);
    EXPECT_FALSE(imp.buscar("Ejercicio 2006"));
    EXPECT_FALSE(imp.buscar("4,00"));

    // The liabilities start a page of their own with the whole head.
    const Trazo* pasivo = imp.buscar("PASIVO");
    const Trazo* capital = imp.buscar("Cuenta 110000001");
    ASSERT_TRUE(pasivo && capital);
    const int paginas = imp.paginas();
    EXPECT_GE(paginas, 4);
    EXPECT_EQ(pasivo->pagina, paginas);
    EXPECT_GT(pasivo->pagina, total->pagina);
    EXPECT_EQ(imp.textosDePagina(pasivo->pagina).first(), "BALANCE DE SITUACION");

    // Every page ends by H - 1800 with its number at H - 1550, and no running sums anywhere.
    for (int p = 1; p <= paginas; ++p) {
        SCOPED_TRACE(p);
        const Trazo* numero = imp.buscar(QStringLiteral("Página nº %1").arg(p));
        ASSERT_TRUE(numero);
        EXPECT_EQ(numero->pagina, p);
        EXPECT_DOUBLE_EQ(numero->x, 600);
        EXPECT_DOUBLE_EQ(numero->y, H - 1550);
    }
    for (const Trazo& t : imp.textos()) {
        if (!t.texto.startsWith(QStringLiteral("Página nº "))) {
            EXPECT_LT(t.y, H - 1800) << t.texto.toStdString();
        }
    }
    EXPECT_FALSE(imp.buscar("Suma y sigue . . ."));
    EXPECT_FALSE(imp.buscar("Totales . . . . . . . . . . . ."));
}

TEST(ImpresionEstados, PymesNotesCutsAndThePreviousYearColumn) {
    const QString largo =
        QStringLiteral("IV) Inversiones en empresas del grupo y asociadas a largo "
                       "plazo");
    const EstadoCuentas base = LlenarEstado(
        Modelo::Form105, 2026,
        Datos({S("572", 1234567.89, 0), S("240", 300, 0, 30001, QStringLiteral("Acciones grupo")),
               S("100", 0, 1234867.89)}),
        Datos({S("572", 98.76, 0), S("100", 0, 98.76)}), true);
    EstadoCuentas e = base;
    // Notes as the window keeps them once typed: a short one, and one as long as a note may be.
    const int efectivo = BuscarFila(e.lista1, "VI. Efectivo y otros activos líquidos equivalentes");
    const int cuentaCaja = efectivo + 1;
    ASSERT_GE(efectivo, 0);
    e.lista1.PonerCelda(efectivo, ColNotas(e.modelo), QStringLiteral("7"));
    e.lista1.PonerCelda(cuentaCaja, ColNotas(e.modelo), QStringLiteral("123456789012345"));
    e.lista2.PonerCelda(0, ColNotas(e.modelo), QStringLiteral("9.1"));

    ImpresoraGrabadora imp;
    const double W = imp.AnchoPagina();
    DibujarEstado(imp, e, QStringLiteral("De Pruebas"), QDate(2026, 1, 1), QDate(2026, 12, 31),
                  Opciones(10, true));
    EXPECT_EQ(imp.textosDePagina(1).first(), "BALANCE DE PYMES AL CIERRE DEL EJERCICIO 2026");
    ASSERT_TRUE(imp.buscar("PATRIMONIO NETO Y PASIVO"));

    // The notes heading and the figures' headings stand apart.
    const Trazo* notas = imp.buscar("Notas Mem.");
    ASSERT_TRUE(notas) << imp.volcado().toStdString();
    EXPECT_DOUBLE_EQ(notas->x, W - 4200);
    const QList<Trazo> cabeceras = EnLinea(imp, 1, notas->y);
    ASSERT_EQ(cabeceras.size(), 4) << imp.volcado().toStdString();
    EXPECT_EQ(cabeceras.at(0).texto, "ACTIVO");
    EXPECT_EQ(cabeceras.at(1).texto, "Notas Mem.");
    const Trazo cabecera1 = cabeceras.at(2), cabecera2 = cabeceras.at(3);
    EXPECT_TRUE(cabecera1.texto.endsWith("2026"));
    EXPECT_TRUE(cabecera2.texto.endsWith("2025"));
    EXPECT_LT(notas->x + notas->ancho, cabecera1.x);
    for (const Trazo& t : cabeceras)
        EXPECT_FALSE(Tachado(imp, t)) << t.texto.toStdString();
    EXPECT_NEAR(Derecha(cabecera1), W - 2600, 0.01);
    EXPECT_NEAR(Derecha(cabecera2), W - 1000, 0.01);

    // A note stands on its line at W - 4200; a long one is cut short of the figure beside it.
    const Trazo* rotulo = imp.buscar("VI. Efectivo y otros activos líquidos equivalentes");
    ASSERT_TRUE(rotulo);
    EXPECT_DOUBLE_EQ(rotulo->x, 1100);
    const QList<Trazo> lineaEfectivo = EnLinea(imp, rotulo->pagina, rotulo->y);
    ASSERT_EQ(lineaEfectivo.size(), 4);
    EXPECT_EQ(lineaEfectivo.at(1).texto, "7");
    EXPECT_DOUBLE_EQ(lineaEfectivo.at(1).x, W - 4200);
    const Trazo* caja = imp.buscar("Cuenta 157200001");
    ASSERT_TRUE(caja);
    const QList<Trazo> lineaCaja = EnLinea(imp, caja->pagina, caja->y);
    ASSERT_EQ(lineaCaja.size(), 4);
    const Trazo nota = lineaCaja.at(1), importe = lineaCaja.at(2);
    EXPECT_EQ(importe.texto, "1.234.567,89");
    EXPECT_DOUBLE_EQ(nota.x, W - 4200);
    EXPECT_TRUE(QStringLiteral("123456789012345").startsWith(nota.texto));
    EXPECT_LT(nota.texto.size(), 15);
    EXPECT_LT(nota.x + nota.ancho, importe.x);
    EXPECT_TRUE(imp.buscar("9.1"));

    // The previous year's figures at W - 1000.
    const Trazo* anterior = imp.buscar("98,76");
    ASSERT_TRUE(anterior);
    EXPECT_NEAR(Derecha(*anterior), W - 1000, 0.01);

    // Without "Imprimir Año N-1" neither the previous year's heading nor its figures. With a
    // wide margin the columns of the labels move right and a long label is cut before the notes.
    ImpresoraGrabadora sin;
    DibujarEstado(sin, base, QStringLiteral("De Pruebas"), QDate(2026, 1, 1), QDate(2026, 12, 31),
                  Opciones(60, false));
    EXPECT_FALSE(sin.buscar("98,76"));
    EXPECT_FALSE(sin.buscar(cabecera2.texto));
    EXPECT_TRUE(sin.buscar(cabecera1.texto));
    std::optional<Trazo> cortado;
    for (const Trazo& t : sin.textos())
        if (t.texto.startsWith(QStringLiteral("IV) Inversiones en empresas del grupo")))
            cortado = t;
    ASSERT_TRUE(cortado);
    EXPECT_LT(cortado->texto.size(), largo.size());
    EXPECT_DOUBLE_EQ(cortado->x, 1100 + MilimetrosATwips(60) - 600);
    EXPECT_LE(cortado->x + cortado->ancho, W - 4200 - 200);
}

TEST(ImpresionEstados, ProfitAndLossTitlesAndSides) {
    const DatosEjercicio d = Datos({S("700", 0, 500), S("629", 120, 0), S("572", 380, 0)});
    // The old account: the debit side, then the credit side on a new page.
    const EstadoCuentas viejo = LlenarEstado(Modelo::Form82, 2007, d, {}, true);
    ImpresoraGrabadora imp;
    DibujarEstado(imp, viejo, QStringLiteral("Antigua SL"), QDate(2007, 1, 1), QDate(2007, 12, 31),
                  Opciones(10, false));
    EXPECT_EQ(imp.textosDePagina(1).first(), "CUENTA DE PERDIDAS Y GANANCIAS");
    const Trazo* debe = imp.buscar("DEBE");
    const Trazo* haber = imp.buscar("HABER");
    const Trazo* servicios = imp.buscar("a) Servicios exteriores");
    ASSERT_TRUE(debe && haber && servicios);
    EXPECT_EQ(debe->pagina, 1);
    EXPECT_EQ(haber->pagina, 2);
    EXPECT_DOUBLE_EQ(servicios->x, 1200);
    EXPECT_FALSE(imp.buscar("Notas Mem."));

    // The PYMES account: one list, closing with the date the exercise ends.
    const EstadoCuentas pymes = LlenarEstado(Modelo::Form106, 2026, d, {}, false);
    ImpresoraGrabadora p;
    DibujarEstado(p, pymes, QStringLiteral("De Pruebas"), QDate(2026, 1, 1), QDate(2026, 12, 31),
                  Opciones(10, false));
    EXPECT_EQ(p.textosDePagina(1).first(), "Cuenta de Pérdidas y Ganancias de PYMES");
    EXPECT_TRUE(p.buscar(QStringLiteral("Correspondiente al ejercicio terminado en ") +
                         FormatoFecha(QDate(2026, 12, 31), QStringLiteral("short date"))));
    EXPECT_EQ(p.paginas(), 1);
    const Trazo* resultado = p.buscar("D) RESULTADO DEL EJERCICIO (C+17)");
    ASSERT_TRUE(resultado);
    EXPECT_TRUE(resultado->negrita);
    EXPECT_TRUE(p.buscar("380,00"));
}

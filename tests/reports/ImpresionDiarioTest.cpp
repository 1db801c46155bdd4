// The printed journal on the recording surface: the official layout's columns with and without
// document, page ends with the running sums, copies whose sums run on, initial sums, and the
// draft's blocks with their totals and VAT lines.

#include "reports/ImpresionDiario.h"
#include "ComunLibros.h"
#include "platform/ImpresoraGrabadora.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

// n entries of two lines, amounts 1, 2, 3...
void Asientos(Entorno& e, int n) {
    Conexion c = e.datos();
    Transaccion t(c);
    for (int i = 1; i <= n; ++i)
        EscribirAsiento(c, e.sesion, QDate(2024, 1, 1).addDays(i % 300),
                        {Debe(Caja, i, QStringLiteral("Cobro %1").arg(i)),
                         Haber(Ventas, i, QStringLiteral("Cobro %1").arg(i))});
    t.confirmar();
}

const Trazo* Buscar(const ImpresoraGrabadora& imp, const QString& texto, int documento = 1,
                    int pagina = 0) {
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Texto && t.texto == texto && t.documento == documento &&
            (pagina == 0 || t.pagina == pagina))
            return &t;
    return nullptr;
}

} // namespace

TEST(ImpresionDiario, ModeloOficialColumnasSinYConDocumento) {
    Entorno e;
    e.crearEmpresa();
    const QString largo = QStringLiteral("Concepto de cuarenta letras para cortar!");
    Apunte d = Debe(Caja, 1234.5, largo);
    d.Documento = QStringLiteral("DOC-1");
    e.asiento(QDate(2024, 3, 4), {d, Haber(Banco, 1234.5, largo)});
    for (double margen : {567.0, 1134.0}) {
        const double dd = Margen(margen).d;
        for (bool conDocumento : {false, true}) {
            OpcionesLibro op = Opciones(margen);
            op.conDocumento = conDocumento;
            ImpresionDiario diario(e.sesion, Todo(e), op);
            ImpresoraGrabadora imp;
            diario.Dibujar(imp, 1);
            const double W = imp.AnchoPagina();
            const auto col = [&](double sin, double con) {
                return conDocumento ? con : sin;
            };

            EXPECT_EQ(imp.textosDePagina(1).first(), "LIBRO DIARIO");
            EXPECT_EQ(Buscar(imp, "Pruebas SL") != nullptr, true);
            const Trazo* nas = Buscar(imp, "Nº As.");
            ASSERT_TRUE(nas);
            EXPECT_DOUBLE_EQ(Derecha(nas), col(1400, 1200) + dd);
            EXPECT_DOUBLE_EQ(Buscar(imp, "FECHA")->x, col(1650, 1450) + dd);
            EXPECT_DOUBLE_EQ(Buscar(imp, "CUENTA")->x, col(2700, 3700) + dd);
            EXPECT_DOUBLE_EQ(Buscar(imp, "CONCEPTO")->x, col(5390, 6090) + dd / 2);
            EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "DEBE")), W - col(2600, 2200));
            EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "HABER")), W - col(1000, 800));
            const Trazo* docum = Buscar(imp, "DOCUM.");
            EXPECT_EQ(docum != nullptr, conDocumento);
            if (docum) {
                EXPECT_DOUBLE_EQ(docum->x, 2500 + dd);
            }

            // The first row: number, date, subaccount, concept cut, debit; credit blank.
            const Trazo* fecha = Buscar(imp, "04/03/2024");
            ASSERT_TRUE(fecha);
            const QStringList fila = Linea(imp, fecha);
            ASSERT_EQ(fila.size(), 5) << fila.join('|').toStdString();
            EXPECT_EQ(QStringList({fila.at(0), fila.at(2), fila.at(4)}),
                      QStringList({"1", "Caja", "1.234,50"}));
            // The column for handwriting stays empty: DOC-1 is not printed.
            EXPECT_FALSE(Buscar(imp, "DOC-1"));
            const QString cortado = fila.at(3);
            EXPECT_TRUE(largo.startsWith(cortado));
            EXPECT_LT(cortado.size(), largo.size());
            const Trazo* concepto = Buscar(imp, cortado);
            const double ancho =
                (W - col(2600, 2200) - col(1400, 1200)) - (col(5390, 6090) + dd / 2);
            EXPECT_LE(concepto->ancho, ancho - 200);
            EXPECT_DOUBLE_EQ(concepto->x, col(5390, 6090) + dd / 2);
            EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "1.234,50")), W - col(2600, 2200));
            EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "1")), col(1400, 1200) + dd);
        }
    }
}

TEST(ImpresionDiario, PaginasYSumasQueSiguenEnLaSegundaCopia) {
    Entorno e;
    e.crearEmpresa();
    Asientos(e, 70); // 140 lines: more than two pages
    const double total = 70 * 71 / 2;
    ImpresionDiario diario(e.sesion, Todo(e), Opciones());
    ImpresoraGrabadora imp;
    diario.Dibujar(imp, 1);
    diario.Dibujar(imp, 2);
    const int paginas = imp.paginas(1);
    ASSERT_GE(paginas, 3);
    EXPECT_EQ(imp.paginas(2), paginas); // copies differ only in their sums

    // Page 1 of copy 1 ends with the sums of its own rows.
    const Trazo* sigue = Buscar(imp, "Suma y sigue . . .", 1, 1);
    ASSERT_TRUE(sigue);
    const double W = imp.AnchoPagina();
    double debe = 0, haber = 0;
    for (const Trazo& t : imp.textos())
        if (t.documento == 1 && t.pagina == 1 && t.y < sigue->y && t.y > Buscar(imp, "DEBE")->y) {
            if (Derecha(&t) == W - 2600)
                debe += ValorImporte(t.texto);
            if (Derecha(&t) == W - 1000)
                haber += ValorImporte(t.texto);
        }
    EXPECT_GT(debe, 0);
    const QStringList sumas1 = Linea(imp, sigue);
    // A page may end inside an entry: the two sums need not agree.
    EXPECT_EQ(sumas1.mid(1), QStringList({Std(debe), Std(haber)}));
    EXPECT_EQ(Linea(imp, Buscar(imp, "Sumas anteriores . . .", 1, 2)).mid(1), sumas1.mid(1));
    EXPECT_FALSE(Buscar(imp, "Sumas anteriores . . .", 1, 1));

    // The totals of copy 1, then copy 2 starting from them: its first page carries them and its
    // totals are twice the book.
    const Trazo* totales1 = Buscar(imp, "Totales . . . . . . . . . . . .", 1);
    ASSERT_TRUE(totales1);
    EXPECT_EQ(Linea(imp, totales1).mid(1), QStringList({Std(total), Std(total)}));
    const Trazo* anteriores2 = Buscar(imp, "Sumas anteriores . . .", 2, 1);
    ASSERT_TRUE(anteriores2);
    EXPECT_EQ(Linea(imp, anteriores2).mid(1), QStringList({Std(total), Std(total)}));
    const Trazo* totales2 = Buscar(imp, "Totales . . . . . . . . . . . .", 2);
    ASSERT_TRUE(totales2);
    EXPECT_EQ(Linea(imp, totales2).mid(1), QStringList({Std(2 * total), Std(2 * total)}));
    EXPECT_DOUBLE_EQ(diario.SumaDebe(), 2 * total);
    EXPECT_TRUE(Buscar(imp, "Página nº 1", 2)); // numbering starts again in each copy

    // A preview draws copy 1 again, then the printer copy 2 alone: the same sums.
    ImpresoraGrabadora vista, papel;
    diario.Dibujar(vista, 1);
    EXPECT_EQ(Linea(vista, Buscar(vista, "Totales . . . . . . . . . . . .")).mid(1),
              QStringList({Std(total), Std(total)}));
    ImpresionDiario otro(e.sesion, Todo(e), Opciones());
    otro.Dibujar(papel, 2);
    EXPECT_EQ(Linea(papel, Buscar(papel, "Totales . . . . . . . . . . . .")).mid(1),
              QStringList({Std(2 * total), Std(2 * total)}));
    EXPECT_EQ(papel.documentosTerminados(), 1);
}

TEST(ImpresionDiario, SumasInicialesEnLaPrimeraPaginaYFechasDeLaSeleccion) {
    Entorno e;
    e.crearEmpresa();
    Asientos(e, 3);
    OpcionesLibro op = Opciones();
    op.sumaDebe = 1000;
    op.sumaHaber = 1000.5;
    SeleccionDiario sel = Todo(e);
    sel.porFechas = true;
    sel.desde = QDate(2024, 1, 1);
    sel.hasta = QDate(2024, 1, 31);
    ImpresionDiario diario(e.sesion, sel, op);
    ImpresoraGrabadora imp;
    diario.Dibujar(imp, 1);
    const Trazo* anteriores = Buscar(imp, "Sumas anteriores . . .");
    ASSERT_TRUE(anteriores);
    EXPECT_EQ(anteriores->pagina, 1);
    EXPECT_EQ(Linea(imp, anteriores).mid(1), QStringList({"1.000,00", "1.000,50"}));
    EXPECT_EQ(Linea(imp, Buscar(imp, "Totales . . . . . . . . . . . .")).mid(1),
              QStringList({"1.006,00", "1.006,50"}));
    EXPECT_TRUE(Buscar(imp, "Desde 01/01/2024 hasta 31/01/2024"));
    EXPECT_TRUE(Buscar(imp, "Fecha: 15/01/2025"));

    // By numbers there is no dates line; an empty selection prints nothing at all.
    SeleccionDiario nada = Todo(e);
    nada.desdeAsiento = 50;
    nada.hastaAsiento = 60;
    ImpresionDiario vacio(e.sesion, nada, op);
    ImpresoraGrabadora otra;
    vacio.Dibujar(otra, 1);
    vacio.Dibujar(otra, 2);
    EXPECT_TRUE(otra.trazos().isEmpty());
    OpcionesLibro borrador = op;
    borrador.borrador = true;
    ImpresionDiario vacioBorrador(e.sesion, nada, borrador);
    vacioBorrador.Dibujar(otra, 1);
    EXPECT_TRUE(otra.trazos().isEmpty());
    ImpresionDiario porNumeros(e.sesion, Todo(e), Opciones());
    ImpresoraGrabadora n;
    porNumeros.Dibujar(n, 1);
    for (const Trazo& t : n.textos())
        EXPECT_FALSE(t.texto.startsWith("Desde"));
}

TEST(ImpresionDiario, BorradorConBloquesTotalesYLineaDeIva) {
    Entorno e;
    e.crearEmpresa();
    Apunte compra = Debe(Compras, 1000, QStringLiteral("Compra de género"));
    compra.Sector = QStringLiteral("Tienda");
    compra.Documento = QStringLiteral("F-77");
    Apunte iva = Debe(IvaSop, 210, QStringLiteral("Compra de género"));
    iva.Iva = DatosIvaApunte{Proveedor, " F-77 ", 1000, 21, 210};
    iva.Sector = compra.Sector;
    e.asiento(QDate(2024, 2, 1), {compra, iva, Haber(Proveedor, 1210, "Compra de género")});
    e.asiento(QDate(2024, 2, 2), {Debe(Caja, 55.5, "Entrada de caja")}); // one line
    Apunte rep = Haber(IvaRep, 42, QStringLiteral("Venta"));
    rep.Iva = DatosIvaApunte{Clientes, {}, 200, 0, 42};
    e.asiento(QDate(2024, 2, 3), {Debe(Clientes, 242, "Venta"), Haber(Ventas, 200, "Venta"), rep});
    {
        // A VAT record without base: no bracket line.
        Conexion c = e.datos();
        c.ejecutar("UPDATE DatosIVA SET Base = NULL WHERE NCuenta = ?", {Clientes});
    }
    OpcionesLibro op = Opciones();
    op.borrador = true;
    ImpresionDiario diario(e.sesion, Todo(e), op);
    ImpresoraGrabadora imp;
    diario.Dibujar(imp, 1);
    const double W = imp.AnchoPagina(), L = 567;
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();

    EXPECT_DOUBLE_EQ(Buscar(imp, "FECHA")->x, L);
    EXPECT_DOUBLE_EQ(Buscar(imp, "SUBCUENTA")->x, 1500);
    EXPECT_DOUBLE_EQ(Buscar(imp, "CONCEPTO")->x, 4600);
    EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "DEBE")), W - 2500);
    EXPECT_DOUBLE_EQ(Derecha(Buscar(imp, "HABER")), W - 1000);

    // Block heads, bold, at the left edge; the sector when the line has one.
    const Trazo* cabeza1 = Buscar(imp, "Asiento nº 1   Sector: Tienda");
    ASSERT_TRUE(cabeza1);
    EXPECT_TRUE(cabeza1->negrita);
    EXPECT_DOUBLE_EQ(cabeza1->x, L);
    EXPECT_TRUE(Buscar(imp, "Asiento nº 2"));
    EXPECT_TRUE(Buscar(imp, "Asiento nº 3"));

    // Every entry closes with its total, a one-line entry too, and the separating row.
    QList<QStringList> totales;
    for (const Trazo& t : imp.textos())
        if (t.texto == TextoTotalAsiento) {
            EXPECT_TRUE(t.negrita);
            EXPECT_DOUBLE_EQ(t.x, 4600);
            totales << Linea(imp, &t).mid(1);
        }
    EXPECT_EQ(totales, (QList<QStringList>{
                           {"1.210,00", "1.210,00"}, {"55,50", "0,00"}, {"242,00", "242,00"}}));
    int separadores = 0;
    for (const Trazo& t : imp.textos())
        if (t.texto == SeparadorAsientos) {
            ++separadores;
            EXPECT_NEAR(t.x + t.ancho / 2, W / 2, 0.01);
        }
    EXPECT_EQ(separadores, 3);

    // The VAT line under the 472 line, at the concept column, one point smaller; the 477 line
    // whose base is null has none.
    const QString textoIva =
        "[Base Iva: 1.000,00;  Cuota: 210,00;  Cli/Pro.: Proveedores varios;  Fra.: F-77]";
    EXPECT_EQ(LineaIvaBorrador(1000, 210, " Proveedores varios ", "F-77"), textoIva);
    const Trazo* lineaIva = Buscar(imp, textoIva);
    ASSERT_TRUE(lineaIva) << imp.volcado().toStdString();
    EXPECT_DOUBLE_EQ(lineaIva->x, 4600);
    EXPECT_DOUBLE_EQ(lineaIva->tamano, 8);
    const Trazo* lineaCuota = Buscar(imp, "210,00");
    EXPECT_LT(lineaCuota->y, lineaIva->y);
    int corchetes = 0;
    for (const Trazo& t : imp.textos())
        corchetes += t.texto.startsWith("[Base Iva: ");
    EXPECT_EQ(corchetes, 1);

    // The order on the page: head, lines, VAT line, total, separator, next head.
    QStringList orden;
    for (const QString& t : imp.textosDePagina(1))
        if (t.startsWith("Asiento nº") || t == TextoTotalAsiento || t == SeparadorAsientos ||
            t.startsWith("[Base") || t == "Compras de mercaderías")
            orden << t;
    EXPECT_EQ(orden, QStringList({"Asiento nº 1   Sector: Tienda", "Compras de mercaderías",
                                  textoIva, TextoTotalAsiento, SeparadorAsientos, "Asiento nº 2",
                                  TextoTotalAsiento, SeparadorAsientos, "Asiento nº 3",
                                  TextoTotalAsiento, SeparadorAsientos}));

    // The foot: a rule across at H - 2150, the totals of the running sums.
    bool regla = false;
    for (const Trazo& t : imp.trazos())
        if (t.tipo == Trazo::Linea && t.y == imp.AltoPagina() - 2150 && t.y2 == t.y && t.x == L)
            regla = true;
    EXPECT_TRUE(regla);
    EXPECT_EQ(Linea(imp, Buscar(imp, "Totales . . . . . . . . . . . .")).mid(1),
              QStringList({"1.507,50", "1.452,00"}));
}

TEST(ImpresionDiario, BorradorConDocumentoYPaginas) {
    Entorno e;
    e.crearEmpresa();
    {
        Conexion c = e.datos();
        Transaccion t(c);
        for (int i = 1; i <= 60; ++i) {
            Apunte a = Debe(Caja, i, "Cobro");
            a.Documento = QStringLiteral("R-%1").arg(i);
            EscribirAsiento(c, e.sesion, QDate(2024, 4, 1), {a, Haber(Ventas, i, "Cobro")});
        }
        t.confirmar();
    }
    OpcionesLibro op = Opciones(1134);
    op.borrador = true;
    op.conDocumento = true;
    ImpresionDiario diario(e.sesion, Todo(e), op);
    ImpresoraGrabadora imp;
    diario.Dibujar(imp, 1);
    const double d = 534, L = 1134;
    ASSERT_GE(imp.paginas(), 2);
    EXPECT_DOUBLE_EQ(Buscar(imp, "DOCUM.")->x, L);
    EXPECT_DOUBLE_EQ(Buscar(imp, "FECHA")->x, 1800 + d);
    EXPECT_DOUBLE_EQ(Buscar(imp, "SUBCUENTA")->x, 2550 + d);
    EXPECT_DOUBLE_EQ(Buscar(imp, "CONCEPTO")->x, 5300 + d / 2);
    const Trazo* doc = Buscar(imp, "R-7");
    ASSERT_TRUE(doc);
    EXPECT_DOUBLE_EQ(doc->x, L);
    EXPECT_EQ(Linea(imp, doc), QStringList({"R-7", "01/04/2024", "Caja", "Cobro", "7,00"}));
    // Page ends carry the running sums; every page ends by the rows, none after H - 2150 + a line.
    const Trazo* sigue = Buscar(imp, "Suma y sigue . . .", 1, 1);
    ASSERT_TRUE(sigue);
    const QStringList s = Linea(imp, sigue);
    EXPECT_EQ(Linea(imp, Buscar(imp, "Sumas anteriores . . .", 1, 2)).mid(1), s.mid(1));
    // The test comes after each line and after each entry's close, so no more than a close or
    // a head and its line stand past H - 2150.
    for (const Trazo& t : imp.textos()) {
        if (t.texto == SeparadorAsientos || t.texto == "Cobro") {
            EXPECT_LT(t.y, imp.AltoPagina() - 2150 + 3 * 220) << t.pagina;
        }
    }
}

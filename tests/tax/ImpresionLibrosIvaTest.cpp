// The tax books on the recording surface: the page head with the dates, the sector and the work
// date, the columns that move left without the entry number or the NIF, page ends at 1,400 twips
// with the page number and no sums, the closing line of the income and expense books and its
// room of 2,000 twips, FORM52's first page, and nothing at all for a book without records.

#include "tax/ImpresionLibrosIva.h"
#include "ComunLibrosIva.h"
#include "platform/ImpresoraGrabadora.h"
#include "store/Formato.h"

#include <gtest/gtest.h>

using namespace iva;

namespace {

OpcionesLibro Opciones(double margen = 567) {
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = margen;
    op.fuente = QStringLiteral("Arial Narrow");
    op.tamano = 9;
    op.fechaTrabajo = QDate(2025, 1, 15);
    return op;
}

SeleccionLibroIva Seleccion(LibroIva libro, bool asiento, bool nif = false,
                            const QString& sector = {}) {
    SeleccionLibroIva sel;
    sel.libro = libro;
    sel.desde = QDate(2024, 1, 1);
    sel.hasta = QDate(2024, 12, 31);
    sel.sector = sector;
    sel.verAsiento = asiento;
    sel.verNIF = nif;
    return sel;
}

// An income book of n lines of 1,00 each, made by hand: the print reads only the grid.
Rejilla Ingresos(const SeleccionLibroIva& sel, int n) {
    Rejilla r = RejillaLibroIva(sel);
    for (int i = 1; i <= n; ++i)
        r.AgregarFila(QStringList{Formato(i, "standard"), QString::number(i), "02/01/2024",
                                  "F-" + QString::number(i), "Ventas de mercaderías", "1,00",
                                  Ventas});
    r.PonerTotal(TotalLibroIva, Formato(n, "standard"));
    return r;
}

QStringList Linea(const ImpresoraGrabadora& imp, const Trazo* t) {
    QStringList r;
    for (const Trazo& o : imp.textos())
        if (o.pagina == t->pagina && o.y == t->y)
            r << o.texto;
    return r;
}

double Derecha(const Trazo* t) {
    return t->x + t->ancho;
}

} // namespace

TEST(ImpresionLibrosIva, CabeceraColumnasYCierreDelLibroDeIngresos) {
    for (const bool asiento : {true, false}) {
        const SeleccionLibroIva sel = Seleccion(LibroIva::Ingresos, asiento, false, "D'Ana");
        const Rejilla r = Ingresos(sel, 3);
        ImpresoraGrabadora imp;
        ImpresionLibroIva(r, sel, QStringLiteral("Pruebas SL"), Opciones()).Dibujar(imp);
        const double W = imp.AnchoPagina(), H = imp.AltoPagina();
        ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
        const QStringList textos = imp.textosDePagina(1);
        EXPECT_EQ(textos.mid(0, 5), (QStringList{"Libro de Ingresos", "Pruebas SL",
                                                 "Desde 01/01/2024 hasta 31/12/2024",
                                                 "Fecha: 15/01/2025", "Sector: D'Ana"}));
        // "Sector: " stands on a line of its own under the company.
        EXPECT_GT(imp.buscar("Sector: D'Ana")->y, imp.buscar("Pruebas SL")->y);

        // Without the entry number its column goes and the others move left by its room.
        const double corrimiento = asiento ? 0 : 850;
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("Nº ORDEN")), 1400);
        EXPECT_EQ(imp.buscar("ASIENTO") != nullptr, asiento);
        EXPECT_DOUBLE_EQ(imp.buscar("FECHA")->x, 2450 - corrimiento);
        EXPECT_DOUBLE_EQ(imp.buscar("FACTURA")->x, 3400 - corrimiento);
        EXPECT_DOUBLE_EQ(imp.buscar("CONCEPTO")->x, 5600 - corrimiento);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("IMPORTE")), W - 1000);
        const Trazo* fila = imp.buscar("F-2");
        ASSERT_TRUE(fila);
        EXPECT_EQ(
            Linea(imp, fila),
            asiento
                ? QStringList({"2,00", "2", "02/01/2024", "F-2", "Ventas de mercaderías", "1,00"})
                : QStringList({"2,00", "02/01/2024", "F-2", "Ventas de mercaderías", "1,00"}));

        // The closing line after the rows, bold at 4000, its total under the amounts; the page
        // number at the foot.
        const Trazo* cierre = imp.buscar(CierreIngresos);
        ASSERT_TRUE(cierre);
        EXPECT_DOUBLE_EQ(cierre->x, 4000);
        EXPECT_TRUE(cierre->negrita);
        EXPECT_GT(cierre->y, imp.buscar("F-3")->y);
        EXPECT_EQ(Linea(imp, cierre), (QStringList{CierreIngresos, "3,00"}));
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("3,00", 2)), W - 1000);
        const Trazo* pagina = imp.buscar("Página nº 1");
        ASSERT_TRUE(pagina);
        EXPECT_DOUBLE_EQ(pagina->y, H - 1000);
        EXPECT_FALSE(imp.buscar("Suma y sigue . . ."));
    }
    // The expense book closes with its own words; without a sector there is no such line.
    const SeleccionLibroIva sel = Seleccion(LibroIva::Gastos, true);
    ImpresoraGrabadora imp;
    ImpresionLibroIva(Ingresos(sel, 1), sel, QStringLiteral("Pruebas SL"), Opciones()).Dibujar(imp);
    EXPECT_TRUE(imp.buscar(CierreGastos));
    EXPECT_TRUE(imp.buscar("EXPEDIDOR"));
    EXPECT_FALSE(imp.buscar(CierreIngresos));
    for (const Trazo& t : imp.textos())
        EXPECT_FALSE(t.texto.startsWith("Sector")) << t.texto.toStdString();
}

TEST(ImpresionLibrosIva, FinesDePaginaYSitioDelCierre) {
    // Every length from one row to several pages: rows never pass H - 1400, each page ends with
    // its number at H - 1000, and the closing line goes to a new page exactly when less than
    // 2,000 twips are left after the last row. Both cases must come up.
    const SeleccionLibroIva sel = Seleccion(LibroIva::Ingresos, true);
    // The pitch of the rows, from two on one page.
    double paso = 0;
    {
        ImpresoraGrabadora imp;
        ImpresionLibroIva(Ingresos(sel, 2), sel, "Pruebas SL", Opciones()).Dibujar(imp);
        paso = imp.buscar("F-2")->y - imp.buscar("F-1")->y;
        ASSERT_GT(paso, 100);
    }
    bool enLaMisma = false, enOtra = false;
    for (int n = 1; n <= 130; ++n) {
        const Rejilla r = Ingresos(sel, n);
        ImpresoraGrabadora imp;
        ImpresionLibroIva(r, sel, QStringLiteral("Pruebas SL"), Opciones()).Dibujar(imp);
        const double H = imp.AltoPagina();
        const Trazo* ultima = imp.buscar("F-" + QString::number(n));
        const Trazo* cierre = imp.buscar(CierreIngresos);
        ASSERT_TRUE(ultima && cierre) << n;
        for (const Trazo& t : imp.textos()) {
            if (t.texto.startsWith("F-"))
                EXPECT_LT(t.y, H - 1400) << n << " " << t.texto.toStdString();
            if (t.texto.startsWith("Página nº "))
                EXPECT_DOUBLE_EQ(t.y, H - 1000) << n;
        }
        int numeros = 0;
        for (int p = 1; p <= imp.paginas(); ++p)
            numeros += imp.textosDePagina(p).contains("Página nº " + QString::number(p));
        EXPECT_EQ(numeros, imp.paginas()) << n;
        const double plumaTrasUltima = ultima->y + paso;
        if (cierre->pagina == ultima->pagina) {
            enLaMisma = true;
            EXPECT_LT(plumaTrasUltima, H - 2000) << n;
            EXPECT_DOUBLE_EQ(cierre->y, plumaTrasUltima + 200) << n;
        } else {
            enOtra = true;
            EXPECT_EQ(cierre->pagina, ultima->pagina + 1) << n;
            EXPECT_GE(plumaTrasUltima, H - 2000) << n;
            // The new page has its head before the closing line.
            EXPECT_EQ(imp.textosDePagina(cierre->pagina).first(), "Libro de Ingresos");
        }
    }
    EXPECT_TRUE(enLaMisma);
    EXPECT_TRUE(enOtra);
}

TEST(ImpresionLibrosIva, PaginaInicialDeForm52YLibroSinRegistros) {
    // FORM52 keeps "Página inicial" 7 as 6: the first page is numbered 7.
    ConfigOpciones config = ConfigFormOpciones(FormOpciones::FORM52);
    Entorno e;
    CajasOpciones cajas = CajasIniciales(config, *e.ajustes);
    cajas.paginaInicial = "7";
    OpcionesLibro op;
    AceptarOpciones(config, cajas, *e.ajustes, op, false);
    const SeleccionLibroIva sel = Seleccion(LibroIva::Ingresos, false);
    ImpresoraGrabadora imp;
    ImpresionLibroIva(Ingresos(sel, 120), sel, "Pruebas SL", op).Dibujar(imp);
    ASSERT_GE(imp.paginas(), 2);
    EXPECT_TRUE(imp.textosDePagina(1).contains("Página nº 7"));
    EXPECT_TRUE(imp.textosDePagina(2).contains("Página nº 8"));
    // An empty box, 0 and 1 all start at 1.
    for (const QString& p : {QString(), QStringLiteral("0"), QStringLiteral("1")}) {
        cajas.paginaInicial = p;
        AceptarOpciones(config, cajas, *e.ajustes, op, false);
        ImpresoraGrabadora otra;
        ImpresionLibroIva(Ingresos(sel, 1), sel, "Pruebas SL", op).Dibujar(otra);
        EXPECT_TRUE(otra.buscar("Página nº 1")) << p.toStdString();
    }

    // No records: nothing at all, in an income book and in an invoice book with its empty row.
    ImpresoraGrabadora vacia;
    ImpresionLibroIva(Ingresos(sel, 0), sel, "Pruebas SL", Opciones()).Dibujar(vacia);
    const SeleccionLibroIva facturas = Seleccion(LibroIva::Recibidas, true, true);
    Rejilla r = RejillaLibroIva(facturas);
    r.AgregarFila(QString());
    ImpresionLibroIva(r, facturas, "Pruebas SL", Opciones()).Dibujar(vacia);
    EXPECT_TRUE(vacia.trazos().isEmpty()) << vacia.volcado().toStdString();
}

TEST(ImpresionLibrosIva, FacturasConTotalesYColumnasQueSeCorren) {
    Entorno e;
    e.crearEmpresa();
    e.asiento(QDate(2024, 3, 1),
              {Debe(Deudores, 1080), Haber(Ventas, 1000),
               ConIva(Haber(Rep4, 40), Deudores, "F-4", 1000, 4),
               ConIva(Haber(Rec52, 40), Deudores, "F-4", 1000, 4, QStringLiteral("Recargo"))});
    for (const bool conTodo : {true, false}) {
        const SeleccionLibroIva sel = Seleccion(LibroIva::Expedidas, conTodo, conTodo);
        const LibroLleno l = Libro(e, sel);
        ASSERT_EQ(OrientacionLibroIva(sel.libro), QPageLayout::Landscape);
        ImpresoraGrabadora imp(PaginaA4.transposed());
        ImpresionLibroIva(l.r, sel, "Pruebas SL", Opciones(1134)).Dibujar(imp);
        const double W = imp.AnchoPagina();
        ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
        EXPECT_EQ(imp.textosDePagina(1).first(), "Libro de Facturas expedidas");
        // A margin of 20 mm moves the left columns by d = 534; the figures stay at the right.
        const double d = 1134 - 600;
        EXPECT_EQ(imp.buscar("ASIENTO") != nullptr, conTodo);
        EXPECT_EQ(imp.buscar("NIF") != nullptr, conTodo);
        EXPECT_DOUBLE_EQ(imp.buscar("FECHA")->x, conTodo ? 600 + d + 1000 : 600 + d);
        EXPECT_DOUBLE_EQ(imp.buscar("DESTINATARIO")->x,
                         conTodo ? 600 + d + 1000 + 950 + 1250 + 1050 : 600 + d + 950 + 1250);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("CUOTA")), W - 700);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("TIPO")), W - 2000);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("B.I. RECARGO")), W - 2650);
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("B.I. IVA")), W - 3950);
        // The surcharge's record and the two total rows of the same rate.
        const Trazo* recargo = imp.buscar("1.000,00", 2);
        ASSERT_TRUE(recargo);
        EXPECT_DOUBLE_EQ(Derecha(recargo), W - 2650);
        const Trazo* totalIva = imp.buscar("Total IVA al 4%");
        const Trazo* totalRecargo = imp.buscar("Total Recargo al 4%");
        ASSERT_TRUE(totalIva && totalRecargo);
        EXPECT_EQ(Linea(imp, totalIva), (QStringList{"Total IVA al 4%", "1000", "4", "40"}));
        EXPECT_EQ(Linea(imp, totalRecargo),
                  (QStringList{"Total Recargo al 4%", "1000", "4", "40"}));
        EXPECT_DOUBLE_EQ(Derecha(imp.buscar("1000", 2)), W - 2650);
        EXPECT_GT(totalRecargo->y, totalIva->y);
        // The NIF prints only when asked.
        EXPECT_EQ(imp.buscar("B45678901") != nullptr, conTodo);
        EXPECT_FALSE(imp.buscar(CierreIngresos));
    }
}

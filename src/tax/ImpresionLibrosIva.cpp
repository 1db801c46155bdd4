#include "tax/ImpresionLibrosIva.h"

#include "platform/Rejilla.h"
#include "store/Formato.h"

namespace {

constexpr double XCierre = 4000; // the closing words, where the other books print their totals
constexpr double AnchoMinimo = 600;

// Rooms of the columns, in twips: the figures of a column and the gap before the next.
constexpr double AnchoOrden = 800, AnchoAsiento = 850, AnchoFecha = 950, AnchoFactura = 1250,
                 AnchoNif = 1050, AnchoFacturaCuentas = 2200, AnchoImporte = 1300, AnchoTipo = 650;

bool Importe(const Rejilla& r, int columna) {
    return r.columna(columna).tipo == TipoColumna::Importe;
}

} // namespace

QPageLayout::Orientation OrientacionLibroIva(LibroIva libro) {
    return EsLibroFacturas(libro) ? QPageLayout::Landscape : QPageLayout::Portrait;
}

ColumnasImpresasIva ColumnasLibroIva(const SeleccionLibroIva& sel, double d, double W) {
    ColumnasImpresasIva c;
    double x = 600 + d;
    const auto derecha = [&](const char* titulo, double ancho, int col) {
        x += ancho;
        c.columnas << ColumnaLibro{QString::fromUtf8(titulo), x, true, ancho};
        c.deRejilla << col;
    };
    const auto texto = [&](const char* titulo, double ancho, int col) {
        c.columnas << ColumnaLibro{QString::fromUtf8(titulo), x, false, ancho};
        c.deRejilla << col;
        x += ancho;
    };
    // The name column runs from where the left columns end to the first figure column.
    const auto nombre = [&](const char* titulo, int col, double hasta) {
        c.columnas << ColumnaLibro{QString::fromUtf8(titulo), x, false,
                                   qMax(AnchoMinimo, hasta - x)};
        c.deRejilla << col;
    };
    const auto cifra = [&](const char* titulo, double derechaX, double ancho, int col) {
        c.columnas << ColumnaLibro{QString::fromUtf8(titulo), derechaX, true, ancho};
        c.deRejilla << col;
    };

    switch (sel.libro) {
    case LibroIva::Ingresos:
    case LibroIva::Gastos: {
        const double importe = W - 1000, anchoImporte = 1600;
        derecha("Nº ORDEN", AnchoOrden, ColLibOrden);
        if (sel.verAsiento)
            derecha("ASIENTO", AnchoAsiento, ColLibAsiento);
        x += 200;
        texto("FECHA", AnchoFecha, ColLibFecha);
        texto(sel.libro == LibroIva::Ingresos ? "FACTURA" : "EXPEDIDOR", AnchoFacturaCuentas,
              ColLibFactura);
        nombre("CONCEPTO", ColLibConcepto, importe - anchoImporte);
        cifra("IMPORTE", importe, anchoImporte, ColLibImporte);
        break;
    }
    case LibroIva::Expedidas: {
        const double cuota = W - 700, tipo = cuota - AnchoImporte, recargo = tipo - AnchoTipo,
                     baseIva = recargo - AnchoImporte;
        if (sel.verAsiento) {
            derecha("ASIENTO", AnchoAsiento, ColExpAsiento);
            x += 150;
        }
        texto("FECHA", AnchoFecha, ColExpFecha);
        texto("FACTURA", AnchoFactura, ColExpFactura);
        if (sel.verNIF)
            texto("NIF", AnchoNif, ColExpNIF);
        nombre("DESTINATARIO", ColExpDestinatario, baseIva - AnchoImporte);
        cifra("B.I. IVA", baseIva, AnchoImporte, ColExpBaseIva);
        cifra("B.I. RECARGO", recargo, AnchoImporte, ColExpBaseRecargo);
        cifra("TIPO", tipo, AnchoTipo, ColExpTipo);
        cifra("CUOTA", cuota, AnchoImporte, ColExpCuota);
        break;
    }
    case LibroIva::Recibidas: {
        const double cuota = W - 700, tipo = cuota - AnchoImporte, baseIva = tipo - AnchoTipo;
        derecha("Nº ORDEN", AnchoOrden, ColRecOrden);
        if (sel.verAsiento)
            derecha("ASIENTO", AnchoAsiento, ColRecAsiento);
        x += 150;
        texto("FECHA", AnchoFecha, ColRecFecha);
        texto("FACTURA", AnchoFactura, ColRecFactura);
        if (sel.verNIF)
            texto("NIF", AnchoNif, ColRecNIF);
        nombre("EXPEDIDOR", ColRecExpedidor, baseIva - AnchoImporte);
        cifra("B.I. IVA", baseIva, AnchoImporte, ColRecBaseIva);
        cifra("TIPO", tipo, AnchoTipo, ColRecTipo);
        cifra("CUOTA", cuota, AnchoImporte, ColRecCuota);
        break;
    }
    }
    return c;
}

ImpresionLibroIva::ImpresionLibroIva(const Rejilla& rejilla, const SeleccionLibroIva& sel,
                                     const QString& empresa, const OpcionesLibro& op)
    : r_(rejilla), sel_(sel), empresa_(empresa), op_(op) {}

DibujoLibro ImpresionLibroIva::Dibujo() {
    return [this](Impresora& imp, int copia) {
        Dibujar(imp, copia);
    };
}

void ImpresionLibroIva::Dibujar(Impresora& imp, int) {
    // Only the rows of records make a book worth a page: an invoice book without them holds its
    // empty row alone.
    const int colFecha = ColumnaFechaLibroIva(sel_.libro);
    bool hayRegistros = false;
    for (int f = 0; f < r_.Filas() && !hayRegistros; ++f)
        hayRegistros = !r_.celda(f, colFecha).isEmpty();
    if (!hayRegistros)
        return;

    // The option form keeps the first page minus 1, which these books add to the printer's page;
    // the frame adds the first page minus 1.
    OpcionesLibro op = op_;
    op.paginaInicial = op_.paginaInicial > 0 ? op_.paginaInicial + 1 : 0;

    const MargenLibro m = Margen(op.margen);
    const ColumnasImpresasIva cols = ColumnasLibroIva(sel_, m.d, imp.AnchoPagina());
    DisenoLibro dis;
    dis.titulo = TituloLibroIva(sel_.libro);
    dis.cabecera = empresa_;
    dis.desde = sel_.desde;
    dis.hasta = sel_.hasta;
    if (!sel_.sector.isEmpty())
        dis.subcabecera = QStringLiteral("Sector: ") + sel_.sector;
    dis.finPagina = FinPaginaLibroIva;
    dis.regla.reset();
    dis.totales = PiePaginaLibroIva;
    dis.sumas = false;
    dis.columnas = cols.columnas;

    QList<double> sinSumas;
    ImpresionLibro p(imp, dis, op, sinSumas);
    p.Empezar();
    for (int f = 0; f < r_.Filas(); ++f) {
        QStringList celdas;
        for (int col : cols.deRejilla) {
            const QString t = r_.Celda(f, col);
            // A zero amount prints as nothing.
            celdas << (Importe(r_, col) && ValorCelda(t).value_or(1) == 0 ? QString() : t);
        }
        p.Fila(celdas);
        // The last row's page ends with the foot of the book, never with an empty page.
        if (f + 1 < r_.Filas())
            p.FinDePaginaSiToca();
    }

    if (!EsLibroFacturas(sel_.libro)) {
        if (imp.Y() >= imp.AltoPagina() - FinPaginaCierreLibroIva) {
            p.FinDePagina();
            p.CabeceraSiToca();
        }
        QString total;
        for (const Rejilla::Total& t : r_.Totales())
            if (t.etiqueta == TotalLibroIva)
                total = t.valor;
        imp.PonerY(imp.Y() + 200);
        imp.PonerX(XCierre);
        imp.PonerNegrita(true);
        imp.EscribirSeguido(sel_.libro == LibroIva::Ingresos ? CierreIngresos : CierreGastos);
        imp.EscribirADerecha(total, cols.columnas.last().x);
        imp.Escribir(QString());
        imp.PonerNegrita(false);
    }
    p.Terminar();
}

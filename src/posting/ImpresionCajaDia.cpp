#include "posting/ImpresionCajaDia.h"

#include "platform/Impresora.h"
#include "platform/Rejilla.h"
#include "posting/CajaDia.h"
#include "store/Formato.h"

namespace {

struct Hueco {
    const char* titulo;
    int columna;  // of the list
    double ancho; // share of the width
    bool cifra;
};

constexpr Hueco Huecos[] = {
    {"Fecha", ColCaja::Fecha, 1150, false},
    {"C/P", ColCaja::CP, 700, false},
    {"Cuenta de trabajo", ColCaja::Cuenta1, 2000, false},
    {"Cta origen/destino", ColCaja::Cuenta2, 2000, false},
    {"Importe", ColCaja::Importe, 1400, true},
    {"Concepto", ColCaja::Concepto, 2300, false},
    {"Documento", ColCaja::Documento, 1100, false},
    {"Sector", ColCaja::Sector, 900, false},
};

// The head's box starts 60 twips left of L; texts stand 60 into their room and figures end 100
// short of it, clear of the strokes between columns.
constexpr double Caja = 60, Sangria = 60, Holgura = 100;

} // namespace

QList<ColumnaLibro> ColumnasCajaDia(double L, double R) {
    double total = 0;
    for (const Hueco& h : Huecos)
        total += h.ancho;
    const double escala = (R - (L - Caja)) / total;
    QList<ColumnaLibro> c;
    double borde = L - Caja;
    for (const Hueco& h : Huecos) {
        const double ancho = h.ancho * escala;
        ColumnaLibro col;
        col.titulo = QString::fromUtf8(h.titulo);
        col.aDerecha = h.cifra;
        col.ancho = ancho;
        col.x = h.cifra ? borde + ancho - Holgura : borde + Sangria;
        col.suma = h.cifra ? 0 : -1;
        c << col;
        borde += ancho;
    }
    return c;
}

void DibujarCajaDia(Impresora& imp, const Rejilla& r, const QString& empresa,
                    const OpcionesLibro& op) {
    DisenoLibro dis;
    dis.titulo = TituloCajaDia;
    dis.cabecera = empresa;
    dis.finPagina = FinPaginaCajaDia;
    dis.regla = ReglaCajaDia;
    dis.totales = TotalesCajaDia;
    const MargenLibro m = Margen(op.margen);
    dis.columnas = ColumnasCajaDia(m.L, imp.AnchoPagina() - 600);

    // The running sum is the result so far: takings less payments.
    QList<double> resultado{0.0};
    double cobros = 0, pagos = 0;
    ImpresionLibro p(imp, dis, op, resultado);
    p.Empezar();
    for (int f = 0; f < r.Filas(); ++f) {
        const double importe = ValorCelda(r.Celda(f, ColCaja::Importe)).value_or(0.0);
        const bool cobro = r.Celda(f, ColCaja::CP) != QLatin1String("Pago");
        QStringList celdas;
        for (const Hueco& h : Huecos)
            celdas << (h.cifra ? ImporteLibro(importe) : r.Celda(f, h.columna));
        p.Fila(celdas);
        (cobro ? cobros : pagos) += importe;
        resultado[0] = Centimos(cobros - pagos);
        p.FinDePaginaSiToca();
    }
    p.Terminar({{QStringLiteral("Cobros . . . . . . . . . . . . ."), {Centimos(cobros)}},
                {QStringLiteral("Pagos . . . . . . . . . . . . . ."), {Centimos(pagos)}},
                {QStringLiteral("Resultado . . . . . . . . . . ."), {Centimos(cobros - pagos)}},
                {NotaCajaDia, {}, true}});
}

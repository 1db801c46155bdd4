#include "assets/ImpresionInventario.h"

#include "assets/Inventario.h"
#include "platform/Rejilla.h"
#include "store/Formato.h"

namespace {

struct Hueco {
    const char* titulo;
    int columna;  // of the list
    double ancho; // share of the width, in twips of a landscape A4 sheet
    bool cifra;
};

// "Elemento", "Nombre", ... as the list's columns; figures right-aligned.
constexpr Hueco Huecos[] = {
    {"Elemento", ColInvElemento, 1100, false},
    {"Nombre", ColInvNombre, 2500, false},
    {"Naturaleza", ColInvNaturaleza, 1150, false},
    {"Fecha Adq.", ColInvFechaAdq, 1250, false},
    {"Importe", ColInvImporte, 1400, true},
    {"Localización", ColInvLocalizacion, 1700, false},
    {"Fecha Baja", ColInvFechaBaja, 1200, false},
    {"Causa Baja", ColInvCausaBaja, 1150, false},
    {"Amortizable", ColInvAmortizable, 1250, false},
    {"Porcentaje", ColInvPorcentaje, 950, true},
    {"Fin Amortiz.", ColInvFinAmort, 1250, false},
    {"Ultima Am.", ColInvUltimaAmort, 1150, false},
    {"Amortizado", ColInvAmortizado, 1400, true},
};

// The box of the headings starts 60 twips left of L; texts stand 60 into their room and figures
// end 100 short of it, clear of the strokes between columns.
constexpr double Caja = 60, Sangria = 60, Holgura = 100;

} // namespace

QList<ColumnaLibro> ColumnasLibroInventario(double L, double R) {
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
        c << col;
        borde += ancho;
    }
    return c;
}

ImpresionInventario::ImpresionInventario(const Rejilla& rejilla, const QString& empresa,
                                         const OpcionesLibro& op)
    : r_(rejilla), empresa_(empresa), op_(op) {}

DibujoLibro ImpresionInventario::Dibujo() {
    return [this](Impresora& imp, int copia) {
        Dibujar(imp, copia);
    };
}

void ImpresionInventario::Dibujar(Impresora& imp, int) {
    DisenoLibro dis;
    dis.titulo = TituloInventario;
    dis.cabecera = empresa_;
    dis.sumas = false;
    dis.regla.reset();
    dis.finPagina = FinPaginaInventario;
    dis.totales = PiePaginaInventario;
    const MargenLibro m = Margen(op_.margen);
    dis.columnas = ColumnasLibroInventario(m.L, imp.AnchoPagina() - 600);

    QList<double> sinSumas;
    ImpresionLibro p(imp, dis, op_, sinSumas);
    p.Empezar();
    for (int f = 0; f < r_.Filas(); ++f) {
        QStringList celdas;
        for (const Hueco& h : Huecos) {
            const QString texto = r_.Celda(f, h.columna);
            if (h.columna == ColInvPorcentaje) {
                const std::optional<double> v = ValorCelda(texto);
                celdas << (v ? Formato(*v, QStringLiteral("#0.#0")) : QString());
            } else if (h.columna == ColInvImporte || h.columna == ColInvAmortizado) {
                celdas << ImporteLibro(ValorCelda(texto).value_or(0.0));
            } else {
                celdas << texto;
            }
        }
        p.Fila(celdas);
        p.FinDePaginaSiToca();
    }
    p.Terminar();
}

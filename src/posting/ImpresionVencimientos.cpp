#include "posting/ImpresionVencimientos.h"

#include "platform/Rejilla.h"
#include "posting/ListaVencimientos.h"

namespace {

struct Nominal {
    const char* titulo;
    int columna; // of the list
    double ancho;
    bool aDerecha;
};

// The room each column needs at the usual sizes, in twips; together 15,600, the width of a
// landscape A4 page within its margins. Dates are never cut: a printer's narrower page may leave
// them less room than they take.
constexpr Nominal Nominales[] = {
    {"Fecha", ColV::FechaV, 1050, false},        {"Tipo", ColV::Tipo, 650, false},
    {"Forma", ColV::Forma, 1150, false},         {"Subcuenta", ColV::Subcuenta, 2200, false},
    {"Concepto", ColV::Concepto, 2450, false},   {"Caja/Banco", ColV::CajaBanco, 1600, false},
    {"Importe", ColV::Importe, 1450, true},      {"Situación", ColV::Situacion, 1150, false},
    {"Documento", ColV::Documento, 1150, false}, {"Remesa", ColV::Remesa, 800, false},
    {"Sector", ColV::Sector, 900, false},        {"Emisión", ColV::FechaE, 1050, false},
};

// A figure stands this far from the start of the next column.
constexpr double HuecoImporte = 150;

} // namespace

QList<ColumnaLibro> ColumnasLibroVenc(double x0, double R) {
    double nominal = 0;
    for (const Nominal& n : Nominales)
        nominal += n.ancho;
    const double escala = (R - x0) / nominal;
    QList<ColumnaLibro> c;
    double x = x0;
    for (const Nominal& n : Nominales) {
        const double ancho = n.ancho * escala;
        const bool fecha = n.columna == ColV::FechaV || n.columna == ColV::FechaE;
        if (n.aDerecha)
            c << ColumnaLibro{QString::fromUtf8(n.titulo), x + ancho - HuecoImporte, true, ancho};
        else
            c << ColumnaLibro{QString::fromUtf8(n.titulo), x, false, fecha ? 0.0 : ancho};
        x += ancho;
    }
    return c;
}

ImpresionVenc::ImpresionVenc(const Rejilla& rejilla, const QString& empresa,
                             const OpcionesLibro& op)
    : r_(rejilla), empresa_(empresa), op_(op) {}

DibujoLibro ImpresionVenc::Dibujo() {
    return [this](Impresora& imp, int copia) {
        Dibujar(imp, copia);
    };
}

void ImpresionVenc::Dibujar(Impresora& imp, int) {
    DisenoLibro dis;
    dis.titulo = TituloVencimientos;
    dis.cabecera = empresa_;
    dis.bajadaCabecera = 150;
    dis.bajadaFila = 20;
    dis.sumas = false;
    dis.finPagina = FinPaginaVenc;
    dis.regla.reset();
    dis.totales = PiePaginaVenc;
    // The columns share out the room from their nominal start to the rules' end (W - 600); a
    // margin under 600 moves only the left edge, that is the first column.
    const MargenLibro m = Margen(op_.margen);
    dis.columnas = ColumnasLibroVenc(600 + m.d, imp.AnchoPagina() - 600);
    dis.columnas.first().x = m.L;
    QList<double> sumas;
    ImpresionLibro libro(imp, dis, op_, sumas);
    libro.Empezar();
    for (int f = 0; f < r_.Filas(); ++f) {
        QStringList celdas;
        for (const Nominal& n : Nominales)
            celdas << r_.Celda(f, n.columna);
        libro.Fila(celdas);
        libro.FinDePaginaSiToca();
    }
    libro.Terminar();
}

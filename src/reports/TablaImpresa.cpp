#include "reports/TablaImpresa.h"

#include "platform/Rejilla.h"

namespace {

constexpr double Margen = 900; // top and left, in twips (about 16 mm)
constexpr double Pie = 900;    // room kept for the page number

void cabecera(Impresora& imp, const Rejilla& r, const DisenoTabla& d) {
    imp.PonerBordeIzquierdo(Margen);
    imp.IrA(Margen, Margen);
    for (int k = 0; k < d.cabecera.size(); ++k) {
        imp.PonerNegrita(k == 0);
        imp.PonerTamano(k == 0 ? d.tamano + 3 : d.tamano);
        imp.PonerX(Margen);
        imp.Escribir(d.cabecera[k]);
    }
    imp.PonerTamano(d.tamano);
    imp.PonerNegrita(true);
    imp.PonerY(imp.Y() + imp.AltoLinea() / 2);
    const double y = imp.Y();
    for (const ColumnaTabla& c : d.columnas) {
        const QString t = c.titulo.isEmpty() ? r.columna(c.columna).titulo : c.titulo;
        imp.PonerY(y);
        if (c.aDerecha) {
            imp.EscribirADerecha(t, c.x);
        } else {
            imp.PonerX(c.x);
            imp.EscribirSeguido(t);
        }
    }
    imp.IrA(Margen, y + imp.AltoLinea());
    imp.Linea(Margen, imp.Y(), imp.AnchoPagina() - Margen, imp.Y());
    imp.PonerY(imp.Y() + imp.AltoLinea() / 3);
    imp.PonerNegrita(false);
}

void pie(Impresora& imp, const DisenoTabla& d) {
    imp.PonerNegrita(false);
    imp.PonerTamano(d.tamano);
    const QString t = QStringLiteral("Página nº %1").arg(imp.Pagina());
    imp.IrA(imp.AnchoPagina() - Margen - imp.AnchoTexto(t), imp.AltoPagina() - Pie + 200);
    imp.EscribirSeguido(t);
}

} // namespace

void DibujarTabla(Impresora& imp, const Rejilla& r, const DisenoTabla& d) {
    imp.PonerFuente(d.fuente);
    imp.PonerTamano(d.tamano);
    cabecera(imp, r, d);
    for (int f = 0; f < r.Filas(); ++f) {
        if (imp.Y() + imp.AltoLinea() > imp.AltoPagina() - Pie) {
            pie(imp, d);
            imp.NuevaPagina();
            cabecera(imp, r, d);
        }
        const double y = imp.Y();
        for (const ColumnaTabla& c : d.columnas) {
            imp.PonerNegrita(r.Negrita(f, c.columna));
            imp.PonerY(y);
            if (c.aDerecha) {
                imp.EscribirADerecha(r.Celda(f, c.columna), c.x);
            } else {
                imp.PonerX(c.x);
                imp.EscribirSeguido(r.Celda(f, c.columna));
            }
        }
        imp.IrA(Margen, y + imp.AltoLinea());
    }
    pie(imp, d);
    imp.FinDocumento();
}

#include "posting/ImprimirAsiento.h"

#include "platform/Impresora.h"
#include "posting/RejillaAsiento.h"
#include "store/Formato.h"

namespace {

const QString Estandar = QStringLiteral("standard");

} // namespace

void ImprimirAsiento(Impresora& imp, const RejillaAsiento& r, const OpcionesAsientoImpreso& o,
                     const ColumnasAsiento& c, const std::optional<QString>& descuadre,
                     const QStringList& lineasCabecera) {
    const double izquierda = o.margen;
    const double derecha = imp.AnchoPagina() - 10 * TwipsPorMm;
    const double colHaber = derecha;
    const double colDebe = derecha - 30 * TwipsPorMm;
    const double anchoImporte = 28 * TwipsPorMm;
    const double colConcepto = izquierda + (colDebe - anchoImporte - izquierda) * 0.45;
    const double pie = imp.AltoPagina() - 20 * TwipsPorMm;

    auto cabecera = [&] {
        imp.PonerFuente(o.fuente);
        imp.PonerTamano(o.tamano + 3);
        imp.PonerNegrita(true);
        imp.IrA(izquierda, 15 * TwipsPorMm);
        if (!lineasCabecera.isEmpty()) {
            for (const QString& linea : lineasCabecera) {
                imp.PonerX(izquierda);
                imp.Escribir(linea);
            }
        } else {
            imp.EscribirSeguido(QStringLiteral("Asiento nº: ") +
                                Formato(static_cast<double>(o.numero), QStringLiteral("#,##0")));
            imp.PonerX(colDebe - anchoImporte);
            imp.Escribir(QStringLiteral("Fecha: ") + o.fecha);
            if (descuadre) {
                imp.PonerX(colDebe - anchoImporte);
                imp.Escribir(QStringLiteral("Descuadre: ") + *descuadre);
            }
        }
        imp.PonerTamano(o.tamano);
        imp.PonerY(imp.Y() + imp.AltoLinea() / 2);
        imp.PonerX(izquierda);
        imp.EscribirSeguido(QStringLiteral("Cuenta"));
        imp.PonerX(colConcepto);
        imp.EscribirSeguido(QStringLiteral("Concepto"));
        imp.EscribirADerecha(QStringLiteral("Debe"), colDebe);
        imp.EscribirADerecha(QStringLiteral("Haber"), colHaber);
        imp.Escribir(QString());
        imp.Linea(izquierda, imp.Y(), derecha, imp.Y());
        imp.PonerY(imp.Y() + 30);
        imp.PonerNegrita(false);
    };

    cabecera();
    double debe = 0, haber = 0;
    for (int f = 1; f <= r.ultima(); ++f) {
        if (imp.Y() + 2 * imp.AltoLinea() > pie) {
            imp.NuevaPagina();
            cabecera();
        }
        const double d = r.valor(f, c.Debe), h = r.valor(f, c.Haber);
        debe += d;
        haber += h;
        imp.PonerX(izquierda);
        imp.EscribirSeguido(imp.RecortarTexto(r.celda(f, c.Cuenta), colConcepto - izquierda - 100));
        imp.PonerX(colConcepto);
        imp.EscribirSeguido(
            imp.RecortarTexto(r.celda(f, c.Concepto), colDebe - anchoImporte - colConcepto - 100));
        if (d != 0)
            imp.EscribirADerecha(Formato(d, Estandar), colDebe);
        if (h != 0)
            imp.EscribirADerecha(Formato(h, Estandar), colHaber);
        imp.Escribir(QString());
    }
    imp.Linea(colDebe - anchoImporte, imp.Y(), derecha, imp.Y());
    imp.PonerY(imp.Y() + 30);
    imp.PonerNegrita(true);
    imp.EscribirADerecha(Formato(debe, Estandar), colDebe);
    imp.EscribirADerecha(Formato(haber, Estandar), colHaber);
    imp.Escribir(QString());
    imp.PonerNegrita(false);
    imp.FinDocumento();
}

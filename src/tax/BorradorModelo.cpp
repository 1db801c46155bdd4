#include "tax/BorradorModelo.h"

#include "platform/Impresora.h"

BorradorModelo::BorradorModelo(Impresora& imp, const QString& fuente, double tamano,
                               QList<double> derechas)
    : imp_(imp), fuente_(fuente.isEmpty() ? QStringLiteral("Arial") : fuente),
      tamano_(tamano > 0 ? tamano : 9), derechas_(std::move(derechas)) {
    imp_.PonerFuente(fuente_);
    imp_.PonerTamano(tamano_);
    imp_.PonerNegrita(false);
    imp_.PonerBordeIzquierdo(Izquierda);
    imp_.IrA(Izquierda, Arriba);
}

void BorradorModelo::nuevaPaginaSiToca() {
    if (imp_.Y() + imp_.AltoLinea() <= imp_.AltoPagina() - Abajo)
        return;
    imp_.NuevaPagina();
    imp_.IrA(Izquierda, Arriba);
}

void BorradorModelo::Titulo(const QString& titulo) {
    imp_.PonerTamano(tamano_ + 6);
    imp_.PonerNegrita(true);
    imp_.PonerX(Izquierda);
    imp_.Escribir(titulo);
    imp_.Linea(Izquierda, imp_.Y(), imp_.AnchoPagina() - Derecha, imp_.Y());
    imp_.PonerY(imp_.Y() + 100);
    imp_.PonerTamano(tamano_);
    imp_.PonerNegrita(false);
}

void BorradorModelo::Texto(const QString& texto) {
    nuevaPaginaSiToca();
    imp_.PonerX(Izquierda);
    imp_.Escribir(texto);
}

void BorradorModelo::Columnas(const QStringList& titulos) {
    nuevaPaginaSiToca();
    imp_.PonerY(imp_.Y() + 100);
    imp_.PonerNegrita(true);
    for (int i = 0; i < titulos.size() && i < derechas_.size(); ++i)
        imp_.EscribirADerecha(titulos.at(i), derechas_.at(i));
    imp_.PonerNegrita(false);
    imp_.PonerX(Izquierda);
    imp_.Escribir(QString());
    imp_.Linea(Izquierda, imp_.Y(), imp_.AnchoPagina() - Derecha, imp_.Y());
    imp_.PonerY(imp_.Y() + 50);
}

void BorradorModelo::Seccion(const QString& texto) {
    imp_.PonerY(imp_.Y() + 150);
    nuevaPaginaSiToca();
    imp_.PonerNegrita(true);
    imp_.PonerX(Izquierda);
    imp_.Escribir(texto);
    imp_.PonerNegrita(false);
    imp_.PonerY(imp_.Y() + 40);
}

void BorradorModelo::Fila(const QString& etiqueta, const QStringList& cifras, bool negrita,
                          double sangria) {
    nuevaPaginaSiToca();
    imp_.PonerNegrita(negrita);
    // The label keeps clear of the widest figure of the first column that holds one.
    const double ancho = imp_.AnchoTexto(QStringLiteral("-999.999.999.999,99"));
    double hasta = imp_.AnchoPagina() - Derecha;
    for (int i = 0; i < cifras.size() && i < derechas_.size(); ++i)
        if (!cifras.at(i).isEmpty()) {
            hasta = derechas_.at(i) - ancho - 200;
            break;
        }
    const double x = Izquierda + sangria;
    const double y = imp_.Y();
    for (int i = 0; i < cifras.size() && i < derechas_.size(); ++i)
        if (!cifras.at(i).isEmpty()) {
            imp_.IrA(derechas_.at(i), y);
            imp_.EscribirADerecha(cifras.at(i), derechas_.at(i));
        }
    imp_.IrA(x, y);
    imp_.Escribir(imp_.RecortarTexto(etiqueta, hasta - x));
    imp_.PonerNegrita(false);
    imp_.PonerY(imp_.Y() + 30);
}

void BorradorModelo::Terminar() {
    imp_.FinDocumento();
}

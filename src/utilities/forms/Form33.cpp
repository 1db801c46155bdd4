#include "utilities/forms/Form33.h"

#include "platform/Ajustes.h"
#include "platform/forms/ImprimirLibro.h"
#include "reports/TablaImpresa.h"
#include "utilities/Calculadora.h"

Form33::Form33(Sesion& s, Ajustes& a, Dialogo& d, const Calculadora& k, QWidget* padre)
    : VentanaLibro(s, a, d, 33, QStringLiteral("Quilmar [Cuadro amortización]"), padre), k_(k) {
    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("&Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    ponerBarra({{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, {5, accionExportar()}});
    Llenar([this](const Progreso&) { rejilla() = CuadroPrestamo(k_); });
}

void Form33::Imprimir() {
    const Rejilla r = rejilla();
    const DisenoTabla diseno = DisenoCuadro(k_);
    ImprimirLibro(this, [r, diseno](Impresora& imp, int) { DibujarTabla(imp, r, diseno); },
                  {QStringLiteral("Cuadro de Amortización"),
                   a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
}

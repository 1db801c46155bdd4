#include "assets/forms/Form49.h"

#include "platform/Ajustes.h"
#include "platform/forms/ImprimirLibro.h"
#include "reports/TablaImpresa.h"

Form49::Form49(Sesion& s, Ajustes& a, Dialogo& d, const QString& ruta,
               const PeriodoPresupuesto& per, QWidget* padre)
    : VentanaLibro(s, a, d, 0, QString(), padre), ruta_(ruta), per_(per),
      p_(LeerPresupuesto(ruta)) {
    setObjectName(QStringLiteral("Form49"));
    setWindowTitle(QStringLiteral("Quilmar [Presupuesto: %1   Ejercicio: %2   Periodo:%3]")
                       .arg(p_.Nombre, p_.Ano, EtiquetaPeriodo(per_)));
    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("&Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    ponerBarra({{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, {5, accionExportar()}});
    alMenu(imprimir);
    Refrescar();
}

void Form49::Refrescar() {
    Llenar([this](const Progreso&) { rejilla() = CompararPresupuesto(s_, ruta_, per_); });
}

void Form49::Imprimir() {
    const Rejilla r = rejilla();
    const DisenoTabla diseno = DisenoComparacion(p_.Nombre, p_.Ano, EtiquetaPeriodo(per_));
    ImprimirLibro(this, [r, diseno](Impresora& imp, int) { DibujarTabla(imp, r, diseno); },
                  {QStringLiteral("Presupuesto: ") + p_.Nombre,
                   a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
}

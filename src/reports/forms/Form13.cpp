#include "reports/forms/Form13.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/ImpresionIngresosGastos.h"
#include "reports/forms/SeleccionIyG.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>

Form5::GanchoMovimientos& Form13::VerMovimientos() {
    static Form5::GanchoMovimientos gancho;
    return gancho;
}

Form13::Form13(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionIyG& sel, QWidget* padre)
    : VentanaLibro(s, a, d, 0, QStringLiteral("Quilmar [Ingresos y Gastos]"), padre), sel_(sel) {
    setObjectName(QStringLiteral("Form13"));
    rejilla() = RejillaTotalesIyG();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* porCuenta =
        nuevaAccion(QStringLiteral("mnuOrdenar"), QStringLiteral("Ordenar por &Cuentas"),
                    std::nullopt, [this] { Ordenar(OrdenIyG::Cuenta); });
    QAction* porImporte =
        nuevaAccion(QStringLiteral("mnuOrdenImportes"), QStringLiteral("Ordenar por &Importes"),
                    std::nullopt, [this] { Ordenar(OrdenIyG::Importe); });
    QAction* movimientos =
        nuevaAccion(QStringLiteral("mnuMovCta"), QStringLiteral("Ver movimientos Cuenta"),
                    Accion::Movimientos, [this] { verMovimientos(filaActual()); });
    // The two orders have no picture of their own: they stand on the "Ordenar" menu and the
    // grid's context menu.
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, imprimir},
                {5, accionExportar()},
                {7, movimientos}});
    alMenu(porCuenta);
    alMenu(porImporte);
    alMenu(movimientos);
    QMenu* ordenar = menuBar()->addMenu(QStringLiteral("&Ordenar"));
    ordenar->addAction(porCuenta);
    ordenar->addAction(porImporte);
    movimientos->setEnabled(static_cast<bool>(VerMovimientos()));
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verMovimientos(i.row()); });

    QString texto = QStringLiteral("Desde ") + FormatoFecha(sel_.desde, "short date") +
                    QStringLiteral(" hasta ") + FormatoFecha(sel_.hasta, "short date");
    if (!sel_.sector.isEmpty())
        texto += QStringLiteral("   Sector: ") + sel_.sector;
    auto* fechas = new QLabel(texto, this);
    fechas->setObjectName(QStringLiteral("Label1"));
    statusBar()->addWidget(fechas);
}

Form13* Form13::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form12 f(s, a, d, padre);
    if (f.exec() != QDialog::Accepted)
        return nullptr;
    auto* l = new Form13(s, a, d, f.seleccion(), padre);
    l->show();
    QTimer::singleShot(0, l, &Form13::LlenarIyG);
    return l;
}

void Form13::LlenarIyG() {
    Llenar([this](const Progreso&) {
        Conexion c = AbrirDatos(s_);
        LlenarTotalesIyG(c, sel_, rejilla());
        if (orden_ != OrdenIyG::Cuenta)
            OrdenarTotalesIyG(rejilla(), orden_);
    });
}

void Form13::Ordenar(OrdenIyG orden) {
    orden_ = orden;
    Llenar([this](const Progreso&) { OrdenarTotalesIyG(rejilla(), orden_); });
}

void Form13::Refrescar() {
    if (isVisible())
        LlenarIyG();
}

std::optional<PeticionMovimientos> Form13::peticionDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return std::nullopt;
    PeticionMovimientos p;
    p.ncuenta = rejilla().Celda(fila, ColTotNCuenta);
    if (p.ncuenta.isEmpty())
        return std::nullopt;
    p.desde = sel_.desde;
    p.hasta = sel_.hasta;
    p.nombre = rejilla().Celda(fila, ColTotSubcuenta);
    return p;
}

void Form13::verMovimientos(int fila) {
    const auto p = peticionDeFila(fila);
    if (p && VerMovimientos())
        VerMovimientos()(this, *p);
}

void Form13::Imprimir() {
    try {
        const QString empresa = NombreEmpresa(s_);
        const OpcionesLibro op = OpcionesListadoIyG(a_);
        OpcionesImpresion oi;
        oi.titulo = TituloTotalesIyG;
        oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(
            this,
            [this, empresa, op](Impresora& imp, int) {
                DibujarTotalesIyG(imp, rejilla(), sel_, empresa, op);
            },
            oi);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

#include "reports/forms/Form5.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/ImpresionDiario.h"
#include "reports/forms/Form57.h"
#include "reports/forms/Form6.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QTimer>

Form5::GanchoAsiento& Form5::VerModificarAsiento() {
    static GanchoAsiento gancho;
    return gancho;
}

Form5::GanchoMovimientos& Form5::VerMovimientos() {
    static GanchoMovimientos gancho;
    return gancho;
}

Form5::Form5(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionDiario& sel, QWidget* padre)
    : VentanaLibro(s, a, d, 5, QStringLiteral("Quilmar [Diario]"), padre), sel_(sel) {
    setObjectName(QStringLiteral("Form5"));
    rejilla() = RejillaDiario();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* modificar =
        nuevaAccion(QStringLiteral("mnuModAs"), QStringLiteral("Ver/Modificar Asiento"),
                    Accion::VerAsiento, [this] { verAsiento(filaActual()); });
    QAction* eliminar = nuevaAccion(QStringLiteral("mnuElimAs"), QStringLiteral("Eliminar Asiento"),
                                    Accion::EliminarAsiento, [this] { eliminarAsiento(); });
    QAction* movimientos =
        nuevaAccion(QStringLiteral("mnuMovCta"), QStringLiteral("Ver Movimientos de la Subcuenta"),
                    Accion::Movimientos, [this] { verMovimientos(); });
    QAction* buscar = nuevaAccion(QStringLiteral("mnuBuscar"), QStringLiteral("Buscar..."),
                                  Accion::Buscar, [this] { Buscar(); });
    QAction* ayuda =
        nuevaAccion(QStringLiteral("mnuAyuda"), QStringLiteral("Ayuda"), Accion::Ayuda, [] {});
    ayuda->setEnabled(false);
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, imprimir},
                {5, accionExportar()},
                {7, modificar},
                {8, eliminar},
                {9, movimientos},
                {10, buscar},
                {12, ayuda}});
    for (QAction* a : {modificar, eliminar, movimientos, buscar, imprimir, accionExportar()})
        alMenu(a);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verAsiento(i.row()); });
    actualizarAcciones();
}

Form5::~Form5() = default;

Form5* Form5::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form6 seleccion(s, a, d, padre);
    if (seleccion.exec() != QDialog::Accepted)
        return nullptr;
    auto* f = new Form5(s, a, d, seleccion.seleccion(), padre);
    f->show();
    // The window shows first; the fill follows at once.
    QTimer::singleShot(0, f, &Form5::LlenarDiario);
    return f;
}

void Form5::actualizarAcciones() {
    accion(QStringLiteral("mnuModAs"))->setEnabled(static_cast<bool>(VerModificarAsiento()));
    accion(QStringLiteral("mnuMovCta"))->setEnabled(static_cast<bool>(VerMovimientos()));
}

void Form5::LlenarDiario() {
    actualizarAcciones();
    Llenar([this](const Progreso& p) {
        Conexion c = AbrirDatos(s_);
        ::LlenarDiario(c, sel_, rejilla(), p);
    });
}

void Form5::Refrescar() {
    if (isVisible())
        LlenarDiario();
}

long Form5::asientoDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return 0;
    const auto n = ValorCelda(rejilla().celda(fila, ColAsiento));
    return n ? std::lround(*n) : 0;
}

void Form5::verAsiento(int fila) {
    const long nas = asientoDeFila(fila);
    if (nas <= 0 || !VerModificarAsiento())
        return;
    VerModificarAsiento()(this, nas);
}

void Form5::eliminarAsiento() {
    const long nas = asientoDeFila(filaActual());
    if (!borrarAsiento(nas))
        return;
    close();
    Q_EMIT asientoEliminado(nas);
}

void Form5::verMovimientos() {
    const int fila = filaActual();
    if (fila < 0 || !VerMovimientos())
        return;
    PeticionMovimientos p;
    p.desde = sel_.desde;
    p.hasta = sel_.hasta;
    p.ncuenta = rejilla().Celda(fila, ColNCuenta);
    p.area = p.ncuenta.left(1);
    p.nombre = rejilla().Celda(fila, ColSubcuenta);
    if (p.ncuenta.isEmpty())
        return;
    VerMovimientos()(this, p);
}

Form57* Form5::buscador() const {
    return buscador_;
}

Form57* Form5::Buscar() {
    if (!buscador_) {
        buscador_ = new Form57(tabla(), d_, this);
        buscador_->setWindowFlag(Qt::Tool);
    }
    buscador_->show();
    buscador_->raise();
    buscador_->activateWindow();
    return buscador_;
}

void Form5::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form77), a_, d_, this);
    f.exec();
    if (f.sumasIncompletas()) {
        close();
        return;
    }
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    ImpresionDiario impreso(s_, sel_, opciones_);
    OpcionesImpresion op;
    op.titulo = TituloDiario;
    op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
    try {
        ImprimirLibro(this, impreso.Dibujo(), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
    sumaDebe_ = impreso.SumaDebe();
    sumaHaber_ = impreso.SumaHaber();
}

void Form5::closeEvent(QCloseEvent* e) {
    if (buscador_)
        buscador_->close();
    VentanaLibro::closeEvent(e);
}

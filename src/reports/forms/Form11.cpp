#include "reports/forms/Form11.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/ImpresionSumasSaldos.h"
#include "reports/SumasSaldos.h"
#include "reports/forms/Form78.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>

Form5::GanchoMovimientos& Form11::VerMovimientos() {
    static Form5::GanchoMovimientos gancho;
    return gancho;
}

Form11::Form11(Sesion& s, Ajustes& a, Dialogo& d, const QDate& desde, const QDate& hasta,
               QWidget* padre)
    : VentanaLibro(s, a, d, 11, QStringLiteral("Quilmar [Balance de Sumas y Saldos]"), padre),
      desde_(desde), hasta_(hasta) {
    setObjectName(QStringLiteral("Form11"));
    rejilla() = RejillaSyS();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* movimientos =
        nuevaAccion(QStringLiteral("mnuMovCta"), QStringLiteral("Ver movimientos Cuenta"),
                    Accion::Movimientos, [this] { verMovimientos(filaActual()); });
    QAction* ayuda =
        nuevaAccion(QStringLiteral("mnuAyuda"), QStringLiteral("Ayuda"), Accion::Ayuda, [] {});
    ayuda->setEnabled(false);
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, imprimir},
                {5, accionExportar()},
                {7, movimientos},
                {9, ayuda}});
    alMenu(movimientos);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verMovimientos(i.row()); });

    // The dates of the list stand in the status line.
    fechas_ = new QLabel(this);
    fechas_->setObjectName(QStringLiteral("Label1"));
    fechas_->setText(QStringLiteral("Desde ") + FormatoFecha(desde_, "short date") +
                     QStringLiteral(" hasta ") + FormatoFecha(hasta_, "short date"));
    statusBar()->addWidget(fechas_);
    actualizarAcciones();
}

Form11::~Form11() = default;

Form11* Form11::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form78 fechas(s, a, d, padre);
    if (fechas.exec() != QDialog::Accepted)
        return nullptr;
    auto* f = new Form11(s, a, d, fechas.desde(), fechas.hasta(), padre);
    f->show();
    // The window shows first; the fill follows at once.
    QTimer::singleShot(0, f, &Form11::LlenarSyS);
    return f;
}

void Form11::actualizarAcciones() {
    accion(QStringLiteral("mnuMovCta"))->setEnabled(static_cast<bool>(VerMovimientos()));
}

void Form11::LlenarSyS() {
    actualizarAcciones();
    Llenar([this](const Progreso&) {
        Conexion c = AbrirDatos(s_);
        ::LlenarSyS(c, s_, desde_, hasta_, rejilla());
    });
}

void Form11::Refrescar() {
    if (isVisible())
        LlenarSyS();
}

std::optional<PeticionMovimientos> Form11::peticionDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return std::nullopt;
    PeticionMovimientos p;
    p.ncuenta = rejilla().Celda(fila, ColSySNCuenta);
    if (p.ncuenta.isEmpty())
        return std::nullopt;
    p.desde = desde_;
    p.hasta = hasta_;
    p.area = p.ncuenta.left(1);
    p.nombre = rejilla().Celda(fila, ColSySCuenta);
    return p;
}

void Form11::verMovimientos(int fila) {
    const auto p = peticionDeFila(fila);
    if (!p || !VerMovimientos())
        return;
    VerMovimientos()(this, *p);
}

void Form11::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form79), a_, d_, this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        ImpresionSyS impreso(rejilla(), empresa, desde_, hasta_, opciones_);
        OpcionesImpresion op;
        op.titulo = TituloSyS;
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, impreso.Dibujo(), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

#include "reports/forms/Form55.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/Diario.h"
#include "reports/ImpresionMayor.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form53.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QAction>
#include <QTimer>

Form55::Form55(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionMayor& sel, QWidget* padre)
    : VentanaLibro(s, a, d, 55, QStringLiteral("Quilmar [Mayor]"), padre), sel_(sel) {
    setObjectName(QStringLiteral("Form55"));
    rejilla() = RejillaMayor();
    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* ver =
        nuevaAccion(QStringLiteral("mnuVerAsiento"), QStringLiteral("Ver/Modificar Asiento"),
                    Accion::VerAsiento, [this] { verAsiento(filaActual()); });
    QAction* eliminar =
        nuevaAccion(QStringLiteral("mnuEliminarAs"), QStringLiteral("Eliminar Asiento"),
                    Accion::EliminarAsiento, [this] { eliminarAsiento(); });
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, imprimir},
                {5, accionExportar()},
                {7, ver},
                {8, eliminar}});
    for (QAction* x : {ver, eliminar, imprimir, accionExportar()})
        alMenu(x);
    ver->setEnabled(static_cast<bool>(Form5::VerModificarAsiento()));
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verAsiento(i.row()); });
}

Form55* Form55::AbrirConForm53(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form53 eleccion(s, a, d, padre);
    if (eleccion.exec() != QDialog::Accepted)
        return nullptr;
    auto* f = new Form55(s, a, d, eleccion.seleccion(), padre);
    f->show();
    QTimer::singleShot(0, f, &Form55::LlenarMayor);
    return f;
}

void Form55::LlenarMayor() {
    Llenar([this](const Progreso& p) {
        Conexion c = AbrirDatos(s_);
        ::LlenarMayor(c, s_, sel_, rejilla(), p);
    });
}

void Form55::Refrescar() {
    if (isVisible())
        LlenarMayor();
}

long Form55::asientoDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas() ||
        TipoCabeceraMayor(rejilla(), fila) != CabeceraMayor::Ninguna)
        return 0;
    const auto n = ValorCelda(rejilla().celda(fila, ColMovAsiento));
    return n ? std::lround(*n) : 0;
}

void Form55::verAsiento(int fila) {
    const long nas = asientoDeFila(fila);
    if (nas > 0 && Form5::VerModificarAsiento())
        Form5::VerModificarAsiento()(this, nas);
}

void Form55::eliminarAsiento() {
    const long nas = asientoDeFila(filaActual());
    if (!borrarAsiento(nas))
        return;
    LlenarMayor();
    Q_EMIT asientoEliminado(nas);
}

void Form55::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form85), a_, d_, this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    QString empresa;
    try {
        Conexion c = AbrirDatos(s_);
        empresa = c.escalar(QStringLiteral("SELECT Nombre FROM Empresa LIMIT 1")).toString();
    } catch (const ErrorQuilmar&) {
        return;
    }
    OpcionesImpresion op;
    op.titulo = TituloMayor;
    op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
    const OpcionesLibro opciones = opciones_;
    try {
        ImprimirLibro(
            this,
            [this, opciones, empresa](Impresora& imp, int) {
                DibujarMayor(imp, rejilla(), sel_, empresa.trimmed(), opciones);
            },
            op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

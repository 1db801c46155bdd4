#include "posting/forms/Form62.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/ListadosPlantillas.h"
#include "posting/Periodicos.h"
#include "posting/forms/Form63.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

namespace {

QPointer<Form62> abierta;

} // namespace

Form62::Form62(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : VentanaLibro(s, a, d, 62, QStringLiteral("Quilmar [Asientos periódicos]"), padre) {
    setObjectName(QStringLiteral("Form62"));
    rejilla() = RejillaPeriodicos();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("I&mprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* ver = nuevaAccion(QStringLiteral("mnuVer"), QStringLiteral("Ver/Modificar Asiento"),
                               Accion::VerAsiento, [this] { VerModificar(filaActual()); });
    QAction* eliminar =
        nuevaAccion(QStringLiteral("mnuEliminar"), QStringLiteral("Eliminar Asiento"),
                    Accion::EliminarAsiento, [this] { EliminarAsiento(filaActual()); });
    QAction* ayuda =
        nuevaAccion(QStringLiteral("mnuAyuda"), QStringLiteral("Ayuda"), Accion::Ayuda, [] {});
    ayuda->setEnabled(false); // no help pages yet
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, imprimir},
                {5, accionExportar()},
                {7, ver},
                {8, eliminar},
                {10, ayuda}});
    // Few actions, named on the buttons as the screen has always had them.
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("Toolbar1")))
        barra->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    alMenu(ver);
    alMenu(eliminar);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { VerModificar(i.row()); });

    auto* pista =
        new QLabel(QStringLiteral("Para ver, modificar o eliminar un asiento, clic con el "
                                  "botón derecho sobre el mismo"),
                   this);
    pista->setObjectName(QStringLiteral("Label1"));
    statusBar()->addWidget(pista);
    resize(720, 480);
}

Form62* Form62::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    if (!abierta)
        abierta = new Form62(s, a, d, padre);
    abierta->show();
    abierta->raise();
    abierta->activateWindow();
    QTimer::singleShot(0, abierta.data(), &Form62::LlenarFlex);
    return abierta;
}

void Form62::LlenarFlex() {
    Llenar([this](const Progreso&) {
        Conexion c = AbrirBavar(s_);
        LlenarPeriodicos(c, rejilla());
    });
}

void Form62::Refrescar() {
    if (isVisible())
        LlenarFlex();
}

QString Form62::nombreDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return {};
    return rejilla().Celda(fila, ColPerNombre);
}

void Form62::VerModificar(int fila) {
    const QString nombre = nombreDeFila(fila);
    if (nombre.isEmpty())
        return;
    {
        Form63 f(s_, a_, d_, this);
        if (f.Cargar(nombre))
            f.exec();
    }
    LlenarFlex();
}

void Form62::EliminarAsiento(int fila) {
    const QString nombre = nombreDeFila(fila);
    if (nombre.isEmpty())
        return;
    if (EliminarPeriodicoPreguntando(s_, d_, nombre))
        LlenarFlex();
}

void Form62::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Predi")), a_, d_,
                        this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    try {
        OpcionesImpresion op;
        op.titulo = TituloListaPeriodicos;
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, DibujoListaPeriodicos(rejilla(), NombreEmpresa(s_), opciones_), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

#include "posting/forms/Form67.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/ListadosPlantillas.h"
#include "posting/Predisenados.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form74.h"
#include "posting/forms/Form76.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

const QString MsgComoContabilizarPredisenado = QStringLiteral(
    "Para contabilizar pulse Control + el código del asiento en la pantalla principal o en la de "
    "gestión de Asientos. Pulsando F12 en las mismas pantallas visualiza la relación.");

namespace {

QPointer<Form67> abierta;

} // namespace

Form67::Form67(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : VentanaLibro(s, a, d, 67, QStringLiteral("Quilmar [Asientos Prediseñados]"), padre) {
    setObjectName(QStringLiteral("Form67"));
    rejilla() = RejillaPredisenados();

    QAction* nuevo = nuevaAccion(QStringLiteral("mnuNuevo"), QStringLiteral("&Nuevo"),
                                 Accion::Nuevo, [this] { Nuevo(); });
    QAction* ver = nuevaAccion(QStringLiteral("mnuVer"), QStringLiteral("&Ver"), Accion::VerAsiento,
                               [this] { Ver(filaActual()); });
    QAction* verAsiento =
        nuevaAccion(QStringLiteral("mnuVerAsiento"), QStringLiteral("Ver Asiento"), std::nullopt,
                    [this] { Ver(filaActual()); });
    QAction* eliminar =
        nuevaAccion(QStringLiteral("mnuEliminar"), QStringLiteral("Eliminar Asiento"),
                    Accion::EliminarAsiento, [this] { Eliminar(filaActual()); });
    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("&Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    ponerBarra({{1, accionCerrar()},
                {3, accionCopiar()},
                {4, nuevo},
                {5, ver},
                {6, eliminar},
                {8, imprimir},
                {9, accionExportar()}});
    // Few actions, named on the buttons as the screen has always had them.
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("Toolbar1")))
        barra->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    alMenu(verAsiento);
    alMenu(eliminar);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { Ver(i.row()); });

    auto* pista = new QLabel(MsgComoContabilizarPredisenado, this);
    pista->setObjectName(QStringLiteral("Label1"));
    pista->setWordWrap(true);
    statusBar()->addWidget(pista, 1);
    resize(640, 460);
}

Form67* Form67::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    if (!abierta)
        abierta = new Form67(s, a, d, padre);
    abierta->show();
    abierta->raise();
    abierta->activateWindow();
    QTimer::singleShot(0, abierta.data(), &Form67::LlenarFlex);
    return abierta;
}

void Form67::LlenarFlex() {
    Llenar([this](const Progreso&) {
        Conexion c = AbrirBavar(s_);
        LlenarPredisenados(c, rejilla());
    });
}

void Form67::Refrescar() {
    if (isVisible())
        LlenarFlex();
}

int Form67::codigoDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return -1;
    return LeerCodigoPredi(rejilla().Celda(fila, ColPreCodigo)).value_or(-1);
}

void Form67::Nuevo() {
    {
        Form74 f(s_, a_, d_, this);
        f.exec();
    }
    LlenarFlex();
}

void Form67::Ver(int fila) {
    const int codigo = codigoDeFila(fila);
    if (codigo < 0)
        return;
    {
        Form74 f(s_, a_, d_, this);
        if (f.Cargar(codigo))
            f.exec();
    }
    LlenarFlex();
}

void Form67::Eliminar(int fila) {
    const int codigo = codigoDeFila(fila);
    if (codigo < 0)
        return;
    if (EliminarPredisenadoPreguntando(s_, d_, codigo, rejilla().Celda(fila, ColPreNombre)))
        LlenarFlex();
}

void Form67::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Predi")), a_, d_,
                        this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        OpcionesImpresion op;
        op.titulo = TituloListaPredisenados;
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, DibujoListaPredisenados(rejilla(), empresa, opciones_), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

bool Form67::AsTipo(Sesion& s, Ajustes& a, Dialogo& d, int codigo, QWidget* padre) {
    PantallaApunteForm76 pantalla(s, a, d, padre);
    const std::optional<AsientoPredisenado> asiento =
        ::AsTipo(s, d, pantalla, codigo, QDate::currentDate());
    if (!asiento)
        return false;
    // A new entry on the maintenance screen, whose "&Aceptar" posts it.
    Form1* tablero = qobject_cast<Form1*>(padre ? padre->window() : nullptr);
    Form7* f = VMAsiento(s, a, d, 0, tablero);
    f->NuevoConLineas(asiento->Lineas, asiento->Fecha);
    return true;
}

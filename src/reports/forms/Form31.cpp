#include "reports/forms/Form31.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/ImpresionIngresosGastos.h"
#include "reports/forms/Form5.h"
#include "reports/forms/SeleccionIyG.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>

Form31::Form31(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionListaIyG& sel, QWidget* padre)
    : VentanaLibro(s, a, d, 0, QStringLiteral("Quilmar [Lista de Ingresos y Gastos]"), padre),
      sel_(sel) {
    setObjectName(QStringLiteral("Form31"));
    rejilla() = RejillaListaIyG();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* ver =
        nuevaAccion(QStringLiteral("mnuVerAsiento"), QStringLiteral("Ver/Modificar Asiento"),
                    Accion::VerAsiento, [this] { verAsiento(filaActual()); });
    ver->setEnabled(static_cast<bool>(Form5::VerModificarAsiento()));
    ponerBarra(
        {{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, {5, accionExportar()}, {7, ver}});
    alMenu(ver);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verAsiento(i.row()); });

    QString texto =
        (sel_.clase == ClaseIyG::Ingresos ? QStringLiteral("Ingresos") : QStringLiteral("Gastos")) +
        QStringLiteral("   Desde ") + FormatoFecha(sel_.desde, "short date") +
        QStringLiteral(" hasta ") + FormatoFecha(sel_.hasta, "short date");
    if (!sel_.sector.isEmpty())
        texto += QStringLiteral("   Sector: ") + sel_.sector;
    auto* etiqueta = new QLabel(texto, this);
    etiqueta->setObjectName(QStringLiteral("Label1"));
    statusBar()->addWidget(etiqueta);
}

Form31* Form31::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form30 f(s, a, d, padre);
    if (f.exec() != QDialog::Accepted)
        return nullptr;
    auto* l = new Form31(s, a, d, f.seleccion(), padre);
    l->show();
    QTimer::singleShot(0, l, &Form31::LlenarLista);
    return l;
}

void Form31::LlenarLista() {
    int lineas = -1;
    Llenar([this, &lineas](const Progreso&) {
        Conexion c = AbrirDatos(s_);
        lineas = LlenarListaIyG(c, sel_, rejilla());
    });
    if (lineas == 0) {
        d_.Informar(MsgSinRegistrosIyG);
        close();
    }
}

void Form31::Refrescar() {
    if (isVisible())
        LlenarLista();
}

long Form31::asientoDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return 0;
    return long(ValorCelda(rejilla().celda(fila, ColLisAsiento)).value_or(0));
}

void Form31::verAsiento(int fila) {
    const long nas = asientoDeFila(fila);
    if (nas > 0 && Form5::VerModificarAsiento())
        Form5::VerModificarAsiento()(this, nas);
}

void Form31::Imprimir() {
    try {
        const QString empresa = NombreEmpresa(s_);
        const OpcionesLibro op = OpcionesListadoIyG(a_);
        OpcionesImpresion oi;
        oi.titulo = TituloListaIyG;
        oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(
            this,
            [this, empresa, op](Impresora& imp, int) {
                DibujarListaIyG(imp, rejilla(), sel_, empresa, op);
            },
            oi);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

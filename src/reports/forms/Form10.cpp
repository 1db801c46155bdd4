#include "reports/forms/Form10.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "reports/Diario.h"
#include "reports/ImpresionMayor.h"
#include "reports/forms/CajasSubcuenta.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form9.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

Form10::Form10(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : VentanaLibro(s, a, d, 10, QStringLiteral("Quilmar [Movimientos de una Subcuenta]"), padre) {
    setObjectName(QStringLiteral("Form10"));
    rejilla() = RejillaMovimientos();

    // The boxes above the grid, the two lines of totals under it.
    cajas_ = new CajasSubcuenta(s, this);
    pie_ = new QWidget(this);
    auto* g = new QGridLayout(pie_);
    g->setContentsMargins(0, 0, 0, 0);
    g->setColumnStretch(0, 1);
    int fila = 0;
    for (const char* linea : {"Periodo", "Acumulado"}) {
        auto* titulo = new QLabel(QString::fromLatin1(linea).toUpper(), pie_);
        titulo->setObjectName(QString::fromLatin1(linea));
        g->addWidget(titulo, fila, 1);
        int col = 2;
        for (const char* que : {"Debe", "Haber", "Saldo"}) {
            auto* v = new QLabel(pie_);
            v->setObjectName(QString::fromLatin1(linea) + QString::fromLatin1(que));
            v->setFrameShape(QFrame::Panel);
            v->setFrameShadow(QFrame::Sunken);
            v->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            v->setMinimumWidth(
                v->fontMetrics().horizontalAdvance(QStringLiteral("000.000.000,00")));
            v->setTextInteractionFlags(Qt::TextSelectableByMouse);
            g->addWidget(v, fila, col++);
        }
        ++fila;
    }
    pie_->hide();
    QWidget* vista = takeCentralWidget();
    auto* centro = new QWidget(this);
    auto* columna = new QVBoxLayout(centro);
    columna->addWidget(cajas_);
    columna->addWidget(vista, 1);
    columna->addWidget(pie_);
    setCentralWidget(centro);

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
    connect(cajas_, &CajasSubcuenta::cambiada, this, &Form10::cajasCambiadas);
}

Form10* Form10::Abrir(Sesion& s, Ajustes& a, Dialogo& d, const PeticionMovimientos& p,
                      QWidget* padre) {
    auto* f = new Form10(s, a, d, padre);
    f->cajas_->poner(p);
    SeleccionMovimientos sel;
    sel.desde = p.desde.isValid() ? p.desde : s.FechaIniEj;
    sel.hasta = p.hasta.isValid() ? p.hasta : s.FechaFinEj;
    sel.ncuenta = p.ncuenta;
    sel.nombre = p.nombre.trimmed();
    f->show();
    f->Mostrar(sel);
    return f;
}

Form10* Form10::AbrirConForm9(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form9 eleccion(s, a, d, padre);
    if (eleccion.exec() != QDialog::Accepted)
        return nullptr;
    auto* f = new Form10(s, a, d, padre);
    PeticionMovimientos p{eleccion.seleccion().desde,
                          eleccion.seleccion().hasta,
                          {},
                          eleccion.seleccion().ncuenta,
                          eleccion.seleccion().nombre};
    f->cajas_->poner(p);
    f->cajas_->ponerSector(eleccion.seleccion().sector);
    f->show();
    f->Mostrar(eleccion.seleccion());
    return f;
}

void Form10::Mostrar(const SeleccionMovimientos& sel) {
    sel_ = sel;
    conSeleccion_ = true;
    LlenarMayor();
}

void Form10::LlenarMayor() {
    if (!conSeleccion_)
        return;
    pie_->hide();
    Llenar([this](const Progreso&) {
        Conexion c = AbrirDatos(s_);
        totales_ = ::LlenarMovimientos(c, s_, sel_, rejilla());
    });
    if (rejilla().Filas() > 0)
        tabla()->setCurrentIndex(tabla()->model()->index(rejilla().Filas() - 1, 0));
    // The totals show once the list stands.
    QTimer::singleShot(0, this, &Form10::mostrarTotales);
}

void Form10::mostrarTotales() {
    auto poner = [this](const QString& nombre, double v) {
        etiqueta(nombre)->setText(Formato(v, QStringLiteral("standard")));
    };
    poner(QStringLiteral("PeriodoDebe"), totales_.periodo.debe);
    poner(QStringLiteral("PeriodoHaber"), totales_.periodo.haber);
    poner(QStringLiteral("PeriodoSaldo"), totales_.periodo.saldo);
    poner(QStringLiteral("AcumuladoDebe"), totales_.acumulado.debe);
    poner(QStringLiteral("AcumuladoHaber"), totales_.acumulado.haber);
    poner(QStringLiteral("AcumuladoSaldo"), totales_.acumulado.saldo);
    for (const char* n : {"Acumulado", "AcumuladoDebe", "AcumuladoHaber", "AcumuladoSaldo"})
        pie_->findChild<QLabel*>(QString::fromLatin1(n))->setVisible(totales_.conAcumulado);
    pie_->show();
}

QLabel* Form10::etiqueta(const QString& nombre) const {
    return pie_->findChild<QLabel*>(nombre);
}

void Form10::cajasCambiadas() {
    if (!cajas_->fechasValidas(d_))
        return;
    const CajasMovimientos c = cajas_->cajas();
    if (c.area.trimmed().isEmpty()) {
        d_.Informar(MsgMovAreaForm10);
        return;
    }
    try {
        const auto sel = ValidarSeleccionMovimientos(c, s_, d_);
        if (sel)
            Mostrar(*sel);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form10::Refrescar() {
    if (isVisible())
        LlenarMayor();
}

long Form10::asientoDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas())
        return 0;
    const auto n = ValorCelda(rejilla().celda(fila, ColMovAsiento));
    return n ? std::lround(*n) : 0;
}

void Form10::verAsiento(int fila) {
    const long nas = asientoDeFila(fila);
    if (nas > 0 && Form5::VerModificarAsiento())
        Form5::VerModificarAsiento()(this, nas);
}

void Form10::eliminarAsiento() {
    const long nas = asientoDeFila(filaActual());
    if (!borrarAsiento(nas))
        return;
    // The list stays open and shows the subaccount without the entry.
    LlenarMayor();
    Q_EMIT asientoEliminado(nas);
}

void Form10::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form80), a_, d_, this);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado || !conSeleccion_)
        return;
    OpcionesImpresion op;
    op.titulo = TituloMayor;
    op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
    const OpcionesLibro opciones = opciones_;
    try {
        ImprimirLibro(
            this,
            [this, opciones](Impresora& imp, int) {
                DibujarMovimientos(imp, rejilla(), totales_, sel_, opciones);
            },
            op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

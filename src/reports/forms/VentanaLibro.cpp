#include "reports/forms/VentanaLibro.h"

#include "platform/Errores.h"
#include "platform/forms/ExportarDialogo.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/Ventana.h"
#include "platform/forms/VistaRejilla.h"
#include "reports/Diario.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

VentanaLibro::VentanaLibro(Sesion& s, Ajustes& a, Dialogo& d, int numero, const QString& titulo,
                           QWidget* padre)
    : QMainWindow(padre, Qt::Window), s_(s), a_(a), d_(d), vista_(new VistaRejilla(this)),
      progreso_(new QProgressBar(this)) {
    setWindowTitle(titulo);
    setAttribute(Qt::WA_DeleteOnClose);
    setCentralWidget(vista_);
    progreso_->setObjectName(QStringLiteral("Progreso"));
    progreso_->setMaximumWidth(240);
    progreso_->setTextVisible(false);
    progreso_->hide();
    statusBar()->addPermanentWidget(progreso_);
    statusBar()->setSizeGripEnabled(true);

    cerrar_ = nuevaAccion(QStringLiteral("mnuCerrar"), QStringLiteral("Cerrar"), Accion::Cerrar,
                          [this] { close(); });
    copiar_ = nuevaAccion(QStringLiteral("mnuCopiar"), QStringLiteral("Copiar"), Accion::Copiar,
                          [this] { Copiar(); });
    exportar_ = nuevaAccion(QStringLiteral("mnuExportar"), QStringLiteral("Exportar"),
                            Accion::Exportar, [this] { Exportar(); });

    // The grid's own "Copiar" is this window's, so that menu and toolbar are one action.
    connect(vista_->tabla(), &TablaRejilla::prepararMenu, this, [this](QMenu* menu, int, int) {
        const QList<QAction*> propias = menu->actions();
        if (!propias.isEmpty()) {
            propias.first()->setObjectName(QStringLiteral("mnuCopiar"));
            propias.first()->setIcon(copiar_->icon());
        }
        for (QAction* a : menu_)
            menu->addAction(a);
    });
    resize(900, 560);
    PrepararVentana(this, a, numero);
}

VentanaLibro::~VentanaLibro() {
    // The grid goes before the widgets: a window deleted while shown hides its table afterwards,
    // and the table must not read the grid then.
    vista_->mostrar(nullptr);
}

TablaRejilla* VentanaLibro::tabla() const {
    return vista_->tabla();
}

int VentanaLibro::filaActual() const {
    const QModelIndex i = tabla()->currentIndex();
    return i.isValid() ? i.row() : -1;
}

QAction* VentanaLibro::accion(const QString& nombre) const {
    return findChild<QAction*>(nombre, Qt::FindDirectChildrenOnly);
}

QAction* VentanaLibro::boton(int indice) const {
    return indice > 0 && indice < botones_.size() ? botones_.at(indice) : nullptr;
}

QAction* VentanaLibro::nuevaAccion(const QString& nombre, const QString& texto,
                                   std::optional<Accion> dibujo, std::function<void()> hacer) {
    auto* a = new QAction(texto, this);
    a->setObjectName(nombre);
    // Without a picture it goes in the menus only, under its own name.
    a->setToolTip(QString(texto).remove(u'&'));
    if (dibujo)
        PonerIcono(a, *dibujo);
    connect(a, &QAction::triggered, this, [hacer = std::move(hacer)] { hacer(); });
    return a;
}

void VentanaLibro::ponerBarra(const QList<QPair<int, QAction*>>& botones) {
    auto* barra = addToolBar(QStringLiteral("Herramientas"));
    barra->setObjectName(QStringLiteral("Toolbar1"));
    barra->setMovable(false);
    barra->setToolButtonStyle(Qt::ToolButtonIconOnly);
    int ultimo = 0;
    for (const auto& b : botones)
        ultimo = qMax(ultimo, b.first);
    botones_.fill(nullptr, ultimo + 1);
    int siguiente = 1;
    for (const auto& b : botones) {
        // The indexes skipped are the separators between groups of buttons.
        if (b.first > siguiente)
            for (int i = siguiente; i < b.first; ++i)
                botones_[i] = barra->addSeparator();
        barra->addAction(b.second);
        botones_[b.first] = b.second;
        siguiente = b.first + 1;
    }
}

void VentanaLibro::alMenu(QAction* accion) {
    menu_ << accion;
}

void VentanaLibro::Llenar(const std::function<void(const Progreso&)>& llenar) {
    if (llenando_)
        return;
    llenando_ = true;
    tabla()->terminarEdicion();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // The old rows leave the view before the grid changes under it.
    vista_->mostrar(nullptr);
    progreso_->setRange(0, 0);
    progreso_->show();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QElapsedTimer reloj;
    reloj.start();
    const Progreso avance = [this, &reloj](qint64 hecho, qint64 total) {
        // A repaint now and then: the bar moves, the fill stays fast.
        if (reloj.elapsed() < 100)
            return;
        reloj.restart();
        if (total > 0) {
            progreso_->setRange(0, 1000);
            progreso_->setValue(int(qMin<qint64>(1000, hecho * 1000 / total)));
        }
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    try {
        llenar(avance);
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        progreso_->hide();
        vista_->mostrar(&rejilla_);
        llenando_ = false;
        d_.Informar(e.mensaje());
        return;
    }
    vista_->mostrar(&rejilla_);
    progreso_->hide();
    QApplication::restoreOverrideCursor();
    llenando_ = false;
}

void VentanaLibro::Exportar() {
    tabla()->terminarEdicion();
    ExportarConDialogo(this, rejilla_, d_);
}

void VentanaLibro::Copiar() {
    tabla()->terminarEdicion();
    tabla()->copiar();
}

void VentanaLibro::Refrescar() {}

bool VentanaLibro::borrarAsiento(long nas) {
    if (nas <= 0)
        return false;
    try {
        return EliminarAsientoDiario(s_, d_, nas);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return false;
    }
}

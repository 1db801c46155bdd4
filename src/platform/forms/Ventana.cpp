#include "platform/forms/Ventana.h"

#include "platform/Ajustes.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>
#include <QRect>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace {

// Writes the window's size when it is hidden by the program (closed, accepted, rejected).
class GuardaTamano : public QObject {
public:
    GuardaTamano(QWidget* ventana, Ajustes& ajustes, int n)
        : QObject(ventana), ventana_(ventana), ajustes_(ajustes), n_(n) {}

    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (objeto == ventana_ && evento->type() == QEvent::Hide && !evento->spontaneous()) {
            const QSize t = ventana_->isMaximized() || ventana_->isFullScreen()
                                ? ventana_->normalGeometry().size()
                                : ventana_->size();
            if (t.isValid())
                ajustes_.guardarTamanoVentana(n_, t);
        }
        return false;
    }

private:
    QWidget* ventana_;
    Ajustes& ajustes_;
    int n_;
};

} // namespace

namespace {

// A button made the default before it was placed in its dialog is not the dialog's: the dialog
// then gives Enter to whichever button comes first (a browse button, or a disabled one that
// does nothing). Once the form is built, its default button is made the dialog's own.
void afirmarBotonPredeterminado(QWidget* ventana) {
    if (!qobject_cast<QDialog*>(ventana))
        return;
    for (QPushButton* b : ventana->findChildren<QPushButton*>())
        if (b->isDefault()) {
            b->setDefault(false);
            b->setDefault(true);
            return;
        }
}

} // namespace

void PrepararVentana(QWidget* ventana, Ajustes& ajustes, int n) {
    afirmarBotonPredeterminado(ventana);
    QFont letra = ventana->font();
    letra.setFamily(ajustes.leer(QStringLiteral("Valores"), QStringLiteral("NLetra")));
    const double puntos =
        ajustes.leerNumero(QStringLiteral("Valores"), QStringLiteral("TLetra"), 9);
    if (puntos > 0)
        letra.setPointSizeF(puntos);
    ventana->setFont(letra);
    if (n <= 0)
        return;
    const QScreen* pantalla =
        ventana->screen() ? ventana->screen() : QGuiApplication::primaryScreen();
    const QSize disponible = pantalla ? pantalla->availableGeometry().size() : QSize(1024, 768);
    const QSize disenado =
        (ventana->testAttribute(Qt::WA_Resized) ? ventana->size() : ventana->sizeHint())
            .boundedTo(disponible);
    ventana->resize(ajustes.tamanoVentana(n, disenado, disponible));
    ventana->installEventFilter(new GuardaTamano(ventana, ajustes, n));
}

void ColocarEnZona(QWidget* ventana, const QRect& zona) {
    const QScreen* pantalla = QGuiApplication::screenAt(zona.topLeft());
    if (!pantalla)
        pantalla = ventana->screen() ? ventana->screen() : QGuiApplication::primaryScreen();
    const QRect libre = pantalla ? pantalla->availableGeometry() : QRect(0, 0, 1024, 768);
    // The window's frame is outside its size: the one the system gives it once shown, else
    // the style's title bar and a thin border.
    QMargins marco = ventana->windowHandle() ? ventana->windowHandle()->frameMargins() : QMargins();
    if (marco.isNull()) {
        const int borde = 4;
        marco = QMargins(borde, ventana->style()->pixelMetric(QStyle::PM_TitleBarHeight) + borde,
                         borde, borde);
    }
    const QRect sitio = zona.intersected(libre).marginsRemoved(marco);
    const QRect todo = libre.marginsRemoved(marco);
    const QSize minimo = ventana->minimumSizeHint().expandedTo(ventana->minimumSize());
    const int ancho = qBound(qMin(minimo.width(), todo.width()), ventana->width(),
                             qMax(sitio.width(), qMin(minimo.width(), todo.width())));
    const int alto = qBound(qMin(minimo.height(), todo.height()), ventana->height(),
                            qMax(sitio.height(), qMin(minimo.height(), todo.height())));
    const int x = qMin(sitio.left(), todo.right() + 1 - ancho);
    const int y = qMin(sitio.top(), todo.bottom() + 1 - alto);
    ventana->resize(ancho, alto);
    // move() places the frame, which lies outside by its margins.
    ventana->move(qMax(todo.left(), x) - marco.left(), qMax(todo.top(), y) - marco.top());
}

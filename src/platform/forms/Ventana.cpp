#include "platform/forms/Ventana.h"

#include "platform/Ajustes.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

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

void PrepararVentana(QWidget* ventana, Ajustes& ajustes, int n) {
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
        ventana->testAttribute(Qt::WA_Resized) ? ventana->size() : ventana->sizeHint();
    ventana->resize(ajustes.tamanoVentana(n, disenado, disponible));
    ventana->installEventFilter(new GuardaTamano(ventana, ajustes, n));
}

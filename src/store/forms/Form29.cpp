#include "store/forms/Form29.h"

#include "platform/forms/Ventana.h"
#include "store/forms/Portada.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

Form29::Form29(Ajustes& ajustes, QWidget* padre)
    : QWidget(padre, Qt::Window | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("Form29"));
    setWindowTitle(QStringLiteral("Quilmar"));
    resize(520, 300);
    PrepararVentana(this, ajustes, 29);
    if (const QScreen* pantalla = QGuiApplication::primaryScreen())
        move(pantalla->availableGeometry().center() - rect().center());
}

void Form29::paintEvent(QPaintEvent*) {
    QPainter g(this);
    g.drawPixmap(0, 0, ImagenPortada(size()));
}

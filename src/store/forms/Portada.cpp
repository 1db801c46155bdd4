#include "store/forms/Portada.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

QPixmap ImagenPortada(const QSize& tamano) {
    QPixmap p(tamano);
    QPainter g(&p);
    g.setRenderHint(QPainter::Antialiasing);
    const QRectF r(QPointF(0, 0), QSizeF(tamano));

    QLinearGradient fondo(r.topLeft(), r.bottomRight());
    fondo.setColorAt(0, QColor(0x1f, 0x4e, 0x79));
    fondo.setColorAt(1, QColor(0x3f, 0x8f, 0x6f));
    g.fillRect(r, fondo);

    // Seven squares, one for each area of the chart, in the colours of an open book.
    const double lado = r.height() * 0.11;
    const double paso = lado * 1.25;
    const double x0 = r.width() / 2 - (7 * paso - (paso - lado)) / 2;
    const double y0 = r.height() * 0.18;
    const QColor colores[7] = {QColor(0xc0, 0xff, 0xc0), QColor(0xff, 0xe0, 0xc0),
                               QColor(0xff, 0xff, 0xc0), QColor(0xc0, 0xe0, 0xff),
                               QColor(0xe0, 0xc0, 0xff), QColor(0xff, 0xc0, 0xc0),
                               QColor(0xc0, 0xff, 0xff)};
    for (int i = 0; i < 7; ++i) {
        QPainterPath cuadro;
        cuadro.addRoundedRect(QRectF(x0 + i * paso, y0, lado, lado), lado * 0.18, lado * 0.18);
        g.fillPath(cuadro, colores[i]);
        g.setPen(QColor(0x20, 0x30, 0x40));
        QFont n(QStringLiteral("Arial"));
        n.setPixelSize(static_cast<int>(lado * 0.55));
        n.setBold(true);
        g.setFont(n);
        g.drawText(QRectF(x0 + i * paso, y0, lado, lado), Qt::AlignCenter, QString::number(i));
    }

    g.setPen(Qt::white);
    QFont titulo(QStringLiteral("Arial"));
    titulo.setPixelSize(static_cast<int>(r.height() * 0.2));
    titulo.setBold(true);
    g.setFont(titulo);
    g.drawText(QRectF(0, r.height() * 0.36, r.width(), r.height() * 0.28), Qt::AlignCenter,
               QStringLiteral("Quilmar"));
    QFont lema(QStringLiteral("Arial"));
    lema.setPixelSize(static_cast<int>(r.height() * 0.065));
    g.setFont(lema);
    g.drawText(QRectF(0, r.height() * 0.64, r.width(), r.height() * 0.1), Qt::AlignCenter,
               QStringLiteral("Contabilidad por imágenes"));
    const QString lema2 = QStringLiteral("Contabilidad de doble entrada para particulares, "
                                         "autónomos y pequeñas empresas");
    QFont pie(QStringLiteral("Arial"));
    pie.setPixelSize(qMax(6, static_cast<int>(r.height() * 0.045)));
    // The line fits the width of a small picture too.
    while (pie.pixelSize() > 6 && QFontMetrics(pie).horizontalAdvance(lema2) > r.width() * 0.94)
        pie.setPixelSize(pie.pixelSize() - 1);
    g.setFont(pie);
    g.setPen(QColor(0xdd, 0xe8, 0xf0));
    g.drawText(QRectF(0, r.height() * 0.8, r.width(), r.height() * 0.1), Qt::AlignCenter, lema2);
    return p;
}

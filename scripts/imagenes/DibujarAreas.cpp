// Draws the default pictures of the seven areas of the board into data/imagenes, as JPEG files
// with the names the board looks for. Run once when the drawings change:
//
//   g++ -std=c++20 -fPIC scripts/imagenes/DibujarAreas.cpp -o /tmp/dibujar \
//       $(pkg-config --cflags --libs Qt6Gui) && QT_QPA_PLATFORM=offscreen /tmp/dibujar
//       data/imagenes
//
// Flat drawings in one palette: a sky or wall in soft gradient, the subject in the middle, a
// shadow under it. Drawn at 640 x 480.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

namespace {

constexpr int Ancho = 640, Alto = 480;

QColor c(const char* hex) {
    return QColor(QString::fromLatin1(hex));
}

void cielo(QPainter& p, const char* arriba, const char* abajo) {
    QLinearGradient g(0, 0, 0, Alto);
    g.setColorAt(0, c(arriba));
    g.setColorAt(1, c(abajo));
    p.fillRect(QRectF(0, 0, Ancho, Alto), g);
}

void sombra(QPainter& p, QPointF centro, double rx, double ry, int alfa = 60) {
    QRadialGradient g(centro, rx);
    g.setColorAt(0, QColor(0, 0, 0, alfa));
    g.setColorAt(1, QColor(0, 0, 0, 0));
    p.save();
    p.translate(centro);
    p.scale(1, ry / rx);
    p.translate(-centro);
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(centro, rx, rx);
    p.restore();
}

void nube(QPainter& p, double x, double y, double e) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 220));
    p.drawEllipse(QPointF(x, y), 34 * e, 22 * e);
    p.drawEllipse(QPointF(x + 30 * e, y - 10 * e), 30 * e, 26 * e);
    p.drawEllipse(QPointF(x + 62 * e, y), 32 * e, 20 * e);
    p.drawRoundedRect(QRectF(x - 20 * e, y, 100 * e, 20 * e), 10 * e, 10 * e);
}

void sol(QPainter& p, QPointF centro, double r) {
    QRadialGradient g(centro, r * 2.2);
    g.setColorAt(0, QColor(255, 236, 150, 200));
    g.setColorAt(1, QColor(255, 236, 150, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(g);
    p.drawEllipse(centro, r * 2.2, r * 2.2);
    p.setBrush(c("#ffd54f"));
    p.drawEllipse(centro, r, r);
}

void arbol(QPainter& p, double x, double suelo, double e) {
    p.setPen(Qt::NoPen);
    p.setBrush(c("#6d4c41"));
    p.drawRect(QRectF(x - 6 * e, suelo - 60 * e, 12 * e, 60 * e));
    p.setBrush(c("#43a047"));
    p.drawEllipse(QPointF(x, suelo - 90 * e), 38 * e, 44 * e);
    p.setBrush(c("#66bb6a"));
    p.drawEllipse(QPointF(x - 10 * e, suelo - 102 * e), 22 * e, 24 * e);
}

// 0: a house with its garden.
void chalet(QPainter& p) {
    cielo(p, "#8ec9f0", "#e3f3fc");
    sol(p, QPointF(540, 90), 34);
    nube(p, 90, 90, 1.0);
    nube(p, 330, 60, 0.7);
    // Hills and lawn.
    p.setPen(Qt::NoPen);
    p.setBrush(c("#a5d6a7"));
    p.drawEllipse(QPointF(120, 420), 320, 110);
    p.setBrush(c("#81c784"));
    p.drawEllipse(QPointF(560, 430), 300, 100);
    p.setBrush(c("#66bb6a"));
    p.drawRect(QRectF(0, 390, Ancho, 90));
    sombra(p, QPointF(320, 392), 230, 18, 70);
    arbol(p, 95, 392, 1.1);
    arbol(p, 555, 392, 0.95);
    // Walls.
    const QRectF muro(175, 230, 290, 160);
    QLinearGradient gm(muro.topLeft(), muro.bottomLeft());
    gm.setColorAt(0, c("#fff8e7"));
    gm.setColorAt(1, c("#f3e3c3"));
    p.setBrush(gm);
    p.drawRect(muro);
    // Roof.
    QPainterPath tejado;
    tejado.moveTo(150, 238);
    tejado.lineTo(320, 120);
    tejado.lineTo(490, 238);
    tejado.closeSubpath();
    p.setBrush(c("#c0504d"));
    p.drawPath(tejado);
    p.setBrush(c("#a63f3c"));
    p.drawRect(QRectF(150, 232, 340, 10));
    // Chimney.
    p.setBrush(c("#8d6e63"));
    p.drawRect(QRectF(400, 140, 26, 60));
    // Door and windows.
    p.setBrush(c("#795548"));
    p.drawRoundedRect(QRectF(295, 300, 50, 90), 4, 4);
    p.setBrush(c("#ffca28"));
    p.drawEllipse(QPointF(335, 348), 3.5, 3.5);
    for (double x : {205.0, 385.0}) {
        p.setBrush(c("#ffffff"));
        p.drawRect(QRectF(x - 3, 272, 56, 56));
        QLinearGradient gv(x, 275, x + 50, 325);
        gv.setColorAt(0, c("#bbdefb"));
        gv.setColorAt(1, c("#64b5f6"));
        p.setBrush(gv);
        p.drawRect(QRectF(x, 275, 50, 50));
        p.setBrush(c("#ffffff"));
        p.drawRect(QRectF(x + 23, 275, 4, 50));
        p.drawRect(QRectF(x, 298, 50, 4));
    }
    // Round window in the gable.
    p.setBrush(c("#ffffff"));
    p.drawEllipse(QPointF(320, 195), 20, 20);
    p.setBrush(c("#90caf9"));
    p.drawEllipse(QPointF(320, 195), 16, 16);
    // Path and hedge.
    QPainterPath camino;
    camino.moveTo(300, 390);
    camino.lineTo(340, 390);
    camino.lineTo(380, 480);
    camino.lineTo(260, 480);
    camino.closeSubpath();
    p.setBrush(c("#e0c9a6"));
    p.drawPath(camino);
    p.setBrush(c("#388e3c"));
    for (int i = 0; i < 5; ++i) {
        p.drawEllipse(QPointF(190 + i * 20, 390), 14, 12);
        p.drawEllipse(QPointF(370 + i * 20, 390), 14, 12);
    }
}

void billete(QPainter& p, QRectF r, double angulo, const QColor& color) {
    p.save();
    p.translate(r.center());
    p.rotate(angulo);
    const QRectF b(-r.width() / 2, -r.height() / 2, r.width(), r.height());
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 40));
    p.drawRoundedRect(b.translated(4, 6), 8, 8);
    p.setBrush(color);
    p.drawRoundedRect(b, 8, 8);
    p.setBrush(color.lighter(125));
    p.drawRoundedRect(b.adjusted(10, 10, -10, -10), 5, 5);
    p.setBrush(color);
    p.drawEllipse(b.center(), b.height() * 0.26, b.height() * 0.26);
    p.setPen(QPen(color.darker(140), 3));
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPixelSize(static_cast<int>(b.height() * 0.3));
    p.setFont(f);
    p.drawText(b.adjusted(18, 12, -18, -12), Qt::AlignTop | Qt::AlignLeft, QStringLiteral("50"));
    p.drawText(b.adjusted(18, 12, -18, -12), Qt::AlignBottom | Qt::AlignRight,
               QStringLiteral("50"));
    p.setFont(QFont(QStringLiteral("DejaVu Sans"), 1));
    f.setPixelSize(static_cast<int>(b.height() * 0.32));
    p.setFont(f);
    p.drawText(QRectF(b.center().x() - 40, b.center().y() - 30, 80, 60), Qt::AlignCenter,
               QStringLiteral("€"));
    p.restore();
}

void moneda(QPainter& p, QPointF centro, double r, bool bicolor) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 45));
    p.drawEllipse(centro + QPointF(3, 5), r, r * 0.96);
    QRadialGradient g(centro - QPointF(r * 0.3, r * 0.3), r * 1.3);
    g.setColorAt(0, c("#fff3c4"));
    g.setColorAt(1, c("#d4a017"));
    p.setBrush(g);
    p.drawEllipse(centro, r, r);
    if (bicolor) {
        QRadialGradient g2(centro - QPointF(r * 0.2, r * 0.2), r);
        g2.setColorAt(0, c("#f5f5f5"));
        g2.setColorAt(1, c("#b0b0b0"));
        p.setBrush(g2);
        p.drawEllipse(centro, r * 0.62, r * 0.62);
    }
    p.setPen(QPen(QColor(150, 110, 20, 160), 2));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(centro, r * 0.86, r * 0.86);
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPixelSize(static_cast<int>(r * 0.8));
    p.setFont(f);
    p.setPen(QColor(120, 85, 10));
    p.drawText(QRectF(centro.x() - r, centro.y() - r, 2 * r, 2 * r), Qt::AlignCenter,
               bicolor ? QStringLiteral("2") : QStringLiteral("1"));
}

// 1: banknotes and coins.
void dinero(QPainter& p) {
    cielo(p, "#e8f5e9", "#c8e6c9");
    sombra(p, QPointF(320, 400), 250, 30, 50);
    billete(p, QRectF(110, 150, 300, 150), -12, c("#5b9bd5"));
    billete(p, QRectF(210, 170, 300, 150), 6, c("#e88c4a"));
    billete(p, QRectF(160, 215, 300, 150), -3, c("#6aa84f"));
    moneda(p, QPointF(470, 360), 52, true);
    moneda(p, QPointF(390, 400), 40, false);
    moneda(p, QPointF(140, 385), 44, true);
    moneda(p, QPointF(540, 410), 30, false);
}

void tarjeta(QPainter& p, QPointF centro, double angulo, const QColor& a, const QColor& b,
             const QString& numero) {
    p.save();
    p.translate(centro);
    p.rotate(angulo);
    const QRectF r(-160, -100, 320, 200);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 50));
    p.drawRoundedRect(r.translated(6, 10), 18, 18);
    QLinearGradient g(r.topLeft(), r.bottomRight());
    g.setColorAt(0, a);
    g.setColorAt(1, b);
    p.setBrush(g);
    p.drawRoundedRect(r, 18, 18);
    // A light band, the chip and the number.
    p.setBrush(QColor(255, 255, 255, 35));
    QPainterPath onda;
    onda.moveTo(r.left(), r.top() + 120);
    onda.cubicTo(r.left() + 120, r.top() + 60, r.left() + 200, r.top() + 180, r.right(),
                 r.top() + 90);
    onda.lineTo(r.right(), r.bottom());
    onda.lineTo(r.left(), r.bottom());
    onda.closeSubpath();
    p.save();
    QPainterPath borde;
    borde.addRoundedRect(r, 18, 18);
    p.setClipPath(borde);
    p.drawPath(onda);
    p.restore();
    QLinearGradient gc(r.left() + 30, r.top() + 60, r.left() + 80, r.top() + 100);
    gc.setColorAt(0, c("#ffe082"));
    gc.setColorAt(1, c("#c9a227"));
    p.setBrush(gc);
    p.drawRoundedRect(QRectF(r.left() + 30, r.top() + 58, 54, 42), 7, 7);
    p.setPen(QPen(QColor(150, 120, 30), 1.5));
    p.drawLine(QPointF(r.left() + 30, r.top() + 79), QPointF(r.left() + 84, r.top() + 79));
    p.drawLine(QPointF(r.left() + 57, r.top() + 58), QPointF(r.left() + 57, r.top() + 100));
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setPixelSize(22);
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(255, 255, 255, 230));
    p.drawText(QRectF(r.left() + 30, r.top() + 118, 280, 30), Qt::AlignLeft, numero);
    f.setPixelSize(14);
    p.setFont(f);
    p.drawText(QRectF(r.left() + 30, r.top() + 158, 200, 24), Qt::AlignLeft,
               QStringLiteral("VÁLIDA HASTA 12/29"));
    // Two rings of a card brand.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 95, 0, 220));
    p.drawEllipse(QPointF(r.right() - 62, r.bottom() - 38), 20, 20);
    p.setBrush(QColor(255, 200, 0, 200));
    p.drawEllipse(QPointF(r.right() - 38, r.bottom() - 38), 20, 20);
    p.restore();
}

// 2: credit cards: what we owe.
void tarjetas(QPainter& p) {
    cielo(p, "#fdeff0", "#f6d5d8");
    sombra(p, QPointF(330, 410), 240, 26, 50);
    tarjeta(p, QPointF(260, 200), -14, c("#3f51b5"), c("#1a237e"),
            QStringLiteral("4000 1234 5678 9010"));
    tarjeta(p, QPointF(370, 290), 8, c("#e53935"), c("#8e0000"),
            QStringLiteral("5500 0000 0000 0004"));
}

// 3: an office, where income is earned: a desk with a screen that shows a rising chart.
void oficina(QPainter& p) {
    // Wall and floor.
    cielo(p, "#fff6e0", "#ffe9b8");
    p.setPen(Qt::NoPen);
    p.setBrush(c("#c8a27a"));
    p.drawRect(QRectF(0, 370, Ancho, 110));
    p.setBrush(c("#b48a60"));
    for (int x = 0; x < Ancho; x += 80)
        p.drawRect(QRectF(x, 370, 2, 110));
    // Window with a city.
    p.setBrush(c("#ffffff"));
    p.drawRect(QRectF(40, 50, 190, 170));
    QLinearGradient gv(0, 58, 0, 212);
    gv.setColorAt(0, c("#90caf9"));
    gv.setColorAt(1, c("#e3f2fd"));
    p.setBrush(gv);
    p.drawRect(QRectF(48, 58, 174, 154));
    p.setBrush(c("#b0bec5"));
    p.drawRect(QRectF(60, 140, 30, 72));
    p.drawRect(QRectF(96, 115, 36, 97));
    p.drawRect(QRectF(140, 150, 28, 62));
    p.drawRect(QRectF(174, 125, 38, 87));
    p.setBrush(c("#ffffff"));
    p.drawRect(QRectF(132, 58, 6, 154));
    // Plant.
    p.setBrush(c("#8d6e63"));
    p.drawRect(QRectF(540, 300, 50, 70));
    p.setBrush(c("#43a047"));
    for (int i = 0; i < 6; ++i) {
        p.save();
        p.translate(565, 300);
        p.rotate(-75 + i * 30);
        p.drawEllipse(QRectF(-10, -90, 20, 80));
        p.restore();
    }
    // Desk.
    sombra(p, QPointF(330, 440), 240, 20, 60);
    p.setBrush(c("#6d4c41"));
    p.drawRect(QRectF(120, 330, 16, 110));
    p.drawRect(QRectF(504, 330, 16, 110));
    p.setBrush(c("#8d6e63"));
    p.drawRoundedRect(QRectF(100, 318, 440, 22), 4, 4);
    // Screen with a rising chart.
    p.setBrush(c("#37474f"));
    p.drawRect(QRectF(305, 270, 30, 50));
    p.drawRoundedRect(QRectF(270, 310, 100, 10), 3, 3);
    p.setBrush(c("#263238"));
    p.drawRoundedRect(QRectF(210, 120, 220, 155), 10, 10);
    p.setBrush(c("#e8f5e9"));
    p.drawRect(QRectF(222, 132, 196, 131));
    p.setBrush(c("#66bb6a"));
    const double barras[] = {30, 52, 44, 70, 92};
    for (int i = 0; i < 5; ++i)
        p.drawRect(QRectF(238 + i * 36, 255 - barras[i], 24, barras[i]));
    p.setPen(QPen(c("#2e7d32"), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPainterPath linea;
    linea.moveTo(246, 210);
    linea.lineTo(286, 188);
    linea.lineTo(322, 196);
    linea.lineTo(358, 170);
    linea.lineTo(398, 146);
    p.setBrush(Qt::NoBrush);
    p.drawPath(linea);
    p.setPen(Qt::NoPen);
    p.setBrush(c("#2e7d32"));
    QPainterPath flecha;
    flecha.moveTo(408, 138);
    flecha.lineTo(388, 142);
    flecha.lineTo(400, 156);
    flecha.closeSubpath();
    p.drawPath(flecha);
    // Coffee cup and papers.
    p.setBrush(c("#ffffff"));
    p.drawRect(QRectF(140, 296, 80, 22));
    p.setBrush(c("#eeeeee"));
    p.drawRect(QRectF(146, 290, 80, 8));
    p.setBrush(c("#e57373"));
    p.drawRoundedRect(QRectF(460, 282, 30, 36), 4, 4);
    p.setPen(QPen(c("#e57373"), 5));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(494, 298), 9, 9);
}

// 4: a handshake: others owe us.
void manos(QPainter& p) {
    cielo(p, "#e3f2fd", "#bbdefb");
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 120));
    p.drawEllipse(QPointF(320, 240), 200, 200);
    sombra(p, QPointF(320, 420), 230, 22, 45);
    // Sleeves.
    p.setBrush(c("#1e88e5"));
    QPainterPath izq;
    izq.moveTo(0, 250);
    izq.lineTo(170, 205);
    izq.lineTo(205, 305);
    izq.lineTo(0, 360);
    izq.closeSubpath();
    p.drawPath(izq);
    p.setBrush(c("#1565c0"));
    p.drawPath(QTransform().rotate(0).map(izq).translated(0, 0));
    p.setBrush(c("#455a64"));
    QPainterPath der;
    der.moveTo(640, 250);
    der.lineTo(470, 205);
    der.lineTo(435, 305);
    der.lineTo(640, 360);
    der.closeSubpath();
    p.drawPath(der);
    // Cuffs.
    p.setBrush(c("#ffffff"));
    QPainterPath puno1;
    puno1.moveTo(170, 205);
    puno1.lineTo(192, 199);
    puno1.lineTo(228, 300);
    puno1.lineTo(205, 305);
    puno1.closeSubpath();
    p.drawPath(puno1);
    QPainterPath puno2;
    puno2.moveTo(470, 205);
    puno2.lineTo(448, 199);
    puno2.lineTo(412, 300);
    puno2.lineTo(435, 305);
    puno2.closeSubpath();
    p.drawPath(puno2);
    // The two hands clasped: a palm from each side and the fingers wrapped over.
    const QColor piel1 = c("#f2c29b"), piel2 = c("#d9a47a");
    p.setBrush(piel2);
    QPainterPath mano2;
    mano2.moveTo(450, 200);
    mano2.cubicTo(400, 185, 350, 195, 300, 215);
    mano2.cubicTo(280, 225, 285, 250, 310, 248);
    mano2.lineTo(350, 238);
    mano2.cubicTo(330, 270, 330, 300, 360, 310);
    mano2.lineTo(420, 300);
    mano2.closeSubpath();
    p.drawPath(mano2);
    p.setBrush(piel1);
    QPainterPath mano1;
    mano1.moveTo(190, 200);
    mano1.cubicTo(230, 190, 270, 200, 300, 215);
    mano1.lineTo(380, 250);
    mano1.cubicTo(400, 258, 398, 280, 380, 282);
    mano1.cubicTo(395, 290, 392, 310, 372, 312);
    mano1.cubicTo(382, 322, 376, 340, 356, 338);
    mano1.cubicTo(362, 352, 350, 362, 332, 356);
    mano1.lineTo(280, 335);
    mano1.cubicTo(250, 325, 230, 315, 220, 305);
    mano1.closeSubpath();
    p.drawPath(mano1);
    // Finger lines.
    p.setPen(QPen(piel1.darker(125), 2.5, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    for (const auto& [a, b] : {std::pair{QPointF(335, 262), QPointF(378, 280)},
                               std::pair{QPointF(330, 285), QPointF(370, 310)},
                               std::pair{QPointF(322, 307), QPointF(354, 336)}})
        p.drawLine(a, b);
    // Thumb of the right hand over the back of the left.
    p.setPen(Qt::NoPen);
    p.setBrush(piel2);
    QPainterPath pulgar;
    pulgar.moveTo(330, 212);
    pulgar.cubicTo(300, 205, 262, 212, 252, 226);
    pulgar.cubicTo(246, 238, 262, 244, 280, 238);
    pulgar.cubicTo(300, 232, 320, 232, 345, 230);
    pulgar.closeSubpath();
    p.drawPath(pulgar);
}

// 5: a building: goods and investments.
void edificio(QPainter& p) {
    cielo(p, "#b3e5fc", "#f1f8e9");
    nube(p, 70, 80, 0.9);
    nube(p, 470, 60, 0.8);
    p.setPen(Qt::NoPen);
    p.setBrush(c("#9e9e9e"));
    p.drawRect(QRectF(0, 410, Ancho, 70));
    p.setBrush(c("#bdbdbd"));
    p.drawRect(QRectF(0, 400, Ancho, 12));
    sombra(p, QPointF(320, 405), 220, 14, 80);
    // Side buildings.
    p.setBrush(c("#90a4ae"));
    p.drawRect(QRectF(60, 230, 110, 172));
    p.drawRect(QRectF(470, 200, 120, 202));
    p.setBrush(c("#cfd8dc"));
    for (int f = 0; f < 5; ++f)
        for (int k = 0; k < 3; ++k) {
            p.drawRect(QRectF(72 + k * 34, 245 + f * 30, 22, 18));
            p.drawRect(QRectF(484 + k * 36, 215 + f * 36, 24, 22));
        }
    // The main tower.
    QLinearGradient g(200, 0, 440, 0);
    g.setColorAt(0, c("#1976d2"));
    g.setColorAt(1, c("#0d47a1"));
    p.setBrush(g);
    p.drawRect(QRectF(200, 80, 240, 322));
    p.setBrush(c("#0d47a1"));
    p.drawRect(QRectF(190, 70, 260, 16));
    p.drawRect(QRectF(300, 40, 6, 32));
    for (int f = 0; f < 9; ++f)
        for (int k = 0; k < 5; ++k) {
            QLinearGradient gv(0, 100 + f * 30, 0, 120 + f * 30);
            gv.setColorAt(0, c("#e3f2fd"));
            gv.setColorAt(1, c("#90caf9"));
            p.setBrush(gv);
            p.drawRect(QRectF(216 + k * 44, 100 + f * 30, 32, 20));
        }
    p.setBrush(c("#263238"));
    p.drawRect(QRectF(290, 360, 60, 42));
    p.setBrush(c("#455a64"));
    p.drawRect(QRectF(318, 360, 4, 42));
    arbol(p, 30, 405, 0.8);
    arbol(p, 612, 405, 0.8);
}

// 6: a petrol station: expenses.
void gasolinera(QPainter& p) {
    cielo(p, "#ffe0b2", "#fff8e1");
    sol(p, QPointF(110, 100), 30);
    p.setPen(Qt::NoPen);
    p.setBrush(c("#78909c"));
    p.drawRect(QRectF(0, 400, Ancho, 80));
    p.setBrush(c("#ffffff"));
    for (int x = 20; x < Ancho; x += 90)
        p.drawRect(QRectF(x, 440, 50, 6));
    p.setBrush(c("#b0bec5"));
    p.drawRect(QRectF(0, 392, Ancho, 10));
    // Canopy on two columns.
    p.setBrush(c("#eceff1"));
    p.drawRect(QRectF(170, 150, 18, 244));
    p.drawRect(QRectF(452, 150, 18, 244));
    p.setBrush(c("#d32f2f"));
    p.drawRoundedRect(QRectF(120, 110, 400, 46), 6, 6);
    p.setBrush(c("#ffffff"));
    p.drawRect(QRectF(120, 144, 400, 6));
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setBold(true);
    f.setPixelSize(26);
    p.setFont(f);
    p.setPen(c("#ffffff"));
    p.drawText(QRectF(120, 110, 400, 36), Qt::AlignCenter, QStringLiteral("GASOLINERA"));
    p.setPen(Qt::NoPen);
    sombra(p, QPointF(320, 396), 150, 10, 80);
    // Two pumps.
    for (double x : {250.0, 350.0}) {
        p.setBrush(c("#37474f"));
        p.drawRoundedRect(QRectF(x, 250, 64, 144), 8, 8);
        p.setBrush(c("#eceff1"));
        p.drawRoundedRect(QRectF(x + 8, 262, 48, 32), 4, 4);
        p.setBrush(c("#43a047"));
        p.drawRect(QRectF(x + 12, 266, 40, 10));
        p.setBrush(c("#ffca28"));
        p.drawRoundedRect(QRectF(x + 14, 310, 36, 16), 3, 3);
        p.setBrush(c("#263238"));
        p.drawRect(QRectF(x + 60, 296, 12, 8));
        p.setPen(QPen(c("#263238"), 5, Qt::SolidLine, Qt::RoundCap));
        p.setBrush(Qt::NoBrush);
        QPainterPath manguera;
        manguera.moveTo(x + 70, 300);
        manguera.cubicTo(x + 92, 320, x + 88, 370, x + 70, 380);
        p.drawPath(manguera);
        p.setPen(Qt::NoPen);
    }
    // A small car.
    p.setBrush(c("#1e88e5"));
    p.drawRoundedRect(QRectF(470, 340, 150, 46), 14, 14);
    QPainterPath cabina;
    cabina.moveTo(495, 342);
    cabina.lineTo(515, 306);
    cabina.lineTo(580, 306);
    cabina.lineTo(604, 342);
    cabina.closeSubpath();
    p.drawPath(cabina);
    p.setBrush(c("#bbdefb"));
    QPainterPath ventana;
    ventana.moveTo(508, 340);
    ventana.lineTo(522, 314);
    ventana.lineTo(574, 314);
    ventana.lineTo(590, 340);
    ventana.closeSubpath();
    p.drawPath(ventana);
    p.setBrush(c("#263238"));
    p.drawEllipse(QPointF(505, 388), 18, 18);
    p.drawEllipse(QPointF(588, 388), 18, 18);
    p.setBrush(c("#b0bec5"));
    p.drawEllipse(QPointF(505, 388), 7, 7);
    p.drawEllipse(QPointF(588, 388), 7, 7);
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QDir destino(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("."));
    struct Dibujo {
        const char* nombre;
        void (*dibujar)(QPainter&);
    };
    const Dibujo dibujos[] = {{"Chalet.jpg", chalet},         {"dinero.jpg", dinero},
                              {"Tarjetas2.jpg", tarjetas},    {"Oficina.jpg", oficina},
                              {"Manos.jpg", manos},           {"edificio.jpg", edificio},
                              {"gasolinera2.jpg", gasolinera}};
    for (const Dibujo& d : dibujos) {
        QImage img(Ancho, Alto, QImage::Format_RGB32);
        img.fill(Qt::white);
        QPainter p(&img);
        p.setRenderHint(QPainter::Antialiasing);
        p.setRenderHint(QPainter::TextAntialiasing);
        d.dibujar(p);
        p.end();
        if (!img.save(destino.filePath(QString::fromLatin1(d.nombre)), "JPG", 90))
            return 1;
    }
    return 0;
}

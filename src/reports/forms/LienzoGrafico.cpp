#include "reports/forms/LienzoGrafico.h"

#include "store/Formato.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QLegend>
#include <QPainter>
#include <QPieSeries>
#include <QPieSlice>
#include <QStackedBarSeries>
#include <QValueAxis>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double AnchoLogico = 1200;
constexpr double AnchoEnPantalla = 900;
// The depth of the 3-D look: a bar's faces go this share of its width right and up; a pie's
// thickness is this share of its radius.
constexpr double ProfundidadBarra = 0.35;
constexpr double ProfundidadMaxima = 16;
constexpr double GrosorPastel = 0.12;
// Labels of the category axis are cut to this many characters.
constexpr int LargoEtiqueta = 26;

const QColor ColorIngresos(0x2E, 0x7D, 0x32);
const QColor ColorGastos(0xC6, 0x28, 0x28);
const QColor ColorSerie(0x1F, 0x5F, 0xA8);

const QList<QColor>& Paleta() {
    static const QList<QColor> colores{
        QColor(0x1F, 0x5F, 0xA8), QColor(0xE0, 0x8A, 0x1E), QColor(0x2E, 0x7D, 0x32),
        QColor(0xC6, 0x28, 0x28), QColor(0x6A, 0x3D, 0x9A), QColor(0x00, 0x83, 0x8F),
        QColor(0xB5, 0x8B, 0x00), QColor(0xAD, 0x14, 0x57), QColor(0x55, 0x6B, 0x2F),
        QColor(0x5D, 0x40, 0x37), QColor(0x45, 0x5A, 0x64), QColor(0xF4, 0x51, 0x1E),
        QColor(0x3F, 0x51, 0xB5), QColor(0x8D, 0x6E, 0x63)};
    return colores;
}

// Sizes in pixels of the chart's surface (see the header): the picture scales as a whole.
QFont Letra(int pixeles, bool negrita = false) {
    QFont f(QStringLiteral("Liberation Sans"));
    f.setPixelSize(pixeles);
    f.setBold(negrita);
    return f;
}

QString Corto(const QString& texto) {
    const QString t = texto.trimmed();
    return t.size() <= LargoEtiqueta ? t : t.left(LargoEtiqueta - 1).trimmed() + QChar(0x2026);
}

// The category axis keeps one entry per name: two subaccounts of one name get " (2)"...
QStringList Unicas(const QStringList& nombres) {
    QStringList r;
    for (const QString& n : nombres) {
        QString c = Corto(n);
        for (int i = 2; r.contains(c); ++i)
            c = Corto(n) + QStringLiteral(" (%1)").arg(i);
        r << c;
    }
    return r;
}

QString Cantidad(double v) {
    return Formato(v, QStringLiteral("standard"));
}

// Qt Charts measures a pie's angles clockwise from twelve o'clock; QPainter counterclockwise
// from three, in sixteenths of a degree.
int AnguloPintor(double grados) {
    return qRound((90.0 - grados) * 16);
}

// The plain colour of a bar set or a slice: their brushes may be gradients, whose colour says
// nothing.
const char* const PropiedadColor = "colorBase";
QColor ColorBase(const QObject* o) {
    return o->property(PropiedadColor).value<QColor>();
}

// What the items added to the chart draw: the depth of the 3-D look behind the series, or the
// amounts over everything.
class AdornoGrafico : public QGraphicsItem {
public:
    enum Capa { Fondo, Frente };

    AdornoGrafico(QChart* chart, Capa capa, const AspectoGrafico& aspecto)
        : QGraphicsItem(chart), chart_(chart), capa_(capa), aspecto_(aspecto) {
        // Qt Charts stacks its items by z: grid 2, axes 3, series 4, legend 5. The depth goes
        // over the grid and under the series; the amounts over everything.
        setZValue(capa == Fondo ? 3.5 : 100);
        setAcceptedMouseButtons(Qt::NoButton);
    }

    QRectF boundingRect() const override { return chart_->rect(); }

    void paint(QPainter* p, const QStyleOptionGraphicsItem*, QWidget*) override {
        const QList<QAbstractSeries*> series = chart_->series();
        if (series.isEmpty())
            return;
        p->save();
        p->setRenderHint(QPainter::Antialiasing);
        if (auto* pastel = qobject_cast<QPieSeries*>(series.first()))
            pintarPastel(*p, pastel);
        else if (auto* barras = qobject_cast<QAbstractBarSeries*>(series.first()))
            pintarBarras(*p, barras);
        p->restore();
    }

private:
    struct Barra {
        QRectF frente;
        QColor color;
        double valor = 0;
    };

    QList<Barra> barras(QAbstractBarSeries* s) const {
        QList<Barra> r;
        const bool apiladas = qobject_cast<QStackedBarSeries*>(s) != nullptr;
        const QList<QBarSet*> conjuntos = s->barSets();
        const int k = int(conjuntos.size());
        const double ancho = s->barWidth();
        for (int j = 0; j < k; ++j) {
            QBarSet* b = conjuntos.at(j);
            for (int i = 0; i < b->count(); ++i) {
                const double v = b->at(i);
                if (v == 0)
                    continue;
                const double x0 = apiladas ? i - ancho / 2 : i - ancho / 2 + j * ancho / k;
                const double x1 = apiladas ? i + ancho / 2 : x0 + ancho / k;
                const QPointF a = chart_->mapToPosition(QPointF(x0, v), s);
                const QPointF z = chart_->mapToPosition(QPointF(x1, 0), s);
                r << Barra{QRectF(a, z).normalized(), ColorBase(b), v};
            }
        }
        return r;
    }

    void pintarBarras(QPainter& p, QAbstractBarSeries* s) {
        const QList<Barra> lista = barras(s);
        double prof = 0;
        if (aspecto_.tresD && !lista.isEmpty())
            prof = qMin(ProfundidadMaxima, lista.first().frente.width() * ProfundidadBarra);
        const QPointF fondo(prof, -prof);
        if (capa_ == Fondo) {
            if (prof <= 0)
                return;
            p.setPen(Qt::NoPen);
            for (const Barra& b : lista) {
                const QRectF& f = b.frente;
                p.setBrush(b.color.lighter(135));
                p.drawPolygon(QPolygonF{f.topLeft(), f.topRight(), f.topRight() + fondo,
                                        f.topLeft() + fondo});
                p.setBrush(b.color.darker(150));
                p.drawPolygon(QPolygonF{f.topRight(), f.bottomRight(), f.bottomRight() + fondo,
                                        f.topRight() + fondo});
            }
            return;
        }
        if (!aspecto_.cantidades)
            return;
        p.setFont(Letra(11));
        p.setPen(Qt::black);
        const QFontMetricsF m(p.font());
        for (const Barra& b : lista) {
            const QString t = Cantidad(b.valor);
            const double ancho = m.horizontalAdvance(t);
            const bool arriba = b.valor >= 0;
            // Over a positive bar (above its top face), under a negative one.
            const double y = arriba ? b.frente.top() - prof - 3 : b.frente.bottom() + 3;
            const double x = b.frente.center().x() + prof / 2;
            if (ancho + 4 <= b.frente.width() + prof) {
                p.drawText(
                    QRectF(x - ancho / 2 - 2, arriba ? y - m.height() : y, ancho + 4, m.height()),
                    Qt::AlignCenter, t);
            } else {
                // Too narrow a bar: the amount stands upright along it.
                p.save();
                p.translate(x + m.ascent() / 2 - m.descent(), y);
                p.rotate(-90);
                p.drawText(QPointF(arriba ? 0 : -ancho, 0), t);
                p.restore();
            }
        }
    }

    void pintarPastel(QPainter& p, QPieSeries* s) {
        const QRectF area = chart_->plotArea();
        const double radio = s->pieSize() * qMin(area.width(), area.height()) / 2;
        const QPointF centro(area.left() + s->horizontalPosition() * area.width(),
                             area.top() + s->verticalPosition() * area.height());
        const double grosor = aspecto_.tresD ? radio * GrosorPastel : 0;
        if (capa_ == Fondo) {
            if (grosor <= 0)
                return;
            // The thickness: the slices again, darker, lower by each step of the depth.
            p.setPen(Qt::NoPen);
            const QRectF disco(centro.x() - radio, centro.y() - radio, 2 * radio, 2 * radio);
            for (int paso = int(grosor); paso >= 1; --paso) {
                for (QPieSlice* t : s->slices()) {
                    p.setBrush(ColorBase(t).darker(paso == int(grosor) ? 190 : 150));
                    p.drawPie(disco.translated(0, paso),
                              AnguloPintor(t->startAngle() + t->angleSpan()),
                              qRound(t->angleSpan() * 16));
                }
            }
            return;
        }
        if (!aspecto_.cantidades)
            return;
        p.setFont(Letra(11));
        p.setPen(Qt::black);
        const QFontMetricsF m(p.font());
        QList<QRectF> puestas;
        for (QPieSlice* t : s->slices()) {
            const double medio = qDegreesToRadians(t->startAngle() + t->angleSpan() / 2);
            const QPointF dir(std::sin(medio), -std::cos(medio));
            const QString texto = Cantidad(t->value());
            const double ancho = m.horizontalAdvance(texto);
            // Beside its slice; the amounts of thin slices, which would fall on one another, go
            // further out, tied to their slice by a thin line.
            const QPointF borde = centro + dir * radio + QPointF(0, dir.y() > 0 ? grosor : 0);
            QRectF caja;
            double distancia = 6;
            for (int intento = 0; intento < 12; ++intento, distancia += m.height() * 0.8) {
                const QPointF punto = borde + dir * distancia;
                caja = QRectF(0, 0, ancho + 2, m.height());
                caja.moveCenter(punto + QPointF(dir.x() * ancho / 2, dir.y() * m.height() / 2));
                const bool libre =
                    std::none_of(puestas.begin(), puestas.end(),
                                 [&](const QRectF& r) { return r.intersects(caja); });
                if (libre)
                    break;
            }
            if (distancia > 6) {
                p.setPen(QPen(QColor(0x80, 0x80, 0x80), 0.8));
                p.drawLine(borde, borde + dir * (distancia - 2));
                p.setPen(Qt::black);
            }
            p.drawText(caja, Qt::AlignCenter, texto);
            puestas << caja;
        }
    }

    QChart* chart_;
    Capa capa_;
    AspectoGrafico aspecto_;
};

void CrearPastel(QChart* chart, const DatosGrafico& datos, const AspectoGrafico& aspecto) {
    auto* pastel = new QPieSeries;
    const SerieGrafico& serie = datos.series.first();
    const QList<QColor>& paleta = Paleta();
    // A pie shows parts of a whole: a point of nothing, or below nothing, has no slice.
    int n = 0;
    for (int i = 0; i < datos.puntos.size() && i < serie.valores.size(); ++i) {
        const double v = serie.valores.at(i);
        if (v <= 0)
            continue;
        QPieSlice* t = pastel->append(Corto(datos.puntos.at(i)), v);
        const QColor color = paleta.at(n++ % paleta.size());
        t->setColor(color);
        t->setProperty(PropiedadColor, color);
        t->setBorderColor(Qt::white);
        t->setBorderWidth(1);
        if (aspecto.tresD) {
            QRadialGradient luz(0.35, 0.3, 0.9);
            luz.setCoordinateMode(QGradient::ObjectMode);
            luz.setColorAt(0, color.lighter(140));
            luz.setColorAt(1, color);
            t->setBrush(luz);
        }
    }
    pastel->setPieSize(aspecto.tresD ? 0.74 : 0.8);
    if (aspecto.tresD)
        pastel->setVerticalPosition(0.46);
    chart->addSeries(pastel);
    chart->legend()->setVisible(true);
    chart->legend()->setAlignment(Qt::AlignRight);
}

void CrearBarras(QChart* chart, const DatosGrafico& datos, const AspectoGrafico& aspecto) {
    QAbstractBarSeries* barras = datos.puntosSeparados
                                     ? static_cast<QAbstractBarSeries*>(new QStackedBarSeries)
                                     : static_cast<QAbstractBarSeries*>(new QBarSeries);
    const bool dos = datos.series.size() > 1;
    double minimo = 0, maximo = 0;
    for (int j = 0; j < datos.series.size(); ++j) {
        const SerieGrafico& s = datos.series.at(j);
        auto* conjunto = new QBarSet(s.nombre);
        for (int i = 0; i < datos.puntos.size(); ++i) {
            const double v = i < s.valores.size() ? s.valores.at(i) : 0.0;
            *conjunto << v;
            minimo = qMin(minimo, v);
            maximo = qMax(maximo, v);
        }
        const QColor color = !dos ? ColorSerie : (j == 0 ? ColorIngresos : ColorGastos);
        conjunto->setColor(color);
        conjunto->setProperty(PropiedadColor, color);
        conjunto->setBorderColor(color.darker(130));
        if (aspecto.tresD) {
            // Light from the left on the front faces.
            QLinearGradient luz(0, 0, 1, 0);
            luz.setCoordinateMode(QGradient::ObjectMode);
            luz.setColorAt(0, color.lighter(125));
            luz.setColorAt(1, color.darker(110));
            conjunto->setBrush(luz);
        }
        barras->append(conjunto);
    }
    // Few bars stay slim instead of filling the whole width.
    const int puntos = int(datos.puntos.size());
    barras->setBarWidth(dos && !datos.puntosSeparados ? 0.75 : puntos <= 3 ? 0.35 : 0.6);
    chart->addSeries(barras);

    auto* ejeX = new QBarCategoryAxis;
    ejeX->append(Unicas(datos.puntos));
    ejeX->setTitleText(datos.tituloX);
    ejeX->setLabelsFont(Letra(12));
    ejeX->setTitleFont(Letra(13, true));
    // Names that do not fit under their bars stand upright.
    const QFontMetricsF medida(Letra(12));
    double masAncha = 0;
    for (const QString& c : ejeX->categories())
        masAncha = qMax(masAncha, medida.horizontalAdvance(c));
    // The width a chart has on a screen of the board's size, narrower than the pictures.
    const double porPunto = (AnchoEnPantalla - 160) / qMax(1, int(datos.puntos.size()));
    if (masAncha + 8 > 1.6 * porPunto)
        ejeX->setLabelsAngle(-90);
    else if (masAncha + 8 > porPunto)
        ejeX->setLabelsAngle(-45);
    chart->addAxis(ejeX, Qt::AlignBottom);
    barras->attachAxis(ejeX);

    auto* ejeY = new QValueAxis;
    // Room above the highest bar for its amount and its depth.
    const double holgura = (maximo - minimo) * (aspecto.cantidades || aspecto.tresD ? 0.1 : 0.03);
    ejeY->setRange(minimo < 0 ? minimo - holgura : 0, maximo > 0 ? maximo + holgura : 1);
    ejeY->applyNiceNumbers();
    ejeY->setLabelFormat(QStringLiteral("%.0f"));
    ejeY->setTitleText(datos.tituloY);
    ejeY->setLabelsFont(Letra(12));
    ejeY->setTitleFont(Letra(13, true));
    chart->addAxis(ejeY, Qt::AlignLeft);
    barras->attachAxis(ejeY);

    chart->legend()->setVisible(dos);
    chart->legend()->setAlignment(Qt::AlignBottom);
}

} // namespace

QChart* CrearGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto) {
    auto* chart = new QChart;
    chart->setAnimationOptions(QChart::NoAnimation);
    chart->setLocalizeNumbers(true);
    chart->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    chart->setBackgroundRoundness(0);
    chart->setBackgroundBrush(Qt::white);
    chart->setTitle(datos.titulo);
    chart->setTitleFont(Letra(17, true));
    chart->legend()->setFont(Letra(12));
    if (datos.series.isEmpty())
        return chart;
    if (DibujaCircular(datos.tipo, aspecto))
        CrearPastel(chart, datos, aspecto);
    else
        CrearBarras(chart, datos, aspecto);
    new AdornoGrafico(chart, AdornoGrafico::Fondo, aspecto);
    new AdornoGrafico(chart, AdornoGrafico::Frente, aspecto);
    return chart;
}

void PintarGrafico(QPainter& pintor, const QRectF& destino, const DatosGrafico& datos,
                   const AspectoGrafico& aspecto) {
    if (destino.isEmpty())
        return;
    const QRectF fuente(0, 0, AnchoLogico, AnchoLogico * destino.height() / destino.width());
    QGraphicsScene escena;
    QChart* chart = CrearGrafico(datos, aspecto);
    escena.addItem(chart);
    chart->setGeometry(fuente);
    // The layout runs now, not at the next turn of the event loop that a picture never waits for.
    if (chart->layout())
        chart->layout()->activate();
    pintor.save();
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setRenderHint(QPainter::TextAntialiasing);
    escena.render(&pintor, destino, fuente, Qt::IgnoreAspectRatio);
    pintor.restore();
}

QImage ImagenGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto,
                     const QSize& tamano) {
    QImage imagen(tamano, QImage::Format_ARGB32_Premultiplied);
    imagen.fill(Qt::white);
    QPainter p(&imagen);
    PintarGrafico(p, QRectF(QPointF(0, 0), QSizeF(tamano)), datos, aspecto);
    p.end();
    return imagen;
}

DibujoLibro DibujoGrafico(const DatosGrafico& datos, const AspectoGrafico& aspecto) {
    return [datos, aspecto](Impresora& imp, int) {
        // About a centimetre all round.
        const double margen = 600;
        const QRectF hoja(margen, margen, imp.AnchoPagina() - 2 * margen,
                          imp.AltoPagina() - 2 * margen);
        imp.Figura(hoja,
                   [&](QPainter& p, const QRectF& r) { PintarGrafico(p, r, datos, aspecto); });
        imp.FinDocumento();
    };
}

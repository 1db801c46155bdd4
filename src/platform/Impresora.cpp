#include "platform/Impresora.h"

#include <QFontDatabase>
#include <QHash>
#include <QVarLengthArray>

QString FamiliaImpresion(const QString& nombre) {
    // Metric-compatible faces: same advance widths glyph by glyph, so cuts and alignments are
    // those a user of the Windows fonts sees.
    static const QHash<QString, QString> equivalentes = {
        {QStringLiteral("arial"), QStringLiteral("Liberation Sans")},
        {QStringLiteral("arial narrow"), QStringLiteral("Liberation Sans Narrow")},
        {QStringLiteral("courier new"), QStringLiteral("Liberation Mono")},
        {QStringLiteral("times new roman"), QStringLiteral("Liberation Serif")},
    };
    const QString clave = nombre.trimmed().toLower();
    return equivalentes.value(clave, nombre.trimmed());
}

QFont FuenteImpresion(const QString& nombre, double puntos, bool negrita) {
    QFont f(FamiliaImpresion(nombre));
    // A point is 20 twips. The size is given in the surface's own unit so that every backend,
    // whatever its resolution, lays text out at the same size.
    f.setPixelSize(qMax(1, qRound(puntos * 20)));
    f.setBold(negrita);
    f.setKerning(false);
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setStyleStrategy(QFont::PreferOutline);
    return f;
}

double AnchoTextoImpresion(const QString& texto, const QString& fuente, double puntos,
                           bool negrita) {
    return QFontMetricsF(FuenteImpresion(fuente, puntos, negrita)).horizontalAdvance(texto);
}

QStringList FuentesImpresion() {
    QStringList lista = QFontDatabase::families();
    for (const char* habitual : {"Arial", "Arial Narrow", "Courier New"})
        if (!lista.contains(QLatin1String(habitual)))
            lista << QLatin1String(habitual);
    lista.sort(Qt::CaseInsensitive);
    return lista;
}

Impresora::Impresora(QSizeF paginaTwips) : pagina_(paginaTwips) {
    actualizarFuente();
}

Impresora::~Impresora() = default;

void Impresora::actualizarFuente() {
    qfont_ = FuenteImpresion(fuente_, tamano_, negrita_);
    metricas_.emplace(qfont_);
    crudo_ = QRawFont::fromFont(qfont_);
}

namespace {

// Glyph indexes and advances of a text, without shaping; false when a glyph is missing.
template <class Glifos, class Avances>
bool LeerGlifos(const QRawFont& fuente, const QString& texto, Glifos& glifos, Avances& avances) {
    if (!fuente.isValid())
        return false;
    int n = int(texto.size());
    glifos.resize(n);
    if (!fuente.glyphIndexesForChars(texto.constData(), n, glifos.data(), &n))
        return false;
    glifos.resize(n);
    for (int i = 0; i < n; ++i)
        if (glifos[i] == 0)
            return false;
    avances.resize(n);
    return fuente.advancesForGlyphIndexes(glifos.data(), avances.data(), n,
                                          QRawFont::UseDesignMetrics);
}

} // namespace

bool Impresora::GlifosTexto(const QString& texto, QList<quint32>& glifos,
                            QList<QPointF>& posiciones, double* ancho) const {
    if (!LeerGlifos(crudo_, texto, glifos, posiciones))
        return false;
    double x = 0;
    for (QPointF& p : posiciones) {
        const double avance = p.x();
        p = QPointF(x, 0);
        x += avance;
    }
    if (ancho)
        *ancho = x;
    return true;
}

void Impresora::PonerFuente(const QString& nombre) {
    fuente_ = nombre;
    actualizarFuente();
}

void Impresora::PonerTamano(double puntos) {
    tamano_ = puntos;
    actualizarFuente();
}

void Impresora::PonerNegrita(bool negrita) {
    negrita_ = negrita;
    actualizarFuente();
}

double Impresora::AnchoTexto(const QString& texto) const {
    QVarLengthArray<quint32, 128> glifos;
    QVarLengthArray<QPointF, 128> avances;
    if (LeerGlifos(crudo_, texto, glifos, avances)) {
        double ancho = 0;
        for (const QPointF& a : avances)
            ancho += a.x();
        return ancho;
    }
    return metricas_->horizontalAdvance(texto);
}

double Impresora::AltoLinea() const {
    return metricas_->lineSpacing();
}

void Impresora::escribir(const QString& texto, bool seguido) {
    const double ancho = AnchoTexto(texto);
    if (!texto.isEmpty())
        dibujarTexto(x_, y_, texto, ancho, seguido);
    if (seguido) {
        x_ += ancho;
    } else {
        x_ = borde_;
        y_ += AltoLinea();
    }
}

void Impresora::Escribir(const QString& texto) {
    escribir(texto, false);
}

void Impresora::EscribirSeguido(const QString& texto) {
    escribir(texto, true);
}

void Impresora::EscribirADerecha(const QString& texto, double derecha) {
    x_ = derecha - AnchoTexto(texto);
    escribir(texto, true);
}

QString Impresora::RecortarTexto(const QString& texto, double ancho) const {
    if (AnchoTexto(texto) <= ancho)
        return texto;
    // Widths grow with the length (no kerning), so the cut is found by halving.
    qsizetype bajo = 0, alto = texto.size() - 1; // bajo fits, alto + 1 does not
    while (bajo < alto) {
        const qsizetype medio = (bajo + alto + 1) / 2;
        if (AnchoTexto(texto.left(medio)) <= ancho)
            bajo = medio;
        else
            alto = medio - 1;
    }
    if (bajo > 0 && texto.at(bajo - 1).isHighSurrogate())
        --bajo;
    return texto.left(bajo);
}

void Impresora::Linea(double x1, double y1, double x2, double y2) {
    dibujarLinea(x1, y1, x2, y2);
}

void Impresora::Figura(const QRectF& rectangulo, const DibujoFigura& dibujo) {
    dibujarFigura(rectangulo, dibujo);
}

void Impresora::dibujarFigura(const QRectF&, const DibujoFigura&) {}

void Impresora::NuevaPagina() {
    alNuevaPagina();
    ++pagina_n_;
    x_ = borde_;
    y_ = 0;
}

void Impresora::FinDocumento() {
    alFinDocumento();
    ++documento_;
    pagina_n_ = 1;
    x_ = borde_;
    y_ = 0;
}

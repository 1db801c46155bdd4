#include "platform/ImpresoraGrabadora.h"

ImpresoraGrabadora::ImpresoraGrabadora(QSizeF paginaTwips) : Impresora(paginaTwips) {}

Trazo ImpresoraGrabadora::nuevo(Trazo::Tipo tipo) const {
    Trazo t;
    t.tipo = tipo;
    t.documento = Documento();
    t.pagina = Pagina();
    t.fuente = Fuente();
    t.tamano = Tamano();
    t.negrita = Negrita();
    return t;
}

void ImpresoraGrabadora::dibujarTexto(double x, double y, const QString& texto, double ancho,
                                      bool seguido) {
    Trazo t = nuevo(Trazo::Texto);
    t.x = x;
    t.y = y;
    t.texto = texto;
    t.ancho = ancho;
    t.seguido = seguido;
    trazos_ << t;
}

void ImpresoraGrabadora::dibujarLinea(double x1, double y1, double x2, double y2) {
    Trazo t = nuevo(Trazo::Linea);
    t.x = x1;
    t.y = y1;
    t.x2 = x2;
    t.y2 = y2;
    trazos_ << t;
}

void ImpresoraGrabadora::dibujarFigura(const QRectF& rectangulo, const DibujoFigura&) {
    Trazo t = nuevo(Trazo::Figura);
    t.x = rectangulo.left();
    t.y = rectangulo.top();
    t.x2 = rectangulo.right();
    t.y2 = rectangulo.bottom();
    trazos_ << t;
}

void ImpresoraGrabadora::alNuevaPagina() {
    trazos_ << nuevo(Trazo::NuevaPagina);
}

void ImpresoraGrabadora::alFinDocumento() {
    trazos_ << nuevo(Trazo::FinDocumento);
}

QList<Trazo> ImpresoraGrabadora::textos() const {
    QList<Trazo> r;
    for (const Trazo& t : trazos_)
        if (t.tipo == Trazo::Texto)
            r << t;
    return r;
}

const Trazo* ImpresoraGrabadora::buscar(const QString& texto, int aparicion) const {
    for (const Trazo& t : trazos_)
        if (t.tipo == Trazo::Texto && t.texto == texto && --aparicion == 0)
            return &t;
    return nullptr;
}

QStringList ImpresoraGrabadora::textosDePagina(int pagina, int documento) const {
    QStringList r;
    for (const Trazo& t : trazos_)
        if (t.tipo == Trazo::Texto && t.pagina == pagina && t.documento == documento)
            r << t.texto;
    return r;
}

int ImpresoraGrabadora::paginas(int documento) const {
    int n = 0;
    for (const Trazo& t : trazos_)
        if ((t.tipo == Trazo::Texto || t.tipo == Trazo::Linea || t.tipo == Trazo::Figura) &&
            t.documento == documento)
            n = qMax(n, t.pagina);
    return n;
}

int ImpresoraGrabadora::documentosTerminados() const {
    int n = 0;
    for (const Trazo& t : trazos_)
        n += t.tipo == Trazo::FinDocumento;
    return n;
}

QString ImpresoraGrabadora::volcado() const {
    QString r;
    for (const Trazo& t : trazos_) {
        r += QStringLiteral("d%1 p%2 ").arg(t.documento).arg(t.pagina);
        switch (t.tipo) {
        case Trazo::Texto:
            r += QStringLiteral("texto (%1, %2) %3 %4%5%6 ancho %7 \"%8\"\n")
                     .arg(t.x)
                     .arg(t.y)
                     .arg(t.fuente)
                     .arg(t.tamano)
                     .arg(t.negrita ? QStringLiteral(" negrita") : QString())
                     .arg(t.seguido ? QStringLiteral(" seguido") : QString())
                     .arg(t.ancho, 0, 'f', 1)
                     .arg(t.texto);
            break;
        case Trazo::Linea:
            r +=
                QStringLiteral("linea (%1, %2) - (%3, %4)\n").arg(t.x).arg(t.y).arg(t.x2).arg(t.y2);
            break;
        case Trazo::Figura:
            r += QStringLiteral("figura (%1, %2) - (%3, %4)\n")
                     .arg(t.x)
                     .arg(t.y)
                     .arg(t.x2)
                     .arg(t.y2);
            break;
        case Trazo::NuevaPagina:
            r += QStringLiteral("nueva página\n");
            break;
        case Trazo::FinDocumento:
            r += QStringLiteral("fin de documento\n");
            break;
        }
    }
    return r;
}

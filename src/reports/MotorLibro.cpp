#include "reports/MotorLibro.h"

#include "platform/Impresora.h"
#include "store/Formato.h"

namespace {

constexpr double XSumas = 4000; // words of the carried sums, "Suma y sigue" and the totals
constexpr double XPagina = 600; // "Página nº "
constexpr double MargenDerecho = 600;
constexpr double HolguraCorte = 200;

} // namespace

MargenLibro Margen(double margenTwips) {
    MargenLibro m;
    m.L = margenTwips == 0 ? 600 : margenTwips;
    m.d = margenTwips > 600 ? margenTwips - 600 : 0;
    return m;
}

QString ImporteLibro(double valor) {
    return Centimos(valor) == 0 ? QString() : Formato(valor, QStringLiteral("standard"));
}

ImpresionLibro::ImpresionLibro(Impresora& imp, DisenoLibro diseno, const OpcionesLibro& opciones,
                               QList<double>& sumas)
    : imp_(imp), diseno_(std::move(diseno)), op_(opciones), sumas_(sumas),
      margen_(Margen(opciones.margen)) {}

double ImpresionLibro::W() const {
    return imp_.AnchoPagina();
}

double ImpresionLibro::H() const {
    return imp_.AltoPagina();
}

double ImpresionLibro::R() const {
    return W() - MargenDerecho;
}

void ImpresionLibro::Empezar() {
    imp_.PonerFuente(op_.fuente);
    imp_.PonerTamano(op_.tamano);
    imp_.PonerNegrita(false);
    imp_.PonerBordeIzquierdo(margen_.L);
    paginaNueva_ = true;
    dibujado_ = false;
}

void ImpresionLibro::CabeceraSiToca() {
    if (!paginaNueva_)
        return;
    paginaNueva_ = false;
    dibujado_ = true;
    Impresora& p = imp_;
    const double L = margen_.L;

    // Title and its rule.
    p.IrA(L, 500);
    p.PonerTamano(op_.tamano + 6);
    p.PonerNegrita(true);
    p.Escribir(diseno_.titulo);
    p.Linea(L, p.Y(), R(), p.Y());
    p.PonerY(p.Y() + 100);

    // Company, dates of the book and the work date at the right; a double rule.
    p.PonerX(L);
    p.PonerTamano(op_.tamano + 3);
    p.EscribirSeguido(diseno_.cabecera);
    if (diseno_.desde.isValid() && diseno_.hasta.isValid()) {
        p.PonerX(p.X() + 400);
        p.EscribirSeguido(QStringLiteral("Desde ") + FormatoFecha(diseno_.desde, "short date") +
                          QStringLiteral(" hasta ") + FormatoFecha(diseno_.hasta, "short date"));
    }
    p.EscribirADerecha(QStringLiteral("Fecha: ") + FormatoFecha(op_.fechaTrabajo, "short date"),
                       R());
    p.Escribir(QString());
    if (!diseno_.subcabecera.isEmpty()) {
        p.PonerX(L);
        p.Escribir(diseno_.subcabecera);
    }
    p.Linea(L, p.Y(), R(), p.Y());
    p.PonerY(p.Y() + 50);
    p.Linea(L, p.Y(), R(), p.Y());
    p.PonerY(p.Y() + diseno_.bajadaCabecera);

    // Column headings in a box with a stroke between columns.
    p.PonerTamano(op_.tamano);
    const double arriba = p.Y() - 50;
    const QList<ColumnaLibro>& cols = diseno_.columnas;
    for (int i = 0; i < cols.size(); ++i)
        Celda(i, cols.at(i).titulo);
    p.Escribir(QString());
    p.PonerNegrita(false);
    const double abajo = p.Y() + 10;
    // The box starts a little left of the edge, where a first text column starts.
    const double izquierda = L - 60;
    p.Linea(izquierda, arriba, R(), arriba);
    p.Linea(izquierda, abajo, R(), abajo);
    p.Linea(izquierda, arriba, izquierda, abajo);
    p.Linea(R(), arriba, R(), abajo);
    for (int i = 1; i < cols.size(); ++i) {
        const ColumnaLibro& c = cols.at(i);
        const ColumnaLibro& a = cols.at(i - 1);
        if (!c.raya)
            continue;
        double x;
        if (!c.aDerecha)
            x = c.x - 100;
        else if (a.aDerecha)
            x = a.x + 100;
        else if (a.ancho > 0)
            x = a.x + a.ancho - 100;
        else
            x = c.x - c.ancho - 100;
        p.Linea(x, arriba, x, abajo);
    }
    p.PonerY(abajo + 60);

    // Carried sums.
    if (diseno_.sumas) {
        bool arrastrar;
        if (diseno_.arrastreSiPositivas) {
            arrastrar = false;
            for (double s : sumas_)
                arrastrar = arrastrar || Centimos(s) > 0;
        } else {
            arrastrar = p.Pagina() > 1;
        }
        if (arrastrar) {
            p.PonerY(p.Y() + 200);
            p.PonerX(XSumas);
            p.EscribirSeguido(diseno_.palabrasAnteriores);
            escribirSumas(sumas_);
            p.PonerY(p.Y() + 200);
        }
    }
    p.PonerX(L);
}

void ImpresionLibro::Celda(int columna, const QString& texto) {
    if (texto.isEmpty())
        return;
    const ColumnaLibro& c = diseno_.columnas.at(columna);
    if (c.aDerecha) {
        imp_.EscribirADerecha(texto, c.x);
    } else {
        imp_.PonerX(c.x);
        imp_.EscribirSeguido(Cortar(columna, texto));
    }
}

void ImpresionLibro::Fila(const QStringList& celdas, bool negrita) {
    CabeceraSiToca();
    if (negrita)
        imp_.PonerNegrita(true);
    const int n = qMin(int(celdas.size()), int(diseno_.columnas.size()));
    for (int i = 0; i < n; ++i)
        Celda(i, celdas.at(i));
    if (negrita)
        imp_.PonerNegrita(false);
    FinFila();
}

void ImpresionLibro::FinFila() {
    imp_.Escribir(QString());
    imp_.PonerY(imp_.Y() + diseno_.bajadaFila);
}

QString ImpresionLibro::Cortar(int columna, const QString& texto) const {
    const ColumnaLibro& c = diseno_.columnas.at(columna);
    if (c.ancho <= 0)
        return texto;
    return imp_.RecortarTexto(texto, c.ancho - HolguraCorte);
}

QString ImpresionLibro::TextoPagina() const {
    const int n = imp_.Pagina() + (op_.paginaInicial > 0 ? op_.paginaInicial - 1 : 0);
    return QStringLiteral("Página nº ") + Formato(n, QStringLiteral("#,##0"));
}

void ImpresionLibro::escribirSumas(const QList<double>& valores) {
    for (const ColumnaLibro& c : diseno_.columnas)
        if (c.suma >= 0 && c.suma < valores.size())
            imp_.EscribirADerecha(Formato(valores.at(c.suma), QStringLiteral("standard")), c.x);
    imp_.Escribir(QString());
}

void ImpresionLibro::escribirPagina() {
    imp_.PonerX(XPagina);
    imp_.Escribir(TextoPagina());
}

bool ImpresionLibro::FinDePaginaSiToca() {
    if (paginaNueva_ || imp_.Y() < H() - diseno_.finPagina)
        return false;
    FinDePagina();
    return true;
}

void ImpresionLibro::FinDePagina() {
    if (paginaNueva_)
        return;
    Impresora& p = imp_;
    p.PonerNegrita(false);
    p.PonerTamano(op_.tamano);
    if (diseno_.sumas) {
        p.PonerY(p.Y() + 150);
        for (const ColumnaLibro& c : diseno_.columnas)
            if (c.suma >= 0)
                p.Linea(c.x - (c.ancho > 400 ? c.ancho - HolguraCorte : 1200), p.Y(), c.x, p.Y());
        p.PonerY(p.Y() + 150);
        p.PonerX(XSumas);
        p.EscribirSeguido(diseno_.palabrasSigue);
        escribirSumas(sumas_);
    } else {
        p.PonerY(H() - diseno_.totales);
    }
    escribirPagina();
    p.NuevaPagina();
    paginaNueva_ = true;
}

void ImpresionLibro::Terminar(const QList<LineaCierre>& cierre) {
    if (!dibujado_)
        return;
    Impresora& p = imp_;
    // A last row that ended a page leaves a new page in hand: it gets its head, and the foot.
    CabeceraSiToca();
    p.PonerNegrita(false);
    p.PonerTamano(op_.tamano);
    if (diseno_.sumas) {
        if (diseno_.regla) {
            const double y = H() - *diseno_.regla;
            for (const ColumnaLibro& c : diseno_.columnas)
                if (c.suma >= 0)
                    p.Linea(c.x - (c.ancho > 400 ? c.ancho - HolguraCorte : 1200), y, c.x, y);
        }
        p.PonerY(H() - diseno_.totales);
        p.PonerNegrita(true);
        const QList<LineaCierre> lineas =
            cierre.isEmpty() ? QList<LineaCierre>{{diseno_.palabrasTotales, sumas_}} : cierre;
        for (const LineaCierre& l : lineas) {
            if (l.nota) {
                p.PonerNegrita(false);
                p.PonerX(margen_.L);
                p.Escribir(l.palabras);
                p.PonerNegrita(true);
                continue;
            }
            p.PonerX(XSumas);
            p.EscribirSeguido(l.palabras);
            escribirSumas(l.sumas);
        }
        p.PonerNegrita(false);
    } else {
        p.PonerY(H() - diseno_.totales);
    }
    escribirPagina();
    p.FinDocumento();
}

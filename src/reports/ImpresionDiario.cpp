#include "reports/ImpresionDiario.h"

#include "platform/Almacen.h"
#include "reports/TextoLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSqlQuery>

namespace {

// A surface that draws nothing: the earlier copies of a run, when only their sums are needed.
class ImpresoraNula : public Impresora {
public:
    explicit ImpresoraNula(QSizeF pagina) : Impresora(pagina) {}

protected:
    void dibujarTexto(double, double, const QString&, double, bool) override {}
    void dibujarLinea(double, double, double, double) override {}
    void alNuevaPagina() override {}
    void alFinDocumento() override {}
};

// The lines of the selection, by numbers or by dates, in entry and line order.
QSqlQuery Consulta(Conexion& c, const SeleccionDiario& sel, const QString& columnasYVista) {
    const QString sql = QStringLiteral("SELECT ") + columnasYVista;
    if (sel.porFechas)
        return c.ejecutar(sql + QStringLiteral(" WHERE Fecha BETWEEN ? AND ? ORDER BY NAs, NAp"),
                          {FechaISO(sel.desde), FechaISO(sel.hasta)});
    return c.ejecutar(sql + QStringLiteral(" WHERE NAs >= ? AND NAs <= ? ORDER BY NAs, NAp"),
                      {sel.desdeAsiento, sel.hastaAsiento});
}

QString FechaCorta(const QString& iso) {
    QString r;
    AnadirFechaCorta(r, iso);
    return r;
}

} // namespace

QList<ColumnaLibro> ColumnasDiarioOficial(double d, double W, bool conDocumento) {
    QList<ColumnaLibro> c;
    if (!conDocumento) {
        const double concepto = 5390 + d / 2;
        const double debe = W - 2600;
        c << ColumnaLibro{QStringLiteral("Nº As."), 1400 + d, true}
          << ColumnaLibro{QStringLiteral("FECHA"), 1650 + d}
          << ColumnaLibro{QStringLiteral("CUENTA"), 2700 + d, false, concepto - (2700 + d)}
          << ColumnaLibro{QStringLiteral("CONCEPTO"), concepto, false, debe - 1400 - concepto}
          << ColumnaLibro{QStringLiteral("DEBE"), debe, true, 1400, 0}
          << ColumnaLibro{QStringLiteral("HABER"), W - 1000, true, 1600, 1};
    } else {
        const double concepto = 6090 + d / 2;
        const double debe = W - 2200;
        c << ColumnaLibro{QStringLiteral("Nº As."), 1200 + d, true}
          << ColumnaLibro{QStringLiteral("FECHA"), 1450 + d}
          << ColumnaLibro{QStringLiteral("DOCUM."), 2500 + d, false, 1200}
          << ColumnaLibro{QStringLiteral("CUENTA"), 3700 + d, false, concepto - (3700 + d)}
          << ColumnaLibro{QStringLiteral("CONCEPTO"), concepto, false, debe - 1200 - concepto}
          << ColumnaLibro{QStringLiteral("DEBE"), debe, true, 1200, 0}
          << ColumnaLibro{QStringLiteral("HABER"), W - 800, true, 1400, 1};
    }
    return c;
}

QList<ColumnaLibro> ColumnasDiarioBorrador(double L, double d, double W, bool conDocumento) {
    // Each money column is 1300 wide.
    const double debe = W - 2500, haber = W - 1000;
    QList<ColumnaLibro> c;
    if (!conDocumento) {
        const double subcuenta = 1500 + d, concepto = 4600 + d / 2;
        // Dates are never cut.
        c << ColumnaLibro{QStringLiteral("FECHA"), L}
          << ColumnaLibro{QStringLiteral("SUBCUENTA"), subcuenta, false, concepto - subcuenta}
          << ColumnaLibro{QStringLiteral("CONCEPTO"), concepto, false, debe - 1300 - concepto};
    } else {
        const double fecha = 1800 + d, subcuenta = 2550 + d, concepto = 5300 + d / 2;
        c << ColumnaLibro{QStringLiteral("DOCUM."), L, false, fecha - L}
          << ColumnaLibro{QStringLiteral("FECHA"), fecha}
          << ColumnaLibro{QStringLiteral("SUBCUENTA"), subcuenta, false, concepto - subcuenta}
          << ColumnaLibro{QStringLiteral("CONCEPTO"), concepto, false, debe - 1300 - concepto};
    }
    c << ColumnaLibro{QStringLiteral("DEBE"), debe, true, 1300, 0}
      << ColumnaLibro{QStringLiteral("HABER"), haber, true, 1300, 1};
    return c;
}

QString LineaIvaBorrador(double base, double cuota, const QString& imputado,
                         const QString& factura) {
    return QStringLiteral("[Base Iva: ") + Formato(base, QStringLiteral("standard")) +
           QStringLiteral(";  Cuota: ") + Formato(cuota, QStringLiteral("standard")) +
           QStringLiteral(";  Cli/Pro.: ") + imputado.trimmed() + QStringLiteral(";  Fra.: ") +
           factura.trimmed() + QStringLiteral("]");
}

ImpresionDiario::ImpresionDiario(const Sesion& s, const SeleccionDiario& sel,
                                 const OpcionesLibro& op)
    : s_(s), sel_(sel), op_(op), sumas_{op.sumaDebe, op.sumaHaber} {}

DibujoLibro ImpresionDiario::Dibujo() {
    return [this](Impresora& imp, int copia) {
        Dibujar(imp, copia);
    };
}

QString ImpresionDiario::empresa() {
    if (!empresaLeida_) {
        Conexion c = AbrirDatos(s_);
        empresa_ = c.escalar(QStringLiteral("SELECT Nombre FROM Empresa LIMIT 1")).toString();
        empresa_ = empresa_.trimmed();
        empresaLeida_ = true;
    }
    return empresa_;
}

void ImpresionDiario::Dibujar(Impresora& imp, int copia) {
    // The sums a copy starts from are those the previous copy ended with.
    if (copia > 1 && !finDeCopia_.contains(copia - 1)) {
        ImpresoraNula nula(QSizeF(imp.AnchoPagina(), imp.AltoPagina()));
        for (int k = 1; k < copia; ++k)
            if (!finDeCopia_.contains(k))
                Dibujar(nula, k);
    }
    sumas_ = copia > 1 ? finDeCopia_.value(copia - 1) : QList<double>{op_.sumaDebe, op_.sumaHaber};
    if (op_.borrador)
        dibujarBorrador(imp);
    else
        dibujarOficial(imp);
    finDeCopia_.insert(copia, sumas_);
}

DisenoLibro ImpresionDiario::diseno(double L, double d, double W, const QString& empresa) const {
    DisenoLibro dis;
    dis.titulo = TituloDiario;
    dis.cabecera = empresa;
    // By numbers the dates are the exercise's, which would say nothing of the lines printed.
    if (sel_.porFechas) {
        dis.desde = sel_.desde;
        dis.hasta = sel_.hasta;
    }
    dis.bajadaCabecera = 150;
    dis.bajadaFila = 10;
    dis.finPagina = FinPaginaDiario;
    dis.regla = ReglaDiario;
    dis.totales = TotalesDiario;
    dis.arrastreSiPositivas = true;
    dis.columnas = op_.borrador ? ColumnasDiarioBorrador(L, d, W, op_.conDocumento)
                                : ColumnasDiarioOficial(d, W, op_.conDocumento);
    return dis;
}

void ImpresionDiario::dibujarOficial(Impresora& imp) {
    const MargenLibro m = Margen(op_.margen);
    const QString nombre = empresa();
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = Consulta(
        c, sel_, QStringLiteral("NAs, Fecha, Cuenta, Concepto, Debe, Haber FROM ConDiario"));
    ImpresionLibro p(imp, diseno(m.L, m.d, imp.AnchoPagina(), nombre), op_, sumas_);
    p.Empezar();
    const int cuenta = op_.conDocumento ? 3 : 2;
    const int concepto = cuenta + 1, debe = concepto + 1, haber = debe + 1;
    QString texto;
    while (q.next()) {
        p.CabeceraSiToca();
        const double vDebe = q.value(4).toDouble(), vHaber = q.value(5).toDouble();
        texto.clear();
        AnadirEnteroMiles(texto, q.value(0).toLongLong());
        if (texto.isEmpty())
            texto = QStringLiteral("0");
        p.Celda(0, texto);
        p.Celda(1, FechaCorta(q.value(1).toString()));
        p.Celda(cuenta, q.value(2).toString());
        p.Celda(concepto, q.value(3).toString());
        p.Celda(debe, ImporteLibro(vDebe));
        p.Celda(haber, ImporteLibro(vHaber));
        p.FinFila();
        sumas_[0] += vDebe;
        sumas_[1] += vHaber;
        p.FinDePaginaSiToca();
    }
    p.Terminar();
}

void ImpresionDiario::dibujarBorrador(Impresora& imp) {
    const MargenLibro m = Margen(op_.margen);
    const QString nombre = empresa();
    Conexion c = AbrirDatos(s_);
    QSqlQuery q = Consulta(c, sel_,
                           QStringLiteral("NAs, Fecha, Cuenta, Concepto, Debe, Haber, NCuenta, "
                                          "Sector, Documento, Base, Cuota, Imputado, NFactura "
                                          "FROM ConDiarioIVA"));
    const double W = imp.AnchoPagina();
    ImpresionLibro p(imp, diseno(m.L, m.d, W, nombre), op_, sumas_);
    const int doc = op_.conDocumento ? 0 : -1;
    const int fecha = doc + 1, subcuenta = fecha + 1, concepto = subcuenta + 1, debe = concepto + 1,
              haber = debe + 1;
    const double xConcepto = p.diseno().columnas.at(concepto).x;
    p.Empezar();

    double asientoDebe = 0, asientoHaber = 0;
    bool hayAsiento = false;
    qlonglong anterior = 0;
    // The entry's closing: its total in bold, the separating row, the page-end test.
    auto cerrarAsiento = [&] {
        p.CabeceraSiToca();
        imp.PonerNegrita(true);
        imp.PonerX(xConcepto);
        imp.EscribirSeguido(TextoTotalAsiento);
        imp.EscribirADerecha(Formato(asientoDebe, QStringLiteral("standard")),
                             p.diseno().columnas.at(debe).x);
        imp.EscribirADerecha(Formato(asientoHaber, QStringLiteral("standard")),
                             p.diseno().columnas.at(haber).x);
        imp.PonerNegrita(false);
        p.FinFila();
        imp.PonerX((W - imp.AnchoTexto(SeparadorAsientos)) / 2);
        imp.EscribirSeguido(SeparadorAsientos);
        p.FinFila();
        p.FinDePaginaSiToca();
        asientoDebe = asientoHaber = 0;
    };

    while (q.next()) {
        const qlonglong nas = q.value(0).toLongLong();
        if (hayAsiento && nas != anterior)
            cerrarAsiento();
        if (!hayAsiento || nas != anterior) {
            p.CabeceraSiToca();
            imp.PonerNegrita(true);
            imp.PonerX(p.L());
            QString cabeza = QStringLiteral("Asiento nº ") + Formato(nas, QStringLiteral("#,##0"));
            const QString sector = q.value(7).toString().trimmed();
            if (!sector.isEmpty())
                cabeza += QStringLiteral("   Sector: ") + sector;
            imp.EscribirSeguido(cabeza);
            imp.PonerNegrita(false);
            p.FinFila();
            hayAsiento = true;
            anterior = nas;
        }
        p.CabeceraSiToca();
        const double vDebe = q.value(4).toDouble(), vHaber = q.value(5).toDouble();
        if (doc >= 0)
            p.Celda(doc, q.value(8).toString());
        p.Celda(fecha, FechaCorta(q.value(1).toString()));
        p.Celda(subcuenta, q.value(2).toString());
        p.Celda(concepto, q.value(3).toString());
        p.Celda(debe, ImporteLibro(vDebe));
        p.Celda(haber, ImporteLibro(vHaber));
        p.FinFila();
        asientoDebe += vDebe;
        asientoHaber += vHaber;
        sumas_[0] += vDebe;
        sumas_[1] += vHaber;

        const QString plan = q.value(6).toString().mid(1, 3);
        if ((plan == QLatin1String("472") || plan == QLatin1String("477")) &&
            !q.value(9).isNull()) {
            p.CabeceraSiToca();
            imp.PonerTamano(op_.tamano - 1);
            imp.PonerX(xConcepto);
            imp.EscribirSeguido(LineaIvaBorrador(q.value(9).toDouble(), q.value(10).toDouble(),
                                                 q.value(11).toString(), q.value(12).toString()));
            p.FinFila();
            imp.PonerTamano(op_.tamano);
        }
        p.FinDePaginaSiToca();
    }
    if (!hayAsiento)
        return;
    cerrarAsiento();
    // A rule across at the page-end line when the foot stands on the same page.
    if (!p.PaginaPendiente() && imp.Y() < p.H() - FinPaginaDiario)
        imp.Linea(p.L(), p.H() - FinPaginaDiario, p.R(), p.H() - FinPaginaDiario);
    p.Terminar();
}

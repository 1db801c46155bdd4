#include "reports/ImpresionSumasSaldos.h"

#include "platform/Rejilla.h"
#include "reports/SumasSaldos.h"

namespace {

// Room of a money column: its figures and the gap before the next.
constexpr double AnchoImporte = 1700;

double Valor(const Rejilla& r, int fila, int columna) {
    return ValorCelda(r.celda(fila, columna)).value_or(0.0);
}

} // namespace

QList<ColumnaLibro> ColumnasLibroSyS(double L, double d, double W) {
    const double cuenta = 1500 + d * 5 / 6;
    const double debe = W - 4400 + d / 3;
    QList<ColumnaLibro> c;
    // Codes are never cut: with a margin under 600 their nine figures reach close to "CUENTA".
    c << ColumnaLibro{QStringLiteral("CODIGO"), L}
      << ColumnaLibro{QStringLiteral("CUENTA"), cuenta, false, debe - AnchoImporte - cuenta}
      << ColumnaLibro{QStringLiteral("DEBE"), debe, true, AnchoImporte, 0}
      << ColumnaLibro{QStringLiteral("HABER"), W - 2700 + d / 6, true, AnchoImporte, 1}
      << ColumnaLibro{QStringLiteral("SALDO"), W - 1000, true, AnchoImporte, 2};
    return c;
}

ImpresionSyS::ImpresionSyS(const Rejilla& rejilla, const QString& empresa, const QDate& desde,
                           const QDate& hasta, const OpcionesLibro& op)
    : r_(rejilla), empresa_(empresa), desde_(desde), hasta_(hasta), op_(op) {}

DibujoLibro ImpresionSyS::Dibujo() {
    return [this](Impresora& imp, int copia) {
        Dibujar(imp, copia);
    };
}

void ImpresionSyS::Dibujar(Impresora& imp, int) {
    const MargenLibro m = Margen(op_.margen);
    DisenoLibro dis;
    dis.titulo = TituloSyS;
    dis.cabecera = empresa_;
    dis.desde = desde_;
    dis.hasta = hasta_;
    dis.bajadaCabecera = 250;
    dis.bajadaFila = 20;
    dis.finPagina = FinPaginaSyS;
    dis.regla = ReglaSyS;
    dis.totales = TotalesSyS;
    dis.columnas = ColumnasLibroSyS(m.L, m.d, imp.AnchoPagina());

    sumas_ = {0, 0, 0};
    ImpresionLibro p(imp, dis, op_, sumas_);
    p.Empezar();
    for (int f = 0; f < r_.Filas(); ++f) {
        const bool grupo = r_.celda(f, ColSySNCuenta).isEmpty();
        const double debe = Valor(r_, f, ColSySDebe), haber = Valor(r_, f, ColSySHaber);
        p.Fila({r_.Celda(f, ColSySCodigo), r_.Celda(f, ColSySCuenta), ImporteLibro(debe),
                ImporteLibro(haber), ImporteLibro(Valor(r_, f, ColSySSaldo))},
               grupo);
        if (!grupo) {
            sumas_[0] += debe;
            sumas_[1] += haber;
            sumas_[2] = sumas_[0] - sumas_[1];
        }
        p.FinDePaginaSiToca();
    }
    p.Terminar();
}

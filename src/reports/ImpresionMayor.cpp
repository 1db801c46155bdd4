#include "reports/ImpresionMayor.h"

#include "platform/Impresora.h"
#include "platform/Rejilla.h"

namespace {

constexpr double AnchoImporte = 1400;

double Valor(const Rejilla& r, int fila, int columna) {
    return ValorCelda(r.celda(fila, columna)).value_or(0.0);
}

// A row of lines or of the initial balance: figures as the book prints them (zero as nothing).
void FilaImporte(ImpresionLibro& p, const Rejilla& r, int f) {
    p.CabeceraSiToca();
    p.Celda(0, r.Celda(f, ColMovAsiento));
    p.Celda(1, r.Celda(f, ColMovFecha));
    p.Celda(2, r.Celda(f, ColMovConcepto));
    p.Celda(3, ImporteLibro(Valor(r, f, ColMovDebe)));
    p.Celda(4, ImporteLibro(Valor(r, f, ColMovHaber)));
    p.Celda(5, ImporteLibro(Valor(r, f, ColMovSaldo)));
    p.FinFila();
}

DisenoLibro Diseno(const OpcionesLibro& op, double W, const QDate& desde, const QDate& hasta) {
    const MargenLibro m = Margen(op.margen);
    DisenoLibro dis;
    dis.titulo = TituloMayor;
    dis.desde = desde;
    dis.hasta = hasta;
    dis.bajadaCabecera = 250;
    dis.bajadaFila = 20;
    dis.columnas = ColumnasMayor(m.d, W);
    return dis;
}

} // namespace

QList<ColumnaLibro> ColumnasMayor(double d, double W) {
    const double debe = W - 4200 + d / 6, fecha = 2800 + d * 7 / 9;
    // The concept runs from after the date to the room of the debit column.
    const double concepto = fecha + 1100;
    return {{QStringLiteral("Nº As."), 1400 + d * 8 / 9 + 200, true},
            {QStringLiteral("FECHA"), fecha},
            {QStringLiteral("CONCEPTO"), concepto, false, debe - AnchoImporte - concepto},
            {QStringLiteral("DEBE"), debe, true, AnchoImporte, 0},
            {QStringLiteral("HABER"), W - 2600 + d / 12, true, AnchoImporte, 1},
            {QStringLiteral("SALDO"), W - 1000, true, AnchoImporte, 2}};
}

void DibujarMovimientos(Impresora& imp, const Rejilla& r, const TotalesMovimientos& t,
                        const SeleccionMovimientos& sel, const OpcionesLibro& op) {
    DisenoLibro dis = Diseno(op, imp.AnchoPagina(), sel.desde, sel.hasta);
    dis.cabecera = QStringLiteral("SubCuenta: ") + sel.nombre;
    dis.finPagina = FinPaginaMovimientos;
    dis.regla = ReglaMovimientos;
    dis.totales = PieMovimientos;
    QList<double> sumas{0, 0, 0}; // debit, credit, last balance
    ImpresionLibro p(imp, dis, op, sumas);
    p.Empezar();
    for (int f = 0; f < r.Filas(); ++f) {
        FilaImporte(p, r, f);
        sumas[0] += Valor(r, f, ColMovDebe);
        sumas[1] += Valor(r, f, ColMovHaber);
        sumas[2] = Valor(r, f, ColMovSaldo);
        p.FinDePaginaSiToca();
    }
    QList<LineaCierre> cierre{
        {PalabrasPeriodo, {t.periodo.debe, t.periodo.haber, t.periodo.saldo}}};
    if (t.conAcumulado)
        cierre << LineaCierre{PalabrasAcumulado,
                              {t.acumulado.debe, t.acumulado.haber, t.acumulado.saldo}};
    p.Terminar(cierre);
}

void DibujarMayor(Impresora& imp, const Rejilla& r, const SeleccionMayor& sel,
                  const QString& empresa, const OpcionesLibro& op) {
    DisenoLibro dis = Diseno(op, imp.AnchoPagina(), sel.desde, sel.hasta);
    dis.cabecera = empresa;
    dis.finPagina = FinPaginaMayor;
    dis.regla = std::nullopt;
    dis.totales = PaginaMayor;
    dis.sumas = false;
    QList<double> sinSumas;
    ImpresionLibro p(imp, dis, op, sinSumas);
    auto cabecera = [&](const QString& texto) {
        p.CabeceraSiToca();
        imp.PonerNegrita(true);
        imp.PonerX(p.L());
        imp.EscribirSeguido(texto);
        imp.PonerNegrita(false);
        p.FinFila();
    };
    p.Empezar();
    QString subcuenta; // the head of the subaccount whose lines are being printed
    for (int f = 0; f < r.Filas(); ++f) {
        const CabeceraMayor cabeza = TipoCabeceraMayor(r, f);
        if (cabeza == CabeceraMayor::Subcuenta)
            subcuenta = r.Celda(f, 0);
        if (cabeza != CabeceraMayor::Ninguna) {
            // A subaccount's block starts at its first head: the account's, when it has one.
            const bool bloqueSubcuenta =
                cabeza == CabeceraMayor::Cuenta ||
                (f == 0 || TipoCabeceraMayor(r, f - 1) != CabeceraMayor::Cuenta);
            if (p.Dibujado() && !p.PaginaPendiente() &&
                ((cabeza == CabeceraMayor::Cuenta && op.nuevaPaginaCuenta) ||
                 (bloqueSubcuenta && op.nuevaPaginaSubcuenta)))
                p.FinDePagina();
            cabecera(r.Celda(f, 0));
        } else if (r.Celda(f, ColMovFecha).isEmpty()) {
            // The blank rows that close a subaccount's block.
            subcuenta.clear();
            FilaImporte(p, r, f);
        } else {
            // A page that starts inside a subaccount says again whose lines it carries.
            if (p.PaginaPendiente() && !subcuenta.isEmpty())
                cabecera(subcuenta);
            FilaImporte(p, r, f);
        }
        p.FinDePaginaSiToca();
    }
    p.Terminar();
}

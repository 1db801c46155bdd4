#include "reports/ImpresionIngresosGastos.h"

#include "platform/Rejilla.h"
#include "store/Formato.h"

namespace {

// Room of a money column: its figures and the gap before the next.
constexpr double AnchoImporte = 1700;
constexpr double AnchoPorcentaje = 1500;
// The month tables: the first column, each month, and the total at the right.
constexpr double AnchoPrimeraMeses = 2600;
constexpr double AnchoTotalMeses = 1300;
constexpr double MargenDerechoMeses = 700;
// Page end and foot of the month tables, which carry no sums.
constexpr double FinPaginaMeses = 1400;
constexpr double PieMeses = 1000;

const QString Relleno = QStringLiteral(" . .").repeated(80);

double Valor(const Rejilla& r, int fila, int columna) {
    return ValorCelda(r.celda(fila, columna)).value_or(0.0);
}

QString Sector(const QString& sector) {
    return sector.trimmed().isEmpty() ? QString() : QStringLiteral("Sector: ") + sector.trimmed();
}

// The frame of the two month tables.
DisenoLibro DisenoMeses(const QString& titulo, const QString& empresa, const QString& linea,
                        const QList<ColumnaLibro>& columnas) {
    DisenoLibro dis;
    dis.titulo = titulo;
    dis.cabecera = empresa;
    dis.subcabecera = linea;
    dis.bajadaCabecera = 250;
    dis.bajadaFila = 20;
    dis.finPagina = FinPaginaMeses;
    dis.regla.reset();
    dis.totales = PieMeses;
    dis.sumas = false;
    dis.columnas = columnas;
    return dis;
}

// When a month's heading is too wide for its column in the print font (bold), every month is
// headed by its first three letters: "ENE", "FEB"... "SEP".
QList<ColumnaLibro> MesesQueCaben(QList<ColumnaLibro> columnas, const OpcionesLibro& op) {
    bool cortar = false;
    for (int m = 1; m <= 12 && m < columnas.size(); ++m)
        cortar = cortar || AnchoTextoImpresion(columnas[m].titulo, op.fuente, op.tamano, true) >
                               columnas[m].ancho - 120;
    for (int m = 1; cortar && m <= 12 && m < columnas.size(); ++m)
        columnas[m].titulo = columnas[m].titulo.left(3);
    return columnas;
}

// The rows of a month table as they stand in the grid: the first cell, the months and the total
// (zero months print nothing); rows without a code (headings, totals) in bold.
void FilasMeses(ImpresionLibro& p, const Rejilla& r, int columnaCodigo) {
    for (int f = 0; f < r.Filas(); ++f) {
        QStringList celdas{r.Celda(f, 0)};
        for (int m = 0; m < 13; ++m)
            celdas << ImporteLibro(Valor(r, f, 1 + m));
        const bool negrita = columnaCodigo >= 0 && r.celda(f, columnaCodigo).isEmpty();
        p.Fila(celdas, negrita);
        if (f + 1 < r.Filas())
            p.FinDePaginaSiToca();
    }
}

} // namespace

QList<ColumnaLibro> ColumnasLibroTotalesIyG(double L, double d, double W) {
    const double acumulado = W - 2800 + d / 3;
    QList<ColumnaLibro> c;
    c << ColumnaLibro{QStringLiteral("CUENTA"), L, false, acumulado - AnchoImporte - L}
      << ColumnaLibro{QStringLiteral("ACUMULADO"), acumulado, true, AnchoImporte, 0}
      << ColumnaLibro{QStringLiteral("PORCENTAJE"), W - 1000, true, AnchoPorcentaje};
    return c;
}

QList<ColumnaLibro> ColumnasLibroListaIyG(double L, double d, double W) {
    const double importe = W - 1000;
    const double concepto = 5600 + d / 2;
    QList<ColumnaLibro> c;
    c << ColumnaLibro{QStringLiteral("Nº As."), 1400 + d, true, 800}
      << ColumnaLibro{QStringLiteral("FECHA"), 1650 + d, false, 1150}
      << ColumnaLibro{QStringLiteral("CUENTA"), 2800 + d, false, concepto - (2800 + d)}
      << ColumnaLibro{QStringLiteral("CONCEPTO"), concepto, false,
                      importe - AnchoImporte - concepto}
      << ColumnaLibro{QStringLiteral("IMPORTE"), importe, true, AnchoImporte, 0};
    return c;
}

QList<ColumnaLibro> ColumnasLibroMeses(const QString& primera, double L, double d, double W) {
    const double total = W - MargenDerechoMeses;
    const double primeraX = L;
    const double inicioMeses = primeraX + AnchoPrimeraMeses + d / 4;
    const double mes = (total - AnchoTotalMeses - inicioMeses) / 12;
    QList<ColumnaLibro> c;
    c << ColumnaLibro{primera, primeraX, false, inicioMeses - primeraX};
    const QStringList& meses = NombresMeses();
    for (int m = 0; m < 12; ++m)
        c << ColumnaLibro{meses.at(m).toUpper(), inicioMeses + (m + 1) * mes, true, mes};
    c << ColumnaLibro{QStringLiteral("TOTAL"), total, true, AnchoTotalMeses};
    return c;
}

void DibujarTotalesIyG(Impresora& imp, const Rejilla& r, const SeleccionIyG& sel,
                       const QString& empresa, const OpcionesLibro& op) {
    bool haySubcuentas = false;
    for (int f = 0; f < r.Filas() && !haySubcuentas; ++f)
        haySubcuentas = !r.celda(f, ColTotNCuenta).isEmpty();
    if (!haySubcuentas)
        return;

    const MargenLibro m = Margen(op.margen);
    DisenoLibro dis;
    dis.titulo = TituloTotalesIyG;
    dis.cabecera = empresa;
    dis.desde = sel.desde;
    dis.hasta = sel.hasta;
    dis.subcabecera = Sector(sel.sector);
    dis.bajadaCabecera = 250;
    dis.bajadaFila = 20;
    dis.finPagina = 2150;
    dis.regla = 2035;
    dis.totales = 1835;
    dis.palabrasAnteriores = SumaAnteriorIyG;
    dis.palabrasSigue = SumaSigueTotalesIyG;
    dis.columnas = ColumnasLibroTotalesIyG(m.L, m.d, imp.AnchoPagina());

    QList<double> sumas{0};
    ImpresionLibro p(imp, dis, op, sumas);
    p.Empezar();
    // The list's last row (the result, or the only block's total) closes the book at the foot.
    const int ultima = r.Filas() - 1;
    for (int f = 0; f < ultima; ++f) {
        const QString nombre = r.Celda(f, ColTotSubcuenta);
        const bool subcuenta = !r.celda(f, ColTotNCuenta).isEmpty();
        const double importe = Valor(r, f, ColTotAcumulado);
        if (nombre == FilaIngresos || nombre == FilaGastos)
            sumas[0] = 0;
        if (subcuenta) {
            p.Fila({nombre + Relleno, ImporteLibro(importe), r.Celda(f, ColTotPorcentaje)});
            sumas[0] += importe;
        } else {
            p.Fila({nombre, r.Celda(f, ColTotAcumulado), r.Celda(f, ColTotPorcentaje)}, true);
        }
        p.FinDePaginaSiToca();
    }
    p.Terminar({{r.Celda(ultima, ColTotSubcuenta) + QStringLiteral(" . . ."),
                 {Valor(r, ultima, ColTotAcumulado)}}});
}

void DibujarListaIyG(Impresora& imp, const Rejilla& r, const SeleccionListaIyG& sel,
                     const QString& empresa, const OpcionesLibro& op) {
    if (r.Filas() == 0)
        return;
    const MargenLibro m = Margen(op.margen);
    DisenoLibro dis;
    dis.titulo = TituloListaIyG;
    dis.cabecera = empresa;
    dis.desde = sel.desde;
    dis.hasta = sel.hasta;
    dis.subcabecera =
        sel.clase == ClaseIyG::Ingresos ? QStringLiteral("Ingresos") : QStringLiteral("Gastos");
    if (!sel.sector.trimmed().isEmpty())
        dis.subcabecera += QStringLiteral("     ") + Sector(sel.sector);
    dis.bajadaCabecera = 150;
    dis.bajadaFila = 10;
    dis.finPagina = 2150;
    dis.regla = 1985;
    dis.totales = 1835;
    dis.palabrasAnteriores = SumaAnteriorIyG;
    dis.palabrasSigue = SumaSigueListaIyG;
    dis.palabrasTotales = CierreListaIyG;
    dis.columnas = ColumnasLibroListaIyG(m.L, m.d, imp.AnchoPagina());

    QList<double> sumas{0};
    ImpresionLibro p(imp, dis, op, sumas);
    p.Empezar();
    for (int f = 0; f < r.Filas(); ++f) {
        const double importe = Valor(r, f, ColLisImporte);
        p.Fila({r.Celda(f, ColLisAsiento), r.Celda(f, ColLisFecha), r.Celda(f, ColLisCuenta),
                r.Celda(f, ColLisConcepto), ImporteLibro(importe)});
        sumas[0] += importe;
        // The last row's page ends with the foot of the book, never with an empty page.
        if (f + 1 < r.Filas())
            p.FinDePaginaSiToca();
    }
    p.Terminar();
}

void DibujarMesesIyG(Impresora& imp, const Rejilla& r, const SeleccionMesesIyG& sel,
                     const QString& empresa, const OpcionesLibro& op) {
    bool haySubcuentas = false;
    for (int f = 0; f < r.Filas() && !haySubcuentas; ++f)
        haySubcuentas = !r.celda(f, ColMesNCuenta).isEmpty();
    if (!haySubcuentas)
        return;
    const MargenLibro m = Margen(op.margen);
    QString linea = QStringLiteral("Año %1").arg(sel.ano);
    if (!sel.sector.trimmed().isEmpty())
        linea += QStringLiteral("     ") + Sector(sel.sector);
    const DisenoLibro dis = DisenoMeses(
        TituloMesesIyG, empresa, linea,
        MesesQueCaben(ColumnasLibroMeses(QStringLiteral("CUENTA"), m.L, m.d, imp.AnchoPagina()),
                      op));
    QList<double> sinSumas;
    ImpresionLibro p(imp, dis, op, sinSumas);
    p.Empezar();
    FilasMeses(p, r, ColMesNCuenta);
    p.Terminar();
}

void DibujarComparacion(Impresora& imp, const Rejilla& r, const SeleccionComparacion& sel,
                        const QString& empresa, const OpcionesLibro& op) {
    if (r.Filas() == 0)
        return;
    const MargenLibro m = Margen(op.margen);
    QString linea = sel.porAreas ? QStringLiteral("Area: ") + sel.area
                                 : QStringLiteral("Subcuenta: ") + sel.nombre;
    if (!sel.sector.trimmed().isEmpty())
        linea += QStringLiteral("     ") + Sector(sel.sector);
    const DisenoLibro dis = DisenoMeses(
        TituloComparacion, empresa, linea,
        MesesQueCaben(ColumnasLibroMeses(QStringLiteral("AÑO"), m.L, m.d, imp.AnchoPagina()), op));
    QList<double> sinSumas;
    ImpresionLibro p(imp, dis, op, sinSumas);
    p.Empezar();
    FilasMeses(p, r, -1);
    p.Terminar();
}

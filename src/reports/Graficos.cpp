#include "reports/Graficos.h"

#include "chart/VistaArea.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/ComparacionAnos.h"
#include "reports/IngresosGastos.h"
#include "reports/Movimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSqlQuery>

#include <algorithm>
#include <vector>

const QList<EntradaGrafico>& EntradasGraficos() {
    static const QList<EntradaGrafico> entradas{
        {QStringLiteral("Capital del ejercicio"), TipoGrafico::Area, 0, QStringLiteral("capital")},
        {QStringLiteral("Ingresos del ejercicio"), TipoGrafico::Area, 3,
         QStringLiteral("ingresos")},
        {QStringLiteral("Gastos del ejercicio"), TipoGrafico::Area, 6, QStringLiteral("gastos")},
        {QStringLiteral("Bienes e Inversiones del ejercicio"), TipoGrafico::Area, 5,
         QStringLiteral("bienes")},
        {QStringLiteral("Efectivo y Bancos del ejercicio"), TipoGrafico::Area, 1,
         QStringLiteral("efectivo")},
        {QStringLiteral("SE DEBE del ejercicio"), TipoGrafico::Area, 2, QStringLiteral("se-debe")},
        {QStringLiteral("NOS DEBEN del ejercicio"), TipoGrafico::Area, 4,
         QStringLiteral("nos-deben")},
        {QStringLiteral("Movimientos de una Cuenta por meses"), TipoGrafico::Cuenta, -1,
         QStringLiteral("cuenta")},
        {QStringLiteral("Ingresos y Gastos del ejercicio"), TipoGrafico::IngresosGastos, -1,
         QStringLiteral("ingresos-gastos")},
        {QStringLiteral("Ingresos y Gastos por meses"), TipoGrafico::Meses, -1,
         QStringLiteral("meses")},
        {QStringLiteral("Comparación de los últimos años"), TipoGrafico::Anos, -1,
         QStringLiteral("anos")},
    };
    return entradas;
}

const EntradaGrafico* EntradaGraficoDeClave(const QString& clave) {
    for (const EntradaGrafico& e : EntradasGraficos())
        if (e.clave.compare(clave.trimmed(), Qt::CaseInsensitive) == 0)
            return &e;
    return nullptr;
}

bool AdmiteCircular(TipoGrafico tipo) {
    return tipo == TipoGrafico::Area || tipo == TipoGrafico::Cuenta;
}

AspectoGrafico LeerAspectoGrafico(const Ajustes& ajustes) {
    const QString v = QStringLiteral("Valores");
    AspectoGrafico a;
    a.tresD = ajustes.leer(v, QStringLiteral("Dimensiones"))
                  .trimmed()
                  .compare(QLatin1String("3D"), Qt::CaseInsensitive) == 0;
    a.circular = ajustes.leer(v, QStringLiteral("TipoChart"))
                     .trimmed()
                     .compare(QLatin1String("Circular"), Qt::CaseInsensitive) == 0;
    a.cantidades = ajustes.leer(v, QStringLiteral("VerImport"))
                       .trimmed()
                       .compare(QLatin1String("SI"), Qt::CaseInsensitive) == 0;
    return a;
}

void GuardarDimensiones(Ajustes& ajustes, bool tresD) {
    ajustes.escribir(QStringLiteral("Valores"), QStringLiteral("Dimensiones"),
                     tresD ? QStringLiteral("3D") : QStringLiteral("2D"));
}

void GuardarTipoChart(Ajustes& ajustes, bool circular) {
    ajustes.escribir(QStringLiteral("Valores"), QStringLiteral("TipoChart"),
                     circular ? QStringLiteral("Circular") : QStringLiteral("Barras"));
}

void GuardarVerImport(Ajustes& ajustes, bool cantidades) {
    ajustes.escribir(QStringLiteral("Valores"), QStringLiteral("VerImport"),
                     cantidades ? QStringLiteral("SI") : QStringLiteral("NO"));
}

bool DibujaCircular(TipoGrafico tipo, const AspectoGrafico& aspecto) {
    return aspecto.circular && AdmiteCircular(tipo);
}

namespace {

const QString Conceptos = QStringLiteral("CONCEPTOS");
const QString Importes = QStringLiteral("Importes");

struct SaldoSubcuenta {
    QString ncuenta, nombre;
    double debe = 0, haber = 0; // sums before the close, to the cent
};

// The sums of Mayor of the subaccounts matching any of the patterns, less the lines of the
// regularisation and final entries: the balances before the close, read without touching the
// books. In an open exercise there are no such lines and these are Mayor's own sums. Subaccounts
// whose two sums are zero are left out.
std::vector<SaldoSubcuenta> SaldosAntesDelCierre(Conexion& c, const QStringList& patrones) {
    QString donde;
    QVariantList valores;
    for (const QString& p : patrones) {
        donde += donde.isEmpty() ? QStringLiteral("m.NCuenta LIKE ?")
                                 : QStringLiteral(" OR m.NCuenta LIKE ?");
        valores << p;
    }
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT m.NCuenta, m.Cuenta, m.SaldoD - COALESCE(x.Debe, 0), "
                       "m.SaldoH - COALESCE(x.Haber, 0) FROM ConMayor m "
                       "LEFT JOIN (SELECT NCuenta, SUM(Debe) AS Debe, SUM(Haber) AS Haber "
                       "FROM Diario WHERE Clase = 'R' OR Clase = 'F' GROUP BY NCuenta) x "
                       "ON x.NCuenta = m.NCuenta WHERE ") +
            donde + QStringLiteral(" ORDER BY m.NCuenta"),
        valores);
    std::vector<SaldoSubcuenta> r;
    while (q.next()) {
        SaldoSubcuenta s;
        s.ncuenta = q.value(0).toString();
        s.nombre = q.value(1).toString().trimmed();
        s.debe = Centimos(q.value(2).toDouble());
        s.haber = Centimos(q.value(3).toDouble());
        if (s.debe == 0 && s.haber == 0)
            continue;
        r.push_back(std::move(s));
    }
    return r;
}

QString TituloEjercicio(Conexion& c, const Sesion& s, const EntradaGrafico& e) {
    return NombreEmpresa(c) + QStringLiteral(". ") + e.texto + QStringLiteral(". Año ") +
           QString::number(s.AnoActual);
}

struct Concepto {
    QString nombre;
    double importe = 0;
};

// Sorted down by amount (the order of NCuenta kept among equals); the first n as points and,
// when there are more, the rest summed into one point. Returns the total of all.
double TomarMayores(std::vector<Concepto> conceptos, int n, const QString& resto,
                    QStringList& puntos, QList<double>& valores, bool* cortado = nullptr) {
    std::stable_sort(conceptos.begin(), conceptos.end(),
                     [](const Concepto& a, const Concepto& b) { return a.importe > b.importe; });
    double total = 0, tomado = 0;
    for (size_t i = 0; i < conceptos.size(); ++i) {
        total += conceptos[i].importe;
        if (int(i) < n) {
            puntos << conceptos[i].nombre;
            valores << conceptos[i].importe;
            tomado += conceptos[i].importe;
        }
    }
    total = Centimos(total);
    const bool hayResto = int(conceptos.size()) > n;
    if (hayResto) {
        puntos << resto;
        valores << Centimos(total - Centimos(tomado));
    }
    if (cortado)
        *cortado = hayResto;
    return total;
}

QList<double> Meses() {
    return QList<double>(12, 0.0);
}

} // namespace

DatosGrafico GraficoArea(Conexion& c, const Sesion& s, const EntradaGrafico& e) {
    DatosGrafico g;
    g.tipo = TipoGrafico::Area;
    g.titulo = TituloEjercicio(c, s, e);
    const QString digito = QString::number(e.area);
    // Areas 0, 2 and 3 are of credit nature: their subaccounts are sorted by credit balance.
    const bool acreedora = e.area == 0 || e.area == 2 || e.area == 3;
    std::vector<Concepto> conceptos;
    for (const SaldoSubcuenta& f : SaldosAntesDelCierre(c, {digito + u'%'}))
        conceptos.push_back({f.nombre, Centimos(acreedora ? f.haber - f.debe : f.debe - f.haber)});
    SerieGrafico serie;
    serie.nombre = e.texto;
    bool cortado = false;
    const double total = TomarMayores(std::move(conceptos), PuntosArea, PuntoRestoConceptos,
                                      g.puntos, serie.valores, &cortado);
    g.series << serie;
    g.totales << total;
    g.tituloX = cortado ? Conceptos + QStringLiteral(" (Se incluyen los 25 mayores)") : Conceptos;
    g.tituloY = Importes;
    return g;
}

DatosGrafico GraficoIyG(Conexion& c, const Sesion& s, const EntradaGrafico& e) {
    DatosGrafico g;
    g.tipo = TipoGrafico::IngresosGastos;
    g.titulo = TituloEjercicio(c, s, e);
    g.puntosSeparados = true;
    std::vector<Concepto> ingresos, gastos;
    for (const SaldoSubcuenta& f :
         SaldosAntesDelCierre(c, {QStringLiteral("_6%"), QStringLiteral("_7%")})) {
        if (f.ncuenta.mid(1, 1) == QLatin1String("7"))
            ingresos.push_back({f.nombre, Centimos(f.haber - f.debe)});
        else
            gastos.push_back({f.nombre, Centimos(f.debe - f.haber)});
    }
    QStringList puntosIngresos, puntosGastos;
    QList<double> valoresIngresos, valoresGastos;
    bool cortadoIngresos = false, cortadoGastos = false;
    const double totalIngresos = TomarMayores(std::move(ingresos), PuntosIyG, PuntoRestoIngresos,
                                              puntosIngresos, valoresIngresos, &cortadoIngresos);
    const double totalGastos = TomarMayores(std::move(gastos), PuntosIyG, PuntoRestoGastos,
                                            puntosGastos, valoresGastos, &cortadoGastos);
    // Income points first, then expense points; each series is zero at the other's points.
    SerieGrafico si{QStringLiteral("Ingresos"), {}}, sg{QStringLiteral("Gastos"), {}};
    g.puntos = puntosIngresos + puntosGastos;
    si.valores = valoresIngresos + QList<double>(valoresGastos.size(), 0.0);
    sg.valores = QList<double>(valoresIngresos.size(), 0.0) + valoresGastos;
    g.series << si << sg;
    g.totales << totalIngresos << totalGastos;
    g.tituloX = cortadoIngresos || cortadoGastos
                    ? Conceptos + QStringLiteral(" (Se incluyen los 15 mayores)")
                    : Conceptos;
    g.tituloY = Importes;
    return g;
}

DatosGrafico GraficoMeses(Conexion& c, const Sesion& s, const EntradaGrafico& e) {
    DatosGrafico g;
    g.tipo = TipoGrafico::Meses;
    g.titulo = TituloEjercicio(c, s, e);
    g.puntos = NombresMeses();
    QList<double> ingresos = Meses(), gastos = Meses();
    Lector l(c, QStringLiteral("SELECT NCuenta, Fecha, Debe, Haber FROM Diario "
                               "WHERE (NCuenta LIKE '_6%' OR NCuenta LIKE '_7%') "
                               "AND Clase <> 'R'"));
    while (l.siguiente()) {
        const int mes = DeISO(l.texto(1)).month();
        if (mes < 1)
            continue;
        const double debe = l.real(2), haber = l.real(3);
        if (l.vista(0).mid(1, 1) == QLatin1String("7"))
            ingresos[mes - 1] += haber - debe;
        else
            gastos[mes - 1] += debe - haber;
    }
    double ti = 0, tg = 0;
    for (int m = 0; m < 12; ++m) {
        ingresos[m] = Centimos(ingresos[m]);
        gastos[m] = Centimos(gastos[m]);
        ti += ingresos[m];
        tg += gastos[m];
    }
    g.series << SerieGrafico{QStringLiteral("Ingresos"), ingresos}
             << SerieGrafico{QStringLiteral("Gastos"), gastos};
    g.totales << Centimos(ti) << Centimos(tg);
    g.tituloX = QStringLiteral("Meses");
    g.tituloY = Importes;
    return g;
}

DatosGrafico GraficoCuenta(Conexion& c, const Sesion& s, const QString& ncuenta,
                           const QString& nombre) {
    DatosGrafico g;
    g.tipo = TipoGrafico::Cuenta;
    g.titulo = QStringLiteral("     Cuenta: ") + nombre.trimmed() + QStringLiteral(". Año ") +
               QString::number(s.AnoActual);
    g.puntos = NombresMeses();
    QList<double> meses = Meses();
    Lector l(c,
             QStringLiteral("SELECT Fecha, Debe, Haber FROM Diario WHERE Clase <> 'R' "
                            "AND Clase <> 'F' AND NCuenta = ?"),
             {ncuenta});
    while (l.siguiente()) {
        const int mes = DeISO(l.texto(0)).month();
        if (mes >= 1)
            meses[mes - 1] += SaldoPorNaturaleza(ncuenta, l.real(1), l.real(2));
    }
    double total = 0;
    for (double& m : meses) {
        m = Centimos(m);
        total += m;
    }
    g.series << SerieGrafico{nombre.trimmed(), meses};
    g.totales << Centimos(total);
    g.tituloX = QStringLiteral("Meses");
    g.tituloY = Importes;
    return g;
}

namespace {

// A subaccount by its name, preferring the area chosen when two share the name.
std::optional<CuentaGrafico> SubcuentaDeNombre(const Sesion& s, const QString& area,
                                               const QString& nombre) {
    Conexion c = AbrirDatos(s);
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE TRIM(Cuenta) = ? "
                                  "ORDER BY (NCuenta LIKE ?) DESC, NCuenta LIMIT 1"),
                   {nombre.trimmed(), VistaArea::De(s).patron(area)});
    if (!q.next())
        return std::nullopt;
    return CuentaGrafico{q.value(0).toString(), q.value(1).toString().trimmed()};
}

} // namespace

std::optional<CuentaGrafico> ValidarCuentaGrafico(const QString& area, const QString& subcuenta,
                                                  const Sesion& s, Dialogo& dialogo) {
    if (area.trimmed().isEmpty()) {
        dialogo.Informar(MsgGrafAreaPrimero);
        return std::nullopt;
    }
    const auto cuenta = subcuenta.trimmed().isEmpty()
                            ? std::nullopt
                            : SubcuentaDeNombre(s, area.trimmed(), subcuenta);
    if (!cuenta)
        dialogo.Informar(MsgGrafErrorCuenta);
    return cuenta;
}

std::optional<SeleccionAnosGrafico> ValidarAnosGrafico(const CajasAnosGrafico& cajas,
                                                       const Sesion& s, Dialogo& dialogo) {
    if (cajas.numero <= 0) {
        dialogo.Informar(MsgGrafNumeroAnos);
        return std::nullopt;
    }
    if (cajas.primerAno <= 0) {
        dialogo.Informar(MsgGrafPrimerAno);
        return std::nullopt;
    }
    if (cajas.area.trimmed().isEmpty()) {
        dialogo.Informar(MsgGrafArea);
        return std::nullopt;
    }
    SeleccionAnosGrafico sel;
    sel.porAreas = cajas.porAreas;
    sel.area = cajas.area.trimmed();
    sel.numero = cajas.numero;
    sel.primerAno = cajas.primerAno;
    if (cajas.porAreas) {
        sel.nombre = sel.area;
        return sel;
    }
    if (cajas.subcuenta.trimmed().isEmpty()) {
        dialogo.Informar(MsgGrafCuenta);
        return std::nullopt;
    }
    const auto cuenta = SubcuentaDeNombre(s, sel.area, cajas.subcuenta);
    if (!cuenta) {
        dialogo.Informar(MsgGrafErrorCuenta);
        return std::nullopt;
    }
    sel.ncuenta = cuenta->ncuenta;
    sel.nombre = cuenta->nombre;
    return sel;
}

QList<int> AnosDelGrafico(const QList<int>& ejercicios, int primerAno, int numero) {
    QList<int> anos = ejercicios;
    std::sort(anos.begin(), anos.end());
    anos.erase(std::unique(anos.begin(), anos.end()), anos.end());
    QList<int> r;
    for (int a : anos)
        if (a >= primerAno && r.size() < numero)
            r << a;
    return r;
}

DatosGrafico GraficoAnos(const Sesion& s, const SeleccionAnosGrafico& sel, const QList<int>& anos) {
    DatosGrafico g;
    g.tipo = TipoGrafico::Anos;
    g.titulo = (sel.porAreas ? QStringLiteral("     Area: ") : QStringLiteral("     Cuenta: ")) +
               sel.nombre.trimmed() + QStringLiteral(". Comparación de los últimos ") +
               QString::number(sel.numero) + QStringLiteral(" años desde ") +
               QString::number(sel.primerAno);
    SeleccionComparacion comp;
    comp.porAreas = sel.porAreas;
    comp.area = sel.area.trimmed();
    comp.ncuenta = sel.ncuenta.trimmed();
    comp.areaPorPlan = VistaArea::De(s).porPlan();
    SerieGrafico serie;
    serie.nombre = sel.nombre.trimmed();
    double total = 0;
    for (int ano : anos) {
        const AnoComparado a = SumarAnoComparado(s, comp, ano);
        g.puntos << (a.existe ? QString::number(ano)
                              : QString::number(ano) + u' ' + TextoSinEjercicio);
        serie.valores << a.total;
        total += a.total;
    }
    g.series << serie;
    g.totales << Centimos(total);
    g.tituloX = QStringLiteral("Años");
    g.tituloY = Importes;
    return g;
}

Rejilla RejillaGrafico(const DatosGrafico& datos) {
    QList<Columna> columnas{{QStringLiteral("Concepto")}};
    for (const SerieGrafico& s : datos.series)
        columnas << Columna{s.nombre, TipoColumna::Importe};
    Rejilla r(columnas);
    for (int p = 0; p < datos.puntos.size(); ++p) {
        QStringList celdas{datos.puntos.at(p)};
        for (const SerieGrafico& s : datos.series)
            celdas << Formato(p < s.valores.size() ? s.valores.at(p) : 0.0,
                              QStringLiteral("standard"));
        r.AgregarFila(celdas);
    }
    return r;
}

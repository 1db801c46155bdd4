#include "reports/IngresosGastos.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/OpcionesLibro.h"
#include "reports/TextoLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <QSqlQuery>

#include <algorithm>
#include <vector>

bool ValidarFechasIyG(const QDate& desde, const QDate& hasta, Dialogo& dialogo) {
    if (desde.isValid() && hasta.isValid() && desde <= hasta)
        return true;
    dialogo.Informar(MsgFechasIyG);
    return false;
}

OpcionesLibro OpcionesListadoIyG(const Ajustes& ajustes, const QDate& hoy) {
    OpcionesLibro op;
    op.cancelado = false;
    op.margen = 0;
    const QString fuente =
        ajustes.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir")).trimmed();
    if (!fuente.isEmpty())
        op.fuente = fuente;
    const int tamano =
        int(ajustes.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9));
    op.tamano = tamano > 0 ? tamano : 9;
    op.fechaTrabajo = hoy;
    return op;
}

namespace {

QString Std(double v) {
    return Formato(v, QStringLiteral("standard"));
}

// A month cell: nothing for zero.
QString Mes(double v) {
    return Centimos(v) == 0 ? QString() : Std(v);
}

// The plan digit of the group: "_7%" takes the income subaccounts, "_6%" the expense ones.
QString PatronGrupo(bool ingresos) {
    return ingresos ? QStringLiteral("_7%") : QStringLiteral("_6%");
}

struct SumaSubcuenta {
    QString ncuenta, nombre;
    double importe = 0;
};

// The subaccounts of a group that Mayor holds, each with the sum of its lines in the period by
// the side's sign; regularisation left out.
std::vector<SumaSubcuenta> SumasGrupo(Conexion& c, bool ingresos, const QDate& desde,
                                      const QDate& hasta, const QString& sector) {
    QString sql = QStringLiteral("SELECT m.NCuenta, m.Cuenta, SUM(d.Debe), SUM(d.Haber) "
                                 "FROM ConMayor m INNER JOIN Diario d ON d.NCuenta = m.NCuenta "
                                 "WHERE m.NCuenta LIKE ? AND d.Clase <> 'R' "
                                 "AND d.Fecha BETWEEN ? AND ?");
    QVariantList valores{PatronGrupo(ingresos), FechaISO(desde), FechaISO(hasta)};
    if (!sector.isEmpty()) {
        sql += QStringLiteral(" AND d.Sector = ?");
        valores << sector;
    }
    sql += QStringLiteral(" GROUP BY m.NCuenta, m.Cuenta ORDER BY m.NCuenta");
    std::vector<SumaSubcuenta> r;
    QSqlQuery q = c.ejecutar(sql, valores);
    while (q.next()) {
        const double debe = q.value(2).toDouble(), haber = q.value(3).toDouble();
        SumaSubcuenta s;
        s.ncuenta = q.value(0).toString();
        s.nombre = q.value(1).toString().trimmed();
        s.importe = Centimos(ingresos ? haber - debe : debe - haber);
        r.push_back(std::move(s));
    }
    return r;
}

QString Porcentaje(double importe, double total) {
    return Centimos(total) == 0 ? QString() : Std(importe / total * 100.0);
}

void AnadirBloque(Rejilla& r, bool ingresos, const std::vector<SumaSubcuenta>& filas,
                  double total) {
    const int cabecera = r.AgregarFila(QStringList{ingresos ? FilaIngresos : FilaGastos});
    r.PonerNegritaFila(cabecera);
    for (const SumaSubcuenta& f : filas)
        r.AgregarFila(
            QStringList{f.nombre, Std(f.importe), f.ncuenta, Porcentaje(f.importe, total)});
    const int pie = r.AgregarFila(QStringList{ingresos ? FilaTotalIngresos : FilaTotalGastos,
                                              Std(total), QString(), Porcentaje(total, total)});
    r.PonerNegritaFila(pie);
}

} // namespace

Rejilla RejillaTotalesIyG() {
    return Rejilla({{QStringLiteral("SUBCUENTA")},
                    {QStringLiteral("ACUMULADO"), TipoColumna::Importe},
                    {QStringLiteral("NCuenta"), TipoColumna::Texto, true},
                    {QStringLiteral("PORCENTAJE"), TipoColumna::Importe}});
}

ResultadoTotalesIyG LlenarTotalesIyG(Conexion& c, const SeleccionIyG& sel, Rejilla& rejilla) {
    rejilla.Vaciar();
    ResultadoTotalesIyG res;
    const QString sector = sel.sector.trimmed();
    for (const bool ingresos : {true, false}) {
        if ((ingresos && sel.tipo == TipoIyG::SoloGastos) ||
            (!ingresos && sel.tipo == TipoIyG::SoloIngresos))
            continue;
        std::vector<SumaSubcuenta> filas = SumasGrupo(c, ingresos, sel.desde, sel.hasta, sector);
        // A subaccount whose period adds up to nothing gets no row.
        std::erase_if(filas, [](const SumaSubcuenta& f) { return f.importe == 0; });
        double total = 0;
        for (const SumaSubcuenta& f : filas)
            total += f.importe;
        total = Centimos(total);
        AnadirBloque(rejilla, ingresos, filas, total);
        (ingresos ? res.ingresos : res.gastos) = total;
        (ingresos ? res.subcuentasIngresos : res.subcuentasGastos) = int(filas.size());
    }
    if (sel.tipo == TipoIyG::Ambos) {
        const double resultado = Centimos(res.ingresos - res.gastos);
        const int f = rejilla.AgregarFila(QStringList{
            resultado >= 0 ? FilaResultadoPositivo : FilaResultadoNegativo, Std(resultado)});
        rejilla.PonerNegritaFila(f);
    }
    return res;
}

void OrdenarTotalesIyG(Rejilla& rejilla, OrdenIyG orden) {
    struct Fila {
        QStringList celdas;
        bool negrita = false;
    };
    std::vector<Fila> filas;
    filas.reserve(size_t(rejilla.Filas()));
    for (int f = 0; f < rejilla.Filas(); ++f)
        filas.push_back({rejilla.Fila(f), rejilla.Negrita(f, ColTotSubcuenta)});
    // The runs of subaccount rows (those with a code) are sorted each on its own.
    const auto menor = [orden](const Fila& a, const Fila& b) {
        if (orden == OrdenIyG::Cuenta)
            return a.celdas.at(ColTotNCuenta) < b.celdas.at(ColTotNCuenta);
        return ValorCelda(a.celdas.at(ColTotAcumulado)).value_or(0) >
               ValorCelda(b.celdas.at(ColTotAcumulado)).value_or(0);
    };
    const auto esSubcuenta = [](const Fila& f) {
        return f.celdas.size() > ColTotNCuenta && !f.celdas.at(ColTotNCuenta).isEmpty();
    };
    for (auto i = filas.begin(); i != filas.end();) {
        if (!esSubcuenta(*i)) {
            ++i;
            continue;
        }
        auto fin = std::find_if_not(i, filas.end(), esSubcuenta);
        std::stable_sort(i, fin, menor);
        i = fin;
    }
    const QList<Rejilla::Total> totales = rejilla.Totales();
    rejilla.Vaciar();
    for (const Fila& f : filas) {
        const int n = rejilla.AgregarFila(f.celdas);
        if (f.negrita)
            rejilla.PonerNegritaFila(n);
    }
    for (const Rejilla::Total& t : totales)
        rejilla.PonerTotal(t.etiqueta, t.valor);
}

Rejilla RejillaListaIyG() {
    return Rejilla({{QStringLiteral("Nº As."), TipoColumna::Entero},
                    {QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("Cuenta")},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Importe"), TipoColumna::Importe}});
}

int LlenarListaIyG(Conexion& c, const SeleccionListaIyG& sel, Rejilla& rejilla) {
    rejilla.Vaciar();
    const bool ingresos = sel.clase == ClaseIyG::Ingresos;
    QString sql = QStringLiteral("SELECT NAs, Fecha, Cuenta, Concepto, Debe, Haber FROM ConDiario "
                                 "WHERE Clase <> 'R' AND NCuenta LIKE ? AND Fecha BETWEEN ? AND ?");
    QVariantList valores{PatronGrupo(ingresos), FechaISO(sel.desde), FechaISO(sel.hasta)};
    const QString sector = sel.sector.trimmed();
    if (!sector.isEmpty()) {
        sql += QStringLiteral(" AND Sector = ?");
        valores << sector;
    }
    sql += QStringLiteral(" ORDER BY NAs, NAp");
    Lector l(c, sql, valores);
    double total = 0;
    int n = 0;
    QString fila;
    while (l.siguiente()) {
        const double debe = l.real(4), haber = l.real(5);
        const double importe = Centimos(ingresos ? haber - debe : debe - haber);
        total += importe;
        fila.clear();
        AnadirEnteroMiles(fila, l.entero(0));
        fila += u'\t';
        AnadirFechaCorta(fila, l.vista(1));
        fila += u'\t';
        AnadirTexto(fila, l.vista(2).trimmed());
        fila += u'\t';
        AnadirTexto(fila, l.vista(3).trimmed());
        fila += u'\t';
        AnadirImporte(fila, importe);
        rejilla.AgregarFila(fila);
        ++n;
    }
    rejilla.PonerTotal(TotalListaIyG, Std(Centimos(total)));
    return n;
}

Rejilla RejillaMesesIyG() {
    QList<Columna> columnas{{QStringLiteral("Subcuenta")}};
    for (const QString& m : NombresMeses())
        columnas << Columna{m, TipoColumna::Importe};
    columnas << Columna{QStringLiteral("TOTAL"), TipoColumna::Importe}
             << Columna{QStringLiteral("NCuenta"), TipoColumna::Texto, true};
    return Rejilla(columnas);
}

ResultadoMesesIyG LlenarMesesIyG(Conexion& c, const SeleccionMesesIyG& sel, Rejilla& rejilla) {
    rejilla.Vaciar();
    ResultadoMesesIyG res;
    // The table has always been laid on the calendar year, even for an exercise that starts in
    // another month: its lines from 1 January to 31 December of the exercise's year.
    const QDate desde(sel.ano, 1, 1), hasta(sel.ano, 12, 31);
    const QString sector = sel.sector.trimmed();

    for (const bool ingresos : {true, false}) {
        QString sql =
            QStringLiteral("SELECT m.NCuenta, m.Cuenta, d.Fecha, d.Debe, d.Haber "
                           "FROM ConMayor m INNER JOIN Diario d ON d.NCuenta = m.NCuenta "
                           "WHERE m.NCuenta LIKE ? AND d.Clase <> 'R' AND d.Fecha BETWEEN ? AND ?");
        QVariantList valores{PatronGrupo(ingresos), FechaISO(desde), FechaISO(hasta)};
        if (!sector.isEmpty()) {
            sql += QStringLiteral(" AND d.Sector = ?");
            valores << sector;
        }
        sql += QStringLiteral(" ORDER BY m.NCuenta");

        const int cabecera = rejilla.AgregarFila(QStringList{ingresos ? FilaIngresos : FilaGastos});
        rejilla.PonerNegritaFila(cabecera);
        double* bloque = ingresos ? res.ingresos : res.gastos;

        QString ncuenta, nombre;
        double meses[12] = {};
        bool abierta = false;
        const auto cerrar = [&] {
            if (!abierta)
                return;
            QStringList celdas{nombre};
            double total = 0;
            for (int m = 0; m < 12; ++m) {
                celdas << Mes(meses[m]);
                total += meses[m];
                bloque[m] += meses[m];
            }
            celdas << Std(Centimos(total)) << ncuenta;
            rejilla.AgregarFila(celdas);
            std::fill(std::begin(meses), std::end(meses), 0.0);
            abierta = false;
        };
        Lector l(c, sql, valores);
        while (l.siguiente()) {
            const QString codigo = l.texto(0);
            if (!abierta || codigo != ncuenta) {
                cerrar();
                ncuenta = codigo;
                nombre = l.texto(1).trimmed();
                abierta = true;
            }
            const int mes = DeISO(l.texto(2)).month();
            if (mes < 1)
                continue;
            const double debe = l.real(3), haber = l.real(4);
            meses[mes - 1] += ingresos ? haber - debe : debe - haber;
        }
        cerrar();

        QStringList pie{ingresos ? FilaTotalIngresos : FilaTotalGastos};
        double total = 0;
        for (int m = 0; m < 12; ++m) {
            bloque[m] = Centimos(bloque[m]);
            pie << Mes(bloque[m]);
            total += bloque[m];
        }
        total = Centimos(total);
        pie << Std(total);
        (ingresos ? res.totalIngresos : res.totalGastos) = total;
        rejilla.PonerNegritaFila(rejilla.AgregarFila(pie));
    }

    QStringList diferencias{FilaDiferencias};
    for (int m = 0; m < 12; ++m)
        diferencias << Mes(res.ingresos[m] - res.gastos[m]);
    diferencias << Std(Centimos(res.totalIngresos - res.totalGastos));
    rejilla.PonerNegritaFila(rejilla.AgregarFila(diferencias));
    return res;
}

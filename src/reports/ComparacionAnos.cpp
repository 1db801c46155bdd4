#include "reports/ComparacionAnos.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/IngresosGastos.h"
#include "reports/Movimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QFileInfo>
#include <QSqlQuery>

std::optional<SeleccionComparacion> ValidarComparacion(const CajasComparacion& cajas,
                                                       const Sesion& s, Dialogo& dialogo) {
    if (cajas.numero <= 0) {
        dialogo.Informar(MsgCompNumeroAnos);
        return std::nullopt;
    }
    if (cajas.primerAno <= 0) {
        dialogo.Informar(MsgCompPrimerAno);
        return std::nullopt;
    }
    const QString area = cajas.area.trimmed();
    if (cajas.porAreas && area.isEmpty()) {
        dialogo.Informar(MsgCompArea);
        return std::nullopt;
    }
    SeleccionComparacion sel;
    sel.anos = AnosSeguidos(cajas.primerAno, cajas.numero);
    sel.porAreas = cajas.porAreas;
    sel.area = area;
    sel.sector = cajas.sector.trimmed();
    sel.areaPorPlan = VistaArea::De(s).porPlan();
    if (cajas.porAreas) {
        sel.nombre = area;
        return sel;
    }
    const QString nombre = cajas.subcuenta.trimmed();
    if (nombre.isEmpty()) {
        dialogo.Informar(MsgCompSubcuenta);
        return std::nullopt;
    }
    // Found by its name, preferring the chosen area when two share it.
    Conexion c = AbrirDatos(s);
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE TRIM(Cuenta) = ? "
                                  "ORDER BY (NCuenta LIKE ?) DESC, NCuenta LIMIT 1"),
                   {nombre, area.isEmpty() ? QStringLiteral("%") : VistaArea::De(s).patron(area)});
    if (!q.next()) {
        dialogo.Informar(MsgCompErrorCuenta);
        return std::nullopt;
    }
    sel.ncuenta = q.value(0).toString();
    sel.nombre = q.value(1).toString().trimmed();
    return sel;
}

QList<int> AnosSeguidos(int primero, int numero) {
    QList<int> r;
    for (int i = 0; i < numero; ++i)
        r << primero + i;
    return r;
}

Rejilla RejillaComparacion() {
    QList<Columna> columnas{{QStringLiteral("Año")}};
    for (const QString& m : NombresMeses())
        columnas << Columna{m, TipoColumna::Importe};
    columnas << Columna{QStringLiteral("TOTAL"), TipoColumna::Importe};
    return Rejilla(columnas);
}

QString PatronComparacion(const SeleccionComparacion& sel) {
    if (!sel.porAreas)
        return sel.ncuenta;
    return VistaArea(sel.areaPorPlan).patron(sel.area);
}

AnoComparado SumarAnoComparado(const Sesion& s, const SeleccionComparacion& sel, int ano) {
    AnoComparado a;
    a.ano = ano;
    if (!ExisteEjercicio(s, ano))
        return a;
    a.existe = true;
    Conexion c = AbrirBaseEmpresa(s, s.rutaEjercicio(ano), TipoBase::Ejercicio);
    QString sql = QStringLiteral("SELECT NCuenta, Fecha, Debe, Haber FROM ConDiario "
                                 "WHERE Clase <> 'R' AND Clase <> 'F' AND NCuenta LIKE ?");
    QVariantList valores{PatronComparacion(sel)};
    if (!sel.sector.isEmpty()) {
        sql += QStringLiteral(" AND Sector = ?");
        valores << sel.sector;
    }
    Lector l(c, sql, valores);
    while (l.siguiente()) {
        const int mes = DeISO(l.texto(1)).month();
        if (mes < 1)
            continue;
        a.meses[mes - 1] += SaldoPorNaturaleza(l.texto(0), l.real(2), l.real(3));
    }
    for (double& m : a.meses) {
        m = Centimos(m);
        a.total += m;
    }
    a.total = Centimos(a.total);
    return a;
}

QList<AnoComparado> LlenarComparacion(const Sesion& s, const SeleccionComparacion& sel,
                                      Rejilla& rejilla) {
    rejilla.Vaciar();
    QList<AnoComparado> anos;
    for (int ano : sel.anos) {
        const AnoComparado a = SumarAnoComparado(s, sel, ano);
        QStringList celdas{QStringLiteral("Año %1").arg(ano)};
        if (a.existe) {
            for (double m : a.meses)
                celdas << Formato(m, QStringLiteral("standard"));
            celdas << Formato(a.total, QStringLiteral("standard"));
        } else {
            celdas[0] += u' ' + TextoSinEjercicio;
        }
        rejilla.AgregarFila(celdas);
        anos << a;
    }
    return anos;
}

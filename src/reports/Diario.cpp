#include "reports/Diario.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/TextoLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSqlQuery>

SeleccionDiario SeleccionDiarioInicial(const Sesion& s, double maxAsiento) {
    SeleccionDiario sel;
    sel.desdeAsiento = maxAsiento > 0 ? 1 : 0;
    sel.hastaAsiento = maxAsiento;
    sel.desde = s.FechaIniEj;
    sel.hasta = s.FechaFinEj;
    return sel;
}

namespace {

// IsNumeric as the entry boxes always took it: a sign, figures and one decimal mark, point or
// comma.
std::optional<double> NumeroAsiento(const QString& texto) {
    const QString t = NormalizarNumero(texto.trimmed());
    if (t.isEmpty())
        return std::nullopt;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return v;
}

} // namespace

std::optional<SeleccionDiario> ValidarSeleccionDiario(const CajasSeleccionDiario& cajas,
                                                      const Sesion& s, Dialogo& dialogo,
                                                      int* caja) {
    SeleccionDiario sel;
    sel.porFechas = cajas.porFechas;
    if (!cajas.porFechas) {
        const auto desde = NumeroAsiento(cajas.desdeAsiento);
        const auto hasta = NumeroAsiento(cajas.hastaAsiento);
        if (!desde || !hasta) {
            if (caja)
                *caja = desde ? 1 : 0;
            dialogo.Informar(MsgAsientoNoValido);
            return std::nullopt;
        }
        sel.desdeAsiento = *desde;
        sel.hastaAsiento = *hasta;
        sel.desde = s.FechaIniEj;
        sel.hasta = s.FechaFinEj;
        return sel;
    }
    if (cajas.desde > cajas.hasta) {
        if (caja)
            *caja = 0;
        dialogo.Informar(MsgFechasInvertidas);
        return std::nullopt;
    }
    sel.desde = cajas.desde;
    sel.hasta = cajas.hasta;
    sel.desdeAsiento = 0;
    sel.hastaAsiento = 0;
    return sel;
}

Rejilla RejillaDiario() {
    return Rejilla({{QStringLiteral("Asiento"), TipoColumna::Entero},
                    {QStringLiteral("Ap."), TipoColumna::Entero},
                    {QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("Subcuenta")},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Debe"), TipoColumna::Importe},
                    {QStringLiteral("Haber"), TipoColumna::Importe},
                    {QStringLiteral("NCuenta"), TipoColumna::Texto, true},
                    {QStringLiteral("Sector")},
                    {QStringLiteral("Documento")},
                    {QStringLiteral("Base IVA"), TipoColumna::Importe},
                    {QStringLiteral("Cuota IVA"), TipoColumna::Importe},
                    {QStringLiteral("Cliente/Proveedor")},
                    {QStringLiteral("Factura")}});
}

void LlenarDiario(Conexion& c, const SeleccionDiario& sel, Rejilla& rejilla,
                  const Progreso& progreso) {
    rejilla.Vaciar();
    rejilla.QuitarTotales();
    const QString columnas = QStringLiteral(
        "SELECT NAs, NAp, Fecha, Cuenta, Concepto, Debe, Haber, NCuenta, Sector, Documento, "
        "Base, Cuota, Imputado, NFactura FROM ConDiarioIVA ");
    QSqlQuery q =
        sel.porFechas
            ? c.ejecutar(columnas + QStringLiteral("WHERE Fecha BETWEEN ? AND ? ORDER BY NAs, NAp"),
                         {FechaISO(sel.desde), FechaISO(sel.hasta)})
            : c.ejecutar(columnas + QStringLiteral("WHERE NAs >= ? AND NAs <= ? ORDER BY NAs, NAp"),
                         {sel.desdeAsiento, sel.hastaAsiento});
    // For the progress only: the lines of the selection, counted on the journal's indexes.
    qint64 total = 0;
    if (progreso)
        total = (sel.porFechas
                     ? c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario WHERE Fecha BETWEEN ? "
                                                "AND ?"),
                                 {FechaISO(sel.desde), FechaISO(sel.hasta)})
                     : c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario WHERE NAs >= ? AND "
                                                "NAs <= ?"),
                                 {sel.desdeAsiento, sel.hastaAsiento}))
                    .toLongLong();
    double debe = 0;
    qint64 n = 0;
    // The row is built in one reused buffer and handed to the grid as an exact copy: one
    // allocation per row, no slack kept.
    QString fila;
    fila.reserve(512);
    while (q.next()) {
        fila.clear();
        const double d = q.value(5).toDouble();
        AnadirEnteroMiles(fila, q.value(0).toLongLong());
        fila += u'\t';
        fila += q.value(1).toString();
        fila += u'\t';
        AnadirFechaCorta(fila, q.value(2).toString());
        fila += u'\t';
        AnadirTexto(fila, q.value(3).toString());
        fila += u'\t';
        AnadirTexto(fila, q.value(4).toString().trimmed());
        fila += u'\t';
        AnadirImporte(fila, d);
        fila += u'\t';
        AnadirImporte(fila, q.value(6).toDouble());
        fila += u'\t';
        fila += q.value(7).toString();
        fila += u'\t';
        AnadirTexto(fila, q.value(8).toString());
        fila += u'\t';
        AnadirTexto(fila, q.value(9).toString());
        fila += u'\t';
        const QVariant base = q.value(10);
        if (!base.isNull())
            fila += Formato(base.toDouble(), QStringLiteral("#,###.##"));
        fila += u'\t';
        const QVariant cuota = q.value(11);
        if (!cuota.isNull())
            fila += Formato(cuota.toDouble(), QStringLiteral("#,###.##"));
        fila += u'\t';
        AnadirTexto(fila, q.value(12).toString());
        fila += u'\t';
        AnadirTexto(fila, q.value(13).toString());
        rejilla.AgregarFila(QString(fila.constData(), fila.size()));
        debe += d;
        if (progreso && ++n % 5000 == 0)
            progreso(n, total);
    }
    // Both captions sum Debe.
    rejilla.PonerTotal(TotalDiarioDebe, Formato(debe, QStringLiteral("standard")));
    rejilla.PonerTotal(TotalDiarioHaber, Formato(debe, QStringLiteral("standard")));
}

bool EliminarAsientoDiario(Sesion& s, Dialogo& dialogo, long nas) {
    if (s.EjCerrado) {
        dialogo.Informar(MsgEjercicioCerrado);
        return false;
    }
    if (!dialogo.Preguntar(
            QStringLiteral("Está seguro de que desea eliminar el Asiento número %1?").arg(nas)))
        return false;
    Conexion c = AbrirDatos(s);
    if (!ElimAsiento(c, s, nas)) {
        dialogo.Informar(QStringLiteral("No se pudo eliminar el Asiento."));
        return false;
    }
    return true;
}

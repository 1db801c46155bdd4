#include "reports/Movimientos.h"

#include "chart/VistaArea.h"
#include "platform/Almacen.h"
#include "platform/Rejilla.h"
#include "reports/TextoLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QSqlQuery>

#include <algorithm>
#include <vector>

std::optional<SeleccionMovimientos> ValidarSeleccionMovimientos(const CajasMovimientos& cajas,
                                                                const Sesion& s, Dialogo& dialogo) {
    if (cajas.desde > cajas.hasta) {
        dialogo.Informar(MsgMovFechas);
        return std::nullopt;
    }
    if (cajas.area.trimmed().isEmpty()) {
        dialogo.Informar(MsgMovArea);
        return std::nullopt;
    }
    const QString nombre = cajas.subcuenta.trimmed();
    if (nombre.isEmpty()) {
        dialogo.Informar(MsgMovSubcuenta);
        return std::nullopt;
    }
    // Found by its name, as the box holds names; two subaccounts of one name in different areas
    // resolve to the one of the chosen area.
    Conexion c = AbrirDatos(s);
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE TRIM(Cuenta) = ? "
                                  "ORDER BY (NCuenta LIKE ?) DESC, NCuenta LIMIT 1"),
                   {nombre, VistaArea::De(s).patron(cajas.area)});
    if (!q.next()) {
        dialogo.Informar(MsgMovErrorCuenta);
        return std::nullopt;
    }
    SeleccionMovimientos sel;
    sel.desde = cajas.desde;
    sel.hasta = cajas.hasta;
    sel.ncuenta = q.value(0).toString();
    sel.nombre = q.value(1).toString().trimmed();
    sel.sector = cajas.sector.trimmed();
    return sel;
}

bool NaturalezaDeudora(const QString& ncuenta) {
    const QChar d = ncuenta.isEmpty() ? QChar() : ncuenta.at(0);
    return d == u'1' || d == u'4' || d == u'5' || d == u'6';
}

double SaldoPorNaturaleza(const QString& ncuenta, double debe, double haber) {
    return NaturalezaDeudora(ncuenta) ? debe - haber : haber - debe;
}

Rejilla RejillaMovimientos() {
    return Rejilla({{QStringLiteral("Nº As."), TipoColumna::Entero},
                    {QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Debe"), TipoColumna::Importe},
                    {QStringLiteral("Haber"), TipoColumna::Importe},
                    {QStringLiteral("Saldo"), TipoColumna::Importe}});
}

TotalesMovimientos LlenarMovimientos(Conexion& c, const Sesion& s, const SeleccionMovimientos& sel,
                                     Rejilla& rejilla) {
    rejilla.Vaciar();
    rejilla.QuitarTotales();
    TotalesMovimientos t;
    const bool deudora = NaturalezaDeudora(sel.ncuenta);
    const bool conInicial = sel.desde != s.FechaIniEj;

    QString fila;
    fila.reserve(256);
    double saldo = 0, saldoInicial = 0;
    if (conInicial) {
        // The previous sums never take the sector: the initial row is the subaccount's own.
        QSqlQuery p = c.ejecutar(
            QStringLiteral("SELECT TOTAL(Debe), TOTAL(Haber) FROM Diario WHERE NCuenta = ? AND "
                           "Fecha BETWEEN ? AND ?"),
            {sel.ncuenta, FechaISO(s.FechaIniEj), FechaISO(sel.desde.addDays(-1))});
        if (p.next()) {
            t.anteriorDebe = p.value(0).toDouble();
            t.anteriorHaber = p.value(1).toDouble();
        }
        saldo = saldoInicial =
            deudora ? t.anteriorDebe - t.anteriorHaber : t.anteriorHaber - t.anteriorDebe;
        fila = QLatin1Char('\t') + FormatoFecha(sel.desde, QStringLiteral("short date")) +
               QLatin1Char('\t') + TextoSaldoInicial + QLatin1Char('\t');
        AnadirImporte(fila, t.anteriorDebe);
        fila += u'\t';
        AnadirImporte(fila, t.anteriorHaber);
        fila += u'\t';
        AnadirImporte(fila, saldo);
        rejilla.AgregarFila(fila);
    }

    // Read in the order of the subaccount's index and sorted here: on a busy subaccount the
    // database's own sort costs more than the read itself, and the lines come nearly in order.
    QString sql = QStringLiteral("SELECT NAs, NAp, Fecha, Concepto, Debe, Haber FROM Diario WHERE "
                                 "NCuenta = ? AND Fecha BETWEEN ? AND ?");
    QVariantList valores{sel.ncuenta, FechaISO(sel.desde), FechaISO(sel.hasta)};
    if (!sel.sector.isEmpty()) {
        sql += QStringLiteral(" AND Sector = ?");
        valores << sel.sector;
    }
    // Each line's text is built as it is read, up to its balance, which waits for the order.
    struct Linea {
        qint64 nas, nap;
        double debe, haber;
        QString texto;
    };
    std::vector<Linea> lineas;
    Lector q(c, sql, valores);
    while (q.siguiente()) {
        Linea l{q.entero(0), q.entero(1), q.real(4), q.real(5), {}};
        const QStringView concepto = q.vista(3).trimmed();
        l.texto.reserve(concepto.size() + 80);
        AnadirEnteroMiles(l.texto, l.nas);
        l.texto += u'\t';
        AnadirFechaCorta(l.texto, q.vista(2));
        l.texto += u'\t';
        AnadirTexto(l.texto, concepto);
        l.texto += u'\t';
        AnadirImporte(l.texto, l.debe);
        l.texto += u'\t';
        AnadirImporte(l.texto, l.haber);
        l.texto += u'\t';
        lineas.push_back(std::move(l));
    }
    std::stable_sort(lineas.begin(), lineas.end(), [](const Linea& a, const Linea& b) {
        return a.nas != b.nas ? a.nas < b.nas : a.nap < b.nap;
    });

    rejilla.Reservar(rejilla.Filas() + static_cast<int>(lineas.size()));
    double debe = 0, haber = 0;
    for (Linea& l : lineas) {
        debe += l.debe;
        haber += l.haber;
        saldo += deudora ? l.debe - l.haber : l.haber - l.debe;
        AnadirImporte(l.texto, saldo);
        rejilla.AgregarFila(l.texto);
    }

    t.periodo = {debe, haber, saldo};
    t.conAcumulado = conInicial && rejilla.Filas() >= 2;
    if (t.conAcumulado) {
        t.periodo.saldo = saldo - saldoInicial;
        t.acumulado = {t.anteriorDebe + debe, t.anteriorHaber + haber, saldo};
    }
    return t;
}

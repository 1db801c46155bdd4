#include "posting/ListaVencimientos.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "posting/LucesVencimiento.h"
#include "posting/Vencimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

namespace {

const QString Todo = QStringLiteral("%");

QString fechaCorta(const QDate& d) {
    return FormatoFecha(d, QStringLiteral("short date"));
}

} // namespace

Rejilla RejillaVencimientos() {
    return Rejilla({{QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("Tipo")},
                    {QStringLiteral("Forma")},
                    {QStringLiteral("Subcuenta")},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Caja/Banco")},
                    {QStringLiteral("Importe"), TipoColumna::Importe},
                    {QStringLiteral("Situación")},
                    {QStringLiteral("Documento")},
                    {QStringLiteral("Remesa")},
                    {QStringLiteral("Sector")},
                    {QStringLiteral("Emisión"), TipoColumna::Fecha},
                    {QStringLiteral("IdVenc"), TipoColumna::Texto, true},
                    {QStringLiteral("NCuenta1"), TipoColumna::Texto, true},
                    {QStringLiteral("NCuenta2"), TipoColumna::Texto, true}});
}

QString TextoTipoFiltro(TipoFiltro t) {
    switch (t) {
    case TipoFiltro::Cobros:
        return TipoCobro;
    case TipoFiltro::Pagos:
        return TipoPago;
    case TipoFiltro::Todos:
        break;
    }
    return QStringLiteral("Todos");
}

TipoFiltro TipoFiltroDeTexto(const QString& t) {
    if (t == TipoCobro)
        return TipoFiltro::Cobros;
    if (t == TipoPago)
        return TipoFiltro::Pagos;
    return TipoFiltro::Todos;
}

bool ComprobarFiltros(const FiltrosVenc& f, Dialogo& d) {
    if (f.PorSituacion && f.Situacion.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("No ha seleccionado la Situación del Vencimiento."));
        return false;
    }
    if (f.PorFecha) {
        if (f.Desde.trimmed().isEmpty() || f.Hasta.trimmed().isEmpty()) {
            d.Informar(MsgVencSinFecha);
            return false;
        }
        const QString desde = ValidarFecha(f.Desde, d);
        if (desde.isEmpty())
            return false;
        const QString hasta = ValidarFecha(f.Hasta, d);
        if (hasta.isEmpty())
            return false;
        if (FechaDeTexto(desde) > FechaDeTexto(hasta)) {
            // The word as the message has always had it.
            d.Informar(QStringLiteral("La fecha inicial debe ser menor o ifual que la final"));
            return false;
        }
    }
    if (f.PorForma && f.Forma.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("No ha introducido la Forma de cobro o pago."));
        return false;
    }
    if (f.PorRemesa && f.Remesa.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("No ha introducido la Remesa."));
        return false;
    }
    if (f.PorSubcuenta && f.Subcuenta.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("No ha seleccionado la Subcuenta del Cliente o Proveedor."));
        return false;
    }
    return true;
}

ConsultaVenc ConsultaLlenarVenc(const FiltrosVenc& f, const QDate& hoy) {
    auto patron = [](bool marcado, const QString& valor) {
        return marcado ? valor.trimmed() : Todo;
    };
    ConsultaVenc c;
    c.sql = QStringLiteral("SELECT IdVenc, FechaV, FechaE, Tipo, Forma, NCuenta1, NCuenta2, "
                           "Concepto, Situacion, Importe, Documento, Remesa, Sector "
                           "FROM Vencimientos WHERE NCuenta1 LIKE ? AND (Forma IS NULL OR "
                           "Forma LIKE ?)");
    c.valores << patron(f.PorSubcuenta, f.Subcuenta) << patron(f.PorForma, f.Forma);
    if (f.PorFecha) {
        c.sql += QStringLiteral(" AND FechaV >= ? AND FechaV <= ?");
        c.valores << FechaISO(FechaDeTexto(f.Desde)) << FechaISO(FechaDeTexto(f.Hasta));
    }
    c.sql += QStringLiteral(" AND (Remesa IS NULL OR Remesa LIKE ?) AND Situacion LIKE ? AND "
                            "FechaV >= ?");
    c.valores << patron(f.PorRemesa, f.Remesa) << patron(f.PorSituacion, f.Situacion)
              << FechaISO(FechaMinimaVenc);
    if (f.Vencidos) {
        c.sql += QStringLiteral(" AND FechaV < ?");
        c.valores << FechaISO(hoy);
    }
    if (f.Tipo != TipoFiltro::Todos) {
        c.sql += QStringLiteral(" AND Tipo = ?");
        c.valores << TextoTipoFiltro(f.Tipo);
    }
    c.sql += QStringLiteral(" ORDER BY FechaV, IdVenc");
    return c;
}

QHash<QString, QString> NombresSubcuentas(const Sesion& s) {
    QHash<QString, QString> n;
    if (s.EmpresaActual.isEmpty() || s.AnoActual == 0)
        return n;
    Conexion c = AbrirDatos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas"));
    while (q.next())
        n.insert(q.value(0).toString().trimmed(), q.value(1).toString().trimmed());
    return n;
}

QStringList FilaVencimiento(const Vencimiento& v, const QHash<QString, QString>& nombres) {
    auto nombre = [&](const QString& ncuenta) {
        return nombres.value(ncuenta, ncuenta);
    };
    return {fechaCorta(v.FechaV),
            v.Tipo,
            v.Forma,
            nombre(v.NCuenta1),
            v.Concepto,
            nombre(v.NCuenta2),
            Formato(v.Importe, QStringLiteral("standard")),
            v.Situacion,
            v.Documento,
            v.Remesa,
            v.Sector,
            fechaCorta(v.FechaE),
            TextoIdVenc(v.IdVenc),
            v.NCuenta1,
            v.NCuenta2};
}

double AporteAlTotal(const Vencimiento& v, TipoFiltro tipo) {
    return tipo == TipoFiltro::Todos && v.Tipo == TipoPago ? -v.Importe : v.Importe;
}

double LlenarVenc(const Sesion& s, const FiltrosVenc& f, const QDate& hoy, Rejilla& r,
                  const Progreso& progreso) {
    const QHash<QString, QString> nombres = NombresSubcuentas(s);
    r.Vaciar();
    double total = 0;
    {
        Conexion b = AbrirBavar(s);
        const ConsultaVenc c = ConsultaLlenarVenc(f, hoy);
        QSqlQuery q = b.ejecutar(c.sql, c.valores);
        qint64 n = 0;
        while (q.next()) {
            Vencimiento v;
            v.IdVenc = q.value(0).toDouble();
            v.FechaV = DeISO(q.value(1).toString());
            v.FechaE = DeISO(q.value(2).toString());
            v.Tipo = q.value(3).toString();
            v.Forma = q.value(4).toString();
            v.NCuenta1 = q.value(5).toString().trimmed();
            v.NCuenta2 = q.value(6).toString().trimmed();
            v.Concepto = q.value(7).toString();
            v.Situacion = q.value(8).toString();
            v.Importe = q.value(9).toDouble();
            v.Documento = q.value(10).toString();
            v.Remesa = q.value(11).toString();
            v.Sector = q.value(12).toString();
            r.AgregarFila(FilaVencimiento(v, nombres));
            total += AporteAlTotal(v, f.Tipo);
            if (progreso && ++n % 200 == 0)
                progreso(n, 0);
        }
    }
    total = Centimos(total);
    r.PonerTotal(EtiquetaTotalVenc, Formato(total, QStringLiteral("standard")));
    return total;
}

double TotalDeLista(const Rejilla& r, TipoFiltro tipo) {
    double total = 0;
    for (int f = 0; f < r.Filas(); ++f) {
        const double v = ValorCelda(r.celda(f, ColV::Importe)).value_or(0.0);
        total += tipo == TipoFiltro::Todos && r.celda(f, ColV::Tipo) == TipoPago ? -v : v;
    }
    return Centimos(total);
}

UrgenciaVenc Urgencia(const QDate& fechaV, const QString& situacion, const QDate& hoy) {
    if (Liquidado(situacion))
        return UrgenciaVenc::Liquidado;
    // The same thresholds as the board's lights.
    switch (ClasificarVencimiento(fechaV, hoy)) {
    case LuzVencimiento::Hoy:
        return UrgenciaVenc::Hoy;
    case LuzVencimiento::Vencido:
    case LuzVencimiento::Ninguna:
        return UrgenciaVenc::Vencido;
    case LuzVencimiento::Proximo:
        return UrgenciaVenc::Proximo;
    case LuzVencimiento::Lejano:
        break;
    }
    return UrgenciaVenc::Lejano;
}

QColor ColorDeBGR(quint32 bgr) {
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}

QColor ColorUrgencia(UrgenciaVenc u) {
    switch (u) {
    case UrgenciaVenc::Liquidado:
        return ColorDeBGR(16363607);
    case UrgenciaVenc::Hoy:
        return ColorDeBGR(33023);
    case UrgenciaVenc::Vencido:
        return ColorDeBGR(255);
    case UrgenciaVenc::Proximo:
        return ColorDeBGR(65535);
    case UrgenciaVenc::Lejano:
        break;
    }
    return ColorDeBGR(65280);
}

QColor ColorFilaVenc(const Rejilla& r, int fila, const QDate& hoy) {
    return ColorUrgencia(
        Urgencia(FechaCelda(r.celda(fila, ColV::FechaV)), r.Celda(fila, ColV::Situacion), hoy));
}

std::optional<int> BuscarVenc(const Rejilla& r, int columna, const QString& texto, int desde,
                              Dialogo& d) {
    const QString buscado = texto.trimmed();
    if (buscado.isEmpty()) {
        d.Informar(QStringLiteral("Tiene que introducir el texto o número a buscar."));
        return std::nullopt;
    }
    if (columna < 0 || columna >= r.Columnas()) {
        d.Informar(QStringLiteral("Tiene que seleccionar la columna donde se va a buscar."));
        return std::nullopt;
    }
    for (int f = qMax(0, desde); f < r.Filas(); ++f)
        if (r.celda(f, columna).contains(buscado, Qt::CaseInsensitive))
            return f;
    d.Informar(QStringLiteral("Se llegó al final de la lista."));
    return std::nullopt;
}

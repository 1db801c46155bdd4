#include "posting/CajaDia.h"

#include "journal/EjercicioAbierto.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString MsgFaltaTrabajo = QStringLiteral("Tiene que introducir la Subcuenta de trabajo.");
const QString MsgFaltaOrigen =
    QStringLiteral("Tiene que introducir la Subcuenta de origen/destino.");
const QString MsgFaltaImporte = QStringLiteral("Tiene que introducir el Importe.");
const QString MsgSinAcceso = QStringLiteral("No se pudo acceder a la base de datos");
const QString CobroDelDia = QStringLiteral("Cobro del día");
const QString PagoDelDia = QStringLiteral("Pago del día");

QString PreguntaModificarCaja(long numero) {
    return QStringLiteral("Está seguro de que desea modificar el apunte Nº %1?").arg(numero);
}

QString PreguntaEliminarCaja(long numero) {
    return QStringLiteral("Está seguro de que desea eliminar el apunte Nº %1?").arg(numero);
}

QString PreguntaPasar(ModoPasar modo) {
    QString que;
    switch (modo) {
    case ModoPasar::Todas:
        que = QStringLiteral("todos los apuntes");
        break;
    case ModoPasar::Punteadas:
        que = QStringLiteral("los apuntes que se han punteado");
        break;
    case ModoPasar::EntreFechas:
        que = QStringLiteral("los apuntes comprendidos entre las fechas seleccionadas");
        break;
    }
    return QStringLiteral("Está seguro de que desea traspasar al Diario ") + que + QLatin1Char('?');
}

namespace {

const QString Cobro = QStringLiteral("Cobro");
const QString Pago = QStringLiteral("Pago");

// A store failure while adding or changing a row: the pad's own words, then the cause.
QString sinAcceso(const ErrorQuilmar& e) {
    return MsgSinAcceso + QStringLiteral(": ") + e.mensaje();
}

} // namespace

QList<MovimientoCaja> LeerCajaDia(Conexion& c) {
    QList<MovimientoCaja> r;
    // Outer joins: a row whose subaccount left the chart stays in sight (without its name) until
    // it is changed or deleted; sending it is refused.
    QSqlQuery q = c.ejecutar(QStringLiteral(
        "SELECT D.\"Nº\", D.Fecha, D.CP, D.NCuenta1, D.NCuenta2, C1.Cuenta, C2.Cuenta, "
        "D.Concepto, D.Importe, D.Documento, D.Sector FROM DelDia D "
        "LEFT JOIN Cuentas C1 ON C1.NCuenta = D.NCuenta1 "
        "LEFT JOIN Cuentas C2 ON C2.NCuenta = D.NCuenta2 ORDER BY D.Fecha, D.\"Nº\""));
    while (q.next()) {
        MovimientoCaja m;
        m.Numero = static_cast<long>(q.value(0).toLongLong());
        m.Fecha = DeISO(q.value(1).toString());
        m.Cobro = q.value(2).toString().trimmed().compare(Pago, Qt::CaseInsensitive) != 0;
        m.NCuenta1 = q.value(3).toString().trimmed();
        m.NCuenta2 = q.value(4).toString().trimmed();
        m.Cuenta1 = q.value(5).toString().trimmed();
        m.Cuenta2 = q.value(6).toString().trimmed();
        m.Concepto = q.value(7).toString();
        m.Importe = q.value(8).toDouble();
        m.Documento = q.value(9).toString();
        m.Sector = q.value(10).toString();
        r << m;
    }
    return r;
}

Rejilla RejillaCajaDia() {
    return Rejilla({{QStringLiteral("Nº"), TipoColumna::Entero},
                    {QStringLiteral("Punteo")},
                    {QStringLiteral("Fecha"), TipoColumna::Fecha},
                    {QStringLiteral("C/P")},
                    {QStringLiteral("Cuenta de trabajo")},
                    {QStringLiteral("Cta origen/destino")},
                    {QStringLiteral("Importe"), TipoColumna::Importe},
                    {QStringLiteral("Concepto")},
                    {QStringLiteral("Documento")},
                    {QStringLiteral("Sector")},
                    {QStringLiteral("NCuenta1"), TipoColumna::Texto, true},
                    {QStringLiteral("NCuenta2"), TipoColumna::Texto, true}});
}

void LlenarRejillaCajaDia(const QList<MovimientoCaja>& movimientos, Rejilla& r,
                          const QSet<long>& punteados) {
    r.Vaciar();
    double cobros = 0, pagos = 0;
    for (const MovimientoCaja& m : movimientos) {
        r.AgregarFila(QStringList{QString::number(m.Numero),
                                  punteados.contains(m.Numero) ? QStringLiteral("-1") : QString(),
                                  FormatoFecha(m.Fecha, QStringLiteral("short date")),
                                  m.Cobro ? Cobro : Pago, m.Cuenta1, m.Cuenta2,
                                  Formato(m.Importe, QStringLiteral("standard")), m.Concepto,
                                  m.Documento, m.Sector, m.NCuenta1, m.NCuenta2});
        (m.Cobro ? cobros : pagos) += m.Importe;
    }
    r.QuitarTotales();
    r.PonerTotal(QStringLiteral("Cobros"), Formato(Centimos(cobros), QStringLiteral("standard")));
    r.PonerTotal(QStringLiteral("Pagos"), Formato(Centimos(pagos), QStringLiteral("standard")));
    r.PonerTotal(QStringLiteral("Resultado"),
                 Formato(Centimos(cobros - pagos), QStringLiteral("standard")));
}

CajaDia::CajaDia(Sesion& s, Dialogo& d) : s_(s), d_(d) {}

std::optional<MovimientoCaja> CajaDia::comprobar(const CamposCaja& m) {
    MovimientoCaja r;
    r.NCuenta1 = m.ncuenta1.trimmed();
    r.NCuenta2 = m.ncuenta2.trimmed();
    r.Cobro = m.cobro;
    r.Fecha = m.fecha;
    QString mensaje;
    if (r.NCuenta1.isEmpty())
        mensaje = MsgFaltaTrabajo;
    else if (r.NCuenta2.isEmpty())
        mensaje = MsgFaltaOrigen;
    else if (m.importe.trimmed().isEmpty())
        mensaje = MsgFaltaImporte;
    if (!mensaje.isEmpty()) {
        d_.Informar(mensaje);
        return std::nullopt;
    }
    const std::optional<double> importe = LeerImporte(m.importe);
    if (!importe) {
        d_.Informar(MsgImporteNoValido(m.importe.trimmed()));
        return std::nullopt;
    }
    if (*importe == 0) {
        d_.Informar(MsgFaltaImporte);
        return std::nullopt;
    }
    // A negative taking would be a payment: the kind says the side, the amount only how much.
    if (*importe < 0) {
        d_.Informar(QStringLiteral("El importe tiene que ser mayor que cero: elija Cobro o Pago."));
        return std::nullopt;
    }
    r.Importe = *importe;
    if (!r.Fecha.isValid()) {
        d_.Informar(QStringLiteral("La fecha introducida no es una fecha válida."));
        return std::nullopt;
    }
    if (r.Fecha < s_.FechaIniEj || r.Fecha > s_.FechaFinEj) {
        d_.Informar(QStringLiteral("La fecha introducida no pertenece al año de trabajo."));
        return std::nullopt;
    }
    if (r.NCuenta1 == r.NCuenta2) {
        d_.Informar(QStringLiteral(
            "La Subcuenta de trabajo y la de origen/destino tienen que ser distintas."));
        return std::nullopt;
    }
    try {
        r.Concepto = TextoCampo(Campo::Concepto, m.concepto);
        r.Documento = TextoCampo(Campo::Documento, m.documento);
        r.Sector = TextoCampo(Campo::Sector, m.sector);
        if (r.Concepto.isEmpty())
            r.Concepto = r.Cobro ? CobroDelDia : PagoDelDia;
        Conexion c = AbrirDatos(s_);
        for (const QString& n : {r.NCuenta1, r.NCuenta2}) {
            const QVariant nombre =
                c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {n});
            if (!nombre.isValid())
                throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(n));
            (n == r.NCuenta1 ? r.Cuenta1 : r.Cuenta2) = nombre.toString().trimmed();
        }
        if (!r.Sector.isEmpty() &&
            !c.existe(QStringLiteral("SELECT 1 FROM Sectores WHERE Sector = ?"), {r.Sector}))
            throw Rechazo(QStringLiteral("No existe el sector %1.").arg(r.Sector));
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        return std::nullopt;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(sinAcceso(e));
        return std::nullopt;
    }
    return r;
}

std::optional<long> CajaDia::Anadir(const CamposCaja& campos) {
    const std::optional<MovimientoCaja> m = comprobar(campos);
    if (!m)
        return std::nullopt;
    try {
        Conexion c = AbrirDatos(s_);
        Transaccion t(c);
        // Drawn under the write lock: two users adding at once never share a number.
        const QVariant max = c.escalar(QStringLiteral("SELECT MAX(\"Nº\") AS NN FROM DelDia"));
        const long numero = (max.isNull() ? 0 : static_cast<long>(max.toLongLong())) + 1;
        c.ejecutar(QStringLiteral("INSERT INTO DelDia (\"Nº\", Fecha, CP, NCuenta1, NCuenta2, "
                                  "Concepto, Importe, Sector, Documento) VALUES "
                                  "(?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                   {static_cast<qlonglong>(numero), FechaISO(m->Fecha), m->Cobro ? Cobro : Pago,
                    m->NCuenta1, m->NCuenta2, m->Concepto, Centimos(m->Importe), m->Sector,
                    m->Documento});
        t.confirmar();
        return numero;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(sinAcceso(e));
        return std::nullopt;
    }
}

bool CajaDia::Modificar(long numero, const CamposCaja& campos) {
    const std::optional<MovimientoCaja> m = comprobar(campos);
    if (!m)
        return false;
    if (!d_.Preguntar(PreguntaModificarCaja(numero)))
        return false;
    int filas = 0;
    try {
        Conexion c = AbrirDatos(s_);
        filas = c.ejecutar(QStringLiteral("UPDATE DelDia SET Fecha = ?, CP = ?, NCuenta1 = ?, "
                                          "NCuenta2 = ?, Concepto = ?, Importe = ?, Sector = ?, "
                                          "Documento = ? WHERE \"Nº\" = ?"),
                           {FechaISO(m->Fecha), m->Cobro ? Cobro : Pago, m->NCuenta1, m->NCuenta2,
                            m->Concepto, Centimos(m->Importe), m->Sector, m->Documento,
                            static_cast<qlonglong>(numero)})
                    .numRowsAffected();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(sinAcceso(e));
        return false;
    }
    if (filas == 0) {
        // Sent to the journal or deleted by another user meanwhile.
        d_.Informar(QStringLiteral("El apunte Nº %1 ya no está en la Caja del día.").arg(numero));
        return false;
    }
    return true;
}

bool CajaDia::Eliminar(long numero) {
    if (!d_.Preguntar(PreguntaEliminarCaja(numero)))
        return false;
    try {
        Conexion c = AbrirDatos(s_);
        c.ejecutar(QStringLiteral("DELETE FROM DelDia WHERE \"Nº\" = ?"),
                   {static_cast<qlonglong>(numero)});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(sinAcceso(e));
        return false;
    }
    return true;
}

ResultadoPasar CajaDia::PasarAlDiario(const CriterioPasar& criterio, const Progreso& progreso,
                                      const std::function<void(long)>& antesDeConfirmar) {
    ResultadoPasar r;
    if (criterio.modo == ModoPasar::EntreFechas &&
        (!criterio.desde.isValid() || !criterio.hasta.isValid() ||
         criterio.desde > criterio.hasta)) {
        d_.Informar(QStringLiteral("La fecha inicial debe ser menor o igual que la final."));
        return r;
    }
    QList<MovimientoCaja> tomados;
    try {
        Conexion c = AbrirDatos(s_);
        if (!EjercicioAbierto(c, s_, d_))
            return r;
        for (const MovimientoCaja& m : LeerCajaDia(c)) {
            const bool toma =
                criterio.modo == ModoPasar::Todas ||
                (criterio.modo == ModoPasar::Punteadas && criterio.punteadas.contains(m.Numero)) ||
                (criterio.modo == ModoPasar::EntreFechas && m.Fecha >= criterio.desde &&
                 m.Fecha <= criterio.hasta);
            if (toma)
                tomados << m;
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return r;
    }
    if (!d_.Preguntar(PreguntaPasar(criterio.modo)))
        return r;
    r.empezado = true;
    r.pendientes = int(tomados.size());
    for (const MovimientoCaja& m : tomados) {
        // The cash or bank subaccount first: a taking is its debit, a payment its credit.
        Apunte a1, a2;
        a1.NCuenta = m.NCuenta1;
        a2.NCuenta = m.NCuenta2;
        for (Apunte* a : {&a1, &a2}) {
            a->Concepto = m.Concepto;
            a->Documento = m.Documento;
            a->Sector = m.Sector;
        }
        (m.Cobro ? a1.Debe : a1.Haber) = m.Importe;
        (m.Cobro ? a2.Haber : a2.Debe) = m.Importe;
        OpcionesEscritura o;
        o.debePrimero = false;
        try {
            Conexion c = AbrirDatos(s_);
            Transaccion t(c);
            // Sent by another user meanwhile: nothing to post.
            const int borradas = c.ejecutar(QStringLiteral("DELETE FROM DelDia WHERE \"Nº\" = ?"),
                                            {static_cast<qlonglong>(m.Numero)})
                                     .numRowsAffected();
            if (borradas > 0) {
                for (const QString& n : {m.NCuenta1, m.NCuenta2})
                    if (!c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"), {n}))
                        throw Rechazo(QStringLiteral("No existe la subcuenta %1.").arg(n));
                r.asientos << EscribirAsiento(c, s_, m.Fecha, {a1, a2}, o);
                if (antesDeConfirmar)
                    antesDeConfirmar(m.Numero);
            }
            t.confirmar();
            if (borradas > 0)
                ++r.pasados;
        } catch (const ErrorQuilmar& e) {
            r.error = e.mensaje();
            break;
        }
        --r.pendientes;
        if (progreso)
            progreso(r.pasados, tomados.size());
    }
    if (!r.error.isEmpty())
        d_.Informar(r.error);
    return r;
}

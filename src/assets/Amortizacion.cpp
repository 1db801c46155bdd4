#include "assets/Amortizacion.h"

#include "assets/Centros.h"
#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <algorithm>
#include <limits>

const QString MsgFechaAmortizacionElemento = QStringLiteral(
    "Si desea contabilizar la amortización de este elemento del Inventario introduzca la fecha "
    "hasta la que desea realizar la amortización.");
const QString MsgFechaFueraDelEjercicio =
    QStringLiteral("La fecha de amortización debe estar dentro del ejercicio contable.");

namespace {

// What a batch run selects: depreciable, in service after D, not yet depreciated up to D, with
// its plan still open at D, and not fully depreciated. A retirement on D itself leaves the
// element out; a plan ending on D keeps it in.
const QString Seleccion = QStringLiteral(
    "Amortizable = -1 AND (FechaBaja IS NULL OR FechaBaja > ?) AND (UltimaAmort IS NULL OR "
    "UltimaAmort < ?) AND (FinAmort IS NULL OR FinAmort >= ?) AND Amortizado < Importe");

QVariantList valoresSeleccion(const QDate& d) {
    const QString f = FechaISO(d);
    return {f, f, f};
}

QString fechaCorta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

// The exercise connection with the company database attached: one transaction covers both.
struct ConexionAmortizacion {
    explicit ConexionAmortizacion(const Sesion& s) : c(AbrirDatos(s)) { AdjuntarBavar(c, s); }
    Conexion c;
};

void ponerAlDia(Conexion& c, const Elemento& e, const QDate& fecha, double cuota) {
    c.ejecutar(QStringLiteral("UPDATE Bavar.Inventario SET UltimaAmort = ?, Amortizado = ? WHERE "
                              "NElemento = ?"),
               {FechaISO(fecha), Centimos(e.Amortizado + cuota), e.NElemento});
}

Apunte linea(const QString& ncuenta, double debe, double haber, const QString& concepto) {
    Apunte a;
    a.NCuenta = ncuenta;
    a.Debe = debe;
    a.Haber = haber;
    a.Concepto = concepto;
    return a;
}

// Inside a run every entry joins the run's transaction: a failure rolls all of them back.
OpcionesEscritura opcionesCarrera() {
    OpcionesEscritura o;
    o.transaccionPropia = false;
    return o;
}

} // namespace

CuotaAmortizacion CalcularCuota(const Elemento& e, const QDate& fecha, const QDate& inicioEjercicio,
                                RedondeoCuota redondeo) {
    CuotaAmortizacion r;
    r.inicio = inicioEjercicio;
    if (e.FechaAdq.isValid() && e.FechaAdq > r.inicio)
        r.inicio = e.FechaAdq;
    if (e.UltimaAmort.isValid() && e.UltimaAmort > r.inicio)
        r.inicio = e.UltimaAmort;
    // The day count is a 16-bit number; the dates of one exercise never come near its limits.
    const qint64 dias = r.inicio.daysTo(fecha);
    r.dias = static_cast<qint16>(std::clamp<qint64>(dias, std::numeric_limits<qint16>::min(),
                                                    std::numeric_limits<qint16>::max()));
    double cuota = e.Importe * e.Porcentaje.value_or(0.0) * r.dias / 36500;
    if (redondeo == RedondeoCuota::Lote)
        cuota = Centimos(cuota);
    if (e.Amortizado + cuota > e.Importe)
        cuota = redondeo == RedondeoCuota::Lote ? Centimos(e.Importe - e.Amortizado)
                                                : e.Importe - e.Amortizado;
    r.importe = cuota;
    return r;
}

ResultadoAmortizacion RealizarAmortizaciones(Sesion& s, Dialogo& d, const PeticionAmortizacion& p) {
    ResultadoAmortizacion r;
    if (!EjercicioAbierto(s, d))
        return r;
    if (p.fecha.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("Tiene que introducir la fecha a la cual se van a realizar los "
                                  "asientos de amortización."));
        return r;
    }
    const QString valida = ValidarFecha(p.fecha, d);
    if (valida.isEmpty())
        return r;
    const QDate fecha = FechaDeTexto(valida);
    if (fecha < s.FechaIniEj || fecha > s.FechaFinEj) {
        d.Informar(MsgFechaFueraDelEjercicio);
        return r;
    }
    Centro centro;
    if (!p.localizacion.trimmed().isEmpty()) {
        centro = CentroDeNombre(s, p.localizacion);
        if (centro.NCentro == 0) {
            d.Informar(QStringLiteral("No se encontró el Centro."));
            return r;
        }
    }

    ConexionAmortizacion conexion(s);
    Conexion& c = conexion.c;
    if (c.escalar(QStringLiteral("SELECT COUNT(NElemento) AS NN FROM Bavar.Inventario"))
            .toLongLong() == 0) {
        d.Informar(QStringLiteral("No hay ningún elemento de Inventario dado de alta."));
        return r;
    }
    const QString donde =
        centro.NCentro == 0 ? QString() : QStringLiteral(" localizados en ") + centro.Localizacion;
    const QString pregunta =
        QStringLiteral("Desea realizar amortización a fecha %1 de todos los elementos del "
                       "Inventario%2, %3?")
            .arg(fechaCorta(fecha), donde,
                 p.agrupar ? QStringLiteral("agrupando por asientos con igual Subcuenta de "
                                            "amortización acumulada")
                           : QStringLiteral("realizando un asiento por cada elemento"));
    if (!d.Preguntar(pregunta))
        return r;

    QStringList amortizacion, dotacion;
    if (p.agrupar) {
        QSqlQuery q = c.ejecutar(QStringLiteral(
            "SELECT NCuenta FROM Cuentas WHERE NCuenta LIKE '028%' ORDER BY NCuenta"));
        while (q.next())
            amortizacion << q.value(0).toString().trimmed();
        if (amortizacion.isEmpty()) {
            d.Informar(QStringLiteral("No hay cuentas de amortización acumulada."));
            return r;
        }
        q = c.ejecutar(QStringLiteral(
            "SELECT NCuenta FROM Cuentas WHERE NCuenta LIKE '668%' ORDER BY NCuenta"));
        while (q.next())
            dotacion << q.value(0).toString().trimmed();
        if (dotacion.isEmpty()) {
            d.Informar(QStringLiteral("No hay cuentas de dotación de amortización."));
            return r;
        }
    }

    QString condicion = Seleccion;
    QVariantList valores = valoresSeleccion(fecha);
    if (centro.NCentro != 0) {
        condicion += QStringLiteral(" AND NCentro = ?");
        valores << centro.NCentro;
    }

    const float ultimoAntes = s.UltimoAsiento;
    try {
        Transaccion t(c);
        const QList<Elemento> elementos =
            ElementosDonde(c, QStringLiteral("Bavar."), condicion, valores);
        if (elementos.isEmpty()) {
            d.Informar(QStringLiteral("No hay elementos de Inventario que amortizar."));
            return r;
        }
        if (!p.agrupar) {
            for (const Elemento& e : elementos) {
                const double cuota =
                    CalcularCuota(e, fecha, s.FechaIniEj, RedondeoCuota::Lote).importe;
                if (cuota <= 0)
                    continue;
                const QString concepto =
                    QStringLiteral("Amortización de elemento %1").arg(e.NElemento);
                AsientoAmortizacion a;
                a.Fecha = fecha;
                a.Apuntes = {linea(e.SubctaDota, cuota, 0, concepto),
                             linea(e.SubctaAmort, 0, cuota, concepto)};
                a.NAs = EscribirAsiento(c, s, fecha, a.Apuntes, opcionesCarrera());
                ponerAlDia(c, e, fecha, cuota);
                r.asientos << a;
                r.elementos << e.NElemento;
            }
        } else {
            // One entry per accumulated-depreciation subaccount A: a debit line for each charge
            // subaccount E with the shares of the elements that use the pair (A, E), and one
            // credit line of A with their total. An element whose pair is not in the chart's
            // lists is never reached.
            const QString concepto = QStringLiteral("Amortización inmovilizado");
            for (const QString& cuentaA : amortizacion) {
                AsientoAmortizacion a;
                a.Fecha = fecha;
                double total = 0;
                for (const QString& cuentaE : dotacion) {
                    double suma = 0;
                    for (const Elemento& e : elementos) {
                        if (e.SubctaAmort.compare(cuentaA, Qt::CaseInsensitive) != 0 ||
                            e.SubctaDota.compare(cuentaE, Qt::CaseInsensitive) != 0)
                            continue;
                        const double cuota =
                            CalcularCuota(e, fecha, s.FechaIniEj, RedondeoCuota::Lote).importe;
                        if (cuota <= 0)
                            continue;
                        ponerAlDia(c, e, fecha, cuota);
                        r.elementos << e.NElemento;
                        suma = Centimos(suma + cuota);
                    }
                    if (suma > 0) {
                        a.Apuntes << linea(cuentaE, suma, 0, concepto);
                        total = Centimos(total + suma);
                    }
                }
                if (total > 0) {
                    a.Apuntes << linea(cuentaA, 0, total, concepto);
                    a.NAs = EscribirAsiento(c, s, fecha, a.Apuntes, opcionesCarrera());
                    r.asientos << a;
                }
            }
        }
        t.confirmar();
    } catch (const ErrorAsiento& e) {
        s.UltimoAsiento = ultimoAntes;
        d.Informar(e.mensaje());
        return r;
    } catch (...) {
        s.UltimoAsiento = ultimoAntes;
        throw;
    }
    r.hecho = true;
    d.Informar(QStringLiteral("Proceso terminado."));
    return r;
}

ResultadoAmortizacion AmortizarElemento(Sesion& s, Dialogo& d, qint64 n,
                                        const std::function<QString()>& pedirFecha) {
    ResultadoAmortizacion r;
    // Told before the date is asked for, rather than by the writer after it.
    if (!EjercicioAbierto(s, d))
        return r;
    const QString noEncontrado =
        QStringLiteral("No se encontró el elemento de Inventario en la base de datos.");
    const std::optional<Elemento> visto = LeerElemento(s, n);
    if (!visto) {
        d.Informar(noEncontrado);
        return r;
    }
    if (!visto->Amortizable) {
        d.Informar(QStringLiteral("Este elemento del inventario no es amortizable."));
        return r;
    }
    if (!(Centimos(visto->Amortizado) < Centimos(visto->Importe) &&
          (!visto->UltimaAmort.isValid() || visto->UltimaAmort < s.FechaFinEj))) {
        d.Informar(QStringLiteral(
            "Ya está contabilizada la amortización de este elemento del inventario."));
        return r;
    }
    const QString texto =
        (pedirFecha ? pedirFecha() : d.PedirTexto(MsgFechaAmortizacionElemento, QString()))
            .trimmed();
    if (texto.isEmpty())
        return r;
    QDate fecha = FechaDeTexto(texto);
    if (!fecha.isValid()) {
        d.Informar(QStringLiteral("La fecha no es correcta"));
        return r;
    }
    if (fecha < s.FechaIniEj || fecha > s.FechaFinEj) {
        d.Informar(QStringLiteral("Esa fecha no está dentro del ejercicio actual"));
        return r;
    }
    if (visto->FechaBaja.isValid() && visto->FechaBaja < fecha) {
        if (visto->FechaBaja < s.FechaIniEj) {
            d.Informar(QStringLiteral("El elemento está dado de baja."));
            return r;
        }
        // A retired asset is depreciated up to its retirement, not beyond.
        fecha = visto->FechaBaja;
    }

    ConexionAmortizacion conexion(s);
    Conexion& c = conexion.c;
    const float ultimoAntes = s.UltimoAsiento;
    try {
        Transaccion t(c);
        const QList<Elemento> leido =
            ElementosDonde(c, QStringLiteral("Bavar."), QStringLiteral("NElemento = ?"), {n});
        if (leido.isEmpty()) {
            d.Informar(noEncontrado);
            return r;
        }
        const Elemento& e = leido.first();
        const double cuota = CalcularCuota(e, fecha, s.FechaIniEj, RedondeoCuota::Elemento).importe;
        // The journal holds cents: a share that rounds to nothing has nothing to post.
        if (Centimos(cuota) <= 0) {
            d.Informar(QStringLiteral("No procede realizar amortización."));
            return r;
        }
        const QString concepto = QStringLiteral("Amortización de elemento %1").arg(e.NElemento);
        AsientoAmortizacion a;
        a.Fecha = fecha;
        a.Apuntes = {linea(e.SubctaDota, Centimos(cuota), 0, concepto),
                     linea(e.SubctaAmort, 0, Centimos(cuota), concepto)};
        a.NAs = EscribirAsiento(c, s, fecha, a.Apuntes, opcionesCarrera());
        // Amortizado follows what the journal holds, so that the two never drift apart.
        ponerAlDia(c, e, fecha, Centimos(cuota));
        t.confirmar();
        r.asientos << a;
        r.elementos << e.NElemento;
    } catch (const ErrorAsiento& e) {
        s.UltimoAsiento = ultimoAntes;
        d.Informar(e.mensaje());
        return r;
    } catch (...) {
        s.UltimoAsiento = ultimoAntes;
        throw;
    }
    r.hecho = true;
    d.Informar(
        QStringLiteral("Se ha realizado la amortización del elemento %1.").arg(FormatoElemento(n)));
    return r;
}

#include "yearend/Cierre.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "yearend/TraducirCuenta.h"

#include <QFile>
#include <algorithm>
#include <optional>

const QString CuentaResultado = QStringLiteral("012900002");
const QString CuentaRemanente = QStringLiteral("012000103");
const QString CuentaResultadoNegativo = QStringLiteral("012100104");

const QString ConceptoRegularizacion = QStringLiteral("Asiento de regularización");
const QString ConceptoFinal = QStringLiteral("Asiento Final");
const QString ConceptoInicial = QStringLiteral("Asiento inicial");

const QString MsgSeleccioneAnoTraspaso =
    QStringLiteral("Tiene que seleccionar el año al que se van a traspasar los saldos.");
const QString MsgAnoDistintoDelActual =
    QStringLiteral("El año seleccionado tiene que ser distinto del actual.");

namespace {

const QString AliasDestino = QStringLiteral("destino");

QString tabla(const QString& base, const char* nombre) {
    return base.isEmpty() ? QLatin1String(nombre) : base + QLatin1Char('.') + QLatin1String(nombre);
}

QString msgYaCerrado(int ano) {
    return QStringLiteral("El ejercicio %1 ya está cerrado. Para cerrarlo de nuevo, invierta "
                          "antes el cierre (Abrir ejercicio, en el menú Acceso, Ejercicio).")
        .arg(ano);
}

QString msgDestinoCerrado(int ano) {
    return QStringLiteral("El ejercicio %1, al que se van a traspasar los saldos, está cerrado. "
                          "Invierta antes su cierre en el menú Acceso, Ejercicio.")
        .arg(ano);
}

QString msgAsientoOcupado(long asiento, int ano) {
    return QStringLiteral("El asiento nº %1 del ejercicio %2 no es un asiento de apertura. "
                          "Indique el número del asiento de apertura de ese ejercicio, o uno que "
                          "no se haya utilizado.")
        .arg(asiento)
        .arg(ano);
}

const QString MsgAsientoNoValido =
    QStringLiteral("El número del asiento de apertura no es válido.");

bool cerrado(Conexion& c, const QString& base) {
    return c.escalar(QStringLiteral("SELECT EjCerrado FROM ") + tabla(base, "Empresa")).toInt() !=
           0;
}

// The entry of that number exists and is not an opening entry, so that replacing it would lose
// an ordinary entry of the target.
bool asientoOcupado(Conexion& c, const QString& base, long asiento) {
    return c.existe(QStringLiteral("SELECT 1 FROM ") + tabla(base, "Diario") +
                        QStringLiteral(" WHERE NAs = ? AND Clase <> 'I'"),
                    {static_cast<qlonglong>(asiento)});
}

void marcarCerrado(Conexion& c, Sesion& s, const char* campo, long nas) {
    c.ejecutar(
        QStringLiteral("UPDATE Empresa SET EjCerrado = -1, %1 = ?").arg(QLatin1String(campo)),
        {static_cast<qlonglong>(nas)});
    s.EjCerrado = true;
}

// The state of the target that the writer checks: its dates and highest entry.
void cargarDestino(Conexion& c, const QString& base, Sesion& d) {
    const QVariant max = c.escalar(QStringLiteral("SELECT MAX(NAs) FROM ") + tabla(base, "Diario"));
    d.UltimoAsiento = max.isNull() ? 0.0f : static_cast<float>(max.toDouble());
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT FechaIni, EjCerrado, NAsReg, NAsFin FROM ") +
                             tabla(base, "Empresa") + QStringLiteral(" LIMIT 1"));
    if (q.next()) {
        d.FechaIniEj = DeISO(q.value(0).toString());
        d.FechaFinEj = d.FechaIniEj.addYears(1).addDays(-1);
        d.EjCerrado = q.value(1).toInt() != 0;
        d.NAsReg = q.value(2).toLongLong();
        d.NAsFin = q.value(3).toLongLong();
    }
}

Apunte linea(const QString& ncuenta, const QString& concepto, double debe, double haber) {
    Apunte a;
    a.NCuenta = ncuenta;
    a.Concepto = concepto;
    a.Debe = debe;
    a.Haber = haber;
    return a;
}

// A subaccount the opening entry needs and the target lacks is added to its chart.
void asegurarCuenta(Conexion& c, const QString& base, const QString& ncuenta,
                    const QString& nombre) {
    const QString cuentas = tabla(base, "Cuentas");
    if (c.existe(QStringLiteral("SELECT 1 FROM ") + cuentas + QStringLiteral(" WHERE NCuenta = ?"),
                 {ncuenta}))
        return;
    c.ejecutar(QStringLiteral("INSERT INTO ") + cuentas +
                   QStringLiteral(" (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)"),
               {ncuenta, nombre, ncuenta.left(4)});
}

struct SaldoFinal {
    QString NCuenta;
    double saldo; // debit minus credit
    QString Cuenta;
};

} // namespace

long HacerRegularizacion(Conexion& c, Sesion& s) {
    Transaccion t(c);
    if (!c.existe(QStringLiteral("SELECT 1 FROM Diario WHERE NCuenta LIKE '_6%' OR NCuenta LIKE "
                                 "'_7%'")))
        return 0;
    QList<Apunte> lineas;
    double ingresos = 0, gastos = 0;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, SaldoD, SaldoH FROM Mayor WHERE NCuenta LIKE '_6%' OR "
                       "NCuenta LIKE '_7%' ORDER BY NCuenta"));
    while (q.next()) {
        const QString ncuenta = q.value(0).toString();
        const double saldoD = q.value(1).toDouble(), saldoH = q.value(2).toDouble();
        if (Centimos(saldoH - saldoD) == 0)
            continue;
        // Each account is emptied on the side that cancels its nature; a balance against its
        // nature stays negative in that column rather than moving to the other.
        if (ncuenta.mid(1, 1) == QLatin1String("7")) {
            ingresos += saldoH - saldoD;
            lineas << linea(ncuenta, ConceptoRegularizacion, saldoH - saldoD, 0);
        } else {
            gastos += saldoD - saldoH;
            lineas << linea(ncuenta, ConceptoRegularizacion, 0, saldoD - saldoH);
        }
    }
    q.finish();
    if (lineas.isEmpty())
        return 0;
    ingresos = Centimos(ingresos);
    gastos = Centimos(gastos);
    if (ingresos != gastos) {
        if (gastos <= ingresos)
            lineas << linea(CuentaResultado, ConceptoRegularizacion, 0, ingresos - gastos);
        else
            lineas << linea(CuentaResultado, ConceptoRegularizacion, gastos - ingresos, 0);
    }
    OpcionesEscritura o;
    o.pasada = PasadaImportes::NoCero;
    o.Clase = QStringLiteral("R");
    o.enOrden = true;
    const long nas = EscribirAsiento(c, s, s.FechaFinEj, lineas, o);
    marcarCerrado(c, s, "NAsReg", nas);
    t.confirmar();
    s.NAsReg = nas;
    return nas;
}

long HacerFinal(Conexion& c, Sesion& s, const DestinoTraspaso* destino,
                const ProgresoEtapa& progreso) {
    Transaccion t(c);
    const int anoDestino = destino ? destino->sesion->AnoActual : 0;
    if (destino) {
        if (asientoOcupado(c, destino->base, destino->asiento))
            throw Rechazo(msgAsientoOcupado(destino->asiento, anoDestino));
        ElimAsiento(c, *destino->sesion, destino->asiento, destino->base);
    }

    // The balances to cancel, compared as they show: a difference below half a cent is none.
    QList<SaldoFinal> saldos;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral(
            "SELECT NCuenta, SaldoD, SaldoH, Cuenta FROM ConMayor WHERE NCuenta NOT LIKE '_6%' "
            "AND NCuenta NOT LIKE '_7%' AND SaldoD <> SaldoH ORDER BY NCuenta"));
        while (q.next()) {
            const double saldoD = q.value(1).toDouble(), saldoH = q.value(2).toDouble();
            if (Formato(saldoD, QStringLiteral("standard")) ==
                Formato(saldoH, QStringLiteral("standard")))
                continue;
            saldos.append(
                {q.value(0).toString(), saldoD - saldoH, q.value(3).toString().trimmed()});
        }
    }
    if (saldos.isEmpty()) {
        t.confirmar();
        return 0;
    }
    // Debit balances first, the largest first; equal balances keep the order of their codes.
    std::stable_sort(saldos.begin(), saldos.end(),
                     [](const SaldoFinal& a, const SaldoFinal& b) { return a.saldo > b.saldo; });

    QList<Apunte> final, inicial;
    for (const SaldoFinal& f : saldos) {
        final << linea(f.NCuenta, ConceptoFinal, f.saldo < 0 ? -f.saldo : 0,
                       f.saldo < 0 ? 0 : f.saldo);
        if (!destino)
            continue;
        const QString codigo = destino->traducir ? destino->traducir(f.NCuenta) : f.NCuenta;
        asegurarCuenta(c, destino->base, codigo,
                       codigo == f.NCuenta ? f.Cuenta : NombreTraducido(f.Cuenta));
        // The result is not carried as such: a profit goes to the remainder, a loss to the
        // negative results of earlier years.
        QString ncuenta = codigo;
        if (f.NCuenta == CuentaResultado) {
            ncuenta = f.saldo < 0 ? CuentaRemanente : CuentaResultadoNegativo;
            asegurarCuenta(c, destino->base, ncuenta,
                           f.saldo < 0 ? QStringLiteral("Remanente")
                                       : QStringLiteral("Res.negativos años anteriores"));
        }
        inicial << linea(ncuenta, ConceptoInicial, f.saldo < 0 ? 0 : f.saldo,
                         f.saldo < 0 ? -f.saldo : 0);
    }
    if (progreso)
        progreso(ConceptoFinal, 0, saldos.size());
    OpcionesEscritura o;
    o.pasada = PasadaImportes::NoCero;
    o.Clase = QStringLiteral("F");
    o.enOrden = true;
    const long nas = EscribirAsiento(c, s, s.FechaFinEj, final, o);
    if (progreso)
        progreso(ConceptoFinal, saldos.size(), saldos.size());
    if (destino) {
        if (progreso)
            progreso(ConceptoInicial, 0, inicial.size());
        OpcionesEscritura oi;
        oi.pasada = PasadaImportes::NoCero;
        oi.Clase = QStringLiteral("I");
        oi.enOrden = true;
        oi.numero = destino->asiento;
        oi.base = destino->base;
        EscribirAsiento(c, *destino->sesion, destino->sesion->FechaIniEj, inicial, oi);
        if (progreso)
            progreso(ConceptoInicial, inicial.size(), inicial.size());
    }
    marcarCerrado(c, s, "NAsFin", nas);
    t.confirmar();
    s.NAsFin = nas;
    return nas;
}

void CerrarEjercicio(Sesion& s, const Traspaso& traspaso, const ProgresoEtapa& progreso) {
    if (traspaso.ano != 0 && traspaso.ano == s.AnoActual)
        throw Rechazo(MsgAnoDistintoDelActual);
    if (traspaso.ano != 0 && !ExisteEjercicio(s, traspaso.ano))
        throw Rechazo(MsgFaltaEjercicio(s, traspaso.ano));
    if (traspaso.ano != 0 && traspaso.asiento <= 0)
        throw Rechazo(MsgAsientoNoValido);

    Sesion despues = s;
    Sesion destinoSesion = s;
    destinoSesion.AnoActual = static_cast<qint16>(traspaso.ano);
    Conexion c = AbrirDatos(s);
    // Declared before the transaction, which must end before the target is detached.
    std::optional<BaseAdjunta> adjunta;
    if (traspaso.ano != 0)
        adjunta.emplace(c, s.rutaEjercicio(traspaso.ano), AliasDestino, TipoBase::Ejercicio);
    Transaccion t(c);
    if (cerrado(c, {}))
        throw Rechazo(msgYaCerrado(s.AnoActual));
    std::optional<DestinoTraspaso> destino;
    if (adjunta) {
        cargarDestino(c, AliasDestino, destinoSesion);
        if (destinoSesion.EjCerrado)
            throw Rechazo(msgDestinoCerrado(traspaso.ano));
        destino = DestinoTraspaso{AliasDestino, &destinoSesion, traspaso.asiento, {}};
        // Transnp.dat is read once for the whole close, not once per subaccount.
        if (TraduccionNecesaria(s.AnoActual, traspaso.ano))
            destino->traducir = [registros = LeerTransnp(RutaTransnp(s))](const QString& ncuenta) {
                return TraducirCon(registros, ncuenta);
            };
    }
    if (progreso)
        progreso(ConceptoRegularizacion, 0, 1);
    HacerRegularizacion(c, despues);
    if (progreso)
        progreso(ConceptoRegularizacion, 1, 1);
    HacerFinal(c, despues, destino ? &*destino : nullptr, progreso);
    // An exercise without any balance is closed all the same: that is what was asked for.
    if (!despues.EjCerrado)
        marcarCerrado(c, despues, "NAsFin", 0);
    t.confirmar();
    s = despues;
}

RespuestaCierre PedirCierre(Sesion& s, Dialogo& d, const PeticionCierre& p,
                            const ProgresoEtapa& progreso) {
    RespuestaCierre r;
    auto rechazar = [&](const QString& mensaje, CampoCierre foco) {
        d.Informar(mensaje);
        r.foco = foco;
        return r;
    };
    {
        Conexion c = AbrirDatos(s);
        if (cerrado(c, {})) {
            s.EjCerrado = true;
            return rechazar(msgYaCerrado(s.AnoActual), CampoCierre::Ninguno);
        }
    }
    Traspaso traspaso;
    const QString ano = p.ano.trimmed();
    switch (p.modo) {
    case PeticionCierre::Modo::Existente: {
        if (ano.isEmpty())
            return rechazar(MsgSeleccioneAnoTraspaso, CampoCierre::Ano);
        bool ok = false;
        traspaso.ano = ano.toInt(&ok);
        if (ok && traspaso.ano == s.AnoActual)
            return rechazar(MsgAnoDistintoDelActual, CampoCierre::Ano);
        if (!ok || !ExisteEjercicio(s, traspaso.ano))
            return rechazar(MsgFaltaEjercicio(s, traspaso.ano), CampoCierre::Ano);
        const QString numero = p.asiento.trimmed();
        if (numero.isEmpty()) {
            if (!d.Preguntar(QStringLiteral("Está seguro de que en el ejercicio ") + ano +
                             QStringLiteral(" no existe el asiento de apertura?")))
                return r;
        } else {
            traspaso.asiento = numero.toLong(&ok);
            if (!ok || traspaso.asiento <= 0)
                return rechazar(MsgAsientoNoValido, CampoCierre::Asiento);
            // The wording names entry 1 whatever number was typed.
            if (!d.Preguntar(QStringLiteral("Está seguro de que el asiento de apertura del "
                                            "ejercicio ") +
                             ano + QStringLiteral(" es el nº 1?")))
                return r;
        }
        {
            Conexion destino =
                AbrirBaseEmpresa(s, s.rutaEjercicio(traspaso.ano), TipoBase::Ejercicio);
            if (cerrado(destino, {}))
                return rechazar(msgDestinoCerrado(traspaso.ano), CampoCierre::Ano);
            if (asientoOcupado(destino, {}, traspaso.asiento))
                return rechazar(msgAsientoOcupado(traspaso.asiento, traspaso.ano),
                                CampoCierre::Asiento);
        }
        break;
    }
    case PeticionCierre::Modo::Nuevo: {
        bool ok = false;
        traspaso.ano = ano.toInt(&ok);
        if (!ok || ano.size() != 4)
            return rechazar(MsgIndiqueAno, CampoCierre::AnoNuevo);
        if (traspaso.ano == s.AnoActual)
            return rechazar(MsgAnoDistintoDelActual, CampoCierre::AnoNuevo);
        if (ExisteEjercicio(s, traspaso.ano) || EjerciciosEmpresa(s).contains(traspaso.ano))
            return rechazar(QStringLiteral("Ya existe el ejercicio %1.").arg(traspaso.ano),
                            CampoCierre::AnoNuevo);
        break;
    }
    case PeticionCierre::Modo::SinTraspaso:
        if (!d.PreguntarSi(QStringLiteral(
                "Se va a cerrar este ejercicio, realizándose el asiento de regularización y el "
                "asiento final, sin traspasar los saldos al ejercicio siguiente. Desea "
                "continuar?")))
            return r;
        break;
    }
    if (traspaso.ano != 0 &&
        !d.Preguntar(QStringLiteral("Se va a cerrar este ejercicio, calculándose los saldos "
                                    "finales y traspasándolos al ejercicio ") +
                     QString::number(traspaso.ano) + QStringLiteral(" , asiento nº ") +
                     QString::number(traspaso.asiento) + QStringLiteral(". Es correcto?")))
        return r;
    if (p.modo == PeticionCierre::Modo::Nuevo) {
        // The new year is made from this one, before the close: its chart is the same.
        Sesion copia = s;
        CrearEjercicio(copia, d, traspaso.ano, s.AnoActual);
    }
    CerrarEjercicio(s, traspaso, progreso);
    r.cerrado = true;
    r.anoDestino = traspaso.ano;
    return r;
}

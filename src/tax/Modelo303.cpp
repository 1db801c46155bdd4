#include "tax/Modelo303.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Impresora.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "tax/BorradorModelo.h"

#include <cmath>

// Today's rates come first; the older ones stay for the periods that still carry them.
const QList<double> TiposIva303{21, 18, 16, 10, 8, 7, 5, 4};
const QList<double> TiposRecargo303{5.2, 4, 1.75, 1.4, 1, 0.62, 0.5};

namespace {

const QString MsgInscrito =
    QStringLiteral("Debe indicar si está inscrito en el Registro de devolución mensual");
const QString MsgPeriodoMensual =
    QStringLiteral("Si la presentación es mensual en Periodo debe indicarse el número del mes");
const QString MsgPeriodoTrimestral =
    QStringLiteral("Si la presentación es trimestral el periodo debe ser '1T', '2T', '3T' o "
                   "'4T'. Si es mensual debe consignarse solamente el número del mes.");
const QString MsgDevolucionUltimoPeriodo =
    QStringLiteral("Si no está inscrito en el Registro de devolución mensual sólo puede "
                   "solicitar devolución en el último periodo del año.");
const QString MsgNegativo = QStringLiteral(
    "Si el resultado  es negativo debe consignarlo en Compensación o Devolución solicitada.");
const QString MsgCero =
    QStringLiteral("Si el resultado  es igual a cero no debe consignar nada en Compensación, "
                   "Devolución o Ingreso.");
const QString MsgCompensacionYDevolucion =
    QStringLiteral("No puede consignar al mismo tiempo solicitud de Compensación y de Devolución.");
const QString MsgDevolucionEIngreso =
    QStringLiteral("No puede consignar al mismo tiempo solicitud de Devolución e Ingreso.");
const QString MsgDevolucionSobraCuenta =
    QStringLiteral("Si no solicita devolución no debe introducir ningún dígito en la cuenta "
                   "corriente de ese apartado.");
const QString MsgFormaPago =
    QStringLiteral("Si se trata de un ingreso debe consignar la forma de pago.");
const QString MsgCompensacionNegativa =
    QStringLiteral("El importe de la Compensación solicitada no puede ser menor que cero.");
const QString MsgDevolucionNegativa =
    QStringLiteral("El importe de la Devolución solicitada no puede ser menor que cero.");
const QString MsgComplementaria =
    QStringLiteral("Si se trata de una declaración complementaria debe marcar su casilla e "
                   "introducir el número de justificante de la declaración anterior.");

// The sums of the period's records that enter the VAT books, of one side, class and rate (none:
// every rate). Null when no record matches.
struct Suma {
    Casilla base, cuota;
};

Suma Sumar(Conexion& c, const QString& cp, const QString& clase, std::optional<double> tipo,
           const QDate& desde, const QDate& hasta) {
    QString sql = QStringLiteral("SELECT SUM(Base) AS TotalBase, SUM(Cuota) AS TotalCuota "
                                 "FROM DatosIVA WHERE LIVA = -1 AND ClaseIVA = ? AND CP = ? "
                                 "AND Fecha BETWEEN ? AND ?");
    QVariantList valores{clase, cp, FechaISO(desde), FechaISO(hasta)};
    if (tipo) {
        // Rates are kept in single precision: 5,2 is stored as 5,19999980926514.
        sql += QStringLiteral(" AND ABS(Porcentaje - ?) < 0.001");
        valores << *tipo;
    }
    QSqlQuery q = c.ejecutar(sql, valores);
    Suma s;
    if (q.next() && !q.value(0).isNull()) {
        s.base = Importe(q.value(0).toDouble());
        s.cuota = Importe(q.value(1).isNull() ? 0.0 : q.value(1).toDouble());
    }
    return s;
}

bool Igual(double a, const Casilla& b) {
    return b && Centimos(a) == Centimos(*b);
}

bool SoloCifras(const QString& s) {
    if (s.isEmpty())
        return false;
    for (const QChar c : s)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

} // namespace

Modelo303 Nuevo303(Conexion& c, const QDate& desde, const QDate& hasta, const QDate& hoy) {
    Modelo303 m;
    m.desde = desde;
    m.hasta = hasta;
    m.anoFechas = desde.year();
    m.ejercicio = QString::number(m.anoFechas);
    m.periodo = PeriodoDeFechas(desde, hasta);
    const Declarante d = DeclaranteEmpresa(c);
    m.nif = d.nif;
    m.apellidos = d.nombre;
    m.firma = FirmaDeFecha(hoy, d.ciudad.left(16));
    return m;
}

void Llenar303(Conexion& c, Modelo303& m) {
    // Each rate with records takes the next line; a fourth general rate runs on into the
    // surcharge lines, which the surcharge rates then fill again from the first of them.
    auto pasada = [&](const QString& clase, const QList<double>& tipos, int linea) {
        for (const double tipo : tipos) {
            const Suma s = Sumar(c, QStringLiteral("C"), clase, tipo, m.desde, m.hasta);
            if (!s.base)
                continue;
            if (linea < 6) {
                m[3 * linea + 1] = s.base;
                m[3 * linea + 2] = tipo;
                m[3 * linea + 3] = s.cuota;
            }
            ++linea;
        }
    };
    pasada(QStringLiteral("IVA"), TiposIva303, 0);
    pasada(QStringLiteral("Recargo"), TiposRecargo303, 3);
    // Input VAT of every rate and kind of purchase; investment goods, imports and
    // intra-community purchases are for the user to separate.
    const Suma soportado =
        Sumar(c, QStringLiteral("P"), QStringLiteral("IVA"), std::nullopt, m.desde, m.hasta);
    m[22] = soportado.base;
    m[23] = soportado.cuota;
    Recalcular303(m);
}

void Recalcular303(Modelo303& m, int editada) {
    if (editada >= 1 && editada <= 18 && editada % 3 != 0) {
        const int base = editada - (editada - 1) % 3;
        if (m[base] && m[base + 1])
            m[base + 2] = Importe(*m[base] * *m[base + 1] / 100);
    }
    auto suma = [&m](std::initializer_list<int> casillas) {
        double t = 0;
        for (const int n : casillas)
            t += Valor(m[n]);
        return Importe(t);
    };
    m[21] = suma({3, 6, 9, 12, 15, 18, 20});
    m[37] = suma({23, 25, 27, 29, 31, 33, 34, 35, 36});
    m[38] = Importe(Valor(m[21]) - Valor(m[37]));
    // An empty percentage is the whole of it.
    m[40] = m[39] ? Importe(*m[38] * *m[39] / 100) : m[38];
    m[46] = Importe(Valor(m[40]) - Valor(m[41]) + Valor(m[45]));
    m[48] = m[47] ? Importe(*m[46] - *m[47]) : m[46];
    if (*m[48] > 0) {
        m[49].reset();
        m[50].reset();
        m.importe = m[48];
    } else {
        m.importe.reset();
        m.efectivo = false;
        m.adeudo = false;
        m.cuentaCargo.Limpiar();
    }
}

std::optional<FalloModelo> Comprobar303(Modelo303& m) {
    auto fallo = [](const QString& mensaje, const QString& campo) {
        return std::optional<FalloModelo>(FalloModelo{mensaje, campo});
    };
    if (m.ejercicio.trimmed() != QString::number(m.anoFechas))
        return fallo(MsgEjercicioDebeSer(m.anoFechas), QStringLiteral("Ejercicio"));
    if (!AnoConModelo(m.anoFechas))
        return fallo(MsgModeloNoIncorporado(m.anoFechas), QStringLiteral("Ejercicio"));
    if (m.inscritoSi == m.inscritoNo)
        return fallo(MsgInscrito, QStringLiteral("InscritoSi"));

    QString periodo = m.periodo.trimmed().toUpper();
    if (SoloCifras(periodo)) {
        if (periodo.size() == 1)
            periodo.prepend(u'0');
        m.periodo = periodo;
        const int mes = periodo.toInt();
        if (mes < 1 || mes > 12)
            return fallo(MsgPeriodoMensual, QStringLiteral("Periodo"));
    } else if (periodo != QLatin1String("1T") && periodo != QLatin1String("2T") &&
               periodo != QLatin1String("3T") && periodo != QLatin1String("4T")) {
        return fallo(MsgPeriodoTrimestral, QStringLiteral("Periodo"));
    }

    if (m.nif.trimmed().isEmpty())
        return fallo(MsgDebeNif, QStringLiteral("NIF"));
    if (m.apellidos.trimmed().isEmpty())
        return fallo(MsgDebeApellidos, QStringLiteral("Apellidos"));
    if (m.nif.trimmed().at(0).isDigit() && m.nombre.trimmed().isEmpty())
        return fallo(MsgDebeNombre, QStringLiteral("Nombre"));

    // The test is as narrow as the form has always made it: an unregistered filer asking for a
    // refund in December.
    if (!m.inscritoNo && Valor(m[50]) != 0 && m.periodo == QLatin1String("12"))
        return fallo(MsgDevolucionUltimoPeriodo, QStringLiteral("Casilla22"));

    const double resultado = Valor(m[48]);
    if (resultado < 0 && ((!m[49] && !m[50]) || (!Igual(std::fabs(resultado), m[49]) &&
                                                 !Igual(std::fabs(resultado), m[50]))))
        return fallo(MsgNegativo, QStringLiteral("Casilla49"));
    if (resultado > 0 && !Igual(resultado, m.importe))
        return fallo(MsgPositivoAIngresar, QStringLiteral("Importe"));
    if (resultado == 0 && (m[49] || m[50] || m.importe))
        return fallo(MsgCero, QStringLiteral("Casilla49"));
    if (m[49] && m[50] && *m[49] != 0 && *m[50] != 0)
        return fallo(MsgCompensacionYDevolucion, QStringLiteral("Casilla49"));
    if (m[50] && m.importe)
        return fallo(MsgDevolucionEIngreso, QStringLiteral("Casilla50"));

    if (m[50]) {
        if (!m.cuentaDevolucion.Completa())
            return fallo(MsgCuentaIncompleta, QStringLiteral("CuentaDevolucion"));
    } else if (m.cuentaDevolucion.TieneCifras()) {
        return fallo(MsgDevolucionSobraCuenta, QStringLiteral("CuentaDevolucion"));
    }

    if (m.importe) {
        if (!m.efectivo && !m.adeudo)
            return fallo(MsgFormaPago, QStringLiteral("Efectivo"));
        if (m.efectivo && m.adeudo)
            return fallo(MsgFormaPagoDoble, QStringLiteral("Efectivo"));
        if (m.adeudo) {
            if (!m.cuentaCargo.Completa())
                return fallo(MsgCuentaIncompleta, QStringLiteral("CuentaCargo"));
        } else if (m.cuentaCargo.TieneCifras()) {
            return fallo(MsgCuentaCargoSobra, QStringLiteral("CuentaCargo"));
        }
    }

    if (m[49] && *m[49] < 0)
        return fallo(MsgCompensacionNegativa, QStringLiteral("Casilla49"));
    if (m[50] && *m[50] < 0)
        return fallo(MsgDevolucionNegativa, QStringLiteral("Casilla50"));
    if (m.importe && *m.importe < 0)
        return fallo(MsgIngresoNegativo, QStringLiteral("Importe"));

    if (m.complementaria == !m.justificante.trimmed().isEmpty())
        return std::nullopt;
    return fallo(MsgComplementaria, QStringLiteral("Complementaria"));
}

QByteArray Fichero303(const Modelo303& m) {
    RegistroHacienda r;
    r.Texto(QStringLiteral("<T")).Texto(QStringLiteral("303")).Texto(QStringLiteral("01"));
    r.Texto(QStringLiteral(">")).Blancos(1);
    r.Texto(m[49]       ? QStringLiteral("C")
            : m[50]     ? QStringLiteral("D")
            : m.importe ? QStringLiteral("I")
                        : QStringLiteral("N"));
    r.Campo(m.nif, 9).Campo(m.apellidos, 30).Campo(m.nombre, 15);
    r.Texto(m.inscritoSi ? QStringLiteral("1") : QStringLiteral("2"));
    r.Campo(m.ejercicio, 4).Campo(m.periodo, 2);
    for (int linea = 0; linea < 6; ++linea)
        r.Importe(m[3 * linea + 1], 15).Porcentaje(m[3 * linea + 2]).Importe(m[3 * linea + 3], 15);
    for (int n = 19; n <= 38; ++n)
        r.Importe(m[n], 15);
    r.Porcentaje(m[39]);
    for (int n = 40; n <= 49; ++n)
        r.Importe(m[n], 15);
    r.Texto(m.sinActividad ? QStringLiteral("1") : QStringLiteral("0"));
    r.Importe(m[50], 15).Campo(m.cuentaDevolucion.Texto(), 20);
    r.Texto(m.efectivo ? QStringLiteral("1")
            : m.adeudo ? QStringLiteral("2")
                       : QStringLiteral("0"));
    r.Importe(m.importe, 15).Campo(m.cuentaCargo.Texto(), 20);
    r.Texto(m.complementaria ? QStringLiteral("1") : QStringLiteral("0"));
    r.Campo(m.justificante, 13).Blancos(400);
    r.Campo(m.firma.lugar, 16).Campo(m.firma.dia, 2).Campo(m.firma.mes, 10);
    r.Campo(m.firma.ano, 4);
    r.Texto(QStringLiteral("</T30301>")).FinLinea();
    return r.Bytes();
}

std::optional<FalloModelo> Presentar303(const Sesion& s, Modelo303& m, Dialogo& d,
                                        const ElegirCarpeta& elegir, ResultadoEntrega* resultado) {
    if (auto f = Comprobar303(m)) {
        d.Informar(f->mensaje);
        return f;
    }
    EntregaHacienda e;
    e.modelo = QStringLiteral("303");
    e.nif = m.nif;
    const ResultadoEntrega r = EntregarFichero(s, e, Fichero303(m), d, elegir);
    if (resultado)
        *resultado = r;
    return std::nullopt;
}

QList<LineaDesglose303> Desglose303(Conexion& c, const QDate& desde, const QDate& hasta) {
    QList<LineaDesglose303> r;
    for (const double tipo : TiposIva303) {
        const Suma s = Sumar(c, QStringLiteral("P"), QStringLiteral("IVA"), tipo, desde, hasta);
        r.append({tipo, s.base, s.cuota});
    }
    return r;
}

void DibujarBorrador303(Impresora& imp, const Modelo303& m, const QList<LineaDesglose303>& desglose,
                        const QString& fuente, double tamano) {
    const double W = imp.AnchoPagina();
    BorradorModelo b(imp, fuente, tamano,
                     {W - BorradorModelo::Derecha - 4400, W - BorradorModelo::Derecha - 2600,
                      W - BorradorModelo::Derecha});
    auto t = [&m](int n) {
        return TextoCasilla(m[n]);
    };
    auto linea = [&](const QString& etiqueta, int primera) {
        b.Fila(etiqueta, {t(primera), t(primera + 1), t(primera + 2)});
    };
    // Base and quota of a pair of boxes: the figures go under "Base Imponible" and "Cuota".
    auto par = [&](const QString& etiqueta, int base) {
        b.Fila(etiqueta, {t(base), QString(), t(base + 1)});
    };
    auto cuota = [&](const QString& etiqueta, int n, bool negrita = false) {
        b.Fila(etiqueta, {QString(), QString(), t(n)}, negrita);
    };
    auto lineas = [&](const QString& etiqueta, int primeraLinea) {
        linea(etiqueta, 3 * primeraLinea + 1);
        for (int l = primeraLinea + 1; l < primeraLinea + 3; ++l)
            if (m[3 * l + 1] || m[3 * l + 2] || m[3 * l + 3])
                linea(QString(), 3 * l + 1);
    };

    b.Titulo(QStringLiteral("Modelo 303"));
    b.Texto(QStringLiteral("Periodo: %1 a %2")
                .arg(FormatoFecha(m.desde, QStringLiteral("short date")),
                     FormatoFecha(m.hasta, QStringLiteral("short date"))));
    b.Columnas({QStringLiteral("Base Imponible"), QStringLiteral("Tipo"), QStringLiteral("Cuota")});

    b.Seccion(QStringLiteral("DEVENGADO"));
    lineas(QStringLiteral("Régimen General"), 0);
    lineas(QStringLiteral("Recargo de Equivalencia"), 3);
    par(QStringLiteral("Adquisiciones intracomunitarias"), 19);
    cuota(QStringLiteral("Total Devengado"), 21, true);

    b.Seccion(QStringLiteral("SOPORTADO"));
    par(QStringLiteral("Soportado en op. interiores corrientes"), 22);
    for (const LineaDesglose303& l : desglose)
        b.Fila(QStringLiteral("Al %1%").arg(QString::number(l.tipo).replace(u'.', u',')),
               {TextoCasilla(l.base), QString(), TextoCasilla(l.cuota)}, false, 400);
    par(QStringLiteral("Soportado en op. interiores bienes inversión"), 24);
    par(QStringLiteral("Por cuotas devengadas importaciones bienes corrientes"), 26);
    par(QStringLiteral("Por cuotas devengadas importaciones bienes inversión"), 28);
    par(QStringLiteral("En adquisiciones intracomunitarias de bienes corrientes"), 30);
    par(QStringLiteral("En adquisiciones intracomunitarias de bienes inversión"), 32);
    cuota(QStringLiteral("Compensaciones Régimen Especial A. G. y P."), 34);
    cuota(QStringLiteral("Regularización de inversiones"), 35);
    cuota(QStringLiteral("Regularización porcentaje definitivo de prorrata"), 36);
    cuota(QStringLiteral("TOTAL A DEDUCIR"), 37, true);

    b.Seccion(QString());
    cuota(QStringLiteral("DIFERENCIA"), 38, true);
    b.Fila(QStringLiteral("Atribuible a la Administración del Estado"), {QString(), t(39), t(40)});
    cuota(QStringLiteral("Cuotas a compensar de periodos anteriores"), 41);
    cuota(QStringLiteral("RESULTADO"), 46, true);
    cuota(QStringLiteral("A deducir de anterior declaración (caso de complementaria)"), 47);
    cuota(QStringLiteral("RESULTADO DE LA LIQUIDACION"), 48, true);
    b.Terminar();
}

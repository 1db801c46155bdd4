#include "tax/Modelo130.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Impresora.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "tax/BorradorModelo.h"

#include <algorithm>

namespace {

const QString MsgActividades = QStringLiteral(
    "Tiene que seleccionar las actividades que se van a incluir en el pago fraccionado.");
const QString MsgUnoEnero = QStringLiteral("La fecha inicial debe ser 1 de enero.");
const QString MsgInicioTrimestre =
    QStringLiteral("La fecha inicial debe ser principio de trimestre natural.");
const QString MsgFinTrimestre =
    QStringLiteral("La fecha final debe ser siempre el último día de un trimestre natural.");
const QString MsgVivienda = QStringLiteral("La deducción por adquisición de vivienda habitual no "
                                           "puede ser superior a 660,14 euros");
const QString MsgViviendaDosPorCiento =
    QStringLiteral("Error: La deducción por vivienda consignada es mayor que el 2% de la "
                   "casilla 3 y que el 2% de la casilla 8. Debe corregirlo");
const QString MsgPeriodo = QStringLiteral("El periodo debe ser '1T', '2T', '3T' o '4T'");
const QString MsgMinoracion =
    QStringLiteral("El máximo de deducción de la casilla 13 es 100 euros cada trimestre.");
const QString MsgNif = QStringLiteral("Debe introducir el NIF.");
const QString MsgApellidos = QStringLiteral("Debe introducir los apellidos.");
const QString MsgNombre = QStringLiteral("Debe introducir el nombre.");
const QString MsgCeroSinNegativa =
    QStringLiteral("Si el resultado  es igual a cero debe marcar con una 'X' la casilla de "
                   "Declaración negativa.");
const QString MsgCeroConPago = QStringLiteral(
    "Si el resultado  es igual a cero no debe marcar con una 'X' la forma de ingreso.");
const QString MsgNoCeroConNegativa =
    QStringLiteral("Si el resultado  es distinto de cero no debe marcar con una 'X' la casilla "
                   "de Declaración negativa.");
const QString MsgPositivoSinPago =
    QStringLiteral("Si el resultado  es positivo debe consignar la forma de pago.");
const QString MsgNegativoSinMarca =
    QStringLiteral("Debe consignar si la declaración es negativa o a deducir en trimestres "
                   "posteriores del mismo ejercicio'.");

bool EsFinDeTrimestre(const QDate& d) {
    return d.month() % 3 == 0 && d.addDays(1).day() == 1;
}

bool Igual(double a, const Casilla& b) {
    return b && Centimos(a) == Centimos(*b);
}

// Debit and credit of the journal lines of one plan group in a period, without the
// regularisation and closing entries (they would empty the year's income and expense).
std::pair<double, double> Sumas(Conexion& c, const QString& grupo, const QString& condicion,
                                const QVariantList& sectores, const QDate& desde,
                                const QDate& hasta) {
    QVariantList valores{grupo};
    valores << sectores << FechaISO(desde) << FechaISO(hasta);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT SUM(Debe) AS TotalDebe, SUM(Haber) AS TotalHaber FROM Diario "
                       "WHERE NCuenta LIKE ? %1 AND Clase <> 'R' AND Clase <> 'F' "
                       "AND Fecha BETWEEN ? AND ?")
            .arg(condicion),
        valores);
    if (!q.next())
        return {0, 0};
    return {q.value(0).toDouble(), q.value(1).toDouble()};
}

} // namespace

std::optional<QString> ComprobarPeriodo130(const Actividades130& a, const QDate& desde,
                                           const QDate& hasta) {
    if (!a.seccionI && !a.seccionII)
        return MsgActividades;
    if (desde > hasta)
        return MsgPeriodoInvertido;
    if (desde.year() != hasta.year())
        return MsgFechasOtroAno;
    if (a.seccionI) {
        if (desde.day() != 1 || desde.month() != 1)
            return MsgUnoEnero;
    } else if (desde.day() != 1 || desde.month() % 3 != 1) {
        return MsgInicioTrimestre;
    }
    if (!EsFinDeTrimestre(hasta))
        return MsgFinTrimestre;
    return std::nullopt;
}

Modelo130 Nuevo130(Conexion& c, const QDate& desde, const QDate& hasta, const QDate& hoy) {
    Modelo130 m;
    m.desde = desde;
    m.hasta = hasta;
    m.anoFechas = hasta.year();
    m.ejercicio = QString::number(m.anoFechas);
    m.periodo = QStringLiteral("%1T").arg((hasta.month() + 2) / 3);
    const Declarante d = DeclaranteEmpresa(c);
    m.nif = d.nif;
    m.apellidos = d.nombre;
    m.firma = FirmaDeFecha(hoy, d.ciudad.left(16));
    return m;
}

void Llenar130(Conexion& c, Modelo130& m, const Actividades130& a, Dialogo& d) {
    if (a.seccionI) {
        // What is not in the sectors of section II belongs to section I.
        const QString condicion =
            QStringLiteral("AND (Sector IS NULL OR (Sector <> ? AND Sector <> ?))");
        const QVariantList sectores{a.sectoresII[0], a.sectoresII[1]};
        const auto ingresos =
            Sumas(c, QStringLiteral("_7%"), condicion, sectores, m.desde, m.hasta);
        m[1] = Importe(ingresos.second - ingresos.first);
        const auto gastos = Sumas(c, QStringLiteral("_6%"), condicion, sectores, m.desde, m.hasta);
        m[2] = Importe(gastos.first - gastos.second);
    }
    if (a.seccionII) {
        // The quarter's income only, whatever the first date.
        const QDate inicio = m.hasta.addDays(1).addMonths(-3);
        QStringList elegidos;
        for (const QString& s : a.sectoresII)
            if (s != SinSector)
                elegidos << s;
        QString condicion;
        QVariantList sectores;
        if (elegidos.size() == 1) {
            condicion = QStringLiteral("AND Sector = ?");
            sectores << elegidos.first();
        } else if (elegidos.size() == 2) {
            // Two sectors ask for lines in both at once, which none is: the form has always
            // asked it so, and box 08 then comes out 0.
            condicion = QStringLiteral("AND Sector = ? AND Sector = ?");
            sectores << elegidos.at(0) << elegidos.at(1);
        }
        const auto ingresos = Sumas(c, QStringLiteral("_7%"), condicion, sectores, inicio, m.hasta);
        m[8] = Importe(ingresos.second - ingresos.first);
    }
    Recalcular130(m, d);
}

std::optional<QString> Recalcular130(Modelo130& m, Dialogo& d) {
    std::optional<QString> foco;
    if (!m[1]) {
        m[3].reset();
        m[4].reset();
        m[7].reset();
    } else {
        m[3] = m[2] ? Importe(*m[1] - *m[2]) : m[1];
        if (*m[3] > 0)
            m[4] = Importe(*m[3] * 0.2);
        m[7] = Importe(Valor(m[4]) - Valor(m[5]) - Valor(m[6]));
    }
    if (!m[8]) {
        m[9].reset();
        m[10].reset();
        m[11].reset();
    } else {
        m[9] = Importe(*m[8] * 0.02);
        m[11] = m[10] ? Importe(*m[9] - *m[10]) : m[9];
    }
    m[12] = Importe(std::max(0.0, Valor(m[7]) + Valor(m[11])));
    if (m[13] && *m[13] < 0)
        m[13] = -*m[13];
    m[14] = m[13] ? Importe(*m[12] - *m[13]) : m[12];
    if (*m[14] > 0) {
        if (m[15] && *m[15] < 0)
            m[15] = -*m[15];
        if (m[16] && *m[16] < 0)
            m[16] = -*m[16];
        if (m[16] && *m[16] > MaximoVivienda130) {
            d.Informar(MsgVivienda);
            m[16] = MaximoVivienda130;
        }
        const double vivienda = Valor(m[16]);
        if (vivienda > Centimos(Valor(m[3]) * 0.02) && vivienda > Centimos(Valor(m[8]) * 0.02)) {
            d.Informar(MsgViviendaDosPorCiento);
            foco = QStringLiteral("Casilla16");
        }
        m[17] = Importe(*m[14] - Valor(m[15]) - vivienda);
    } else {
        m[17] = m[14];
    }
    m[19] = m[18] ? Importe(*m[17] - *m[18]) : m[17];
    if (*m[19] > 0)
        m.importe = m[19];
    else
        m.importe.reset();
    return foco;
}

std::optional<FalloModelo> Comprobar130(const Modelo130& m) {
    auto fallo = [](const QString& mensaje, const QString& campo) {
        return std::optional<FalloModelo>(FalloModelo{mensaje, campo});
    };
    if (m.ejercicio.trimmed() != QString::number(m.anoFechas))
        return fallo(MsgEjercicioDebeSer(m.anoFechas), QStringLiteral("Ejercicio"));
    if (!AnoConModelo(m.anoFechas))
        return fallo(MsgModeloNoIncorporado(m.anoFechas), QStringLiteral("Ejercicio"));
    const QString periodo = m.periodo.trimmed().toUpper();
    if (periodo != QLatin1String("1T") && periodo != QLatin1String("2T") &&
        periodo != QLatin1String("3T") && periodo != QLatin1String("4T"))
        return fallo(MsgPeriodo, QStringLiteral("Periodo"));
    if (Valor(m[13]) > MaximoMinoracion130)
        return fallo(MsgMinoracion, QStringLiteral("Casilla13"));
    if (m.nif.trimmed().isEmpty())
        return fallo(MsgNif, QStringLiteral("NIF"));
    if (m.apellidos.trimmed().isEmpty())
        return fallo(MsgApellidos, QStringLiteral("Apellidos"));
    if (m.nombre.trimmed().isEmpty())
        return fallo(MsgNombre, QStringLiteral("Nombre"));

    const double resultado = Valor(m[19]);
    if (resultado > 0 && !Igual(resultado, m.importe))
        return fallo(MsgPositivoAIngresar, QStringLiteral("Importe"));
    if (resultado == 0 && !m.negativa)
        return fallo(MsgCeroSinNegativa, QStringLiteral("Negativa"));
    if (resultado == 0 && (m.efectivo || m.adeudo))
        return fallo(MsgCeroConPago, QStringLiteral("Efectivo"));
    if (resultado != 0 && m.negativa)
        return fallo(MsgNoCeroConNegativa, QStringLiteral("Negativa"));
    if (resultado > 0 && !m.efectivo && !m.adeudo)
        return fallo(MsgPositivoSinPago, QStringLiteral("Efectivo"));
    if (resultado < 0 &&
        ((!m.negativa && !m.aDeducir) || (m.aDeducir && periodo == QLatin1String("4T"))))
        return fallo(MsgNegativoSinMarca, QStringLiteral("ADeducir"));
    return ComprobarPago(m.efectivo, m.adeudo, m.cuentaCargo, m.importe);
}

QByteArray Fichero130(const Modelo130& m) {
    RegistroHacienda r;
    r.Texto(QStringLiteral("130")).Texto(QStringLiteral("01")).Blancos(1);
    r.Texto(m.aDeducir   ? QStringLiteral("B")
            : m.negativa ? QStringLiteral("N")
                         : QStringLiteral(" "));
    r.Texto(QStringLiteral("00000")).Campo(m.nif, 9).Blancos(4);
    r.Campo(m.apellidos, 30).Campo(m.nombre, 15).Campo(m.ejercicio, 4).Campo(m.periodo, 2);
    for (int n = 1; n <= 19; ++n)
        r.Importe(m[n], 11);
    r.Importe(m.importe, 11);
    r.Texto(m.efectivo ? QStringLiteral("1")
            : m.adeudo ? QStringLiteral("2")
                       : QStringLiteral("0"));
    r.Campo(m.cuentaCargo.Texto(), 20);
    // The mark of the deduction in later instalments, not that of the complementary return.
    r.Texto(m.aDeducir ? QStringLiteral("X") : QStringLiteral(" "));
    r.Blancos(16).Campo(m.justificante, 13).Blancos(100).Blancos(9).Blancos(350);
    r.Campo(m.firma.lugar.toUpper(), 16).Campo(m.firma.dia, 2).Campo(m.firma.mes, 10);
    r.Campo(m.firma.ano, 4).FinLinea();
    return r.Bytes();
}

std::optional<FalloModelo> Presentar130(const Sesion& s, Modelo130& m, Dialogo& d,
                                        const ElegirCarpeta& elegir, ResultadoEntrega* resultado) {
    if (auto f = Comprobar130(m)) {
        d.Informar(f->mensaje);
        return f;
    }
    EntregaHacienda e;
    e.modelo = QStringLiteral("130");
    e.nif = m.nif;
    // The authority's module prints the official form of the 130 itself.
    e.copiaTrasValidador = false;
    const ResultadoEntrega r = EntregarFichero(s, e, Fichero130(m), d, elegir);
    if (resultado)
        *resultado = r;
    return std::nullopt;
}

void DibujarBorrador130(Impresora& imp, const Modelo130& m, const QString& fuente, double tamano) {
    BorradorModelo b(imp, fuente, tamano, {imp.AnchoPagina() - BorradorModelo::Derecha});
    auto fila = [&](int n, const QString& etiqueta, bool negrita = false) {
        b.Fila(etiqueta, {TextoCasilla(m[n])}, negrita);
    };
    b.Titulo(QStringLiteral("Modelo 130"));
    b.Texto(QStringLiteral("Ejercicio: ") + m.ejercicio + QStringLiteral("  Periodo: ") +
            m.periodo);
    b.Seccion(QStringLiteral("I. Actividades económicas en estimación directa, modalidad normal "
                             "o simplificada"));
    fila(1, QStringLiteral("Ingresos computables"));
    fila(2, QStringLiteral("Gastos fiscalmente deducibles"));
    fila(3, QStringLiteral("Rendimiento neto del conjunto de actividades realizadas"));
    fila(4, QStringLiteral("20 por 100 del importe de la casilla 03"));
    fila(5, QStringLiteral("A deducir: de trimestres anteriores suma 07 menos suma 16"));
    fila(6, QStringLiteral("Retenciones e ingresos a cuenta del periodo"));
    fila(7, QStringLiteral("Pago fraccionado previo"), true);
    b.Seccion(QStringLiteral("II. Actividades agrícolas, ganaderas, forestales o pesqueras"));
    fila(8, QStringLiteral("Volumen de ingresos del trimestre"));
    fila(9, QStringLiteral("2 por 100 de la casilla 08"));
    fila(10, QStringLiteral("Retenciones e ingresos a cuenta del trimestre"));
    fila(11, QStringLiteral("Pago fraccionado previo"), true);
    b.Seccion(QStringLiteral("III. Tota liquidación"));
    fila(12, QStringLiteral("Suma de los pagos fraccionados"));
    fila(13, QStringLiteral("A deducir: minoración artº 80-bis Ley del Impuesto"));
    fila(14, QStringLiteral("Diferencia"));
    fila(15, QStringLiteral("A deducir: resultado negativo de trimestres anteriores"));
    fila(16, QStringLiteral("A deducir: por adquisición de vivienda habitual"));
    fila(17, QStringLiteral("Total"), true);
    fila(18, QStringLiteral("A deducir (en caso de declaración complementaria)"));
    fila(19, QStringLiteral("Resultado de la declaración"), true);
    b.Terminar();
}

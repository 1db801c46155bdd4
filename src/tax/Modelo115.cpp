#include "tax/Modelo115.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Impresora.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "tax/BorradorModelo.h"

#include <algorithm>

namespace {

const QString MsgAdministracion =
    QStringLiteral("El código de la Administración debe consignarse con 5 cifras.");
const QString MsgPeriodo =
    QStringLiteral("El periodo debe ser '1T', '2T', '3T' o '4T', si es trimestral o '01', "
                   "'02' ... '12', si es mensual.");
const QString MsgSinFormaPago = QStringLiteral(
    "Si el resultado  es distinto de cero debe marcar con una 'X' la forma de pago.");

bool PeriodoValido(const QString& p) {
    static const QStringList Validos{
        QStringLiteral("01"), QStringLiteral("02"), QStringLiteral("03"), QStringLiteral("04"),
        QStringLiteral("05"), QStringLiteral("06"), QStringLiteral("07"), QStringLiteral("08"),
        QStringLiteral("09"), QStringLiteral("10"), QStringLiteral("11"), QStringLiteral("12"),
        QStringLiteral("1T"), QStringLiteral("2T"), QStringLiteral("3T"), QStringLiteral("4T")};
    return Validos.contains(p);
}

} // namespace

std::optional<QString> ComprobarPeriodo115(const QDate& desde, const QDate& hasta) {
    if (desde > hasta)
        return MsgPeriodoInvertido;
    if (desde.year() != hasta.year())
        return MsgFechasOtroAno;
    return std::nullopt;
}

Modelo115 Nuevo115(Conexion& c, const QDate& desde, const QDate& hasta, const QDate& hoy) {
    Modelo115 m;
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

void Llenar115(Conexion& c, Modelo115& m) {
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT SUM(Base) AS TotalBase, SUM(Retencion) AS TotalRetencion "
                       "FROM DatosIVA WHERE L347 = 0 AND TipOp = 'A' AND Fecha BETWEEN ? AND ?"),
        {FechaISO(m.desde), FechaISO(m.hasta)});
    if (q.next()) {
        if (!q.value(0).isNull())
            m[2] = Importe(q.value(0).toDouble());
        if (!q.value(1).isNull())
            m[3] = Importe(q.value(1).toDouble());
    }
    Recalcular115(m);
}

void Recalcular115(Modelo115& m) {
    m[5] = Importe(std::max(0.0, Valor(m[3]) - Valor(m[4])));
    m.importe = m[5];
}

std::optional<FalloModelo> Comprobar115(const Modelo115& m) {
    auto fallo = [](const QString& mensaje, const QString& campo) {
        return std::optional<FalloModelo>(FalloModelo{mensaje, campo});
    };
    if (!AnoConModelo(m.anoFechas))
        return fallo(MsgModeloNoIncorporado(m.anoFechas), QStringLiteral("Ejercicio"));
    if (m.administracion.trimmed().size() < 5)
        return fallo(MsgAdministracion, QStringLiteral("Administracion"));
    if (m.ejercicio.trimmed() != QString::number(m.anoFechas))
        return fallo(MsgEjercicioDebeSer(m.anoFechas), QStringLiteral("Ejercicio"));
    if (!PeriodoValido(m.periodo.trimmed().toUpper()))
        return fallo(MsgPeriodo, QStringLiteral("Periodo"));
    if (m.nif.trimmed().isEmpty())
        return fallo(MsgDebeNif, QStringLiteral("NIF"));
    if (m.apellidos.trimmed().isEmpty())
        return fallo(MsgDebeApellidos, QStringLiteral("Apellidos"));
    if (m.nif.trimmed().at(0).isDigit() && m.nombre.trimmed().isEmpty())
        return fallo(MsgDebeNombre, QStringLiteral("Nombre"));
    const double resultado = Valor(m[5]);
    if (resultado > 0 && !(m.importe && Centimos(*m.importe) == Centimos(resultado)))
        return fallo(MsgPositivoAIngresar, QStringLiteral("Importe"));
    if (resultado != 0 && !m.efectivo && !m.adeudo)
        return fallo(MsgSinFormaPago, QStringLiteral("Efectivo"));
    return ComprobarPago(m.efectivo, m.adeudo, m.cuentaCargo, m.importe);
}

QByteArray Fichero115(const Modelo115& m) {
    RegistroHacienda r;
    r.Texto(QStringLiteral("115")).Texto(QStringLiteral("01")).Blancos(1);
    // A result of 0 has nothing to pay: it is a negative return.
    r.Texto(m.importe && *m.importe != 0 ? QStringLiteral("I") : QStringLiteral("N"));
    r.Campo(m.administracion, 5).Campo(m.nif, 9).Blancos(4);
    r.Campo(m.apellidos, 30).Campo(m.nombre, 15);
    r.Campo(m.siglas, 2).Campo(m.via, 17).Campo(m.numero, 4).Campo(m.escalera, 2);
    r.Campo(m.piso, 2).Campo(m.puerta, 2).Campo(m.telefono, 9).Campo(m.municipio, 20);
    r.Campo(m.provincia, 15).Campo(m.cpostal, 5);
    r.Campo(m.ejercicio, 4).Campo(m.periodo, 2);
    r.Texto(m.perceptores.trimmed().right(6).rightJustified(6, u'0'));
    for (int n = 2; n <= 5; ++n)
        r.Importe(m[n], 11);
    r.Blancos(16).Campo(m.justificante, 13).Blancos(100).Blancos(9).Blancos(350);
    r.Campo(m.efectivo ? QStringLiteral("X") : QString(), 1);
    r.Campo(m.adeudo ? QStringLiteral("X") : QString(), 1);
    r.Importe(m.importe, 11).Campo(m.cuentaCargo.Texto(), 20);
    r.Campo(m.firma.dia, 2).Campo(m.firma.mes, 10).Campo(m.firma.ano, 4).FinLinea();
    return r.Bytes();
}

std::optional<FalloModelo> Presentar115(const Sesion& s, Modelo115& m, Dialogo& d,
                                        const ElegirCarpeta& elegir, ResultadoEntrega* resultado) {
    if (auto f = Comprobar115(m)) {
        d.Informar(f->mensaje);
        return f;
    }
    EntregaHacienda e;
    e.modelo = QStringLiteral("115");
    e.nif = m.nif;
    const ResultadoEntrega r = EntregarFichero(s, e, Fichero115(m), d, elegir);
    if (resultado)
        *resultado = r;
    return std::nullopt;
}

void DibujarBorrador115(Impresora& imp, const Modelo115& m, const QString& fuente, double tamano) {
    BorradorModelo b(imp, fuente, tamano, {imp.AnchoPagina() - BorradorModelo::Derecha});
    b.Titulo(QStringLiteral("Modelo 115"));
    b.Texto(QStringLiteral("Periodo: %1 a %2")
                .arg(FormatoFecha(m.desde, QStringLiteral("short date")),
                     FormatoFecha(m.hasta, QStringLiteral("short date"))));
    b.Seccion(QStringLiteral("Retenciones de capital inmobiliario"));
    b.Fila(QStringLiteral("Nº de perceptores"), {m.perceptores.trimmed()});
    b.Fila(QStringLiteral("Base de las retenciones e ingresos a cuenta"), {TextoCasilla(m[2])});
    b.Fila(QStringLiteral("Retenciones e ingresos a cuenta"), {TextoCasilla(m[3])});
    b.Fila(QStringLiteral("A deducir (en caso de declaración complementaria)"),
           {TextoCasilla(m[4])});
    b.Fila(QStringLiteral("Resultado a ingresar"), {TextoCasilla(m[5])}, true);
    b.Terminar();
}

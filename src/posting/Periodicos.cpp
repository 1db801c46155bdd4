#include "posting/Periodicos.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString MsgHacerPeriodico =
    QStringLiteral("Está seguro de que desea hacer este asiento periódico, para que "
                   "automáticamente se contabilice en la fecha correspondiente?");
const QString MsgNombrePeriodico =
    QStringLiteral("Por favor un nombre descriptivo para el asiento periódico que se va a crear "
                   "(máx 30 caracteres)");
const QString MsgNombreRepetido =
    QStringLiteral("Ya existe un Asiento periódico con ese nombre. Por favor ponga otro.");
const QString MsgEliminarPeriodico =
    QStringLiteral("Está seguro de que desea eliminar el asiento periódico ");
const QString MsgNoSePudoEliminar = QStringLiteral("No se pudo eliminar el asiento.");

const QList<RitmoPeriodico>& Ritmos() {
    static const QList<RitmoPeriodico> ritmos{
        {QStringLiteral("Diaria"), 365},   {QStringLiteral("Semanal"), 52},
        {QStringLiteral("Quincenal"), 26}, {QStringLiteral("Mensual"), 12},
        {QStringLiteral("Bimensual"), 6},  {QStringLiteral("Trimestral"), 4},
        {QStringLiteral("Semestral"), 2},  {QStringLiteral("Anual"), 1}};
    return ritmos;
}

QString NombreRitmo(qint16 periodicidad) {
    for (const RitmoPeriodico& r : Ritmos())
        if (r.periodicidad == periodicidad)
            return r.nombre;
    return {};
}

std::optional<qint16> PeriodicidadDeNombre(const QString& nombre) {
    for (const RitmoPeriodico& r : Ritmos())
        if (r.nombre.compare(nombre.trimmed(), Qt::CaseInsensitive) == 0)
            return r.periodicidad;
    return std::nullopt;
}

QDate PasoPeriodicidad(const QDate& fecha, qint16 periodicidad) {
    switch (periodicidad) {
    case 365:
        return fecha.addDays(1);
    case 52:
        return fecha.addDays(7);
    case 26:
        return fecha.addDays(14);
    case 12:
        return fecha.addMonths(1);
    case 6:
        return fecha.addMonths(2);
    case 4:
        return fecha.addMonths(3);
    case 2:
        return fecha.addMonths(6);
    case 1:
        return fecha.addYears(1);
    default:
        return fecha;
    }
}

QDate AvanzarFechaProx(const QDate& fechaIni, const QDate& fechaProx, qint16 periodicidad) {
    QDate f = PasoPeriodicidad(fechaProx, periodicidad);
    const bool meses = periodicidad == 12 || periodicidad == 6 || periodicidad == 4 ||
                       periodicidad == 2 || periodicidad == 1;
    if (meses && fechaIni.isValid()) {
        // A short month cut the day: it comes back as far as this month has days.
        const int falta = fechaIni.day() - f.day();
        for (int i = 0; i < falta; ++i) {
            const QDate siguiente = f.addDays(1);
            if (siguiente.month() != f.month())
                break;
            f = siguiente;
        }
    }
    return f;
}

bool VencePeriodico(const AsientoPeriodico& a, const QDate& hoy, const QDate& finEjercicio) {
    const QString formato = QStringLiteral("yyyy/MM/dd");
    const QString prox = FormatoFecha(a.FechaProx, formato);
    if (prox.isEmpty())
        return false;
    return prox <= FormatoFecha(hoy, formato) && prox <= FormatoFecha(finEjercicio, formato);
}

namespace {

const QString Columnas = QStringLiteral("Nombre, Periodicidad, FechaIni, FechaProx, Sector, "
                                        "Concepto, NCuenta, Debe, Haber, Documento");

// Groups consecutive rows of one name into entries.
QList<AsientoPeriodico> leer(Conexion& c, const QString& sql, const QVariantList& valores) {
    QList<AsientoPeriodico> r;
    QSqlQuery q = c.ejecutar(sql, valores);
    while (q.next()) {
        const QString nombre = q.value(0).toString().trimmed();
        if (r.isEmpty() || r.last().Nombre.compare(nombre, Qt::CaseInsensitive) != 0) {
            AsientoPeriodico a;
            a.Nombre = nombre;
            a.Periodicidad = static_cast<qint16>(q.value(1).toInt());
            a.FechaIni = DeISO(q.value(2).toString());
            a.FechaProx = DeISO(q.value(3).toString());
            a.Sector = q.value(4).toString().trimmed();
            r << a;
        }
        LineaPeriodico l;
        l.Concepto = q.value(5).toString().trimmed();
        l.NCuenta = q.value(6).toString().trimmed();
        l.Debe = q.value(7).toDouble();
        l.Haber = q.value(8).toDouble();
        l.Documento = q.value(9).toString().trimmed();
        r.last().Lineas << l;
    }
    return r;
}

void insertar(Conexion& c, const AsientoPeriodico& a) {
    // Written in the order the line editor has always saved them.
    for (const LineaPeriodico& l : a.Lineas)
        c.ejecutar(QStringLiteral("INSERT INTO Periodicos (Periodicidad, FechaIni, FechaProx, "
                                  "Nombre, Sector, Concepto, NCuenta, Debe, Haber, Documento) "
                                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                   {static_cast<int>(a.Periodicidad), FechaISO(a.FechaIni), FechaISO(a.FechaProx),
                    a.Nombre.trimmed(), a.Sector.trimmed(), l.Concepto.trimmed(),
                    l.NCuenta.trimmed(), Centimos(l.Debe), Centimos(l.Haber),
                    l.Documento.trimmed()});
}

bool nombreOcupado(Conexion& c, const QString& nombre, const QString& salvo = {}) {
    const QString buscado = nombre.trimmed();
    for (const QString& n : NombresPeriodicos(c))
        if (n.compare(buscado, Qt::CaseInsensitive) == 0 &&
            (salvo.isEmpty() || n.compare(salvo.trimmed(), Qt::CaseInsensitive) != 0))
            return true;
    return false;
}

} // namespace

QStringList NombresPeriodicos(Conexion& bavar) {
    QStringList r;
    QSqlQuery q = bavar.ejecutar(QStringLiteral("SELECT Nombre FROM Periodicos GROUP BY Nombre"));
    while (q.next())
        r << q.value(0).toString().trimmed();
    return r;
}

QList<AsientoPeriodico> LeerPeriodicos(Conexion& bavar) {
    return leer(bavar,
                QStringLiteral("SELECT %1 FROM Periodicos ORDER BY Nombre, rowid").arg(Columnas),
                {});
}

std::optional<AsientoPeriodico> LeerPeriodico(Conexion& bavar, const QString& nombre) {
    const QList<AsientoPeriodico> r = leer(
        bavar,
        QStringLiteral("SELECT %1 FROM Periodicos WHERE Nombre = ? ORDER BY rowid").arg(Columnas),
        {nombre.trimmed()});
    if (r.isEmpty())
        return std::nullopt;
    return r.first();
}

bool ExistePeriodico(Conexion& bavar, const QString& nombre) {
    return nombreOcupado(bavar, nombre);
}

void GuardarPeriodico(Conexion& bavar, const AsientoPeriodico& a) {
    Transaccion t(bavar);
    // Asked again under the write lock: another user may have taken the name meanwhile.
    if (nombreOcupado(bavar, a.Nombre))
        throw Rechazo(MsgNombreRepetido);
    insertar(bavar, a);
    t.confirmar();
}

bool ReescribirPeriodico(Conexion& bavar, const QString& nombreAnterior,
                         const AsientoPeriodico& a) {
    Transaccion t(bavar);
    if (nombreOcupado(bavar, a.Nombre, nombreAnterior))
        throw Rechazo(MsgNombreRepetido);
    const int borradas = bavar
                             .ejecutar(QStringLiteral("DELETE FROM Periodicos WHERE Nombre = ?"),
                                       {nombreAnterior.trimmed()})
                             .numRowsAffected();
    if (borradas <= 0)
        return false;
    insertar(bavar, a);
    t.confirmar();
    return true;
}

bool EliminarPeriodico(Conexion& bavar, const QString& nombre) {
    Transaccion t(bavar);
    const int borradas =
        bavar
            .ejecutar(QStringLiteral("DELETE FROM Periodicos WHERE Nombre = ?"), {nombre.trimmed()})
            .numRowsAffected();
    t.confirmar();
    return borradas > 0;
}

std::optional<QDate> MoverFechaProx(Conexion& bavar, const QString& nombre, const QDate& desde) {
    Transaccion t(bavar);
    QSqlQuery q = bavar.ejecutar(
        QStringLiteral("SELECT FechaIni, Periodicidad FROM Periodicos WHERE Nombre = ? AND "
                       "FechaProx = ? ORDER BY rowid"),
        {nombre.trimmed(), FechaISO(desde)});
    if (!q.next())
        return std::nullopt;
    const QDate fechaIni = DeISO(q.value(0).toString());
    const auto periodicidad = static_cast<qint16>(q.value(1).toInt());
    q.finish();
    const QDate nueva = AvanzarFechaProx(fechaIni, desde, periodicidad);
    if (nueva == desde)
        return std::nullopt;
    bavar.ejecutar(
        QStringLiteral("UPDATE Periodicos SET FechaProx = ? WHERE Nombre = ? AND FechaProx = ?"),
        {FechaISO(nueva), nombre.trimmed(), FechaISO(desde)});
    t.confirmar();
    return nueva;
}

QDate ProximaPorDefecto(const QDate& fecha) {
    return fecha.addMonths(1);
}

bool HacerPeriodico(const Sesion& s, Dialogo& d, PantallaPeriodicidad& pantalla,
                    const QString& origen, const QDate& fecha, const QString& sector,
                    const QList<LineaPeriodico>& lineas) {
    if (lineas.isEmpty() || (lineas.first().Debe == 0 && lineas.first().Haber == 0))
        return false;
    if (!d.Preguntar(MsgHacerPeriodico))
        return false;
    QString nombre;
    for (;;) {
        const QString respuesta = d.PedirTexto(MsgNombrePeriodico, QString());
        if (respuesta.trimmed().isEmpty())
            return false;
        try {
            nombre = TextoCampo(Campo::NombrePeriodico, respuesta);
        } catch (const Rechazo& e) {
            d.Informar(e.mensaje());
            continue;
        }
        Conexion c = AbrirBavar(s);
        if (!ExistePeriodico(c, nombre))
            break;
        d.Informar(MsgNombreRepetido);
    }
    const EleccionPeriodicidad e = pantalla.Elegir(origen, fecha);
    if (!e.FechaProx.isValid() || DiaSerie(e.FechaProx) == DiaSerie(FechaSinEleccion) ||
        NombreRitmo(e.Periodicidad).isEmpty())
        return false;

    AsientoPeriodico a;
    a.Nombre = nombre;
    a.Periodicidad = e.Periodicidad;
    a.FechaIni = fecha;
    a.FechaProx = e.FechaProx;
    a.Sector = sector.trimmed();
    a.Lineas = lineas;
    Conexion c = AbrirBavar(s);
    GuardarPeriodico(c, a);
    return true;
}

std::optional<QList<LineaPeriodico>> LineasDeAsiento(const Sesion& s, long nas, QDate& fecha,
                                                     QString& sector) {
    Conexion c = AbrirDatos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Concepto, Debe, Haber, Documento, "
                                            "Sector, Fecha FROM Diario WHERE NAs = ? ORDER BY NAp"),
                             {static_cast<qlonglong>(nas)});
    QList<LineaPeriodico> r;
    while (q.next()) {
        if (r.isEmpty()) {
            sector = q.value(5).toString().trimmed();
            fecha = DeISO(q.value(6).toString());
        }
        LineaPeriodico l;
        l.NCuenta = q.value(0).toString().trimmed();
        l.Concepto = q.value(1).toString().trimmed();
        l.Debe = q.value(2).toDouble();
        l.Haber = q.value(3).toDouble();
        l.Documento = q.value(4).toString().trimmed();
        r << l;
    }
    if (r.isEmpty())
        return std::nullopt;
    return r;
}

bool EliminarPeriodicoPreguntando(const Sesion& s, Dialogo& d, const QString& nombre) {
    if (!d.Preguntar(MsgEliminarPeriodico + nombre.trimmed() + QLatin1Char('?')))
        return false;
    bool hecho = false;
    try {
        Conexion c = AbrirBavar(s);
        hecho = EliminarPeriodico(c, nombre);
    } catch (const ErrorQuilmar&) {
        hecho = false;
    }
    if (!hecho)
        d.Informar(MsgNoSePudoEliminar);
    return hecho;
}

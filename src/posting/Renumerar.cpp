#include "posting/Renumerar.h"

#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <optional>

namespace {

const QString Finalizado = QStringLiteral("Proceso finalizado.");

// Lines rewritten per step between two reports of progress.
constexpr qint64 Tramo = 25000;

QString numero(double n) {
    return Formato(n, QStringLiteral("#,##0"));
}

float maximo(Conexion& c) {
    const QVariant m = c.escalar(QStringLiteral("SELECT MAX(NAs) AS MaxNasi FROM Diario"));
    return m.isNull() ? 0.0f : static_cast<float>(m.toDouble());
}

// A whole number typed in a field of digits: only what is not one is refused, so an entry can be
// moved to number 0.
std::optional<long> entero(const QString& texto) {
    const QString t = texto.trimmed();
    bool ok = !t.isEmpty();
    for (const QChar c : t)
        ok = ok && c.isDigit();
    const long n = ok ? t.toLong(&ok) : 0;
    if (!ok)
        return std::nullopt;
    return n;
}

} // namespace

long RenumerarDiario(Conexion& c, Sesion& s, const Progreso& progreso) {
    Transaccion t(c);
    // The walk by date and old number, done on the groups of lines that share both: a group
    // whose old number differs from the group before opens the next number (the walk starts
    // with an old number of 0), so lines of one entry stay together unless another entry's
    // lines come between them.
    c.ejecutar(QStringLiteral("DROP TABLE IF EXISTS temp.RenumeracionGrupos"));
    c.ejecutar(QStringLiteral("DROP TABLE IF EXISTS temp.Renumeracion"));
    c.ejecutar(QStringLiteral(
        "CREATE TEMP TABLE RenumeracionGrupos (Fecha TEXT NOT NULL, Viejo INTEGER NOT NULL, "
        "Nuevo INTEGER NOT NULL, PRIMARY KEY (Fecha, Viejo)) WITHOUT ROWID"));
    c.ejecutar(QStringLiteral(
        "INSERT INTO temp.RenumeracionGrupos (Fecha, Viejo, Nuevo) "
        "SELECT Fecha, NAs, SUM(Cambio) OVER (ORDER BY Fecha, NAs ROWS UNBOUNDED PRECEDING) "
        "FROM (SELECT Fecha, NAs, "
        "  CASE WHEN NAs <> COALESCE(LAG(NAs) OVER (ORDER BY Fecha, NAs), 0) THEN 1 ELSE 0 END "
        "  AS Cambio FROM (SELECT Fecha, NAs FROM Diario GROUP BY Fecha, NAs) AS g) AS c"));
    const long n = static_cast<long>(
        c.escalar(QStringLiteral("SELECT COALESCE(MAX(Nuevo), 0) FROM temp.RenumeracionGrupos"))
            .toLongLong());
    // The lines whose number changes, by rowid.
    c.ejecutar(QStringLiteral(
        "CREATE TEMP TABLE Renumeracion (Fila INTEGER PRIMARY KEY, NAs INTEGER NOT NULL)"));
    c.ejecutar(QStringLiteral(
        "INSERT INTO temp.Renumeracion (Fila, NAs) SELECT d.rowid, g.Nuevo FROM Diario d "
        "JOIN temp.RenumeracionGrupos g ON g.Fecha = d.Fecha AND g.Viejo = d.NAs "
        "WHERE d.NAs <> g.Nuevo"));
    QSqlQuery q = c.ejecutar(QStringLiteral(
        "SELECT COALESCE(MIN(Fila), 0), COALESCE(MAX(Fila), -1) FROM temp.Renumeracion"));
    q.next();
    const qint64 primera = q.value(0).toLongLong(), ultima = q.value(1).toLongLong();
    q.finish();
    const qint64 total = ultima - primera + 1;
    // Written in stretches of rowids, so that the screen can show how far it got.
    const QString sql =
        QStringLiteral("UPDATE Diario SET NAs = r.NAs FROM temp.Renumeracion AS r "
                       "WHERE r.Fila = Diario.rowid AND r.Fila >= ? AND r.Fila < ?");
    for (qint64 desde = primera; desde <= ultima; desde += Tramo) {
        c.ejecutar(sql, {desde, desde + Tramo});
        if (progreso)
            progreso(std::min(desde + Tramo, ultima + 1) - primera, total);
    }
    c.ejecutar(QStringLiteral("DROP TABLE temp.Renumeracion"));
    c.ejecutar(QStringLiteral("DROP TABLE temp.RenumeracionGrupos"));
    t.confirmar();
    s.UltimoAsiento = static_cast<float>(n);
    return n;
}

ResultadoRenumerar RenumerarDiarioCompleto(Sesion& s, Dialogo& d, const Progreso& progreso) {
    ResultadoRenumerar r;
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return r;
    RenumerarDiario(c, s, progreso);
    d.Informar(Finalizado);
    r.hecho = true;
    return r;
}

ResultadoRenumerar RenumerarUnAsiento(Sesion& s, Dialogo& d, const QString& asiento,
                                      const QString& pasaA) {
    ResultadoRenumerar r;
    const std::optional<long> de = entero(asiento), a = entero(pasaA);
    if (!de || !a) {
        d.Informar(QStringLiteral("El número de asiento introducido no es válido."));
        r.foco = !de ? CampoRenumerar::Asiento : CampoRenumerar::PasaA;
        return r;
    }
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return r;
    QString aviso;
    {
        Transaccion t(c);
        // The highest number as the books have it now, which the session mirrors.
        s.UltimoAsiento = maximo(c);
        const qlonglong n = *de, m = *a;
        if (static_cast<float>(n) > s.UltimoAsiento) {
            aviso = QStringLiteral("El número de Asiento más alto que hay es el ") +
                    numero(s.UltimoAsiento) + QLatin1Char('.');
            r.foco = CampoRenumerar::Asiento;
        } else if (!c.existe(QStringLiteral("SELECT 1 FROM Diario WHERE NAs = ?"), {n})) {
            aviso =
                QStringLiteral("No se encontró el asiento '") + numero(n) + QStringLiteral("'.");
            r.foco = CampoRenumerar::Asiento;
        } else if (c.existe(QStringLiteral("SELECT 1 FROM Diario WHERE NAs = ?"), {m})) {
            aviso = QStringLiteral(
                        "No se puede hacer el cambio porque ya existe el número de asiento '") +
                    numero(m) + QStringLiteral("'.");
            r.foco = CampoRenumerar::PasaA;
        } else {
            c.ejecutar(QStringLiteral("UPDATE Diario SET NAs = ? WHERE NAs = ?"), {m, n});
            const float ultimo = maximo(c);
            t.confirmar();
            s.UltimoAsiento = ultimo;
        }
    }
    if (!aviso.isEmpty()) {
        d.Informar(aviso);
        return r;
    }
    d.Informar(Finalizado);
    r.hecho = true;
    return r;
}

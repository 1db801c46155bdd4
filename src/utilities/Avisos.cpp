#include "utilities/Avisos.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <QSqlQuery>
#include <cmath>

namespace {

const QString Columnas = QStringLiteral("NAviso, Fecha, Texto, Periodo");

QList<Aviso> leer(Conexion& c, const QString& orden) {
    QList<Aviso> r;
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT %1 FROM Avisos ORDER BY %2").arg(Columnas, orden));
    while (q.next()) {
        Aviso a;
        a.NAviso = q.value(0).toLongLong();
        a.Fecha = DeISO(q.value(1).toString());
        a.Texto = q.value(2).toString();
        a.Periodo = q.value(3).toInt();
        r << a;
    }
    return r;
}

QString corta(const QDate& f) {
    return FormatoFecha(f, QStringLiteral("short date"));
}

const QString Valores = QStringLiteral("Valores");

} // namespace

QList<Aviso> LeerAvisos(Conexion& bavis) {
    return leer(bavis, QStringLiteral("Fecha, rowid"));
}

QList<Aviso> LeerAvisosEnOrden(Conexion& bavis) {
    return leer(bavis, QStringLiteral("rowid"));
}

std::optional<Aviso> LeerAviso(Conexion& bavis, long naviso) {
    QSqlQuery q = bavis.ejecutar(
        QStringLiteral("SELECT %1 FROM Avisos WHERE NAviso = ?").arg(Columnas), {qint64(naviso)});
    if (!q.next())
        return std::nullopt;
    Aviso a;
    a.NAviso = q.value(0).toLongLong();
    a.Fecha = DeISO(q.value(1).toString());
    a.Texto = q.value(2).toString();
    a.Periodo = q.value(3).toInt();
    return a;
}

std::optional<int> LeerPeriodo(const QString& texto) {
    bool ok = false;
    const int n = texto.trimmed().toInt(&ok);
    if (!ok || n < 1 || n > 12)
        return std::nullopt;
    return n;
}

long GuardarAviso(const Sesion& s, Dialogo& d, const DatosAviso& datos, bool anadir, long modificar,
                  const QDate& hoy) {
    if (!datos.Fecha.isValid() || datos.Texto.trimmed().isEmpty()) {
        d.Informar(MsgAvisoIncompleto);
        return 0;
    }
    if (datos.Fecha < hoy) {
        d.Informar(MsgAvisoPasado);
        return 0;
    }
    int periodo = 0;
    if (datos.Periodico) {
        const std::optional<int> p = LeerPeriodo(datos.Periodo);
        if (!p) {
            d.Informar(MsgPeriodicidad);
            return 0;
        }
        periodo = *p;
    }
    const QString texto = TextoCampo(Campo::TextoAviso, datos.Texto);
    if (!anadir && modificar <= 0) {
        d.Informar(MsgAvisoSinElegir);
        return 0;
    }
    Conexion c = AbrirAvisos(s);
    Transaccion t(c);
    long n = modificar;
    if (anadir) {
        n = c.escalar(QStringLiteral("SELECT COALESCE(MAX(NAviso), 0) + 1 FROM Avisos"))
                .toLongLong();
        c.ejecutar(QStringLiteral("INSERT INTO Avisos (NAviso, Fecha, Texto, Periodo) "
                                  "VALUES (?, ?, ?, ?)"),
                   {qint64(n), FechaISO(datos.Fecha), texto, periodo});
    } else {
        if (!c.existe(QStringLiteral("SELECT 1 FROM Avisos WHERE NAviso = ?"), {qint64(n)})) {
            d.Informar(MsgAvisoNoEncontrado);
            return 0;
        }
        c.ejecutar(
            QStringLiteral("UPDATE Avisos SET Fecha = ?, Texto = ?, Periodo = ? WHERE NAviso = ?"),
            {FechaISO(datos.Fecha), texto, periodo, qint64(n)});
    }
    t.confirmar();
    return n;
}

bool EliminarAvisoPreguntando(const Sesion& s, Dialogo& d, long naviso) {
    std::optional<Aviso> a;
    {
        Conexion c = AbrirAvisos(s);
        a = LeerAviso(c, naviso);
    }
    if (!a) {
        d.Informar(MsgAvisoNoEncontrado);
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Aviso de fecha %1 y "
                                    "texto %2 ?")
                         .arg(corta(a->Fecha), a->Texto)))
        return false;
    Conexion c = AbrirAvisos(s);
    c.ejecutar(QStringLiteral("DELETE FROM Avisos WHERE NAviso = ?"), {qint64(naviso)});
    return true;
}

int EliminarAvisosVencidos(const Sesion& s, const Ajustes& a, const QDate& hoy) {
    if (a.leer(Valores, QStringLiteral("ElimAuto")).trimmed().toUpper() != QLatin1String("SI"))
        return 0;
    Conexion c = AbrirAvisos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("DELETE FROM Avisos WHERE Fecha < ?"), {FechaISO(hoy)});
    return q.numRowsAffected();
}

bool GuardarOpcionesAvisos(Ajustes& a, Dialogo& d, const QString& diasAv, bool elimAuto) {
    bool ok = false;
    const int dias = diasAv.trimmed().toInt(&ok);
    if (!ok || dias < 0) {
        d.Informar(MsgDiasAvisoNoValido);
        return false;
    }
    if (dias > 30 && !d.Preguntar(QStringLiteral("Ha introducido como número de días de antelación "
                                                 "con que se producirá el Aviso %1 Es correcto?")
                                      .arg(dias)))
        return false;
    a.escribir(Valores, QStringLiteral("DiasAv"), dias);
    a.escribir(Valores, QStringLiteral("ElimAuto"),
               elimAuto ? QStringLiteral("SI") : QStringLiteral("NO"));
    return true;
}

int DiasAviso(const Ajustes& a) {
    const double v = a.leerNumero(Valores, QStringLiteral("DiasAv"), 7);
    return v >= 0 && v < 100000 ? static_cast<int>(v) : 7;
}

int MesesPorPaso(int periodo) {
    return periodo > 0 ? static_cast<int>(std::lround(12.0 / periodo)) : 0;
}

QDate SiguienteFecha(const QDate& fecha, int periodo) {
    // QDate::addMonths keeps the day, or takes the last day of a shorter month.
    return fecha.addMonths(MesesPorPaso(periodo));
}

bool AvisoDebido(const QDate& fecha, int diasAv, const QDate& hoy) {
    return fecha.addDays(-diasAv) <= hoy && hoy <= fecha;
}

namespace {

QList<Aviso> pasoArranque(const Sesion& s, const Ajustes& a, const QDate& hoy, bool escribir) {
    const int dias = DiasAviso(a);
    QList<Aviso> debidos;
    Conexion c = AbrirAvisos(s);
    std::optional<Transaccion> t;
    if (escribir)
        t.emplace(c);
    for (Aviso av : LeerAvisosEnOrden(c)) {
        if (av.Fecha.isValid() && av.Fecha < hoy && av.Periodo > 0) {
            av.Fecha = SiguienteFecha(av.Fecha, av.Periodo);
            if (escribir)
                c.ejecutar(QStringLiteral("UPDATE Avisos SET Fecha = ? WHERE NAviso = ?"),
                           {FechaISO(av.Fecha), qint64(av.NAviso)});
        }
        if (av.Fecha.isValid() && AvisoDebido(av.Fecha, dias, hoy))
            debidos << av;
    }
    if (t)
        t->confirmar();
    return debidos;
}

} // namespace

QList<Aviso> PasoAvisosArranque(const Sesion& s, const Ajustes& a, const QDate& hoy) {
    return pasoArranque(s, a, hoy, true);
}

QList<Aviso> AvisosPendientes(const Sesion& s, const Ajustes& a, const QDate& hoy) {
    return pasoArranque(s, a, hoy, false);
}

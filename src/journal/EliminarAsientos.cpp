#include "journal/EliminarAsientos.h"

#include "journal/EjercicioAbierto.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

namespace {

std::optional<long> entero(const QString& texto) {
    bool ok = false;
    const long n = texto.trimmed().toLong(&ok);
    return ok && n >= 0 ? std::optional<long>(n) : std::nullopt;
}

} // namespace

std::optional<EleccionEliminar> ValidarEliminar(Dialogo& d, bool varios, const QString& numero,
                                                const QString& desde, const QString& hasta) {
    if (!varios) {
        const std::optional<long> n = entero(numero);
        if (!n) {
            d.Informar(QStringLiteral("No ha introducido el nº de Asiento a eliminar."));
            return std::nullopt;
        }
        return EleccionEliminar{*n, 0};
    }
    const std::optional<long> n = entero(desde), m = entero(hasta);
    if (!n || !m) {
        d.Informar(QStringLiteral("Tiene que introducir los números de Asientos inicial y final "
                                  "que se van a eliminar."));
        return std::nullopt;
    }
    if (*n >= *m) {
        d.Informar(
            QStringLiteral("El nº del Asiento inicial tiene que ser inferior al del final."));
        return std::nullopt;
    }
    return EleccionEliminar{*n, *m};
}

int EliminarAsientos(Sesion& s, Dialogo& d, const EleccionEliminar& e, const Progreso& progreso) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return -1;
    const bool uno = e.hasta == 0;
    const QString pregunta =
        uno ? QStringLiteral("Está seguro de que desea eliminar el Asiento número %1?").arg(e.desde)
            : QStringLiteral("Está seguro de que desea eliminar desde el Asiento número %1 hasta "
                             "el Asiento número %2?")
                  .arg(e.desde)
                  .arg(e.hasta);
    if (!d.Preguntar(pregunta))
        return -1;

    // The session follows only once the whole deletion is confirmed.
    Sesion despues = s;
    int eliminados = 0;
    try {
        Transaccion t(c);
        QList<qlonglong> numeros;
        QSqlQuery q = c.ejecutar(
            QStringLiteral(
                "SELECT DISTINCT NAs FROM Diario WHERE NAs BETWEEN ? AND ? ORDER BY NAs"),
            {static_cast<qlonglong>(e.desde), static_cast<qlonglong>(uno ? e.desde : e.hasta)});
        while (q.next())
            numeros << q.value(0).toLongLong();
        q.finish();
        for (const qlonglong nas : numeros) {
            if (ElimAsiento(c, despues, static_cast<long>(nas)))
                ++eliminados;
            if (progreso)
                progreso(eliminados, numeros.size());
        }
        t.confirmar();
    } catch (const ErrorQuilmar& x) {
        d.Informar(x.mensaje());
        return -1;
    }
    if (uno && eliminados == 0) {
        d.Informar(QStringLiteral("No se pudo eliminar el Asiento."));
        return -1;
    }
    s.UltimoAsiento = despues.UltimoAsiento;
    return eliminados;
}

#include "chart/Aparcar.h"

#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Conexiones.h"
#include "store/ListasEmpresas.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QString TituloListadoAparcar = QStringLiteral("LISTADO DE CUENTAS");

namespace {

int anoDeDesde(const QVariant& desde) {
    if (desde.isNull() || !desde.isValid())
        return DeDiaSerie(0).date().year();
    bool numero = false;
    const double dias = desde.toString().trimmed().toDouble(&numero);
    if (numero)
        return DeDiaSerie(dias).date().year();
    const QDate fecha = DeISO(desde.toString().trimmed());
    return fecha.isValid() ? fecha.year() : DeDiaSerie(0).date().year();
}

struct Subcuenta {
    bool existe = false;
    QString Cuenta;
};

Subcuenta leer(Conexion& c, const QString& ncuenta) {
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                             {ncuenta.trimmed()});
    if (!q.next())
        return {};
    return {true, q.value(0).toString().trimmed()};
}

const QString MsgErrorCodigo = QStringLiteral("Error en código de Subcuenta.");

} // namespace

bool EstaAparcada(const QVariant& aparcada, const QVariant& desde, int anoActual) {
    return aparcada.toInt() != 0 && anoDeDesde(desde) <= anoActual;
}

bool EsUltimoEjercicio(const Sesion& s) {
    const QList<RegistroSelan> ejercicios = EjerciciosDe(s, s.EmpresaActual);
    return !ejercicios.isEmpty() && ejercicios.last().Ano.toInt() == s.AnoActual;
}

QList<FilaAparcar> ListaAparcar(Sesion& s, int area) {
    Conexion c = AbrirDatos(s);
    QList<FilaAparcar> r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta, Aparcada, Desde FROM Cuentas "
                                            "WHERE NCuenta LIKE ? ORDER BY Cuenta"),
                             {QString::number(area) + QLatin1Char('%')});
    while (q.next()) {
        FilaAparcar f;
        f.NCuenta = q.value(0).toString().trimmed();
        f.Cuenta = q.value(1).toString().trimmed();
        f.Aparcada = EstaAparcada(q.value(2), q.value(3), s.AnoActual);
        if (f.Aparcada && q.value(3).toLongLong() != 0)
            f.Desde = q.value(3).toString().trimmed();
        r << f;
    }
    return r;
}

bool Aparcar(Sesion& s, Dialogo& d, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return false;
    if (!EsUltimoEjercicio(s)) {
        d.Informar(QStringLiteral(
            "Aparcar una cuenta debe hacerse desde el último ejercicio de la empresa actual."));
        return false;
    }
    const Subcuenta sc = leer(c, ncuenta);
    if (!sc.existe) {
        d.Informar(MsgErrorCodigo);
        return false;
    }
    if (!d.Preguntar(
            QStringLiteral("Se va a aparcar la Cuenta ") + sc.Cuenta +
            QStringLiteral(", con lo que ya no le aparecerá en las imágenes para hacer los "
                           "asientos. La puede desaparcar cuando quiera.")))
        return false;
    Transaccion t(c);
    c.ejecutar(QStringLiteral("UPDATE Cuentas SET Aparcada = -1, Desde = ? WHERE NCuenta = ?"),
               {static_cast<int>(s.AnoActual), ncuenta.trimmed()});
    t.confirmar();
    return true;
}

bool Desaparcar(Sesion& s, Dialogo& d, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return false;
    const Subcuenta sc = leer(c, ncuenta);
    if (!sc.existe) {
        d.Informar(MsgErrorCodigo);
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Se va a desaparcar la Cuenta ") + sc.Cuenta +
                     QStringLiteral(", para poder seguir utilizándola.")))
        return false;
    Transaccion t(c);
    c.ejecutar(QStringLiteral("UPDATE Cuentas SET Aparcada = 0, Desde = 0 WHERE NCuenta = ?"),
               {ncuenta.trimmed()});
    t.confirmar();
    return true;
}

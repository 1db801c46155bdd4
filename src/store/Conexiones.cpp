#include "store/Conexiones.h"

#include "platform/Dialogo.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QFile>
#include <cmath>

ModoDiario ModoDiarioEmpresas(const Sesion& s) {
    return s.esPrincipal() ? ModoDiario::WAL : ModoDiario::Rollback;
}
Conexion AbrirServidor(const Sesion& s, const QString& esquema, TipoBase tipo, bool crear) {
    return Conexion(Servidor::DeUrl(s.UrlServidor), esquema, tipo, crear);
}
Conexion AbrirBaseEmpresa(const Sesion& s, const QString& ruta, TipoBase tipo) {
    if (s.enServidor())
        return AbrirServidor(s, EsquemaServidor(ruta), tipo);
    return Conexion(ruta, tipo, false, ModoDiarioEmpresas(s));
}
Conexion AbrirDatos(const Sesion& s) {
    return AbrirBaseEmpresa(s, s.rutaEjercicio(), TipoBase::Ejercicio);
}
Conexion AbrirBavar(const Sesion& s) {
    return AbrirBaseEmpresa(s, s.rutaBavar(), TipoBase::Bavar);
}
void AdjuntarBavar(Conexion& datos, const Sesion& s) {
    // The company file is checked as AbrirBavar checks it, so that a missing or foreign file is
    // told by its cause rather than by a failed statement later.
    { Conexion bavar = AbrirBavar(s); }
    if (datos.enServidor()) {
        datos.adjuntarEsquema(QStringLiteral("Bavar"), EsquemaServidor(s.rutaBavar()));
        return;
    }
    datos.ejecutar(QStringLiteral("ATTACH DATABASE ? AS Bavar"), {s.rutaBavar()});
}
Conexion AbrirAvisos(const Sesion& s) {
    if (s.enServidor())
        return AbrirServidor(s, EsquemaServidor(s.rutaBavis()), TipoBase::Bavis);
    return Conexion(s.rutaBavis(), TipoBase::Bavis);
}
Conexion AbrirVias(const Sesion& s) {
    return Conexion(s.rutaVias(), TipoBase::Vias);
}

bool ExisteEjercicio(const Sesion& s, int ano) {
    if (!s.enServidor())
        return QFile::exists(s.rutaEjercicio(ano));
    Conexion c = AbrirServidor(s, QStringLiteral("public"));
    return c.existe(QStringLiteral("SELECT 1 FROM pg_namespace WHERE nspname = ?"),
                    {EsquemaServidor(s.rutaEjercicio(ano))});
}

QString NombreCuenta(const Sesion& s, Dialogo& dialogo, const QString& ncuenta) {
    if (ncuenta.trimmed().isEmpty())
        return {};
    Conexion c = AbrirDatos(s);
    const QVariant v = c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"),
                                 {ncuenta.trimmed()});
    if (!v.isValid()) {
        dialogo.Informar(QStringLiteral("Error en la cuenta."));
        return {};
    }
    return v.toString().trimmed();
}

long MaxAsiento(Sesion& s) {
    if (s.esPrincipal())
        return std::lround(s.UltimoAsiento);
    Conexion c = AbrirDatos(s);
    const QVariant v = c.escalar(QStringLiteral("SELECT MAX(NAs) AS NN FROM Diario"));
    s.UltimoAsiento = v.isNull() ? 0.0f : static_cast<float>(v.toDouble());
    return std::lround(s.UltimoAsiento);
}

void CargarEjercicio(Sesion& s, Conexion& c) {
    const QVariant max = c.escalar(QStringLiteral("SELECT MAX(NAs) AS MaxNasi FROM Diario"));
    s.UltimoAsiento = max.isNull() ? 0.0f : static_cast<float>(max.toDouble());
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT FechaIni, EjCerrado, NAsReg, NAsFin FROM Empresa LIMIT 1"));
    if (!q.next())
        return;
    s.FechaIniEj = DeISO(q.value(0).toString());
    s.FechaFinEj = s.FechaIniEj.addYears(1).addDays(-1);
    s.EjCerrado = q.value(1).toInt() != 0;
    s.NAsReg = q.value(2).toLongLong();
    s.NAsFin = q.value(3).toLongLong();
}

void CargarEjercicio(Sesion& s) {
    Conexion c = AbrirDatos(s);
    CargarEjercicio(s, c);
}

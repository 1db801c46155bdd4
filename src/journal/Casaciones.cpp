#include "journal/Casaciones.h"

#include "platform/Almacen.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <QDateTime>
#include <algorithm>

namespace {

// The marks a group takes: a start 2 or 0, any other line 1 or 3.
int marcar(Conexion& c, double clave, bool cuadrado) {
    const int inicio = cuadrado ? EstadoCasacion::InicioCasado : EstadoCasacion::Inicio;
    const int otro = cuadrado ? EstadoCasacion::CasadoTotal : EstadoCasacion::Casado;
    // Typed, since the server cannot tell the type of a bare parameter inside a CASE.
    const QString nuevo = QStringLiteral(
        "CASE WHEN CasacionN IN (0, 2) THEN CAST(? AS INTEGER) ELSE CAST(? AS INTEGER) END");
    return c
        .ejecutar(QStringLiteral("UPDATE Diario SET CasacionN = ") + nuevo +
                      QStringLiteral(" WHERE CasacionH = ? AND CasacionH <> 0 AND CasacionN <> ") +
                      nuevo,
                  {inicio, otro, clave, inicio, otro})
        .numRowsAffected();
}

} // namespace

QString TextoClaveCasacion(double clave) {
    QString t = QString::number(RedondearClave(clave), 'f', 10);
    if (t.endsWith(QLatin1Char('0')))
        t.chop(1);
    return t;
}

double RedondearClave(double clave) {
    return Redondear(clave, 10);
}

double NuevaClaveCasacion(Conexion& c) {
    const double ahora = RedondearClave(DiaSerie(QDateTime::currentDateTime()));
    const QVariant m =
        c.escalar(QStringLiteral("SELECT MAX(CasacionH) FROM Diario WHERE CasacionH <> 0"));
    if (m.isNull() || !m.isValid())
        return ahora;
    // A tenth-decimal step above the highest key: rounding moves it by half a step at most.
    return std::max(ahora, RedondearClave(m.toDouble() + 1e-10));
}

double SumaGrupo(Conexion& c, double clave) {
    const QVariant s =
        c.escalar(QStringLiteral("SELECT SUM(Debe - Haber) FROM Diario WHERE CasacionH = ? AND "
                                 "CasacionH <> 0"),
                  {clave});
    return Centimos(s.toDouble()) + 0.0;
}

int GraduarGrupo(Conexion& c, double clave) {
    if (clave == 0)
        return 0;
    return marcar(c, clave, SumaGrupo(c, clave) == 0);
}

int GraduarGrupos(Conexion& c, const QList<double>& claves) {
    QList<double> distintas = claves;
    std::sort(distintas.begin(), distintas.end());
    distintas.erase(std::unique(distintas.begin(), distintas.end()), distintas.end());
    int cambiadas = 0;
    for (const double k : distintas)
        cambiadas += GraduarGrupo(c, k);
    return cambiadas;
}

int CompCasa(Conexion& c) {
    if (!c.existe(QStringLiteral("SELECT 1 FROM Diario WHERE CasacionH <> 0")))
        return 0;
    Transaccion t(c);
    QList<std::pair<double, bool>> grupos;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT CasacionH, SUM(Debe - Haber) FROM "
                                                "Diario WHERE CasacionH <> 0 GROUP BY CasacionH"));
        while (q.next())
            grupos.append({q.value(0).toDouble(), Centimos(q.value(1).toDouble()) == 0});
    }
    int cambiadas = 0;
    for (const auto& [clave, cuadrado] : grupos)
        cambiadas += marcar(c, clave, cuadrado);
    t.confirmar();
    return cambiadas;
}

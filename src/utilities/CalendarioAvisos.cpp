#include "utilities/CalendarioAvisos.h"

#include <QStringList>
#include <algorithm>

namespace {

int mesAbsoluto(const QDate& f) {
    return f.year() * 12 + f.month() - 1;
}

// The reminder's day of the month in the month of `dia`: the same day, or the month's last day
// when the month is shorter.
int diaEnMes(const QDate& fecha, const QDate& dia) {
    return std::min(fecha.day(), dia.daysInMonth());
}

} // namespace

bool MarcaDia(const Aviso& a, const QDate& dia, const QDate& hoy) {
    if (!a.Fecha.isValid() || !dia.isValid())
        return false;
    if (a.Fecha == dia && a.Fecha >= hoy)
        return true;
    if (a.Periodo <= 0 || dia.day() != diaEnMes(a.Fecha, dia))
        return false;
    const int meses = mesAbsoluto(dia) - mesAbsoluto(a.Fecha);
    // meses / (12 / Periodo) is whole when meses * Periodo is a multiple of 12.
    return meses >= 0 && (meses * a.Periodo) % 12 == 0;
}

MesCalendario LlenarCalendario(const QList<Aviso>& avisos, int ano, int mes, const QDate& hoy) {
    MesCalendario celdas{};
    const QDate primero(ano, mes, 1);
    if (!primero.isValid())
        return celdas;
    const int hueco = primero.dayOfWeek() - 1; // Monday first
    for (int d = 0; d < primero.daysInMonth(); ++d) {
        CeldaCalendario& c = celdas[static_cast<size_t>(hueco + d)];
        c.dia = primero.addDays(d);
        for (const Aviso& a : avisos)
            c.marca = c.marca || MarcaDia(a, c.dia, hoy);
    }
    return celdas;
}

QList<Aviso> AvisosDelDia(const QList<Aviso>& avisos, const QDate& dia, const QDate& hoy) {
    QList<Aviso> r;
    for (const Aviso& a : avisos)
        if (MarcaDia(a, dia, hoy))
            r << a;
    return r;
}

const QStringList& NombresDias() {
    static const QStringList d{QStringLiteral("Lun"), QStringLiteral("Mar"), QStringLiteral("Mié"),
                               QStringLiteral("Jue"), QStringLiteral("Vie"), QStringLiteral("Sáb"),
                               QStringLiteral("Dom")};
    return d;
}

#include "journal/Escritor.h"

#include "journal/Casaciones.h"

#include "platform/Almacen.h"
#include "store/Campos.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QDateTime>
#include <cmath>

const QString MsgEjercicioCerrado = QStringLiteral(
    "El ejercicio está cerrado. Puede invertir el cierre en el menú Acceso, Ejercicio.");

namespace {

// A table of the connection's own exercise, or of the one attached under the alias base.
QString tabla(const QString& base, const char* nombre) {
    return base.isEmpty() ? QLatin1String(nombre) : base + QLatin1Char('.') + QLatin1String(nombre);
}

bool entraEnPasada(double importe, PasadaImportes p) {
    return p == PasadaImportes::SoloPositivos ? importe > 0 : importe != 0;
}

// A VAT key unique in this exercise: the time stamp of the record (a millionth of a day), raised
// above every key already used. Drawn inside the writing transaction, so no pause is needed.
qint64 nuevoIdIva(Conexion& c, const QString& base, qint64 anterior) {
    const qint64 sello =
        static_cast<qint64>(std::floor(DiaSerie(QDateTime::currentDateTime()) * 1e6));
    QSqlQuery& q1 = c.preparada(QStringLiteral("SELECT COALESCE(MAX(IdIVA), 0) FROM ") +
                                tabla(base, "DatosIVA"));
    const qint64 m1 = q1.next() ? q1.value(0).toLongLong() : 0;
    QSqlQuery& q2 = c.preparada(QStringLiteral("SELECT COALESCE(MAX(IdIVA), 0) FROM ") +
                                tabla(base, "Diario") + QStringLiteral(" WHERE IdIVA <> 0"));
    const qint64 m2 = q2.next() ? q2.value(0).toLongLong() : 0;
    return std::max({sello, m1 + 1, m2 + 1, anterior + 1});
}

void sumarMayor(Conexion& c, const QString& base, const QString& ncuenta, double debe,
                double haber) {
    c.preparada(QStringLiteral("INSERT INTO ") + tabla(base, "Mayor") +
                    QStringLiteral(" (NCuenta, SaldoD, SaldoH) VALUES (?, ?, ?) "
                                   "ON CONFLICT(NCuenta) DO UPDATE SET "
                                   "SaldoD = round(Mayor.SaldoD + excluded.SaldoD, 2), "
                                   "SaldoH = round(Mayor.SaldoH + excluded.SaldoH, 2)"),
                {ncuenta, debe, haber});
}

void importeAdmitido(double v) {
    if (!ImporteAdmitido(v))
        throw ErrorAsiento(MsgValorNoValido(v));
}

} // namespace

void ComprobarApunte(const Apunte& a) {
    importeAdmitido(a.Debe);
    importeAdmitido(a.Haber);
    // The description is cut to its size when written, as it always was; it only may not carry
    // control characters.
    if (TieneControles(a.Concepto))
        TextoCampo(Campo::Concepto, a.Concepto);
    TextoCampo(Campo::Documento, a.Documento);
    TextoCampo(Campo::Sector, a.Sector);
    if (a.Iva) {
        importeAdmitido(a.Iva->Base);
        importeAdmitido(a.Iva->Cuota);
        importeAdmitido(a.Iva->Retencion);
        if (!std::isfinite(a.Iva->Porcentaje))
            throw ErrorAsiento(MsgValorNoValido(a.Iva->Porcentaje));
        TextoCampo(Campo::NFactura, a.Iva->Factura);
    }
}

long EscribirAsiento(Conexion& c, Sesion& s, const QDate& fecha, const QList<Apunte>& apuntes,
                     const OpcionesEscritura& o) {
    std::optional<Transaccion> t;
    if (o.transaccionPropia || !c.enTransaccion())
        t.emplace(c);

    const QString& base = o.base;
    // The exercise may have been closed by another user since the session was loaded.
    {
        QSqlQuery& q = c.preparada(QStringLiteral("SELECT EjCerrado FROM ") +
                                   tabla(base, "Empresa") + QStringLiteral(" LIMIT 1"));
        if (q.next())
            s.EjCerrado = q.value(0).toInt() != 0;
    }
    const bool esCierre = o.Clase == QLatin1String("R") || o.Clase == QLatin1String("F");
    if (s.EjCerrado && !esCierre)
        throw ErrorAsiento(MsgEjercicioCerrado);
    if (!fecha.isValid())
        throw ErrorAsiento(QStringLiteral("La fecha introducida no es una fecha válida."));
    if (o.comprobarFecha && s.FechaIniEj.isValid() &&
        (fecha < s.FechaIniEj || fecha > s.FechaFinEj))
        throw ErrorAsiento(QStringLiteral("La fecha introducida no pertenece al año de trabajo."));
    // The last defence of the books: whatever path brought them, no line stores an amount that
    // is not a number or beyond the maximum, nor a control character.
    for (const Apunte& a : apuntes)
        ComprobarApunte(a);
    for (const Apunte& a : o.comprobarCuentas ? apuntes : QList<Apunte>{}) {
        QSqlQuery& q = c.preparada(QStringLiteral("SELECT 1 FROM ") + tabla(base, "Cuentas") +
                                       QStringLiteral(" WHERE NCuenta = ?"),
                                   {a.NCuenta.trimmed()});
        if (!q.next())
            throw ErrorAsiento(
                QStringLiteral("No existe la subcuenta %1.").arg(a.NCuenta.trimmed()));
    }
    const QString fechaIso = FechaISO(fecha);

    // 1. VAT records, each under a fresh key that the journal line will carry.
    QList<qint64> ids(apuntes.size(), 0);
    qint64 ultimoId = 0;
    for (int i = 0; i < apuntes.size(); ++i) {
        const Apunte& a = apuntes.at(i);
        // A VAT record binds to its journal line: a line that is not written gets none.
        if (!a.Iva || (!entraEnPasada(Centimos(a.Debe), o.pasada) &&
                       !entraEnPasada(Centimos(a.Haber), o.pasada)))
            continue;
        const DatosIvaApunte& v = *a.Iva;
        ultimoId = nuevoIdIva(c, base, ultimoId);
        ids[i] = ultimoId;
        const QString cp =
            a.NCuenta.mid(1, 3) == QLatin1String("477") ? QStringLiteral("C") : QStringLiteral("P");
        c.preparada(
            QStringLiteral("INSERT INTO ") + tabla(base, "DatosIVA") +
                QStringLiteral(" (IdIVA, NCuenta, CP, Fecha, NFactura, Base, Porcentaje, Cuota, "
                               "ClaseIVA, LIVA, L347, TipOp, Retencion) "
                               "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)"),
            {ultimoId, v.Contra.trimmed(), cp, fechaIso, v.Factura, ASimple(v.Base),
             ASimple(v.Porcentaje), ASimple(v.Cuota), v.Clase, v.LIVA ? -1 : 0, v.L347 ? -1 : 0,
             v.TipOp, ASimple(v.Retencion)});
    }

    // 2. The number, drawn under the write lock so that two users never share it.
    long nas = o.numero.value_or(0);
    if (!o.numero) {
        QSqlQuery& q =
            c.preparada(QStringLiteral("SELECT MAX(NAs) AS NN FROM ") + tabla(base, "Diario"));
        const double max = q.next() && !q.value(0).isNull() ? q.value(0).toDouble() : 0.0;
        const float siguiente = static_cast<float>(max + 1.0);
        nas = std::lround(siguiente);
    }

    // 3 and 4. Debit lines first, then credit lines, NAp running over both; or each line in its
    // place (split into its debit and its credit row); or the lines as given, one row each with
    // its own debit and credit (the year close).
    struct Linea {
        int i;
        double debe, haber;
    };
    QList<Linea> lineas;
    if (o.enOrden) {
        for (int i = 0; i < apuntes.size(); ++i) {
            const double debe = Centimos(apuntes.at(i).Debe);
            const double haber = Centimos(apuntes.at(i).Haber);
            const bool d = entraEnPasada(debe, o.pasada), h = entraEnPasada(haber, o.pasada);
            if (d || h)
                lineas.append({i, d ? debe : 0.0, h ? haber : 0.0});
        }
    } else {
        const auto anadir = [&](int i, int pasada) {
            const double importe = Centimos(pasada == 0 ? apuntes.at(i).Debe : apuntes.at(i).Haber);
            if (entraEnPasada(importe, o.pasada))
                lineas.append({i, pasada == 0 ? importe : 0.0, pasada == 0 ? 0.0 : importe});
        };
        if (o.debePrimero) {
            for (int pasada = 0; pasada < 2; ++pasada)
                for (int i = 0; i < apuntes.size(); ++i)
                    anadir(i, pasada);
        } else {
            for (int i = 0; i < apuntes.size(); ++i)
                for (int pasada = 0; pasada < 2; ++pasada)
                    anadir(i, pasada);
        }
    }
    const QString diario = tabla(base, "Diario");
    const QString insertar =
        QStringLiteral("INSERT INTO ") + diario +
        QStringLiteral(" (NAs, Fecha, NAp, Concepto, NCuenta, CasacionN, CasacionH, Sector, "
                       "IdIVA, Documento, Debe, Haber, Clase, Punteo) "
                       "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    // Most lines carry no mark, VAT key or class: the columns' defaults, and fewer values to bind.
    const QString insertarSimple = QStringLiteral("INSERT INTO ") + diario +
                                   QStringLiteral(" (NAs, Fecha, NAp, Concepto, NCuenta, Sector, "
                                                  "Documento, Debe, Haber) "
                                                  "VALUES (?,?,?,?,?,?,?,?,?)");
    const int largoConcepto = TamanoCampo(Campo::Concepto);
    QList<double> grupos;
    long nap = 0;
    for (const Linea& l : lineas) {
        const Apunte& a = apuntes.at(l.i);
        ++nap;
        const QString ncuenta = a.NCuenta.trimmed();
        if (a.CasacionN == 0 && a.CasacionH == 0 && ids.at(l.i) == 0 && o.Clase.isEmpty() &&
            !a.Punteo)
            c.preparada(insertarSimple,
                        {static_cast<qlonglong>(nas), fechaIso, static_cast<qlonglong>(nap),
                         a.Concepto.left(largoConcepto).trimmed(), ncuenta, a.Sector.trimmed(),
                         a.Documento.trimmed(), l.debe, l.haber});
        else
            c.preparada(insertar,
                        {static_cast<qlonglong>(nas), fechaIso, static_cast<qlonglong>(nap),
                         a.Concepto.left(largoConcepto).trimmed(), ncuenta, a.CasacionN,
                         a.CasacionH, a.Sector.trimmed(), ids.at(l.i), a.Documento.trimmed(),
                         l.debe, l.haber, o.Clase, a.Punteo ? -1 : 0});
        if (a.CasacionH != 0)
            grupos << a.CasacionH;
        if (o.mayorPendiente && !t) {
            auto& [d, h] = (*o.mayorPendiente)[ncuenta];
            d += l.debe;
            h += l.haber;
        } else {
            sumarMayor(c, base, ncuenta, l.debe, l.haber);
        }
    }
    // A line written into a group (an entry rewritten with its marks) may change its balance.
    // Groups live in the connection's own exercise; the close writes no marked line elsewhere.
    if (!grupos.isEmpty() && base.isEmpty())
        GraduarGrupos(c, grupos);
    if (t)
        t->confirmar();
    if (nas > s.UltimoAsiento)
        s.UltimoAsiento = static_cast<float>(nas);
    return nas;
}

bool ElimAsiento(Conexion& c, Sesion& s, long nas, const QString& base) {
    Transaccion t(c);
    const QString diario = tabla(base, "Diario");
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Debe, Haber, IdIVA, CasacionH FROM ") +
                                 diario + QStringLiteral(" WHERE NAs = ?"),
                             {static_cast<qlonglong>(nas)});
    bool hay = false;
    QList<double> grupos;
    while (q.next()) {
        hay = true;
        if (const double clave = q.value(4).toDouble(); clave != 0)
            grupos << clave;
        sumarMayor(c, base, q.value(0).toString(), -q.value(1).toDouble(), -q.value(2).toDouble());
        const qint64 id = q.value(3).toLongLong();
        if (id != 0)
            c.preparada(QStringLiteral("DELETE FROM ") + tabla(base, "DatosIVA") +
                            QStringLiteral(" WHERE IdIVA = ?"),
                        {id});
    }
    if (!hay)
        return false;
    c.ejecutar(QStringLiteral("DELETE FROM ") + diario + QStringLiteral(" WHERE NAs = ?"),
               {static_cast<qlonglong>(nas)});
    // What is left of a group the entry took part in may no longer balance, or now balance.
    if (base.isEmpty())
        GraduarGrupos(c, grupos);
    float ultimo = s.UltimoAsiento;
    if (nas >= std::lround(s.UltimoAsiento)) {
        const QVariant m = c.escalar(QStringLiteral("SELECT MAX(NAs) FROM ") + diario);
        ultimo = m.isNull() ? 0.0f : static_cast<float>(m.toDouble());
    }
    t.confirmar();
    s.UltimoAsiento = ultimo;
    return true;
}

void SumarMayor(Conexion& c, const QHash<QString, std::pair<double, double>>& totales) {
    for (auto it = totales.begin(); it != totales.end(); ++it)
        sumarMayor(c, {}, it.key(), Centimos(it->first), Centimos(it->second));
}

QStringList DescuadresMayor(Conexion& c, const QString& base) {
    // The journal's sums come from the covering index in code order, with no sort; Mayor is
    // small and held in memory.
    QHash<QString, std::pair<double, double>> mayor;
    {
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, SaldoD, SaldoH FROM ") +
                                 tabla(base, "Mayor"));
        while (q.next())
            mayor.insert(q.value(0).toString().toUpper(),
                         {q.value(1).toDouble(), q.value(2).toDouble()});
    }
    QStringList r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, SUM(Debe), SUM(Haber) FROM ") +
                             tabla(base, "Diario") + QStringLiteral(" GROUP BY NCuenta"));
    while (q.next()) {
        const QString ncuenta = q.value(0).toString();
        const auto m = mayor.take(ncuenta.toUpper());
        if (Centimos(m.first) != Centimos(q.value(1).toDouble()) ||
            Centimos(m.second) != Centimos(q.value(2).toDouble()))
            r << ncuenta;
    }
    // Mayor rows of subaccounts without lines must hold nothing.
    for (auto it = mayor.cbegin(); it != mayor.cend(); ++it)
        if (Centimos(it->first) != 0 || Centimos(it->second) != 0)
            r << it.key();
    r.sort();
    return r;
}

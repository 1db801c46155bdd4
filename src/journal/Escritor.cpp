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

bool entraEnPasada(double importe, PasadaImportes p) {
    return p == PasadaImportes::SoloPositivos ? importe > 0 : importe != 0;
}

// A VAT key unique in this exercise: the time stamp of the record (a millionth of a day), raised
// above every key already used. Drawn inside the writing transaction, so no pause is needed.
qint64 nuevoIdIva(Conexion& c, qint64 anterior) {
    const qint64 sello =
        static_cast<qint64>(std::floor(DiaSerie(QDateTime::currentDateTime()) * 1e6));
    QSqlQuery& q1 = c.preparada(QStringLiteral("SELECT COALESCE(MAX(IdIVA), 0) FROM DatosIVA"));
    const qint64 m1 = q1.next() ? q1.value(0).toLongLong() : 0;
    QSqlQuery& q2 =
        c.preparada(QStringLiteral("SELECT COALESCE(MAX(IdIVA), 0) FROM Diario WHERE IdIVA <> 0"));
    const qint64 m2 = q2.next() ? q2.value(0).toLongLong() : 0;
    return std::max({sello, m1 + 1, m2 + 1, anterior + 1});
}

void sumarMayor(Conexion& c, const QString& ncuenta, double debe, double haber) {
    c.preparada(
        QStringLiteral(
            "INSERT INTO Mayor (NCuenta, SaldoD, SaldoH) VALUES (?, ?, ?) "
            "ON CONFLICT(NCuenta) DO UPDATE SET SaldoD = round(SaldoD + excluded.SaldoD, 2), "
            "SaldoH = round(SaldoH + excluded.SaldoH, 2)"),
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

    // The exercise may have been closed by another user since the session was loaded.
    {
        QSqlQuery& q = c.preparada(QStringLiteral("SELECT EjCerrado FROM Empresa LIMIT 1"));
        if (q.next())
            s.EjCerrado = q.value(0).toInt() != 0;
    }
    if (s.EjCerrado)
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
        QSqlQuery& q = c.preparada(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ?"),
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
        ultimoId = nuevoIdIva(c, ultimoId);
        ids[i] = ultimoId;
        const QString cp =
            a.NCuenta.mid(1, 3) == QLatin1String("477") ? QStringLiteral("C") : QStringLiteral("P");
        c.preparada(
            QStringLiteral("INSERT INTO DatosIVA (IdIVA, NCuenta, CP, Fecha, NFactura, Base, "
                           "Porcentaje, Cuota, ClaseIVA, LIVA, L347, TipOp, Retencion) "
                           "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)"),
            {ultimoId, v.Contra.trimmed(), cp, fechaIso, v.Factura, ASimple(v.Base),
             ASimple(v.Porcentaje), ASimple(v.Cuota), v.Clase, v.LIVA ? -1 : 0, v.L347 ? -1 : 0,
             v.TipOp, ASimple(v.Retencion)});
    }

    // 2. The number, drawn under the write lock so that two users never share it.
    long nas = o.numero.value_or(0);
    if (!o.numero) {
        QSqlQuery& q = c.preparada(QStringLiteral("SELECT MAX(NAs) AS NN FROM Diario"));
        const double max = q.next() && !q.value(0).isNull() ? q.value(0).toDouble() : 0.0;
        const float siguiente = static_cast<float>(max + 1.0);
        nas = std::lround(siguiente);
    }

    // 3 and 4. Debit lines first, then credit lines, NAp running over both.
    const QString insertar = QStringLiteral(
        "INSERT INTO Diario (NAs, Fecha, NAp, Concepto, NCuenta, CasacionN, CasacionH, Sector, "
        "IdIVA, Documento, Debe, Haber, Clase, Punteo) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    // Most lines carry no mark, VAT key or class: the columns' defaults, and fewer values to bind.
    const QString insertarSimple =
        QStringLiteral("INSERT INTO Diario (NAs, Fecha, NAp, Concepto, NCuenta, Sector, "
                       "Documento, Debe, Haber) VALUES (?,?,?,?,?,?,?,?,?)");
    // (line, pass) in the order of writing: debit lines first, or each line in its place.
    QList<std::pair<int, int>> orden;
    orden.reserve(apuntes.size());
    if (o.debePrimero) {
        for (int pasada = 0; pasada < 2; ++pasada)
            for (int i = 0; i < apuntes.size(); ++i)
                orden.append({i, pasada});
    } else {
        for (int i = 0; i < apuntes.size(); ++i)
            for (int pasada = 0; pasada < 2; ++pasada)
                orden.append({i, pasada});
    }
    QList<double> grupos;
    long nap = 0;
    for (const auto& [i, pasada] : orden) {
        const Apunte& a = apuntes.at(i);
        const double importe = Centimos(pasada == 0 ? a.Debe : a.Haber);
        if (!entraEnPasada(importe, o.pasada))
            continue;
        ++nap;
        const QString ncuenta = a.NCuenta.trimmed();
        const double debe = pasada == 0 ? importe : 0.0;
        const double haber = pasada == 0 ? 0.0 : importe;
        if (a.CasacionN == 0 && a.CasacionH == 0 && ids.at(i) == 0 && o.Clase.isEmpty() &&
            !a.Punteo)
            c.preparada(insertarSimple,
                        {static_cast<qlonglong>(nas), fechaIso, static_cast<qlonglong>(nap),
                         a.Concepto.left(TamanoCampo(Campo::Concepto)).trimmed(), ncuenta,
                         a.Sector.trimmed(), a.Documento.trimmed(), debe, haber});
        else
            c.preparada(insertar,
                        {static_cast<qlonglong>(nas), fechaIso, static_cast<qlonglong>(nap),
                         a.Concepto.left(TamanoCampo(Campo::Concepto)).trimmed(), ncuenta,
                         a.CasacionN, a.CasacionH, a.Sector.trimmed(), ids.at(i),
                         a.Documento.trimmed(), debe, haber, o.Clase, a.Punteo ? -1 : 0});
        if (a.CasacionH != 0)
            grupos << a.CasacionH;
        if (o.mayorPendiente && !t) {
            auto& [d, h] = (*o.mayorPendiente)[ncuenta];
            d += debe;
            h += haber;
        } else {
            sumarMayor(c, ncuenta, debe, haber);
        }
    }
    // A line written into a group (an entry rewritten with its marks) may change its balance.
    if (!grupos.isEmpty())
        GraduarGrupos(c, grupos);
    if (t)
        t->confirmar();
    if (nas > s.UltimoAsiento)
        s.UltimoAsiento = static_cast<float>(nas);
    return nas;
}

bool ElimAsiento(Conexion& c, Sesion& s, long nas) {
    Transaccion t(c);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Debe, Haber, IdIVA, CasacionH FROM Diario WHERE NAs = ?"),
        {static_cast<qlonglong>(nas)});
    bool hay = false;
    QList<double> grupos;
    while (q.next()) {
        hay = true;
        if (const double clave = q.value(4).toDouble(); clave != 0)
            grupos << clave;
        sumarMayor(c, q.value(0).toString(), -q.value(1).toDouble(), -q.value(2).toDouble());
        const qint64 id = q.value(3).toLongLong();
        if (id != 0)
            c.preparada(QStringLiteral("DELETE FROM DatosIVA WHERE IdIVA = ?"), {id});
    }
    if (!hay)
        return false;
    c.ejecutar(QStringLiteral("DELETE FROM Diario WHERE NAs = ?"), {static_cast<qlonglong>(nas)});
    // What is left of a group the entry took part in may no longer balance, or now balance.
    GraduarGrupos(c, grupos);
    float ultimo = s.UltimoAsiento;
    if (nas >= std::lround(s.UltimoAsiento)) {
        const QVariant m = c.escalar(QStringLiteral("SELECT MAX(NAs) FROM Diario"));
        ultimo = m.isNull() ? 0.0f : static_cast<float>(m.toDouble());
    }
    t.confirmar();
    s.UltimoAsiento = ultimo;
    return true;
}

void SumarMayor(Conexion& c, const QHash<QString, std::pair<double, double>>& totales) {
    for (auto it = totales.begin(); it != totales.end(); ++it)
        sumarMayor(c, it.key(), Centimos(it->first), Centimos(it->second));
}

QStringList DescuadresMayor(Conexion& c) {
    QStringList r;
    QSqlQuery q = c.ejecutar(QStringLiteral(
        "SELECT NCuenta, SUM(MD), SUM(MH), SUM(DD), SUM(DH) FROM ("
        " SELECT NCuenta, SaldoD AS MD, SaldoH AS MH, 0 AS DD, 0 AS DH FROM Mayor"
        " UNION ALL SELECT NCuenta, 0, 0, Debe, Haber FROM Diario) GROUP BY NCuenta"));
    while (q.next())
        if (Centimos(q.value(1).toDouble()) != Centimos(q.value(3).toDouble()) ||
            Centimos(q.value(2).toDouble()) != Centimos(q.value(4).toDouble()))
            r << q.value(0).toString();
    return r;
}

#include "tax/CasillasModelo.h"

#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

namespace {

bool SoloCifras(const QString& s) {
    for (const QChar c : s)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

bool Parte(const QString& s, int largo) {
    return s.size() == largo && SoloCifras(s) && s != QString(largo, u'0');
}

} // namespace

QChar CaracterNombre(QChar c, CampoNombre campo) {
    QChar m = c.toUpper();
    if (m != u'Ñ' && m != u'Ç' && m.decompositionTag() == QChar::Canonical)
        m = m.decomposition().at(0); // É gives E; Ñ and Ç are letters of their own
    if ((m >= u'A' && m <= u'Z') || m == u' ' || m == u'-' || m == u'Ñ' || m == u'Ç')
        return m;
    if (campo == CampoNombre::Apellidos && ((m >= u'0' && m <= u';') || m == u',' || m == u'.' ||
                                            m == u'&' || m == u'_' || m == QChar(0xD0)))
        return m;
    return {};
}

QString TextoNombre(const QString& texto, CampoNombre campo, int largo) {
    const QString t = texto.trimmed();
    QString r;
    for (const QChar c : t) {
        const QChar m = CaracterNombre(c, campo);
        if (m.isNull())
            throw Rechazo(QStringLiteral("El campo %1 no admite el carácter «%2».")
                              .arg(campo == CampoNombre::Apellidos
                                       ? QStringLiteral("Apellidos o razón social")
                                       : QStringLiteral("Nombre"),
                                   QString(c)));
        r += m;
    }
    if (r.size() > largo)
        throw Rechazo(QStringLiteral("El campo %1 no puede tener más de %2 caracteres.")
                          .arg(campo == CampoNombre::Apellidos
                                   ? QStringLiteral("Apellidos o razón social")
                                   : QStringLiteral("Nombre"))
                          .arg(largo));
    return r;
}

QString NombreAdmitido(const QString& texto, CampoNombre campo, int largo) {
    QString r;
    for (const QChar c : texto.trimmed()) {
        const QChar m = CaracterNombre(c, campo);
        if (!m.isNull())
            r += m;
    }
    return r.left(largo).trimmed();
}

QString TextoNif(const QString& texto) {
    const QString t = texto.trimmed().toUpper();
    for (const QChar c : t)
        if (!((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')))
            throw Rechazo(QStringLiteral("El NIF sólo admite letras y cifras."));
    if (t.size() > 9)
        throw Rechazo(QStringLiteral("El NIF no puede tener más de 9 caracteres."));
    return t;
}

Casilla Importe(double valor) {
    return Centimos(valor);
}

QString TextoCasilla(const Casilla& c) {
    return c ? Formato(*c, QStringLiteral("standard")) : QString();
}

Casilla LeerCasilla(const QString& texto) {
    if (texto.trimmed().isEmpty())
        return std::nullopt;
    const std::optional<double> v = LeerImporte(texto.trimmed());
    if (!v)
        throw Rechazo(MsgImporteNoValido(texto.trimmed()));
    return *v;
}

bool CuentaBanco::Completa() const {
    return Parte(entidad, 4) && Parte(sucursal, 4) && Parte(dc, 2) && Parte(numero, 10);
}

bool CuentaBanco::TieneCifras() const {
    for (const QString* p : {&entidad, &sucursal, &dc, &numero})
        for (const QChar c : *p)
            if (c.isDigit())
                return true;
    return false;
}

QString CuentaBanco::Texto() const {
    return entidad.leftJustified(4, u' ', true) + sucursal.leftJustified(4, u' ', true) +
           dc.leftJustified(2, u' ', true) + numero.leftJustified(10, u' ', true);
}

CuentaBanco CuentaDeTexto(const QString& texto) {
    QString cifras;
    for (const QChar c : texto) {
        if (c == u' ' || c == u'-')
            continue;
        if (c < u'0' || c > u'9' || cifras.size() == 20)
            throw Rechazo(QStringLiteral("La cuenta «%1» debe tener 20 cifras: entidad, "
                                         "sucursal, DC y número de cuenta.")
                              .arg(texto));
        cifras += c;
    }
    if (!cifras.isEmpty() && cifras.size() != 20)
        throw Rechazo(QStringLiteral("La cuenta «%1» debe tener 20 cifras: entidad, sucursal, "
                                     "DC y número de cuenta.")
                          .arg(texto));
    CuentaBanco r;
    r.entidad = cifras.mid(0, 4);
    r.sucursal = cifras.mid(4, 4);
    r.dc = cifras.mid(8, 2);
    r.numero = cifras.mid(10, 10);
    return r;
}

QString NombreMes(int mes) {
    static const char* const Meses[] = {"ENERO",      "FEBRERO", "MARZO",     "ABRIL",
                                        "MAYO",       "JUNIO",   "JULIO",     "AGOSTO",
                                        "SEPTIEMBRE", "OCTUBRE", "NOVIEMBRE", "DICIEMBRE"};
    return mes >= 1 && mes <= 12 ? QString::fromLatin1(Meses[mes - 1]) : QString();
}

FirmaModelo FirmaDeFecha(const QDate& fecha, const QString& lugar) {
    FirmaModelo f;
    f.lugar = lugar;
    if (fecha.isValid()) {
        f.dia = QString::number(fecha.day());
        f.mes = NombreMes(fecha.month());
        f.ano = QString::number(fecha.year());
    }
    return f;
}

QString PeriodoDeFechas(const QDate& d1, const QDate& d2) {
    if (!d1.isValid() || !d2.isValid())
        return {};
    const QDate siguiente = d2.addDays(1);
    if (d1.day() == 1 && d2.year() == d1.year() && d2.month() == d1.month() &&
        (siguiente.month() != d2.month() || siguiente.year() != d2.year()))
        return QStringLiteral("%1").arg(d1.month(), 2, 10, QLatin1Char('0'));
    const int ano = d1.year();
    for (int t = 1; t <= 4; ++t) {
        const QDate inicio(ano, 3 * t - 2, 1);
        if (d1 == inicio && d2 == inicio.addMonths(3).addDays(-1))
            return QStringLiteral("%1T").arg(t);
    }
    return {};
}

std::optional<FalloModelo> ComprobarPago(bool efectivo, bool adeudo, const CuentaBanco& cargo,
                                         const Casilla& importe) {
    if (efectivo && adeudo)
        return FalloModelo{MsgFormaPagoDoble, QStringLiteral("Efectivo")};
    if (adeudo && !cargo.Completa())
        return FalloModelo{MsgCuentaIncompleta, QStringLiteral("CuentaCargo")};
    if (!adeudo && cargo.TieneCifras())
        return FalloModelo{MsgCuentaCargoSobra, QStringLiteral("CuentaCargo")};
    if (importe && *importe < 0)
        return FalloModelo{MsgIngresoNegativo, QStringLiteral("Importe")};
    return std::nullopt;
}

bool AnoConModelo(int ano) {
    return ano == 2010 || ano == 2011;
}

QString MsgEjercicioDebeSer(int ano) {
    return QStringLiteral("El ejercicio debe ser %1.").arg(ano);
}

QString MsgModeloNoIncorporado(int ano) {
    return QStringLiteral("No está incorporado el modelo del ejercicio %1.").arg(ano);
}

Declarante DeclaranteEmpresa(Conexion& c) {
    Declarante d;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NIF, Nombre, Ciudad FROM Empresa"));
    if (q.next()) {
        QString nif;
        for (const QChar ch : q.value(0).toString().toUpper())
            if ((ch >= u'A' && ch <= u'Z') || (ch >= u'0' && ch <= u'9'))
                nif += ch;
        d.nif = nif.left(9);
        d.nombre = NombreAdmitido(q.value(1).toString(), CampoNombre::Apellidos, 30);
        d.ciudad = q.value(2).toString().trimmed().toUpper();
    }
    return d;
}

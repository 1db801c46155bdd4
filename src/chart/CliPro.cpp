#include "chart/CliPro.h"

#include "platform/Almacen.h"
#include "store/Campos.h"

const QString MsgSinAcentos =
    QStringLiteral("Por favor no ponga acentos en las áreas SE DEBE ni NOS DEBEN.");

bool FichaCliPro::mismosDatos(const FichaCliPro& o) const {
    auto t = [](const QString& s) {
        return s.trimmed();
    };
    return t(NIF) == t(o.NIF) && t(Domicilio) == t(o.Domicilio) && t(Municipio) == t(o.Municipio) &&
           t(CPostal) == t(o.CPostal) && t(Provincia) == t(o.Provincia) && t(Pais) == t(o.Pais) &&
           t(Tfn1) == t(o.Tfn1) && t(Tfn2) == t(o.Tfn2) && t(Contacto) == t(o.Contacto) &&
           t(Observaciones) == t(o.Observaciones);
}

void ComprobarFicha(const FichaCliPro& f) {
    TextoCampo(Campo::NIF, f.NIF);
    TextoCampo(Campo::Domicilio, f.Domicilio);
    TextoCampo(Campo::Municipio, f.Municipio);
    TextoCampo(Campo::CPostal, f.CPostal);
    TextoCampo(Campo::Provincia, f.Provincia);
    TextoCampo(Campo::Pais, f.Pais);
    TextoCampo(Campo::Telefono, f.Tfn1);
    TextoCampo(Campo::Telefono, f.Tfn2);
    TextoCampo(Campo::Contacto, f.Contacto);
    TextoCampo(Campo::Observaciones, f.Observaciones);
}

ResultadoCompCliPro CompCliPro(Conexion& c, const QString& nif) {
    if (nif.trimmed().isEmpty())
        return {};
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT NCuenta FROM CliPro WHERE trim(NIF) = ? COLLATE NOCASE "
                                  "ORDER BY NCuenta LIMIT 1"),
                   {nif.trimmed()});
    if (!q.next())
        return {};
    return {true, q.value(0).toString().trimmed()};
}

void InsCliPro(Conexion& c, const FichaCliPro& f) {
    ComprobarFicha(f);
    const QString n = f.NCuenta.trimmed();
    const QVariantList datos{f.NIF.trimmed(),
                             f.Domicilio.trimmed(),
                             f.Municipio.trimmed(),
                             f.CPostal.trimmed(),
                             f.Provincia.trimmed(),
                             f.Pais.trimmed(),
                             f.Tfn1.trimmed(),
                             f.Tfn2.trimmed(),
                             f.Contacto.trimmed(),
                             f.Observaciones.trimmed(),
                             n};
    Transaccion t(c);
    if (c.existe(QStringLiteral("SELECT 1 FROM CliPro WHERE NCuenta = ?"), {n}))
        c.ejecutar(QStringLiteral("UPDATE CliPro SET NIF = ?, Domicilio = ?, Municipio = ?, "
                                  "CPostal = ?, Provincia = ?, Pais = ?, Tfn1 = ?, Tfn2 = ?, "
                                  "Contacto = ?, Observaciones = ? WHERE NCuenta = ?"),
                   datos);
    else
        c.ejecutar(QStringLiteral("INSERT INTO CliPro (NIF, Domicilio, Municipio, CPostal, "
                                  "Provincia, Pais, Tfn1, Tfn2, Contacto, Observaciones, NCuenta) "
                                  "VALUES (?,?,?,?,?,?,?,?,?,?,?)"),
                   datos);
    t.confirmar();
}

FichaCliPro ObtCliPro(Conexion& c, const QString& ncuenta) {
    FichaCliPro f;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta, NIF, Domicilio, Municipio, CPostal, Provincia, "
                       "Pais, Tfn1, Tfn2, Contacto, Observaciones FROM ConCliPro "
                       "WHERE NCuenta = ?"),
        {ncuenta.trimmed()});
    if (!q.next())
        return f;
    // Old cards may hold Null in any text field: it reads as empty.
    auto v = [&](int i) {
        return q.value(i).isNull() ? QString() : q.value(i).toString().trimmed();
    };
    f.NCuenta = v(0);
    f.Cuenta = v(1);
    f.NIF = v(2);
    f.Domicilio = v(3);
    f.Municipio = v(4);
    f.CPostal = v(5);
    f.Provincia = v(6);
    f.Pais = v(7);
    f.Tfn1 = v(8);
    f.Tfn2 = v(9);
    f.Contacto = v(10);
    f.Observaciones = v(11);
    return f;
}

void ElimFicha(Conexion& c, const QString& ncuenta) {
    c.ejecutar(QStringLiteral("DELETE FROM CliPro WHERE NCuenta = ?"), {ncuenta.trimmed()});
}

QString NotaNIF(Conexion& c, int area, const QString& nif, const QString& ncuentaPropia) {
    if (nif.trimmed().isEmpty())
        return {};
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT Cuenta FROM ConCliPro WHERE trim(NIF) = ? COLLATE NOCASE "
                       "AND NCuenta LIKE ? "
                       "AND NCuenta <> ? ORDER BY Cuenta LIMIT 1"),
        {nif.trimmed(), QString::number(area) + QLatin1Char('%'), ncuentaPropia.trimmed()});
    return q.next() ? q.value(0).toString().trimmed() : QString();
}

QString MsgNotaNIF(const QString& nombre) {
    return QStringLiteral("Este NIF corresponde a la subcuenta ") + nombre;
}

bool TieneAcentos(const QString& texto) {
    static const QString acentos = QStringLiteral("áéíóú");
    for (const QChar ch : texto)
        if (acentos.contains(ch))
            return true;
    return false;
}

QStringList Provincias(Conexion& c) {
    QStringList r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Provincia FROM Provincias ORDER BY rowid"));
    while (q.next())
        r << q.value(0).toString().trimmed();
    return r;
}

QStringList Paises(Conexion& c) {
    QStringList r;
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Pais FROM Paises ORDER BY rowid"));
    while (q.next())
        r << q.value(0).toString().trimmed();
    return r;
}

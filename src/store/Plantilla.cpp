#include "store/Plantilla.h"

#include "platform/Almacen.h"

#include <QFile>

namespace {

void insertarTabla(Conexion& c, const QString& tabla, const QStringList& campos,
                   const TablaTsv& t) {
    QStringList marcas;
    QStringList citados;
    for (const QString& campo : campos) {
        marcas << QStringLiteral("?");
        citados << QLatin1Char('"') + campo + QLatin1Char('"');
    }
    const QString sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                            .arg(tabla, citados.join(','), marcas.join(','));
    for (int i = 0; i < t.filas.size(); ++i) {
        QVariantList valores;
        for (const QString& campo : campos)
            valores << t.valor(i, campo);
        c.preparada(sql, valores);
    }
}

} // namespace

TablaTsv LeerTsv(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text))
        throw ErrorAlmacen(QStringLiteral("No se encuentran los datos %1.").arg(ruta));
    TablaTsv t;
    bool primera = true;
    while (!f.atEnd()) {
        QString linea = QString::fromUtf8(f.readLine());
        while (linea.endsWith(QLatin1Char('\n')) || linea.endsWith(QLatin1Char('\r')))
            linea.chop(1);
        if (linea.trimmed().isEmpty())
            continue;
        const QStringList campos = linea.split(QLatin1Char('\t'));
        if (primera) {
            t.cabecera = campos;
            primera = false;
        } else {
            t.filas << campos;
        }
    }
    return t;
}

void CargarCuentas(Conexion& c, const TablaTsv& cuentas) {
    for (int i = 0; i < cuentas.filas.size(); ++i) {
        const QString n = cuentas.valor(i, QStringLiteral("NCuenta")).trimmed();
        c.preparada(QStringLiteral("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo, Aparcada, Desde) "
                                   "VALUES (?, ?, ?, 0, 0)"),
                    {n, cuentas.valor(i, QStringLiteral("Cuenta")).trimmed(), n.left(4)});
    }
}

void CargarFichas(Conexion& c, const TablaTsv& fichas) {
    insertarTabla(c, QStringLiteral("CliPro"),
                  {"NCuenta", "NIF", "Domicilio", "Municipio", "CPostal", "Provincia", "Pais"},
                  fichas);
}

void CargarPlanGenerico(Conexion& c) {
    Transaccion t(c);
    insertarTabla(c, QStringLiteral("Grupos"), {"NGrupo", "Grupo"},
                  LeerTsv(QStringLiteral(":/data/plan/grupos.tsv")));
    CargarCuentas(c, LeerTsv(QStringLiteral(":/data/plan/cuentas.tsv")));
    CargarFichas(c, LeerTsv(QStringLiteral(":/data/plan/clipro.tsv")));
    insertarTabla(c, QStringLiteral("TiposIVA"), {"NCuenta", "Porcentaje", "Clase"},
                  LeerTsv(QStringLiteral(":/data/plan/tiposiva.tsv")));
    insertarTabla(c, QStringLiteral("Provincias"), {"Provincia", "CodigoProv"},
                  LeerTsv(QStringLiteral(":/data/plan/provincias.tsv")));
    insertarTabla(c, QStringLiteral("Paises"), {"Pais"},
                  LeerTsv(QStringLiteral(":/data/plan/paises.tsv")));
    t.confirmar();
}

void CargarVias(Conexion& c) {
    Transaccion t(c);
    insertarTabla(c, QStringLiteral("MUNICIPE"), {"NOMBRE", "CODINE", "CP"},
                  LeerTsv(QStringLiteral(":/data/vias/municipe.tsv")));
    insertarTabla(c, QStringLiteral("PROVINCE"), {"DESCRIPC", "CLAVE"},
                  LeerTsv(QStringLiteral(":/data/vias/province.tsv")));
    insertarTabla(c, QStringLiteral("SIGLAS_X"), {"DESCRIPC", "CODCALLE"},
                  LeerTsv(QStringLiteral(":/data/vias/siglas.tsv")));
    t.confirmar();
}

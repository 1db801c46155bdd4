#include "store/Esquema.h"

#include <QFile>
#include <QRegularExpression>

namespace {

// Text columns compared by users' names use NOCASE, as the books always compared them
// without regard to case; on NCuenta it also lets "LIKE '4%'" use the indexes.
const char* const EsquemaEjercicio = R"SQL(
CREATE TABLE Cuentas (
  NCuenta TEXT NOT NULL COLLATE NOCASE,
  Cuenta TEXT COLLATE NOCASE,
  NGrupo TEXT,
  Aparcada INTEGER NOT NULL DEFAULT 0,
  Desde NUMERIC);
CREATE UNIQUE INDEX IxCuentasNCuenta ON Cuentas(NCuenta);
CREATE INDEX IxCuentasCuenta ON Cuentas(Cuenta);
CREATE TABLE Grupos (
  NGrupo TEXT NOT NULL,
  Grupo TEXT COLLATE NOCASE);
CREATE UNIQUE INDEX IxGruposNGrupo ON Grupos(NGrupo);
CREATE TABLE Diario (
  NAs INTEGER NOT NULL,
  NAp INTEGER NOT NULL,
  Fecha TEXT NOT NULL,
  NCuenta TEXT NOT NULL COLLATE NOCASE,
  Concepto TEXT NOT NULL DEFAULT '',
  Debe REAL NOT NULL DEFAULT 0,
  Haber REAL NOT NULL DEFAULT 0,
  Documento TEXT NOT NULL DEFAULT '',
  Sector TEXT NOT NULL DEFAULT '',
  IdIVA INTEGER NOT NULL DEFAULT 0,
  Clase TEXT NOT NULL DEFAULT '',
  CasacionN INTEGER NOT NULL DEFAULT 0,
  CasacionH REAL NOT NULL DEFAULT 0,
  Punteo INTEGER NOT NULL DEFAULT 0);
CREATE INDEX IxDiarioNAs ON Diario(NAs, NAp);
CREATE INDEX IxDiarioFecha ON Diario(Fecha);
CREATE INDEX IxDiarioCuenta ON Diario(NCuenta, Fecha, Debe, Haber);
CREATE INDEX IxDiarioIdIVA ON Diario(IdIVA) WHERE IdIVA <> 0;
CREATE INDEX IxDiarioCasacion ON Diario(CasacionH) WHERE CasacionH <> 0;
CREATE TABLE Mayor (
  NCuenta TEXT NOT NULL COLLATE NOCASE,
  SaldoD REAL NOT NULL DEFAULT 0,
  SaldoH REAL NOT NULL DEFAULT 0);
CREATE UNIQUE INDEX IxMayorNCuenta ON Mayor(NCuenta);
CREATE TABLE DatosIVA (
  IdIVA INTEGER NOT NULL,
  CP TEXT,
  Fecha TEXT,
  NCuenta TEXT COLLATE NOCASE,
  NFactura TEXT,
  Base REAL,
  Porcentaje REAL,
  Cuota REAL,
  ClaseIVA TEXT,
  LIVA INTEGER NOT NULL DEFAULT 0,
  L347 INTEGER NOT NULL DEFAULT 0,
  Retencion REAL NOT NULL DEFAULT 0,
  TipOp TEXT);
CREATE INDEX IxDatosIVAIdIVA ON DatosIVA(IdIVA);
CREATE INDEX IxDatosIVAFecha ON DatosIVA(Fecha);
CREATE TABLE TiposIVA (
  NCuenta TEXT NOT NULL COLLATE NOCASE,
  Porcentaje REAL,
  Clase TEXT);
CREATE INDEX IxTiposIVANCuenta ON TiposIVA(NCuenta);
CREATE TABLE CliPro (
  NCuenta TEXT NOT NULL COLLATE NOCASE,
  NIF TEXT, Domicilio TEXT, Municipio TEXT, CPostal TEXT, Provincia TEXT, Pais TEXT,
  Tfn1 TEXT, Tfn2 TEXT, Contacto TEXT, Observaciones TEXT);
CREATE UNIQUE INDEX IxCliProNCuenta ON CliPro(NCuenta);
CREATE TABLE DelDia (
  "Nº" INTEGER NOT NULL,
  Fecha TEXT,
  NCuenta1 TEXT COLLATE NOCASE,
  NCuenta2 TEXT COLLATE NOCASE,
  Concepto TEXT,
  Importe REAL,
  Documento TEXT,
  Sector TEXT,
  CP TEXT);
CREATE TABLE Empresa (
  Codigo TEXT, Nombre TEXT, NIF TEXT, Domicilio TEXT, "Nº" TEXT, Ciudad TEXT, CPostal TEXT,
  Provincia TEXT,
  FechaIni TEXT,
  EjCerrado INTEGER NOT NULL DEFAULT 0,
  NAsReg INTEGER NOT NULL DEFAULT 0,
  NAsFin INTEGER NOT NULL DEFAULT 0);
CREATE TABLE Sectores (
  IdSector INTEGER PRIMARY KEY,
  Sector TEXT COLLATE NOCASE);
CREATE TABLE Provincias (Provincia TEXT COLLATE NOCASE, CodigoProv TEXT);
CREATE TABLE Paises (Pais TEXT COLLATE NOCASE);

CREATE VIEW ConDiario AS
  SELECT Diario.*, Cuentas.Cuenta AS Cuenta
  FROM Diario INNER JOIN Cuentas ON Cuentas.NCuenta = Diario.NCuenta;
CREATE VIEW ConMayor AS
  SELECT Mayor.NCuenta AS NCuenta, Cuentas.Cuenta AS Cuenta, Mayor.SaldoD AS SaldoD,
         Mayor.SaldoH AS SaldoH, Cuentas.Aparcada AS Aparcada, Cuentas.Desde AS Desde
  FROM Mayor INNER JOIN Cuentas ON Cuentas.NCuenta = Mayor.NCuenta;
CREATE VIEW ConCliPro AS
  SELECT CliPro.*, Cuentas.Cuenta AS Cuenta
  FROM CliPro INNER JOIN Cuentas ON Cuentas.NCuenta = CliPro.NCuenta;
CREATE VIEW ConDatosIVA AS
  SELECT DatosIVA.*, Diario.NAs AS NAs, Diario.Sector AS Sector, Cuentas.Cuenta AS Cuenta,
         CliPro.NIF AS NIF, Provincias.CodigoProv AS CodigoProv
  FROM DatosIVA
  INNER JOIN Diario ON Diario.IdIVA = DatosIVA.IdIVA
  INNER JOIN Cuentas ON Cuentas.NCuenta = DatosIVA.NCuenta
  LEFT JOIN CliPro ON CliPro.NCuenta = DatosIVA.NCuenta
  LEFT JOIN Provincias ON Provincias.Provincia = CliPro.Provincia;
CREATE VIEW ConDiarioIVA AS
  SELECT Diario.NAs AS NAs, Diario.NAp AS NAp, Diario.Fecha AS Fecha, Diario.NCuenta AS NCuenta,
         Diario.Concepto AS Concepto, Diario.Documento AS Documento, Cuentas.Cuenta AS Cuenta,
         Diario.Debe AS Debe, Diario.Haber AS Haber, Diario.Sector AS Sector,
         Diario.IdIVA AS IdIVA, Diario.Clase AS Clase,
         DatosIVA.Base AS Base, DatosIVA.Cuota AS Cuota, Imputada.Cuenta AS Imputado,
         DatosIVA.NFactura AS NFactura
  FROM Diario
  INNER JOIN Cuentas ON Cuentas.NCuenta = Diario.NCuenta
  LEFT JOIN DatosIVA ON Diario.IdIVA <> 0 AND DatosIVA.IdIVA = Diario.IdIVA
  LEFT JOIN Cuentas AS Imputada ON Imputada.NCuenta = DatosIVA.NCuenta;
CREATE VIEW ConCtaGrp AS
  SELECT Cuentas.NCuenta AS NCuenta, Cuentas.Cuenta AS Cuenta, Grupos.Grupo AS Grupo,
         Cuentas.NGrupo AS NGrupo, Cuentas.Aparcada AS Aparcada, Cuentas.Desde AS Desde
  FROM Cuentas INNER JOIN Grupos ON Grupos.NGrupo = Cuentas.NGrupo;
CREATE VIEW ConDelDia AS
  SELECT DelDia.*, C1.Cuenta AS Cuenta1, C2.Cuenta AS Cuenta2
  FROM DelDia
  INNER JOIN Cuentas AS C1 ON C1.NCuenta = DelDia.NCuenta1
  INNER JOIN Cuentas AS C2 ON C2.NCuenta = DelDia.NCuenta2;
CREATE VIEW ConTiposIVA AS
  SELECT TiposIVA.NCuenta AS NCuenta, Cuentas.Cuenta AS Cuenta, TiposIVA.Clase AS Clase,
         TiposIVA.Porcentaje AS Porcentaje
  FROM TiposIVA INNER JOIN Cuentas ON Cuentas.NCuenta = TiposIVA.NCuenta
)SQL";

const char* const EsquemaBavar = R"SQL(
CREATE TABLE Periodicos (
  Nombre TEXT COLLATE NOCASE,
  Periodicidad INTEGER,
  FechaIni TEXT,
  FechaProx TEXT,
  NCuenta TEXT COLLATE NOCASE,
  Concepto TEXT,
  Debe REAL NOT NULL DEFAULT 0,
  Haber REAL NOT NULL DEFAULT 0,
  Documento TEXT,
  Sector TEXT);
CREATE TABLE AsPredi (
  Codigo INTEGER,
  Nombre TEXT COLLATE NOCASE,
  Fecha TEXT, Subcuenta TEXT, Concepto TEXT, Importe TEXT, DH TEXT, Sector TEXT, Documento TEXT,
  BaseImp TEXT, CliPro TEXT, Factura TEXT,
  NCuenta TEXT COLLATE NOCASE,
  NCliPro TEXT COLLATE NOCASE,
  Etiqueta TEXT,
  LibroIVA INTEGER NOT NULL DEFAULT 0,
  Mod347 INTEGER NOT NULL DEFAULT 0,
  Coment TEXT);
CREATE TABLE Vencimientos (
  IdVenc REAL,
  Tipo TEXT,
  NCuenta1 TEXT COLLATE NOCASE,
  NCuenta2 TEXT COLLATE NOCASE,
  Importe REAL,
  FechaE TEXT,
  FechaV TEXT,
  Forma TEXT,
  Situacion TEXT,
  Concepto TEXT,
  Documento TEXT,
  Sector TEXT,
  Remesa TEXT);
CREATE INDEX IxVencimientosFechaV ON Vencimientos(FechaV);
CREATE TABLE Conceptos (Codigo INTEGER, Nombre TEXT);
CREATE TABLE Inventario (
  NElemento INTEGER,
  Nombre TEXT,
  Naturaleza TEXT,
  Proveedor TEXT,
  NCentro INTEGER,
  FechaAdq TEXT,
  Importe REAL,
  Amortizable INTEGER NOT NULL DEFAULT 0,
  Porcentaje REAL,
  Amortizado REAL NOT NULL DEFAULT 0,
  UltimaAmort TEXT,
  FinAmort TEXT,
  SubctaAmort TEXT COLLATE NOCASE,
  SubctaDota TEXT COLLATE NOCASE,
  FechaBaja TEXT,
  CausaBaja TEXT);
CREATE TABLE Centros (NCentro INTEGER, Localizacion TEXT);
CREATE VIEW ConInventario AS
  SELECT Inventario.*, Centros.Localizacion AS Localizacion
  FROM Inventario LEFT JOIN Centros ON Centros.NCentro = Inventario.NCentro
)SQL";

const char* const EsquemaBavis = R"SQL(
CREATE TABLE Avisos (
  NAviso INTEGER,
  Fecha TEXT,
  Periodo INTEGER NOT NULL DEFAULT 0,
  Texto TEXT);
CREATE TABLE Usuarios (
  Usuario TEXT NOT NULL COLLATE NOCASE,
  "Contraseña" TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX IxUsuarios ON Usuarios(Usuario)
)SQL";

const char* const EsquemaVias = R"SQL(
CREATE TABLE MUNICIPE (NOMBRE TEXT, CODINE TEXT, CP TEXT);
CREATE INDEX IxMunicipeCP ON MUNICIPE(CP);
CREATE TABLE PROVINCE (DESCRIPC TEXT, CLAVE TEXT);
CREATE TABLE SIGLAS_X (DESCRIPC TEXT, CODCALLE TEXT)
)SQL";

const char* guionDe(TipoBase tipo) {
    switch (tipo) {
    case TipoBase::Ejercicio:
        return EsquemaEjercicio;
    case TipoBase::Bavar:
        return EsquemaBavar;
    case TipoBase::Bavis:
        return EsquemaBavis;
    case TipoBase::Vias:
        return EsquemaVias;
    case TipoBase::Cualquiera:
        break;
    }
    return "";
}

// What the statements of the program ask of SQLite that the server does otherwise, as functions of
// a schema of its own searched before the server's catalogue: ROUND and TOTAL as SQLite computes
// them (half away from zero; a sum of nothing is 0), SUBSTR counting a negative start from the
// end, and the NOCASE collation (ICU, comparing without regard to case).
const char* const FuncionesServidor = R"SQL(
CREATE SCHEMA IF NOT EXISTS quilmar;
CREATE COLLATION IF NOT EXISTS quilmar.nocase (
  provider = icu, locale = 'und-u-ks-level2', deterministic = false);
CREATE OR REPLACE FUNCTION quilmar.round(double precision, integer) RETURNS double precision
  LANGUAGE sql IMMUTABLE STRICT AS 'SELECT pg_catalog.round($1::numeric, $2)::double precision';
CREATE OR REPLACE FUNCTION quilmar.round(double precision) RETURNS double precision
  LANGUAGE sql IMMUTABLE STRICT AS 'SELECT pg_catalog.round($1::numeric)::double precision';
CREATE OR REPLACE FUNCTION quilmar.substr(text, integer) RETURNS text
  LANGUAGE sql IMMUTABLE STRICT AS
  'SELECT CASE WHEN $2 < 0 THEN pg_catalog.right($1, -$2) ELSE pg_catalog.substr($1, $2) END';
CREATE OR REPLACE AGGREGATE quilmar.total(double precision) (
  SFUNC = pg_catalog.float8pl, STYPE = double precision, INITCOND = '0')
)SQL";

// The lists that Nemp.dat and Selan.dat keep beside the files live, on a server, in the
// installation's schema: the exercises in the order they were made (rowid), the companies with the
// name of their latest one.
const char* const ListasServidor = R"SQL(
CREATE TABLE Empresas (Codigo TEXT NOT NULL, Nombre TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX IxEmpresas ON Empresas(Codigo);
CREATE TABLE Ejercicios (Ano TEXT NOT NULL, Codigo TEXT NOT NULL, Nombre TEXT NOT NULL DEFAULT '');
CREATE UNIQUE INDEX IxEjercicios ON Ejercicios(Codigo, Ano)
)SQL";

// The server's reading of the schema: its REAL is single precision and its INTEGER 32 bits, so
// both widen; there is no NOCASE collation (LIKE is made to ignore case instead, see Almacen);
// and every table gets the rowid that SQLite gives it unasked, which the program orders by.
QString GuionServidor(const QString& guion) {
    QString r = guion;
    r.replace(QRegularExpression(QStringLiteral("\\s+COLLATE NOCASE")), QString());
    r.replace(QRegularExpression(QStringLiteral("\\bINTEGER PRIMARY KEY\\b")),
              QStringLiteral("BIGSERIAL PRIMARY KEY"));
    r.replace(QRegularExpression(QStringLiteral("\\bINTEGER\\b")), QStringLiteral("BIGINT"));
    r.replace(QRegularExpression(QStringLiteral("\\bREAL\\b")), QStringLiteral("DOUBLE PRECISION"));
    r.replace(QRegularExpression(QStringLiteral("\\bNUMERIC\\b")), QStringLiteral("TEXT"));
    QStringList partes = r.split(QLatin1Char(';'));
    for (QString& parte : partes) {
        const QString t = parte.trimmed();
        if (!t.startsWith(QLatin1String("CREATE TABLE ")))
            continue;
        const qsizetype cierre = parte.lastIndexOf(QLatin1Char(')'));
        parte.insert(cierre, QStringLiteral(",\n  rowid BIGSERIAL"));
    }
    return partes.join(QLatin1Char(';'));
}

} // namespace

void CrearEsquema(Conexion& c, TipoBase tipo) {
    if (c.enServidor()) {
        Transaccion t(c);
        // One creator of the shared functions at a time.
        c.ejecutar(QStringLiteral("SELECT pg_advisory_xact_lock(0)"));
        c.ejecutarGuion(QString::fromUtf8(FuncionesServidor));
        c.ejecutarGuion(GuionServidor(QString::fromUtf8(guionDe(tipo))));
        if (tipo == TipoBase::Bavis)
            c.ejecutarGuion(GuionServidor(QString::fromUtf8(ListasServidor)));
        t.confirmar();
        return;
    }
    Transaccion t(c);
    c.ejecutarGuion(QString::fromUtf8(guionDe(tipo)));
    c.ejecutar(QStringLiteral("PRAGMA application_id = %1").arg(IdAplicacionQuilmar));
    c.ejecutar(QStringLiteral("PRAGMA user_version = 1"));
    t.confirmar();
}

void CrearBaseDatos(const QString& ruta, TipoBase tipo, ModoDiario modo) {
    if (QFile::exists(ruta))
        throw ErrorAlmacen(QStringLiteral("Ya existe el archivo %1.").arg(ruta));
    try {
        Conexion c(ruta, tipo, true, modo);
        CrearEsquema(c, tipo);
    } catch (...) {
        QFile::remove(ruta);
        QFile::remove(ruta + QStringLiteral("-wal"));
        QFile::remove(ruta + QStringLiteral("-shm"));
        throw;
    }
}

QStringList TablasDe(TipoBase tipo) {
    QStringList r;
    const QString guion = QString::fromUtf8(guionDe(tipo));
    for (const QString& parte : guion.split(QLatin1Char(';'))) {
        const QString s = parte.trimmed();
        if (s.startsWith(QLatin1String("CREATE TABLE ")))
            r << s.mid(13).section(QLatin1Char(' '), 0, 0);
    }
    return r;
}

void AjustarContadores(Conexion& c, const QString& tabla) {
    if (!c.enServidor())
        return;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT column_name FROM information_schema.columns WHERE table_schema = ? "
                       "AND table_name = ? AND column_default LIKE 'nextval(%'"),
        {c.esquema(), tabla.toLower()});
    QStringList columnas;
    while (q.next())
        columnas << q.value(0).toString();
    for (const QString& col : columnas)
        c.ejecutar(QStringLiteral("SELECT setval(pg_get_serial_sequence(?, ?), "
                                  "COALESCE((SELECT MAX(\"%1\") FROM %2), 0) + 1, false)")
                       .arg(col, tabla),
                   {c.esquema() + QLatin1Char('.') + tabla.toLower(), col});
}

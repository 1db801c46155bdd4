#include "store/Esquema.h"

#include <QFile>

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

} // namespace

void CrearEsquema(Conexion& c, TipoBase tipo) {
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

// Every table and stored query answers the fields the books read, and foreign or damaged files
// are refused with a message instead of a crash.

#include "store/Esquema.h"
#include "Entorno.h"
#include "ServidorPruebas.h"

#include <QFile>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace {

void tieneCampos(Conexion& c, const QString& fuente, const QStringList& campos) {
    QSqlQuery q = c.ejecutar("SELECT * FROM " + fuente + " LIMIT 0");
    const QSqlRecord r = q.record();
    for (const QString& campo : campos)
        EXPECT_GE(r.indexOf(campo), 0) << fuente.toStdString() << "." << campo.toStdString();
}

TEST(Esquema, LasConsultasDevuelvenLosCamposQueSeLeen) {
    Entorno e;
    e.crearEmpresa();
    Conexion c = e.datos();
    const QStringList diario{"NAs",   "NAp",       "Fecha",     "NCuenta", "Concepto",
                             "Debe",  "Haber",     "Documento", "Sector",  "IdIVA",
                             "Clase", "CasacionN", "CasacionH", "Punteo"};
    tieneCampos(c, "ConDiario", diario + QStringList{"Cuenta"});
    tieneCampos(c, "ConMayor", {"NCuenta", "Cuenta", "SaldoD", "SaldoH", "Aparcada", "Desde"});
    tieneCampos(c, "ConCliPro",
                {"NCuenta", "NIF", "Domicilio", "Municipio", "CPostal", "Provincia", "Pais", "Tfn1",
                 "Tfn2", "Contacto", "Observaciones", "Cuenta"});
    tieneCampos(c, "ConDatosIVA",
                {"IdIVA", "CP", "Fecha", "NCuenta", "NFactura", "Base", "Porcentaje", "Cuota",
                 "ClaseIVA", "LIVA", "L347", "Retencion", "TipOp", "NAs", "Sector", "Cuenta", "NIF",
                 "CodigoProv"});
    tieneCampos(c, "ConDiarioIVA",
                {"NAs", "NAp", "Fecha", "Concepto", "Documento", "Cuenta", "Debe", "Haber",
                 "Imputado", "NFactura", "NCuenta", "Sector", "Base", "Cuota"});
    tieneCampos(c, "ConCtaGrp", {"NCuenta", "Cuenta", "Grupo"});
    tieneCampos(c, "ConDelDia",
                {"Nº", "Fecha", "NCuenta1", "NCuenta2", "Concepto", "Importe", "Documento",
                 "Sector", "CP", "Cuenta1", "Cuenta2"});
    tieneCampos(c, "ConTiposIVA", {"NCuenta", "Cuenta", "Clase", "Porcentaje"});
    tieneCampos(c, "Empresa",
                {"Codigo", "Nombre", "NIF", "Domicilio", "Nº", "Ciudad", "CPostal", "Provincia",
                 "FechaIni", "EjCerrado", "NAsReg", "NAsFin"});
    tieneCampos(c, "Sectores", {"IdSector", "Sector"});
    Conexion b = e.bavar();
    tieneCampos(b, "ConInventario",
                {"NElemento", "Nombre", "NCentro", "FechaAdq", "Importe", "Amortizado",
                 "UltimaAmort", "SubctaAmort", "SubctaDota", "FechaBaja", "CausaBaja",
                 "Localizacion"});
    tieneCampos(b, "Periodicos",
                {"Nombre", "Periodicidad", "FechaIni", "FechaProx", "NCuenta", "Concepto", "Debe",
                 "Haber", "Documento", "Sector"});
    tieneCampos(b, "AsPredi",
                {"Codigo", "Nombre", "Fecha", "Subcuenta", "Concepto", "Importe", "DH", "Sector",
                 "Documento", "BaseImp", "CliPro", "Factura", "NCuenta", "NCliPro", "Etiqueta",
                 "LibroIVA", "Mod347", "Coment"});
    tieneCampos(b, "Vencimientos",
                {"IdVenc", "Tipo", "NCuenta1", "NCuenta2", "Importe", "FechaE", "FechaV", "Forma",
                 "Situacion", "Concepto", "Documento", "Sector", "Remesa"});
    Conexion v(e.sesion.rutaBavis(), TipoBase::Bavis);
    tieneCampos(v, "Usuarios", {"Usuario", "Contraseña"});
    tieneCampos(v, "Avisos", {"NAviso", "Fecha", "Periodo", "Texto"});
    Conexion vias(e.sesion.rutaVias(), TipoBase::Vias);
    tieneCampos(vias, "MUNICIPE", {"NOMBRE", "CODINE", "CP"});
    EXPECT_GT(vias.escalar("SELECT COUNT(*) FROM PROVINCE").toInt(), 50);
}

TEST(Esquema, ConDiarioIVAListaTambienLasLineasSinIVA) {
    Entorno e;
    e.crearEmpresa();
    Apunte iva = Debe("447200028", 21);
    iva.Iva = DatosIvaApunte{"240000009", "F-1", 100, 21, 21};
    e.asiento(QDate(2024, 2, 1), {Debe("660000044", 100), iva, Haber("240000009", 121)});
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM ConDiarioIVA").toInt(), 3);
    QSqlQuery q = c.ejecutar("SELECT Base, Cuota, Imputado, NFactura FROM ConDiarioIVA WHERE "
                             "IdIVA <> 0");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toDouble(), 100);
    EXPECT_EQ(q.value(1).toDouble(), 21);
    EXPECT_EQ(q.value(2).toString(), c.escalar("SELECT Cuenta FROM Cuentas WHERE NCuenta = "
                                               "'240000009'")
                                         .toString());
    EXPECT_EQ(q.value(3).toString(), "F-1");
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM ConDatosIVA").toInt(), 1);
}

TEST(Almacen, ArchivosAjenosODanadosSeRechazanConMensaje) {
    SOLO_EN_ARCHIVOS("archivos dañados o ajenos");
    QTemporaryDir dir;
    const QString roto = dir.filePath("Quilmar2024.db");
    QFile f(roto);
    f.open(QIODevice::WriteOnly);
    f.write("esto no es una base de datos, aunque lo parezca por su nombre");
    f.close();
    try {
        Conexion c(roto, TipoBase::Ejercicio);
        FAIL() << "a damaged file was opened";
    } catch (const ErrorAlmacen& e) {
        EXPECT_EQ(e.mensaje(),
                  "El archivo Quilmar2024.db está dañado o no es una base de datos de Quilmar.");
    }
    const QString ajena = dir.filePath("Bavar.db");
    {
        Conexion c(ajena, TipoBase::Cualquiera, true);
        c.ejecutar("CREATE TABLE Conceptos (x)");
    }
    EXPECT_THROW(Conexion(ajena, TipoBase::Bavar), ErrorAlmacen);
    CrearBaseDatos(dir.filePath("Bavis.db"), TipoBase::Bavis);
    EXPECT_THROW(Conexion(dir.filePath("Bavis.db"), TipoBase::Ejercicio), ErrorAlmacen)
        << "a database of another kind";
    EXPECT_NO_THROW(Conexion(dir.filePath("Bavis.db"), TipoBase::Bavis));
    EXPECT_THROW(Conexion(dir.filePath("falta.db"), TipoBase::Bavis), ErrorAlmacen);
}

TEST(Almacen, TransaccionesAnidadasYDeshechas) {
    QTemporaryDir dir;
    std::unique_ptr<Conexion> base;
    if (PruebasEnServidor()) {
        SALTAR_SIN_SERVIDOR();
        base.reset(new Conexion(Servidor::DeUrl(ServidorPruebas::instancia().nuevaBase()), "prueba",
                                TipoBase::Cualquiera, true));
    } else {
        base.reset(new Conexion(dir.filePath("x.db"), TipoBase::Cualquiera, true));
    }
    Conexion& c = *base;
    c.ejecutar("CREATE TABLE T (v TEXT)");
    {
        Transaccion t(c);
        c.ejecutar("INSERT INTO T VALUES (?)", {"uno"});
        {
            Transaccion dentro(c);
            c.ejecutar("INSERT INTO T VALUES (?)", {"dos"});
        } // not confirmed: only "dos" goes
        t.confirmar();
    }
    try {
        Transaccion t(c);
        c.ejecutar("INSERT INTO T VALUES (?)", {"tres"});
        c.ejecutar("INSERT INTO NoExiste VALUES (1)");
        t.confirmar();
    } catch (const ErrorAlmacen&) {
    }
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM T").toInt(), 1);
    EXPECT_EQ(c.escalar("SELECT v FROM T").toString(), "uno");
    // A quote in a value never breaks a statement.
    c.ejecutar("INSERT INTO T VALUES (?)", {"O'Donnell; DROP TABLE T"});
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM T").toInt(), 2);
    EXPECT_FALSE(c.escalar("SELECT v FROM T WHERE v IS NULL").isValid());
    c.ejecutar("INSERT INTO T VALUES (?)", {QString()});
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM T WHERE v = ''").toInt(), 1)
        << "a null text is stored as empty, never NULL";
}

TEST(Almacen, LectorLeeComoEjecutarYBindeaIgual) {
    SOLO_EN_ARCHIVOS("la lectura directa de SQLite (en el servidor el Lector lee con Qt, y lo "
                     "prueban los libros)");
    QTemporaryDir dir;
    Conexion c(dir.filePath("x.db"), TipoBase::Cualquiera, true);
    c.ejecutar("CREATE TABLE T (n INTEGER, x REAL, v TEXT)");
    c.ejecutar("INSERT INTO T VALUES (?, ?, ?)", {qint64(5000000000), 1234.56, "Ñandú, \"año\""});
    c.ejecutar("INSERT INTO T VALUES (?, ?, ?)", {2, 0.1, QString()});
    c.ejecutar("INSERT INTO T VALUES (NULL, NULL, NULL)");

    Lector l(c, "SELECT n, x, v FROM T WHERE v = ? OR n = ? ORDER BY rowid",
             {QString(), qint64(5000000000)});
    ASSERT_TRUE(l.siguiente());
    EXPECT_EQ(l.entero(0), 5000000000LL);
    EXPECT_DOUBLE_EQ(l.real(1), 1234.56);
    EXPECT_EQ(l.texto(2), QStringLiteral("Ñandú, \"año\""));
    ASSERT_TRUE(l.siguiente()) << "a null text binds as '', as ejecutar binds it";
    EXPECT_EQ(l.entero(0), 2);
    EXPECT_TRUE(l.vista(2).isEmpty());
    EXPECT_FALSE(l.siguiente());

    Lector nulos(c, "SELECT v FROM T WHERE n IS ?", {QVariant()});
    ASSERT_TRUE(nulos.siguiente());
    EXPECT_TRUE(nulos.texto(0).isNull());

    try {
        Lector malo(c, "SELECT * FROM NoExiste");
        FAIL() << "a bad statement was prepared";
    } catch (const ErrorAlmacen& e) {
        // The engine's own words ("no such table") stay out of what the user reads.
        EXPECT_EQ(e.mensaje(), "Error en la base de datos x.db (código 1).");
    }
}

} // namespace

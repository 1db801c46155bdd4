// The company list and its repair, on prepared folders.

#include "store/CargarEmp.h"
#include "Entorno.h"
#include "ServidorPruebas.h"
#include "platform/Ficheros.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/ListasEmpresas.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

QStringList filas(const QList<FilaEmpresa>& l) {
    QStringList r;
    for (const FilaEmpresa& f : l)
        r << f.Codigo + "|" + f.Empresa + "|" + f.Ano;
    return r;
}

void carpetaConSelan(Entorno& e, const QString& carpeta, const QList<RegistroSelan>& registros) {
    QDir(e.dir.path()).mkpath(carpeta);
    for (const RegistroSelan& r : registros)
        AnadirSelan(e.ruta(carpeta + "/Selan.dat"), r);
}

TEST(CargarEmp, SoloCarpetasEmpDeSeisCaracteresConEjercicios) {
    SOLO_EN_ARCHIVOS("la lista se lee de las carpetas y sus Selan.dat");
    Entorno e;
    carpetaConSelan(e, "Emp002", {{"2007", "002", "Dos"}, {"2008", "002", "Dos"}});
    carpetaConSelan(e, "Emp001", {{"2008", "001", "Uno"}});
    carpetaConSelan(e, "Emp12", {{"2008", "012", "Corta"}});
    carpetaConSelan(e, "Emp1234", {{"2008", "234", "Larga"}});
    QDir(e.dir.path()).mkpath("Emp004"); // empty Selan.dat: left out
    QFile(e.ruta("Emp004/Selan.dat")).open(QIODevice::WriteOnly);
    QDir(e.dir.path()).mkpath("Emp005"); // no Selan.dat at all
    EXPECT_EQ(filas(CargarEmp(e.sesion, e.dialogo)),
              QStringList({"Emp001|Uno|2008", "Emp002|Dos|2007", "Emp002|Dos|2008"}));
    const QList<RegistroNemp> nemp = LeerNemp(e.sesion.rutaNemp());
    ASSERT_EQ(nemp.size(), 2);
    EXPECT_TRUE(e.dialogo.textos.isEmpty());
}

TEST(CargarEmp, ElUltimoRegistroDeSelanDaElNombreEnNemp) {
    SOLO_EN_ARCHIVOS("Nemp.dat y Selan.dat");
    Entorno e;
    carpetaConSelan(e, "Emp001", {{"2007", "001", "Antigua"}, {"2008", "001", "Nueva"}});
    CargarEmp(e.sesion, e.dialogo);
    EXPECT_EQ(LeerNemp(e.sesion.rutaNemp()).value(0).Nombre, "Nueva");
}

TEST(CargarEmp, UnSelanQueNombraOtraCarpetaNoCuelgaElListado) {
    SOLO_EN_ARCHIVOS("la lista se lee de las carpetas y sus Selan.dat");
    Entorno e;
    carpetaConSelan(e, "Emp001", {{"2008", "001", "Uno"}});
    // A folder copied by hand: its Selan.dat still names company 007, whose folder is missing.
    carpetaConSelan(e, "Emp005", {{"2008", "007", "Copiada"}});
    EXPECT_EQ(filas(CargarEmp(e.sesion, e.dialogo)), QStringList({"Emp001|Uno|2008"}));
}

TEST(CargarEmp, SelanOcupadoDetieneElListado) {
    SOLO_EN_ARCHIVOS("el bloqueo de Selan.dat");
    Entorno e;
    carpetaConSelan(e, "Emp001", {{"2008", "001", "Uno"}});
    BloqueoFichero otro(e.ruta("Emp001/Selan.dat"));
    ASSERT_TRUE(otro.conseguido());
    EXPECT_TRUE(CargarEmp(e.sesion, e.dialogo).isEmpty());
    EXPECT_EQ(e.dialogo.textos, QStringList({"El archivo está en uso."}));
}

TEST(ActEjercicios, RehaceSelanDesdeLasBasesDeDatos) {
    SOLO_EN_ARCHIVOS(
        "Selan.dat rehecho desde los archivos (en el servidor, ActEjercicios.EnElServidor...)");
    Entorno e;
    e.crearEmpresa("001", 2007, "Uno");
    QFile::copy(e.ruta("Emp001/Quilmar2007.db"), e.ruta("Emp001/Quilmar2008.db"));
    QFile::remove(e.ruta("Emp001/Selan.dat"));
    ActEjercicios(e.sesion, "Emp001", e.dialogo);
    EXPECT_TRUE(e.dialogo.textos.isEmpty()) << e.dialogo.textos.join('|').toStdString();
    const QList<RegistroSelan> r = LeerSelan(e.ruta("Emp001/Selan.dat"));
    ASSERT_EQ(r.size(), 2);
    EXPECT_EQ(r[0].Ano, "2007");
    EXPECT_EQ(r[1].Ano, "2008");
    EXPECT_EQ(r[1].Codigo, "001");
    EXPECT_EQ(r[1].Nombre, "Uno");
}

TEST(ActEjercicios, DiceCadaProblemaYSigue) {
    SOLO_EN_ARCHIVOS(
        "archivos dañados o fuera de su carpeta (en el servidor, ActEjercicios.EnElServidor...)");
    Entorno e;
    e.crearEmpresa("001", 2007, "Uno");
    e.crearEmpresa("002", 2008, "Dos");
    // A database of company Uno dropped into Dos, and a damaged one.
    QFile::copy(e.ruta("Emp001/Quilmar2007.db"), e.ruta("Emp002/Quilmar2009.db"));
    QFile roto(e.ruta("Emp002/Quilmar2010.db"));
    roto.open(QIODevice::WriteOnly);
    roto.write(QByteArray(4096, 'x'));
    roto.close();
    QDir(e.dir.path()).mkpath("Emp003"); // no Bavar.db
    QDir(e.dir.path()).mkpath("Emp004"); // Bavar.db but no exercise
    QFile::copy(e.ruta("Emp001/Bavar.db"), e.ruta("Emp004/Bavar.db"));
    ActEjercicios(e.sesion, "", e.dialogo);
    EXPECT_EQ(e.dialogo.textos,
              QStringList({"La base de datos Quilmar2009 no corresponde a la la actual empresa.",
                           "Error en base de datos de la empresa Emp002",
                           "Falta base de datos en la empresa Emp003",
                           "No está la base de datos de la empresa Emp004"}));
    const QList<RegistroSelan> dos = LeerSelan(e.ruta("Emp002/Selan.dat"));
    ASSERT_EQ(dos.size(), 1);
    EXPECT_EQ(dos[0].Ano, "2008");
}

TEST(ActEjercicios, SinNombreReparaLaCarpetaDelProgramaNoLaDeDatos) {
    SOLO_EN_ARCHIVOS("las carpetas de una instalación cliente");
    Entorno e;
    QTemporaryDir servidor;
    e.sesion.DataPath = servidor.path(); // a client installation
    e.crearEmpresa("001", 2008, "Remota");
    QFile::remove(QDir(servidor.path()).filePath("Emp001/Selan.dat"));
    ActEjercicios(e.sesion, "", e.dialogo);
    EXPECT_FALSE(QFile::exists(QDir(servidor.path()).filePath("Emp001/Selan.dat")));
    ActEjercicios(e.sesion, "Emp001", e.dialogo);
    EXPECT_EQ(LeerSelan(QDir(servidor.path()).filePath("Emp001/Selan.dat")).size(), 1);
}

// On a server the lists are tables; the repair rebuilds them from the schemas there, with the
// same messages as on files.
TEST(ActEjercicios, EnElServidorRehaceLasListasDesdeLosEsquemas) {
    if (!PruebasEnServidor())
        GTEST_SKIP() << "Solo en el servidor: en archivos lo prueban las pruebas de Selan.dat";
    Entorno e;
    e.crearEmpresa("001", 2007, "Uno");
    CrearEjercicio(e.sesion, e.dialogo, 2008);
    e.crearEmpresa("002", 2008, "Dos");
    e.crearEmpresa("003", 2008, "Tres");
    Conexion servidor = AbrirServidor(e.sesion, "public");
    {
        // Lists gone astray, a year of company Uno dropped into Dos, a damaged year of Dos,
        // a company that lost its own schema and one left without exercises.
        Conexion bavis = AbrirAvisos(e.sesion);
        bavis.ejecutar("DELETE FROM Ejercicios");
        bavis.ejecutar("DELETE FROM Empresas");
        bavis.ejecutar("INSERT INTO Ejercicios (Ano, Codigo, Nombre) VALUES ('1999', '001', 'X')");
        servidor.ejecutar("CREATE SCHEMA emp002_2009");
        servidor.ejecutar("CREATE TABLE emp002_2009.empresa AS SELECT * FROM emp001_2007.empresa");
        servidor.ejecutar("CREATE SCHEMA emp002_2010");
        servidor.ejecutar("CREATE SCHEMA emp005_2010");
        servidor.ejecutar("DROP SCHEMA emp003_2008 CASCADE");
    }
    ActEjercicios(e.sesion, "", e.dialogo);
    EXPECT_EQ(e.dialogo.textos,
              QStringList({"La base de datos Quilmar2009 no corresponde a la la actual empresa.",
                           "Error en base de datos de la empresa Emp002",
                           "No está la base de datos de la empresa Emp003",
                           "Falta base de datos en la empresa Emp005"}));
    EXPECT_EQ(filas(CargarEmp(e.sesion, e.dialogo)),
              QStringList({"Emp001|Uno|2007", "Emp001|Uno|2008", "Emp002|Dos|2008"}));

    // One company only: the others are left as they are.
    Conexion bavis = AbrirAvisos(e.sesion);
    bavis.ejecutar("DELETE FROM Ejercicios WHERE Codigo = '001' AND Ano = '2007'");
    bavis.ejecutar("DELETE FROM Ejercicios WHERE Codigo = '002'");
    e.dialogo.textos.clear();
    ActEjercicios(e.sesion, "Emp001", e.dialogo);
    EXPECT_TRUE(e.dialogo.textos.isEmpty()) << e.dialogo.textos.join('|').toStdString();
    EXPECT_EQ(filas(CargarEmp(e.sesion, e.dialogo)),
              QStringList({"Emp001|Uno|2007", "Emp001|Uno|2008"}));
}

} // namespace

// Making a company from the generic template or from another company.

#include "store/Empresas.h"
#include "Entorno.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/ListasEmpresas.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

long cuenta(Conexion& c, const QString& tabla) {
    return c.escalar("SELECT COUNT(*) FROM " + tabla).toLongLong();
}

DatosNuevaEmpresa datos(const QString& codigo, const QString& nombre) {
    DatosNuevaEmpresa d;
    d.Codigo = codigo;
    d.Nombre = nombre;
    d.NIF = "B12345674";
    d.FechaIni = QDate(2024, 7, 1);
    return d;
}

TEST(CrearEmpresa, DesdeLaPlantillaGenerica) {
    Entorno e;
    DatosNuevaEmpresa d = datos("007", "  Ferretería Pérez SL ");
    d.Numero = "";
    CrearEmpresa(e.sesion, *e.ajustes, d);

    EXPECT_EQ(e.sesion.EmpresaActual, "Emp007");
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2024, 7, 1));
    EXPECT_EQ(e.sesion.FechaFinEj, QDate(2025, 6, 30));
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.UltimoAsiento, 0.0f);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Empresa"), "Emp007");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2024");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Nombre"), "Ferretería Pérez SL");

    Conexion c = e.datos();
    QSqlQuery q = c.ejecutar("SELECT Codigo, Nombre, NIF, \"Nº\", FechaIni, EjCerrado, NAsReg, "
                             "NAsFin FROM Empresa");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), "007");
    EXPECT_EQ(q.value(1).toString(), "Ferretería Pérez SL");
    EXPECT_TRUE(q.value(3).isNull()) << "an empty number is written as Null";
    EXPECT_EQ(q.value(4).toString(), "2024-07-01");
    EXPECT_EQ(q.value(5).toInt(), 0);
    EXPECT_FALSE(q.next()) << "one row";

    // The template: reserved subaccounts, VAT subaccounts with rates, cards, lists.
    EXPECT_EQ(NombreCuenta(e.sesion, e.dialogo, "012100104"), "Res.negativos años anteriores");
    EXPECT_FALSE(NombreCuenta(e.sesion, e.dialogo, "012900002").isEmpty());
    EXPECT_FALSE(NombreCuenta(e.sesion, e.dialogo, "012000103").isEmpty());
    EXPECT_GT(c.escalar("SELECT COUNT(*) FROM ConTiposIVA WHERE NCuenta LIKE '4472%'").toInt(), 0);
    EXPECT_GT(c.escalar("SELECT COUNT(*) FROM ConTiposIVA WHERE NCuenta LIKE '2477%'").toInt(), 0);
    EXPECT_EQ(cuenta(c, "Provincias"), 52);
    EXPECT_GT(cuenta(c, "ConCliPro"), 0);
    for (const char* g : {"0100", "0120", "0121", "0129", "2400", "4430", "5219"})
        EXPECT_TRUE(c.existe("SELECT 1 FROM Grupos WHERE NGrupo = ?", {QString(g)})) << g;
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Cuentas WHERE NGrupo NOT IN (SELECT NGrupo FROM "
                        "Grupos)")
                  .toInt(),
              0);
    EXPECT_EQ(cuenta(c, "Diario"), 0);
    Conexion b = e.bavar();
    EXPECT_EQ(cuenta(b, "Conceptos"), 0);

    const QList<RegistroSelan> selan = EjerciciosDe(e.sesion, "Emp007");
    ASSERT_EQ(selan.size(), 1);
    EXPECT_EQ(selan[0].Ano, "2024");
    EXPECT_EQ(selan[0].Codigo, "007");
    EXPECT_EQ(ListaEmpresas(e.sesion).value(0).Codigo, "007");
    EXPECT_EQ(CargarEmp(e.sesion, e.dialogo).size(), 1);
}

TEST(CrearEmpresa, RechazosSinDejarNadaEnDisco) {
    Entorno e;
    auto mensaje = [&](const DatosNuevaEmpresa& d) {
        try {
            CrearEmpresa(e.sesion, *e.ajustes, d);
        } catch (const Rechazo& r) {
            return r.mensaje();
        }
        return QString();
    };
    EXPECT_EQ(mensaje(datos("100", "Otra")),
              "Por favor utilice otro código. Ese está reservado a la empresa 'De Pruebas'.");
    EXPECT_EQ(mensaje(datos("12", "Otra")), "El código de la Empresa tiene que tener tres cifras.");
    EXPECT_EQ(mensaje(datos("012", " ")), "Debe introducir el nombre de la Empresa.");
    e.crearEmpresa("012", 2024, "Primera");
    EXPECT_EQ(mensaje(datos("012", "Segunda")), "Ya existe una Empresa con el código 012.");
    // A damaged source company: a store error, and no folder left behind.
    if (e.sesion.enServidor())
        e.datos().ejecutar("DROP TABLE Empresa");
    else
        QFile::resize(e.ruta("Emp012/Quilmar2024.db"), 100);
    DatosNuevaEmpresa d = datos("013", "Copia");
    d.EmpresaOrigen = "Emp012";
    EXPECT_THROW(CrearEmpresa(e.sesion, *e.ajustes, d), ErrorAlmacen);
    EXPECT_EQ(QDir(e.dir.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden),
              QStringList({"Emp012"}));
    EXPECT_EQ(ListaEmpresas(e.sesion).size(), 1);
    EXPECT_TRUE(EjerciciosDe(e.sesion, "Emp013").isEmpty());
}

TEST(CrearEmpresa, DesdeOtraEmpresaCopiaSoloLoElegido) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Origen");
    {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES ('457200900', 'Banco "
                   "propio', '1572')");
        c.ejecutar("INSERT INTO Sectores (Sector) VALUES ('Taller')");
        Conexion b = e.bavar();
        b.ejecutar("INSERT INTO Conceptos (Codigo, Nombre) VALUES (1, 'Cobro')");
        b.ejecutar("INSERT INTO Vencimientos (IdVenc, Tipo) VALUES (1, 'Cobro')");
    }
    e.asiento(QDate(2024, 3, 1), {Debe("157000001", 10), Haber("443000022", 10)});

    DatosNuevaEmpresa d = datos("002", "Copia");
    d.EmpresaOrigen = "Emp001";
    d.CopiarConceptos = true;
    CrearEmpresa(e.sesion, *e.ajustes, d);
    Conexion c = e.datos();
    EXPECT_TRUE(c.existe("SELECT 1 FROM Cuentas WHERE NCuenta = '457200900'"));
    EXPECT_EQ(cuenta(c, "Sectores"), 0) << "sectors only when asked";
    EXPECT_EQ(cuenta(c, "Diario"), 0);
    EXPECT_EQ(cuenta(c, "Mayor"), 0);
    Conexion b = e.bavar();
    EXPECT_EQ(cuenta(b, "Conceptos"), 1);
    EXPECT_EQ(cuenta(b, "Vencimientos"), 0);
}

// A copy that fails halfway (a table of the source company is gone) leaves no company behind, on
// files or on the server, and the code can be used again.
TEST(CrearEmpresa, DesdeOtraEmpresaQueFallaNoDejaNada) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Origen");
    {
        Conexion b = e.bavar();
        b.ejecutar(b.enServidor() ? "DROP TABLE Vencimientos CASCADE" : "DROP TABLE Vencimientos");
    }
    DatosNuevaEmpresa d = datos("002", "Copia");
    d.EmpresaOrigen = "Emp001";
    d.CopiarConceptos = true;
    d.CopiarVencimientos = true;
    EXPECT_THROW(CrearEmpresa(e.sesion, *e.ajustes, d), ErrorAlmacen);
    EXPECT_EQ(e.sesion.EmpresaActual, "Emp001");
    EXPECT_TRUE(EjerciciosDe(e.sesion, "Emp002").isEmpty());
    Sesion copia = e.sesion;
    copia.EmpresaActual = "Emp002";
    EXPECT_FALSE(ExisteEjercicio(copia, 2024));
    EXPECT_FALSE(QDir(e.ruta("Emp002")).exists());

    d.CopiarVencimientos = false;
    CrearEmpresa(e.sesion, *e.ajustes, d);
    EXPECT_EQ(e.sesion.EmpresaActual, "Emp002");
    Conexion b = e.bavar();
    EXPECT_EQ(cuenta(b, "Vencimientos"), 0);
}

} // namespace

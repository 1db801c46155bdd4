// Deleting a company removes exactly its folder and its record of the list; the company's data
// as the modification screen keeps them.

#include "Entorno.h"
#include "ServidorPruebas.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Empresas.h"
#include "store/ListasEmpresas.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

namespace {

QStringList ficheros(const QString& raiz) {
    QStringList r;
    QDirIterator it(raiz, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        const QString nombre = QDir(raiz).relativeFilePath(it.filePath());
        if (!nombre.endsWith("-wal") && !nombre.endsWith("-shm") && !nombre.endsWith(".ini"))
            r << nombre;
    }
    r.sort();
    return r;
}

QStringList codigosNemp(const Entorno& e) {
    QStringList r;
    for (const RegistroNemp& n : LeerNemp(e.sesion.rutaNemp()))
        r << n.Codigo + "|" + n.Nombre;
    return r;
}

TEST(EliminarEmpresa, ConfirmacionesYSoloSusFicheros) {
    SOLO_EN_ARCHIVOS("los archivos de la carpeta y Nemp.dat");
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.crearEmpresa("002", 2024, "Dos SL");
    e.crearEmpresa("003", 2024, "Tres");
    // Something of its own in the company's folder, and a file beside the folders.
    QDir(e.ruta("Emp002")).mkpath("Notas");
    QFile nota(e.ruta("Emp002/Notas/Memoria2024.rtf"));
    ASSERT_TRUE(nota.open(QIODevice::WriteOnly));
    nota.close();
    QFile ajena(e.ruta("Emp002.txt"));
    ASSERT_TRUE(ajena.open(QIODevice::WriteOnly));
    ajena.close();
    CargarEmp(e.sesion, e.dialogo);
    ASSERT_EQ(codigosNemp(e), QStringList({"001|Uno", "002|Dos SL", "003|Tres"}));
    ASSERT_EQ(e.sesion.EmpresaActual, "Emp003");

    EXPECT_FALSE(EliminarEmpresa(e.sesion, e.dialogo, "", ""));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Tiene que seleccionar una Empresa.");
    EXPECT_FALSE(EliminarEmpresa(e.sesion, e.dialogo, "003", "Tres"));
    EXPECT_EQ(e.dialogo.informados.takeLast(),
              "Para eliminar una empresa tiene que situarse en otra.");

    const QStringList antes = ficheros(e.dir.path());
    const QString primera = "Está se guro de que desea eliminar la Empresa Dos SL?";
    const QString segunda = "Al eliminar la Empresa Dos SL se borrarán definitivamente todos sus "
                            "datos, incluidos todos los ejercicios de la misma. Confirma que desea "
                            "eliminarla?";
    e.dialogo.responder({true, false});
    EXPECT_FALSE(EliminarEmpresa(e.sesion, e.dialogo, "002", "Dos SL"));
    EXPECT_EQ(e.dialogo.preguntas, QStringList({primera, segunda}));
    EXPECT_EQ(ficheros(e.dir.path()), antes);

    e.dialogo.responder({true, true});
    EXPECT_TRUE(EliminarEmpresa(e.sesion, e.dialogo, "002", "Dos SL"));
    QStringList esperado;
    for (const QString& f : antes)
        if (!f.startsWith("Emp002/") && f != "Emp002")
            esperado << f;
    EXPECT_EQ(ficheros(e.dir.path()), esperado);
    EXPECT_TRUE(QFile::exists(e.ruta("Emp002.txt")));
    EXPECT_EQ(codigosNemp(e), QStringList({"001|Uno", "003|Tres"}));
    EXPECT_FALSE(QFile::exists(e.ruta("2Nemp.dat")));
    EXPECT_EQ(CargarEmp(e.sesion, e.dialogo).size(), 2);
}

// On either engine: the company and every exercise of it are gone from the lists and can no
// longer be opened, the others stay, and its code is free again.
TEST(EliminarEmpresa, LaEmpresaYSusEjerciciosDesaparecen) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.crearEmpresa("002", 2024, "Dos SL");
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    e.crearEmpresa("003", 2024, "Tres");
    auto lista = [&] {
        QStringList r;
        for (const FilaEmpresa& f : CargarEmp(e.sesion, e.dialogo))
            r << f.Codigo + "|" + f.Ano;
        return r;
    };
    ASSERT_EQ(lista(), QStringList({"Emp001|2024", "Emp002|2024", "Emp002|2025", "Emp003|2024"}));

    e.dialogo.responder({true, true});
    EXPECT_TRUE(EliminarEmpresa(e.sesion, e.dialogo, "002", "Dos SL"));
    EXPECT_EQ(lista(), QStringList({"Emp001|2024", "Emp003|2024"}));
    EXPECT_FALSE(QDir(e.ruta("Emp002")).exists());
    Sesion dos = e.sesion;
    dos.EmpresaActual = "Emp002";
    EXPECT_FALSE(ExisteEjercicio(dos, 2024));
    EXPECT_FALSE(ExisteEjercicio(dos, 2025));
    EXPECT_TRUE(EjerciciosDe(e.sesion, "Emp002").isEmpty());
    EXPECT_THROW(AbrirBaseEmpresa(e.sesion, dos.rutaBavar(), TipoBase::Bavar), ErrorAlmacen);
    Sesion uno = e.sesion;
    uno.EmpresaActual = "Emp001";
    uno.AnoActual = 2024;
    EXPECT_NO_THROW(AbrirDatos(uno));
    EXPECT_NO_THROW(AbrirBavar(uno));

    e.crearEmpresa("002", 2026, "Otra Dos");
    EXPECT_EQ(lista(), QStringList({"Emp001|2024", "Emp002|2026", "Emp003|2024"}));
    EXPECT_EQ(EjerciciosDe(e.sesion, "Emp002").value(0).Nombre, "Otra Dos");
}

TEST(EliminarEmpresa, UnCodigoQueNoEsDeTresCifrasNoBorraNada) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.sesion.EmpresaActual = "Emp009";
    const QStringList antes = ficheros(e.dir.path());
    e.dialogo.responder({true, true});
    EXPECT_THROW(EliminarEmpresa(e.sesion, e.dialogo, "", "Uno"), Rechazo);
    EXPECT_THROW(EliminarEmpresa(e.sesion, e.dialogo, "../x", "Uno"), Rechazo);
    EXPECT_EQ(ficheros(e.dir.path()), antes);
}

TEST(DatosEmpresa, SeLeenYSeGuardanSinTocarLasListas) {
    Entorno e;
    e.crearEmpresa("004", 2024, "Antiguo");
    const QByteArray selan = [&] {
        QFile f(e.sesion.rutaSelan());
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();
    auto listas = [&] {
        QStringList r;
        for (const RegistroSelan& l : EjerciciosDe(e.sesion, "Emp004"))
            r << l.Ano + "|" + l.Codigo + "|" + l.Nombre;
        for (const RegistroNemp& l : EmpresasDe(e.sesion))
            r << l.Codigo + "|" + l.Nombre;
        return r;
    };
    const QStringList antes = listas();
    ASSERT_EQ(antes, QStringList({"2024|004|Antiguo", "004|Antiguo"}));
    DatosNuevaEmpresa d = LeerDatosEmpresa(e.sesion);
    EXPECT_EQ(d.Codigo, "004");
    EXPECT_EQ(d.Nombre, "Antiguo");
    EXPECT_EQ(d.FechaIni, QDate(2024, 1, 1));
    d.Nombre = "  Nuevo O'Hara ";
    d.Domicilio = "Calle Mayor";
    d.Numero = "  ";
    d.Ciudad = "Cuenca";
    d.FechaIni = QDate(2024, 4, 1);
    GuardarDatosEmpresa(e.sesion, d);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2024, 4, 1));
    EXPECT_EQ(e.sesion.FechaFinEj, QDate(2025, 3, 31));
    Conexion c = e.datos();
    QSqlQuery q = c.ejecutar("SELECT Nombre, Domicilio, \"Nº\", Ciudad, FechaIni FROM Empresa");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), "Nuevo O'Hara");
    EXPECT_EQ(q.value(1).toString(), "Calle Mayor");
    EXPECT_TRUE(q.value(2).isNull());
    EXPECT_EQ(q.value(3).toString(), "Cuenca");
    EXPECT_EQ(q.value(4).toString(), "2024-04-01");
    QFile f(e.sesion.rutaSelan());
    f.open(QIODevice::ReadOnly);
    EXPECT_EQ(f.readAll(), selan);
    EXPECT_EQ(listas(), antes);

    d.Nombre = " ";
    EXPECT_THROW(GuardarDatosEmpresa(e.sesion, d), Rechazo);
}

} // namespace

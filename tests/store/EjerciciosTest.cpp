// Exercises of a company: choosing one, making a new one from another, deleting one.

#include "store/Ejercicios.h"
#include "Entorno.h"
#include "ServidorPruebas.h"
#include "platform/Ficheros.h"
#include "store/Conexiones.h"
#include "store/ListasEmpresas.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <gtest/gtest.h>

namespace {

long cuenta(Conexion& c, const QString& tabla) {
    return c.escalar("SELECT COUNT(*) FROM " + tabla).toLongLong();
}

// Every file under the installation, with its size, to tell exactly what an action removed.
QStringList ficheros(const QString& raiz) {
    QStringList r;
    QDirIterator it(raiz, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        const QString nombre = QDir(raiz).relativeFilePath(it.filePath());
        if (!nombre.endsWith("-wal") && !nombre.endsWith("-shm") && !nombre.endsWith(".ini"))
            r << nombre;
    }
    r.sort();
    return r;
}

QStringList anosSelan(Entorno& e) {
    QStringList r;
    for (const RegistroSelan& s : EjerciciosDe(e.sesion, e.sesion.EmpresaActual))
        r << s.Ano + "|" + s.Codigo + "|" + s.Nombre;
    return r;
}

// The database of an exercise lost while its line in the list stays.
void QuitarBase(Entorno& e, const QString& empresa, int ano) {
    if (!e.sesion.enServidor()) {
        QFile::remove(e.ruta(QStringLiteral("%1/Quilmar%2.db").arg(empresa).arg(ano)));
        return;
    }
    Conexion c = AbrirServidor(e.sesion, "public");
    c.ejecutar(QStringLiteral("DROP SCHEMA %1_%2 CASCADE").arg(empresa.toLower()).arg(ano));
}

// A company whose exercise starts on 1 July, with entries, VAT records and day cash.
void empresaConMovimientos(Entorno& e) {
    e.crearEmpresa("001", 2024, "Taller Pérez");
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET FechaIni = '2024-07-01'");
        c.ejecutar("INSERT INTO DelDia (\"Nº\", Fecha, Concepto) VALUES (1, '2024-08-01', 'Caja')");
    }
    CargarEjercicio(e.sesion);
    Apunte iva = Debe("447200028", 21);
    DatosIvaApunte v;
    v.Contra = "240000009";
    v.Base = 100;
    v.Porcentaje = 21;
    v.Cuota = 21;
    iva.Iva = v;
    e.asiento(QDate(2024, 8, 1), {Debe("662900056", 100), iva, Haber("240000009", 121)});
    e.asiento(QDate(2024, 9, 1), {Debe("157000001", 50), Haber("370500067", 50)});
}

TEST(CrearEjercicio, CopiaElPlanYVaciaLosMovimientos) {
    Entorno e;
    empresaConMovimientos(e);
    long cuentasAntes;
    {
        Conexion c = e.datos();
        cuentasAntes = cuenta(c, "Cuentas");
        ASSERT_GT(cuenta(c, "DatosIVA"), 0);
    }
    int adaptado = -1;
    AdaptacionPlan() = [&](Sesion&, Dialogo&, int anterior) {
        adaptado = anterior;
    };
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    AdaptacionPlan() = nullptr;

    EXPECT_EQ(adaptado, 2024) << "the adaptation is told the year the copy came from";
    EXPECT_EQ(e.sesion.AnoActual, 2025);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2025, 7, 1));
    EXPECT_EQ(e.sesion.FechaFinEj, QDate(2026, 6, 30));
    EXPECT_EQ(e.sesion.UltimoAsiento, 0.0f);
    {
        Conexion c = e.datos();
        EXPECT_EQ(cuenta(c, "Cuentas"), cuentasAntes);
        EXPECT_GT(cuenta(c, "TiposIVA"), 0);
        EXPECT_GT(cuenta(c, "CliPro"), 0);
        for (const char* t : {"Diario", "Mayor", "DatosIVA", "DelDia"})
            EXPECT_EQ(cuenta(c, t), 0) << t;
        QSqlQuery q = c.ejecutar("SELECT FechaIni, EjCerrado, NAsReg, NAsFin, Nombre FROM Empresa");
        ASSERT_TRUE(q.next());
        EXPECT_EQ(q.value(0).toString(), "2025-07-01");
        EXPECT_EQ(q.value(1).toInt(), 0);
        EXPECT_EQ(q.value(2).toInt(), 0);
        EXPECT_EQ(q.value(3).toInt(), 0);
        EXPECT_EQ(q.value(4).toString(), "Taller Pérez");
    }
    EXPECT_EQ(anosSelan(e), QStringList({"2024|001|Taller Pérez", "2025|001|Taller Pérez"}));
    // The exercise it came from keeps its books.
    Conexion antiguo =
        AbrirBaseEmpresa(e.sesion, e.sesion.rutaEjercicio(2024), TipoBase::Ejercicio);
    EXPECT_EQ(cuenta(antiguo, "Diario"), 5);
    EXPECT_EQ(cuenta(antiguo, "DelDia"), 1);
    EXPECT_FALSE(QDir(e.sesion.carpetaEmpresa())
                     .entryList(QDir::Hidden | QDir::Files)
                     .join(",")
                     .contains(".Quilmar"))
        << "no passing copy is left";
}

TEST(CrearEjercicio, DeUnEjercicioCerradoYDesdeOtroAno) {
    Entorno e;
    e.crearEmpresa("002", 2024, "Bisiesta");
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET FechaIni = '2024-02-29', EjCerrado = -1, NAsReg = 7, "
                   "NAsFin = 8");
    }
    CargarEjercicio(e.sesion);
    ASSERT_TRUE(e.sesion.EjCerrado);
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.NAsReg, 0);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2025, 2, 28)) << "a year without 29 February";

    // From an older year than the current one.
    CrearEjercicio(e.sesion, e.dialogo, 2023, 2024);
    EXPECT_EQ(e.sesion.AnoActual, 2023);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2023, 2, 28));
    EXPECT_EQ(EjerciciosEmpresa(e.sesion), QList<int>({2024, 2025, 2023}));
}

TEST(CrearEjercicio, RechazosSinDejarNada) {
    Entorno e;
    e.crearEmpresa("003", 2024, "Rechazos");
    const QStringList antes = ficheros(e.dir.path());
    auto mensaje = [&](int ano, int desde = 0) {
        try {
            CrearEjercicio(e.sesion, e.dialogo, ano, desde);
        } catch (const Rechazo& r) {
            return r.mensaje();
        }
        return QString("creado");
    };
    EXPECT_EQ(mensaje(2024), "Ya existe el ejercicio 2024.");
    EXPECT_EQ(mensaje(25), "Indique el año (con cuatro cifras)");
    EXPECT_EQ(mensaje(2026, 2019), MsgFaltaEjercicio(e.sesion, 2019));
    EXPECT_EQ(ficheros(e.dir.path()), antes);
    EXPECT_FALSE(ExisteEjercicio(e.sesion, 2026));
    EXPECT_EQ(EjerciciosEmpresa(e.sesion), QList<int>({2024}));
    EXPECT_EQ(e.sesion.AnoActual, 2024);
}

TEST(CrearEjercicio, SelanOcupadoLoRechaza) {
    SOLO_EN_ARCHIVOS("el bloqueo de Selan.dat");
    Entorno e;
    e.crearEmpresa("003", 2024, "Rechazos");
    const QStringList antes = ficheros(e.dir.path());
    BloqueoFichero ocupado(e.sesion.rutaSelan());
    ASSERT_TRUE(ocupado.conseguido());
    try {
        CrearEjercicio(e.sesion, e.dialogo, 2025);
        ADD_FAILURE() << "creado";
    } catch (const Rechazo& r) {
        EXPECT_EQ(r.mensaje(), "El archivo está en uso.");
    }
    EXPECT_EQ(ficheros(e.dir.path()), antes);
}

TEST(EliminarEjercicio, ConfirmacionesYBorraSoloEseEjercicio) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    e.crearEmpresa("002", 2024, "Dos");
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    e.sesion.EmpresaActual = "Emp001";
    CargarEjercicio(e.sesion);
    ASSERT_EQ(e.sesion.AnoActual, 2025);

    EXPECT_FALSE(EliminarEjercicio(e.sesion, e.dialogo, 0));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Tiene que seleccionar un ejercicio.");
    EXPECT_FALSE(EliminarEjercicio(e.sesion, e.dialogo, 2025));
    EXPECT_EQ(e.dialogo.informados.takeLast(),
              "Para eliminar un ejercicio tiene antes que situarse en otro.");

    const QStringList antes = ficheros(e.dir.path());
    const QString primera = "Está seguro de que desea eliminar el ejercicio contable 2024?";
    const QString segunda = "Atención!! Si elimina el ejercicio contable 2024 se borrarán "
                            "permanentemente todos sus datos. Está seguro de que desea eliminarlo?";
    e.dialogo.responder({false});
    EXPECT_FALSE(EliminarEjercicio(e.sesion, e.dialogo, 2024));
    EXPECT_EQ(e.dialogo.preguntas, QStringList({primera}));
    e.dialogo.responder({true, false});
    EXPECT_FALSE(EliminarEjercicio(e.sesion, e.dialogo, 2024));
    EXPECT_EQ(e.dialogo.preguntas, QStringList({primera, primera, segunda}));
    EXPECT_EQ(ficheros(e.dir.path()), antes);

    e.dialogo.responder({true, true});
    EXPECT_TRUE(EliminarEjercicio(e.sesion, e.dialogo, 2024));
    QStringList esperado = antes;
    esperado.removeOne("Emp001/Quilmar2024.db");
    EXPECT_EQ(ficheros(e.dir.path()), esperado) << "the rest, Bavar.db included, stays";
    EXPECT_EQ(anosSelan(e), QStringList({"2025|001|Uno"}));
    EXPECT_EQ(EjerciciosEmpresa(e.sesion), QList<int>({2025}));
    EXPECT_FALSE(ExisteEjercicio(e.sesion, 2024));
    EXPECT_TRUE(ExisteEjercicio(e.sesion, 2025));
    Sesion dos = e.sesion;
    dos.EmpresaActual = "Emp002";
    EXPECT_TRUE(ExisteEjercicio(dos, 2024));
    EXPECT_EQ(EjerciciosEmpresa(dos), QList<int>({2024, 2025}));
    // The year can be made again.
    CrearEjercicio(e.sesion, e.dialogo, 2024, 2025);
    EXPECT_EQ(EjerciciosEmpresa(e.sesion), QList<int>({2025, 2024}));
}

TEST(Seleccion, UnEjercicioSinBaseDeDatosAvisaYNoCambiaNada) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    e.crearEmpresa("002", 2024, "Dos");
    QuitarBase(e, "Emp001", 2025);
    const Sesion antes = e.sesion;

    EXPECT_FALSE(EntrarEnEmpresa(e.sesion, *e.ajustes, e.dialogo, "Emp001", "Uno", 2025));
    Sesion otra = e.sesion;
    otra.EmpresaActual = "Emp001";
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgFaltaEjercicio(otra, 2025));
    EXPECT_EQ(e.sesion.EmpresaActual, antes.EmpresaActual);
    EXPECT_EQ(e.sesion.AnoActual, antes.AnoActual);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Empresa"), "Emp002");

    // The other year of that company opens, and from there the missing one is refused again.
    EXPECT_TRUE(EntrarEnEmpresa(e.sesion, *e.ajustes, e.dialogo, "Emp001", "Uno", 2024));
    EXPECT_EQ(e.ajustes->leer("Inicio", "Empresa"), "Emp001");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2024");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Nombre"), "Uno");
    EXPECT_FALSE(CambiarEjercicio(e.sesion, *e.ajustes, e.dialogo, 2025, false));
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2024");
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgFaltaEjercicio(e.sesion, 2025));
}

TEST(Seleccion, ReparaLaCuentaDeResultadosNegativosYComprueba) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    {
        Conexion c = e.datos();
        c.ejecutar("DELETE FROM Cuentas WHERE NCuenta = '012100104'");
    }
    int comprobaciones = 0;
    AdaptacionPlan() = [&](Sesion& s, Dialogo&, int anterior) {
        EXPECT_EQ(anterior, 0);
        EXPECT_EQ(s.AnoActual, 2024);
        ++comprobaciones;
    };
    EXPECT_TRUE(EntrarEnEmpresa(e.sesion, *e.ajustes, e.dialogo, "Emp001", "Uno", 2024));
    EXPECT_TRUE(EntrarEnEmpresa(e.sesion, *e.ajustes, e.dialogo, "Emp001", "Uno", 2024));
    EXPECT_TRUE(CambiarEjercicio(e.sesion, *e.ajustes, e.dialogo, 2024, false));
    AdaptacionPlan() = nullptr;
    EXPECT_EQ(comprobaciones, 2) << "the year box doesn't run the check";
    Conexion c = e.datos();
    QSqlQuery q = c.ejecutar("SELECT Cuenta, NGrupo FROM Cuentas WHERE NCuenta = '012100104'");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), "Res.negativos años anteriores");
    EXPECT_EQ(q.value(1).toString(), "0121");
    EXPECT_FALSE(q.next()) << "added once";
}

} // namespace

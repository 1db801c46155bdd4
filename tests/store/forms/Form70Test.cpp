// The access to companies: the list, the choice of a company and year, a new company, the
// repairs, and a year whose database is gone.

#include "store/forms/Form70.h"
#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/ListasEmpresas.h"
#include "store/forms/Form17.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QStringList filas(const Form70& f) {
    auto* g = Control<QTableWidget>(&f, "MSFlexGrid1");
    QStringList r;
    for (int i = 0; i < g->rowCount(); ++i)
        r << g->item(i, 0)->text() + "|" + g->item(i, 1)->text() + "|" + g->item(i, 2)->text();
    return r;
}

int filaActual(const Form70& f) {
    return Control<QTableWidget>(&f, "MSFlexGrid1")->currentRow();
}

// Two companies, one with two years; the session is left with no company, as at start.
void dosEmpresas(Entorno& e) {
    e.crearEmpresa("002", 2023, "Segunda SL");
    CrearEjercicio(e.sesion, e.dialogo, 2024);
    e.crearEmpresa("001", 2024, "Primera");
    e.ajustes->escribir("Inicio", "Empresa", "Emp002");
    e.ajustes->escribir("Inicio", "Año", "2024");
    e.sesion.EmpresaActual.clear();
    e.sesion.AnoActual = 0;
}

TEST(Form70, ListaYEligeLaFilaDeLaUltimaSesion) {
    Entorno e;
    dosEmpresas(e);
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Acceso a Empresas]");
    EXPECT_EQ(filas(f), QStringList({"Emp001|Primera|2024", "Emp002|Segunda SL|2023",
                                     "Emp002|Segunda SL|2024"}));
    EXPECT_EQ(filaActual(f), 2);

    Pulsar(&f, "Command1");
    EXPECT_EQ(f.resultado(), Form70::Seleccionada);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.nombreEmpresa(), "Segunda SL");
    EXPECT_EQ(f.anosEmpresa(), QList<int>({2023, 2024}));
    EXPECT_EQ(e.sesion.EmpresaActual, "Emp002");
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2024, 1, 1));
    EXPECT_EQ(e.ajustes->leer("Inicio", "Nombre"), "Segunda SL");
}

TEST(Form70, DobleClicEnOtraFila) {
    Entorno e;
    dosEmpresas(e);
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    auto* g = Control<QTableWidget>(&f, "MSFlexGrid1");
    g->setCurrentCell(0, 1);
    const QRect celda = g->visualItemRect(g->item(0, 1));
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(g->viewport(), Qt::LeftButton, {}, celda.center());
    EXPECT_EQ(f.resultado(), Form70::Seleccionada);
    EXPECT_EQ(e.sesion.EmpresaActual, "Emp001");
    EXPECT_EQ(f.anosEmpresa(), QList<int>({2024}));
    EXPECT_EQ(e.ajustes->leer("Inicio", "Empresa"), "Emp001");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2024");
}

TEST(Form70, UnEjercicioSinBaseDeDatosAvisaYLaListaSigue) {
    Entorno e;
    dosEmpresas(e);
    QFile::remove(e.ruta("Emp002/Quilmar2024.db"));
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    ASSERT_EQ(filaActual(f), 2) << "the row is still offered";
    Pulsar(&f, "Command1");
    ASSERT_EQ(e.dialogo.informados.size(), 1);
    EXPECT_TRUE(e.dialogo.informados[0].startsWith(
        "No se encuentra la base de datos del ejercicio 2024 de la empresa Emp002"));
    EXPECT_TRUE(f.isVisible());
    EXPECT_NE(f.resultado(), Form70::Seleccionada);
    EXPECT_TRUE(e.sesion.EmpresaActual.isEmpty());

    // Another year of the same company is usable.
    Control<QTableWidget>(&f, "MSFlexGrid1")->selectRow(1);
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.resultado(), Form70::Seleccionada);
    EXPECT_EQ(e.sesion.AnoActual, 2023);
}

TEST(Form70, SalirYEscapeAlEmpezarTerminan) {
    Entorno e;
    dosEmpresas(e);
    {
        Form70 f(e.sesion, *e.ajustes, e.dialogo);
        f.show();
        Pulsar(&f, "Command5");
        EXPECT_EQ(f.resultado(), Form70::Terminar);
    }
    {
        Form70 f(e.sesion, *e.ajustes, e.dialogo);
        f.show();
        QTest::keyClick(&f, Qt::Key_Escape);
        EXPECT_EQ(f.resultado(), Form70::Terminar);
    }
    // With a company open, Escape just goes back to it.
    e.sesion.EmpresaActual = "Emp001";
    e.sesion.AnoActual = 2024;
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QTest::keyClick(&f, Qt::Key_Escape);
    EXPECT_EQ(f.resultado(), Form70::Cerrada);
}

TEST(Form70, ReparacionesPreguntanYCierranElPrograma) {
    Entorno e;
    dosEmpresas(e);
    QFile::remove(e.ruta("Emp002/Selan.dat"));
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    ASSERT_EQ(filas(f), QStringList({"Emp001|Primera|2024"}));

    e.dialogo.responder({false});
    Control<QAction>(&f, "mnuActualizar")->trigger();
    EXPECT_EQ(e.dialogo.preguntas.takeLast(),
              "Este proceso le permite comprobar y actualizar los datos que se tienen de la "
              "empresa Primera. Desea continuar?");
    EXPECT_TRUE(f.isVisible());

    e.dialogo.responder({true});
    Control<QAction>(&f, "mnuActTodas")->trigger();
    EXPECT_EQ(e.dialogo.preguntas.takeLast(),
              "Este proceso le permite comprobar y actualizar los datos que se tienen de todas las "
              "empresas creadas. Desea continuar?");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Proceso terminado, se va a cerrar el programa.");
    EXPECT_EQ(f.resultado(), Form70::Terminar);
    // The repair rebuilt the list of the company whose Selan.dat was gone.
    EXPECT_EQ(LeerSelan(e.ruta("Emp002/Selan.dat")).size(), 2);

    Form70 g(e.sesion, *e.ajustes, e.dialogo);
    g.show();
    EXPECT_EQ(filas(g).size(), 3);
    e.dialogo.responder({true});
    Pulsar(&g, "Command4");
    EXPECT_EQ(e.dialogo.preguntas.takeLast(),
              "Este proceso le permite comprobar y actualizar los datos que se tienen de todas las "
              "empresas creadas en local. Desea continuar?");
    EXPECT_EQ(g.resultado(), Form70::Terminar);
}

TEST(Form70, NuevaSinEmpresasYCancelarTermina) {
    Entorno e;
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_TRUE(filas(f).isEmpty());
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form17");
        Pulsar(w, "Cancelar");
    });
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.resultado(), Form70::Terminar);
}

TEST(Form70, NuevaEmpresaDesdeOtraYQuedaElegida) {
    Entorno e;
    dosEmpresas(e);
    e.instalarDemo();
    e.sesion.EmpresaActual.clear();
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Quilmar [Datos Empresa]");
        auto* origen = Control<QComboBox>(w, "Combo1");
        auto* copiar = Control<QCheckBox>(w, "Check1");
        EXPECT_FALSE(origen->isEnabled());
        EXPECT_FALSE(copiar->isEnabled());
        EXPECT_EQ(Control<QLineEdit>(w, "Text8")->text(),
                  QDate(QDate::currentDate().year(), 1, 1).toString("dd/MM/yyyy"));

        // The reserved code is told on leaving the field.
        auto* codigo = Control<QLineEdit>(w, "Text1");
        codigo->setFocus();
        QTest::keyClicks(codigo, "100");
        Control<QLineEdit>(w, "Text2")->setFocus();
        emit codigo->editingFinished();
        EXPECT_EQ(e.dialogo.informados.value(0),
                  "Por favor utilice otro código. Ese está reservado a la empresa 'De Pruebas'.");
        Escribir(w, "Text1", "005");
        Escribir(w, "Text2", "Nueva O'Donnell");
        Escribir(w, "Text8", "010708");
        Pulsar(w, "Option2");
        EXPECT_TRUE(origen->isEnabled());
        for (int i = 1; i <= 6; ++i)
            EXPECT_TRUE(Control<QCheckBox>(w, QString("Check%1").arg(i))->isEnabled());
        QStringList nombres;
        for (int i = 0; i < origen->count(); ++i)
            nombres << origen->itemText(i);
        EXPECT_EQ(nombres, QStringList({"Primera", "Segunda SL"}))
            << "the demo company is left out";
        origen->setCurrentIndex(1);
        copiar->setChecked(true);
        // Back to the generic chart clears the choices, and again to another company.
        Pulsar(w, "Option1");
        EXPECT_FALSE(copiar->isChecked());
        EXPECT_EQ(origen->count(), 0);
        Pulsar(w, "Option2");
        origen->setCurrentIndex(1);
        Pulsar(w, "Aceptar");
    });
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.resultado(), Form70::Seleccionada);
    EXPECT_EQ(f.nombreEmpresa(), "Nueva O'Donnell");
    EXPECT_EQ(f.anosEmpresa(), QList<int>({2008}));
    EXPECT_EQ(e.sesion.EmpresaActual, "Emp005");
    EXPECT_EQ(e.sesion.FechaIniEj, QDate(2008, 7, 1));
    EXPECT_EQ(e.ajustes->leer("Inicio", "Empresa"), "Emp005");
}

} // namespace

// The exercise screen: its options by the state of the exercise, a new year, going to another,
// reopening a closed one, deleting one.

#include "store/forms/Form22.h"
#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QStringList elementos(const Form22& f, const char* combo) {
    auto* c = Control<QComboBox>(&f, combo);
    QStringList r;
    for (int i = 0; i < c->count(); ++i)
        r << c->itemText(i);
    return r;
}

void elegir(const Form22& f, int opcion) {
    Pulsar(&f, QString("Option%1").arg(opcion));
}

TEST(Form22, OpcionesSegunElEstadoDelEjercicio) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    {
        Form22 f(e.sesion, *e.ajustes, e.dialogo);
        f.show();
        EXPECT_EQ(f.windowTitle(), "Quilmar [Ejercicio]");
        EXPECT_FALSE(Control<QRadioButton>(&f, "Option4")->isEnabled()) << "open: no reopening";
        EXPECT_FALSE(Control<QRadioButton>(&f, "Option3")->isEnabled())
            << "closing waits for the year close";
        EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentText(), "2024");
        EXPECT_EQ(Control<QComboBox>(&f, "Combo2")->currentText(), "2024");

        // Each option enables only its own field and empties the year typed.
        elegir(f, 1);
        QTest::keyClicks(Control<QLineEdit>(&f, "Text1"), "20a25x");
        EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "2025") << "digits only";
        EXPECT_FALSE(Control<QComboBox>(&f, "Combo1")->isEnabled());
        elegir(f, 5);
        EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "");
        EXPECT_FALSE(Control<QLineEdit>(&f, "Text1")->isEnabled());
        EXPECT_TRUE(Control<QComboBox>(&f, "Combo2")->isEnabled());
        EXPECT_FALSE(Control<QComboBox>(&f, "Combo1")->isEnabled());
    }
    // With the year close installed, an open exercise offers it.
    Form22::CierreEjercicio() = [](Sesion&, Ajustes&, Dialogo&, QWidget*) {
        return false;
    };
    {
        Form22 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_TRUE(Control<QRadioButton>(&f, "Option3")->isEnabled());
    }
    e.sesion.EjCerrado = true;
    {
        Form22 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_FALSE(Control<QRadioButton>(&f, "Option3")->isEnabled());
        EXPECT_TRUE(Control<QRadioButton>(&f, "Option4")->isEnabled());
    }
    Form22::CierreEjercicio() = nullptr;
}

TEST(Form22, NuevoSeleccionarYEliminar) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    Form22 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QSignalSpy creados(&f, &Form22::anoCreado);
    QSignalSpy eliminados(&f, &Form22::anoEliminado);
    QSignalSpy cambios(&f, &Form22::ejercicioCambiado);

    elegir(f, 1);
    Escribir(&f, "Text1", "25");
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Indique el año (con cuatro cifras)");
    Escribir(&f, "Text1", "2024");
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Ya existe el ejercicio 2024.");
    Escribir(&f, "Text1", "2025");
    Pulsar(&f, "Aceptar");
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    EXPECT_EQ(elementos(f, "Combo1"), QStringList({"2024", "2025"}));
    EXPECT_EQ(elementos(f, "Combo2"), QStringList({"2024", "2025"}));
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentText(), "2025");
    ASSERT_EQ(creados.count(), 1);
    EXPECT_EQ(creados[0][0].toInt(), 2025);
    EXPECT_EQ(cambios.count(), 1);
    EXPECT_EQ(e.sesion.AnoActual, 2025);
    EXPECT_TRUE(QFile::exists(e.ruta("Emp001/Quilmar2025.db")));
    EXPECT_TRUE(f.isVisible()) << "the screen stays for more work";

    // The current year can't be deleted; the other one asks twice.
    elegir(f, 5);
    Control<QComboBox>(&f, "Combo2")->setCurrentText("2025");
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.dialogo.informados.takeLast(),
              "Para eliminar un ejercicio tiene antes que situarse en otro.");
    Control<QComboBox>(&f, "Combo2")->setCurrentText("2024");
    e.dialogo.responder({true, false});
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.dialogo.preguntas.size(), 2);
    EXPECT_TRUE(QFile::exists(e.ruta("Emp001/Quilmar2024.db")));
    e.dialogo.responder({true, true});
    Pulsar(&f, "Aceptar");
    EXPECT_FALSE(QFile::exists(e.ruta("Emp001/Quilmar2024.db")));
    EXPECT_EQ(elementos(f, "Combo1"), QStringList({"2025"}));
    EXPECT_EQ(elementos(f, "Combo2"), QStringList({"2025"}));
    ASSERT_EQ(eliminados.count(), 1);
    EXPECT_EQ(eliminados[0][0].toInt(), 2024);

    // Going to another year closes the screen with the session on it.
    CrearEjercicio(e.sesion, e.dialogo, 2026);
    Form22 g(e.sesion, *e.ajustes, e.dialogo);
    g.show();
    QSignalSpy cambiosG(&g, &Form22::ejercicioCambiado);
    elegir(g, 2);
    Control<QComboBox>(&g, "Combo1")->setCurrentText("2025");
    Pulsar(&g, "Aceptar");
    EXPECT_EQ(e.sesion.AnoActual, 2025);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2025");
    EXPECT_EQ(cambiosG.count(), 1);
    EXPECT_FALSE(g.isVisible());
}

TEST(Form22, AbrirUnEjercicioCerrado) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.asiento(QDate(2024, 3, 1), {Debe("157000001", 80), Haber("012900002", 80)});
    const long fin =
        e.asiento(QDate(2024, 12, 31), {Debe("012900002", 80), Haber("157000001", 80)});
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1, NAsFin = ?", {static_cast<qlonglong>(fin)});
    }
    CargarEjercicio(e.sesion);
    Form22 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QSignalSpy cambios(&f, &Form22::ejercicioCambiado);
    elegir(f, 4);
    Pulsar(&f, "Aceptar");
    EXPECT_TRUE(e.dialogo.textos.isEmpty()) << "no question is asked";
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.UltimoAsiento, 1.0f);
    EXPECT_EQ(cambios.count(), 1);
    EXPECT_FALSE(f.isVisible());
}

} // namespace

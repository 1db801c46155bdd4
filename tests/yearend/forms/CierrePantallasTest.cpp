// The year end on screen: the closing form and its options, a close with transfer from the
// exercise screen that leaves the user in the next year with the closed state shown, and the
// reorganisation with its bar.

#include "Entorno.h"
#include "forms/Pantallas.h"
#include "posting/forms/Form1.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/forms/Form22.h"
#include "yearend/forms/Form23.h"
#include "yearend/forms/MenusCierre.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Ventas = "370000066";

bool Activo(const QWidget* f, const char* nombre) {
    auto* w = f->findChild<QWidget*>(nombre);
    EXPECT_TRUE(w) << nombre;
    return w && w->isEnabled();
}

TEST(Form23, OpcionesYValoresPropuestos) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    {
        // No next year yet: it is offered to be made.
        Form23 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.windowTitle(), "Cerrar ejercicio");
        EXPECT_TRUE(Control<QRadioButton>(&f, "Option1")->isChecked());
        EXPECT_TRUE(Control<QRadioButton>(&f, "Option4")->isChecked());
        EXPECT_EQ(Control<QLineEdit>(&f, "Text2")->text(), "2025");
        EXPECT_TRUE(Activo(&f, "Text2"));
        EXPECT_FALSE(Activo(&f, "Combo1"));
        EXPECT_FALSE(Activo(&f, "Text1"));
        // Without transfer every box of the transfer is off.
        Pulsar(&f, "Option2");
        for (const char* n : {"Option3", "Option4", "Combo1", "Text1", "Text2"})
            EXPECT_FALSE(Activo(&f, n)) << n;
        Pulsar(&f, "Option1");
        Pulsar(&f, "Option3");
        EXPECT_TRUE(Activo(&f, "Combo1"));
        EXPECT_TRUE(Activo(&f, "Text1"));
        EXPECT_FALSE(Activo(&f, "Text2"));
        Escribir(&f, "Text1", "1a2");
        EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "12") << "digits only";
        // No year chosen: told, and the form stays.
        f.show();
        Pulsar(&f, "Aceptar");
        EXPECT_EQ(e.dialogo.informados.takeLast(),
                  "Tiene que seleccionar el año al que se van a traspasar los saldos.");
        EXPECT_TRUE(f.isVisible());
    }
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    ASSERT_TRUE(CambiarEjercicio(e.sesion, *e.ajustes, e.dialogo, 2024, false));
    Form23 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(Control<QRadioButton>(&f, "Option3")->isChecked());
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentText(), "2025");
}

TEST(Form23, CierreDesdeElTableroYEstadoCerrado) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.asiento(QDate(2024, 3, 1), {Debe(Caja, 500), Haber(Ventas, 500)});
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarCierre(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuReorganizar")->isEnabled());
    tablero.Refrescar();

    // Acceso, Ejercicio: "Cerrar ejercicio", then in Form23 a new year 2025.
    AlAbrirseModal([&](QWidget* f22) {
        EXPECT_TRUE(Activo(f22, "Option3"));
        EXPECT_FALSE(Activo(f22, "Option4"));
        Pulsar(f22, "Option3");
        AlAbrirseModal([&](QWidget* f23) {
            EXPECT_EQ(f23->windowTitle(), "Cerrar ejercicio");
            e.dialogo.responder({true});
            Pulsar(f23, "Aceptar");
        });
        Pulsar(f22, "Aceptar");
    });
    tablero.accion("mnuEjercicio")->trigger();
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Se va a cerrar este ejercicio, calculándose los saldos finales y "
                           "traspasándolos al ejercicio 2025 , asiento nº 1. Es correcto?"}));
    EXPECT_EQ(e.dialogo.informados, QStringList({"Proceso terminado."}));
    // The user stands in 2025, open; 2024 is closed.
    EXPECT_EQ(e.sesion.AnoActual, 2025);
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2025");
    auto* combo = tablero.findChild<QComboBox*>("Combo1");
    EXPECT_EQ(combo->currentText(), "2025");
    EXPECT_EQ(e.datos().escalar("SELECT COUNT(*) FROM Diario WHERE Clase = 'I'").toInt(), 2);

    // Back in 2024 the year box takes the closed colour, and the exercise screen offers only
    // the reversal.
    const QString abierto = combo->styleSheet();
    combo->setCurrentIndex(combo->findText("2024"));
    Q_EMIT combo->activated(combo->currentIndex());
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_NE(combo->styleSheet(), abierto);
    EXPECT_TRUE(combo->styleSheet().contains("#ffe0c0")) << combo->styleSheet().toStdString();
    Form22 f22(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(Activo(&f22, "Option3"));
    EXPECT_TRUE(Activo(&f22, "Option4"));
    Form22::CierreEjercicio() = nullptr;
}

TEST(Form20, ReorganizacionConSuBarra) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Uno");
    e.asiento(QDate(2024, 3, 1), {Debe(Caja, 500), Haber(Ventas, 500)});
    e.datos().ejecutar("UPDATE Mayor SET SaldoD = 1 WHERE NCuenta = ?", {Caja});
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarCierre(tablero, e.sesion, *e.ajustes, e.dialogo);
    AlAbrirseModal([&](QWidget* f) {
        EXPECT_EQ(f->windowTitle(), "Quilmar [Reorganización de Datos]");
        EXPECT_TRUE(Control<QLabel>(f, "Label1")
                        ->text()
                        .startsWith("Mediante este proceso se comprueban los datos"));
        Pulsar(f, "Command1");
        EXPECT_EQ(e.dialogo.informados, QStringList({"Proceso terminado."}));
        EXPECT_EQ(Control<QProgressBar>(f, "Picture1")->value(), 100);
        EXPECT_EQ(Control<QLabel>(f, "Label2")->text(), "") << "the stage is cleared at the end";
        Pulsar(f, "Command2");
    });
    tablero.accion("mnuReorganizar")->trigger();
    EXPECT_EQ(e.datos().escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Caja}).toDouble(),
              500);
    Form22::CierreEjercicio() = nullptr;
}

} // namespace

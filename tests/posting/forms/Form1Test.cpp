// The board as a shell: its menus and toolbar by name, the cover, the choice of company, and
// the year box that changes the year in place with its open/closed colours.

#include "posting/forms/Form1.h"
#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// Two companies, the second with two years; nothing chosen yet.
void dosEmpresas(Entorno& e) {
    e.crearEmpresa("002", 2023, "Segunda SL");
    CrearEjercicio(e.sesion, e.dialogo, 2024);
    e.crearEmpresa("001", 2024, "Primera");
    e.ajustes->escribir("Inicio", "Empresa", "Emp002");
    e.ajustes->escribir("Inicio", "Año", "2024");
    e.sesion.EmpresaActual.clear();
    e.sesion.AnoActual = 0;
}

// Opens the access to companies from the board and chooses the row of the Inicio settings.
bool elegirEmpresa(Form1& f) {
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form70");
        Pulsar(w, "Command1");
    });
    return f.AccesoEmpresas();
}

QColor colorDelCombo(Form1& f) {
    auto* c = Control<QComboBox>(&f, "Combo1");
    const QImage imagen = c->grab().toImage();
    return imagen.pixelColor(6, imagen.height() / 2);
}

TEST(Form1, MenusYBarraPorNombre) {
    Entorno e;
    Form1 f(e.sesion, *e.ajustes, e.dialogo);
    // Entries of later screens are there, disabled; those of this shell work.
    for (const char* n :
         {"mnuGC",          "mnuAparcar",    "mnuTipos",     "mnuSector",     "mnuConceptos",
          "mnuEliminarAs",  "mnuBuscarAs",   "mnuCaja",      "mnuVerDiario",  "mnuIGmeses",
          "mnuES",          "mnuGráficos",   "mnuSituacion", "mnuPyG",        "mnuMemNueva",
          "mnuMemElaborar", "mnuMemVer",     "mnuFormulas",  "mnuLIngresos",  "mnuLGastos",
          "mnuLExpedidas",  "mnuLRecibidas", "mnuM300",      "mnuM347",       "mnuM130",
          "mnuM115",        "mnuInventario", "mnuCrearP",    "mnuModificarP", "mnuAbrir",
          "mnuAvisos",      "mnuCopia",      "mnuRestaurar", "mnuCompactar"}) {
        QAction* a = f.accion(QString::fromUtf8(n));
        ASSERT_NE(a, nullptr) << n;
        EXPECT_FALSE(a->isEnabled()) << n;
        EXPECT_FALSE(a->text().isEmpty()) << n;
    }
    for (const char* n :
         {"mnuEmpresas", "mnuEjercicio", "mnuModDatos", "mnuEliminarEmp", "mnuClaves",
          "mnuConfigurar", "mnuSalir", "mnuImagenes", "mnuImg", "mnuAyudante", "btnBancos"})
        EXPECT_TRUE(f.accion(QString::fromUtf8(n))->isEnabled()) << n;
    EXPECT_NE(f.findChild<QMenu*>("mnuCopia_Seguridad"), nullptr);

    // The toolbar by index: separators, and buttons that share their menu entry's action.
    for (int i : {3, 9, 12, 19})
        EXPECT_TRUE(f.boton(i)->isSeparator()) << i;
    EXPECT_EQ(f.boton(1), f.accion("mnuSalir"));
    EXPECT_EQ(f.boton(2), f.accion("mnuGC"));
    EXPECT_EQ(f.boton(4), f.accion("mnuImagenes"));
    EXPECT_EQ(f.boton(15), f.accion("mnuIGmeses"));
    EXPECT_EQ(f.boton(18)->objectName(), "btnBancos");
    EXPECT_EQ(f.boton(0), nullptr);
    EXPECT_EQ(f.boton(21), nullptr);

    // A later screen wires its entry, which enables it and its button.
    int abiertas = 0;
    f.Conectar("mnuGC", [&] { ++abiertas; });
    EXPECT_TRUE(f.boton(2)->isEnabled());
    f.boton(2)->trigger();
    f.accion("mnuGC")->trigger();
    EXPECT_EQ(abiertas, 2);
}

TEST(Form1, EleccionDeEmpresaYPortada) {
    Entorno e;
    dosEmpresas(e);
    Form1 f(e.sesion, *e.ajustes, e.dialogo);
    f.Cargar();
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Principal] ");
    QSignalSpy cambios(&f, &Form1::sesionCambiada);
    ASSERT_TRUE(elegirEmpresa(f));
    EXPECT_EQ(cambios.count(), 1);
    EXPECT_EQ(f.windowTitle(), "Quilmar Pro Segunda SL");
    auto* combo = Control<QComboBox>(&f, "Combo1");
    ASSERT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->itemText(0), "2023");
    EXPECT_EQ(combo->currentText(), "2024");
    EXPECT_GT(e.sesion.UltimaSubcuenta, 0) << "the highest serial of the subaccounts";
    EXPECT_EQ(e.sesion.CambioPeseta, 166.386);

    // The cover hides the board until it is clicked, and comes back with button 4.
    auto* portada = Control<QWidget>(&f, "Picture4");
    EXPECT_TRUE(portada->isVisible());
    EXPECT_FALSE(f.BoardVisible());
    QTest::mouseClick(Control<QLabel>(&f, "Image2"), Qt::LeftButton);
    EXPECT_TRUE(f.BoardVisible());
    EXPECT_FALSE(portada->isVisible());
    EXPECT_TRUE(f.area(0)->isVisible());
    EXPECT_TRUE(f.accion("mnuImagenes")->isChecked());
    EXPECT_EQ(f.windowTitle(), "Quilmar [Contabilizar] Segunda SL");
    f.boton(4)->trigger();
    EXPECT_FALSE(f.BoardVisible());
    EXPECT_EQ(f.windowTitle(), "Quilmar [Principal] Segunda SL");
}

TEST(Form1, ElCuadroDeEjercicioCambiaElAnoYSuColor) {
    Entorno e;
    dosEmpresas(e);
    {
        Conexion c(e.ruta("Emp002/Quilmar2023.db"), TipoBase::Ejercicio);
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    Form1 f(e.sesion, *e.ajustes, e.dialogo);
    f.Cargar();
    f.show();
    ASSERT_TRUE(elegirEmpresa(f));
    EXPECT_EQ(colorDelCombo(f), QColor(0xC0, 0xFF, 0xC0)) << "light green: open";

    auto* combo = Control<QComboBox>(&f, "Combo1");
    QSignalSpy cambios(&f, &Form1::sesionCambiada);
    combo->setCurrentIndex(0);
    emit combo->activated(0);
    EXPECT_EQ(e.sesion.AnoActual, 2023);
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_EQ(e.ajustes->leer("Inicio", "Año"), "2023");
    EXPECT_EQ(cambios.count(), 1);
    EXPECT_EQ(colorDelCombo(f), QColor(0xFF, 0xE0, 0xC0)) << "light orange: closed";

    // A year whose database is gone is told, and the box stays on the year in use.
    QFile::remove(e.ruta("Emp002/Quilmar2024.db"));
    combo->setCurrentIndex(1);
    emit combo->activated(1);
    ASSERT_EQ(e.dialogo.informados.size(), 1);
    EXPECT_TRUE(e.dialogo.informados[0].startsWith("No se encuentra la base de datos del "
                                                   "ejercicio 2024"));
    EXPECT_EQ(e.sesion.AnoActual, 2023);
    EXPECT_EQ(combo->currentText(), "2023");
    EXPECT_EQ(cambios.count(), 1);
}

TEST(Form1, UnEjercicioNuevoDesdeElMenuLlegaAlCuadro) {
    Entorno e;
    dosEmpresas(e);
    Form1 f(e.sesion, *e.ajustes, e.dialogo);
    f.Cargar();
    f.show();
    ASSERT_TRUE(elegirEmpresa(f));
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form22");
        Pulsar(w, "Option1");
        Escribir(w, "Text1", "2025");
        Pulsar(w, "Aceptar");
        Pulsar(w, "Salir");
    });
    f.accion("mnuEjercicio")->trigger();
    auto* combo = Control<QComboBox>(&f, "Combo1");
    ASSERT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->currentText(), "2025");
    EXPECT_EQ(e.sesion.AnoActual, 2025);
}

} // namespace

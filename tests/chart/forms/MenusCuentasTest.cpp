// The chart's screens open from the board's menus, and what they change reaches the board.

#include "chart/forms/MenusCuentas.h"
#include "Entorno.h"
#include "posting/forms/Form1.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

// Triggers a menu entry and, once its window is up, runs `dentro` on it and closes it. The
// caption of the window that opened.
QString abrir(Form1& tablero, const char* menu, std::function<void(QWidget*)> dentro = {}) {
    QString titulo;
    QTimer::singleShot(0, [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (!w)
            return;
        titulo = w->windowTitle();
        if (dentro)
            dentro(w);
        w->close();
    });
    tablero.accion(QString::fromLatin1(menu))->trigger();
    return titulo;
}

TEST(MenusCuentas, CadaEntradaAbreSuPantalla) {
    Entorno e;
    e.crearEmpresa();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarCuentas(tablero, e.sesion, *e.ajustes, e.dialogo);
    for (const char* n : {"mnuGC", "mnuAparcar", "mnuTipos", "mnuSector", "mnuConceptos"})
        EXPECT_TRUE(tablero.accion(QString::fromLatin1(n))->isEnabled()) << n;
    EXPECT_TRUE(tablero.boton(2)->isEnabled());
    EXPECT_EQ(abrir(tablero, "mnuGC"), "Quilmar [Cuentas]");
    EXPECT_EQ(abrir(tablero, "mnuAparcar"), "Quilmar [Aparcar]");
    EXPECT_EQ(abrir(tablero, "mnuTipos"), "Quilmar [Tipos de IVA]");
    EXPECT_EQ(abrir(tablero, "mnuSector"), "Quilmar [Sectores]");
    EXPECT_EQ(abrir(tablero, "mnuConceptos"), "Quilmar [Conceptos Predefinidos]");
}

TEST(MenusCuentas, UnCambioEnElPlanRellenaLasAreas) {
    Entorno e;
    e.crearEmpresa();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarCuentas(tablero, e.sesion, *e.ajustes, e.dialogo);
    // The board's fill sets the highest serial; a stale value shows whether it ran.
    e.sesion.UltimaSubcuenta = 5;
    abrir(tablero, "mnuGC", [&](QWidget* f) {
        auto* fg1 = f->findChild<QTableWidget*>("FG1");
        for (int r = 0; r < fg1->rowCount(); ++r)
            if (fg1->item(r, 1)->text() == "Capital social")
                QTest::mouseClick(fg1->viewport(), Qt::LeftButton, {},
                                  fg1->visualItemRect(fg1->item(r, 0)).center());
        f->findChild<QLineEdit*>("Text1")->setText("Capital");
        e.dialogo.responder({true});
        QTest::mouseClick(f->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    });
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join("|").toStdString();
    EXPECT_EQ(e.sesion.UltimaSubcuenta, 104);
}

} // namespace

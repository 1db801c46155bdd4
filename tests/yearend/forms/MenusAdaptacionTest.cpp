// The adaptation from the board's menu: it asks, adapts, refills the areas, and says so when
// there is nothing left to do.

#include "yearend/forms/MenusAdaptacion.h"
#include "../PlanAntiguo.h"
#include "Entorno.h"
#include "posting/forms/Form1.h"
#include "yearend/Adaptacion.h"

#include <QAction>
#include <gtest/gtest.h>

namespace {

TEST(MenusAdaptacion, PreguntaAdaptaYRellenaLasAreas) {
    Entorno e;
    planAntiguo(e, 2008);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    QAction* menu = tablero.accion("mnuAdaptar");
    ASSERT_NE(menu, nullptr);
    EXPECT_FALSE(menu->isEnabled());
    ConectarAdaptacion(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(menu->isEnabled());

    // No: nothing changes.
    e.dialogo.responder({false});
    menu->trigger();
    EXPECT_EQ(e.dialogo.preguntas.size(), 1);
    EXPECT_FALSE(PlanAdaptado(e.sesion));

    // The board's fill sets the highest serial; a stale value shows whether it ran.
    e.sesion.UltimaSubcuenta = 5;
    e.dialogo.responder({true});
    menu->trigger();
    EXPECT_TRUE(PlanAdaptado(e.sesion));
    EXPECT_EQ(e.dialogo.informados.last(), MsgAdaptacionConcluida + " " + MsgAdaptacionRevisar);
    EXPECT_EQ(e.sesion.UltimaSubcuenta, 104); // 012100104, the highest serial of the chart

    menu->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgYaAdaptada);
    EXPECT_EQ(e.dialogo.preguntas.size(), 2);
}

} // namespace

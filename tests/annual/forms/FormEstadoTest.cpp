// The statement windows offscreen on the demo company: the question on the breakdown, the two
// lists behind Command1 and Command2, and the board's menu entries.

#include "annual/forms/FormEstado.h"
#include "Entorno.h"
#include "annual/forms/MenusAnuales.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/forms/Form1.h"

#include <QAction>
#include <QPointer>
#include <gtest/gtest.h>

namespace {

QString Titulo(const FormEstado* f, int c) {
    return f->tabla()->model()->headerData(c, Qt::Horizontal).toString();
}

} // namespace

TEST(FormEstado, BalancePymesWithBothListsAndTheQuestion) {
    Entorno e;
    e.instalarDemo();
    e.dialogo.responder({true});
    QPointer<FormEstado> f =
        FormEstado::Abrir(e.sesion, *e.ajustes, e.dialogo, TipoEstado::Balance);
    ASSERT_TRUE(f);
    EXPECT_EQ(e.dialogo.preguntas, QStringList{PreguntaDesglose});
    EXPECT_EQ(f->objectName(), "Form105");
    EXPECT_EQ(f->windowTitle(), "Quilmar [Balance de Situación]");
    EXPECT_EQ(Titulo(f, 0), "A C T I V O");
    EXPECT_EQ(Titulo(f, 4), "Notas Mem.");
    EXPECT_EQ(Titulo(f, 5), "Ejercicio 2026");
    EXPECT_EQ(Titulo(f, 6), "Ejercicio 2025");
    const int filasActivo = f->tabla()->model()->rowCount();
    EXPECT_EQ(filasActivo, f->estado().lista1.Filas());
    // With the breakdown the cash subaccount is there.
    EXPECT_GE(BuscarFila(f->rejilla(), "Caja"), 0);
    f->accion("Command2")->trigger();
    EXPECT_EQ(f->listaVisible(), 2);
    EXPECT_EQ(Titulo(f, 0), "PATRIMONIO NETO Y PASIVO");
    EXPECT_EQ(f->tabla()->model()->rowCount(), f->estado().lista2.Filas());
    f->accion("Command1")->trigger();
    EXPECT_EQ(f->tabla()->model()->rowCount(), filasActivo);
    EXPECT_FALSE(f->accion("Command4")->isEnabled());
    f->close();
}

TEST(FormEstado, ProfitAndLossFromTheBoardAndNothingToShow) {
    Entorno e;
    e.instalarDemo();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(tablero.accion("mnuSituacion")->isEnabled());
    EXPECT_FALSE(tablero.accion("mnuPyG")->isEnabled());
    ConectarAnuales(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuSituacion")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuPyG")->isEnabled());
    e.dialogo.responder({false});
    tablero.accion("mnuPyG")->trigger();
    const QList<QWidget*> abiertos = tablero.librosAbiertos(QStringLiteral("Anuales"));
    ASSERT_EQ(abiertos.size(), 1);
    auto* f = qobject_cast<FormEstado*>(abiertos.first());
    ASSERT_TRUE(f);
    EXPECT_EQ(f->objectName(), "Form106");
    // One list: the switches are off; no breakdown was asked for.
    EXPECT_FALSE(f->accion("Command2")->isEnabled());
    EXPECT_EQ(BuscarFila(f->rejilla(), "Ventas de mercaderías"), -1);
    EXPECT_GE(BuscarFila(f->rejilla(), "D) RESULTADO DEL EJERCICIO (C+17)"), 0);
    f->close();

    // An exercise without entries: the message, and no window.
    e.sesion.AnoActual = 2026;
    {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("DELETE FROM Diario"));
    }
    e.dialogo.responder({false});
    EXPECT_EQ(FormEstado::Abrir(e.sesion, *e.ajustes, e.dialogo, TipoEstado::PyG), nullptr);
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinMovimientos);
}

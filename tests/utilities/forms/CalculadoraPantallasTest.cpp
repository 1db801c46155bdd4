// The calculator's window offscreen: keys from the keyboard, tips, the hand-back to the amount
// field it was opened from, and the loan table window.

#include "Entorno.h"
#include "forms/Pantallas.h"
#include "platform/Rejilla.h"
#include "utilities/Calculadora.h"
#include "utilities/forms/Form32.h"
#include "utilities/forms/Form33.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

Calculadora& limpia() {
    Calculadora& k = CalculadoraDelPrograma();
    k.Tecla(TeclaCalc::C, true);
    k.pesetas = false;
    k.alPrincipio = false;
    return k;
}

} // namespace

TEST(Form32, TecladoConsejosYModoGuardado) {
    Entorno e;
    limpia();
    Form32 f(e.sesion, *e.ajustes, e.dialogo);
    QTest::keyClicks(&f, QStringLiteral("12+3="));
    EXPECT_EQ(f.Pantalla(), "15,00");
    ASSERT_TRUE(f.boton("C"));
    EXPECT_EQ(f.boton("C")->toolTip(), "Borra Memoria Operativa. Con Ctl borra todo");
    EXPECT_EQ(f.boton("TAE")->toolTip(), "Convierte Tasa nominal a efectiva. Con May viceversa");
    EXPECT_EQ(f.boton("Fin")->toolTip(), "Salir");
    f.boton("E-P")->click();
    EXPECT_EQ(f.Pantalla(), "15");
    EXPECT_EQ(e.ajustes->leer("Valores", "Formato"), "Ptas");
    f.boton("E-P")->click();
    EXPECT_EQ(e.ajustes->leer("Valores", "Formato"), "Euros");
}

TEST(Form32, DevuelveElResultadoAlCampo) {
    Entorno e;
    limpia();
    QWidget ventana;
    auto* campo = new QLineEdit(&ventana);
    InstalarCalculadora(campo, QStringLiteral("F470"), e.sesion, *e.ajustes, e.dialogo);
    ventana.show();
    QString etiqueta;
    AlAbrirseModal([&](QWidget* w) {
        auto* f = qobject_cast<Form32*>(w);
        ASSERT_TRUE(f);
        etiqueta = f->Etiqueta();
        QTest::keyClicks(f, QStringLiteral("25*4,5"));
        QTest::keyClick(f, Qt::Key_Return);
    });
    QTest::keyClick(campo, Qt::Key_Plus);
    EXPECT_EQ(etiqueta, "F470");
    EXPECT_EQ(campo->text(), "112,50");
}

TEST(Form33, CuadroDeLosRegistros) {
    Entorno e;
    Calculadora& k = limpia();
    k.n = 12;
    k.i = 1;
    k.PV = 1200;
    Form33 f(e.sesion, *e.ajustes, e.dialogo, k);
    EXPECT_EQ(f.windowTitle(), "Quilmar [Cuadro amortización]");
    ASSERT_EQ(f.rejilla().Filas(), 13);
    EXPECT_EQ(f.rejilla().Celda(12, 0), "Totales");
    EXPECT_EQ(f.rejilla().Celda(12, 3), "1.200,00");
    EXPECT_TRUE(f.accion("mnuImprimir"));
    k.Tecla(TeclaCalc::C, true);
}

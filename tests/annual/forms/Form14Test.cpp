// The formula screens offscreen: Form107 from the board on the demo (2007 chart) and Form14 on
// the old one, their columns, fields, key filter and the file behind them.

#include "annual/forms/Form14.h"
#include "Entorno.h"
#include "annual/FormulasMemoria.h"
#include "annual/Memoria.h"
#include "annual/forms/MenusAnuales.h"
#include "posting/forms/Form1.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QStringList Cabecera(QTableWidget* g) {
    QStringList r;
    for (int c = 0; c < g->columnCount(); ++c)
        r << g->horizontalHeaderItem(c)->text();
    return r;
}

int FilaDe(QTableWidget* g, const QString& nombre) {
    for (int f = 0; f < g->rowCount(); ++f)
        if (g->item(f, 0)->text() == nombre)
            return f;
    return -1;
}

template <class T> T* Hijo(QWidget* w, const char* nombre) {
    return w->findChild<T*>(QString::fromLatin1(nombre));
}

} // namespace

TEST(Form14, TheBoardOpensForm107AndItEditsTheCompanysFile) {
    Entorno e;
    e.instalarDemo();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    for (const char* m : {"mnuMemNueva", "mnuMemElaborar", "mnuMemVer", "mnuFormulas"})
        EXPECT_FALSE(tablero.accion(m)->isEnabled()) << m;
    ConectarAnuales(tablero, e.sesion, *e.ajustes, e.dialogo);
    for (const char* m : {"mnuMemNueva", "mnuMemElaborar", "mnuMemVer", "mnuFormulas"})
        EXPECT_TRUE(tablero.accion(m)->isEnabled()) << m;

    // Without a model, editing and making the notes say so and open nothing.
    tablero.accion("mnuMemElaborar")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinModelo);
    e.dialogo.responder({true});
    tablero.accion("mnuMemVer")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinModeloActual);

    tablero.accion("mnuFormulas")->trigger();
    QPointer<Form14> f = tablero.findChild<Form14*>(QStringLiteral("Form107"));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Formulación Memoria]");
    QTableWidget* g = f->grid();
    EXPECT_EQ(Cabecera(g),
              (QStringList{" Nombre", " Tipo", " Contenido", " Periodo", "Ejercicio"}));
    const QString ruta = RutaFormulas(e.sesion, PlanMemoria::Nuevo);
    EXPECT_EQ(g->rowCount(), LeerFormulas(ruta).size());
    const int f25 = FilaDe(g, "F025");
    ASSERT_GE(f25, 0);
    EXPECT_EQ(g->item(f25, 3)->text(), "Fecha Final");
    EXPECT_EQ(g->item(f25, 4)->text(), "Año N-1");

    auto* nombre = Hijo<QLineEdit>(f, "Text1");
    auto* tipo = Hijo<QComboBox>(f, "Combo1");
    auto* ejercicio = Hijo<QComboBox>(f, "Combo3");
    auto* periodo = Hijo<QComboBox>(f, "Combo2");
    auto* contenido = Hijo<QLineEdit>(f, "Text2");
    // A row to the fields.
    f->CargarFila(f25);
    EXPECT_EQ(nombre->text(), "025");
    EXPECT_EQ(ejercicio->currentText(), "Año N-1");
    EXPECT_EQ(periodo->currentText(), "Fecha Final");

    // Adding: the checks first, then the file.
    nombre->setText("070");
    tipo->setCurrentIndex(tipo->findText("Importe"));
    ejercicio->setCurrentIndex(-1);
    contenido->clear();
    QTest::keyClicks(contenido, "a(<S1x00>*2)");
    EXPECT_EQ(contenido->text(), "(<S100>*2)"); // letters other than F and S do not type
    Hijo<QPushButton>(f, "Command1")->click();
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinEjercicio);
    ejercicio->setCurrentIndex(ejercicio->findText("Año N"));
    EXPECT_EQ(periodo->count(), 3);
    periodo->setCurrentIndex(periodo->findText("Fecha inicial"));
    Hijo<QPushButton>(f, "Command1")->click();
    const int f70 = FilaDe(g, "F070");
    ASSERT_GE(f70, 0);
    EXPECT_EQ(g->item(f70, 3)->text(), "Fecha inicial");
    EXPECT_EQ(LeerFormulas(ruta).last(),
              (FormulaMemoria{"F070", "Importe", "Fecha inicial", "(<S100>*2)"}));

    // A text takes "Ninguno" only, and any character.
    tipo->setCurrentIndex(tipo->findText("Texto"));
    EXPECT_EQ(periodo->count(), 1);
    EXPECT_EQ(periodo->currentText(), "Ninguno");
    contenido->clear();
    QTest::keyClicks(contenido, "Sin cambios");
    EXPECT_EQ(contenido->text(), "Sin cambios");
    Hijo<QPushButton>(f, "Command2")->click(); // replaces F070, the row taken
    EXPECT_EQ(LeerFormulas(ruta).last(),
              (FormulaMemoria{"F070", "Texto", "Ninguno", "Sin cambios"}));

    const int antes = g->rowCount();
    e.dialogo.responder({true});
    Hijo<QPushButton>(f, "Command3")->click();
    EXPECT_EQ(e.dialogo.preguntas.last(), PreguntaEliminarFormula("F070"));
    EXPECT_EQ(g->rowCount(), antes - 1);
    EXPECT_EQ(FilaDe(g, "F070"), -1);
    f->close();
}

TEST(Form14, TheOldChartScreenRefusesANameInUse) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2007);
    Form14* f = Form14::Abrir(e.sesion, *e.ajustes, e.dialogo, PlanMemoria::Antiguo, nullptr);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->objectName(), "Form14");
    EXPECT_EQ(Cabecera(f->grid()), (QStringList{" Nombre", " Tipo", " Contenido", " Periodo"}));
    EXPECT_FALSE(Hijo<QComboBox>(f, "Combo3")->isVisibleTo(f));
    Hijo<QLineEdit>(f, "Text1")->setText("001");
    auto* tipo = Hijo<QComboBox>(f, "Combo1");
    tipo->setCurrentIndex(tipo->findText("Importe"));
    auto* periodo = Hijo<QComboBox>(f, "Combo2");
    EXPECT_EQ(periodo->count(), 2);
    periodo->setCurrentIndex(0);
    Hijo<QLineEdit>(f, "Text2")->setText("<S100");
    Hijo<QPushButton>(f, "Command1")->click();
    EXPECT_EQ(e.dialogo.informados.last(), MsgContenidoErroneo);
    Hijo<QLineEdit>(f, "Text2")->setText("<S100>");
    Hijo<QPushButton>(f, "Command1")->click();
    EXPECT_EQ(e.dialogo.informados.last(), MsgFuncionExiste);
    f->close();
}

// The inventory's screens offscreen: Form99 with its grid, "..." cells and context menu, adding
// and loading an element through its fields, one element's depreciation from its cell, printing
// through FORM90, Form100's locations, Form101's run, and the board's menu entries.

#include "../ComunInventario.h"
#include "assets/forms/Form100.h"
#include "assets/forms/Form101.h"
#include "assets/forms/Form99.h"
#include "assets/forms/MenusInventario.h"
#include "forms/Pantallas.h"
#include "platform/forms/ImprimirLibro.h"
#include "posting/forms/Form1.h"

#include <QAction>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

QStringList Cabeceras(const QTableWidget* t) {
    QStringList r;
    for (int c = 0; c < t->columnCount(); ++c)
        if (!t->isColumnHidden(c))
            r << t->horizontalHeaderItem(c)->text();
    return r;
}

void Elegir(const QWidget* w, const QString& nombre, const QString& texto) {
    QComboBox* c = Control<QComboBox>(w, nombre);
    ASSERT_TRUE(c);
    const int i = c->findText(texto);
    ASSERT_GE(i, 0) << texto.toStdString();
    c->setCurrentIndex(i);
}

void ElegirCodigo(const QWidget* w, const QString& nombre, const QString& codigo) {
    QComboBox* c = Control<QComboBox>(w, nombre);
    ASSERT_TRUE(c);
    const int i = c->findData(codigo);
    ASSERT_GE(i, 0) << codigo.toStdString();
    c->setCurrentIndex(i);
}

} // namespace

TEST(Form99, RejillaCeldasYMenuContextual) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Mesa"));
    Alta(e, Ficha("Silla"));
    Form99 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(f.windowTitle(), "Quilmar [Inventario]");
    QTableWidget* g = f.grid();
    EXPECT_EQ(Cabeceras(g),
              QStringList({"Nº Elemento", "Nombre", "Naturaleza", "Fecha adquis.", "Importe",
                           "Fra / Proveedor", "Localización", "Fecha Baja", "Causa", "Amortizable",
                           "Porcentaje", "Fin Amortiz.", "Ultima Amort.", "Amortizado", "..."}));
    ASSERT_EQ(g->rowCount(), 2);
    EXPECT_EQ(g->item(1, ColInvElemento)->text(), "00000002");
    EXPECT_EQ(g->item(1, ColInvImporte)->text(), "1.000,00");
    auto* boton = qobject_cast<QToolButton*>(g->cellWidget(1, ColumnasInventario));
    ASSERT_TRUE(boton);
    EXPECT_EQ(boton->text(), "...");
    QStringList entradas;
    for (QAction* a : f.findChild<QMenu*>("mnuInventario")->actions())
        entradas << a->objectName() + "=" + a->text();
    EXPECT_EQ(entradas, QStringList({"mnuExportar=Exportar", "mnuCentros=Centros",
                                     "mnuModificar=Modificar", "mnuEliminar=Eliminar",
                                     "mnuElimBaja=Eliminar todos los elementos dados de baja"}));
    // The help button stays off: there is no help to show.
    EXPECT_FALSE(Control<QPushButton>(&f, "Command6")->isEnabled());

    // A view: the non depreciable only.
    Control<QRadioButton>(&f, "Option8")->setChecked(true);
    Pulsar(&f, "Command8");
    EXPECT_EQ(g->rowCount(), 0);
    Control<QRadioButton>(&f, "Option1")->setChecked(true);
    Pulsar(&f, "Command8");
    EXPECT_EQ(g->rowCount(), 2);
}

TEST(Form99, AnadirCargarYModificarPorLosCampos) {
    Entorno e;
    EmpresaInventario(e);
    Form99 f(e.sesion, *e.ajustes, e.dialogo);
    Escribir(&f, "Text2", "Furgoneta");
    Elegir(&f, "Combo1", "Material");
    Escribir(&f, "Text3", "1/3/25");
    Escribir(&f, "Text4", "18000");
    Elegir(&f, "Combo2", inv::Almacen);
    Elegir(&f, "Combo4", "SI");
    // The amount field turns a typed point into the decimal comma.
    QLineEdit* porcentaje = Control<QLineEdit>(&f, "Text7");
    porcentaje->setFocus();
    QTest::keyClicks(porcentaje, "12.5");
    EXPECT_EQ(porcentaje->text(), "12,5");
    ElegirCodigo(&f, "Combo5", "028100042");
    ElegirCodigo(&f, "Combo6", inv::DotaMaterial);
    Pulsar(&f, "Command1");
    ASSERT_EQ(f.grid()->rowCount(), 1) << e.dialogo.textos.join(" | ").toStdString();
    EXPECT_EQ(f.rejilla().Fila(0).mid(0, 11),
              QStringList({"00000001", "Furgoneta", "Material", "01/03/2025", "18.000,00", "",
                           "Almacén", "", "", "SI", "12,5"}));
    // The form is empty again.
    EXPECT_TRUE(Control<QLineEdit>(&f, "Text2")->text().isEmpty());

    // Picking NO empties both subaccount lists.
    Elegir(&f, "Combo4", "NO");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo5")->count(), 0);
    EXPECT_EQ(Control<QComboBox>(&f, "Combo6")->count(), 0);

    // A double click loads the row; a refused change keeps the focus on its field.
    f.CargarFila(0);
    EXPECT_EQ(f.cargado(), 1);
    EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "00000001");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo5")->currentData().toString(), "028100042");
    f.show();
    Escribir(&f, "Text3", "02/01/2026");
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados.last(), "La fecha de adquisición del elemento es posterior a la "
                                           "de finalización del ejercio.");
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "Text3"));
    Escribir(&f, "Text3", "01/03/2025");
    Escribir(&f, "Text2", "Furgoneta blanca");
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.rejilla().Celda(0, ColInvNombre), "Furgoneta blanca");
    EXPECT_EQ(f.cargado(), 0);
}

TEST(Form99, AmortizacionDeUnElementoDesdeSuCelda) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Mesa"));
    Alta(e, Ficha("Silla"));
    Form99 f(e.sesion, *e.ajustes, e.dialogo);
    int avisos = 0;
    QObject::connect(&f, &Form99::asientosContabilizados, [&] { ++avisos; });
    e.dialogo.responderTextos({"31/12/2025"});
    qobject_cast<QToolButton*>(f.grid()->cellWidget(1, ColumnasInventario))->click();
    EXPECT_EQ(e.dialogo.preguntas.last(), MsgFechaAmortizacionElemento);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Se ha realizado la amortización del elemento 00000002.");
    EXPECT_EQ(f.grid()->item(1, ColInvUltimaAmort)->text(), "31/12/2025");
    EXPECT_EQ(f.grid()->item(1, ColInvAmortizado)->text(), "99,73");
    EXPECT_EQ(f.grid()->item(0, ColInvAmortizado)->text(), "0,00");
    EXPECT_EQ(avisos, 1);
}

TEST(Form99, TrasUnaCarreraElElementoCargadoMuestraSuNuevaAmortizacion) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Mesa"));
    Form99 f(e.sesion, *e.ajustes, e.dialogo);
    f.CargarFila(0);
    ASSERT_TRUE(Control<QLineEdit>(&f, "Text9")->text().isEmpty());
    e.dialogo.responder({true});
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form101");
        Pulsar(w, "Command1");
    });
    f.RealizarAmortizaciones();
    EXPECT_EQ(f.grid()->item(0, ColInvAmortizado)->text(), "99,73");
    EXPECT_EQ(Control<QLineEdit>(&f, "Text9")->text(), "31/12/2025");
    EXPECT_EQ(Control<QLineEdit>(&f, "Text10")->text(), "99,73");
    // So a change of the name alone asks nothing about the program's own fields.
    Escribir(&f, "Text2", "Mesa grande");
    e.dialogo.preguntas.clear();
    Pulsar(&f, "Command2");
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    EXPECT_EQ(f.rejilla().Celda(0, ColInvNombre), "Mesa grande");
}

TEST(Form99, ImprimeConLasOpcionesDelGrupoInvent) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Mesa"));
    Form99 f(e.sesion, *e.ajustes, e.dialogo);
    int paginas = 0;
    bool apaisada = false;
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_EQ(w->objectName(), "FORM90");
        EXPECT_EQ(w->windowTitle(), "Inventario");
        Escribir(w, "Text1", "15");
        AlAbrirseModal([&](QWidget* vista) {
            if (auto* v = qobject_cast<VistaPrevia*>(vista)) {
                paginas = v->paginas();
                apaisada = v->vista()->orientation() == QPageLayout::Landscape;
            }
            vista->close();
        });
        Pulsar(w, "Command1");
    });
    f.Imprimir();
    EXPECT_EQ(paginas, 1);
    EXPECT_TRUE(apaisada);
    EXPECT_EQ(e.ajustes->leer("Valores", "IzqInvent"), "15");
}

TEST(Form100, AnadirRenombrarYEliminar) {
    Entorno e;
    EmpresaInventario(e);
    Form100 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(f.windowTitle(), "Quilmar [Centros]");
    ASSERT_EQ(f.lista()->rowCount(), 2);
    Escribir(&f, "Text1", "Taller");
    Pulsar(&f, "Command1");
    ASSERT_EQ(f.lista()->rowCount(), 3);
    EXPECT_EQ(f.lista()->item(2, 0)->text(), "Taller");
    f.lista()->selectRow(2);
    EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "Taller");
    Escribir(&f, "Text1", "Nave");
    e.dialogo.responder({true});
    Pulsar(&f, "Command2");
    EXPECT_EQ(f.lista()->item(1, 0)->text(), "Nave");
    f.lista()->selectRow(1);
    e.dialogo.responder({true});
    f.Eliminar();
    EXPECT_EQ(f.lista()->rowCount(), 2);
}

TEST(Form101, CarreraDesdeLaVentana) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Mesa"));
    Form101 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(f.windowTitle(), "Quilmar [Amortizaciones]");
    EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "31/12/2025");
    QComboBox* centros = Control<QComboBox>(&f, "Combo1");
    EXPECT_FALSE(centros->isEnabled());
    Control<QRadioButton>(&f, "Option2")->setChecked(true);
    EXPECT_TRUE(centros->isEnabled());
    Control<QRadioButton>(&f, "Option4")->setChecked(true);
    centros->setCurrentText(inv::Oficina);
    const PeticionAmortizacion p = f.peticion();
    EXPECT_EQ(p.localizacion, inv::Oficina);
    EXPECT_TRUE(p.agrupar);

    // Refused: the window stays.
    Escribir(&f, "Text1", "");
    Pulsar(&f, "Command1");
    EXPECT_FALSE(f.realizada());
    EXPECT_EQ(e.dialogo.informados.last(),
              "Tiene que introducir la fecha a la cual se van a realizar los asientos de "
              "amortización.");
    Escribir(&f, "Text1", "31/12/2025");
    e.dialogo.responder({true});
    Pulsar(&f, "Command1");
    EXPECT_TRUE(f.realizada());
    EXPECT_EQ(f.resultado().asientos.size(), 1);
    EXPECT_EQ(f.result(), QDialog::Accepted);
}

TEST(MenusInventario, EntradasDelTablero) {
    Entorno e;
    EmpresaInventario(e);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(tablero.accion("mnuInventario")->isEnabled());
    EXPECT_FALSE(tablero.accion("mnuAmortizaciones")->isEnabled());
    ConectarInventario(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuInventario")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuAmortizaciones")->isEnabled());
    tablero.accion("mnuInventario")->trigger();
    QPointer<Form99> f = Form99::Abierto();
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->isVisible());
    // A second time raises the same window.
    tablero.accion("mnuInventario")->trigger();
    EXPECT_EQ(Form99::Abierto(), f.data());
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form101");
        Pulsar(w, "Command2");
    });
    tablero.accion("mnuAmortizaciones")->trigger();
    f->close();
    QTest::qWait(10);
    EXPECT_FALSE(f);
}

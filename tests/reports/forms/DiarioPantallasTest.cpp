// The journal's screens offscreen: the option form and its keys, Form6, the list window with
// its grid, totals, toolbar, menu and actions, the search Form57, and the board's menu entries.

#include "../ComunLibros.h"
#include "forms/Pantallas.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "posting/GestionAsientos.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form7.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form57.h"
#include "reports/forms/Form6.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "reports/forms/MenusLibros.h"
#include "store/Conexiones.h"
#include "store/forms/CajaFecha.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

void Asientos(Entorno& e, bool crear = true) {
    if (crear)
        e.crearEmpresa();
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1500, "Apertura"), Haber(Banco, 1500, "Apertura")});
    e.asiento(QDate(2024, 2, 3),
              {Debe(Compras, 300, "Compra de tornillos"), Haber(Proveedor, 300, "Compra")});
    e.asiento(QDate(2024, 3, 4), {Debe(Caja, 20, "Cobro"), Haber(Banco, 20, "Cobro tornillos")});
}

// A journal window, filled.
Form5* Diario(Entorno& e) {
    auto* f = new Form5(e.sesion, *e.ajustes, e.dialogo, Todo(e));
    f->show();
    f->LlenarDiario();
    return f;
}

void Tecla(QWidget* w, Qt::Key k) {
    QTest::keyClick(w, k);
}

// The texts of a window's line edits.
QStringList Textos(const QWidget* w, std::initializer_list<const char*> cajas) {
    QStringList r;
    for (const char* c : cajas)
        r << Control<QLineEdit>(w, c)->text();
    return r;
}

} // namespace

TEST(FormOpcionesLibro, Form77MuestraLosAjustesYFiltraLasTeclas) {
    Entorno e;
    e.ajustes->escribir("Valores", "IzqDiario", "15");
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form77), *e.ajustes, e.dialogo);
    f.show();
    QApplication::setActiveWindow(&f);
    EXPECT_EQ(f.windowTitle(), "DIARIO");
    EXPECT_EQ(f.objectName(), "Form77");
    EXPECT_EQ(Textos(&f, {"Text1", "Text2", "Text3", "Text4"}), QStringList({"15", "", "", ""}));
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentText(), "Arial Narrow");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo2")->currentText(), "9");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo2")->count(), 6); // 7 to 12
    EXPECT_EQ(Control<CajaFecha>(&f, "DTPicker1")->date(), QDate::currentDate());
    EXPECT_TRUE(Control<QRadioButton>(&f, "Option2")->isChecked()); // "Modelo oficial"
    EXPECT_EQ(Control<QRadioButton>(&f, "Option1")->text(), "Borrador");
    EXPECT_EQ(Control<QCheckBox>(&f, "Check1")->text(), "Incluir número de Documento");

    // Digits only in the margin and the first page; digits and the comma in the money boxes,
    // where a point becomes a comma.
    Escribir(&f, "Text1", "2a0.");
    Escribir(&f, "Text2", "x7");
    Escribir(&f, "Text3", "1-2.5€");
    Escribir(&f, "Text4", "12,5");
    EXPECT_EQ(Textos(&f, {"Text1", "Text2", "Text3", "Text4"}),
              QStringList({"20", "7", "12,5", "12,5"}));

    // Enter moves on, and from the last box to "&Aceptar", without accepting.
    Control<QLineEdit>(&f, "Text1")->setFocus();
    Tecla(Control<QLineEdit>(&f, "Text1"), Qt::Key_Return);
    EXPECT_TRUE(Control<QComboBox>(&f, "Combo1")->hasFocus());
    Control<QLineEdit>(&f, "Text4")->setFocus();
    Tecla(Control<QLineEdit>(&f, "Text4"), Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Control<QPushButton>(&f, "Command1"));
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(f.opciones().cancelado);

    Pulsar(&f, "Option1");
    Pulsar(&f, "Command1");
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(f.result(), QDialog::Accepted);
    const OpcionesLibro& op = f.opciones();
    EXPECT_FALSE(op.cancelado);
    EXPECT_DOUBLE_EQ(op.margen, 1134);
    EXPECT_EQ(op.paginaInicial, 7);
    EXPECT_DOUBLE_EQ(op.sumaDebe, 12.5);
    EXPECT_TRUE(op.borrador);
    EXPECT_EQ(e.ajustes->leer("Valores", "IzqDiario"), "20");
}

TEST(FormOpcionesLibro, CajasVaciasCancelarYSumasIncompletas) {
    Entorno e;
    {
        FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form77), *e.ajustes, e.dialogo);
        f.show();
        Control<QLineEdit>(&f, "Text1")->clear();
        Control<QComboBox>(&f, "Combo1")->setCurrentText("");
        Control<QComboBox>(&f, "Combo2")->setCurrentText("");
        Pulsar(&f, "Command1");
        // The boxes reach the rules of the empty boxes.
        EXPECT_FALSE(f.opciones().cancelado);
        EXPECT_EQ(f.opciones().fuente, "Courier New");
        EXPECT_EQ(e.ajustes->leer("Valores", "IzqDiario"), "0");
    }
    {
        FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form77), *e.ajustes, e.dialogo);
        f.show();
        EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "0"); // what was stored
        Pulsar(&f, "Command2");
        EXPECT_TRUE(f.opciones().cancelado);
        EXPECT_FALSE(f.sumasIncompletas());
    }
    {
        FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::Form77), *e.ajustes, e.dialogo);
        f.show();
        Escribir(&f, "Text4", "100");
        Pulsar(&f, "Command1");
        EXPECT_FALSE(f.isVisible());
        EXPECT_TRUE(f.sumasIncompletas());
        EXPECT_TRUE(f.opciones().cancelado);
        EXPECT_EQ(e.dialogo.informados,
                  QStringList{"Si los valores iniciales del Debe o Haber son distintos de cero, "
                              "deben tener valor tanto el Debe como el Haber."});
    }
    // Other books' forms show their own boxes.
    FormOpcionesLibro f85(ConfigFormOpciones(FormOpciones::Form85), *e.ajustes, e.dialogo);
    EXPECT_EQ(Control<QCheckBox>(&f85, "Check1")->text(), "Nueva página cada Cuenta");
    EXPECT_EQ(Control<QCheckBox>(&f85, "Check2")->text(), "Nueva página cada Subcuenta");
    EXPECT_EQ(f85.findChild<QLineEdit*>("Text2"), nullptr);
    FormOpcionesLibro f52(ConfigFormOpciones(FormOpciones::FORM52), *e.ajustes, e.dialogo);
    EXPECT_EQ(Control<QCheckBox>(&f52, "Check1")->text(), "Imprimir Nº de Asiento");
    EXPECT_NE(f52.findChild<QLineEdit*>("Text2"), nullptr);
    EXPECT_EQ(f52.findChild<QLineEdit*>("Text3"), nullptr);
}

TEST(Form6, ValoresInicialesYComprobaciones) {
    Entorno e;
    e.crearEmpresa();
    {
        Form6 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.windowTitle(), "Diario");
        EXPECT_EQ(Textos(&f, {"Text1", "Text2"}), QStringList({"0", "0"}));
        EXPECT_FALSE(Control<QPushButton>(&f, "Command1")->isEnabled()); // no entries
    }
    Asientos(e, false);
    Form6 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QApplication::setActiveWindow(&f);
    EXPECT_TRUE(Control<QPushButton>(&f, "Command1")->isEnabled());
    EXPECT_EQ(Textos(&f, {"Text1", "Text2"}), QStringList({"1", "3"}));
    EXPECT_EQ(Control<CajaFecha>(&f, "DTPicker1")->date(), QDate(2024, 1, 1));
    EXPECT_EQ(Control<CajaFecha>(&f, "DTPicker2")->date(), QDate(2024, 12, 31));
    EXPECT_FALSE(Control<CajaFecha>(&f, "DTPicker1")->isEnabled());

    Escribir(&f, "Text2", "dos");
    Pulsar(&f, "Command1");
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(e.dialogo.informados, QStringList{"El número de asiento introducido no es válido."});
    EXPECT_EQ(QApplication::focusWidget(), Control<QLineEdit>(&f, "Text2"));

    // Choosing dates locks the numbers and puts them back to the defaults.
    Pulsar(&f, "Option2");
    EXPECT_EQ(Control<QLineEdit>(&f, "Text2")->text(), "3");
    EXPECT_FALSE(Control<QLineEdit>(&f, "Text1")->isEnabled());
    EXPECT_TRUE(Control<CajaFecha>(&f, "DTPicker1")->isEnabled());
    // A date that does not exist is refused as the posting screen refuses it, not moved to the
    // end of the month; one outside the exercise is refused too.
    for (const auto& [escrita, mensaje] :
         {std::pair{"31/02/2024", "La fecha introducida no es una fecha válida."},
          std::pair{"310224", "La fecha introducida no es una fecha válida."},
          std::pair{"", "La fecha introducida no es una fecha válida."},
          std::pair{"1/1/2025", "La fecha debe estar entre el 01/01/2024 y el 31/12/2024."}}) {
        Escribir(&f, "DTPicker2", escrita);
        Pulsar(&f, "Command1");
        EXPECT_TRUE(f.isVisible());
        EXPECT_EQ(e.dialogo.informados.last(), mensaje) << escrita;
        EXPECT_EQ(QApplication::focusWidget(), Control<QLineEdit>(&f, "DTPicker2"));
    }
    // Typed as in the posting screen, it is shown whole.
    Escribir(&f, "DTPicker1", "1624");
    Escribir(&f, "DTPicker2", "010524");
    Pulsar(&f, "Command1");
    EXPECT_EQ(Textos(&f, {"DTPicker1", "DTPicker2"}), QStringList({"01/06/2024", "01/05/2024"}));
    EXPECT_EQ(e.dialogo.informados.last(), "La fecha inicial debe ser menor o igual que la final.");
    Control<CajaFecha>(&f, "DTPicker2")->setDate(QDate(2024, 7, 1));
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_TRUE(f.seleccion().porFechas);
    EXPECT_EQ(f.seleccion().desde, QDate(2024, 6, 1));
}

TEST(Form5, RejillaTotalesBarraYMenu) {
    Entorno e;
    Asientos(e);
    QPointer<Form5> f = Diario(e);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Diario]");
    TablaRejilla* t = f->tabla();
    ASSERT_EQ(t->model()->rowCount(), 6);
    ASSERT_EQ(t->model()->columnCount(), 14);
    EXPECT_TRUE(t->isColumnHidden(ColNCuenta));
    EXPECT_FALSE(t->isColumnHidden(ColSector));
    EXPECT_EQ(t->model()->headerData(ColBaseIva, Qt::Horizontal).toString(), "Base IVA");
    EXPECT_EQ(t->model()->index(0, ColDebe).data().toString(), "1.500,00");
    EXPECT_EQ(t->model()->index(0, ColDebe).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight,
              Qt::AlignRight);
    // Both totals under the list.
    QLabel* total = f->vista()->valorTotal(TotalDiarioDebe);
    ASSERT_TRUE(total);
    EXPECT_EQ(total->text(), "1.820,00");
    EXPECT_EQ(f->vista()->valorTotal(TotalDiarioHaber)->text(), "1.820,00");

    // Toolbar by index, separators between groups.
    EXPECT_EQ(Barra(f.data(), 12),
              QStringList({"mnuCerrar", "|", "mnuCopiar", "mnuImprimir", "mnuExportar", "|",
                           "mnuModAs", "mnuElimAs", "mnuMovCta", "mnuBuscar", "|", "mnuAyuda"}));
    EXPECT_EQ(f->accion("mnuElimAs")->text(), "Eliminar Asiento");
    EXPECT_EQ(f->accion("mnuMovCta")->text(), "Ver Movimientos de la Subcuenta");

    // The context menu PPDiario.
    auto menu = t->crearMenu(t->model()->index(1, 3));
    QStringList nombres, textos;
    for (QAction* a : menu->actions()) {
        nombres << a->objectName();
        textos << a->text();
    }
    EXPECT_EQ(nombres, QStringList({"mnuCopiar", "mnuModAs", "mnuElimAs", "mnuMovCta", "mnuBuscar",
                                    "mnuImprimir", "mnuExportar"}));
    EXPECT_EQ(textos, QStringList({"Copiar", "Ver/Modificar Asiento", "Eliminar Asiento",
                                   "Ver Movimientos de la Subcuenta", "Buscar...", "Imprimir",
                                   "Exportar"}));
    menu.reset();
    delete f;
}

TEST(Form5, AccionesConGanchosYEliminar) {
    Entorno e;
    Asientos(e);
    Form5::VerModificarAsiento() = nullptr;
    Form5::VerMovimientos() = nullptr;
    QPointer<Form5> f = Diario(e);
    // Without the screens they open, the actions stay present and disabled.
    EXPECT_FALSE(f->accion("mnuModAs")->isEnabled());
    EXPECT_FALSE(f->accion("mnuMovCta")->isEnabled());
    delete f;

    QList<long> vistos;
    PeticionMovimientos pedido;
    Form5::VerModificarAsiento() = [&](QWidget*, long nas) {
        vistos << nas;
    };
    Form5::VerMovimientos() = [&](QWidget*, const PeticionMovimientos& p) {
        pedido = p;
    };
    f = Diario(e);
    EXPECT_TRUE(f->accion("mnuModAs")->isEnabled());
    TablaRejilla* t = f->tabla();
    // A double click opens the entry of the clicked row.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    const QRect celda = t->visualRect(t->model()->index(3, ColConcepto));
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    EXPECT_EQ(vistos, QList<long>{2});
    t->setCurrentIndex(t->model()->index(1, ColConcepto));
    f->accion("mnuModAs")->trigger();
    EXPECT_EQ(vistos, (QList<long>{2, 1}));
    f->accion("mnuMovCta")->trigger();
    EXPECT_EQ(QStringList({pedido.ncuenta, pedido.area, pedido.nombre}),
              QStringList({Banco, "1", "Banco"}));
    EXPECT_EQ(std::pair(pedido.desde, pedido.hasta),
              std::pair(QDate(2024, 1, 1), QDate(2024, 12, 31)));
    Form5::VerModificarAsiento() = nullptr;
    Form5::VerMovimientos() = nullptr;

    // Deleting: No keeps the window; Yes deletes the entry and closes it.
    QSignalSpy cambio(f.data(), &Form5::asientoEliminado);
    t->setCurrentIndex(t->model()->index(2, ColConcepto));
    e.dialogo.responder({false});
    f->accion("mnuElimAs")->trigger();
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el Asiento número 2?");
    e.dialogo.responder({true});
    f->accion("mnuElimAs")->trigger();
    EXPECT_EQ(cambio.count(), 1);
    QTest::qWait(50);
    EXPECT_TRUE(f.isNull()); // closed and deleted
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 2").toInt(), 0);
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 4);
}

TEST(Form5, ImprimirPasaPorForm77) {
    Entorno e;
    Asientos(e);
    QPointer<Form5> f = Diario(e);
    // Cancelled: nothing printed, the window stays.
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "DIARIO");
        Pulsar(w, "Command2");
    });
    f->Imprimir();
    EXPECT_TRUE(f->opciones().cancelado);
    EXPECT_TRUE(f->isVisible());

    // Accepted: the preview of the book opens.
    int paginas = 0;
    AlAbrirseModal([&](QWidget* w) {
        Escribir(w, "Text3", "10");
        Escribir(w, "Text4", "10");
        AlAbrirseModal([&](QWidget* vista) {
            if (auto* v = qobject_cast<VistaPrevia*>(vista))
                paginas = v->paginas();
            vista->close();
        });
        Pulsar(w, "Command1");
    });
    f->Imprimir();
    EXPECT_EQ(paginas, 1);
    EXPECT_FALSE(f->opciones().cancelado);
    EXPECT_DOUBLE_EQ(f->sumaDebe(), 1830); // initial 10 + the book's 1.820
    EXPECT_TRUE(f->isVisible());

    // One initial sum without the other: the message, and the journal closes.
    AlAbrirseModal([](QWidget* w) {
        Escribir(w, "Text3", "10");
        Pulsar(w, "Command1");
    });
    f->Imprimir();
    QTest::qWait(50);
    EXPECT_TRUE(f.isNull());
    EXPECT_TRUE(e.dialogo.informados.last().startsWith("Si los valores iniciales"));
}

TEST(Form57, BuscarPrimeroSiguienteYFinal) {
    Entorno e;
    Asientos(e);
    QPointer<Form5> f = Diario(e);
    QPointer<Form57> b = f->Buscar();
    ASSERT_TRUE(b);
    EXPECT_EQ(b->windowTitle(), "Quilmar [Buscar]");
    EXPECT_FALSE(Control<QPushButton>(b, "Command1")->isEnabled());
    EXPECT_FALSE(Control<QPushButton>(b, "Command2")->isEnabled());
    EXPECT_EQ(Control<QListWidget>(b, "List1")->count(), 12);
    Escribir(b, "Text1", "TORNILLOS");
    EXPECT_TRUE(Control<QPushButton>(b, "Command1")->isEnabled());
    // No field chosen.
    Pulsar(b, "Command1");
    EXPECT_EQ(e.dialogo.informados.last(),
              "Tiene que seleccionar la columna del Diario donde se va a buscar.");
    auto* lista = Control<QListWidget>(b, "List1");
    lista->setCurrentRow(3); // "Concepto"
    ASSERT_EQ(lista->currentItem()->text(), "Concepto");
    Pulsar(b, "Command1");
    EXPECT_EQ(b->filaEncontrada(), 2);
    EXPECT_EQ(f->tabla()->currentIndex().row(), 2);
    EXPECT_TRUE(f->tabla()->selectionModel()->isRowSelected(2, {}));
    Pulsar(b, "Command2");
    EXPECT_EQ(b->filaEncontrada(), 5);
    const int mensajes = int(e.dialogo.informados.size());
    Pulsar(b, "Command2");
    EXPECT_EQ(e.dialogo.informados.size(), mensajes + 1);
    EXPECT_EQ(e.dialogo.informados.last(), "Se llegó al final de la lista.");
    Pulsar(b, "Command1"); // from the start again
    EXPECT_EQ(b->filaEncontrada(), 2);
    // Closing the journal closes the search.
    f->close();
    QTest::qWait(50);
    EXPECT_TRUE(b.isNull());
}

TEST(MenusLibros, ElDiarioDesdeElTablero) {
    Entorno e;
    Asientos(e);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(tablero.accion("mnuVerDiario")->isEnabled());
    ConectarLibros(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuVerDiario")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuBuscarAs")->isEnabled());
    EXPECT_EQ(tablero.boton(6), tablero.accion("mnuVerDiario"));

    // Cancelled selection: no journal.
    AlAbrirseModal([](QWidget* w) { Pulsar(w, "Command2"); });
    tablero.accion("mnuVerDiario")->trigger();
    EXPECT_TRUE(tablero.librosAbiertos("Diario").isEmpty());

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form6");
        Pulsar(w, "Command1");
    });
    tablero.accion("mnuVerDiario")->trigger();
    ASSERT_EQ(tablero.librosAbiertos("Diario").size(), 1);
    auto* f = qobject_cast<Form5*>(tablero.librosAbiertos("Diario").first());
    ASSERT_TRUE(f);
    QTest::qWait(50); // the fill follows the window
    EXPECT_EQ(f->rejilla().Filas(), 6);

    // The board's search opens on the open journal.
    tablero.accion("mnuBuscarAs")->trigger();
    ASSERT_TRUE(f->buscador());
    EXPECT_TRUE(f->buscador()->isVisible());
    EXPECT_EQ(tablero.librosAbiertos("Diario").size(), 1);

    // An entry deleted elsewhere leaves the open journal when the board refreshes its books.
    {
        Conexion c = e.datos();
        ElimAsiento(c, e.sesion, 3);
    }
    tablero.refrescarLibros();
    ASSERT_EQ(f->rejilla().Filas(), 4);

    // "Ver/Modificar Asiento" opens the entry in the maintenance screen; deleting that entry
    // from the journal empties the screen and closes the journal.
    EXPECT_TRUE(f->accion("mnuModAs")->isEnabled());
    f->tabla()->setCurrentIndex(f->tabla()->model()->index(2, ColConcepto));
    f->accion("mnuModAs")->trigger();
    QPointer<Form7> f7 = Form7::Abierto();
    ASSERT_TRUE(f7);
    EXPECT_EQ(f7->windowTitle(), "Quilmar [Gestión de Asientos]");
    EXPECT_FALSE(f7->Logica().EsNuevo);
    EXPECT_EQ(f7->Logica().NumeroAsiento, 2);
    e.dialogo.responder({true});
    f->accion("mnuElimAs")->trigger();
    QTest::qWait(50);
    EXPECT_TRUE(f7->Logica().EsNuevo);
    EXPECT_TRUE(tablero.librosAbiertos("Diario").isEmpty());
    f7->close();

    // Renumbering closes an open journal.
    AlAbrirseModal([](QWidget* w) { Pulsar(w, "Command1"); });
    tablero.accion("mnuVerDiario")->trigger();
    ASSERT_EQ(tablero.librosAbiertos("Diario").size(), 1);
    tablero.cerrarLibros("Diario");
    QTest::qWait(50);
    EXPECT_TRUE(tablero.librosAbiertos("Diario").isEmpty());
    Form5::VerModificarAsiento() = nullptr;
}

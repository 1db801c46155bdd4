// Reconciliation and day cash on screen, offscreen, from the board's menus: ticking by a click,
// the context menu's marks and views, the picking and group windows, and the pad's fields, ticks
// and sending.

#include "../ComunAsientos.h"
#include "forms/Pantallas.h"
#include "journal/Casaciones.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form60.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form86.h"
#include "posting/forms/MenusCaja.h"
#include "store/Conexiones.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

// With QUILMAR_CAPTURAS set, keeps a picture of the window for a person to look at.
void capturar(QWidget* w, const QString& nombre) {
    const QString carpeta = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!carpeta.isEmpty())
        w->grab().save(QDir(carpeta).filePath(nombre + ".png"));
}

class PantallaPunteo : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        e.asiento(QDate(2024, 3, 1), {Debe(Clientes, 100, "Factura"), Haber(Ventas, 100, "Fra")});
        e.asiento(QDate(2024, 4, 1), {Debe(Banco, 60, "Cobro"), Haber(Clientes, 60, "Cobro")});
        e.asiento(QDate(2024, 4, 9), {Debe(Banco, 40, "Cobro"), Haber(Clientes, 40, "Cobro")});
        tablero = std::make_unique<Form1>(e.sesion, *e.ajustes, e.dialogo);
        ConectarCajaYPunteo(*tablero, e.sesion, *e.ajustes, e.dialogo);
    }
    void TearDown() override {
        for (QWidget* w :
             {static_cast<QWidget*>(Form86::Abierto()), static_cast<QWidget*>(Form60::Abierto()),
              static_cast<QWidget*>(Form7::Abierto())})
            if (w)
                w->close();
        QApplication::processEvents();
        tablero.reset();
    }
    Form86* abrirPunteo() {
        QAction* menu = tablero->accion("mnuPunteo");
        EXPECT_TRUE(menu && menu->isEnabled());
        menu->trigger();
        Form86* f = Form86::Abierto();
        EXPECT_TRUE(f);
        return f;
    }
    QModelIndex celda(Form86* f, int fila, int col) {
        return Control<QTableView>(f, "Grid1")->model()->index(fila, col);
    }
    QString estado(Form86* f, int fila) {
        return celda(f, fila, ColF86::Casacion).data(Qt::ToolTipRole).toString();
    }
    void menu(Form86* f, int fila, const QString& accion) {
        f->seleccionarFila(fila);
        QAction* a = f->accion(accion);
        ASSERT_TRUE(a) << accion.toStdString();
        a->trigger();
    }
    int punteo(long nas, long nap) {
        Conexion c = e.datos();
        return c
            .escalar("SELECT Punteo FROM Diario WHERE NAs = ? AND NAp = ?",
                     {static_cast<qlonglong>(nas), static_cast<qlonglong>(nap)})
            .toInt();
    }

    Entorno e;
    std::unique_ptr<Form1> tablero;
};

TEST_F(PantallaPunteo, MenuContextualMarcasYVistas) {
    Form86* f = abrirPunteo();
    ASSERT_TRUE(f);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Punteo y Casación]");
    EXPECT_EQ(f->lineas().size(), 6) << "every line of the journal";
    const QStringList captions = {"mnuInicio=Como Inicio",
                                  "mnuFinal=Como Final",
                                  "mnuDocSel=El registro seleccionado",
                                  "mnuDocTodos=Todos los registros",
                                  "mnuAnular=Anular Casación",
                                  "mnuComprobar=Verificar Casaciones existentes",
                                  "mnuVerAs=Ver Asiento",
                                  "mnuVerCas=Ver Casación",
                                  "mnuVerTodos=Ver todos los registros",
                                  "mnuVerPunteados=Ver Punteados",
                                  "mnuVerNoPunte=Ver no Punteados",
                                  "mnuVerCasadosT=Ver Casados totalmente",
                                  "mnuVerCasadosP=Ver Casados parcialmente",
                                  "mnuVerNoCasados=Ver no Casados"};
    for (const QString& c : captions) {
        QAction* a = f->accion(c.section('=', 0, 0));
        ASSERT_TRUE(a) << c.toStdString();
        EXPECT_EQ(a->text(), c.section('=', 1)) << c.toStdString();
    }

    f->ponerSeleccion(Clientes, e.sesion.FechaIniEj, e.sesion.FechaFinEj);
    ASSERT_EQ(f->lineas().size(), 3);
    capturar(f, "form86-antes");

    // A click on the tick box of the second row ticks the collection's line.
    auto* grid = Control<QTableView>(f, "Grid1");
    const QRect r = grid->visualRect(celda(f, 1, ColF86::Punteo));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, r.center());
    EXPECT_EQ(punteo(2, 2), -1);
    EXPECT_EQ(celda(f, 1, ColF86::Punteo).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(
        Control<QLabel>(f, "Label1")->text().contains("Punteado  Debe: 0,00   Haber: 60,00"))
        << Control<QLabel>(f, "Label1")->text().toStdString();

    // The invoice as start, the 60 and the 40 joined: the pictures follow each step.
    EXPECT_TRUE(celda(f, 0, ColF86::Casacion).data(Qt::DecorationRole).isNull());
    auto activas = [&] {
        QStringList r;
        for (const char* n : {"mnuInicio", "mnuFinal", "mnuDocSel", "mnuAnular", "mnuVerCas",
                              "mnuVerAs", "mnuDocTodos", "mnuComprobar"})
            if (f->accion(n)->isEnabled())
                r << n;
        return r.join(' ');
    };
    f->seleccionarFila(0);
    EXPECT_EQ(activas(), "mnuInicio mnuFinal mnuVerAs mnuDocTodos mnuComprobar")
        << "a line without a document can't be matched by it";
    menu(f, 0, "mnuInicio");
    EXPECT_EQ(estado(f, 0), "Inicio");
    f->seleccionarFila(0);
    EXPECT_EQ(activas(), "mnuAnular mnuVerCas mnuVerAs mnuDocTodos mnuComprobar")
        << "a line in a group can only leave it or show it";
    EXPECT_FALSE(celda(f, 0, ColF86::Casacion).data(Qt::DecorationRole).isNull());
    menu(f, 1, "mnuFinal");
    EXPECT_EQ(estado(f, 1), "Casado parcialmente");
    menu(f, 2, "mnuFinal");
    EXPECT_EQ(QStringList({estado(f, 0), estado(f, 1), estado(f, 2)}),
              QStringList({"Inicio (casado)", "Casado totalmente", "Casado totalmente"}));
    EXPECT_FALSE(celda(f, 0, ColF86::CasacionH).data().toString().isEmpty());
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join('|').toStdString();
    capturar(f, "form86-casado");

    // The group in its own window.
    QString titulo, situacion, sumas;
    int filas = 0;
    AlAbrirseModal([&](QWidget* w) {
        titulo = w->windowTitle();
        situacion = Control<QLabel>(w, "Label1")->text();
        sumas = Control<QLabel>(w, "Label2")->text();
        filas = Control<QTableWidget>(w, "Grid1")->rowCount();
        Pulsar(w, "Command1");
    });
    menu(f, 1, "mnuVerCas");
    EXPECT_EQ(titulo, "Quilmar [Ver Casación]");
    EXPECT_EQ(situacion, "Casados totalmente");
    EXPECT_EQ(filas, 3);
    EXPECT_TRUE(sumas.endsWith("Diferencia: 0,00")) << sumas.toStdString();

    // The views.
    menu(f, 0, "mnuVerCasadosP");
    EXPECT_EQ(f->lineas().size(), 0);
    menu(f, 0, "mnuVerPunteados");
    ASSERT_EQ(f->lineas().size(), 1);
    EXPECT_EQ(f->lineas().first().NAs, 2);
    menu(f, 0, "mnuVerTodos");
    EXPECT_EQ(f->lineas().size(), 3);

    // Cancelling the 40: the rest is open again; verifying finds nothing more to do.
    e.dialogo.responder({true});
    menu(f, 2, "mnuAnular");
    EXPECT_EQ(QStringList({estado(f, 0), estado(f, 1), estado(f, 2)}),
              QStringList({"Inicio", "Casado parcialmente", ""}));
    menu(f, 0, "mnuComprobar");
    EXPECT_EQ(e.dialogo.informados.last(), "Proceso terminado.");

    // The entry of a line opens in the maintenance screen.
    menu(f, 1, "mnuVerAs");
    ASSERT_TRUE(Form7::Abierto());
    EXPECT_EQ(Form7::Abierto()->Logica().NumeroAsiento, 2);
}

TEST_F(PantallaPunteo, VariosIniciosSeEligenEnForm87) {
    e.asiento(QDate(2024, 3, 2), {Debe(Clientes, 40, "Factura 2"), Haber(Ventas, 40, "Fra")});
    Form86* f = abrirPunteo();
    ASSERT_TRUE(f);
    f->ponerSeleccion(Clientes, e.sesion.FechaIniEj, e.sesion.FechaFinEj);
    ASSERT_EQ(f->lineas().size(), 4);
    // Rows: the invoice of 100, the 60, the 40 and the invoice of 40 (a later entry).
    menu(f, 0, "mnuInicio");
    menu(f, 3, "mnuInicio");
    QString subcuenta;
    int candidatos = 0;
    AlAbrirseModal([&](QWidget* w) {
        subcuenta = Control<QLabel>(w, "Label1")->text();
        auto* g = Control<QTableWidget>(w, "Grid1");
        candidatos = g->rowCount();
        // A double click on the second start takes it (the view only answers a double click
        // on the row the press landed on).
        const QRect r = g->visualItemRect(g->item(1, 3));
        QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, r.center());
        QTest::mouseDClick(g->viewport(), Qt::LeftButton, {}, r.center());
        if (w->isVisible()) {
            ADD_FAILURE() << "the double click did not take the start";
            static_cast<QDialog*>(w)->reject();
        }
    });
    menu(f, 2, "mnuFinal"); // the collection of 40
    EXPECT_TRUE(subcuenta.startsWith("Subcuenta: " + Clientes)) << subcuenta.toStdString();
    EXPECT_EQ(candidatos, 2);
    EXPECT_EQ(QStringList({estado(f, 0), estado(f, 3), estado(f, 2)}),
              QStringList({"Inicio", "Inicio (casado)", "Casado totalmente"}));
}

TEST_F(PantallaPunteo, CajaDelDiaAnadirPuntearYPasarLasPunteadas) {
    QAction* menuCaja = tablero->accion("mnuCaja");
    ASSERT_TRUE(menuCaja && menuCaja->isEnabled());
    menuCaja->trigger();
    Form60* f = Form60::Abierto();
    ASSERT_TRUE(f);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Caja del día]");
    auto activos = [&] {
        QStringList r;
        for (const char* b : {"Command1", "Command2", "Command3", "Command4", "Command5"})
            if (Control<QPushButton>(f, b)->isEnabled())
                r << b;
        return r.join(' ');
    };
    EXPECT_EQ(activos(), "Command1") << "an empty pad can only be added to";

    CamposCaja m{QDate(2024, 5, 2), true, Caja, Ventas, {}, {}, {}, {}};
    f->ponerCampos(m);
    Escribir(f, "TDBN1", "12.5");
    Pulsar(f, "Command1");
    EXPECT_EQ(Control<QLineEdit>(f, "TDBN1")->text(), "") << "the amount is cleared for the next";
    m.cobro = false;
    m.ncuenta2 = Compras;
    f->ponerCampos(m);
    Escribir(f, "TDBN1", "3");
    Escribir(f, "Text1", "Sellos");
    Pulsar(f, "Command1");
    auto* grid = f->grid();
    ASSERT_EQ(grid->rowCount(), 2) << e.dialogo.informados.join('|').toStdString();
    EXPECT_EQ(grid->item(0, ColCaja::Importe)->text(), "12,50");
    EXPECT_EQ(grid->item(0, ColCaja::Concepto)->text(), "Cobro del día");
    EXPECT_EQ(grid->item(1, ColCaja::CP)->text(), "Pago");
    EXPECT_TRUE(grid->isColumnHidden(ColCaja::NCuenta1));
    EXPECT_EQ(Control<QLabel>(f, "Label1")->text(),
              "Cobros: 12,50      Pagos: 3,00      Resultado: 9,50");

    EXPECT_EQ(activos(), "Command1 Command4 Command5") << "no row taken to change or delete";

    // Nothing ticked yet: the choice of the ticked rows is off. Cancelling sends nothing.
    bool soloPunteadas = true;
    AlAbrirseModal([&](QWidget* w) {
        soloPunteadas = Control<QRadioButton>(w, "Option2")->isEnabled();
        Pulsar(w, "Command2");
    });
    Pulsar(f, "Command5");
    EXPECT_FALSE(soloPunteadas);
    EXPECT_EQ(grid->rowCount(), 2);

    // Ticking the second row through its box.
    grid->item(1, ColCaja::Punteo)->setCheckState(Qt::Checked);
    EXPECT_EQ(f->punteados(), QSet<long>({2}));
    capturar(f, "form60");

    // Printing asks the options of the day cash.
    QString opciones;
    AlAbrirseModal([&](QWidget* w) {
        opciones = w->windowTitle();
        Pulsar(w, "Command2");
    });
    Pulsar(f, "Command4");
    EXPECT_EQ(opciones, "Caja del día");

    AlAbrirseModal([&](QWidget* w) {
        soloPunteadas = Control<QRadioButton>(w, "Option2")->isEnabled();
        Pulsar(w, "Option2");
        Pulsar(w, "Command1");
    });
    e.dialogo.responder({true});
    Pulsar(f, "Command5");
    EXPECT_TRUE(soloPunteadas);
    EXPECT_EQ(e.dialogo.informados.last(), "Se traspasaron al Diario 1 apuntes.");
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_EQ(grid->item(0, ColCaja::Numero)->text(), "1");
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 4), QStringList({"1 " + Caja + " 0/3", "2 " + Compras + " 3/0"}));
    EXPECT_TRUE(f->punteados().isEmpty()) << "the tick left with its row";

    // A row to the fields, changed and saved under its number.
    EXPECT_EQ(activos(), "Command1 Command4 Command5");
    f->CargarFila(0);
    EXPECT_EQ(f->numero(), 1);
    EXPECT_EQ(activos(), "Command1 Command2 Command3 Command4 Command5");
    EXPECT_EQ(f->campos().ncuenta2, Ventas);
    Escribir(f, "TDBN1", "13");
    e.dialogo.responder({true});
    Pulsar(f, "Command2");
    EXPECT_EQ(grid->item(0, ColCaja::Importe)->text(), "13,00");
}

} // namespace

TEST_F(PantallaPunteo, ElMasDelImporteDeCajaAbreLaCalculadora) {
    // The calculator's own wiring is tested with it; here only that the pad hands it its field.
    Form4::GanchoCalculadora& gancho = Form4::CalculadoraDeImporte();
    const Form4::GanchoCalculadora antes = gancho;
    QString etiqueta;
    gancho = [&](QLineEdit* campo, const QString& e) {
        etiqueta = e;
        campo->setText(QStringLiteral("112,50"));
    };
    tablero->accion("mnuCaja")->trigger();
    Form60* f = Form60::Abierto();
    ASSERT_TRUE(f);
    auto* importe = Control<QLineEdit>(f, "TDBN1");
    importe->setFocus();
    QTest::keyClick(importe, Qt::Key_Plus);
    gancho = antes;
    EXPECT_EQ(etiqueta, "F60T2");
    EXPECT_EQ(importe->text(), "112,50") << "the + itself is not typed";
}

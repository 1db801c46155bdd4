// Entry maintenance on screen, offscreen, driven as a user would from the board: the entry
// loaded by number, a line changed and the entry saved through the VAT screen; the deletion and
// renumbering screens from the menu and the toolbar.

#include "posting/forms/Form7.h"
#include "../ComunAsientos.h"
#include "forms/Pantallas.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form16.h"
#include "posting/forms/Form3.h"
#include "posting/forms/Form45.h"
#include "posting/forms/MenusMantenimiento.h"
#include "store/Conexiones.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

// With QUILMAR_CAPTURAS set, keeps a picture of the window for a person to look at.
void capturar(QWidget* w, const QString& nombre) {
    const QString carpeta = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!carpeta.isEmpty())
        w->grab().save(QDir(carpeta).filePath(nombre + ".png"));
}

void clicEnFila(QTableView* t, int fila, int col = 0) {
    const QRect r = t->visualRect(t->model()->index(fila, col));
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, r.center());
}

class PantallaF7 : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        Apunte iva = Debe(IvaSop21, 21, "Compra");
        iva.Iva = DatosIvaApunte{Proveedor, "F-10", 100, 21, 21};
        e.asiento(QDate(2024, 3, 1),
                  {Debe(Compras, 100, "Compra"), iva, Haber(Proveedor, 121, "Compra")});
        e.asiento(QDate(2024, 2, 1), {Debe(Caja, 5, "Venta"), Haber(Ventas, 5, "Venta")});
        tablero = std::make_unique<Form1>(e.sesion, *e.ajustes, e.dialogo);
        ConectarMantenimiento(*tablero, e.sesion, *e.ajustes, e.dialogo);
    }
    void TearDown() override {
        if (Form7* f = Form7::Abierto())
            delete f;
    }
    Entorno e;
    std::unique_ptr<Form1> tablero;
};

TEST_F(PantallaF7, CargarCambiarUnaLineaYGuardar) {
    // Toolbar button 5 of the board opens the screen on a new entry.
    tablero->boton(5)->trigger();
    Form7* f = Form7::Abierto();
    ASSERT_NE(f, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    EXPECT_EQ(f->windowTitle(), "Quilmar [Gestión de Asientos]");
    EXPECT_EQ(f->Text1->text(), "3") << "the next number";
    EXPECT_FALSE(f->BotonEliminar->isEnabled());
    EXPECT_FALSE(f->BotonPeriodico->isEnabled()) << "no periodic entries yet";
    EXPECT_FALSE(f->Text2->isEnabled()) << "no predesigned entries yet";
    EXPECT_TRUE(f->MSFlexGrid1->isColumnHidden(ColF7::NCuenta));
    tablero->accion("mnuAsientos")->trigger();
    EXPECT_EQ(Form7::Abierto(), f) << "one screen at a time";

    // Digits only in the number; Enter loads the entry.
    Escribir(f, "Text1", "1x");
    EXPECT_EQ(f->Text1->text(), "1");
    EXPECT_EQ(e.dialogo.informados.value(0), "Debe introducir sólo cifras.");
    QTest::keyClick(f->Text1, Qt::Key_Return);
    ASSERT_EQ(f->MSFlexGrid1->model()->rowCount(), 3);
    EXPECT_EQ(QStringList({f->Label2->text(), f->Date1->text(), f->TDBN1->text()}),
              QStringList({"1", "01/03/2024", "0,00"}));
    EXPECT_TRUE(f->BotonEliminar->isEnabled());

    // A click on the purchase line brings it to the fields; it is changed to 90.
    clicEnFila(f->MSFlexGrid1, 0);
    EXPECT_EQ(f->Command1->text(), "&Modificar");
    EXPECT_EQ(QStringList({f->Combo5->currentText(), f->Combo2->currentText(), f->TDBN2->text(),
                           f->LabelSaldo->text()}),
              QStringList({"6", Compras, "100,00", "100,00"}));
    capturar(f, "form7-modificar");
    f->TDBN2->selectAll();
    QTest::keyClicks(f->TDBN2, "90.5");
    EXPECT_EQ(f->TDBN2->text(), "90,5") << "the point becomes the comma";
    Escribir(f, "TDBN2", "90");
    f->Combo3->setEditText("Compra de papel");
    QTest::mouseClick(f->Command1, Qt::LeftButton);
    EXPECT_EQ(f->Command1->text(), "&Aceptar");
    EXPECT_EQ(f->TDBN1->text(), "-10,00");
    EXPECT_TRUE(f->Combo5->hasFocus()) << "not balanced: to the area";

    // The supplier line follows, typed through its area and subaccount.
    clicEnFila(f->MSFlexGrid1, 2);
    Escribir(f, "TDBN3", "111");
    QTest::mouseClick(f->Command1, Qt::LeftButton);
    EXPECT_EQ(f->TDBN1->text(), "0,00");
    EXPECT_TRUE(f->Command1->hasFocus());
    capturar(f, "form7");

    // Saving opens the VAT screen of the VAT line, preset from its record.
    QSignalSpy cambios(f, &Form7::librosCambiados);
    bool visto = false;
    f->VentanaIva().alAbrir = [&](Form3& f3) {
        QTimer::singleShot(0, &f3, [&] {
            visto = true;
            EXPECT_EQ(QStringList({f3.Text2->text(), f3.Combo1->currentText()}),
                      QStringList({"F-10", "Proveedores varios"}));
            QTest::mouseClick(f3.Command1, Qt::LeftButton);
        });
    };
    QTest::keyClick(f->Command1, Qt::Key_Return);
    EXPECT_TRUE(visto);
    EXPECT_EQ(cambios.count(), 1);
    EXPECT_EQ(f->MSFlexGrid1->model()->rowCount(), 0) << "emptied";
    EXPECT_EQ(f->Text1->text(), "3");
    EXPECT_EQ(e.ajustes->leer("Valores", "DateF7"), "01/03/2024");

    Conexion c = e.datos();
    EXPECT_EQ(
        Filas(c, "SELECT j.NAp, j.NCuenta, j.Concepto, j.Debe, j.Haber, "
                 "COALESCE(d.NFactura, '') FROM Diario j LEFT JOIN DatosIVA d "
                 "ON j.IdIVA <> 0 AND d.IdIVA = j.IdIVA WHERE j.NAs = 1 ORDER BY j.NAp"),
        QStringList({"1|" + Compras + "|Compra de papel|90|0|",
                     "2|" + IvaSop21 + "|Compra|21|0|F-10", "3|" + Proveedor + "|Compra|0|111|"}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    // The font size of the grid is kept.
    f->BotonLetraMas->trigger();
    EXPECT_EQ(e.ajustes->leerNumero("FontSize", "F7", 0), f->TamanoLetra());
}

TEST_F(PantallaF7, QuitarUnaLineaYEliminarElAsiento) {
    Form7* f = VMAsiento(e.sesion, *e.ajustes, e.dialogo, 2, tablero.get());
    ASSERT_EQ(f->MSFlexGrid1->model()->rowCount(), 2);
    EXPECT_EQ(f->Date1->text(), "01/02/2024");
    f->MSFlexGrid1->selectRow(1);
    e.dialogo.responder({true});
    f->BotonQuitar->trigger();
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar el Apunte correspondiente a Ventas de "
              "mercaderías?");
    EXPECT_EQ(f->MSFlexGrid1->model()->rowCount(), 1);
    EXPECT_EQ(f->TDBN1->text(), "5,00");

    e.dialogo.responder({true});
    f->BotonEliminar->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), "Se eliminó el Asiento número 2.");
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE NAs = 2"), 0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    // Another company or year on the board: the screen closes.
    QPointer<Form7> abierta(f);
    Q_EMIT tablero->sesionCambiada();
    QApplication::processEvents();
    EXPECT_TRUE(abierta.isNull() || !abierta->isVisible());
}

TEST_F(PantallaF7, EliminarDesdeElMenu) {
    AlAbrirseModal([&](QWidget* w) {
        auto* f = qobject_cast<Form45*>(w);
        ASSERT_NE(f, nullptr);
        EXPECT_EQ(f->windowTitle(), "Quilmar [Eliminar]");
        EXPECT_TRUE(f->Text1->isEnabled());
        EXPECT_FALSE(f->Text2->isEnabled());
        Pulsar(f, "Command1");
        EXPECT_EQ(e.dialogo.informados.last(), "No ha introducido el nº de Asiento a eliminar.");
        Pulsar(f, "Option2");
        EXPECT_TRUE(f->Text2->isEnabled());
        EXPECT_FALSE(f->Text1->isEnabled());
        Escribir(f, "Text2", "2x");
        EXPECT_EQ(f->Text2->text(), "2") << "digits only";
        Escribir(f, "Text3", "1");
        Pulsar(f, "Command1");
        EXPECT_EQ(e.dialogo.informados.last(),
                  "El nº del Asiento inicial tiene que ser inferior al del final.");
        Escribir(f, "Text2", "1");
        Escribir(f, "Text3", "2");
        Pulsar(f, "Command1");
    });
    e.dialogo.responder({true});
    tablero->accion("mnuEliminarAs")->trigger();
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar desde el Asiento número 1 hasta el Asiento "
              "número 2?");
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(PantallaF7, RenumerarCierraElDiarioAbierto) {
    Form7* f7 = VMAsiento(e.sesion, *e.ajustes, e.dialogo, 1, tablero.get());
    ASSERT_FALSE(f7->Logica().EsNuevo);
    QWidget diario;
    diario.show();
    tablero->registrarLibro(&diario, "Diario");
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_FALSE(diario.isVisible()) << "the journal closes first";
        auto* f = qobject_cast<Form16*>(w);
        ASSERT_NE(f, nullptr);
        EXPECT_EQ(f->windowTitle(), "Quilmar [Renumerar Diario]");
        EXPECT_FALSE(f->Text1->isEnabled());
        Pulsar(f, "Option2");
        EXPECT_TRUE(f->Text1->isEnabled() && f->Text2->isEnabled());
        Escribir(f, "Text1", "9");
        Escribir(f, "Text2", "4");
        Pulsar(f, "Command1");
        EXPECT_EQ(e.dialogo.informados.last(), "El número de Asiento más alto que hay es el 2.");
        EXPECT_EQ(f->focusWidget(), f->Text1);
        Pulsar(f, "Option1");
        Pulsar(f, "Command1");
    });
    tablero->boton(10)->trigger();
    EXPECT_EQ(e.dialogo.informados.last(), "Proceso finalizado.");
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT DISTINCT NAs, Fecha FROM Diario ORDER BY NAs"),
              QStringList({"1|2024-02-01", "2|2024-03-01"}));
    EXPECT_TRUE(f7->Logica().EsNuevo) << "the entry on show had its number changed";
    EXPECT_EQ(f7->Text1->text(), "3");
}

} // namespace

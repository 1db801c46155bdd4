// Periodic and predesigned entries on screen, offscreen, as a user goes through them: the list of
// periodic entries and its line editor, the start-up confirmation with the posting screen, the
// periodic button of the maintenance screen with the periodicity screen; a template written in
// Form74 and filled in Form76 from the board's keys, landing in the maintenance screen.

#include "../ComunAsientos.h"
#include "forms/Pantallas.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/Contabilizar.h"
#include "posting/Periodicos.h"
#include "posting/Predisenados.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form59.h"
#include "posting/forms/Form61.h"
#include "posting/forms/Form62.h"
#include "posting/forms/Form63.h"
#include "posting/forms/Form67.h"
#include "posting/forms/Form69.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form74.h"
#include "posting/forms/Form76.h"
#include "posting/forms/MenusPlantillas.h"
#include "store/Conexiones.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

void clicEnFila(QTableView* t, int fila, int col = 0) {
    const QRect r = t->visualRect(t->model()->index(fila, col));
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, r.center());
}

class Plantillas : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        AsientoPeriodico a;
        a.Nombre = "Alquiler";
        a.Periodicidad = 12;
        a.FechaIni = QDate(2024, 1, 31);
        a.FechaProx = QDate(2024, 2, 29);
        a.Lineas = {{Compras, "Alquiler local", 500, 0, ""},
                    {Banco, "Alquiler local", 0, 500, "R-1"}};
        Conexion c = e.bavar();
        GuardarPeriodico(c, a);
    }
    void TearDown() override {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible())
                w->close();
        QApplication::processEvents();
    }
    QStringList filas(const QString& sql) {
        Conexion c = e.bavar();
        return Filas(c, sql);
    }
    Entorno e;
};

} // namespace

TEST_F(Plantillas, ListaDePeriodicosYSuEditor) {
    QPointer<Form62> f = new Form62(e.sesion, *e.ajustes, e.dialogo);
    f->show();
    f->LlenarFlex();
    EXPECT_EQ(f->windowTitle(), "Quilmar [Asientos periódicos]");
    EXPECT_EQ(f->rejilla().Titulos(),
              QStringList({"Fecha Ini.", "Fecha Prox.", "Nombre Asiento", "Periodicidad"}));
    ASSERT_EQ(f->rejilla().Filas(), 1);
    EXPECT_EQ(f->rejilla().Fila(0),
              QStringList({"31/01/2024", "29/02/2024", "Alquiler", "Mensual"}));
    EXPECT_EQ(
        Control<QLabel>(f, "Label1")->text(),
        "Para ver, modificar o eliminar un asiento, clic con el botón derecho sobre el mismo");

    // "Ver/Modificar Asiento" on the row: the line editor, where the rent goes up to 550 and the
    // next date moves a month.
    AlAbrirseModal([&](QWidget* w) {
        auto* f63 = qobject_cast<Form63*>(w);
        ASSERT_TRUE(f63);
        EXPECT_EQ(f63->windowTitle(), "Quilmar [Ver/Modificar Asiento Periódico]");
        EXPECT_EQ(f63->Label1->text(), "Asiento periódico: Alquiler");
        EXPECT_EQ(f63->TDBN1->text(), "0,00");
        clicEnFila(f63->MSFlexGrid1, 0);
        EXPECT_EQ(f63->Combo1->currentText(), "Compras de mercaderías");
        Escribir(f63, "TDBN2", "550");
        Pulsar(f63, "Command3");
        EXPECT_EQ(f63->TDBN1->text(), "50,00");
        clicEnFila(f63->MSFlexGrid1, 1);
        Escribir(f63, "TDBN3", "550");
        Pulsar(f63, "Command3");
        EXPECT_EQ(f63->TDBN1->text(), "0,00");
        Escribir(f63, "Date1", "31/03/2024");
        e.dialogo.responder({true});
        Pulsar(f63, "Command1");
    });
    f->VerModificar(0);
    EXPECT_EQ(e.dialogo.preguntas, QStringList({MsgCambiarFechaPeriodico}));
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgModificacionRealizada}));
    EXPECT_EQ(filas("SELECT FechaProx, Debe, Haber FROM Periodicos ORDER BY rowid"),
              QStringList({"2024-03-31|550|0", "2024-03-31|0|550"}));
    EXPECT_EQ(f->rejilla().Celda(0, 1), "31/03/2024") << "the list was filled again";

    // "Eliminar Asiento" from the right-click menu.
    QAction* eliminar = f->accion("mnuEliminar");
    ASSERT_TRUE(eliminar);
    f->tabla()->setCurrentIndex(f->tabla()->model()->index(0, 0));
    e.dialogo.responder({true});
    eliminar->trigger();
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar el asiento periódico Alquiler?");
    EXPECT_EQ(f->rejilla().Filas(), 0);
    EXPECT_TRUE(filas("SELECT * FROM Periodicos").isEmpty());
}

TEST_F(Plantillas, ConfirmacionDeArranqueYPantallaDeContabilizar) {
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    {
        Form61 f(*e.ajustes, "Asesoría", QDate(2024, 3, 1), false);
        EXPECT_EQ(f.windowTitle(), "Confirmar asiento");
        EXPECT_EQ(f.Label1->text(), "Asiento: Asesoría");
        EXPECT_EQ(f.Label2->text(), "Fecha: 01/03/2024");
        EXPECT_FALSE(f.Command2->isEnabled()) << "a VAT line: not all";
        EXPECT_EQ(f.Command4->text(), "No contabilizar y &eliminar asiento periódico");
    }
    // The rent is due on 29 February: confirmed, shown in the posting screen with its date,
    // amount and document, and posted from there.
    AlAbrirseModal([&](QWidget* w) {
        ASSERT_EQ(w->objectName(), "Form61");
        EXPECT_TRUE(static_cast<Form61*>(w)->Command2->isEnabled());
        e.dialogo.responderTextos({"R-2"});
        AlAbrirseModal([&](QWidget* w4) {
            auto* f4 = qobject_cast<Form4*>(w4);
            ASSERT_TRUE(f4);
            EXPECT_EQ(QStringList({f4->Date1->text(), f4->Combo1->currentText(), f4->TDBN1->text(),
                                   f4->Text2->text()}),
                      QStringList({"29/02/2024", "Alquiler local", "500,00", "R-2"}));
            // The next periodic question comes when this one is done.
            AlAbrirseModal([](QWidget* w2) {
                EXPECT_EQ(static_cast<Form61*>(w2)->Label2->text(), "Fecha: 31/03/2024");
                Pulsar(w2, "Command3");
            });
            QTest::mouseClick(f4->Command1, Qt::LeftButton);
        });
        Pulsar(w, "Command1");
    });
    // Both dates lie before today and in the exercise: both fall due.
    ContAsPerEscritorio(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(e.dialogo.preguntas, QStringList({"Por favor introduzca el número del Documento, si "
                                                "lo desea."}));
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT NAs, Fecha, NCuenta, Debe, Haber, Documento FROM Diario ORDER BY "
                       "NAp"),
              QStringList({"1|2024-02-29|660000044|500|0|", "1|2024-02-29|157200003|0|500|R-2"}));
    EXPECT_EQ(filas("SELECT DISTINCT FechaProx FROM Periodicos"), QStringList({"2024-03-31"}));
}

TEST_F(Plantillas, BotonPeriodicoDeGestionConForm59) {
    e.asiento(QDate(2024, 5, 10), {Debe(Compras, 80, "Luz"), Haber(Banco, 80, "Luz")});
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarPlantillas(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuPeriodicos")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuPredisenados")->isEnabled());
    Form7* f = VMAsiento(e.sesion, *e.ajustes, e.dialogo, 1, &tablero);
    ASSERT_TRUE(f->BotonPeriodico->isEnabled());
    ASSERT_TRUE(f->Text2->isEnabled()) << "the Pred. field works";
    e.dialogo.responder({true});
    e.dialogo.responderTextos({"Luz"});
    AlAbrirseModal([](QWidget* w) {
        auto* f59 = qobject_cast<Form59*>(w);
        ASSERT_TRUE(f59);
        EXPECT_EQ(f59->windowTitle(), "Quilmar");
        EXPECT_EQ(f59->Text1->text(), "10/06/2024") << "a month after the entry";
        ASSERT_EQ(f59->Option1.size(), 8);
        Pulsar(f59, "Option1_1"); // Semanal
        EXPECT_EQ(f59->Text1->text(), "17/05/2024");
        Pulsar(f59, "Command1");
    });
    f->BotonPeriodico->trigger();
    EXPECT_EQ(filas("SELECT Nombre, Periodicidad, FechaIni, FechaProx FROM Periodicos WHERE "
                    "Nombre = 'Luz'"),
              QStringList({"Luz|52|2024-05-10|2024-05-17", "Luz|52|2024-05-10|2024-05-17"}));
    f->close();

    // The posting screen's button, on an entry filled from the board: the lines of the grid,
    // with the date of its first line; cancelling Form59 writes nothing.
    auto* f4 = new Form4(e.sesion, *e.ajustes, e.dialogo, tablero.estadoTablero());
    ASSERT_TRUE(f4->BotonPeriodico->isEnabled());
    f4->CargarLineas("Compras de mercaderías", Compras, "Banco", Banco);
    f4->Date1->setText("02/06/2024");
    f4->Combo1->setEditText("Agua");
    f4->TDBN1->setText("35");
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Relleno);
    e.dialogo.responder({true, true});
    e.dialogo.responderTextos({"Agua", "Agua"});
    AlAbrirseModal([](QWidget* w) { Pulsar(w, "Command2"); });
    f4->BotonPeriodico->trigger();
    EXPECT_TRUE(filas("SELECT * FROM Periodicos WHERE Nombre = 'Agua'").isEmpty());
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(static_cast<Form59*>(w)->Text1->text(), "02/07/2024");
        Pulsar(w, "Command1");
    });
    f4->BotonPeriodico->trigger();
    EXPECT_EQ(filas("SELECT Periodicidad, FechaIni, FechaProx, NCuenta, Debe, Haber FROM "
                    "Periodicos WHERE Nombre = 'Agua' ORDER BY rowid"),
              QStringList({"12|2024-06-02|2024-07-02|660000044|35|0",
                           "12|2024-06-02|2024-07-02|157200003|0|35"}));
    f4->close();
}

TEST_F(Plantillas, PredisenadoEscritoEnForm74YRellenadoEnForm76) {
    {
        Form74 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.windowTitle(), "Quilmar [Crear o modificar Asiento Prediseñado]");
        EXPECT_EQ(f.Nombres[0]->text(), "C10");
        EXPECT_EQ(f.Nombres[8]->text(), "C18");
        Escribir(&f, "Text1", "02a0"); // digits only
        EXPECT_EQ(f.Text1->text(), "020");
        Escribir(&f, "Text2", "Cobro de cliente");
        // Line C1: the bank receives an amount asked at posting, on a date asked too.
        Pulsar(&f, "Option1");
        f.FijarCampo(CampoPredi::Fecha, TipoCelda::Variable, "");
        f.FijarCampo(CampoPredi::Subcuenta, TipoCelda::Fija, Banco);
        f.FijarCampo(CampoPredi::Concepto, TipoCelda::Fija, "Cobro");
        f.FijarCampo(CampoPredi::Importe, TipoCelda::Variable, "");
        // Only digits and "/" in a date.
        f.FijarCampo(CampoPredi::Fecha, TipoCelda::Fija, "");
        QTest::keyClick(f.Valores[CampoPredi::Fecha], Qt::Key_A);
        EXPECT_EQ(e.dialogo.informados, QStringList({MsgFormatoFecha}));
        f.FijarCampo(CampoPredi::Fecha, TipoCelda::Variable, "");
        Pulsar(&f, "Command2");
        Pulsar(&f, "Command1");
        EXPECT_EQ(f.Label1->text(), "Apunte: C2");
        EXPECT_EQ(f.Nombres[3]->text(), "C23");
        // Line C2: the customer, for the balance.
        Pulsar(&f, "Option2");
        f.FijarCampo(CampoPredi::Fecha, TipoCelda::Anterior, "");
        f.FijarCampo(CampoPredi::Subcuenta, TipoCelda::Fija, Clientes);
        f.FijarCampo(CampoPredi::Concepto, TipoCelda::Anterior, "");
        f.FijarCampo(CampoPredi::Importe, TipoCelda::Cuadre, "");
        Pulsar(&f, "Command2");
        EXPECT_EQ(f.MSFlexGrid1->rowCount(), 2);
        e.dialogo.informados.clear();
        Pulsar(&f, "Command4");
        EXPECT_EQ(e.dialogo.informados, QStringList({"Se guardó el Asiento Prediseñado 020."}));
    }
    EXPECT_EQ(
        filas("SELECT Codigo, Etiqueta, DH, Fecha, Subcuenta, Importe FROM AsPredi ORDER BY "
              "rowid"),
        QStringList({"20|C1|D|VARIABLE|157200003|VARIABLE", "20|C2|H|ANTERIOR|443000022|CUADRE"}));

    // Ctrl + 0 2 0 on the board: Form76 asks line C1, and the entry lands in the maintenance
    // screen as a new one.
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarPlantillas(tablero, e.sesion, *e.ajustes, e.dialogo);
    tablero.show();
    AlAbrirseModal([&](QWidget* w) {
        auto* f76 = qobject_cast<Form76*>(w);
        ASSERT_TRUE(f76);
        EXPECT_EQ(f76->windowTitle(), "Quilmar [Contabilizar Asiento Prediseñado]");
        EXPECT_EQ(f76->Label1->text(), "Asiento Prediseñado: 020  Cobro de cliente");
        EXPECT_FALSE(f76->Campos[CampoPredi::Concepto]->isEnabled()) << "fixed: for information";
        Pulsar(f76, "Command1");
        EXPECT_EQ(e.dialogo.informados.last(), "Tiene que introducir la Fecha.");
        Escribir(f76, "Campo0", "15/03/24");
        Escribir(f76, "Campo3", "300");
        Pulsar(f76, "Command1");
    });
    tablero.activateWindow();
    QApplication::processEvents();
    // The board looks at each key where it is delivered first: the control with the focus.
    QWidget* destino = QApplication::focusWidget() ? QApplication::focusWidget() : &tablero;
    QTest::keyPress(destino, Qt::Key_Control);
    QTest::keyClick(destino, Qt::Key_0, Qt::ControlModifier);
    QTest::keyClick(destino, Qt::Key_2, Qt::ControlModifier);
    QTest::keyClick(destino, Qt::Key_0, Qt::ControlModifier | Qt::KeypadModifier);
    QTest::keyRelease(destino, Qt::Key_Control);
    // The template opens from the event loop, once the key has been handled.
    for (int i = 0; i < 500 && !Form7::Abierto(); ++i)
        QTest::qWait(20);
    Form7* f7 = Form7::Abierto();
    ASSERT_TRUE(f7);
    const GestionAsientos& k = f7->Logica();
    EXPECT_TRUE(k.EsNuevo);
    EXPECT_EQ(f7->Date1->text(), "15/03/2024");
    ASSERT_EQ(k.Rejilla.ultima(), 2);
    EXPECT_EQ(QStringList({k.Rejilla.celda(1, ColF7::Cuenta), k.Rejilla.celda(1, ColF7::Debe),
                           k.Rejilla.celda(2, ColF7::Cuenta), k.Rejilla.celda(2, ColF7::Haber)}),
              QStringList({"Banco", "300,00", "Clientes varios", "300,00"}));
    EXPECT_EQ(e.ajustes->leer("Valores", "DateF76"), "15/03/2024");
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0) << "never posted from the template";
    f7->Pulsar();
    EXPECT_EQ(Filas(c, "SELECT NCuenta, Debe, Haber FROM Diario ORDER BY NAp"),
              QStringList({"157200003|300|0", "443000022|0|300"}));
}

TEST_F(Plantillas, ListaF12OrdenadaYRecordada) {
    for (const auto& [codigo, nombre] :
         QList<std::pair<int, QString>>{{5, "Zeta"}, {9, "Alfa"}, {7, "Media"}}) {
        Predisenado p;
        p.Codigo = codigo;
        p.Nombre = nombre;
        p.Lineas = {LineaPredisenado{}, LineaPredisenado{}};
        Conexion c = e.bavar();
        GuardarPredisenado(c, p);
    }
    auto orden = [](Form69& f) {
        QStringList r;
        for (int i = 0; i < f.MSFlexGrid1->rowCount(); ++i)
            r << f.MSFlexGrid1->item(i, 0)->text();
        return r;
    };
    {
        Form69 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.Label1->text(), "INTRO o doble clic para contabilizar");
        EXPECT_EQ(orden(f), QStringList({"005", "007", "009"}));
        f.mnuNombres->trigger();
        EXPECT_EQ(orden(f), QStringList({"009", "007", "005"}));
    }
    EXPECT_EQ(e.ajustes->leer("Valores", "OrdenF12"), "Nombres");
    Form69 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(orden(f), QStringList({"009", "007", "005"})) << "the order is remembered";
    EXPECT_TRUE(f.mnuNombres->isChecked());
    f.show();
    f.MSFlexGrid1->setCurrentCell(1, 0);
    QTest::keyClick(f.MSFlexGrid1, Qt::Key_Return);
    EXPECT_EQ(f.elegido(), 7);
}

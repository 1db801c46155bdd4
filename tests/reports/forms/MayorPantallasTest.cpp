// Screens of the ledger: Form9's rules, Form10 opened on a subaccount with its totals and its
// boxes, Form53's messages, Form55's list, and the board's and the journal's ways in.

#include "Entorno.h"
#include "forms/Pantallas.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/forms/Form1.h"
#include "reports/Mayor.h"
#include "reports/forms/CajasSubcuenta.h"
#include "reports/forms/Form10.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form53.h"
#include "reports/forms/Form55.h"
#include "reports/forms/Form9.h"
#include "reports/forms/MenusLibros.h"

#include "store/forms/CajaFecha.h"
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Ventas = "370000066", Compras = "660000044";

struct Libro : Entorno {
    Libro() {
        crearEmpresa();
        asiento(QDate(2024, 1, 10), {Debe(Caja, 100, "Venta 1"), Haber(Ventas, 100, "Venta 1")});
        asiento(QDate(2024, 4, 10), {Debe(Caja, 50, "Venta 2"), Haber(Ventas, 50, "Venta 2")});
        asiento(QDate(2024, 5, 2), {Debe(Compras, 30, "Compra"), Haber(Caja, 30, "Compra")});
    }
};

void Guardar(QWidget* w, const char* nombre) {
    // For a person to look at; kept out of the repository.
    const QString dir = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!dir.isEmpty())
        w->grab().save(dir + QLatin1Char('/') + QLatin1String(nombre) + QStringLiteral(".png"));
}

} // namespace

TEST(Form9, ReglasYSeleccion) {
    Libro e;
    Form9 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Movimientos de una Subcuenta");
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Tiene que seleccionar el Area al que pertenece la Subcuenta."});
    auto* area = Control<QComboBox>(&f, "Combo1");
    area->setCurrentIndex(area->findText("1"));
    Q_EMIT area->activated(area->currentIndex());
    auto* sub = Control<QComboBox>(&f, "Combo2");
    EXPECT_GE(sub->findText("Caja"), 0);
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.last(), "Tiene que seleccionar la Subcuenta.");
    sub->setCurrentIndex(sub->findText("Caja"));
    Guardar(&f, "form9");
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(f.seleccion().ncuenta, Caja);
}

TEST(Form10, AbiertoSobreUnaSubcuentaConTotalesYCajas) {
    Libro e;
    PeticionMovimientos p{QDate(2024, 3, 1), QDate(2024, 12, 31), {}, Caja, "Caja"};
    QPointer<Form10> f = Form10::Abrir(e.sesion, *e.ajustes, e.dialogo, p);
    QApplication::processEvents();
    EXPECT_EQ(f->windowTitle(), "Quilmar [Movimientos de una Subcuenta]");
    ASSERT_EQ(f->rejilla().Filas(), 3);
    EXPECT_EQ(f->rejilla().Celda(0, 2), "Saldo Inicial");
    EXPECT_EQ(QStringList({f->etiqueta("PeriodoDebe")->text(), f->etiqueta("PeriodoSaldo")->text(),
                           f->etiqueta("AcumuladoSaldo")->text()}),
              QStringList({"50,00", "20,00", "120,00"}));
    EXPECT_TRUE(f->etiqueta("AcumuladoSaldo")->isVisible());
    EXPECT_EQ(f->tabla()->currentIndex().row(), 2); // on the last row
    EXPECT_EQ(Control<QComboBox>(f, "Combo1")->currentText() + "|" +
                  Control<QComboBox>(f, "Combo2")->currentText(),
              "1|Caja");
    f->resize(900, 420);
    Guardar(f, "form10");

    // Its own boxes: the first day of the exercise leaves only the period line.
    Control<CajaFecha>(f, "DTPicker1")->setDate(QDate(2024, 1, 1));
    Q_EMIT f->cajas()->cambiada();
    QApplication::processEvents();
    EXPECT_EQ(f->rejilla().Filas(), 3);
    EXPECT_EQ(f->rejilla().Celda(0, 0), "1");
    EXPECT_FALSE(f->etiqueta("AcumuladoSaldo")->isVisible());
    EXPECT_EQ(f->etiqueta("PeriodoSaldo")->text(), "120,00");
    // An area left empty.
    Control<QComboBox>(f, "Combo1")->setCurrentIndex(-1);
    Q_EMIT f->cajas()->cambiada();
    EXPECT_EQ(e.dialogo.informados.last(), "Tiene que seleccionar el Area.");

    // Deleting from the list: the journal's question, then the list without the entry.
    f->tabla()->setCurrentIndex(f->tabla()->model()->index(1, 0));
    e.dialogo.responder({true});
    f->accion("mnuEliminarAs")->trigger();
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el Asiento número 2?");
    EXPECT_EQ(f->rejilla().Filas(), 2);
    e.sesion.EjCerrado = true;
    f->accion("mnuEliminarAs")->trigger();
    EXPECT_EQ(e.dialogo.informados.last(),
              "El ejercicio está cerrado. Puede invertir el cierre en el menú Acceso, Ejercicio.");
    f->close();
}

TEST(Form53, MensajesDeLasCuentas) {
    Libro e;
    Form53 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QApplication::setActiveWindow(&f);
    EXPECT_EQ(f.windowTitle(), "Mayor");
    auto* t1 = Control<QLineEdit>(&f, "Text1");
    t1->setFocus();
    QTest::keyClicks(t1, "5a7");
    EXPECT_EQ(t1->text(), "57");
    Control<QLineEdit>(&f, "Text2")->setFocus();
    EXPECT_EQ(e.dialogo.informados, QStringList{"Debe introducir los tres dígitos de la Cuenta."});
    QTest::keyClicks(t1, "0");
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.last(),
              "Tiene que introducir el número de Cuenta, con tres dígitos. Puede ver la relación "
              "de Cuentas en el menú Gestión Contable, Gestión de Cuentas.");
    Escribir(&f, "Text2", "700");
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(f.seleccion().desdeCuenta, 570);
}

TEST(Form55, ListaEnNegritaYElTableroLlegaALosLibros) {
    Libro e;
    SeleccionMayor sel{QDate(2024, 1, 1), QDate(2024, 12, 31), 570, 700};
    auto* f = new Form55(e.sesion, *e.ajustes, e.dialogo, sel);
    f->show();
    f->LlenarMayor();
    EXPECT_EQ(f->windowTitle(), "Quilmar [Mayor]");
    EXPECT_EQ(f->rejilla().Celda(0, 0), "570. Caja, euros");
    EXPECT_EQ(f->asientoDeFila(0), 0);
    EXPECT_EQ(f->asientoDeFila(2), 1);
    f->resize(900, 480);
    Guardar(f, "form55");
    f->close();

    // The board: buttons 8 and 13, and the journal's action reaches Form10.
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarLibros(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(tablero.boton(8), tablero.accion("mnuMayor"));
    EXPECT_EQ(tablero.boton(13), tablero.accion("mnuMovimientos"));
    EXPECT_TRUE(tablero.accion("mnuMayor")->isEnabled());
    EXPECT_TRUE(tablero.accion("mnuMovimientos")->isEnabled());
    ASSERT_TRUE(Form5::VerMovimientos());
    Form5::VerMovimientos()(&tablero, {QDate(2024, 1, 1), QDate(2024, 12, 31), "3", Ventas, ""});
    const QList<QWidget*> abiertos = tablero.librosAbiertos("Movimientos");
    ASSERT_EQ(abiertos.size(), 1);
    auto* m = qobject_cast<Form10*>(abiertos.first());
    ASSERT_TRUE(m);
    EXPECT_EQ(m->seleccion().ncuenta, Ventas);
    EXPECT_EQ(m->rejilla().Celda(1, 5), "150,00");
    m->close();
    Form5::VerMovimientos() = nullptr;
    Form5::VerModificarAsiento() = nullptr;
}

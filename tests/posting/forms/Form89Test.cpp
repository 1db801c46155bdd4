// The due-date screen offscreen, reached as a user reaches it: the board's menu, toolbar button
// and lights, the "..." of a line of the posting and maintenance screens. A due date typed in,
// changed after a double click, the list's colours on a fixed day, the print options and a purge
// from the menu "Vence".

#include "posting/forms/Form89.h"
#include "../ComunAsientos.h"
#include "forms/Pantallas.h"
#include "platform/forms/TablaRejilla.h"
#include "posting/EstadoTablero.h"
#include "posting/LucesVencimiento.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form7.h"
#include "posting/forms/MenusMantenimiento.h"
#include "posting/forms/MenusVencimientos.h"
#include "store/Conexiones.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
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

void elegir(QComboBox* c, const QString& texto) {
    const int i = c->findText(texto);
    ASSERT_GE(i, 0) << texto.toStdString();
    c->setCurrentIndex(i);
    Q_EMIT c->activated(i);
}

const QDate Dia(2099, 6, 15);

class PantallaF89 : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        tablero = std::make_unique<Form1>(e.sesion, *e.ajustes, e.dialogo);
        ConectarMantenimiento(*tablero, e.sesion, *e.ajustes, e.dialogo);
        ConectarVencimientos(*tablero, e.sesion, *e.ajustes, e.dialogo);
    }
    void TearDown() override {
        delete Form89::Abierto();
        delete Form7::Abierto();
        // The hooks outlive the test's board and dialogue.
        Form4::VencimientosDeLinea() = nullptr;
        Form7::VencimientosDeLinea() = nullptr;
    }
    void anadir(const QDate& fecha, const QString& tipo, const QString& concepto, double importe,
                const QString& situacion = "Pendiente") {
        Vencimiento v;
        v.FechaV = fecha;
        v.FechaE = fecha.addDays(-30);
        v.Tipo = tipo;
        v.Forma = "Efecto";
        v.NCuenta1 = tipo == "Cobro" ? Clientes : Proveedor;
        v.NCuenta2 = Banco;
        v.Concepto = concepto;
        v.Situacion = situacion;
        v.Importe = importe;
        Conexion b = e.bavar();
        AnadirVencimiento(b, v, QDateTime(fecha, QTime(9, 0)));
    }
    QStringList conceptos(Form89* f) const {
        QStringList c;
        for (int i = 0; i < f->Logica().Lista.Filas(); ++i)
            c << f->Logica().Lista.Celda(i, ColV::Concepto);
        return c;
    }
    Entorno e;
    std::unique_ptr<Form1> tablero;
};

} // namespace

TEST_F(PantallaF89, MenuBotonYLucesDelTablero) {
    anadir(Dia, "Cobro", "cobro", 100);
    anadir(Dia.addDays(1), "Pago", "pago", 40);
    QAction* menu = tablero->accion("mnuVencimientos");
    ASSERT_TRUE(menu->isEnabled());
    EXPECT_EQ(tablero->boton(11), menu) << "toolbar button 11 is the menu entry";
    tablero->ColorVenc();
    auto* pagos = Control<QPushButton>(tablero.get(), "Command5");
    ASSERT_TRUE(pagos->isEnabled());
    EXPECT_EQ(pagos->property("luz").toInt(), int(LuzVencimiento::Lejano));

    // The light of payments opens the list on payments, and the choice is kept.
    QTest::mouseClick(pagos, Qt::LeftButton);
    Form89* f = Form89::Abierto();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Vencimientos]");
    EXPECT_TRUE(f->Option2->isChecked());
    EXPECT_EQ(conceptos(f), QStringList{"pago"});
    EXPECT_EQ(f->LabelTotal->text(), "40,00");
    EXPECT_EQ(e.ajustes->leer("Datos", "TipoVenc"), "Pago");
    // The other light brings the same window forward, on collections.
    QTest::mouseClick(Control<QPushButton>(tablero.get(), "Command4"), Qt::LeftButton);
    EXPECT_EQ(Form89::Abierto(), f);
    EXPECT_TRUE(f->Option1->isChecked());
    EXPECT_EQ(conceptos(f), QStringList{"cobro"});
    // "Todos" nets them; "Vencidos" is kept too.
    Pulsar(f, "Option3");
    EXPECT_EQ(f->LabelTotal->text(), "60,00");
    Pulsar(f, "Check1");
    EXPECT_TRUE(conceptos(f).isEmpty()) << "nothing is past in 2099";
    EXPECT_EQ(e.ajustes->leer("Datos", "VerVenc"), "SI");
    f->close();

    // A new screen starts as the last one was left.
    menu->trigger();
    f = Form89::Abierto();
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->Option3->isChecked());
    EXPECT_TRUE(f->Check1->isChecked());
}

TEST_F(PantallaF89, AnadirModificarYColores) {
    tablero->accion("mnuVencimientos")->trigger();
    Form89* f = Form89::Abierto();
    ASSERT_NE(f, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    f->FijarHoy(Dia);

    // Typed in as a user would: a payment chosen, then a state that contradicts it.
    Escribir(f, "Date1", "20/06/2099");
    elegir(f->Combo1, "Pago");
    elegir(f->Combo2, "2");
    ASSERT_GE(f->Logica().Codigos.indexOf(Proveedor), 0);
    elegir(f->Combo3, f->Logica().Nombres.at(f->Logica().Codigos.indexOf(Proveedor)));
    elegir(f->Combo7, "Transferencia");
    elegir(f->Combo5, f->Logica().CajaNombres.at(f->Logica().CajaCodigos.indexOf(Banco)));
    elegir(f->Combo6, "Cobrado");
    EXPECT_EQ(e.dialogo.informados.value(0),
              "Si el Vencimiento es del tipo 'Pago' la situación no puede ser 'Cobrado'");
    EXPECT_EQ(f->Combo6->currentText(), "Pendiente");
    f->Combo4->setEditText("Compra de mercaderías");
    Escribir(f, "Text1", "1x210.5");
    EXPECT_EQ(f->Text1->text(), "1210,5") << "digits and the decimal mark only";
    Pulsar(f, "Command1");
    ASSERT_EQ(f->Logica().Lista.Filas(), 1) << e.dialogo.informados.join(" | ").toStdString();
    EXPECT_EQ(f->LabelTotal->text(), "-1.210,50") << "a payment under Todos";
    EXPECT_EQ(tablero->findChild<QPushButton*>("Command5")->property("luz").toInt(),
              int(LuzVencimiento::Lejano))
        << "the board's light follows";

    // Two more, and the colours of the first column on that day.
    f->Borrar();
    EXPECT_TRUE(f->Date1->text().isEmpty());
    anadir(Dia, "Cobro", "hoy", 10);
    anadir(Dia.addDays(-1), "Cobro", "ayer", 10);
    anadir(Dia.addDays(-2), "Cobro", "cobrado", 10, "Cobrado");
    f->LlenarVenc();
    ASSERT_EQ(conceptos(f), QStringList({"cobrado", "ayer", "hoy", "Compra de mercaderías"}));
    capturar(f, "form89");
    const QImage img = f->MSFlexGrid1->viewport()->grab().toImage();
    const QList<quint32> colores = {16363607, 255, 33023, 65535};
    for (int i = 0; i < colores.size(); ++i) {
        const QRect r = f->MSFlexGrid1->visualRect(f->MSFlexGrid1->model()->index(i, 0));
        EXPECT_EQ(img.pixelColor(r.left() + 2, r.center().y()), ColorDeBGR(colores[i])) << i;
    }

    // A double click copies the row; the change is written and the list read again.
    const QRect fila = f->MSFlexGrid1->visualRect(f->MSFlexGrid1->model()->index(3, 1));
    // A real double click: press and release, then the double click.
    QTest::mouseClick(f->MSFlexGrid1->viewport(), Qt::LeftButton, {}, fila.center());
    QTest::mouseDClick(f->MSFlexGrid1->viewport(), Qt::LeftButton, {}, fila.center());
    EXPECT_EQ(QStringList({f->Date1->text(), f->Combo1->currentText(), f->Combo2->currentText(),
                           f->Combo7->currentText(), f->Text1->text()}),
              QStringList({"20/06/2099", "Pago", "2", "Transferencia", "1.210,50"}));
    elegir(f->Combo6, "Pagado");
    Pulsar(f, "Command2");
    EXPECT_EQ(f->Logica().Lista.Celda(3, ColV::Situacion), "Pagado");
    const QImage despues = f->MSFlexGrid1->viewport()->grab().toImage();
    const QRect r3 = f->MSFlexGrid1->visualRect(f->MSFlexGrid1->model()->index(3, 0));
    EXPECT_EQ(despues.pixelColor(r3.left() + 2, r3.center().y()), ColorDeBGR(16363607));

    // The search: a text in a column, from the current row on.
    f->MSFlexGrid1->setCurrentIndex(f->MSFlexGrid1->model()->index(0, 0));
    Escribir(f, "Text5", "AYER");
    elegir(f->Combo12, "Concepto");
    Pulsar(f, "Command8");
    EXPECT_EQ(f->MSFlexGrid1->currentIndex().row(), 1);
    Pulsar(f, "Command9");
    EXPECT_EQ(e.dialogo.informados.last(), "Se llegó al final de la lista.");
}

TEST_F(PantallaF89, ImprimirYPurgarDesdeElMenu) {
    anadir(QDate(2001, 1, 1), "Cobro", "viejo", 10);
    anadir(Dia, "Pago", "nuevo", 10);
    tablero->accion("mnuVencimientos")->trigger();
    Form89* f = Form89::Abierto();
    ASSERT_NE(f, nullptr);
    f->FijarHoy(Dia);

    // FORM90: the group's settings, two fonts; cancelled, nothing is printed.
    e.ajustes->escribir("Valores", "IzqVenc", "15");
    bool visto = false;
    AlAbrirseModal([&](QWidget* w) {
        visto = true;
        EXPECT_EQ(w->objectName(), "FORM90");
        EXPECT_EQ(w->windowTitle(), "Vencimientos");
        auto* fuentes = Control<QComboBox>(w, "Combo1");
        QStringList items;
        for (int i = 0; i < fuentes->count(); ++i)
            items << fuentes->itemText(i);
        EXPECT_EQ(items, QStringList({"Courier New", "Arial Narrow"}));
        EXPECT_EQ(Control<QLineEdit>(w, "Text1")->text(), "15");
        Pulsar(w, "Command2");
    });
    Pulsar(f, "Command4");
    EXPECT_TRUE(visto);

    QMenu* vence = f->mnuVence;
    ASSERT_EQ(vence->title(), "Vence");
    QStringList entradas;
    for (QAction* a : vence->actions())
        if (!a->isSeparator())
            entradas << a->text();
    EXPECT_EQ(entradas, QStringList({"Exportar", "Modificar", "Eliminar",
                                     "Eliminar todos los Cobrados/Pagados",
                                     "Eliminar Vencidos y no Cobrados/Pagados"}));
    auto* anos = f->findChild<QAction*>("mnuVenc24");
    ASSERT_NE(anos, nullptr);
    EXPECT_EQ(anos->text(), "Vencido más de 2 años");
    e.dialogo.responder({true});
    anos->trigger();
    EXPECT_TRUE(e.dialogo.preguntas.last().startsWith(
        "Desea eliminar todos los registros con fecha de vencimiento anterior a "));
    EXPECT_EQ(conceptos(f), QStringList{"nuevo"});
}

TEST_F(PantallaF89, LineasDeAsientosAbrenLaPantallaRellena) {
    // The posting screen: its "..." hands the line over.
    EstadoTablero dinero;
    auto* f4 = new Form4(e.sesion, *e.ajustes, e.dialogo, dinero);
    f4->CargarLineas("Compras", Compras, "Proveedores varios", Proveedor);
    f4->FijarModo("DOS");
    f4->Date1->setText("05/03/2024");
    f4->Combo1->setEditText("Compra de papel");
    f4->TDBN1->setText("121");
    f4->Aceptar();
    f4->show();
    const QRect celda =
        f4->MSFlexGrid1->visualRect(f4->MSFlexGrid1->model()->index(1, ColF4::Venc));
    QTest::mouseClick(f4->MSFlexGrid1->viewport(), Qt::LeftButton, {}, celda.center());
    Form89* f = Form89::Abierto();
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(
        QStringList({f->Combo1->currentText(), f->Combo2->currentText(), f->Combo4->currentText(),
                     f->Date2->text(), f->Date1->text(), f->Text1->text(),
                     f->Combo6->currentText()}),
        QStringList({"Cobro", "2", "Compra de papel", "05/03/2024", "", "121,00", "Pendiente"}));
    EXPECT_EQ(f->Logica().NCuenta1, Proveedor);
    delete f4;

    // The maintenance screen: the debit line of an entry is a payment.
    e.asiento(QDate(2024, 2, 1), {Debe(Proveedor, 50, "Pago a cuenta"), Haber(Banco, 50)});
    Form7* f7 = VMAsiento(e.sesion, *e.ajustes, e.dialogo, 1, tablero.get());
    ASSERT_NE(f7, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f7));
    const QRect venc = f7->MSFlexGrid1->visualRect(f7->MSFlexGrid1->model()->index(0, ColF7::Venc));
    QTest::mouseClick(f7->MSFlexGrid1->viewport(), Qt::LeftButton, {}, venc.center());
    EXPECT_EQ(QStringList({f->Combo1->currentText(), f->Combo4->currentText(), f->Date2->text(),
                           f->Text1->text()}),
              QStringList({"Pago", "Pago a cuenta", "01/02/2024", "50,00"}));
    EXPECT_EQ(f->Logica().NCuenta1, Proveedor);
    EXPECT_EQ(f7->Command1->text(), "&Aceptar") << "the click doesn't select the line";
}

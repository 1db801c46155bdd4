// The posting screen and the VAT screen, offscreen, driven as a user would: keys, clicks, the
// modal VAT screen answered while it is open.

#include "posting/forms/Form4.h"
#include "../ComunAsientos.h"
#include "posting/EstadoTablero.h"
#include "posting/forms/Form3.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <gtest/gtest.h>

namespace {

const QString Caja = "157000001", Banco = "157200003", Compras = "660000044",
              Proveedor = "240000009", IvaSop21 = "447200028", Recargo = "447200031";

// With QUILMAR_CAPTURAS set, keeps a picture of the window for a person to look at.
void capturar(QWidget* w, const QString& nombre) {
    const QString carpeta = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!carpeta.isEmpty())
        w->grab().save(QDir(carpeta).filePath(nombre + ".png"));
}

void escribir(QWidget* w, const QString& texto) {
    w->setFocus();
    QTest::keyClicks(w, texto);
}

class Pantallas : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        f = new Form4(e.sesion, *e.ajustes, e.dialogo, tablero);
    }
    void TearDown() override { delete f.data(); }
    QString celda(int fila, int col) const { return f->Logica().Rejilla.celda(fila, col); }
    Entorno e;
    EstadoTablero tablero;
    QPointer<Form4> f;
};

TEST_F(Pantallas, AsientoCompletoConIvaDesdeElTeclado) {
    long numero = 0;
    QObject::connect(f, &Form4::Contabilizado, [&](long n) { numero = n; });
    f->CargarLineas("Compras", Compras, "Proveedores varios", Proveedor);
    f->FijarModo("DOS");
    f->FijarNumeroAsiento(1234);
    f->show();
    f->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(f));
    EXPECT_EQ(f->windowTitle(), "Quilmar [Contabilizar]");
    EXPECT_EQ(f->LabelNumero->text(), "1.234");
    EXPECT_TRUE(f->MSFlexGrid1->isColumnHidden(ColF4::NCuenta));
    EXPECT_TRUE(f->MSFlexGrid1->isColumnHidden(ColF4::Contra));
    EXPECT_FALSE(f->MSFlexGrid1->isColumnHidden(ColF4::Factura));
    EXPECT_EQ(f->Combo2->currentText(), "") << "the empty sector, last in the list";

    // Enter walks date, description, amount, document, sector, Aceptar.
    f->Date1->clear();
    escribir(f->Date1, "150324");
    QTest::keyClick(f->Date1, Qt::Key_Return);
    EXPECT_TRUE(f->Combo1->lineEdit()->hasFocus());
    QTest::keyClicks(f->Combo1->lineEdit(), "Compra de material de oficina");
    QTest::keyClick(f->Combo1->lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(f->TDBN1->hasFocus());
    QTest::keyClicks(f->TDBN1, "100");
    QTest::keyClick(f->TDBN1, Qt::Key_Return);
    EXPECT_TRUE(f->Text2->hasFocus());
    QTest::keyClicks(f->Text2, "F-77");
    QTest::keyClick(f->Text2, Qt::Key_Return);
    EXPECT_TRUE(f->Combo2->hasFocus());
    QTest::keyClick(f->Combo2, Qt::Key_Return);
    EXPECT_TRUE(f->Command1->hasFocus());
    QTest::keyClick(f->Command1, Qt::Key_Return);
    EXPECT_EQ(QStringList({celda(1, ColF4::Debe), celda(2, ColF4::Haber), celda(2, ColF4::Fecha)}),
              QStringList({"100,00", "100,00", "15/03/2024"}));
    EXPECT_EQ(f->Date1->text(), "15/03/2024") << "the date shows whole";
    EXPECT_EQ(QStringList({f->LabelNombre2->text(), f->LabelSaldo2->text()}),
              QStringList({"Proveedores varios", "0,00"}));

    // The board adds the VAT line; the amount field takes its quota.
    f->AnadirLinea("IVA soportado 21%", IvaSop21);
    f->FijarModo("D");
    f->TDBN1->clear();
    QTest::keyClicks(f->TDBN1, "21");
    QTest::mouseClick(f->Command1, Qt::LeftButton);
    EXPECT_EQ(celda(3, ColF4::Debe), "21,00");
    EXPECT_EQ(celda(2, ColF4::Haber), "121,00");
    capturar(f, "form4");

    // The VAT screen opens modal: answer it while it is open.
    bool visto = false;
    f->VentanaIva().alAbrir = [&](Form3& f3) {
        QTimer::singleShot(0, &f3, [&] {
            visto = true;
            EXPECT_EQ(f3.windowTitle(), "Quilmar [Datos del IVA]");
            EXPECT_EQ(QStringList({f3.Encabezado->text(), f3.Text1->text(), f3.Label4->text(),
                                   f3.Label8->text()}),
                      QStringList({"Proveedor", " 100,00", " 21,00", " 21,00"}));
            EXPECT_TRUE(QTest::qWaitFor([&] { return f3.Text2->hasFocus(); }, 2000))
                << "the invoice number is missing";
            EXPECT_FALSE(f3.Combo2->isVisible());
            capturar(&f3, "form3");
            // Accepting without a counterparty is refused and the screen stays.
            QTest::mouseClick(f3.Command1, Qt::LeftButton);
            EXPECT_TRUE(f3.isVisible());
            QTest::keyClicks(f3.Text2, "F-2024-77");
            f3.Combo1->setFocus();
            const int i = f3.Combo1->findText("Proveedores varios");
            f3.Combo1->setCurrentIndex(i);
            Q_EMIT f3.Combo1->activated(i);
            QTest::mouseClick(f3.Command1, Qt::LeftButton);
        });
    };
    QTest::mouseClick(f->Command1, Qt::LeftButton);
    EXPECT_TRUE(visto);
    EXPECT_EQ(e.dialogo.informados, QStringList{"Debe seleccionar la Subcuenta de contrapartida."});
    EXPECT_EQ(numero, 1);
    EXPECT_TRUE(f.isNull() || !f->isVisible()) << "the screen closes after posting";
    QApplication::processEvents();
    EXPECT_TRUE(f.isNull()) << "and is gone";
    EXPECT_FALSE(Form4::Abierto());

    Conexion c = e.datos();
    EXPECT_EQ(
        Filas(c, "SELECT d.NAp, d.NCuenta, d.Debe, d.Haber, d.Documento, "
                 "COALESCE(v.NFactura, '') FROM Diario d LEFT JOIN DatosIVA v "
                 "ON d.IdIVA <> 0 AND v.IdIVA = d.IdIVA ORDER BY d.NAp"),
        QStringList({"1|" + Compras + "|100|0|F-77|", "2|" + IvaSop21 + "|21|0|F-77|F-2024-77",
                     "3|" + Proveedor + "|0|121|F-77|"}));
}

TEST_F(Pantallas, CamposDeFechaConceptoEImporte) {
    {
        Conexion b = e.bavar();
        b.ejecutar("INSERT INTO Conceptos (Codigo, Nombre) VALUES (12, 'Nómina del mes')");
    }
    delete f.data();
    f = new Form4(e.sesion, *e.ajustes, e.dialogo, tablero);
    f->show();
    f->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(f));
    EXPECT_EQ(f->Combo1->findText("Nómina del mes"), 0) << "fed from Conceptos";

    // "+" in the date opens the month calendar, limited to the exercise.
    QTest::keyClicks(f->Date1, "+");
    ASSERT_NE(f->Calendario, nullptr);
    EXPECT_TRUE(f->Calendario->isVisible());
    EXPECT_EQ(f->Calendario->minimumDate(), QDate(2024, 1, 1));
    EXPECT_EQ(f->Calendario->maximumDate(), QDate(2024, 12, 31));
    Q_EMIT f->Calendario->clicked(QDate(2024, 7, 9));
    EXPECT_EQ(f->Date1->text(), "09/07/2024");
    EXPECT_FALSE(f->Calendario->isVisible());

    // A number in the description becomes the predefined text; typing stops at 40.
    f->Combo1->setEditText("");
    escribir(f->Combo1->lineEdit(), "12");
    QTest::keyClick(f->Combo1->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(f->Combo1->currentText(), "Nómina del mes");
    EXPECT_EQ(f->Combo1->lineEdit()->cursorPosition(), 14);
    f->Combo1->setEditText("");
    QTest::keyClicks(f->Combo1->lineEdit(), QString(50, 'x'));
    EXPECT_EQ(f->Combo1->currentText().size(), 40);
    // What is pasted leaves its control characters behind; the document stops at its field.
    f->Combo1->setEditText("");
    f->Combo1->lineEdit()->insert("Luz\tmarzo\r\n9.999,00");
    EXPECT_EQ(f->Combo1->currentText(), "Luzmarzo9.999,00");
    QTest::keyClicks(f->Text2, QString(40, '7'));
    EXPECT_EQ(f->Text2->text(), QString(30, '7'));
    f->Text2->clear();
    // The keyboard reaches the combo box itself, which hands the keys to its line edit: Enter
    // there goes on to the amount too.
    f->Combo1->setEditText("");
    f->Combo1->setFocus();
    QTest::keyClicks(f->Combo1, "12");
    QTest::keyClick(f->Combo1, Qt::Key_Return);
    EXPECT_EQ(f->Combo1->currentText(), "Nómina del mes");
    f->Combo1->setEditText("Luz de marzo");
    QTest::keyClick(f->Combo1, Qt::Key_Return);
    EXPECT_TRUE(f->TDBN1->hasFocus());
    EXPECT_EQ(f->Combo1->currentText(), "Luz de marzo");

    // Amount: a point becomes the comma of the locale; letters don't get in.
    escribir(f->TDBN1, "12.5a-");
    EXPECT_EQ(f->TDBN1->text(), "12,5");
    EXPECT_EQ(FiltrarTeclaImporte(",", true), TeclaImporte::Cambia);
    EXPECT_EQ(FiltrarTeclaImporte(".", true), TeclaImporte::Pasa);
    EXPECT_EQ(FiltrarTeclaImporte("7", false), TeclaImporte::Pasa);
    // On a machine whose own locale writes a point (whatever the program's Spanish texts), the
    // point is the mark and a typed comma becomes it; the amount means the same.
    EXPECT_TRUE(DetectarPuntoDecimal(QLocale(QLocale::English, QLocale::UnitedStates)));
    EXPECT_FALSE(DetectarPuntoDecimal(QLocale(QLocale::Spanish, QLocale::Spain)));
    e.sesion.PuntoDecimal = true;
    f->TDBN1->clear();
    escribir(f->TDBN1, "12,5a");
    EXPECT_EQ(f->TDBN1->text(), "12.5");
    EXPECT_EQ(LeerImporte(f->TDBN1->text()), 12.5);
    e.sesion.PuntoDecimal = false;
    f->TDBN1->clear();
    escribir(f->TDBN1, "12.5");

    // Checks report through the dialog and give the focus to the date.
    f->CargarLineas("Caja", Caja, "Banco", Banco);
    f->Date1->setText("1/1/2025");
    QTest::mouseClick(f->Command1, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados.last(), "La fecha introducida no pertenece al año de trabajo.");
    EXPECT_TRUE(f->Date1->hasFocus());
}

TEST_F(Pantallas, RejillaEditablePorOrigenYMarcasDeCasacion) {
    f->CargarLineas("Caja", Caja, "Banco", Banco);
    f->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    f->Date1->setText("10/05/2024");
    f->Combo1->setEditText("Traspaso");
    f->TDBN1->setText("80");
    f->Aceptar();
    RejillaAsiento& r = f->Logica().Rejilla;
    EXPECT_FALSE(r.flags(r.index(1, ColF4::Haber)) & Qt::ItemIsEditable) << "board entries: none";

    // A click on the picture column asks, and marks the start of a match.
    e.dialogo.responder({true});
    const QRect celda13 = f->MSFlexGrid1->visualRect(r.index(0, ColF4::Imagen));
    QTest::mouseClick(f->MSFlexGrid1->viewport(), Qt::LeftButton, {}, celda13.center());
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Desea marcar este apunte como inicio de una casación?"});
    EXPECT_EQ(celda(1, ColF4::Casacion), "0");
    EXPECT_EQ(r.index(0, ColF4::Imagen).data(RejillaAsiento::RolImagen).toInt(), 1);
    QTest::mouseClick(f->MSFlexGrid1->viewport(), Qt::LeftButton, {}, celda13.center());
    EXPECT_EQ(e.dialogo.preguntas.size(), 1) << "a marked line is not asked again";
    // The due-date cell does nothing while there is no due-date screen; with one it gets the line.
    DatosVencimientoLinea visto;
    f->AbrirVencimientos = [&](const DatosVencimientoLinea& v) {
        visto = v;
    };
    const QRect celda12 = f->MSFlexGrid1->visualRect(r.index(1, ColF4::Venc));
    QTest::mouseClick(f->MSFlexGrid1->viewport(), Qt::LeftButton, {}, celda12.center());
    EXPECT_EQ(QStringList({visto.Tipo, visto.Area, visto.Situacion}),
              QStringList({"Cobro", "1", "Pendiente"}));
    EXPECT_EQ(visto.Importe, 80);

    // A periodic confirmation edits amounts and documents; the last row's amount goes to the
    // amount field, a wrong one is refused.
    f->FijarOrigen("F61");
    EXPECT_TRUE(r.flags(r.index(1, ColF4::Haber)) & Qt::ItemIsEditable);
    EXPECT_FALSE(r.flags(r.index(1, ColF4::Concepto)) & Qt::ItemIsEditable);
    const QModelIndex haber = r.index(1, ColF4::Haber);
    f->MSFlexGrid1->setCurrentIndex(haber);
    f->MSFlexGrid1->edit(haber);
    auto* editor = f->MSFlexGrid1->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, "95.5x");
    EXPECT_EQ(editor->text(), "95,5") << "the x is dropped, the point turned";
    QTest::keyClick(editor, Qt::Key_Return);
    // The view commits the edit on its next turn of the event loop.
    EXPECT_TRUE(QTest::qWaitFor([&] { return celda(2, ColF4::Haber) == "95,50"; }, 2000))
        << celda(2, ColF4::Haber).toStdString();
    EXPECT_EQ(f->TDBN1->text(), "95,50");
    EXPECT_FALSE(r.setData(haber, ""));
    EXPECT_EQ(e.dialogo.informados.value(e.dialogo.informados.size() - 1),
              "El importe introducido es erróneo.");
    EXPECT_EQ(celda(2, ColF4::Haber), "95,50") << "a refused edit keeps the cell";
    capturar(f, "form4-f61");
}

TEST_F(Pantallas, TamanoDeLetraYDeVentanaGuardados) {
    const double antes = f->TamanoLetra();
    EXPECT_EQ(antes, 9);
    f->BotonLetraMas->trigger();
    f->BotonLetraMas->trigger();
    f->BotonLetraMenos->trigger();
    EXPECT_EQ(f->TamanoLetra(), 9.5);
    EXPECT_EQ(e.ajustes->leerNumero("FontSize", "F4", 0), 9.5);
    EXPECT_FALSE(f->BotonPeriodico->isEnabled()) << "no periodic entries yet";
    EXPECT_TRUE(f->BotonImprimir->isEnabled());
    f->show();
    f->resize(700, 480);
    f->close();
    QApplication::processEvents();
    EXPECT_EQ(std::pair(e.ajustes->leerNumero("Opciones", "WF4", 0),
                        e.ajustes->leerNumero("Opciones", "HF4", 0)),
              std::pair(700.0, 480.0));
    f = new Form4(e.sesion, *e.ajustes, e.dialogo, tablero);
    EXPECT_EQ(f->TamanoLetra(), 9.5);
    EXPECT_EQ(f->size(), QSize(700, 480));
}

// Form3 on its own, over a prepared capture.
class PantallaDatosIva : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    Entorno e;
    TrabajoIva trabajo;
    qint16 ultima = 0;
    bool aceptado = false;
};

TEST_F(PantallaDatosIva, VisibilidadAbonoYRecargo) {
    CapturaIva c(e.sesion, e.dialogo, trabajo, ultima, aceptado);
    LineaIva l;
    l.fila = 2;
    l.NCuenta = IvaSop21;
    l.Concepto = "Compra";
    l.Debe = "42,00";
    l.Factura = "F9";
    l.Contra = Proveedor;
    ASSERT_TRUE(PrepararCapturaIva(c, e.sesion, e.dialogo, "F4", l, false, {}));
    Form3 f3(c, *e.ajustes);
    f3.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f3));
    QApplication::processEvents();
    EXPECT_TRUE(f3.Command1->hasFocus()) << "invoice and counterparty given: straight to Aceptar";
    EXPECT_EQ(f3.Combo1->currentText(), "Proveedores varios");
    EXPECT_EQ(f3.Text1->text(), " 200,00");
    EXPECT_TRUE(f3.Check1->isChecked());
    EXPECT_FALSE(f3.Label10->isVisible());

    f3.Check1->setChecked(false);
    EXPECT_FALSE(f3.Combo1->isVisible()) << "no box ticked, no lists";
    f3.Check2->setChecked(true);
    EXPECT_TRUE(f3.Combo1->isVisible());
    f3.Option3->setChecked(true);
    EXPECT_TRUE(f3.TDBN1->isVisible()) << "a rent that goes to 347 has a withholding";
    f3.Check2->setChecked(false);
    EXPECT_FALSE(f3.TDBN1->isVisible());

    f3.Check3->setChecked(true);
    EXPECT_EQ(f3.Text1->text() + " " + f3.Label4->text(), "-200,00 -42,00");
    EXPECT_TRUE(f3.Check2->isChecked()) << "a credit note ticks the 347 box";
    f3.Check3->setChecked(false);
    EXPECT_EQ(f3.Text1->text(), "200,00");

    // The area filter lists any area's subaccounts.
    const int i = f3.Combo3->findText("1");
    f3.Combo3->setCurrentIndex(i);
    Q_EMIT f3.Combo3->activated(i);
    EXPECT_GE(f3.Combo1->findText("Caja"), 0);
    f3.Combo1->setCurrentIndex(f3.Combo1->findText("Banco"));
    Q_EMIT f3.Combo1->activated(f3.Combo1->currentIndex());
    EXPECT_EQ(f3.Combo2->currentText(), Banco) << "the hidden codes go in step";
    // "+" in the counterparty box picks on the chart screen; here a stand-in answers.
    f3.ElegirEnPlan = [] {
        return Caja;
    };
    QTest::keyClick(f3.Combo1->lineEdit(), Qt::Key_Plus);
    EXPECT_EQ(f3.Combo1->currentText(), "Caja");
    EXPECT_EQ(c.CuentaContra, Caja);
    f3.Combo1->setCurrentIndex(f3.Combo1->findText("Banco"));
    Q_EMIT f3.Combo1->activated(f3.Combo1->currentIndex());
    QTest::mouseClick(f3.Command1, Qt::LeftButton);
    EXPECT_TRUE(aceptado);
    EXPECT_EQ(QStringList({trabajo.IvaContra[2], trabajo.IvaTipOp[2]}), QStringList({Banco, "A"}));
    EXPECT_TRUE(!trabajo.IvaLIVA[2] && trabajo.IvaL347[2]);

    CapturaIva r(e.sesion, e.dialogo, trabajo, ultima, aceptado);
    l.NCuenta = Recargo;
    l.Debe = "10,40";
    ASSERT_TRUE(PrepararCapturaIva(r, e.sesion, e.dialogo, "F4", l, false, {}));
    Form3 g(r, *e.ajustes);
    g.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&g));
    EXPECT_FALSE(g.Check2->isVisible()) << "a surcharge never goes to 347";
    EXPECT_EQ(g.Label6->text(), " Recargo");
    g.resize(600, 420);
    QTest::mouseClick(g.Command2, Qt::LeftButton);
    EXPECT_FALSE(g.isVisible());
    EXPECT_EQ(std::pair(e.ajustes->leerNumero("Opciones", "WF3", 0),
                        e.ajustes->leerNumero("Opciones", "HF3", 0)),
              std::pair(600.0, 420.0))
        << "kept on a cancel too";
}

} // namespace

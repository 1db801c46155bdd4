// The chart screen driven as a user would: areas, both levels, adding, renaming and deleting, the
// card of customers and suppliers, searching and picking a subaccount for another screen.

#include "chart/forms/Form73.h"
#include "Entorno.h"
#include "chart/CliPro.h"
#include "journal/Escritor.h"
#include "platform/forms/ImprimirLibro.h"
#include "store/Conexiones.h"

#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

template <class T> T* hijo(QWidget* w, const char* nombre) {
    T* h = w->findChild<T*>(QString::fromLatin1(nombre));
    EXPECT_NE(h, nullptr) << nombre;
    return h;
}

QStringList columna(QTableWidget* t, int c) {
    QStringList r;
    for (int f = 0; f < t->rowCount(); ++f)
        r << t->item(f, c)->text();
    return r;
}

// Clicks the row of a grid whose column `c` holds the text.
bool pulsarFila(QTableWidget* t, int c, const QString& texto) {
    for (int f = 0; f < t->rowCount(); ++f)
        if (t->item(f, c)->text() == texto) {
            t->scrollToItem(t->item(f, 0));
            QTest::mouseClick(t->viewport(), Qt::LeftButton, {},
                              t->visualItemRect(t->item(f, 0)).center());
            return true;
        }
    return false;
}

void escribir(QLineEdit* e, const QString& texto) {
    e->setFocus();
    e->selectAll();
    QTest::keyClick(e, Qt::Key_Delete);
    QTest::keyClicks(e, texto);
}

class PantallaCuentas : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        f = std::make_unique<Form73>(e.sesion, *e.ajustes, e.dialogo);
        f->show();
        Combo1 = hijo<QComboBox>(f.get(), "Combo1");
        Combo2 = hijo<QComboBox>(f.get(), "Combo2");
        Option1 = hijo<QRadioButton>(f.get(), "Option1");
        Option2 = hijo<QRadioButton>(f.get(), "Option2");
        FG1 = hijo<QTableWidget>(f.get(), "FG1");
        FG2 = hijo<QTableWidget>(f.get(), "FG2");
        Text1 = hijo<QLineEdit>(f.get(), "Text1");
        Text2 = hijo<QLineEdit>(f.get(), "Text2");
        Text13 = hijo<QLineEdit>(f.get(), "Text13");
        Command1 = hijo<QPushButton>(f.get(), "Command1");
        Command3 = hijo<QPushButton>(f.get(), "Command3");
    }
    QVariant valor(const QString& sql, const QVariantList& v = {}) {
        Conexion c = e.datos();
        return c.escalar(sql, v);
    }

    Entorno e;
    std::unique_ptr<Form73> f;
    QComboBox *Combo1, *Combo2;
    QRadioButton *Option1, *Option2;
    QTableWidget *FG1, *FG2;
    QLineEdit *Text1, *Text2, *Text13;
    QPushButton *Command1, *Command3;
};

TEST_F(PantallaCuentas, AbreConElAreaCeroYSusListas) {
    EXPECT_EQ(f->windowTitle(), "Quilmar [Cuentas]");
    EXPECT_EQ(Combo1->count(), 7);
    EXPECT_EQ(Combo1->currentText(), "(0) - Capital");
    EXPECT_TRUE(Option2->isChecked());
    EXPECT_EQ(FG2->item(0, 0)->text(), "100");
    EXPECT_EQ(FG2->item(0, 1)->text(), "Capital social");
    EXPECT_TRUE(columna(FG1, 1).contains("Resultado del ejercicio"));
    EXPECT_FALSE(hijo<QPushButton>(f.get(), "Command7")->isVisible());
    Combo1->setCurrentIndex(1);
    EXPECT_EQ(columna(FG1, 1), QStringList({"Banco", "Caja"}));
    EXPECT_EQ(columna(FG1, 0).first(), "Bancos e instituciones de crédito c/c vista, euros");
    EXPECT_EQ(Combo2->count(), FG2->rowCount());
    EXPECT_EQ(Combo2->currentIndex(), -1);
}

TEST_F(PantallaCuentas, AnadirRenombrarYEliminarSubcuenta) {
    QSignalSpy anadida(f.get(), &Form73::subcuentaAnadida);
    QSignalSpy cambiadas(f.get(), &Form73::areasCambiadas);
    Combo1->setCurrentIndex(6);
    QTest::keyClicks(Text1, "Limpieza");
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Debe seleccionar la Cuenta a la que va a pertenecer la Subcuenta. Si "
                          "no existe ninguna Cuenta debe crearlas primero."});
    Combo2->setCurrentIndex(Combo2->findText("Otros servicios"));
    QTest::mouseClick(Command1, Qt::LeftButton);
    ASSERT_EQ(anadida.count(), 1);
    EXPECT_EQ(anadida.at(0).at(0).toString(), "662900071");
    EXPECT_EQ(anadida.at(0).at(1).toString(), "Limpieza");
    EXPECT_TRUE(Text1->text().isEmpty());
    EXPECT_EQ(valor("SELECT Cuenta FROM Cuentas WHERE NCuenta = '662900071'").toString(),
              "Limpieza");
    ASSERT_FALSE(FG1->selectedItems().isEmpty());
    EXPECT_EQ(FG1->item(FG1->selectedItems().first()->row(), 1)->text(), "Limpieza");

    ASSERT_TRUE(pulsarFila(FG1, 1, "Limpieza"));
    EXPECT_EQ(Command1->text(), "Modificar >>");
    EXPECT_EQ(Text1->text(), "Limpieza");
    EXPECT_EQ(Combo2->currentText(), "Otros servicios");
    EXPECT_FALSE(Combo2->isEnabled());
    escribir(Text1, "Limpieza del local");
    e.dialogo.responder({true});
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.preguntas, QStringList{"Desea guardar los cambios?"});
    EXPECT_EQ(valor("SELECT Cuenta FROM Cuentas WHERE NCuenta = '662900071'").toString(),
              "Limpieza del local");
    EXPECT_TRUE(columna(FG1, 1).contains("Limpieza del local"));
    EXPECT_FALSE(columna(FG1, 1).contains("Limpieza"));
    EXPECT_EQ(Command1->text(), "Añadir >>");
    EXPECT_EQ(cambiadas.count(), 1);

    ASSERT_TRUE(pulsarFila(FG1, 1, "Limpieza del local"));
    e.dialogo.responder({true});
    QTest::mouseClick(Command3, Qt::LeftButton);
    EXPECT_FALSE(columna(FG1, 2).contains("662900071"));
    EXPECT_FALSE(valor("SELECT 1 FROM Cuentas WHERE NCuenta = '662900071'").isValid());
    EXPECT_EQ(cambiadas.count(), 2);
    EXPECT_FALSE(Command3->isEnabled());
}

TEST_F(PantallaCuentas, EliminarSubcuentaConAsientosSeRechaza) {
    e.asiento(QDate(2024, 4, 1), {Debe("157000001", 3), Haber("370000066", 3)});
    Combo1->setCurrentIndex(1);
    ASSERT_TRUE(pulsarFila(FG1, 1, "Caja"));
    e.dialogo.responder({true});
    QTest::mouseClick(Command3, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"No se puede eliminar la Subcuenta 'Caja' porque existen asientos en "
                          "los que se utiliza."});
    EXPECT_TRUE(columna(FG1, 1).contains("Caja"));
}

TEST_F(PantallaCuentas, CuentasAnadirRenombrarYEliminar) {
    QTest::mouseClick(Option1, Qt::LeftButton);
    ASSERT_TRUE(Option1->isChecked());
    Combo1->setCurrentIndex(2);
    EXPECT_FALSE(hijo<QGroupBox>(f.get(), "Frame1")->isVisible());
    ASSERT_TRUE(pulsarFila(FG2, 0, "404"));
    EXPECT_EQ(Text13->text(), "404");
    EXPECT_TRUE(Text13->isReadOnly());
    e.dialogo.responder({true});
    QTest::mouseClick(Command3, Qt::LeftButton);
    EXPECT_FALSE(columna(FG2, 0).contains("404"));

    QTest::keyClicks(Text13, "4x04"); // only digits are taken
    QTest::keyClicks(Text2, "Proveedores asociados");
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join("|").toStdString();
    EXPECT_TRUE(columna(FG2, 1).contains("Proveedores asociados"));
    EXPECT_NE(Combo2->findText("Proveedores asociados"), -1);
    EXPECT_EQ(valor("SELECT Grupo FROM Grupos WHERE NGrupo = '2404'").toString(),
              "Proveedores asociados");

    // A name over 60 characters is refused and cut.
    ASSERT_TRUE(pulsarFila(FG2, 0, "404"));
    escribir(Text2, QString(65, 'n'));
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados.last(),
              "El nombre de la Cuenta no debe tener más de 60 caracteres.");
    EXPECT_EQ(Text2->text(), QString(60, 'n'));
    escribir(Text2, "Proveedores del grupo");
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_EQ(valor("SELECT Grupo FROM Grupos WHERE NGrupo = '2404'").toString(),
              "Proveedores del grupo");

    // An account in use or reserved stays.
    ASSERT_TRUE(pulsarFila(FG2, 0, "400"));
    QTest::mouseClick(Command3, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados.last(), "Esta Cuenta no se puede eliminar.");
}

TEST_F(PantallaCuentas, FichaDeClientesYProveedores) {
    auto* Frame1 = hijo<QGroupBox>(f.get(), "Frame1");
    Combo1->setCurrentIndex(4);
    EXPECT_TRUE(Frame1->isVisible());
    QTest::mouseClick(Option1, Qt::LeftButton);
    EXPECT_FALSE(Frame1->isVisible());
    QTest::mouseClick(Option2, Qt::LeftButton);
    EXPECT_TRUE(Frame1->isVisible());

    // Accents are refused while typing.
    QTest::keyClicks(Text1, "Caf");
    QKeyEvent acento(QEvent::KeyPress, Qt::Key_Eacute, Qt::NoModifier, QString::fromUtf8("é"));
    QApplication::sendEvent(Text1, &acento);
    EXPECT_EQ(Text1->text(), "Caf");
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Por favor no ponga acentos en las áreas SE DEBE ni NOS DEBEN."});
    QTest::keyClicks(Text1, "e Sol");

    auto* Text3 = hijo<QLineEdit>(f.get(), "Text3");
    QTest::keyClicks(Text3, "B22222222");
    QTest::keyClicks(hijo<QLineEdit>(f.get(), "Text4"), "Plaza Mayor, 2");
    auto* Combo3 = hijo<QComboBox>(f.get(), "Combo3");
    Combo3->setCurrentIndex(Combo3->findText("Huesca"));
    auto* Combo4 = hijo<QComboBox>(f.get(), "Combo4");
    Combo4->setCurrentIndex(Combo4->findText("España"));
    Combo2->setCurrentIndex(Combo2->findText("Clientes"));
    QTest::mouseClick(Command1, Qt::LeftButton);
    Conexion c = e.datos();
    const FichaCliPro ficha = ObtCliPro(c, "443000071");
    EXPECT_EQ(ficha.Cuenta, "Cafe Sol");
    EXPECT_EQ(ficha.NIF, "B22222222");
    EXPECT_EQ(ficha.Domicilio, "Plaza Mayor, 2");
    EXPECT_EQ(ficha.Provincia, "Huesca");
    EXPECT_EQ(ficha.Pais, "España");

    // Choosing the row shows its card; another area has none.
    ASSERT_TRUE(pulsarFila(FG1, 1, "Cafe Sol"));
    EXPECT_EQ(Text3->text(), "B22222222");
    EXPECT_EQ(Combo3->currentText(), "Huesca");
    ASSERT_TRUE(pulsarFila(FG1, 1, "Clientes varios"));
    EXPECT_EQ(Text3->text(), "B34567891");

    // The note on leaving the NIF: another subaccount of the area has it.
    e.dialogo.informados.clear();
    Combo1->setCurrentIndex(2);
    escribir(Text3, "B12345674");
    QTest::keyClick(Text3, Qt::Key_Return);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Este NIF corresponde a la subcuenta Proveedores varios"});
}

TEST_F(PantallaCuentas, BuscarHastaElFinal) {
    Combo1->setCurrentIndex(2);
    auto* buscar = hijo<QLineEdit>(f.get(), "TextBuscar");
    QTest::keyClicks(buscar, "iva");
    QTest::mouseClick(hijo<QPushButton>(f.get(), "cmdBuscar"), Qt::LeftButton);
    QStringList vistas;
    for (int i = 0; i < 20 && e.dialogo.informados.isEmpty(); ++i) {
        ASSERT_FALSE(FG1->selectedItems().isEmpty());
        vistas << FG1->item(FG1->selectedItems().first()->row(), 1)->text();
        QTest::mouseClick(hijo<QPushButton>(f.get(), "cmdBuscarSiguiente"), Qt::LeftButton);
    }
    EXPECT_EQ(e.dialogo.informados, QStringList{"Se llegó al final de la lista"});
    // Found in the subaccount's name or in its account's name, in the order of the list.
    EXPECT_EQ(vistas.size(), 7) << vistas.join("|").toStdString();
    EXPECT_TRUE(vistas.contains("IVA repercutido 21%"));
    EXPECT_TRUE(vistas.contains("HP acreedora por IVA"));
}

TEST_F(PantallaCuentas, EjercicioCerrado) {
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    Combo1->setCurrentIndex(6);
    QTest::keyClicks(Text1, "Nueva");
    Combo2->setCurrentIndex(0);
    QTest::mouseClick(Command1, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgEjercicioCerrado});
    EXPECT_EQ(Text1->text(), "Nueva");
}

TEST_F(PantallaCuentas, ImprimeElNivelQueSeMuestra) {
    Combo1->setCurrentIndex(4);
    EXPECT_EQ(f->Listar().titulo, "Listado de Subcuentas");
    QString titulo;
    int paginas = 0;
    const QString pdf = e.ruta("subcuentas.pdf");
    QTimer::singleShot(0, [&] {
        auto* v = qobject_cast<VistaPrevia*>(QApplication::activeModalWidget());
        ASSERT_NE(v, nullptr);
        titulo = v->windowTitle();
        paginas = v->paginas();
        EXPECT_TRUE(v->guardarPdf(pdf));
        v->reject();
    });
    QTest::mouseClick(hijo<QPushButton>(f.get(), "Command4"), Qt::LeftButton);
    EXPECT_TRUE(titulo.contains("Listado de Subcuentas")) << titulo.toStdString();
    EXPECT_EQ(paginas, 1);
    EXPECT_TRUE(QFile::exists(pdf));
    if (!qEnvironmentVariableIsEmpty("QUILMAR_PDF"))
        QFile::copy(pdf, qEnvironmentVariable("QUILMAR_PDF"));
    QTest::mouseClick(Option1, Qt::LeftButton);
    const Listado cuentas = f->Listar();
    EXPECT_EQ(cuentas.titulo, "Listado de Cuentas");
    EXPECT_EQ(cuentas.encabezado.last(), "Area: (4) - NOS DEBEN");
    EXPECT_EQ(cuentas.rejilla.Filas(), FG2->rowCount());
}

TEST(PantallaCuentasElegir, DevuelveLaSubcuentaYOcultaLasAparcadas) {
    Entorno e;
    e.crearEmpresa();
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = 2024 WHERE NCuenta = '157200003'");
    }
    QStringList vistas;
    QTimer::singleShot(0, [&] {
        auto* f = qobject_cast<Form73*>(QApplication::activeModalWidget());
        ASSERT_NE(f, nullptr);
        auto* FG1 = hijo<QTableWidget>(f, "FG1");
        auto* Command7 = hijo<QPushButton>(f, "Command7");
        EXPECT_TRUE(Command7->isVisible());
        EXPECT_FALSE(Command7->isEnabled());
        for (int r = 0; r < FG1->rowCount(); ++r)
            vistas << FG1->item(r, 2)->text();
        ASSERT_TRUE(pulsarFila(FG1, 1, "Caja"));
        QTest::mouseClick(Command7, Qt::LeftButton);
    });
    EXPECT_EQ(Form73::ElegirSubcuenta(e.sesion, *e.ajustes, e.dialogo, nullptr, 1), "157000001");
    EXPECT_EQ(vistas, QStringList{"157000001"});

    QTimer::singleShot(0, [&] {
        auto* f = qobject_cast<Form73*>(QApplication::activeModalWidget());
        ASSERT_NE(f, nullptr);
        QTest::mouseClick(hijo<QPushButton>(f, "Command6"), Qt::LeftButton);
    });
    EXPECT_EQ(Form73::ElegirSubcuenta(e.sesion, *e.ajustes, e.dialogo), "");
}

} // namespace

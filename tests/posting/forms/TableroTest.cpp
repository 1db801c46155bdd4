// The board with its seven areas, driven through its widgets as a user would: clicks on the
// pictures, presses and movements on the lists, drags over pictures, arrows and rows, keys; and
// the entries that come out of it in Diario and Mayor.

#include "../ComunAsientos.h"
#include "forms/Pantallas.h"
#include "posting/ImagenesTablero.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form64.h"
#include "posting/forms/Form66.h"
#include "posting/forms/Form8.h"
#include "posting/forms/TableroAreas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDrag>
#include <QDragMoveEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

// With QUILMAR_CAPTURAS set, keeps a picture of the window for a person to look at.
void capturar(QWidget* w, const QString& nombre) {
    const QString carpeta = qEnvironmentVariable("QUILMAR_CAPTURAS");
    if (!carpeta.isEmpty())
        w->grab().save(QDir(carpeta).filePath(nombre + ".png"));
}

// A drag as the platform runs it: the pointer passes over the given points (in the board's
// coordinates) and lets go at the last. Each point goes to the widget under it that takes
// drops, with the enter and leave events Qt sends when the widget changes. At a point with
// `hasta`, the event loop runs until it holds, so held arrows can scroll.
struct Recorrido {
    std::function<QPoint()> punto;
    std::function<bool()> hasta = {};
};

class Arrastre {
public:
    explicit Arrastre(TableroAreas* t) : t_(t) {}

    // The drop target under a point of the board, as Qt finds it.
    QWidget* destinoEn(const QPoint& p) const {
        QWidget* w = t_->childAt(p);
        if (!w)
            w = t_;
        while (w && !w->acceptDrops())
            w = w->parentWidget();
        return w;
    }

    void instalar(QList<Recorrido> pasos) {
        t_->EjecutarArrastre = [this, pasos](QDrag& d) {
            QWidget* actual = nullptr;
            for (int i = 0; i < pasos.size(); ++i) {
                const QPoint p = pasos[i].punto();
                QWidget* w = destinoEn(p);
                const QPoint local = w->mapFrom(t_, p);
                if (w != actual) {
                    if (actual) {
                        QDragLeaveEvent salir;
                        QApplication::sendEvent(actual, &salir);
                    }
                    QDragEnterEvent entrar(local, Qt::MoveAction, d.mimeData(), Qt::LeftButton,
                                           Qt::NoModifier);
                    QApplication::sendEvent(w, &entrar);
                    actual = w;
                }
                QDragMoveEvent mover(local, Qt::MoveAction, d.mimeData(), Qt::LeftButton,
                                     Qt::NoModifier);
                QApplication::sendEvent(w, &mover);
                // A list takes drops on its viewport, which has no name of its own.
                pasados << (w->objectName().startsWith("qt_") ? w->parentWidget()->objectName()
                                                              : w->objectName());
                if (pasos[i].hasta) {
                    EXPECT_TRUE(QTest::qWaitFor(pasos[i].hasta, 600000));
                }
                if (i == pasos.size() - 1) {
                    QDropEvent soltar(QPointF(local), Qt::MoveAction, d.mimeData(), Qt::LeftButton,
                                      Qt::NoModifier);
                    QApplication::sendEvent(w, &soltar);
                }
            }
            return Qt::MoveAction;
        };
    }

    QStringList pasados; // the widgets the pointer went over

private:
    TableroAreas* t_;
};

int filaDe(ListaArea* l, const QString& nombre) {
    for (int r = 0; r < l->rowCount(); ++r)
        if (l->fila(r).Nombre == nombre)
            return r;
    return -1;
}

class Tablero : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        f = std::make_unique<Form1>(e.sesion, *e.ajustes, e.dialogo);
        f->Cargar();
        f->resize(1180, 780);
        f->Refrescar();
        f->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(f.get()));
        f->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(f.get()));
        f->AlternarPortada();
        t = f->tablero();
        QApplication::processEvents();
    }

    ListaArea* lista(int a) const { return t->lista(a); }
    // A point of the board over a row of a list, scrolling it into sight first when asked.
    QPoint sobreFila(int a, const QString& nombre) const {
        ListaArea* l = lista(a);
        const int r = filaDe(l, nombre);
        EXPECT_GE(r, 0) << nombre.toStdString();
        const QRect celda = l->visualRect(l->model()->index(r, 0));
        return l->viewport()->mapTo(t, celda.center());
    }
    QPoint centro(QWidget* w) const { return w->mapTo(t, w->rect().center()); }

    // A press on a row and a movement beyond the drag distance: the drag begins.
    void empezarArrastre(int a, const QString& nombre) {
        ListaArea* l = lista(a);
        const QPoint p = l->viewport()->mapFrom(t, sobreFila(a, nombre));
        QTest::mousePress(l->viewport(), Qt::LeftButton, {}, p);
        QMouseEvent mover(QEvent::MouseMove, QPointF(p + QPoint(12, 4)),
                          QPointF(l->viewport()->mapToGlobal(p + QPoint(12, 4))), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(l->viewport(), &mover);
        QTest::mouseRelease(l->viewport(), Qt::LeftButton, {}, p + QPoint(12, 4));
    }
    void clicEnImagen(int a) { QTest::mouseClick(t->area(a)->Picture1, Qt::LeftButton); }
    void clicEnFila(int a, const QString& nombre) {
        ListaArea* l = lista(a);
        QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                          l->viewport()->mapFrom(t, sobreFila(a, nombre)));
    }
    // Bank onto an expense: the bank's list opened by a click, the drag over the expense's
    // picture (which opens its list) and onto the expense.
    void bancoSobre(const QString& gasto, Arrastre& arr) {
        clicEnImagen(1);
        ASSERT_TRUE(t->area(1)->listaVisible());
        arr.instalar({{[this] {
                          return centro(t->area(6)->Picture1);
                      }},
                      {[this, gasto] {
                          return sobreFila(6, gasto);
                      }}});
        empezarArrastre(1, "Banco");
    }
    QString celda(int fila, int col) const { return t->form4()->Logica().Rejilla.celda(fila, col); }
    // The subaccount names of the open entry's lines.
    QStringList lineas() const {
        QStringList r;
        for (int f = 1; f <= t->form4()->Logica().Rejilla.ultima(); ++f)
            r << celda(f, ColF4::Cuenta);
        return r;
    }
    // Number, names and balances over the posting screen's lines.
    static QStringList etiquetas(Form4* f4) {
        return {f4->LabelNumero->text(), f4->LabelNombre1->text(), f4->LabelNombre2->text(),
                f4->LabelSaldo1->text(), f4->LabelSaldo2->text()};
    }

    Entorno e;
    std::unique_ptr<Form1> f;
    TableroAreas* t = nullptr;
};

TEST_F(Tablero, AreasConSusImagenesEtiquetasYListasOcultas) {
    for (int a = 0; a < 7; ++a) {
        AreaTablero* ar = t->area(a);
        EXPECT_EQ(ar->Picture1->objectName(), QString("Picture1(%1)").arg(a));
        EXPECT_FALSE(ar->Picture1->imagen().isNull()) << a;
        EXPECT_TRUE(ar->Picture1->isVisible());
        EXPECT_FALSE(ar->MSFlexGrid1->isVisible()) << "lists start hidden";
        EXPECT_GT(ar->MSFlexGrid1->rowCount(), 0) << a;
        EXPECT_TRUE(ar->MSFlexGrid1->isColumnHidden(1)) << "the code column is hidden";
    }
    EXPECT_EQ(QStringList({t->area(0)->Picture1->etiqueta()->text(),
                           t->area(1)->Picture1->etiqueta()->text(),
                           t->area(6)->Picture1->etiqueta()->text()}),
              QStringList({"(0) - Capital", "(1) - Cuentas y Efectivo", "(6) - Gastos/Pérdidas"}));
    // The pictures are the installed defaults.
    EXPECT_TRUE(QFileInfo::exists(e.ruta("Imagenes/gasolinera2.jpg")));
    EXPECT_EQ(t->area(6)->Picture1->imagen().size(),
              QImage(e.ruta("Imagenes/gasolinera2.jpg")).size());
}

TEST_F(Tablero, ClicEnImagenAbreSuListaYCierraLasDemas) {
    clicEnImagen(1);
    EXPECT_TRUE(t->area(1)->listaVisible());
    EXPECT_EQ(lista(1)->currentRow(), 0);
    clicEnImagen(6);
    EXPECT_TRUE(t->area(6)->listaVisible());
    EXPECT_FALSE(t->area(1)->listaVisible());
    EXPECT_EQ(t->estado().AreaOrigen, 6) << "a press on a picture sets the source area";
    // The expenses don't fit: the arrows show, and the name column leaves them room.
    EXPECT_GT(lista(6)->rowCount(), lista(6)->filasVisibles());
    EXPECT_TRUE(t->area(6)->Picture2->isVisible());
    EXPECT_TRUE(t->area(6)->Command1->isVisible());
    EXPECT_LE(lista(6)->geometry().right(), t->area(6)->Picture2->geometry().left());
    capturar(f.get(), "tablero-lista-abierta");
    // The right button hides every list; so does a click on the ground.
    QTest::mouseClick(t->area(6)->Picture1, Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_FALSE(t->area(6)->listaVisible());
    clicEnImagen(3);
    QTest::mouseClick(t, Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_FALSE(t->area(3)->listaVisible());
}

TEST_F(Tablero, FlechasQueRepitenMientrasSeMantienen) {
    clicEnImagen(6);
    QScrollBar* barra = lista(6)->verticalScrollBar();
    ASSERT_EQ(barra->value(), 0);
    QTest::mousePress(t->area(6)->Command2, Qt::LeftButton);
    EXPECT_EQ(barra->value(), 1) << "one row at once";
    EXPECT_TRUE(t->Timer2->isActive());
    // The timer repeats however slow the machine is: the test waits for its turns, not a time.
    QSignalSpy turnos(t->Timer2, &QTimer::timeout);
    EXPECT_TRUE(QTest::qWaitFor([&] { return turnos.count() >= 2; }, 600000));
    EXPECT_GT(barra->value(), 2) << "and more while held";
    QTest::mouseRelease(t->area(6)->Command2, Qt::LeftButton);
    EXPECT_FALSE(t->Timer2->isActive());
    const int abajo = barra->value();
    QTest::qWait(200);
    EXPECT_EQ(barra->value(), abajo);
    QTest::mousePress(t->area(6)->Command1, Qt::LeftButton);
    EXPECT_EQ(barra->value(), abajo - 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return barra->value() == 0; }, 600000));
    // The next turn finds no row above: the arrow stops by itself, still held.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !t->Timer1->isActive(); }, 600000));
    QTest::mouseRelease(t->area(6)->Command1, Qt::LeftButton);
    EXPECT_EQ(barra->value(), 0) << "stops at the top";
}

TEST_F(Tablero, LetrasEnUnaLista) {
    clicEnImagen(6);
    lista(6)->setFocus();
    QTest::keyClick(lista(6), Qt::Key_T, Qt::NoModifier);
    const int r = lista(6)->currentRow();
    ASSERT_GE(r, 0);
    EXPECT_GE(lista(6)->fila(r).Nombre.left(1).toUpper(), "T");
    for (int i = 0; i < r; ++i)
        EXPECT_LT(lista(6)->fila(i).Nombre.left(1).toUpper(), "T") << i;
    EXPECT_EQ(lista(6)->rowAt(2), r) << "the row found goes to the top";
    EXPECT_TRUE(t->estado().LetraBusqueda.isEmpty());
}

// The sequence of the board's signature: a bank onto an expense, a second expense from the same
// bank onto the open entry, the posting; then a click on a third expense.
TEST_F(Tablero, BancoSobreGastoSegundoGastoYContabilizar) {
    Arrastre arr(t);
    bancoSobre("Teléfono e Internet", arr);
    EXPECT_TRUE(arr.pasados.contains("Picture1(6)"));
    EXPECT_EQ(arr.pasados.last(), "MSFlexGrid1(6)") << "the list opened under the pointer";
    Form4* f4 = t->form4();
    ASSERT_NE(f4, nullptr);
    EXPECT_TRUE(f4->isVisible());
    EXPECT_EQ(lineas(), QStringList({"Teléfono e Internet", "Banco"}));
    EXPECT_EQ(celda(1, ColF4::NCuenta), "662800054");
    EXPECT_EQ(f4->Logica().Estado.Modo, "DOS");
    EXPECT_EQ(etiquetas(f4), QStringList({"1", "Teléfono e Internet", "Banco", "0,00", "0,00"}));
    EXPECT_FALSE(t->area(1)->listaVisible()) << "the lists of both areas hide";
    EXPECT_FALSE(t->area(6)->listaVisible());
    EXPECT_TRUE(t->estado().Armado);

    f4->Combo1->setEditText("Teléfono y luz de marzo");
    f4->TDBN1->setText("60");
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Relleno);

    // The same bank onto a second expense: one debit line more.
    Arrastre arr2(t);
    bancoSobre("Electricidad", arr2);
    ASSERT_EQ(t->form4(), f4);
    ASSERT_EQ(lineas(), QStringList({"Teléfono e Internet", "Banco", "Electricidad"}));
    EXPECT_EQ(celda(3, ColF4::Concepto), "Teléfono y luz de marzo");
    EXPECT_EQ(f4->Logica().Estado.Modo, "D");
    EXPECT_EQ(etiquetas(f4).mid(1, 2), QStringList({"Banco", "Electricidad"}));
    f4->TDBN1->setText("40");
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Relleno);
    EXPECT_EQ(celda(2, ColF4::Haber), "100,00") << "the bank's credit grows";

    long numero = 0;
    QObject::connect(t, &TableroAreas::asientoContabilizado, [&](long n) { numero = n; });
    QPointer<Form4> posteado(f4);
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Contabilizado);
    EXPECT_EQ(numero, 1);
    EXPECT_TRUE(f->asientoHecho());
    QApplication::processEvents();
    EXPECT_TRUE(posteado.isNull()) << "the posting screen closed";

    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT NAp, NCuenta, Debe, Haber, Concepto FROM Diario ORDER BY NAp"),
              QStringList({"1|662800054|60|0|Teléfono y luz de marzo",
                           "2|662800053|40|0|Teléfono y luz de marzo",
                           "3|157200003|0|100|Teléfono y luz de marzo"}));
    EXPECT_EQ(Filas(c, "SELECT NCuenta, SaldoD, SaldoH FROM Mayor WHERE SaldoD + SaldoH <> 0 "
                       "ORDER BY NCuenta"),
              QStringList({"157200003|0|100", "662800053|40|0", "662800054|60|0"}));
    EXPECT_EQ(f->estadoTablero().CuentaDinero, "157200003");

    // Now a click on another expense makes the next entry against the bank, with its balance.
    clicEnImagen(6);
    clicEnFila(6, "Electricidad");
    Form4* otro = t->form4();
    ASSERT_NE(otro, nullptr);
    EXPECT_EQ(lineas(), QStringList({"Electricidad", "Banco"}));
    // Both of debit nature: the expense's 40 and the bank's -100.
    EXPECT_EQ(etiquetas(otro), QStringList({"2", "Electricidad", "Banco", "40,00", "-100,00"}));
}

TEST_F(Tablero, SoltarSobreUnaImagenCancelaYLasFlechasSiguenAlPuntero) {
    Arrastre arr(t);
    clicEnImagen(1);
    // Over the expenses, down their arrow for a while, then onto a picture.
    arr.instalar({{[this] {
                      return centro(t->area(6)->Picture1);
                  }},
                  {[this] { return centro(t->area(6)->Command2); },
                   [this] {
                       return lista(6)->verticalScrollBar()->value() > 1;
                   }},
                  {[this] {
                      // On the picture's label, which its list leaves in sight.
                      return t->area(3)->Picture1->mapTo(t, QPoint(60, 10));
                  }}});
    empezarArrastre(1, "Banco");
    EXPECT_TRUE(arr.pasados.contains("Command2(6)"));
    EXPECT_EQ(arr.pasados.last(), "Picture1(3)");
    EXPECT_GT(lista(6)->verticalScrollBar()->value(), 1) << "the held arrow scrolled";
    EXPECT_EQ(t->form4(), nullptr);
    for (int a = 0; a < 7; ++a)
        EXPECT_FALSE(t->area(a)->listaVisible()) << a;
    EXPECT_FALSE(t->Text1->isVisible());
    EXPECT_FALSE(t->Timer1->isActive() || t->Timer2->isActive());
    EXPECT_TRUE(t->estado().Armado);
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
}

TEST_F(Tablero, EjercicioCerradoRechazaYOcultaLasListas) {
    e.sesion.EjCerrado = true;
    Arrastre arr(t);
    bancoSobre("Agua", arr);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"El ejercicio está cerrado. Puede invertir el cierre en el menú "
                          "Acceso, Ejercicio."});
    EXPECT_EQ(t->form4(), nullptr);
    for (int a = 0; a < 7; ++a)
        EXPECT_FALSE(t->area(a)->listaVisible()) << a;
}

TEST_F(Tablero, IngresoAlBancoYDespuesUnClicEnElIngresoConSuAviso) {
    Arrastre arr(t);
    clicEnImagen(3);
    arr.instalar({{[this] {
                      return centro(t->area(1)->Picture1);
                  }},
                  {[this] {
                      return sobreFila(1, "Banco");
                  }}});
    empezarArrastre(3, "Ventas de mercaderías");
    Form4* f4 = t->form4();
    ASSERT_NE(f4, nullptr);
    EXPECT_EQ(lineas(), QStringList({"Banco", "Ventas de mercaderías"}))
        << "bank debited, income credited";
    f4->Combo1->setEditText("Venta");
    f4->TDBN1->setText("250");
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Relleno);
    ASSERT_EQ(f4->Aceptar().tipo, ResultadoAceptar::Tipo::Contabilizado);
    QApplication::processEvents();

    // A drag from the bank onto an income now brings the tip, until asked not to.
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form64");
        EXPECT_EQ(Control<QLabel>(w, "Label1")->text(), MsgAvisoRapido);
        Pulsar(w, "Check1");
        Pulsar(w, "Aceptar");
    });
    Arrastre arr2(t);
    clicEnImagen(1);
    arr2.instalar({{[this] {
                       return centro(t->area(3)->Picture1);
                   }},
                   {[this] {
                       return sobreFila(3, "Prestaciones de servicios");
                   }}});
    empezarArrastre(1, "Banco");
    EXPECT_EQ(e.ajustes->leer("Opciones", "AvisoRepe"), "False");
    ASSERT_NE(t->form4(), nullptr);
    EXPECT_EQ(celda(1, ColF4::Cuenta), "Prestaciones de servicios");
    t->form4()->close();
    QApplication::processEvents();

    // The income dropped on itself (a click): the bank debited again, without any drag.
    clicEnImagen(3);
    clicEnFila(3, "Ventas de mercaderías");
    ASSERT_NE(t->form4(), nullptr);
    EXPECT_EQ(lineas(), QStringList({"Banco", "Ventas de mercaderías"}));
    EXPECT_EQ(etiquetas(t->form4()).mid(3), QStringList({"250,00", "250,00"}))
        << "income: credit nature";
}

TEST_F(Tablero, OtroEjercicioCierraElAsientoEmpezado) {
    Arrastre arr(t);
    bancoSobre("Agua", arr);
    QPointer<Form4> f4 = t->form4();
    ASSERT_FALSE(f4.isNull());
    // The same books (the company's data saved): the entry stays.
    f->Refrescar();
    QApplication::processEvents();
    EXPECT_FALSE(f4.isNull());
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    f->Refrescar();
    QApplication::processEvents();
    EXPECT_TRUE(f4.isNull()) << "its lines belong to the books of 2024";
}

TEST_F(Tablero, SinCompletarLaPrimeraLineaSoloSeMuestra) {
    Arrastre arr(t);
    bancoSobre("Agua", arr);
    ASSERT_NE(t->form4(), nullptr);
    Arrastre arr2(t);
    bancoSobre("Electricidad", arr2);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No ha completado los dos primeros apuntes."});
    EXPECT_EQ(t->form4()->Logica().Rejilla.ultima(), 2);
}

TEST_F(Tablero, ConElTeclado) {
    // Alt and the area's digit open its list; Space picks the row up, and the floating label
    // shows beside it.
    QTest::keyClick(f.get(), Qt::Key_1, Qt::AltModifier);
    ASSERT_TRUE(t->area(1)->listaVisible());
    ASSERT_TRUE(lista(1)->hasFocus());
    lista(1)->setCurrentCell(filaDe(lista(1), "Banco"), 0);
    QTest::keyClick(lista(1), Qt::Key_Space);
    EXPECT_TRUE(t->recogidaPorTeclado());
    EXPECT_TRUE(t->Text1->isVisible());
    EXPECT_EQ(t->Text1->text(), "   Banco");
    EXPECT_TRUE(f->statusBar()->currentMessage().startsWith("Ha cogido «Banco»"));
    // Another list, a letter, Enter: the entry.
    QTest::keyClick(f.get(), Qt::Key_6, Qt::AltModifier);
    ASSERT_TRUE(lista(6)->hasFocus());
    EXPECT_TRUE(t->area(6)->listaVisible());
    capturar(f.get(), "tablero-recogida-por-teclado");
    QTest::keyClick(lista(6), Qt::Key_A);
    ASSERT_EQ(lista(6)->actual().Nombre.left(1), "C") << "Compras is the first from A on";
    QTest::keyClick(lista(6), Qt::Key_Down);
    const QString elegida = lista(6)->actual().Nombre;
    QTest::keyClick(lista(6), Qt::Key_Return);
    ASSERT_NE(t->form4(), nullptr);
    EXPECT_EQ(lineas(), QStringList({elegida, "Banco"}));
    EXPECT_FALSE(t->Text1->isVisible());
    EXPECT_TRUE(f->statusBar()->currentMessage().startsWith("Pulse sobre una imagen"))
        << "back to the board's hint";

    // Escape gives a picked row up.
    t->form4()->close();
    QTest::keyClick(f.get(), Qt::Key_1, Qt::AltModifier);
    QTest::keyClick(lista(1), Qt::Key_Space);
    ASSERT_TRUE(t->recogidaPorTeclado());
    QTest::keyClick(lista(1), Qt::Key_Escape);
    EXPECT_FALSE(t->recogidaPorTeclado());
    EXPECT_TRUE(t->estado().Armado);
    EXPECT_FALSE(t->Text1->isVisible());
}

TEST_F(Tablero, SubcuentasNuevasYAparcadas) {
    f->AnadirSubcuenta("662900200", "Gasolina");
    EXPECT_EQ(lista(6)->fila(lista(6)->rowCount() - 1), (FilaArea{"Gasolina", "662900200"}));
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = 2024 WHERE NCuenta = '157000001'");
    }
    f->LlenarAreas();
    EXPECT_EQ(filaDe(lista(1), "Caja"), -1);
    EXPECT_GE(filaDe(lista(1), "Banco"), 0);
}

TEST_F(Tablero, TeclasDePredisenadosYF12) {
    QList<int> codigos;
    int listas = 0;
    f->AbrirPredisenado = [&](int c) {
        codigos << c;
    };
    f->AbrirPredisenados = [&] {
        ++listas;
    };
    clicEnImagen(6);
    lista(6)->setFocus();
    QTest::keyPress(lista(6), Qt::Key_Control);
    QTest::keyClick(lista(6), Qt::Key_0, Qt::ControlModifier);
    QTest::keyClick(lista(6), Qt::Key_0, Qt::ControlModifier | Qt::KeypadModifier);
    QTest::keyClick(lista(6), Qt::Key_7, Qt::ControlModifier);
    QTest::keyRelease(lista(6), Qt::Key_Control);
    EXPECT_EQ(codigos, QList<int>{7});
    QTest::keyClick(lista(6), Qt::Key_F12);
    EXPECT_EQ(listas, 1);
}

TEST_F(Tablero, LucesDeVencimientos) {
    {
        Conexion c = e.bavar();
        c.ejecutar("INSERT INTO Vencimientos (IdVenc, Tipo, NCuenta1, Importe, FechaV, Situacion) "
                   "VALUES (1, 'Pago', '240000009', 10, ?, 'Pendiente')",
                   {QDate::currentDate().toString(Qt::ISODate)});
    }
    f->ColorVenc();
    auto* pagos = Control<QPushButton>(f.get(), "Command5");
    auto* cobros = Control<QPushButton>(f.get(), "Command4");
    const QImage img = pagos->grab().toImage();
    EXPECT_EQ(img.pixelColor(6, img.height() / 2), QColor(255, 128, 0)) << "due today: orange";
    EXPECT_TRUE(cobros->styleSheet().isEmpty()) << "no collections: the button's own colour";
    EXPECT_FALSE(pagos->isEnabled()) << "no due-date screen yet";
    QString abierta;
    f->AbrirVencimientos = [&](const QString& tipo) {
        abierta = tipo;
    };
    f->ColorVenc();
    QTest::mouseClick(pagos, Qt::LeftButton);
    EXPECT_EQ(abierta, "Pago");
}

TEST_F(Tablero, PaginasDelBanco) {
    // Without pages: the notice, then the screen that keeps them.
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form65");
        auto* g = Control<QTableWidget>(w, "Grid1");
        g->item(0, 0)->setText("Mi banco");
        g->item(0, 1)->setText("www.mibanco.es");
        capturar(w, "form65");
        Pulsar(w, "Command3");
    });
    f->boton(18)->trigger();
    ASSERT_EQ(e.dialogo.informados.size(), 1);
    EXPECT_TRUE(e.dialogo.informados[0].startsWith(
        "Este botón le permite acceder fácilmente a la página web de su Banco u otras que "));
    EXPECT_EQ(e.ajustes->leer("Opciones", "NCCBanco(1)"), "Mi banco");

    // With pages: the list under the button; a click opens the address.
    QUrl abierta;
    f->AbrirDireccion = [&](const QUrl& u) {
        abierta = u;
        return true;
    };
    f->boton(18)->trigger();
    ASSERT_TRUE(f->List1->isVisible());
    EXPECT_EQ(f->List1->item(0)->text(), "Mi banco");
    EXPECT_EQ(f->List2->item(0)->text(), "www.mibanco.es");
    EXPECT_TRUE(f->Timer4->isActive());
    capturar(f.get(), "tablero-bancos");
    const QRect r = f->List1->visualItemRect(f->List1->item(0));
    QTest::mouseClick(f->List1->viewport(), Qt::LeftButton, {}, r.center());
    if (!QStandardPaths::findExecutable("xdg-open").isEmpty())
        EXPECT_EQ(abierta, QUrl("http://www.mibanco.es"));
    else
        EXPECT_EQ(e.dialogo.informados.last(), "No puedo encontrar el navegador");
    EXPECT_FALSE(f->List1->isVisible());
}

TEST_F(Tablero, ImagenesYColor) {
    QImage propia(64, 48, QImage::Format_RGB32);
    propia.fill(QColor(10, 200, 30));
    const QString ruta = e.ruta("huerto.png");
    ASSERT_TRUE(propia.save(ruta));
    QString carpetaOfrecida, filtroOfrecido;
    AlAbrirseModal([&](QWidget* w) {
        auto* f8 = qobject_cast<Form8*>(w);
        ASSERT_NE(f8, nullptr);
        EXPECT_EQ(w->windowTitle(), "Quilmar [Imágenes]");
        f8->ElegirFichero = [&](const QString& carpeta, const QString& filtro) {
            carpetaOfrecida = carpeta;
            filtroOfrecido = filtro;
            return ruta;
        };
        f8->ElegirColor = [](const QColor&) {
            return QColor(0x20, 0x40, 0x60);
        };
        // Without an area: told to choose one.
        Pulsar(w, "Command2");
        f8->Combo1->setCurrentIndex(5);
        Pulsar(w, "Command1");
        capturar(w, "form8");
        Pulsar(w, "Command3");
        Pulsar(w, "Command4");
        Pulsar(w, "Command6");
        Pulsar(w, "Command7");
    });
    f->accion("mnuImg")->trigger();
    EXPECT_EQ(e.dialogo.informados, QStringList{"Tiene primero que seleccionar el Area"});
    EXPECT_EQ(carpetaOfrecida, e.ruta("Imagenes"));
    EXPECT_TRUE(filtroOfrecido.contains("Formato JPG (*.jpg"));
    EXPECT_EQ(e.ajustes->leer("Imagen", "5"), ruta);
    EXPECT_EQ(t->area(5)->Picture1->imagen().size(), QSize(64, 48));
    EXPECT_EQ(ColorTablero(*e.ajustes), QColor(0x20, 0x40, 0x60));
    EXPECT_EQ(t->palette().color(QPalette::Window), QColor(0x20, 0x40, 0x60));

    // The default comes back, and a new board loads the setting.
    AlAbrirseModal([](QWidget* w) {
        auto* f8 = qobject_cast<Form8*>(w);
        f8->Combo1->setCurrentIndex(5);
        Pulsar(w, "Command2");
        Pulsar(w, "Command3");
        Pulsar(w, "Command5");
        Pulsar(w, "Command6");
        Pulsar(w, "Command7");
    });
    f->accion("mnuImg")->trigger();
    EXPECT_EQ(e.ajustes->leer("Imagen", "5"), e.ruta("Imagenes/edificio.jpg"));
    EXPECT_EQ(ColorTablero(*e.ajustes), ColorTableroPredeterminado);
}

TEST_F(Tablero, AsistenteYPrimeraPregunta) {
    e.dialogo.responder({true});
    int paginas = 0;
    AlAbrirseModal([&](QWidget* w) {
        auto* a = qobject_cast<Form66*>(w);
        ASSERT_NE(a, nullptr);
        EXPECT_EQ(w->windowTitle(), "Ayuda para empezar a contabilizar");
        QStringList titulos;
        EXPECT_FALSE(a->Anterior->isEnabled());
        while (true) {
            titulos << a->Titulo->text();
            ++paginas;
            capturar(w, QString("asistente-%1").arg(paginas));
            if (!a->Siguiente->isEnabled())
                break;
            Pulsar(w, "Siguiente");
        }
        EXPECT_EQ(titulos,
                  QStringList({"Conozca las cuentas", "Hacer un asiento", "Hacer un asiento",
                               "Contabilizar un Ingreso", "Contabilizar dos Gastos", "Ayuda"}));
        Pulsar(w, "Anterior");
        EXPECT_EQ(a->pagina(), 4);
        Pulsar(w, "Finalizar");
    });
    f->Timer5->setInterval(10);
    f->Timer5->start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !e.dialogo.preguntas.isEmpty(); }, 600000));
    EXPECT_EQ(e.dialogo.preguntas.value(0),
              "Desea recibir ayuda para hacer los primeros asientos?");
    EXPECT_EQ(paginas, 6);
}

} // namespace

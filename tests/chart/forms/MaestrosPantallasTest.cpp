// The parking, VAT, sector and concept screens, driven through their fields and context menus.

#include "Entorno.h"
#include "chart/forms/FORM84.h"
#include "chart/forms/Form21.h"
#include "chart/forms/Form35.h"
#include "chart/forms/Form48.h"
#include "journal/Escritor.h"
#include "platform/forms/ImprimirLibro.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

template <class T> T* hijo(QObject* w, const char* nombre) {
    T* h = w->findChild<T*>(QString::fromLatin1(nombre));
    EXPECT_NE(h, nullptr) << nombre;
    return h;
}

int filaCon(QTableWidget* t, int c, const QString& texto) {
    for (int f = 0; f < t->rowCount(); ++f)
        if (t->item(f, c)->text() == texto)
            return f;
    return -1;
}

// Right-clicks a row (the context menu selects it) and triggers an entry of the menu.
void menuEnFila(QTableWidget* t, int fila, QObject* ventana, const char* accion) {
    ASSERT_GE(fila, 0);
    t->selectRow(fila);
    hijo<QAction>(ventana, accion)->trigger();
}

TEST(PantallaAparcar, AparcarDesdeElMenu) {
    Entorno e;
    e.crearEmpresa();
    e.ajustes->escribir("Opciones", "WF21", 700);
    e.ajustes->escribir("Opciones", "HF21", 500);
    Form21 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Aparcar]");
    EXPECT_EQ(f.size(), QSize(700, 500));
    QSignalSpy cambiadas(&f, &Form21::areasCambiadas);
    auto* areas = hijo<QTableWidget>(&f, "MSFlexGrid1");
    auto* lista = hijo<QTableWidget>(&f, "MSFlexGrid2");
    EXPECT_EQ(areas->rowCount(), 7);
    EXPECT_EQ(areas->item(1, 0)->text(), "CUENTAS Y EFECTIVO");
    QTest::mouseClick(areas->viewport(), Qt::LeftButton, {},
                      areas->visualItemRect(areas->item(1, 0)).center());
    ASSERT_EQ(lista->rowCount(), 2);
    e.dialogo.responder({true});
    menuEnFila(lista, filaCon(lista, 0, "Banco"), &f, "mnuAparcarCuenta");
    const int banco = filaCon(lista, 0, "Banco");
    EXPECT_EQ(lista->item(banco, 1)->text(), "SI");
    EXPECT_EQ(lista->item(banco, 2)->text(), "2024");
    EXPECT_EQ(cambiadas.count(), 1);
    e.dialogo.responder({true});
    menuEnFila(lista, banco, &f, "mnuDesaparcarCuenta");
    EXPECT_EQ(lista->item(filaCon(lista, 0, "Banco"), 1)->text(), "");
    EXPECT_EQ(cambiadas.count(), 2);
    f.close();
    EXPECT_EQ(e.ajustes->leer("Opciones", "WF21"), "700");
}

TEST(PantallaTiposIva, AnadirYModificarDesdeElMenu) {
    Entorno e;
    e.crearEmpresa();
    Form48 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Tipos de IVA]");
    auto* FG1 = hijo<QTableWidget>(&f, "FG1");
    auto* Combo1 = hijo<QComboBox>(&f, "Combo1");
    auto* Combo2 = hijo<QComboBox>(&f, "Combo2");
    auto* Text1 = hijo<QLineEdit>(&f, "Text1");
    for (int i = 0; i < Combo1->count(); ++i)
        EXPECT_TRUE(Combo1->itemText(i).contains("IVA") || Combo1->itemText(i).contains("Recargo"))
            << Combo1->itemText(i).toStdString();
    const int filas = FG1->rowCount();

    QTest::mouseClick(hijo<QPushButton>(&f, "Command1"), Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados,
              QStringList{"Debe introducir el tipo de IVA o de Recargo de equivalencia."});
    menuEnFila(FG1, filaCon(FG1, 0, "IVA soportado 4%"), &f, "mnuModificar");
    EXPECT_EQ(Combo1->currentText(), "IVA soportado 4%");
    EXPECT_EQ(Text1->text(), "4");
    EXPECT_EQ(Combo2->currentText(), "IVA");
    Text1->clear();
    e.sesion.PuntoDecimal = false;
    QTest::keyClicks(Text1, "5.5"); // the point becomes the comma
    EXPECT_EQ(Text1->text(), "5,5");
    QTest::mouseClick(hijo<QPushButton>(&f, "Command1"), Qt::LeftButton);
    EXPECT_EQ(FG1->rowCount(), filas);
    EXPECT_EQ(FG1->item(filaCon(FG1, 0, "IVA soportado 4%"), 1)->text(), "5,5");
    EXPECT_TRUE(Text1->text().isEmpty());

    e.dialogo.responder({true});
    menuEnFila(FG1, filaCon(FG1, 0, "IVA soportado 4%"), &f, "mnuEliminar");
    EXPECT_EQ(FG1->rowCount(), filas - 1);
}

TEST(PantallaSectores, AnadirRenombrarYEliminar) {
    Entorno e;
    e.crearEmpresa();
    FORM84 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QSignalSpy eliminados(&f, &FORM84::asientosEliminados);
    auto* Grid1 = hijo<QTableWidget>(&f, "Grid1");
    auto* Text1 = hijo<QLineEdit>(&f, "Text1");
    auto* aceptar = hijo<QPushButton>(&f, "Command1");
    QTest::mouseClick(aceptar, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados, QStringList{"Debe introducir el nombre del Sector."});
    QTest::keyClicks(Text1, "Obra");
    QTest::mouseClick(aceptar, Qt::LeftButton);
    ASSERT_EQ(Grid1->rowCount(), 1);
    menuEnFila(Grid1, 0, &f, "mnuModificar");
    EXPECT_EQ(Text1->text(), "Obra");
    QTest::keyClicks(Text1, "s");
    QTest::mouseClick(aceptar, Qt::LeftButton);
    ASSERT_EQ(Grid1->rowCount(), 1);
    EXPECT_EQ(Grid1->item(0, 0)->text(), "Obras");
    // The box takes what the field holds: twenty characters, and no control character pasted.
    Text1->clear();
    QTest::keyClicks(Text1, QString(25, QLatin1Char('x')));
    EXPECT_EQ(Text1->text().size(), 20);
    Text1->clear();
    Text1->insert("Sur\tNorte\n");
    EXPECT_EQ(Text1->text(), "SurNorte");
    // A name already in the list, in any letters, is refused.
    Text1->setText("OBRAS");
    QTest::mouseClick(aceptar, Qt::LeftButton);
    EXPECT_EQ(e.dialogo.informados.last(), "Ya existe un Sector con el nombre 'OBRAS'.");
    EXPECT_EQ(Grid1->rowCount(), 1);
    Text1->clear();

    Apunte a = Debe("662900056", 9);
    a.Sector = "Obras";
    e.asiento(QDate(2024, 6, 1), {a, Haber("157000001", 9)});
    e.dialogo.responder({true, true, true});
    menuEnFila(Grid1, 0, &f, "mnuEliminar");
    EXPECT_EQ(Grid1->rowCount(), 0);
    EXPECT_EQ(eliminados.count(), 1);
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST(PantallaConceptos, AnadirYModificar) {
    Entorno e;
    e.crearEmpresa();
    Form35 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Conceptos Predefinidos]");
    auto* Grid1 = hijo<QTableWidget>(&f, "Grid1");
    auto* Text1 = hijo<QLineEdit>(&f, "Text1");
    auto* Text2 = hijo<QLineEdit>(&f, "Text2");
    QTest::keyClicks(Text1, "1a5"); // digits only
    EXPECT_EQ(Text1->text(), "15");
    Text2->setText("Nómina");
    QTest::mouseClick(hijo<QPushButton>(&f, "Command1"), Qt::LeftButton);
    ASSERT_EQ(Grid1->rowCount(), 1);
    EXPECT_EQ(Grid1->item(0, 0)->text(), "15");
    menuEnFila(Grid1, 0, &f, "mnuModificar");
    EXPECT_EQ(e.dialogo.informados, QStringList{"Modifique el nombre del Concepto y Acepte."});
    EXPECT_EQ(Text1->text(), "15");
    Text2->setText("Nómina de junio");
    e.dialogo.responder({true});
    QTest::mouseClick(hijo<QPushButton>(&f, "Command1"), Qt::LeftButton);
    EXPECT_EQ(Grid1->item(0, 1)->text(), "Nómina de junio");

    // Printing from the context menu: the preview of "Conceptos predefinidos".
    QString titulo;
    QTimer::singleShot(0, [&] {
        auto* v = qobject_cast<VistaPrevia*>(QApplication::activeModalWidget());
        ASSERT_NE(v, nullptr);
        titulo = v->windowTitle();
        EXPECT_EQ(v->paginas(), 1);
        v->reject();
    });
    hijo<QAction>(&f, "mnuImprimirC")->trigger();
    EXPECT_TRUE(titulo.contains("Conceptos predefinidos")) << titulo.toStdString();
}

} // namespace

// The tax books' screens offscreen: Form25's choices and its refusal of reversed dates, the book
// windows with their columns, total, painted total rows, buttons, context menu and sector box,
// the movements of a row through the hook, printing through FORM52 (whose entry-number box also
// changes the list), and the four entries of the board's menu.

#include "../ComunLibrosIva.h"
#include "chart/Sectores.h"
#include "forms/Pantallas.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "posting/forms/Form1.h"
#include "reports/forms/Form10.h"
#include "tax/forms/MenusLibrosIva.h"
#include "tax/forms/VentanaLibroIva.h"

#include "store/forms/CajaFecha.h"
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace iva;

namespace {

void Asientos(Entorno& e) {
    e.crearEmpresa();
    GuardarSector(e.sesion, e.dialogo, 0, QStringLiteral("Tienda"));
    GuardarSector(e.sesion, e.dialogo, 0, QStringLiteral("D'Ana"));
    e.asiento(QDate(2024, 1, 10),
              {Debe(Clientes, 121), EnSector(Haber(Ventas, 100), "D'Ana"),
               EnSector(ConIva(Haber(Rep21, 21), Clientes, "F-1", 100, 21), "D'Ana")});
    e.asiento(QDate(2024, 2, 1), {Debe(Deudores, 55), Haber(Ventas, 50),
                                  ConIva(Haber(Rep10, 5), Deudores, "F-2", 50, 10)});
    e.asiento(QDate(2024, 3, 1), {Debe(Banco, 7), Haber(Intereses, 7)});
}

VentanaLibroIva* Ventana(Entorno& e, LibroIva libro, bool asiento = false,
                         const QString& sector = {}) {
    SeleccionLibroIva sel;
    sel.libro = libro;
    sel.desde = QDate(2024, 1, 1);
    sel.hasta = QDate(2024, 6, 30);
    sel.sector = sector;
    sel.verAsiento = asiento;
    sel.verNIF = true;
    auto* f = new VentanaLibroIva(e.sesion, *e.ajustes, e.dialogo, sel);
    f->show();
    f->LlenarLibro();
    return f;
}

QStringList Menu(VentanaLibroIva* f) {
    TablaRejilla* t = f->tabla();
    auto menu = t->crearMenu(t->model()->index(0, 1));
    QStringList textos;
    for (QAction* a : menu->actions())
        textos << a->text();
    return textos;
}

} // namespace

TEST(Form25, EleccionFechasInvertidasYCancelar) {
    Entorno e;
    Asientos(e);
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form25");
        EXPECT_EQ(w->windowTitle(), "Seleccionar");
        // The dates of the exercise; one outside it, or one that does not exist, is refused.
        auto* desde = Control<CajaFecha>(w, "DTPicker1");
        auto* hasta = Control<CajaFecha>(w, "DTPicker2");
        EXPECT_EQ(std::pair(desde->date(), hasta->date()),
                  std::pair(QDate(2024, 1, 1), QDate(2024, 12, 31)));
        hasta->setText("01/02/2025");
        Pulsar(w, "Command1");
        hasta->setText("30/02/2024");
        Pulsar(w, "Command1");
        EXPECT_EQ(e.dialogo.informados,
                  QStringList({"La fecha debe estar entre el 01/01/2024 y el 31/12/2024.",
                               "La fecha introducida no es una fecha válida."}));
        e.dialogo.informados.clear();
        hasta->setDate(QDate(2024, 12, 31));
        auto* sectores = Control<QComboBox>(w, "Combo1");
        QStringList items;
        for (int i = 0; i < sectores->count(); ++i)
            items << sectores->itemText(i);
        EXPECT_EQ(items, (QStringList{"", "Tienda", "D'Ana"}));
        // The NIF has no column in the income book.
        EXPECT_FALSE(Control<QCheckBox>(w, "Check2")->isEnabled());
        Pulsar(w, "Command2");
    });
    EXPECT_EQ(VentanaLibroIva::Abrir(e.sesion, *e.ajustes, e.dialogo, LibroIva::Ingresos), nullptr);

    // Reversed dates are refused and the first date takes the focus; then a sector and the
    // entry numbers.
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_TRUE(Control<QCheckBox>(w, "Check2")->isEnabled());
        Control<CajaFecha>(w, "DTPicker1")->setDate(QDate(2024, 5, 2));
        Control<CajaFecha>(w, "DTPicker2")->setDate(QDate(2024, 5, 1));
        Control<CajaFecha>(w, "DTPicker2")->setFocus();
        Pulsar(w, "Command1");
        EXPECT_EQ(e.dialogo.informados, QStringList{MsgLibroFechas});
        EXPECT_TRUE(w->isVisible());
        EXPECT_EQ(w->focusWidget(), Control<CajaFecha>(w, "DTPicker1"));
        Control<CajaFecha>(w, "DTPicker1")->setDate(QDate(2024, 1, 1));
        Control<QComboBox>(w, "Combo1")->setCurrentText("D'Ana");
        Pulsar(w, "Check1");
        Pulsar(w, "Command1");
    });
    QPointer<VentanaLibroIva> f =
        VentanaLibroIva::Abrir(e.sesion, *e.ajustes, e.dialogo, LibroIva::Expedidas);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->windowTitle(), "Quilmar [Libro de Facturas expedidas]");
    EXPECT_EQ(f->objectName(), "Form26");
    EXPECT_EQ(Control<QLabel>(f, "Label1")->text(), "Desde 01/01/2024 hasta 01/05/2024");
    EXPECT_EQ(f->sectores()->currentText(), "D'Ana");
    EXPECT_TRUE(f->seleccion().verAsiento);
    EXPECT_FALSE(f->seleccion().verNIF);
    // F-1 alone, then the empty row and its total.
    ASSERT_EQ(f->rejilla().Filas(), 3);
    EXPECT_EQ(f->rejilla().Celda(0, ColExpFactura), "F-1");
    EXPECT_EQ(f->rejilla().Celda(0, ColExpAsiento), "1");
    delete f;
}

TEST(VentanaLibroIva, ColumnasTotalMenuSectorYMovimientos) {
    Entorno e;
    Asientos(e);
    VentanaLibroIva::VerMovimientos() = nullptr;
    QPointer<VentanaLibroIva> f = Ventana(e, LibroIva::Ingresos);
    TablaRejilla* t = f->tabla();
    QStringList visibles;
    for (int c = 0; c < t->model()->columnCount(); ++c)
        if (!t->isColumnHidden(c))
            visibles << t->model()->headerData(c, Qt::Horizontal).toString();
    EXPECT_EQ(visibles, (QStringList{"Nº Orden", "Fecha", "Factura", "Concepto", "Importe"}));
    ASSERT_TRUE(f->vista()->valorTotal(TotalLibroIva));
    EXPECT_EQ(f->vista()->valorTotal(TotalLibroIva)->text(), "157,00");
    // Help is not written: its button is disabled; so are the movements without their screen.
    EXPECT_FALSE(Control<QPushButton>(f, "Command3")->isEnabled());
    EXPECT_EQ(Menu(f), (QStringList{"Copiar", "Ver movimientos"}));
    EXPECT_FALSE(f->accion("mnuMovCta")->isEnabled());

    // The sector box fills the book again for the sector, and for all with the empty item.
    f->sectores()->setCurrentText("D'Ana");
    EXPECT_EQ(f->rejilla().Filas(), 1);
    EXPECT_EQ(f->vista()->valorTotal(TotalLibroIva)->text(), "100,00");
    f->sectores()->setCurrentText("Tienda");
    EXPECT_EQ(f->rejilla().Filas(), 0);
    EXPECT_EQ(f->vista()->valorTotal(TotalLibroIva)->text(), "0,00");
    f->sectores()->setCurrentIndex(0);
    EXPECT_EQ(f->rejilla().Filas(), 3);
    delete f;

    // The invoice books: "Ver Movimientos", and the total rows painted dark blue.
    QList<PeticionMovimientos> pedidos;
    VentanaLibroIva::VerMovimientos() = [&](QWidget*, const PeticionMovimientos& p) {
        pedidos << p;
    };
    f = Ventana(e, LibroIva::Expedidas);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    EXPECT_EQ(Menu(f), (QStringList{"Copiar", "Ver Movimientos"}));
    t = f->tabla();
    ASSERT_EQ(t->model()->rowCount(), 5);
    EXPECT_EQ(t->model()->index(3, ColExpDestinatario).data().toString(), "Total IVA al 21%");
    for (int col : {ColExpDestinatario, ColExpCuota})
        EXPECT_EQ(t->model()->index(3, col).data(Qt::ForegroundRole).value<QColor>(),
                  QColor(0, 0, 192));
    EXPECT_FALSE(t->model()->index(3, ColExpNIF).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(t->model()->index(0, ColExpDestinatario).data(Qt::ForegroundRole).isValid());

    // A double click on the empty row or a total opens nothing; on a record, its customer's
    // movements over the book's dates, also without the entry number shown.
    for (int fila : {2, 3}) {
        const QRect celda = t->visualRect(t->model()->index(fila, ColExpDestinatario));
        QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    }
    EXPECT_TRUE(pedidos.isEmpty());
    const QRect celda = t->visualRect(t->model()->index(1, ColExpDestinatario));
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    ASSERT_EQ(pedidos.size(), 1);
    EXPECT_EQ(QStringList({pedidos[0].ncuenta, pedidos[0].area, pedidos[0].nombre}),
              QStringList({Deudores, "4", "Deudores varios"}));
    EXPECT_EQ(std::pair(pedidos[0].desde, pedidos[0].hasta),
              std::pair(QDate(2024, 1, 1), QDate(2024, 6, 30)));
    VentanaLibroIva::VerMovimientos() = nullptr;
    delete f;
}

TEST(VentanaLibroIva, ImprimirPasaPorForm52) {
    Entorno e;
    Asientos(e);
    QPointer<VentanaLibroIva> f = Ventana(e, LibroIva::Ingresos, true);
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "FORM52");
        // The entry-number box starts as the book shows it.
        EXPECT_TRUE(Control<QCheckBox>(w, "Check1")->isChecked());
        Pulsar(w, "Command2");
    });
    Pulsar(f, "Command1");
    EXPECT_TRUE(f->opciones().cancelado);
    EXPECT_TRUE(f->seleccion().verAsiento);

    // Accepted without the entry numbers: the list hides them too, and the preview has a page.
    int paginas = 0;
    AlAbrirseModal([&](QWidget* w) {
        Escribir(w, "Text1", "5");
        Pulsar(w, "Check1");
        AlAbrirseModal([&](QWidget* vista) {
            if (auto* v = qobject_cast<VistaPrevia*>(vista))
                paginas = v->paginas();
            vista->close();
        });
        Pulsar(w, "Command1");
    });
    Pulsar(f, "Command1");
    EXPECT_EQ(paginas, 1);
    EXPECT_FALSE(f->opciones().cancelado);
    EXPECT_FALSE(f->seleccion().verAsiento);
    EXPECT_TRUE(f->tabla()->isColumnHidden(ColLibAsiento));
    // FORM52 raises a margin under 10 mm to 10.
    EXPECT_EQ(e.ajustes->leer("Valores", "IzqLibros"), "10");
    delete f;
}

TEST(MenusLibrosIva, CuatroEntradasDelTablero) {
    Entorno e;
    Asientos(e);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    const QStringList menus{"mnuLIngresos", "mnuLGastos", "mnuLExpedidas", "mnuLRecibidas"};
    for (const QString& m : menus)
        EXPECT_FALSE(tablero.accion(m)->isEnabled()) << m.toStdString();
    ConectarLibrosIva(tablero, e.sesion, *e.ajustes, e.dialogo);
    const QStringList forms{"Form18", "Form34", "Form26", "Form51"};
    for (int i = 0; i < menus.size(); ++i) {
        ASSERT_TRUE(tablero.accion(menus[i])->isEnabled()) << menus[i].toStdString();
        AlAbrirseModal([](QWidget* w) {
            EXPECT_EQ(w->objectName(), "Form25");
            Pulsar(w, "Command1");
        });
        tablero.accion(menus[i])->trigger();
        ASSERT_EQ(tablero.librosAbiertos("LibrosIva").size(), i + 1);
        EXPECT_EQ(tablero.librosAbiertos("LibrosIva").last()->objectName(), forms[i]);
    }

    // "Ver movimientos" opens Form10 on the row's subaccount, registered with the board.
    auto* ingresos = qobject_cast<VentanaLibroIva*>(tablero.librosAbiertos("LibrosIva").first());
    ASSERT_TRUE(ingresos);
    ingresos->tabla()->setCurrentIndex(ingresos->tabla()->model()->index(0, ColLibConcepto));
    ingresos->accion("mnuMovCta")->trigger();
    ASSERT_EQ(tablero.librosAbiertos("Movimientos").size(), 1);
    auto* m = qobject_cast<Form10*>(tablero.librosAbiertos("Movimientos").first());
    ASSERT_TRUE(m);
    EXPECT_EQ(m->seleccion().ncuenta, Ventas);
    EXPECT_EQ(std::pair(m->seleccion().desde, m->seleccion().hasta),
              std::pair(QDate(2024, 1, 1), QDate(2024, 12, 31)));

    // An entry posted elsewhere shows when the board refreshes its books.
    e.asiento(QDate(2024, 7, 1), {Debe(Banco, 5), Haber(Intereses, 5)});
    tablero.refrescarLibros();
    EXPECT_EQ(ingresos->vista()->valorTotal(TotalLibroIva)->text(), "162,00");
    tablero.cerrarLibros({});
    QTest::qWait(50);
    EXPECT_TRUE(tablero.librosAbiertos().isEmpty());
    VentanaLibroIva::VerMovimientos() = nullptr;
}

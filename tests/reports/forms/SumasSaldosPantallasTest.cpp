// The trial balance's screens offscreen: Form78's dates, the list window Form11 with its columns,
// bold group rows, totals, toolbar and context menu, the movements hook, printing through Form79,
// and the board's menu entry and toolbar button.

#include "../ComunLibros.h"
#include "forms/Pantallas.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "posting/forms/Form1.h"
#include "reports/SumasSaldos.h"
#include "reports/forms/Form10.h"
#include "reports/forms/Form11.h"
#include "reports/forms/Form78.h"
#include "reports/forms/MenusLibros.h"

#include "store/forms/CajaFecha.h"
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

void Asientos(Entorno& e) {
    e.crearEmpresa();
    e.asiento(QDate(2024, 1, 2), {Debe(Caja, 1500), Haber(Banco, 1500)});
    e.asiento(QDate(2024, 2, 3), {Debe(Compras, 300), Haber(Proveedor, 300)});
    e.asiento(QDate(2024, 6, 4), {Debe(Banco, 20), Haber(Caja, 20)});
}

Form11* Balance(Entorno& e, const QDate& desde, const QDate& hasta) {
    auto* f = new Form11(e.sesion, *e.ajustes, e.dialogo, desde, hasta);
    f->show();
    f->LlenarSyS();
    return f;
}

int FilaDe(const Form11* f, const QString& codigo) {
    for (int i = 0; i < f->rejilla().Filas(); ++i)
        if (f->rejilla().Celda(i, ColSySCodigo) == codigo)
            return i;
    return -1;
}

} // namespace

TEST(Form78, FechasDelEjercicioYCancelar) {
    Entorno e;
    Asientos(e);
    {
        Form78 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.windowTitle(), "Sumas y Saldos");
        EXPECT_EQ(f.desde(), QDate(2024, 1, 1));
        EXPECT_EQ(f.hasta(), QDate(2024, 12, 31));
        EXPECT_EQ(Control<QGroupBox>(&f, "")->title(), "Seleccionar Fecha");
        // A date outside the exercise, or one that does not exist, is refused.
        f.show();
        Control<CajaFecha>(&f, "DTPicker2")->setText("01/03/2025");
        Pulsar(&f, "Command1");
        EXPECT_EQ(e.dialogo.informados.value(0),
                  "La fecha debe estar entre el 01/01/2024 y el 31/12/2024.");
        Control<CajaFecha>(&f, "DTPicker2")->setText("29/02/2023");
        Pulsar(&f, "Command1");
        EXPECT_EQ(e.dialogo.informados.value(1), "La fecha introducida no es una fecha válida.");
        EXPECT_EQ(f.result(), 0) << "still open";
    }
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form78");
        Pulsar(w, "Command2");
    });
    EXPECT_EQ(Form11::Abrir(e.sesion, *e.ajustes, e.dialogo), nullptr);

    // Accepted with a period: the list of those dates.
    AlAbrirseModal([](QWidget* w) {
        Control<CajaFecha>(w, "DTPicker1")->setDate(QDate(2024, 2, 1));
        Pulsar(w, "Command1");
    });
    QPointer<Form11> f = Form11::Abrir(e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f);
    QTest::qWait(50); // the fill follows the window
    EXPECT_EQ(f->desde(), QDate(2024, 2, 1));
    EXPECT_EQ(f->hasta(), QDate(2024, 12, 31));
    EXPECT_EQ(Control<QLabel>(f, "Label1")->text(), "Desde 01/02/2024 hasta 31/12/2024");
    // Caja: only the June line in the period.
    const int caja = FilaDe(f, Caja);
    ASSERT_GE(caja, 0);
    EXPECT_EQ(f->rejilla().Fila(caja).mid(ColSySDebe, 2), QStringList({"0,00", "20,00"}));
    delete f;
}

TEST(Form11, RejillaTotalesBarraYMenu) {
    Entorno e;
    Asientos(e);
    Form11* f = Balance(e, QDate(2024, 1, 1), QDate(2024, 12, 31));
    EXPECT_EQ(f->windowTitle(), "Quilmar [Balance de Sumas y Saldos]");
    TablaRejilla* t = f->tabla();
    ASSERT_EQ(t->model()->columnCount(), 7);
    QStringList titulos;
    for (int c = 0; c < 7; ++c)
        titulos << t->model()->headerData(c, Qt::Horizontal).toString();
    EXPECT_EQ(titulos,
              (QStringList{"Código", "Cuenta", "Debe", "Haber", "Saldo", "NCuenta", "Grupo"}));
    for (int c = 0; c < 7; ++c)
        EXPECT_EQ(t->isColumnHidden(c), c >= ColSySNCuenta) << c;
    // Four accounts, each with its group row.
    EXPECT_EQ(t->model()->rowCount(), 8);
    const int grupo = FilaDe(f, "570");
    ASSERT_GE(grupo, 0);
    EXPECT_TRUE(t->model()->index(grupo, ColSySCuenta).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(
        t->model()->index(grupo + 1, ColSySCuenta).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(t->model()->index(grupo, ColSySSaldo).data().toString(), "1.480,00");

    QLabel* debe = f->vista()->valorTotal(TotalSySDebe);
    ASSERT_TRUE(debe);
    EXPECT_EQ(QStringList({debe->text(), f->vista()->valorTotal(TotalSySHaber)->text(),
                           f->vista()->valorTotal(TotalSySSaldo)->text()}),
              QStringList({"1.820,00", "1.820,00", "0,00"}));

    EXPECT_EQ(Barra(f, 9), QStringList({"mnuCerrar", "|", "mnuCopiar", "mnuImprimir", "mnuExportar",
                                        "|", "mnuMovCta", "|", "mnuAyuda"}));
    // The context menu PPSys.
    auto menu = t->crearMenu(t->model()->index(1, 1));
    QStringList textos;
    for (QAction* a : menu->actions())
        textos << a->text();
    EXPECT_EQ(textos, (QStringList{"Copiar", "Ver movimientos Cuenta"}));
    menu.reset();
    delete f;
}

TEST(Form11, MovimientosDeLaSubcuentaPorGancho) {
    Entorno e;
    Asientos(e);
    Form11::VerMovimientos() = nullptr;
    QPointer<Form11> f = Balance(e, QDate(2024, 1, 1), QDate(2024, 6, 30));
    EXPECT_FALSE(f->accion("mnuMovCta")->isEnabled());
    delete f;

    QList<PeticionMovimientos> pedidos;
    Form11::VerMovimientos() = [&](QWidget*, const PeticionMovimientos& p) {
        pedidos << p;
    };
    f = Balance(e, QDate(2024, 1, 1), QDate(2024, 6, 30));
    EXPECT_TRUE(f->accion("mnuMovCta")->isEnabled());
    TablaRejilla* t = f->tabla();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f));
    // A double click on a group row opens nothing; on a subaccount's row, its movements.
    const int grupo = FilaDe(f, "572");
    ASSERT_GE(grupo, 0);
    QRect celda = t->visualRect(t->model()->index(grupo, ColSySCuenta));
    QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    EXPECT_TRUE(pedidos.isEmpty());
    celda = t->visualRect(t->model()->index(grupo + 1, ColSySCuenta));
    QTest::mouseClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    QTest::mouseDClick(t->viewport(), Qt::LeftButton, {}, celda.center());
    ASSERT_EQ(pedidos.size(), 1);
    EXPECT_EQ(QStringList({pedidos[0].ncuenta, pedidos[0].area, pedidos[0].nombre}),
              QStringList({Banco, "1", "Banco"}));
    EXPECT_EQ(std::pair(pedidos[0].desde, pedidos[0].hasta),
              std::pair(QDate(2024, 1, 1), QDate(2024, 6, 30)));
    t->setCurrentIndex(t->model()->index(FilaDe(f, Compras), ColSySCuenta));
    f->accion("mnuMovCta")->trigger();
    ASSERT_EQ(pedidos.size(), 2);
    EXPECT_EQ(pedidos[1].ncuenta + pedidos[1].area, Compras + "6");
    Form11::VerMovimientos() = nullptr;
    delete f;
}

TEST(Form11, ImprimirPasaPorForm79) {
    Entorno e;
    Asientos(e);
    QPointer<Form11> f = Balance(e, QDate(2024, 1, 1), QDate(2024, 12, 31));
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "SUMAS Y SALDOS");
        EXPECT_EQ(w->objectName(), "Form79");
        Pulsar(w, "Command2");
    });
    f->Imprimir();
    EXPECT_TRUE(f->opciones().cancelado);

    int paginas = 0;
    AlAbrirseModal([&](QWidget* w) {
        Escribir(w, "Text1", "25");
        AlAbrirseModal([&](QWidget* vista) {
            if (auto* v = qobject_cast<VistaPrevia*>(vista))
                paginas = v->paginas();
            vista->close();
        });
        Pulsar(w, "Command1");
    });
    f->Imprimir();
    EXPECT_EQ(paginas, 1);
    EXPECT_FALSE(f->opciones().cancelado);
    EXPECT_DOUBLE_EQ(f->opciones().margen, MilimetrosATwips(25));
    EXPECT_EQ(e.ajustes->leer("Valores", "IzqSyS"), "25");
    delete f;
}

TEST(MenusLibros, SumasYSaldosDesdeElTablero) {
    Entorno e;
    Asientos(e);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_FALSE(tablero.accion("mnuSumas")->isEnabled());
    ConectarLibros(tablero, e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(tablero.accion("mnuSumas")->isEnabled());
    EXPECT_EQ(tablero.boton(7), tablero.accion("mnuSumas"));

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form78");
        Pulsar(w, "Command1");
    });
    tablero.boton(7)->trigger();
    ASSERT_EQ(tablero.librosAbiertos("SyS").size(), 1);
    auto* f = qobject_cast<Form11*>(tablero.librosAbiertos("SyS").first());
    ASSERT_TRUE(f);
    QTest::qWait(50);
    EXPECT_EQ(f->rejilla().Filas(), 8);

    // A subaccount's row leads to its movements over the same dates; a group row to nothing.
    ASSERT_TRUE(f->accion("mnuMovCta")->isEnabled());
    int grupo = -1, subcuenta = -1;
    for (int i = 0; i < f->rejilla().Filas(); ++i)
        (f->rejilla().Celda(i, ColSySNCuenta).isEmpty() ? grupo : subcuenta) = i;
    ASSERT_GE(grupo, 0);
    ASSERT_GE(subcuenta, 0);
    f->tabla()->setCurrentIndex(f->tabla()->model()->index(grupo, 0));
    f->accion("mnuMovCta")->trigger();
    EXPECT_TRUE(tablero.librosAbiertos("Movimientos").isEmpty());
    f->tabla()->setCurrentIndex(f->tabla()->model()->index(subcuenta, 0));
    f->accion("mnuMovCta")->trigger();
    ASSERT_EQ(tablero.librosAbiertos("Movimientos").size(), 1);
    auto* m = qobject_cast<Form10*>(tablero.librosAbiertos("Movimientos").first());
    ASSERT_TRUE(m);
    EXPECT_EQ(m->seleccion().ncuenta, f->rejilla().Celda(subcuenta, ColSySNCuenta));
    m->close();

    // An entry posted elsewhere shows when the board refreshes its books.
    e.asiento(QDate(2024, 7, 1), {Debe(Caja, 5), Haber(Banco, 5)});
    tablero.refrescarLibros();
    EXPECT_EQ(f->vista()->valorTotal(TotalSySDebe)->text(), "1.825,00");
    tablero.cerrarLibros("SyS");
    QTest::qWait(50);
    EXPECT_TRUE(tablero.librosAbiertos("SyS").isEmpty());
    Form11::VerMovimientos() = nullptr;
    Form5::VerMovimientos() = nullptr;
    Form5::VerModificarAsiento() = nullptr;
}

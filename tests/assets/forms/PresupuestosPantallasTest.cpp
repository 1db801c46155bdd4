// The budget screens offscreen: building a budget in Form47's panels and saving it, loading it
// back in MODIFICAR, the period of Form50 and the comparison of Form49, and the board's entries.

#include "Entorno.h"
#include "assets/Presupuestos.h"
#include "assets/forms/Form47.h"
#include "assets/forms/Form49.h"
#include "assets/forms/Form50.h"
#include "assets/forms/MenusPresupuestos.h"
#include "forms/Pantallas.h"
#include "platform/Rejilla.h"
#include "posting/forms/Form1.h"
#include "utilities/forms/MenusCalculadora.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <gtest/gtest.h>

namespace {

const QString Ventas = QStringLiteral("370000066");
const QString Arrendamientos = QStringLiteral("662100046");

void elegirCuenta(PanelPresupuesto* p, const QString& ncuenta) {
    const int i = p->subcuenta()->findData(ncuenta);
    ASSERT_GE(i, 0) << ncuenta.toStdString();
    p->subcuenta()->setCurrentIndex(i);
}

QStringList filaLista(const QTableWidget* t, int f) {
    QStringList r;
    for (int c = 0; c < t->columnCount(); ++c)
        r << (t->item(f, c) ? t->item(f, c)->text() : QString());
    return r;
}

} // namespace

TEST(Form47, PanelesRepartoYGuardar) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2024);
    Form47 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(f.windowTitle(), "Quilmar [Crear Presupuesto]");
    // Group 7 in the income panel only, group 6 in the expense panel only.
    EXPECT_GE(f.entradas()->subcuenta()->findData(Ventas), 0);
    EXPECT_LT(f.entradas()->subcuenta()->findData(Arrendamientos), 0);
    EXPECT_GE(f.salidas()->subcuenta()->findData(Arrendamientos), 0);

    PanelPresupuesto* in = f.entradas();
    elegirCuenta(in, Ventas);
    in->importe()->setText(QStringLiteral("100"));
    for (int m : {1, 2, 3})
        in->marca(m)->setChecked(true);
    for (QPushButton* b : in->findChildren<QPushButton*>())
        if (b->text() == QLatin1String("Repartir por igual"))
            b->click();
    ASSERT_EQ(in->lista()->rowCount(), 1);
    const QStringList fila = filaLista(in->lista(), 0);
    EXPECT_EQ(fila.mid(0, 7), (QStringList{"Ventas de mercaderías", "100,00", Ventas, "3", "33,33",
                                           "33,33", "33,34"}));
    EXPECT_EQ(in->total(), "100,00");
    // The panel is ready for the next line.
    EXPECT_TRUE(in->importe()->text().isEmpty());
    EXPECT_FALSE(in->marca(1)->isChecked());

    PanelPresupuesto* out = f.salidas();
    elegirCuenta(out, Arrendamientos);
    out->importe()->setText(QStringLiteral("1200"));
    out->Anadir();
    EXPECT_EQ(e.dialogo.informados.value(0),
              "No ha marcado ningún mes en que se producirán los gastos.");
    EXPECT_EQ(out->lista()->rowCount(), 0);
    out->Marcar();
    EXPECT_TRUE(out->marca(12)->isChecked());
    out->RepartirIgual();
    ASSERT_EQ(out->lista()->rowCount(), 1);
    EXPECT_EQ(out->lista()->item(0, 15)->text(), "100,00");
    // The same subaccount again is refused.
    elegirCuenta(out, Arrendamientos);
    out->importe()->setText(QStringLiteral("50"));
    out->Marcar();
    out->RepartirIgual();
    EXPECT_EQ(e.dialogo.informados.last(),
              "Ya está introducida en el presupuesto la cuenta Arrendamientos.");

    f.nombre()->setText(QStringLiteral("Plan"));
    f.ano()->setText(QStringLiteral("2024"));
    f.Guardar();
    const Presupuesto p = LeerPresupuesto(RutaPresupuesto(e.sesion, QStringLiteral("Plan")));
    ASSERT_EQ(p.partidas.size(), 2);
    EXPECT_EQ(p.partidas[0].NCuenta, Ventas);
    EXPECT_DOUBLE_EQ(p.partidas[0].Meses[3], 33.34);
    EXPECT_EQ(p.partidas[1].Meses[0], 12);

    // Modifying loads each line in its panel; a line loaded turns &Añadir into &Modificar.
    Form47 m(e.sesion, *e.ajustes, e.dialogo, nullptr,
             RutaPresupuesto(e.sesion, QStringLiteral("Plan")));
    EXPECT_EQ(m.windowTitle(), "Quilmar [Modificar Presupuesto]");
    EXPECT_EQ(m.nombre()->text(), "Plan");
    ASSERT_EQ(m.entradas()->lista()->rowCount(), 1);
    ASSERT_EQ(m.salidas()->lista()->rowCount(), 1);
    m.entradas()->VerReparto(0);
    EXPECT_EQ(m.entradas()->anadir()->text(), "&Modificar");
    EXPECT_EQ(m.entradas()->mes(3)->text(), "33,34");
    EXPECT_TRUE(m.entradas()->marca(3)->isChecked());
    m.entradas()->importe()->setText(QStringLiteral("90"));
    m.entradas()->RepartirIgual();
    EXPECT_EQ(m.entradas()->lista()->rowCount(), 1);
    EXPECT_EQ(m.entradas()->lista()->item(0, 6)->text(), "30,00");
    EXPECT_EQ(m.entradas()->anadir()->text(), "&Añadir");
}

TEST(Form49, PeriodoYComparacion) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2024);
    e.asiento(QDate(2024, 2, 10), {Debe(QStringLiteral("157000001"), 80), Haber(Ventas, 80)});
    Presupuesto p{QStringLiteral("Plan"), QStringLiteral("2024"), {}, {}};
    PartidaPresupuesto v = NuevaPartida(e.sesion, Ventas, 1200);
    RepartirPorIgual(v, MesesTodos);
    p.partidas << v;
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    const QString ruta = RutaPresupuesto(e.sesion, QStringLiteral("Plan"));

    Form50 f(e.sesion, *e.ajustes, e.dialogo, ruta);
    EXPECT_EQ(f.completo()->text(), "Año completo (2024)");
    EXPECT_TRUE(f.periodo().anual);
    f.entre()->setChecked(true);
    f.desde()->setCurrentIndex(2);
    f.hasta()->setCurrentIndex(1);
    f.Aceptar();
    EXPECT_EQ(e.dialogo.informados.value(0), "La fecha final debe ser mayor que la inicial");
    EXPECT_NE(f.result(), QDialog::Accepted);
    f.desde()->setCurrentIndex(1);
    f.hasta()->setCurrentIndex(2);
    const PeriodoPresupuesto per = f.periodo();
    EXPECT_FALSE(per.anual);
    EXPECT_EQ(per.mesDesde, 2);
    EXPECT_EQ(per.mesHasta, 3);

    Form49 c(e.sesion, *e.ajustes, e.dialogo, ruta, per);
    EXPECT_TRUE(c.windowTitle().contains("Febrero a Marzo"));
    const Rejilla& r = c.rejilla();
    ASSERT_GE(r.Filas(), 3);
    EXPECT_EQ(r.Celda(1, 0), "Ventas de mercaderías");
    EXPECT_EQ(r.Celda(1, 1), "200,00");
    EXPECT_EQ(r.Celda(1, 2), "80,00");
    EXPECT_EQ(r.Celda(1, 3), "-120,00");
}

TEST(MenusPresupuestos, EntradasDelTableroYBotonDeLaCalculadora) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2024);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    for (const char* n : {"mnuCrearP", "mnuModificarP", "mnuAbrir", "mnuCalculadora"})
        EXPECT_FALSE(tablero.accion(n)->isEnabled()) << n;
    ConectarPresupuestos(tablero, e.sesion, *e.ajustes, e.dialogo);
    ConectarCalculadora(tablero, e.sesion, *e.ajustes, e.dialogo);
    for (const char* n : {"mnuCrearP", "mnuModificarP", "mnuAbrir", "mnuCalculadora"})
        EXPECT_TRUE(tablero.accion(n)->isEnabled()) << n;
    ASSERT_TRUE(tablero.boton(17));
    EXPECT_TRUE(tablero.boton(17)->isEnabled());

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Quilmar [Crear Presupuesto]");
        w->close();
    });
    tablero.accion("mnuCrearP")->trigger();
}

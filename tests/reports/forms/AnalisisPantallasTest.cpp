// The screens of the income and expense analyses and of the charts, offscreen: the board's
// entries and the windows they open, Form12's refusal, the sort of Form13, Form31 without lines,
// the sector of Form58 through Form15, Form42's rules, the buttons of Form40 with the settings
// they keep, its copy and its printed page, and the books left byte for byte as they were after
// drawing every chart of a closed exercise in every look.

#include "../ComunAnalisis.h"
#include "forms/Pantallas.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/ImpresoraPintor.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/VistaRejilla.h"
#include "posting/forms/Form1.h"
#include "reports/forms/Form10.h"
#include "reports/forms/Form13.h"
#include "reports/forms/Form31.h"
#include "reports/forms/Form40.h"
#include "reports/forms/Form42.h"
#include "reports/forms/Form58.h"
#include "reports/forms/LienzoGrafico.h"
#include "reports/forms/MenusAnalisis.h"
#include "reports/forms/MenusLibros.h"

#include <QAction>
#include <QApplication>
#include <QBarSeries>
#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPieSeries>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedBarSeries>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace iyg;

namespace {

// Lets the event loop run until the condition holds (a window's fill started by a timer); fails
// the test when it never does.
bool Esperar(const std::function<bool()>& condicion) {
    QElapsedTimer reloj;
    reloj.start();
    while (!condicion()) {
        if (reloj.elapsed() > 20000)
            return false;
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

QStringList Celdas(const Rejilla& r, int col) {
    QStringList c;
    for (int f = 0; f < r.Filas(); ++f)
        c << r.Celda(f, col);
    return c;
}

int Indice(const QString& clave) {
    for (int i = 0; i < EntradasGraficos().size(); ++i)
        if (EntradasGraficos().at(i).clave == clave)
            return i;
    return -1;
}

QAbstractSeries* Serie(Form40& f) {
    const QList<QAbstractSeries*> s = f.vista()->chart()->series();
    return s.isEmpty() ? nullptr : s.first();
}

} // namespace

TEST(MenusAnalisis, EntradasDelTableroYSusVentanas) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    const QStringList menus{"mnuIngGas", "mnuListaIG", "mnuIGmeses", "mnuES", "mnuGráficos"};
    for (const QString& m : menus)
        EXPECT_FALSE(tablero.accion(m)->isEnabled()) << m.toStdString();
    ConectarLibros(tablero, e.sesion, *e.ajustes, e.dialogo);
    ConectarAnalisis(tablero, e.sesion, *e.ajustes, e.dialogo);
    for (const QString& m : menus)
        EXPECT_TRUE(tablero.accion(m)->isEnabled()) << m.toStdString();
    // Buttons 14 and 15 of the toolbar are the entries of the lists.
    EXPECT_EQ(tablero.boton(14), tablero.accion("mnuIngGas"));
    EXPECT_EQ(tablero.boton(15), tablero.accion("mnuIGmeses"));

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form12");
        Pulsar(w, "Command1");
    });
    tablero.boton(14)->trigger();
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form30");
        Pulsar(w, "Option2");
        Pulsar(w, "Command1");
    });
    tablero.accion("mnuListaIG")->trigger();
    tablero.boton(15)->trigger();
    tablero.accion("mnuES")->trigger();
    tablero.accion(QStringLiteral("mnuGráficos"))->trigger();
    QStringList abiertos;
    for (QWidget* w : tablero.librosAbiertos("Analisis"))
        abiertos << w->objectName();
    EXPECT_EQ(abiertos, (QStringList{"Form13", "Form31", "Form58", "Form42", "Form40"}));

    auto* totales = qobject_cast<Form13*>(tablero.librosAbiertos("Analisis").first());
    ASSERT_TRUE(totales);
    ASSERT_TRUE(Esperar([&] { return totales->rejilla().Filas() == 11; }));
    EXPECT_EQ(totales->rejilla().Celda(10, ColTotAcumulado), "8.500,25");
    // The double click on a subaccount opens its movements with the list's dates.
    const QModelIndex ventas = totales->tabla()->model()->index(1, ColTotSubcuenta);
    Q_EMIT totales->tabla()->doubleClicked(ventas);
    ASSERT_EQ(tablero.librosAbiertos("Movimientos").size(), 1);
    auto* m = qobject_cast<Form10*>(tablero.librosAbiertos("Movimientos").first());
    ASSERT_TRUE(m);
    EXPECT_EQ(m->seleccion().ncuenta, Ventas);
    // A heading row opens nothing.
    Q_EMIT totales->tabla()->doubleClicked(totales->tabla()->model()->index(0, 0));
    EXPECT_EQ(tablero.librosAbiertos("Movimientos").size(), 1);

    // An entry posted elsewhere shows when the board refreshes its books.
    e.asiento(QDate(2024, 11, 1), {Debe(Caja, 99.75), Haber(Ventas, 99.75)});
    tablero.refrescarLibros();
    EXPECT_EQ(totales->rejilla().Celda(10, ColTotAcumulado), "8.600,00");
    tablero.cerrarLibros({});
    EXPECT_TRUE(Esperar([&] { return tablero.librosAbiertos().isEmpty(); }));
    Form13::VerMovimientos() = nullptr;
}

TEST(Form12, FechasInvertidasYLaEleccion) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Ingresos y Gastos (Totales)");
        Control<QDateEdit>(w, "DTPicker1")->setDate(QDate(2024, 6, 1));
        Control<QDateEdit>(w, "DTPicker2")->setDate(QDate(2024, 5, 1));
        Pulsar(w, "Command1");
        EXPECT_EQ(e.dialogo.informados, QStringList{MsgFechasIyG});
        EXPECT_TRUE(w->isVisible());
        Control<QDateEdit>(w, "DTPicker2")->setDate(QDate(2024, 12, 31));
        Pulsar(w, "Option3");
        Control<QComboBox>(w, "Combo1")->setCurrentText("Web");
        Pulsar(w, "Command1");
    });
    QPointer<Form13> f = Form13::Abrir(e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->seleccion().tipo, TipoIyG::SoloGastos);
    EXPECT_EQ(f->seleccion().sector, "Web");
    EXPECT_EQ(f->seleccion().desde, QDate(2024, 6, 1));
    ASSERT_TRUE(Esperar([&] { return f->rejilla().Filas() == 3; }));
    EXPECT_EQ(Celdas(f->rejilla(), ColTotSubcuenta),
              (QStringList{"GASTOS", "Publicidad y propaganda", "Total Gastos"}));
    EXPECT_EQ(Control<QLabel>(f, "Label1")->text(),
              "Desde 01/06/2024 hasta 31/12/2024   Sector: Web");
    delete f;
}

TEST(Form13, OrdenDelMenuYRelleno) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    e.asiento(QDate(2024, 5, 5), {Debe(Reparaciones, 5000), Haber(Banco, 5000)});
    Form13 f(e.sesion, *e.ajustes, e.dialogo,
             {QDate(2024, 1, 1), QDate(2024, 12, 31), TipoIyG::SoloGastos, {}});
    f.LlenarIyG();
    const QStringList porCuenta = Celdas(f.rejilla(), ColTotSubcuenta);
    f.accion("mnuOrdenImportes")->trigger();
    EXPECT_EQ(f.orden(), OrdenIyG::Importe);
    EXPECT_EQ(Celdas(f.rejilla(), ColTotSubcuenta).mid(1, 2),
              (QStringList{"Reparaciones y conservación", "Compras de mercaderías"}));
    // A refill keeps the order chosen.
    f.Refrescar();
    f.LlenarIyG();
    EXPECT_EQ(Celdas(f.rejilla(), ColTotSubcuenta).at(1), "Reparaciones y conservación");
    f.accion("mnuOrdenar")->trigger();
    EXPECT_EQ(Celdas(f.rejilla(), ColTotSubcuenta), porCuenta);
    // The view shows the grid as it is now.
    EXPECT_EQ(f.tabla()->model()->rowCount(), f.rejilla().Filas());
    EXPECT_EQ(f.tabla()->model()->data(f.tabla()->model()->index(1, 0)).toString(),
              porCuenta.at(1));
}

TEST(Form31, SinApuntesLoDiceYSeCierra) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    QPointer<Form31> f = new Form31(
        e.sesion, *e.ajustes, e.dialogo,
        {QDate(2024, 1, 1), QDate(2024, 12, 31), ClaseIyG::Gastos, QStringLiteral("Nadie")});
    f->show();
    f->LlenarLista();
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgSinRegistrosIyG});
    EXPECT_TRUE(Esperar([&] { return f.isNull(); }));

    Form31 g(e.sesion, *e.ajustes, e.dialogo,
             {QDate(2024, 1, 1), QDate(2024, 12, 31), ClaseIyG::Gastos, {}});
    g.LlenarLista();
    EXPECT_EQ(g.rejilla().Filas(), 4);
    EXPECT_EQ(g.vista()->valorTotal(TotalListaIyG)->text(), "7.000,25");
    EXPECT_EQ(g.asientoDeFila(0), 8);
}

TEST(Form58, ElSectorSeEligeEnForm15) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    Form58 f(e.sesion, *e.ajustes, e.dialogo);
    f.LlenarMeses();
    EXPECT_EQ(Control<QLabel>(&f, "Label1")->text(), "Año 2024");
    const int todas = f.rejilla().Filas();
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form15");
        auto* lista = Control<QListWidget>(w, "List1");
        QStringList sectores;
        for (int i = 0; i < lista->count(); ++i)
            sectores << lista->item(i)->text();
        EXPECT_EQ(sectores, (QStringList{"(Todos los sectores)", "Tienda", "Web"}));
        lista->setCurrentRow(2);
        Pulsar(w, "Command1");
    });
    f.ElegirSector();
    EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "Web");
    EXPECT_EQ(f.seleccion().sector, "Web");
    EXPECT_LT(f.rejilla().Filas(), todas);
    EXPECT_EQ(f.rejilla().Celda(f.rejilla().Filas() - 1, ColMesTotal), "4.399,75");
    // "(Todos los sectores)" takes every line again.
    AlAbrirseModal([](QWidget* w) {
        Control<QListWidget>(w, "List1")->setCurrentRow(0);
        Pulsar(w, "Command1");
    });
    f.ElegirSector();
    EXPECT_EQ(f.seleccion().sector, "");
    EXPECT_EQ(f.rejilla().Filas(), todas);
}

TEST(Form42, VerConSusReglasYUnAnoSinEjercicio) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    Form42 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Comparación entre años]");
    Pulsar(&f, "Command1");
    Control<QComboBox>(&f, "Combo1")->setCurrentText("2");
    Pulsar(&f, "Command1");
    Control<QComboBox>(&f, "Combo2")->setCurrentText("2024");
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados,
              (QStringList{MsgCompNumeroAnos, MsgCompPrimerAno, MsgCompArea}));
    EXPECT_EQ(f.rejilla().Filas(), 0);
    // Nothing to print or export before a comparison stands in the list.
    EXPECT_FALSE(f.accion("mnuImprimir")->isEnabled());
    EXPECT_FALSE(f.accion("mnuCopiar")->isEnabled());
    EXPECT_FALSE(f.accion("mnuExportar")->isEnabled());
    Control<QComboBox>(&f, "Combo3")->setCurrentText("3");
    Pulsar(&f, "Command1");
    ASSERT_EQ(f.rejilla().Filas(), 2);
    EXPECT_TRUE(f.accion("mnuImprimir")->isEnabled());
    EXPECT_TRUE(f.accion("mnuExportar")->isEnabled());
    EXPECT_EQ(f.rejilla().Celda(0, ColCompTotal), "15.500,50");
    EXPECT_EQ(f.rejilla().Celda(1, ColCompAno), "Año 2025 (sin ejercicio)");
    ASSERT_TRUE(f.seleccion());
    EXPECT_EQ(f.seleccion()->anos, (QList<int>{2024, 2025}));
}

TEST(Form40, BotonesGuardanElAspectoYRedibujan) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    Form40 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->count(), 11);
    EXPECT_FALSE(Control<QPushButton>(&f, "Command5")->isEnabled()) << "nothing to print yet";
    QAction* copiar = f.findChild<QAction*>("mnuGraf");
    ASSERT_TRUE(copiar);
    EXPECT_FALSE(copiar->isEnabled()) << "nothing to copy yet";
    ASSERT_TRUE(f.Mostrar(Indice("gastos")));
    EXPECT_TRUE(copiar->isEnabled());
    EXPECT_TRUE(qobject_cast<QBarSeries*>(Serie(f)));
    EXPECT_EQ(f.vista()->chart()->title(), "Pruebas SL. Gastos del ejercicio. Año 2024");

    // "&Circular" on an area: the setting, and a pie at once.
    Pulsar(&f, "Command4");
    EXPECT_EQ(e.ajustes->leer("Valores", "TipoChart"), "Circular");
    auto* pastel = qobject_cast<QPieSeries*>(Serie(f));
    ASSERT_TRUE(pastel);
    EXPECT_EQ(pastel->count(), 3);
    EXPECT_TRUE(f.circularEnVista());

    // Income and expense stay bars, whatever the setting says; "&Circular" on them only writes.
    ASSERT_TRUE(f.Mostrar(Indice("ingresos-gastos")));
    EXPECT_TRUE(qobject_cast<QStackedBarSeries*>(Serie(f)));
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.ajustes->leer("Valores", "TipoChart"), "Barras");
    QChart* antes = f.vista()->chart();
    Pulsar(&f, "Command4");
    EXPECT_EQ(e.ajustes->leer("Valores", "TipoChart"), "Circular");
    EXPECT_EQ(f.vista()->chart(), antes) << "not drawn again";
    EXPECT_FALSE(f.circularEnVista());

    // 3-D and the amounts redraw any chart.
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.ajustes->leer("Valores", "Dimensiones"), "3D");
    EXPECT_TRUE(f.tresDEnVista());
    EXPECT_NE(f.vista()->chart(), antes);
    Pulsar(&f, "Check1");
    EXPECT_EQ(e.ajustes->leer("Valores", "VerImport"), "SI");
    EXPECT_TRUE(f.cantidadesEnVista());
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.ajustes->leer("Valores", "Dimensiones"), "2D");

    // A new window starts with the look kept.
    Form40 g(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_TRUE(Control<QCheckBox>(&g, "Check1")->isChecked());
    EXPECT_TRUE(Control<QPushButton>(&g, "Command4")->isChecked());
    EXPECT_TRUE(Control<QPushButton>(&g, "Command1")->isChecked());

    // The account by month asks Form41 first; cancelled, the chart on show stays, and the list
    // names it.
    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Distribución por meses de una Cuenta");
        Pulsar(w, "Command1");
        Pulsar(w, "Command2");
    });
    EXPECT_FALSE(f.Mostrar(Indice("cuenta")));
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgGrafAreaPrimero});
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentIndex(), Indice("ingresos-gastos"));
    EXPECT_EQ(f.datos()->tipo, TipoGrafico::IngresosGastos);
    // With the pie setting the account by month is a pie of its months with an amount.
    ASSERT_TRUE(f.MostrarCuenta({Caja, "Caja"}));
    EXPECT_TRUE(qobject_cast<QPieSeries*>(Serie(f)));
    EXPECT_EQ(f.vista()->chart()->title(), "     Cuenta: Caja. Año 2024");

    // "Copiar" on the window's menu: the picture on the clipboard.
    QApplication::clipboard()->clear();
    copiar->trigger();
    const QImage copia = QApplication::clipboard()->image();
    EXPECT_FALSE(copia.isNull());
    EXPECT_EQ(copia.size(), f.imagen().size());
}

TEST(Form40, ElGraficoImpresoEsUnaPagina) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    DatosGrafico datos;
    {
        Conexion c = e.datos();
        datos = GraficoMeses(c, e.sesion, EntradasGraficos().at(Indice("meses")));
    }
    ImpresoraGrabadora imp(QSizeF(PaginaA4.height(), PaginaA4.width()));
    DibujoGrafico(datos, {true, false, true})(imp, 1);
    ASSERT_EQ(imp.trazos().size(), 2) << imp.volcado().toStdString();
    const Trazo& figura = imp.trazos().first();
    EXPECT_EQ(figura.tipo, Trazo::Figura);
    EXPECT_EQ(figura.pagina, 1);
    EXPECT_EQ(QRectF(QPointF(figura.x, figura.y), QPointF(figura.x2, figura.y2)),
              QRectF(600, 600, imp.AnchoPagina() - 1200, imp.AltoPagina() - 1200));
    EXPECT_EQ(imp.trazos().last().tipo, Trazo::FinDocumento);

    // On a PDF, one sheet with the chart drawn on it.
    QTemporaryDir dir;
    const QString ruta = dir.filePath("grafico.pdf");
    OpcionesPdf op;
    op.orientacion = OrientacionGrafico;
    EXPECT_EQ(ImprimirPdf(ruta, DibujoGrafico(datos, {}), op), 1);
    // The picture is not blank: the bars of income and expense are in their colours.
    const QImage imagen = ImagenGrafico(datos, {}, QSize(900, 600));
    int verdes = 0, rojos = 0;
    for (int y = 0; y < imagen.height(); y += 3)
        for (int x = 0; x < imagen.width(); x += 3) {
            const QColor c = imagen.pixelColor(x, y);
            verdes += c == QColor(0x2E, 0x7D, 0x32);
            rojos += c == QColor(0xC6, 0x28, 0x28);
        }
    EXPECT_GT(verdes, 100);
    EXPECT_GT(rojos, 100);
}

TEST(Form40, LibrosIntactosTrasDibujarCadaGraficoDeUnEjercicioCerrado) {
    Entorno e;
    AnoDeIngresosYGastos(e);
    const auto [reg, fin] = CerrarComoElCierre(e);
    ASSERT_TRUE(e.sesion.EjCerrado);
    const QByteArray datos = Huella(e.sesion.rutaEjercicio());
    const QByteArray bavar = Huella(e.sesion.rutaBavar());
    ASSERT_FALSE(datos.isEmpty());

    Form40 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    QTemporaryDir dir;
    int dibujos = 0;
    // Every kind, in the flat and the 3-D look, as bars and as pies, with the amounts: on
    // screen, as a picture and on paper.
    for (const bool tresD : {false, true})
        for (const bool circular : {false, true}) {
            GuardarDimensiones(*e.ajustes, tresD);
            GuardarTipoChart(*e.ajustes, circular);
            GuardarVerImport(*e.ajustes, tresD);
            for (int i = 0; i < EntradasGraficos().size(); ++i) {
                const EntradaGrafico& en = EntradasGraficos().at(i);
                const bool hecho = en.tipo == TipoGrafico::Cuenta ? f.MostrarCuenta({Caja, "Caja"})
                                   : en.tipo == TipoGrafico::Anos
                                       ? f.MostrarAnos({true, "1", {}, "1", 2, 2024}, {2024, 2025})
                                       : f.Mostrar(i);
                ASSERT_TRUE(hecho) << en.clave.toStdString();
                EXPECT_EQ(f.circularEnVista(), circular && AdmiteCircular(en.tipo));
                EXPECT_FALSE(f.vista()->grab().isNull());
                EXPECT_FALSE(f.imagen().isNull());
                ImprimirPdf(dir.filePath(QStringLiteral("%1.pdf").arg(dibujos)),
                            DibujoGrafico(*f.datos(), LeerAspectoGrafico(*e.ajustes)));
                ++dibujos;
            }
        }
    EXPECT_EQ(dibujos, 44);
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join("; ").toStdString();
    f.close();

    // Not a byte of the exercise or of the company has changed: the closing entries were read
    // around, never taken out and put back.
    EXPECT_EQ(Huella(e.sesion.rutaEjercicio()), datos);
    EXPECT_EQ(Huella(e.sesion.rutaBavar()), bavar);
    Conexion c = e.datos();
    EXPECT_EQ(
        c.escalar("SELECT NAsReg || '/' || NAsFin || '/' || EjCerrado FROM Empresa").toString(),
        QStringLiteral("%1/%2/-1").arg(reg).arg(fin));
}

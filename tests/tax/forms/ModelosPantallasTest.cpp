// The return windows offscreen: the "Impuestos" menu, the period dialogs, typing in the boxes
// and the recalculation, marks, bank accounts and name filters, the checks giving the focus to
// their field, the draft through the printing hook and the file through the folder hook.

#include "../ComunModelos.h"
#include "forms/Pantallas.h"
#include "platform/ImpresoraGrabadora.h"
#include "posting/forms/Form1.h"
#include "tax/forms/Form109.h"
#include "tax/forms/Form92.h"
#include "tax/forms/Form93.h"
#include "tax/forms/Form94.h"
#include "tax/forms/Form95.h"
#include "tax/forms/Form96.h"
#include "tax/forms/MenusModelos.h"

#include "store/forms/CajaFecha.h"
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QString Texto(const QWidget* f, const QString& campo) {
    auto* e = Control<QLineEdit>(f, campo);
    return e ? e->text() : QStringLiteral("(no existe)");
}

// Types a box and presses Enter.
void Teclear(const QWidget* f, const QString& campo, const QString& texto) {
    Escribir(f, campo, texto);
    if (auto* e = Control<QLineEdit>(f, campo))
        QTest::keyClick(e, Qt::Key_Return);
}

void Fechas(QWidget* w, const QDate& d1, const QDate& d2) {
    Control<CajaFecha>(w, "DTPicker1")->setDate(d1);
    Control<CajaFecha>(w, "DTPicker2")->setDate(d2);
}

// The draft a window printed, on the recording surface.
struct Impreso {
    ImpresoraGrabadora imp;
    QString titulo;
    int veces = 0;
    auto hook() {
        return [this](const DibujoLibro& dibujo, const QString& t) {
            titulo = t;
            ++veces;
            dibujo(imp, 1);
        };
    }
};

} // namespace

TEST(MenusModelos, ImpuestosDesdeElTablero) {
    Empresa2011 e;
    e.venta({2011, 2, 10}, 1000, 18);
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    for (const char* m : {"mnuM300", "mnuM130", "mnuM115", "mnuM347"})
        EXPECT_FALSE(tablero.accion(m)->isEnabled()) << m;
    ConectarModelos(tablero, e.sesion, *e.ajustes, e.dialogo);
    for (const char* m : {"mnuM300", "mnuM130", "mnuM115", "mnuM347"})
        EXPECT_TRUE(tablero.accion(m)->isEnabled()) << m;

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form92");
        EXPECT_EQ(w->windowTitle(), "Modelo 303");
        Fechas(w, {2011, 1, 1}, {2011, 3, 31});
        Pulsar(w, "Command1");
    });
    QPointer<Form109> f = AbrirModelo303(tablero, e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->isVisible());
    EXPECT_EQ(f->windowTitle(), "Quilmar [Modelo 303]");
    EXPECT_EQ(
        QStringList({Texto(f, "Ejercicio"), Texto(f, "Periodo"), Texto(f, "NIF"),
                     Texto(f, "Casilla01"), Texto(f, "Casilla02"), Texto(f, "Casilla03"),
                     Texto(f, "Casilla04"), Texto(f, "Importe")}),
        QStringList({"2011", "1T", "B50123454", "1.000,00", "18,00", "180,00", "", "180,00"}));
    f->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(f) << "the window goes when closed";

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form96");
        Fechas(w, {2011, 2, 1}, {2011, 2, 28});
        Pulsar(w, "Command1");
    });
    QPointer<Form95> f115 = AbrirModelo115(tablero, e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f115);
    EXPECT_EQ(Texto(f115, "Periodo"), "02");
    f115->close();

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form94");
        Fechas(w, {2011, 1, 1}, {2011, 3, 31});
        Pulsar(w, "Command1");
    });
    QPointer<Form93> f130 = AbrirModelo130(tablero, e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f130);
    EXPECT_EQ(Texto(f130, "Casilla01"), "1.000,00");
    EXPECT_EQ(Texto(f130, "Casilla04"), "200,00");
    f130->close();
}

TEST(Form92, FechasInvertidasYEjerciciosAnterioresA2009) {
    Empresa2011 e;
    {
        Form92 f(e.sesion, *e.ajustes, e.dialogo, "303");
        f.show();
        EXPECT_EQ(f.desde(), QDate(2011, 1, 1)) << "the exercise's first quarter";
        EXPECT_EQ(f.hasta(), QDate(2011, 3, 31));
        Fechas(&f, {2011, 4, 1}, {2011, 3, 31});
        Pulsar(&f, "Command1");
        EXPECT_EQ(e.dialogo.informados,
                  QStringList({"La fecha inicial debe ser menor o igual que la final."}));
        EXPECT_TRUE(f.isVisible());
    }
    Empresa2011 viejo(2008);
    Form1 tablero(viejo.sesion, *viejo.ajustes, viejo.dialogo);
    AlAbrirseModal([](QWidget* w) {
        Fechas(w, {2008, 4, 1}, {2008, 3, 31});
        Pulsar(w, "Command1");
    });
    EXPECT_EQ(AbrirModelo303(tablero, viejo.sesion, *viejo.ajustes, viejo.dialogo), nullptr);
    EXPECT_TRUE(viejo.dialogo.informados.isEmpty()) << "before 2009 Aceptar only closes";
}

TEST(Form109, CasillasMarcasCuentasYFiltros) {
    Empresa2011 e;
    Modelo303 m;
    {
        Conexion c = e.datos();
        m = Nuevo303(c, {2011, 1, 1}, {2011, 3, 31}, {2011, 4, 20});
    }
    Recalcular303(m);
    Form109 f(e.sesion, *e.ajustes, e.dialogo, m);
    f.show();
    EXPECT_EQ(Texto(&f, "Casilla21"), "0,00");
    EXPECT_EQ(Texto(&f, "Casilla19"), "");

    // A rate line: the typed point becomes the decimal comma, Enter recalculates.
    Teclear(&f, "Casilla04", "2000");
    Teclear(&f, "Casilla05", "10.5");
    EXPECT_EQ(QStringList({Texto(&f, "Casilla04"), Texto(&f, "Casilla05"), Texto(&f, "Casilla06"),
                           Texto(&f, "Casilla21"), Texto(&f, "Importe")}),
              QStringList({"2.000,00", "10,50", "210,00", "210,00", "210,00"}));
    // Letters never reach a box; what is still no amount is told and undone.
    Escribir(&f, "Casilla41", "1a2");
    EXPECT_EQ(Texto(&f, "Casilla41"), "12");
    Teclear(&f, "Casilla41", "1-2");
    EXPECT_EQ(e.dialogo.informados.value(0),
              "El importe «1-2» no es válido: debe ser un número entre -999.999.999.999,99 y "
              "999.999.999.999,99.");
    EXPECT_EQ(Texto(&f, "Casilla41"), "");
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "Casilla41"));
    Teclear(&f, "Casilla39", "50");
    EXPECT_EQ(Texto(&f, "Casilla40"), "105,00");

    // Marks take an X from the key or a double click, nothing else.
    auto* sin = Control<CajaMarca>(&f, "SinActividad");
    Escribir(&f, "SinActividad", "a");
    EXPECT_EQ(sin->text(), "");
    Escribir(&f, "SinActividad", "x");
    EXPECT_EQ(sin->text(), "X");
    QTest::keyClick(sin, Qt::Key_Backspace);
    EXPECT_EQ(sin->text(), "");
    QTest::mouseDClick(Control<CajaMarca>(&f, "InscritoNo"), Qt::LeftButton);
    EXPECT_EQ(Texto(&f, "InscritoNo"), "X");
    // Payment marks: a click marks one and clears the other.
    QTest::mouseClick(Control<CajaMarca>(&f, "Efectivo"), Qt::LeftButton);
    QTest::mouseClick(Control<CajaMarca>(&f, "Adeudo"), Qt::LeftButton);
    EXPECT_EQ(QStringList({Texto(&f, "Efectivo"), Texto(&f, "Adeudo")}), QStringList({"", "X"}));

    // Accounts take digits only; names are raised to capitals and filtered.
    Escribir(&f, "CuentaCargoEntidad", "21a00");
    Escribir(&f, "CuentaCargoSucursal", "0418");
    EXPECT_EQ(Texto(&f, "CuentaCargoEntidad"), "2100");
    Escribir(&f, "Apellidos", "muñoz & cía/");
    Escribir(&f, "Nombre", "josé 2");
    Escribir(&f, "Periodo", "1t");
    EXPECT_EQ(QStringList({Texto(&f, "Apellidos"), Texto(&f, "Nombre"), Texto(&f, "Periodo")}),
              QStringList({"MUÑOZ & CIA", "JOSE ", "1T"}));

    // A result that is no longer positive takes the payment away.
    Teclear(&f, "Casilla23", "300");
    EXPECT_EQ(
        QStringList({Texto(&f, "Importe"), Texto(&f, "Adeudo"), Texto(&f, "CuentaCargoEntidad")}),
        QStringList({"", "", ""}));
    EXPECT_EQ(Texto(&f, "Casilla48"), "-45,00") << "half of 210 - 300";

    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados.last(), MsgModeloOficial303);
    EXPECT_FALSE(Control<QPushButton>(&f, "Command4")->isEnabled()) << "no help pages";
}

TEST(Form109, PresentacionInternetConFocoEnElFalloYArchivoCopiado) {
    Empresa2011 e;
    e.venta({2011, 5, 10}, 1000, 18);
    e.compra({2011, 5, 11}, 100, 21);
    Modelo303 m;
    {
        Conexion c = e.datos();
        m = Nuevo303(c, {2011, 5, 1}, {2011, 5, 31}, {2011, 6, 20});
        Llenar303(c, m);
    }
    m.periodo = "5";
    Form109 f(e.sesion, *e.ajustes, e.dialogo, m);
    const QString destino = e.destino();
    f.elegirCarpeta = [destino] {
        return destino;
    };
    f.show();
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Debe indicar si está inscrito en el Registro de devolución mensual"}));
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "InscritoSi"));

    Escribir(&f, "InscritoSi", "X");
    e.dialogo.informados.clear();
    Pulsar(&f, "Command3");
    EXPECT_EQ(Texto(&f, "Periodo"), "05");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"Si se trata de un ingreso debe consignar la forma de pago."}));
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "Efectivo"));

    // A box typed without Enter is taken before the checks.
    QTest::mouseClick(Control<CajaMarca>(&f, "Efectivo"), Qt::LeftButton);
    Escribir(&f, "Casilla41", "9");
    e.dialogo.informados.clear();
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.dialogo.informados.value(0), MsgValidadorAusente);
    EXPECT_EQ(e.dialogo.informados.size(), 3);
    const QByteArray fichero = LeerFichero(destino + "/303-B50123454.txt");
    EXPECT_EQ(fichero, Fichero303(f.modelo()));
    EXPECT_EQ(TextoCasilla(f.modelo().importe), "150,00") << "180 - 21 - 9";
    EXPECT_EQ(fichero.size(), 1352) << "the 9 of box 41 is a character short";

    Impreso impreso;
    f.imprimir = impreso.hook();
    Pulsar(&f, "Command1");
    EXPECT_EQ(impreso.titulo, "Modelo 303");
    EXPECT_TRUE(impreso.imp.buscar("Periodo: 01/05/2011 a 31/05/2011"));
    EXPECT_TRUE(impreso.imp.buscar("Al 21%"));
    EXPECT_TRUE(impreso.imp.buscar("9,00")) << "box 41";
}

TEST(Form94, ActividadesYSectores) {
    Empresa2011 e;
    e.datos().ejecutar("INSERT INTO Sectores (Sector) VALUES ('Granja'), ('Tienda')");
    Form94 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Modelo 130");
    EXPECT_TRUE(f.Check1->isChecked());
    EXPECT_EQ(f.desde(), QDate(2011, 1, 1));
    EXPECT_FALSE(f.Combo3->isEnabled());
    f.Check1->setChecked(false);
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.value(0),
              "Tiene que seleccionar las actividades que se van a incluir en el pago "
              "fraccionado.");
    f.Check2->setChecked(true);
    Fechas(&f, {2011, 4, 15}, {2011, 6, 30});
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.value(1),
              "La fecha inicial debe ser principio de trimestre natural.");
    EXPECT_TRUE(f.isVisible());

    // Sectors travel only when their box is ticked; one not chosen travels as "MMM".
    f.Combo3->setCurrentText("Granja");
    EXPECT_EQ(f.actividades().sectoresII[0], "MMM");
    f.Check4->setChecked(true);
    EXPECT_TRUE(f.Combo3->isEnabled());
    f.Combo3->setCurrentText("Granja");
    const Actividades130 a = f.actividades();
    EXPECT_EQ(a.Modo(), 2);
    EXPECT_EQ(QStringList({a.sectoresII[0], a.sectoresII[1], a.sectoresI[0]}),
              QStringList({"Granja", "MMM", "MMM"}));
    Fechas(&f, {2011, 4, 1}, {2011, 6, 30});
    Pulsar(&f, "Command1");
    EXPECT_EQ(f.result(), QDialog::Accepted);
}

TEST(Form93, TopeDeViviendaYComprobaciones) {
    Empresa2011 e;
    Modelo130 m;
    {
        Conexion c = e.datos();
        m = Nuevo130(c, {2011, 1, 1}, {2011, 3, 31}, {2011, 4, 20});
    }
    Form93 f(e.sesion, *e.ajustes, e.dialogo, m);
    f.show();
    Teclear(&f, "Casilla01", "50000");
    Teclear(&f, "Casilla13", "-50");
    EXPECT_EQ(QStringList({Texto(&f, "Casilla04"), Texto(&f, "Casilla13"), Texto(&f, "Casilla14"),
                           Texto(&f, "Importe")}),
              QStringList({"10.000,00", "50,00", "9.950,00", "9.950,00"}));
    Teclear(&f, "Casilla16", "700");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"La deducción por adquisición de vivienda habitual no puede ser "
                           "superior a 660,14 euros"}));
    EXPECT_EQ(Texto(&f, "Casilla16"), "660,14");
    EXPECT_EQ(Texto(&f, "Casilla17"), "9.289,86");

    e.dialogo.informados.clear();
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados, QStringList({"Debe introducir el nombre."}));
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "Nombre"));
    EXPECT_FALSE(QFile::exists(e.ruta("Modtr/Gen130.txt")));

    Impreso impreso;
    f.imprimir = impreso.hook();
    Pulsar(&f, "Command1");
    EXPECT_EQ(impreso.titulo, "Modelo 130");
    EXPECT_TRUE(impreso.imp.buscar("660,14"));
}

TEST(Form95, ResultadoSinNegativosYOficinaObligatoria) {
    Empresa2011 e;
    e.alquiler({2011, 1, 5}, 800, 152);
    Modelo115 m;
    {
        Conexion c = e.datos();
        m = Nuevo115(c, {2011, 1, 1}, {2011, 3, 31}, {2011, 4, 20});
        Llenar115(c, m);
    }
    Form95 f(e.sesion, *e.ajustes, e.dialogo, m);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Modelo 115]");
    EXPECT_EQ(QStringList({Texto(&f, "Casilla02"), Texto(&f, "Casilla03"), Texto(&f, "Casilla05"),
                           Texto(&f, "Importe")}),
              QStringList({"800,00", "152,00", "152,00", "152,00"}));
    Teclear(&f, "Casilla04", "200");
    EXPECT_EQ(QStringList({Texto(&f, "Casilla05"), Texto(&f, "Importe")}),
              QStringList({"0,00", "0,00"}));
    Escribir(&f, "Casilla01", "3x");
    EXPECT_EQ(Texto(&f, "Casilla01"), "3");

    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"El código de la Administración debe consignarse con 5 cifras."}));
    EXPECT_EQ(f.focusWidget(), Control<QLineEdit>(&f, "Administracion"));

    Escribir(&f, "Administracion", "50001");
    const QString destino = e.destino();
    f.elegirCarpeta = [destino] {
        return destino;
    };
    Pulsar(&f, "Command2");
    const QByteArray fichero = LeerFichero(destino + "/115-B50123454.txt");
    ASSERT_EQ(fichero.size(), 753);
    EXPECT_EQ(fichero.mid(6, 6), "N50001") << "a result of 0";
    EXPECT_EQ(fichero.mid(154, 6), "000003");
}

TEST(Form96, FechasDeDosAnos) {
    Empresa2011 e;
    Form96 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    Fechas(&f, {2011, 12, 1}, {2012, 1, 31});
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"La fecha inicial y final deben pertenecer al mismo año."}));
    EXPECT_TRUE(f.isVisible());
}

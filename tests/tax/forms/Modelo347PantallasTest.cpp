// The Modelo 347 windows offscreen: the menu entry through Form98 and its limit, the sheets and
// their paging, lines typed in order, the checks moving to their sheet, line and field, the
// property's address from the street tables (Form108), the draft and the file.

#include "../Comun347.h"
#include "forms/Pantallas.h"
#include "platform/ImpresoraGrabadora.h"
#include "posting/forms/Form1.h"
#include "tax/Fichero347.h"
#include "tax/forms/Form108.h"
#include "tax/forms/Form97.h"
#include "tax/forms/Form98.h"
#include "tax/forms/MenusModelos.h"

#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QString Texto(const QWidget* f, const QString& campo) {
    auto* e = Control<QLineEdit>(f, campo);
    return e ? e->text() : QStringLiteral("(no existe)");
}

// Types a field and leaves it with Enter.
void Teclear(const QWidget* f, const QString& campo, const QString& texto) {
    Escribir(f, campo, texto);
    if (auto* e = Control<QLineEdit>(f, campo))
        QTest::keyClick(e, Qt::Key_Return);
}

QString Foco(const QWidget* f) {
    return f->focusWidget() ? f->focusWidget()->objectName() : QString();
}

// A window over a return of 2010, its file going to a folder of the test.
struct Ventana347 : Empresa347 {
    Modelo347 m = Modelo347Valido();
    std::unique_ptr<Form97> f;
    void abrir() {
        f = std::make_unique<Form97>(sesion, *ajustes, dialogo, m);
        f->plataforma.candidatosJava = {};
        const QString d = destino();
        f->elegirCarpeta = [d] {
            return d;
        };
        f->show();
    }
};

} // namespace

TEST(Modelo347Pantallas, DelMenuConElLimiteDeForm98) {
    Empresa347 e;
    e.tercero("443000101", "Hosteleria del Pilar SL", "B50987650", "Zaragoza");
    e.factura({2010, 1, 10}, "443000101", 3000, 18); // 3.540
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    ConectarModelos(tablero, e.sesion, *e.ajustes, e.dialogo);

    AlAbrirseModal([&e](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form98");
        EXPECT_EQ(w->windowTitle(), "Modelo 347");
        EXPECT_EQ(Texto(w, "Text1"), "3005,06");
        EXPECT_EQ(Control<QDateEdit>(w, "DTPicker1")->date(), QDate(2010, 1, 1));
        EXPECT_EQ(Control<QDateEdit>(w, "DTPicker2")->date(), QDate(2010, 12, 31));
        Control<QDateEdit>(w, "DTPicker2")->setDate({2011, 1, 31});
        Pulsar(w, "Command1");
        Control<QDateEdit>(w, "DTPicker2")->setDate({2010, 12, 31});
        Escribir(w, "Text1", "");
        Pulsar(w, "Command1");
        EXPECT_TRUE(w->isVisible()) << "Form98 stays until its checks pass";
        Escribir(w, "Text1", "3539.99");
        Pulsar(w, "Command1");
    });
    QPointer<Form97> f = AbrirModelo347(tablero, e.sesion, *e.ajustes, e.dialogo);
    ASSERT_TRUE(f);
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgFechasOtroAno, MsgLimite347}));
    EXPECT_EQ(e.ajustes->leer("Datos", "Lim347", ""), "3.539,99") << "kept as shown";
    EXPECT_EQ(f->windowTitle(), "Quilmar [Modelo 347]");
    EXPECT_EQ(f->hoja(), Hoja347::Resumen);
    EXPECT_EQ(QStringList({Texto(f, "NIF"), Texto(f, "Nombre"), Texto(f, "Ejercicio"),
                           Texto(f, "NumDeclarados"), Texto(f, "TotalDeclarados")}),
              QStringList({"B50123454", "MUÑOZ GARCÍA SL", "2010", "1", "3.540,00"}));
    f->Siguiente();
    EXPECT_EQ(Texto(f, "NombreDeclarado1"), "HOSTELERIA DEL PILAR SL");
    f->close();
}

TEST(Modelo347Pantallas, HojasDeCincoYLineasSinHuecos) {
    Ventana347 v;
    for (int i = 0; i < 3; ++i) {
        Declarado347 d = v.m.declarados[1];
        d.nif = QString("B5033333%1").arg(i);
        v.m.declarados.append(d);
    }
    v.abrir();
    Form97* f = v.f.get();
    EXPECT_EQ(f->findChild<QLabel*>("Titulo")->text(), "Hoja resumen");
    Pulsar(f, "Command4");
    EXPECT_EQ(f->etiquetaHoja->text(), "Hoja nº 1 / 2");
    EXPECT_EQ(f->findChild<QLabel*>("Titulo")->text(), "Relación de declarados");
    EXPECT_EQ(Texto(f, "NifDeclarado1"), "A50111111");
    EXPECT_EQ(Texto(f, "Importe1"), "12.000,50");
    EXPECT_EQ(Texto(f, "Arrendamiento3"), "X");
    Pulsar(f, "Command4");
    EXPECT_EQ(f->etiquetaHoja->text(), "Hoja nº 2 / 2");
    EXPECT_EQ(Texto(f, "NifDeclarado1"), "B50333332") << "the sixth party";
    EXPECT_EQ(Texto(f, "NifDeclarado2"), "");

    // A line after the free one is refused; the next free line takes the typing.
    Teclear(f, "NifDeclarado3", "B99");
    EXPECT_EQ(v.dialogo.informados.last(), MsgRegistrosEnBlanco);
    EXPECT_EQ(Texto(f, "NifDeclarado3"), "");
    EXPECT_EQ(Foco(f), "NifDeclarado2");
    EXPECT_EQ(f->modelo().declarados.size(), 6);
    Teclear(f, "NifDeclarado2", "b-12");
    EXPECT_EQ(Texto(f, "NifDeclarado2"), "B12") << "capitals, and no hyphen in a NIF";
    Teclear(f, "Clave2", "h");
    EXPECT_EQ(Texto(f, "Clave2"), "");
    Teclear(f, "Clave2", "b");
    Teclear(f, "Importe2", "1500.5"); // the point is the decimal mark
    ASSERT_EQ(f->modelo().declarados.size(), 7);
    EXPECT_EQ(f->modelo().declarados[6].nif, "B12");
    EXPECT_EQ(f->modelo().declarados[6].clave, "B");
    EXPECT_EQ(f->modelo().declarados[6].importe, 1500.5);
    EXPECT_EQ(Texto(f, "Importe2"), "1.500,50");

    // Removing a party moves the rest up.
    v.dialogo.responder({true});
    Pulsar(f, "Quitar1");
    EXPECT_EQ(v.dialogo.preguntas.last(),
              "¿Desea quitar de la declaración el Declarado 1 de la página 2?");
    EXPECT_EQ(Texto(f, "NifDeclarado1"), "B12");
    EXPECT_EQ(f->modelo().declarados.size(), 6);

    // After the parties, the properties; the last sheet ends the way forward.
    Pulsar(f, "Command4");
    EXPECT_EQ(f->hoja(), Hoja347::Inmuebles);
    EXPECT_EQ(f->etiquetaHoja->text(), "Hoja nº 1 / 1");
    EXPECT_EQ(Texto(f, "NifArrendatario1"), "25123456G");
    EXPECT_FALSE(f->Command4->isEnabled());
    Pulsar(f, "Command1");
    EXPECT_EQ(f->hoja(), Hoja347::Resumen);
    Pulsar(f, "Command2");
    EXPECT_EQ(f->hoja(), Hoja347::Inmuebles);
}

TEST(Modelo347Pantallas, LasComprobacionesLlevanALaHojaLineaYCampo) {
    Ventana347 v;
    for (int i = 0; i < 4; ++i)
        v.m.declarados.append(v.m.declarados[1]);
    v.m.declarados[6].clave.clear();
    v.m.numDeclarados = "7";
    v.m.totalDeclarados = 25700.5 + 4 * 4100;
    v.m.contacto.clear();
    v.abrir();
    Form97* f = v.f.get();
    f->IrAHoja(Hoja347::Inmuebles);
    Pulsar(f, "Command7");
    EXPECT_EQ(v.dialogo.informados.last(),
              "Debe consignar nombre y apellidos de la persona que firma la declaración o "
              "persona de contacto.");
    EXPECT_EQ(f->hoja(), Hoja347::Resumen);
    EXPECT_EQ(Foco(f), "Contacto");
    EXPECT_EQ(Texto(f, "Telematico"), "X") << "the button's mark";

    Teclear(f, "Contacto", "ana pérez");
    Pulsar(f, "Command7");
    EXPECT_EQ(v.dialogo.informados.last(),
              "Falta la Clave de Operación del Declarado 2 de la página 2.");
    EXPECT_EQ(f->hoja(), Hoja347::Declarados);
    EXPECT_EQ(f->pagina(), 1);
    EXPECT_EQ(Foco(f), "Clave2");

    Teclear(f, "Clave2", "B");
    v.dialogo.informados.clear();
    Pulsar(f, "Command7");
    EXPECT_EQ(v.dialogo.informados.value(0), MsgSinPlataforma347);
    const QByteArray fichero = LeerFichero(v.destino() + "/347-B50123454.txt");
    ASSERT_EQ(fichero.size(), 9 * 502);
    EXPECT_EQ(fichero.mid(67, 9), "ANA P\xC9REZ") << "as typed, in capitals";
}

TEST(Modelo347Pantallas, DomicilioDelInmuebleDesdeLasTablasDeVias) {
    Ventana347 v;
    v.abrir();
    Form97* f = v.f.get();
    f->IrAHoja(Hoja347::Inmuebles);
    Pulsar(f, "Domicilio2a");
    EXPECT_EQ(v.dialogo.informados.last(), "Debe introducir primero el NIF del declarado");
    EXPECT_EQ(Foco(f), "NifArrendatario2");

    AlAbrirseModal([](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form108");
        auto* situacion = Control<QComboBox>(w, "Situacion");
        auto* tipo = Control<QComboBox>(w, "TipoVia");
        auto* provincia = Control<QComboBox>(w, "ProvinciaInm");
        auto* municipio = Control<QComboBox>(w, "Municipio");
        EXPECT_EQ(situacion->currentIndex(), 0);
        EXPECT_EQ(situacion->count(), 4);
        EXPECT_EQ(tipo->currentText(), "CALLE");
        EXPECT_EQ(provincia->currentText(), "ZARAGOZA");
        EXPECT_EQ(municipio->currentData().toString(), "50297");
        EXPECT_EQ(Texto(w, "Via"), "COSO");
        // Another province brings its own towns.
        provincia->setCurrentIndex(provincia->findData("22"));
        EXPECT_EQ(municipio->count(), 2) << "the empty entry and Huesca";
        municipio->setCurrentIndex(municipio->findText("HUESCA"));
        tipo->setCurrentIndex(tipo->findText("AVENIDA"));
        situacion->setCurrentIndex(1);
        Escribir(w, "Via", "pirineos");
        Pulsar(w, "Command1");
    });
    Pulsar(f, "Domicilio1b");
    const Inmueble347& i = f->modelo().inmuebles[0];
    EXPECT_EQ(QStringList({i.situacion, i.tipoVia, i.via, i.municipio, i.codMunicipio, i.provincia,
                           i.codProvincia, i.numero}),
              QStringList({"2", "AV", "PIRINEOS", "HUESCA", "22125", "HUESCA", "22", "60"}));
    EXPECT_EQ(QStringList({Texto(f, "TipoVia1"), Texto(f, "Via1"), Texto(f, "Municipio1"),
                           Texto(f, "CodProvincia1"), Texto(f, "Situacion1")}),
              QStringList({"AV", "PIRINEOS", "HUESCA", "22", "2"}));

    // The draft goes through the printing hook, landscape columns and all.
    ImpresoraGrabadora imp(QSizeF(PaginaA4.height(), PaginaA4.width()));
    QString titulo;
    f->imprimir = [&](const DibujoLibro& dibujo, const QString& t) {
        titulo = t;
        dibujo(imp, 1);
    };
    Pulsar(f, "Command5");
    EXPECT_EQ(titulo, "Modelo 347");
    EXPECT_TRUE(imp.buscar("AV PIRINEOS")) << imp.volcado().toStdString();
    EXPECT_TRUE(imp.buscar("Total Inmuebles declarados: "));
}

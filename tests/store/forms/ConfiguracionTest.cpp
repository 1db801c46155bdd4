// Configuration, the kind of installation and the welcome screen: what each writes, at once.

#include "Entorno.h"
#include "ServidorPruebas.h"
#include "forms/Pantallas.h"
#include "store/Instalacion.h"
#include "store/ListasEmpresas.h"
#include "store/Migracion.h"
#include "store/forms/Form102.h"
#include "store/forms/Form36.h"
#include "store/forms/Form54.h"
#include "store/forms/Form70.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

TEST(Form54, CadaEleccionSeGuardaAlMomento) {
    Entorno e;
    Form54 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Configuración]");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo1")->currentText(), "Arial");
    EXPECT_EQ(Control<QComboBox>(&f, "Combo3")->itemText(0), "Predeterminada del sistema");
    EXPECT_FALSE(e.ajustes->existe("Valores", "NLetra"));

    Control<QComboBox>(&f, "Combo1")->setCurrentText("Courier New");
    Control<QComboBox>(&f, "Combo2")->setCurrentText("12");
    EXPECT_EQ(e.ajustes->leer("Valores", "NLetra"), "Courier New");
    EXPECT_EQ(e.ajustes->leer("Valores", "TLetra"), "12");
    EXPECT_EQ(e.sesion.TamanoLetra, 12);
    Pulsar(&f, "Command1");
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.ajustes->leer("Valores", "NLetra"), "Arial");
    EXPECT_EQ(e.ajustes->leer("Valores", "TLetra"), "9");

    Pulsar(&f, "Command4");
    EXPECT_EQ(e.ajustes->leer("Valores", "NFImprimir"), "Arial Narrow");
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.ajustes->leer("Valores", "NFImprimir"), "Arial");

    QSignalSpy area(&f, &Form54::areaCambiada);
    EXPECT_TRUE(Control<QRadioButton>(&f, "Option3")->isChecked());
    Pulsar(&f, "Option4");
    EXPECT_EQ(e.ajustes->leer("Valores", "CArea"), "Plan");
    EXPECT_EQ(e.sesion.CArea, "Plan");
    EXPECT_EQ(area.count(), 1);

    // The location: this computer, until Modificar makes it a client of another folder.
    EXPECT_TRUE(Control<QRadioButton>(&f, "Option1")->isChecked());
    EXPECT_EQ(Control<QLabel>(&f, "Label5")->text(), "");
    QTemporaryDir servidor;
    AlAbrirseModal([&](QWidget* w) {
        EXPECT_EQ(w->objectName(), "Form102");
        Pulsar(w, "Option2");
        Escribir(w, "Text1", servidor.path());
        Pulsar(w, "Aceptar");
    });
    Pulsar(&f, "Command5");
    EXPECT_EQ(LeerPLoc(e.sesion), servidor.path());
    EXPECT_TRUE(Control<QRadioButton>(&f, "Option2")->isChecked());
    EXPECT_EQ(Control<QLabel>(&f, "Label5")->text(), QDir::toNativeSeparators(servidor.path()));
}

TEST(Form102, AlAbrirseDejaUnaInstalacionPrincipal) {
    Entorno e;
    QFile::remove(e.sesion.rutaPLoc());
    e.sesion.DataPath.clear();
    Form102 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(LeerPLoc(e.sesion), e.dir.path()) << "closing it now leaves a main installation";
    EXPECT_EQ(e.sesion.DataPath, e.dir.path());
    EXPECT_FALSE(Control<QLineEdit>(&f, "Text1")->isEnabled());

    // A browse that returns nothing leaves the field and says why.
    f.buscarCarpeta = [](QWidget*) {
        return QString();
    };
    Pulsar(&f, "Option2");
    Escribir(&f, "Text1", "/no/existe");
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "No se ha seleccionado la carpeta donde esté "
                                               "instalado el programa Servidor o principal.");
    EXPECT_EQ(Control<QLineEdit>(&f, "Text1")->text(), "/no/existe");
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.dialogo.informados.size(), 1) << "a folder that doesn't exist is refused";
    EXPECT_TRUE(f.isVisible());
    EXPECT_EQ(LeerPLoc(e.sesion), e.dir.path());
}

// The third way, refused field by field and by the cause of a failed connection, in Spanish;
// nothing is saved until the server answers.
TEST(Form102, ServidorPostgreSQLRechazadoPorSuCausa) {
    Entorno e;
    if (e.sesion.enServidor())
        GTEST_SKIP() << "la pantalla parte de una instalación de archivos";
    Form102 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_FALSE(Control<QLineEdit>(&f, "TextBase")->isEnabled());
    Pulsar(&f, "Option3");
    EXPECT_TRUE(Control<QLineEdit>(&f, "TextBase")->isEnabled());
    EXPECT_FALSE(Control<QLineEdit>(&f, "Text1")->isEnabled());
    EXPECT_EQ(Control<QLineEdit>(&f, "TextPuerto")->text(), "5432");

    auto aceptar = [&](const QString& host, const QString& puerto, const QString& base,
                       const QString& usuario) {
        e.dialogo = DialogoGuion();
        Escribir(&f, "TextServidor", host);
        Escribir(&f, "TextPuerto", puerto);
        Escribir(&f, "TextBase", base);
        Escribir(&f, "TextUsuario", usuario);
        Pulsar(&f, "Aceptar");
        EXPECT_TRUE(f.isVisible());
        EXPECT_FALSE(e.ajustes->existe("Datos", "Servidor"));
        EXPECT_FALSE(e.sesion.enServidor());
        return e.dialogo.informados.value(0);
    };
    EXPECT_EQ(aceptar("", "5432", "quilmar", "ana"),
              "Indique el nombre o la dirección del servidor.");
    EXPECT_EQ(aceptar("mi servidor", "5432", "quilmar", "ana"),
              "Indique el nombre o la dirección del servidor.");
    EXPECT_EQ(aceptar("localhost", "0", "quilmar", "ana"),
              "El puerto del servidor es un número del 1 al 65535.");
    EXPECT_EQ(aceptar("localhost", "5432", "", "ana"),
              "Indique el nombre de la base de datos del servidor.");
    EXPECT_EQ(aceptar("localhost", "5432", "quilmar", "a@b"), "Indique el usuario del servidor.");
    // Nothing listens on port 1.
    EXPECT_TRUE(aceptar("127.0.0.1", "1", "quilmar", "ana")
                    .startsWith("No se puede llegar al servidor de bases de datos 127.0.0.1:1."));

    SALTAR_SIN_SERVIDOR();
    const Servidor prueba = Servidor::DeUrl(ServidorPruebas::instancia().nuevaBase());
    const QString puerto = QString::number(prueba.puerto);
    EXPECT_EQ(aceptar("127.0.0.1", puerto, "no_hay_tal", prueba.usuario),
              QStringLiteral("El servidor 127.0.0.1:%1 no tiene ninguna base de datos llamada "
                             "no_hay_tal. Compruebe el nombre, o pida a quien lo administra que "
                             "la cree.")
                  .arg(puerto));
    EXPECT_TRUE(
        aceptar("127.0.0.1", puerto, prueba.base, "nadie").contains("no admite al usuario nadie"));
    // A database with no installation yet: copying this one's companies there is declined.
    e.dialogo = DialogoGuion();
    EXPECT_EQ(aceptar("127.0.0.1", puerto, prueba.base, prueba.usuario),
              "No se ha elegido el servidor: no tiene ninguna instalación de Quilmar.");
    EXPECT_EQ(e.dialogo.preguntas.size(), 1);
}

// A server that answers is saved without password, and the session goes onto it; the files way
// takes it back.
TEST(Form102, ServidorPostgreSQLElegidoYDejado) {
    SALTAR_SIN_SERVIDOR();
    Entorno e;
    if (e.sesion.enServidor())
        GTEST_SKIP() << "la pantalla parte de una instalación de archivos";
    e.crearEmpresa("007", 2026, "Servida SL");
    const QString url = ServidorPruebas::instancia().nuevaBase();
    const Servidor servidor = Servidor::DeUrl(url);
    {
        Form102 f(e.sesion, *e.ajustes, e.dialogo);
        f.show();
        QSignalSpy cambio(&f, &Form102::ubicacionCambiada);
        Pulsar(&f, "Option3");
        Escribir(&f, "TextServidor", servidor.host);
        Escribir(&f, "TextPuerto", QString::number(servidor.puerto));
        Escribir(&f, "TextBase", servidor.base);
        Escribir(&f, "TextUsuario", servidor.usuario);
        // The empty database takes this installation's companies first.
        e.dialogo.responder({true});
        Pulsar(&f, "Aceptar");
        EXPECT_FALSE(f.isVisible()) << e.dialogo.informados.join('\n').toStdString();
        EXPECT_EQ(cambio.count(), 1);
    }
    EXPECT_EQ(e.ajustes->leer("Datos", "Servidor"), url);
    EXPECT_EQ(e.sesion.UrlServidor, url);
    ASSERT_EQ(EmpresasDe(e.sesion).size(), 1);
    EXPECT_EQ(EmpresasDe(e.sesion).first().Nombre, "Servida SL");
    {
        // Opened again it shows the choice; the main installation leaves the server.
        Form102 f(e.sesion, *e.ajustes, e.dialogo);
        f.show();
        EXPECT_TRUE(Control<QRadioButton>(&f, "Option3")->isChecked());
        EXPECT_EQ(Control<QLineEdit>(&f, "TextBase")->text(), servidor.base);
        Pulsar(&f, "Option1");
        Pulsar(&f, "Aceptar");
        EXPECT_FALSE(f.isVisible());
    }
    EXPECT_FALSE(e.ajustes->existe("Datos", "Servidor"));
    EXPECT_FALSE(e.sesion.enServidor());
    EXPECT_EQ(LeerPLoc(e.sesion), e.dir.path());
}

TEST(Form36, NoVerMasEstaPantalla) {
    Entorno e;
    EXPECT_TRUE(Form36::SeMuestra(*e.ajustes));
    {
        Form36 f(*e.ajustes);
        f.show();
        Pulsar(&f, "Aceptar");
    }
    EXPECT_TRUE(Form36::SeMuestra(*e.ajustes));
    Form36 f(*e.ajustes);
    f.show();
    Pulsar(&f, "Check1");
    EXPECT_TRUE(Control<QCheckBox>(&f, "Check1")->isChecked());
    Pulsar(&f, "Aceptar");
    EXPECT_EQ(e.ajustes->leer("Inicio", "Presenta"), "NO");
    EXPECT_FALSE(Form36::SeMuestra(*e.ajustes));
}

TEST(Ventanas, GuardanSuTamanoYLaLetraDeLaPantalla) {
    Entorno e;
    e.ajustes->escribir("Valores", "NLetra", "Courier New");
    e.ajustes->escribir("Valores", "TLetra", "11");
    {
        Form70 f(e.sesion, *e.ajustes, e.dialogo);
        EXPECT_EQ(f.font().family(), "Courier New");
        EXPECT_EQ(f.font().pointSize(), 11);
        f.show();
        f.resize(700, 420);
        f.close();
    }
    EXPECT_EQ(e.ajustes->leer("Opciones", "WF70"), "700");
    EXPECT_EQ(e.ajustes->leer("Opciones", "HF70"), "420");
    Form70 f(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_EQ(f.size(), QSize(700, 420));
    // A size larger than the screen is left as designed.
    e.ajustes->escribir("Opciones", "WF70", "99999");
    Form70 g(e.sesion, *e.ajustes, e.dialogo);
    EXPECT_LT(g.width(), 99999);
    EXPECT_EQ(g.height(), 420);
}

} // namespace

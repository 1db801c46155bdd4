// Configuration, the kind of installation and the welcome screen: what each writes, at once.

#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Instalacion.h"
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

// What start-up decides before the board: one copy per installation, and the kind of
// installation.

#include "store/Arranque.h"
#include "Entorno.h"
#include "store/Instalacion.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

TEST(Arranque, UnaSolaCopiaPorInstalacion) {
    QTemporaryDir uno, dos;
    {
        InstanciaUnica primera(uno.path());
        EXPECT_TRUE(primera.conseguida());
        InstanciaUnica segunda(uno.path());
        EXPECT_FALSE(segunda.conseguida());
        InstanciaUnica otraCarpeta(dos.path());
        EXPECT_TRUE(otraCarpeta.conseguida()) << "each --datos folder is an installation";
    }
    InstanciaUnica despues(uno.path());
    EXPECT_TRUE(despues.conseguida()) << "the first copy is gone";
}

TEST(Arranque, PrimerPLocYEleccionDeInstalacion) {
    QTemporaryDir dir, servidor;
    Sesion s;
    s.AppPath = dir.path();
    ASSERT_FALSE(ExistePLoc(s));
    PLocInicial(s);
    EXPECT_EQ(LeerPLoc(s), dir.path());
    EXPECT_EQ(s.DataPath, dir.path());
    EXPECT_TRUE(s.esPrincipal());

    ElegirInstalacion(s, false, "  " + servidor.path() + " ");
    EXPECT_EQ(LeerPLoc(s), servidor.path());
    EXPECT_EQ(s.DataPath, servidor.path());
    EXPECT_FALSE(s.esPrincipal());

    // A client without a folder that exists changes nothing.
    for (const QString& mal : {QString(), QString("   "), dir.filePath("no-existe")}) {
        try {
            ElegirInstalacion(s, false, mal);
            ADD_FAILURE() << mal.toStdString();
        } catch (const Rechazo& r) {
            EXPECT_EQ(r.mensaje(), "No se ha seleccionado la carpeta donde esté instalado el "
                                   "programa Servidor o principal.");
        }
    }
    EXPECT_EQ(LeerPLoc(s), servidor.path());

    // An existing PLoc.dat is not rewritten when the question opens again.
    PLocInicial(s);
    EXPECT_EQ(LeerPLoc(s), servidor.path());
    ElegirInstalacion(s, true);
    EXPECT_EQ(LeerPLoc(s), dir.path());
    EXPECT_TRUE(s.esPrincipal());
}

} // namespace

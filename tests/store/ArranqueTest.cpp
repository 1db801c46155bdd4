// What start-up decides before the board: one copy per installation, and the kind of
// installation.

#include "store/Arranque.h"
#include "Entorno.h"
#include "store/Instalacion.h"

#include "platform/Errores.h"
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

// PLoc.dat is read only when it names a folder that exists, by an absolute path: anything else
// would put companies in the current folder or under a garbage name.
TEST(Arranque, PLocDanadoSeDiceYLaPreguntaLoRepara) {
    QTemporaryDir dir;
    Sesion s;
    s.AppPath = dir.path();
    auto escribir = [&](const QByteArray& b) {
        QFile f(s.rutaPLoc());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(b);
    };
    auto leido = [&]() -> QString {
        try {
            return CarpetaDatos(s);
        } catch (const ErrorAlmacen& e) {
            return e.mensaje();
        }
    };
    for (const QByteArray& danado :
         {QByteArray(), QByteArray(" \r\n "), QByteArray("\x01\x02\xff\xfe basura"),
          QByteArray("Emp001"), QByteArray("datos/empresas"), QByteArray("/tmp\n/otra"),
          (dir.path() + "\x1b[2J").toUtf8()}) {
        escribir(danado);
        EXPECT_TRUE(PLocDanado(s)) << danado.toStdString();
        EXPECT_EQ(leido(), MsgPLocDanado(s)) << danado.toStdString();
    }
    EXPECT_TRUE(MsgPLocDanado(s).startsWith(QStringLiteral("El archivo PLoc.dat de la carpeta %1 "
                                                           "está vacío o dañado")
                                                .arg(QDir::toNativeSeparators(dir.path()))));

    // A server folder out of reach is not damage: it is told, and PLoc.dat is kept.
    escribir(dir.filePath("servidor-apagado").toUtf8());
    EXPECT_FALSE(PLocDanado(s));
    EXPECT_EQ(leido(), MsgSinCarpetaDatos(dir.filePath("servidor-apagado")));
    PLocInicial(s);
    EXPECT_EQ(LeerPLoc(s), dir.filePath("servidor-apagado"));

    escribir(" " + dir.path().toUtf8() + "/ \r\n");
    EXPECT_EQ(leido(), dir.path());

    // The question of the kind of installation starts from a sound file again.
    escribir("\x01\x02");
    PLocInicial(s);
    EXPECT_EQ(leido(), dir.path());
    EXPECT_EQ(s.DataPath, dir.path());
}

} // namespace

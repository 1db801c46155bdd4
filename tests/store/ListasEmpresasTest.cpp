// The fixed-record lists: exact bytes, Windows-1252 text, short and damaged files.

#include "store/ListasEmpresas.h"
#include "ImprimirQt.h"
#include "platform/Ficheros.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QByteArray contenido(const QString& ruta) {
    QFile f(ruta);
    f.open(QIODevice::ReadOnly);
    return f.readAll();
}

TEST(ListasEmpresas, SelanGuardaRegistrosFijosEnWindows1252) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath("Selan.dat");
    AnadirSelan(ruta, {"2008", "001", "Peñalara Construcciones y Reformas SL"});
    AnadirSelan(ruta, {"2009", "001", "Año €"});
    const QByteArray b = contenido(ruta);
    ASSERT_EQ(b.size(), 2 * LongitudSelan);
    EXPECT_EQ(b.left(7), QByteArray("2008001"));
    EXPECT_EQ(static_cast<unsigned char>(b.at(9)), 0xF1) << "ñ in Windows-1252";
    EXPECT_EQ(b.mid(7, 30), QByteArray("Pe\xf1"
                                       "alara Construcciones y Refo"));
    EXPECT_EQ(static_cast<unsigned char>(b.at(LongitudSelan + 7 + 4)), 0x80) << "€ is 0x80";
    const QList<RegistroSelan> r = LeerSelan(ruta);
    ASSERT_EQ(r.size(), 2);
    EXPECT_EQ(r[0].Nombre, "Peñalara Construcciones y Refo");
    EXPECT_EQ(r[1].Ano, "2009");
    EXPECT_EQ(r[1].Nombre, "Año €");
}

TEST(ListasEmpresas, ArchivosVaciosCortosOAusentes) {
    QTemporaryDir dir;
    EXPECT_TRUE(LeerSelan(dir.filePath("no-existe.dat")).isEmpty());
    const QString ruta = dir.filePath("Nemp.dat");
    QFile f(ruta);
    f.open(QIODevice::WriteOnly);
    f.write(QByteArray("001Uno") + QByteArray(27, ' ') + QByteArray("002Dos a medi"));
    f.close();
    const QList<RegistroNemp> r = LeerNemp(ruta);
    ASSERT_EQ(r.size(), 1) << "a trailing partial record is not a record";
    EXPECT_EQ(r[0].Codigo, "001");
    EXPECT_EQ(r[0].Nombre, "Uno");
}

TEST(ListasEmpresas, ReescribirSustituyeLaLista) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath("Nemp.dat");
    AnadirNemp(ruta, {"001", "Uno"});
    AnadirNemp(ruta, {"002", "Dos"});
    EscribirNemp(ruta, {{"002", "Dos"}});
    EXPECT_EQ(contenido(ruta).size(), LongitudNemp);
    EXPECT_EQ(LeerNemp(ruta).value(0).Nombre, "Dos");
}

// Found by fuzzing: the five bytes Windows-1252 leaves undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D)
// were read as one replacement character and written back as "?". A list read and rewritten now
// keeps every byte.
TEST(ListasEmpresas, ReescribirConservaLosBytesSinLetra) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath("Selan.dat");
    const QByteArray bytes = QByteArray::fromHex(
        "d0cfceaf8d8a9aa5617320534c2020202020202020712020202022e0de20ffffffffffffffff65205072"
        "75656261732020202020202020ffff2020202820202020205d20");
    {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    const QList<RegistroSelan> leidos = LeerSelan(ruta);
    ASSERT_EQ(leidos.size(), 1);
    EscribirSelan(ruta, leidos);
    const QList<RegistroSelan> otra = LeerSelan(ruta);
    ASSERT_EQ(otra.size(), 1);
    EXPECT_EQ(otra[0].Codigo, leidos[0].Codigo);
    EXPECT_EQ(otra[0].Nombre, leidos[0].Nombre);
    EXPECT_EQ(contenido(ruta), bytes.left(LongitudSelan)) << "every byte kept";
    for (char b : {'\x81', '\x8d', '\x8f', '\x90', '\x9d'})
        EXPECT_EQ(ACp1252(DeCp1252(QByteArray(1, b))), QByteArray(1, b));
}

TEST(FicheroLibre, EsperaYRespondeFalsoSiOtroLoTiene) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath("Selan.dat");
    AnadirSelan(ruta, {"2008", "001", "Uno"});
    EXPECT_TRUE(FicheroLibre(ruta));
    EXPECT_TRUE(FicheroLibre(dir.filePath("falta.dat")));
    BloqueoFichero otro(ruta);
    ASSERT_TRUE(otro.conseguido());
    QElapsedTimer t;
    t.start();
    EXPECT_FALSE(FicheroLibre(ruta));
    EXPECT_GE(t.elapsed(), 2900) << "ten waits of 300 ms";
}

} // namespace

// Compaction: every row kept, the file smaller after many entries went, the safety copies in
// Copbas (replaced by a second run), and the refusal while another process has the company open.
// Also the directory walk other screens use.

#include "utilities/Compactar.h"
#include "ComunUtilidades.h"
#include "journal/EliminarAsientos.h"
#include "platform/CopiasBase.h"
#include "store/BloqueoEmpresa.h"
#include "utilities/Copias.h"
#include "utilities/Directorios.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using namespace utiles;

namespace {

class Compactar : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa("001", 2024);
        CliComoLaSesion(e);
    }
    bool compactar() {
        e.dialogo.responder({true});
        return CompactarBasesDatos(e.sesion, e.dialogo);
    }
    QString copbas(const QString& f) const { return e.ruta("Copbas/" + f); }
    Entorno e;
};

// On a server: every row kept, and every table of the three schemas vacuumed and analysed by the
// server, with no copies made.
TEST_F(Compactar, EnElServidorConservaCadaFilaYMantieneCadaTabla) {
    if (!e.sesion.enServidor())
        GTEST_SKIP() << "sólo en la pasada del servidor";
    publicar(e, 1, 400);
    e.dialogo.responder({true});
    ASSERT_EQ(EliminarAsientos(e.sesion, e.dialogo, {1, 300}), 300);
    const QStringList antes = Libros(e.sesion, "Emp001");
    e.dialogo.preguntas.clear();
    ASSERT_TRUE(compactar());
    EXPECT_EQ(e.dialogo.preguntas, QStringList({MsgCompactar}));
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgCompactacionTerminada}));
    EXPECT_EQ(Libros(e.sesion, "Emp001"), antes);
    EXPECT_FALSE(QFileInfo::exists(e.ruta("Copbas")));
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibro(c), 100);
    for (const char* esquema : {"emp001_2024", "emp001", "bavis"}) {
        const int tablas = Contar(
            c,
            QStringLiteral("SELECT COUNT(*) FROM pg_tables WHERE schemaname = '%1'").arg(esquema));
        EXPECT_GT(tablas, 0) << esquema;
        EXPECT_EQ(Contar(c, QStringLiteral("SELECT COUNT(*) FROM pg_stat_user_tables WHERE "
                                           "schemaname = '%1' AND last_vacuum IS NOT NULL AND "
                                           "last_analyze IS NOT NULL")
                                .arg(esquema)),
                  tablas)
            << esquema;
    }
}

TEST_F(Compactar, ConservaCadaFilaYEncogeTrasEliminarMuchosAsientos) {
    if (e.sesion.enServidor())
        GTEST_SKIP() << "compactación de los archivos";
    publicar(e, 1, 4000);
    e.dialogo.responder({true});
    ASSERT_EQ(EliminarAsientos(e.sesion, e.dialogo, {1, 3900}), 3900);
    const QString ruta = e.sesion.rutaEjercicio();
    const QStringList antes = Volcado(ruta);
    const QStringList bavar = Volcado(e.sesion.rutaBavar());
    const QStringList bavis = Volcado(e.sesion.rutaBavis());
    const qint64 tamano = QFileInfo(ruta).size();
    e.dialogo.preguntas.clear();

    ASSERT_TRUE(compactar());
    EXPECT_EQ(e.dialogo.preguntas, QStringList({MsgCompactar}));
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgCompactacionTerminada}));
    EXPECT_EQ(Volcado(ruta), antes);
    EXPECT_EQ(Volcado(e.sesion.rutaBavar()), bavar);
    EXPECT_EQ(Volcado(e.sesion.rutaBavis()), bavis);
    const qint64 despues = QFileInfo(ruta).size();
    EXPECT_LT(despues, tamano / 2) << tamano << " -> " << despues;
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibro(c), 100);

    // The safety copies hold what was there before compacting.
    for (const char* f : {"Quilmar2024.db", "Bavar.db", "Bavis.db"})
        EXPECT_NO_THROW(ComprobarBase(copbas(f), TipoPorNombre(f))) << f;
    EXPECT_EQ(Volcado(copbas("Quilmar2024.db")), antes);
}

TEST_F(Compactar, UnaSegundaVezSustituyeLasCopiasDeCopbas) {
    if (e.sesion.enServidor())
        GTEST_SKIP() << "copias de Copbas, sólo de los archivos";
    publicar(e, 1, 10);
    ASSERT_TRUE(compactar());
    publicar(e, 11, 20);
    ASSERT_TRUE(compactar());
    {
        Conexion c(copbas("Quilmar2024.db"));
        EXPECT_EQ(ComprobarLibro(c), 20);
    }
    EXPECT_EQ(QDir(e.ruta("Copbas")).entryList(QDir::Files | QDir::Hidden),
              QStringList({"Bavar.db", "Bavis.db", "Quilmar2024.db"}));
}

TEST_F(Compactar, NoSeHaceSinConfirmarNiConLaEmpresaAbiertaEnOtroProceso) {
    e.dialogo.responder({false});
    EXPECT_FALSE(CompactarBasesDatos(e.sesion, e.dialogo));
    EXPECT_FALSE(QFileInfo::exists(e.ruta("Copbas")));

    // The command line is the other process: it is refused while this one holds the company,
    // and nothing is made.
    const QMap<QString, QByteArray> antes = Firma(e.ruta("Emp001"));
    {
        BloqueoEmpresa abierta(e.dir.path(), "Emp001", BloqueoEmpresa::Modo::Compartido);
        ASSERT_TRUE(abierta.conseguido());
        const ResultadoCli r =
            EjecutarCli(e.dir.path(), {"--empresa", "Emp001", "compactar", "--si"});
        EXPECT_EQ(r.codigo, 1);
        // The question is echoed before the answer given with --si.
        EXPECT_TRUE(r.error.startsWith(MsgCompactar)) << r.error.toStdString();
        EXPECT_TRUE(r.error.trimmed().endsWith("\n" + MsgEmpresaAbiertaOtro.arg("Emp001")))
            << r.error.toStdString();
        EXPECT_FALSE(QFileInfo::exists(e.ruta("Copbas")));
        EXPECT_EQ(Firma(e.ruta("Emp001")), antes);
    }
    const ResultadoCli r = EjecutarCli(e.dir.path(), {"--empresa", "Emp001", "compactar", "--si"});
    EXPECT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(MsgCompactacionTerminada));

    // This process's own hold is let go for the work and taken again after it.
    MarcarEmpresaAbierta(e.sesion);
    ASSERT_TRUE(compactar());
    BloqueoEmpresa solo(e.dir.path(), "Emp001", BloqueoEmpresa::Modo::Exclusivo);
    EXPECT_TRUE(solo.ocupado());
}

TEST(Directorios, RecorreLaCarpetaYSusSubcarpetas) {
    QTemporaryDir d;
    for (const char* f :
         {"b/uno.TXT", "a/dos.txt", "a/z/tres.txt", "cuatro.txt", "no.dat", "a/z/no.txt.bak"}) {
        QDir().mkpath(QFileInfo(d.filePath(f)).absolutePath());
        QFile(d.filePath(f)).open(QIODevice::WriteOnly);
    }
    QStringList relativas;
    for (const QString& f : BuscarFicheros(d.path(), "*.txt"))
        relativas << QDir(d.path()).relativeFilePath(f);
    // The folder's own files first, then each subfolder, depth first, in name order.
    EXPECT_EQ(relativas, QStringList({"cuatro.txt", "a/dos.txt", "a/z/tres.txt", "b/uno.TXT"}));
    EXPECT_TRUE(BuscarFicheros(d.filePath("no-existe"), "*").isEmpty());
}

} // namespace

// quilmar-cli's verbs of the utilities, run as the real program: reminders added, listed,
// shown as start-up would and deleted; the calendar; a backup, a restore and a compaction from
// the command line, with their refusals.

#include "ComunUtilidades.h"
#include "utilities/Avisos.h"
#include "utilities/Compactar.h"
#include "utilities/Copias.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace utiles;

namespace {

class UtilidadesCli : public ::testing::Test {
protected:
    void SetUp() override { CliComoLaSesion(e); }
    ResultadoCli cli(const QStringList& args) { return EjecutarCli(e.dir.path(), args); }
    Entorno e;
};

TEST_F(UtilidadesCli, AvisosDeArriba) {
    const QStringList hoy{"--hoy", "10/05/2026"};
    ResultadoCli r = cli(QStringList{"aviso-anadir", "--fecha", "12/05/2026", "--texto",
                                     "Pagar el IVA", "--periodo", "4"} +
                         hoy);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Se añadió el Aviso número 1.\n");
    r = cli(QStringList{"aviso-anadir", "--fecha", "30/06/2026", "--texto", "Renovar el seguro"} +
            hoy);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // The screen's refusals, with its messages.
    r = cli(QStringList{"aviso-anadir", "--fecha", "09/05/2026", "--texto", "Ayer"} + hoy);
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), MsgAvisoPasado);
    r = cli(
        QStringList{"aviso-anadir", "--fecha", "12/05/2026", "--texto", "x", "--periodo", "13"} +
        hoy);
    EXPECT_EQ(r.error.trimmed(), MsgPeriodicidad);

    r = cli(QStringList{"avisos"} + hoy);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Fecha\tTexto\tPeriodo\tNAviso\n"
                        "12/05/2026\tPagar el IVA\t4\t1\n"
                        "30/06/2026\tRenovar el seguro\t\t2\n");
    // What start-up would show: seven days ahead by default.
    r = cli(QStringList{"avisos", "--pendientes"} + hoy);
    EXPECT_EQ(r.salida, "NAviso\tFecha\tTexto\tPeriodo\n1\t12/05/2026\tPagar el IVA\t4\n");
    r = cli({"avisos", "--pendientes", "--hoy", "25/06/2026"});
    EXPECT_EQ(r.salida, "NAviso\tFecha\tTexto\tPeriodo\n2\t30/06/2026\tRenovar el seguro\t\n");

    r = cli(QStringList{"calendario-avisos", "--mes", "08/2026"} + hoy);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(
        r.salida.startsWith("Agosto 2026\nLun\tMar\tMié\tJue\tVie\tSáb\tDom\n\t\t\t\t\t1\t2\n"))
        << r.salida.toStdString();
    EXPECT_TRUE(r.salida.contains("\t12*\t")) << r.salida.toStdString();
    EXPECT_TRUE(r.salida.endsWith("12/08/2026\tPagar el IVA\n")) << r.salida.toStdString();

    r = cli({"aviso-eliminar", "1"});
    EXPECT_EQ(r.codigo, 1) << "not without --si";
    r = cli({"--si", "aviso-eliminar", "1"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "Se eliminó el Aviso número 1.\n");

    r = cli({"avisos-opciones", "--dias", "tres"});
    EXPECT_EQ(r.error.trimmed(), MsgDiasAvisoNoValido);
    r = cli({"--si", "avisos-opciones", "--dias", "40", "--eliminar-vencidos", "no"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, "DiasAv\t40\nElimAuto\tNO\n");
}

TEST_F(UtilidadesCli, CopiaRestauracionYCompactacion) {
    e.crearEmpresa("001", 2024);
    publicar(e, 1, 50);
    const QList<QStringList> sumas = SumasSaldos(e.sesion);
    QTemporaryDir copia;

    ResultadoCli r =
        cli({"--empresa", "Emp001", "copia-seguridad", "--carpeta", e.dir.path(), "--si"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), MsgCopiaCarpetaPrograma);
    r = cli({"--empresa", "Emp001", "copia-seguridad", "--carpeta", copia.path()});
    EXPECT_EQ(r.codigo, 1) << "not without --si";
    EXPECT_FALSE(QFileInfo::exists(copia.filePath("Emp001")));
    r = cli({"--empresa", "Emp001", "copia-seguridad", "--carpeta", copia.path(), "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.error.endsWith(MsgCopiaHecha + "\n")) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains("Copiando: 4 de 4")) << r.error.toStdString();

    // The books change; the restore from the command line brings them back.
    publicar(e, 51, 80);
    r = cli({"restaurar", "--carpeta", copia.filePath("Emp001")});
    EXPECT_EQ(r.codigo, 1) << "not without --si";
    r = cli({"--si", "restaurar", "--carpeta", copia.filePath("Emp001")});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.error.endsWith(MsgRestaurarCerrar + "\n")) << r.error.toStdString();
    EXPECT_EQ(SumasSaldos(e.sesion), sumas);

    r = cli({"--empresa", "Emp001", "compactar"});
    EXPECT_EQ(r.codigo, 1) << "not without --si";
    EXPECT_FALSE(QFileInfo::exists(e.ruta("Copbas")));
    r = cli({"--empresa", "Emp001", "--si", "compactar"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    // The server runs its own upkeep and keeps no copies.
    EXPECT_EQ(QFileInfo::exists(e.ruta("Copbas/Quilmar2024.db")), !e.sesion.enServidor());
    EXPECT_EQ(SumasSaldos(e.sesion), sumas);
}

} // namespace

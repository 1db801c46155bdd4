// The statements from the command line on the demo company.
#include "Entorno.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

// The amount of the exercise on the row that starts with rotulo.
QString ImporteDe(const QString& salida, const QString& rotulo) {
    for (const QString& l : salida.split(u'\n'))
        if (l.startsWith(rotulo)) {
            const QStringList c = l.split(u'\t');
            return c.size() >= 2 ? c.at(c.size() - 2) : QString();
        }
    return QStringLiteral("(no está)");
}

} // namespace

TEST(CliCuentasAnuales, BalanceAndProfitAndLossOfTheDemo) {
    Entorno e;
    e.instalarDemo();
    const ResultadoCli b = EjecutarCli(e.dir.path(), {"balance"});
    ASSERT_EQ(b.codigo, 0) << b.error.toStdString();
    const QString activo = ImporteDe(b.salida, "TOTAL ACTIVO (A + B)");
    EXPECT_EQ(activo, ImporteDe(b.salida, "TOTAL PATRIMONIO NETO Y PASIVO (A + B + C)"));
    EXPECT_NE(activo, "");
    // Without --desglose the PYMES layout shows no subaccount.
    EXPECT_FALSE(b.salida.contains("Caja"));
    const ResultadoCli d = EjecutarCli(e.dir.path(), {"balance", "--desglose"});
    EXPECT_TRUE(d.salida.contains("Caja"));

    const ResultadoCli p = EjecutarCli(e.dir.path(), {"perdidas-ganancias"});
    ASSERT_EQ(p.codigo, 0) << p.error.toStdString();
    // The year's result is the same in both statements.
    EXPECT_EQ(ImporteDe(p.salida, "D) RESULTADO DEL EJERCICIO (C+17)"),
              ImporteDe(b.salida, "\tVII. Resultado del ejercicio"));

    const QString pdf = e.ruta("pyg.pdf");
    const ResultadoCli f =
        EjecutarCli(e.dir.path(), {"perdidas-ganancias", "--formato", "pdf", "--salida", pdf});
    EXPECT_EQ(f.codigo, 0) << f.error.toStdString();
    EXPECT_GT(QFileInfo(pdf).size(), 1000);
}

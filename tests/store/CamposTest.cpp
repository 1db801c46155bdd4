// Text fields: one size and one set of refusals for screens, command line and import.

#include "store/Campos.h"
#include "platform/Errores.h"

#include <gtest/gtest.h>

namespace {

QString mensaje(Campo campo, const QString& texto) {
    try {
        TextoCampo(campo, texto);
    } catch (const Rechazo& e) {
        return e.mensaje();
    }
    return {};
}

TEST(Campos, ControlesYLargoSeRechazanConElNombreDelCampo) {
    for (const QString& malo : {QStringLiteral("a\tb"), QStringLiteral("a\nb"),
                                QStringLiteral("a\rb"), QStringLiteral("\x1b[31m"),
                                QStringLiteral("a\ab"), QString(QChar(0)) + QStringLiteral("x"),
                                QStringLiteral("a\u0085b"), QStringLiteral("a\u2028b")})
        EXPECT_EQ(mensaje(Campo::Concepto, malo),
                  "El campo Concepto no admite tabuladores, saltos de línea ni otros caracteres "
                  "de control.");
    EXPECT_EQ(mensaje(Campo::Sector, QString(21, QLatin1Char('x'))),
              "El campo Sector no puede tener más de 20 caracteres.");
    // Blanks around the text do not count, and what fits comes back trimmed.
    EXPECT_EQ(TextoCampo(Campo::Sector, QStringLiteral("  ") + QString(20, QLatin1Char('x')) +
                                            QStringLiteral(" ")),
              QString(20, QLatin1Char('x')));
    EXPECT_EQ(TextoCampo(Campo::Concepto, QStringLiteral("Cobro «Año» ñ €")), "Cobro «Año» ñ €");
    EXPECT_EQ(SinControles(QStringLiteral("a\tb\nc\u0007")), "abc");
    EXPECT_EQ(TamanoCampo(Campo::Concepto), 40);
    EXPECT_EQ(TamanoCampo(Campo::NombreSubcuenta), 30);
}

} // namespace

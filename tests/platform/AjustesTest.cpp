// Settings: defaults of the table, the two application keys, the window-size rule.

#include "platform/Ajustes.h"
#include "ImprimirQt.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

TEST(Ajustes, ValoresPorDefectoDeLaTabla) {
    QTemporaryDir dir;
    Ajustes a(dir.path());
    EXPECT_EQ(a.leer("Valores", "NLetra"), "Arial");
    EXPECT_EQ(a.leer("Valores", "TLetra"), "9");
    EXPECT_EQ(a.leer("Valores", "CArea"), "Imagenes");
    EXPECT_EQ(a.leer("Inicio", "Presenta"), "SI");
    EXPECT_EQ(a.leer("Valores", "NFuentDiario"), "Arial Narrow");
    EXPECT_EQ(a.leer("Valores", "IzqSyS"), "10");
    EXPECT_EQ(a.leer("Inicio", "Empresa"), "");
    a.escribir("Inicio", "Año", 2008);
    EXPECT_EQ(Ajustes(dir.path()).leer("Inicio", "Año"), "2008") << "kept on disk";
}

TEST(Ajustes, QuilmarEmpEsOtraClave) {
    QTemporaryDir dir;
    Ajustes a(dir.path());
    a.escribirEmp("Valores", "IzqAnuales", 25);
    EXPECT_EQ(a.leer("Valores", "IzqAnuales"), "10")
        << "written under QuilmarEmp, read under QuilmarPro";
    EXPECT_EQ(a.leerEmp("Valores", "IzqAnuales", "10"), "25");
}

TEST(Ajustes, TamanoDeVentanaGuardado) {
    QTemporaryDir dir;
    Ajustes a(dir.path());
    const QSize disenado(600, 400), pantalla(1280, 800);
    EXPECT_EQ(a.tamanoVentana(7, disenado, pantalla), disenado) << "0 keeps the design";
    a.guardarTamanoVentana(7, QSize(900, 700));
    EXPECT_EQ(a.tamanoVentana(7, disenado, pantalla), QSize(900, 700));
    EXPECT_EQ(a.tamanoVentana(7, disenado, QSize(800, 600)), QSize(600, 400))
        << "a stored size larger than a new, smaller screen is ignored";
    EXPECT_EQ(a.tamanoVentana(7, disenado, QSize(1024, 600)), QSize(900, 400));
}

} // namespace

// The print settings of each group and what the option forms' boxes mean on "&Aceptar": the
// empty-box rules with the Courier New / Arial Narrow asymmetry, the QuilmarEmp quirk of the
// annual accounts, FORM52's floor and first page, and Form77's initial sums.

#include "reports/OpcionesLibro.h"
#include "Entorno.h"

#include "store/Rutinas.h"

#include <gtest/gtest.h>

namespace {

const QString V = QStringLiteral("Valores");

OpcionesLibro Aceptar(Entorno& e, FormOpciones form, CajasOpciones cajas,
                      ResultadoOpciones esperado = ResultadoOpciones::Aceptado) {
    OpcionesLibro op;
    EXPECT_EQ(AceptarOpciones(ConfigFormOpciones(form), cajas, *e.ajustes, op), esperado);
    return op;
}

// The margin, font and size stored for a group, as texts.
QStringList Guardadas(Entorno& e, const QString& grupo) {
    return {e.ajustes->leer(V, "Izq" + grupo), e.ajustes->leer(V, "NFuent" + grupo),
            e.ajustes->leer(V, "TFuent" + grupo)};
}

CajasOpciones Vacias() {
    CajasOpciones c;
    c.fechaTrabajo = QDate(2024, 3, 1);
    return c;
}

} // namespace

TEST(OpcionesLibro, AjustesPorDefectoDeCadaGrupo) {
    Entorno e;
    for (const char* grupo :
         {"Diario", "SyS", "Mayor", "Anuales", "Libros", "Venc", "Invent", "CDia", "Predi"}) {
        const AjustesGrupo g = LeerAjustesGrupo(*e.ajustes, QLatin1String(grupo));
        EXPECT_EQ(QStringList({g.margen, g.fuente, g.tamano}),
                  QStringList({"10", "Arial Narrow", "9"}))
            << grupo;
    }
    e.ajustes->escribir(V, "IzqSyS", "25");
    e.ajustes->escribir(V, "NFuentSyS", "Courier New");
    e.ajustes->escribir(V, "TFuentSyS", "11");
    const CajasOpciones c =
        CajasIniciales(ConfigFormOpciones(FormOpciones::Form79), *e.ajustes, QDate(2024, 5, 6));
    EXPECT_EQ(QStringList({c.margen, c.fuente, c.tamano}),
              QStringList({"25", "Courier New", "11"}));
    EXPECT_EQ(c.fechaTrabajo, QDate(2024, 5, 6));
    EXPECT_TRUE(c.paginaInicial.isEmpty());
}

TEST(OpcionesLibro, CajasLlenasSeUsanYSeGuardan) {
    Entorno e;
    CajasOpciones c = Vacias();
    c.margen = "20";
    c.fuente = "Arial";
    c.tamano = "11";
    c.paginaInicial = "7";
    c.borrador = true;
    c.conDocumento = true;
    const OpcionesLibro op = Aceptar(e, FormOpciones::Form77, c);
    EXPECT_FALSE(op.cancelado);
    EXPECT_DOUBLE_EQ(op.margen, 1134); // Int(20 x 56.7)
    EXPECT_EQ(op.fuente, "Arial");
    EXPECT_EQ(op.tamano, 11);
    EXPECT_EQ(op.paginaInicial, 7);
    EXPECT_EQ(op.fechaTrabajo, QDate(2024, 3, 1));
    EXPECT_TRUE(op.borrador && op.conDocumento);
    EXPECT_EQ(Guardadas(e, "Diario"), QStringList({"20", "Arial", "11"}));
    // Millimetres are truncated to whole twips.
    EXPECT_DOUBLE_EQ(MilimetrosATwips(10), 567);
    EXPECT_DOUBLE_EQ(MilimetrosATwips(3), 170);
    EXPECT_DOUBLE_EQ(MilimetrosATwips(0), 0);
}

TEST(OpcionesLibro, CajasVaciasYLaAsimetriaDeLaFuenteGuardada) {
    const struct {
        FormOpciones form;
        const char* grupo;
        const char* guardada;
    } casos[] = {{FormOpciones::Form77, "Diario", "Courier New"},
                 {FormOpciones::Form79, "SyS", "Arial Narrow"},
                 {FormOpciones::Form80, "Mayor", "Courier New"},
                 {FormOpciones::Form85, "Mayor", "Courier New"},
                 {FormOpciones::FORM52, "Libros", "Courier New"},
                 {FormOpciones::FORM90, "Venc", "Arial Narrow"}};
    for (const auto& caso : casos) {
        Entorno e;
        const OpcionesLibro op = Aceptar(e, caso.form, Vacias());
        const QString g = QLatin1String(caso.grupo);
        // Every run uses Courier New for an empty font box and 9 for an empty size...
        EXPECT_EQ(op.fuente, "Courier New") << caso.grupo;
        EXPECT_EQ(op.tamano, 9) << caso.grupo;
        EXPECT_EQ(op.paginaInicial, 0) << caso.grupo;
        // ... but the font stored depends on the form. FORM52 is the only form with a floor: an
        // empty or small margin becomes 10 mm.
        const bool suelo = caso.form == FormOpciones::FORM52;
        EXPECT_DOUBLE_EQ(op.margen, suelo ? 567 : 0) << caso.grupo;
        EXPECT_EQ(Guardadas(e, g),
                  QStringList({suelo ? "10" : "0", QLatin1String(caso.guardada), "9"}))
            << caso.grupo;
    }
    // FORM90 keeps each caller's group.
    Entorno e;
    OpcionesLibro op;
    CajasOpciones c = Vacias();
    AceptarOpciones(ConfigFormOpciones(FormOpciones::FORM90, "CDia"), c, *e.ajustes, op);
    EXPECT_EQ(e.ajustes->leer(V, "NFuentCDia"), "Arial Narrow");
    EXPECT_EQ(e.ajustes->leer(V, "NFuentVenc"), "Arial Narrow"); // untouched default
    EXPECT_FALSE(e.ajustes->existe(V, "NFuentVenc"));
}

TEST(OpcionesLibro, AnualesSeLeenDeQuilmarProYSeEscribenEnQuilmarEmp) {
    Entorno e;
    const ConfigOpciones config = ConfigFormOpciones(FormOpciones::Form83);
    CajasOpciones c = CajasIniciales(config, *e.ajustes);
    c.margen = "30";
    c.fuente = "Arial";
    c.tamano = "12";
    OpcionesLibro op;
    ASSERT_EQ(AceptarOpciones(config, c, *e.ajustes, op), ResultadoOpciones::Aceptado);
    // Used for this run...
    EXPECT_DOUBLE_EQ(op.margen, 1701);
    EXPECT_EQ(QStringList({op.fuente, QString::number(op.tamano)}), QStringList({"Arial", "12"}));
    // ... written where it is never read, so the next opening shows the defaults again.
    EXPECT_EQ(e.ajustes->leerEmp(V, "IzqAnuales", ""), "30");
    EXPECT_EQ(e.ajustes->leerEmp(V, "NFuentAnuales", ""), "Arial");
    EXPECT_FALSE(e.ajustes->existe(V, "IzqAnuales"));
    const CajasOpciones otra = CajasIniciales(config, *e.ajustes);
    EXPECT_EQ(QStringList({otra.margen, otra.fuente, otra.tamano}),
              QStringList({"10", "Arial Narrow", "9"}));
    // What stands under QuilmarPro is what it shows.
    e.ajustes->escribir(V, "IzqAnuales", "15");
    EXPECT_EQ(CajasIniciales(config, *e.ajustes).margen, "15");
    // An empty font box stores Arial Narrow there.
    CajasOpciones vacia = Vacias();
    AceptarOpciones(config, vacia, *e.ajustes, op);
    EXPECT_EQ(e.ajustes->leerEmp(V, "NFuentAnuales", ""), "Arial Narrow");

    // Each statement opens the form in its own mode: the caption names it and the run knows it.
    const QList<QPair<QString, QString>> modos{{"Balance", "BALANCE DE SITUACION"},
                                               {"Balance2008", "BALANCE DE PYMES"},
                                               {"PyG", "CUENTA DE PERDIDAS Y GANANCIAS"},
                                               {"PyG2008", "PERDIDAS Y GANANCIAS DE PYMES"}};
    for (const auto& [modo, titulo] : modos) {
        const ConfigOpciones m = ConfigFormOpciones(FormOpciones::Form83, modo);
        EXPECT_EQ(m.titulo, titulo);
        EXPECT_TRUE(m.anoAnterior && m.guardaEnEmp) << modo.toStdString();
        CajasOpciones cm = Vacias();
        cm.anoAnterior = true;
        OpcionesLibro om;
        AceptarOpciones(m, cm, *e.ajustes, om);
        EXPECT_EQ(om.modo, modo);
        EXPECT_TRUE(om.anoAnterior);
    }
}

TEST(OpcionesLibro, Form52SubeElMargenYGuardaLaPaginaMenosUno) {
    Entorno e;
    CajasOpciones c = Vacias();
    c.margen = "4";
    c.paginaInicial = "5";
    OpcionesLibro op;
    AceptarOpciones(ConfigFormOpciones(FormOpciones::FORM52), c, *e.ajustes, op);
    EXPECT_EQ(c.margen, "10"); // written back into the box
    EXPECT_DOUBLE_EQ(op.margen, 567);
    EXPECT_EQ(op.paginaInicial, 4);
    // Above the floor the margin stays.
    CajasOpciones d = Vacias();
    d.margen = "12";
    EXPECT_DOUBLE_EQ(Aceptar(e, FormOpciones::FORM52, d).margen, MilimetrosATwips(12));
    // The journal has no floor and keeps the first page as typed.
    CajasOpciones j = Vacias();
    j.margen = "4";
    j.paginaInicial = "5";
    const OpcionesLibro diario = Aceptar(e, FormOpciones::Form77, j);
    EXPECT_DOUBLE_EQ(diario.margen, 226);
    EXPECT_EQ(diario.paginaInicial, 5);
}

TEST(OpcionesLibro, SumasInicialesDelDiario) {
    Entorno e;
    CajasOpciones c = Vacias();
    c.sumaDebe = "1234,56";
    c.sumaHaber = "1000";
    OpcionesLibro op = Aceptar(e, FormOpciones::Form77, c);
    EXPECT_EQ(std::pair(op.sumaDebe, op.sumaHaber), std::pair(1234.56, 1000.0));
    op = Aceptar(e, FormOpciones::Form77, Vacias());
    EXPECT_EQ(std::pair(op.sumaDebe, op.sumaHaber), std::pair(0.0, 0.0));

    // One without the other: refused before anything is stored; the run stays cancelled.
    for (const auto& [debe, haber] : {std::pair{"100", ""}, {"", "0"}}) {
        Entorno f;
        CajasOpciones s = Vacias();
        s.margen = "33";
        s.sumaDebe = QLatin1String(debe);
        s.sumaHaber = QLatin1String(haber);
        const OpcionesLibro r =
            Aceptar(f, FormOpciones::Form77, s, ResultadoOpciones::SumasIncompletas);
        EXPECT_TRUE(r.cancelado);
        EXPECT_FALSE(f.ajustes->existe(V, "IzqDiario"));
    }
    // Each sum is an amount the books take, rounded to the cent; any other keeps the form open.
    for (const auto& [debe, haber] :
         {std::pair{"1e308", "1"}, {"1", "inf"}, {"1000000000000", "1"}, {"1", "12abc"}}) {
        Entorno f;
        CajasOpciones s = Vacias();
        s.sumaDebe = QLatin1String(debe);
        s.sumaHaber = QLatin1String(haber);
        EXPECT_TRUE(
            Aceptar(f, FormOpciones::Form77, s, ResultadoOpciones::ImporteNoValido).cancelado);
        EXPECT_EQ(MsgSumaNoValida(s.sumaDebe, s.sumaHaber),
                  MsgImporteNoValido(QLatin1String(std::string(debe) == "1" ? haber : debe)));
    }
    c.sumaDebe = "0,005";
    c.sumaHaber = "999.999.999.999,99";
    op = Aceptar(e, FormOpciones::Form77, c);
    EXPECT_EQ(std::pair(op.sumaDebe, op.sumaHaber), std::pair(0.01, 999999999999.99));
    // Forms without the sums ignore the boxes.
    CajasOpciones s = Vacias();
    s.sumaDebe = "100";
    EXPECT_DOUBLE_EQ(Aceptar(e, FormOpciones::Form79, s).sumaDebe, 0);
}

TEST(OpcionesLibro, TamanoNoNumericoCuentaComoVacio) {
    Entorno e;
    CajasOpciones c = Vacias();
    c.tamano = "grande";
    EXPECT_EQ(Aceptar(e, FormOpciones::Form79, c).tamano, 9);
    EXPECT_EQ(e.ajustes->leer(V, "TFuentSyS"), "9");
    c.tamano = "14";
    EXPECT_EQ(Aceptar(e, FormOpciones::Form79, c).tamano, 14);
    // Nothing is stored when asked not to (the command line).
    Entorno f;
    OpcionesLibro op;
    CajasOpciones d = Vacias();
    AceptarOpciones(ConfigFormOpciones(FormOpciones::Form77), d, *f.ajustes, op, false);
    EXPECT_FALSE(op.cancelado);
    EXPECT_FALSE(f.ajustes->existe(V, "NFuentDiario"));
}

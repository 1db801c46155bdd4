// The code of a subaccount: its mask, the area an account number belongs to in each edition of
// the plan lists, and the serial a new subaccount takes.

#include "chart/NCuenta.h"
#include "Entorno.h"
#include "chart/VistaArea.h"

#include <gtest/gtest.h>

namespace {

TEST(NCuenta, MascaraDeNueveCifras) {
    EXPECT_EQ(ComponerNCuenta("0121", 104), "012100104");
    EXPECT_EQ(ComponerNCuenta("4430", 7), "443000007");
    EXPECT_EQ(ComponerNCuenta("5219", 99999), "521999999");
    // The mask forces the first and the four middle zeros only; '#' places show nothing.
    EXPECT_EQ(FormatoMascara(5, MascaraNCuenta), "000005");
    EXPECT_EQ(FormatoMascara(1234567890, MascaraNCuenta), "1234567890");
    EXPECT_TRUE(NCuentaValida(" 443000007 "));
    EXPECT_FALSE(NCuentaValida("44300007"));
    EXPECT_EQ(MsgErrorEnCuenta("Caja"),
              "Hay un error en la Cuenta Caja, por lo que no podrá utilizarla.");
}

TEST(NCuenta, NumGrupoDesde2008) {
    EXPECT_EQ(NumGrupo("121", 2008), 0);
    EXPECT_EQ(NumGrupo("572", 2024), 1);
    EXPECT_EQ(NumGrupo("400", 2024), 2);
    EXPECT_EQ(NumGrupo("700", 2024), 3);
    EXPECT_EQ(NumGrupo("430", 2024), 4);
    EXPECT_EQ(NumGrupo("217", 2024), 5);
    EXPECT_EQ(NumGrupo("629", 2024), 6);
    // Listed in two areas: the first in order wins.
    EXPECT_EQ(NumGrupo("548", 2024), 1);
    EXPECT_EQ(NumGrupo("549", 2024), 2);
    // Numbers that were moved between the editions.
    EXPECT_EQ(NumGrupo("110", 2024), 0);
    EXPECT_EQ(NumGrupo("606", 2024), 3);
    EXPECT_EQ(NumGrupo("999", 2024), SinArea);
    EXPECT_EQ(NumGrupo("12", 2024), SinArea);
    // Four-digit entries are in the lists, but a code has three digits: they are reached only
    // by their own three-digit neighbours, never through a part of them.
    EXPECT_TRUE(ListaPlan(0, 2024).contains(",2945,"));
    EXPECT_EQ(NumGrupo("945", 2024), SinArea);
    EXPECT_EQ(NumGrupo("095", 2024), SinArea);
    EXPECT_EQ(NumGrupo("294", 2024), 0);
    EXPECT_EQ(NumGrupo("153", 2024), 2);
    EXPECT_EQ(NumGrupo("433", 2024), 4);
}

TEST(NCuenta, NumGrupoAntesDe2008) {
    EXPECT_EQ(NumGrupo("121", 2007), 0);
    EXPECT_EQ(NumGrupo("122", 2007), 0);
    EXPECT_EQ(NumGrupo("122", 2008), SinArea);
    EXPECT_EQ(NumGrupo("553", 2007), 1);
    EXPECT_EQ(NumGrupo("553", 2008), SinArea);
    EXPECT_EQ(NumGrupo("402", 2007), 2);
    EXPECT_EQ(NumGrupo("779", 2007), 3);
    EXPECT_EQ(NumGrupo("580", 2007), 4);
    EXPECT_EQ(NumGrupo("257", 2007), 5);
    EXPECT_EQ(NumGrupo("643", 2007), 6);
    EXPECT_EQ(NumGrupo("606", 2007), SinArea);
    // The two-digit entries of the older lists (11, 39, 71, 27, 54, 20, 62, 66 ...) can never
    // match a three-digit code: 110 is refused before 2008 though 11 is listed.
    EXPECT_TRUE(ListaPlan(0, 2007).contains(",11,"));
    EXPECT_EQ(NumGrupo("110", 2007), SinArea);
    EXPECT_EQ(NumGrupo("110", 2008), 0);
    EXPECT_TRUE(ListaPlan(3, 2007).contains(",71,"));
    EXPECT_EQ(NumGrupo("710", 2007), SinArea);
    EXPECT_TRUE(ListaPlan(5, 2007).contains(",20,"));
    EXPECT_EQ(NumGrupo("200", 2007), SinArea);
    EXPECT_EQ(NumGrupo("200", 2008), 5);
    EXPECT_TRUE(ListaPlan(6, 2007).contains(",62,"));
    EXPECT_EQ(NumGrupo("621", 2007), SinArea);
    // A two-digit code does meet them, but the chart screen never sends one.
    EXPECT_EQ(NumGrupo("54", 2007), 4);
}

TEST(NCuenta, EtiquetasYNaturaleza) {
    EXPECT_EQ(EtiquetaArea(2), "(2) - SE DEBE");
    EXPECT_EQ(EtiquetaArea(6), "(6) - Gastos/Pérdidas");
    EXPECT_EQ(NombreListaArea(1), "CUENTAS Y EFECTIVO");
    EXPECT_EQ(NombreListaArea(5), "BIENES");
    QString deudoras;
    for (int a = 0; a < NumeroAreas; ++a)
        if (AreaDeudora(a))
            deudoras += QString::number(a);
    EXPECT_EQ(deudoras, "1456");
}

class Series : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    void insertar(const QString& ncuenta) {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)",
                   {ncuenta, "S" + ncuenta, ncuenta.left(4)});
    }
    Entorno e;
};

// The serial the chart screen has always given: scan n = 1, 2, ... up to the highest, the first
// that no code ends in; else the highest plus one.
long serieRecorriendo(Conexion& c, long ultima) {
    QSet<long> usadas;
    QSqlQuery q = c.ejecutar("SELECT NCuenta FROM Cuentas");
    while (q.next())
        usadas.insert(q.value(0).toString().right(5).toLong());
    for (long n = 1; n <= ultima; ++n)
        if (!usadas.contains(n))
            return n;
    return ultima + 1;
}

TEST_F(Series, ReutilizaLaMasBajaLiberada) {
    Conexion c = e.datos();
    // The generic chart uses 1 to 70, 103 and 104.
    const long ultima = UltimaSubcuenta(c);
    EXPECT_EQ(ultima, 104);
    EXPECT_EQ(SiguienteSerie(c, ultima), 71);
    c.ejecutar("DELETE FROM Cuentas WHERE NCuenta IN ('028100041', '157000001')");
    EXPECT_EQ(SiguienteSerie(c, ultima), 1);
    c.ejecutar("DELETE FROM Cuentas WHERE NCuenta = '011200005'");
    EXPECT_EQ(SiguienteSerie(c, ultima), 1);
    insertar("443000001");
    EXPECT_EQ(SiguienteSerie(c, ultima), 5);
    insertar("660000005");
    EXPECT_EQ(SiguienteSerie(c, ultima), 41);
}

TEST_F(Series, SinHuecosCreceLaUltima) {
    Conexion c = e.datos();
    c.ejecutar("DELETE FROM Cuentas");
    EXPECT_EQ(SiguienteSerie(c, 0), 1);
    for (int i = 1; i <= 5; ++i)
        insertar(ComponerNCuenta("1570", i));
    EXPECT_EQ(UltimaSubcuenta(c), 5);
    EXPECT_EQ(SiguienteSerie(c, 5), 6);
    // A stale, lower highest value gives what the scan gives: the next after it.
    EXPECT_EQ(SiguienteSerie(c, 3), 4);
}

TEST_F(Series, IgualQueElRecorridoEnUnPlanGrande) {
    Conexion c = e.datos();
    auto llenar = [&](long desde, long hasta) {
        Transaccion t(c);
        for (long i = desde; i <= hasta; ++i)
            if (i % 977 != 0)
                c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, '6629')",
                           {ComponerNCuenta("6629", i), QString("N%1").arg(i)});
        t.confirmar();
    };
    llenar(200, 5199);
    QList<long> dadas;
    for (const auto& [desde, hasta] : {std::pair{71L, 101L}, {102L, 102L}, {105L, 199L}}) {
        llenar(desde, hasta);
        const long ultima = UltimaSubcuenta(c);
        EXPECT_EQ(ultima, 5199);
        const long n = SiguienteSerie(c, ultima);
        EXPECT_EQ(n, serieRecorriendo(c, ultima));
        dadas << n;
    }
    EXPECT_EQ(dadas, QList<long>({102, 105, 977}));
}

TEST(VistaAreaTest, ImagenesOPlan) {
    const VistaArea imagenes = VistaArea::De(QString("Imagenes"));
    const VistaArea plan = VistaArea::De(QString("Plan"));
    EXPECT_EQ(imagenes.digitos(), QStringList({"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(plan.digitos(), QStringList({"1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_EQ(imagenes.patron("4"), "4%");
    EXPECT_EQ(plan.patron("4"), "_4%");
    EXPECT_EQ(imagenes.digitoDe("443000022"), "4");
    EXPECT_EQ(plan.digitoDe("443000022"), "4");
    EXPECT_EQ(plan.digitoDe("662900056"), "6");
    EXPECT_EQ(imagenes.digitoDe("662900056"), "6");
    EXPECT_EQ(plan.digitoDe("370000066"), "7");
}

TEST(VistaAreaTest, SubcuentasPorPosicionYSinAparcadas) {
    Entorno e;
    e.crearEmpresa();
    Conexion c = e.datos();
    c.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = 2024 WHERE NCuenta = '447200030'");
    auto codigos = [&](const VistaArea& v, const QString& d, bool conAparcadas) {
        QStringList r;
        for (const SubcuentaDeLista& s : v.subcuentas(c, e.sesion, d, conAparcadas))
            r << s.NCuenta;
        return r;
    };
    // Plan group 4 in any area: suppliers (2400, 2410, 2465 ...) and customers (4430 ...).
    const QStringList grupo4 = codigos(VistaArea(true), "4", false);
    EXPECT_TRUE(grupo4.contains("240000009"));
    EXPECT_TRUE(grupo4.contains("443000022"));
    EXPECT_FALSE(grupo4.contains("447200030"));
    EXPECT_TRUE(codigos(VistaArea(true), "4", true).contains("447200030"));
    for (const QString& n : grupo4)
        EXPECT_EQ(n.mid(1, 1), "4");
    const QStringList area4 = codigos(VistaArea(false), "4", false);
    EXPECT_FALSE(area4.contains("240000009"));
    for (const QString& n : area4)
        EXPECT_EQ(n.left(1), "4");
    // Ordered by account, then by name.
    const QList<SubcuentaDeLista> l = VistaArea(false).subcuentas(c, e.sesion, "6");
    for (int i = 1; i < l.size(); ++i)
        EXPECT_LE(l.at(i - 1).NGrupo, l.at(i).NGrupo);
}

} // namespace

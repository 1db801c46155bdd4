// A close with transfer from an exercise of the old chart into an adapted one: every balance
// lands on the subaccount its code became.

#include "Entorno.h"
#include "PlanAntiguo.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/Adaptacion.h"
#include "yearend/Cierre.h"
#include "yearend/TraducirCuenta.h"

#include <QMap>
#include <gtest/gtest.h>

namespace {

// Balance (debit less credit, in cents) of every subaccount with one, leaving out the lines of
// the given class.
QMap<QString, qint64> saldos(Conexion& c, const QString& sinClase) {
    QMap<QString, qint64> r;
    QSqlQuery q = c.ejecutar("SELECT NCuenta, SUM(Debe) - SUM(Haber) FROM Diario "
                             "WHERE Clase <> ? GROUP BY NCuenta",
                             {sinClase});
    while (q.next()) {
        const qint64 centimos = qRound64(q.value(1).toDouble() * 100);
        if (centimos != 0)
            r.insert(q.value(0).toString(), centimos);
    }
    return r;
}

TEST(AdaptacionCierre, TraspasoDe2007AUn2008Adaptado) {
    InstalarAdaptacionPlan();
    struct Quitar {
        ~Quitar() { AdaptacionPlan() = nullptr; }
    } quitar;
    Entorno e;
    planAntiguo(e, 2007);
    {
        Conexion c = e.datos();
        const QList<QStringList> grupos{{"0120", "Remanente"},
                                        {"0129", "Perdidas y ganancias"},
                                        {"3705", "Prestaciones de servicios"},
                                        {"6629", "Intereses de deudas"}};
        for (const QStringList& g : grupos)
            c.ejecutar("INSERT INTO Grupos (NGrupo, Grupo) VALUES (?, ?)", {g[0], g[1]});
        const QList<QStringList> cuentas{{"012000103", "Remanente", "0120"},
                                         {"012900002", "Perdidas y ganancias", "0129"},
                                         {"370500067", "Servicios", "3705"},
                                         {"662900056", "Intereses", "6629"}};
        for (const QStringList& k : cuentas)
            c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, ?)",
                       {k[0], k[1], k[2]});
    }
    e.asiento(QDate(2007, 1, 10), {Debe("157000001", 9000), Haber("240200060", 9000)});
    e.asiento(QDate(2007, 2, 1), {Debe("522900050", 1200), Haber("157000001", 1200)});
    e.asiento(QDate(2007, 3, 1), {Debe("522000051", 800), Haber("240300061", 800)});
    e.asiento(QDate(2007, 4, 1), {Debe("521000051", 450.5), Haber("157000001", 450.5)});
    e.asiento(QDate(2007, 5, 1), {Debe("157000001", 300), Haber("029300070", 300)});
    e.asiento(QDate(2007, 6, 1), {Debe("157000001", 2000), Haber("370500067", 2000)});
    e.asiento(QDate(2007, 7, 1), {Debe("662900056", 125.25), Haber("157000001", 125.25)});

    CrearEjercicio(e.sesion, e.dialogo, 2008);
    ASSERT_TRUE(PlanAdaptado(e.sesion));
    // An identity-pair subaccount of 2008 takes its serial, so 029300070 went to 029400071.
    ASSERT_EQ(TraducirCuenta(e.sesion, "029300070"), "029400071");

    e.sesion.AnoActual = 2007;
    CargarEjercicio(e.sesion);
    CerrarEjercicio(e.sesion, Traspaso{2008, 1});

    Conexion c2007 = e.datos();
    // Balances of 2007 after the regularisation, before the final entry: what is carried.
    QMap<QString, qint64> esperado;
    for (auto [ncuenta, saldo] : saldos(c2007, "F").asKeyValueRange()) {
        const QString destino = ncuenta == QLatin1String("012900002")
                                    ? QStringLiteral("012000103")
                                    : TraducirCuenta(e.sesion, ncuenta);
        esperado[destino] += saldo;
    }
    Sesion s2008 = e.sesion;
    s2008.AnoActual = 2008;
    Conexion c2008 = AbrirDatos(s2008);
    EXPECT_EQ(saldos(c2008, "-"), esperado);
    // The moved subaccounts by name, with their balances in cents.
    const QMap<QString, qint64> en2008 = saldos(c2008, "-");
    EXPECT_EQ(en2008.value("240300060"), -900000);
    EXPECT_EQ(en2008.value("240400061"), -80000);
    EXPECT_EQ(en2008.value("521900050"), 120000);
    EXPECT_EQ(en2008.value("521000051"), 80000);
    EXPECT_EQ(en2008.value("520100051"), 45050);
    EXPECT_EQ(en2008.value("029400071"), -30000);
    EXPECT_EQ(en2008.value("012000103"), -187475);
    EXPECT_FALSE(en2008.contains("522900050"));
}

} // namespace

// Adapting an exercise of the old chart to the 2007 chart: groups, subaccounts moved with their
// serial, the references elsewhere, Transnp.dat, the questions, and all or nothing.

#include "yearend/Adaptacion.h"
#include "Entorno.h"
#include "PlanAntiguo.h"
#include "platform/Ficheros.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/TablasPlan2007.h"
#include "yearend/TraducirCuenta.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <gtest/gtest.h>

namespace {

QString cuenta(Conexion& c, const QString& ncuenta, const char* campo = "Cuenta") {
    return c
        .escalar(
            QStringLiteral("SELECT %1 FROM Cuentas WHERE NCuenta = ?").arg(QLatin1String(campo)),
            {ncuenta})
        .toString();
}

QString grupo(Conexion& c, const QString& ngrupo) {
    return c.escalar("SELECT Grupo FROM Grupos WHERE NGrupo = ?", {ngrupo}).toString();
}

QStringList codigos(Conexion& c) {
    QStringList r;
    QSqlQuery q = c.ejecutar("SELECT NCuenta FROM Cuentas ORDER BY NCuenta");
    while (q.next())
        r << q.value(0).toString();
    return r;
}

TEST(Adaptacion, GruposSubcuentasYTransnp) {
    Entorno e;
    planAntiguo(e);
    e.asiento(QDate(2008, 2, 1), {Debe("522900050", 1200), Haber("157000001", 1200)});

    const ResultadoAdaptacion r = AdaptarPlan(e.sesion, e.dialogo);
    ASSERT_EQ(r.estado, ResultadoAdaptacion::Hecha);
    // The silent routine tells, it does not ask.
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    ASSERT_EQ(e.dialogo.informados.size(), 2);
    EXPECT_EQ(e.dialogo.informados[0], MsgAdaptar("Antigua SL", 2008, false));
    EXPECT_EQ(e.dialogo.informados[1], MsgAdaptacionConcluida);

    Conexion c = e.datos();
    // Added, renamed, deleted.
    EXPECT_EQ(grupo(c, "4103"), "SOCIOS POR DESEMBOLSOS NO EXIGIDOS");
    EXPECT_EQ(grupo(c, "0110"), "PRIMA DE EMISION O ASUNCION");
    EXPECT_EQ(grupo(c, "5219"), "OTRO INMOVILIZADO MATERIAL");
    EXPECT_FALSE(c.existe("SELECT 1 FROM Grupos WHERE NGrupo IN ('0111', '5229')"));
    // The account of negative results of earlier years is made when missing.
    EXPECT_EQ(cuenta(c, "012100104"), "Res.negativos años anteriores");

    // 5229 -> 5219 keeping the serial; the name marked and cut to the field's 30 characters.
    EXPECT_EQ(cuenta(c, "521900050"), "(*) " + NombreLargo.left(26));
    EXPECT_EQ(cuenta(c, "521900050").size(), 30);
    EXPECT_EQ(cuenta(c, "521900050", "NGrupo"), "5219");
    // 0293 -> 0294, where 00070 is taken (and stays, by the identity pair): the next serial.
    EXPECT_EQ(cuenta(c, "029400071"), "(*) Provisión participaciones");
    // 5210 -> 5201 first, so 5220 -> 5210 finds its serial free.
    EXPECT_EQ(cuenta(c, "520100051"), "(*) Investigación");
    EXPECT_EQ(cuenta(c, "521000051"), "(*) Terreno rústico");
    // 2402 -> 2403 and 2403 -> 2404: each moves once.
    EXPECT_EQ(cuenta(c, "240300060"), "(*) Proveedor del grupo");
    EXPECT_EQ(cuenta(c, "240400061"), "(*) Proveedor asociado");
    // The identity pair keeps code and name.
    EXPECT_EQ(cuenta(c, "029400070"), "Deterioro de valores");
    EXPECT_EQ(codigos(c),
              QStringList({"012100104", "029400070", "029400071", "157000001", "240300060",
                           "240400061", "520100051", "521000051", "521900050"}));

    // The entry follows its subaccount, and the ledger with it.
    EXPECT_EQ(c.escalar("SELECT NCuenta FROM Diario WHERE Debe > 0").toString(), "521900050");
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = '521900050'").toDouble(), 1200.0);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    // Transnp.dat: 18-byte records, old code then new, in the order moved.
    QFile f(RutaTransnp(e.sesion));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("029300070029400071240200060240300060240300061240400061"
                                      "521000051520100051522000051521000051522900050521900050"));
    EXPECT_EQ(r.movidas.size(), 6);

    // A second run finds the group 5219 and does nothing at all.
    e.dialogo.informados.clear();
    e.dialogo.textos.clear();
    const QStringList antes = codigos(c);
    EXPECT_EQ(AdaptarPlan(e.sesion, e.dialogo).estado, ResultadoAdaptacion::YaAdaptada);
    EXPECT_EQ(AdaptarPlanPreguntando(e.sesion, e.dialogo).estado, ResultadoAdaptacion::YaAdaptada);
    EXPECT_TRUE(e.dialogo.textos.isEmpty());
    EXPECT_EQ(codigos(c), antes);
    EXPECT_EQ(LeerTransnp(RutaTransnp(e.sesion)).size(), 6);
}

TEST(Adaptacion, LaPreguntaLargaYSuNo) {
    Entorno e;
    planAntiguo(e, 2009);
    e.dialogo.responder({false});
    EXPECT_EQ(AdaptarPlanPreguntando(e.sesion, e.dialogo).estado,
              ResultadoAdaptacion::NoConfirmada);
    ASSERT_EQ(e.dialogo.preguntas.size(), 1);
    EXPECT_EQ(e.dialogo.preguntas[0],
              "Se va a adaptar la contabilidad de Antigua SL, Ejercicio de 2009, al nuevo Plan "
              "General de Contabilidad para PYMES. Tras realizar el proceso deberá realizar "
              "algunos ajustes manualmente. Sería conveniente que dispusiese de copia de "
              "seguridad de los datos. Desea continuar?");
    {
        Conexion c = e.datos();
        EXPECT_FALSE(c.existe("SELECT 1 FROM Grupos WHERE NGrupo = '5219'"));
        EXPECT_EQ(cuenta(c, "522900050"), NombreLargo);
    }
    EXPECT_FALSE(QFile::exists(RutaTransnp(e.sesion)));

    e.dialogo.responder({true});
    EXPECT_EQ(AdaptarPlanPreguntando(e.sesion, e.dialogo).estado, ResultadoAdaptacion::Hecha);
    EXPECT_EQ(e.dialogo.informados.last(), MsgAdaptacionConcluida + " " + MsgAdaptacionRevisar);
}

// The other tables that name subaccounts: predesigned entries (their Subcuenta text marked),
// the inventory's two subaccounts, and the day-cash notes' NCuenta1 and NCuenta2.
TEST(Adaptacion, TraduceLasReferencias) {
    Entorno e;
    planAntiguo(e);
    {
        Conexion b = e.bavar();
        b.ejecutar("INSERT INTO AsPredi (Codigo, Nombre, Subcuenta, NCuenta) VALUES "
                   "(1, 'Compra', 'Proveedor', '240200060'), (1, 'Compra', 'Otro', '240300061'), "
                   "(1, 'Compra', 'Caja', '157000001'), (2, 'Libre', NULL, NULL)");
        b.ejecutar("INSERT INTO Inventario (NElemento, Nombre, SubctaAmort, SubctaDota) VALUES "
                   "(1, 'Nave', '522900050', '157000001')");
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO DelDia (\"Nº\", Fecha, NCuenta1, NCuenta2, Concepto, Importe) "
                   "VALUES (1, '2008-03-01', '157000001', '029300070', 'Pago', 10)");
    }
    ASSERT_EQ(AdaptarPlan(e.sesion, e.dialogo).estado, ResultadoAdaptacion::Hecha);

    Conexion b = e.bavar();
    QSqlQuery q = b.ejecutar("SELECT NCuenta, Subcuenta FROM AsPredi ORDER BY Codigo, Subcuenta");
    QStringList filas;
    while (q.next())
        filas << q.value(0).toString() + "|" + q.value(1).toString();
    EXPECT_EQ(filas, QStringList(
                         {"240400061|(*) Otro", "240300060|(*) Proveedor", "157000001|Caja", "|"}));
    q = b.ejecutar("SELECT SubctaAmort, SubctaDota FROM Inventario");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), "521900050");
    EXPECT_EQ(q.value(1).toString(), "157000001");
    Conexion c = e.datos();
    q = c.ejecutar("SELECT NCuenta1, NCuenta2 FROM DelDia");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toString(), "157000001");
    EXPECT_EQ(q.value(1).toString(), "029400071"); // the code it was given, not the pair's
}

// A failure anywhere leaves the chart, the company database and Transnp.dat as they were.
TEST(Adaptacion, TodoONada) {
    Entorno e;
    planAntiguo(e);
    const QList<RegistroTransnp> previos{{"111111111", "222222222"}};
    EscribirTransnp(RutaTransnp(e.sesion), previos);
    {
        Conexion b = e.bavar();
        b.ejecutar(b.enServidor() ? "DROP TABLE Inventario CASCADE" : "DROP TABLE Inventario");
    }
    EXPECT_THROW(AdaptarPlan(e.sesion, e.dialogo), ErrorAlmacen);
    Conexion c = e.datos();
    EXPECT_FALSE(c.existe("SELECT 1 FROM Grupos WHERE NGrupo IN ('5219', '4103')"));
    EXPECT_TRUE(c.existe("SELECT 1 FROM Grupos WHERE NGrupo = '0111'"));
    EXPECT_EQ(cuenta(c, "522900050"), NombreLargo);
    const QList<RegistroTransnp> despues = LeerTransnp(RutaTransnp(e.sesion));
    ASSERT_EQ(despues.size(), 1);
    EXPECT_EQ(despues[0].nuevo, "222222222");
}

TEST(TraducirCuenta, TransnpAntesQueLaTablaYLoDesconocidoIgual) {
    Entorno e;
    e.crearEmpresa("001", 2008, "Traducir");
    // Without Transnp.dat: the pair table, keeping the last five digits.
    EXPECT_EQ(TraducirCuenta(e.sesion, "522900050"), "521900050");
    EXPECT_EQ(TraducirCuenta(e.sesion, "011300006"), "011400006");
    EXPECT_EQ(TraducirCuenta(e.sesion, "029400007"), "029400007");
    // Neither in the file nor in the table: unchanged.
    EXPECT_EQ(TraducirCuenta(e.sesion, "157000001"), "157000001");
    EXPECT_EQ(TraducirCuenta(e.sesion, "999900001"), "999900001");

    EscribirTransnp(
        RutaTransnp(e.sesion),
        {{"522900050", "521900099"}, {"157000001", "157200003"}, {"522900050", "521900077"}});
    EXPECT_EQ(TraducirCuenta(e.sesion, "522900050"), "521900099"); // the first record
    EXPECT_EQ(TraducirCuenta(e.sesion, "157000001"), "157200003");
    EXPECT_EQ(TraducirCuenta(e.sesion, "522900051"), "521900051");
    QFile f(RutaTransnp(e.sesion));
    EXPECT_EQ(f.size(), 3 * 18);
}

// The names held as data cover every group the adaptation adds or renames.
TEST(TablasPlan2007, NombresDeLosGruposListados) {
    EXPECT_EQ(ParesGrupos().size(), 144);
    EXPECT_EQ(GruposAnadirPrimero().size(), 51);
    EXPECT_EQ(GruposAnadirSegundo().size(), 132);
    EXPECT_EQ(GruposEliminar().size(), 86);
    for (const QStringList* l : {&GruposAnadirPrimero(), &GruposAnadirSegundo()})
        for (const QString& k : *l) {
            const QString n = NombreGrupo2007(k);
            EXPECT_FALSE(n.isEmpty()) << k.toStdString();
            EXPECT_EQ(n, n.toUpper()) << k.toStdString();
        }
    EXPECT_EQ(NombreGrupo2007("4103"), "SOCIOS POR DESEMBOLSOS NO EXIGIDOS");
    EXPECT_EQ(NombreGrupo2007("0280"), "AMORTIZACION ACUMULADA DEL INMOVILIZADO INTANGIBLE");
    EXPECT_EQ(NombreGrupo2007("0110"), "PRIMA DE EMISION O ASUNCION");
    EXPECT_EQ(NombreGrupo2007("0129"), "RESULTADO DEL EJERCICIO");
    EXPECT_EQ(NombreGrupo2007("0281"), "AMORTIZACION ACUMULADA DEL INMOVILIZADO MATERIAL");
    EXPECT_TRUE(NombreGrupo2007("0999").isEmpty());
    // No group is both kept by a list and deleted by the last one.
    const QStringList& eliminar = GruposEliminar();
    for (const QString& k : GruposAnadirPrimero() + GruposAnadirSegundo())
        EXPECT_FALSE(eliminar.contains(k)) << k.toStdString();
    EXPECT_EQ(GrupoTraducido("5229"), "5219");
    EXPECT_EQ(GrupoTraducido("0294"), "0294");
    EXPECT_TRUE(GrupoTraducido("1570").isEmpty());
}

// The hooks: a new exercise of 2008 made from 2007 is adapted without asking; one made from
// 2008 is not; opening an exercise of 2008 or later that was never adapted asks.
TEST(Adaptacion, AlCrearYAlElegirEjercicio) {
    InstalarAdaptacionPlan();
    struct Quitar {
        ~Quitar() { AdaptacionPlan() = nullptr; }
    } quitar;
    Entorno e;
    planAntiguo(e, 2007);
    e.asiento(QDate(2007, 5, 1), {Debe("522900050", 300), Haber("157000001", 300)});

    CrearEjercicio(e.sesion, e.dialogo, 2008);
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    EXPECT_TRUE(e.dialogo.informados.contains(MsgAdaptacionConcluida));
    EXPECT_TRUE(PlanAdaptado(e.sesion));
    {
        Sesion s2007 = e.sesion;
        s2007.AnoActual = 2007;
        EXPECT_FALSE(PlanAdaptado(s2007)); // the exercise left keeps its chart and entries
        Conexion c = AbrirDatos(s2007);
        EXPECT_EQ(c.escalar("SELECT NCuenta FROM Diario WHERE Debe > 0").toString(), "522900050");
    }

    e.dialogo.informados.clear();
    CrearEjercicio(e.sesion, e.dialogo, 2009);
    EXPECT_TRUE(e.dialogo.informados.isEmpty());

    // An exercise of 2009 whose chart is the old one: choosing it asks.
    {
        Conexion c = e.datos();
        c.ejecutar("DELETE FROM Grupos WHERE NGrupo = '5219'");
    }
    e.dialogo.responder({false});
    ASSERT_TRUE(EntrarEnEmpresa(e.sesion, *e.ajustes, e.dialogo, "Emp001", "Antigua SL", 2009));
    ASSERT_EQ(e.dialogo.preguntas.size(), 1);
    EXPECT_EQ(e.dialogo.preguntas[0], MsgAdaptar("Antigua SL", 2009, true));
    EXPECT_FALSE(PlanAdaptado(e.sesion));
}

TEST(Adaptacion, LineaDeOrdenes) {
    Entorno e;
    planAntiguo(e, 2008);
    const QString carpeta = e.dir.path();
    // On the engine of the run.
    const QStringList motor =
        e.sesion.enServidor() ? QStringList{"--servidor", e.sesion.UrlServidor} : QStringList();
    auto EjecutarCli = [&](const QString& datos, const QStringList& args) {
        return ::EjecutarCli(datos, motor + args);
    };
    const QString& datos = carpeta;
    ResultadoCli r = EjecutarCli(datos, {"--empresa", "Emp001", "--ano", "2008", "adaptar"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("Desea continuar?")) << r.error.toStdString();
    r = EjecutarCli(datos,
                    {"--empresa", "Emp001", "--ano", "2008", "traducir-cuenta", "029300070"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_EQ(r.salida.trimmed(), "029400070"); // the pair table: nothing moved yet

    r = EjecutarCli(datos, {"--empresa", "Emp001", "--ano", "2008", "adaptar", "--si"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("029300070\t029400071")) << r.salida.toStdString();
    EXPECT_TRUE(r.error.contains(MsgAdaptacionRevisar));
    r = EjecutarCli(datos,
                    {"--empresa", "Emp001", "--ano", "2008", "traducir-cuenta", "029300070"});
    EXPECT_EQ(r.salida.trimmed(), "029400071"); // now Transnp.dat knows better
    r = EjecutarCli(datos, {"--empresa", "Emp001", "--ano", "2008", "adaptar", "--si"});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_TRUE(r.error.contains(MsgYaAdaptada));
    r = EjecutarCli(datos, {"--empresa", "Emp001", "--ano", "2008", "traducir-cuenta", "12"});
    EXPECT_EQ(r.codigo, 1);
}

} // namespace

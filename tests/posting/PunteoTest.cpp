// Reconciliation: ticking, matching groups and their four states, the candidates of a join,
// cancelling, the repair of groups after entries change, and the views.

#include "posting/Punteo.h"
#include "ComunAsientos.h"
#include "journal/Casaciones.h"
#include "posting/EstadoTablero.h"
#include "posting/GestionAsientos.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

using namespace cuentas;

namespace {

class Casacion : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }

    // An invoice to the customer: its customer line (NAp 1) is a debit.
    long factura(double importe, const QString& doc = {}) {
        Apunte c = Debe(Clientes, importe, "Factura");
        c.Documento = doc;
        return e.asiento(QDate(2024, 3, 1), {c, Haber(Ventas, importe, "Factura")});
    }
    // A collection from the customer: its customer line (NAp 2) is a credit.
    long cobro(double importe, const QString& doc = {}) {
        Apunte c = Haber(Clientes, importe, "Cobro");
        c.Documento = doc;
        return e.asiento(QDate(2024, 4, 1), {Debe(Banco, importe, "Cobro"), c});
    }
    // "CasacionN" of a line, or "-" when it belongs to no group.
    QString estado(long nas, long nap) {
        Conexion c = e.datos();
        const std::optional<LineaPunteo> l = LeerLineaPunteo(c, nas, nap);
        if (!l)
            return "?";
        return l->EnGrupo() ? QString::number(l->CasacionN) : "-";
    }
    QStringList estados(const QList<std::pair<long, long>>& lineas) {
        QStringList r;
        for (const auto& [nas, nap] : lineas)
            r << estado(nas, nap);
        return r;
    }
    double clave(long nas, long nap) {
        Conexion c = e.datos();
        return LeerLineaPunteo(c, nas, nap)->CasacionH;
    }

    Entorno e;
    Punteo p{e.sesion, e.dialogo};
    int elecciones = 0;
    ElegirInicio sinElegir = [this](const QString&, const QList<LineaPunteo>&) {
        ++elecciones;
        return std::optional<int>();
    };
};

TEST_F(Casacion, CienSesentaCuarentaHastaCasarTotalmente) {
    const long f = factura(100), c1 = cobro(60), c2 = cobro(40);
    const QList<LineaPunteo> inicio = p.ComoInicio(f, 1);
    ASSERT_EQ(inicio.size(), 1);
    EXPECT_EQ(inicio.first().CasacionN, EstadoCasacion::Inicio);
    EXPECT_GT(inicio.first().CasacionH, 45000) << "a day number of today";

    QList<LineaPunteo> grupo = p.ComoFinal(c1, 2, sinElegir);
    ASSERT_EQ(grupo.size(), 2);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"0", "3"})) << "100 - 60 is still open";
    EXPECT_EQ(clave(c1, 2), clave(f, 1));

    grupo = p.ComoFinal(c2, 2, sinElegir);
    ASSERT_EQ(grupo.size(), 3);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}, {c2, 2}}), QStringList({"2", "1", "1"}));
    EXPECT_EQ(elecciones, 0) << "one start fits: it is taken without asking";
    EXPECT_TRUE(e.dialogo.informados.isEmpty()) << e.dialogo.informados.join('|').toStdString();

    // A balanced group takes no more lines, and a line already in a group joins none.
    const long c3 = cobro(10);
    EXPECT_TRUE(p.ComoFinal(c3, 2, sinElegir).isEmpty());
    EXPECT_TRUE(p.ComoFinal(c2, 2, sinElegir).isEmpty());
    EXPECT_TRUE(p.ComoInicio(c1, 2).isEmpty());
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgNoHayInicio, MsgYaEnCasacion, MsgYaEnCasacion}));
    EXPECT_EQ(estado(c3, 2), "-");
}

TEST_F(Casacion, SinInicioDelLadoContrarioEnSuSubcuenta) {
    const long c1 = cobro(60), c2 = cobro(30);
    // A start on the same side, and one of another subaccount, are no starts for a credit line.
    ASSERT_EQ(p.ComoInicio(c2, 2).size(), 1);
    ASSERT_EQ(p.ComoInicio(c1, 1).size(), 1); // the bank's debit line
    EXPECT_TRUE(p.ComoFinal(c1, 2, sinElegir).isEmpty());
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgNoHayInicio}));
    EXPECT_EQ(estado(c1, 2), "-");
    // A line that is not in the journal.
    EXPECT_TRUE(p.ComoFinal(1234, 1, sinElegir).isEmpty());
    EXPECT_EQ(e.dialogo.informados.last(), "No se encontró el Asiento nº 1.234.");
}

TEST_F(Casacion, VariosIniciosSeEligenOSeCancela) {
    const long f1 = factura(100), f2 = factura(50), c = cobro(50);
    p.ComoInicio(f1, 1);
    p.ComoInicio(f2, 1);
    QStringList vistos;
    QString subcuenta;
    int respuesta = -1;
    const ElegirInicio elegir = [&](const QString& s, const QList<LineaPunteo>& candidatos) {
        subcuenta = s;
        for (const LineaPunteo& l : candidatos)
            vistos << QStringLiteral("%1:%2").arg(l.NAs).arg(l.NAp);
        return respuesta < 0 ? std::optional<int>() : std::optional<int>(respuesta);
    };
    EXPECT_TRUE(p.ComoFinal(c, 2, elegir).isEmpty()) << "cancelled";
    EXPECT_EQ(vistos, QStringList({QString("%1:1").arg(f1), QString("%1:1").arg(f2)}));
    EXPECT_TRUE(subcuenta.startsWith(Clientes));
    EXPECT_EQ(estado(c, 2), "-");

    respuesta = 1;
    EXPECT_EQ(p.ComoFinal(c, 2, elegir).size(), 2);
    EXPECT_EQ(estados({{f1, 1}, {f2, 1}, {c, 2}}), QStringList({"0", "2", "1"}));
}

TEST_F(Casacion, CuadraSoloConSumaCeroAlCentimo) {
    // 0.10 + 0.20 - 0.30 is not zero in binary floating point; to the cent it is.
    const long f = factura(0.30), c1 = cobro(0.10), c2 = cobro(0.20);
    ASSERT_TRUE(p.Casar({{f, 1}, {c1, 2}, {c2, 2}}).size() == 3);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}, {c2, 2}}), QStringList({"2", "1", "1"}));
    // A cent short stays open.
    const long g = factura(100), d = cobro(99.99);
    p.Casar({{g, 1}, {d, 2}});
    EXPECT_EQ(estados({{g, 1}, {d, 2}}), QStringList({"0", "3"}));
    Conexion c = e.datos();
    EXPECT_EQ(SumaGrupo(c, clave(g, 1)), 0.01);
}

TEST_F(Casacion, CasarDeLineaDeComandoEsTodoONada) {
    const long f = factura(100), c1 = cobro(60), c2 = cobro(40);
    // The bank's debit line is of another subaccount: nothing is written, not even the start.
    EXPECT_TRUE(p.Casar({{f, 1}, {c1, 2}, {c2, 1}}).isEmpty());
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgNoHayInicio}));
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"-", "-"}));
    // A line on the start's own side can't join either.
    const long f2 = factura(5);
    EXPECT_TRUE(p.Casar({{f, 1}, {f2, 1}}).isEmpty());
    EXPECT_EQ(estado(f, 1), "-");

    ASSERT_EQ(p.Casar({{f, 1}, {c1, 2}}).size(), 2);
    // An open start takes more lines from a later call.
    ASSERT_EQ(p.Casar({{f, 1}, {c2, 2}}).size(), 3);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}, {c2, 2}}), QStringList({"2", "1", "1"}));
}

TEST_F(Casacion, AnularVuelveAGraduarElGrupo) {
    const long f = factura(100), c1 = cobro(60), c2 = cobro(40), c3 = cobro(100), c4 = cobro(50);
    p.Casar({{f, 1}, {c1, 2}, {c2, 2}});

    EXPECT_TRUE(p.Anular(c2, 2).isEmpty()) << "answered No";
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Está seguro de que desea anular esta partida de la casación?"}));
    EXPECT_EQ(estado(c2, 2), "1");

    e.dialogo.responder({true});
    const QList<LineaPunteo> r = p.Anular(c2, 2);
    ASSERT_EQ(r.size(), 3) << "the line and what is left of its group";
    EXPECT_EQ(estados({{f, 1}, {c1, 2}, {c2, 2}}), QStringList({"0", "3", "-"}));
    EXPECT_EQ(clave(c2, 2), 0);

    // The only joined line leaves: the start stays open, alone.
    e.dialogo.responder({true});
    p.Anular(c1, 2);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"0", "-"}));

    // 100 against 100 and 50 is open; taking the 50 out leaves it balanced.
    p.Casar({{f, 1}, {c3, 2}, {c4, 2}});
    EXPECT_EQ(estados({{f, 1}, {c3, 2}, {c4, 2}}), QStringList({"0", "3", "3"}));
    e.dialogo.responder({true});
    p.Anular(c4, 2);
    EXPECT_EQ(estados({{f, 1}, {c3, 2}, {c4, 2}}), QStringList({"2", "1", "-"}));

    // A line in no group has nothing to cancel, and nothing is asked.
    e.dialogo.preguntas.clear();
    EXPECT_TRUE(p.Anular(c4, 2).isEmpty());
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinCasacion);
}

TEST_F(Casacion, LosGruposSeReparanAlBorrarOCambiarAsientos) {
    const long f = factura(100), c1 = cobro(60), c2 = cobro(40);
    p.Casar({{f, 1}, {c1, 2}, {c2, 2}});
    Conexion c = e.datos();

    // Deleting the 40 leaves 100 against 60: open again, in the same transaction.
    ASSERT_TRUE(ElimAsiento(c, e.sesion, c2));
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"0", "3"}));

    // The 60 rewritten as 100 (its lines keep their marks, as entry maintenance writes them):
    // the group balances.
    QList<Apunte> lineas{Debe(Banco, 100, "Cobro"), Haber(Clientes, 100, "Cobro")};
    lineas[1].CasacionN = EstadoCasacion::Casado;
    lineas[1].CasacionH = clave(c1, 2);
    ASSERT_EQ(ReescribirAsiento(c, e.sesion, c1, QDate(2024, 4, 1), lineas), c1);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"2", "1"}));

    // Marks written wrong by other means are put right by the verification.
    EXPECT_EQ(CompCasa(c), 0) << "nothing to repair";
    c.ejecutar("UPDATE Diario SET CasacionN = CASE CasacionN WHEN 2 THEN 0 ELSE 3 END "
               "WHERE CasacionH <> 0");
    EXPECT_EQ(p.CompCasa(), 2);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"2", "1"}));
}

TEST_F(Casacion, ElMantenimientoConservaLasMarcasAlReescribir) {
    const long f = factura(100), c1 = cobro(100);
    p.Casar({{f, 1}, {c1, 2}});
    const double k = clave(c1, 2);
    GestionAsientos g(e.sesion, e.dialogo);
    ASSERT_TRUE(g.VMAsiento(c1));
    g.Concepto = "Cobro";
    g.SeleccionarLinea(1);
    g.Documento = "R-7";
    ASSERT_EQ(g.Pulsar().tipo, ResultadoF7::Tipo::Linea);
    ASSERT_EQ(g.Pulsar().tipo, ResultadoF7::Tipo::Guardado)
        << e.dialogo.informados.join('|').toStdString();
    EXPECT_EQ(clave(c1, 2), k);
    EXPECT_EQ(estados({{f, 1}, {c1, 2}}), QStringList({"2", "1"}));
}

TEST_F(Casacion, PorDocumentoUnaLineaOTodas) {
    const long f1 = factura(100, "V-1"), f2 = factura(80, "V-2");
    const long c1 = cobro(100, "V-1"), c2 = cobro(30, "V-2"), c3 = cobro(50, "V-2"),
               c4 = cobro(20, "V-9"), c5 = cobro(5);
    p.ComoInicio(f1, 1);
    p.ComoInicio(f2, 1);

    // By document, the 30 of V-2 finds only the start of V-2, though two starts are open.
    ASSERT_EQ(p.ComoFinal(c2, 2, sinElegir, true).size(), 2);
    EXPECT_EQ(elecciones, 0);
    EXPECT_EQ(estados({{f2, 1}, {c2, 2}}), QStringList({"0", "3"}));
    // A line without a document matches nothing by document.
    EXPECT_TRUE(p.ComoFinal(c5, 2, sinElegir, true).isEmpty());
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgNoHayInicio}));

    // All of them: V-1 and the rest of V-2 join; V-9 has no start; the bank lines have none.
    EXPECT_EQ(p.CasarTodosPorDocumento({}), 2);
    EXPECT_EQ(estados({{f1, 1}, {c1, 2}, {f2, 1}, {c2, 2}, {c3, 2}, {c4, 2}, {c5, 2}}),
              QStringList({"2", "1", "2", "1", "1", "-", "-"}));
}

TEST_F(Casacion, PunteoYLasSeisVistas) {
    const long f = factura(100), c1 = cobro(100), f2 = factura(70), c2 = cobro(20);
    p.Casar({{f, 1}, {c1, 2}});  // balanced
    p.Casar({{f2, 1}, {c2, 2}}); // open
    const std::optional<LineaPunteo> t = p.Puntear(c1, 1);
    ASSERT_TRUE(t);
    EXPECT_TRUE(t->Punteo);
    ASSERT_TRUE(p.FijarPunteo({{c2, 1}}, true));
    EXPECT_FALSE(p.Puntear(c2, 1)->Punteo) << "a click turns the tick over";
    ASSERT_TRUE(p.FijarPunteo({{c2, 1}, {f2, 2}}, true));
    // All or none: a missing line leaves the ticks as they were.
    EXPECT_FALSE(p.FijarPunteo({{f, 2}, {99, 1}}, true));
    EXPECT_EQ(e.dialogo.informados.last(), "No se encontró el Asiento nº 99.");

    auto ver = [&](VistaPunteo v, const QString& ncuenta = {}) {
        Conexion c = e.datos();
        QStringList r;
        for (const LineaPunteo& l : LeerLineasPunteo(c, {ncuenta, {}, {}, v}))
            r << QStringLiteral("%1:%2").arg(l.NAs).arg(l.NAp);
        return r.join(' ');
    };
    EXPECT_EQ(ver(VistaPunteo::Todos, Clientes), "1:1 2:2 3:1 4:2");
    EXPECT_EQ(ver(VistaPunteo::Punteados), "2:1 3:2 4:1");
    EXPECT_EQ(ver(VistaPunteo::NoPunteados, Clientes), "1:1 2:2 3:1 4:2");
    EXPECT_EQ(ver(VistaPunteo::CasadosTotalmente), "1:1 2:2");
    // Unmarked lines also hold CasacionN 0, yet they are not partly matched.
    EXPECT_EQ(ver(VistaPunteo::CasadosParcialmente), "3:1 4:2");
    EXPECT_EQ(ver(VistaPunteo::NoCasados), "1:2 2:1 3:2 4:1");
    Conexion c = e.datos();
    const QList<LineaPunteo> periodo =
        LeerLineasPunteo(c, {Clientes, QDate(2024, 4, 1), QDate(2024, 4, 30), VistaPunteo::Todos});
    EXPECT_EQ(periodo.size(), 2) << "the collections of April";
}

TEST_F(Casacion, CadaInicioDeUnAsientoAbreSuGrupo) {
    // Two lines marked as starts on the posting screen are written in the same instant.
    EstadoTablero tablero;
    Contabilizar k(e.sesion, e.dialogo, tablero);
    auto fila = [&](const QString& ncuenta, const QString& debe, const QString& haber) {
        const int f = k.Rejilla.anadirFila();
        k.Rejilla.fijar(f, ColF4::Fecha, "20/04/2024");
        k.Rejilla.fijar(f, ColF4::Concepto, "Facturas");
        k.Rejilla.fijar(f, ColF4::NCuenta, ncuenta);
        k.Rejilla.fijar(f, ColF4::Debe, debe);
        k.Rejilla.fijar(f, ColF4::Haber, haber);
        return f;
    };
    k.Rejilla.fijar(fila(Clientes, "100,00", ""), ColF4::Casacion, "0");
    k.Rejilla.fijar(fila(Acreedor, "50,00", ""), ColF4::Casacion, "0");
    fila(Ventas, "", "150,00");
    ASSERT_EQ(k.Publicar({}).tipo, ResultadoAceptar::Tipo::Contabilizado)
        << e.dialogo.informados.join('|').toStdString();
    const double k1 = clave(1, 1), k2 = clave(1, 2);
    EXPECT_NE(k1, 0);
    EXPECT_NE(k2, 0);
    EXPECT_NE(k1, k2);
    // A key is written with ten decimals at most, and a new one lies above every key in use.
    EXPECT_EQ(k1, RedondearClave(k1));
    Conexion c = e.datos();
    c.ejecutar("UPDATE Diario SET CasacionH = 99999.5 WHERE NAp = 2");
    EXPECT_GT(NuevaClaveCasacion(c), 99999.5);
    EXPECT_EQ(TextoClaveCasacion(45352.5), "45352.500000000");
    EXPECT_EQ(TextoClaveCasacion(45352.1234567891), "45352.1234567891");
}

} // namespace

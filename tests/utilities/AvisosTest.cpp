// Reminders without the screens: what "&Aceptar" refuses and writes, the start-up step (one step
// forward per start, the days of warning), the automatic deletion of past reminders, the
// settings kept when the window closes, the calendar's month and its repeat marks, and the
// printed list.

#include "utilities/Avisos.h"
#include "Entorno.h"
#include "platform/ImpresoraGrabadora.h"
#include "store/Conexiones.h"
#include "utilities/CalendarioAvisos.h"
#include "utilities/ListadoAvisos.h"

#include <gtest/gtest.h>

namespace {

QDate F(int a, int m, int d) {
    return QDate(a, m, d);
}

class Avisos : public ::testing::Test {
protected:
    // A reminder written straight into the table, whatever its date.
    long poner(const QDate& fecha, const QString& texto, int periodo = 0) {
        Conexion c = AbrirAvisos(e.sesion);
        const long n = c.escalar("SELECT COALESCE(MAX(NAviso), 0) + 1 FROM Avisos").toLongLong();
        c.ejecutar("INSERT INTO Avisos (NAviso, Fecha, Texto, Periodo) VALUES (?, ?, ?, ?)",
                   {qint64(n), fecha.toString(Qt::ISODate), texto, periodo});
        return n;
    }
    QList<Aviso> todos() {
        Conexion c = AbrirAvisos(e.sesion);
        return LeerAvisos(c);
    }
    QDate fechaDe(long n) {
        Conexion c = AbrirAvisos(e.sesion);
        return LeerAviso(c, n)->Fecha;
    }
    bool existe(long n) {
        Conexion c = AbrirAvisos(e.sesion);
        return LeerAviso(c, n).has_value();
    }
    static QStringList textos(const QList<Aviso>& l) {
        QStringList r;
        for (const Aviso& a : l)
            r << a.Texto;
        return r;
    }
    long guardar(const QDate& fecha, const QString& texto, const QString& periodo = {},
                 bool anadir = true, long modificar = 0) {
        DatosAviso d{fecha, texto, !periodo.isEmpty(), periodo};
        return GuardarAviso(e.sesion, e.dialogo, d, anadir, modificar, hoy);
    }
    Entorno e;
    const QDate hoy = F(2026, 5, 10);
};

TEST_F(Avisos, AceptarRechazaLoIncompletoLoPasadoYLaPeriodicidadFueraDeRango) {
    EXPECT_EQ(guardar(QDate(), "Pagar el seguro"), 0);
    EXPECT_EQ(guardar(hoy, "   "), 0);
    EXPECT_EQ(guardar(hoy.addDays(-1), "Ayer"), 0);
    for (const char* p : {"0", "13", "x", "-1"})
        EXPECT_EQ(guardar(hoy, "Mal periodo", p), 0) << p;
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgAvisoIncompleto, MsgAvisoIncompleto, MsgAvisoPasado, MsgPeriodicidad,
                           MsgPeriodicidad, MsgPeriodicidad, MsgPeriodicidad}));
    EXPECT_TRUE(todos().isEmpty());
    // A text the field cannot hold is refused with the field's own message.
    EXPECT_THROW(guardar(hoy, QString(256, 'x')), Rechazo);
    EXPECT_THROW(guardar(hoy, "Dos\nlíneas"), Rechazo);
    EXPECT_TRUE(todos().isEmpty());
}

TEST_F(Avisos, AnadirYModificar) {
    // Today itself is not in the past.
    const long a = guardar(hoy, "Hoy mismo");
    const long b = guardar(F(2026, 6, 1), "Trimestral", "4");
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    EXPECT_EQ(guardar(F(2026, 7, 1), "Sin elegir", {}, false, 0), 0);
    EXPECT_EQ(e.dialogo.informados.last(), MsgAvisoSinElegir);
    EXPECT_EQ(guardar(F(2026, 7, 1), "No existe", {}, false, 99), 0);
    EXPECT_EQ(e.dialogo.informados.last(), MsgAvisoNoEncontrado);
    // Changing the quarterly one into a one-off on another date.
    EXPECT_EQ(guardar(F(2026, 5, 20), "  Ya no se repite ", {}, false, b), b);
    const QList<Aviso> l = todos();
    ASSERT_EQ(l.size(), 2);
    EXPECT_EQ(l[1].Fecha, F(2026, 5, 20));
    EXPECT_EQ(l[1].Texto, "Ya no se repite");
    EXPECT_EQ(l[1].Periodo, 0);
    EXPECT_EQ(l[0].Periodo, 0);
    // Deleting asks first, naming date and text; No keeps it.
    e.dialogo.responder({false, true});
    EXPECT_FALSE(EliminarAvisoPreguntando(e.sesion, e.dialogo, a));
    EXPECT_TRUE(EliminarAvisoPreguntando(e.sesion, e.dialogo, a));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar el Aviso de fecha 10/05/2026 y texto Hoy mismo ?");
    EXPECT_EQ(textos(todos()), QStringList({"Ya no se repite"}));
}

TEST_F(Avisos, CadaArranqueAdelantaUnSoloPaso) {
    const long mensual = poner(F(2026, 3, 12), "Mensual atrasado dos meses", 12);
    const long anual = poner(F(2025, 11, 30), "Anual", 1);
    const long trimestral = poner(F(2026, 4, 1), "Trimestral", 4);
    const long unaVez = poner(F(2026, 4, 1), "Una vez, pasado");
    const long futuro = poner(F(2026, 9, 1), "Mensual futuro", 12);

    // First start: each late repeating reminder moves one step, however late it is.
    EXPECT_TRUE(PasoAvisosArranque(e.sesion, *e.ajustes, hoy).isEmpty());
    EXPECT_EQ(fechaDe(mensual), F(2026, 4, 12));
    EXPECT_EQ(fechaDe(anual), F(2026, 11, 30));
    EXPECT_EQ(fechaDe(trimestral), F(2026, 7, 1));
    EXPECT_EQ(fechaDe(unaVez), F(2026, 4, 1));
    EXPECT_EQ(fechaDe(futuro), F(2026, 9, 1));

    // Second start the same day: the monthly one reaches this month and is due (7 days).
    EXPECT_EQ(textos(PasoAvisosArranque(e.sesion, *e.ajustes, hoy)),
              QStringList({"Mensual atrasado dos meses"}));
    EXPECT_EQ(fechaDe(mensual), F(2026, 5, 12));
    // Nothing is past any more: a third start moves nothing.
    PasoAvisosArranque(e.sesion, *e.ajustes, hoy);
    EXPECT_EQ(fechaDe(mensual), F(2026, 5, 12));
    EXPECT_EQ(fechaDe(trimestral), F(2026, 7, 1));
}

TEST_F(Avisos, PendientesEsLoQueMostraríaElArranqueSinEscribir) {
    const long mensual = poner(F(2026, 4, 12), "Mensual", 12);
    EXPECT_EQ(textos(AvisosPendientes(e.sesion, *e.ajustes, hoy)), QStringList({"Mensual"}));
    EXPECT_EQ(fechaDe(mensual), F(2026, 4, 12));
}

TEST_F(Avisos, DiasDeAntelacion) {
    poner(hoy, "Hoy");
    poner(hoy.addDays(1), "Mañana");
    poner(hoy.addDays(7), "En siete días");
    poner(hoy.addDays(8), "En ocho días");
    poner(hoy.addDays(-1), "Ayer, una vez");
    // Seven days by default: from a week before until the day itself.
    EXPECT_EQ(textos(AvisosPendientes(e.sesion, *e.ajustes, hoy)),
              QStringList({"Hoy", "Mañana", "En siete días"}));
    // 0: a reminder only on its day.
    e.ajustes->escribir("Valores", "DiasAv", "0");
    EXPECT_EQ(textos(AvisosPendientes(e.sesion, *e.ajustes, hoy)), QStringList({"Hoy"}));
    EXPECT_EQ(textos(AvisosPendientes(e.sesion, *e.ajustes, hoy.addDays(1))),
              QStringList({"Mañana"}));
}

TEST_F(Avisos, EliminacionAutomaticaDeLosVencidos) {
    poner(hoy, "Una vez, hoy");
    poner(hoy.addDays(-1), "Una vez, ayer");
    const long mensual = poner(hoy.addDays(-3), "Mensual sin adelantar", 12);
    poner(hoy.addDays(3), "Dentro de tres días");

    // NO: the past stay on the list, and are never shown again.
    e.ajustes->escribir("Valores", "ElimAuto", "NO");
    EXPECT_EQ(EliminarAvisosVencidos(e.sesion, *e.ajustes, hoy), 0);
    EXPECT_EQ(todos().size(), 4);
    EXPECT_FALSE(
        textos(AvisosPendientes(e.sesion, *e.ajustes, hoy.addDays(5))).contains("Una vez, ayer"));

    // SI (the default): everything dated before today goes, a repeating one not yet rolled
    // forward included; today's stays, and goes the next day.
    e.ajustes->borrar("Valores", "ElimAuto");
    EXPECT_EQ(EliminarAvisosVencidos(e.sesion, *e.ajustes, hoy), 2);
    EXPECT_EQ(textos(todos()), QStringList({"Una vez, hoy", "Dentro de tres días"}));
    EXPECT_FALSE(existe(mensual));
    EXPECT_EQ(EliminarAvisosVencidos(e.sesion, *e.ajustes, hoy.addDays(1)), 1);
    EXPECT_EQ(textos(todos()), QStringList({"Dentro de tres días"}));
}

TEST_F(Avisos, OpcionesAlCerrarLaVentana) {
    Ajustes& a = *e.ajustes;
    for (const char* mal : {"", "siete", "2,5", "-1"}) {
        EXPECT_FALSE(GuardarOpcionesAvisos(a, e.dialogo, mal, false)) << mal;
        EXPECT_EQ(e.dialogo.informados.last(), MsgDiasAvisoNoValido);
    }
    EXPECT_FALSE(a.existe("Valores", "DiasAv"));
    EXPECT_FALSE(a.existe("Valores", "ElimAuto"));
    // Up to 30 without a question; above, only if confirmed.
    EXPECT_TRUE(GuardarOpcionesAvisos(a, e.dialogo, "30", false));
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());
    EXPECT_EQ(a.leer("Valores", "DiasAv"), "30");
    EXPECT_EQ(a.leer("Valores", "ElimAuto"), "NO");
    e.dialogo.responder({false, true});
    EXPECT_FALSE(GuardarOpcionesAvisos(a, e.dialogo, "45", true));
    EXPECT_EQ(a.leer("Valores", "DiasAv"), "30");
    EXPECT_TRUE(GuardarOpcionesAvisos(a, e.dialogo, "45", true));
    EXPECT_EQ(e.dialogo.preguntas.last(), "Ha introducido como número de días de antelación con "
                                          "que se producirá el Aviso 45 Es correcto?");
    EXPECT_EQ(DiasAviso(a), 45);
    EXPECT_EQ(a.leer("Valores", "ElimAuto"), "SI");
}

TEST(PasoAviso, MesesDeCadaPeriodoYFinDeMes) {
    QList<int> meses;
    for (int p = 1; p <= 12; ++p)
        meses << MesesPorPaso(p);
    // 12 / Periodo, to the nearest whole month where it is not whole.
    EXPECT_EQ(meses, QList<int>({12, 6, 4, 3, 2, 2, 2, 2, 1, 1, 1, 1}));
    // The 31st of a month steps to the last day of a shorter one.
    EXPECT_EQ(SiguienteFecha(F(2026, 1, 31), 12), F(2026, 2, 28));
    EXPECT_EQ(SiguienteFecha(F(2027, 11, 30), 4), F(2028, 2, 29));
}

TEST(CalendarioAvisos, CuarentaYDosCeldasDesdeElDiaDeLaSemanaDelUno) {
    // March 2026 begins on a Sunday: six empty cells, then 31 days, then empty ones.
    const MesCalendario m = LlenarCalendario({}, 2026, 3, F(2026, 3, 1));
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(m[i].dia.isValid());
    EXPECT_EQ(m[6].dia, F(2026, 3, 1));
    EXPECT_EQ(m[36].dia, F(2026, 3, 31));
    for (int i = 37; i < CeldasCalendario; ++i)
        EXPECT_FALSE(m[i].dia.isValid());
    // June 2026 begins on a Monday.
    EXPECT_EQ(LlenarCalendario({}, 2026, 6, F(2026, 3, 1))[0].dia, F(2026, 6, 1));
}

TEST(CalendarioAvisos, MarcasDeLasRepeticiones) {
    const QDate hoy = F(2026, 3, 20);
    const Aviso trimestral{1, F(2026, 1, 15), "Trimestral", 4};
    const Aviso unaVez{2, F(2026, 3, 25), "Una vez", 0};
    const Aviso pasado{3, F(2026, 3, 2), "Una vez, pasado", 0};
    const Aviso fin{4, F(2026, 1, 31), "Fin de mes", 12};
    const Aviso cinco{5, F(2026, 1, 10), "Cinco al año", 5};
    const QList<Aviso> avisos{trimestral, unaVez, pasado, fin, cinco};

    auto marcados = [&](int ano, int mes) {
        QList<int> r;
        for (const CeldaCalendario& c : LlenarCalendario(avisos, ano, mes, hoy))
            if (c.marca)
                r << c.dia.day();
        return r;
    };
    // Every three months from its own month on, not before it; a one-off only while not past.
    EXPECT_EQ(marcados(2026, 1), QList<int>({10, 15, 31}));
    EXPECT_EQ(marcados(2026, 3), QList<int>({25, 31}));
    EXPECT_EQ(marcados(2026, 4), QList<int>({15, 30}));
    EXPECT_EQ(marcados(2027, 1), QList<int>({10, 15, 31}));
    EXPECT_EQ(marcados(2025, 10), QList<int>());
    // Five times a year: the months between divided by 12 / 5 are whole only every twelve
    // months, so the calendar marks it once a year.
    EXPECT_FALSE(marcados(2026, 3).contains(10));
    EXPECT_EQ(AvisosDelDia(avisos, F(2026, 4, 15), hoy).size(), 1);
    EXPECT_EQ(AvisosDelDia(avisos, F(2026, 4, 15), hoy)[0].Texto, "Trimestral");
    EXPECT_TRUE(AvisosDelDia(avisos, F(2026, 3, 2), hoy).isEmpty());
}

TEST_F(Avisos, ListaImpresaConSuEncabezado) {
    poner(F(2026, 6, 1), "Pagar el seguro del local", 1);
    poner(F(2026, 5, 15), "Llamar al gestor");
    Rejilla r = RejillaAvisos();
    LlenarRejillaAvisos(todos(), r);
    ASSERT_EQ(r.Filas(), 2);
    EXPECT_EQ(r.Fila(0), QStringList({"15/05/2026", "Llamar al gestor", "", "2"}));
    EXPECT_EQ(r.Fila(1), QStringList({"01/06/2026", "Pagar el seguro del local", "1", "1"}));
    ImpresoraGrabadora imp;
    DibujoListaAvisos(r, OpcionesListaAvisos(*e.ajustes, hoy))(imp, 1);
    ASSERT_EQ(imp.paginas(), 1) << imp.volcado().toStdString();
    // No company line (the reminders are the installation's). The third heading has always
    // read "Importe", over the times a year.
    EXPECT_EQ(imp.textosDePagina(1),
              QStringList({TituloListaAvisos, "Fecha: 10/05/2026", "Fecha", "Texto", "Importe",
                           "15/05/2026", "Llamar al gestor", "01/06/2026",
                           "Pagar el seguro del local", "1", "Página nº 1"}));
}

} // namespace

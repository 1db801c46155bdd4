// The statements over real exercise files: the balances before closing read from the journal,
// the previous year from its own file, and nothing written by looking.
#include "Entorno.h"
#include "annual/Estados.h"
#include "journal/Escritor.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Formato.h"
#include "yearend/Cierre.h"

#include <gtest/gtest.h>

namespace {

const QString Caja = QStringLiteral("157000001");

// Every row of a table, in a fixed order, as text: the state a statement must leave untouched.
QString Volcado(Conexion& c, const QString& tabla, const QString& orden) {
    QString v;
    Lector l(c, QStringLiteral("SELECT * FROM %1 ORDER BY %2").arg(tabla, orden));
    while (l.siguiente())
        for (int i = 0; i < 40; ++i) // columns past a table's last read as empty
            v += l.texto(i) + u'|';
    return v;
}

QString Estado(Entorno& e) {
    Conexion c = e.datos();
    return Volcado(c, QStringLiteral("Diario"), QStringLiteral("NAs, NAp")) + u'#' +
           Volcado(c, QStringLiteral("Mayor"), QStringLiteral("NCuenta")) + u'#' +
           Volcado(c, QStringLiteral("Empresa"), QStringLiteral("1"));
}

void Ejercicio(Entorno& e, int ano) {
    e.sesion.AnoActual = static_cast<qint16>(ano);
    CargarEjercicio(e.sesion);
}

// Every cell, bold mark and merge of a grid.
QStringList Celdas(const Rejilla& r) {
    QStringList t{r.Titulos().join(u'\t')};
    for (int f = 0; f < r.Filas(); ++f)
        t << r.Fila(f).join(u'\t') + (r.Negrita(f, 0) ? QStringLiteral(" [n]") : QString());
    return t;
}

// The statement as the books stand after the closing entries are gone, read from Mayor.
DatosEjercicio DesdeMayor(Conexion& c) {
    DatosEjercicio d;
    Lector l(c, QStringLiteral("SELECT NCuenta, Cuenta, SaldoD, SaldoH FROM ConMayor "
                               "ORDER BY NCuenta"));
    while (l.siguiente())
        if (Centimos(l.real(2)) != Centimos(l.real(3)))
            d.saldos.append(
                {l.texto(0), l.texto(1).trimmed(), Centimos(l.real(2)), Centimos(l.real(3))});
    d.resultado = Centimos(
        c.escalar(QStringLiteral("SELECT SUM(Haber) - SUM(Debe) FROM Diario WHERE NCuenta LIKE "
                                 "'_6%' OR NCuenta LIKE '_7%'"))
            .toDouble());
    return d;
}

} // namespace

TEST(CuentasAnuales, ClosedExercisesShowTheBalancesBeforeClosingAndStayUntouched) {
    Entorno e;
    e.instalarDemo();
    ASSERT_EQ(e.sesion.AnoActual, 2026);
    // A second year made from the demo one; the demo year closed with its balances carried
    // there, then a sale and an expense of its own, and that year closed too.
    CrearEjercicio(e.sesion, e.dialogo, 2027);
    Ejercicio(e, 2026);
    CerrarEjercicio(e.sesion, Traspaso{2027, 1});
    Ejercicio(e, 2027);
    e.asiento(QDate(2027, 2, 1), {Debe(Caja, 1210), Haber(QStringLiteral("370000066"), 1210)});
    e.asiento(QDate(2027, 3, 1), {Debe(QStringLiteral("662600051"), 95.5), Haber(Caja, 95.5)});
    CerrarEjercicio(e.sesion, Traspaso{});
    Ejercicio(e, 2027);
    ASSERT_TRUE(e.sesion.EjCerrado);
    const std::pair<long, long> cierre2027{e.sesion.NAsReg, e.sesion.NAsFin};
    Ejercicio(e, 2026);
    ASSERT_TRUE(e.sesion.EjCerrado);
    const std::pair<long, long> cierre2026{e.sesion.NAsReg, e.sesion.NAsFin};
    Ejercicio(e, 2027);

    for (TipoEstado tipo : {TipoEstado::Balance, TipoEstado::PyG}) {
        SCOPED_TRACE(int(tipo));
        const Modelo m = ModeloEstado(tipo, 2027);
        const QString antes2027 = Estado(e);
        Ejercicio(e, 2026);
        const QString antes2026 = Estado(e);
        Ejercicio(e, 2027);

        const EstadoCuentas visto = CalcularEstado(e.sesion, e.dialogo, m, true);
        ASSERT_TRUE(visto.hayMovimientos);
        EXPECT_TRUE(visto.comparacion);
        // Looking wrote nothing in either exercise.
        EXPECT_EQ(Estado(e), antes2027);
        Ejercicio(e, 2026);
        EXPECT_EQ(Estado(e), antes2026);
        Ejercicio(e, 2027);
        if (tipo == TipoEstado::Balance) {
            EXPECT_EQ(visto.total1[0], visto.total2[0]);
            EXPECT_EQ(visto.total1[1], visto.total2[1]);
            EXPECT_GT(visto.total1[1], 0);
        } else {
            EXPECT_EQ(visto.resultado[0], 1210 - 95.5);
        }
    }

    // The same statements after taking the closing entries out by hand, read from Mayor.
    std::optional<DatosEjercicio> anterior;
    {
        Ejercicio(e, 2026);
        Conexion c = e.datos();
        ASSERT_TRUE(ElimAsiento(c, e.sesion, cierre2026.second));
        ASSERT_TRUE(ElimAsiento(c, e.sesion, cierre2026.first));
        anterior = DesdeMayor(c);
    }
    Ejercicio(e, 2027);
    DatosEjercicio actual;
    {
        Conexion c = e.datos();
        const EstadoCuentas cerrado = CalcularEstado(e.sesion, e.dialogo, Modelo::Form105, true);
        const EstadoCuentas pyg = CalcularEstado(e.sesion, e.dialogo, Modelo::Form106, false);
        ASSERT_TRUE(ElimAsiento(c, e.sesion, cierre2027.second));
        ASSERT_TRUE(ElimAsiento(c, e.sesion, cierre2027.first));
        actual = DesdeMayor(c);
        const EstadoCuentas abierto = LlenarEstado(Modelo::Form105, 2027, actual, anterior, true);
        EXPECT_EQ(Celdas(cerrado.lista1), Celdas(abierto.lista1));
        EXPECT_EQ(Celdas(cerrado.lista2), Celdas(abierto.lista2));
        const EstadoCuentas pygAbierto =
            LlenarEstado(Modelo::Form106, 2027, actual, anterior, false);
        EXPECT_EQ(Celdas(pyg.lista1), Celdas(pygAbierto.lista1));
        EXPECT_GT(cerrado.lista1.Filas(), 5);
    }
}

TEST(CuentasAnuales, FirstExerciseAndEmptyExercise) {
    Entorno e;
    e.instalarDemo();
    const EstadoCuentas demo = CalcularEstado(e.sesion, e.dialogo, Modelo::Form105, false);
    ASSERT_TRUE(demo.hayMovimientos);
    EXPECT_FALSE(demo.comparacion);
    EXPECT_TRUE(e.dialogo.informados.isEmpty());

    // A new year with nothing posted yet: the user is told, nothing is laid, while the previous
    // year is there.
    CrearEjercicio(e.sesion, e.dialogo, 2027);
    const EstadoCuentas vacio = CalcularEstado(e.sesion, e.dialogo, Modelo::Form106, false);
    EXPECT_FALSE(vacio.hayMovimientos);
    EXPECT_EQ(vacio.lista1.Filas(), 0);
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgSinMovimientos});
}

// Depreciation runs: the share (days, the 365-day year, the cap, the two roundings), which
// elements a batch run takes, the entries per element and grouped, the inventory brought up,
// the run of one element with its checks and the retirement, and a run written whole or not at
// all.

#include "assets/Amortizacion.h"
#include "ComunInventario.h"
#include "journal/Escritor.h"
#include "store/Formato.h"

#include <gtest/gtest.h>

namespace {

struct LineaDiario {
    long nas;
    int nap;
    QString fecha, ncuenta, concepto;
    double debe, haber;
    bool operator==(const LineaDiario&) const = default;
};

std::ostream& operator<<(std::ostream& o, const LineaDiario& l) {
    return o << l.nas << "/" << l.nap << " " << l.fecha.toStdString() << " "
             << l.ncuenta.toStdString() << " " << l.concepto.toStdString() << " " << l.debe << " "
             << l.haber;
}

QList<LineaDiario> Diario(Entorno& e) {
    Conexion c = e.datos();
    QSqlQuery q = c.ejecutar(
        "SELECT NAs, NAp, Fecha, NCuenta, Concepto, Debe, Haber FROM Diario ORDER BY NAs, NAp");
    QList<LineaDiario> r;
    while (q.next())
        r << LineaDiario{long(q.value(0).toLongLong()), q.value(1).toInt(),
                         q.value(2).toString(),         q.value(3).toString(),
                         q.value(4).toString(),         q.value(5).toDouble(),
                         q.value(6).toDouble()};
    return r;
}

QStringList Descuadres(Entorno& e) {
    Conexion c = e.datos();
    return DescuadresMayor(c);
}

ResultadoAmortizacion Lote(Entorno& e, const QString& fecha, bool agrupar = false,
                           const QString& centro = {}) {
    e.dialogo.responder({true});
    return RealizarAmortizaciones(e.sesion, e.dialogo, {fecha, centro, agrupar});
}

ResultadoAmortizacion Uno(Entorno& e, qint64 n, const QString& fecha) {
    return AmortizarElemento(e.sesion, e.dialogo, n, [fecha] { return fecha; });
}

Elemento ElementoDe(double importe, double porcentaje, const QDate& adq) {
    Elemento el;
    el.Importe = importe;
    el.Porcentaje = porcentaje;
    el.FechaAdq = adq;
    el.Amortizable = true;
    return el;
}

} // namespace

TEST(Cuota, DiasDesdeElInicioSinContarloConAnoDe365) {
    const QDate ini2025(2025, 1, 1), ini2024(2024, 1, 1);
    // From the first to the last day of 2025: 364 days, not a whole year.
    Elemento el = ElementoDe(1000, 10, QDate(2019, 3, 1));
    CuotaAmortizacion c = CalcularCuota(el, QDate(2025, 12, 31), ini2025, RedondeoCuota::Lote);
    EXPECT_EQ(c.inicio, ini2025);
    EXPECT_EQ(c.dias, 364);
    EXPECT_EQ(c.importe, 99.73);
    // 2024 has 366 days: its 365 counted days are a full 365-day year.
    c = CalcularCuota(el, QDate(2024, 12, 31), ini2024, RedondeoCuota::Lote);
    EXPECT_EQ(c.dias, 365);
    EXPECT_EQ(c.importe, 100.00);
    // Bought in the exercise: the day of purchase is not counted.
    el.FechaAdq = QDate(2025, 3, 1);
    c = CalcularCuota(el, QDate(2025, 3, 31), ini2025, RedondeoCuota::Lote);
    EXPECT_EQ(c.inicio, QDate(2025, 3, 1));
    EXPECT_EQ(c.dias, 30);
    EXPECT_EQ(c.importe, 8.22);
    // After a depreciation, from its date; a date before it gives nothing.
    el.UltimaAmort = QDate(2025, 6, 30);
    c = CalcularCuota(el, QDate(2025, 6, 30), ini2025, RedondeoCuota::Lote);
    EXPECT_EQ(c.dias, 0);
    EXPECT_EQ(c.importe, 0);
    c = CalcularCuota(el, QDate(2025, 6, 1), ini2025, RedondeoCuota::Lote);
    EXPECT_EQ(c.dias, -29);
    EXPECT_LT(c.importe, 0);
}

TEST(Cuota, LoteRedondeaAlCentimoYElementoGuardaLosDecimalesYAmbosTopan) {
    const Elemento el = ElementoDe(1000, 10, QDate(2019, 3, 1));
    const QDate ini(2025, 1, 1), fin(2025, 12, 31);
    EXPECT_EQ(CalcularCuota(el, fin, ini, RedondeoCuota::Lote).importe, 99.73);
    EXPECT_DOUBLE_EQ(CalcularCuota(el, fin, ini, RedondeoCuota::Elemento).importe,
                     1000.0 * 10 * 364 / 36500);
    EXPECT_NE(CalcularCuota(el, fin, ini, RedondeoCuota::Elemento).importe, 99.73);
    // The last share is cut so that Amortizado lands on Importe.
    Elemento casi = el;
    casi.Amortizado = 950.01;
    EXPECT_EQ(CalcularCuota(casi, fin, ini, RedondeoCuota::Lote).importe, 49.99);
    EXPECT_DOUBLE_EQ(CalcularCuota(casi, fin, ini, RedondeoCuota::Elemento).importe, 49.99);
    casi.Amortizado = 1000;
    EXPECT_EQ(CalcularCuota(casi, fin, ini, RedondeoCuota::Lote).importe, 0);
}

TEST(Amortizacion, EjemploDelAnoUnAsientoPorElementoYElInventarioAlDia) {
    Entorno e;
    EmpresaInventario(e);
    const qint64 mesa = Alta(e, Ficha());
    FichaElemento f = Ficha("Ordenador");
    f.Importe = "1500";
    f.Porcentaje = "25";
    f.FechaAdq = "01/07/2025";
    f.SubctaAmort = inv::AmortInformatica;
    const qint64 ordenador = Alta(e, f);
    const long antes = std::lround(e.sesion.UltimoAsiento);

    const ResultadoAmortizacion r = Lote(e, "31/12/2025");
    ASSERT_TRUE(r.hecho) << e.dialogo.textos.join(" | ").toStdString();
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea realizar amortización a fecha 31/12/2025 de todos los elementos del "
              "Inventario, realizando un asiento por cada elemento?");
    EXPECT_EQ(e.dialogo.informados.last(), "Proceso terminado.");
    // 1.500 x 25 % x 183 / 365 = 188,01.
    const QString d = "2025-12-31";
    const QString c1 = "Amortización de elemento 1", c2 = "Amortización de elemento 2";
    EXPECT_EQ(Diario(e),
              QList<LineaDiario>({{antes + 1, 1, d, inv::DotaMaterial, c1, 99.73, 0},
                                  {antes + 1, 2, d, inv::AmortMobiliario, c1, 0, 99.73},
                                  {antes + 2, 1, d, inv::DotaMaterial, c2, 188.01, 0},
                                  {antes + 2, 2, d, inv::AmortInformatica, c2, 0, 188.01}}));
    EXPECT_EQ(r.asientos.size(), 2);
    EXPECT_EQ(r.elementos, QList<qint64>({mesa, ordenador}));
    EXPECT_EQ(Leer(e, mesa).UltimaAmort, QDate(2025, 12, 31));
    EXPECT_EQ(Leer(e, mesa).Amortizado, 99.73);
    EXPECT_EQ(Leer(e, ordenador).Amortizado, 188.01);
    EXPECT_TRUE(Descuadres(e).isEmpty());
    EXPECT_EQ(std::lround(e.sesion.UltimoAsiento), antes + 2);

    // A second run on the same date finds nothing and writes nothing.
    e.dialogo.informados.clear();
    EXPECT_FALSE(Lote(e, "31/12/2025").hecho);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No hay elementos de Inventario que amortizar."});
    EXPECT_EQ(Diario(e).size(), 4);
}

TEST(Amortizacion, SeleccionDelLote) {
    Entorno e;
    EmpresaInventario(e);
    const QDate d(2025, 12, 31);
    const qint64 bajaEseDia = Alta(e, Ficha("Baja el día D"));
    Poner(e, bajaEseDia, "FechaBaja = ?, CausaBaja = 'Otros'", {FechaISO(d)});
    const qint64 bajaDespues = Alta(e, Ficha("Baja después de D"));
    Poner(e, bajaDespues, "FechaBaja = ?, CausaBaja = 'Otros'", {"2026-01-15"});
    const qint64 finEseDia = Alta(e, Ficha("Fin de amortización el día D"));
    Poner(e, finEseDia, "FinAmort = ?", {FechaISO(d)});
    const qint64 finAntes = Alta(e, Ficha("Fin de amortización antes"));
    Poner(e, finAntes, "FinAmort = ?", {"2025-12-30"});
    const qint64 yaAmortizadoEseDia = Alta(e, Ficha("Ya amortizado el día D"));
    Poner(e, yaAmortizadoEseDia, "UltimaAmort = ?", {FechaISO(d)});
    const qint64 completo = Alta(e, Ficha("Completo"));
    Poner(e, completo, "Amortizado = Importe", {});
    FichaElemento f = Ficha("No amortizable");
    f.Amortizable = "NO";
    f.Porcentaje.clear();
    Alta(e, f);
    f = Ficha("En el almacén");
    f.Localizacion = inv::Almacen;
    const qint64 almacen = Alta(e, f);

    ResultadoAmortizacion r = Lote(e, "31/12/2025", false, inv::Almacen);
    ASSERT_TRUE(r.hecho);
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea realizar amortización a fecha 31/12/2025 de todos los elementos del "
              "Inventario localizados en Almacén, realizando un asiento por cada elemento?");
    EXPECT_EQ(r.elementos, QList<qint64>({almacen}));

    r = Lote(e, "31/12/2025");
    ASSERT_TRUE(r.hecho);
    EXPECT_EQ(r.elementos, QList<qint64>({bajaDespues, finEseDia}));
    EXPECT_TRUE(Descuadres(e).isEmpty());
}

TEST(Amortizacion, ComprobacionesDelLoteAntesDeEscribir) {
    Entorno e;
    EmpresaInventario(e);
    auto mensajes = [&](const PeticionAmortizacion& p, std::initializer_list<bool> respuestas) {
        e.dialogo.informados.clear();
        e.dialogo.responder(respuestas);
        EXPECT_FALSE(RealizarAmortizaciones(e.sesion, e.dialogo, p).hecho);
        return e.dialogo.informados;
    };
    // The question comes after the first checks: only the runs that reach it get an answer.
    EXPECT_EQ(mensajes({"31/12/2025", {}}, {}),
              QStringList{"No hay ningún elemento de Inventario dado de alta."});
    Alta(e, Ficha());
    EXPECT_EQ(mensajes({"", {}}, {}),
              QStringList{"Tiene que introducir la fecha a la cual se van a realizar los asientos "
                          "de amortización."});
    EXPECT_EQ(mensajes({"01/01/2026", {}}, {}), QStringList{MsgFechaFueraDelEjercicio});
    EXPECT_EQ(mensajes({"31/12/2025", "Sótano"}, {}), QStringList{"No se encontró el Centro."});
    // No to the question: nothing, silently.
    EXPECT_TRUE(mensajes({"31/12/2025", {}}, {false}).isEmpty());
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(mensajes({"31/12/2025", {}}, {}), QStringList{MsgEjercicioCerrado});
    EXPECT_TRUE(Diario(e).isEmpty());
}

TEST(Amortizacion, AgrupadoUnAsientoPorSubcuentaDeAmortizacionAcumulada) {
    Entorno e;
    EmpresaInventario(e);
    // Furniture: two elements on (mobiliario, material); software on (intangible, intangible)
    // and (intangible, material).
    Alta(e, Ficha("Mesa"));
    FichaElemento f = Ficha("Silla");
    f.Importe = "200";
    Alta(e, f);
    f = Ficha("Programa");
    f.Naturaleza = "Inmaterial";
    f.Importe = "3000";
    f.Porcentaje = "33";
    f.SubctaAmort = inv::AmortIntangible;
    f.SubctaDota = inv::DotaIntangible;
    Alta(e, f);
    f.Nombre = "Licencia";
    f.Importe = "365";
    f.Porcentaje = "10";
    f.SubctaDota = inv::DotaMaterial;
    Alta(e, f);
    // Entered before the chart's lists were looked at: its pair is in no list, so it is
    // never reached.
    const qint64 ajeno = Alta(e, Ficha("Fuera de las listas"));
    Poner(e, ajeno, "SubctaAmort = ?", {"028900099"});
    const long antes = std::lround(e.sesion.UltimoAsiento);

    const ResultadoAmortizacion r = Lote(e, "31/12/2025", true);
    ASSERT_TRUE(r.hecho) << e.dialogo.textos.join(" | ").toStdString();
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea realizar amortización a fecha 31/12/2025 de todos los elementos del "
              "Inventario, agrupando por asientos con igual Subcuenta de amortización "
              "acumulada?");
    const QString d = "2025-12-31", c = "Amortización inmovilizado";
    // 3.000 x 33 % x 364 / 365 = 987,29; 365 x 10 % x 364 / 365 = 36,40; 99,73 + 19,95.
    EXPECT_EQ(Diario(e),
              QList<LineaDiario>({{antes + 1, 1, d, inv::DotaIntangible, c, 987.29, 0},
                                  {antes + 1, 2, d, inv::DotaMaterial, c, 36.40, 0},
                                  {antes + 1, 3, d, inv::AmortIntangible, c, 0, 1023.69},
                                  {antes + 2, 1, d, inv::DotaMaterial, c, 119.68, 0},
                                  {antes + 2, 2, d, inv::AmortMobiliario, c, 0, 119.68}}));
    EXPECT_EQ(r.elementos.size(), 4);
    EXPECT_FALSE(r.elementos.contains(ajeno));
    EXPECT_FALSE(Leer(e, ajeno).UltimaAmort.isValid());
    EXPECT_EQ(Leer(e, 2).Amortizado, 19.95);
    EXPECT_TRUE(Descuadres(e).isEmpty());
}

TEST(Amortizacion, UnaCarreraSeGrabaEnteraONada) {
    Entorno e;
    EmpresaInventario(e);
    Alta(e, Ficha("Bueno"));
    const qint64 malo = Alta(e, Ficha("Con la dotación borrada del plan"));
    // A charge subaccount that vanished from the chart: the writer refuses the second entry.
    FichaElemento f = FichaDe(Leer(e, malo));
    {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo, Aparcada) VALUES "
                   "('668100099', 'Temporal', '6681', 0)");
    }
    f.SubctaDota = "668100099";
    ASSERT_TRUE(ModificarElemento(e.sesion, e.dialogo, malo, f).hecho);
    {
        Conexion c = e.datos();
        c.ejecutar("DELETE FROM Cuentas WHERE NCuenta = '668100099'");
    }
    const float antes = e.sesion.UltimoAsiento;
    e.dialogo.informados.clear();
    EXPECT_FALSE(Lote(e, "31/12/2025").hecho);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No existe la subcuenta 668100099."});
    EXPECT_TRUE(Diario(e).isEmpty());
    EXPECT_FALSE(Leer(e, 1).UltimaAmort.isValid());
    EXPECT_EQ(Leer(e, 1).Amortizado, 0);
    EXPECT_EQ(e.sesion.UltimoAsiento, antes);
}

TEST(AmortizarElemento, ElUltimoTramoTopaYElSegundoNoProcede) {
    Entorno e;
    EmpresaInventario(e);
    const qint64 n = Alta(e, Ficha());
    Poner(e, n, "Amortizado = ?, UltimaAmort = ?", {950.0, "2024-12-31"});
    const long antes = std::lround(e.sesion.UltimoAsiento);
    ResultadoAmortizacion r = Uno(e, n, "31/12/2025");
    ASSERT_TRUE(r.hecho) << e.dialogo.textos.join(" | ").toStdString();
    EXPECT_EQ(e.dialogo.informados.last(),
              "Se ha realizado la amortización del elemento 00000001.");
    const QString c = "Amortización de elemento 1";
    EXPECT_EQ(Diario(e),
              QList<LineaDiario>({{antes + 1, 1, "2025-12-31", inv::DotaMaterial, c, 50, 0},
                                  {antes + 1, 2, "2025-12-31", inv::AmortMobiliario, c, 0, 50}}));
    EXPECT_EQ(Leer(e, n).Amortizado, 1000);
    EXPECT_TRUE(Descuadres(e).isEmpty());
    // Now it is fully depreciated.
    e.dialogo.preguntas.clear();
    EXPECT_FALSE(Uno(e, n, "31/12/2025").hecho);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Ya está contabilizada la amortización de este elemento del inventario.");
}

TEST(AmortizarElemento, ComprobacionesYLaBajaComoFinal) {
    Entorno e;
    EmpresaInventario(e);
    const qint64 n = Alta(e, Ficha());
    FichaElemento f = Ficha("Cuadro");
    f.Amortizable = "NO";
    f.Porcentaje.clear();
    const qint64 cuadro = Alta(e, f);
    auto mensaje = [&](qint64 el, const QString& fecha) {
        e.dialogo.informados.clear();
        EXPECT_FALSE(Uno(e, el, fecha).hecho);
        return e.dialogo.informados.value(0);
    };
    EXPECT_EQ(mensaje(cuadro, "31/12/2025"), "Este elemento del inventario no es amortizable.");
    EXPECT_EQ(mensaje(n, "31/13/2025"), "La fecha no es correcta");
    EXPECT_EQ(mensaje(n, "31/12/2024"), "Esa fecha no está dentro del ejercicio actual");
    EXPECT_EQ(mensaje(99, "31/12/2025"),
              "No se encontró el elemento de Inventario en la base de datos.");
    // An empty answer ends quietly.
    EXPECT_EQ(mensaje(n, ""), "");
    // A date before the last depreciation gives no share.
    Poner(e, n, "UltimaAmort = ?", {"2025-06-30"});
    EXPECT_EQ(mensaje(n, "31/03/2025"), "No procede realizar amortización.");
    // Depreciated to the last day: nothing more this exercise.
    Poner(e, n, "UltimaAmort = ?", {"2025-12-31"});
    EXPECT_EQ(mensaje(n, "31/12/2025"),
              "Ya está contabilizada la amortización de este elemento del inventario.");
    // Retired before the exercise.
    Poner(e, n, "UltimaAmort = NULL, FechaBaja = ?, CausaBaja = 'Otros'", {"2024-05-01"});
    EXPECT_EQ(mensaje(n, "31/12/2025"), "El elemento está dado de baja.");
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(mensaje(n, "31/12/2025"), MsgEjercicioCerrado);
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = 0");
    }
    EXPECT_TRUE(Diario(e).isEmpty());

    // Retired within it: the run ends at the retirement. 1.000 x 10 % x 89 / 365 = 24,38.
    Poner(e, n, "FechaBaja = ?", {"2025-03-31"});
    e.dialogo.preguntas.clear();
    const ResultadoAmortizacion r = AmortizarElemento(e.sesion, e.dialogo, n);
    ASSERT_EQ(e.dialogo.preguntas, QStringList{MsgFechaAmortizacionElemento});
    EXPECT_FALSE(r.hecho); // the scripted box answered nothing
    e.dialogo.responderTextos({"31/12/2025"});
    ASSERT_TRUE(AmortizarElemento(e.sesion, e.dialogo, n).hecho);
    const QList<LineaDiario> d = Diario(e);
    ASSERT_EQ(d.size(), 2);
    EXPECT_EQ(d.at(0).fecha, "2025-03-31");
    EXPECT_EQ(d.at(0).debe, 24.38);
    EXPECT_EQ(Leer(e, n).UltimaAmort, QDate(2025, 3, 31));
    EXPECT_EQ(Leer(e, n).Amortizado, 24.38);
}

// The close of an exercise: the regularisation and final entries, the opening entry of the target
// with its replacement, the refusals that leave both files as they were, the reversal.

#include "yearend/Cierre.h"
#include "Entorno.h"
#include "posting/ComunAsientos.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/InvertirCierre.h"
#include "yearend/TraducirCuenta.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace cuentas;

namespace {

const QString Servicios = "662900056", Prestaciones = "370500067", Capital = "010000004";

// "NAp NCuenta Debe Haber Clase Fecha" per line of an entry; base is an attached alias.
QStringList Lineas(Conexion& c, long nas, const QString& base = {}) {
    QStringList r;
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT NAp, NCuenta, Debe, Haber, Clase, Fecha FROM ") +
                       (base.isEmpty() ? QString() : base + ".") +
                       QStringLiteral("Diario WHERE NAs = ? ORDER BY NAp"),
                   {static_cast<qlonglong>(nas)});
    while (q.next())
        r << QStringLiteral("%1 %2 %3 %4 %5 %6")
                 .arg(q.value(0).toInt())
                 .arg(q.value(1).toString())
                 .arg(q.value(2).toDouble())
                 .arg(q.value(3).toDouble())
                 .arg(q.value(4).toString(), q.value(5).toString());
    return r;
}

// Each subaccount with a balance in Mayor, "NCuenta SaldoD-SaldoH".
QStringList Saldos(Conexion& c) {
    QStringList r;
    QSqlQuery q = c.ejecutar("SELECT NCuenta, round(SaldoD - SaldoH, 2) FROM Mayor WHERE "
                             "round(SaldoD - SaldoH, 2) <> 0 ORDER BY NCuenta");
    while (q.next())
        r << q.value(0).toString() + " " + QString::number(q.value(1).toDouble());
    return r;
}

// Everything a close may change in one exercise file, as text.
QString Estado(const Sesion& s, int ano) {
    Sesion otra = s;
    otra.AnoActual = static_cast<qint16>(ano);
    Conexion c = AbrirDatos(otra);
    QString r;
    QSqlQuery q = c.ejecutar("SELECT EjCerrado, NAsReg, NAsFin FROM Empresa");
    q.next();
    r += QStringLiteral("%1/%2/%3;")
             .arg(q.value(0).toInt())
             .arg(q.value(1).toInt())
             .arg(q.value(2).toInt());
    q = c.ejecutar("SELECT NAs, NAp, NCuenta, Debe, Haber, Clase FROM Diario ORDER BY NAs, NAp");
    while (q.next())
        r += QStringLiteral("%1.%2 %3 %4 %5 %6;")
                 .arg(q.value(0).toInt())
                 .arg(q.value(1).toInt())
                 .arg(q.value(2).toString())
                 .arg(q.value(3).toDouble())
                 .arg(q.value(4).toDouble())
                 .arg(q.value(5).toString());
    q = c.ejecutar("SELECT NCuenta, SaldoD, SaldoH FROM Mayor ORDER BY NCuenta");
    while (q.next())
        r += QStringLiteral("M %1 %2 %3;")
                 .arg(q.value(0).toString())
                 .arg(q.value(1).toDouble())
                 .arg(q.value(2).toDouble());
    return r + QString::number(c.escalar("SELECT COUNT(*) FROM Cuentas").toInt());
}

class Cierre : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa("001", 2024, "Cierre SL"); }

    // A year of business: sales 1.000, purchases 600, other services 150 of which 50 came back,
    // money in the bank and the cash, a supplier owed. Profit 300.
    void ejercicioConBeneficio() {
        e.asiento(QDate(2024, 1, 10), {Debe(Banco, 5000), Haber(Capital, 5000)});
        e.asiento(QDate(2024, 2, 1), {Debe(Clientes, 1000), Haber(Ventas, 1000)});
        e.asiento(QDate(2024, 3, 1), {Debe(Compras, 600), Haber(Proveedor, 600)});
        e.asiento(QDate(2024, 4, 1), {Debe(Servicios, 150), Haber(Caja, 150)});
        e.asiento(QDate(2024, 5, 1), {Debe(Caja, 50), Haber(Servicios, 50)});
        e.asiento(QDate(2024, 6, 1), {Debe(Banco, 700), Haber(Clientes, 700)});
        e.asiento(QDate(2024, 7, 1), {Debe(Caja, 400), Haber(Banco, 400)});
    }

    // The next year, made now (the chart travels), with an opening entry nº 1 of some earlier
    // close and an ordinary entry nº 2. The session stays in 2024.
    void siguienteConApertura() {
        Sesion s2024 = e.sesion;
        CrearEjercicio(e.sesion, e.dialogo, 2025);
        Conexion c = e.datos();
        OpcionesEscritura o;
        o.Clase = "I";
        EscribirAsiento(c, e.sesion, QDate(2025, 1, 1),
                        {Debe(Caja, 80, ConceptoInicial), Haber(Capital, 80, ConceptoInicial)}, o);
        EscribirAsiento(c, e.sesion, QDate(2025, 1, 15), {Debe(Banco, 25), Haber(Caja, 25)});
        e.sesion = s2024;
    }

    Conexion ano(int a) {
        Sesion s = e.sesion;
        s.AnoActual = static_cast<qint16>(a);
        return AbrirDatos(s);
    }

    Entorno e;
};

TEST_F(Cierre, RegularizacionConSusSignosYElResultado) {
    ejercicioConBeneficio();
    Conexion c = e.datos();
    const long reg = HacerRegularizacion(c, e.sesion);
    EXPECT_EQ(reg, 8);
    // By code: sales emptied on the debit side, expenses on the credit side, the result (income
    // 1.000 less expense 700) to the credit of 129.
    EXPECT_EQ(Lineas(c, reg),
              QStringList({"1 370000066 1000 0 R 2024-12-31", "2 660000044 0 600 R 2024-12-31",
                           "3 662900056 0 100 R 2024-12-31", "4 012900002 0 300 R 2024-12-31"}));
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.NAsReg, reg);
    EXPECT_EQ(e.sesion.UltimoAsiento, 8.0f);
    QSqlQuery q = c.ejecutar("SELECT EjCerrado, NAsReg FROM Empresa");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toInt(), -1);
    EXPECT_EQ(q.value(1).toInt(), reg);
    for (const QString& saldo : Saldos(c))
        EXPECT_FALSE(saldo.mid(1, 1) == "6" || saldo.mid(1, 1) == "7") << saldo.toStdString();
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Cierre, PerdidaYSaldosContraSuNaturalezaEnSuColumna) {
    // Expense 500 against income 200: a loss; a services account with a credit balance (more
    // refunds than expense) and an income account with a debit balance keep their columns, with
    // negative amounts.
    e.asiento(QDate(2024, 2, 1), {Debe(Caja, 200), Haber(Ventas, 200)});
    e.asiento(QDate(2024, 3, 1), {Debe(Compras, 500), Haber(Caja, 500)});
    e.asiento(QDate(2024, 4, 1), {Debe(Caja, 30), Haber(Servicios, 30)});
    e.asiento(QDate(2024, 5, 1), {Debe(Prestaciones, 20), Haber(Caja, 20)});
    Conexion c = e.datos();
    const long reg = HacerRegularizacion(c, e.sesion);
    EXPECT_EQ(Lineas(c, reg),
              QStringList({"1 370000066 200 0 R 2024-12-31", "2 370500067 -20 0 R 2024-12-31",
                           "3 660000044 0 500 R 2024-12-31", "4 662900056 0 -30 R 2024-12-31",
                           "5 012900002 290 0 R 2024-12-31"}));
    EXPECT_EQ(Saldos(c), QStringList({"012900002 290", "157000001 -290"}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Cierre, SinResultadosNoHayRegularizacionYConIgualesNoHayLinea129) {
    e.asiento(QDate(2024, 2, 1), {Debe(Banco, 100), Haber(Caja, 100)});
    {
        Conexion c = e.datos();
        EXPECT_EQ(HacerRegularizacion(c, e.sesion), 0);
        EXPECT_FALSE(e.sesion.EjCerrado);
        EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 2);
    }
    // Income and expense that cancel inside each account give nothing either.
    e.asiento(QDate(2024, 3, 1), {Debe(Caja, 40), Haber(Ventas, 40)});
    e.asiento(QDate(2024, 3, 2), {Debe(Ventas, 40), Haber(Caja, 40)});
    {
        Conexion c = e.datos();
        EXPECT_EQ(HacerRegularizacion(c, e.sesion), 0);
        EXPECT_EQ(e.sesion.NAsReg, 0);
    }
    // Income equal to expense: the accounts are emptied and 129 is left out.
    e.asiento(QDate(2024, 4, 1), {Debe(Caja, 75), Haber(Ventas, 75)});
    e.asiento(QDate(2024, 4, 2), {Debe(Compras, 75), Haber(Caja, 75)});
    Conexion c = e.datos();
    const long reg = HacerRegularizacion(c, e.sesion);
    EXPECT_EQ(Lineas(c, reg),
              QStringList({"1 370000066 75 0 R 2024-12-31", "2 660000044 0 75 R 2024-12-31"}));
    EXPECT_TRUE(e.sesion.EjCerrado);
}

TEST_F(Cierre, FinalDeMayorAMenorYMedioCentimoFuera) {
    ejercicioConBeneficio();
    // A subaccount whose sums show the same to the cent has no balance, although they differ by
    // almost a cent (which would round to one): it is left out and stays as it is.
    e.asiento(QDate(2024, 8, 1), {Debe(Acreedor, 10), Haber(Caja, 10)});
    e.asiento(QDate(2024, 8, 2), {Debe(Caja, 10), Haber(Acreedor, 10)});
    Conexion c = e.datos();
    c.ejecutar("UPDATE Mayor SET SaldoD = 10.004, SaldoH = 9.996 WHERE NCuenta = ?", {Acreedor});
    EXPECT_EQ(HacerRegularizacion(c, e.sesion), 10);
    const long fin = HacerFinal(c, e.sesion);
    EXPECT_EQ(fin, 11);
    // Debit balances first, the largest first: bank 5.300, then cash and customers 300 each in
    // the order of their codes; then the credit balances up to the largest: 129 300, supplier
    // 600, capital 5.000.
    EXPECT_EQ(Lineas(c, fin),
              QStringList({"1 157200003 0 5300 F 2024-12-31", "2 157000001 0 300 F 2024-12-31",
                           "3 443000022 0 300 F 2024-12-31", "4 012900002 300 0 F 2024-12-31",
                           "5 240000009 600 0 F 2024-12-31", "6 010000004 5000 0 F 2024-12-31"}));
    EXPECT_EQ(e.sesion.NAsFin, fin);
    EXPECT_EQ(e.sesion.UltimoAsiento, 11.0f);
    EXPECT_EQ(c.escalar("SELECT NAsFin FROM Empresa").toInt(), fin);
    EXPECT_EQ(Saldos(c), QStringList({Acreedor + " 0.01"}))
        << "every balance but the one left out is zero after the close";
    EXPECT_EQ(
        c.escalar("SELECT SaldoD - SaldoH FROM Mayor WHERE NCuenta = ?", {Acreedor}).toDouble(),
        10.004 - 9.996);
}

TEST_F(Cierre, TraspasoSustituyeLaAperturaYLleva129A120) {
    ejercicioConBeneficio();
    siguienteConApertura();
    const QString antes2025 = Estado(e.sesion, 2025);
    CerrarEjercicio(e.sesion, {2025, 1});
    EXPECT_EQ(e.sesion.AnoActual, 2024);
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.NAsReg, 8);
    EXPECT_EQ(e.sesion.NAsFin, 9);

    // The opening entry is the final entry with its sides swapped, on the first day of 2025,
    // with the profit carried to the remainder (120) instead of 129.
    Conexion c25 = ano(2025);
    EXPECT_EQ(Lineas(c25, 1),
              QStringList({"1 157200003 5300 0 I 2025-01-01", "2 157000001 300 0 I 2025-01-01",
                           "3 443000022 300 0 I 2025-01-01", "4 012000103 0 300 I 2025-01-01",
                           "5 240000009 0 600 I 2025-01-01", "6 010000004 0 5000 I 2025-01-01"}));
    EXPECT_EQ(Lineas(c25, 2).size(), 2) << "the ordinary entry of 2025 stays";
    EXPECT_TRUE(DescuadresMayor(c25).isEmpty()) << "the old opening entry left Mayor with it";
    EXPECT_EQ(Saldos(c25), QStringList({"010000004 -5000", "012000103 -300", "157000001 275",
                                        "157200003 5325", "240000009 -600", "443000022 300"}));
    EXPECT_NE(Estado(e.sesion, 2025), antes2025);
    Conexion c24 = e.datos();
    EXPECT_TRUE(DescuadresMayor(c24).isEmpty());
    EXPECT_EQ(Saldos(c24), QStringList());
}

TEST_F(Cierre, UnaPerdidaVaALa121YSeCreaLaSubcuentaQueFalta) {
    e.asiento(QDate(2024, 2, 1), {Debe(Compras, 500), Haber(Caja, 500)});
    siguienteConApertura();
    // The target lost the subaccount of negative results and the cash.
    ano(2025).ejecutar("DELETE FROM Cuentas WHERE NCuenta IN ('012100104', '012900002')");
    CerrarEjercicio(e.sesion, {2025, 7});
    Conexion c25 = ano(2025);
    EXPECT_EQ(Lineas(c25, 7),
              QStringList({"1 012100104 500 0 I 2025-01-01", "2 157000001 0 500 I 2025-01-01"}));
    EXPECT_EQ(Lineas(c25, 1).size(), 2) << "another opening entry is left alone";
    EXPECT_EQ(c25.escalar("SELECT Cuenta FROM Cuentas WHERE NCuenta = '012100104'").toString(),
              "Res.negativos años anteriores");
    EXPECT_TRUE(c25.existe("SELECT 1 FROM Cuentas WHERE NCuenta = '012900002'"));
}

TEST_F(Cierre, CodigosTraducidosYNombresMarcados) {
    e.asiento(QDate(2024, 2, 1), {Debe(Banco, 90), Haber(Capital, 90)});
    siguienteConApertura();
    // A translation that moves the bank to a code the target lacks; its name is marked for
    // review. Names too short to cut keep all their letters.
    EXPECT_EQ(NombreTraducido("Banco"), "B(*)");
    EXPECT_EQ(NombreTraducido("Caj"), "Caj(*)");
    EXPECT_EQ(NombreTraducido(""), "(*)");
    EXPECT_FALSE(TraduccionNecesaria(2024, 2025));
    EXPECT_TRUE(TraduccionNecesaria(2007, 2008));
    EXPECT_EQ(TraducirCuenta(e.sesion, Banco), Banco);

    Conexion c = e.datos();
    BaseAdjunta adjunta(c, e.sesion.rutaEjercicio(2025), "destino", TipoBase::Ejercicio);
    Sesion s25 = e.sesion;
    s25.AnoActual = 2025;
    s25.FechaIniEj = QDate(2025, 1, 1);
    s25.FechaFinEj = QDate(2025, 12, 31);
    DestinoTraspaso d{"destino", &s25, 1, [](const QString& ncuenta) {
                          return ncuenta == Banco ? QStringLiteral("157209999") : ncuenta;
                      }};
    c.ejecutar("UPDATE Cuentas SET Cuenta = 'Bco' WHERE NCuenta = ?", {Banco});
    {
        Transaccion t(c);
        HacerFinal(c, e.sesion, &d);
        t.confirmar();
    }
    EXPECT_EQ(Lineas(c, 1, "destino"),
              QStringList({"1 157209999 90 0 I 2025-01-01", "2 010000004 0 90 I 2025-01-01"}));
    EXPECT_EQ(c.escalar("SELECT Cuenta || '|' || NGrupo FROM destino.Cuentas WHERE NCuenta = "
                        "'157209999'")
                  .toString(),
              "Bco(*)|1572");
    EXPECT_TRUE(DescuadresMayor(c, "destino").isEmpty());
}

TEST_F(Cierre, RechazosQueNoEscribenNada) {
    ejercicioConBeneficio();
    siguienteConApertura();
    auto estado = [&] {
        return Estado(e.sesion, 2024) + "|" + Estado(e.sesion, 2025);
    };
    const QString antes = estado();
    auto rechazo = [&](const Traspaso& t) {
        try {
            CerrarEjercicio(e.sesion, t);
        } catch (const Rechazo& r) {
            return r.mensaje();
        }
        return QString();
    };
    EXPECT_EQ(rechazo({2024, 1}), MsgAnoDistintoDelActual);
    EXPECT_EQ(rechazo({2025, 2}),
              "El asiento nº 2 del ejercicio 2025 no es un asiento de apertura. Indique el número "
              "del asiento de apertura de ese ejercicio, o uno que no se haya utilizado.");
    EXPECT_EQ(rechazo({2030, 1}), MsgFaltaEjercicio(e.sesion, 2030));
    ano(2025).ejecutar("UPDATE Empresa SET EjCerrado = -1");
    EXPECT_EQ(rechazo({2025, 1}),
              "El ejercicio 2025, al que se van a traspasar los saldos, está "
              "cerrado. Invierta antes su cierre en el menú Acceso, Ejercicio.");
    ano(2025).ejecutar("UPDATE Empresa SET EjCerrado = 0");
    EXPECT_EQ(estado(), antes);
    EXPECT_FALSE(e.sesion.EjCerrado);

    CerrarEjercicio(e.sesion, {});
    const QString cerrado = estado();
    EXPECT_EQ(rechazo({}), "El ejercicio 2024 ya está cerrado. Para cerrarlo de nuevo, invierta "
                           "antes el cierre (Abrir ejercicio, en el menú Acceso, Ejercicio).");
    EXPECT_EQ(estado(), cerrado);
    // A closed exercise refuses every other entry.
    EXPECT_THROW(e.asiento(QDate(2024, 9, 1), {Debe(Caja, 1), Haber(Banco, 1)}), ErrorAsiento);
}

TEST_F(Cierre, AUnEjercicioAnterior) {
    e.asiento(QDate(2024, 5, 1), {Debe(Caja, 60), Haber(Capital, 60)});
    const Sesion s2024 = e.sesion;
    CrearEjercicio(e.sesion, e.dialogo, 2023);
    e.sesion = s2024;
    CerrarEjercicio(e.sesion, {2023, 1});
    // The opening entry lies on the first day of the exercise that receives it.
    Conexion c23 = ano(2023);
    EXPECT_EQ(Lineas(c23, 1),
              QStringList({"1 157000001 60 0 I 2023-01-01", "2 010000004 0 60 I 2023-01-01"}));
}

TEST_F(Cierre, UnEjercicioSinSaldosSeCierraSinAsientos) {
    CerrarEjercicio(e.sesion, {});
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.NAsReg, 0);
    EXPECT_EQ(e.sesion.NAsFin, 0);
    {
        Conexion c = e.datos();
        EXPECT_EQ(c.escalar("SELECT EjCerrado FROM Empresa").toInt(), -1);
        EXPECT_EQ(c.escalar("SELECT COUNT(*) FROM Diario").toInt(), 0);
    }
    InvertirCierre(e.sesion);
    EXPECT_FALSE(e.sesion.EjCerrado);
}

TEST_F(Cierre, PreguntasYComprobacionesEnSuOrden) {
    ejercicioConBeneficio();
    siguienteConApertura();
    PeticionCierre p;
    auto pedir = [&] {
        return PedirCierre(e.sesion, e.dialogo, p);
    };
    RespuestaCierre r = pedir();
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgSeleccioneAnoTraspaso);
    EXPECT_EQ(r.foco, CampoCierre::Ano);
    p.ano = "2024";
    EXPECT_EQ(pedir().foco, CampoCierre::Ano);
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgAnoDistintoDelActual);
    EXPECT_TRUE(e.dialogo.preguntas.isEmpty());

    // A typed number is not compared with 1 in the question; the last question names it.
    p.ano = "2025";
    p.asiento = "5";
    e.dialogo.responder({true, false});
    r = pedir();
    EXPECT_FALSE(r.cerrado);
    EXPECT_EQ(
        e.dialogo.preguntas,
        QStringList({"Está seguro de que el asiento de apertura del ejercicio 2025 es el nº 1?",
                     "Se va a cerrar este ejercicio, calculándose los saldos finales y "
                     "traspasándolos al ejercicio 2025 , asiento nº 5. Es correcto?"}));
    EXPECT_FALSE(e.sesion.EjCerrado);
    e.dialogo.preguntas.clear();

    // The number of an ordinary entry of the target is refused before the last question.
    p.asiento = "2";
    e.dialogo.responder({true});
    EXPECT_EQ(pedir().foco, CampoCierre::Asiento);
    EXPECT_TRUE(e.dialogo.informados.takeLast().startsWith("El asiento nº 2 del ejercicio 2025"));
    EXPECT_EQ(e.dialogo.preguntas.size(), 1);
    e.dialogo.preguntas.clear();

    p.asiento = "";
    e.dialogo.responder({true, true});
    r = pedir();
    EXPECT_TRUE(r.cerrado);
    EXPECT_EQ(r.anoDestino, 2025);
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Está seguro de que en el ejercicio 2025 no existe el asiento de "
                           "apertura?",
                           "Se va a cerrar este ejercicio, calculándose los saldos finales y "
                           "traspasándolos al ejercicio 2025 , asiento nº 1. Es correcto?"}));
    EXPECT_TRUE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.AnoActual, 2024) << "moving to the target is the screen's";
    EXPECT_EQ(pedir().cerrado, false);
    EXPECT_TRUE(e.dialogo.informados.takeLast().startsWith("El ejercicio 2024 ya está cerrado."));
}

TEST_F(Cierre, EjercicioNuevoOSinTraspaso) {
    ejercicioConBeneficio();
    PeticionCierre p{PeticionCierre::Modo::Nuevo, "202", ""};
    EXPECT_EQ(PedirCierre(e.sesion, e.dialogo, p).foco, CampoCierre::AnoNuevo);
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Indique el año (con cuatro cifras)");
    p.ano = "2025";
    e.dialogo.responder({false});
    EXPECT_FALSE(PedirCierre(e.sesion, e.dialogo, p).cerrado);
    EXPECT_FALSE(ExisteEjercicio(e.sesion, 2025)) << "No creates nothing";

    e.dialogo.responder({true});
    const RespuestaCierre r = PedirCierre(e.sesion, e.dialogo, p);
    EXPECT_TRUE(r.cerrado);
    EXPECT_EQ(r.anoDestino, 2025);
    EXPECT_EQ(EjerciciosEmpresa(e.sesion), QList<int>({2024, 2025}));
    EXPECT_EQ(
        ano(2025).escalar("SELECT COUNT(*) FROM Diario WHERE NAs = 1 AND Clase = 'I'").toInt(), 6);
    EXPECT_EQ(ano(2025).escalar("SELECT EjCerrado FROM Empresa").toInt(), 0);
    InvertirCierre(e.sesion);
    p.ano = "2025";
    EXPECT_EQ(PedirCierre(e.sesion, e.dialogo, p).foco, CampoCierre::AnoNuevo);
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Ya existe el ejercicio 2025.");

    // Without transfer the question is the one whose default is Yes.
    p.modo = PeticionCierre::Modo::SinTraspaso;
    e.dialogo.preguntas.clear();
    e.dialogo.responder({true});
    EXPECT_TRUE(PedirCierre(e.sesion, e.dialogo, p).cerrado);
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList({"Se va a cerrar este ejercicio, realizándose el asiento de "
                           "regularización y el asiento final, sin traspasar los saldos al "
                           "ejercicio siguiente. Desea continuar?"}));
}

TEST_F(Cierre, InvertirYCerrarOtraVezDaLoMismo) {
    ejercicioConBeneficio();
    siguienteConApertura();
    auto saldos = [&] {
        Conexion c = e.datos();
        return Saldos(c);
    };
    const QStringList antes = saldos();
    CerrarEjercicio(e.sesion, {2025, 1});
    const QString cerrado24 = Estado(e.sesion, 2024), cerrado25 = Estado(e.sesion, 2025);

    InvertirCierre(e.sesion);
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.UltimoAsiento, 7.0f);
    EXPECT_EQ(saldos(), antes) << "Mayor back to the balances before the close";
    EXPECT_EQ(e.datos().escalar("SELECT COUNT(*) FROM Diario WHERE Clase <> ''").toInt(), 0);
    EXPECT_EQ(Estado(e.sesion, 2025), cerrado25) << "the opening entry of 2025 stays";
    try {
        InvertirCierre(e.sesion);
        ADD_FAILURE() << "an open exercise has no close to undo";
    } catch (const Rechazo& r) {
        EXPECT_EQ(r.mensaje(), MsgEjercicioNoCerrado(2024));
    }

    // Closing again replaces the opening entry with the same amounts.
    CerrarEjercicio(e.sesion, {2025, 1});
    EXPECT_EQ(Estado(e.sesion, 2024), cerrado24);
    EXPECT_EQ(Estado(e.sesion, 2025), cerrado25);
}

} // namespace

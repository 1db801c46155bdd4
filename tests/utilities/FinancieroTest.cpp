// The time-value functions against figures worked out by hand, the calculator's keys and
// registers, and the loan table.

#include "utilities/Financiero.h"
#include "platform/Rejilla.h"
#include "utilities/Calculadora.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
constexpr double Tol = 1e-6;
}

// A loan of 1.000 at 10 % repaid in two payments p at the end of each period:
// (1000 x 1,1 - p) x 1,1 = p, so 1210 = 2,1 p and p = 576,190476...; paid, so negative.
// With the payments at the start: (1000 - p) x 1,1 = p, so 1100 = 2,1 p, p = 523,809523...
TEST(Financiero, PagoValorActualYFinalConElConvenioDeSignos) {
    const double fin = 1210.0 / 2.1, pri = 1100.0 / 2.1;
    EXPECT_NEAR(*Pago(0.1, 2, 1000), -fin, Tol);
    EXPECT_NEAR(*Pago(0.1, 2, 1000, 0, true), -pri, Tol);
    EXPECT_NEAR(*ValorActual(0.1, 2, -fin), 1000, Tol);
    EXPECT_NEAR(*ValorActual(0.1, 2, -pri, 0, true), 1000, Tol);
    // 100 saved at the end of two years: 100 x 1,1 + 100 = 210; at the start: 121 + 110 = 231.
    EXPECT_NEAR(*ValorFinal(0.1, 2, -100), 210, Tol);
    EXPECT_NEAR(*ValorFinal(0.1, 2, -100, 0, true), 231, Tol);
    // A present value grows alone: 1000 x 1,1^2 = 1210, owed back.
    EXPECT_NEAR(*ValorFinal(0.1, 2, 0, -1000), 1210, Tol);
    // To leave 210 at the end of two years from nothing: 100 a year.
    EXPECT_NEAR(*Pago(0.1, 2, 0, 210), -100, Tol);
    EXPECT_NEAR(*Periodos(0.1, -fin, 1000), 2, Tol);
    EXPECT_NEAR(*Periodos(0.1, -pri, 1000, 0, true), 2, Tol);
    EXPECT_NEAR(*Tasa(2, -fin, 1000), 0.1, 1e-9);
    EXPECT_NEAR(*Tasa(2, -pri, 1000, 0, true), 0.1, 1e-9);
}

// At a zero rate money does not grow: 1000 in four payments of 250.
TEST(Financiero, ConTipoCero) {
    EXPECT_NEAR(*Pago(0, 4, 1000), -250, Tol);
    EXPECT_NEAR(*Pago(0, 4, 1000, 0, true), -250, Tol);
    EXPECT_NEAR(*ValorActual(0, 4, -250), 1000, Tol);
    EXPECT_NEAR(*ValorFinal(0, 3, -100, -50), 350, Tol);
    EXPECT_NEAR(*Periodos(0, -250, 1000), 4, Tol);
    EXPECT_FALSE(Periodos(0, 0, 1000).has_value());
    EXPECT_FALSE(Pago(0.1, 0, 1000).has_value());
    // Payments that never reach the interest: no number of periods.
    EXPECT_FALSE(Periodos(0.1, -50, 1000).has_value());
}

// The same loan: at the end, period 1 pays 1000 x 0,1 = 100 of interest and 476,19 of principal;
// period 2 pays 10 % of the 523,81 left, 52,381. At the start, period 1 carries no interest and
// period 2 pays 10 % of the 476,19 owed over the first period.
TEST(Financiero, InteresYPrincipalDeCadaPeriodo) {
    const double fin = 1210.0 / 2.1, pri = 1100.0 / 2.1;
    EXPECT_NEAR(*InteresPeriodo(0.1, 1, 2, 1000), -100, Tol);
    EXPECT_NEAR(*PrincipalPeriodo(0.1, 1, 2, 1000), -(fin - 100), Tol);
    EXPECT_NEAR(*InteresPeriodo(0.1, 2, 2, 1000), -(1100 - fin) * 0.1, Tol);
    EXPECT_NEAR(*InteresPeriodo(0.1, 1, 2, 1000, 0, true), 0, Tol);
    EXPECT_NEAR(*PrincipalPeriodo(0.1, 1, 2, 1000, 0, true), -pri, Tol);
    EXPECT_NEAR(*InteresPeriodo(0.1, 2, 2, 1000, 0, true), -(1000 - pri) * 0.1, Tol);
    EXPECT_FALSE(InteresPeriodo(0.1, 3, 2, 1000).has_value());
}

// 12 % nominal monthly: 1,01^12 = 1,126825030..., so 12,6825 % effective; and back.
TEST(Financiero, TaeYSuInversa) {
    EXPECT_NEAR(*TaeDeNominal(12, 12), 12.6825030131970, 1e-9);
    EXPECT_NEAR(*NominalDeTae(12.6825030131970, 12), 12, 1e-8);
    // Compounded once, nominal and effective agree.
    EXPECT_NEAR(*TaeDeNominal(5, 1), 5, 1e-12);
}

TEST(Calculadora, CadenaPorcentajeYSigno) {
    Calculadora k;
    k.Teclear("12,5");
    EXPECT_EQ(k.Pantalla(), "12,5");
    k.Tecla(TeclaCalc::Sumar);
    k.Teclear("7.5");
    k.Tecla(TeclaCalc::Multiplicar); // 20
    k.Teclear("3");
    k.Tecla(TeclaCalc::Igual);
    EXPECT_EQ(k.Pantalla(), "60,00");
    k.Teclear("200");
    k.Tecla(TeclaCalc::Multiplicar);
    k.Teclear("15");
    k.Tecla(TeclaCalc::Porcentaje);
    EXPECT_DOUBLE_EQ(k.Valor(), 30);
    k.Tecla(TeclaCalc::CambioSigno);
    EXPECT_EQ(k.Pantalla(), "-30,00");
    // A sign changed while typing stays with the digits typed after it.
    k.Teclear("12");
    k.Tecla(TeclaCalc::CambioSigno);
    k.Teclear("3");
    EXPECT_EQ(k.Pantalla(), "-123");
    EXPECT_DOUBLE_EQ(k.Valor(), -123);
    k.Teclear("1");
    k.Tecla(TeclaCalc::Dividir);
    k.Teclear("0");
    k.Tecla(TeclaCalc::Igual);
    EXPECT_EQ(k.Pantalla(), "Error");
    k.Teclear("1234567,123456789");
    EXPECT_EQ(k.Pantalla(), "1.234.567,123456789");
    EXPECT_EQ(k.FormatoPantalla(2.5e17), "2,50E+17");
}

TEST(Calculadora, EurosYPesetas) {
    Calculadora k;
    k.Teclear("1");
    k.Tecla(TeclaCalc::Pta);
    EXPECT_EQ(k.Pantalla(), "166");
    EXPECT_DOUBLE_EQ(k.Valor(), 166.386);
    k.Tecla(TeclaCalc::Euro);
    EXPECT_EQ(k.Pantalla(), "1,00");
    k.Teclear("166386");
    k.Tecla(TeclaCalc::Euro);
    EXPECT_EQ(k.Pantalla(), "1.000,00");
    k.Tecla(TeclaCalc::EP);
    EXPECT_EQ(k.Modo(), "P");
    EXPECT_EQ(k.Pantalla(), "1.000");
}

TEST(Calculadora, RegistrosYResolucion) {
    Calculadora k;
    k.Teclear("1000");
    k.Tecla(TeclaCalc::VA);
    k.Teclear("2");
    k.Tecla(TeclaCalc::N);
    k.Teclear("10");
    k.Tecla(TeclaCalc::I);
    EXPECT_EQ(k.Pantalla(), "10,00%");
    k.Tecla(TeclaCalc::Pmt);
    EXPECT_EQ(k.Pantalla(), "-576,19");
    EXPECT_NEAR(k.PMT, -1210.0 / 2.1, Tol);
    // Interest of period 2 and the sum of both: 52,38 and 152,38 paid.
    k.Teclear("2");
    k.Tecla(TeclaCalc::IV);
    EXPECT_EQ(k.Pantalla(), "-52,38");
    k.Teclear("2");
    k.Tecla(TeclaCalc::IAc);
    EXPECT_EQ(k.Pantalla(), "-152,38");
    k.Teclear("2");
    k.Tecla(TeclaCalc::AAc);
    EXPECT_EQ(k.Pantalla(), "-1.000,00");

    // Solving back: the rate and the periods from the others.
    k.Tecla(TeclaCalc::I);
    EXPECT_EQ(k.Pantalla(), "10,00%");
    k.Tecla(TeclaCalc::N);
    EXPECT_EQ(k.Pantalla(), "2");

    // Pri changes the present value on the next press, not the figure shown.
    k.Tecla(TeclaCalc::VA);
    EXPECT_EQ(k.Pantalla(), "1.000,00");
    k.Tecla(TeclaCalc::PF);
    EXPECT_EQ(k.Pantalla(), "1.000,00");
    k.Tecla(TeclaCalc::VA);
    // 576,19 now + 576,19 / 1,1
    EXPECT_NEAR(k.Valor(), 1210.0 / 2.1 * (1 + 1 / 1.1), 1e-6);

    // A failure keeps the registers.
    const double pv = k.PV;
    k.Teclear("5");
    k.Tecla(TeclaCalc::IV); // period 5 of 2
    EXPECT_EQ(k.Pantalla(), "Error");
    EXPECT_EQ(k.PV, pv);

    // C with Ctrl empties the registers.
    k.Tecla(TeclaCalc::C, true);
    EXPECT_EQ(k.n, 0);
    EXPECT_EQ(k.PV, 0);
}

TEST(Calculadora, InteresSimpleYTae) {
    Calculadora k;
    k.Teclear("90");
    k.Tecla(TeclaCalc::N);
    k.Teclear("3600");
    k.Tecla(TeclaCalc::VA);
    k.Teclear("7");
    k.Tecla(TeclaCalc::Int); // i empty: nothing happens
    EXPECT_EQ(k.Pantalla(), "7");
    k.Tecla(TeclaCalc::I);
    k.Tecla(TeclaCalc::Int); // 90 x 0,07 x 3600 / 360 = 63
    EXPECT_EQ(k.Pantalla(), "63,00");

    k.Teclear("12");
    k.Tecla(TeclaCalc::N);
    k.Teclear("12");
    k.Tecla(TeclaCalc::I);
    k.Tecla(TeclaCalc::TAE);
    EXPECT_EQ(k.Pantalla(), "12,68%");
    k.Tecla(TeclaCalc::TAE, false, true);
    EXPECT_NEAR(k.Valor(), 12, 1e-6);
}

// 3.000 at 1 % a month over three months: payment 3000 x 0,01 / (1 - 1,01^-3) = 1.020,07;
// interest 30,00 and principal 990,07, then 1 % of the 2.009,93 left = 20,10, then 1 % of the
// 1.009,97 left = 10,10.
TEST(Calculadora, CuadroDePrestamo) {
    Calculadora k;
    k.n = 3;
    k.i = 1;
    k.PV = 3000;
    const Rejilla r = CuadroPrestamo(k);
    ASSERT_EQ(r.Filas(), 4);
    EXPECT_EQ(r.Titulos(), (QStringList{"Vencmtº", "Total Pago", "Intereses", "Amortización"}));
    EXPECT_EQ(r.Celda(0, 1), "1.020,07");
    EXPECT_EQ(r.Celda(0, 2), "30,00");
    EXPECT_EQ(r.Celda(0, 3), "990,07");
    EXPECT_EQ(r.Celda(1, 2), "20,10");
    EXPECT_EQ(r.Celda(2, 2), "10,10");
    EXPECT_EQ(r.Celda(3, 0), "Totales");
    EXPECT_EQ(r.Celda(3, 3), "3.000,00");
    k.pesetas = true;
    EXPECT_EQ(CuadroPrestamo(k).Celda(0, 1), "1.020");
    k.n = 2.5;
    EXPECT_EQ(CuadroPrestamo(k).Filas(), 0);
}

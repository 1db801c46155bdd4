// Undoing a close: the regularisation and final entries go, the balances are those before the
// close, and the exercise is open.

#include "yearend/InvertirCierre.h"
#include "Entorno.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

namespace {

TEST(InvertirCierre, QuitaLosDosAsientosYAbreElEjercicio) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Cierre");
    e.asiento(QDate(2024, 3, 1), {Debe("157000001", 500), Haber("370500067", 500)});
    e.asiento(QDate(2024, 4, 1), {Debe("662900056", 200), Haber("157000001", 200)});
    // The two entries a close writes, by hand: results of groups 6 and 7, then every balance.
    const long reg =
        e.asiento(QDate(2024, 12, 31),
                  {Debe("370500067", 500), Haber("662900056", 200), Haber("012900002", 300)});
    const long fin =
        e.asiento(QDate(2024, 12, 31), {Debe("012900002", 300), Haber("157000001", 300)});
    Conexion c = e.datos();
    const double saldoCaja = c.escalar("SELECT SaldoD - SaldoH FROM Mayor WHERE NCuenta = "
                                       "'157000001'")
                                 .toDouble();
    ASSERT_EQ(saldoCaja, 0.0);
    c.ejecutar("UPDATE Empresa SET EjCerrado = -1, NAsReg = ?, NAsFin = ?",
               {static_cast<qlonglong>(reg), static_cast<qlonglong>(fin)});
    CargarEjercicio(e.sesion, c);
    ASSERT_TRUE(e.sesion.EjCerrado);
    ASSERT_EQ(e.sesion.UltimoAsiento, 4.0f);

    InvertirCierre(e.sesion);
    EXPECT_FALSE(e.sesion.EjCerrado);
    EXPECT_EQ(e.sesion.NAsReg, 0);
    EXPECT_EQ(e.sesion.NAsFin, 0);
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f);
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt(), 2);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD - SaldoH FROM Mayor WHERE NCuenta = '157000001'").toDouble(),
              300.0);
    QSqlQuery q = c.ejecutar("SELECT EjCerrado, NAsReg, NAsFin FROM Empresa");
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toInt(), 0);
    EXPECT_EQ(q.value(1).toInt(), 0);
    EXPECT_EQ(q.value(2).toInt(), 0);
}

TEST(InvertirCierre, SinAsientoDeRegularizacion) {
    Entorno e;
    e.crearEmpresa("001", 2024, "Sin resultados");
    e.asiento(QDate(2024, 3, 1), {Debe("157000001", 80), Haber("012900002", 80)});
    const long fin =
        e.asiento(QDate(2024, 12, 31), {Debe("012900002", 80), Haber("157000001", 80)});
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1, NAsReg = 0, NAsFin = ?",
                   {static_cast<qlonglong>(fin)});
    }
    CargarEjercicio(e.sesion);
    InvertirCierre(e.sesion);
    Conexion c = e.datos();
    EXPECT_EQ(c.escalar("SELECT COUNT(DISTINCT NAs) FROM Diario").toInt(), 1);
    EXPECT_FALSE(e.sesion.EjCerrado);
}

} // namespace

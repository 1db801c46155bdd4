// Lists sorted by name come out in one order on either engine: case ignored for A-Z only, then
// the characters' codes, as the files have always sorted them (an accented capital after z).

#include "Entorno.h"
#include "chart/Aparcar.h"
#include "posting/Contabilizar.h"
#include "posting/Periodicos.h"

#include <gtest/gtest.h>

namespace {

// Given in a shuffled order; the expected order: "[" sorts before the letters once A-Z are
// folded, "ALFA2" after "alfa" as a longer key, accented and other letters after "zeta" by code.
const QStringList Desordenados{"ñu", "zeta", "ALFA2", "[corchete", "Beta", "Álamo", "alfa"};
const QStringList Ordenados{"[corchete", "alfa", "ALFA2", "Beta", "zeta", "Álamo", "ñu"};

TEST(OrdenNombres, SubcuentasPeriodicosYSectoresIgualEnAmbosMotores) {
    Entorno e;
    e.crearEmpresa();
    {
        Conexion c = e.datos();
        Transaccion t(c);
        for (int i = 0; i < Desordenados.size(); ++i) {
            c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES (?, ?, '6290')",
                       {QStringLiteral("62909%1").arg(i, 4, 10, QChar('0')), Desordenados[i]});
            c.ejecutar("INSERT INTO Sectores (Sector) VALUES (?)", {Desordenados[i]});
        }
        t.confirmar();
    }
    {
        Conexion b = e.bavar();
        for (const QString& n : Desordenados)
            b.ejecutar("INSERT INTO Periodicos (Nombre, Periodicidad) VALUES (?, 1)", {n});
    }

    QStringList subcuentas;
    for (const FilaAparcar& f : ListaAparcar(e.sesion, 6))
        if (f.NCuenta.startsWith("62909"))
            subcuentas << f.Cuenta;
    EXPECT_EQ(subcuentas, Ordenados);

    QStringList sectores;
    for (const QString& x : SectoresConVacio(e.sesion))
        if (Desordenados.contains(x))
            sectores << x;
    EXPECT_EQ(sectores, Ordenados);

    QStringList periodicos;
    Conexion b = e.bavar();
    for (const AsientoPeriodico& p : LeerPeriodicos(b))
        if (Desordenados.contains(p.Nombre))
            periodicos << p.Nombre;
    EXPECT_EQ(periodicos, Ordenados);
}

} // namespace

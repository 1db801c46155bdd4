// Deleting a subaccount: seven guards in their order, the first across every exercise of the
// company. Each test puts the data of its guard and of every later one, so that the message shows
// both that the guard holds and that it comes before the rest.

#include "PlanPrueba.h"
#include "ServidorPruebas.h"
#include "chart/CliPro.h"
#include "platform/Ficheros.h"

namespace {

class Guardas : public PlanPrueba {
protected:
    void SetUp() override {
        PlanPrueba::SetUp();
        FichaCliPro f;
        f.NIF = "B99999999";
        f.Provincia = "Zaragoza";
        sc = nueva(4, "4430", "Objeto", f);
        ASSERT_EQ(sc, "443000071");
        otroEjercicio(2023);
        anterior.reset(new Conexion(
            AbrirBaseEmpresa(e.sesion, e.sesion.rutaEjercicio(2023), TipoBase::Ejercicio)));
    }
    void TearDown() override { anterior.reset(); }

    // The data that trips guard k and every later one.
    void usarDesde(int k) {
        Conexion c = e.datos();
        Conexion b = e.bavar();
        if (k <= 1)
            anterior->ejecutar("INSERT INTO Diario (NAs, NAp, Fecha, NCuenta, Debe) "
                               "VALUES (1, 1, '2023-05-01', ?, 10)",
                               {sc});
        if (k <= 2)
            c.ejecutar("INSERT INTO DelDia (\"Nº\", Fecha, NCuenta1, NCuenta2, Importe) "
                       "VALUES (1, '2024-02-01', '157000001', ?, 5)",
                       {sc});
        if (k <= 3)
            c.ejecutar("INSERT INTO TiposIVA (NCuenta, Porcentaje, Clase) VALUES (?, 21, 'IVA')",
                       {sc});
        if (k <= 4)
            c.ejecutar("INSERT INTO DatosIVA (IdIVA, NCuenta, CP) VALUES (7, ?, 'C')", {sc});
        if (k <= 5)
            b.ejecutar("INSERT INTO Vencimientos (IdVenc, NCuenta1, NCuenta2) "
                       "VALUES (1, '157200003', ?)",
                       {sc});
        if (k <= 6)
            b.ejecutar("INSERT INTO Inventario (NElemento, SubctaAmort, SubctaDota) "
                       "VALUES (1, '028100041', ?)",
                       {sc});
        if (k <= 7)
            b.ejecutar("INSERT INTO AsPredi (Codigo, Nombre, NCuenta, NCliPro) "
                       "VALUES (3, 'Cobro mensual', '157000001', ?)",
                       {sc});
    }

    // Deletes with a Yes to the question; the message given, empty when deleted.
    QString eliminar() {
        e.dialogo.textos.clear();
        e.dialogo.informados.clear();
        e.dialogo.responder({true});
        const ResultadoPlan r = EliminarSubcuenta(e.sesion, e.dialogo, sc);
        EXPECT_EQ(e.dialogo.textos.value(0),
                  "Está seguro de que desea eliminar la Subcuenta 'Objeto'?");
        EXPECT_EQ(r.hecho, e.dialogo.informados.isEmpty());
        EXPECT_EQ(r.hecho, !existe("SELECT 1 FROM Cuentas WHERE NCuenta = ?", {sc}));
        return e.dialogo.informados.value(0);
    }

    QString sc;
    std::unique_ptr<Conexion> anterior;
};

TEST_F(Guardas, AsientosEnOtroEjercicio) {
    usarDesde(1);
    EXPECT_EQ(eliminar(),
              "No se puede eliminar la Subcuenta 'Objeto' porque existen asientos en los que se "
              "utiliza.");
}

TEST_F(Guardas, AsientosEnEsteEjercicio) {
    e.asiento(QDate(2024, 3, 1), {Debe(sc, 10), Haber("157000001", 10)});
    EXPECT_EQ(eliminar(),
              "No se puede eliminar la Subcuenta 'Objeto' porque existen asientos en los que se "
              "utiliza.");
}

TEST_F(Guardas, CajaDelDia) {
    usarDesde(2);
    EXPECT_EQ(eliminar(),
              "No se puede eliminar la Subcuenta Objeto porque se está utilizando en la Caja del "
              "Día.");
}

TEST_F(Guardas, CuentasDeIva) {
    usarDesde(3);
    EXPECT_EQ(eliminar(),
              "No se puede eliminar la Subcuenta Objeto porque se utiliza en la tabla de cuentas "
              "de IVA.");
}

TEST_F(Guardas, DatosDeIva) {
    usarDesde(4);
    EXPECT_EQ(eliminar(),
              "No se puede eliminar la Subcuenta Objeto porque se utiliza en la tabla de IVA.");
}

TEST_F(Guardas, Vencimientos) {
    usarDesde(5);
    EXPECT_EQ(eliminar(), "No se puede eliminar la Subcuenta Objeto porque se utiliza en la tabla "
                          "de Vencimientos.");
}

TEST_F(Guardas, Inventario) {
    usarDesde(6);
    EXPECT_EQ(eliminar(), "No se puede eliminar la Subcuenta Objeto porque se utiliza en la tabla "
                          "de Inventario.");
}

TEST_F(Guardas, AsientoPredisenado) {
    usarDesde(7);
    EXPECT_EQ(eliminar(), "No se puede eliminar la Subcuenta Objeto porque se utiliza en el "
                          "Asiento Prediseñado 'Cobro mensual'.");
}

TEST_F(Guardas, SinUsoSeEliminaConSuFicha) {
    // In the other exercise it is only in the chart: that does not keep it.
    EXPECT_TRUE(anterior->existe("SELECT 1 FROM Cuentas WHERE NCuenta = ?", {sc}));
    EXPECT_EQ(eliminar(), "");
    EXPECT_FALSE(existe("SELECT 1 FROM CliPro WHERE NCuenta = ?", {sc}));
    EXPECT_FALSE(existe("SELECT 1 FROM Mayor WHERE NCuenta = ?", {sc}));
}

TEST_F(Guardas, RespuestaNoDejaLaSubcuenta) {
    EXPECT_FALSE(EliminarSubcuenta(e.sesion, e.dialogo, sc).hecho);
    EXPECT_TRUE(existe("SELECT 1 FROM Cuentas WHERE NCuenta = ?", {sc}));
    EXPECT_TRUE(existe("SELECT 1 FROM CliPro WHERE NCuenta = ?", {sc}));
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
}

TEST_F(Guardas, ListaDeEjerciciosEnUso) {
    SOLO_EN_ARCHIVOS("el bloqueo de Selan.dat");
    usarDesde(3);
    BloqueoFichero bloqueo(e.sesion.rutaSelan());
    ASSERT_TRUE(bloqueo.conseguido());
    EXPECT_EQ(eliminar(), "El archivo está en uso.");
}

} // namespace

// The press of "&Aceptar" on the posting screen: checks, filling and changes by Modo, merging,
// and what reaches the journal.

#include "ComunAsientos.h"
#include "posting/EstadoTablero.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace cuentas;
using Tipo = ResultadoAceptar::Tipo;

namespace {

class Contabilizacion : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        k.Pantalla = &pantalla;
    }
    CamposForm4 campos(const QString& importe, const QString& concepto = "Factura luz",
                       const QString& fecha = "15/03/2024", const QString& documento = "D-1") {
        return {fecha, concepto, importe, documento, {}};
    }
    // Board-style start: row 1 debit, row 2 credit, filled with 100 by a first press.
    void empezar(const QString& n1, const QString& c1, const QString& n2, const QString& c2) {
        k.CargarLineas(n1, c1, n2, c2);
        k.Estado.Modo = "DOS";
        ASSERT_EQ(k.Aceptar(campos("100")).tipo, Tipo::Relleno);
    }
    // Rows typed straight into the grid as "NCuenta|Debe|Haber[|name]", dated and described alike.
    void rejilla(const QStringList& filas, const QString& concepto = "Periódico") {
        k.Rejilla.vaciar();
        for (const QString& fila : filas) {
            const QStringList v = fila.split('|');
            const int f = k.Rejilla.anadirFila();
            k.Rejilla.fijar(f, ColF4::Fecha, "20/04/2024");
            k.Rejilla.fijar(f, ColF4::Concepto, concepto);
            k.Rejilla.fijar(f, ColF4::NCuenta, v[0]);
            k.Rejilla.fijar(f, ColF4::Debe, v[1]);
            k.Rejilla.fijar(f, ColF4::Haber, v[2]);
            k.Rejilla.fijar(f, ColF4::Cuenta, v.value(3));
        }
    }
    QStringList importes() const {
        QStringList r;
        for (int f = 1; f <= k.Rejilla.ultima(); ++f)
            r << k.Rejilla.celda(f, ColF4::Debe) + "|" + k.Rejilla.celda(f, ColF4::Haber);
        return r;
    }
    Entorno e;
    EstadoTablero tablero;
    Contabilizar k{e.sesion, e.dialogo, tablero};
    PantallaGuion pantalla;
};

TEST_F(Contabilizacion, ComprobacionesEnOrdenConSusMensajesYFoco) {
    k.CargarLineas("Compras", Compras, "Banco", Banco);
    struct Caso {
        CamposForm4 c;
        QString mensaje;
        CampoForm4 foco;
    } casos[] = {
        {campos("100", ""), "Debe cumplimentar los campos de Fecha, Concepto e Importe.",
         CampoForm4::Ninguno},
        {campos("0,00"), "Debe cumplimentar los campos de Fecha, Concepto e Importe.",
         CampoForm4::Ninguno},
        {campos("100", "x", ""), "Debe cumplimentar los campos de Fecha, Concepto e Importe.",
         CampoForm4::Ninguno},
        {campos("100", "x", "31/02/2024"), "La fecha introducida no es una fecha válida.",
         CampoForm4::Fecha},
        {campos("100", "x", "1/1/2025"), "La fecha introducida no pertenece al año de trabajo.",
         CampoForm4::Fecha},
        {campos("100", "x", "31/12/2023"), "La fecha introducida no pertenece al año de trabajo.",
         CampoForm4::Fecha},
        // What rounds to nothing is no amount; what the books can't hold is told as such.
        {campos("0,004"), "Debe cumplimentar los campos de Fecha, Concepto e Importe.",
         CampoForm4::Ninguno},
        {campos("1e308"), MsgImporteNoValido("1e308"), CampoForm4::Importe},
        {campos("1000000000000"), MsgImporteNoValido("1000000000000"), CampoForm4::Importe},
        {campos("12abc"), MsgImporteNoValido("12abc"), CampoForm4::Importe},
        {campos("100", "Luz\tmarzo"), MsgControles("Concepto"), CampoForm4::Concepto},
        {campos("100", "Luz", "15/03/2024", QString(31, QLatin1Char('7'))),
         "El campo Documento no puede tener más de 30 caracteres.", CampoForm4::Documento},
    };
    for (const Caso& c : casos) {
        e.dialogo.informados.clear();
        const ResultadoAceptar r = k.Aceptar(c.c);
        EXPECT_EQ(r.tipo, Tipo::Aviso) << c.mensaje.toStdString();
        EXPECT_EQ(e.dialogo.informados, QStringList{c.mensaje});
        EXPECT_EQ(r.foco, c.foco) << c.mensaje.toStdString();
    }
    EXPECT_EQ(importes(), QStringList({"|", "|"})) << "a refused press changes nothing";
    // Both ends of the exercise are inside it; a date typed as digits is accepted and shown whole.
    ResultadoAceptar r = k.Aceptar(campos("100", "x", "010124"));
    EXPECT_EQ(r.tipo, Tipo::Relleno);
    EXPECT_EQ(r.fecha, "01/01/2024");
    EXPECT_EQ(e.sesion.UltimaFecha, QDate(2024, 1, 1));
    EXPECT_EQ(k.Aceptar(campos("100", "x", "31/12/2024")).tipo, Tipo::Cambio);
    EXPECT_EQ(k.Rejilla.celda(2, ColF4::Fecha), "31/12/2024");
}

// Each Modo, starting from 100 on rows 1 and 2: the new line takes 50, then 80.
TEST_F(Contabilizacion, RellenarYCambiarImportePorModo) {
    struct Caso {
        const char* modo;
        QStringList trasRellenar, trasCambiar;
    } casos[] = {
        {"D", {"100,00|", "|150,00", "50,00|"}, {"100,00|", "|180,00", "80,00|"}},
        {"D2", {"100,00|", "|150,00", "50,00|"}, {"100,00|", "|180,00", "80,00|"}},
        {"H", {"150,00|", "|100,00", "|50,00"}, {"180,00|", "|100,00", "|80,00"}},
        // The debit column, and row 1 goes down: 100 - 50, then 50 + 50 - 80.
        {"H2", {"50,00|", "|100,00", "50,00|"}, {"20,00|", "|100,00", "80,00|"}},
        {"DOS",
         {"100,00|", "|100,00", "50,00|", "|50,00"},
         {"100,00|", "|100,00", "80,00|", "|80,00"}},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.modo);
        empezar("Compras", Compras, "Banco", Banco);
        const QString modo = c.modo;
        if (modo == "DOS") {
            k.AnadirLinea("Caja", Caja);
            k.AnadirLinea("Ventas", Ventas);
        } else {
            k.AnadirLinea("Caja", Caja);
        }
        k.Estado.Modo = modo;
        EXPECT_EQ(k.Aceptar(campos("50", "Segunda", "15/03/2024", "D-2")).tipo, Tipo::Relleno);
        EXPECT_EQ(importes(), c.trasRellenar);
        EXPECT_EQ(k.Estado.ImporteAnterior, 50);
        const int L = k.Rejilla.ultima();
        EXPECT_EQ(k.Rejilla.celda(L, ColF4::Concepto), "Segunda");
        EXPECT_EQ(k.Rejilla.celda(L, ColF4::Documento), "D-2");
        EXPECT_EQ(k.Rejilla.celda(1, ColF4::Concepto), "Factura luz") << "earlier rows untouched";
        EXPECT_EQ(k.Rejilla.celda(L - 1, ColF4::Concepto),
                  modo == "DOS" ? "Segunda" : "Factura luz");
        EXPECT_EQ(k.Aceptar(campos("80", "Segunda", "15/03/2024", "D-2")).tipo, Tipo::Cambio);
        EXPECT_EQ(importes(), c.trasCambiar);
        EXPECT_EQ(k.Estado.ImporteAnterior, 80);
        // Unchanged: the next press posts, balanced without any test.
        const ResultadoAceptar r = k.Aceptar(campos("80", "Segunda", "15/03/2024", "D-2"));
        ASSERT_EQ(r.tipo, Tipo::Contabilizado);
        Conexion con = e.datos();
        EXPECT_EQ(con.escalar("SELECT round(SUM(Debe) - SUM(Haber), 2) FROM Diario WHERE NAs = ?",
                              {static_cast<qlonglong>(r.numero)})
                      .toDouble(),
                  0);
    }
    Conexion con = e.datos();
    EXPECT_TRUE(DescuadresMayor(con).isEmpty());
    EXPECT_EQ(Contar(con, "SELECT COUNT(DISTINCT NAs) FROM Diario"), 5);
}

TEST_F(Contabilizacion, CambiosSeAplicanUnoPorPulsacionEnSuOrden) {
    empezar("Compras", Compras, "Banco", Banco);
    k.AnadirLinea("Caja", Caja);
    k.AnadirLinea("Ventas", Ventas);
    k.Estado.Modo = "DOS";
    ASSERT_EQ(k.Aceptar(campos("40", "Segunda")).tipo, Tipo::Relleno);

    // Date, description, amount and document all changed: one rule per press.
    const CamposForm4 nuevo = campos("60", "Tercera", "16/03/2024", "D-9");
    ASSERT_EQ(k.Aceptar(nuevo).tipo, Tipo::Cambio);
    for (int f = 1; f <= 4; ++f) {
        EXPECT_EQ(k.Rejilla.celda(f, ColF4::Fecha), "16/03/2024") << "rule 1 reaches every row";
        EXPECT_EQ(k.Rejilla.celda(f, ColF4::Concepto), "Tercera") << "with the description";
    }
    EXPECT_EQ(k.Rejilla.celda(4, ColF4::Haber), "40,00") << "amount waits for the next press";
    ASSERT_EQ(k.Aceptar(nuevo).tipo, Tipo::Cambio);
    EXPECT_EQ(importes(), QStringList({"100,00|", "|100,00", "60,00|", "|60,00"}));
    EXPECT_EQ(k.Rejilla.celda(4, ColF4::Documento), "D-1");
    ASSERT_EQ(k.Aceptar(nuevo).tipo, Tipo::Cambio);
    EXPECT_EQ(k.Rejilla.celda(3, ColF4::Documento), "D-9") << "DOS: both new rows";
    EXPECT_EQ(k.Rejilla.celda(4, ColF4::Documento), "D-9");
    EXPECT_EQ(k.Rejilla.celda(2, ColF4::Documento), "D-1") << "earlier rows untouched";

    // A description alone reaches only the new rows.
    ASSERT_EQ(k.Aceptar(campos("60", "Cuarta", "16/03/2024", "D-9")).tipo, Tipo::Cambio);
    EXPECT_EQ(k.Rejilla.celda(2, ColF4::Concepto), "Tercera");
    EXPECT_EQ(k.Rejilla.celda(3, ColF4::Concepto), "Cuarta");
    EXPECT_EQ(k.Rejilla.celda(4, ColF4::Concepto), "Cuarta");
    // The sector is not a change: the press posts, and every line carries it.
    CamposForm4 conSector = campos("60", "Cuarta", "16/03/2024", "D-9");
    conSector.Sector = "Tienda";
    const ResultadoAceptar r = k.Aceptar(conSector);
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    Conexion c = e.datos();
    EXPECT_EQ(Unidos(c, "SELECT DISTINCT Sector FROM Diario"), "Tienda");
    EXPECT_EQ(Unidos(c, "SELECT DISTINCT Fecha FROM Diario"), "2024-03-16");
}

TEST_F(Contabilizacion, CRepetidasFundeYQuitaLasQueSeAnulan) {
    auto resultado = [&] {
        QStringList r;
        for (int f = 1; f <= k.Rejilla.ultima(); ++f)
            r << k.Rejilla.celda(f, ColF4::NCuenta).trimmed() + " " +
                     k.Rejilla.celda(f, ColF4::Debe) + "|" + k.Rejilla.celda(f, ColF4::Haber);
        return r;
    };
    // Same subaccount on both sides, equal amounts: neither line stays.
    rejilla({Caja + "|100,00|", Banco + "||30,00", Caja + "||100,00", Compras + "|30,00|"});
    CRepetidas(k.Rejilla);
    EXPECT_EQ(resultado(), QStringList({Banco + " |30,00", Compras + " 30,00|"}));
    // Netting lands on the side that wins, in the first row; codes compared trimmed.
    rejilla({Caja + "|100,00|", Banco + " ||130,00", Caja + "||70,00", Banco + "|100,00|",
             Caja + "||45,50"});
    CRepetidas(k.Rejilla);
    EXPECT_EQ(resultado(), QStringList({Caja + " |15,50", Banco + " |30,00"}));
    // After a pair goes, the row that takes its place is scanned too.
    rejilla({Caja + "|10,00|", Caja + "||10,00", Banco + "|5,00|", Banco + "|5,00|",
             Compras + "|0,10|", Compras + "|0,20|", Compras + "||0,30"});
    CRepetidas(k.Rejilla);
    EXPECT_EQ(resultado(), QStringList({Banco + " 10,00|"})) << "0.1 + 0.2 - 0.3 nets to zero";
}

TEST_F(Contabilizacion, AproximaAcercaAUnImporteDeLaRejilla) {
    empezar("Compras", Compras, "Proveedor", Proveedor);
    k.Rejilla.fijar(1, ColF4::Debe, "0,00");
    k.Rejilla.fijar(1, ColF4::Haber, "82,64");
    EXPECT_EQ(Aproxima(k.Rejilla, 82.61), 82.64) << "a zero debit cell gives way to the credit";
    EXPECT_EQ(Aproxima(k.Rejilla, 100.038), 100) << "the first row near enough wins";
    EXPECT_EQ(Aproxima(k.Rejilla, 99.962), 100);
    EXPECT_EQ(Aproxima(k.Rejilla, 100.039), 100.039) << "0.039 away is too far";
    EXPECT_EQ(Aproxima(k.Rejilla, 100.04), 100.04);
    EXPECT_EQ(Aproxima(k.Rejilla, 82.6), 82.6);
    EXPECT_EQ(Aproxima(k.Rejilla, -100), -100);
}

TEST_F(Contabilizacion, AnuladoPorCRepetidasNoEscribeNadaPeroElNumeroSube) {
    e.asiento(QDate(2024, 2, 1), {Debe(Caja, 5), Haber(Ventas, 5)});
    empezar("Caja", Caja, "Caja", Caja);
    const ResultadoAceptar r = k.Aceptar(campos("100"));
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    EXPECT_EQ(r.numero, 2);
    EXPECT_EQ(k.Rejilla.ultima(), 0) << "both lines netted away";
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f) << "the number rises although nothing is written";
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 2);
    EXPECT_EQ(Contar(c, "SELECT SaldoD FROM Mayor WHERE NCuenta = '" + Caja + "'"), 5);
    // The journal still ends at 1, so the next entry takes 2.
    EXPECT_EQ(e.asiento(QDate(2024, 2, 2), {Debe(Caja, 7), Haber(Ventas, 7)}), 2);
}

TEST_F(Contabilizacion, LineasDelDebePrimeroConceptoCortadoYContraDinero) {
    // On screen: credit, debit, credit, as a periodic entry can come.
    const QString largo = "Cobro de la factura de marzo del cliente principal 2024";
    rejilla({Ventas + "||100,00|Ventas", Banco + "|60,00||Banco", Caja + "|40,00||Caja"}, largo);
    k.Rejilla.fijar(2, ColF4::Casacion, "0");
    tablero.CuentaDinero = "xxx";
    const ResultadoAceptar r = k.Publicar({});
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    Conexion con = e.datos();
    EXPECT_EQ(
        LineasDiario(con, r.numero),
        QStringList({"1 " + Banco + " 60/0", "2 " + Caja + " 40/0", "3 " + Ventas + " 0/100"}));
    EXPECT_EQ(con.escalar("SELECT Concepto FROM Diario WHERE NAp = 3").toString(), largo.left(40));
    EXPECT_EQ(con.escalar("SELECT CasacionN || ':' || (CASE WHEN CasacionH > 45000 THEN 1 ELSE 0 "
                          "END) FROM Diario WHERE NAp = 1")
                  .toString(),
              "0:1")
        << "a marked line carries its mark and the time it was made";
    EXPECT_EQ(con.escalar("SELECT CasacionH FROM Diario WHERE NAp = 2").toDouble(), 0);
    EXPECT_EQ(tablero.CuentaDinero, Caja) << "the last money line wins";
    EXPECT_EQ(tablero.NombreDinero, "Caja");

    empezar("Compras", Compras, "Proveedor", Proveedor);
    ASSERT_EQ(k.Aceptar(campos("100")).tipo, Tipo::Contabilizado);
    EXPECT_EQ(tablero.CuentaDinero, "") << "an entry without money empties it";
}

TEST_F(Contabilizacion, CuadreExactoSoloEnConfirmacionDePeriodicos) {
    auto cargar = [&](const QString& d1, const QString& d2, const QString& h) {
        rejilla({Compras + "|" + d1 + "|", Caja + "|" + d2 + "|", Banco + "||" + h});
    };
    long avisado = 0;
    k.AsientoPeriodicoHecho = [&](long n) {
        avisado = n;
    };
    k.AplicarOrigen("F61");
    EXPECT_EQ(k.Rejilla.columnasEditables(),
              QSet<int>({ColF4::Debe, ColF4::Haber, ColF4::Documento}));
    cargar("100,004", "", "100,00");
    EXPECT_EQ(k.Publicar({}).tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgDescuadre});
    // Float noise is no difference: 0.1 + 0.2 against 0.3 balances.
    cargar("0,10", "0,20", "0,30");
    const ResultadoAceptar r = k.Publicar({});
    EXPECT_EQ(r.tipo, Tipo::Contabilizado);
    EXPECT_EQ(avisado, r.numero) << "the periodic confirmation is told";
    // Other origins are not tested here: the writer posts what there is.
    k.AplicarOrigen("F4");
    EXPECT_TRUE(k.Rejilla.columnasEditables().isEmpty());
    cargar("100,00", "", "90,00");
    EXPECT_EQ(k.Publicar({}).tipo, Tipo::Contabilizado);
}

// A periodic entry's cells are edited by hand: each must hold an amount the books take, and a
// refused edit leaves the cell as it was.
TEST_F(Contabilizacion, CeldaEditadaSoloConImportesYTextosValidos) {
    k.AplicarOrigen("F61");
    rejilla({Compras + "|100,00|", Banco + "||100,00"});
    auto editar = [&](int fila, int col, const QString& texto) {
        e.dialogo.informados.clear();
        return k.Rejilla.setData(k.Rejilla.index(fila - 1, col), texto);
    };
    EXPECT_TRUE(editar(1, ColF4::Debe, "1234,5"));
    EXPECT_EQ(k.Rejilla.celda(1, ColF4::Debe), "1.234,50");
    for (const char* malo : {"1e308", "9999999999999", "0,001e3"}) {
        EXPECT_FALSE(editar(2, ColF4::Haber, malo)) << malo;
        EXPECT_EQ(e.dialogo.informados, QStringList{MsgImporteNoValido(malo)});
    }
    EXPECT_FALSE(editar(2, ColF4::Haber, "mil"));
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgImporteErroneo});
    EXPECT_EQ(k.Rejilla.celda(2, ColF4::Haber), "100,00");
    EXPECT_FALSE(editar(2, ColF4::Documento, "F-1\nTotal 9.999,00"));
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgControles("Documento")});
    EXPECT_TRUE(editar(2, ColF4::Documento, " F-1 "));
    EXPECT_EQ(k.Rejilla.celda(2, ColF4::Documento), "F-1");
    EXPECT_TRUE(editar(1, ColF4::Haber, "")) << "an emptied cell is 0";
    EXPECT_FALSE(editar(2, ColF4::Haber, " ")) << "but the last row's amount goes to the field";
    EXPECT_EQ(e.dialogo.informados, QStringList{MsgImporteErroneo});
}

TEST_F(Contabilizacion, FechaInicialMiraElAnoDeHoy) {
    Sesion& s = e.sesion;
    EXPECT_EQ(FechaInicialForm4(s, QDate(2024, 6, 3)), QDate(2024, 6, 3));
    s.UltimaFecha = QDate(2024, 2, 10);
    EXPECT_EQ(FechaInicialForm4(s, QDate(2024, 6, 3)), QDate(2024, 2, 10));
    EXPECT_EQ(FechaInicialForm4(s, QDate(2025, 1, 8)), QDate(2024, 1, 1))
        << "a later year gives the first day, even with a last date set";
}

TEST_F(Contabilizacion, ConceptosYSectoresParaLasListas) {
    {
        Conexion b = e.bavar();
        b.ejecutar("INSERT INTO Conceptos (Codigo, Nombre) VALUES (7, '  Recibo del agua  ')");
        Conexion d = e.datos();
        d.ejecutar("INSERT INTO Sectores (Sector) VALUES ('Tienda')");
    }
    EXPECT_EQ(ConceptoDeCodigo(e.sesion, "7"), "Recibo del agua");
    EXPECT_EQ(ConceptoDeCodigo(e.sesion, "8"), "");
    EXPECT_EQ(ConceptoDeCodigo(e.sesion, "7a"), "");
    EXPECT_EQ(SectoresConVacio(e.sesion), QStringList({"Tienda", ""}));
    e.asiento(QDate(2024, 2, 1), {Debe(Banco, 50), Haber(Proveedor, 50)});
    e.asiento(QDate(2024, 2, 1), {Debe(Proveedor, 20), Haber(Banco, 20)});
    Conexion c = e.datos();
    EXPECT_EQ(SaldoPorNaturaleza(c, Banco), "30,00");
    EXPECT_EQ(SaldoPorNaturaleza(c, Proveedor), "30,00") << "area 2 is of credit nature";
    EXPECT_EQ(SaldoPorNaturaleza(c, Ventas), "0,00");
}

} // namespace

// Entry maintenance without the screen: loading an entry, changing its lines, the date-only
// change in place, rewriting under the same number, the VAT screen preset from the stored record,
// and the half-cent rule of this screen against the exact test of the posting screen.

#include "posting/GestionAsientos.h"
#include "ComunAsientos.h"
#include "posting/EstadoTablero.h"
#include "posting/Renumerar.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QBrush>
#include <QColor>
#include <gtest/gtest.h>
#include <tuple>

using namespace cuentas;
using Tipo = ResultadoF7::Tipo;

namespace {

class Gestion : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        k.Pantalla = &pantalla;
        k.LibrosCambiados = [this] {
            ++refrescos;
        };
    }

    // A purchase of 100 + 21 VAT to a supplier, with its VAT record, a reconciliation mark on
    // the supplier line and a sector.
    long compra(const QDate& fecha = QDate(2024, 3, 1)) {
        Apunte iva = Debe(IvaSop21, 21, "Compra");
        iva.Iva = DatosIvaApunte{Proveedor, "F-10", 100, 21, 21};
        iva.Iva->TipOp = "S";
        Apunte prov = Haber(Proveedor, 121, "Compra");
        prov.CasacionN = 3;
        prov.CasacionH = 45352.5;
        QList<Apunte> l{Debe(Compras, 100, "Compra"), iva, prov};
        for (Apunte& a : l)
            a.Sector = "Tienda";
        return e.asiento(fecha, l);
    }

    // A line typed in the fields and added with the button.
    ResultadoF7 anadir(const QString& area, const QString& ncuenta, const QString& debe,
                       const QString& haber, const QString& concepto = "Línea") {
        k.ElegirArea(area);
        k.ElegirSubcuenta(static_cast<int>(k.Codigos.indexOf(ncuenta)));
        k.Concepto = concepto;
        k.Debe = debe;
        k.Haber = haber;
        return k.Pulsar();
    }

    Entorno e;
    PantallaGuion pantalla;
    GestionAsientos k{e.sesion, e.dialogo};
    int refrescos = 0;
};

TEST_F(Gestion, CargarUnAsientoYSusMensajes) {
    compra();
    EXPECT_FALSE(k.VMAsiento(1234));
    EXPECT_EQ(e.dialogo.informados.value(0), "No se encontró el Asiento nº 1.234.");

    ASSERT_TRUE(k.VMAsiento(1));
    EXPECT_FALSE(k.EsNuevo);
    EXPECT_EQ(k.NumeroAsiento, 1);
    EXPECT_EQ(QStringList({k.Label2, k.Fecha, k.Label8, k.Sector, k.TextoDescuadre}),
              QStringList({"1", "01/03/2024", "01/03/2024", "Tienda", "0,00"}));
    ASSERT_EQ(k.Rejilla.ultima(), 3);
    EXPECT_EQ(QStringList({k.Rejilla.celda(2, ColF7::Cuenta), k.Rejilla.celda(2, ColF7::Debe),
                           k.Rejilla.celda(2, ColF7::Haber)}),
              QStringList({"IVA soportado 21%", "21,00", ""}))
        << "a zero shows as nothing";
    EXPECT_NE(k.Rejilla.celda(2, ColF7::IdIVA), "");
    EXPECT_EQ(k.Rejilla.celda(3, ColF7::CasacionN), "3");
    EXPECT_EQ(k.AdImagen().value(3), 4) << "picture of mark 3";
    EXPECT_EQ(k.AdImagen().value(1), -1);
    // The first four columns carry the background of Resaltar.
    const QModelIndex cuenta = k.Rejilla.index(0, ColF7::Haber);
    const QModelIndex documento = k.Rejilla.index(0, ColF7::Documento);
    EXPECT_EQ(k.Rejilla.data(cuenta, Qt::BackgroundRole).value<QBrush>().color(),
              QColor(0xE0, 0xE0, 0xE0));
    EXPECT_FALSE(k.Rejilla.data(documento, Qt::BackgroundRole).isValid());

    // The number field: digits only, "+" for the next number, Enter to load.
    EXPECT_TRUE(k.TeclaNumero("7"));
    EXPECT_FALSE(k.TeclaNumero("a"));
    EXPECT_EQ(e.dialogo.informados.last(), "Debe introducir sólo cifras.");
    EXPECT_FALSE(k.TeclaNumero("+"));
    EXPECT_TRUE(k.EsNuevo);
    EXPECT_EQ(k.Numero, "2");
    EXPECT_EQ(k.Rejilla.ultima(), 0);
    k.Numero = "77";
    EXPECT_FALSE(k.IntroNumero());
    EXPECT_EQ(e.dialogo.informados.last(), "77 no es un número de Asiento válido.");
    k.Numero = "1";
    EXPECT_TRUE(k.IntroNumero());
    EXPECT_EQ(k.Rejilla.ultima(), 3);
}

TEST_F(Gestion, ElegirLineasYSusAvisos) {
    compra();
    ASSERT_TRUE(k.VMAsiento(1));
    // A click on a row: its line goes to the fields, the area from its code, its balance.
    k.SeleccionarLinea(3);
    EXPECT_EQ(k.Caption, CaptionModificar);
    EXPECT_EQ(QStringList({k.Area, k.NCuenta, k.Haber, k.Saldo}),
              QStringList({"2", Proveedor, "121,00", "-121,00"}))
        << "the balance is SaldoD - SaldoH, whatever the area";
    EXPECT_TRUE(k.Codigos.contains(Proveedor));

    k.VaciarLinea();
    EXPECT_FALSE(k.ElegirSubcuenta(0));
    EXPECT_EQ(e.dialogo.informados.last(),
              "Seleccione primero el Area al que pertenece la Subcuenta");

    // The checks of a line, each ending the press.
    k.ElegirArea("1");
    EXPECT_EQ(k.Caption, CaptionAceptar);
    k.Debe = "5";
    k.LineaTocada();
    EXPECT_EQ(k.Caption, CaptionAnadir);
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(), "No ha seleccionado una cuenta.");
    EXPECT_EQ(anadir("1", Caja, "", "").tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Tiene que introducir el importe, bien en el DEBE o en el HABER.");
    EXPECT_EQ(anadir("1", Caja, "5", "5").tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(),
              "El importe hay que introducirlo sólo en el DEBE o en el HABER.");
    // An amount is rounded to the cent before it is judged, and must be one the books hold.
    EXPECT_EQ(anadir("1", Caja, "0,004", "").tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(),
              "Tiene que introducir el importe, bien en el DEBE o en el HABER.");
    for (const char* malo : {"1e308", "inf", "-1000000000000"}) {
        EXPECT_EQ(anadir("1", Caja, "", malo).tipo, Tipo::Aviso) << malo;
        EXPECT_EQ(e.dialogo.informados.last(), MsgImporteNoValido(malo));
    }
    k.Documento = "A\tB";
    EXPECT_EQ(anadir("1", Caja, "5", "").tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(), MsgControles("Documento"));
    k.Documento.clear();
    EXPECT_EQ(k.Rejilla.ultima(), 3) << "nothing added";
    EXPECT_FALSE(k.LineasCambiadas);

    // Added: the difference follows and the focus goes to the area while it is not balanced.
    const ResultadoF7 r = anadir("1", Caja, "5", "");
    EXPECT_EQ(r.tipo, Tipo::Linea);
    EXPECT_EQ(r.foco, ResultadoF7::Foco::Area);
    EXPECT_EQ(k.Rejilla.ultima(), 4);
    EXPECT_EQ(k.TextoDescuadre, "5,00");
    EXPECT_TRUE(k.LineasCambiadas);
    EXPECT_EQ(k.Caption, CaptionAceptar);
    EXPECT_TRUE(k.NCuenta.isEmpty() && k.Debe.isEmpty()) << "the line fields are emptied";
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(), "El asiento está descuadrado.");

    // Removing a line asks with the subaccount's name; No keeps it.
    EXPECT_FALSE(k.QuitarLinea(4));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Está seguro de que desea eliminar el Apunte correspondiente a Caja?");
    EXPECT_EQ(k.Rejilla.ultima(), 4);
    e.dialogo.responder({true});
    EXPECT_TRUE(k.QuitarLinea(4));
    EXPECT_EQ(k.Rejilla.ultima(), 3);
    EXPECT_EQ(k.TextoDescuadre, "0,00");

    // Nothing reached the journal.
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 3);
}

TEST_F(Gestion, SinCambiosSoloSeVaciaLaPantalla) {
    compra();
    ASSERT_TRUE(k.VMAsiento(1));
    Conexion c = e.datos();
    const QStringList antes = LineasDiario(c, 1);
    const ResultadoF7 r = k.Pulsar();
    EXPECT_EQ(r.tipo, Tipo::Vaciado);
    EXPECT_TRUE(k.EsNuevo);
    EXPECT_EQ(k.Rejilla.ultima(), 0);
    EXPECT_EQ(k.Numero, "2");
    EXPECT_TRUE(pantalla.vistas.isEmpty()) << "no VAT screen";
    EXPECT_EQ(LineasDiario(c, 1), antes);
    EXPECT_EQ(refrescos, 0);
}

TEST_F(Gestion, SoloLaFechaSeCambiaEnSuSitio) {
    compra();
    e.asiento(QDate(2024, 3, 2), {Debe(Caja, 5), Haber(Ventas, 5)});
    Conexion c = e.datos();
    const QStringList antes = LineasDiario(c, 1);
    const QString sqlMayor = "SELECT NCuenta, SaldoD, SaldoH FROM Mayor ORDER BY NCuenta";
    const QStringList mayor = Filas(c, sqlMayor);
    const qint64 id = c.escalar("SELECT IdIVA FROM DatosIVA").toLongLong();

    ASSERT_TRUE(k.VMAsiento(1));
    k.Fecha = "20/3/24";
    k.Sector = "";
    // Refused first: nothing changes.
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Nada);
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea guardar los cambios?");
    EXPECT_EQ(c.escalar("SELECT Fecha FROM Diario WHERE NAs = 1 LIMIT 1").toString(), "2024-03-01");
    e.dialogo.responder({true});
    const ResultadoF7 r = k.Pulsar();
    EXPECT_EQ(r.tipo, Tipo::Fecha);
    EXPECT_EQ(r.fecha, QDate(2024, 3, 20));
    const QString sqlFechas = "SELECT DISTINCT Fecha, Sector FROM Diario WHERE NAs = 1";
    EXPECT_EQ(Filas(c, sqlFechas), QStringList{"2024-03-20|"});
    EXPECT_EQ(Filas(c, "SELECT Fecha, IdIVA FROM DatosIVA"),
              QStringList{"2024-03-20|" + QString::number(id)})
        << "the same record";
    EXPECT_EQ(LineasDiario(c, 1), antes) << "NAp, amounts and VAT keys unchanged";
    EXPECT_EQ(Filas(c, sqlMayor), mayor);
    EXPECT_TRUE(pantalla.vistas.isEmpty()) << "no VAT screen for a date";
    EXPECT_EQ(refrescos, 1);
    EXPECT_TRUE(k.EsNuevo) << "the screen is emptied";

    // A VAT record that has gone is told, and the rest is still re-dated.
    c.ejecutar("DELETE FROM DatosIVA");
    e.dialogo.informados.clear();
    EXPECT_EQ(CambiarFechaAsiento(c, e.dialogo, 1, QDate(2024, 4, 1), "Tienda"), 3);
    EXPECT_EQ(
        e.dialogo.informados,
        QStringList{"Error en los datos de IVA. Debería anular el asiento y hacerlo de nuevo."});
    EXPECT_EQ(Filas(c, sqlFechas), QStringList{"2024-04-01|Tienda"});
    EXPECT_EQ(CambiarFechaAsiento(c, e.dialogo, 9, QDate(2024, 4, 1), ""), 0);
}

TEST_F(Gestion, ReescribirConservaElNumeroYPoneElDebePrimero) {
    compra();
    e.asiento(QDate(2024, 3, 5), {Debe(Caja, 5), Haber(Ventas, 5)});
    Conexion c = e.datos();

    ASSERT_TRUE(k.VMAsiento(1));
    // The supplier line becomes 100 + 21 paid partly by bank: a credit line between debits.
    k.SeleccionarLinea(3);
    k.Haber = "100";
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Linea);
    EXPECT_EQ(anadir("1", Banco, "", "21", "Pago parcial").tipo, Tipo::Linea);
    EXPECT_EQ(anadir("6", Compras, "-10", "", "Descuento").tipo, Tipo::Linea);
    EXPECT_EQ(anadir("2", Proveedor, "", "-10", "Descuento").tipo, Tipo::Linea);
    EXPECT_EQ(k.TextoDescuadre, "0,00");

    // The VAT line's screen opens preset from its stored record.
    pantalla.pasos << [](CapturaIva& cap) {
        EXPECT_EQ(cap.TipoOperacion, "S");
        cap.Aceptar();
    };
    const ResultadoF7 r = k.Pulsar();
    ASSERT_EQ(r.tipo, Tipo::Guardado) << e.dialogo.informados.join("|").toStdString();
    EXPECT_EQ(r.numero, 1) << "the entry keeps its number";
    ASSERT_EQ(pantalla.vistas.size(), 1);
    const VistaIva& v = pantalla.vistas[0];
    EXPECT_EQ(QStringList({v.Factura, v.Contrapartida, v.Cuota}),
              QStringList({"F-10", "Proveedores varios", " 21,00"}));
    EXPECT_EQ(v.FilaIVA, 2);

    // Debit lines first, negative amounts written, NAp running over both passes.
    EXPECT_EQ(LineasDiario(c, 1),
              QStringList({"1 " + Compras + " 100/0", "2 " + IvaSop21 + " 21/0 iva",
                           "3 " + Compras + " -10/0", "4 " + Proveedor + " 0/100",
                           "5 " + Banco + " 0/21", "6 " + Proveedor + " 0/-10"}));
    EXPECT_EQ(LineasDiario(c, 2).size(), 2) << "the other entry untouched";
    // The reconciliation mark and the sector stay; the VAT record is written anew, bound to its
    // line.
    EXPECT_EQ(c.escalar("SELECT CasacionN || '/' || CasacionH FROM Diario WHERE NAs = 1 AND "
                        "NAp = 4")
                  .toString(),
              "3/45352.5");
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE NAs = 1 AND Sector = 'Tienda'"), 6);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA v JOIN Diario d ON d.IdIVA = v.IdIVA "
                        "WHERE v.NFactura = 'F-10' AND v.TipOp = 'S'"),
              1);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(c.escalar("SELECT SaldoD FROM Mayor WHERE NCuenta = ?", {Compras}).toDouble(), 90);
    EXPECT_EQ(e.sesion.UltimoAsiento, 2.0f);
    EXPECT_EQ(refrescos, 1);
}

TEST_F(Gestion, CancelarElIvaNoCambiaNada) {
    compra();
    Conexion c = e.datos();
    const QStringList antes = LineasDiario(c, 1);
    ASSERT_TRUE(k.VMAsiento(1));
    k.SeleccionarLinea(1);
    k.Concepto = "Otro concepto";
    k.Pulsar();
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Abandonado) << "no step: the VAT screen is cancelled";
    EXPECT_EQ(LineasDiario(c, 1), antes);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1);
    EXPECT_EQ(k.Rejilla.ultima(), 3) << "the screen keeps the entry";
}

TEST_F(Gestion, UnFalloAlReescribirNoPierdeElAsiento) {
    compra();
    Conexion c = e.datos();
    const QStringList antes = LineasDiario(c, 1);
    // A line of a subaccount that no longer exists makes the writer refuse after the deletion.
    QList<Apunte> nuevas{Debe(Compras, 50), Haber("199999999", 50)};
    EXPECT_THROW(ReescribirAsiento(c, e.sesion, 1, QDate(2024, 3, 1), nuevas), ErrorAsiento);
    EXPECT_EQ(LineasDiario(c, 1), antes);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1);
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
    EXPECT_EQ(e.sesion.UltimoAsiento, 1.0f) << "the session as before";
    EXPECT_THROW(ReescribirAsiento(c, e.sesion, 7, QDate(2024, 3, 1), nuevas), Rechazo);

    // The same through the screen: the message, and the entry as it was.
    ASSERT_TRUE(k.VMAsiento(1));
    k.Rejilla.fijar(1, ColF7::NCuenta, "199999999");
    k.LineasCambiadas = true;
    pantalla.pasos << [](CapturaIva& cap) {
        cap.Aceptar();
    };
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Fallo);
    EXPECT_EQ(e.dialogo.informados.last(), "No existe la subcuenta 199999999.");
    EXPECT_EQ(LineasDiario(c, 1), antes);
}

TEST_F(Gestion, AsientoNuevoLineaALinea) {
    compra();
    k.Vaciar();
    EXPECT_EQ(k.Numero, "2");
    k.Fecha = "15/05/2024";
    EXPECT_EQ(anadir("1", Banco, "", "30").foco, ResultadoF7::Foco::Area);
    const ResultadoF7 l = anadir("6", Compras, "30", "");
    EXPECT_EQ(l.foco, ResultadoF7::Foco::Boton) << "balanced: the focus to the button";
    EXPECT_TRUE(pantalla.vistas.isEmpty());
    const ResultadoF7 r = k.Pulsar();
    ASSERT_EQ(r.tipo, Tipo::Guardado);
    EXPECT_EQ(r.numero, 2);
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 2), QStringList({"1 " + Compras + " 30/0", "2 " + Banco + " 0/30"}));
    EXPECT_EQ(c.escalar("SELECT Fecha FROM Diario WHERE NAs = 2 LIMIT 1").toString(), "2024-05-15");
    EXPECT_EQ(k.Numero, "3") << "emptied with the next number";
    EXPECT_EQ(k.Fecha, "15/05/2024") << "the date stays for the next entry";

    // An empty new entry has nothing to write.
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Vaciado);
    EXPECT_EQ(Contar(c, "SELECT MAX(NAs) FROM Diario"), 2);

    // The date must be given and in the exercise.
    anadir("1", Caja, "1", "");
    k.Fecha = "";
    EXPECT_EQ(k.Pulsar().foco, ResultadoF7::Foco::Fecha);
    EXPECT_EQ(e.dialogo.informados.last(), "Debe cumplimentar el campo de Fecha.");
    k.Fecha = "1/1/2025";
    k.Pulsar();
    EXPECT_EQ(e.dialogo.informados.last(), "La fecha introducida no pertenece al año de trabajo.");
}

TEST_F(Gestion, MedioCentimoCuadraAquiPeroNoEnLaConfirmacionDePeriodicos) {
    // The same two lines, `debe` against 100,00, typed into either grid (with a name on this
    // screen's, the date on the posting screen's).
    struct Columnas {
        int Otra, NCuenta, Debe, Haber;
        QString otra;
    };
    const Columnas f7{ColF7::Cuenta, ColF7::NCuenta, ColF7::Debe, ColF7::Haber, "x"},
        f4{ColF4::Fecha, ColF4::NCuenta, ColF4::Debe, ColF4::Haber, "01/06/2024"};
    auto lineas = [](auto& rejilla, const Columnas& col, const QString& debe) {
        for (const auto& [ncuenta, d, h] : {std::tuple{Compras, debe, QString()},
                                            std::tuple{Caja, QString(), QString("100,00")}}) {
            const int f = rejilla.anadirFila();
            rejilla.fijar(f, col.Otra, col.otra);
            rejilla.fijar(f, col.NCuenta, ncuenta);
            rejilla.fijar(f, col.Debe, d);
            rejilla.fijar(f, col.Haber, h);
        }
    };
    k.Vaciar();
    k.Fecha = "01/06/2024";
    lineas(k.Rejilla, f7, "100,004");
    k.LineasCambiadas = true;
    k.Descuadre();
    EXPECT_EQ(k.TextoDescuadre, "0,00");
    EXPECT_TRUE(k.Cuadrado());
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Guardado);
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, 1), QStringList({"1 " + Compras + " 100/0", "2 " + Caja + " 0/100"}));

    EstadoTablero tablero;
    Contabilizar f4k(e.sesion, e.dialogo, tablero);
    f4k.AplicarOrigen("F61");
    lineas(f4k.Rejilla, f4, "100,004");
    EXPECT_EQ(f4k.Publicar("").tipo, ResultadoAceptar::Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(), MsgDescuadre);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 2);

    // Half a cent is a cent: refused here too.
    k.Vaciar();
    k.Fecha = "01/06/2024";
    lineas(k.Rejilla, f7, "100,005");
    k.LineasCambiadas = true;
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Aviso);
    EXPECT_EQ(k.TextoDescuadre, "0,01");
    EXPECT_EQ(e.dialogo.informados.last(), "El asiento está descuadrado.");
}

// Number 0 is an entry's number like any other once an entry is renumbered to it: changing it
// rewrites it in its place (not a copy under a new number beside the old lines), and it can be
// deleted.
TEST_F(Gestion, ElAsientoCeroSeReescribeYSeEliminaEnSuSitio) {
    compra();
    e.asiento(QDate(2024, 3, 5), {Debe(Caja, 5), Haber(Ventas, 5)});
    ASSERT_TRUE(RenumerarUnAsiento(e.sesion, e.dialogo, "2", "0").hecho);
    Conexion c = e.datos();

    // Typed in the number box, as any entry is called up.
    k.Numero = "0";
    ASSERT_TRUE(k.IntroNumero()) << e.dialogo.informados.join("|").toStdString();
    EXPECT_FALSE(k.EsNuevo);
    k.SeleccionarLinea(1);
    k.Debe = "7";
    ASSERT_EQ(k.Pulsar().tipo, Tipo::Linea);
    k.SeleccionarLinea(2);
    k.Haber = "7";
    ASSERT_EQ(k.Pulsar().tipo, Tipo::Linea);
    const ResultadoF7 r = k.Pulsar();
    ASSERT_EQ(r.tipo, Tipo::Guardado) << e.dialogo.informados.join("|").toStdString();
    EXPECT_EQ(r.numero, 0);
    EXPECT_EQ(LineasDiario(c, 0), QStringList({"1 " + Caja + " 7/0", "2 " + Ventas + " 0/7"}));
    EXPECT_EQ(Filas(c, "SELECT DISTINCT NAs FROM Diario ORDER BY NAs"), QStringList({"0", "1"}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    ASSERT_TRUE(k.VMAsiento(0));
    e.dialogo.responder({true});
    EXPECT_TRUE(k.EliminarAsiento());
    EXPECT_EQ(Filas(c, "SELECT DISTINCT NAs FROM Diario ORDER BY NAs"), QStringList({"1"}));
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());
}

TEST_F(Gestion, EliminarElAsientoEnPantalla) {
    compra();
    e.asiento(QDate(2024, 3, 2), {Debe(Caja, 5), Haber(Ventas, 5)});
    EXPECT_FALSE(k.EliminarAsiento()) << "no entry on show";
    ASSERT_TRUE(k.VMAsiento(2));
    EXPECT_FALSE(k.EliminarAsiento());
    EXPECT_EQ(e.dialogo.preguntas.last(), "Está seguro de que desea eliminar el asiento número 2?");
    e.dialogo.responder({true});
    EXPECT_TRUE(k.EliminarAsiento());
    EXPECT_EQ(e.dialogo.informados.last(), "Se eliminó el Asiento número 2.");
    EXPECT_TRUE(k.EsNuevo);
    EXPECT_EQ(e.sesion.UltimoAsiento, 1.0f);
    EXPECT_EQ(refrescos, 1);
    Conexion c = e.datos();
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    // Deleted meanwhile by someone else: the failure is told.
    ASSERT_TRUE(k.VMAsiento(1));
    c.ejecutar("DELETE FROM Diario WHERE NAs = 1");
    e.dialogo.responder({true});
    EXPECT_FALSE(k.EliminarAsiento());
    EXPECT_EQ(e.dialogo.informados.last(), "No se pudo eliminar el Asiento.");
}

TEST_F(Gestion, EjercicioCerradoYGanchos) {
    compra();
    ASSERT_TRUE(k.VMAsiento(1));
    {
        Conexion c = e.datos();
        c.ejecutar("UPDATE Empresa SET EjCerrado = -1");
    }
    EXPECT_EQ(k.Pulsar().tipo, Tipo::Aviso);
    EXPECT_EQ(e.dialogo.informados.last(), MsgEjercicioCerrado);
    EXPECT_FALSE(k.EliminarAsiento());
    EXPECT_EQ(e.dialogo.informados.last(), MsgEjercicioCerrado);

    // The predesigned code needs three digits; the periodic entry a balanced grid.
    QString codigo;
    k.AccionPredisenado = [&](const QString& c) {
        codigo = c;
    };
    k.Pred = "12";
    EXPECT_FALSE(k.Predisenado());
    EXPECT_EQ(e.dialogo.informados.last(), "Los asientos prediseñados deben tener tres dígitos");
    k.Pred = "012";
    EXPECT_TRUE(k.Predisenado());
    EXPECT_EQ(codigo, "012");
    int periodicos = 0;
    k.AccionPeriodico = [&] {
        ++periodicos;
    };
    EXPECT_TRUE(k.HacerPeriodico());
    k.Rejilla.fijar(1, ColF7::Debe, "99,00");
    EXPECT_FALSE(k.HacerPeriodico());
    EXPECT_EQ(e.dialogo.informados.last(), "El asiento está descuadrado");
    EXPECT_EQ(periodicos, 1);
}

} // namespace

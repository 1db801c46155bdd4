// VAT capture: the rules of the VAT screen, and the VAT step of a posting with its quirks.

#include "ComunAsientos.h"
#include "posting/EstadoTablero.h"
#include "posting/TrabajoIva.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <gtest/gtest.h>

using namespace cuentas;
using Tipo = ResultadoAceptar::Tipo;

namespace {

class Captura : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(); }
    // A VAT screen for a supplier line of 100 at 16 %, as the posting screen prepares it.
    CapturaIva preparada(double base = 100, double porcentaje = 16, double cuota = 16) {
        CapturaIva c(e.sesion, e.dialogo, trabajo, ultimaFila, aceptado);
        c.FilaIVA = 3;
        c.CuentaIVA = IvaSop21;
        c.Base = Formato(base, "standard");
        c.Porcentaje = " " + Formato(porcentaje, "standard");
        c.Cuota = " " + Formato(cuota, "standard");
        c.Clase = " IVA";
        c.Nombres = {"Proveedores varios"};
        c.Codigos = {Proveedor};
        c.ElegirContrapartida(0);
        return c;
    }
    Entorno e;
    TrabajoIva trabajo;
    qint16 ultimaFila = 0;
    bool aceptado = false;
};

TEST_F(Captura, ToleranciaDeUnaDecima) {
    struct Caso {
        double base, porcentaje, cuota;
        bool pasa;
    } casos[] = {
        {100, 16, 16.10, true},
        {100, 16, 16.11, false},
        {100, 16, 15.90, true},
        {100, 16, 15.89, false},
        {1234567.89, 21, 259259.26, true}, // a cent off on a large base
        {1234567.89, 21, 259259.38, false},
        {-100, 21, -21, true},
        {100, 21, -21, false},
    };
    for (const Caso& c : casos) {
        e.dialogo.informados.clear();
        aceptado = false;
        CapturaIva cap = preparada(c.base, c.porcentaje, c.cuota);
        EXPECT_EQ(cap.Aceptar(), c.pasa) << c.base << " " << c.cuota;
        EXPECT_EQ(aceptado, c.pasa);
        EXPECT_EQ(e.dialogo.informados,
                  c.pasa ? QStringList{}
                         : QStringList{"La Base no se corresponde con el Porcentaje y Cuota."});
    }
}

TEST_F(Captura, AceptarGuardaLaFilaEnLosDoceArrays) {
    trabajo.dimensionar(2);
    trabajo.IvaIdIVA[1] = 5;
    CapturaIva c = preparada(1234567.89, 21, 259259.26);
    c.Factura = "F-77";
    c.Modelo347 = true;
    c.TipoOperacion = "A";
    c.Retencion = "190,00";
    ASSERT_TRUE(c.Aceptar());
    EXPECT_EQ(ultimaFila, 3);
    ASSERT_EQ(trabajo.tamano(), 3);
    EXPECT_EQ(trabajo.IvaIdIVA[1], 5) << "earlier rows kept";
    EXPECT_GT(trabajo.IvaIdIVA[3], 45000e6) << "a time stamp in millionths of a day";
    EXPECT_EQ(QStringList({trabajo.IvaContra[3], trabajo.IvaCuenta[3], trabajo.IvaFactura[3],
                           trabajo.IvaClase[3], trabajo.IvaTipOp[3]}),
              QStringList({Proveedor, IvaSop21, "F-77", "IVA", "A"}));
    EXPECT_EQ(trabajo.IvaBase[3], 1234567.89f) << "held as a 32-bit float";
    EXPECT_NE(static_cast<double>(trabajo.IvaBase[3]), 1234567.89) << "so the cents are lost";
    EXPECT_EQ(trabajo.IvaPorcentaje[3], 21.0f);
    EXPECT_TRUE(trabajo.IvaLIVA[3] && trabajo.IvaL347[3]);
    EXPECT_EQ(trabajo.IvaRetencion[3], 190.0f) << "visible: 347 box and rent";
    c.TipoOperacion = "S";
    ASSERT_TRUE(c.Aceptar());
    EXPECT_EQ(trabajo.IvaRetencion[3], 0.0f) << "hidden withholding counts as 0";
    EXPECT_EQ(trabajo.IvaTipOp[3], "S");
}

TEST_F(Captura, FaltanContrapartidaOBaseYCasillasVacias) {
    CapturaIva sinContra = preparada();
    sinContra.Contrapartida.clear();
    EXPECT_FALSE(sinContra.Aceptar());
    CapturaIva sinBase = preparada();
    sinBase.Base = " ";
    EXPECT_FALSE(sinBase.Aceptar());
    EXPECT_EQ(e.dialogo.informados, QStringList({"Debe seleccionar la Subcuenta de contrapartida.",
                                                 "Debe constar el importe de la Base."}));
    // A typed name that names no subaccount is refused, and can't be accepted.
    CapturaIva tecleada = preparada();
    EXPECT_FALSE(tecleada.ElegirContrapartida(QStringLiteral("Nadie")));
    EXPECT_EQ(e.dialogo.informados.last(), "No se encontró el código de cuenta de Nadie");
    EXPECT_FALSE(tecleada.Aceptar());
    EXPECT_TRUE(tecleada.ElegirContrapartida(QStringLiteral("Acreedores varios")));
    EXPECT_EQ(tecleada.CuentaContra, Acreedor);
    EXPECT_FALSE(aceptado);

    // Both boxes clear: nothing kept, and earlier rows' data is dropped with it.
    ultimaFila = 2;
    CapturaIva vacia = preparada(0, 16, 99);
    vacia.LibroIva = false;
    vacia.Modelo347 = false;
    vacia.Contrapartida.clear();
    EXPECT_FALSE(vacia.ListasVisibles());
    EXPECT_TRUE(vacia.Aceptar()) << "no other check applies";
    EXPECT_EQ(ultimaFila, 0);
    EXPECT_TRUE(aceptado);
}

// The base and the withholding are amounts like any other; the invoice number, a text of its
// field. A quota the books hold may still give a base they can't.
TEST_F(Captura, BaseRetencionYFacturaComoEnTodosLosCaminos) {
    struct Caso {
        QString base, retencion, factura, mensaje;
    } casos[] = {
        {"1e308", "", "F-1", MsgImporteNoValido("1e308")},
        {"4.761.904.761.904,71", "", "F-1", MsgImporteNoValido("4.761.904.761.904,71")},
        {"100", "inf", "F-1", MsgImporteNoValido("inf")},
        {"100", "1000000000000", "F-1", MsgImporteNoValido("1000000000000")},
        {"100", "", "F-1\tTotal", MsgControles("Factura")},
        {"100", "", QString(31, QLatin1Char('9')),
         "El campo Factura no puede tener más de 30 caracteres."},
    };
    for (const Caso& k : casos) {
        e.dialogo.informados.clear();
        CapturaIva c = preparada(100, 21, 21);
        c.Base = k.base;
        c.Factura = k.factura;
        c.Modelo347 = true;
        c.TipoOperacion = "A";
        c.Retencion = k.retencion;
        EXPECT_FALSE(c.Aceptar()) << k.mensaje.toStdString();
        EXPECT_EQ(e.dialogo.informados, QStringList{k.mensaje});
        EXPECT_FALSE(aceptado);
    }
    CapturaIva c = preparada(100, 21, 21);
    c.Factura = "  F-2 ";
    ASSERT_TRUE(c.Aceptar());
    EXPECT_EQ(trabajo.IvaFactura[3], "F-2");
}

TEST_F(Captura, AbonoVisibilidadYAreas) {
    CapturaIva c = preparada(100, 21, 21);
    c.MarcarAbono(true);
    EXPECT_EQ(c.Base, "-100,00");
    EXPECT_EQ(c.Cuota, "-21,00") << "the quota is worked out anew";
    EXPECT_TRUE(c.Modelo347);
    c.MarcarAbono(true);
    EXPECT_EQ(c.Base, "-100,00") << "one minus only";
    EXPECT_TRUE(c.Aceptar()) << "the test runs on the new quota";
    EXPECT_EQ(trabajo.IvaCuota[3], -21.0f);
    c.MarcarAbono(false);
    EXPECT_EQ(c.Base, "100,00");
    EXPECT_EQ(c.Cuota, "21,00");

    c.Modelo347 = false;
    c.TipoOperacion = "A";
    EXPECT_FALSE(c.RetencionVisible());
    c.Modelo347 = true;
    EXPECT_TRUE(c.RetencionVisible());
    c.LibroIva = false;
    EXPECT_TRUE(c.ListasVisibles());

    EXPECT_EQ(c.Areas(), QStringList({"", "0", "1", "2", "3", "4", "5", "6"}));
    {
        Conexion d = e.datos();
        d.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = '2023-05-01' WHERE NCuenta = ?",
                   {Acreedor});
        d.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo, Aparcada, Desde) "
                   "VALUES ('240000099', 'Aparcada el año que viene', '2400', -1, '2025-02-01')");
    }
    c.ElegirArea("2");
    EXPECT_FALSE(c.Codigos.contains(Acreedor)) << "parked in an earlier year";
    EXPECT_TRUE(c.Codigos.contains("240000099")) << "parked only from a later year";
    EXPECT_TRUE(c.Codigos.contains(IvaRep21));
    for (const QString& cod : c.Codigos)
        EXPECT_TRUE(cod.startsWith('2')) << cod.toStdString();
    // By plan groups the digit is the plan's: group 4 takes customers of area 4 and the VAT
    // accounts of area 2 alike.
    e.sesion.CArea = "Plan";
    EXPECT_EQ(c.Areas(), QStringList({"", "1", "2", "3", "4", "5", "6", "7"}));
    c.ElegirArea("4");
    EXPECT_TRUE(c.Codigos.contains(Clientes));
    EXPECT_TRUE(c.Codigos.contains(IvaRep21));
    EXPECT_FALSE(c.Codigos.contains(Caja));
    // A code picked on the chart screen brings its area's list: by plan groups, the second digit.
    EXPECT_TRUE(c.ElegirCodigo(Banco));
    EXPECT_EQ(c.Area, "5");
    EXPECT_EQ(c.CuentaContra, Banco);
    EXPECT_FALSE(c.ElegirCodigo(Acreedor)) << "parked";
    c.ElegirArea("9");
    EXPECT_TRUE(c.Nombres.isEmpty());
    EXPECT_EQ(e.dialogo.informados.last(), "No hay Cuentas creadas.");
}

TEST_F(Captura, PrimeraVistaPoneLaContrapartidaYElFoco) {
    CapturaIva c(e.sesion, e.dialogo, trabajo, ultimaFila, aceptado);
    EXPECT_EQ(c.PrimeraVista(), CapturaIva::Foco::Factura);
    c.Factura = "F1";
    EXPECT_EQ(c.PrimeraVista(), CapturaIva::Foco::Contrapartida);
    c.CuentaDefecto = Acreedor;
    EXPECT_EQ(c.PrimeraVista(), CapturaIva::Foco::Aceptar);
    EXPECT_EQ(c.Contrapartida, "Acreedores varios");
    EXPECT_EQ(c.CuentaContra, Acreedor);
}

// The VAT step of a posting.
class IvaAlContabilizar : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        k.Pantalla = &pantalla;
    }
    CamposForm4 campos(const QString& importe, const QString& concepto = "Compra material") {
        return {"15/03/2024", concepto, importe, "F-1", {}};
    }
    // Purchase of `base` with lines of VAT added on the debit side, as the board builds it.
    void compra(const QList<std::pair<QString, QString>>& ivas, const QString& base = "100") {
        k.CargarLineas("Compras", Compras, "Proveedores varios", Proveedor);
        k.Estado.Modo = "DOS";
        ASSERT_EQ(k.Aceptar(campos(base)).tipo, Tipo::Relleno);
        for (const auto& [ncuenta, importe] : ivas) {
            k.AnadirLinea("IVA", ncuenta);
            k.Estado.Modo = "D";
            ASSERT_EQ(k.Aceptar(campos(importe)).tipo, Tipo::Relleno);
        }
    }
    ResultadoAceptar publicar() {
        const CamposForm4 c = campos(k.Rejilla.celda(k.Rejilla.ultima(), ColF4::Debe));
        return k.Aceptar(c);
    }
    Entorno e;
    EstadoTablero tablero;
    Contabilizar k{e.sesion, e.dialogo, tablero};
    PantallaGuion pantalla;
};

TEST_F(IvaAlContabilizar, CompraConIvaEscribeDatosIVAYDiarioConLaMismaClave) {
    compra({{IvaSop21, "21"}});
    pantalla.pasos << AceptarCon(Proveedor, "F-2024-7");
    const ResultadoAceptar r = publicar();
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    ASSERT_EQ(pantalla.vistas.size(), 1);
    const VistaIva& v = pantalla.vistas[0];
    EXPECT_EQ(Textos(v), QStringList({"Proveedor", "P", " 100,00", " 21,00", " 21,00", " IVA"}));
    EXPECT_EQ(v.FilaIVA, 3);
    EXPECT_EQ(v.Nombres, QStringList({"Acreedores varios", "Proveedores varios"}))
        << "the supplier cards, customers left out";
    EXPECT_TRUE(v.LibroIva);
    EXPECT_FALSE(v.Modelo347);
    EXPECT_EQ(v.foco, CapturaIva::Foco::Factura);

    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, r.numero),
              QStringList({"1 " + Compras + " 100/0", "2 " + IvaSop21 + " 21/0 iva",
                           "3 " + Proveedor + " 0/121"}));
    EXPECT_EQ(Filas(c, "SELECT v.CP, v.NCuenta, v.Fecha, v.NFactura, v.Base, v.Porcentaje, "
                       "v.Cuota, v.ClaseIVA, v.LIVA, v.L347, v.TipOp, v.Retencion "
                       "FROM DatosIVA v JOIN Diario d ON d.IdIVA = v.IdIVA"),
              QStringList{"P|" + Proveedor + "|2024-03-15|F-2024-7|100|21|21|IVA|-1|0|N|0"});
}

TEST_F(IvaAlContabilizar, ImportesGrandesPierdenCentimosSoloEnDatosIVA) {
    compra({{IvaSop21, "259259,26"}}, "1234567,89");
    pantalla.pasos << AceptarCon(Proveedor, "G-1");
    const ResultadoAceptar r = publicar();
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    EXPECT_EQ(pantalla.vistas[0].Base, " 1.234.567,89") << "offered through Aproxima";
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT Debe FROM Diario WHERE NAp < 3 ORDER BY NAp"),
              QStringList({"1234567.89", "259259.26"}));
    EXPECT_EQ(Filas(c, "SELECT Base, Cuota FROM DatosIVA"),
              QStringList{"1234567.875|259259.265625"})
        << "32-bit floats";
}

TEST_F(IvaAlContabilizar, SoloDecideLaUltimaPantalla) {
    // Cancel the first, accept the second: posted, the first line without VAT data.
    compra({{IvaSop21, "21"}, {IvaSop10, "10"}});
    pantalla.pasos << Cancelar() << AceptarCon(Proveedor, "F2");
    ResultadoAceptar r = publicar();
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    Conexion c = e.datos();
    EXPECT_EQ(LineasDiario(c, r.numero),
              QStringList({"1 " + Compras + " 100/0", "2 " + IvaSop21 + " 21/0",
                           "3 " + IvaSop10 + " 10/0 iva", "4 " + Proveedor + " 0/131"}));
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1);

    // Accept the first, cancel the last: nothing written, the lines stay for another try.
    compra({{IvaSop21, "21"}, {IvaSop10, "10"}});
    pantalla.pasos << AceptarCon(Proveedor, "F3") << Cancelar();
    r = publicar();
    EXPECT_EQ(r.tipo, Tipo::Abandonado);
    EXPECT_EQ(k.Rejilla.ultima(), 4);
    EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario"), 1);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1);

    // The retry accepts both: two records, two keys.
    pantalla.pasos << AceptarCon(Proveedor, "F3") << AceptarCon(Acreedor, "F4");
    r = publicar();
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT d.IdIVA) FROM Diario d JOIN DatosIVA v "
                        "ON v.IdIVA = d.IdIVA WHERE d.NAs = " +
                            QString::number(r.numero)),
              2);
    EXPECT_EQ(Unidos(c, "SELECT NCuenta || ':' || NFactura FROM DatosIVA "
                        "WHERE NFactura IN ('F3', 'F4') ORDER BY NFactura"),
              Proveedor + ":F3," + Acreedor + ":F4");

    // Accept the first, clear both boxes on the second: posted, and no VAT data at all.
    compra({{IvaSop21, "21"}, {IvaSop10, "10"}});
    pantalla.pasos << AceptarCon(Proveedor, "F5") << [](CapturaIva& cap) {
        cap.LibroIva = false;
        cap.Modelo347 = false;
        cap.Aceptar();
    };
    r = publicar();
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    EXPECT_EQ(k.Estado.UltimaFilaIVA, 0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE IdIVA <> 0 AND NAs = " +
                            QString::number(r.numero)),
              0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA WHERE NFactura = 'F5'"), 0);
}

TEST_F(IvaAlContabilizar, FallosDeTiposIVAYDeClientesProveedores) {
    {
        Conexion c = e.datos();
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES "
                   "('447200099', 'IVA sin tipo', '4472')");
    }
    compra({{"447200099", "21"}});
    const QString concepto = k.Rejilla.celda(3, ColF4::Concepto);
    EXPECT_EQ(publicar().tipo, Tipo::Abandonado);
    EXPECT_EQ(e.dialogo.informados.last(),
              "No están introducidos los datos de IVA de la Subcuenta '" + concepto + "'")
        << "the description is quoted, not the subaccount";
    EXPECT_TRUE(pantalla.vistas.isEmpty()) << "the screen is not shown";

    {
        Conexion c = e.datos();
        c.ejecutar("DELETE FROM CliPro WHERE NCuenta LIKE '2%'");
    }
    compra({{IvaSop21, "21"}});
    EXPECT_EQ(publicar().tipo, Tipo::Abandonado);
    EXPECT_EQ(e.dialogo.informados.last(),
              "No hay introducida ninguna Subcuenta de Proveedores. En las Subcuentas de Clientes "
              "y Proveedores tiene que introducir al menos el NIF o la Provincia, aunque lo "
              "conveniente es que introduzca ambas cosas");
    EXPECT_EQ(k.Rejilla.ultima(), 3) << "the grid is kept";
    Conexion c = e.datos();
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 0);
}

TEST_F(IvaAlContabilizar, PreajustesBaseOfrecidaRecargoYLiquidacion) {
    // A sale: VAT line on the credit side, class C, with the base and presets given on the line.
    k.CargarLineas("Clientes varios", Clientes, "Ventas", Ventas);
    k.Estado.Modo = "DOS";
    ASSERT_EQ(k.Aceptar(campos("200")).tipo, Tipo::Relleno);
    k.AnadirLinea("IVA repercutido", IvaRep21);
    k.Estado.Modo = "H";
    ASSERT_EQ(k.Aceptar(campos("42")).tipo, Tipo::Relleno);
    k.Rejilla.fijar(3, ColF4::Base, "200,00");
    k.Rejilla.fijar(3, ColF4::LibroIva, "False");
    k.Rejilla.fijar(3, ColF4::L347, "True");
    k.Rejilla.fijar(3, ColF4::Contra, Clientes);
    k.Rejilla.fijar(3, ColF4::Factura, "V-1");
    pantalla.pasos << [](CapturaIva& c) {
        c.Aceptar();
    };
    ResultadoAceptar r = k.Aceptar(campos("42"));
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    VistaIva v = pantalla.vistas.takeFirst();
    EXPECT_EQ(Textos(v).mid(0, 3), QStringList({"Cliente", "C", "200,00"}));
    EXPECT_TRUE(!v.LibroIva && v.Modelo347);
    EXPECT_EQ(v.Contrapartida, "Clientes varios") << "col 6 preselects the customer";
    EXPECT_EQ(v.foco, CapturaIva::Foco::Aceptar);
    Conexion c = e.datos();
    EXPECT_EQ(Filas(c, "SELECT CP, NCuenta, NFactura, Base, LIVA, L347 FROM DatosIVA"),
              QStringList{"C|" + Clientes + "|V-1|200|0|-1"});

    // Presets both "False" leave the defaults; the base is worked out from the quota and snaps to
    // the amount typed on another line.
    compra({{IvaSop21, "17,35"}, {Recargo, "4,30"}}, "82,64");
    k.Rejilla.fijar(3, ColF4::LibroIva, "False");
    k.Rejilla.fijar(3, ColF4::L347, "False");
    pantalla.pasos << Cancelar() << Cancelar();
    EXPECT_EQ(publicar().tipo, Tipo::Abandonado);
    v = pantalla.vistas.takeFirst();
    EXPECT_EQ(v.Base, " 82,64") << "17.35 x 100 / 21 = 82.619..., snapped to 82.64";
    EXPECT_TRUE(v.LibroIva && !v.Modelo347);
    v = pantalla.vistas.takeFirst();
    EXPECT_EQ(v.Clase, " Recargo");
    EXPECT_FALSE(v.Modelo347Visible) << "a surcharge never goes to 347";
    EXPECT_EQ(v.Base, " 82,69");

    // A settlement (account 475 on a line) clears both boxes: not an invoice.
    k.CargarLineas("HP acreedora por IVA", HPAcreedora, "Banco", Banco);
    k.Estado.Modo = "DOS";
    ASSERT_EQ(k.Aceptar(campos("300")).tipo, Tipo::Relleno);
    k.AnadirLinea("IVA repercutido", IvaRep21);
    k.Estado.Modo = "D";
    ASSERT_EQ(k.Aceptar(campos("21")).tipo, Tipo::Relleno);
    pantalla.pasos << [](CapturaIva& c) {
        c.Aceptar();
    };
    r = k.Aceptar(campos("21"));
    ASSERT_EQ(r.tipo, Tipo::Contabilizado);
    v = pantalla.vistas.takeFirst();
    EXPECT_FALSE(v.LibroIva || v.Modelo347);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA"), 1) << "only the sale's record";
}

} // namespace

// The VAT return: the rate lines filled from the records of the period, the recalculation, the
// chain of checks, Gen303.txt field by field, the presentation and the draft.

#include "tax/Modelo303.h"
#include "ComunModelos.h"
#include "platform/ImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

Modelo303 Llenado(Entorno& e, const QDate& d1, const QDate& d2) {
    Conexion c = e.datos();
    Modelo303 m = Nuevo303(c, d1, d2, QDate(2011, 4, 20));
    Llenar303(c, m);
    return m;
}

// The boxes from first to last as texts, empty boxes empty.
QStringList Casillas(const Modelo303& m, int primera, int ultima) {
    QStringList r;
    for (int n = primera; n <= ultima; ++n)
        r << TextoCasilla(m[n]);
    return r;
}

// A return of 2011 that passes every check: a positive result paid in cash.
Modelo303 Valido() {
    Modelo303 m;
    m.desde = QDate(2011, 1, 1);
    m.hasta = QDate(2011, 3, 31);
    m.anoFechas = 2011;
    m.ejercicio = "2011";
    m.periodo = "1T";
    m.nif = "B50123454";
    m.apellidos = "DE PRUEBAS SL";
    m.inscritoNo = true;
    m[1] = 1000.0;
    m[2] = 21.0;
    m[3] = 210.0;
    Recalcular303(m);
    m.efectivo = true;
    return m;
}

} // namespace

TEST(Llenar303, LineasEnElOrdenDeLosTiposYSoportadoDeTodos) {
    Empresa2011 e;
    e.venta({2011, 2, 10}, 1000, 18);
    e.venta({2011, 3, 1}, 300, 7);
    e.venta({2011, 3, 31}, 200, 7);
    e.venta({2011, 2, 11}, 400, 16, "IVA", false); // not in the VAT books
    e.venta({2011, 4, 1}, 900, 4);                 // another quarter
    e.compra({2011, 1, 15}, 2000, 21);
    e.compra({2011, 3, 20}, 100, 10);
    e.compra({2011, 3, 21}, 100, 4, "Recargo"); // a surcharge is no deductible VAT

    const Modelo303 m = Llenado(e, {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(m.periodo, "1T");
    EXPECT_EQ(m.ejercicio, "2011");
    EXPECT_EQ(m.nif, "B50123454") << "the company's, letters and digits";
    EXPECT_EQ(m.apellidos, "MUÑOZ GARCIA SL");
    EXPECT_EQ(Casillas(m, 1, 12), QStringList({"1.000,00", "18,00", "180,00", "500,00", "7,00",
                                               "35,00", "", "", "", "", "", ""}))
        << "18 and 7 fill lines 1 and 2; line 3 stays empty";
    EXPECT_EQ(Casillas(m, 21, 23), QStringList({"215,00", "2.100,00", "430,00"}));
    EXPECT_EQ(Casillas(m, 37, 38), QStringList({"430,00", "-215,00"}));
    EXPECT_EQ(TextoCasilla(m[40]), "-215,00") << "39 empty: the whole of 38";
    EXPECT_EQ(TextoCasilla(m[48]), "-215,00");
    EXPECT_FALSE(m.importe);
}

TEST(Llenar303, UnCuartoTipoPasaAlPrimerRecargoQueLosRecargosSobrescriben) {
    Empresa2011 e;
    for (const double tipo : {21.0, 10.0, 5.0, 4.0}) {
        e.venta({2011, 1, 10}, 100, tipo);
        e.venta({2011, 2, 10}, 200, tipo);
    }
    // February also has surcharges, kept in single precision (5,2 as 5,19999980926514).
    e.venta({2011, 2, 11}, 1000, 5.2, "Recargo");
    e.venta({2011, 2, 12}, 1000, 0.5, "Recargo");

    const Modelo303 enero = Llenado(e, {2011, 1, 1}, {2011, 1, 31});
    EXPECT_EQ(enero.periodo, "01");
    EXPECT_EQ(Casillas(enero, 1, 15),
              QStringList({"100,00", "21,00", "21,00", "100,00", "10,00", "10,00", "100,00", "5,00",
                           "5,00", "100,00", "4,00", "4,00", "", "", ""}));
    EXPECT_EQ(TextoCasilla(enero[21]), "40,00");

    const Modelo303 febrero = Llenado(e, {2011, 2, 1}, {2011, 2, 28});
    EXPECT_EQ(Casillas(febrero, 10, 18),
              QStringList({"1.000,00", "5,20", "52,00", "1.000,00", "0,50", "5,00", "", "", ""}))
        << "the 4 % of line 4 is overwritten by the first surcharge";
    EXPECT_DOUBLE_EQ(*febrero[11], 5.2) << "the rate box holds the rate asked for";
    EXPECT_EQ(TextoCasilla(febrero[21]), "129,00")
        << "42 + 20 + 10 + 52 + 5: the 8,00 of the 4 % went with its line";
}

TEST(Llenar303, EmpresaDemoConSusTiposDeHoy) {
    Entorno e;
    e.instalarDemo();
    const int ano = e.sesion.AnoActual;
    const Modelo303 t1 = Llenado(e, QDate(ano, 1, 1), QDate(ano, 3, 31));
    EXPECT_EQ(Casillas(t1, 1, 15),
              QStringList({"8.650,00", "21,00", "1.816,50", "7.400,00", "10,00", "740,00",
                           "1.650,00", "4,00", "66,00", "1.000,00", "5,20", "52,00", "", "", ""}));
    EXPECT_EQ(Casillas(t1, 21, 23), QStringList({"2.674,50", "17.282,40", "2.785,30"}));
    EXPECT_EQ(TextoCasilla(t1[48]), "-110,80");

    const Modelo303 t2 = Llenado(e, QDate(ano, 4, 1), QDate(ano, 6, 30));
    EXPECT_EQ(Casillas(t2, 1, 10),
              QStringList({"6.300,00", "21,00", "1.323,00", "10.300,00", "10,00", "1.030,00",
                           "1.700,00", "4,00", "68,00", ""}));
    EXPECT_EQ(TextoCasilla(t2.importe), "660,15") << "2.421,00 - 1.760,85";
}

TEST(Recalcular303, CuotaDeLaLineaTotalesYAtribuible) {
    Modelo303 m;
    m[4] = 2000.0;
    Recalcular303(m, 4);
    EXPECT_FALSE(m[6]) << "no rate yet";
    m[5] = 10.0;
    Recalcular303(m, 5);
    EXPECT_EQ(m[6], 200.0);
    m[4] = 333.33;
    Recalcular303(m, 4);
    EXPECT_EQ(m[6], 33.33);
    m[6] = 40.0; // a quota typed by hand stays until its base or rate changes
    m[25] = 15.5;
    m[36] = 4.5;
    Recalcular303(m, 6);
    EXPECT_EQ(Casillas(m, 21, 21), QStringList({"40,00"}));
    EXPECT_EQ(Casillas(m, 37, 40), QStringList({"20,00", "20,00", "", "20,00"}));

    m[39] = 60.0;
    m[41] = 2.0;
    m[45] = 1.0;
    Recalcular303(m, 39);
    EXPECT_EQ(m[40], 12.0);
    EXPECT_EQ(m[46], 11.0) << "40 - 41 + 45";
    m[47] = 1.5;
    m[49] = 3.0;
    m[50] = 4.0;
    Recalcular303(m, 47);
    EXPECT_EQ(m[48], 9.5);
    EXPECT_EQ(m.importe, 9.5);
    EXPECT_FALSE(m[49] || m[50]) << "a positive result empties 49 and 50";
}

TEST(Recalcular303, ResultadoCeroVaciaElIngresoPeroNoCompensacionNiDevolucion) {
    Modelo303 m = Valido();
    m.adeudo = true;
    m.cuentaCargo = CuentaDeTexto("21000418450200051332");
    m[49] = 7.0;
    m[50] = 0.0;
    m[23] = 210.0;
    Recalcular303(m, 23);
    EXPECT_EQ(m[48], 0.0);
    EXPECT_FALSE(m.importe);
    EXPECT_FALSE(m.efectivo || m.adeudo);
    EXPECT_FALSE(m.cuentaCargo.TieneCifras());
    EXPECT_EQ(m[49], 7.0);
    EXPECT_EQ(m[50], 0.0);
    EXPECT_EQ(Comprobar303(m)->mensaje,
              "Si el resultado  es igual a cero no debe consignar nada en Compensación, "
              "Devolución o Ingreso.");
}

TEST(Comprobar303, CadenaDeComprobaciones) {
    Modelo303 valido = Valido();
    EXPECT_FALSE(Comprobar303(valido)) << Comprobar303(valido)->mensaje.toStdString();

    const QString cuenta = "21000418450200051332";
    struct Caso {
        const char* nombre;
        std::function<void(Modelo303&)> cambio;
        QString mensaje;
        QString campo;
    };
    const QList<Caso> casos{
        {"ejercicio", [](Modelo303& m) { m.ejercicio = "2010"; }, "El ejercicio debe ser 2011.",
         "Ejercicio"},
        {"año sin modelo",
         [](Modelo303& m) {
             m.anoFechas = 2012;
             m.ejercicio = "2012";
         },
         "No está incorporado el modelo del ejercicio 2012.", "Ejercicio"},
        {"SI y NO", [](Modelo303& m) { m.inscritoSi = true; },
         "Debe indicar si está inscrito en el Registro de devolución mensual", "InscritoSi"},
        {"mes 13", [](Modelo303& m) { m.periodo = "13"; },
         "Si la presentación es mensual en Periodo debe indicarse el número del mes", "Periodo"},
        {"trimestre 5T", [](Modelo303& m) { m.periodo = "5T"; },
         "Si la presentación es trimestral el periodo debe ser '1T', '2T', '3T' o '4T'. Si es "
         "mensual debe consignarse solamente el número del mes.",
         "Periodo"},
        {"nombre de persona física", [](Modelo303& m) { m.nif = "12345678Z"; },
         "Debe introducir el nombre si es persona física.", "Nombre"},
        // 8: the narrow test as it always was: NO blank, a refund, December.
        {"devolución en diciembre sin NO",
         [](Modelo303& m) {
             m.inscritoNo = false;
             m.inscritoSi = true;
             m.periodo = "12";
             m[50] = 5.0;
         },
         "Si no está inscrito en el Registro de devolución mensual sólo puede solicitar "
         "devolución en el último periodo del año.",
         "Casilla22"},
        // 9
        {"negativo sin destino",
         [](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
         },
         "Si el resultado  es negativo debe consignarlo en Compensación o Devolución "
         "solicitada.",
         "Casilla49"},
        {"negativo con otro importe",
         [](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
             m[49] = 80.0;
         },
         "Si el resultado  es negativo debe consignarlo en Compensación o Devolución "
         "solicitada.",
         "Casilla49"},
        // 10
        {"positivo sin ingreso", [](Modelo303& m) { m.importe = 200.0; },
         "Si el resultado  es positivo debe consignarlo en la casilla de Importe a ingresar.",
         "Importe"},
        // 11
        {"cero con compensación",
         [](Modelo303& m) {
             m[23] = 210.0;
             Recalcular303(m);
             m[49] = 0.0;
         },
         "Si el resultado  es igual a cero no debe consignar nada en Compensación, Devolución "
         "o Ingreso.",
         "Casilla49"},
        // 12
        {"compensación y devolución",
         [](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
             m[49] = 90.0;
             m[50] = 90.0;
         },
         "No puede consignar al mismo tiempo solicitud de Compensación y de Devolución.",
         "Casilla49"},
        // 13
        {"devolución e ingreso",
         [](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
             m[50] = 90.0;
             m.importe = 1.0;
         },
         "No puede consignar al mismo tiempo solicitud de Devolución e Ingreso.", "Casilla50"},
        // 14
        {"devolución sin cuenta entera",
         [&](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
             m[50] = 90.0;
             m.cuentaDevolucion = CuentaDeTexto(cuenta);
             m.cuentaDevolucion.dc = "00";
         },
         "Tiene que introducir los 20 dígitos de la cuenta corriente donde desea recibir la "
         "devolución.",
         "CuentaDevolucion"},
        {"cuenta de devolución sin devolución",
         [](Modelo303& m) { m.cuentaDevolucion.numero = "1"; },
         "Si no solicita devolución no debe introducir ningún dígito en la cuenta corriente de "
         "ese apartado.",
         "CuentaDevolucion"},
        // 15
        {"ingreso sin forma de pago", [](Modelo303& m) { m.efectivo = false; },
         "Si se trata de un ingreso debe consignar la forma de pago.", "Efectivo"},
        {"las dos formas de pago", [](Modelo303& m) { m.adeudo = true; },
         "Consigne si la forma de pago es 'En efectivo' o 'Adeudo en cuenta'.", "Efectivo"},
        {"adeudo con cuenta corta",
         [](Modelo303& m) {
             m.efectivo = false;
             m.adeudo = true;
             m.cuentaCargo.entidad = "2100";
         },
         "Tiene que introducir los 20 dígitos de la cuenta corriente donde desea recibir la "
         "devolución.",
         "CuentaCargo"},
        {"efectivo con cuenta de cargo",
         [&](Modelo303& m) { m.cuentaCargo = CuentaDeTexto(cuenta); },
         "Si no consigna ingreso con adeudo en cuenta no debe introducir ningún dígito en la "
         "cuenta corriente de ese apartado.",
         "CuentaCargo"},
        // 16, 17
        {"ingreso negativo",
         [](Modelo303& m) {
             m[23] = 300.0;
             Recalcular303(m);
             m[49] = 90.0;
             m.importe = -5.0;
             m.efectivo = true;
         },
         "El importe del Ingreso consignado no puede ser menor que cero.", "Importe"},
        {"justificante sin marca", [](Modelo303& m) { m.justificante = "3030000000001"; },
         "Si se trata de una declaración complementaria debe marcar su casilla e introducir el "
         "número de justificante de la declaración anterior.",
         "Complementaria"},
    };
    for (const Caso& c : casos) {
        Modelo303 m = Valido();
        c.cambio(m);
        const auto fallo = Comprobar303(m);
        ASSERT_TRUE(fallo) << c.nombre;
        EXPECT_EQ(fallo->mensaje, c.mensaje) << c.nombre;
        EXPECT_EQ(fallo->campo, c.campo) << c.nombre;
    }

    // With NO marked a refund in December passes, and with SI marked a refund in another
    // month passes too: the test has always been that narrow.
    Modelo303 m = Valido();
    m[23] = 300.0;
    Recalcular303(m);
    m[50] = 90.0;
    m.cuentaDevolucion = CuentaDeTexto(cuenta);
    m.periodo = "12";
    EXPECT_FALSE(Comprobar303(m));
    m.inscritoNo = false;
    m.inscritoSi = true;
    m.periodo = "11";
    EXPECT_FALSE(Comprobar303(m));
}

TEST(Comprobar303, UnMesDeUnaCifraGanaSuCero) {
    Modelo303 m = Valido();
    m.periodo = "5";
    EXPECT_FALSE(Comprobar303(m));
    EXPECT_EQ(m.periodo, "05");
    m.periodo = "0";
    EXPECT_EQ(Comprobar303(m)->campo, "Periodo");
    EXPECT_EQ(m.periodo, "00");
}

TEST(Fichero303, CadaCampoEnSuPosicion) {
    Modelo303 m;
    m.ejercicio = "2011";
    m.periodo = "1T";
    m.nif = "B50123454";
    m.apellidos = "MUÑOZ GARCIA SL";
    m.nombre = "JOSE";
    m.inscritoSi = true;
    m.sinActividad = true;
    const double valores[51] = {
        0,     10000.00, 21,      2100.00, 2500.50,    10,        250.05,   800.00,  4,
        32.00, 1000.00,  5.2,     52.00,   1000.00,    1.4,       14.00,    4000.00, 0.5,
        20.00, 1500.00,  315.00,  2783.05, 1234567.89, 259259.26, 12000.00, 2520.00, 300.00,
        63.00, 450.00,   94.50,   600.00,  126.00,     700.00,    147.00,   11.11,   22.22,
        33.33, 3000.00,  -216.95, 87.5,    -189.83,    100.00,    5000.00,  6000.00, 7000.00,
        45.45, -244.38,  10.00,   -254.38, 254.38,     99.99};
    for (int n = 1; n <= 50; ++n)
        m[n] = valores[n];
    m[11] = static_cast<double>(5.2f); // as the records keep it
    m.importe = 12.34;
    m.cuentaDevolucion = CuentaDeTexto("2100 0418 45 0200051332");
    m.adeudo = true;
    m.cuentaCargo = CuentaDeTexto("0049 1500 05 1234567890");
    m.complementaria = true;
    m.justificante = "3031234567890";
    m.firma = {"ZARAGOZA", "20", "ABRIL", "2011"};

    CompararCampos(Fichero303(m),
                   {{0, "<T30301>"},
                    {8, " "},
                    {9, "C"},
                    {10, "B50123454"},
                    {19, "MU\xD1OZ GARCIA SL               "},
                    {49, "JOSE           "},
                    {64, "1"},
                    {65, "2011"},
                    {69, "1T"},
                    {71, "00000000001000000"},
                    {88, "02100"},
                    {93, "00000000000210000"},
                    {110, "00000000000250050"},
                    {127, "01000"},
                    {132, "00000000000025005"},
                    {149, "00000000000080000"},
                    {166, "00400"},
                    {171, "00000000000003200"},
                    {188, "00000000000100000"},
                    {205, "00520"},
                    {210, "00000000000005200"},
                    {227, "00000000000100000"},
                    {244, "00140"},
                    {249, "00000000000001400"},
                    {266, "00000000000400000"},
                    {283, "00050"},
                    {288, "00000000000002000"},
                    {305, "00000000000150000"},
                    {322, "00000000000031500"},
                    {339, "00000000000278305"},
                    {356, "00000000123456788"},
                    {373, "00000000025925927"},
                    {390, "00000000001200000"},
                    {407, "00000000000252000"},
                    {424, "00000000000030000"},
                    {441, "00000000000006300"},
                    {458, "00000000000045000"},
                    {475, "00000000000009450"},
                    {492, "00000000000060000"},
                    {509, "00000000000012600"},
                    {526, "00000000000070000"},
                    {543, "00000000000014700"},
                    {560, "00000000000001111"},
                    {577, "00000000000002222"},
                    {594, "00000000000003333"},
                    {611, "00000000000300000"},
                    {628, "N0000000000021695"},
                    {645, "08750"},
                    {650, "N0000000000018983"},
                    {667, "00000000000010000"},
                    {684, "00000000000500000"},
                    {701, "00000000000600000"},
                    {718, "00000000000700000"},
                    {735, "00000000000004545"},
                    {752, "N0000000000024438"},
                    {769, "00000000000001000"},
                    {786, "N0000000000025438"},
                    {803, "00000000000025438"},
                    {820, "1"},
                    {821, "00000000000009999"},
                    {838, "21000418450200051332"},
                    {858, "2"},
                    {859, "00000000000001234"},
                    {876, "00491500051234567890"},
                    {896, "1"},
                    {897, "3031234567890"},
                    {910, QByteArray(400, ' ')},
                    {1310, "ZARAGOZA        "},
                    {1326, "20"},
                    {1328, "ABRIL     "},
                    {1338, "2011"},
                    {1342, "</T30301>"},
                    {1351, "\r\n"}},
                   1353);
}

TEST(Fichero303, TiposDeDeclaracionYCampoCorto) {
    Modelo303 m = Valido();
    EXPECT_EQ(Fichero303(m).mid(9, 1), "I");
    EXPECT_EQ(Fichero303(m).mid(64, 1), "2") << "SI blank";
    m.importe.reset();
    EXPECT_EQ(Fichero303(m).mid(9, 1), "N");
    m[50] = 20.0;
    EXPECT_EQ(Fichero303(m).mid(9, 1), "D");
    m[49] = 20.0;
    EXPECT_EQ(Fichero303(m).mid(9, 1), "C");

    // A present amount below 10 is a character short, and what follows moves up by one. A
    // computed 0 is one too: with no deductions box 37 holds 0.
    Modelo303 corto = Valido();
    EXPECT_EQ(corto[37], 0.0);
    EXPECT_EQ(Fichero303(corto).size(), 1352);
    corto[23] = 20.0;
    Recalcular303(corto);
    EXPECT_EQ(Fichero303(corto).size(), 1353);
    corto[41] = 5.0;
    const QByteArray f = Fichero303(corto);
    EXPECT_EQ(f.size(), 1352);
    EXPECT_EQ(f.mid(667, 16), "0000000000000500");
    EXPECT_EQ(f.right(11), "</T30301>\r\n");
    EXPECT_EQ(f.indexOf("</T30301>"), 1341);
}

TEST(Presentar303, ElAnoSinModeloSeLlenaPeroNoSeGenera) {
    Empresa2011 e(2026);
    e.venta({2026, 2, 1}, 100, 21);
    Modelo303 m = Llenado(e, {2026, 1, 1}, {2026, 3, 31});
    m.inscritoNo = true;
    m.efectivo = true;
    EXPECT_EQ(TextoCasilla(m.importe), "21,00");
    const auto fallo = Presentar303(e.sesion, m, e.dialogo, [&] { return e.destino(); });
    ASSERT_TRUE(fallo);
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"No está incorporado el modelo del ejercicio 2026."}));
    EXPECT_FALSE(QFile::exists(e.ruta("Modtr/Gen303.txt")));

    ImpresoraGrabadora imp;
    DibujarBorrador303(imp, m, {}, "Arial", 9);
    EXPECT_EQ(imp.paginas(), 1) << "the draft is there for every year";
}

TEST(Presentar303, ComprobadaSeEscribeYSeCopia) {
    Empresa2011 e;
    e.venta({2011, 5, 3}, 1000, 18);
    e.compra({2011, 5, 4}, 100, 21);
    Modelo303 m = Llenado(e, {2011, 5, 1}, {2011, 5, 31});
    m.inscritoSi = true;
    m.adeudo = true;
    m.cuentaCargo = CuentaDeTexto("21000418450200051332");
    ResultadoEntrega r = ResultadoEntrega::Cancelado;
    EXPECT_FALSE(Presentar303(
        e.sesion, m, e.dialogo, [&] { return e.destino(); }, &r));
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    const QByteArray f = LeerFichero(e.destino() + "/303-B50123454.txt");
    EXPECT_EQ(f, Fichero303(m));
    EXPECT_EQ(f.size(), 1353);
    EXPECT_EQ(f.mid(65, 6), "201105");
    EXPECT_EQ(f.mid(71, 39), "00000000000100000"
                             "01800"
                             "00000000000018000");
    EXPECT_EQ(f.mid(858, 18), "2"
                              "00000000000015900")
        << "180 - 21";
}

TEST(Borrador303, SeccionesCasillasYDesglosePorTipo) {
    Empresa2011 e;
    e.venta({2011, 2, 10}, 1000, 18);
    e.compra({2011, 1, 15}, 2000, 21);
    e.compra({2011, 3, 20}, 100, 10);
    Modelo303 m = Llenado(e, {2011, 1, 1}, {2011, 3, 31});
    m[41] = 0.0;
    Conexion c = e.datos();
    ImpresoraGrabadora imp;
    DibujarBorrador303(imp, m, Desglose303(c, m.desde, m.hasta), "Arial", 9);
    const QStringList textos = imp.textosDePagina(1);
    for (const char* t : {"Modelo 303",
                          "Periodo: 01/01/2011 a 31/03/2011",
                          "Base Imponible",
                          "Tipo",
                          "Cuota",
                          "DEVENGADO",
                          "Régimen General",
                          "Recargo de Equivalencia",
                          "Adquisiciones intracomunitarias",
                          "Total Devengado",
                          "SOPORTADO",
                          "Soportado en op. interiores corrientes",
                          "Al 21%",
                          "Al 18%",
                          "Al 16%",
                          "Al 10%",
                          "Al 8%",
                          "Al 7%",
                          "Al 5%",
                          "Al 4%",
                          "TOTAL A DEDUCIR",
                          "DIFERENCIA",
                          "Atribuible a la Administración del Estado",
                          "Cuotas a compensar de periodos anteriores",
                          "RESULTADO",
                          "A deducir de anterior declaración (caso de complementaria)",
                          "RESULTADO DE LA LIQUIDACION"})
        EXPECT_TRUE(textos.contains(QString::fromUtf8(t))) << t;
    // Each figure on the line of its label, right-aligned in its column.
    auto linea = [&](const QString& etiqueta) {
        const Trazo* t = imp.buscar(etiqueta);
        QStringList r;
        if (!t)
            return r;
        for (const Trazo& o : imp.textos())
            if (o.pagina == t->pagina && o.y == t->y && o.texto != etiqueta)
                r << o.texto;
        return r;
    };
    EXPECT_EQ(linea("Régimen General"), QStringList({"1.000,00", "18,00", "180,00"}));
    EXPECT_EQ(linea("Al 21%"), QStringList({"2.000,00", "420,00"}));
    EXPECT_EQ(linea("Al 10%"), QStringList({"100,00", "10,00"}));
    EXPECT_EQ(linea("Al 4%"), QStringList()) << "a rate without records shows no figures";
    EXPECT_EQ(linea("Soportado en op. interiores corrientes"), QStringList({"2.100,00", "430,00"}));
    EXPECT_EQ(linea("Cuotas a compensar de periodos anteriores"), QStringList({"0,00"}))
        << "a box holding 0 prints 0, an empty one nothing";
    EXPECT_EQ(linea("RESULTADO DE LA LIQUIDACION"), QStringList({"-250,00"}));
    const Trazo* base = imp.buscar("1.000,00");
    const Trazo* cabeza = imp.buscar("Base Imponible");
    ASSERT_TRUE(base && cabeza);
    EXPECT_DOUBLE_EQ(base->x + base->ancho, cabeza->x + cabeza->ancho);
    EXPECT_EQ(imp.documentosTerminados(), 1);
}

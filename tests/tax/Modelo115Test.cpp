// The rent-withholding return: boxes 2 and 3 from the rent records that count for the Modelo
// 347, the floored result, the checks, Gen115.txt field by field, the draft.

#include "tax/Modelo115.h"
#include "ComunModelos.h"
#include "platform/ImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

Modelo115 Llenado(Entorno& e, const QDate& d1, const QDate& d2) {
    Conexion c = e.datos();
    Modelo115 m = Nuevo115(c, d1, d2, QDate(2011, 4, 20));
    Llenar115(c, m);
    return m;
}

// A return of 2011 that passes every check: 456 withheld, paid in cash.
Modelo115 Valido() {
    Modelo115 m;
    m.anoFechas = 2011;
    m.ejercicio = "2011";
    m.periodo = "1T";
    m.administracion = "50001";
    m.nif = "B50123454";
    m.apellidos = "DE PRUEBAS SL";
    m[2] = 2400.0;
    m[3] = 456.0;
    Recalcular115(m);
    m.efectivo = true;
    return m;
}

} // namespace

TEST(Llenar115, SoloAlquileresQueCuentanPara347) {
    Empresa2011 e;
    e.alquiler({2011, 1, 5}, 800, 152);
    e.alquiler({2011, 2, 5}, 800, 152);
    e.alquiler({2011, 3, 5}, 500, 95, true); // kept out of the 347, so out of here too
    e.alquiler({2011, 4, 5}, 800, 152);      // another quarter
    e.compra({2011, 3, 6}, 1000, 21);        // not a rent
    const Modelo115 m = Llenado(e, {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(m.periodo, "1T");
    EXPECT_EQ(m.ejercicio, "2011");
    EXPECT_EQ(m.nif, "B50123454");
    EXPECT_EQ(m.firma.lugar, "ZARAGOZA");
    EXPECT_EQ(TextoCasilla(m[2]), "1.600,00");
    EXPECT_EQ(TextoCasilla(m[3]), "304,00");
    EXPECT_EQ(TextoCasilla(m[5]), "304,00");
    EXPECT_EQ(TextoCasilla(m.importe), "304,00");
    EXPECT_TRUE(m.perceptores.isEmpty()) << "box 1 is the user's";

    const Modelo115 marzo = Llenado(e, {2011, 3, 1}, {2011, 3, 31});
    EXPECT_EQ(marzo.periodo, "03");
    EXPECT_FALSE(marzo[2] || marzo[3]) << "no rent that counts: empty base and quota";
    EXPECT_EQ(marzo[5], 0.0);
    EXPECT_EQ(marzo.importe, 0.0);
}

TEST(Recalcular115, ResultadoNuncaNegativo) {
    Modelo115 m;
    m[3] = 456.0;
    m[4] = 500.0;
    Recalcular115(m);
    EXPECT_EQ(m[5], 0.0);
    EXPECT_EQ(m.importe, 0.0);
    m[4] = 56.0;
    Recalcular115(m);
    EXPECT_EQ(m[5], 400.0);
    EXPECT_EQ(m.importe, 400.0);
}

TEST(ComprobarPeriodo115, FechasInvertidasODeDosAnos) {
    EXPECT_EQ(ComprobarPeriodo115({2011, 3, 31}, {2011, 1, 1}).value_or(""),
              "La fecha inicial debe ser menor o igual que la final.");
    EXPECT_EQ(ComprobarPeriodo115({2011, 12, 1}, {2012, 1, 31}).value_or(""),
              "La fecha inicial y final deben pertenecer al mismo año.");
    EXPECT_FALSE(ComprobarPeriodo115({2011, 1, 15}, {2011, 2, 3}));
}

TEST(Comprobar115, CadenaDeComprobaciones) {
    Modelo115 valido = Valido();
    EXPECT_FALSE(Comprobar115(valido)) << Comprobar115(valido)->mensaje.toStdString();
    struct Caso {
        const char* nombre;
        std::function<void(Modelo115&)> cambio;
        QString mensaje;
        QString campo;
    };
    const QList<Caso> casos{
        // The year comes first here, before the office code.
        {"año",
         [](Modelo115& m) {
             m.anoFechas = 2012;
             m.administracion.clear();
         },
         "No está incorporado el modelo del ejercicio 2012.", "Ejercicio"},
        {"administración", [](Modelo115& m) { m.administracion = "5000"; },
         "El código de la Administración debe consignarse con 5 cifras.", "Administracion"},
        {"ejercicio", [](Modelo115& m) { m.ejercicio = "2010"; }, "El ejercicio debe ser 2011.",
         "Ejercicio"},
        {"periodo", [](Modelo115& m) { m.periodo = "5"; },
         "El periodo debe ser '1T', '2T', '3T' o '4T', si es trimestral o '01', '02' ... '12', "
         "si es mensual.",
         "Periodo"},
        {"NIF", [](Modelo115& m) { m.nif.clear(); },
         "Debe introducir el NIF, si es persona física, o el CIF si es persona jurídica.", "NIF"},
        {"apellidos", [](Modelo115& m) { m.apellidos.clear(); },
         "Debe introducir los apellidos, si es persona física, o el nombre o razón social si es "
         "persona jurídica.",
         "Apellidos"},
        {"nombre", [](Modelo115& m) { m.nif = "12345678Z"; },
         "Debe introducir el nombre si es persona física.", "Nombre"},
        {"ingreso distinto", [](Modelo115& m) { m.importe.reset(); },
         "Si el resultado  es positivo debe consignarlo en la casilla de Importe a ingresar.",
         "Importe"},
        {"sin forma de pago", [](Modelo115& m) { m.efectivo = false; },
         "Si el resultado  es distinto de cero debe marcar con una 'X' la forma de pago.",
         "Efectivo"},
        {"dos formas de pago", [](Modelo115& m) { m.adeudo = true; },
         "Consigne si la forma de pago es 'En efectivo' o 'Adeudo en cuenta'.", "Efectivo"},
        {"adeudo sin cuenta",
         [](Modelo115& m) {
             m.efectivo = false;
             m.adeudo = true;
         },
         "Tiene que introducir los 20 dígitos de la cuenta corriente donde desea recibir la "
         "devolución.",
         "CuentaCargo"},
        {"cifras sin adeudo", [](Modelo115& m) { m.cuentaCargo.entidad = "2"; },
         "Si no consigna ingreso con adeudo en cuenta no debe introducir ningún dígito en la "
         "cuenta corriente de ese apartado.",
         "CuentaCargo"},
        {"ingreso negativo",
         [](Modelo115& m) {
             m[3] = 0.0;
             Recalcular115(m);
             m.efectivo = false;
             m.importe = -1.0;
         },
         "El importe del Ingreso consignado no puede ser menor que cero.", "Importe"},
    };
    for (const Caso& c : casos) {
        Modelo115 m = Valido();
        c.cambio(m);
        const auto fallo = Comprobar115(m);
        ASSERT_TRUE(fallo) << c.nombre;
        EXPECT_EQ(fallo->mensaje, c.mensaje) << c.nombre;
        EXPECT_EQ(fallo->campo, c.campo) << c.nombre;
    }
    // A result of 0 needs no form of payment.
    Modelo115 cero = Valido();
    cero[4] = 456.0;
    Recalcular115(cero);
    cero.efectivo = false;
    EXPECT_FALSE(Comprobar115(cero));
}

TEST(Fichero115, CadaCampoEnSuPosicion) {
    Modelo115 m = Valido();
    m.siglas = "CL";
    m.via = "ALFONSO I";
    m.numero = "14";
    m.escalera = "A";
    m.piso = "3";
    m.puerta = "B";
    m.telefono = "976000000";
    m.municipio = "ZARAGOZA";
    m.provincia = "ZARAGOZA";
    m.cpostal = "50003";
    m.perceptores = "2";
    m[4] = 6.0;
    Recalcular115(m);
    m.efectivo = false;
    m.adeudo = true;
    m.cuentaCargo = CuentaDeTexto("21000418450200051332");
    m.complementaria = true;
    m.justificante = "1151234567890";
    m.firma = {"ZARAGOZA", "20", "ABRIL", "2011"};

    CompararCampos(Fichero115(m),
                   {{0, "115"},
                    {3, "01"},
                    {5, " "},
                    {6, "I"},
                    {7, "50001"},
                    {12, "B50123454"},
                    {21, "    "},
                    {25, "DE PRUEBAS SL                 "},
                    {55, "               "},
                    {70, "CL"},
                    {72, "ALFONSO I        "},
                    {89, "14  "},
                    {93, "A "},
                    {95, "3 "},
                    {97, "B "},
                    {99, "976000000"},
                    {108, "ZARAGOZA            "},
                    {128, "ZARAGOZA       "},
                    {143, "50003"},
                    {148, "2011"},
                    {152, "1T"},
                    {154, "000002"},
                    {160, "0000000240000"},
                    {173, "0000000045600"},
                    {186, "0000000000600"},
                    {199, "0000000045000"},
                    {212, QByteArray(16, ' ')},
                    {228, "1151234567890"},
                    {241, QByteArray(100 + 9 + 350, ' ')},
                    {700, " "},
                    {701, "X"},
                    {702, "0000000045000"},
                    {715, "21000418450200051332"},
                    {735, "20"},
                    {737, "ABRIL     "},
                    {747, "2011"},
                    {751, "\r\n"}},
                   753);

    // A result of 0 is a negative return.
    m[4] = 500.0;
    Recalcular115(m);
    EXPECT_EQ(m.importe, 0.0);
    EXPECT_EQ(Fichero115(m).mid(6, 1), "N");
}

TEST(Presentar115, ComprobadaSeCopiaYElAnoDeHoyNo) {
    Empresa2011 e;
    e.alquiler({2011, 1, 5}, 800, 152);
    Modelo115 m = Llenado(e, {2011, 1, 1}, {2011, 3, 31});
    m.administracion = "50001";
    m.efectivo = true;
    ResultadoEntrega r = ResultadoEntrega::Cancelado;
    EXPECT_FALSE(Presentar115(
        e.sesion, m, e.dialogo, [&] { return e.destino(); }, &r));
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    const QByteArray f = LeerFichero(e.destino() + "/115-B50123454.txt");
    EXPECT_EQ(f.size(), 753);
    EXPECT_EQ(f.mid(160, 26), "0000000080000"
                              "0000000015200");

    Empresa2011 hoy(2026);
    hoy.alquiler({2026, 1, 5}, 800, 152);
    Modelo115 h = Llenado(hoy, {2026, 1, 1}, {2026, 3, 31});
    EXPECT_EQ(TextoCasilla(h.importe), "152,00") << "filled for any year";
    EXPECT_TRUE(Presentar115(hoy.sesion, h, hoy.dialogo, [&] { return hoy.destino(); }));
    EXPECT_EQ(hoy.dialogo.informados,
              QStringList({"No está incorporado el modelo del ejercicio 2026."}));
}

TEST(Borrador115, LineasDelModelo) {
    Modelo115 m = Valido();
    m.desde = QDate(2011, 1, 1);
    m.hasta = QDate(2011, 3, 31);
    m.perceptores = "2";
    ImpresoraGrabadora imp;
    DibujarBorrador115(imp, m, "Arial", 9);
    EXPECT_EQ(imp.textosDePagina(1),
              QStringList({"Modelo 115", "Periodo: 01/01/2011 a 31/03/2011",
                           "Retenciones de capital inmobiliario", "2", "Nº de perceptores",
                           "2.400,00", "Base de las retenciones e ingresos a cuenta", "456,00",
                           "Retenciones e ingresos a cuenta",
                           "A deducir (en caso de declaración complementaria)", "456,00",
                           "Resultado a ingresar"}));
}

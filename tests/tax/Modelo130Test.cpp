// The income-tax instalment: the journal boxes by section and sector, the recalculation with its
// caps, the checks of the period and of the return, Gen130.txt field by field, the draft.

#include "tax/Modelo130.h"
#include "ComunModelos.h"
#include "platform/ImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

struct Actividad : Empresa2011 {
    Actividad() {
        datos().ejecutar("INSERT INTO Sectores (Sector) VALUES ('Granja'), ('Tienda')");
        venta({2011, 1, 10}, 10000, 21);
        venta({2011, 2, 10}, 2000, 21, "IVA", true, "Tienda");
        venta({2011, 3, 10}, 3000, 4, "IVA", true, "Granja");
        venta({2011, 4, 10}, 500, 4, "IVA", true, "Granja");
        compra({2011, 3, 1}, 4000, 21);
    }
    Modelo130 llenar(const Actividades130& a, const QDate& d1, const QDate& d2) {
        Conexion c = datos();
        Modelo130 m = Nuevo130(c, d1, d2, QDate(2011, 4, 20));
        Llenar130(c, m, a, dialogo);
        return m;
    }
};

Actividades130 Secciones(bool i, bool ii, const QString& s1 = SinSector,
                         const QString& s2 = SinSector) {
    Actividades130 a;
    a.seccionI = i;
    a.seccionII = ii;
    a.sectoresII[0] = s1;
    a.sectoresII[1] = s2;
    return a;
}

QStringList Casillas(const Modelo130& m, int primera, int ultima) {
    QStringList r;
    for (int n = primera; n <= ultima; ++n)
        r << TextoCasilla(m[n]);
    return r;
}

// A return of 2011 that passes every check: 20 % of a profit of 10.000, paid in cash.
Modelo130 Valido(DialogoGuion& d) {
    Modelo130 m;
    m.anoFechas = 2011;
    m.ejercicio = "2011";
    m.periodo = "2T";
    m.nif = "12345678Z";
    m.apellidos = "GARCIA LOPEZ";
    m.nombre = "MARIA";
    m[1] = 10000.0;
    Recalcular130(m, d);
    m.efectivo = true;
    return m;
}

} // namespace

TEST(ComprobarPeriodo130, FechasSegunLasSecciones) {
    struct Caso {
        bool i, ii;
        QDate d1, d2;
        QString mensaje;
    };
    const Caso casos[] = {
        {false,
         false,
         {2011, 1, 1},
         {2011, 3, 31},
         "Tiene que seleccionar las actividades que se van a incluir en el pago fraccionado."},
        {true,
         false,
         {2011, 4, 1},
         {2011, 3, 31},
         "La fecha inicial debe ser menor o igual que la final."},
        {true,
         false,
         {2011, 1, 1},
         {2012, 3, 31},
         "La fecha inicial y final deben pertenecer al mismo año."},
        {true, true, {2011, 4, 1}, {2011, 6, 30}, "La fecha inicial debe ser 1 de enero."},
        {false,
         true,
         {2011, 4, 15},
         {2011, 6, 30},
         "La fecha inicial debe ser principio de trimestre natural."},
        {true,
         false,
         {2011, 1, 1},
         {2011, 6, 15},
         "La fecha final debe ser siempre el último día de un trimestre natural."},
        {true, false, {2011, 1, 1}, {2011, 9, 30}, ""},
        {false, true, {2011, 4, 1}, {2011, 6, 30}, ""},
        {false, true, {2011, 1, 1}, {2011, 12, 31}, ""},
    };
    for (const Caso& c : casos)
        EXPECT_EQ(ComprobarPeriodo130(Secciones(c.i, c.ii), c.d1, c.d2).value_or(""), c.mensaje)
            << c.d1.toString().toStdString() << " - " << c.d2.toString().toStdString();
}

TEST(Llenar130, SeccionesYSectores) {
    Actividad e;
    // Section I runs from 1 January and leaves out what belongs to the sector of section II;
    // section II takes the quarter's income of its sector.
    Modelo130 m = e.llenar(Secciones(true, true, "Granja"), {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(m.periodo, "1T");
    EXPECT_EQ(m.ejercicio, "2011");
    EXPECT_EQ(Casillas(m, 1, 4), QStringList({"12.000,00", "4.000,00", "8.000,00", "1.600,00"}));
    EXPECT_EQ(Casillas(m, 8, 12), QStringList({"3.000,00", "60,00", "", "60,00", "1.660,00"}));
    EXPECT_EQ(TextoCasilla(m.importe), "1.660,00");

    // The second quarter: section I is the year so far, section II the quarter alone.
    m = e.llenar(Secciones(true, true, "Granja"), {2011, 1, 1}, {2011, 6, 30});
    EXPECT_EQ(m.periodo, "2T");
    EXPECT_EQ(TextoCasilla(m[1]), "12.000,00");
    EXPECT_EQ(TextoCasilla(m[8]), "500,00");

    // Section II alone, without a sector: all the quarter's income.
    m = e.llenar(Secciones(false, true), {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(Casillas(m, 1, 4), QStringList({"", "", "", ""}));
    EXPECT_EQ(TextoCasilla(m[8]), "15.000,00");

    // Two sectors ask for lines in both at once: nothing matches, and box 08 is 0.
    m = e.llenar(Secciones(false, true, "Granja", "Tienda"), {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(Casillas(m, 8, 12), QStringList({"0,00", "0,00", "", "0,00", "0,00"}));
    EXPECT_EQ(TextoCasilla(m[19]), "0,00");
    EXPECT_FALSE(m.importe);
}

TEST(Llenar130, SinLosAsientosDeRegularizacionYCierre) {
    Actividad e;
    Conexion c = e.datos();
    OpcionesEscritura r;
    r.Clase = "R";
    EscribirAsiento(c, e.sesion, {2011, 3, 31},
                    {Debe(cuentas::Ventas, 15000), Haber("012900002", 15000)}, r);
    const Modelo130 m = e.llenar(Secciones(true, false), {2011, 1, 1}, {2011, 3, 31});
    EXPECT_EQ(TextoCasilla(m[1]), "15.000,00");
}

TEST(Recalcular130, PerdidaTopesYMinoracion) {
    DialogoGuion d;
    Modelo130 m;
    m[1] = 1000.0;
    m[2] = 3000.0;
    Recalcular130(m, d);
    // A loss: 04 stays as it was (empty), 12 and 19 at 0, nothing to pay.
    EXPECT_EQ(Casillas(m, 3, 4), QStringList({"-2.000,00", ""}));
    EXPECT_EQ(Casillas(m, 7, 7), QStringList({"0,00"}));
    EXPECT_EQ(Casillas(m, 12, 19), QStringList({"0,00", "", "0,00", "", "", "0,00", "", "0,00"}));
    EXPECT_FALSE(m.importe);
    // A profit, then a loss again: 04 keeps its earlier 20 %, as the form always did.
    m[2] = 500.0;
    Recalcular130(m, d);
    EXPECT_EQ(m[4], 100.0);
    m[2] = 3000.0;
    Recalcular130(m, d);
    EXPECT_EQ(m[4], 100.0);

    // Withholdings beyond the instalment: 07 negative, 12 floored at 0.
    m[2] = 0.0;
    m[6] = 500.0;
    Recalcular130(m, d);
    EXPECT_EQ(m[7], -300.0);
    EXPECT_EQ(m[12], 0.0);

    // Box 13 typed negative is kept positive.
    m[6].reset();
    m[13] = -50.0;
    Recalcular130(m, d);
    EXPECT_EQ(m[13], 50.0);
    EXPECT_EQ(m[14], 150.0);
    EXPECT_TRUE(d.informados.isEmpty());

    // Box 08 emptied empties 09 to 11, also the typed 10.
    m[8] = 1000.0;
    m[10] = 5.0;
    Recalcular130(m, d);
    EXPECT_EQ(Casillas(m, 9, 11), QStringList({"20,00", "5,00", "15,00"}));
    m[8].reset();
    Recalcular130(m, d);
    EXPECT_EQ(Casillas(m, 9, 11), QStringList({"", "", ""}));
}

TEST(Recalcular130, ViviendaConTopeYDosPorCiento) {
    const QString Tope = "La deducción por adquisición de vivienda habitual no puede ser superior "
                         "a 660,14 euros";
    const QString DosPorCiento =
        "Error: La deducción por vivienda consignada es mayor que el 2% de la casilla 3 y que "
        "el 2% de la casilla 8. Debe corregirlo";
    DialogoGuion d;
    Modelo130 m;
    m[1] = 50000.0; // 2 % of 03 is 1.000
    m[15] = -100.0;
    m[16] = 700.0;
    EXPECT_EQ(Recalcular130(m, d), std::nullopt);
    EXPECT_EQ(d.informados, QStringList({Tope}));
    EXPECT_EQ(m[16], 660.14);
    EXPECT_EQ(m[15], 100.0);
    EXPECT_EQ(TextoCasilla(m[17]), "9.239,86");
    EXPECT_EQ(m.importe, m[19]);

    // Above 2 % of 03 (200) with 08 empty: told, and the focus goes to 16.
    d.informados.clear();
    m[1] = 10000.0;
    m[16] = 300.0;
    EXPECT_EQ(Recalcular130(m, d), "Casilla16");
    EXPECT_EQ(d.informados, QStringList({DosPorCiento}));
    EXPECT_EQ(m[16], 300.0) << "left for the user to correct";
    // Within 2 % of 08 it passes, and exactly 2 % of 03 too.
    d.informados.clear();
    m[8] = 20000.0;
    EXPECT_EQ(Recalcular130(m, d), std::nullopt);
    m[8].reset();
    m[16] = 200.0;
    EXPECT_EQ(Recalcular130(m, d), std::nullopt);
    EXPECT_TRUE(d.informados.isEmpty());

    // Without a positive 14 nothing of this applies and 17 is 14.
    m[5] = 5000.0;
    m[16] = 900.0;
    Recalcular130(m, d);
    EXPECT_TRUE(d.informados.isEmpty());
    EXPECT_EQ(m[16], 900.0);
    EXPECT_EQ(m[17], m[14]);
    m[18] = 10.0;
    Recalcular130(m, d);
    EXPECT_EQ(m[19], -10.0);
}

TEST(Comprobar130, CadenaDeComprobaciones) {
    DialogoGuion d;
    Modelo130 valido = Valido(d);
    EXPECT_EQ(TextoCasilla(valido.importe), "2.000,00");
    EXPECT_FALSE(Comprobar130(valido)) << Comprobar130(valido)->mensaje.toStdString();

    // A deduction of an earlier return larger than the instalment.
    auto negativo = [&d](Modelo130& m) {
        m[18] = 2500.0;
        Recalcular130(m, d);
        m.efectivo = false;
    };
    auto cero = [&d](Modelo130& m) {
        m[1].reset();
        Recalcular130(m, d);
        m.efectivo = false;
    };
    struct Caso {
        const char* nombre;
        std::function<void(Modelo130&)> cambio;
        QString mensaje;
        QString campo;
    };
    const QList<Caso> casos{
        {"ejercicio", [](Modelo130& m) { m.ejercicio = ""; }, "El ejercicio debe ser 2011.",
         "Ejercicio"},
        {"año",
         [](Modelo130& m) {
             m.anoFechas = 2009;
             m.ejercicio = "2009";
         },
         "No está incorporado el modelo del ejercicio 2009.", "Ejercicio"},
        {"periodo mensual", [](Modelo130& m) { m.periodo = "05"; },
         "El periodo debe ser '1T', '2T', '3T' o '4T'", "Periodo"},
        {"minoración", [](Modelo130& m) { m[13] = 100.01; },
         "El máximo de deducción de la casilla 13 es 100 euros cada trimestre.", "Casilla13"},
        {"NIF", [](Modelo130& m) { m.nif.clear(); }, "Debe introducir el NIF.", "NIF"},
        {"apellidos", [](Modelo130& m) { m.apellidos.clear(); }, "Debe introducir los apellidos.",
         "Apellidos"},
        {"nombre", [](Modelo130& m) { m.nombre.clear(); }, "Debe introducir el nombre.", "Nombre"},
        {"ingreso distinto", [](Modelo130& m) { m.importe = 1999.99; },
         "Si el resultado  es positivo debe consignarlo en la casilla de Importe a ingresar.",
         "Importe"},
        {"cero sin negativa", cero,
         "Si el resultado  es igual a cero debe marcar con una 'X' la casilla de Declaración "
         "negativa.",
         "Negativa"},
        {"cero con forma de pago",
         [&](Modelo130& m) {
             cero(m);
             m.negativa = true;
             m.adeudo = true;
         },
         "Si el resultado  es igual a cero no debe marcar con una 'X' la forma de ingreso.",
         "Efectivo"},
        {"positivo con negativa", [](Modelo130& m) { m.negativa = true; },
         "Si el resultado  es distinto de cero no debe marcar con una 'X' la casilla de "
         "Declaración negativa.",
         "Negativa"},
        {"positivo sin forma de pago", [](Modelo130& m) { m.efectivo = false; },
         "Si el resultado  es positivo debe consignar la forma de pago.", "Efectivo"},
        {"negativo sin marca", negativo,
         "Debe consignar si la declaración es negativa o a deducir en trimestres posteriores "
         "del mismo ejercicio'.",
         "ADeducir"},
        {"a deducir en el cuarto trimestre",
         [&](Modelo130& m) {
             negativo(m);
             m.aDeducir = true;
             m.periodo = "4T";
         },
         "Debe consignar si la declaración es negativa o a deducir en trimestres posteriores "
         "del mismo ejercicio'.",
         "ADeducir"},
        {"dos formas de pago", [](Modelo130& m) { m.adeudo = true; },
         "Consigne si la forma de pago es 'En efectivo' o 'Adeudo en cuenta'.", "Efectivo"},
        {"adeudo sin cuenta entera",
         [](Modelo130& m) {
             m.efectivo = false;
             m.adeudo = true;
             m.cuentaCargo = CuentaDeTexto("21000418450200051332");
             m.cuentaCargo.numero = "0000000000";
         },
         "Tiene que introducir los 20 dígitos de la cuenta corriente donde desea recibir la "
         "devolución.",
         "CuentaCargo"},
        {"cifras sin adeudo", [](Modelo130& m) { m.cuentaCargo.dc = "1"; },
         "Si no consigna ingreso con adeudo en cuenta no debe introducir ningún dígito en la "
         "cuenta corriente de ese apartado.",
         "CuentaCargo"},
        {"ingreso negativo",
         [&](Modelo130& m) {
             negativo(m);
             m.aDeducir = true;
             m.importe = -5.0;
         },
         "El importe del Ingreso consignado no puede ser menor que cero.", "Importe"},
    };
    for (const Caso& c : casos) {
        Modelo130 m = Valido(d);
        c.cambio(m);
        const auto fallo = Comprobar130(m);
        ASSERT_TRUE(fallo) << c.nombre;
        EXPECT_EQ(fallo->mensaje, c.mensaje) << c.nombre;
        EXPECT_EQ(fallo->campo, c.campo) << c.nombre;
    }
    Modelo130 m = Valido(d);
    m[13] = 100.0;
    Recalcular130(m, d);
    EXPECT_FALSE(Comprobar130(m)) << "100 a quarter is allowed";
    m = Valido(d);
    negativo(m);
    m.aDeducir = true;
    EXPECT_FALSE(Comprobar130(m)) << "a negative result to deduct later in the year";
}

TEST(Fichero130, CadaCampoEnSuPosicion) {
    Modelo130 m;
    m.ejercicio = "2011";
    m.periodo = "2T";
    m.nif = "12345678Z";
    m.apellidos = "GARCIA LOPEZ";
    m.nombre = "MARIA";
    m.aDeducir = true;
    m.negativa = true;
    const double valores[20] = {0,       20000.00, 12000.00, 8000.00, 1600.00, 300.00,  150.00,
                                1150.00, 5000.00,  100.00,   20.00,   80.00,   1230.00, 50.00,
                                1180.00, 30.00,    5.00,     1145.00, -5.50,   1150.50};
    for (int n = 1; n <= 19; ++n)
        m[n] = valores[n];
    m.importe = 1150.50;
    m.adeudo = true;
    m.cuentaCargo = CuentaDeTexto("21000418450200051332");
    m.complementaria = true; // not what offset 357 tells
    m.justificante = "1301234567890";
    m.firma = {"Huesca", "5", "JULIO", "2011"};

    CompararCampos(Fichero130(m),
                   {{0, "130"},
                    {3, "01"},
                    {5, " "},
                    {6, "B"},
                    {7, "00000"},
                    {12, "12345678Z"},
                    {21, "    "},
                    {25, "GARCIA LOPEZ                  "},
                    {55, "MARIA          "},
                    {70, "2011"},
                    {74, "2T"},
                    {76, "0000002000000"},
                    {89, "0000001200000"},
                    {102, "0000000800000"},
                    {115, "0000000160000"},
                    {128, "0000000030000"},
                    {141, "0000000015000"},
                    {154, "0000000115000"},
                    {167, "0000000500000"},
                    {180, "0000000010000"},
                    {193, "0000000002000"},
                    {206, "0000000008000"},
                    {219, "0000000123000"},
                    {232, "0000000005000"},
                    {245, "0000000118000"},
                    {258, "0000000003000"},
                    {271, "0000000000500"},
                    {284, "0000000114500"},
                    {297, "N000000000550"},
                    {310, "0000000115050"},
                    {323, "0000000115050"},
                    {336, "2"},
                    {337, "21000418450200051332"},
                    {357, "X"},
                    {358, QByteArray(16, ' ')},
                    {374, "1301234567890"},
                    {387, QByteArray(100 + 9 + 350, ' ')},
                    {846, "HUESCA          "},
                    {862, "5 "},
                    {864, "JULIO     "},
                    {874, "2011"},
                    {878, "\r\n"}},
                   880);

    // The type: "N" for a negative return when it is not to be deducted later; blank otherwise.
    m.aDeducir = false;
    EXPECT_EQ(Fichero130(m).mid(6, 1), "N");
    EXPECT_EQ(Fichero130(m).mid(357, 1), " ");
    m.negativa = false;
    m.efectivo = true;
    m.adeudo = false;
    EXPECT_EQ(Fichero130(m).mid(6, 1), " ");
    EXPECT_EQ(Fichero130(m).mid(336, 1), "1");
}

TEST(Presentar130, SinValidadorCopiaElArchivo) {
    Actividad e;
    Modelo130 m = e.llenar(Secciones(true, false), {2011, 1, 1}, {2011, 3, 31});
    m.nif = "12345678Z";
    m.nombre = "MARIA";
    m.efectivo = true;
    ResultadoEntrega r = ResultadoEntrega::Cancelado;
    EXPECT_FALSE(Presentar130(
        e.sesion, m, e.dialogo, [&] { return e.destino(); }, &r));
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    const QByteArray f = LeerFichero(e.destino() + "/130-12345678Z.txt");
    EXPECT_EQ(f.size(), 880);
    EXPECT_EQ(f, LeerFichero(e.ruta("Modtr/Gen130.txt")));
    EXPECT_EQ(f.mid(76, 13), "0000001500000") << "15.000 of income in the first quarter";
}

TEST(Borrador130, TresSeccionesConSusCasillas) {
    Actividad e;
    const Modelo130 m = e.llenar(Secciones(true, true, "Granja"), {2011, 1, 1}, {2011, 3, 31});
    ImpresoraGrabadora imp;
    DibujarBorrador130(imp, m, "Arial", 9);
    const QStringList textos = imp.textosDePagina(1);
    for (const char* t :
         {"Modelo 130", "Ejercicio: 2011  Periodo: 1T",
          "I. Actividades económicas en estimación directa, modalidad normal o simplificada",
          "II. Actividades agrícolas, ganaderas, forestales o pesqueras", "III. Tota liquidación",
          "Ingresos computables", "Rendimiento neto del conjunto de actividades realizadas",
          "2 por 100 de la casilla 08", "A deducir: por adquisición de vivienda habitual",
          "Resultado de la declaración"})
        EXPECT_TRUE(textos.contains(QString::fromUtf8(t))) << t;
    const Trazo* etiqueta = imp.buscar("Volumen de ingresos del trimestre");
    const Trazo* cifra = imp.buscar("3.000,00");
    ASSERT_TRUE(etiqueta && cifra);
    EXPECT_EQ(cifra->y, etiqueta->y);
    EXPECT_DOUBLE_EQ(cifra->x + cifra->ancho, imp.AnchoPagina() - 1000);
}

// The Modelo 347: who is declared (limit, base plus quota, grouping, keys and marks), the
// sheets, the rules of the fields, the checks in their order and where they point, and our
// draft.

#include "Comun347.h"
#include "platform/Errores.h"
#include "platform/ImpresoraGrabadora.h"
#include "store/Rutinas.h"
#include "tax/Campos347.h"
#include "tax/Listado347.h"

#include <gtest/gtest.h>

namespace {

QStringList Nombres(const Modelo347& m) {
    QStringList r;
    for (const Declarado347& d : m.declarados)
        r << d.nombre;
    return r;
}

const Declarado347* Buscar(const Modelo347& m, const QString& ncuenta) {
    for (const Declarado347& d : m.declarados)
        if (d.ncuenta == ncuenta)
            return &d;
    return nullptr;
}

} // namespace

TEST(Reunir347, ElLimiteSeSuperaEstrictamenteConBaseMasCuota) {
    Empresa347 e;
    e.tercero("443000101", "Igual al limite", "B50000001", "Zaragoza");
    e.tercero("443000102", "Un centimo mas", "B50000002", "Zaragoza");
    e.tercero("443000103", "Solo con la cuota", "B50000003", "Zaragoza");
    // 2483,52 + 21 % = 3005,06: the limit itself. In double precision the limit read from
    // 3005,06 lies below the same amount held in single precision, so this catches a
    // comparison that rounds only one side.
    e.factura({2010, 3, 1}, "443000101", 2483.52, 21);
    e.factura({2010, 3, 2}, "443000102", 2483.53, 21); // 3005,07
    e.factura({2010, 3, 3}, "443000103", 1500, 21);    // twice: 2 x 1.815 = 3.630
    e.factura({2010, 9, 3}, "443000103", 1000, 21);
    const Modelo347 m = e.reunir();
    ASSERT_EQ(Nombres(m), QStringList({"UN CENTIMO MAS", "SOLO CON LA CUOTA"}));
    EXPECT_EQ(m.declarados[0].importe, 3005.07);
    EXPECT_EQ(m.declarados[1].importe, 3025.0) << "2.500 of base pass the limit with 525 of VAT";
    EXPECT_EQ(m.numDeclarados, "2");
    EXPECT_EQ(m.totalDeclarados, 6030.07);
    EXPECT_EQ(m.numInmuebles, "0");

    EXPECT_EQ(Nombres(e.reunir(3005.07)), QStringList({"SOLO CON LA CUOTA"}));
    EXPECT_EQ(Nombres(e.reunir(3005.06, {2010, 1, 1}, {2010, 6, 30})),
              QStringList({"UN CENTIMO MAS"}))
        << "the period bounds the records: 1.815 in the first half";
}

TEST(Reunir347, GruposClavesMarcasProvinciasYNombres) {
    Empresa347 e;
    // One NIF on two subaccounts: two parties.
    e.tercero("443000101", "Hosteleria del Pilar SL", "B50987650", "Zaragoza");
    e.tercero("443000102", "Hostelería del Pilar (local 2)", "B50987650", "Zaragoza");
    e.tercero("241000101", "Jose Ruiz Martin", "25123456G", "Huesca");
    e.tercero("241000102", "Aseguradora Norte SA", "A31432107", "Navarra");
    e.tercero("241000103", "Alquileres y Seguros SL", "B26321091", "La Rioja");
    e.tercero("241000105", "Seguros del Ebro SA", "A50555555", "Zaragoza");
    e.tercero("443000104", "Cliente sin ficha, con un nombre tan largo que no cabe en cuarenta");
    e.factura({2010, 1, 10}, "443000101", 4000, 18);
    e.factura({2010, 2, 10}, "443000102", 3000, 18);
    e.factura({2010, 1, 5}, "241000101", 100, 18);       // one ordinary record...
    e.factura({2010, 2, 5}, "241000101", 4000, 18, "A"); // ...and the rents: A is the least
    e.factura({2010, 1, 7}, "241000102", 4000, 18, "S");
    e.factura({2010, 2, 7}, "241000102", 100, 18, "N");
    e.factura({2010, 1, 8}, "241000103", 2000, 18, "S");
    e.factura({2010, 2, 8}, "241000103", 2000, 18, "A");
    e.factura({2010, 4, 1}, "443000104", 5000, 18);
    e.factura({2010, 5, 1}, "241000105", 1500, 18, "S");
    e.factura({2010, 6, 1}, "241000105", 1500, 18, "S");
    const Modelo347 m = e.reunir();
    ASSERT_EQ(m.declarados.size(), 7);

    const Declarado347* pilar = Buscar(m, "443000101");
    const Declarado347* local2 = Buscar(m, "443000102");
    ASSERT_TRUE(pilar && local2);
    EXPECT_EQ(pilar->nif, local2->nif);
    EXPECT_EQ(pilar->importe, 4720.0);
    EXPECT_EQ(local2->importe, 3540.0);
    EXPECT_EQ(local2->nombre, "HOSTELERÍA DEL PILAR (LOCAL 2)") << "capitals, as named";
    EXPECT_EQ(pilar->clave, "B");
    EXPECT_EQ(pilar->provincia, "50");

    const Declarado347* ruiz = Buscar(m, "241000101");
    ASSERT_TRUE(ruiz);
    EXPECT_EQ(ruiz->clave, "A") << "a subaccount of area 2";
    EXPECT_TRUE(ruiz->arrendamiento);
    EXPECT_FALSE(ruiz->seguro);
    EXPECT_EQ(ruiz->provincia, "22");

    const Declarado347* norte = Buscar(m, "241000102");
    ASSERT_TRUE(norte);
    EXPECT_FALSE(norte->seguro) << "one ordinary record (N comes before S) clears the mark";
    EXPECT_FALSE(norte->arrendamiento);
    EXPECT_EQ(norte->provincia, "31");
    const Declarado347* seguros = Buscar(m, "241000105");
    ASSERT_TRUE(seguros);
    EXPECT_TRUE(seguros->seguro) << "insurance in every record";
    EXPECT_FALSE(seguros->arrendamiento);
    const Declarado347* mixto = Buscar(m, "241000103");
    ASSERT_TRUE(mixto);
    EXPECT_TRUE(mixto->arrendamiento) << "A comes before S: the group is a rent, not insurance";
    EXPECT_FALSE(mixto->seguro);

    const Declarado347* sinFicha = Buscar(m, "443000104");
    ASSERT_TRUE(sinFicha);
    EXPECT_EQ(sinFicha->provincia, "99");
    EXPECT_TRUE(sinFicha->nif.isEmpty());
    EXPECT_EQ(sinFicha->nombre, "CLIENTE SIN FICHA, CON UN NOMBRE TAN LAR");
    EXPECT_EQ(m.totalDeclarados, 4720.0 + 3540 + 4838 + 4838 + 4720 + 5900 + 3540);

    EXPECT_EQ(m.nif, "B50123454") << "the company's, as the file takes it";
    EXPECT_EQ(m.nombre, "MUÑOZ GARCÍA SL");
    EXPECT_EQ(m.ejercicio, "2010");
}

TEST(Modelo347, HojasComprobacionDelPeriodoYCampos) {
    EXPECT_EQ(Hojas347(0, DeclaradosPorHoja), 0);
    EXPECT_EQ(Hojas347(5, DeclaradosPorHoja), 1);
    EXPECT_EQ(Hojas347(6, DeclaradosPorHoja), 2);
    EXPECT_EQ(Hojas347(4, InmueblesPorHoja), 1);
    EXPECT_EQ(Hojas347(5, InmueblesPorHoja), 2);
    EXPECT_EQ(TextoHoja347(2, 3), "Hoja nº 2 / 3");

    double limite = 0;
    EXPECT_EQ(ComprobarPeriodo347({2010, 5, 1}, {2010, 4, 1}, "", limite), MsgPeriodoInvertido)
        << "the dates are checked before the limit";
    EXPECT_EQ(ComprobarPeriodo347({2010, 5, 1}, {2011, 4, 1}, "3005,06", limite), MsgFechasOtroAno);
    EXPECT_EQ(ComprobarPeriodo347({2010, 1, 1}, {2010, 12, 31}, "  ", limite), MsgLimite347);
    EXPECT_EQ(ComprobarPeriodo347({2010, 1, 1}, {2010, 12, 31}, "1e308", limite),
              MsgImporteNoValido("1e308"));
    EXPECT_EQ(ComprobarPeriodo347({2010, 1, 1}, {2010, 12, 31}, "3.005,06", limite), std::nullopt);
    EXPECT_EQ(limite, 3005.06);

    // Each field takes what it accepts, raised to capitals, within its width.
    Modelo347 m;
    auto poner = [&m](Hoja347 h, int i, const char* campo, const QString& texto) {
        PonerCampo347(m, h, i, campo, texto);
        return LeerCampo347(m, h, i, campo);
    };
    using H = Hoja347;
    EXPECT_EQ(poner(H::Declarados, 0, "Clave", "b"), "B");
    EXPECT_EQ(m.declarados.size(), 1) << "the next line takes what is typed";
    EXPECT_EQ(poner(H::Declarados, 0, "NombreDeclarado", " josé & hijos, s.l. "),
              "JOSÉ & HIJOS, S.L.");
    EXPECT_EQ(poner(H::Declarados, 0, "Importe", "1.234,5"), "1.234,50");
    EXPECT_EQ(poner(H::Declarados, 0, "Seguro", "x"), "X");
    EXPECT_EQ(poner(H::Declarados, 0, "Seguro", ""), "");
    EXPECT_EQ(poner(H::Inmuebles, 0, "TipoNumero", "km."), "KM.");
    EXPECT_EQ(poner(H::Inmuebles, 0, "Situacion", "4"), "4");
    EXPECT_EQ(poner(H::Resumen, -1, "Telefono", "976123456"), "976123456");
    for (const auto& [hoja, campo, texto, mensaje] :
         QList<std::tuple<H, const char*, QString, QString>>{
             {H::Declarados, "Clave", "H", "El campo Clave operación no admite el carácter «H»."},
             {H::Declarados, "NifDeclarado", "B-5012345",
              "El campo N.I.F. del declarado no admite el carácter «-»."},
             {H::Declarados, "NifDeclarado", "B501234567",
              "El campo N.I.F. del declarado no puede tener más de 9 caracteres."},
             {H::Declarados, "Provincia", "5O", "El campo Provincia no admite el carácter «O»."},
             {H::Declarados, "Importe", "12abc", MsgImporteNoValido("12abc")},
             {H::Declarados, "Seguro", "S", "El campo Operación seguro sólo admite una X."},
             {H::Declarados, "NombreDeclarado", "ANA\tPEREZ",
              "El campo Apellidos y nombre, razón social o denominación del declarado no admite "
              "tabuladores, saltos de línea ni otros caracteres de control."},
             {H::Declarados, "NombreDeclarado", QString("OBRAS ") + QChar(0x20AC) + QChar(0x4E2D),
              QString("El campo Apellidos y nombre, razón social o denominación del declarado no "
                      "admite el carácter «") +
                  QChar(0x4E2D) + "»."},
             {H::Inmuebles, "Situacion", "5",
              "El campo Situación (Código) no admite el carácter «5»."},
             {H::Inmuebles, "TipoNumero", "NU", "El campo Tipo Nº admite NUM, KM. o S/N."},
             {H::Inmuebles, "Calificador", "TER", "El campo Calif. admite BIS, DUP, MOD o ANT."},
             {H::Resumen, "Telefono", "976-12",
              "El campo TELEFONO DE CONTACTO no admite el "
              "carácter «-»."}}) {
        try {
            PonerCampo347(m, hoja, 0, campo, texto);
            ADD_FAILURE() << campo << " took " << texto.toStdString();
        } catch (const Rechazo& r) {
            EXPECT_EQ(r.mensaje(), mensaje);
        }
    }
    EXPECT_EQ(m.declarados[0].clave, "B") << "a refused text leaves the field as it was";
    try {
        PonerCampo347(m, H::Declarados, 2, "Clave", "A");
        ADD_FAILURE() << "a line after a blank one";
    } catch (const Rechazo& r) {
        EXPECT_EQ(r.mensaje(), MsgRegistrosEnBlanco);
    }
    PonerCampo347(m, H::Declarados, 2, "Clave", ""); // nothing typed there: nothing happens
    EXPECT_EQ(m.declarados.size(), 1);
}

TEST(Comprobar347, HojaResumenEnSuOrden) {
    {
        Modelo347 m = Modelo347Valido();
        DialogoGuion d;
        EXPECT_EQ(Comprobar347(m, 1, d), std::nullopt);
        EXPECT_TRUE(m.telematico);
        EXPECT_FALSE(m.impreso);
        EXPECT_TRUE(d.informados.isEmpty());
    }
    {
        // A company on paper is told to file over the internet, and the checks go on.
        Modelo347 m = Modelo347Valido();
        m.telematico = true;
        DialogoGuion d;
        EXPECT_EQ(Comprobar347(m, 0, d), std::nullopt);
        EXPECT_TRUE(m.impreso);
        EXPECT_FALSE(m.telematico) << "the button sets its mark and clears the other";
        EXPECT_EQ(d.informados,
                  QStringList({"Si el declarante es una sociedad mercantil está obligado a "
                               "presentar el modelo 347 por internet y no se genera en papel. "
                               "Debe utilizar la opción de Envío telemático."}));
        m.nif = "25123456G";
        d.informados.clear();
        EXPECT_EQ(Comprobar347(m, 0, d), std::nullopt);
        EXPECT_TRUE(d.informados.isEmpty()) << "a person may file on paper";
    }
    using Cambio = std::function<void(Modelo347&)>;
    for (const auto& [cambio, mensaje, campo] : QList<std::tuple<Cambio, QString, QString>>{
             {[](Modelo347& m) {
                  m.anoFechas = 2011;
                  m.nif.clear();
              },
              "No está incorporado el modelo del ejercicio 2011.", "Ejercicio"},
             {[](Modelo347& m) { m.ejercicio = "2009"; }, "El ejercicio debe ser 2010.",
              "Ejercicio"},
             {[](Modelo347& m) {
                  m.nif = " ";
                  m.nombre.clear();
              },
              MsgDebeNif, "NIF"},
             {[](Modelo347& m) { m.nombre.clear(); },
              "Debe introducir los apellidos y nombre, si es persona física, o el nombre o razón "
              "social si es persona jurídica.",
              "Nombre"},
             {[](Modelo347& m) {
                  m.complementaria = m.sustitutiva = true;
                  m.contacto.clear();
              },
              "Marque si la declaración es Complementaria o Sustitutiva, pero no las dos.",
              "Complementaria"},
             {[](Modelo347& m) { m.complementaria = true; },
              "Si la declaración es complementaria debe consignar el nº de justificante de la "
              "declaración anterior.",
              "Justificante"},
             {[](Modelo347& m) { m.modificacion = true; },
              "Si la declaración es complementaria debe consignar el nº de justificante de la "
              "declaración anterior.",
              "Justificante"},
             {[](Modelo347& m) { m.sustitutiva = true; },
              "Si la declaración es sustitutiva debe consignar el nº de justificante de la "
              "declaración anterior.",
              "Justificante"},
             {[](Modelo347& m) {
                  m.contacto = "  ";
                  m.numDeclarados = "7";
              },
              "Debe consignar nombre y apellidos de la persona que firma la declaración o persona "
              "de contacto.",
              "Contacto"}}) {
        Modelo347 m = Modelo347Valido();
        cambio(m);
        DialogoGuion d;
        const auto f = Comprobar347(m, 1, d);
        ASSERT_TRUE(f) << mensaje.toStdString();
        EXPECT_EQ(f->mensaje, mensaje);
        EXPECT_EQ(f->hoja, Hoja347::Resumen);
        EXPECT_EQ(f->campo, campo);
    }
}

TEST(Comprobar347, DeclaradosConSuPaginaYLinea) {
    // Seven parties: the seventh is line 2 of page 2.
    auto siete = [] {
        Modelo347 m = Modelo347Valido();
        while (m.declarados.size() < 7) {
            Declarado347 d = m.declarados[1];
            d.importe = 100;
            m.declarados.append(d);
        }
        m.numDeclarados = "7";
        m.totalDeclarados = 25700.5 + 400;
        return m;
    };
    {
        Modelo347 m = siete();
        DialogoGuion d;
        EXPECT_EQ(Comprobar347(m, 1, d), std::nullopt);
        // A last line left without NIF and name is dropped, not reported.
        m.declarados.append(Declarado347{});
        m.declarados.last().clave = "B";
        EXPECT_EQ(Comprobar347(m, 1, d), std::nullopt);
        EXPECT_EQ(m.declarados.size(), 7);
    }
    using Cambio = std::function<void(Declarado347&)>;
    const QString donde = " del Declarado 2 de la página 2.";
    for (const auto& [cambio, mensaje, campo] : QList<std::tuple<Cambio, QString, QString>>{
             {[](Declarado347& p) { p.nif.clear(); }, "Falta el NIF" + donde, "NifDeclarado"},
             {[](Declarado347& p) { p.nombre = " "; }, "Falta el Nombre" + donde,
              "NombreDeclarado"},
             {[](Declarado347& p) { p.provincia = "5"; },
              "Es incorrecta la Provincia" + donde +
                  " Debe consignarse el código de la provincia, con dos dígitos, seguido de tres "
                  "ceros. Si es extranjero se consignará 99 seguido del código del país.",
              "Provincia"},
             {[](Declarado347& p) { p.clave.clear(); }, "Falta la Clave de Operación" + donde,
              "Clave"},
             {[](Declarado347& p) { p.importe = 0.0; }, "Falta el Importe" + donde, "Importe"},
             {[](Declarado347& p) { p.importe.reset(); }, "Falta el Importe" + donde, "Importe"},
             {[](Declarado347& p) { p.metalico = 50.0; },
              "Falta el Año del importe en metálico" + donde, "AnoMetalico"},
             {[](Declarado347& p) { p.seguro = p.arrendamiento = true; },
              "Marque sólo Operación de Seguro o Arrendamiento de Local en el Declarado 2 de la "
              "página 2.",
              "Seguro"}}) {
        Modelo347 m = siete();
        cambio(m.declarados[6]);
        DialogoGuion d;
        const auto f = Comprobar347(m, 1, d);
        ASSERT_TRUE(f) << mensaje.toStdString();
        EXPECT_EQ(f->mensaje, mensaje);
        EXPECT_EQ(f->hoja, Hoja347::Declarados);
        EXPECT_EQ(f->indice, 6);
        EXPECT_EQ(f->campo, campo);
    }
    {
        Modelo347 m = siete();
        m.declarados[6].metalico = 50.0;
        m.declarados[6].anoMetalico = "2009";
        DialogoGuion d;
        EXPECT_EQ(Comprobar347(m, 1, d), std::nullopt) << "cash of an earlier year, with its year";
    }
    // The summary against the lines: count, then total as shown.
    for (const auto& [cambio, mensaje, campo] :
         QList<std::tuple<std::function<void(Modelo347&)>, QString, QString>>{
             {[](Modelo347& m) { m.numDeclarados = "6"; },
              "No coincide el número de Declarados de la Hoja resumen con los Declarados en "
              "páginas interiores.",
              "NumDeclarados"},
             {[](Modelo347& m) { m.totalDeclarados = 26100.49; },
              "No coincide el Importe total de los Declarados en la Hoja resumen con la suma de "
              "los importes de los Declarados en páginas interiores.",
              "TotalDeclarados"}}) {
        Modelo347 m = siete();
        cambio(m);
        DialogoGuion d;
        const auto f = Comprobar347(m, 1, d);
        ASSERT_TRUE(f) << mensaje.toStdString();
        EXPECT_EQ(f->mensaje, mensaje);
        EXPECT_EQ(f->campo, campo);
    }
}

TEST(Comprobar347, InmueblesYSuArrendadorDeclarado) {
    using Cambio = std::function<void(Modelo347&)>;
    const QString donde = " del Inmueble 1 de la página 1.";
    const QString sinArrendador =
        "No hay ningún Declarado con clave 'B' y marca en 'Arrendamiento local negocio' que "
        "tenga el mismo NIF que el arrendatario" +
        donde;
    for (const auto& [cambio, mensaje, campo] : QList<std::tuple<Cambio, QString, QString>>{
             {[](Modelo347& m) { m.inmuebles[0].nif.clear(); },
              "Falta el NIF del arrendatario" + donde, "NifArrendatario"},
             {[](Modelo347& m) { m.inmuebles[0].nif = "B50222222"; }, sinArrendador,
              "NifArrendatario"},
             {[](Modelo347& m) { m.declarados[2].arrendamiento = false; }, sinArrendador,
              "NifArrendatario"},
             {[](Modelo347& m) { m.declarados[2].clave = "A"; }, sinArrendador, "NifArrendatario"},
             {[](Modelo347& m) { m.inmuebles[0].nombre.clear(); },
              "Falta el Nombre del arrendatario" + donde, "NombreArrendatario"},
             {[](Modelo347& m) { m.inmuebles[0].importe = 0.0; },
              "Falta el Importe anual del arrendamiento" + donde, "ImporteInm"},
             {[](Modelo347& m) { m.inmuebles[0].situacion.clear(); }, "Falta la Situación" + donde,
              "Situacion"},
             {[](Modelo347& m) { m.inmuebles[0].codProvincia = "5"; },
              "Es incorrecta la Provincia" + donde, "CodProvincia"},
             {[](Modelo347& m) { m.inmuebles[0].municipio.clear(); }, "Falta el Municipio" + donde,
              "Municipio"},
             {[](Modelo347& m) { m.inmuebles[0].via.clear(); }, "Falta la vía pública" + donde,
              "Via"},
             {[](Modelo347& m) { m.numInmuebles = "2"; },
              "No coincide el número de Inmuebles declarados de la Hoja resumen con los "
              "Inmuebles declarados en páginas interiores.",
              "NumInmuebles"},
             {[](Modelo347& m) {
                  m.inmuebles.clear();
                  m.numInmuebles = "0";
              },
              "No coincide el Importe total de los Inmuebles declarados en la Hoja resumen con "
              "la suma de los importes de los Inmuebles declarados en páginas interiores.",
              "TotalInmuebles"}}) {
        Modelo347 m = Modelo347Valido();
        cambio(m);
        DialogoGuion d;
        const auto f = Comprobar347(m, 1, d);
        ASSERT_TRUE(f) << mensaje.toStdString();
        EXPECT_EQ(f->mensaje, mensaje);
        EXPECT_EQ(f->campo, campo);
        if (f->hoja == Hoja347::Inmuebles) {
            EXPECT_EQ(f->indice, 0);
        }
    }
}

TEST(Borrador347, TresHojasConSusTotalesYPaginas) {
    Modelo347 m = Modelo347Valido();
    for (int i = 0; i < 60; ++i) {
        Declarado347 d = m.declarados[1];
        d.nombre = QString("CLIENTE %1").arg(i + 1);
        m.declarados.append(d);
    }
    ImpresoraGrabadora imp(QSizeF(PaginaA4.height(), PaginaA4.width()));
    DibujarBorrador347(imp, m, "Arial", 9);
    ASSERT_GE(imp.paginas(), 2) << imp.volcado().toStdString();
    const QStringList primera = imp.textosDePagina(1);
    EXPECT_EQ(primera.mid(0, 3),
              QStringList({"Modelo 347", "Ejercicio: 2010", "Periodo: 01/01/2010 a 31/12/2010"}));
    for (const char* t : {"Hoja resumen", "Declarados", "NIF", "Nombre", "Provincia", "Clave",
                          "Importe operaciones", "Op.Seguro", "Arrend.", "Página nº 1"})
        EXPECT_TRUE(primera.contains(t)) << t;
    const QStringList ultima = imp.textosDePagina(imp.paginas());
    EXPECT_TRUE(ultima.contains("Importe operaciones")) << "a new page repeats the headings";
    EXPECT_TRUE(ultima.contains(QString("Página nº %1").arg(imp.paginas())));
    for (const char* t :
         {"Total declarados: ", "63", "Total importes: ", "271.700,50", "Inmuebles",
          "Referencia catastral", "Municipio", "Vía pública", "9872023VH5797S0001WX", "CL COSO",
          "Total Inmuebles declarados: ", "Total importes de Inmuebles: ", "9.600,00"})
        EXPECT_TRUE(ultima.contains(t)) << t;

    // Figures end at their column's right edge; texts start at theirs.
    const Trazo* importe = imp.buscar("12.000,50");
    const Trazo* titulo = imp.buscar("Importe operaciones");
    ASSERT_TRUE(importe && titulo);
    EXPECT_DOUBLE_EQ(importe->x + importe->ancho, titulo->x + titulo->ancho);
    EXPECT_DOUBLE_EQ(imp.buscar("HIERROS DEL EBRO SA")->x, imp.buscar("Nombre")->x);
}

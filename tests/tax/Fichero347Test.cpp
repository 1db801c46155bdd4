// Gen347.txt record by record against hand-made fixtures, its order, the NIF that stops it, and
// its hand-off: without the authority's platform (told plainly, copied for the upload), and with
// a stand-in for it that leaves each of its verdicts.

#include "tax/Fichero347.h"
#include "Comun347.h"
#include "platform/Ficheros.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

QByteArray B(int n) {
    return QByteArray(n, ' ');
}
QByteArray Z(int n) {
    return QByteArray(n, '0');
}

void Escribir(const QString& ruta, const QByteArray& contenido, bool ejecutable = false) {
    QDir().mkpath(QFileInfo(ruta).path());
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contenido);
    f.close();
    if (ejecutable)
        QFile::setPermissions(ruta, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// An installation of 2010 with a folder for the copy to upload.
struct Entrega347 : Entorno {
    QString destino = ruta("destino");
    QString modip = ruta("ModIP10");
    Plataforma347 p;
    Modelo347 m = Modelo347Valido();
    Entrega347() {
        QDir().mkpath(destino);
        p.candidatosJava = {};
        p.elegirCarpeta = [this] {
            return destino;
        };
    }
    std::optional<Fallo347> presentar(int indice, ResultadoEntrega* r = nullptr) {
        return Presentar347(sesion, *ajustes, m, indice, dialogo, p, r);
    }
    // The platform: its jar, and a Java 1.6 that keeps its arguments and runs `accion` in the
    // folder of the file.
    QString plataforma(const QByteArray& accion) {
        Escribir(modip + "/" + NombrePlataforma, "jar");
        const QString java = ruta("jre1.6.0_45/bin/java");
        Escribir(java,
                 "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$(dirname \"$0\")/argumentos\"\n" + accion +
                     "\n",
                 true);
        p.candidatosJava = {java};
        return java;
    }
};

QString MsgCopia(const char* cuando) {
    return QString(cuando) == "antes"
               ? "Se va a generar el archivo 347-B50123454.txt para que posteriormente lo pueda "
                 "enviar por internet. Por favor seleccione la carpeta donde desea guardarlo."
               : "Se ha generado correctamente el archivo 347-B50123454.txt, que ahora puede "
                 "transmitir telemáticamente desde la página web de la Agencia Tributaria, "
                 "'www.agenciatributaria.es'.";
}

} // namespace

TEST(Fichero347, RegistroDelDeclarante) {
    Modelo347 m = Modelo347Valido();
    m.telematico = true;
    CompararCampos(RegistroDeclarante347(m),
                   {{0, "1"},
                    {1, "347"},
                    {4, "2010"},
                    {8, "B50123454"},
                    {17, "MU\xD1OZ GARCIA SL" + B(25)},
                    {57, "T"},
                    {58, "976123456"},
                    {67, "PEREZ LOPEZ ANA" + B(25)},
                    {107, "3470000000000"},
                    {120, " "},
                    {121, " "},
                    {122, Z(13)},
                    {135, "000000003"},
                    {144, "000000002570050"},
                    {159, "000000001"},
                    {168, "000000000960000"},
                    {183, B(207)},
                    {390, B(9)},
                    {399, B(101)}},
                   500);

    // On paper, complementary, with a representative and short numbers padded with zeros.
    m.impreso = true;
    m.telematico = false;
    m.complementaria = true;
    m.justificante = "3471234";
    m.representante = "1234567Z";
    m.telefono = "976123";
    m.numDeclarados = "12";
    m.totalDeclarados.reset();
    const QByteArray r = RegistroDeclarante347(m);
    ASSERT_EQ(r.size(), 500);
    EXPECT_EQ(r.mid(57, 10), "P000976123");
    EXPECT_EQ(r.mid(120, 24), "C 0000003471234000000012");
    EXPECT_EQ(r.mid(144, 15), Z(15)) << "an empty amount";
    EXPECT_EQ(r.mid(390, 9), "01234567Z");
    m.complementaria = false;
    m.modificacion = true;
    m.sustitutiva = true;
    EXPECT_EQ(RegistroDeclarante347(m).mid(120, 2), " S")
        << "only the first complementary mark and the substitutive one have a letter";
}

TEST(Fichero347, RegistrosDeInmuebleYDeDeclarado) {
    const Modelo347 m = Modelo347Valido();
    CompararCampos(RegistroInmueble347(m, m.inmuebles[0]),
                   {{0, "23472010"},
                    {8, "B50123454"},
                    {17, "25123456G"},
                    {26, B(9)},
                    {35, "RUIZ MARTIN JOSE" + B(24)},
                    {75, "I"},
                    {76, B(23)},
                    {99, "000000000960000"},
                    {114, "1"},
                    {115, "9872023VH5797S0001WX" + B(5)},
                    {140, "CL   "},
                    {145, "COSO" + B(46)},
                    {195, "NUM"},
                    {198, "00060"},
                    {203, B(3)},
                    {206, B(9) + "2  B  "},
                    {221, B(70)},
                    {291, "ZARAGOZA" + B(22)},
                    {321, "50297"},
                    {326, "50"},
                    {328, "50001"},
                    {333, B(167)}},
                   500);

    CompararCampos(RegistroDeclarado347(m, m.declarados[0]),
                   {{0, "23472010"},
                    {8, "B50123454"},
                    {17, "A50111111"},
                    {26, B(9)},
                    {35, "HIERROS DEL EBRO SA" + B(21)},
                    {75, "D"},
                    {76, "50"},
                    {78, "  "},
                    {80, " "},
                    {81, "A"},
                    {82, "000000001200050"},
                    {97, "  "},
                    {99, Z(30)},
                    {129, "0000"},
                    {133, B(367)}},
                   500);

    // A foreign party, negative, insured, with cash of another year: amounts in double
    // precision (twenty million and three cents keeps its cents).
    Declarado347 d = m.declarados[1];
    d.provincia = "9";
    d.pais = "FR";
    d.nifRepresentante = "X1234567L";
    d.importe = -150.25;
    d.seguro = true;
    d.metalico = 20000000.03;
    d.anoMetalico = "2009";
    d.transmisiones = 0.0;
    const QByteArray r = RegistroDeclarado347(m, d);
    ASSERT_EQ(r.size(), 500);
    EXPECT_EQ(r.mid(26, 9), "X1234567L");
    EXPECT_EQ(r.mid(76, 6), " 9FR B") << "province right-aligned, country left-aligned";
    EXPECT_EQ(r.mid(82, 51), "N00000000015025X "
                             "000002000000003"
                             "000000000000000"
                             "2009");
}

TEST(Fichero347, InmueblesAntesQueDeclaradosYElNifDemasiadoLargo) {
    Modelo347 m = Modelo347Valido();
    m.inmuebles.append(m.inmuebles[0]);
    m.inmuebles[1].nif = "B50222222";
    QByteArray f;
    ASSERT_EQ(Fichero347(m, f), std::nullopt);
    ASSERT_EQ(f.size(), 6 * 502);
    QByteArray tipos;
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(f.mid(i * 502 + 500, 2), "\r\n");
        tipos += i == 0 ? f.at(0) : f.at(i * 502 + 75);
    }
    EXPECT_EQ(tipos, "1IIDDD");
    EXPECT_EQ(f.mid(502 * 2 + 17, 9), "B50222222") << "properties in the order of their sheets";

    m.declarados[1].nif = "B-50222222";
    const auto fallo = Fichero347(m, f);
    ASSERT_TRUE(fallo);
    EXPECT_EQ(fallo->mensaje, "NIF de Declarado erróneo. Tiene más de 9 dígitos");
    EXPECT_EQ(fallo->hoja, Hoja347::Declarados);
    EXPECT_EQ(fallo->indice, 1);
    EXPECT_TRUE(f.isEmpty());
}

TEST(Presentar347, SinPlataformaSeDiceYSeCopiaParaEnviar) {
    Entrega347 e;
    Escribir(e.modip + "/Gen347.pdf", "old");
    Escribir(e.modip + "/ERRORES.RST", "old");
    ResultadoEntrega r = ResultadoEntrega::Errores;
    EXPECT_EQ(e.presentar(1, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    EXPECT_EQ(e.dialogo.informados,
              QStringList({MsgSinPlataforma347, MsgCopia("antes"), MsgCopia("despues")}));
    QByteArray esperado;
    ASSERT_EQ(Fichero347(e.m, esperado), std::nullopt);
    EXPECT_EQ(LeerFichero(e.modip + "/Gen347.txt"), esperado);
    EXPECT_EQ(LeerFichero(e.destino + "/347-B50123454.txt"), esperado);
    EXPECT_FALSE(QFile::exists(e.modip + "/Gen347.pdf"));
    EXPECT_FALSE(QFile::exists(e.modip + "/ERRORES.RST"));
    EXPECT_EQ(esperado.at(57), 'T');

    // The official form cannot be printed either; the file is still offered.
    e.dialogo.informados.clear();
    EXPECT_EQ(e.presentar(0, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    EXPECT_EQ(e.dialogo.informados.first(),
              "Si el declarante es una sociedad mercantil está obligado a presentar el modelo "
              "347 por internet y no se genera en papel. Debe utilizar la opción de Envío "
              "telemático.");
    EXPECT_EQ(e.dialogo.informados.at(1), MsgSinPlataforma347);
    EXPECT_EQ(LeerFichero(e.modip + "/Gen347.txt").at(57), 'P');
}

TEST(Presentar347, UnaComprobacionOElNifLargoNoDejanArchivo) {
    Entrega347 e;
    e.m.anoFechas = 2011;
    e.m.ejercicio = "2011";
    auto f = e.presentar(1);
    ASSERT_TRUE(f);
    EXPECT_EQ(e.dialogo.informados,
              QStringList({"No está incorporado el modelo del ejercicio 2011."}));
    EXPECT_FALSE(QDir(e.modip).exists());

    Entrega347 g;
    Escribir(g.modip + "/Gen347.txt", "old");
    g.m.declarados[2].nif = "25123456GX";
    g.m.inmuebles.clear();
    g.m.numInmuebles = "0";
    g.m.totalInmuebles = 0.0;
    f = g.presentar(1);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->indice, 2);
    EXPECT_EQ(g.dialogo.informados, QStringList({MsgNifDeclaradoErroneo}));
    EXPECT_FALSE(QFile::exists(g.modip + "/Gen347.txt")) << "the old file goes, no new one";
    EXPECT_TRUE(QDir(g.destino).isEmpty());
}

TEST(Presentar347, LaPlataformaValidaYSusVeredictos) {
    struct Caso {
        QByteArray accion;
        ResultadoEntrega resultado;
        QStringList mensajes;
    };
    for (const Caso& c : QList<Caso>{
             {"printf 'VALIDADO SATISFACTORIAMENTE' > ERRORES.RST",
              ResultadoEntrega::Copiado,
              {MsgCopia("antes"), MsgCopia("despues")}},
             {"printf 'Registro 3: NIF incorrecto' > ERRORES.RST",
              ResultadoEntrega::Errores,
              {"Errores: Registro 3: NIF incorrecto"}},
             {"true", ResultadoEntrega::Errores, {"Errores: No se pudo generar el archivo"}}}) {
        Entrega347 e;
        const QString java = e.plataforma(c.accion);
        ResultadoEntrega r = ResultadoEntrega::Cancelado;
        EXPECT_EQ(e.presentar(1, &r), std::nullopt);
        EXPECT_EQ(r, c.resultado) << c.accion.toStdString();
        EXPECT_EQ(e.dialogo.informados, c.mensajes);
        EXPECT_EQ(LeerFichero(QFileInfo(java).path() + "/argumentos"),
                  "-jar\n" + (e.modip + "/" + NombrePlataforma).toUtf8() +
                      "\n/E:" + (e.modip + "/Gen347.txt").toUtf8() + "\n/V:S\n");
        EXPECT_EQ(e.ajustes->leerEmp("Datos", "Java", ""), java) << "the runtime found is kept";
        EXPECT_EQ(QFile::exists(e.destino + "/347-B50123454.txt"),
                  c.resultado == ResultadoEntrega::Copiado);
    }
}

TEST(Presentar347, LaPlataformaImprimeElModeloOficial) {
    Entrega347 e;
    e.m.nif = "25123456G"; // a person: paper allowed without a word
    const QString java = e.plataforma("printf '%%PDF' > Gen347.pdf");
    QString abierto;
    e.p.abrirDocumento = [&abierto](const QString& ruta) {
        abierto = ruta;
    };
    ResultadoEntrega r = ResultadoEntrega::Cancelado;
    EXPECT_EQ(e.presentar(0, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Validado);
    EXPECT_EQ(abierto, e.modip + "/Gen347.pdf");
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    EXPECT_TRUE(LeerFichero(QFileInfo(java).path() + "/argumentos")
                    .endsWith("\n/P:" + (e.modip + "/Gen347.pdf").toUtf8() + "\n"));
    EXPECT_TRUE(QDir(e.destino).isEmpty()) << "the printed form needs no copy";

    Entrega347 f;
    f.m.nif = "25123456G";
    f.plataforma("printf 'Falta el registro de tipo 1' > ERRORES.TXT");
    EXPECT_EQ(f.presentar(0, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Errores);
    EXPECT_EQ(f.dialogo.informados, QStringList({"Errores: Falta el registro de tipo 1"}));
}

TEST(Presentar347, DondeSeBuscaJava) {
    Entrega347 e;
    const QString j17 = e.ruta("java-17-openjdk/bin/java");
    const QString sinPermiso = e.ruta("jdk1.6.0_10/bin/java");
    const QString j6 = e.ruta("java-6-openjdk/jre/bin/java");
    Escribir(j17, "#!/bin/sh\n", true);
    Escribir(sinPermiso, "#!/bin/sh\n");
    Escribir(j6, "#!/bin/sh\n", true);
    EXPECT_EQ(LocalizarJava(*e.ajustes, {e.ruta("no/existe/java"), j17, sinPermiso, j6}), j6);
    EXPECT_EQ(e.ajustes->leerEmp("Datos", "Java", ""), j6);
    // The kept path comes first, whatever its version: the user may have chosen it.
    e.ajustes->escribirEmp("Datos", "Java", j17);
    EXPECT_EQ(LocalizarJava(*e.ajustes, {j6}), j17);
    // A kept path whose file is gone is looked for again.
    e.ajustes->escribirEmp("Datos", "Java", e.ruta("borrado/java"));
    EXPECT_EQ(LocalizarJava(*e.ajustes, {j17}), QString());
    EXPECT_EQ(LocalizarJava(*e.ajustes, {j17, j6}), j6);

    // With the platform there and no Java, the user may choose one; cancelling still leaves
    // the file to upload.
    Entrega347 f;
    const QString java = f.plataforma("printf 'SATISFACTORIAMENTE' > ERRORES.RST");
    f.p.candidatosJava = {};
    QStringList elecciones{QString()};
    f.p.elegirJava = [&elecciones] {
        return elecciones.takeFirst();
    };
    ResultadoEntrega r = ResultadoEntrega::Errores;
    EXPECT_EQ(f.presentar(1, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    EXPECT_EQ(f.dialogo.informados.mid(0, 2), QStringList({MsgBuscarJava347, MsgSinJava347}));
    EXPECT_FALSE(QFile::exists(QFileInfo(java).path() + "/argumentos"));

    f.dialogo.informados.clear();
    elecciones = {java};
    EXPECT_EQ(f.presentar(1, &r), std::nullopt);
    EXPECT_EQ(r, ResultadoEntrega::Copiado);
    EXPECT_EQ(f.dialogo.informados.first(), MsgBuscarJava347);
    EXPECT_TRUE(QFile::exists(QFileInfo(java).path() + "/argumentos"));
    EXPECT_EQ(f.ajustes->leerEmp("Datos", "Java", ""), java) << "the choice is kept";
}

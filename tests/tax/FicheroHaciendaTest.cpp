// The shared pieces of the tax files: the amount encoder with its kept quirks, the record built
// piece by piece in Windows-1252, and the hand-off (Modtr, the validator, the copy to upload).

#include "tax/FicheroHacienda.h"
#include "Entorno.h"
#include "platform/Errores.h"
#include "tax/CasillasModelo.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

QByteArray Leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no existe)");
}

void Escribir(const QString& ruta, const QByteArray& contenido) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contenido);
}

const QString MsgVaAGenerar = "Se va a generar el archivo 303-B50123454.txt para que "
                              "posteriormente lo pueda enviar por internet. Por favor seleccione "
                              "la carpeta donde desea guardarlo.";
const QString MsgGenerado = "Se ha generado correctamente el archivo 303-B50123454.txt, que "
                            "ahora puede transmitir telemáticamente desde la página web de la "
                            "Agencia Tributaria, 'www.agenciatributaria.es'.";

// An installation with a folder for the copy, and the hand-off of a 303.
struct Entrega : Entorno {
    QString destino = ruta("destino");
    QString modtr = ruta("Modtr");
    EntregaHacienda e;
    Entrega() {
        QDir().mkpath(destino);
        e.modelo = "303";
        e.nif = "B50123454";
    }
    ResultadoEntrega entregar(const QByteArray& contenido, const QString& carpeta) {
        return EntregarFichero(sesion, e, contenido, dialogo, [carpeta] { return carpeta; });
    }
    // A validator: a script that keeps the arguments it was given and, when asked, leaves a
    // verdict in errores.txt.
    void validador(const QByteArray& errores, bool ejecutable = true) {
        QDir().mkpath(modtr);
        const QString guion = modtr + "/MIPF32.exe";
        QByteArray texto = "#!/bin/sh\nprintf '%s' \"$1\" > \"$(dirname \"$0\")/argumentos\"\n";
        if (!errores.isEmpty())
            texto += "printf '" + errores + "' > \"$(dirname \"$0\")/errores.txt\"\n";
        Escribir(guion, texto);
        QFile::setPermissions(guion, ejecutable
                                         ? QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                         : QFile::ReadOwner | QFile::WriteOwner);
    }
};

} // namespace

TEST(CodificarImporte, VacioCeroNegativosYCampoCorto) {
    struct Caso {
        std::optional<double> valor;
        int entero;
        const char* esperado;
    };
    const Caso casos[] = {
        // An empty box is all zeros; a box holding 0 is an amount, and with the 303's width it
        // comes out one character short, like every positive amount below 10.
        {std::nullopt, 15, "00000000000000000"},
        {std::nullopt, 11, "0000000000000"},
        {std::nullopt, 3, "00000"},
        {0.0, 15, "0000000000000000"},
        {5.25, 15, "0000000000000525"},
        {9.99, 15, "0000000000000999"},
        {10.0, 15, "00000000000001000"},
        {12.5, 15, "00000000000001250"},
        // With the 130's and 115's width the thirteen zeros are enough.
        {0.0, 11, "0000000000000"},
        {5.0, 11, "0000000000500"},
        {20000.0, 11, "0000002000000"},
        // A negative takes an "N" in front and stays at its width.
        {-5.0, 15, "N0000000000000500"},
        {-0.5, 15, "N0000000000000050"},
        {-216.95, 15, "N0000000000021695"},
        {-5.5, 11, "N000000000550"},
        // Percentages.
        {21.0, 3, "02100"},
        {4.0, 3, "00400"},
        {0.5, 3, "00050"},
        {87.5, 3, "08750"},
        // Rounded to the cent first, half away from zero.
        {2.675, 15, "0000000000000268"},
        {1234.564, 15, "00000000000123456"},
    };
    for (const Caso& c : casos)
        EXPECT_EQ(CodificarImporte(c.valor, c.entero), QByteArray(c.esperado))
            << (c.valor ? *c.valor : -1) << " / " << c.entero;
}

TEST(CodificarImporte, CentimosDeSimplePrecision) {
    // The rate of a surcharge kept in single precision still reads 5,20.
    EXPECT_EQ(CodificarImporte(static_cast<double>(5.2f), 3), "00520");
    EXPECT_EQ(CodificarImporte(1.75, 3), "00175");
    // Held as a 32-bit float the amount keeps what the float keeps: 1.234.567,875 and
    // 259.259,265625, rounded to the cent; beyond 2^24 there are no cents at all.
    EXPECT_EQ(CodificarImporte(1234567.89, 15), "00000000123456788");
    EXPECT_EQ(CodificarImporte(259259.26, 15), "00000000025925927");
    EXPECT_EQ(CodificarImporte(20000000.01, 15), "00000002000000000");
    EXPECT_EQ(CodificarImporte(-1234567.89, 15), "N0000000123456788");
    // Amounts that a float holds to the cent come out exact.
    EXPECT_EQ(CodificarImporte(65535.99, 15), "00000000006553599");
    // A whole part longer than the field is not cut.
    EXPECT_EQ(CodificarImporte(999999999999.99, 11), "99999999590400")
        << "twelve digits of a float in an eleven-digit field";
}

TEST(RegistroHacienda, CamposEnWindows1252CortadosYRellenos) {
    RegistroHacienda r;
    r.Texto("<T").Campo("MUÑOZ €", 9).Campo("DEMASIADO LARGO", 5).Blancos(2);
    r.Importe(std::nullopt, 11).Porcentaje(21.0).FinLinea();
    EXPECT_EQ(r.Bytes(), QByteArray("<TMU\xD1OZ \x80  DEMAS  0000000000000"
                                    "02100\r\n"));
    EXPECT_EQ(r.Tamano(), 2 + 9 + 5 + 2 + 13 + 5 + 2);
}

TEST(EntregarFichero, SinValidadorAvisaYCopiaEnLaCarpetaElegida) {
    Entrega e;
    // What an earlier run left is deleted first.
    QDir().mkpath(e.modtr);
    Escribir(e.modtr + "/Gen303.txt", "viejo, mucho más largo que el nuevo");
    Escribir(e.modtr + "/errores.txt", "errores de otra vez");
    Escribir(e.destino + "/303-B50123454.txt", "copia anterior");

    EXPECT_EQ(e.entregar("<T30301>\r\n", e.destino), ResultadoEntrega::Copiado);
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgValidadorAusente, MsgVaAGenerar, MsgGenerado}));
    EXPECT_EQ(Leer(e.modtr + "/Gen303.txt"), "<T30301>\r\n");
    EXPECT_FALSE(QFile::exists(e.modtr + "/errores.txt"));
    EXPECT_EQ(Leer(e.destino + "/303-B50123454.txt"), "<T30301>\r\n") << "replaced";
    EXPECT_EQ(RutaGenerado(e.sesion, e.e), QDir(e.sesion.AppPath).filePath("Modtr/Gen303.txt"));
}

TEST(EntregarFichero, CarpetaCanceladaOInexistente) {
    Entrega e;
    EXPECT_EQ(e.entregar("x", QString()), ResultadoEntrega::Cancelado);
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgValidadorAusente, MsgVaAGenerar}));
    EXPECT_EQ(Leer(e.modtr + "/Gen303.txt"), "x") << "the file for the validator stays";
    EXPECT_TRUE(QDir(e.destino).isEmpty());
    try {
        e.entregar("x", e.ruta("no/existe"));
        FAIL() << "a missing folder is refused";
    } catch (const ErrorQuilmar& error) {
        EXPECT_TRUE(error.mensaje().startsWith("La carpeta ")) << error.mensaje().toStdString();
    }
}

TEST(EntregarFichero, ElValidadorRecibeElArchivoYSusErroresSeMuestran) {
    Entrega e;
    e.validador("Falta la casilla 48.\\r\\n  ");
    EXPECT_EQ(e.entregar("contenido", e.destino), ResultadoEntrega::Errores);
    EXPECT_EQ(Leer(e.modtr + "/argumentos"), "/E:" + (e.modtr + "/Gen303.txt").toUtf8());
    EXPECT_EQ(e.dialogo.informados, QStringList({"Errores: Falta la casilla 48."}));
    EXPECT_TRUE(QDir(e.destino).isEmpty()) << "no copy of a file with errors";
}

TEST(EntregarFichero, ValidadorSinErroresSigueConLaCopiaSalvoEnEl130) {
    Entrega e;
    e.validador("  \\r\\n");
    EXPECT_EQ(e.entregar("a", e.destino), ResultadoEntrega::Copiado);
    EXPECT_EQ(e.dialogo.informados, QStringList({MsgVaAGenerar, MsgGenerado}))
        << "a blank verdict is no error, and the validator was there";

    Entrega f;
    f.validador({});
    f.e.modelo = "130";
    f.e.copiaTrasValidador = false;
    EXPECT_EQ(f.entregar("b", f.destino), ResultadoEntrega::Validado);
    EXPECT_TRUE(f.dialogo.informados.isEmpty());
    EXPECT_TRUE(QDir(f.destino).isEmpty());
}

TEST(EntregarFichero, UnValidadorQueNoArrancaCuentaComoAusente) {
    Entrega e;
    e.validador("Falta todo", false);
    EXPECT_EQ(e.entregar("a", e.destino), ResultadoEntrega::Copiado);
    EXPECT_EQ(e.dialogo.informados.first(), MsgValidadorAusente);
    EXPECT_FALSE(QFile::exists(e.modtr + "/argumentos"));
}

TEST(CasillasModelo, PeriodoDeFechas) {
    EXPECT_EQ(PeriodoDeFechas({2011, 5, 1}, {2011, 5, 31}), "05");
    EXPECT_EQ(PeriodoDeFechas({2011, 12, 1}, {2011, 12, 31}), "12");
    EXPECT_EQ(PeriodoDeFechas({2012, 2, 1}, {2012, 2, 29}), "02");
    EXPECT_EQ(PeriodoDeFechas({2011, 1, 1}, {2011, 3, 31}), "1T");
    EXPECT_EQ(PeriodoDeFechas({2011, 10, 1}, {2011, 12, 31}), "4T");
    EXPECT_EQ(PeriodoDeFechas({2011, 5, 1}, {2011, 5, 30}), "") << "not the whole month";
    EXPECT_EQ(PeriodoDeFechas({2011, 1, 2}, {2011, 3, 31}), "");
    EXPECT_EQ(PeriodoDeFechas({2011, 1, 1}, {2011, 6, 30}), "") << "a half year";
}

TEST(CasillasModelo, CasillasCuentasYNombres) {
    EXPECT_EQ(LeerCasilla("  "), std::nullopt);
    EXPECT_EQ(LeerCasilla("0"), 0.0);
    EXPECT_EQ(LeerCasilla("1.234,565"), 1234.57);
    EXPECT_EQ(LeerCasilla("-12,5"), -12.5);
    EXPECT_THROW(LeerCasilla("12abc"), Rechazo);
    EXPECT_THROW(LeerCasilla("1e308"), Rechazo);
    EXPECT_EQ(TextoCasilla(std::nullopt), "");
    EXPECT_EQ(TextoCasilla(0.0), "0,00");

    const CuentaBanco c = CuentaDeTexto("2100 0418-45 0200051332");
    EXPECT_TRUE(c.Completa());
    EXPECT_EQ(c.Texto(), "21000418450200051332");
    EXPECT_FALSE(CuentaDeTexto("0000 0418 45 0200051332").Completa()) << "an all-zero part";
    EXPECT_FALSE(CuentaDeTexto("").TieneCifras());
    EXPECT_THROW(CuentaDeTexto("2100 0418 45"), Rechazo);
    CuentaBanco corta;
    corta.entidad = "21";
    EXPECT_FALSE(corta.Completa());
    EXPECT_TRUE(corta.TieneCifras());
    EXPECT_EQ(corta.Texto(), "21                  ");

    EXPECT_EQ(TextoNombre("  Muñoz & Hijos, s.l. ", CampoNombre::Apellidos, 30),
              "MUÑOZ & HIJOS, S.L.");
    EXPECT_EQ(TextoNombre("José-María", CampoNombre::Nombre, 15), "JOSE-MARIA");
    EXPECT_THROW(TextoNombre("Ana2", CampoNombre::Nombre, 15), Rechazo);
    EXPECT_THROW(TextoNombre("A/B", CampoNombre::Apellidos, 30), Rechazo);
    EXPECT_EQ(NombreAdmitido("Bodegas «El Sol» S.A.", CampoNombre::Apellidos, 30),
              "BODEGAS EL SOL S.A.");
    EXPECT_EQ(TextoNif(" b50123454 "), "B50123454");
    EXPECT_THROW(TextoNif("B-5012345"), Rechazo);
}

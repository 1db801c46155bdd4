// The board's logic apart from the drop: the lists of the areas, the search by letter, the keys
// of predesigned entries, the bank pages, the first-use question, the due-date lights, the
// pictures and the colour, and opening a web page.

#include "posting/Tablero.h"
#include "Entorno.h"
#include "chart/Aparcar.h"
#include "platform/Web.h"
#include "posting/ImagenesTablero.h"
#include "posting/LucesVencimiento.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <gtest/gtest.h>

namespace {

QStringList nombres(const QList<FilaArea>& filas) {
    QStringList r;
    for (const FilaArea& f : filas)
        r << f.Nombre;
    return r;
}

TEST(LlenarAreas, CadaSubcuentaEnSuAreaSinLasAparcadas) {
    Entorno e;
    e.crearEmpresa();
    {
        Conexion c = e.datos();
        // A subaccount added last goes last, whatever its code; one parked is left out.
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo) VALUES ('157200099', "
                   "' Banco Nuevo ', '1572')");
        c.ejecutar("UPDATE Cuentas SET Aparcada = -1, Desde = 2024 WHERE NCuenta = '157000001'");
        // The highest serial counts though its subaccount is parked.
        c.ejecutar("INSERT INTO Cuentas (NCuenta, Cuenta, NGrupo, Aparcada, Desde) VALUES "
                   "('662900500', 'Vieja', '6629', -1, 2020)");
    }
    const ListasAreas l = LlenarAreas(e.sesion, e.dialogo);
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    EXPECT_EQ(e.sesion.UltimaSubcuenta, 500);
    EXPECT_EQ(nombres(l[1]), QStringList({"Banco", "Banco Nuevo"})) << "Caja is parked";
    EXPECT_EQ(l[1].last().NCuenta, "157200099");
    EXPECT_FALSE(nombres(l[6]).contains("Vieja"));
    int total = 0;
    for (int a = 0; a < 7; ++a) {
        EXPECT_FALSE(l[a].isEmpty()) << a;
        for (const FilaArea& f : l[a]) {
            EXPECT_EQ(f.NCuenta.left(1).toInt(), a) << f.NCuenta.toStdString();
            EXPECT_EQ(f.Nombre, f.Nombre.trimmed());
        }
        total += l[a].size();
    }
    Conexion c = e.datos();
    EXPECT_EQ(total, c.escalar("SELECT COUNT(*) FROM Cuentas WHERE Aparcada = 0").toInt());
    // The lists follow the order of the table.
    QSqlQuery q = c.ejecutar("SELECT Cuenta FROM Cuentas WHERE NCuenta LIKE '6%' AND Aparcada = 0 "
                             "ORDER BY rowid");
    QStringList orden;
    while (q.next())
        orden << q.value(0).toString().trimmed();
    EXPECT_EQ(nombres(l[6]), orden);
}

TEST(LlenarAreas, SinCuentasOSinBaseLoDice) {
    Entorno e;
    e.crearEmpresa();
    e.datos().ejecutar("DELETE FROM Cuentas");
    e.sesion.UltimaSubcuenta = 77;
    ListasAreas l = LlenarAreas(e.sesion, e.dialogo);
    EXPECT_EQ(e.dialogo.informados, QStringList{"No hay Cuentas creadas."});
    EXPECT_EQ(e.sesion.UltimaSubcuenta, 0);
    for (const auto& lista : l)
        EXPECT_TRUE(lista.isEmpty());
    QFile::remove(e.sesion.rutaEjercicio());
    l = LlenarAreas(e.sesion, e.dialogo);
    EXPECT_EQ(e.dialogo.informados.size(), 2);
    EXPECT_EQ(e.dialogo.informados.last(), "No hay Cuentas creadas.");
}

TEST(AreaDeCuenta, PrimerDigito) {
    EXPECT_EQ(AreaDeCuenta("662800054"), 6);
    EXPECT_EQ(AreaDeCuenta(" 010000004"), 0);
    EXPECT_EQ(AreaDeCuenta("762800054"), -1);
    EXPECT_EQ(AreaDeCuenta(""), -1);
    EXPECT_EQ(AreaDeCuenta("X1"), -1);
}

TEST(FilaPorLetra, PrimeraIgualOPosteriorDesdeArriba) {
    const QList<FilaArea> filas = {{"Compras", "1"}, {"Arrendamientos", "2"}, {"Teléfono", "3"},
                                   {"Agua", "4"},    {"Électricité", "5"},    {"otros", "6"},
                                   {"Zumos", "7"}};
    EXPECT_EQ(FilaPorLetra(filas, "C"), 0);
    EXPECT_EQ(FilaPorLetra(filas, "a"), 0) << "scans from the top: Compras is after A";
    EXPECT_EQ(FilaPorLetra(filas, "D"), 2) << "Teléfono is the first at or after D";
    EXPECT_EQ(FilaPorLetra(filas, "E"), 2);
    EXPECT_EQ(FilaPorLetra(filas, "U"), 6);
    const QList<FilaArea> acentos = {{"agua", "1"}, {"ñandú", "2"}, {"Álava", "3"}, {"Zeta", "4"}};
    EXPECT_EQ(FilaPorLetra(acentos, "n"), 1) << "ñ counts as N, lower case as upper";
    EXPECT_EQ(FilaPorLetra(acentos, "Ñ"), 1);
    EXPECT_EQ(FilaPorLetra(acentos, "O"), 3) << "Á counts as A, before O";
    EXPECT_EQ(FilaPorLetra(acentos, "á"), 0);
    EXPECT_EQ(FilaPorLetra(filas, ""), -1);
    EXPECT_EQ(FilaPorLetra({{"Agua", "1"}}, "B"), -1);
}

TEST(TeclasCtrl, ControlYTresCifras) {
    TeclasCtrl t;
    EXPECT_EQ(t.Digito(7), std::nullopt) << "digits without Ctrl are not gathered";
    t.Control();
    EXPECT_EQ(t.Digito(0), std::nullopt);
    EXPECT_EQ(t.Digito(0), std::nullopt);
    EXPECT_EQ(t.Digito(7), 7);
    EXPECT_TRUE(t.texto().isEmpty()) << "the buffer empties";
    EXPECT_EQ(t.Digito(1), std::nullopt);
    // Ctrl pressed again between the digits goes on with the same code.
    t.Control();
    t.Digito(1);
    t.Control();
    t.Digito(2);
    t.Control();
    EXPECT_EQ(t.Digito(5), 125);
    // Another key drops what was gathered.
    t.Control();
    t.Digito(9);
    t.Otra();
    t.Control();
    t.Digito(0);
    t.Digito(4);
    EXPECT_EQ(t.Digito(2), 42);
}

TEST(PaginasBanco, ParesHastaElPrimerHueco) {
    Entorno e;
    Ajustes& a = *e.ajustes;
    EXPECT_TRUE(PaginasBanco(a).isEmpty());
    a.escribir("Opciones", "NCCBanco(1)", "Mi banco");
    a.escribir("Opciones", "WCCBanco(1)", "www.mibanco.es");
    a.escribir("Opciones", "NCCBanco(2)", "Hacienda");
    a.escribir("Opciones", "WCCBanco(2)", "https://sede.agenciatributaria.gob.es");
    a.escribir("Opciones", "NCCBanco(4)", "Suelta");
    const QList<PaginaWeb> p = PaginasBanco(a);
    ASSERT_EQ(p.size(), 2);
    EXPECT_EQ(p[1].Nombre, "Hacienda");
    EXPECT_EQ(p[0].Direccion, "www.mibanco.es");

    // Saving a shorter list leaves nothing of the longer one behind; empty names are skipped.
    GuardarPaginasBanco(a, {{"Otro banco", "otro.es"}, {"  ", "nada"}});
    ASSERT_EQ(PaginasBanco(a).size(), 1);
    EXPECT_EQ(PaginasBanco(a)[0].Nombre, "Otro banco");
    EXPECT_FALSE(a.existe("Opciones", "NCCBanco(2)"));
    EXPECT_FALSE(a.existe("Opciones", "WCCBanco(2)"));
}

TEST(PreguntarAyudante, PreguntaYRecuerdaElNo) {
    Entorno e;
    e.dialogo.responder({true});
    EXPECT_TRUE(PreguntarAyudante(*e.ajustes, e.dialogo, false));
    EXPECT_EQ(e.dialogo.preguntas,
              QStringList{"Desea recibir ayuda para hacer los primeros asientos?"});

    // No, then no to never asking again: asked again next time.
    e.dialogo.responder({false, false});
    EXPECT_FALSE(PreguntarAyudante(*e.ajustes, e.dialogo, false));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              "Desea que no se le pregunte esto más? En todo caso puede ver el asistente desde el "
              "punto Ayuda para empezar, del menú Ayuda.");
    EXPECT_FALSE(e.ajustes->existe("Opciones", "Ayudante"));

    // An entry already made: no question.
    const int antes = e.dialogo.preguntas.size();
    EXPECT_FALSE(PreguntarAyudante(*e.ajustes, e.dialogo, true));
    EXPECT_EQ(e.dialogo.preguntas.size(), antes);

    // No, and yes to never again: the setting says so and the question is not asked again.
    e.dialogo.responder({false, true});
    EXPECT_FALSE(PreguntarAyudante(*e.ajustes, e.dialogo, false));
    EXPECT_EQ(e.ajustes->leer("Opciones", "Ayudante"), "NO");
    EXPECT_FALSE(PreguntarAyudante(*e.ajustes, e.dialogo, false));
    EXPECT_EQ(e.dialogo.preguntas.size(), antes + 2);
}

// ---- Due-date lights ------------------------------------------------------------------------

TEST(ColorVenc, ColoresPorDistancia) {
    const QDate hoy(2024, 5, 10);
    EXPECT_EQ(ClasificarVencimiento(hoy, hoy), LuzVencimiento::Hoy);
    EXPECT_EQ(ClasificarVencimiento(hoy.addDays(-1), hoy), LuzVencimiento::Vencido);
    EXPECT_EQ(ClasificarVencimiento(hoy.addDays(1), hoy), LuzVencimiento::Proximo);
    EXPECT_EQ(ClasificarVencimiento(hoy.addDays(7), hoy), LuzVencimiento::Proximo);
    EXPECT_EQ(ClasificarVencimiento(hoy.addDays(8), hoy), LuzVencimiento::Lejano);
    EXPECT_EQ(ClasificarVencimiento(hoy.addDays(9), hoy), LuzVencimiento::Lejano);
    EXPECT_EQ(ClasificarVencimiento(QDate(), hoy), LuzVencimiento::Ninguna);
    EXPECT_EQ(ColorDeLuz(LuzVencimiento::Hoy), QColor(255, 128, 0));
    EXPECT_EQ(ColorDeLuz(LuzVencimiento::Vencido), QColor(255, 0, 0));
    EXPECT_EQ(ColorDeLuz(LuzVencimiento::Proximo), QColor(255, 255, 0));
    EXPECT_EQ(ColorDeLuz(LuzVencimiento::Lejano), QColor(0, 255, 0));
    EXPECT_FALSE(ColorDeLuz(LuzVencimiento::Ninguna).isValid());
}

TEST(ColorVenc, ElPrimerVencimientoPendienteDesdeHoy) {
    Entorno e;
    e.crearEmpresa();
    const QDate hoy(2024, 5, 10);
    Conexion c = e.bavar();
    auto venc = [&](const char* tipo, const QDate& fecha, const char* situacion) {
        c.ejecutar("INSERT INTO Vencimientos (IdVenc, Tipo, NCuenta1, Importe, FechaV, "
                   "Situacion) VALUES (?, ?, '443000022', 100, ?, ?)",
                   {fecha.toJulianDay(), tipo, FechaISO(fecha), situacion});
    };
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Ninguna);
    // Later collections: green; a closer one turns it yellow; one settled today counts not.
    venc("Cobro", hoy.addDays(20), "Pendiente");
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Lejano);
    venc("Cobro", hoy.addDays(7), "Reclamado");
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Proximo);
    venc("Cobro", hoy, "Cobrado");
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Proximo);
    // An overdue one is outside the query: the board never shows red.
    venc("Cobro", hoy.addDays(-3), "Pendiente");
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Proximo);
    venc("Cobro", hoy, "Moroso");
    EXPECT_EQ(ColorVenc(c, "Cobro", hoy), LuzVencimiento::Hoy);
    // Payments are another light.
    EXPECT_EQ(ColorVenc(c, "Pago", hoy), LuzVencimiento::Ninguna);
    venc("Pago", hoy.addDays(9), "Pagado");
    EXPECT_EQ(ColorVenc(c, "Pago", hoy), LuzVencimiento::Ninguna);
    venc("Pago", hoy.addDays(9), "Pendiente");
    EXPECT_EQ(ColorVenc(e.sesion, "Pago", hoy), LuzVencimiento::Lejano);
}

// ---- Pictures and colour --------------------------------------------------------------------

TEST(ImagenesTablero, SeInstalanLasSietePredeterminadas) {
    Entorno e;
    const QStringList esperadas = {"Chalet.jpg", "dinero.jpg",   "Tarjetas2.jpg",  "Oficina.jpg",
                                   "Manos.jpg",  "edificio.jpg", "gasolinera2.jpg"};
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(ImagenPredeterminada(i), esperadas[i]);
    InstalarImagenes(e.sesion);
    const QDir carpeta(e.ruta("Imagenes"));
    for (const QString& n : esperadas) {
        QImageReader lector(carpeta.filePath(n));
        EXPECT_EQ(lector.format(), "jpeg") << n.toStdString();
        const QImage img = lector.read();
        EXPECT_GE(img.width(), 400) << n.toStdString();
        EXPECT_TRUE(QFileInfo(carpeta.filePath(n)).isWritable()) << n.toStdString();
    }
    // A picture the user put under a default name stays.
    QImage propia(10, 10, QImage::Format_RGB32);
    propia.fill(Qt::red);
    QFile::remove(carpeta.filePath("Manos.jpg"));
    ASSERT_TRUE(propia.save(carpeta.filePath("Manos.jpg"), "JPG"));
    InstalarImagenes(e.sesion);
    EXPECT_EQ(QImage(carpeta.filePath("Manos.jpg")).width(), 10);
}

TEST(ImagenesTablero, LaImagenDeLosAjustesSiExiste) {
    Entorno e;
    InstalarImagenes(e.sesion);
    Ajustes& a = *e.ajustes;
    const QString defecto = QDir(e.ruta("Imagenes")).filePath("gasolinera2.jpg");
    EXPECT_EQ(RutaImagenArea(e.sesion, a, 6), defecto);
    QImage propia(32, 24, QImage::Format_RGB32);
    propia.fill(Qt::blue);
    const QString ruta = e.ruta("mia.png");
    ASSERT_TRUE(propia.save(ruta));
    GuardarImagenArea(a, 6, ruta);
    EXPECT_EQ(a.leer("Imagen", "6"), ruta);
    EXPECT_EQ(RutaImagenArea(e.sesion, a, 6), ruta);
    EXPECT_EQ(CargarImagenArea(e.sesion, a, 6).size(), QSize(32, 24));
    // A file that is gone falls back to the default.
    QFile::remove(ruta);
    EXPECT_EQ(RutaImagenArea(e.sesion, a, 6), defecto);
    // Without the installed file, the drawing shipped with the program.
    QFile::remove(defecto);
    EXPECT_FALSE(CargarImagenArea(e.sesion, a, 6).isNull());
    EXPECT_EQ(RutaPredeterminada(e.sesion, 0), QDir(e.ruta("Imagenes")).filePath("Chalet.jpg"));
}

TEST(ImagenesTablero, ElColorSeGuardaConElRojoEnElByteBajo) {
    Entorno e;
    Ajustes& a = *e.ajustes;
    EXPECT_EQ(ColorTablero(a), ColorTableroPredeterminado);
    GuardarColorTablero(a, QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(a.leer("Imagen", "Color"), QString::number(0x563412));
    EXPECT_EQ(ColorTablero(a), QColor(0x12, 0x34, 0x56));
    EXPECT_EQ(ColorDeValor(0xC0E0FF), QColor(0xFF, 0xE0, 0xC0));
    EXPECT_EQ(ValorDeColor(QColor(0xFF, 0xE0, 0xC0)), 0xC0E0FF);
}

// ---- Web pages --------------------------------------------------------------------------------

TEST(AbrirWeb, NavegadorYFallo) {
    DialogoGuion d;
    QUrl abierta;
    auto abrir = [&](const QUrl& u) {
        abierta = u;
        return true;
    };
    EXPECT_TRUE(AbrirWeb(" www.mibanco.es ", d, abrir, [] { return true; }));
    EXPECT_EQ(abierta, QUrl("http://www.mibanco.es"));
    EXPECT_TRUE(d.informados.isEmpty());

    EXPECT_FALSE(AbrirWeb("www.mibanco.es", d, abrir, [] { return false; }));
    EXPECT_EQ(d.informados.last(), "No puedo encontrar el navegador");
    EXPECT_FALSE(AbrirWeb(
        "www.mibanco.es", d, [](const QUrl&) { return false; }, [] { return true; }));
    EXPECT_EQ(d.informados.last(), "Error.No se pudo abrir la página web.");
    EXPECT_FALSE(AbrirWeb("", d, abrir, [] { return true; }));
    EXPECT_EQ(d.informados.size(), 3);
}

} // namespace

// quilmar-cli modelo303, modelo130 and modelo115 end to end: the boxes of the demo company's
// quarters, boxes changed from the command line, the draft as PDF, the file for the tax
// authority, and the refusals.

#include "ComunModelos.h"
#include "tax/FicheroHacienda.h"

#include <gtest/gtest.h>

namespace {

// The lines "NN<tab>value" of the boxes printed, by box.
QMap<QString, QString> Lineas(const QString& salida) {
    QMap<QString, QString> r;
    for (const QString& l : salida.split('\n', Qt::SkipEmptyParts))
        r.insert(l.section('\t', 0, 0), l.section('\t', 1));
    return r;
}

struct Demo : Entorno {
    int ano;
    Demo() {
        instalarDemo();
        ano = sesion.AnoActual;
    }
    ResultadoCli cli(const QString& verbo, const QStringList& args) {
        return EjecutarCli(
            dir.path(),
            QStringList{"--empresa", "Emp100", "--ano", QString::number(ano), verbo} + args);
    }
    QString fecha(int dia, int mes) const {
        return QStringLiteral("%1/%2/%3").arg(dia).arg(mes).arg(ano);
    }
};

struct Cli2011 : Empresa2011 {
    ResultadoCli cli(const QString& verbo, const QStringList& args) {
        return EjecutarCli(dir.path(),
                           QStringList{"--empresa", "Emp001", "--ano", "2011", verbo} + args);
    }
};

} // namespace

TEST(CliModelo303, CasillasDeLaEmpresaDemoConLasVaciasVacias) {
    Demo e;
    ResultadoCli r = e.cli("modelo303", {"--desde", e.fecha(1, 1), "--hasta", e.fecha(31, 3)});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const auto c = Lineas(r.salida);
    EXPECT_EQ(c.value("Ejercicio"), QString::number(e.ano));
    EXPECT_EQ(c.value("Periodo"), "1T");
    EXPECT_EQ(c.value("NIF"), "B50123454");
    EXPECT_EQ(c.value("Apellidos o razón social"), "DE PRUEBAS");
    EXPECT_EQ(QStringList({c.value("01"), c.value("02"), c.value("03")}),
              QStringList({"8.650,00", "21,00", "1.816,50"}));
    EXPECT_EQ(c.value("05"), "10,00");
    EXPECT_EQ(c.value("08"), "4,00");
    EXPECT_EQ(c.value("11"), "5,20");
    EXPECT_EQ(c.value("48"), "-110,80");
    EXPECT_TRUE(c.contains("13") && c.value("13").isEmpty()) << "an empty box, not 0";
    EXPECT_TRUE(c.contains("I") && c.value("I").isEmpty());
    EXPECT_EQ(c.size(), 5 + 50 + 1);

    // Boxes typed as on the screen, each recalculated in turn.
    r = e.cli("modelo303", {"--desde", e.fecha(1, 4), "--hasta", e.fecha(30, 6), "--casilla",
                            "39=50", "--casilla", "41=0,15", "--casilla", "07="});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const auto t2 = Lineas(r.salida);
    EXPECT_EQ(t2.value("07"), "");
    EXPECT_EQ(t2.value("09"), "68,00") << "the quota stays when its base is emptied";
    EXPECT_EQ(t2.value("40"), "330,08") << "half of 660,15";
    EXPECT_EQ(t2.value("46"), "329,93");
    EXPECT_EQ(t2.value("I"), "329,93");
}

TEST(CliModelo303, BorradorEnPdfYFicheroRefusadoPorElAno) {
    Demo e;
    const QString pdf = e.ruta("303.pdf");
    ResultadoCli r = e.cli("modelo303", {"--desde", e.fecha(1, 1), "--hasta", e.fecha(31, 3),
                                         "--borrador", "--formato", "pdf", "--salida", pdf});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(LeerFichero(pdf).startsWith("%PDF"));

    r = e.cli("modelo303", {"--desde", e.fecha(1, 1), "--hasta", e.fecha(31, 3), "--inscrito", "no",
                            "--fichero", e.ruta("")});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              QStringLiteral("No está incorporado el modelo del ejercicio %1.").arg(e.ano));
    EXPECT_FALSE(QFile::exists(e.ruta("Modtr/Gen303.txt")));
}

TEST(CliModelo303, FicheroDeUnEjercicioConModelo) {
    Cli2011 e;
    e.venta({2011, 4, 12}, 1000, 18);
    e.compra({2011, 5, 2}, 500, 8);
    const QStringList periodo{"--desde", "1/4/2011", "--hasta", "30/6/2011"};
    ResultadoCli r = e.cli("modelo303", periodo + QStringList{"--fichero", e.destino()});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              "Debe indicar si está inscrito en el Registro de devolución mensual");

    r = e.cli("modelo303", periodo + QStringList{"--inscrito", "no", "--forma-pago", "adeudo",
                                                 "--cuenta-cargo", "2100-0418-45-0200051332",
                                                 "--nombre", "José", "--fichero", e.destino()});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(MsgValidadorAusente));
    EXPECT_TRUE(r.error.contains("Se ha generado correctamente el archivo 303-B50123454.txt"));
    const QByteArray f = LeerFichero(e.destino() + "/303-B50123454.txt");
    ASSERT_EQ(f.size(), 1353);
    EXPECT_EQ(f.mid(0, 10), "<T30301> I");
    EXPECT_EQ(f.mid(49, 15), "JOSE           ");
    EXPECT_EQ(f.mid(64, 7), "220112T");
    EXPECT_EQ(f.mid(858, 38), "2"
                              "00000000000014000"
                              "21000418450200051332");

    for (const auto& [args, mensaje] : QList<std::pair<QStringList, QString>>{
             {{"--casilla", "51=3"}, "No existe la casilla 51."},
             {{"--casilla", "01=abc"}, "El importe «abc» no es válido"},
             {{"--inscrito", "quizá"}, "Indique --inscrito si o --inscrito no."},
             {{"--cuenta-cargo", "2100"}, "debe tener 20 cifras"},
             {{"--nombre", "Ana2"}, "El campo Nombre no admite el carácter «2»."}}) {
        r = e.cli("modelo303", periodo + args);
        EXPECT_EQ(r.codigo, 1) << args.join(' ').toStdString();
        EXPECT_TRUE(r.error.contains(mensaje)) << r.error.toStdString();
    }
    r = e.cli("modelo303", {"--desde", "30/6/2011", "--hasta", "1/4/2011"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "La fecha inicial debe ser menor o igual que la final.");
}

TEST(CliModelo130, SeccionesSectoresYFichero) {
    Cli2011 e;
    e.datos().ejecutar("INSERT INTO Sectores (Sector) VALUES ('Granja'), ('Tienda')");
    e.venta({2011, 1, 10}, 10000, 21);
    e.venta({2011, 2, 10}, 3000, 4, "IVA", true, "Granja");
    const QStringList periodo{"--desde", "1/1/2011", "--hasta", "31/3/2011"};
    ResultadoCli r =
        e.cli("modelo130", periodo + QStringList{"--seccion", "I", "--sector-ii", "Granja"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    auto c = Lineas(r.salida);
    EXPECT_EQ(c.value("01"), "10.000,00");
    EXPECT_EQ(c.value("08"), "3.000,00");
    EXPECT_EQ(c.value("19"), "2.060,00");
    EXPECT_EQ(c.size(), 5 + 19 + 1);

    r = e.cli("modelo130", periodo + QStringList{"--seccion", "I", "--sector-ii", "Granja",
                                                 "--sector-ii", "Tienda", "--casilla", "16=700"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    c = Lineas(r.salida);
    EXPECT_EQ(c.value("08"), "0,00") << "two sectors match no line";
    EXPECT_EQ(c.value("01"), "10.000,00") << "section I leaves out neither sector's lines";
    EXPECT_EQ(c.value("16"), "660,14");
    EXPECT_TRUE(r.error.contains("no puede ser superior a 660,14 euros"));
    EXPECT_TRUE(r.error.contains("es mayor que el 2% de la casilla 3"));

    r = e.cli("modelo130", periodo + QStringList{"--sector-ii", "Huerta"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "No existe el sector Huerta.");
    r = e.cli("modelo130", {"--desde", "1/4/2011", "--hasta", "30/6/2011"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "La fecha inicial debe ser 1 de enero.");

    r = e.cli("modelo130",
              periodo + QStringList{"--nif", "12345678z", "--nombre", "María", "--forma-pago",
                                    "efectivo", "--fichero", e.destino()});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QByteArray f = LeerFichero(e.destino() + "/130-12345678Z.txt");
    ASSERT_EQ(f.size(), 880);
    EXPECT_EQ(f.mid(12, 9), "12345678Z");
    EXPECT_EQ(f.mid(55, 15), "MARIA          ");
    EXPECT_EQ(f.mid(76, 13), "0000001300000");
}

TEST(CliModelo115, CasillasYFichero) {
    Demo e;
    ResultadoCli r = e.cli("modelo115", {"--desde", e.fecha(1, 1), "--hasta", e.fecha(31, 3),
                                         "--casilla", "1=1", "--casilla", "4=6"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const auto c = Lineas(r.salida);
    EXPECT_EQ(QStringList({c.value("01"), c.value("02"), c.value("03"), c.value("04"),
                           c.value("05"), c.value("I")}),
              QStringList({"1", "2.400,00", "456,00", "6,00", "450,00", "450,00"}));

    Cli2011 f;
    f.alquiler({2011, 2, 5}, 800, 152);
    r = f.cli("modelo115", {"--desde", "1/1/2011", "--hasta", "31/3/2011", "--fichero", f.destino(),
                            "--forma-pago", "efectivo"});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "El código de la Administración debe consignarse con 5 cifras.");
    r = f.cli("modelo115", {"--desde", "1/1/2011", "--hasta", "31/3/2011", "--administracion",
                            "50001", "--via", "Alfonso I", "--fichero", f.destino(), "--forma-pago",
                            "efectivo", "--casilla", "01=1"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const QByteArray fichero = LeerFichero(f.destino() + "/115-B50123454.txt");
    ASSERT_EQ(fichero.size(), 753);
    EXPECT_EQ(fichero.mid(72, 17), "ALFONSO I        ");
    EXPECT_EQ(fichero.mid(154, 6), "000001");
    EXPECT_EQ(fichero.mid(700, 15), "X "
                                    "0000000015200");
}

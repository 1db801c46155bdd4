// quilmar-cli modelo347 end to end: the demo company's parties with the summary, the draft as
// PDF, and on a company of 2010 the file with its properties from a file, or the first failing
// check.

#include "Comun347.h"
#include "tax/Fichero347.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

ResultadoCli Cli(const Entorno& e, const QString& empresa, int ano, const QStringList& args) {
    return EjecutarCli(
        e.dir.path(),
        QStringList{"--empresa", empresa, "--ano", QString::number(ano), "modelo347"} + args);
}

// The rows of the list by the first cell that is not empty.
QMap<QString, QStringList> Filas(const QString& salida) {
    QMap<QString, QStringList> r;
    for (const QString& l : salida.split('\n', Qt::SkipEmptyParts)) {
        const QStringList celdas = l.split('\t');
        r.insert(celdas.value(0).isEmpty() ? celdas.value(1) : celdas.value(0), celdas);
    }
    return r;
}

void EscribirTexto(const QString& ruta, const QString& texto) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto.toUtf8());
}

} // namespace

TEST(CliModelo347, DeclaradosDeLaEmpresaDemoConElResumen) {
    Entorno e;
    e.instalarDemo();
    const int ano = e.sesion.AnoActual;
    ResultadoCli r = Cli(e, "Emp100", ano, {});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    const auto f = Filas(r.salida);
    EXPECT_EQ(f.value("NIF").mid(0, 7), QStringList({"NIF", "Nombre", "Provincia", "Clave",
                                                     "Importe", "Op.Seguro", "Arrend."}));
    // Three invoices of 6.200, 5.400 and 9.800 at 21 %: 21.400 and its VAT.
    EXPECT_EQ(f.value("B50543214").mid(0, 7),
              QStringList({"B50543214", "BODEGAS CAMPO ALTO SL", "50", "A", "25.894,00", "", ""}));
    EXPECT_EQ(f.value("A31432107").mid(2, 3), QStringList({"31", "A", "9.020,00"}));
    // The landlord of the premises: twelve months of 800 plus VAT.
    EXPECT_EQ(f.value("25123456G").mid(3, 4), QStringList({"A", "11.616,00", "", "X"}));
    EXPECT_EQ(f.value("A50876549").mid(2, 3), QStringList({"50", "B", "6.776,00"}));
    EXPECT_FALSE(f.contains("B26321091")) << "2.654 of cheese stay under the limit";
    EXPECT_TRUE(r.salida.contains("Total declarados: "));
    EXPECT_TRUE(f.contains("Declarados"));
    EXPECT_FALSE(f.contains("Inmuebles")) << "no property rented out";

    // A higher limit leaves fewer; the draft is a landscape PDF.
    r = Cli(e, "Emp100", ano, {"--limite", "20000"});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("BODEGAS CAMPO ALTO SL"));
    EXPECT_FALSE(r.salida.contains("CONSERVAS DEL NORTE SA"));
    const QString pdf = e.ruta("347.pdf");
    r = Cli(e, "Emp100", ano, {"--formato", "pdf", "--salida", pdf});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(LeerFichero(pdf).startsWith("%PDF"));

    // Only 2010 has a file layout; the listing works for any year.
    r = Cli(e, "Emp100", ano, {"--contacto", "Ana", "--fichero", e.ruta("")});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(),
              QString("No está incorporado el modelo del ejercicio %1.").arg(ano));
    for (const auto& [args, mensaje] : QList<std::pair<QStringList, QString>>{
             {{"--limite", ""}, MsgLimite347},
             {{"--limite", "tres mil"}, "El importe «tres mil» no es válido"},
             {{"--desde", QString("1/7/%1").arg(ano), "--hasta", QString("1/6/%1").arg(ano)},
              MsgPeriodoInvertido},
             {{"--quitar", "40"}, "No existe el declarado 40."},
             {{"--telefono", "976-1"},
              "El campo TELEFONO DE CONTACTO no admite el carácter «-»."}}) {
        r = Cli(e, "Emp100", ano, args);
        EXPECT_EQ(r.codigo, 1) << args.join(' ').toStdString();
        EXPECT_TRUE(r.error.contains(mensaje)) << r.error.toStdString();
    }
}

TEST(CliModelo347, FicheroConInmueblesDeUnFichero) {
    Empresa347 e;
    e.tercero("443000101", "Ruiz Martin Jose", "25123456G", "Zaragoza");
    e.tercero("443000102", "Sin NIF SL");
    e.factura({2010, 1, 10}, "443000101", 12 * 800, 18, "A");
    e.factura({2010, 2, 10}, "443000102", 5000, 18);
    const QString destino = e.destino();
    // The party without NIF is the first failing check, pointed at by sheet and line.
    ResultadoCli r = Cli(e, "Emp001", 2010, {"--contacto", "Ana Pérez", "--fichero", destino});
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Falta el NIF del Declarado 2 de la página 1.");

    const QString inmuebles = e.ruta("inmuebles.txt");
    EscribirTexto(inmuebles, "NifArrendatario\tNombreArrendatario\tImporteInm\tSituacion\t"
                             "Via\tNumeroCasa\tMunicipio\tCodProvincia\tCPostal\r\n"
                             "25123456G\tRuiz Martín José\t9600,00\t1\tCoso\t60\tZaragoza\t50\t"
                             "50001\r\n");
    const QStringList datos{"--contacto", "Ana Pérez", "--telefono",  "976123456",
                            "--quitar",   "2",         "--inmuebles", inmuebles};
    r = Cli(e, "Emp001", 2010, datos + QStringList{"--fichero", destino});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(MsgSinPlataforma347));
    const QByteArray f = LeerFichero(destino + "/347-B50123454.txt");
    ASSERT_EQ(f.size(), 3 * 502);
    EXPECT_EQ(QString::fromLatin1(f.mid(135, 48)),
              "000000001000000001132800000000001000000000960000")
        << "the summary is that of the lists";
    EXPECT_EQ(f.mid(502 + 75, 1), "I");
    EXPECT_EQ(f.mid(502 + 35, 20), "RUIZ MART\xCDN JOS\xC9    ");
    EXPECT_EQ(f.mid(1004 + 75, 1), "D");
    EXPECT_EQ(f.mid(1004 + 97, 2), " X");

    // The listing shows the property too.
    r = Cli(e, "Emp001", 2010, datos);
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_TRUE(r.salida.contains("Inmuebles"));
    EXPECT_TRUE(r.salida.contains("Total Inmuebles declarados: 1"));

    EscribirTexto(inmuebles, "NifArrendatario\tPiso\n25123456G\t2\n");
    r = Cli(e, "Emp001", 2010, datos);
    EXPECT_EQ(r.codigo, 1);
    EXPECT_TRUE(r.error.contains("La columna «Piso» del fichero de inmuebles no es ninguna de: "
                                 "NifArrendatario, "))
        << r.error.toStdString();
    EscribirTexto(inmuebles, "NifArrendatario\tSituacion\n25123456G\t7\n");
    r = Cli(e, "Emp001", 2010, datos);
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.error.trimmed(), "Línea 2 del fichero de inmuebles: El campo Situación (Código) "
                                 "no admite el carácter «7».");
}

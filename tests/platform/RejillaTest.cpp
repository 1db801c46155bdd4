// The list grid and its export: rows from tab-separated text, cells, bold, merged rows, sorting,
// and the files it becomes.

#include "platform/Rejilla.h"
#include "ImprimirQt.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/ExportarRejilla.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace {

Rejilla Diario() {
    Rejilla r({{QStringLiteral("Asiento"), TipoColumna::Entero},
               {QStringLiteral("Fecha"), TipoColumna::Fecha},
               {QStringLiteral("Concepto")},
               {QStringLiteral("Debe"), TipoColumna::Importe},
               {QStringLiteral("NCuenta"), TipoColumna::Texto, true}});
    r.AgregarFila(QStringLiteral("1\t01/01/2024\tApertura\t1.234,56\t157000001"));
    r.AgregarFila(
        QStringLiteral("1.001\t31/12/2024\tCompra de Ñandú, \"lote\"\t-20,00\t600000001"));
    const int f = r.AgregarFila(QStringLiteral("Subcuenta : Caja, euros"));
    r.CombinarFila(f);
    r.PonerNegritaFila(f);
    r.AgregarFila(QStringLiteral("12\tsin fecha\t\t\t570000001"));
    return r;
}

} // namespace

TEST(Rejilla, FilasDesdeTextoConTabuladores) {
    Rejilla r({{QStringLiteral("A")}, {QStringLiteral("B")}, {QStringLiteral("C")}});
    EXPECT_EQ(r.AgregarFila(QStringLiteral("uno\tdos\ttres\tsobra\tmás")), 0);
    EXPECT_EQ(r.Fila(0), (QStringList{"uno", "dos", "tres"}));
    r.AgregarFila(QStringLiteral("solo"));
    EXPECT_EQ(r.Fila(1), (QStringList{"solo", "", ""}));
    EXPECT_EQ(r.Celda(1, 2), QString());
    r.AgregarFila(QStringList{QStringLiteral("con\ttab"), QStringLiteral("línea\nnueva")});
    EXPECT_EQ(r.Fila(2), (QStringList{"con tab", "línea nueva", ""}));

    // Writing a cell past the last filled one, and a tab in it, keep the row's shape.
    r.PonerCelda(1, 2, QStringLiteral("x\ty"));
    EXPECT_EQ(r.Fila(1), (QStringList{"solo", "", "x y"}));
    r.PonerCelda(1, 2, QString());
    EXPECT_EQ(r.Fila(1), (QStringList{"solo", "", ""}));
    EXPECT_THROW(r.PonerCelda(1, 3, QStringLiteral("fuera")), std::out_of_range);

    r.InsertarFila(0, QStringLiteral("primera"));
    EXPECT_EQ(r.Filas(), 4);
    EXPECT_EQ(r.Celda(0, 0), QStringLiteral("primera"));
    EXPECT_EQ(r.Celda(1, 2), QStringLiteral("tres"));
    r.EliminarFila(0);
    EXPECT_EQ(r.Celda(0, 0), QStringLiteral("uno"));
    r.PonerTotal(QStringLiteral("Totales"), QStringLiteral("1,00"));
    r.PonerTotal(QStringLiteral("Saldo"), QStringLiteral("2,00"));
    r.PonerTotal(QStringLiteral("Totales"), QStringLiteral("3,00"));
    ASSERT_EQ(r.Totales().size(), 2);
    EXPECT_EQ(r.Totales()[0].valor, QStringLiteral("3,00"));
    r.Vaciar();
    EXPECT_EQ(r.Filas(), 0);
    EXPECT_TRUE(r.Totales().isEmpty());
}

TEST(Rejilla, NegritaYFilasCombinadas) {
    Rejilla r = Diario();
    EXPECT_FALSE(r.Negrita(0, 0));
    r.PonerNegrita(0, 3);
    EXPECT_TRUE(r.Negrita(0, 3));
    EXPECT_FALSE(r.Negrita(0, 2));
    r.PonerNegrita(0, 3, false);
    EXPECT_FALSE(r.Negrita(0, 3));
    EXPECT_TRUE(r.Negrita(2, 0));
    EXPECT_TRUE(r.Negrita(2, 4));

    ASSERT_TRUE(r.Combinada(2));
    EXPECT_EQ(r.Combinada(2)->desde, 0);
    EXPECT_EQ(r.Combinada(2)->hasta, 4);
    EXPECT_FALSE(r.Combinada(0));
    r.CombinarFila(0, 1, 2);
    EXPECT_EQ(r.Combinada(0)->hasta, 2);
    r.SepararFila(0);
    EXPECT_FALSE(r.Combinada(0));
    EXPECT_TRUE(r.Numerica(0));
    EXPECT_TRUE(r.Numerica(3));
    EXPECT_FALSE(r.Numerica(1));
}

TEST(Rejilla, OrdenarComoTextoNumeroOFechaEsEstable) {
    Rejilla r({{QStringLiteral("Clave")}, {QStringLiteral("Orden")}});
    for (const char* fila : {"9\ta", "10\tb", "\tc", "9\td", "1.000,5\te", "x\tf", "-3\tg"})
        r.AgregarFila(QString::fromUtf8(fila));
    r.PonerNegrita(1, 1);
    r.CombinarFila(2);
    auto orden = [&] {
        QString s;
        for (int i = 0; i < r.Filas(); ++i)
            s += r.Celda(i, 1);
        return s;
    };
    // As text "10" goes before "9", and an empty key first: the order a grid's text sort gives.
    r.Ordenar(0, Orden::Texto);
    EXPECT_EQ(orden(), QStringLiteral("cgebadf"));
    // Bold and merges travel with their rows.
    EXPECT_TRUE(r.Negrita(3, 1));
    EXPECT_TRUE(r.Combinada(0));
    // As numbers; "9" twice keeps a before d; cells that are not numbers go first, in order.
    r.Ordenar(0, Orden::Numero);
    EXPECT_EQ(orden(), QStringLiteral("cfgadbe"));
    r.Ordenar(0, Orden::Numero, false);
    EXPECT_EQ(orden(), QStringLiteral("ebadgcf"));

    Rejilla m({{QStringLiteral("Nombre")}});
    for (const char* n : {"banco", "Caja", "acreedores", "Banco"})
        m.AgregarFila(QString::fromUtf8(n));
    m.Ordenar(0, Orden::TextoSinMayusculas);
    EXPECT_EQ(m.Celda(0, 0), QStringLiteral("acreedores"));
    EXPECT_EQ(m.Celda(1, 0), QStringLiteral("banco"));
    EXPECT_EQ(m.Celda(2, 0), QStringLiteral("Banco"));
    m.Ordenar(0, Orden::Texto);
    EXPECT_EQ(m.Celda(0, 0), QStringLiteral("Banco"));

    Rejilla f({{QStringLiteral("Fecha"), TipoColumna::Fecha}});
    for (const char* d : {"02/01/2024", "31/12/2023", "1/2/24", "", "2023-06-30"})
        f.AgregarFila(QString::fromUtf8(d));
    f.Ordenar(0, Orden::Fecha);
    EXPECT_EQ(f.Celda(0, 0), QString());
    EXPECT_EQ(f.Celda(1, 0), QStringLiteral("2023-06-30"));
    EXPECT_EQ(f.Celda(2, 0), QStringLiteral("31/12/2023"));
    EXPECT_EQ(f.Celda(4, 0), QStringLiteral("1/2/24"));
}

TEST(Rejilla, ValoresDeCeldas) {
    const struct {
        const char* texto;
        std::optional<double> valor;
    } casos[] = {
        {"1.234,56", 1234.56},
        {"-1.234,56", -1234.56},
        {"1.234", 1234},
        {"1.234.567", 1234567},
        {"12.5", 12.5},
        {"0.500", 0.5},
        {"1234.56", 1234.56},
        {"1,5", 1.5},
        {" 7 ", 7},
        {"+3", 3},
        {",5", 0.5},
        {"", std::nullopt},
        {"-", std::nullopt},
        {"abc", std::nullopt},
        {"1.23.4", std::nullopt},
        {"1e5", std::nullopt},
        {"1.2345,6", std::nullopt},
        {"1 234", std::nullopt},
        {"12,3,4", std::nullopt},
    };
    for (const auto& c : casos)
        EXPECT_EQ(ValorCelda(QString::fromUtf8(c.texto)), c.valor) << c.texto;

    EXPECT_EQ(FechaCelda(u"31/12/2024"), QDate(2024, 12, 31));
    EXPECT_EQ(FechaCelda(u"1/2/08"), QDate(2008, 2, 1));
    EXPECT_EQ(FechaCelda(u"01/02/95"), QDate(1995, 2, 1));
    EXPECT_EQ(FechaCelda(u"2024-12-31"), QDate(2024, 12, 31));
    EXPECT_FALSE(FechaCelda(u"31/02/2024").isValid());
    EXPECT_FALSE(FechaCelda(u"1/2/024").isValid());
    EXPECT_FALSE(FechaCelda(u"a/b/c").isValid());
    EXPECT_FALSE(FechaCelda(u"").isValid());
}

TEST(Rejilla, TextoDelimitado) {
    const Rejilla r = Diario();
    QString texto;
    QTextStream salida(&texto);
    EscribirDelimitado(r, salida);
    salida.flush();
    const QStringList lineas = texto.split(u'\n');
    ASSERT_EQ(lineas.size(), 6); // header, four rows, and the end of the last line
    EXPECT_EQ(lineas[0], QStringLiteral("Asiento\tFecha\tConcepto\tDebe\tNCuenta"));
    EXPECT_EQ(lineas[1], QStringLiteral("1\t01/01/2024\tApertura\t1.234,56\t157000001"));
    EXPECT_EQ(lineas[3], QStringLiteral("Subcuenta : Caja, euros\t\t\t\t"));

    QTemporaryDir dir;
    const QString csv = dir.filePath(QStringLiteral("d.csv"));
    ExportarRejilla(r, csv, FormatoExportacion::Csv);
    QFile f(csv);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"));
    const QStringList csvLineas = QString::fromUtf8(bytes.mid(3)).split(u'\n');
    EXPECT_EQ(csvLineas[1], QStringLiteral("1;01/01/2024;Apertura;1.234,56;157000001"));
    EXPECT_EQ(csvLineas[3], QStringLiteral("Subcuenta : Caja, euros;;;;"));
    EXPECT_EQ(
        csvLineas[2],
        QStringLiteral("1.001;31/12/2024;\"Compra de Ñandú, \"\"lote\"\"\";-20,00;600000001"));

    const QString txt = dir.filePath(QStringLiteral("d.txt"));
    ExportarRejilla(r, txt, FormatoExportacion::Texto);
    QFile t(txt);
    ASSERT_TRUE(t.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(t.readAll()), texto);

    EXPECT_EQ(FormatoExportacionDeNombre(QStringLiteral("XLSX")), FormatoExportacion::Xlsx);
    EXPECT_EQ(FormatoExportacionDeNombre(QStringLiteral("txt")), FormatoExportacion::Texto);
    EXPECT_EQ(FormatoExportacionDeNombre(QStringLiteral("csv")), FormatoExportacion::Csv);
    EXPECT_FALSE(FormatoExportacionDeNombre(QStringLiteral("xls")));
}

namespace {

struct CeldaXlsx {
    QString tipo;   // t attribute: "inlineStr", "s", or empty for numbers
    QString valor;  // the number, or the text
    int estilo = 0; // s attribute
};

QByteArray Descomprimir(const QString& xlsx, const QString& parte) {
    QProcess p;
    p.start(QStringLiteral("unzip"), {QStringLiteral("-p"), xlsx, parte});
    p.waitForFinished();
    return p.readAllStandardOutput();
}

// The cells of the first sheet by reference ("A1"), and the column widths.
QHash<QString, CeldaXlsx> LeerHoja(const QByteArray& xml, QList<double>* anchos) {
    QHash<QString, CeldaXlsx> celdas;
    QXmlStreamReader r(xml);
    QString ref;
    while (!r.atEnd()) {
        r.readNext();
        if (!r.isStartElement())
            continue;
        if (r.name() == u"col" && anchos)
            *anchos << r.attributes().value(QLatin1String("width")).toDouble();
        if (r.name() == u"c") {
            ref = r.attributes().value(QLatin1String("r")).toString();
            celdas[ref].tipo = r.attributes().value(QLatin1String("t")).toString();
            celdas[ref].estilo = r.attributes().value(QLatin1String("s")).toInt();
        }
        if (r.name() == u"v" || r.name() == u"t")
            celdas[ref].valor = r.readElementText();
    }
    return celdas;
}

// For each cell style (index of cellXfs): whether its font is bold and its number format.
struct Estilo {
    bool negrita = false;
    QString formato;
};
QList<Estilo> LeerEstilos(const QByteArray& xml) {
    QHash<int, QString> formatos = {{0, "General"}, {3, "#,##0"}, {4, "#,##0.00"}};
    QList<bool> fuentes;
    QList<Estilo> estilos;
    QXmlStreamReader r(xml);
    bool enFuentes = false, enXfs = false;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isEndElement() && r.name() == u"fonts")
            enFuentes = false;
        if (r.isEndElement() && r.name() == u"cellXfs")
            enXfs = false;
        if (!r.isStartElement())
            continue;
        if (r.name() == u"numFmt")
            formatos[r.attributes().value(QLatin1String("numFmtId")).toInt()] =
                r.attributes().value(QLatin1String("formatCode")).toString();
        else if (r.name() == u"fonts")
            enFuentes = true;
        else if (r.name() == u"cellXfs")
            enXfs = true;
        else if (enFuentes && r.name() == u"font")
            fuentes << false;
        else if (enFuentes && r.name() == u"b")
            fuentes.last() = true;
        else if (enXfs && r.name() == u"xf")
            estilos << Estilo{
                fuentes.value(r.attributes().value(QLatin1String("fontId")).toInt()),
                formatos.value(r.attributes().value(QLatin1String("numFmtId")).toInt())};
    }
    return estilos;
}

} // namespace

TEST(Rejilla, LibroExcelLeidoDeNuevo) {
    if (QStandardPaths::findExecutable(QStringLiteral("unzip")).isEmpty())
        GTEST_SKIP() << "unzip no está instalado";
    Rejilla r = Diario();
    r.PonerNegrita(0, 3);
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("diario.xlsx"));
    ExportarRejilla(r, ruta, FormatoExportacion::Xlsx);

    QList<double> anchos;
    const auto celdas =
        LeerHoja(Descomprimir(ruta, QStringLiteral("xl/worksheets/sheet1.xml")), &anchos);
    const auto estilos = LeerEstilos(Descomprimir(ruta, QStringLiteral("xl/styles.xml")));
    ASSERT_FALSE(celdas.isEmpty());
    auto estilo = [&](const char* ref) {
        return estilos.value(celdas.value(ref).estilo);
    };

    // The header row, bold, the hidden column included.
    EXPECT_EQ(celdas.value("A1").valor, QStringLiteral("Asiento"));
    EXPECT_EQ(celdas.value("E1").valor, QStringLiteral("NCuenta"));
    EXPECT_TRUE(estilo("A1").negrita);
    EXPECT_TRUE(estilo("E1").negrita);
    // Amounts are numbers with two decimals, entry numbers whole numbers with thousands.
    EXPECT_EQ(celdas.value("D2").tipo, QString());
    EXPECT_EQ(celdas.value("D2").valor.toDouble(), 1234.56);
    EXPECT_EQ(estilo("D2").formato, QStringLiteral("#,##0.00"));
    EXPECT_TRUE(estilo("D2").negrita);
    EXPECT_EQ(celdas.value("D3").valor.toDouble(), -20);
    EXPECT_FALSE(estilo("D3").negrita);
    EXPECT_EQ(celdas.value("A3").valor.toDouble(), 1001);
    EXPECT_EQ(estilo("A3").formato, QStringLiteral("#,##0"));
    // Dates are day numbers from 30 December 1899, shown as dates.
    EXPECT_EQ(celdas.value("B3").tipo, QString());
    EXPECT_EQ(celdas.value("B3").valor.toDouble(), 45657);
    EXPECT_EQ(estilo("B3").formato, QStringLiteral("dd/mm/yyyy"));
    // A date cell that is not a date, and the codes, stay text.
    EXPECT_EQ(celdas.value("B5").valor, QStringLiteral("sin fecha"));
    EXPECT_NE(celdas.value("B5").tipo, QString());
    EXPECT_EQ(celdas.value("E2").valor, QStringLiteral("157000001"));
    EXPECT_NE(celdas.value("E2").tipo, QString());
    EXPECT_EQ(celdas.value("C3").valor, QStringLiteral("Compra de Ñandú, \"lote\""));
    // The merged row: its text in the first cell, bold, even in a number column.
    EXPECT_EQ(celdas.value("A4").valor, QStringLiteral("Subcuenta : Caja, euros"));
    EXPECT_NE(celdas.value("A4").tipo, QString());
    EXPECT_TRUE(estilo("A4").negrita);

    // Widths follow the longest cell: the concept column is the widest, the merged text
    // doesn't widen the first.
    ASSERT_EQ(anchos.size(), 5);
    EXPECT_GT(anchos[2], anchos[0]);
    EXPECT_GE(anchos[2], QStringLiteral("Compra de Ñandú, \"lote\"").size());
    EXPECT_LT(anchos[0], QStringLiteral("Subcuenta : Caja, euros").size());
}

TEST(Rejilla, SustituirPreguntaYNoNoEscribeNada) {
    const Rejilla r = Diario();
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("lista.xlsx"));
    DialogoGuion dialogo;
    // A new file is written without a question.
    EXPECT_TRUE(ExportarRejilla(r, ruta, FormatoExportacion::Xlsx, dialogo));
    EXPECT_TRUE(dialogo.preguntas.isEmpty());

    QFile previo(ruta);
    ASSERT_TRUE(previo.open(QIODevice::WriteOnly));
    previo.write("antes");
    previo.close();
    // The default answer is No: the old file stays.
    EXPECT_FALSE(ExportarRejilla(r, ruta, FormatoExportacion::Xlsx, dialogo));
    EXPECT_EQ(dialogo.preguntas, QStringList{"Este archivo ya existe, desea sustiruirlo?"});
    ASSERT_TRUE(previo.open(QIODevice::ReadOnly));
    EXPECT_EQ(previo.readAll(), QByteArray("antes"));
    previo.close();

    dialogo.responder({true});
    EXPECT_TRUE(ExportarRejilla(r, ruta, FormatoExportacion::Texto, dialogo));
    ASSERT_TRUE(previo.open(QIODevice::ReadOnly));
    EXPECT_TRUE(previo.readAll().startsWith("Asiento\tFecha"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "a temporary file was left behind";

    try {
        ExportarRejilla(r, QStringLiteral("/no/existe/lista.xlsx"), FormatoExportacion::Xlsx);
        FAIL();
    } catch (const ErrorQuilmar& e) {
        EXPECT_EQ(e.mensaje(),
                  QStringLiteral("No se pudo escribir el archivo /no/existe/lista.xlsx."));
    }
    EXPECT_THROW(
        ExportarRejilla(r, QStringLiteral("/no/existe/lista.txt"), FormatoExportacion::Texto),
        ErrorQuilmar);
}

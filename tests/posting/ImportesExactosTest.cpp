// Every amount the books take, from one cent to 999.999.999.999,99, goes in by every path (the
// posting screen and the maintenance screen as typed, the command line, the import of a file),
// is stored, summed into Mayor, shown in the journal, the ledger and the trial balance, printed
// and exported to .xlsx exactly to the cent. Random amounts over the whole range, with the edges.

#include "ComunAsientos.h"
#include "platform/ImpresoraGrabadora.h"
#include "platform/Rejilla.h"
#include "posting/EstadoTablero.h"
#include "posting/GestionAsientos.h"
#include "reports/Diario.h"
#include "reports/ImpresionDiario.h"
#include "reports/Mayor.h"
#include "reports/Movimientos.h"
#include "reports/OpcionesLibro.h"
#include "reports/SumasSaldos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <random>
#include <tuple>

using namespace cuentas;

namespace {

constexpr qint64 Maximo = 99999999999999; // 999.999.999.999,99 in cents

// Cents as a book shows them: "1.234.567,89".
QString Estandar(qint64 c) {
    QString entero = QString::number(c / 100);
    for (int i = static_cast<int>(entero.size()) - 3; i > 0; i -= 3)
        entero.insert(i, QLatin1Char('.'));
    return QStringLiteral("%1,%2").arg(entero).arg(c % 100, 2, 10, QLatin1Char('0'));
}

// Cents as a user types them: with the decimal comma, now and then with a decimal point or the
// thousands points.
QString Tecleado(qint64 c, int estilo) {
    const QString coma = QStringLiteral("%1,%2").arg(c / 100).arg(c % 100, 2, 10, QLatin1Char('0'));
    switch (estilo % 3) {
    case 1:
        return QString(coma).replace(QLatin1Char(','), QLatin1Char('.'));
    case 2:
        return Estandar(c);
    default:
        return coma;
    }
}

// One amount posted between two subaccounts, by some path.
struct Linea {
    QString debe, haber;
    qint64 centimos = 0;
};

// A balance as the books show it: its sign, then the amount.
QString Saldo(qint64 c) {
    return c < 0 ? QLatin1Char('-') + Estandar(-c) : Estandar(c);
}

// The number cells of column `columna` (a letter) of the first sheet, in cents.
QList<qint64> CentimosXlsx(const QString& ruta, const QString& columna) {
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"),
                {QStringLiteral("-p"), ruta, QStringLiteral("xl/worksheets/sheet1.xml")});
    EXPECT_TRUE(unzip.waitForFinished(30000));
    const QString xml = QString::fromUtf8(unzip.readAllStandardOutput());
    static const QRegularExpression celda(
        QStringLiteral("<c r=\"([A-Z]+)\\d+\"[^>]*>(?:<f>[^<]*</f>)?<v>([^<]*)</v></c>"));
    QList<qint64> r;
    for (auto m = celda.globalMatch(xml); m.hasNext();) {
        const auto c = m.next();
        if (c.captured(1) == columna && !c.captured(0).contains(QLatin1String("t=\"s\"")))
            r << std::llround(c.captured(2).toDouble() * 100);
    }
    return r;
}

TEST(ImportesExactos, DeCualquierCaminoAlLibroYAlXlsx) {
    Entorno e;
    e.crearEmpresa();
    std::mt19937_64 azar(20261124);
    // A number of digits first, then the cents: every size of amount is as likely.
    auto aleatorio = [&] {
        qint64 tope = 10;
        for (int cifras = static_cast<int>(azar() % 13); cifras > 0; --cifras)
            tope *= 10;
        return 1 + static_cast<qint64>(azar() % static_cast<quint64>(std::min(tope, Maximo)));
    };
    const QList<qint64> bordes{1, Maximo, Maximo - 1, 1234567890123, 9999999999999, 267};
    // Twelve amounts a path: the edges, in another order on each, and random ones.
    auto importes = [&](int camino) {
        QList<qint64> r;
        for (int i = 0; i < 12; ++i)
            r << (i < bordes.size() ? bordes.at((i + camino) % bordes.size()) : aleatorio());
        return r;
    };
    QList<Linea> lineas;

    // The posting screen: the amount typed, a first press fills, a second posts.
    int n = 0;
    for (const qint64 x : importes(0)) {
        EstadoTablero tablero;
        Contabilizar k(e.sesion, e.dialogo, tablero);
        k.CargarLineas(QStringLiteral("Compras"), Compras, QStringLiteral("Banco"), Banco);
        const CamposForm4 campos{QStringLiteral("15/03/2024"), QStringLiteral("Tecleado"),
                                 Tecleado(x, n++), QString(), QString()};
        ASSERT_EQ(k.Aceptar(campos).tipo, ResultadoAceptar::Tipo::Relleno) << x;
        ASSERT_EQ(k.Aceptar(campos).tipo, ResultadoAceptar::Tipo::Contabilizado)
            << e.dialogo.informados.join(QLatin1Char('|')).toStdString();
        lineas << Linea{Compras, Banco, x};
    }
    // The maintenance screen: each line typed in its fields and added, then the entry saved.
    for (const qint64 x : importes(1)) {
        GestionAsientos g(e.sesion, e.dialogo);
        g.Vaciar();
        g.Fecha = QStringLiteral("16/03/2024");
        for (const auto& [area, ncuenta, debe] :
             {std::tuple{"4", Clientes, true}, std::tuple{"3", Ventas, false}}) {
            g.ElegirArea(QLatin1String(area));
            ASSERT_TRUE(g.ElegirSubcuenta(static_cast<int>(g.Codigos.indexOf(ncuenta))));
            g.Concepto = QStringLiteral("Gestión");
            (debe ? g.Debe : g.Haber) = Tecleado(x, n++);
            ASSERT_EQ(g.Pulsar().tipo, ResultadoF7::Tipo::Linea)
                << e.dialogo.informados.join(QLatin1Char('|')).toStdString();
        }
        ASSERT_EQ(g.Pulsar().tipo, ResultadoF7::Tipo::Guardado)
            << e.dialogo.informados.join(QLatin1Char('|')).toStdString();
        lineas << Linea{Clientes, Ventas, x};
    }
    ASSERT_TRUE(e.dialogo.informados.isEmpty());
    Conexion c = e.datos();
    // The command line: one entry of many lines, each amount between two subaccounts of its own
    // (lines of one subaccount would be merged).
    const QStringList libres = Filas(
        c, "SELECT NCuenta FROM Cuentas WHERE substr(NCuenta, 2, 3) NOT IN ('472', '477') "
           "AND NCuenta NOT IN ('" +
               QStringList{Compras, Banco, Clientes, Ventas, Acreedor, HPAcreedora}.join("', '") +
               "') ORDER BY NCuenta LIMIT 24");
    ASSERT_EQ(libres.size(), 24);
    QStringList args{"--empresa", "Emp001",     "--ano",      "2024",        "asiento",
                     "--fecha",   "17/03/2024", "--concepto", "Por la línea"};
    int i = 0;
    for (const qint64 x : importes(2)) {
        const Linea l{libres.at(i), libres.at(i + 12), x};
        args << "--debe" << l.debe + "=" + Tecleado(x, n) << "--haber"
             << l.haber + "=" + Tecleado(x, n + 1);
        n += 2;
        lineas << l;
        ++i;
    }
    const ResultadoCli cli = EjecutarCli(e.dir.path(), args);
    ASSERT_EQ(cli.codigo, 0) << cli.error.toStdString();
    // The import: one entry per amount.
    QByteArray csv = "NAs;Fecha;NCuenta;Concepto;Debe;Haber\n";
    for (const qint64 x : importes(3)) {
        const QByteArray nas = QByteArray::number(n), importe = Tecleado(x, n++).toUtf8();
        csv += nas + ";18/03/2024;" + Acreedor.toUtf8() + ";Importado;\"" + importe + "\";\n";
        csv += nas + ";18/03/2024;" + HPAcreedora.toUtf8() + ";Importado;;\"" + importe + "\"\n";
        lineas << Linea{Acreedor, HPAcreedora, x};
    }
    {
        QFile f(e.ruta("importes.csv"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(csv);
    }
    const ResultadoCli imp = EjecutarCli(
        e.dir.path(), {"--empresa", "Emp001", "--ano", "2024", "importar", e.ruta("importes.csv")});
    ASSERT_EQ(imp.codigo, 0) << imp.error.toStdString();
    EXPECT_TRUE(imp.salida.startsWith("Importados 12 asientos (24 apuntes)"))
        << imp.salida.toStdString();

    // The session learns of the entries the other processes posted.
    CargarEjercicio(e.sesion);
    // What each subaccount should hold, in cents.
    QMap<QString, std::pair<qint64, qint64>> sumas;
    QStringList esperadas, textos;
    qint64 total = 0;
    for (const Linea& l : lineas) {
        sumas[l.debe].first += l.centimos;
        sumas[l.haber].second += l.centimos;
        total += l.centimos;
        const double v = static_cast<double>(l.centimos) / 100;
        esperadas << QStringLiteral("%1 D %2").arg(l.debe).arg(v, 0, 'g', 17)
                  << QStringLiteral("%1 H %2").arg(l.haber).arg(v, 0, 'g', 17);
        textos << Estandar(l.centimos);
    }
    esperadas.sort();
    textos.sort();
    // Sums of amounts stay exact to the cent below 2^44; these books' totals are well below.
    ASSERT_LT(total, (qint64(1) << 44) * 100);

    // Stored: each line holds the double nearest to its cents.
    QStringList guardadas;
    QSqlQuery q = c.ejecutar("SELECT NCuenta, Debe, Haber FROM Diario");
    while (q.next()) {
        const double d = q.value(1).toDouble(), h = q.value(2).toDouble();
        guardadas << QStringLiteral("%1 %2 %3")
                         .arg(q.value(0).toString(), d != 0 ? "D" : "H")
                         .arg(d != 0 ? d : h, 0, 'g', 17);
    }
    q.finish();
    guardadas.sort();
    EXPECT_EQ(guardadas, esperadas);
    // Mayor: the sums, which pass the largest single amount.
    for (auto it = sumas.cbegin(); it != sumas.cend(); ++it) {
        QSqlQuery m = c.ejecutar("SELECT SaldoD, SaldoH FROM Mayor WHERE NCuenta = ?", {it.key()});
        ASSERT_TRUE(m.next()) << it.key().toStdString();
        EXPECT_EQ(Formato(m.value(0).toDouble(), "standard"), Saldo(it->first));
        EXPECT_EQ(Formato(m.value(1).toDouble(), "standard"), Saldo(it->second));
    }
    EXPECT_TRUE(DescuadresMayor(c).isEmpty());

    // The journal's list: every amount in its debit and in its credit cell, and the totals.
    const SeleccionDiario todo = SeleccionDiarioInicial(e.sesion, e.sesion.UltimoAsiento);
    Rejilla diario = RejillaDiario();
    LlenarDiario(c, todo, diario);
    QStringList debe, haber;
    for (int f = 0; f < diario.Filas(); ++f) {
        if (diario.Celda(f, ColDebe) != "0,00")
            debe << diario.Celda(f, ColDebe);
        if (diario.Celda(f, ColHaber) != "0,00")
            haber << diario.Celda(f, ColHaber);
    }
    debe.sort();
    haber.sort();
    EXPECT_EQ(debe, textos);
    EXPECT_EQ(haber, textos);
    ASSERT_FALSE(diario.Totales().isEmpty());
    EXPECT_EQ(diario.Totales().first().valor, Estandar(total));

    // The printed journal: every amount on paper, as debit and as credit, and the totals.
    OpcionesLibro op;
    op.cancelado = false;
    op.fechaTrabajo = QDate(2024, 12, 31);
    ImpresoraGrabadora papel;
    ImpresionDiario impreso(e.sesion, todo, op);
    impreso.Dibujar(papel, 1);
    QStringList impresos;
    for (const Trazo& t : papel.textos())
        impresos << t.texto;
    for (const QString& t : textos)
        EXPECT_GE(impresos.count(t), 2) << t.toStdString();
    EXPECT_TRUE(impresos.contains(Estandar(total)));

    // The trial balance of the exercise: each subaccount with its sums, and the totals.
    SeleccionMayor sel;
    sel.desde = e.sesion.FechaIniEj;
    sel.hasta = e.sesion.FechaFinEj;
    Rejilla sys = RejillaSyS();
    const ResultadoSyS rs = LlenarSyS(c, e.sesion, sel.desde, sel.hasta, sys);
    EXPECT_EQ(Formato(rs.debe, "standard"), Estandar(total));
    EXPECT_EQ(Formato(rs.haber, "standard"), Estandar(total));
    int vistas = 0;
    for (int f = 0; f < sys.Filas(); ++f) {
        const auto s = sumas.constFind(sys.Celda(f, ColSySNCuenta));
        if (s == sumas.cend())
            continue;
        ++vistas;
        EXPECT_EQ(sys.Celda(f, ColSySDebe), Estandar(s->first));
        EXPECT_EQ(sys.Celda(f, ColSySHaber), Estandar(s->second));
    }
    EXPECT_EQ(vistas, sumas.size());
    // The ledger: each subaccount's running balance by its nature ends on its sums.
    Rejilla mayor = RejillaMayor();
    LlenarMayor(c, e.sesion, sel, mayor);
    QMap<QString, QString> ultimos;
    QString actual;
    for (int f = 0; f < mayor.Filas(); ++f) {
        if (TipoCabeceraMayor(mayor, f) == CabeceraMayor::Subcuenta)
            actual = c.escalar("SELECT NCuenta FROM Cuentas WHERE Cuenta = ?",
                               {mayor.Celda(f, 0).mid(PrefijoSubcuentaMayor.size())})
                         .toString();
        else if (!mayor.Celda(f, ColMovSaldo).isEmpty())
            ultimos[actual] = mayor.Celda(f, ColMovSaldo);
    }
    for (auto it = sumas.cbegin(); it != sumas.cend(); ++it)
        EXPECT_EQ(
            ultimos.value(it.key()),
            Saldo(NaturalezaDeudora(it.key()) ? it->first - it->second : it->second - it->first))
            << it.key().toStdString();

    // The .xlsx of the journal and of the trial balance, read back from the sheet.
    const QString xDiario = e.ruta("diario.xlsx"), xSyS = e.ruta("sys.xlsx");
    for (const auto& [verbo, ruta] :
         {std::pair{"diario", xDiario}, std::pair{"sumas-saldos", xSyS}}) {
        const ResultadoCli r =
            EjecutarCli(e.dir.path(), {"--empresa", "Emp001", "--ano", "2024", verbo, "--formato",
                                       "xlsx", "--salida", ruta});
        ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    }
    QList<qint64> hoja = CentimosXlsx(xDiario, "F"), esperado;
    hoja.removeAll(0); // the debit cells of the credit lines
    for (const Linea& l : lineas)
        esperado << l.centimos;
    std::sort(hoja.begin(), hoja.end());
    std::sort(esperado.begin(), esperado.end());
    EXPECT_EQ(hoja, esperado) << "the debit column of the journal";
    const QList<qint64> hojaSyS = CentimosXlsx(xSyS, "C");
    for (auto it = sumas.cbegin(); it != sumas.cend(); ++it)
        EXPECT_TRUE(it->first == 0 || hojaSyS.contains(it->first)) << it.key().toStdString();
}

} // namespace

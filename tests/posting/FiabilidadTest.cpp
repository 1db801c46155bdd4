// The books survive a process killed in the middle of posting, and two processes posting at
// once never share a number nor lose an entry. The posting processes are this same test program
// started again in a child mode that imports a file or posts entry by entry, and quilmar-cli for
// the import that follows. Nothing here waits on a clock: the children report on their standard
// output and wait on their standard input, so every step happens when the parent says so.

#include "ComunAsientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include "posting/Importar.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <iostream>
#include <string>

using namespace cuentas;

namespace {

const char* const VarHijo = "QUILMAR_PRUEBA_HIJO";

// Entry i of poster p: two to four lines, every fourth with a VAT line. Its description says
// how many lines it must have: "H<p>-<i>-<lines>".
QList<Apunte> asientoDePrueba(int p, int i) {
    const double a = (i % 97) + 1.25;
    QList<Apunte> r;
    int n = 0;
    if (i % 4 == 0) {
        Apunte iva = Debe(IvaSop21, Centimos(a * 0.21));
        iva.Iva = DatosIvaApunte{Proveedor, QStringLiteral("F%1-%2").arg(p).arg(i), a, 21,
                                 Centimos(a * 0.21)};
        r << Debe(Compras, a) << iva << Haber(Proveedor, a + Centimos(a * 0.21));
        n = 3;
    } else {
        n = 2 + i % 3;
        const QString debe[] = {Compras, Caja, Banco};
        for (int k = 0; k < n - 1; ++k)
            r << Debe(debe[k], a);
        r << Haber(Ventas, a * (n - 1));
    }
    for (Apunte& x : r)
        x.Concepto = QStringLiteral("H%1-%2-%3").arg(p).arg(i).arg(n);
    return r;
}

// Every check a killed or concurrent poster must pass. Returns the number of entries found.
int ComprobarLibros(Conexion& c) {
    // A file's own structure; a server keeps its own and has no such check.
    if (!c.enServidor()) {
        EXPECT_EQ(c.escalar("PRAGMA integrity_check").toString(), "ok");
    }
    EXPECT_EQ(DescuadresMayor(c), QStringList());
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM (SELECT NAs FROM Diario GROUP BY NAs "
                        "HAVING round(SUM(Debe) - SUM(Haber), 2) <> 0) AS d"),
              0)
        << "every entry balanced";
    // Whole: each description has its lines, all under one number, NAp 1 to n, debit first.
    QSqlQuery q =
        c.ejecutar("SELECT Concepto, COUNT(*), COUNT(DISTINCT NAs), MIN(NAp), MAX(NAp), "
                   "MAX(CASE WHEN Debe > 0 THEN NAp END) < MIN(CASE WHEN Haber > 0 THEN NAp END) "
                   "FROM Diario WHERE Concepto LIKE 'H%' GROUP BY Concepto");
    int asientos = 0;
    while (q.next()) {
        ++asientos;
        // Lines, numbers, first NAp, last NAp, debit before credit.
        const int n = q.value(0).toString().section('-', 2).toInt();
        EXPECT_EQ(QList<int>({q.value(1).toInt(), q.value(2).toInt(), q.value(3).toInt(),
                              q.value(4).toInt(), q.value(5).toInt()}),
                  QList<int>({n, 1, 1, n, 1}))
            << q.value(0).toString().toStdString();
    }
    EXPECT_EQ(Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario WHERE Concepto LIKE 'H%'"),
              asientos)
        << "no two entries share a number";
    // VAT records and their lines, one for one.
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM DatosIVA WHERE IdIVA NOT IN "
                        "(SELECT IdIVA FROM Diario)"),
              0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE IdIVA <> 0 AND IdIVA NOT IN "
                        "(SELECT IdIVA FROM DatosIVA)"),
              0);
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM (SELECT IdIVA FROM DatosIVA GROUP BY IdIVA "
                        "HAVING COUNT(*) > 1) AS d"),
              0);
    return asientos;
}

Sesion sesionDelHijo() {
    Sesion s;
    s.AppPath = s.DataPath = qEnvironmentVariable(VarHijo);
    s.EmpresaActual = "Emp001";
    s.AnoActual = 2024;
    // The same books as the parent's, on the server in the server run.
    s.UrlServidor = qEnvironmentVariable("QUILMAR_PRUEBA_HIJO_SERVIDOR");
    CargarEjercicio(s);
    return s;
}

// Tells the parent on standard output, and waits for its word on standard input.
void avisar(const char* que) {
    std::cout << que << std::endl;
}
void esperarPadre() {
    std::string linea;
    std::getline(std::cin, linea);
}

// The child that posts: QUILMAR_PRUEBA_HIJO_N entries one by one, each its own transaction, or
// without end when N is 0. It starts when the parent says so.
TEST(PublicadorHijo, Publica) {
    if (!qEnvironmentVariableIsSet(VarHijo))
        GTEST_SKIP() << "only as a child of the reliability tests";
    Sesion s = sesionDelHijo();
    const int p = qEnvironmentVariableIntValue("QUILMAR_PRUEBA_HIJO_ID");
    const int n = qEnvironmentVariableIntValue("QUILMAR_PRUEBA_HIJO_N");
    Conexion c = AbrirDatos(s);
    avisar("listo");
    esperarPadre();
    for (int i = 1; n == 0 || i <= n; ++i)
        EscribirAsiento(c, s, QDate(2024, 1 + i % 12, 1 + i % 28), asientoDePrueba(p, i));
}

// The child that imports a file, and stops for good inside its transaction after 3,000
// entries, telling the parent, who kills it there.
TEST(ImportadorHijo, Importa) {
    if (!qEnvironmentVariableIsSet(VarHijo))
        GTEST_SKIP() << "only as a child of the reliability tests";
    Sesion s = sesionDelHijo();
    ImportarAsientos(s, qEnvironmentVariable("QUILMAR_PRUEBA_HIJO_FICHERO"),
                     [](long asientos, qint64, qint64) {
                         if (asientos >= 3000) {
                             avisar("dentro");
                             esperarPadre();
                             std::abort(); // the parent never lets it finish
                         }
                     });
}

class Fiabilidad : public ::testing::Test {
protected:
    void SetUp() override {
        e.crearEmpresa();
        e.asiento(QDate(2024, 1, 1), {Debe(Caja, 1000), Haber("010000004", 1000)});
    }
    // This program again, running only the child test named.
    std::unique_ptr<QProcess> hijo(const char* prueba, int id, int n, const QString& fichero = {}) {
        auto p = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(VarHijo, e.dir.path());
        env.insert("QUILMAR_PRUEBA_HIJO_ID", QString::number(id));
        env.insert("QUILMAR_PRUEBA_HIJO_N", QString::number(n));
        env.insert("QUILMAR_PRUEBA_HIJO_FICHERO", fichero);
        env.insert("QUILMAR_PRUEBA_HIJO_SERVIDOR", e.sesion.UrlServidor);
        p->setProcessEnvironment(env);
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--gtest_filter=%1").arg(QLatin1String(prueba))});
        EXPECT_TRUE(p->waitForStarted(-1));
        return p;
    }
    // Waits, however long it takes, until the child says the word or ends.
    static bool oir(QProcess& p, const QByteArray& palabra) {
        QByteArray leido;
        while (!leido.contains(palabra + '\n')) {
            if (!p.waitForReadyRead(-1) && p.state() != QProcess::Running)
                return false;
            leido += p.readAllStandardOutput();
        }
        return true;
    }
    int entradas() {
        Conexion c = e.datos();
        return Contar(c, "SELECT COUNT(DISTINCT NAs) FROM Diario");
    }
    // Waits until the journal holds at least n entries, for as long as the child posts.
    bool esperarEntradas(int n, QProcess& p) {
        while (p.state() == QProcess::Running) {
            if (entradas() >= n)
                return true;
            p.waitForFinished(20);
        }
        return false;
    }
    Entorno e;
};

TEST_F(Fiabilidad, ImportacionMatadaNoDejaNadaYSeRepiteEntera) {
    // 20,000 entries of two to four lines (the file carries no VAT data).
    const QString ruta = e.ruta("grande.csv");
    int lineas = 0;
    {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        QByteArray b = "NAs;NAp;Fecha;NCuenta;Concepto;Debe;Haber\n";
        for (int i = 1; i <= 20000; ++i) {
            int nap = 0;
            lineas += static_cast<int>(asientoDePrueba(9, i % 4 == 0 ? i + 1 : i).size());
            for (const Apunte& a : asientoDePrueba(9, i % 4 == 0 ? i + 1 : i)) {
                b += QStringLiteral("%1;%2;%3/%4/2024;%5;%6;%7;%8\n")
                         .arg(i)
                         .arg(++nap)
                         .arg(1 + i % 28)
                         .arg(1 + i % 12)
                         .arg(a.NCuenta, QString(a.Concepto)
                                             .replace(QRegularExpression("-\\d+-"),
                                                      QStringLiteral("-%1-").arg(i)))
                         .arg(a.Debe ? Formato(a.Debe, "0.00") : QString())
                         .arg(a.Haber ? Formato(a.Haber, "0.00") : QString())
                         .toUtf8();
            }
        }
        f.write(b);
    }

    auto p = hijo("ImportadorHijo.Importa", 9, 0, ruta);
    ASSERT_TRUE(oir(*p, "dentro")) << "3,000 entries in, inside the transaction";
    p->kill();
    p->waitForFinished(-1);
    EXPECT_EQ(p->exitStatus(), QProcess::CrashExit);
    {
        Conexion c = e.datos();
        EXPECT_EQ(ComprobarLibros(c), 0) << "an import is all or nothing";
        EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario"), 2);
    }
    const ResultadoCli r =
        EjecutarCli(e.dir.path(), {"--empresa", "Emp001", "--ano", "2024", "importar", ruta});
    ASSERT_EQ(r.codigo, 0) << r.error.toStdString();
    EXPECT_EQ(r.salida, QStringLiteral("Importados 20000 asientos (%1 apuntes), del nº 2 al nº "
                                       "20001.\n")
                            .arg(lineas));
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibros(c), 20000);
}

TEST_F(Fiabilidad, PublicadorMatadoDejaAsientosEnteros) {
    auto p = hijo("PublicadorHijo.Publica", 1, 0); // posts until it is killed
    ASSERT_TRUE(oir(*p, "listo"));
    p->write("adelante\n");
    ASSERT_TRUE(esperarEntradas(400, *p)) << "the child posts";
    p->kill();
    p->waitForFinished(-1);
    EXPECT_EQ(p->exitStatus(), QProcess::CrashExit) << "killed in the middle, not finished";
    Conexion c = e.datos();
    const int hechos = ComprobarLibros(c);
    EXPECT_GE(hechos, 399);
    // Posting goes on where it stopped.
    Sesion& s = e.sesion;
    CargarEjercicio(s, c);
    EXPECT_EQ(EscribirAsiento(c, s, QDate(2024, 5, 5), asientoDePrueba(2, 1)), hechos + 2);
}

TEST_F(Fiabilidad, DosProcesosALaVezNoCompartenNumeros) {
    // Both are ready, their connections open, before either is let go: they post at once.
    auto a = hijo("PublicadorHijo.Publica", 1, 2000);
    auto b = hijo("PublicadorHijo.Publica", 2, 2000);
    ASSERT_TRUE(oir(*a, "listo"));
    ASSERT_TRUE(oir(*b, "listo"));
    a->write("adelante\n");
    b->write("adelante\n");
    for (QProcess* p : {a.get(), b.get()}) {
        ASSERT_TRUE(p->waitForFinished(-1));
        EXPECT_EQ(p->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(p->exitCode(), 0);
    }
    Conexion c = e.datos();
    EXPECT_EQ(ComprobarLibros(c), 4000) << "nothing lost, no number shared";
    EXPECT_EQ(Contar(c, "SELECT COUNT(*) FROM Diario WHERE Concepto LIKE 'H1-%'"),
              Contar(c, "SELECT COUNT(*) FROM Diario WHERE Concepto LIKE 'H2-%'"))
        << "each child wrote the same lines";
    EXPECT_EQ(Contar(c, "SELECT MAX(NAs) FROM Diario"), 4001) << "numbers run on without gaps";
}

} // namespace

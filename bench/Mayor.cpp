// The ledger of a 100,000-entry exercise (250,000 lines), timed as a user meets it: a whole
// quilmar-cli process for the movements of the busiest subaccount written as text, and for the
// whole ledger printed to PDF. The exercise is made in the setup through the journal writer,
// in one transaction: entries of two and three lines alternately, every one through the bank.
// Run: cmake -DQUILMAR_BENCH=ON ... && ./build/bench_Mayor [path of quilmar-cli]

#include "Empresa.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cmath>
#include <cstdio>

namespace {

constexpr int Asientos = 100000;

Apunte Linea(const QString& cuenta, const QString& concepto, double debe, double haber) {
    Apunte a;
    a.NCuenta = cuenta;
    a.Concepto = concepto;
    a.Debe = debe;
    a.Haber = haber;
    return a;
}

// Seconds of the best of n runs of the command line, with its output size.
double Cronometrar(const QString& cli, const QStringList& args, int n, qint64* bytes) {
    double mejor = 1e9;
    for (int i = 0; i < n; ++i) {
        QProcess p;
        QElapsedTimer reloj;
        reloj.start();
        p.start(cli, args);
        p.waitForFinished(-1);
        const double s = reloj.nsecsElapsed() / 1e9;
        const QByteArray salida = p.readAllStandardOutput();
        if (p.exitCode() != 0)
            std::fprintf(stderr, "falló: %s\n", p.readAllStandardError().constData());
        if (bytes)
            *bytes = salida.size();
        mejor = std::min(mejor, s);
    }
    return mejor;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QString cli =
        argc > 1 ? QString::fromLocal8Bit(argv[1])
                 : QCoreApplication::applicationDirPath() + QStringLiteral("/quilmar-cli");
    EmpresaDePrueba e;
    QElapsedTimer reloj;
    reloj.start();
    QString banco;
    {
        Conexion c = AbrirDatos(e.sesion);
        auto primera = [&](const char* patron) {
            return c
                .escalar(QStringLiteral("SELECT NCuenta FROM Cuentas WHERE NCuenta LIKE ? ORDER "
                                        "BY NCuenta LIMIT 1"),
                         {QString::fromLatin1(patron)})
                .toString();
        };
        const QString compras = primera("_600%"), ventas = primera("_700%"),
                      cliente = primera("_430%");
        banco = primera("_572%");
        Transaccion t(c);
        for (int k = 0; k < Asientos; ++k) {
            const QDate fecha = QDate(2024, 1, 1).addDays(k * 366 / Asientos);
            const double base = std::round((100 + (k % 997) * 3.17) * 100) / 100;
            const QString concepto = QStringLiteral("Cobro de la factura nº %1 del cliente").arg(k);
            QList<Apunte> ap;
            if (k % 2 == 0)
                ap = {Linea(banco, concepto, base, 0), Linea(ventas, concepto, 0, base)};
            else
                ap = {Linea(compras, concepto, base, 0), Linea(banco, concepto, 0, base - 1),
                      Linea(cliente, concepto, 0, 1)};
            EscribirAsiento(c, e.sesion, fecha, ap);
        }
        t.confirmar();
        std::fprintf(
            stderr, "Ejercicio: %lld apuntes, %lld del banco, en %.1f s\n",
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario")).toLongLong(),
            c.escalar(QStringLiteral("SELECT COUNT(*) FROM Diario WHERE NCuenta = ?"), {banco})
                .toLongLong(),
            reloj.elapsed() / 1000.0);
    }
    const QStringList base{QStringLiteral("--datos"),   e.dir.path(),
                           QStringLiteral("--empresa"), QStringLiteral("Emp001"),
                           QStringLiteral("--ano"),     QStringLiteral("2024")};
    qint64 bytes = 0;
    const double vacio = Cronometrar(cli, base + QStringList{QStringLiteral("--help")}, 3, nullptr);
    std::printf("quilmar-cli --help (arranque del proceso): %.3f s\n", vacio);
    double s =
        Cronometrar(cli, base + QStringList{QStringLiteral("movimientos"), banco}, 5, &bytes);
    std::printf("movimientos %s, todo el ejercicio, txt: %.3f s (%lld bytes)\n", qPrintable(banco),
                s, bytes);
    s = Cronometrar(cli,
                    base + QStringList{QStringLiteral("movimientos"), banco,
                                       QStringLiteral("--desde"), QStringLiteral("01/07/2024")},
                    5, &bytes);
    std::printf("movimientos %s desde el 1 de julio, txt: %.3f s (%lld bytes)\n", qPrintable(banco),
                s, bytes);
    const QString pdf = e.dir.filePath(QStringLiteral("mayor.pdf"));
    s = Cronometrar(cli,
                    base + QStringList{QStringLiteral("mayor"), QStringLiteral("--desde-cuenta"),
                                       QStringLiteral("000"), QStringLiteral("--hasta-cuenta"),
                                       QStringLiteral("999"), QStringLiteral("--formato"),
                                       QStringLiteral("pdf"), QStringLiteral("--salida"), pdf},
                    1, nullptr);
    std::printf("mayor completo a PDF: %.3f s (%.1f MB)\n", s, QFileInfo(pdf).size() / 1048576.0);
    s = Cronometrar(cli,
                    base + QStringList{QStringLiteral("mayor"), QStringLiteral("--desde-cuenta"),
                                       QStringLiteral("000"), QStringLiteral("--hasta-cuenta"),
                                       QStringLiteral("999")},
                    1, &bytes);
    std::printf("mayor completo, txt: %.3f s (%lld bytes)\n", s, bytes);
    return 0;
}

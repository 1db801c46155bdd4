// Budgets: the file's records byte by byte, the equal distribution, saving through the backup
// copy, and the comparison with the journal.

#include "assets/Presupuestos.h"
#include "Entorno.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

const QString Ventas = QStringLiteral("370000066");
const QString Arrendamientos = QStringLiteral("662100046");
const QString Reparaciones = QStringLiteral("662200047");
const QString Caja = QStringLiteral("157000001");

QByteArray leerFichero(const QString& ruta) {
    QFile f(ruta);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return f.readAll();
}

// The bytes of a little-endian double, written out by hand from its IEEE bits.
QByteArray doble(std::initializer_list<unsigned char> b) {
    QByteArray r;
    for (unsigned char c : b)
        r.append(char(c));
    return r;
}

PartidaPresupuesto partida(const QString& ncuenta, char tipo, double anual) {
    PartidaPresupuesto p;
    p.NCuenta = ncuenta;
    p.Tipo = tipo;
    p.Anual = anual;
    return p;
}

MesesMarcados marcar(std::initializer_list<int> meses) {
    MesesMarcados m{};
    for (int x : meses)
        m[x - 1] = true;
    return m;
}

} // namespace

TEST(RegistroPresupuesto, TieneLaFormaDeLos138BytesYSeLeeIgual) {
    PartidaPresupuesto p = partida(Ventas, 'I', 1200);
    p.Meses[0] = 3;
    p.Meses[1] = p.Meses[2] = p.Meses[3] = 400;

    // 1200 = 1.171875 x 2^10: exponent 0x409, fraction 0x2C000...; 3 = 1.5 x 2^1: 0x4008...;
    // 400 = 1.5625 x 2^8: 0x4079...
    QByteArray esperado = QByteArray("370000066") + QByteArray("2026") +
                          doble({0, 0, 0, 0, 0, 0xC0, 0x92, 0x40}) + QByteArray("I") +
                          doble({0, 0, 0, 0, 0, 0, 0x08, 0x40});
    for (int m = 0; m < 3; ++m)
        esperado += doble({0, 0, 0, 0, 0, 0, 0x79, 0x40});
    esperado += QByteArray(9 * 8, '\0');
    esperado += QByteArray("Almac\xE9n") + QByteArray(5, ' ');
    ASSERT_EQ(esperado.size(), 138);

    const QByteArray r = RegistroPresupuesto(p, QStringLiteral("2026"), QStringLiteral("Almacén"));
    EXPECT_EQ(r.toHex().toStdString(), esperado.toHex().toStdString());

    QString ano, sector;
    const PartidaPresupuesto q = PartidaDeRegistro(esperado, &ano, &sector);
    EXPECT_EQ(q.NCuenta, Ventas);
    EXPECT_EQ(ano, "2026");
    EXPECT_EQ(sector, QStringLiteral("Almacén"));
    EXPECT_EQ(q.Tipo, 'I');
    EXPECT_EQ(q.Anual, 1200);
    EXPECT_EQ(q.Meses[0], 3); // the count, not a month
    EXPECT_EQ(q.Meses[1], 400);
    EXPECT_EQ(q.Meses[3], 400);
    EXPECT_EQ(q.Meses[4], 0);
    EXPECT_EQ(q.Meses[12], 0);
}

TEST(RepartoPresupuesto, ElRedondeoCaeEnElUltimoMesMarcado) {
    PartidaPresupuesto p = partida(Arrendamientos, 'G', 100);
    RepartirPorIgual(p, marcar({2, 5, 11}));
    EXPECT_EQ(p.Meses[0], 3);
    EXPECT_DOUBLE_EQ(p.Meses[2], 33.33);
    EXPECT_DOUBLE_EQ(p.Meses[5], 33.33);
    EXPECT_DOUBLE_EQ(p.Meses[11], 33.34);
    EXPECT_EQ(p.Meses[1], 0);
    EXPECT_EQ(p.Meses[12], 0);
    EXPECT_TRUE(ComprobarReparto(p, marcar({2, 5, 11})).isEmpty());

    // 1.000,00 over twelve: 83,33 eleven times and 83,37 in December.
    PartidaPresupuesto q = partida(Arrendamientos, 'G', 1000);
    RepartirPorIgual(q, MesesTodos);
    for (int m = 1; m <= 11; ++m)
        EXPECT_DOUBLE_EQ(q.Meses[m], 83.33) << m;
    EXPECT_DOUBLE_EQ(q.Meses[12], 83.37);
    EXPECT_EQ(q.Meses[0], 12);
}

TEST(RepartoPresupuesto, AnadirPideMesesYQueSumenElImporteAnual) {
    PartidaPresupuesto g = partida(Arrendamientos, 'G', 300);
    EXPECT_EQ(ComprobarReparto(g, MesesMarcados{}),
              "No ha marcado ningún mes en que se producirán los gastos.");
    PartidaPresupuesto i = partida(Ventas, 'I', 300);
    // Marked months at 0 do not count.
    EXPECT_EQ(ComprobarReparto(i, marcar({1, 2})),
              "No ha marcado ningún mes en que se producirán los ingresos.");
    i.Meses[1] = 100;
    i.Meses[2] = 199.99;
    EXPECT_EQ(ComprobarReparto(i, marcar({1, 2})),
              "El reparto por meses es distinto al importe anual presupuestado.");
    i.Meses[2] = 200;
    i.Meses[7] = 50; // typed but not marked: dropped
    EXPECT_TRUE(ComprobarReparto(i, marcar({1, 2})).isEmpty());
    EXPECT_EQ(i.Meses[0], 2);
    EXPECT_EQ(i.Meses[7], 0);
}

class GuardarPresupuestoTest : public ::testing::Test {
protected:
    void SetUp() override { e.crearEmpresa(QStringLiteral("001"), 2024); }

    Presupuesto plan(double ventas) {
        Presupuesto p;
        p.Nombre = QStringLiteral("Plan");
        p.Ano = QStringLiteral("2024");
        PartidaPresupuesto g = NuevaPartida(e.sesion, Arrendamientos, 3000);
        RepartirPorIgual(g, MesesTodos);
        PartidaPresupuesto v = NuevaPartida(e.sesion, Ventas, ventas);
        RepartirPorIgual(v, MesesTodos);
        p.partidas << g << v; // the expense first: the file still starts with the income
        return p;
    }
    Entorno e;
};

TEST_F(GuardarPresupuestoTest, EscribeIngresosPrimeroYSeLeeConLosNombres) {
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, plan(1200)));
    const QString ruta = RutaPresupuesto(e.sesion, QStringLiteral("Plan"));
    const QByteArray bytes = leerFichero(ruta);
    ASSERT_EQ(bytes.size(), 2 * 138);
    EXPECT_EQ(bytes.mid(0, 9), Ventas.toLatin1());
    EXPECT_EQ(bytes.at(21), 'I');
    EXPECT_EQ(bytes.mid(138, 9), Arrendamientos.toLatin1());
    EXPECT_EQ(bytes.at(138 + 21), 'G');

    const Presupuesto p = LeerPresupuesto(ruta, &e.sesion);
    EXPECT_EQ(p.Nombre, "Plan");
    EXPECT_EQ(p.Ano, "2024");
    ASSERT_EQ(p.partidas.size(), 2);
    EXPECT_EQ(p.partidas[0].Cuenta, QStringLiteral("Ventas de mercaderías"));
    EXPECT_EQ(p.partidas[1].Cuenta, QStringLiteral("Arrendamientos"));
    EXPECT_EQ(ListaPresupuestos(e.sesion), QStringList{"Plan"});
}

TEST_F(GuardarPresupuestoTest, RechazaAnoYNombreConLosMensajesDeLaPantalla) {
    Presupuesto p = plan(1200);
    const int hoy = QDate::currentDate().year();
    const QString rango =
        QStringLiteral("El año debe ser posterior a 1990 e inferior al actual más cuatro.");
    const QList<QPair<QString, QString>> casos = {
        {"202", "Por favor, introduzca el año con cuatro cifras."},
        {"1989", rango},
        {QString::number(hoy + 4), rango},
        {"20a4", rango},
    };
    for (const auto& [ano, mensaje] : casos) {
        p.Ano = ano;
        e.dialogo.informados.clear();
        EXPECT_FALSE(GuardarPresupuesto(e.sesion, e.dialogo, p)) << ano.toStdString();
        EXPECT_EQ(e.dialogo.informados.value(0), mensaje) << ano.toStdString();
    }
    p.Ano = QString::number(hoy + 3);
    p.Nombre = QStringLiteral("  ");
    e.dialogo.informados.clear();
    EXPECT_FALSE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    EXPECT_EQ(e.dialogo.informados.value(0), "Por favor, introduzca el nombre del presupuesto.");
    p.Nombre = QStringLiteral("../fuera");
    EXPECT_FALSE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    p.Nombre = QStringLiteral("Plan");
    p.Ano = QStringLiteral("1990");
    EXPECT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, p));
}

TEST_F(GuardarPresupuestoTest, UnFalloAlGuardarDevuelveElPresupuestoAnterior) {
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, plan(1200)));
    const QString ruta = RutaPresupuesto(e.sesion, QStringLiteral("Plan"));
    const QString bak = e.sesion.carpetaEmpresa() + QStringLiteral("/Plan.bak");
    const QByteArray antes = leerFichero(ruta);

    // Declining the question leaves everything as it was.
    EXPECT_FALSE(GuardarPresupuesto(e.sesion, e.dialogo, plan(5000)));
    EXPECT_EQ(e.dialogo.preguntas.value(0),
              "Está seguro de que desea modificar el Presupuesto Plan?");
    EXPECT_EQ(leerFichero(ruta), antes);

    // The write fails after the first record.
    e.dialogo.responder({true});
    auto romper = [](qint64 hecho, qint64) {
        if (hecho == 1)
            throw ErrorAlmacen(QStringLiteral("Error: disco lleno"));
    };
    EXPECT_THROW(GuardarPresupuesto(e.sesion, e.dialogo, plan(5000), romper), ErrorAlmacen);
    EXPECT_EQ(leerFichero(ruta), antes);
    EXPECT_FALSE(QFile::exists(bak));

    // A stale copy left behind does not stop the next save, which replaces the file.
    {
        QFile f(bak);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("resto");
    }
    e.dialogo.responder({true});
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, plan(5000)));
    EXPECT_FALSE(QFile::exists(bak));
    EXPECT_EQ(LeerPresupuesto(ruta).partidas.value(0).Anual, 5000);
}

class CompararPresupuestoTest : public GuardarPresupuestoTest {
protected:
    void SetUp() override {
        GuardarPresupuestoTest::SetUp();
        auto ingreso = [&](int mes, double importe) {
            return e.asiento(QDate(2024, mes, 10), {Debe(Caja, importe), Haber(Ventas, importe)});
        };
        ingreso(2, 500);
        ingreso(3, 300);
        ingreso(6, 200);
        // A regularisation line never counts as done.
        const long reg = ingreso(12, 7000);
        e.datos().ejecutar(QStringLiteral("UPDATE Diario SET Clase = 'R' WHERE NAs = ?"),
                           {qint64(reg)});
        Apunte tienda = Debe(Arrendamientos, 250);
        tienda.Sector = QStringLiteral("Tienda");
        Apunte caja = Haber(Caja, 250);
        caja.Sector = QStringLiteral("Tienda");
        e.asiento(QDate(2024, 2, 1), {tienda, caja});
        e.asiento(QDate(2024, 3, 1), {Debe(Arrendamientos, 100), Haber(Caja, 100)});
        // Spent but not budgeted: no row.
        e.asiento(QDate(2024, 3, 5), {Debe(Reparaciones, 40), Haber(Caja, 40)});
    }

    QStringList fila(const Rejilla& r, int f) {
        QStringList c;
        for (int k = 0; k < r.Columnas(); ++k)
            c << r.Celda(f, k);
        return c;
    }
};

TEST_F(CompararPresupuestoTest, AnoCompletoTomaElImporteAnualYUnRangoLosMeses) {
    Presupuesto p = plan(1200);
    // A yearly amount that differs from its months shows which one the comparison takes.
    p.partidas[1].Meses[2] = 150;
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    const QString ruta = RutaPresupuesto(e.sesion, QStringLiteral("Plan"));

    const Rejilla ano = CompararPresupuesto(e.sesion, ruta, {});
    ASSERT_EQ(ano.Filas(), 6);
    EXPECT_EQ(ano.Titulos().mid(0, 4),
              (QStringList{"CUENTA", "Presupuestado", "Realizado", "Diferencias"}));
    EXPECT_EQ(fila(ano, 0).value(0), "INGRESOS");
    EXPECT_EQ(fila(ano, 1),
              (QStringList{"Ventas de mercaderías", "1.200,00", "1.000,00", "-200,00", Ventas}));
    EXPECT_EQ(fila(ano, 2).mid(0, 4),
              (QStringList{"Total Ingresos", "1.200,00", "1.000,00", "-200,00"}));
    EXPECT_EQ(fila(ano, 3).value(0), "GASTOS");
    EXPECT_EQ(fila(ano, 4),
              (QStringList{"Arrendamientos", "3.000,00", "350,00", "-2.650,00", Arrendamientos}));
    EXPECT_EQ(fila(ano, 5).mid(0, 4),
              (QStringList{"Total Gastos", "3.000,00", "350,00", "-2.650,00"}));

    // February and March: elements 2 and 3 (150 + 100), not the yearly amount.
    PeriodoPresupuesto febMar{2, 3, false};
    EXPECT_EQ(EtiquetaPeriodo(febMar), " Febrero a Marzo");
    const Rejilla rango = CompararPresupuesto(e.sesion, ruta, febMar);
    EXPECT_EQ(fila(rango, 1).mid(1, 3), (QStringList{"250,00", "800,00", "550,00"}));
    EXPECT_EQ(fila(rango, 4).mid(1, 3), (QStringList{"500,00", "350,00", "-150,00"}));
}

TEST_F(CompararPresupuestoTest, ConSectorSoloCuentanSusApuntes) {
    Presupuesto p = plan(1200);
    p.Sector = QStringLiteral("Tienda");
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    const Rejilla r =
        CompararPresupuesto(e.sesion, RutaPresupuesto(e.sesion, QStringLiteral("Plan")), {});
    EXPECT_EQ(fila(r, 1).value(2), "0,00");
    EXPECT_EQ(fila(r, 4).value(2), "250,00");

    // A budget of a year without exercise fails at the open.
    p.Sector.clear();
    p.Ano = QStringLiteral("2025");
    p.Nombre = QStringLiteral("Otro");
    ASSERT_TRUE(GuardarPresupuesto(e.sesion, e.dialogo, p));
    EXPECT_THROW(
        CompararPresupuesto(e.sesion, RutaPresupuesto(e.sesion, QStringLiteral("Otro")), {}),
        ErrorQuilmar);
}

TEST(NombrePresupuesto, PierdeSiempreLosUltimosCuatroCaracteres) {
    EXPECT_EQ(NombreDePresupuesto("/x/Emp001/Plan 2024.prt"), "Plan 2024");
    EXPECT_EQ(NombreDePresupuesto("/x/Emp001/Plan2024"), "Plan");
}

TEST(RepartoPresupuesto, CompletarConUnMes) {
    PartidaPresupuesto p = partida(Ventas, 'I', 0);
    EXPECT_EQ(CompletarConMes(p, 3), "No ha introducido el importe anual.");
    p.Anual = 1000;
    p.Meses[1] = 600;
    p.Meses[2] = 500;
    p.Meses[3] = 77; // emptied before the others are summed
    EXPECT_EQ(CompletarConMes(p, 3),
              "Las cantidades mensuales introducidas superan el importe anual presupuestado.");
    EXPECT_EQ(p.Meses[3], 77);
    p.Meses[2] = 150.55;
    EXPECT_EQ(CompletarConMes(p, 3), "Distribución mensual completada.");
    EXPECT_DOUBLE_EQ(p.Meses[3], 249.45);
}

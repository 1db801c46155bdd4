// The models and formula files we ship, and the notes of the demo company made with them, from
// the logic and from the command line.
#include "Entorno.h"
#include "annual/Estados.h"
#include "annual/FormulasMemoria.h"
#include "annual/Memoria.h"
#include "store/Formato.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

QByteArray Leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList Tokens(const QString& texto) {
    QStringList r;
    static const QRegularExpression token(QStringLiteral("<([^<>]{4})>"));
    for (const auto& m : token.globalMatch(texto))
        r << m.captured(1).toUpper();
    return r;
}

// The figure after a label on a row of the notes ("label\tab value\par"), trimmed.
QString Figura(const QString& rtf, const QString& rotulo, int columna = 1) {
    for (const QString& linea : rtf.split(u'\n'))
        if (linea.contains(rotulo + QStringLiteral("\\tab "))) {
            QString resto = linea.mid(linea.indexOf(rotulo) + rotulo.size());
            resto.remove(QStringLiteral("\\b0"));
            resto.remove(QStringLiteral("\\par"));
            return resto.split(QStringLiteral("\\tab ")).value(columna).trimmed();
        }
    return QStringLiteral("(no está)");
}

double Saldo(const DatosEjercicio& d, const QString& cuenta) {
    double v = 0;
    for (const SaldoEstado& s : d.saldos)
        if (s.NCuenta.mid(1, cuenta.size()) == cuenta)
            v += s.NCuenta[0] == u'0' || s.NCuenta[0] == u'2' || s.NCuenta[0] == u'3'
                     ? s.SaldoH - s.SaldoD
                     : s.SaldoD - s.SaldoH;
    return v;
}

QString Std(double v) {
    return Formato(Centimos(v), QStringLiteral("standard"));
}

} // namespace

TEST(MemoriaDatos, ShippedFormulasAreValidAndCoverEveryTokenOfTheirModel) {
    Entorno e;
    struct Caso {
        const char* fichero;
        PlanMemoria plan;
        const char* modelo;
    };
    for (const Caso& c : {Caso{"Fmemor.dat", PlanMemoria::Antiguo, "Memabrev.rtf"},
                          Caso{"Fmemor8.dat", PlanMemoria::Antiguo, "Memabrev.rtf"},
                          Caso{"Fmemor8np.dat", PlanMemoria::Nuevo, "MemabrevNP.rtf"}}) {
        SCOPED_TRACE(c.fichero);
        const QString ruta = e.ruta(QString::fromLatin1(c.fichero));
        ASSERT_GT(QFileInfo(ruta).size(), 0);
        EXPECT_EQ(QFileInfo(ruta).size() % LongitudFormula, 0);
        QSet<QString> nombres;
        const QList<FormulaMemoria> lista = LeerFormulas(ruta);
        for (const FormulaMemoria& f : lista) {
            EntradaFormula en{f.Nombre.mid(1), f.Tipo, EjercicioDePeriodo(f.Periodo), f.Periodo,
                              f.Contenido};
            const auto error = ComprobarFormula(en, c.plan);
            EXPECT_FALSE(error) << f.Nombre.toStdString() << ": "
                                << (error ? error->mensaje.toStdString() : "");
            EXPECT_FALSE(nombres.contains(f.Nombre)) << f.Nombre.toStdString();
            nombres.insert(f.Nombre);
        }
        for (const FormulaMemoria& f : lista)
            for (const QString& t : Tokens(f.Contenido))
                if (t.startsWith(u'F'))
                    EXPECT_TRUE(nombres.contains(t))
                        << f.Nombre.toStdString() << " usa " << t.toStdString();
        const QByteArray modelo = Leer(e.ruta(QString::fromLatin1(c.modelo)));
        ASSERT_TRUE(modelo.startsWith("{\\rtf1"));
        EXPECT_TRUE(std::all_of(modelo.begin(), modelo.end(),
                                [](char b) { return static_cast<uchar>(b) < 0x80; }));
        const QStringList tokens = Tokens(QString::fromLatin1(modelo));
        EXPECT_GT(tokens.size(), 30);
        for (const QString& t : tokens)
            EXPECT_TRUE(nombres.contains(t)) << c.modelo << " usa " << t.toStdString();
    }
}

TEST(MemoriaDatos, TheDemoNotesCarryTheFiguresOfTheBooks) {
    Entorno e;
    e.instalarDemo();
    DatosEjercicio d;
    {
        Conexion c = e.datos();
        d = LeerDatosEstado(c);
    }
    e.dialogo.responder({true});
    ASSERT_TRUE(NuevaMemoria(e.sesion, e.dialogo, {}));
    const auto ruta = GenerarMemoria(e.sesion, e.dialogo, false);
    ASSERT_TRUE(ruta);
    const QString rtf = QString::fromLatin1(Leer(*ruta));
    EXPECT_TRUE(Tokens(rtf).isEmpty()) << Tokens(rtf).join(u' ').toStdString();
    EXPECT_EQ(Figura(rtf, QStringLiteral("Capital")), Std(Saldo(d, QStringLiteral("100"))));
    EXPECT_EQ(Figura(rtf, QStringLiteral("Capital")), QStringLiteral("30.000,00"));
    EXPECT_EQ(Figura(rtf, QStringLiteral("Resultado del ejercicio")), Std(d.resultado));
    EXPECT_EQ(Figura(rtf, QStringLiteral("Importe neto de la cifra de negocios")),
              Std(Saldo(d, QStringLiteral("700")) + Saldo(d, QStringLiteral("705"))));
    EXPECT_EQ(Figura(rtf, QStringLiteral("Gastos de personal")),
              Std(Saldo(d, QStringLiteral("640")) + Saldo(d, QStringLiteral("642"))));
    EXPECT_EQ(Figura(rtf, QStringLiteral("Amortización acumulada al cierre")
                              .replace(QStringLiteral("ó"), QStringLiteral("\\'f3"))),
              Std(Saldo(d, QStringLiteral("281"))));
    // The result is distributed whole: a tenth to the legal reserve, the rest to voluntary ones.
    EXPECT_EQ(Figura(rtf, QStringLiteral("Aplicaci\\'f3n: a reserva legal (10 %)")),
              Std(d.resultado / 10));
    // No previous exercise: its column stays blank.
    EXPECT_EQ(Figura(rtf, QStringLiteral("Capital"), 2), QString());
}

TEST(MemoriaDatos, CommandLineFormulasModelAndNotes) {
    Entorno e;
    e.instalarDemo();
    const QString datos = e.dir.path();
    const ResultadoCli l = EjecutarCli(datos, {"formulas-memoria"});
    ASSERT_EQ(l.codigo, 0) << l.error.toStdString();
    EXPECT_TRUE(l.salida.startsWith("Nombre\tTipo\tPeriodo\tEjercicio\tContenido\n"));
    EXPECT_TRUE(l.salida.contains("F025\tImporte\tFecha Final\tAño N-1\t<S100>\n"));

    const ResultadoCli malo = EjecutarCli(datos, {"formula-memoria", "F060", "--tipo", "Importe",
                                                  "--periodo", "Año N", "--contenido", "<S10>"});
    EXPECT_EQ(malo.codigo, 1);
    EXPECT_TRUE(malo.error.contains(MsgContenidoErroneo));
    const ResultadoCli alta = EjecutarCli(datos, {"formula-memoria", "F060", "--tipo", "Importe",
                                                  "--periodo", "Año N", "--contenido", "<S100>*2"});
    ASSERT_EQ(alta.codigo, 0) << alta.error.toStdString();
    // Replacing needs --si on the 2007 chart.
    EXPECT_EQ(EjecutarCli(datos, {"formula-memoria", "F060", "--tipo", "Importe", "--periodo",
                                  "Año N", "--contenido", "<S100>*3"})
                  .codigo,
              1);

    const ResultadoCli n = EjecutarCli(datos, {"memoria-nueva"});
    ASSERT_EQ(n.codigo, 0) << n.error.toStdString();
    QFile modelo(n.salida.trimmed());
    ASSERT_TRUE(modelo.open(QIODevice::Append));
    modelo.write("{Doble capital:<F060>}");
    modelo.close();
    EXPECT_EQ(EjecutarCli(datos, {"memoria-nueva"}).codigo, 1); // exists, no --si

    const ResultadoCli m = EjecutarCli(datos, {"memoria-elaborar"});
    ASSERT_EQ(m.codigo, 0) << m.error.toStdString();
    const QString rtf = QString::fromLatin1(Leer(m.salida.trimmed()));
    EXPECT_TRUE(m.salida.trimmed().endsWith("Emp100/Memoria2026.rtf"));
    EXPECT_TRUE(rtf.simplified().endsWith("{Doble capital: 60.000,00}"));
}

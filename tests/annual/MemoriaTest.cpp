// The notes to the accounts: the formula files, the figures of the tokens, the documents, and the
// books left as they were.
#include "annual/Memoria.h"
#include "Entorno.h"
#include "annual/Estados.h"
#include "annual/FormulasMemoria.h"
#include "platform/Impresora.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "yearend/Cierre.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

const QString Caja = QStringLiteral("157000001");
const QString Capital = QStringLiteral("010000004");
const QString Ventas = QStringLiteral("370000066");
const QString Alquiler = QStringLiteral("662100046");
const QString Mobiliario = QStringLiteral("521600034");
const QString AmortMobiliario = QStringLiteral("028100040");

FormulaMemoria Importe(const QString& nombre, const QString& periodo, const QString& contenido) {
    return {nombre, TipoImporte, periodo, contenido};
}

QByteArray Leer(const QString& ruta) {
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QString Volcado(Conexion& c, const QString& tabla, const QString& orden) {
    QString v;
    Lector l(c, QStringLiteral("SELECT * FROM %1 ORDER BY %2").arg(tabla, orden));
    while (l.siguiente())
        for (int i = 0; i < 20; ++i)
            v += l.texto(i) + u'|';
    return v;
}

QString Libros(Entorno& e) {
    Conexion c = e.datos();
    return Volcado(c, QStringLiteral("Diario"), QStringLiteral("NAs, NAp")) + u'#' +
           Volcado(c, QStringLiteral("Mayor"), QStringLiteral("NCuenta")) + u'#' +
           Volcado(c, QStringLiteral("Empresa"), QStringLiteral("1"));
}

// A 2024 company (2007 chart): capital and furniture on the first day, then a sale, a rent and
// the year's depreciation.
void Movimientos(Entorno& e) {
    e.crearEmpresa(QStringLiteral("001"), 2024);
    e.asiento(QDate(2024, 1, 1), {Debe(Caja, 1000), Debe(Mobiliario, 2000), Haber(Capital, 3000)});
    e.asiento(QDate(2024, 3, 10), {Debe(Caja, 500), Haber(Ventas, 500)});
    e.asiento(QDate(2024, 4, 1), {Debe(Alquiler, 200), Haber(Caja, 200)});
    e.asiento(QDate(2024, 12, 31),
              {Debe(QStringLiteral("668100064"), 250), Haber(AmortMobiliario, 250)});
}

// The amount a padded value shows.
QString Cifra(const QString& v) {
    return v.trimmed();
}

} // namespace

TEST(FormulasMemoria, RecordsOf126BytesRoundTripThroughTheTemporaryFile) {
    const FormulaMemoria f =
        Importe(QStringLiteral("F012"), PeriodoAnoN1, QStringLiteral("<S170>+<s171>-(<F003>*2)"));
    const QByteArray r = RegistroFormula(f);
    ASSERT_EQ(r.size(), LongitudFormula);
    EXPECT_EQ(r.left(26), QByteArray("F012Importe") + "A\xf1o N-1" + QByteArray(8, ' '));
    EXPECT_EQ(r.mid(26, 24), QByteArray("<S170>+<s171>-(<F003>*2)"));
    EXPECT_EQ(r.right(76), QByteArray(76, ' '));
    EXPECT_EQ(FormulaDeRegistro(r), f);
    // Content past 100 characters is cut, never spilling into the next record.
    const FormulaMemoria larga{QStringLiteral("F001"), TipoTexto, PeriodoNinguno,
                               QString(120, u'x')};
    EXPECT_EQ(FormulaDeRegistro(RegistroFormula(larga)).Contenido, QString(100, u'x'));

    Entorno e;
    const QString ruta = e.ruta(QStringLiteral("Fmemor8np.dat"));
    EscribirFormulas(ruta, {f, larga});
    EXPECT_EQ(QFileInfo(ruta).size(), 2 * LongitudFormula);
    EXPECT_FALSE(QFile::exists(e.ruta(QStringLiteral("2Fmemor8np.dat"))));
    const QList<FormulaMemoria> leidas = LeerFormulas(ruta);
    ASSERT_EQ(leidas.size(), 2);
    EXPECT_EQ(leidas[0], f);
}

TEST(FormulasMemoria, AddingReplacingAndDeletingOnEachChart) {
    Entorno e;
    const QString ruta = e.ruta(QStringLiteral("Formulas.dat"));
    const FormulaMemoria a = Importe(QStringLiteral("F001"), PeriodoAnoN, QStringLiteral("<S100>"));
    const FormulaMemoria b =
        Importe(QStringLiteral("F001"), PeriodoInicial, QStringLiteral("<S570>"));
    ASSERT_TRUE(GuardarFormula(ruta, PlanMemoria::Antiguo, a, e.dialogo));
    // The old chart refuses a name in use; the 2007 one asks and replaces on Yes only.
    EXPECT_FALSE(GuardarFormula(ruta, PlanMemoria::Antiguo, b, e.dialogo));
    EXPECT_EQ(e.dialogo.informados.last(), MsgFuncionExiste);
    EXPECT_EQ(LeerFormulas(ruta), QList<FormulaMemoria>{a});
    e.dialogo.responder({false, true});
    EXPECT_FALSE(GuardarFormula(ruta, PlanMemoria::Nuevo, b, e.dialogo));
    EXPECT_EQ(LeerFormulas(ruta), QList<FormulaMemoria>{a});
    EXPECT_TRUE(GuardarFormula(ruta, PlanMemoria::Nuevo, b, e.dialogo));
    EXPECT_EQ(LeerFormulas(ruta), QList<FormulaMemoria>{b});
    EXPECT_EQ(e.dialogo.preguntas.last(), PreguntaSustituir);

    // Modifying may rename the formula in its place.
    const FormulaMemoria c = Importe(QStringLiteral("F002"), PeriodoAnoN, QStringLiteral("<S570>"));
    ASSERT_TRUE(GuardarFormula(ruta, PlanMemoria::Antiguo,
                               Importe(QStringLiteral("F009"), PeriodoAnoN, QStringLiteral("1")),
                               e.dialogo));
    ASSERT_TRUE(GuardarFormula(ruta, PlanMemoria::Antiguo, c, e.dialogo, QStringLiteral("F001")));
    EXPECT_EQ(LeerFormulas(ruta)[0], c);
    EXPECT_EQ(LeerFormulas(ruta).size(), 2);

    e.dialogo.responder({false, true});
    EXPECT_FALSE(EliminarFormula(ruta, QStringLiteral("F002"), e.dialogo));
    EXPECT_EQ(e.dialogo.preguntas.last(),
              QStringLiteral("Está seguro de que desea eliminar la Fórmula F002?"));
    EXPECT_TRUE(EliminarFormula(ruta, QStringLiteral("F002"), e.dialogo));
    ASSERT_EQ(LeerFormulas(ruta).size(), 1);
    EXPECT_EQ(LeerFormulas(ruta)[0].Nombre, QStringLiteral("F009"));
}

TEST(FormulasMemoria, EntryRulesInTheirOrder) {
    EntradaFormula f{QStringLiteral("7"), QString(), QString(), QString(), QString()};
    auto mensaje = [&f](PlanMemoria p) {
        const auto r = ComprobarFormula(f, p);
        return r ? r->mensaje : QString();
    };
    EXPECT_EQ(mensaje(PlanMemoria::Antiguo), MsgNombreFormula);
    f.digitos = QStringLiteral("0a7");
    EXPECT_EQ(mensaje(PlanMemoria::Antiguo), MsgNombreFormula);
    f.digitos = QStringLiteral("007");
    EXPECT_EQ(mensaje(PlanMemoria::Antiguo), MsgSinContenido);
    f.contenido = QStringLiteral("<S100");
    EXPECT_EQ(mensaje(PlanMemoria::Antiguo), MsgSinTipo);
    f.tipo = TipoImporte;
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), MsgSinEjercicio);
    f.ejercicio = PeriodoAnoN1;
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), MsgSinPeriodo);
    // "Año" is a period of the 2007 chart only; a text takes "Ninguno" only.
    f.periodo = PeriodoAno;
    EXPECT_EQ(mensaje(PlanMemoria::Antiguo), MsgSinPeriodo);
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), MsgContenidoErroneo);
    f.contenido = QStringLiteral("(<S100>+<f002>)*2");
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), QString());
    f.tipo = TipoTexto;
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), MsgSinPeriodo);
    f.periodo = PeriodoNinguno;
    f.contenido = QStringLiteral("Texto con <cualquier> cosa");
    EXPECT_EQ(mensaje(PlanMemoria::Nuevo), QString());
    EXPECT_EQ(FormulaDeEntrada(f).Nombre, QStringLiteral("F007"));

    for (const char* malo : {"<S10>", "<X100>", "100>", "<S100", "<S1a0>", "<F100>>", "<<S100>"})
        EXPECT_FALSE(ContenidoValido(QString::fromLatin1(malo))) << malo;
    EXPECT_TRUE(ContenidoValido(QStringLiteral("<s100>-<F001>/3")));

    // The 2007 screen's exercise and period come back from the one stored field.
    EXPECT_EQ(PeriodoGuardado(PeriodoAnoN1, PeriodoFinal), PeriodoAnoN1);
    EXPECT_EQ(PeriodoGuardado(PeriodoAnoN, PeriodoInicial), PeriodoInicial);
    EXPECT_EQ(EjercicioDePeriodo(PeriodoAnoN1), PeriodoAnoN1);
    EXPECT_EQ(PeriodoDeGuardado(PeriodoAnoN1), PeriodoFinal);
    EXPECT_EQ(EjercicioDePeriodo(PeriodoAno), PeriodoAnoN);
}

TEST(FormulasMemoria, TheCompanyTakesTheProgramsCopyOrIsToldThereIsNone) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2024);
    const QString ruta = RutaFormulas(e.sesion, PlanMemoria::Nuevo);
    ASSERT_FALSE(QFile::exists(ruta));
    ASSERT_TRUE(AsegurarFormulas(e.sesion, PlanMemoria::Nuevo, e.dialogo));
    EXPECT_EQ(Leer(ruta), Leer(e.ruta(QStringLiteral("Fmemor8np.dat"))));
    EXPECT_FALSE(LeerFormulas(ruta).isEmpty());
    // The company's own copy is kept as it is.
    EscribirFormulas(ruta, {});
    ASSERT_TRUE(AsegurarFormulas(e.sesion, PlanMemoria::Nuevo, e.dialogo));
    EXPECT_TRUE(LeerFormulas(ruta).isEmpty());
    QFile::remove(e.ruta(QStringLiteral("Fmemor.dat")));
    e.sesion.AnoActual = 2007;
    EXPECT_FALSE(AsegurarFormulas(e.sesion, PlanMemoria::Antiguo, e.dialogo));
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinFormulas);
}

TEST(Memoria, BalanceKindsAndTheResultBeforeAndAfterClosing) {
    Entorno e;
    Movimientos(e);
    for (bool cerrado : {false, true}) {
        if (cerrado) {
            CerrarEjercicio(e.sesion, Traspaso{});
            CargarEjercicio(e.sesion);
            ASSERT_TRUE(e.sesion.EjCerrado);
        }
        CalculoMemoria m(e.sesion, PlanMemoria::Nuevo);
        // Cash: 1000 on the first day, 1300 at the end; by nature, debit minus credit.
        EXPECT_EQ(m.SaldoF(QStringLiteral("570"), ClaseSaldo::Ini), 1000) << cerrado;
        EXPECT_EQ(m.SaldoF(QStringLiteral("570"), ClaseSaldo::N), 1300) << cerrado;
        EXPECT_EQ(m.SaldoF(QStringLiteral("570"), ClaseSaldo::Ano), 1300) << cerrado;
        // Area 0 is of credit nature: capital and accumulated depreciation come out positive.
        EXPECT_EQ(m.SaldoF(QStringLiteral("100"), ClaseSaldo::N), 3000);
        EXPECT_EQ(m.SaldoF(QStringLiteral("281"), ClaseSaldo::N), 250);
        EXPECT_EQ(m.SaldoF(QStringLiteral("281"), ClaseSaldo::Ini), 0);
        EXPECT_EQ(m.SaldoF(QStringLiteral("700"), ClaseSaldo::N), 500);
        // 129 is the year's result with kind N only: 500 - 200 - 250.
        EXPECT_EQ(m.SaldoF(QStringLiteral("129"), ClaseSaldo::N), 50);
        EXPECT_EQ(m.SaldoF(QStringLiteral("129"), ClaseSaldo::Ini), 0);
        EXPECT_EQ(m.SaldoF(QStringLiteral("129"), ClaseSaldo::Ano), 0);
        // No previous exercise: nothing, not zero.
        EXPECT_FALSE(m.SaldoF(QStringLiteral("570"), ClaseSaldo::N, true).has_value());
    }
}

TEST(Memoria, FormulasNestUpToTheThirdLevelAndFailToAnEmptyValue) {
    Entorno e;
    Movimientos(e);
    EscribirFormulas(
        RutaFormulas(e.sesion, PlanMemoria::Nuevo),
        {
            Importe(QStringLiteral("F001"), PeriodoAnoN, QStringLiteral("<S570>-<S100>")),
            Importe(QStringLiteral("F002"), PeriodoAnoN, QStringLiteral("(<F001>+1)*2")),
            Importe(QStringLiteral("F003"), PeriodoAnoN, QStringLiteral("<F003>+1")),
            Importe(QStringLiteral("F004"), PeriodoAnoN, QStringLiteral("<S570>/(<S281>-250)")),
            Importe(QStringLiteral("F005"), PeriodoAnoN, QStringLiteral("<S570>+")),
            {QStringLiteral("F006"), TipoTexto, PeriodoNinguno, QStringLiteral("Año <F001>")},
            Importe(QStringLiteral("F007"), PeriodoInicial, QStringLiteral("<s570>+<F008>")),
            Importe(QStringLiteral("F008"), PeriodoAnoN, QStringLiteral("<S570>")),
            Importe(QStringLiteral("F009"), PeriodoAnoN1, QStringLiteral("<S570>")),
            Importe(QStringLiteral("F010"), PeriodoAnoN, QStringLiteral("<S570>*3/7")),
            Importe(QStringLiteral("F011"), PeriodoAnoN, QStringLiteral("<F012>")),
            Importe(QStringLiteral("F012"), PeriodoAnoN, QStringLiteral("<F013>")),
            Importe(QStringLiteral("F013"), PeriodoAnoN, QStringLiteral("<F015>")),
            Importe(QStringLiteral("F015"), PeriodoAnoN, QStringLiteral("7")),
            Importe(QStringLiteral("F014"), PeriodoAno, QStringLiteral("<S129>+<S700>")),
        });
    CalculoMemoria m(e.sesion, PlanMemoria::Nuevo);
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F001"))), QStringLiteral("-1.700,00"));
    // A negative inner value keeps its sign inside the outer expression.
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("f002"))), QStringLiteral("-3.398,00"));
    // Calling itself: the third level leaves its formula token unreplaced, which makes that
    // level empty; the second level is then 1, the first 2.
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F003"))), QStringLiteral("2,00"));
    // Three levels deep is still replaced; a fourth would not be.
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F012"))), QStringLiteral("7,00"));
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F011"))), QString());
    // A division by zero, an incomplete expression: empty.
    EXPECT_EQ(m.Valor(QStringLiteral("F004")), QString());
    EXPECT_EQ(m.Valor(QStringLiteral("F005")), QString());
    // A text is returned as it stands, tokens and all.
    EXPECT_EQ(m.Valor(QStringLiteral("F006")), QStringLiteral("Año <F001>"));
    // Each level takes its own period: the first day's cash plus the year-end one.
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F007"))), QStringLiteral("2.300,00"));
    // The previous year is asked for and there is none.
    EXPECT_EQ(m.Valor(QStringLiteral("F009")), QString());
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F010"))), QStringLiteral("557,14"));
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F014"))), QStringLiteral("500,00"));
    // Unknown or malformed names give nothing.
    for (const char* n : {"F099", "X001", "F01", "Fabc", ""})
        EXPECT_EQ(m.Valor(QString::fromLatin1(n)), QString()) << n;

    // Amounts end on one column in Arial 10: the padding makes widths equal within a blank.
    const double blanco = AnchoTextoImpresion(QStringLiteral(" "), QStringLiteral("Arial"), 10);
    const double corto =
        AnchoTextoImpresion(m.Valor(QStringLiteral("F013")), QStringLiteral("Arial"), 10);
    const double largo =
        AnchoTextoImpresion(m.Valor(QStringLiteral("F001")), QStringLiteral("Arial"), 10);
    EXPECT_TRUE(m.Valor(QStringLiteral("F013")).startsWith(QStringLiteral("      ")));
    EXPECT_LT(std::abs(corto - largo), blanco);
    EXPECT_EQ(RellenarValor(QString(25, u'9')), QString(25, u'9'));
}

TEST(Memoria, DocumentScanKeepsEverythingButTheTokens) {
    Entorno e;
    Movimientos(e);
    EscribirFormulas(
        RutaFormulas(e.sesion, PlanMemoria::Nuevo),
        {Importe(QStringLiteral("F001"), PeriodoAnoN, QStringLiteral("<S100>")),
         {QStringLiteral("F002"), TipoTexto, PeriodoNinguno, QStringLiteral("Año {1} \\ €")}});
    CalculoMemoria m(e.sesion, PlanMemoria::Nuevo);
    const QByteArray r = m.Elaborar("{\\rtf1 \\'f1<F001>|<F002>|<F777>|<ab>c|<X>|<zzzz>|<F0");
    EXPECT_EQ(r, QByteArray("{\\rtf1 \\'f1") + m.Valor(QStringLiteral("F001")).toLatin1() +
                     "|A\\'f1o \\{1\\} \\\\ \\'80||<ab>c|<X>||<F0");
    EXPECT_EQ(m.Elaborar("<F001"), QByteArray("<F001"));
    EXPECT_EQ(m.Elaborar("x<"), QByteArray("x<"));
}

TEST(Memoria, ThePreviousYearComesFromItsOwnFile) {
    Entorno e;
    Movimientos(e);
    CrearEjercicio(e.sesion, e.dialogo, 2025);
    e.sesion.AnoActual = 2024;
    CargarEjercicio(e.sesion);
    CerrarEjercicio(e.sesion, Traspaso{2025, 1});
    e.sesion.AnoActual = 2025;
    CargarEjercicio(e.sesion);
    e.asiento(QDate(2025, 5, 5), {Debe(Caja, 80), Haber(Ventas, 80)});
    EscribirFormulas(RutaFormulas(e.sesion, PlanMemoria::Nuevo),
                     {Importe(QStringLiteral("F001"), PeriodoAnoN1, QStringLiteral("<S129>")),
                      Importe(QStringLiteral("F002"), PeriodoAnoN, QStringLiteral("<S129>")),
                      Importe(QStringLiteral("F003"), PeriodoAnoN1, QStringLiteral("<S570>")),
                      Importe(QStringLiteral("F004"), PeriodoInicial, QStringLiteral("<S570>"))});
    CalculoMemoria m(e.sesion, PlanMemoria::Nuevo);
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F001"))), QStringLiteral("50,00"));
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F002"))), QStringLiteral("80,00"));
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F003"))), QStringLiteral("1.300,00"));
    // The opening entry of the new year carries the cash in.
    EXPECT_EQ(Cifra(m.Valor(QStringLiteral("F004"))), QStringLiteral("1.300,00"));
}

TEST(Memoria, AnOldChartExerciseOf2008UsesTheOldFormulasAndModel) {
    Entorno e;
    e.crearEmpresa(QStringLiteral("001"), 2008);
    e.asiento(QDate(2008, 1, 1), {Debe(Caja, 1000), Haber(Capital, 1000)});
    ASSERT_EQ(PlanMemoriaDe(e.sesion), PlanMemoria::Nuevo);
    // A chart never adapted to 2007 lacks the group the adaptation leaves behind.
    {
        Conexion c = e.datos();
        c.ejecutar(QStringLiteral("DELETE FROM Grupos WHERE NGrupo = ?"), {QStringLiteral("5219")});
    }
    ASSERT_EQ(PlanMemoriaDe(e.sesion), PlanMemoria::Antiguo);
    EXPECT_TRUE(
        RutaFormulas(e.sesion, PlanMemoria::Antiguo).endsWith(QStringLiteral("/Fmemor8.dat")));
    EscribirFormulas(RutaFormulas(e.sesion, PlanMemoria::Antiguo),
                     {Importe(QStringLiteral("F001"), PeriodoAnoN, QStringLiteral("<S100>"))});
    EscribirFormulas(RutaFormulas(e.sesion, PlanMemoria::Nuevo),
                     {Importe(QStringLiteral("F001"), PeriodoAnoN, QStringLiteral("<S570>*2"))});
    e.dialogo.responder({true});
    const auto modelo = NuevaMemoria(e.sesion, e.dialogo, {});
    ASSERT_TRUE(modelo);
    EXPECT_EQ(Leer(*modelo), Leer(e.ruta(QStringLiteral("Memabrev.rtf"))));
    QFile f(*modelo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("{\\rtf1 Capital:<F001>}");
    f.close();
    const auto memoria = GenerarMemoria(e.sesion, e.dialogo, false);
    ASSERT_TRUE(memoria);
    EXPECT_EQ(QString::fromLatin1(Leer(*memoria)).simplified(),
              QStringLiteral("{\\rtf1 Capital: 1.000,00}"));
}

TEST(Memoria, NewModelQuestionsAndNotesThatLeaveTheBooksAlone) {
    Entorno e;
    Movimientos(e);
    // No model yet.
    EXPECT_FALSE(ModeloParaEditar(e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinModelo);
    EXPECT_FALSE(GenerarMemoria(e.sesion, e.dialogo, false));
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinModeloActual);

    e.dialogo.responder({true});
    const auto modelo = NuevaMemoria(e.sesion, e.dialogo, {});
    ASSERT_TRUE(modelo);
    EXPECT_EQ(*modelo, e.sesion.carpetaEmpresa() + QStringLiteral("/Memabrev2024.rtf"));
    EXPECT_EQ(Leer(*modelo), Leer(e.ruta(QStringLiteral("MemabrevNP.rtf"))));

    // An existing model goes only after two Yes; the user's own must be RTF.
    const QString propio = e.ruta(QStringLiteral("propio.rtf"));
    QFile p(propio);
    ASSERT_TRUE(p.open(QIODevice::WriteOnly));
    p.write("{\\rtf1 Capital <F001>, resultado <F004>.}");
    p.close();
    auto elegir = [&](const QString& titulo) {
        EXPECT_EQ(titulo, TituloElegirModeloNuevo);
        return propio;
    };
    e.dialogo.responder({true, false});
    EXPECT_FALSE(NuevaMemoria(e.sesion, e.dialogo, elegir));
    EXPECT_EQ(Leer(*modelo), Leer(e.ruta(QStringLiteral("MemabrevNP.rtf"))));
    e.dialogo.responder({true, true, false});
    ASSERT_TRUE(NuevaMemoria(e.sesion, e.dialogo, elegir));
    EXPECT_EQ(e.dialogo.preguntas.mid(e.dialogo.preguntas.size() - 3),
              (QStringList{PreguntaEliminarMemoria, PreguntaConfirmarEliminarMemoria,
                           PreguntaModeloPredeterminado}));
    EXPECT_EQ(Leer(*modelo), Leer(propio));
    const QString texto = e.ruta(QStringLiteral("texto.txt"));
    QFile t(texto);
    ASSERT_TRUE(t.open(QIODevice::WriteOnly));
    t.write("no soy rtf");
    t.close();
    e.dialogo.responder({true, true, false});
    EXPECT_FALSE(NuevaMemoria(e.sesion, e.dialogo, [&](const QString&) { return texto; }));
    EXPECT_EQ(e.dialogo.informados.last(), MsgModeloNoRtf(texto));

    // The notes, from the shipped formulas, on an open and then a closed exercise.
    for (bool cerrado : {false, true}) {
        if (cerrado) {
            CerrarEjercicio(e.sesion, Traspaso{});
            CargarEjercicio(e.sesion);
        }
        const QString antes = Libros(e);
        e.dialogo.responder({false});
        EXPECT_FALSE(GenerarMemoria(e.sesion, e.dialogo));
        EXPECT_EQ(e.dialogo.preguntas.last(), PreguntaProcesoLargo);
        e.dialogo.responder({true});
        const auto memoria = GenerarMemoria(e.sesion, e.dialogo);
        ASSERT_TRUE(memoria);
        EXPECT_EQ(QString::fromLatin1(Leer(*memoria)).simplified(),
                  QStringLiteral("{\\rtf1 Capital 3.000,00, resultado 50,00.}"));
        EXPECT_EQ(Libros(e), antes) << cerrado;
    }
}

TEST(Memoria, TheEditorOfTheSettingsOrTheDesktops) {
    Entorno e;
    QString abierto, editor;
    auto abrir = [&](const QString& r) {
        abierto = r;
        return false;
    };
    auto arrancar = [&](const QString& ed, const QString& r) {
        editor = ed;
        abierto = r;
        return true;
    };
    EXPECT_FALSE(AbrirEnEditor(QStringLiteral("/x/Memoria2024.rtf"), *e.ajustes, e.dialogo, abrir,
                               arrancar));
    EXPECT_EQ(abierto, QStringLiteral("/x/Memoria2024.rtf"));
    EXPECT_EQ(e.dialogo.informados.last(), MsgSinEditor);
    e.ajustes->escribir(QStringLiteral("Datos"), QStringLiteral("Editor"),
                        QStringLiteral("/usr/bin/abiword"));
    EXPECT_TRUE(AbrirEnEditor(QStringLiteral("/x/Memoria2024.rtf"), *e.ajustes, e.dialogo, abrir,
                              arrancar));
    EXPECT_EQ(editor, QStringLiteral("/usr/bin/abiword"));
}

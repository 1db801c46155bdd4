// The formula evaluator: the arithmetic of a VBScript Eval, with clear errors and no crash on any
// input.

#include "platform/Evaluar.h"
#include "ImprimirQt.h"

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <random>

namespace {

double valor(const char* texto) {
    const ResultadoEvaluar r = Evaluar(QString::fromUtf8(texto));
    EXPECT_TRUE(r.ok()) << texto << ": " << r.mensaje.toStdString();
    return r.valor.value_or(std::nan(""));
}

ErrorEvaluar error(const char* texto) {
    const ResultadoEvaluar r = Evaluar(QString::fromUtf8(texto));
    EXPECT_FALSE(r.ok()) << texto << " gave " << r.valor.value_or(0);
    if (!r.ok()) {
        EXPECT_FALSE(r.mensaje.isEmpty()) << texto;
        EXPECT_GE(r.posicion, 0) << texto;
    }
    return r.error;
}

} // namespace

TEST(Evaluar, PrecedenciaYAsociatividad) {
    struct Caso {
        const char* texto;
        double esperado;
    };
    const Caso casos[] = {
        {"1+2*3", 7},       {"(1+2)*3", 9},     {"10-4-3", 3},    {"100/10/5", 2},
        {"2*3^2", 18},      {"2^3^2", 64},      {"-2^2", 4},      {"3-2^2", -1},
        {"2^-2", 0.25},     {"-2^-3", -0.125},  {"2*-3", -6},     {"1--1", 2},
        {"--2", 2},         {"+-+2", -2},       {"7\\2*2", 1},    {"7 Mod 3*2", 1},
        {"9 Mod 6\\2", 0},  {"20\\3 Mod 4", 2}, {"1+7 Mod 4", 4}, {"8 Mod 5 Mod 2", 1},
        {"20\\3\\2", 3},    {"2+3 mod 2", 3},   {"2+3 MOD 2", 3}, {"5Mod 3", 2},
        {"((2))", 2},       {" 1 +\t2 ", 3},    {"(1+2)^2", 9},   {"-(2+3)*2", -10},
        {"2^0,5*2^0,5", 2},
    };
    for (const auto& c : casos)
        EXPECT_DOUBLE_EQ(valor(c.texto), c.esperado) << c.texto;
}

TEST(Evaluar, NumerosConPuntoOComa) {
    EXPECT_DOUBLE_EQ(valor("1,5+1,5"), 3);
    EXPECT_DOUBLE_EQ(valor("1.5+1,25"), 2.75);
    EXPECT_DOUBLE_EQ(valor(",5"), 0.5);
    EXPECT_DOUBLE_EQ(valor("5."), 5);
    EXPECT_DOUBLE_EQ(valor("1,5E2"), 150);
    EXPECT_DOUBLE_EQ(valor("2e-2"), 0.02);
    EXPECT_DOUBLE_EQ(valor("1210,50*21/100"), 254.205);
    // What a predesigned entry builds: a balancing amount from its earlier lines.
    EXPECT_DOUBLE_EQ(valor("+1000.00-121.00-879"), 0);
}

TEST(Evaluar, DivisionEnteraYModRedondeanAlPar) {
    // Operands are rounded half to even before dividing, as the script engine does.
    EXPECT_DOUBLE_EQ(valor("7.5\\2"), 4); // 8 \ 2
    EXPECT_DOUBLE_EQ(valor("6.5\\2"), 3); // 6 \ 2
    EXPECT_DOUBLE_EQ(valor("7\\2.5"), 3); // 7 \ 2
    EXPECT_DOUBLE_EQ(valor("7\\3.5"), 1); // 7 \ 4
    EXPECT_DOUBLE_EQ(valor("-7\\2"), -3); // toward zero
    EXPECT_DOUBLE_EQ(valor("-2.5\\1"), -2);
    EXPECT_DOUBLE_EQ(valor("10/4\\1"), 2); // (10/4) = 2.5 -> 2
    EXPECT_DOUBLE_EQ(valor("-7 Mod 2"), -1);
    EXPECT_DOUBLE_EQ(valor("7 Mod -2"), 1);
    EXPECT_DOUBLE_EQ(valor("5.5 Mod 2"), 0); // 6 Mod 2
    EXPECT_DOUBLE_EQ(valor("2.5 Mod 3"), 2);
    EXPECT_DOUBLE_EQ(valor("2147483647\\1"), 2147483647);
    EXPECT_DOUBLE_EQ(valor("-2147483648 Mod 7"), -2);
}

TEST(Evaluar, ErroresClaros) {
    EXPECT_EQ(error(""), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("   "), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1+"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1 +* 2"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("2 3"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1,2,3"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1.234,56"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("Mod 2"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("2 Mod"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("2)"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("()"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1 = 1"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1€"), ErrorEvaluar::Sintaxis);
    EXPECT_EQ(error("1/0"), ErrorEvaluar::DivisionPorCero);
    EXPECT_EQ(error("0/0"), ErrorEvaluar::DivisionPorCero);
    EXPECT_EQ(error("1\\0.4"), ErrorEvaluar::DivisionPorCero); // 0.4 rounds to 0
    EXPECT_EQ(error("5 Mod 0"), ErrorEvaluar::DivisionPorCero);
    EXPECT_EQ(error("0^-1"), ErrorEvaluar::DivisionPorCero);
    EXPECT_EQ(error("1e308*10"), ErrorEvaluar::Desbordamiento);
    EXPECT_EQ(error("1e999"), ErrorEvaluar::Desbordamiento);
    EXPECT_EQ(error("10^400"), ErrorEvaluar::Desbordamiento);
    EXPECT_EQ(error("3000000000\\2"), ErrorEvaluar::Desbordamiento);
    EXPECT_EQ(error("-2147483648\\-1"), ErrorEvaluar::Desbordamiento);
    EXPECT_EQ(error("(-8)^(1/3)"), ErrorEvaluar::ArgumentoNoValido);
    EXPECT_EQ(error("-8^0.5"), ErrorEvaluar::ArgumentoNoValido);
    EXPECT_EQ(error("C13*2"), ErrorEvaluar::NombreDesconocido);
    EXPECT_EQ(error("2E"), ErrorEvaluar::Sintaxis); // no digits after E: not an exponent
    EXPECT_EQ(error("2 abc"), ErrorEvaluar::Sintaxis);

    const ResultadoEvaluar nombre = Evaluar(QStringLiteral("100 + C13"));
    EXPECT_EQ(nombre.mensaje, QStringLiteral("Variable no definida: 'C13'"));
    EXPECT_EQ(nombre.posicion, 6);
    EXPECT_EQ(Evaluar(QStringLiteral("(1+2")).mensaje, QStringLiteral("Se esperaba ')'"));
    EXPECT_EQ(Evaluar(QStringLiteral("4/(2-2)")).mensaje, QStringLiteral("División por cero"));
}

TEST(Evaluar, AnidamientoProfundoNiCuelgaNiRevienta) {
    const QString bien = QString(200, u'(') + u'1' + QString(200, u')');
    EXPECT_DOUBLE_EQ(*Evaluar(bien).valor, 1);
    const QString hondo = QString(100000, u'(') + u'1' + QString(100000, u')');
    EXPECT_EQ(Evaluar(hondo).error, ErrorEvaluar::DemasiadoComplejo);
    // Long runs of signs and long sums take no stack and little time.
    EXPECT_DOUBLE_EQ(*Evaluar(QString(100000, u'-') + u'1').valor, 1);
    QString larga = QStringLiteral("0");
    for (int i = 0; i < 100000; ++i)
        larga += QStringLiteral("+1");
    EXPECT_DOUBLE_EQ(*Evaluar(larga).valor, 100000);
}

namespace {

// Random expressions as trees, valued independently of the parser, then printed either with
// every parenthesis or with only those the precedence needs. The parser must agree with the tree.
struct Nodo {
    enum Tipo { Num, Neg, Suma, Resta, Por, Entre, DivEnt, Mod, Pot } tipo = Num;
    double num = 0;
    QString literal;
    std::unique_ptr<Nodo> a, b;
};

int nivel(Nodo::Tipo t) {
    switch (t) {
    case Nodo::Suma:
    case Nodo::Resta:
        return 1;
    case Nodo::Mod:
        return 2;
    case Nodo::DivEnt:
        return 3;
    case Nodo::Por:
    case Nodo::Entre:
        return 4;
    case Nodo::Pot:
        return 5;
    case Nodo::Neg:
        return 6;
    case Nodo::Num:
        return 7;
    }
    return 0;
}

QString operador(Nodo::Tipo t) {
    switch (t) {
    case Nodo::Suma:
        return QStringLiteral("+");
    case Nodo::Resta:
        return QStringLiteral("-");
    case Nodo::Por:
        return QStringLiteral("*");
    case Nodo::Entre:
        return QStringLiteral("/");
    case Nodo::DivEnt:
        return QStringLiteral("\\");
    case Nodo::Mod:
        return QStringLiteral(" Mod ");
    case Nodo::Pot:
        return QStringLiteral("^");
    default:
        return {};
    }
}

std::unique_ptr<Nodo> generar(std::mt19937& g, int profundidad) {
    auto n = std::make_unique<Nodo>();
    std::uniform_int_distribution<int> tipo(0, 9);
    const int t = profundidad <= 0 ? 0 : tipo(g);
    if (t <= 1) {
        const int centimos = std::uniform_int_distribution<int>(0, 100000)(g);
        n->num = centimos / 100.0;
        const QChar marca = (g() & 1) ? u',' : u'.';
        n->literal = QString::number(centimos / 100) + marca +
                     QStringLiteral("%1").arg(centimos % 100, 2, 10, QLatin1Char('0'));
        // Small whole numbers too, so that powers and Mod stay interesting.
        if (g() % 3 == 0) {
            n->num = double(centimos % 7);
            n->literal = QString::number(centimos % 7);
        }
        return n;
    }
    static const Nodo::Tipo binarios[] = {Nodo::Suma,   Nodo::Resta, Nodo::Por, Nodo::Entre,
                                          Nodo::DivEnt, Nodo::Mod,   Nodo::Pot};
    if (t == 2) {
        n->tipo = Nodo::Neg;
        n->a = generar(g, profundidad - 1);
        return n;
    }
    n->tipo = binarios[g() % 7];
    n->a = generar(g, profundidad - 1);
    n->b = generar(g, n->tipo == Nodo::Pot ? 0 : profundidad - 1);
    return n;
}

QString completo(const Nodo& n) {
    if (n.tipo == Nodo::Num)
        return n.literal;
    if (n.tipo == Nodo::Neg)
        return QStringLiteral("(-") + completo(*n.a) + u')';
    return u'(' + completo(*n.a) + operador(n.tipo) + completo(*n.b) + u')';
}

QString minimo(const Nodo& n) {
    if (n.tipo == Nodo::Num)
        return n.literal;
    const int p = nivel(n.tipo);
    if (n.tipo == Nodo::Neg) {
        const QString x = minimo(*n.a);
        return u'-' + (nivel(n.a->tipo) < p ? u'(' + x + u')' : x);
    }
    QString a = minimo(*n.a), b = minimo(*n.b);
    if (nivel(n.a->tipo) < p)
        a = u'(' + a + u')';
    // A sign right after an operator binds tightest, so a negated right operand needs no bracket.
    if (nivel(n.b->tipo) <= p && n.b->tipo != Nodo::Neg)
        b = u'(' + b + u')';
    return a + operador(n.tipo) + b;
}

std::optional<double> valorar(const Nodo& n, ErrorEvaluar& e) {
    auto entero = [&](double x) -> std::optional<long long> {
        const double r = std::nearbyint(x); // the default rounding mode is half to even
        if (r < -2147483648.0 || r > 2147483647.0) {
            e = ErrorEvaluar::Desbordamiento;
            return std::nullopt;
        }
        return static_cast<long long>(r);
    };
    if (n.tipo == Nodo::Num)
        return n.num;
    const auto x = valorar(*n.a, e);
    if (!x)
        return std::nullopt;
    if (n.tipo == Nodo::Neg)
        return -*x;
    const auto y = valorar(*n.b, e);
    if (!y)
        return std::nullopt;
    double r = 0;
    switch (n.tipo) {
    case Nodo::Suma:
        r = *x + *y;
        break;
    case Nodo::Resta:
        r = *x - *y;
        break;
    case Nodo::Por:
        r = *x * *y;
        break;
    case Nodo::Entre:
        if (*y == 0) {
            e = ErrorEvaluar::DivisionPorCero;
            return std::nullopt;
        }
        r = *x / *y;
        break;
    case Nodo::DivEnt:
    case Nodo::Mod: {
        const auto i = entero(*x);
        if (!i)
            return std::nullopt;
        const auto j = entero(*y);
        if (!j)
            return std::nullopt;
        if (*j == 0) {
            e = ErrorEvaluar::DivisionPorCero;
            return std::nullopt;
        }
        r = n.tipo == Nodo::Mod ? double(*i % *j) : double(*i / *j);
        if (r > 2147483647.0) {
            e = ErrorEvaluar::Desbordamiento;
            return std::nullopt;
        }
        break;
    }
    case Nodo::Pot:
        if (*x < 0 && *y != std::trunc(*y)) {
            e = ErrorEvaluar::ArgumentoNoValido;
            return std::nullopt;
        }
        if (*x == 0 && *y < 0) {
            e = ErrorEvaluar::DivisionPorCero;
            return std::nullopt;
        }
        r = std::pow(*x, *y);
        break;
    default:
        break;
    }
    if (!std::isfinite(r)) {
        e = ErrorEvaluar::Desbordamiento;
        return std::nullopt;
    }
    return r;
}

} // namespace

TEST(Evaluar, ArbolesAlAzarCoincidenConElAnalizador) {
    std::mt19937 g(20240611);
    int correctos = 0, errores = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto arbol = generar(g, 1 + int(g() % 5));
        ErrorEvaluar esperado = ErrorEvaluar::Ninguno;
        const auto v = valorar(*arbol, esperado);
        for (const QString& texto : {completo(*arbol), minimo(*arbol)}) {
            const ResultadoEvaluar r = Evaluar(texto);
            if (v) {
                ASSERT_TRUE(r.ok()) << texto.toStdString() << ": " << r.mensaje.toStdString();
                ASSERT_EQ(*r.valor, *v) << texto.toStdString();
            } else {
                ASSERT_FALSE(r.ok()) << texto.toStdString();
                ASSERT_EQ(r.error, esperado) << texto.toStdString();
            }
        }
        (v ? correctos : errores)++;
    }
    // Both paths must have been exercised for the comparison to mean anything.
    EXPECT_GT(correctos, 10000);
    EXPECT_GT(errores, 100);
}

TEST(Evaluar, CadenasAlAzarSinFalloNiCuelgue) {
    const QString alfabeto = QStringLiteral("0123456789.,+-*/\\^()  MmOoDdEeCx\t€");
    std::mt19937 g(7);
    int validas = 0;
    for (int i = 0; i < 300000; ++i) {
        const int largo = int(g() % 40);
        QString s;
        for (int k = 0; k < largo; ++k)
            s += alfabeto[int(g() % alfabeto.size())];
        const ResultadoEvaluar r = Evaluar(s);
        if (r.ok()) {
            ++validas;
            ASSERT_TRUE(std::isfinite(*r.valor)) << s.toStdString();
            ASSERT_TRUE(r.mensaje.isEmpty());
        } else {
            ASSERT_FALSE(r.mensaje.isEmpty()) << s.toStdString();
            ASSERT_GE(r.posicion, 0);
            ASSERT_LE(r.posicion, s.size());
        }
    }
    EXPECT_GT(validas, 1000);
}

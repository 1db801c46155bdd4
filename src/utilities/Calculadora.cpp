#include "utilities/Calculadora.h"

#include "platform/Ajustes.h"
#include "platform/Rejilla.h"
#include "reports/TablaImpresa.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "utilities/Financiero.h"

#include <algorithm>
#include <cmath>

namespace {

// Fixed decimals with "." grouping thousands and "," marking decimals.
QString fijo(double v, int decimales) {
    QString t = QString::number(std::fabs(v), 'f', decimales);
    QString entero = t.section(QLatin1Char('.'), 0, 0);
    const QString dec = t.section(QLatin1Char('.'), 1);
    for (int p = int(entero.size()) - 3; p > 0; p -= 3)
        entero.insert(p, QLatin1Char('.'));
    QString r = dec.isEmpty() ? entero : entero + QLatin1Char(',') + dec;
    bool cero = true;
    for (const QChar c : r)
        if (c.isDigit() && c != QLatin1Char('0'))
            cero = false;
    return (v < 0 && !cero) ? QLatin1Char('-') + r : r;
}

// "#,##0.00E+00" and "#,##0E+00".
QString cientifico(double v, int decimales) {
    int e = int(std::floor(std::log10(std::fabs(v))));
    double m = v / std::pow(10.0, e);
    if (std::fabs(std::round(std::fabs(m) * std::pow(10.0, decimales)) /
                  std::pow(10.0, decimales)) >= 10) {
        ++e;
        m /= 10;
    }
    return fijo(m, decimales) + (e < 0 ? QStringLiteral("E-") : QStringLiteral("E+")) +
           QStringLiteral("%1").arg(std::abs(e), 2, 10, QLatin1Char('0'));
}

// A rate shown with two to six decimals.
QString tasa(double v) {
    QString t = fijo(v, 6);
    while (t.endsWith(QLatin1Char('0')) && t.indexOf(QLatin1Char(',')) < t.size() - 3)
        t.chop(1);
    return t + QLatin1Char('%');
}

} // namespace

QString Calculadora::FormatoPantalla(double v, int decimales) const {
    if (!std::isfinite(v))
        return QStringLiteral("Error");
    if (std::fabs(v) >= 1e15)
        return cientifico(v, pesetas ? 0 : 2);
    if (decimales > 0)
        return fijo(v, qMin(decimales, 9));
    return fijo(v, pesetas ? 0 : 2);
}

QString Calculadora::ParaCampo() const {
    if (error_ || !std::isfinite(valor_) || !ImporteAdmitido(Centimos(valor_)))
        return {};
    return Formato(Centimos(valor_), QStringLiteral("standard"));
}

void Calculadora::LeerModo(const Ajustes& a) {
    pesetas = a.leer(QStringLiteral("Valores"), QStringLiteral("Formato"),
                     QStringLiteral("Euros")) == QLatin1String("Ptas");
    mostrar(valor_);
}

void Calculadora::GuardarModo(Ajustes& a) const {
    a.escribir(QStringLiteral("Valores"), QStringLiteral("Formato"),
               pesetas ? QStringLiteral("Ptas") : QStringLiteral("Euros"));
}

void Calculadora::mostrar(double v, int decimales) {
    if (!std::isfinite(v)) {
        fallo();
        return;
    }
    valor_ = v;
    error_ = false;
    pantalla_ = FormatoPantalla(v, decimales);
}

void Calculadora::mostrarTexto(double v, const QString& texto) {
    if (!std::isfinite(v)) {
        fallo();
        return;
    }
    valor_ = v;
    error_ = false;
    pantalla_ = texto;
}

void Calculadora::fallo() {
    error_ = true;
    tecleando_ = false;
    entrada_.clear();
    pendiente_ = 0;
    pantalla_ = QStringLiteral("Error");
}

void Calculadora::cerrarEntrada() {
    tecleando_ = false;
    entrada_.clear();
}

void Calculadora::Teclear(const QString& teclas) {
    for (const QChar c : teclas) {
        if (!tecleando_) {
            entrada_.clear();
            tecleando_ = true;
            error_ = false;
        }
        if (c.isDigit()) {
            if (entrada_.size() >= 20)
                continue;
            if (entrada_ == QLatin1String("0"))
                entrada_.clear();
            entrada_ += c;
        } else if (c == QLatin1Char(',') || c == QLatin1Char('.')) {
            if (entrada_.contains(QLatin1Char(',')))
                continue;
            if (entrada_.isEmpty())
                entrada_ = QStringLiteral("0");
            entrada_ += QLatin1Char(',');
        } else {
            continue;
        }
        QString numero = entrada_;
        numero.replace(QLatin1Char(','), QLatin1Char('.'));
        valor_ = numero.toDouble();
        const int coma = int(entrada_.indexOf(QLatin1Char(',')));
        // While typing the display keeps what was typed, grouped, with a trailing mark.
        QString t = fijo(valor_, coma < 0 ? 0 : int(entrada_.size()) - coma - 1);
        if (entrada_.endsWith(QLatin1Char(',')))
            t += QLatin1Char(',');
        pantalla_ = t;
    }
}

bool Calculadora::Pegar(const QString& texto) {
    bool ok = false;
    const double v = ValorImporte(texto.trimmed(), &ok);
    if (!ok || !std::isfinite(v))
        return false;
    cerrarEntrada();
    mostrar(v);
    tecleando_ = false;
    return true;
}

void Calculadora::operar(char op) {
    const double a = operando_, b = valor_;
    double v = b;
    switch (pendiente_) {
    case '+':
        v = a + b;
        break;
    case '-':
        v = a - b;
        break;
    case '*':
        v = a * b;
        break;
    case '/':
        if (b == 0) {
            fallo();
            return;
        }
        v = a / b;
        break;
    default:
        break;
    }
    mostrar(v);
    if (error_)
        return;
    operando_ = v;
    pendiente_ = op;
}

bool Calculadora::registroOResolver(double& registro, TeclaCalc t) {
    if (!hayEntrada())
        return false;
    registro = valor_;
    cerrarEntrada();
    mostrar(valor_, t == TeclaCalc::I ? 6 : -1);
    if (t == TeclaCalc::I)
        pantalla_ = tasa(valor_);
    return true;
}

void Calculadora::periodo(TeclaCalc t) {
    cerrarEntrada();
    const double per = std::round(valor_);
    if (n < 1 || per < 1 || per > n + 1e-9 || std::fabs(per - valor_) > 1e-9) {
        fallo();
        return;
    }
    double suma = 0;
    const double desde = (t == TeclaCalc::IAc || t == TeclaCalc::AAc) ? 1 : per;
    for (double k = desde; k <= per; ++k) {
        // n may come solved as 11.9999999...: the last period is still a period.
        const std::optional<double> v =
            (t == TeclaCalc::IV || t == TeclaCalc::IAc)
                ? InteresPeriodo(r(), k, std::max(n, per), PV, FV, alPrincipio)
                : PrincipalPeriodo(r(), k, std::max(n, per), PV, FV, alPrincipio);
        if (!v) {
            fallo();
            return;
        }
        suma += *v;
    }
    mostrar(suma);
}

void Calculadora::Tecla(TeclaCalc t, bool conCtrl, bool conMayus) {
    switch (t) {
    case TeclaCalc::Sumar:
        cerrarEntrada();
        operar('+');
        return;
    case TeclaCalc::Restar:
        cerrarEntrada();
        operar('-');
        return;
    case TeclaCalc::Multiplicar:
        cerrarEntrada();
        operar('*');
        return;
    case TeclaCalc::Dividir:
        cerrarEntrada();
        operar('/');
        return;
    case TeclaCalc::Igual:
        cerrarEntrada();
        operar(0);
        pendiente_ = 0;
        return;
    case TeclaCalc::CE:
        cerrarEntrada();
        mostrar(0);
        return;
    case TeclaCalc::C:
        cerrarEntrada();
        pendiente_ = 0;
        operando_ = 0;
        if (conCtrl)
            n = i = PV = PMT = FV = 0;
        mostrar(0);
        return;
    case TeclaCalc::Porcentaje:
        cerrarEntrada();
        // A percentage of the operand when an operation waits, else of one.
        mostrar(pendiente_ ? operando_ * valor_ / 100 : valor_ / 100);
        return;
    case TeclaCalc::CambioSigno:
        if (tecleando_ && !entrada_.isEmpty()) {
            // The sign goes into the figure being typed, so that more digits keep it.
            entrada_ = entrada_.startsWith(QLatin1Char('-')) ? entrada_.mid(1)
                                                             : QLatin1Char('-') + entrada_;
            valor_ = -valor_;
            pantalla_ = pantalla_.startsWith(QLatin1Char('-')) ? pantalla_.mid(1)
                                                               : QLatin1Char('-') + pantalla_;
            return;
        }
        mostrar(-valor_);
        return;
    case TeclaCalc::Euro:
        cerrarEntrada();
        mostrarTexto(valor_ / CambioPeseta, fijo(valor_ / CambioPeseta, 2));
        return;
    case TeclaCalc::Pta:
        cerrarEntrada();
        mostrarTexto(valor_ * CambioPeseta, fijo(valor_ * CambioPeseta, 0));
        return;
    case TeclaCalc::EP:
        cerrarEntrada();
        pesetas = !pesetas;
        if (!error_)
            mostrar(valor_);
        return;
    case TeclaCalc::PF:
        alPrincipio = !alPrincipio;
        return;
    case TeclaCalc::Int:
        if (n != 0 && i != 0 && PV != 0) {
            cerrarEntrada();
            mostrar(n * r() * PV / 360);
        }
        return;
    case TeclaCalc::TAE: {
        cerrarEntrada();
        if (n == 0) {
            fallo();
            return;
        }
        if (conMayus) {
            const std::optional<double> v = NominalDeTae(valor_, n);
            v ? mostrarTexto(*v, tasa(*v)) : fallo();
        } else {
            if (i == 0) {
                fallo();
                return;
            }
            const std::optional<double> v = TaeDeNominal(i, n);
            v ? mostrarTexto(*v, fijo(*v, 2) + QLatin1Char('%')) : fallo();
        }
        return;
    }
    case TeclaCalc::IAc:
    case TeclaCalc::AAc:
    case TeclaCalc::IV:
    case TeclaCalc::AV:
        periodo(t);
        return;
    case TeclaCalc::Pmt: {
        if (registroOResolver(PMT, t))
            return;
        const std::optional<double> v = Pago(r(), n, PV, FV, alPrincipio);
        if (!v) {
            fallo();
            return;
        }
        PMT = *v;
        mostrar(*v);
        return;
    }
    case TeclaCalc::VA: {
        if (registroOResolver(PV, t))
            return;
        const std::optional<double> v = ValorActual(r(), n, PMT, FV, alPrincipio);
        if (!v || n == 0) {
            fallo();
            return;
        }
        PV = *v;
        mostrar(*v);
        return;
    }
    case TeclaCalc::VF: {
        if (registroOResolver(FV, t))
            return;
        const std::optional<double> v = ValorFinal(r(), n, PMT, PV, alPrincipio);
        if (!v || n == 0) {
            fallo();
            return;
        }
        FV = *v;
        mostrar(*v);
        return;
    }
    case TeclaCalc::N: {
        if (registroOResolver(n, t))
            return;
        const std::optional<double> v = Periodos(r(), PMT, PV, FV, alPrincipio);
        if (!v) {
            fallo();
            return;
        }
        n = *v;
        // "##0.#0" when the result has decimals, else "#,##0".
        mostrarTexto(*v, std::fabs(*v - std::round(*v)) > 1e-9 ? fijo(*v, 2) : fijo(*v, 0));
        return;
    }
    case TeclaCalc::I: {
        if (registroOResolver(i, t))
            return;
        const std::optional<double> v = Tasa(n, PMT, PV, FV, alPrincipio);
        if (!v) {
            fallo();
            return;
        }
        i = *v * 100;
        mostrarTexto(i, tasa(i));
        return;
    }
    }
}

Calculadora& CalculadoraDelPrograma() {
    static Calculadora k;
    return k;
}

Rejilla CuadroPrestamo(const Calculadora& k) {
    Rejilla g({{QStringLiteral("Vencmtº"), TipoColumna::Entero},
               {QStringLiteral("Total Pago"), TipoColumna::Importe},
               {QStringLiteral("Intereses"), TipoColumna::Importe},
               {QStringLiteral("Amortización"), TipoColumna::Importe}});
    const double n = std::round(k.n);
    if (n < 1 || n > 1200 || std::fabs(n - k.n) > 1e-9 || (k.PV == 0 && k.FV == 0))
        return g;
    const double r = k.i / 100;
    const std::optional<double> pago = Pago(r, n, -k.PV, -k.FV, k.alPrincipio);
    if (!pago)
        return g;
    // Amounts in the mode's format: cents in euros, whole pesetas.
    const QString fmt = k.pesetas ? QStringLiteral("#,##0") : QStringLiteral("#,##0.00");
    double st = 0, si = 0, sa = 0;
    QList<QStringList> filas;
    for (int per = 1; per <= int(n); ++per) {
        const std::optional<double> in = InteresPeriodo(r, per, n, -k.PV, -k.FV, k.alPrincipio);
        const std::optional<double> am = PrincipalPeriodo(r, per, n, -k.PV, -k.FV, k.alPrincipio);
        if (!in || !am)
            return g;
        st += *pago;
        si += *in;
        sa += *am;
        filas << QStringList{QString::number(per), Formato(*pago, fmt), Formato(*in, fmt),
                             Formato(*am, fmt)};
    }
    for (const QStringList& f : filas)
        g.AgregarFila(f);
    const int t = g.AgregarFila(QStringList{QStringLiteral("Totales"), Formato(st, fmt),
                                            Formato(si, fmt), Formato(sa, fmt)});
    g.PonerNegritaFila(t);
    return g;
}

DisenoTabla DisenoCuadro(const Calculadora& k) {
    DisenoTabla d;
    const QString fmt = k.pesetas ? QStringLiteral("#,##0") : QStringLiteral("#,##0.00");
    QString i = fijo(k.i, 5);
    while (i.endsWith(QLatin1Char('0')) && i.indexOf(QLatin1Char(',')) < i.size() - 3)
        i.chop(1);
    d.cabecera = {QStringLiteral("Cuadro de Amortización"),
                  QStringLiteral("n = %1    i = %2    PV = %3    FV = %4")
                      .arg(fijo(k.n, 0), i, Formato(k.PV, fmt), Formato(k.FV, fmt))};
    d.columnas = {
        {0, 1500, true, {}}, {1, 4500, true, {}}, {2, 7000, true, {}}, {3, 9500, true, {}}};
    return d;
}

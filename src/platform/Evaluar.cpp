#include "platform/Evaluar.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr int ProfundidadMaxima = 256;

// A failure carried up the recursive descent; the first one found wins.
struct Fallo {
    ErrorEvaluar error;
    QString mensaje;
    int posicion;
};

class Analizador {
public:
    explicit Analizador(const QString& texto) : t_(texto) {}

    ResultadoEvaluar evaluar() {
        ResultadoEvaluar r;
        double v = 0;
        if (suma(v)) {
            saltarBlancos();
            if (pos_ < t_.size())
                fallar(ErrorEvaluar::Sintaxis, QStringLiteral("Error de sintaxis"));
        }
        if (fallo_) {
            r.error = fallo_->error;
            r.mensaje = fallo_->mensaje;
            r.posicion = fallo_->posicion;
        } else {
            r.valor = v;
        }
        return r;
    }

private:
    const QString& t_;
    qsizetype pos_ = 0;
    int profundidad_ = 0;
    std::optional<Fallo> fallo_;

    bool fallar(ErrorEvaluar e, const QString& mensaje) {
        if (!fallo_)
            fallo_ = Fallo{e, mensaje, int(pos_)};
        return false;
    }

    void saltarBlancos() {
        while (pos_ < t_.size() && (t_[pos_] == u' ' || t_[pos_] == u'\t'))
            ++pos_;
    }

    QChar actual() {
        saltarBlancos();
        return pos_ < t_.size() ? t_[pos_] : QChar();
    }

    static bool esLetra(QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
    }
    static bool esDigito(QChar c) { return c >= u'0' && c <= u'9'; }

    // Length of the name that starts at the pen, 0 when none.
    qsizetype largoNombre() const {
        if (pos_ >= t_.size() || !esLetra(t_[pos_]))
            return 0;
        qsizetype n = 1;
        while (pos_ + n < t_.size() && (esLetra(t_[pos_ + n]) || esDigito(t_[pos_ + n])))
            ++n;
        return n;
    }

    bool hayMod() {
        saltarBlancos();
        const qsizetype n = largoNombre();
        return n == 3 && QStringView(t_).mid(pos_, 3).compare(u"mod", Qt::CaseInsensitive) == 0;
    }

    bool comprobar(double v, double& salida) {
        if (!std::isfinite(v))
            return fallar(ErrorEvaluar::Desbordamiento, QStringLiteral("Desbordamiento"));
        salida = v;
        return true;
    }

    bool suma(double& v) {
        if (!modulo(v))
            return false;
        for (;;) {
            const QChar c = actual();
            if (c != u'+' && c != u'-')
                return true;
            ++pos_;
            double d = 0;
            if (!modulo(d))
                return false;
            if (!comprobar(c == u'+' ? v + d : v - d, v))
                return false;
        }
    }

    // Whole operand of "\" and Mod: rounded half to even, within 32 bits.
    bool entero(double x, std::int64_t& n) {
        double r = std::round(x);
        if (std::fabs(x - std::trunc(x)) == 0.5)
            r = 2.0 * std::round(x / 2.0);
        if (!(r >= -2147483648.0 && r <= 2147483647.0))
            return fallar(ErrorEvaluar::Desbordamiento, QStringLiteral("Desbordamiento"));
        n = static_cast<std::int64_t>(r);
        return true;
    }

    bool modulo(double& v) {
        if (!divisionEntera(v))
            return false;
        while (hayMod()) {
            pos_ += 3;
            double d = 0;
            std::int64_t a = 0, b = 0;
            if (!divisionEntera(d) || !entero(v, a) || !entero(d, b))
                return false;
            if (b == 0)
                return fallar(ErrorEvaluar::DivisionPorCero, QStringLiteral("División por cero"));
            v = double(a % b);
        }
        return true;
    }

    bool divisionEntera(double& v) {
        if (!producto(v))
            return false;
        while (actual() == u'\\') {
            ++pos_;
            double d = 0;
            std::int64_t a = 0, b = 0;
            if (!producto(d) || !entero(v, a) || !entero(d, b))
                return false;
            if (b == 0)
                return fallar(ErrorEvaluar::DivisionPorCero, QStringLiteral("División por cero"));
            const std::int64_t q = a / b;
            if (q > 2147483647)
                return fallar(ErrorEvaluar::Desbordamiento, QStringLiteral("Desbordamiento"));
            v = double(q);
        }
        return true;
    }

    bool producto(double& v) {
        if (!potencia(v))
            return false;
        for (;;) {
            const QChar c = actual();
            if (c != u'*' && c != u'/')
                return true;
            ++pos_;
            double d = 0;
            if (!potencia(d))
                return false;
            if (c == u'/' && d == 0)
                return fallar(ErrorEvaluar::DivisionPorCero, QStringLiteral("División por cero"));
            if (!comprobar(c == u'*' ? v * d : v / d, v))
                return false;
        }
    }

    bool potencia(double& v) {
        if (!unario(v))
            return false;
        while (actual() == u'^') {
            ++pos_;
            double e = 0;
            if (!unario(e))
                return false;
            if (v < 0 && e != std::trunc(e))
                return fallar(ErrorEvaluar::ArgumentoNoValido,
                              QStringLiteral("Llamada o argumento de procedimiento no válido"));
            if (v == 0 && e < 0)
                return fallar(ErrorEvaluar::DivisionPorCero, QStringLiteral("División por cero"));
            if (!comprobar(std::pow(v, e), v))
                return false;
        }
        return true;
    }

    // Signs are counted in a loop, so a long run of them costs no stack.
    bool unario(double& v) {
        bool negativo = false;
        for (;;) {
            const QChar c = actual();
            if (c == u'-')
                negativo = !negativo;
            else if (c != u'+')
                break;
            ++pos_;
        }
        if (!primario(v))
            return false;
        if (negativo)
            v = -v;
        return true;
    }

    bool primario(double& v) {
        const QChar c = actual();
        if (c == u'(') {
            if (++profundidad_ > ProfundidadMaxima)
                return fallar(ErrorEvaluar::DemasiadoComplejo,
                              QStringLiteral("La expresión es demasiado compleja"));
            ++pos_;
            if (!suma(v))
                return false;
            if (actual() != u')')
                return fallar(ErrorEvaluar::Sintaxis, QStringLiteral("Se esperaba ')'"));
            ++pos_;
            --profundidad_;
            return true;
        }
        if (esDigito(c) || c == u'.' || c == u',')
            return numero(v);
        if (const qsizetype n = largoNombre(); n > 0) {
            if (hayMod())
                return fallar(ErrorEvaluar::Sintaxis, QStringLiteral("Error de sintaxis"));
            return fallar(ErrorEvaluar::NombreDesconocido,
                          QStringLiteral("Variable no definida: '%1'").arg(t_.mid(pos_, n)));
        }
        return fallar(ErrorEvaluar::Sintaxis, QStringLiteral("Error de sintaxis"));
    }

    bool numero(double& v) {
        const qsizetype inicio = pos_;
        QString texto;
        int digitos = 0;
        while (pos_ < t_.size() && esDigito(t_[pos_])) {
            texto += t_[pos_++];
            ++digitos;
        }
        if (pos_ < t_.size() && (t_[pos_] == u'.' || t_[pos_] == u',')) {
            texto += u'.';
            ++pos_;
            while (pos_ < t_.size() && esDigito(t_[pos_])) {
                texto += t_[pos_++];
                ++digitos;
            }
        }
        if (digitos == 0) {
            pos_ = inicio;
            return fallar(ErrorEvaluar::Sintaxis, QStringLiteral("Error de sintaxis"));
        }
        // An exponent only when digits follow; otherwise the letter starts a name.
        if (pos_ < t_.size() && (t_[pos_] == u'e' || t_[pos_] == u'E')) {
            qsizetype p = pos_ + 1;
            if (p < t_.size() && (t_[p] == u'+' || t_[p] == u'-'))
                ++p;
            if (p < t_.size() && esDigito(t_[p])) {
                texto += QStringView(t_).mid(pos_, p - pos_);
                pos_ = p;
                while (pos_ < t_.size() && esDigito(t_[pos_]))
                    texto += t_[pos_++];
            }
        }
        bool ok = false;
        const double x = texto.toDouble(&ok);
        if (!ok || !std::isfinite(x)) {
            pos_ = inicio;
            return fallar(ErrorEvaluar::Desbordamiento, QStringLiteral("Desbordamiento"));
        }
        v = x;
        return true;
    }
};

} // namespace

ResultadoEvaluar Evaluar(const QString& expresion) {
    return Analizador(expresion).evaluar();
}

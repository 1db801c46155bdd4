#include "store/Rutinas.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Formato.h"

#include <QLocale>
#include <QRegularExpression>
#include <cmath>

const QString MsgFechaNoValida = QStringLiteral("La fecha introducida no es una fecha válida.");

namespace {

const QString MsgCorta =
    QStringLiteral("La fecha introducida no es correcta, debe ponerla en formato 'ddmmaa'.");
const QString MsgAmbigua = QStringLiteral(
    "El programa no puede determinar cual es la fecha introducida. Por favor, separe los días, "
    "meses y años con barras (dd/mm/aa) o ponga los días y los meses con dos cifras (ddmmaa).");

int anoCompleto(const QString& ano) {
    const int a = ano.toInt();
    if (ano.size() <= 2)
        return a < 30 ? 2000 + a : 1900 + a;
    return a;
}

// Splits five digits into day and month; empty when ambiguous. Year is always c4 c5.
bool partirCinco(const QString& t, QString& dia, QString& mes) {
    const int c1 = t[0].digitValue(), c2 = t[1].digitValue(), c3 = t[2].digitValue();
    const QString tres = t.left(3);
    auto diaUno = [&] {
        dia = t.left(1), mes = t.mid(1, 2);
    };
    auto diaDos = [&] {
        dia = t.left(2), mes = t.mid(2, 1);
    };
    if (c1 == 0) {
        diaDos();
    } else if (c1 > 3) {
        diaUno();
    } else if (tres == QLatin1String("302") || tres == QLatin1String("312")) {
        // Before the c3 > 1 tests: 30208 is 3/02/08 and 31208 is 3/12/08.
        diaUno();
    } else if (c3 > 1 && c2 != 0) {
        diaDos();
    } else if (c3 > 1) {
        return false;
    } else if (c3 == 0) {
        diaUno();
    } else if (c3 == 1 && t.left(2).toInt() > 31) {
        diaUno();
    } else if (c3 == 1 && t.mid(1, 2).toInt() > 12) {
        diaDos();
    } else {
        return false;
    }
    return true;
}

} // namespace

QDate FechaDeTexto(const QString& texto) {
    static const QRegularExpression dma(
        QStringLiteral("^\\s*(\\d{1,2})[/-](\\d{1,2})[/-](\\d{1,2}|\\d{4})\\s*$"));
    static const QRegularExpression iso(QStringLiteral("^\\s*(\\d{4})-(\\d{1,2})-(\\d{1,2})\\s*$"));
    QRegularExpressionMatch m = iso.match(texto);
    if (m.hasMatch())
        return QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    m = dma.match(texto);
    if (!m.hasMatch())
        return {};
    return QDate(anoCompleto(m.captured(3)), m.captured(2).toInt(), m.captured(1).toInt());
}

QString ValidarFecha(const QString& texto, Dialogo& dialogo) {
    const QString t = texto.trimmed();
    if (t.isEmpty())
        return {};
    QString resultado;
    if (t.contains(QLatin1Char('-')) || t.contains(QLatin1Char('/'))) {
        resultado = t;
    } else if (t.size() < 4) {
        dialogo.Informar(MsgCorta);
    } else if (t.size() == 4) {
        resultado = t.left(1) + '/' + t.mid(1, 1) + '/' + t.mid(2, 2);
    } else if (t.size() == 5) {
        static const QRegularExpression cifras(QStringLiteral("^\\d{5}$"));
        QString dia, mes;
        if (!cifras.match(t).hasMatch()) {
            resultado = t;
        } else if (!partirCinco(t, dia, mes)) {
            dialogo.Informar(MsgAmbigua);
            return {};
        } else {
            resultado = dia + '/' + mes + '/' + t.mid(3, 2);
        }
    } else if (t.size() == 6) {
        resultado = t.left(2) + '/' + t.mid(2, 2) + '/' + t.mid(4, 2);
    } else {
        resultado = t;
    }
    if (resultado.isEmpty() || !FechaDeTexto(resultado).isValid()) {
        dialogo.Informar(MsgFechaNoValida);
        return {};
    }
    return resultado;
}

QString NormalizarNumero(const QString& texto) {
    QString r;
    for (int i = 0; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        const QChar sig = i + 1 < texto.size() ? texto.at(i + 1) : QChar();
        if (c == QLatin1Char(',')) {
            r += QLatin1Char('.');
        } else if (c == QLatin1Char(' ')) {
            continue;
        } else if ((c == QLatin1Char('+') && sig == QLatin1Char('-')) ||
                   (c == QLatin1Char('-') && sig == QLatin1Char('+'))) {
            r += QLatin1Char('-');
            ++i;
        } else {
            r += c;
        }
    }
    return r;
}

double ValorImporte(const QString& texto, bool* ok) {
    QString t = texto.trimmed();
    t.remove(QLatin1Char(' '));
    if (t.contains(QLatin1Char(','))) {
        t.remove(QLatin1Char('.'));
        t.replace(QLatin1Char(','), QLatin1Char('.'));
    }
    t = NormalizarNumero(t);
    bool bien = false;
    const double v = t.toDouble(&bien);
    if (ok)
        *ok = bien;
    return bien ? v : 0.0;
}

QString MsgImporteNoValido(const QString& texto) {
    return QStringLiteral("El importe «%1» no es válido: debe ser un número entre "
                          "-999.999.999.999,99 y 999.999.999.999,99.")
        .arg(texto.trimmed());
}

bool ImporteAdmitido(double valor) {
    return std::isfinite(valor) && std::fabs(Centimos(valor)) <= ImporteMaximo;
}

std::optional<double> LeerImporte(const QString& texto) {
    for (const QChar c : texto)
        if (!c.isDigit() && !QStringLiteral(" +-.,").contains(c))
            return std::nullopt;
    bool ok = false;
    const double v = ValorImporte(texto, &ok);
    if (!ok || !ImporteAdmitido(v))
        return std::nullopt;
    return Centimos(v);
}

double ImporteDeTexto(const QString& texto) {
    const std::optional<double> v = LeerImporte(texto);
    if (!v)
        throw Rechazo(MsgImporteNoValido(texto));
    return *v;
}

QString MsgValorNoValido(double valor) {
    return MsgImporteNoValido(QString::number(valor, 'g', 15));
}

QString ANumero(const QString& texto) {
    if (texto.trimmed().isEmpty())
        return QStringLiteral("0");
    return Formato(ValorImporte(texto), QStringLiteral("General Number"));
}

QString AImporte(const QString& texto) {
    if (texto.trimmed().isEmpty())
        return QStringLiteral("0");
    return Formato(ValorImporte(texto), QStringLiteral("standard"));
}

double DiaSerie(const QDate& fecha) {
    return static_cast<double>(QDate(1899, 12, 30).daysTo(fecha));
}

double DiaSerie(const QDateTime& momento) {
    return DiaSerie(momento.date()) + momento.time().msecsSinceStartOfDay() / 86400000.0;
}

QDateTime DeDiaSerie(double dias) {
    const qint64 enteros = static_cast<qint64>(std::floor(dias));
    const QDate d = QDate(1899, 12, 30).addDays(enteros);
    const qint64 ms = static_cast<qint64>(std::llround((dias - enteros) * 86400000.0));
    return QDateTime(d, QTime(0, 0)).addMSecs(ms);
}

bool DetectarPuntoDecimal(const QLocale& local) {
    return !local.toString(7.0 / 2).contains(QLatin1Char(','));
}

#include "platform/Rejilla.h"

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace {

constexpr int MaxColumnasNegrita = 64;

bool EsDigito(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Whether "1.234.567" groups thousands: 1 to 3 figures, not a lone leading 0, then groups of 3.
bool AgrupaMiles(QStringView s) {
    const qsizetype primerPunto = s.indexOf(u'.');
    if (primerPunto < 1 || primerPunto > 3 || (s[0] == u'0'))
        return false;
    for (qsizetype k = 0; k < primerPunto; ++k)
        if (!EsDigito(s[k]))
            return false;
    qsizetype i = primerPunto;
    while (i < s.size()) {
        if (s[i] != u'.')
            return false;
        for (int k = 1; k <= 3; ++k)
            if (i + k >= s.size() || !EsDigito(s[i + k]))
                return false;
        i += 4;
    }
    return true;
}

QString Limpia(QString texto) {
    for (QChar& c : texto)
        if (c == u'\t' || c == u'\n' || c == u'\r')
            c = u' ';
    return texto;
}

} // namespace

std::optional<double> ValorCelda(QStringView texto) {
    QStringView s = texto.trimmed();
    if (s.isEmpty())
        return std::nullopt;
    bool negativo = false;
    if (s[0] == u'-' || s[0] == u'+') {
        negativo = s[0] == u'-';
        s = s.mid(1);
    }
    if (s.isEmpty())
        return std::nullopt;
    QString limpio;
    limpio.reserve(s.size());
    const qsizetype coma = s.indexOf(u',');
    if (coma >= 0) {
        const QStringView entera = s.left(coma);
        if (entera.contains(u'.') && !AgrupaMiles(entera))
            return std::nullopt;
        for (QChar c : entera)
            if (c != u'.')
                limpio += c;
        limpio += u'.';
        limpio += s.mid(coma + 1);
    } else if (s.contains(u'.') && AgrupaMiles(s)) {
        for (QChar c : s)
            if (c != u'.')
                limpio += c;
    } else {
        limpio = s.toString();
    }
    // Only figures and one decimal point: no exponents, blanks or signs inside.
    int puntos = 0, cifras = 0;
    for (QChar c : limpio) {
        if (c == u'.')
            ++puntos;
        else if (EsDigito(c))
            ++cifras;
        else
            return std::nullopt;
    }
    if (puntos > 1 || cifras == 0)
        return std::nullopt;
    bool ok = false;
    const double v = limpio.toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return negativo ? -v : v;
}

QDate FechaCelda(QStringView texto) {
    const QStringView s = texto.trimmed();
    if (s.size() == 10 && s[4] == u'-')
        return QDate::fromString(s.toString(), Qt::ISODate);
    const QList<QStringView> partes = s.split(u'/');
    if (partes.size() != 3)
        return {};
    int n[3];
    for (int i = 0; i < 3; ++i) {
        if (partes[i].isEmpty() || partes[i].size() > 4)
            return {};
        bool ok = false;
        n[i] = partes[i].toInt(&ok);
        if (!ok || !std::all_of(partes[i].begin(), partes[i].end(), EsDigito))
            return {};
    }
    int ano = n[2];
    if (partes[2].size() == 2)
        ano += ano < 30 ? 2000 : 1900;
    else if (partes[2].size() != 4)
        return {};
    return QDate(ano, n[1], n[0]);
}

Rejilla::Rejilla(QList<Columna> columnas) : columnas_(std::move(columnas)) {}

QStringList Rejilla::Titulos() const {
    QStringList r;
    for (const Columna& c : columnas_)
        r << c.titulo;
    return r;
}

bool Rejilla::Numerica(int c) const {
    const TipoColumna t = columnas_.at(c).tipo;
    return t == TipoColumna::Importe || t == TipoColumna::Entero || t == TipoColumna::Numero;
}

Rejilla::FilaDatos Rejilla::nueva(const QString& celdas) const {
    FilaDatos f;
    f.texto = celdas; // shared, not copied, unless it must change
    if (f.texto.contains(u'\n') || f.texto.contains(u'\r')) {
        f.texto.replace(u'\n', u' ');
        f.texto.replace(u'\r', u' ');
    }
    // Cells beyond the last column are dropped.
    qsizetype tabs = 0;
    const QChar* datos = f.texto.constData();
    for (qsizetype i = 0; i < f.texto.size(); ++i)
        if (datos[i] == u'\t' && ++tabs >= qMax(1, Columnas())) {
            f.texto.truncate(i);
            break;
        }
    return f;
}

int Rejilla::AgregarFila(const QString& celdas) {
    filas_.push_back(nueva(celdas));
    return Filas() - 1;
}

int Rejilla::AgregarFila(const QStringList& celdas) {
    QStringList limpias;
    limpias.reserve(celdas.size());
    for (const QString& c : celdas)
        limpias << Limpia(c);
    return AgregarFila(limpias.join(u'\t'));
}

void Rejilla::InsertarFila(int fila, const QString& celdas) {
    filas_.insert(filas_.begin() + qBound(0, fila, Filas()), nueva(celdas));
}

void Rejilla::EliminarFila(int fila) {
    filas_.erase(filas_.begin() + fila);
}

void Rejilla::Vaciar() {
    filas_.clear();
    totales_.clear();
}

QStringView Rejilla::celda(int fila, int columna) const {
    const QString& t = filas_.at(fila).texto;
    qsizetype inicio = 0;
    for (int c = 0; c < columna; ++c) {
        const qsizetype tab = t.indexOf(u'\t', inicio);
        if (tab < 0)
            return {};
        inicio = tab + 1;
    }
    qsizetype fin = t.indexOf(u'\t', inicio);
    if (fin < 0)
        fin = t.size();
    return QStringView(t).mid(inicio, fin - inicio);
}

void Rejilla::PonerCelda(int fila, int columna, const QString& texto) {
    if (columna < 0 || columna >= Columnas())
        throw std::out_of_range("columna fuera de la rejilla");
    QStringList celdas = Fila(fila);
    celdas[columna] = Limpia(texto);
    // Trailing empty cells are not kept.
    while (!celdas.isEmpty() && celdas.last().isEmpty())
        celdas.removeLast();
    filas_.at(fila).texto = celdas.join(u'\t');
}

QStringList Rejilla::Fila(int fila) const {
    QStringList celdas = filas_.at(fila).texto.split(u'\t');
    while (celdas.size() < Columnas())
        celdas << QString();
    return celdas;
}

bool Rejilla::Negrita(int fila, int columna) const {
    return columna >= 0 && columna < MaxColumnasNegrita &&
           (filas_.at(fila).negritas >> columna & 1u);
}

void Rejilla::PonerNegrita(int fila, int columna, bool negrita) {
    if (columna < 0 || columna >= MaxColumnasNegrita)
        return;
    quint64& n = filas_.at(fila).negritas;
    n = negrita ? (n | (quint64(1) << columna)) : (n & ~(quint64(1) << columna));
}

void Rejilla::PonerNegritaFila(int fila, bool negrita) {
    for (int c = 0; c < Columnas(); ++c)
        PonerNegrita(fila, c, negrita);
}

void Rejilla::CombinarFila(int fila, int desde, int hasta) {
    if (hasta < 0 || hasta >= Columnas())
        hasta = Columnas() - 1;
    desde = qBound(0, desde, hasta);
    FilaDatos& f = filas_.at(fila);
    f.desde = qint8(qMin(desde, 127));
    f.hasta = qint8(qMin(hasta, 127));
}

void Rejilla::SepararFila(int fila) {
    filas_.at(fila).desde = filas_.at(fila).hasta = -1;
}

std::optional<Rejilla::Tramo> Rejilla::Combinada(int fila) const {
    const FilaDatos& f = filas_.at(fila);
    if (f.desde < 0 || f.hasta <= f.desde)
        return std::nullopt;
    return Tramo{f.desde, f.hasta};
}

void Rejilla::PonerColorFila(int fila, quint32 rgb, int desde) {
    FilaDatos& f = filas_.at(fila);
    f.colorDesde = qint8(qBound(0, desde, 127));
    f.color = rgb & 0xFFFFFFu;
}

std::optional<quint32> Rejilla::Color(int fila, int columna) const {
    const FilaDatos& f = filas_.at(fila);
    if (f.colorDesde < 0 || columna < f.colorDesde)
        return std::nullopt;
    return f.color;
}

void Rejilla::Ordenar(int columna, Orden orden, bool ascendente) {
    const int n = Filas();
    std::vector<int> indices(n);
    std::iota(indices.begin(), indices.end(), 0);
    // Keys are taken once per row; rows without a value (not a number, not a date) sort first.
    auto ordenar = [&](auto clave) {
        using Clave = decltype(clave(0));
        std::vector<Clave> claves;
        claves.reserve(n);
        for (int i = 0; i < n; ++i)
            claves.push_back(clave(i));
        if (ascendente)
            std::stable_sort(indices.begin(), indices.end(),
                             [&](int a, int b) { return claves[a] < claves[b]; });
        else
            std::stable_sort(indices.begin(), indices.end(),
                             [&](int a, int b) { return claves[b] < claves[a]; });
    };
    switch (orden) {
    case Orden::Texto:
    case Orden::TextoSinMayusculas: {
        const Qt::CaseSensitivity cs =
            orden == Orden::Texto ? Qt::CaseSensitive : Qt::CaseInsensitive;
        std::vector<QStringView> claves(n);
        for (int i = 0; i < n; ++i)
            claves[i] = celda(i, columna);
        auto menor = [&](int a, int b) {
            return claves[a].compare(claves[b], cs) < 0;
        };
        if (ascendente)
            std::stable_sort(indices.begin(), indices.end(), menor);
        else
            std::stable_sort(indices.begin(), indices.end(),
                             [&](int a, int b) { return menor(b, a); });
        break;
    }
    case Orden::Numero:
        ordenar([&](int i) {
            const auto v = ValorCelda(celda(i, columna));
            return std::pair<bool, double>(v.has_value(), v.value_or(0));
        });
        break;
    case Orden::Fecha:
        ordenar([&](int i) {
            const QDate d = FechaCelda(celda(i, columna));
            return std::pair<bool, qint64>(d.isValid(), d.isValid() ? d.toJulianDay() : 0);
        });
        break;
    }
    std::vector<FilaDatos> ordenadas;
    ordenadas.reserve(n);
    for (int i : indices)
        ordenadas.push_back(std::move(filas_[i]));
    filas_ = std::move(ordenadas);
}

void Rejilla::PonerTotal(const QString& etiqueta, const QString& valor) {
    for (Total& t : totales_)
        if (t.etiqueta == etiqueta) {
            t.valor = valor;
            return;
        }
    totales_ << Total{etiqueta, valor};
}

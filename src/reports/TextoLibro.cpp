#include "reports/TextoLibro.h"

#include "store/Formato.h"

#include <cmath>

namespace {

// Figures of a whole number with "." every three, from the left.
void anadirAgrupado(QString& destino, unsigned long long n) {
    char cifras[24];
    int k = 0;
    do {
        cifras[k++] = char('0' + n % 10);
        n /= 10;
    } while (n > 0);
    for (int i = k - 1; i >= 0; --i) {
        destino += QLatin1Char(cifras[i]);
        if (i > 0 && i % 3 == 0)
            destino += u'.';
    }
}

} // namespace

void AnadirImporte(QString& destino, double valor) {
    // Rounded as Formato rounds (half away from zero on the decimal value), then held in cents.
    const double r = Centimos(valor);
    if (!std::isfinite(r) || std::fabs(r) > 9e15) {
        destino += Formato(valor, QStringLiteral("standard"));
        return;
    }
    long long centimos = std::llround(r * 100.0);
    if (centimos < 0) {
        destino += u'-';
        centimos = -centimos;
    }
    anadirAgrupado(destino, static_cast<unsigned long long>(centimos / 100));
    const int resto = int(centimos % 100);
    destino += u',';
    destino += QLatin1Char(char('0' + resto / 10));
    destino += QLatin1Char(char('0' + resto % 10));
}

void AnadirEnteroMiles(QString& destino, long long valor) {
    if (valor == 0)
        return;
    if (valor < 0) {
        destino += u'-';
        valor = -valor;
    }
    anadirAgrupado(destino, static_cast<unsigned long long>(valor));
}

void AnadirFechaCorta(QString& destino, QStringView iso) {
    if (iso.size() >= 10 && iso.at(4) == u'-' && iso.at(7) == u'-') {
        destino += iso.mid(8, 2);
        destino += u'/';
        destino += iso.mid(5, 2);
        destino += u'/';
        destino += iso.left(4);
    } else {
        destino += iso;
    }
}

void AnadirTexto(QString& destino, QStringView texto) {
    const qsizetype inicio = destino.size();
    destino += texto;
    if (texto.contains(u'\t'))
        for (qsizetype i = inicio; i < destino.size(); ++i)
            if (destino.at(i) == u'\t')
                destino[i] = u' ';
}

#include "platform/Dialogo.h"

#include <cstdio>

namespace {
void aError(const QString& texto) {
    std::fputs(texto.toLocal8Bit().constData(), stderr);
    std::fputc('\n', stderr);
    std::fflush(stderr);
}
} // namespace

void DialogoConsola::Informar(const QString& texto) {
    aError(texto);
}

bool DialogoConsola::Preguntar(const QString& texto) {
    aError(texto +
           (siATodo_ ? QStringLiteral(" [Sí: --si]") : QStringLiteral(" [No: falta --si]")));
    return siATodo_;
}

QString DialogoConsola::PedirTexto(const QString& texto, const QString& defecto) {
    aError(texto + QStringLiteral(" [") + defecto + QStringLiteral("]"));
    return defecto;
}

void DialogoGuion::Informar(const QString& texto) {
    textos << texto;
    informados << texto;
}

bool DialogoGuion::Preguntar(const QString& texto) {
    textos << texto;
    preguntas << texto;
    return respuestas_.isEmpty() ? false : respuestas_.takeFirst();
}

QString DialogoGuion::PedirTexto(const QString& texto, const QString& defecto) {
    textos << texto;
    preguntas << texto;
    return textosPorDar_.isEmpty() ? defecto : textosPorDar_.takeFirst();
}

void DialogoGuion::responder(std::initializer_list<bool> respuestas) {
    for (bool r : respuestas)
        respuestas_ << r;
}

#pragma once
// What every fuzz target shares: a Qt core application for the life of the process, the input
// as text, and a fault that libFuzzer records as a crash.

#include "platform/Dialogo.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

inline void ArrancarQt() {
    static int argc = 1;
    static char nombre[] = "fuzz";
    static char* argv[] = {nombre, nullptr};
    static QCoreApplication app(argc, argv);
}

inline QString Texto(const uint8_t* datos, size_t largo) {
    return QString::fromUtf8(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(largo));
}

// A broken rule of the parser: libFuzzer keeps the input that made it.
[[noreturn]] inline void Fallo(const char* regla, const QString& entrada) {
    std::fprintf(stderr, "Regla rota: %s\nEntrada: %s\n", regla, entrada.toUtf8().constData());
    std::abort();
}

// Answers every question No and counts what it is told.
class DialogoMudo : public Dialogo {
public:
    void Informar(const QString&) override { ++informados; }
    bool Preguntar(const QString&) override { return false; }
    QString PedirTexto(const QString&, const QString& defecto) override { return defecto; }
    int informados = 0;
};

} // namespace fuzz

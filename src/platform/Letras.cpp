#include "platform/Letras.h"

#include <QFont>

void SustituirLetras() {
    QFont::insertSubstitution(QStringLiteral("Arial"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Arial Narrow"),
                              QStringLiteral("Liberation Sans Narrow"));
    QFont::insertSubstitution(QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"));
}

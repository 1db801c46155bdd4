#include "store/Meses.h"

const QStringList& NombresMeses() {
    static const QStringList meses{
        QStringLiteral("Enero"),   QStringLiteral("Febrero"),   QStringLiteral("Marzo"),
        QStringLiteral("Abril"),   QStringLiteral("Mayo"),      QStringLiteral("Junio"),
        QStringLiteral("Julio"),   QStringLiteral("Agosto"),    QStringLiteral("Septiembre"),
        QStringLiteral("Octubre"), QStringLiteral("Noviembre"), QStringLiteral("Diciembre")};
    return meses;
}

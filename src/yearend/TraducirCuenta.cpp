#include "yearend/TraducirCuenta.h"

#include "store/Sesion.h"

bool TraduccionNecesaria(int anoOrigen, int anoDestino) {
    return anoOrigen < 2008 && anoDestino >= 2008;
}

QString TraducirCuenta(const Sesion&, const QString& ncuenta) {
    return ncuenta;
}

QString NombreTraducido(const QString& nombre) {
    const QString n = nombre.trimmed();
    return (n.size() < 4 ? n : n.left(n.size() - 4)) + QStringLiteral("(*)");
}

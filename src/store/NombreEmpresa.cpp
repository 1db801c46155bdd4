#include "store/NombreEmpresa.h"

#include "platform/Almacen.h"
#include "store/Conexiones.h"

QString NombreEmpresa(Conexion& c) {
    return c.escalar(QStringLiteral("SELECT Nombre FROM Empresa LIMIT 1")).toString().trimmed();
}

QString NombreEmpresa(const Sesion& s) {
    Conexion c = AbrirDatos(s);
    return NombreEmpresa(c);
}

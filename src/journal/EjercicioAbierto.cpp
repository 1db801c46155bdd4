#include "journal/EjercicioAbierto.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

bool EjercicioAbierto(Conexion& datos, Sesion& s, Dialogo& d) {
    const QVariant v = datos.escalar(QStringLiteral("SELECT EjCerrado FROM Empresa LIMIT 1"));
    if (v.isValid())
        s.EjCerrado = v.toInt() != 0;
    if (s.EjCerrado) {
        d.Informar(MsgEjercicioCerrado);
        return false;
    }
    return true;
}

bool EjercicioAbierto(Sesion& s, Dialogo& d) {
    Conexion c = AbrirDatos(s);
    return EjercicioAbierto(c, s, d);
}

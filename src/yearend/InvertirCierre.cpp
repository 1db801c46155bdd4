#include "yearend/InvertirCierre.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

void InvertirCierre(Sesion& s) {
    Conexion c = AbrirDatos(s);
    Sesion despues = s;
    Transaccion t(c);
    // The numbers of the database, which the session mirrors.
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NAsReg, NAsFin FROM Empresa"));
    const long reg = q.next() ? q.value(0).toLongLong() : s.NAsReg;
    const long fin = q.isValid() ? q.value(1).toLongLong() : s.NAsFin;
    q.finish();
    for (long nas : {reg, fin})
        if (nas > 0)
            ElimAsiento(c, despues, nas);
    c.ejecutar(QStringLiteral("UPDATE Empresa SET EjCerrado = 0, NAsReg = 0, NAsFin = 0"));
    t.confirmar();
    despues.EjCerrado = false;
    despues.NAsReg = 0;
    despues.NAsFin = 0;
    s = despues;
}

#include "yearend/InvertirCierre.h"

#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

QString MsgEjercicioNoCerrado(int ano) {
    return QStringLiteral("El ejercicio %1 no está cerrado: no hay ningún cierre que invertir.")
        .arg(ano);
}

void InvertirCierre(Sesion& s) {
    Conexion c = AbrirDatos(s);
    Sesion despues = s;
    Transaccion t(c);
    // The state of the database, which the session mirrors.
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NAsReg, NAsFin, EjCerrado FROM Empresa"));
    const long reg = q.next() ? q.value(0).toLongLong() : s.NAsReg;
    const long fin = q.isValid() ? q.value(1).toLongLong() : s.NAsFin;
    const bool cerrado = q.isValid() ? q.value(2).toInt() != 0 : s.EjCerrado;
    q.finish();
    if (!cerrado) {
        s.EjCerrado = false;
        throw Rechazo(MsgEjercicioNoCerrado(s.AnoActual));
    }
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

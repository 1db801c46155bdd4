#include "chart/TiposIva.h"

#include "journal/EjercicioAbierto.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

const QStringList ClasesIva{QStringLiteral("IVA"), QStringLiteral("Recargo")};
const QString TituloListadoTiposIva = QStringLiteral("Subcuentas de IVA");

QList<FilaTipoIva> ListaTiposIva(Conexion& c) {
    QList<FilaTipoIva> r;
    QSqlQuery q = c.ejecutar(QStringLiteral(
        "SELECT NCuenta, Cuenta, Porcentaje, Clase FROM ConTiposIVA ORDER BY Cuenta"));
    while (q.next())
        r << FilaTipoIva{q.value(0).toString().trimmed(), q.value(1).toString().trimmed(),
                         q.value(2).toDouble(), q.value(3).toString().trimmed()};
    return r;
}

QList<SubcuentaDeLista> SubcuentasIva(Conexion& c) {
    QList<SubcuentaDeLista> r;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta, NGrupo FROM Cuentas WHERE NCuenta LIKE '4472%' "
                       "OR NCuenta LIKE '2477%' ORDER BY Cuenta"));
    while (q.next())
        r << SubcuentaDeLista{q.value(0).toString().trimmed(), q.value(1).toString().trimmed(),
                              q.value(2).toString().trimmed()};
    return r;
}

bool GuardarTipoIva(Sesion& s, Dialogo& d, const QString& ncuenta, const QString& porcentaje,
                    const QString& clase) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return false;
    // A rate is typed like an amount (digits and the decimal mark), so it is read like one.
    const std::optional<double> leido = LeerImporte(porcentaje);
    if (!leido) {
        d.Informar(QStringLiteral("Debe introducir el tipo de IVA o de Recargo de equivalencia."));
        return false;
    }
    const double tipo = *leido;
    if (tipo < 0 || tipo > 100) {
        d.Informar(
            QStringLiteral("El tipo «%1» no es válido: debe ser un porcentaje entre 0 y 100.")
                .arg(porcentaje.trimmed()));
        return false;
    }
    const QString n = ncuenta.trimmed();
    const bool ofrecida =
        !n.isEmpty() &&
        c.existe(QStringLiteral("SELECT 1 FROM Cuentas WHERE NCuenta = ? AND (NCuenta LIKE "
                                "'4472%' OR NCuenta LIKE '2477%')"),
                 {n});
    if (!ofrecida) {
        d.Informar(
            QStringLiteral("Debe seleccionar la Subcuenta de IVA o de Recargo de equivalencia."));
        return false;
    }
    const int k = ClasesIva.indexOf(clase.trimmed());
    if (k < 0) {
        d.Informar(QStringLiteral("Debe seleccionar la Clase de Subcuenta. Si es de IVA o de "
                                  "Recargo de equivalencia."));
        return false;
    }
    Transaccion t(c);
    if (c.existe(QStringLiteral("SELECT 1 FROM TiposIVA WHERE NCuenta = ?"), {n}))
        c.ejecutar(
            QStringLiteral("UPDATE TiposIVA SET Porcentaje = ?, Clase = ? WHERE NCuenta = ?"),
            {tipo, ClasesIva.at(k), n});
    else
        c.ejecutar(
            QStringLiteral("INSERT INTO TiposIVA (NCuenta, Porcentaje, Clase) VALUES (?, ?, ?)"),
            {n, tipo, ClasesIva.at(k)});
    t.confirmar();
    return true;
}

bool EliminarTipoIva(Sesion& s, Dialogo& d, const QString& ncuenta) {
    Conexion c = AbrirDatos(s);
    if (!EjercicioAbierto(c, s, d))
        return false;
    const QString n = ncuenta.trimmed();
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {n});
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el tipo de IVA de la "
                                    "Subcuenta '") +
                     nombre.toString().trimmed() + QStringLiteral("'?")))
        return false;
    Transaccion t(c);
    const int borradas =
        c.ejecutar(QStringLiteral("DELETE FROM TiposIVA WHERE NCuenta = ?"), {n}).numRowsAffected();
    t.confirmar();
    return borradas > 0;
}

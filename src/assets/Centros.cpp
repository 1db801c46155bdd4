#include "assets/Centros.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

namespace {

// The list is short; names are compared here so that "almacén" and "ALMACÉN" are one location,
// accents included, as the store's own comparison would not do.
Centro buscar(Conexion& c, const QString& nombre) {
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCentro, Localizacion FROM Centros"));
    const QString buscado = nombre.trimmed();
    while (q.next())
        if (q.value(1).toString().trimmed().compare(buscado, Qt::CaseInsensitive) == 0)
            return {q.value(0).toLongLong(), q.value(1).toString().trimmed()};
    return {};
}

} // namespace

QList<Centro> ListaCentros(const Sesion& s) {
    Conexion c = AbrirBavar(s);
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCentro, Localizacion FROM Centros ORDER BY Localizacion"));
    QList<Centro> r;
    while (q.next())
        r << Centro{q.value(0).toLongLong(), q.value(1).toString().trimmed()};
    return r;
}

Centro CentroDeNombre(const Sesion& s, const QString& nombre) {
    Conexion c = AbrirBavar(s);
    return buscar(c, nombre);
}

bool AnadirCentro(const Sesion& s, Dialogo& d, const QString& nombre) {
    QString nom;
    try {
        nom = TextoCampo(Campo::Localizacion, nombre);
    } catch (const Rechazo& r) {
        d.Informar(r.mensaje());
        return false;
    }
    if (nom.isEmpty()) {
        d.Informar(QStringLiteral("Debe introducir el nombre del Centro."));
        return false;
    }
    Conexion c = AbrirBavar(s);
    Transaccion t(c);
    if (buscar(c, nom).NCentro != 0) {
        d.Informar(QStringLiteral("Ese Centro ya existe."));
        return false;
    }
    const qint64 n =
        c.escalar(QStringLiteral("SELECT COALESCE(MAX(NCentro), 0) + 1 FROM Centros")).toLongLong();
    c.ejecutar(QStringLiteral("INSERT INTO Centros (NCentro, Localizacion) VALUES (?, ?)"),
               {n, nom});
    t.confirmar();
    return true;
}

bool RenombrarCentro(const Sesion& s, Dialogo& d, const QString& actual, const QString& nuevo) {
    QString nom;
    try {
        nom = TextoCampo(Campo::Localizacion, nuevo);
    } catch (const Rechazo& r) {
        d.Informar(r.mensaje());
        return false;
    }
    if (nom.isEmpty()) {
        d.Informar(QStringLiteral("Debe introducir el nuevo nombre del Centro."));
        return false;
    }
    if (actual.trimmed().isEmpty()) {
        d.Informar(QStringLiteral("Debe seleccionar el nombre del Centro que se va a modificar."));
        return false;
    }
    Conexion c = AbrirBavar(s);
    const Centro viejo = buscar(c, actual);
    if (viejo.NCentro == 0) {
        d.Informar(QStringLiteral("Debe seleccionar el nombre del Centro que se va a modificar."));
        return false;
    }
    // A change of case only is a rename of the same location.
    const Centro otro = buscar(c, nom);
    if (otro.NCentro != 0 && otro.NCentro != viejo.NCentro) {
        d.Informar(QStringLiteral("Ya existe ese Centro."));
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea modificar el nombre del Centro %1")
                         .arg(viejo.Localizacion)))
        return false;
    Transaccion t(c);
    c.ejecutar(QStringLiteral("UPDATE Centros SET Localizacion = ? WHERE NCentro = ?"),
               {nom, viejo.NCentro});
    t.confirmar();
    return true;
}

bool EliminarCentro(const Sesion& s, Dialogo& d, const QString& nombre) {
    Conexion c = AbrirBavar(s);
    const Centro centro = buscar(c, nombre);
    if (centro.NCentro == 0)
        return false;
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Centro ") +
                     centro.Localizacion))
        return false;
    Transaccion t(c);
    if (c.existe(QStringLiteral("SELECT 1 FROM Inventario WHERE NCentro = ?"), {centro.NCentro})) {
        d.Informar(QStringLiteral("No se puede eliminar el Centro %1 porque hay elementos del "
                                  "Inventario ubicados en el mismo.")
                       .arg(centro.Localizacion));
        return false;
    }
    try {
        c.ejecutar(QStringLiteral("DELETE FROM Centros WHERE NCentro = ?"), {centro.NCentro});
        t.confirmar();
    } catch (const ErrorAlmacen& e) {
        d.Informar(QStringLiteral("No se pudo eliminar el Centro. ") + e.mensaje());
        return false;
    }
    return true;
}

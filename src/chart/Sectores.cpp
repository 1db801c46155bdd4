#include "chart/Sectores.h"

#include "journal/EjercicioAbierto.h"
#include "journal/Escritor.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

QList<FilaSector> ListaSectores(Sesion& s) {
    Conexion c = AbrirDatos(s);
    QList<FilaSector> r;
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT IdSector, Sector FROM Sectores ORDER BY IdSector"));
    while (q.next())
        r << FilaSector{q.value(0).toLongLong(), q.value(1).toString().trimmed()};
    return r;
}

qint64 IdDeSector(Sesion& s, const QString& nombre) {
    Conexion c = AbrirDatos(s);
    const QVariant v = c.escalar(
        QStringLiteral(
            "SELECT IdSector FROM Sectores WHERE Sector = ? COLLATE NOCASE ORDER BY IdSector "
            "LIMIT 1"),
        {nombre.trimmed()});
    return v.isValid() ? v.toLongLong() : 0;
}

QString NombreSector(Conexion& datos, const QString& nombre) {
    if (nombre.trimmed().isEmpty())
        return {};
    const QVariant v = datos.escalar(
        QStringLiteral(
            "SELECT Sector FROM Sectores WHERE Sector = ? COLLATE NOCASE ORDER BY IdSector "
            "LIMIT 1"),
        {nombre.trimmed()});
    return v.isValid() ? v.toString().trimmed() : QString();
}

bool GuardarSector(Sesion& s, Dialogo& d, qint64 idSector, const QString& nombre) {
    QString nom;
    try {
        nom = TextoCampo(Campo::Sector, nombre);
    } catch (const Rechazo& e) {
        d.Informar(e.mensaje());
        return false;
    }
    if (nom.isEmpty()) {
        d.Informar(QStringLiteral("Debe introducir el nombre del Sector."));
        return false;
    }
    Conexion c = AbrirDatos(s);
    QString aviso;
    QString viejo;
    {
        // The name is looked for under the write lock, so that two users can't both take it.
        Transaccion t(c);
        if (idSector != 0) {
            const QVariant anterior = c.escalar(
                QStringLiteral("SELECT Sector FROM Sectores WHERE IdSector = ?"), {idSector});
            if (!anterior.isValid())
                aviso = QStringLiteral("No se encontró el registro.");
            viejo = anterior.toString().trimmed();
        }
        // The column compares without case: "tienda" is the name of "Tienda". A sector may take
        // its own name in other letters.
        if (aviso.isEmpty() &&
            c.existe(
                QStringLiteral(
                    "SELECT 1 FROM Sectores WHERE Sector = ? COLLATE NOCASE AND IdSector <> ?"),
                {nom, idSector}))
            aviso = QStringLiteral("Ya existe un Sector con el nombre '%1'.").arg(nom);
        if (aviso.isEmpty() && idSector == 0) {
            c.ejecutar(QStringLiteral("INSERT INTO Sectores (Sector) VALUES (?)"), {nom});
            t.confirmar();
            return true;
        }
    }
    if (!aviso.isEmpty()) {
        d.Informar(aviso);
        return false;
    }
    // The company tables first, then the list: a failure between the two leaves the old name in
    // the list, from where the rename can simply be repeated.
    {
        Conexion bavar = AbrirBavar(s);
        Transaccion t(bavar);
        for (const char* tabla : {"Vencimientos", "AsPredi", "Periodicos"})
            bavar.ejecutar(
                QStringLiteral("UPDATE %1 SET Sector = ? WHERE Sector = ? COLLATE NOCASE")
                    .arg(QLatin1String(tabla)),
                {nom, viejo});
        t.confirmar();
    }
    Transaccion t(c);
    c.ejecutar(QStringLiteral("UPDATE Sectores SET Sector = ? WHERE IdSector = ?"),
               {nom, idSector});
    t.confirmar();
    return true;
}

int EliminarSector(Sesion& s, Dialogo& d, qint64 idSector) {
    Conexion c = AbrirDatos(s);
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Sector FROM Sectores WHERE IdSector = ?"), {idSector});
    if (!nombre.isValid()) {
        d.Informar(QStringLiteral("No se encontró el registro."));
        return -1;
    }
    const QString nom = nombre.toString().trimmed();
    const QString prefijo = QStringLiteral("No se puede eliminar el Sector '") + nom;
    {
        Conexion bavar = AbrirBavar(s);
        const QString sql = QStringLiteral("SELECT 1 FROM %1 WHERE Sector = ? COLLATE NOCASE");
        if (bavar.existe(sql.arg(QLatin1String("Periodicos")), {nom})) {
            d.Informar(prefijo +
                       QStringLiteral("' porque hay asientos Periódicos donde se utiliza."));
            return -1;
        }
        if (bavar.existe(sql.arg(QLatin1String("AsPredi")), {nom})) {
            d.Informar(prefijo +
                       QStringLiteral("' porque hay asientos Prediseñados donde se utiliza."));
            return -1;
        }
        if (bavar.existe(sql.arg(QLatin1String("Vencimientos")), {nom})) {
            d.Informar(prefijo + QStringLiteral("' porque hay Vencimientos donde se utiliza."));
            return -1;
        }
        if (c.existe(sql.arg(QLatin1String("DelDia")), {nom})) {
            d.Informar(
                prefijo +
                QStringLiteral("' porque se está utilizando en algún apunte de la Caja del Día."));
            return -1;
        }
    }
    // A twin row of the same name keeps the entries: they stand under it.
    const bool gemelo = c.existe(
        QStringLiteral("SELECT 1 FROM Sectores WHERE Sector = ? COLLATE NOCASE AND IdSector <> ?"),
        {nom, idSector});
    const QString sqlAsientos =
        QStringLiteral("SELECT DISTINCT NAs FROM Diario WHERE Sector = ? COLLATE NOCASE");
    // Deleting entries is writing the books: a closed exercise keeps them.
    if (!gemelo && c.existe(sqlAsientos, {nom}) && !EjercicioAbierto(c, s, d))
        return -1;
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Sector '") + nom +
                     QStringLiteral("'?")))
        return -1;
    if (!gemelo &&
        (!d.Preguntar(QStringLiteral(
             "Atención! Si hay asientos contabilizados en los que se figure el Sector que se va a "
             "eliminar también se eliminarían esos asientos. Desea continuar?")) ||
         !d.Preguntar(QStringLiteral("Se va a eliminar el Sector '") + nom +
                      QStringLiteral("' y todos los asientos en los que aparezca. La acción es "
                                     "irreversible, desea continuar?"))))
        return -1;

    // The entries go one by one through the same deletion as by hand, inside one transaction:
    // either the sector and all its entries go, or nothing does.
    const float ultimoAntes = s.UltimoAsiento;
    int eliminados = 0;
    try {
        Transaccion t(c);
        QList<qint64> asientos;
        if (!gemelo) {
            QSqlQuery q = c.ejecutar(sqlAsientos + QStringLiteral(" ORDER BY NAs"), {nom});
            while (q.next())
                asientos << q.value(0).toLongLong();
        }
        for (const qint64 nas : asientos) {
            if (!ElimAsiento(c, s, static_cast<long>(nas)))
                throw ErrorAlmacen(QStringLiteral("No se eliminó el asiento %1.").arg(nas));
            ++eliminados;
        }
        c.ejecutar(QStringLiteral("DELETE FROM Sectores WHERE IdSector = ?"), {idSector});
        t.confirmar();
    } catch (const ErrorQuilmar&) {
        s.UltimoAsiento = ultimoAntes;
        d.Informar(QStringLiteral("No se pudo eliminar."));
        return -1;
    }
    return eliminados;
}

#include "chart/Conceptos.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QRegularExpression>

const QString TituloListadoConceptos = QStringLiteral("Conceptos predefinidos");
const QString MsgModificarConcepto = QStringLiteral("Modifique el nombre del Concepto y Acepte.");

QList<FilaConcepto> ListaConceptos(Sesion& s) {
    Conexion c = AbrirBavar(s);
    QList<FilaConcepto> r;
    QSqlQuery q =
        c.ejecutar(QStringLiteral("SELECT Codigo, Nombre FROM Conceptos ORDER BY Codigo"));
    while (q.next())
        r << FilaConcepto{q.value(0).toLongLong(), q.value(1).toString().trimmed()};
    return r;
}

QString TextoConcepto(Sesion& s, qint64 codigo) {
    Conexion c = AbrirBavar(s);
    const QVariant v =
        c.escalar(QStringLiteral("SELECT Nombre FROM Conceptos WHERE Codigo = ?"), {codigo});
    return v.isValid() ? v.toString().trimmed() : QString();
}

bool GuardarConcepto(Sesion& s, Dialogo& d, const QString& codigo, const QString& nombre) {
    static const QRegularExpression digitos(QStringLiteral("^[0-9]{1,9}$"));
    const QString cod = codigo.trimmed();
    if (!digitos.match(cod).hasMatch()) {
        d.Informar(QStringLiteral("Debe introducir el código del Concepto."));
        return false;
    }
    QString nom;
    try {
        nom = TextoCampo(Campo::NombreConcepto, nombre);
    } catch (const Rechazo& e) {
        d.Informar(e.mensaje());
        return false;
    }
    if (nom.isEmpty()) {
        d.Informar(QStringLiteral("Debe introducir el nombre del Concepto."));
        return false;
    }
    const qint64 n = cod.toLongLong();
    Conexion c = AbrirBavar(s);
    if (c.existe(QStringLiteral("SELECT 1 FROM Conceptos WHERE Codigo = ?"), {n})) {
        if (!d.Preguntar(QStringLiteral("Este código de Concepto ya existe, desea modificarlo?")))
            return false;
        Transaccion t(c);
        c.ejecutar(QStringLiteral("UPDATE Conceptos SET Nombre = ? WHERE Codigo = ?"), {nom, n});
        t.confirmar();
        return true;
    }
    Transaccion t(c);
    c.ejecutar(QStringLiteral("INSERT INTO Conceptos (Codigo, Nombre) VALUES (?, ?)"), {n, nom});
    t.confirmar();
    return true;
}

bool EliminarConcepto(Sesion& s, Dialogo& d, qint64 codigo) {
    Conexion c = AbrirBavar(s);
    const QVariant nombre =
        c.escalar(QStringLiteral("SELECT Nombre FROM Conceptos WHERE Codigo = ?"), {codigo});
    if (!nombre.isValid())
        return false;
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Concepto ") +
                     nombre.toString().trimmed()))
        return false;
    Transaccion t(c);
    c.ejecutar(QStringLiteral("DELETE FROM Conceptos WHERE Codigo = ?"), {codigo});
    t.confirmar();
    return true;
}

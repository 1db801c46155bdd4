#include "store/Usuarios.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <sodium.h>

const QString UsuarioAdministrador = QStringLiteral("Administrador");

const QString MsgClaveIncorrecta = QStringLiteral("La clave no es correcta.");
const QString MsgFaltanDatosAcceso =
    QStringLiteral("Debe introducir nombre de Usuario y contraseña.");
const QString MsgFaltaNombreUsuario =
    QStringLiteral("Tiene que introducir el nombre del Usuario, con un máximo de 13 caracteres");
const QString MsgClaveCorta =
    QStringLiteral("Tiene que introducir la contraseña, con un mínimo de 6 caracteres");
const QString MsgFaltaRepetir = QStringLiteral("Tiene que repetir la contraseña");
const QString MsgClavesDistintas = QStringLiteral("Las contraseñas introducidas no coinciden");
const QString MsgClavePuesta = QStringLiteral("Se ha puesto la contraseña.");
const QString MsgProcesoCancelado = QStringLiteral("Proceso cancelado.");
const QString MsgPreguntaQuitarClave =
    QStringLiteral("Desea quitar la Clave de acceso al programa?");
const QString MsgClaveQuitada = QStringLiteral("Se ha quitado la contraseña.");
const QString MsgPreguntaAnadir = QStringLiteral("Desea añadir un nuevo Usuario?");
const QString MsgInstruccionAnadir = QStringLiteral(
    "Introduzca el nombre del Usuario y la contraseña que va a tener inicialmente. Después pulse "
    "Aceptar. El nuevo Usuario podrá cambiar posteriormente su contraseña.");
const QString MsgUsuarioExiste = QStringLiteral("Ya existe un Usuario con ese nombre.");
const QString MsgUsuarioCreado = QStringLiteral("Se ha creado el Usuario.");
const QString MsgPreguntaEliminar = QStringLiteral("Desea eliminar un Usuario?");
const QString MsgInstruccionEliminar =
    QStringLiteral("Introduzca el nombre del Usuario y después pulse Aceptar.");
const QString MsgNoEliminarAdmin =
    QStringLiteral("No se puede eliminar el usuario 'Administrador'.");
const QString MsgUsuarioEliminado = QStringLiteral("Se eliminó el Usuario.");
const QString MsgSoloAdministrador =
    QStringLiteral("Sólo el Administrador, con su contraseña, puede gestionar los Usuarios.");
const QString MsgQuitarConUsuarios =
    QStringLiteral("Mientras haya otros Usuarios el Administrador tiene que tener contraseña. "
                   "Elimine antes los demás Usuarios.");

namespace {

void iniciarSodium() {
    static const bool iniciado = sodium_init() >= 0;
    if (!iniciado)
        throw ErrorQuilmar(QStringLiteral("No se pudo iniciar la biblioteca de cifrado."));
}

QString nombreLimpio(const QString& nombre) {
    return nombre.trimmed();
}

// The stored hash of a user, or no value when the user doesn't exist.
QVariant claveGuardada(Conexion& c, const QString& usuario) {
    return c.escalar(
        QStringLiteral("SELECT \"Contraseña\" FROM Usuarios WHERE Usuario = ? COLLATE NOCASE"),
        {usuario});
}

bool existenOtros(Conexion& c) {
    return c.existe(QStringLiteral("SELECT 1 FROM Usuarios WHERE Usuario <> ? COLLATE NOCASE"),
                    {UsuarioAdministrador});
}

} // namespace

QString CifrarClave(const QString& clave) {
    if (clave.isEmpty())
        return {};
    iniciarSodium();
    const QByteArray texto = clave.toUtf8();
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hash, texto.constData(), static_cast<unsigned long long>(texto.size()),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw ErrorQuilmar(QStringLiteral("No hay memoria suficiente para cifrar la contraseña."));
    return QString::fromLatin1(hash);
}

bool ClaveCoincide(const QString& guardada, const QString& clave) {
    if (guardada.isEmpty() || clave.isEmpty())
        return false;
    iniciarSodium();
    const QByteArray hash = guardada.toLatin1();
    const QByteArray texto = clave.toUtf8();
    return crypto_pwhash_str_verify(hash.constData(), texto.constData(),
                                    static_cast<unsigned long long>(texto.size())) == 0;
}

bool EsAdministrador(const QString& usuario) {
    return usuario.trimmed().toUpper() == UsuarioAdministrador.toUpper();
}

DecisionAcceso DecidirAcceso(Sesion& s) {
    Conexion c = AbrirAvisos(s);
    DecisionAcceso r;
    if (existenOtros(c)) {
        r.necesario = true;
        return r;
    }
    s.UsuarioActual = UsuarioAdministrador;
    const QVariant clave = claveGuardada(c, UsuarioAdministrador);
    if (clave.isValid() && !clave.toString().isEmpty()) {
        r.necesario = true;
        r.usuario = UsuarioAdministrador;
        r.cursor = static_cast<int>(UsuarioAdministrador.size());
    }
    return r;
}

QString ComprobarAcceso(Sesion& s, const QString& usuario, const QString& clave) {
    if (nombreLimpio(usuario).isEmpty() || clave.isEmpty())
        return MsgFaltanDatosAcceso;
    Conexion c = AbrirAvisos(s);
    const QVariant guardada = claveGuardada(c, nombreLimpio(usuario));
    if (!guardada.isValid() || !ClaveCoincide(guardada.toString(), clave))
        return MsgClaveIncorrecta;
    s.UsuarioActual = nombreLimpio(usuario);
    s.ClaveActual = clave;
    return {};
}

PermisosUsuarios Permisos(const Sesion& s) {
    PermisosUsuarios p;
    p.administrador = EsAdministrador(s.UsuarioActual);
    if (p.administrador) {
        Conexion c = AbrirAvisos(s);
        p.administradorConClave = !claveGuardada(c, UsuarioAdministrador).toString().isEmpty();
    }
    return p;
}

QString ComprobarNuevaClave(const QString& nombre, const QString& clave, const QString& repetir) {
    const QString n = nombreLimpio(nombre);
    if (n.isEmpty() || n.size() > LongitudMaximaUsuario)
        return MsgFaltaNombreUsuario;
    if (TieneControles(nombre))
        return MsgControles(EtiquetaCampo(Campo::Usuario));
    if (clave.size() < LongitudMinimaClave)
        return MsgClaveCorta;
    // A password the login screen could not type would lock its user out.
    if (TieneControles(clave) || TieneControles(repetir))
        return MsgControles(QStringLiteral("Contraseña"));
    if (repetir.isEmpty())
        return MsgFaltaRepetir;
    if (clave != repetir)
        return MsgClavesDistintas;
    return {};
}

bool PonerContrasena(Sesion& s, Dialogo& d, const QString& nombre, const QString& clave,
                     const QString& repetir) {
    const QString fallo = ComprobarNuevaClave(nombre, clave, repetir);
    if (!fallo.isEmpty()) {
        d.Informar(fallo);
        return false;
    }
    const QString n = nombreLimpio(nombre);
    // A user other than the administrator changes only his own password.
    if (!EsAdministrador(s.UsuarioActual) && n.compare(s.UsuarioActual, Qt::CaseInsensitive) != 0) {
        d.Informar(MsgProcesoCancelado);
        return false;
    }
    Conexion c = AbrirAvisos(s);
    if (!claveGuardada(c, n).isValid()) {
        d.Informar(MsgProcesoCancelado);
        return false;
    }
    c.ejecutar(
        QStringLiteral("UPDATE Usuarios SET \"Contraseña\" = ? WHERE Usuario = ? COLLATE NOCASE"),
        {CifrarClave(clave), n});
    if (n.compare(s.UsuarioActual, Qt::CaseInsensitive) == 0)
        s.ClaveActual = clave;
    d.Informar(MsgClavePuesta);
    return true;
}

bool QuitarContrasena(Sesion& s, Dialogo& d) {
    if (!Permisos(s).administradorConClave) {
        d.Informar(MsgSoloAdministrador);
        return false;
    }
    if (!d.Preguntar(MsgPreguntaQuitarClave))
        return false;
    Conexion c = AbrirAvisos(s);
    // Without his password the administrator could never log in again while other users are
    // asked for theirs.
    if (existenOtros(c)) {
        d.Informar(MsgQuitarConUsuarios);
        return false;
    }
    c.ejecutar(
        QStringLiteral("UPDATE Usuarios SET \"Contraseña\" = '' WHERE Usuario = ? COLLATE NOCASE"),
        {UsuarioAdministrador});
    s.ClaveActual.clear();
    d.Informar(MsgClaveQuitada);
    return true;
}

bool AnadirUsuario(Sesion& s, Dialogo& d, const QString& nombre, const QString& clave,
                   const QString& repetir) {
    if (!Permisos(s).administradorConClave) {
        d.Informar(MsgSoloAdministrador);
        return false;
    }
    const QString fallo = ComprobarNuevaClave(nombre, clave, repetir);
    if (!fallo.isEmpty()) {
        d.Informar(fallo);
        return false;
    }
    const QString n = nombreLimpio(nombre);
    Conexion c = AbrirAvisos(s);
    if (claveGuardada(c, n).isValid()) {
        d.Informar(MsgUsuarioExiste);
        return false;
    }
    c.ejecutar(QStringLiteral("INSERT INTO Usuarios (Usuario, \"Contraseña\") VALUES (?, ?)"),
               {n, CifrarClave(clave)});
    d.Informar(MsgUsuarioCreado);
    return true;
}

bool EliminarUsuario(Sesion& s, Dialogo& d, const QString& nombre) {
    if (!Permisos(s).administradorConClave) {
        d.Informar(MsgSoloAdministrador);
        return false;
    }
    const QString n = nombreLimpio(nombre);
    if (n.isEmpty()) {
        d.Informar(MsgFaltaNombreUsuario);
        return false;
    }
    if (EsAdministrador(n)) {
        d.Informar(MsgNoEliminarAdmin);
        return false;
    }
    if (!d.Preguntar(QStringLiteral("Está seguro de que desea eliminar el Usuario ") + n +
                     QStringLiteral("?")))
        return false;
    Conexion c = AbrirAvisos(s);
    if (c.ejecutar(QStringLiteral("DELETE FROM Usuarios WHERE Usuario = ? COLLATE NOCASE"), {n})
            .numRowsAffected() == 0) {
        d.Informar(MsgProcesoCancelado);
        return false;
    }
    d.Informar(MsgUsuarioEliminado);
    return true;
}

QStringList ListaUsuarios(const Sesion& s) {
    Conexion c = AbrirAvisos(s);
    QSqlQuery q = c.ejecutar(QStringLiteral("SELECT Usuario FROM Usuarios ORDER BY rowid"));
    QStringList r;
    while (q.next())
        r << q.value(0).toString();
    return r;
}

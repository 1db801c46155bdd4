#pragma once
// The users of an installation (table Usuarios of Bavis.db), who must log in, and the rules of
// the access-key screen. Passwords are kept as salted slow hashes; an empty Contraseña means the
// user has no password.

#include <QString>
#include <QStringList>

class Dialogo;
struct Sesion;

extern const QString UsuarioAdministrador; // "Administrador"

extern const QString MsgClaveIncorrecta;     // "La clave no es correcta."
extern const QString MsgFaltanDatosAcceso;   // "Debe introducir nombre de Usuario y contraseña."
extern const QString MsgFaltaNombreUsuario;  // "Tiene que introducir el nombre del Usuario, ..."
extern const QString MsgClaveCorta;          // "Tiene que introducir la contraseña, ..."
extern const QString MsgFaltaRepetir;        // "Tiene que repetir la contraseña"
extern const QString MsgClavesDistintas;     // "Las contraseñas introducidas no coinciden"
extern const QString MsgClavePuesta;         // "Se ha puesto la contraseña."
extern const QString MsgProcesoCancelado;    // "Proceso cancelado."
extern const QString MsgPreguntaQuitarClave; // "Desea quitar la Clave de acceso al programa?"
extern const QString MsgClaveQuitada;        // "Se ha quitado la contraseña."
extern const QString MsgPreguntaAnadir;      // "Desea añadir un nuevo Usuario?"
extern const QString MsgInstruccionAnadir;   // "Introduzca el nombre del Usuario y la ..."
extern const QString MsgUsuarioExiste;       // "Ya existe un Usuario con ese nombre."
extern const QString MsgUsuarioCreado;       // "Se ha creado el Usuario."
extern const QString MsgPreguntaEliminar;    // "Desea eliminar un Usuario?"
extern const QString MsgInstruccionEliminar; // "Introduzca el nombre del Usuario y después ..."
extern const QString MsgNoEliminarAdmin;     // "No se puede eliminar el usuario 'Administrador'."
extern const QString MsgUsuarioEliminado;    // "Se eliminó el Usuario."
extern const QString MsgSoloAdministrador;   // an action reserved to the administrator
extern const QString MsgQuitarConUsuarios; // the administrator keeps a password while others exist

constexpr int LongitudMaximaUsuario = 13;
constexpr int LongitudMinimaClave = 6;

// Salted slow hash of a password (libsodium, interactive limits); an empty password stays empty.
QString CifrarClave(const QString& clave);
// Whether a typed password matches a stored hash. An empty hash matches nothing.
bool ClaveCoincide(const QString& guardada, const QString& clave);

bool EsAdministrador(const QString& usuario);

// Whether the program asks who is there before it goes on, and how the login screen opens.
struct DecisionAcceso {
    bool necesario = false;
    QString usuario; // pre-filled name
    int cursor = 0;  // cursor position in the name field
};

// Users besides the administrator, or an administrator with a password, demand a login. When
// none is needed the session's user becomes the administrator.
DecisionAcceso DecidirAcceso(Sesion& s);

// One login attempt: an empty result lets the user in (UsuarioActual and ClaveActual take the
// two texts); otherwise the message to show before asking again.
QString ComprobarAcceso(Sesion& s, const QString& usuario, const QString& clave);

// What the session's user may do on the access-key screen.
struct PermisosUsuarios {
    bool administrador = false;         // may name any user, list them
    bool administradorConClave = false; // may add, delete and remove his password
};
PermisosUsuarios Permisos(const Sesion& s);

// The checks of a name and a new password, in order: the message of the first that fails, or
// empty when all pass.
QString ComprobarNuevaClave(const QString& nombre, const QString& clave, const QString& repetir);

// The actions of the access-key screen. Each tells the user through the Dialogo and answers
// whether it changed anything. A password set on the session's own user becomes ClaveActual.
bool PonerContrasena(Sesion& s, Dialogo& d, const QString& nombre, const QString& clave,
                     const QString& repetir);
// Asks first; removes the administrator's password.
bool QuitarContrasena(Sesion& s, Dialogo& d);
bool AnadirUsuario(Sesion& s, Dialogo& d, const QString& nombre, const QString& clave,
                   const QString& repetir);
// Asks for confirmation before deleting.
bool EliminarUsuario(Sesion& s, Dialogo& d, const QString& nombre);

QStringList ListaUsuarios(const Sesion& s);

// Who must log in, the login itself, and the rules of the access-key screen.

#include "store/Usuarios.h"
#include "Entorno.h"
#include "store/Conexiones.h"

#include <gtest/gtest.h>

namespace {

// Writes users straight into Bavis.db (names with their clear passwords, hashed as the program
// keeps them).
void usuarios(Entorno& e, const QList<QPair<QString, QString>>& lista) {
    Conexion c = AbrirAvisos(e.sesion);
    for (const auto& u : lista) {
        c.ejecutar("DELETE FROM Usuarios WHERE Usuario = ?", {u.first});
        c.ejecutar("INSERT INTO Usuarios (Usuario, \"Contraseña\") VALUES (?, ?)",
                   {u.first, CifrarClave(u.second)});
    }
}

QString guardada(Entorno& e, const QString& usuario) {
    Conexion c = AbrirAvisos(e.sesion);
    return c.escalar("SELECT \"Contraseña\" FROM Usuarios WHERE Usuario = ?", {usuario}).toString();
}

TEST(Acceso, MatrizDeLaDecision) {
    struct Caso {
        const char* nombre;
        QList<QPair<QString, QString>> usuarios;
        bool necesario;
        QString prellenado;
        int cursor;
    };
    const QList<Caso> casos{
        {"sólo el Administrador, sin contraseña", {}, false, "", 0},
        {"el Administrador con contraseña",
         {{"Administrador", "clave1"}},
         true,
         "Administrador",
         13},
        {"otros usuarios y el Administrador sin contraseña", {{"Ana", "anaana"}}, true, "", 0},
        {"otros usuarios y el Administrador con contraseña",
         {{"Administrador", "clave1"}, {"Ana", "anaana"}},
         true,
         "",
         0},
    };
    for (const Caso& caso : casos) {
        Entorno e;
        usuarios(e, caso.usuarios);
        const DecisionAcceso d = DecidirAcceso(e.sesion);
        EXPECT_EQ(d.necesario, caso.necesario) << caso.nombre;
        EXPECT_EQ(d.usuario, caso.prellenado) << caso.nombre;
        EXPECT_EQ(d.cursor, caso.cursor) << caso.nombre;
        if (!caso.necesario) {
            EXPECT_EQ(e.sesion.UsuarioActual, "Administrador") << caso.nombre;
        }
    }
}

TEST(Acceso, MensajesDeCadaIntento) {
    Entorno e;
    usuarios(e, {{"Administrador", "clave1"}, {"Ana", "anaana"}});
    EXPECT_EQ(ComprobarAcceso(e.sesion, "", "anaana"), MsgFaltanDatosAcceso);
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", ""), MsgFaltanDatosAcceso);
    EXPECT_EQ(MsgFaltanDatosAcceso, "Debe introducir nombre de Usuario y contraseña.");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "clave1"), "La clave no es correcta.");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Nadie", "anaana"), "La clave no es correcta.");
    EXPECT_TRUE(e.sesion.UsuarioActual.isEmpty()) << "a failed attempt sets nobody";

    EXPECT_EQ(ComprobarAcceso(e.sesion, "ana", "anaana"), "") << "names ignore case";
    EXPECT_EQ(e.sesion.UsuarioActual, "ana");
    EXPECT_EQ(e.sesion.ClaveActual, "anaana");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "ANAANA"), "La clave no es correcta.")
        << "passwords don't";
}

TEST(Acceso, NombresYClavesRarosEntranOFallanLimpiamente) {
    Entorno e;
    const QString largo = QString(200, QChar(u'ñ'));
    const QString comillas = "O'Brien \"el\" ñú";
    usuarios(e, {{"Administrador", "clave1"}, {"José O'Neil", comillas}, {"Largo", largo}});
    EXPECT_EQ(ComprobarAcceso(e.sesion, "José O'Neil", comillas), "");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Largo", largo), "");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Largo", largo.left(199)), MsgClaveIncorrecta);
    // What would break a statement built by concatenation is just a wrong name or password.
    EXPECT_EQ(ComprobarAcceso(e.sesion, "x' OR '1'='1", "x' OR '1'='1"), MsgClaveIncorrecta);
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Administrador", "' OR ''='"), MsgClaveIncorrecta);
    EXPECT_EQ(ComprobarAcceso(e.sesion, QString(200, QChar('\'')), QString(200, QChar('"'))),
              MsgClaveIncorrecta);
}

TEST(Acceso, LasClavesSeGuardanCifradasConSal) {
    Entorno e;
    usuarios(e, {{"Ana", "misma1"}, {"Luis", "misma1"}});
    const QString ana = guardada(e, "Ana");
    EXPECT_TRUE(ana.startsWith("$argon2id$")) << ana.toStdString();
    EXPECT_FALSE(ana.contains("misma1"));
    EXPECT_NE(ana, guardada(e, "Luis")) << "each hash has its own salt";
    EXPECT_TRUE(ClaveCoincide(ana, "misma1"));
    EXPECT_FALSE(ClaveCoincide(ana, "misma2"));
    EXPECT_FALSE(ClaveCoincide("", "")) << "an empty password matches nothing";
    EXPECT_FALSE(ClaveCoincide("no es un hash", "no es un hash"));
    EXPECT_EQ(CifrarClave(""), "");
}

TEST(Usuarios, ComprobacionesEnOrden) {
    const QString trece = "Administrador";
    ASSERT_EQ(trece.size(), 13);
    EXPECT_EQ(ComprobarNuevaClave("", "", ""),
              "Tiene que introducir el nombre del Usuario, con un máximo de 13 caracteres");
    EXPECT_EQ(ComprobarNuevaClave("   ", "abcdef", "abcdef"), MsgFaltaNombreUsuario);
    EXPECT_EQ(ComprobarNuevaClave(trece + "x", "abcdef", "abcdef"), MsgFaltaNombreUsuario);
    EXPECT_EQ(ComprobarNuevaClave(trece, "abcde", ""),
              "Tiene que introducir la contraseña, con un mínimo de 6 caracteres");
    EXPECT_EQ(ComprobarNuevaClave(trece, "abcdef", ""), "Tiene que repetir la contraseña");
    EXPECT_EQ(ComprobarNuevaClave(trece, "abcdef", "abcdeF"),
              "Las contraseñas introducidas no coinciden");
    EXPECT_EQ(ComprobarNuevaClave(trece, "abcdef", "abcdef"), "");
}

TEST(Usuarios, ElAdministradorPoneSuClaveYDespuesGestiona) {
    Entorno e;
    DecidirAcceso(e.sesion);
    ASSERT_EQ(e.sesion.UsuarioActual, "Administrador");
    PermisosUsuarios p = Permisos(e.sesion);
    EXPECT_TRUE(p.administrador);
    EXPECT_FALSE(p.administradorConClave);

    // Without his password, users can't be made.
    EXPECT_FALSE(AnadirUsuario(e.sesion, e.dialogo, "Ana", "anaana", "anaana"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgSoloAdministrador);

    EXPECT_TRUE(PonerContrasena(e.sesion, e.dialogo, "Administrador", "secreto", "secreto"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha puesto la contraseña.");
    EXPECT_EQ(e.sesion.ClaveActual, "secreto");
    EXPECT_TRUE(Permisos(e.sesion).administradorConClave);
    EXPECT_TRUE(DecidirAcceso(e.sesion).necesario);

    EXPECT_TRUE(AnadirUsuario(e.sesion, e.dialogo, " Ana ", "anaana", "anaana"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha creado el Usuario.");
    EXPECT_FALSE(AnadirUsuario(e.sesion, e.dialogo, "ANA", "otra12", "otra12"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Ya existe un Usuario con ese nombre.");
    EXPECT_EQ(ListaUsuarios(e.sesion), QStringList({"Administrador", "Ana"}));
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "anaana"), "");

    // A password for a user that doesn't exist.
    e.sesion.UsuarioActual = "Administrador";
    EXPECT_FALSE(PonerContrasena(e.sesion, e.dialogo, "Nadie", "abcdef", "abcdef"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Proceso cancelado.");

    // The administrator keeps his password while others exist.
    e.dialogo.responder({true});
    EXPECT_FALSE(QuitarContrasena(e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.preguntas.takeLast(), "Desea quitar la Clave de acceso al programa?");
    EXPECT_EQ(e.dialogo.informados.takeLast(), MsgQuitarConUsuarios);

    EXPECT_FALSE(EliminarUsuario(e.sesion, e.dialogo, "administrador"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "No se puede eliminar el usuario 'Administrador'.");
    e.dialogo.responder({false});
    EXPECT_FALSE(EliminarUsuario(e.sesion, e.dialogo, "Ana"));
    EXPECT_EQ(e.dialogo.preguntas.takeLast(), "Está seguro de que desea eliminar el Usuario Ana?");
    EXPECT_EQ(ListaUsuarios(e.sesion).size(), 2);
    e.dialogo.responder({true});
    EXPECT_TRUE(EliminarUsuario(e.sesion, e.dialogo, "Ana"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se eliminó el Usuario.");
    EXPECT_EQ(ListaUsuarios(e.sesion), QStringList({"Administrador"}));

    // Alone again, he may remove it, and nobody is asked to log in.
    e.dialogo.responder({true});
    EXPECT_TRUE(QuitarContrasena(e.sesion, e.dialogo));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha quitado la contraseña.");
    EXPECT_EQ(guardada(e, "Administrador"), "");
    EXPECT_TRUE(e.sesion.ClaveActual.isEmpty());
    EXPECT_FALSE(DecidirAcceso(e.sesion).necesario);
}

TEST(Usuarios, UnUsuarioSoloCambiaSuPropiaClave) {
    Entorno e;
    usuarios(e, {{"Administrador", "clave1"}, {"Ana", "anaana"}, {"Luis", "luisluis"}});
    ASSERT_EQ(ComprobarAcceso(e.sesion, "Ana", "anaana"), "");
    const PermisosUsuarios p = Permisos(e.sesion);
    EXPECT_FALSE(p.administrador);
    EXPECT_FALSE(p.administradorConClave);

    EXPECT_FALSE(PonerContrasena(e.sesion, e.dialogo, "Luis", "robada", "robada"));
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Proceso cancelado.");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Luis", "luisluis"), "") << "Luis's password unchanged";

    ASSERT_EQ(ComprobarAcceso(e.sesion, "Ana", "anaana"), "");
    EXPECT_TRUE(PonerContrasena(e.sesion, e.dialogo, "Ana", "nueva1", "nueva1"));
    EXPECT_EQ(e.sesion.ClaveActual, "nueva1");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "anaana"), MsgClaveIncorrecta);
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "nueva1"), "");

    for (auto accion :
         {+[](Sesion&s, Dialogo&d) { return AnadirUsuario(s, d, "Eva", "evaeva", "evaeva"); },
          +[](Sesion&s, Dialogo&d) { return EliminarUsuario(s, d, "Luis"); },
          +[](Sesion&s, Dialogo&d) {
              return QuitarContrasena(s, d);
          }}) {
        e.dialogo.responder({true});
        EXPECT_FALSE(accion(e.sesion, e.dialogo));
        EXPECT_EQ(e.dialogo.informados.takeLast(), MsgSoloAdministrador);
    }
    EXPECT_EQ(ListaUsuarios(e.sesion).size(), 3);
}

} // namespace

// The access-key screen: what each user may do, and the rules with their messages, driven
// through its buttons.

#include "store/forms/Form43.h"
#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Conexiones.h"
#include "store/Usuarios.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <gtest/gtest.h>

namespace {

void usuarios(Entorno& e, const QList<QPair<QString, QString>>& lista) {
    Conexion c = AbrirAvisos(e.sesion);
    for (const auto& u : lista)
        c.ejecutar("INSERT OR REPLACE INTO Usuarios (Usuario, \"Contraseña\") VALUES (?, ?)",
                   {u.first, CifrarClave(u.second)});
}

QString activos(const Form43& f) {
    QString r;
    for (int i = 1; i <= 6; ++i)
        r += Control<QPushButton>(&f, QString("Command%1").arg(i))->isEnabled() ? '1' : '0';
    return r;
}

QString texto(const Form43& f, const char* campo) {
    return Control<QLineEdit>(&f, campo)->text();
}

TEST(Form43, UnUsuarioSoloCambiaSuClave) {
    Entorno e;
    usuarios(e, {{"Administrador", "clave1"}, {"Ana", "anaana"}});
    ASSERT_EQ(ComprobarAcceso(e.sesion, "Ana", "anaana"), "");
    Form43 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(f.windowTitle(), "Quilmar [Acceso]");
    EXPECT_EQ(texto(f, "Text1"), "Ana");
    EXPECT_EQ(texto(f, "Text2"), "anaana");
    EXPECT_TRUE(Control<QLineEdit>(&f, "Text1")->isReadOnly());
    // Poner only: no Quitar, Añadir, Eliminar, Ver, and Aceptar waits for a mode.
    EXPECT_EQ(activos(f), "100000");

    Escribir(&f, "Text2", "nueva1");
    Escribir(&f, "Text3", "nueva2");
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Las contraseñas introducidas no coinciden");
    EXPECT_EQ(texto(f, "Text2"), "") << "both passwords are emptied";
    EXPECT_EQ(texto(f, "Text3"), "");
    Escribir(&f, "Text2", "nueva1");
    Escribir(&f, "Text3", "nueva1");
    Pulsar(&f, "Command1");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha puesto la contraseña.");
    EXPECT_EQ(ComprobarAcceso(e.sesion, "Ana", "nueva1"), "");
}

TEST(Form43, ElAdministradorSinClaveSoloPuedePonerla) {
    Entorno e;
    DecidirAcceso(e.sesion);
    Form43 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    EXPECT_EQ(texto(f, "Text1"), "Administrador");
    EXPECT_FALSE(Control<QLineEdit>(&f, "Text1")->isReadOnly());
    EXPECT_EQ(activos(f), "100010") << "Poner and Ver";

    // The checks, in order, each with its message.
    const QList<QPair<QStringList, QString>> casos{
        {{"", "abcdef", "abcdef"},
         "Tiene que introducir el nombre del Usuario, con un máximo de 13 caracteres"},
        {{"Administrador", "abc", ""},
         "Tiene que introducir la contraseña, con un mínimo de 6 caracteres"},
        {{"Administrador", "abcdef", ""}, "Tiene que repetir la contraseña"},
        {{"Nadie", "abcdef", "abcdef"}, "Proceso cancelado."},
        {{"Administrador", "secreto", "secreto"}, "Se ha puesto la contraseña."},
    };
    for (const auto& [campos, mensaje] : casos) {
        Escribir(&f, "Text1", campos[0]);
        Escribir(&f, "Text2", campos[1]);
        Escribir(&f, "Text3", campos[2]);
        Pulsar(&f, "Command1");
        EXPECT_EQ(e.dialogo.informados.takeLast(), mensaje) << campos.join('|').toStdString();
    }
    EXPECT_EQ(activos(f), "111110") << "with his password he manages users";
}

TEST(Form43, AnadirVerYEliminarUsuarios) {
    Entorno e;
    usuarios(e, {{"Administrador", "clave1"}});
    ASSERT_EQ(ComprobarAcceso(e.sesion, "Administrador", "clave1"), "");
    Form43 f(e.sesion, *e.ajustes, e.dialogo);
    f.show();
    ASSERT_EQ(activos(f), "111110");

    // Declining the question changes nothing.
    e.dialogo.responder({false});
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.dialogo.preguntas.takeLast(), "Desea añadir un nuevo Usuario?");
    EXPECT_EQ(texto(f, "Text1"), "Administrador");

    e.dialogo.responder({true});
    Pulsar(&f, "Command3");
    EXPECT_EQ(e.dialogo.informados.takeLast(),
              "Introduzca el nombre del Usuario y la contraseña que va a tener inicialmente. "
              "Después pulse Aceptar. El nuevo Usuario podrá cambiar posteriormente su "
              "contraseña.");
    EXPECT_EQ(texto(f, "Text1"), "");
    EXPECT_EQ(activos(f), "000001") << "only Aceptar while adding";
    Escribir(&f, "Text1", "Administrador");
    Escribir(&f, "Text2", "abcdef");
    Escribir(&f, "Text3", "abcdef");
    Pulsar(&f, "Command6");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Ya existe un Usuario con ese nombre.");
    Escribir(&f, "Text1", "Luis O'Hara");
    Escribir(&f, "Text2", "luis12");
    Escribir(&f, "Text3", "luis13");
    Pulsar(&f, "Command6");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Las contraseñas introducidas no coinciden");
    EXPECT_EQ(texto(f, "Text2"), "");
    Escribir(&f, "Text2", "luis12");
    Escribir(&f, "Text3", "luis12");
    Pulsar(&f, "Command6");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha creado el Usuario.");
    EXPECT_EQ(texto(f, "Text1"), "Administrador") << "back to the session's user";
    EXPECT_EQ(activos(f), "111110");

    Pulsar(&f, "Command5");
    auto* lista = Control<QListWidget>(&f, "List1");
    ASSERT_TRUE(lista->isVisible());
    ASSERT_EQ(lista->count(), 2);
    EXPECT_EQ(lista->item(1)->text(), "Luis O'Hara");

    e.dialogo.responder({true});
    Pulsar(&f, "Command4");
    EXPECT_EQ(e.dialogo.preguntas.takeLast(), "Desea eliminar un Usuario?");
    EXPECT_EQ(e.dialogo.informados.takeLast(),
              "Introduzca el nombre del Usuario y después pulse Aceptar.");
    EXPECT_FALSE(Control<QLineEdit>(&f, "Text2")->isEnabled());
    Escribir(&f, "Text1", "Administrador");
    Pulsar(&f, "Command6");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "No se puede eliminar el usuario 'Administrador'.");
    Escribir(&f, "Text1", "Luis O'Hara");
    e.dialogo.responder({true});
    Pulsar(&f, "Command6");
    EXPECT_EQ(e.dialogo.preguntas.takeLast(),
              "Está seguro de que desea eliminar el Usuario Luis O'Hara?");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se eliminó el Usuario.");
    EXPECT_EQ(lista->count(), 1) << "the open list follows";
    Pulsar(&f, "Command8");
    EXPECT_FALSE(lista->isVisible());

    // Alone again he may remove his password, and then only Poner and Ver are left.
    e.dialogo.responder({true});
    Pulsar(&f, "Command2");
    EXPECT_EQ(e.dialogo.informados.takeLast(), "Se ha quitado la contraseña.");
    EXPECT_EQ(activos(f), "100010");
    EXPECT_FALSE(DecidirAcceso(e.sesion).necesario);
}

} // namespace

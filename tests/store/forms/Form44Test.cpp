// The login screen and its loop, driven as a user would.

#include "store/forms/Form44.h"
#include "Entorno.h"
#include "forms/Pantallas.h"
#include "store/Conexiones.h"
#include "store/Usuarios.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

void usuarios(Entorno& e, const QList<QPair<QString, QString>>& lista) {
    Conexion c = AbrirAvisos(e.sesion);
    for (const auto& u : lista)
        c.ejecutar("INSERT OR REPLACE INTO Usuarios (Usuario, \"Contraseña\") VALUES (?, ?)",
                   {u.first, CifrarClave(u.second)});
}

// One attempt: type both texts into the open login window and press Aceptar; then the next.
struct Intento {
    QString usuario;
    QString clave;
    QString boton = "Aceptar"; // or "Cancelar", or "" for Escape
};

void intentar(QList<Intento> intentos, QStringList* vistos = nullptr) {
    if (intentos.isEmpty())
        return;
    AlAbrirseModal([intentos, vistos](QWidget* w) mutable {
        ASSERT_EQ(w->objectName(), "Form44");
        if (vistos)
            *vistos << Control<QLineEdit>(w, "Text1")->text();
        const Intento i = intentos.takeFirst();
        intentar(intentos, vistos);
        if (i.boton.isEmpty()) {
            QTest::keyClick(w, Qt::Key_Escape);
            return;
        }
        Escribir(w, "Text1", i.usuario);
        Escribir(w, "Text2", i.clave);
        Pulsar(w, i.boton);
    });
}

TEST(Form44, BucleHastaQueLaClaveEsCorrecta) {
    Entorno e;
    usuarios(e, {{"Administrador", "clave1"}, {"Ana", "anaana"}});
    const DecisionAcceso d = DecidirAcceso(e.sesion);
    ASSERT_TRUE(d.necesario);
    QStringList vistos;
    intentar({{"Ana", ""}, {"Ana", "mala12"}, {"", "", ""}, {"Ana", "anaana"}}, &vistos);
    EXPECT_TRUE(Form44::PedirAcceso(e.sesion, *e.ajustes, e.dialogo, d));
    EXPECT_EQ(
        e.dialogo.informados,
        QStringList({"Debe introducir nombre de Usuario y contraseña.", "La clave no es correcta.",
                     "Debe introducir nombre de Usuario y contraseña."}))
        << "Escape closes the window and hands back nothing";
    EXPECT_EQ(e.sesion.UsuarioActual, "Ana");
    EXPECT_EQ(e.sesion.ClaveActual, "anaana");
    EXPECT_EQ(vistos, QStringList({"", "", "", ""})) << "with other users the fields start empty";
}

TEST(Form44, CancelarTerminaElPrograma) {
    Entorno e;
    usuarios(e, {{"Ana", "anaana"}});
    intentar({{"Ana", "mala12"}, {"Ana", "anaana", "Cancelar"}});
    EXPECT_FALSE(Form44::PedirAcceso(e.sesion, *e.ajustes, e.dialogo, DecidirAcceso(e.sesion)));
    EXPECT_EQ(e.dialogo.informados, QStringList({"La clave no es correcta."}));
    EXPECT_TRUE(e.sesion.ClaveActual.isEmpty());
}

TEST(Form44, SoloElAdministradorConClaveVieneEscrito) {
    Entorno e;
    const QString clave = QString(200, QChar(u'é')) + "'\"";
    usuarios(e, {{"Administrador", clave}});
    const DecisionAcceso d = DecidirAcceso(e.sesion);
    Form44 f(*e.ajustes, d.usuario, d.cursor);
    f.show();
    QApplication::processEvents();
    auto* usuario = Control<QLineEdit>(&f, "Text1");
    EXPECT_EQ(usuario->text(), "Administrador");
    EXPECT_EQ(usuario->cursorPosition(), 13);
    EXPECT_FALSE(usuario->hasSelectedText());
    EXPECT_EQ(Control<QLineEdit>(&f, "Text2")->echoMode(), QLineEdit::Password);
    f.close();

    // Only the password is typed; a long one with quotes gets in.
    AlAbrirseModal([clave](QWidget* w) {
        Escribir(w, "Text2", clave);
        Pulsar(w, "Aceptar");
    });
    EXPECT_TRUE(Form44::PedirAcceso(e.sesion, *e.ajustes, e.dialogo, d));
    EXPECT_TRUE(e.dialogo.informados.isEmpty());
    EXPECT_EQ(e.sesion.UsuarioActual, "Administrador");
}

} // namespace

#include "store/forms/Form43.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/Usuarios.h"
#include "store/forms/CampoTexto.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QPushButton* boton(const QString& texto, const QString& nombre) {
    auto* b = new QPushButton(texto);
    b->setObjectName(nombre);
    b->setAutoDefault(false);
    return b;
}
} // namespace

Form43::Form43(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form43"));
    setWindowTitle(QStringLiteral("Quilmar [Acceso]"));

    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    LimitarCampo(Text1, Campo::Usuario);
    Text2 = new QLineEdit;
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setEchoMode(QLineEdit::Password);
    SinControlesEnCaja(Text2);
    Text3 = new QLineEdit;
    Text3->setObjectName(QStringLiteral("Text3"));
    Text3->setEchoMode(QLineEdit::Password);
    SinControlesEnCaja(Text3);
    auto* campos = new QGroupBox(QStringLiteral("Clave de acceso"));
    auto* formulario = new QFormLayout(campos);
    formulario->addRow(QStringLiteral("Usuario:"), Text1);
    formulario->addRow(QStringLiteral("Contraseña:"), Text2);
    formulario->addRow(QStringLiteral("Repetir contraseña:"), Text3);

    Command1 = boton(QStringLiteral("Poner Contraseña"), QStringLiteral("Command1"));
    Command2 = boton(QStringLiteral("Quitar Contraseña"), QStringLiteral("Command2"));
    Command3 = boton(QStringLiteral("Añadir Usuario"), QStringLiteral("Command3"));
    Command4 = boton(QStringLiteral("Eliminar Usuario"), QStringLiteral("Command4"));
    Command5 = boton(QStringLiteral("Ver Usuarios"), QStringLiteral("Command5"));
    Command6 = boton(QStringLiteral("&Aceptar"), QStringLiteral("Command6"));
    Command7 = boton(QStringLiteral("&Salir"), QStringLiteral("Command7"));
    Command8 = boton(QStringLiteral("&Cerrar"), QStringLiteral("Command8"));
    auto* Command9 = boton(QStringLiteral("Ay&uda"), QStringLiteral("Command9"));
    Command9->setEnabled(false);

    auto* acciones = new QGridLayout;
    acciones->addWidget(Command1, 0, 0);
    acciones->addWidget(Command2, 0, 1);
    acciones->addWidget(Command3, 1, 0);
    acciones->addWidget(Command4, 1, 1);
    acciones->addWidget(Command5, 2, 0);

    auto* fin = new QHBoxLayout;
    fin->addStretch();
    fin->addWidget(Command6);
    fin->addWidget(Command7);
    fin->addWidget(Command9);

    // The list of users, shown by Ver Usuarios and hidden by Cerrar.
    marcoLista_ = new QGroupBox(QStringLiteral("Usuarios"));
    List1 = new QListWidget;
    List1->setObjectName(QStringLiteral("List1"));
    auto* lista = new QVBoxLayout(marcoLista_);
    lista->addWidget(List1);
    lista->addWidget(Command8, 0, Qt::AlignRight);
    marcoLista_->hide();

    auto* izquierda = new QVBoxLayout;
    izquierda->addWidget(campos);
    izquierda->addLayout(acciones);
    izquierda->addStretch();
    izquierda->addLayout(fin);
    auto* fila = new QHBoxLayout(this);
    fila->addLayout(izquierda);
    fila->addWidget(marcoLista_);

    connect(Command1, &QPushButton::clicked, this, &Form43::ponerContrasena);
    connect(Command2, &QPushButton::clicked, this, &Form43::quitarContrasena);
    connect(Command3, &QPushButton::clicked, this, &Form43::anadirUsuario);
    connect(Command4, &QPushButton::clicked, this, &Form43::eliminarUsuario);
    connect(Command5, &QPushButton::clicked, this, &Form43::verUsuarios);
    connect(Command6, &QPushButton::clicked, this, &Form43::aceptar);
    connect(Command7, &QPushButton::clicked, this, &QDialog::reject);
    connect(Command8, &QPushButton::clicked, marcoLista_, &QWidget::hide);

    volverANormal();
    PrepararVentana(this, a, 43);
}

void Form43::aplicarPermisos() {
    PermisosUsuarios p;
    try {
        p = Permisos(s_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    const bool normal = modo_ == Modo::Normal;
    // A user other than the administrator can only change his own password.
    Text1->setReadOnly(normal && !p.administrador);
    Command1->setEnabled(normal);
    Command2->setEnabled(normal && p.administradorConClave);
    Command3->setEnabled(normal && p.administradorConClave);
    Command4->setEnabled(normal && p.administradorConClave);
    Command5->setEnabled(normal && p.administrador);
    Command6->setEnabled(!normal);
    // Enter does what the screen is for at the moment: set the password typed, or end the
    // adding or deleting of a user.
    Command1->setDefault(normal);
    Command6->setDefault(!normal);
    Text2->setEnabled(modo_ != Modo::Eliminando);
    Text3->setEnabled(modo_ != Modo::Eliminando);
}

void Form43::volverANormal() {
    modo_ = Modo::Normal;
    Text1->setText(s_.UsuarioActual);
    Text2->setText(s_.ClaveActual);
    Text3->clear();
    aplicarPermisos();
}

bool Form43::vaciarSiNoCoinciden() {
    if (ComprobarNuevaClave(Text1->text(), Text2->text(), Text3->text()) != MsgClavesDistintas)
        return false;
    Text2->clear();
    Text3->clear();
    return true;
}

void Form43::ponerContrasena() {
    try {
        const bool hecho = PonerContrasena(s_, d_, Text1->text(), Text2->text(), Text3->text());
        vaciarSiNoCoinciden();
        if (hecho)
            Text3->clear();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    aplicarPermisos();
}

void Form43::quitarContrasena() {
    try {
        if (QuitarContrasena(s_, d_)) {
            Text2->clear();
            Text3->clear();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    aplicarPermisos();
}

void Form43::anadirUsuario() {
    if (!d_.Preguntar(MsgPreguntaAnadir))
        return;
    modo_ = Modo::Anadiendo;
    Text1->clear();
    Text2->clear();
    Text3->clear();
    aplicarPermisos();
    Text1->setFocus();
    d_.Informar(MsgInstruccionAnadir);
}

void Form43::eliminarUsuario() {
    if (!d_.Preguntar(MsgPreguntaEliminar))
        return;
    modo_ = Modo::Eliminando;
    Text1->clear();
    Text2->clear();
    Text3->clear();
    aplicarPermisos();
    Text1->setFocus();
    d_.Informar(MsgInstruccionEliminar);
}

void Form43::verUsuarios() {
    List1->clear();
    try {
        List1->addItems(ListaUsuarios(s_));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    marcoLista_->show();
}

void Form43::aceptar() {
    try {
        if (modo_ == Modo::Anadiendo) {
            if (AnadirUsuario(s_, d_, Text1->text(), Text2->text(), Text3->text()))
                volverANormal();
            else
                vaciarSiNoCoinciden();
        } else if (modo_ == Modo::Eliminando) {
            if (EliminarUsuario(s_, d_, Text1->text()))
                volverANormal();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    if (marcoLista_->isVisible())
        verUsuarios();
}

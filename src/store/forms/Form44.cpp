#include "store/forms/Form44.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Usuarios.h"
#include "store/forms/CampoTexto.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

Form44::Form44(Ajustes& ajustes, const QString& usuario, int cursor, QWidget* padre)
    : QDialog(padre) {
    setObjectName(QStringLiteral("Form44"));
    setWindowTitle(QStringLiteral("Quilmar"));

    auto* marco = new QGroupBox(QStringLiteral("Clave de acceso"));
    auto* campos = new QFormLayout(marco);
    Text1 = new QLineEdit(usuario);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit;
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setEchoMode(QLineEdit::Password);
    LimitarCampo(Text1, Campo::Usuario);
    SinControlesEnCaja(Text2);
    campos->addRow(QStringLiteral("&Usuario:"), Text1);
    campos->addRow(QStringLiteral("&Contraseña:"), Text2);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    auto* cancelar = botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
    cancelar->setObjectName(QStringLiteral("Cancelar"));
    // Help files are not part of this installation.
    auto* ayuda = botones->addButton(QStringLiteral("Ay&uda"), QDialogButtonBox::HelpRole);
    ayuda->setObjectName(QStringLiteral("Ayuda"));
    ayuda->setEnabled(false);
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelar, &QPushButton::clicked, this, [this] { done(Cancelada); });

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(marco);
    columna->addWidget(botones);

    cursor_ = qMin(cursor, static_cast<int>(usuario.size()));
    Text1->setFocus();
    Text1->setCursorPosition(cursor_);
    PrepararVentana(this, ajustes);
    setMinimumWidth(360);
}

void Form44::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    // The first focus selects the whole name; the cursor stands after it instead, so that
    // typing adds to it rather than replacing it.
    QTimer::singleShot(0, this, [this] {
        Text1->deselect();
        Text1->setCursorPosition(cursor_);
    });
}

QString Form44::usuario() const {
    return Text1->text();
}

QString Form44::clave() const {
    return Text2->text();
}

bool Form44::PedirAcceso(Sesion& s, Ajustes& a, Dialogo& d, const DecisionAcceso& decision,
                         QWidget* padre) {
    for (;;) {
        Form44 f(a, decision.usuario, decision.cursor, padre);
        const int salida = f.exec();
        if (salida == Cancelada)
            return false;
        // A window closed without Aceptar hands back nothing.
        const QString usuario = salida == Aceptada ? f.usuario() : QString();
        const QString clave = salida == Aceptada ? f.clave() : QString();
        QString fallo;
        try {
            fallo = ComprobarAcceso(s, usuario, clave);
        } catch (const ErrorQuilmar& e) {
            fallo = e.mensaje();
        }
        if (fallo.isEmpty())
            return true;
        d.Informar(fallo);
    }
}

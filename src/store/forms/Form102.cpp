#include "store/forms/Form102.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Arranque.h"
#include "store/Sesion.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
QLabel* nota(const QString& texto) {
    auto* l = new QLabel(texto);
    l->setWordWrap(true);
    l->setIndent(22);
    QFont f = l->font();
    f.setItalic(true);
    l->setFont(f);
    return l;
}
} // namespace

Form102::Form102(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form102"));
    setWindowTitle(QStringLiteral("Quilmar"));
    buscarCarpeta = [](QWidget* w) {
        return QFileDialog::getExistingDirectory(
            w, QStringLiteral("Carpeta del programa Servidor o principal"));
    };

    try {
        PLocInicial(s_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }

    auto* pregunta =
        new QLabel(QStringLiteral("Por favor, indique como se va a utilizar este programa"));
    QFont negrita = pregunta->font();
    negrita.setBold(true);
    pregunta->setFont(negrita);
    Option1 = new QRadioButton(QStringLiteral("Como Servidor o principal"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Como Cliente o secundario"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option3 = new QRadioButton(QStringLiteral("Con los datos en un servidor PostgreSQL"));
    Option3->setObjectName(QStringLiteral("Option3"));
    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    auto campo = [](const char* nombre, int largo) {
        auto* t = new QLineEdit;
        t->setObjectName(QLatin1String(nombre));
        t->setMaxLength(largo);
        return t;
    };
    TextServidor = campo("TextServidor", 253);
    TextPuerto = campo("TextPuerto", 5);
    TextPuerto->setValidator(new QIntValidator(1, 65535, TextPuerto));
    TextBase = campo("TextBase", 63);
    TextUsuario = campo("TextUsuario", 63);
    Command2 = new QPushButton(QStringLiteral("..."));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setToolTip(QStringLiteral("Buscar la carpeta"));

    // The server chosen before, if any, fills its fields; its password is never shown or kept.
    Servidor elegido;
    elegido.host = QStringLiteral("localhost");
    elegido.usuario = qEnvironmentVariable("USER");
    bool conServidor = false;
    try {
        if (const QString url = ServidorElegido(a); !url.isEmpty()) {
            elegido = Servidor::DeUrl(url);
            conServidor = true;
        }
    } catch (const ErrorQuilmar&) {
        // A setting spoilt by hand: the fields start from the defaults.
    }
    TextServidor->setText(elegido.host);
    TextPuerto->setText(QString::number(elegido.puerto));
    TextBase->setText(elegido.base);
    TextUsuario->setText(elegido.usuario);

    const bool cliente = !s_.DataPath.isEmpty() && !s_.esPrincipal();
    (conServidor ? Option3 : cliente ? Option2 : Option1)->setChecked(true);
    if (cliente)
        Text1->setText(s_.DataPath);

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Option1, 0, 0, 1, 2);
    rejilla->addWidget(nota(QStringLiteral("(Las bases de datos se ubicarán en este ordenador)")),
                       1, 0, 1, 2);
    rejilla->addWidget(Option2, 2, 0, 1, 2);
    rejilla->addWidget(nota(QStringLiteral("(Las bases de datos están en otro ordenador, "
                                           "comunicándose mediante red local)")),
                       3, 0, 1, 2);
    auto* etiqueta = new QLabel(QStringLiteral(
        "Busque en la red la carpeta donde está instalado el programa Servidor o principal:"));
    etiqueta->setWordWrap(true);
    rejilla->addWidget(etiqueta, 4, 0, 1, 2);
    rejilla->addWidget(Text1, 5, 0);
    rejilla->addWidget(Command2, 5, 1);
    rejilla->addWidget(Option3, 6, 0, 1, 2);
    rejilla->addWidget(nota(QStringLiteral("(Las bases de datos están en un servidor de bases de "
                                           "datos, al que se conectan todos los puestos. La "
                                           "contraseña no se guarda: se toma del archivo .pgpass "
                                           "o se pregunta al abrir el programa)")),
                       7, 0, 1, 2);
    auto* datosServidor = new QFormLayout;
    datosServidor->setContentsMargins(22, 0, 0, 0);
    datosServidor->addRow(QStringLiteral("&Servidor:"), TextServidor);
    datosServidor->addRow(QStringLiteral("&Puerto:"), TextPuerto);
    datosServidor->addRow(QStringLiteral("&Base de datos:"), TextBase);
    datosServidor->addRow(QStringLiteral("&Usuario:"), TextUsuario);
    rejilla->addLayout(datosServidor, 8, 0, 1, 2);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(pregunta);
    columna->addLayout(rejilla);
    columna->addStretch();
    columna->addWidget(botones);

    connect(aceptar, &QPushButton::clicked, this, &Form102::aceptar);
    connect(Command2, &QPushButton::clicked, this, &Form102::buscar);
    connect(Option1, &QRadioButton::toggled, this, &Form102::actualizar);
    connect(Option2, &QRadioButton::toggled, this, &Form102::actualizar);
    actualizar();
    setMinimumWidth(480);
    PrepararVentana(this, a);
}

void Form102::actualizar() {
    Text1->setEnabled(Option2->isChecked());
    Command2->setEnabled(Option2->isChecked());
    for (QLineEdit* t : {TextServidor, TextPuerto, TextBase, TextUsuario})
        t->setEnabled(Option3->isChecked());
}

void Form102::buscar() {
    const QString carpeta = buscarCarpeta(this);
    if (carpeta.isEmpty()) {
        d_.Informar(MsgSinCarpetaServidor);
        return;
    }
    Text1->setText(QDir::toNativeSeparators(carpeta));
}

void Form102::aceptar() {
    try {
        if (Option3->isChecked()) {
            ElegirServidor(s_, a_, d_,
                           ServidorTecleado(TextServidor->text(), TextPuerto->text(),
                                            TextBase->text(), TextUsuario->text()));
            Q_EMIT ubicacionCambiada(s_.UrlServidor);
            accept();
            return;
        }
        ElegirInstalacion(s_, Option1->isChecked(), Text1->text());
        QuitarServidor(s_, a_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    Q_EMIT ubicacionCambiada(Option1->isChecked() ? QString() : s_.DataPath);
    accept();
}

#include "utilities/forms/Form110.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "utilities/Copias.h"
#include "utilities/forms/Espera.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

Form110::Form110(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form110"));
    setWindowTitle(QStringLiteral("Quilmar Pro [Restaurar desce Copia]"));
    setModal(true);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMinimumWidth(360);
    Command1 = new QPushButton(QStringLiteral("..."), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Seleccionar la carpeta"));
    Command1->setMaximumWidth(40);
    Command2 = new QPushButton(QStringLiteral("&Restaurar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setDefault(true);
    Command3 = new QPushButton(QStringLiteral("&Salir"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command4 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    Command4->setEnabled(false); // no help pages yet
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    ProgressBar1->hide();

    auto* carpeta = new QHBoxLayout;
    carpeta->addWidget(Text1, 1);
    carpeta->addWidget(Command1);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command2);
    botones->addWidget(Command3);
    botones->addWidget(Command4);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(new QLabel(
        QStringLiteral("Seleccione la carpeta de la empresa que se quiere restaurar"), this));
    todo->addLayout(carpeta);
    todo->addWidget(ProgressBar1);
    todo->addStretch();
    todo->addLayout(botones);

    // The last backup folder is where a copy is most likely to be.
    const QString ruta = a_.leer(QStringLiteral("Valores"), QStringLiteral("Ruta"));
    if (ruta != QLatin1String("Nada") && !s_.EmpresaActual.isEmpty() &&
        QDir(QDir(ruta).filePath(s_.EmpresaActual)).exists())
        Text1->setText(QDir::toNativeSeparators(QDir(ruta).filePath(s_.EmpresaActual)));

    ElegirCarpeta = [this](const QString& inicial) {
        return QFileDialog::getExistingDirectory(
            this, QStringLiteral("Carpeta de la empresa que se quiere restaurar"), inicial);
    };
    Terminar = [] {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    };
    connect(Command1, &QPushButton::clicked, this, &Form110::Buscar);
    connect(Command2, &QPushButton::clicked, this, &Form110::Restaurar);
    connect(Command3, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a_);
}

void Form110::Buscar() {
    QString inicial = Text1->text().trimmed();
    if (inicial.isEmpty() || !QDir(inicial).exists()) {
        const QString ruta = a_.leer(QStringLiteral("Valores"), QStringLiteral("Ruta"));
        inicial = ruta != QLatin1String("Nada") && QDir(ruta).exists() ? ruta : QDir::homePath();
    }
    const QString elegida = ElegirCarpeta ? ElegirCarpeta(inicial) : QString();
    if (elegida.isEmpty())
        return;
    Text1->setText(QDir::toNativeSeparators(elegida));
}

void Form110::Restaurar() {
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    Command2->setEnabled(false);
    const Progreso progreso = [this](qint64 hecho, qint64 total) {
        ProgressBar1->setMaximum(static_cast<int>(total));
        ProgressBar1->setValue(static_cast<int>(hecho));
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    {
        DialogoEnEspera dialogo(d_);
        restaurada_ =
            RestaurarCopia(s_, dialogo, QDir::fromNativeSeparators(Text1->text()), progreso);
    }
    Command2->setEnabled(true);
    ProgressBar1->hide();
    if (!restaurada_)
        return;
    accept();
    if (Terminar)
        Terminar();
}

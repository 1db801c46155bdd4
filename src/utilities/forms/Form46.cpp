#include "utilities/forms/Form46.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "utilities/Copias.h"
#include "utilities/forms/Espera.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form46::Form46(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form46"));
    setWindowTitle(QStringLiteral("Quilmar [Copia de Seguridad]"));
    setModal(true);

    auto* grupo = new QGroupBox(this);
    Option1 = new QRadioButton(QStringLiteral("Hacer copia de la Empresa abierta"), grupo);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Hacer copia de todas las Empresas"), grupo);
    Option2->setObjectName(QStringLiteral("Option2"));
    Option1->setChecked(true);
    auto* opciones = new QVBoxLayout(grupo);
    opciones->addWidget(Option1);
    opciones->addWidget(Option2);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMinimumWidth(360);
    Command1 = new QPushButton(QStringLiteral("..."), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Seleccionar la carpeta"));
    Command1->setMaximumWidth(40);
    Command2 = new QPushButton(QStringLiteral("&Guardar"), this);
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
    todo->addWidget(grupo);
    todo->addWidget(new QLabel(
        QStringLiteral("Introduzca o seleccione la carpeta donde desea hacer la copia"), this));
    todo->addLayout(carpeta);
    todo->addWidget(ProgressBar1);
    todo->addStretch();
    todo->addLayout(botones);

    const QString ruta = a_.leer(QStringLiteral("Valores"), QStringLiteral("Ruta"));
    if (ruta != QLatin1String("Nada"))
        Text1->setText(ruta);
    Option1->setEnabled(!s_.EmpresaActual.isEmpty());
    if (s_.EmpresaActual.isEmpty())
        Option2->setChecked(true);

    ElegirCarpeta = [this](const QString& inicial) {
        return QFileDialog::getExistingDirectory(
            this, QStringLiteral("Carpeta de la copia de seguridad"), inicial);
    };
    connect(Command1, &QPushButton::clicked, this, &Form46::Buscar);
    connect(Command2, &QPushButton::clicked, this, &Form46::Guardar);
    connect(Command3, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a_);
}

void Form46::Buscar() {
    const QString inicial =
        QDir(Text1->text().trimmed()).exists() ? Text1->text().trimmed() : QDir::homePath();
    const QString elegida = ElegirCarpeta ? ElegirCarpeta(inicial) : QString();
    if (elegida.isEmpty()) {
        d_.Informar(MsgCopiaSinElegir);
        return;
    }
    Text1->setText(QDir::toNativeSeparators(elegida));
}

void Form46::Guardar() {
    ProgressBar1->setValue(0);
    ProgressBar1->show();
    Command2->setEnabled(false);
    const Progreso progreso = [this](qint64 hecho, qint64 total) {
        ProgressBar1->setMaximum(static_cast<int>(total));
        ProgressBar1->setValue(static_cast<int>(hecho));
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    bool hecha = false;
    {
        DialogoEnEspera dialogo(d_);
        hecha = HacerCopiaSeguridad(
            s_, a_, dialogo, Text1->text(),
            Option2->isChecked() ? AlcanceCopia::Todas : AlcanceCopia::EmpresaAbierta, progreso);
    }
    Command2->setEnabled(true);
    ProgressBar1->hide();
    if (hecha)
        accept();
}

#include "yearend/forms/Form20.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "yearend/Reorganizar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

Form20::Form20(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form20"));
    setWindowTitle(QStringLiteral("Quilmar [Reorganización de Datos]"));
    Label1 = new QLabel(QStringLiteral(
        "Mediante este proceso se comprueban los datos de las distintas tablas, sólo hay que "
        "realizarlo si se observa alguna anomalía. El proceso puede ser largo, ¿desea "
        "realizarlo?"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label2 = new QLabel;
    Label2->setObjectName(QStringLiteral("Label2"));
    Picture1 = new QProgressBar;
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setRange(0, 100);
    Picture1->setValue(0);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Salir"));
    Command2->setObjectName(QStringLiteral("Command2"));
    connect(Command1, &QPushButton::clicked, this, &Form20::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(Label1);
    columna->addSpacing(8);
    columna->addWidget(Label2);
    columna->addWidget(Picture1);
    columna->addLayout(botones);
    setMinimumWidth(460);
    PrepararVentana(this, a, 20);
}

void Form20::Command1_Click() {
    Command1->setEnabled(false);
    Command2->setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto progreso = [this](const QString& etapa, qint64 hecho, qint64 total) {
        Label2->setText(etapa);
        Picture1->setValue(total > 0 ? static_cast<int>(hecho * 100 / total) : 100);
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    // Each problem is told as it is found; the process goes on.
    auto avisar = [this](const QString& texto) {
        QApplication::restoreOverrideCursor();
        d_.Informar(texto);
        QApplication::setOverrideCursor(Qt::WaitCursor);
    };
    try {
        Reorganizar(s_, avisar, progreso);
        hecho_ = true;
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    QApplication::restoreOverrideCursor();
    if (hecho_)
        d_.Informar(QStringLiteral("Proceso terminado."));
    Label2->clear();
    Command1->setEnabled(true);
    Command2->setEnabled(true);
}

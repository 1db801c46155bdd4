#include "posting/forms/Form16.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/Renumerar.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form16::Form16(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form16"));
    setWindowTitle(QStringLiteral("Quilmar [Renumerar Diario]"));
    setModal(true);
    Option1 = new QRadioButton(QStringLiteral("Renumerar Diario completo"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Renumerar un asiento"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Text1 = CampoNumero(this, QStringLiteral("Text1"), 9, 110);
    Text2 = CampoNumero(this, QStringLiteral("Text2"), 9, 110);
    Barra = new QProgressBar(this);
    Barra->setObjectName(QStringLiteral("Barra"));
    Barra->setVisible(false);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setEnabled(false); // no help pages yet

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Option1, 0, 0, 1, 5);
    rejilla->addWidget(Option2, 1, 0, 1, 5);
    rejilla->addWidget(new QLabel(QStringLiteral("Asiento nº"), this), 2, 1);
    rejilla->addWidget(Text1, 2, 2);
    rejilla->addWidget(new QLabel(QStringLiteral("pasa a nº"), this), 2, 3);
    rejilla->addWidget(Text2, 2, 4);
    rejilla->setColumnMinimumWidth(0, 16);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addWidget(Barra);
    todo->addStretch();
    todo->addLayout(botones);

    Option1->setChecked(true);
    opcion();
    connect(Option1, &QRadioButton::toggled, this, &Form16::opcion);
    connect(Command1, &QPushButton::clicked, this, &Form16::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 16);
}

void Form16::opcion() {
    const bool uno = Option2->isChecked();
    Text1->setEnabled(uno);
    Text2->setEnabled(uno);
    if (uno)
        Text1->setFocus();
}

void Form16::aceptar() {
    ResultadoRenumerar r;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        if (Option1->isChecked()) {
            Barra->setValue(0);
            Barra->setVisible(true);
            Command1->setEnabled(false);
            Command2->setEnabled(false);
            r = RenumerarDiarioCompleto(s_, d_, [this](qint64 hecho, qint64 total) {
                Barra->setMaximum(static_cast<int>(std::max<qint64>(total, 1) / 1000 + 1));
                Barra->setValue(static_cast<int>(hecho / 1000));
                // The busy pointer is the guard while the screen stays alive.
                QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            });
        } else {
            r = RenumerarUnAsiento(s_, d_, Text1->text(), Text2->text());
        }
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        Barra->setVisible(false);
        Command1->setEnabled(true);
        Command2->setEnabled(true);
        d_.Informar(e.mensaje());
        return;
    }
    QApplication::restoreOverrideCursor();
    Barra->setVisible(false);
    Command1->setEnabled(true);
    Command2->setEnabled(true);
    if (r.hecho) {
        Q_EMIT renumerado();
        accept();
        return;
    }
    if (r.foco == CampoRenumerar::Asiento) {
        Text1->setFocus();
        Text1->selectAll();
    } else if (r.foco == CampoRenumerar::PasaA) {
        Text2->setFocus();
        Text2->selectAll();
    }
}

#include "posting/forms/Form45.h"

#include "platform/Dialogo.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form45::Form45(Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("Form45"));
    setWindowTitle(QStringLiteral("Quilmar [Eliminar]"));
    setModal(true);
    Option1 = new QRadioButton(QStringLiteral("Un Asiento"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Varios Asientos"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Text1 = CampoNumero(this, QStringLiteral("Text1"), 9, 110);
    Text2 = CampoNumero(this, QStringLiteral("Text2"), 9, 110);
    Text3 = CampoNumero(this, QStringLiteral("Text3"), 9, 110);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Option1, 0, 0, 1, 4);
    rejilla->addWidget(new QLabel(QStringLiteral("Número"), this), 1, 1);
    rejilla->addWidget(Text1, 1, 2);
    rejilla->addWidget(Option2, 2, 0, 1, 4);
    rejilla->addWidget(new QLabel(QStringLiteral("Desde Nº"), this), 3, 1);
    rejilla->addWidget(Text2, 3, 2);
    rejilla->addWidget(new QLabel(QStringLiteral("hasta Nº"), this), 3, 3);
    rejilla->addWidget(Text3, 3, 4);
    rejilla->setColumnMinimumWidth(0, 16);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addStretch();
    todo->addLayout(botones);

    Option1->setChecked(true);
    opcion();
    connect(Option1, &QRadioButton::toggled, this, &Form45::opcion);
    connect(Command1, &QPushButton::clicked, this, &Form45::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    PrepararVentana(this, a, 45);
    Text1->setFocus();
}

void Form45::opcion() {
    const bool uno = Option1->isChecked();
    Text1->setEnabled(uno);
    Text2->setEnabled(!uno);
    Text3->setEnabled(!uno);
    (uno ? Text1 : Text2)->setFocus();
}

void Form45::aceptar() {
    eleccion_ =
        ValidarEliminar(d_, Option2->isChecked(), Text1->text(), Text2->text(), Text3->text());
    if (eleccion_)
        accept();
}

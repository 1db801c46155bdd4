#include "yearend/forms/Form23.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Ficheros.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"
#include "yearend/Cierre.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form23::Form23(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form23"));
    setWindowTitle(QStringLiteral("Cerrar ejercicio"));

    Option1 =
        new QRadioButton(QStringLiteral("Cerrar ejercicio y traspasar los saldos al siguiente"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Cerrar ejercicio sin traspasar los saldos"));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option3 = new QRadioButton(QStringLiteral("Ya existe el ejercicio siguiente"));
    Option3->setObjectName(QStringLiteral("Option3"));
    Option4 = new QRadioButton(QStringLiteral("Debe crearse uno nuevo"));
    Option4->setObjectName(QStringLiteral("Option4"));
    auto* principal = new QButtonGroup(this);
    principal->addButton(Option1);
    principal->addButton(Option2);
    auto* traspaso = new QButtonGroup(this);
    traspaso->addButton(Option3);
    traspaso->addButton(Option4);

    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(90);
    Label1 = new QLabel(QStringLiteral("Selecciónelo"));
    Label2 = new QLabel(QStringLiteral(
        "e indique el número del asiento de apertura, si lo hay, cuyos saldos serán actualizados"));
    Label2->setWordWrap(true);
    Text1 = CampoNumero(this, QStringLiteral("Text1"), 9, 90);
    Label3 = new QLabel(QStringLiteral("Indique el ejercicio que se va a crear"));
    Text2 = CampoNumero(this, QStringLiteral("Text2"), 4, 90);

    // The company's exercises; a Selan.dat held by another user leaves the list empty.
    if (!s_.enServidor() && !FicheroLibre(s_.rutaSelan()))
        d_.Informar(MsgEnUso);
    else
        for (int ano : EjerciciosEmpresa(s_))
            Combo1->addItem(QString::number(ano), ano);
    Combo1->setCurrentIndex(-1);

    auto* rejilla = new QGridLayout;
    rejilla->setColumnMinimumWidth(0, 24);
    rejilla->addWidget(Option1, 0, 0, 1, 4);
    rejilla->addWidget(Option3, 1, 1, 1, 2);
    rejilla->addWidget(Label1, 2, 2);
    rejilla->addWidget(Combo1, 2, 3);
    rejilla->addWidget(Label2, 3, 2);
    rejilla->addWidget(Text1, 3, 3, Qt::AlignTop);
    rejilla->addWidget(Option4, 4, 1, 1, 2);
    rejilla->addWidget(Label3, 5, 2);
    rejilla->addWidget(Text2, 5, 3);
    rejilla->addWidget(Option2, 6, 0, 1, 4);
    rejilla->setColumnMinimumWidth(1, 24);
    rejilla->setColumnStretch(2, 1);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    auto* salir = botones->addButton(QStringLiteral("&Salir"), QDialogButtonBox::RejectRole);
    salir->setObjectName(QStringLiteral("Salir"));
    connect(aceptar, &QPushButton::clicked, this, &Form23::aceptar);
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    for (QRadioButton* o : {Option1, Option2, Option3, Option4})
        connect(o, &QRadioButton::toggled, this, &Form23::opcionElegida);

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(rejilla);
    columna->addWidget(botones);

    // Carrying the balances forward is the usual close: to the next year when it exists, or to
    // a next year made on the spot.
    Option1->setChecked(true);
    const int siguiente = Combo1->findData(static_cast<int>(s_.AnoActual) + 1);
    if (siguiente >= 0) {
        Option3->setChecked(true);
        Combo1->setCurrentIndex(siguiente);
    } else {
        Option4->setChecked(true);
        Text2->setText(QString::number(s_.AnoActual + 1));
    }
    opcionElegida();
    setMinimumWidth(560);
    PrepararVentana(this, a, 23);
}

void Form23::opcionElegida() {
    // Without transfer every box of the transfer is off; with it, only those of its choice.
    const bool traspasar = Option1->isChecked();
    Option3->setEnabled(traspasar);
    Option4->setEnabled(traspasar);
    const bool existente = traspasar && Option3->isChecked();
    const bool nuevo = traspasar && Option4->isChecked();
    for (QWidget* w : {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Label1),
                       static_cast<QWidget*>(Text1), static_cast<QWidget*>(Label2)})
        w->setEnabled(existente);
    Text2->setEnabled(nuevo);
    Label3->setEnabled(nuevo);
}

void Form23::aceptar() {
    PeticionCierre p;
    if (Option2->isChecked()) {
        p.modo = PeticionCierre::Modo::SinTraspaso;
    } else if (Option3->isChecked()) {
        p.modo = PeticionCierre::Modo::Existente;
        p.ano = Combo1->currentIndex() < 0 ? QString() : Combo1->currentText();
        p.asiento = Text1->text();
    } else {
        p.modo = PeticionCierre::Modo::Nuevo;
        p.ano = Text2->text();
    }
    // The hourglass from the moment the work starts, after the questions.
    bool ocupado = false;
    auto progreso = [&ocupado](const QString&, qint64, qint64) {
        if (!ocupado)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        ocupado = true;
    };
    auto libre = [&ocupado] {
        if (ocupado)
            QApplication::restoreOverrideCursor();
        ocupado = false;
    };
    RespuestaCierre r;
    try {
        r = PedirCierre(s_, d_, p, progreso);
        // After a transfer the user stands in the exercise that received the balances.
        if (r.cerrado && r.anoDestino != 0)
            CambiarEjercicio(s_, a_, d_, r.anoDestino, false);
    } catch (const ErrorQuilmar& e) {
        libre();
        d_.Informar(e.mensaje());
        return;
    }
    libre();
    switch (r.foco) {
    case CampoCierre::Ano:
        Combo1->setFocus();
        break;
    case CampoCierre::Asiento:
        Text1->setFocus();
        Text1->selectAll();
        break;
    case CampoCierre::AnoNuevo:
        Text2->setFocus();
        Text2->selectAll();
        break;
    case CampoCierre::Ninguno:
        break;
    }
    if (!r.cerrado)
        return;
    cerrado_ = true;
    d_.Informar(QStringLiteral("Proceso terminado."));
    accept();
}

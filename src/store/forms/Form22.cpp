#include "store/forms/Form22.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"
#include "yearend/InvertirCierre.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form22::GanchoCierre& Form22::CierreEjercicio() {
    static GanchoCierre gancho;
    return gancho;
}

Form22::Form22(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form22"));
    setWindowTitle(QStringLiteral("Quilmar [Ejercicio]"));

    const char* const opciones[5] = {"Nuevo ejercicio", "Seleccionar ejercicio", "Cerrar ejercicio",
                                     "Abrir ejercicio", "Eliminar ejercicio"};
    auto* grupo = new QButtonGroup(this);
    for (int i = 0; i < 5; ++i) {
        Option[i] = new QRadioButton(QString::fromUtf8(opciones[i]));
        Option[i]->setObjectName(QStringLiteral("Option%1").arg(i + 1));
        grupo->addButton(Option[i], i);
    }
    Label1 = new QLabel(QStringLiteral("Indique el año (con cuatro cifras)"));
    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaxLength(4);
    SoloCifras(Text1, 4);
    Text1->setMaximumWidth(80);
    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo2 = new QComboBox;
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Label3 = new QLabel(QStringLiteral("Realizar el cierre del ejercicio actual"));
    Label4 = new QLabel(QStringLiteral(
        "Permitir invertir el cierre, eliminándose los asientos de regularización y final"));
    Label4->setWordWrap(true);

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Option[0], 0, 0);
    rejilla->addWidget(Label1, 0, 1);
    rejilla->addWidget(Text1, 0, 2);
    rejilla->addWidget(Option[1], 1, 0);
    rejilla->addWidget(Combo1, 1, 2);
    rejilla->addWidget(Option[2], 2, 0);
    rejilla->addWidget(Label3, 2, 1, 1, 2);
    rejilla->addWidget(Option[3], 3, 0);
    rejilla->addWidget(Label4, 3, 1, 1, 2);
    rejilla->addWidget(Option[4], 4, 0);
    rejilla->addWidget(Combo2, 4, 2);
    rejilla->setColumnStretch(1, 1);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    auto* salir = botones->addButton(QStringLiteral("&Salir"), QDialogButtonBox::RejectRole);
    salir->setObjectName(QStringLiteral("Salir"));
    auto* ayuda = botones->addButton(QStringLiteral("Ay&uda"), QDialogButtonBox::HelpRole);
    ayuda->setEnabled(false);
    connect(aceptar, &QPushButton::clicked, this, &Form22::aceptar);
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    connect(grupo, &QButtonGroup::idClicked, this, &Form22::opcionElegida);

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(rejilla);
    columna->addWidget(botones);

    // A closed exercise can only be reopened, an open one only closed (when closing exists).
    const bool cierre = static_cast<bool>(CierreEjercicio());
    Option[2]->setEnabled(!s_.EjCerrado && cierre);
    Label3->setEnabled(!s_.EjCerrado && cierre);
    Option[3]->setEnabled(s_.EjCerrado);
    Label4->setEnabled(s_.EjCerrado);

    llenarListas();
    opcionElegida();
    setMinimumWidth(520);
    PrepararVentana(this, a, 22);
}

void Form22::llenarListas() {
    Combo1->clear();
    Combo2->clear();
    for (int ano : EjerciciosEmpresa(s_)) {
        Combo1->addItem(QString::number(ano), ano);
        Combo2->addItem(QString::number(ano), ano);
    }
    Combo1->setCurrentIndex(Combo1->findData(static_cast<int>(s_.AnoActual)));
    Combo2->setCurrentIndex(Combo2->findData(static_cast<int>(s_.AnoActual)));
}

void Form22::opcionElegida() {
    Text1->clear();
    Text1->setEnabled(Option[0]->isChecked());
    Label1->setEnabled(Option[0]->isChecked());
    Combo1->setEnabled(Option[1]->isChecked());
    Combo2->setEnabled(Option[4]->isChecked());
    if (Option[0]->isChecked())
        Text1->setFocus();
}

void Form22::aceptar() {
    try {
        if (Option[0]->isChecked())
            nuevo();
        else if (Option[1]->isChecked())
            seleccionar();
        else if (Option[2]->isChecked())
            cerrar();
        else if (Option[3]->isChecked())
            abrir();
        else if (Option[4]->isChecked())
            eliminar();
    } catch (const ErrorQuilmar& e) {
        unsetCursor();
        d_.Informar(e.mensaje());
    }
}

void Form22::nuevo() {
    if (Text1->text().size() != 4) {
        d_.Informar(MsgIndiqueAno);
        return;
    }
    const int ano = Text1->text().toInt();
    setCursor(Qt::WaitCursor);
    CrearEjercicio(s_, d_, ano);
    unsetCursor();
    Combo1->addItem(QString::number(ano), ano);
    Combo2->addItem(QString::number(ano), ano);
    Combo1->setCurrentIndex(Combo1->count() - 1);
    Combo2->setCurrentIndex(Combo2->count() - 1);
    Text1->clear();
    Q_EMIT anoCreado(ano);
    Q_EMIT ejercicioCambiado();
}

void Form22::seleccionar() {
    if (Combo1->currentIndex() < 0) {
        d_.Informar(MsgSeleccioneEjercicio);
        return;
    }
    if (!CambiarEjercicio(s_, a_, d_, Combo1->currentData().toInt(), true))
        return;
    Q_EMIT ejercicioCambiado();
    accept();
}

void Form22::cerrar() {
    if (CierreEjercicio() && CierreEjercicio()(s_, a_, d_, this)) {
        Q_EMIT ejercicioCambiado();
        accept();
    }
}

void Form22::abrir() {
    setCursor(Qt::WaitCursor);
    InvertirCierre(s_);
    unsetCursor();
    Q_EMIT ejercicioCambiado();
    accept();
}

void Form22::eliminar() {
    const int ano = Combo2->currentIndex() < 0 ? 0 : Combo2->currentData().toInt();
    if (!EliminarEjercicio(s_, d_, ano))
        return;
    llenarListas();
    Q_EMIT anoEliminado(ano);
}

#include "store/forms/Form19.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Empresas.h"
#include "store/ListasEmpresas.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form19::Form19(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form19"));
    setWindowTitle(QStringLiteral("Quilmar [Eliminar Empresa]"));

    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Label2 = new QLabel;
    Label2->setObjectName(QStringLiteral("Label2"));
    auto* formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("Empresa:"), Combo1);
    formulario->addRow(QStringLiteral("Carpeta:"), Label2);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    auto* salir = botones->addButton(QStringLiteral("&Salir"), QDialogButtonBox::RejectRole);
    salir->setObjectName(QStringLiteral("Salir"));
    connect(aceptar, &QPushButton::clicked, this, &Form19::aceptar);
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int i) {
        Label2->setText(i < 0 ? QString() : QStringLiteral("Emp") + Combo1->itemData(i).toString());
    });

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(formulario);
    columna->addWidget(botones);
    setMinimumWidth(420);
    llenar();
    PrepararVentana(this, a, 19);
}

void Form19::llenar() {
    Combo1->clear();
    for (const RegistroNemp& r : ListaEmpresas(s_))
        Combo1->addItem(r.Nombre, r.Codigo);
    Combo1->setCurrentIndex(-1);
    Label2->clear();
}

void Form19::aceptar() {
    const int i = Combo1->currentIndex();
    const QString nombre = i < 0 ? QString() : Combo1->currentText();
    const QString codigo = i < 0 ? QString() : Combo1->itemData(i).toString();
    try {
        if (!EliminarEmpresa(s_, d_, codigo, nombre))
            return;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        llenar();
        return;
    }
    Q_EMIT empresaEliminada(QStringLiteral("Emp") + codigo);
    llenar();
}

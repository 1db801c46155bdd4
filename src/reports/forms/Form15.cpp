#include "reports/forms/Form15.h"

#include "chart/Sectores.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString Todos = QStringLiteral("(Todos los sectores)");
}

Form15::Form15(Sesion& s, Dialogo& d, const QString& actual, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form15"));
    setWindowTitle(QStringLiteral("Sector"));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->addItem(Todos);
    try {
        for (const FilaSector& f : ListaSectores(s))
            List1->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    const QList<QListWidgetItem*> elegido =
        actual.isEmpty() ? QList<QListWidgetItem*>{} : List1->findItems(actual, Qt::MatchExactly);
    List1->setCurrentRow(elegido.isEmpty() ? 0 : List1->row(elegido.first()));

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(List1);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(List1, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    resize(280, 320);
}

QString Form15::sector() const {
    const int fila = List1->currentRow();
    return fila <= 0 ? QString() : List1->item(fila)->text();
}

#include "reports/forms/Form57.h"

#include "platform/Dialogo.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/BuscarDiario.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

Form57::Form57(TablaRejilla* tabla, Dialogo& d, QWidget* padre)
    : QDialog(padre), tabla_(tabla), d_(d) {
    setObjectName(QStringLiteral("Form57"));
    setWindowTitle(QStringLiteral("Quilmar [Buscar]"));
    setAttribute(Qt::WA_DeleteOnClose);

    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    List1 = new QListWidget;
    List1->setObjectName(QStringLiteral("List1"));
    for (const CampoBusqueda& c : CamposBusquedaDiario())
        List1->addItem(c.nombre);
    List1->setMaximumHeight(List1->sizeHintForRow(0) * 7 + 2 * List1->frameWidth());

    Command1 = new QPushButton(QStringLiteral("Buscar &Primero"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("Buscar &Siguiente"));
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3 = new QPushButton(QStringLiteral("&Salir"));
    Command3->setObjectName(QStringLiteral("Command3"));
    auto* ayuda = new QPushButton(QStringLiteral("Ay&uda"));
    ayuda->setObjectName(QStringLiteral("Command4"));
    ayuda->setEnabled(false);
    for (QPushButton* b : {Command1, Command2, Command3, ayuda})
        b->setAutoDefault(false);

    auto* rejilla = new QGridLayout(this);
    rejilla->addWidget(new QLabel(QStringLiteral("Buscar asiento que contenga:")), 0, 0);
    rejilla->addWidget(Text1, 1, 0);
    rejilla->addWidget(new QLabel(QStringLiteral("En el campo:")), 2, 0);
    rejilla->addWidget(List1, 3, 0);
    auto* botones = new QVBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);
    botones->addWidget(ayuda);
    botones->addStretch(1);
    rejilla->addLayout(botones, 0, 1, 4, 1);

    connect(Text1, &QLineEdit::textChanged, this, &Form57::textoCambiado);
    connect(Command1, &QPushButton::clicked, this, [this] { buscar(true); });
    connect(Command2, &QPushButton::clicked, this, [this] { buscar(false); });
    connect(Command3, &QPushButton::clicked, this, &QDialog::close);
    textoCambiado();
}

void Form57::textoCambiado() {
    const bool hay = !Text1->text().isEmpty();
    Command1->setEnabled(hay);
    Command2->setEnabled(hay);
}

void Form57::buscar(bool primero) {
    if (Text1->text().isEmpty()) {
        d_.Informar(MsgTextoABuscar);
        return;
    }
    const int campo = List1->currentRow();
    if (campo < 0 || !List1->currentItem()->isSelected()) {
        d_.Informar(MsgColumnaABuscar);
        return;
    }
    const Rejilla* r = tabla_->rejilla();
    if (!r)
        return;
    const int columna = CamposBusquedaDiario().at(campo).columna;
    const int desde = primero ? 0 : fila_ + 1;
    const int f = BuscarEnRejilla(*r, columna, Text1->text(), desde);
    if (f < 0) {
        d_.Informar(MsgFinDeLista);
        return;
    }
    fila_ = f;
    tabla_->selectRow(f);
    tabla_->scrollTo(tabla_->model()->index(f, 0), QAbstractItemView::PositionAtCenter);
}

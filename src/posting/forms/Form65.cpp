#include "posting/forms/Form65.h"

#include "platform/Ajustes.h"
#include "platform/forms/Ventana.h"
#include "posting/Tablero.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

Form65::Form65(Ajustes& a, QWidget* padre) : QDialog(padre), a_(a) {
    setObjectName(QStringLiteral("Form65"));
    setWindowTitle(QStringLiteral("Quilmar [Páginas web]"));

    auto* texto = new QLabel(QStringLiteral(
        "Escriba el nombre con el que quiere ver cada página y su dirección (por ejemplo "
        "www.mibanco.es). El botón de Bancos de la barra de herramientas las ofrecerá."));
    texto->setWordWrap(true);
    Grid1 = new QTableWidget(0, 2);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setHorizontalHeaderLabels({QStringLiteral("Nombre"), QStringLiteral("Dirección")});
    Grid1->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    Grid1->setColumnWidth(0, 180);
    Grid1->verticalHeader()->hide();
    for (const PaginaWeb& p : PaginasBanco(a_)) {
        const int r = Grid1->rowCount();
        Grid1->insertRow(r);
        Grid1->setItem(r, 0, new QTableWidgetItem(p.Nombre));
        Grid1->setItem(r, 1, new QTableWidgetItem(p.Direccion));
    }
    auto boton = [](const QString& t, const QString& n) {
        auto* b = new QPushButton(t);
        b->setObjectName(n);
        return b;
    };
    Command1 = boton(QStringLiteral("A&ñadir"), QStringLiteral("Command1"));
    Command2 = boton(QStringLiteral("&Eliminar"), QStringLiteral("Command2"));
    Command3 = boton(QStringLiteral("&Aceptar"), QStringLiteral("Command3"));
    Command4 = boton(QStringLiteral("&Cancelar"), QStringLiteral("Command4"));
    Command3->setDefault(true);

    connect(Command1, &QPushButton::clicked, this, [this] {
        anadirFila();
        Grid1->editItem(Grid1->item(Grid1->currentRow(), 0));
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        if (Grid1->currentRow() >= 0)
            Grid1->removeRow(Grid1->currentRow());
    });
    connect(Command3, &QPushButton::clicked, this, [this] {
        guardar();
        accept();
    });
    connect(Command4, &QPushButton::clicked, this, &QDialog::reject);

    auto* botones = new QHBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addStretch();
    botones->addWidget(Command3);
    botones->addWidget(Command4);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(texto);
    todo->addWidget(Grid1, 1);
    todo->addLayout(botones);
    resize(560, 320);
    PrepararVentana(this, a_, 65);
    if (Grid1->rowCount() == 0)
        anadirFila();
}

void Form65::anadirFila() {
    const int r = Grid1->rowCount();
    Grid1->insertRow(r);
    Grid1->setItem(r, 0, new QTableWidgetItem);
    Grid1->setItem(r, 1, new QTableWidgetItem);
    Grid1->setCurrentCell(r, 0);
}

void Form65::guardar() {
    QList<PaginaWeb> paginas;
    for (int r = 0; r < Grid1->rowCount(); ++r) {
        auto texto = [&](int c) {
            return Grid1->item(r, c) ? Grid1->item(r, c)->text() : QString();
        };
        paginas.append({texto(0), texto(1)});
    }
    GuardarPaginasBanco(a_, paginas);
}

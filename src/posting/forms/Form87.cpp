#include "posting/forms/Form87.h"

#include "journal/Casaciones.h"
#include "store/Formato.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QTableWidgetItem* celda(const QString& texto, bool cifra = false) {
    auto* i = new QTableWidgetItem(texto);
    if (cifra)
        i->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return i;
}

QString importe(double v) {
    return v != 0 ? Formato(v, QStringLiteral("standard")) : QString();
}

} // namespace

Form87::Form87(const QString& subcuenta, const QList<LineaPunteo>& candidatos, QWidget* padre)
    : QDialog(padre) {
    setObjectName(QStringLiteral("Form87"));
    setWindowTitle(QStringLiteral("Quilmar [Inicio de la Casación]"));
    auto* raiz = new QVBoxLayout(this);
    Label1 = new QLabel(QStringLiteral("Subcuenta: ") + subcuenta, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    raiz->addWidget(Label1);
    Grid1 = new QTableWidget(int(candidatos.size()), 7, this);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setHorizontalHeaderLabels({QStringLiteral("NAS"), QStringLiteral("NAp"),
                                      QStringLiteral("Fecha"), QStringLiteral("Concepto"),
                                      QStringLiteral("Debe"), QStringLiteral("Haber"),
                                      QStringLiteral("CasacionH")});
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->verticalHeader()->hide();
    for (int f = 0; f < candidatos.size(); ++f) {
        const LineaPunteo& l = candidatos.at(f);
        Grid1->setItem(f, 0, celda(QString::number(l.NAs), true));
        Grid1->setItem(f, 1, celda(QString::number(l.NAp), true));
        Grid1->setItem(f, 2, celda(FormatoFecha(l.Fecha, QStringLiteral("short date"))));
        Grid1->setItem(f, 3, celda(l.Concepto));
        Grid1->setItem(f, 4, celda(importe(l.Debe), true));
        Grid1->setItem(f, 5, celda(importe(l.Haber), true));
        Grid1->setItem(f, 6, celda(TextoClaveCasacion(l.CasacionH), true));
    }
    Grid1->resizeColumnsToContents();
    Grid1->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);
    if (!candidatos.isEmpty())
        Grid1->selectRow(0);
    raiz->addWidget(Grid1, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    raiz->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form87::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    connect(Grid1, &QTableWidget::cellDoubleClicked, this, [this] { aceptar(); });
    resize(760, 320);
}

void Form87::aceptar() {
    elegido_ = Grid1->currentRow();
    if (elegido_ < 0)
        return;
    accept();
}

ElegirInicio Form87::Elegidor(QWidget* padre) {
    return [padre](const QString& subcuenta,
                   const QList<LineaPunteo>& candidatos) -> std::optional<int> {
        Form87 f(subcuenta, candidatos, padre);
        if (f.exec() != QDialog::Accepted || f.elegido() < 0)
            return std::nullopt;
        return f.elegido();
    };
}

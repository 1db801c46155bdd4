#include "chart/forms/Form35.h"

#include "chart/Conceptos.h"
#include "chart/Listados.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/forms/CampoTexto.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

Form35::Form35(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form35"));
    setWindowTitle(QStringLiteral("Quilmar [Conceptos Predefinidos]"));
    auto* raiz = new QVBoxLayout(this);
    Grid1 = NuevaLista(this, QStringLiteral("Grid1"),
                       {QStringLiteral("Código"), QStringLiteral("Concepto")});
    Grid1->horizontalHeader()->resizeSection(0, 70);
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(Grid1, 1);
    auto* campos = new QFormLayout;
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaximumWidth(90);
    Text1->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), Text1));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    LimitarCampo(Text2, Campo::NombreConcepto);
    campos->addRow(QStringLiteral("Código:"), Text1);
    campos->addRow(QStringLiteral("Concepto:"), Text2);
    raiz->addLayout(campos);
    auto* botones = new QHBoxLayout;
    auto* aceptar = new QPushButton(QStringLiteral("Aceptar"), this);
    aceptar->setObjectName(QStringLiteral("Command1"));
    auto* salir = new QPushButton(QStringLiteral("Salir"), this);
    salir->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {aceptar, salir})
        b->setAutoDefault(false);
    botones->addWidget(aceptar);
    botones->addStretch();
    botones->addWidget(salir);
    raiz->addLayout(botones);

    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("mnuConceptos"));
    QAction* modificar = menu_->addAction(QStringLiteral("Modificar"));
    modificar->setObjectName(QStringLiteral("mnuModificar"));
    QAction* eliminar = menu_->addAction(QStringLiteral("Eliminar"));
    eliminar->setObjectName(QStringLiteral("mnuEliminar"));
    menu_->addSeparator();
    QAction* imprimir = menu_->addAction(QStringLiteral("Imprimir"));
    imprimir->setObjectName(QStringLiteral("mnuImprimirC"));
    QAction* exportar = menu_->addAction(QStringLiteral("Exportar"));
    exportar->setObjectName(QStringLiteral("mnuExportarC"));

    // The menu serves the whole list too: printing and export need no row.
    connect(Grid1, &QWidget::customContextMenuRequested, this,
            [this, modificar, eliminar](const QPoint& p) {
                const int f = Grid1->rowAt(p.y());
                if (f >= 0)
                    Grid1->selectRow(f);
                modificar->setEnabled(f >= 0);
                eliminar->setEnabled(f >= 0);
                menu_->popup(Grid1->viewport()->mapToGlobal(p));
            });
    connect(imprimir, &QAction::triggered, this, [this] { Imprimir(); });
    connect(exportar, &QAction::triggered, this, [this] {
        try {
            ExportarListado(this, d_, ListadoConceptos(s_));
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    });
    connect(modificar, &QAction::triggered, this, [this] { ModificarSeleccionado(); });
    connect(eliminar, &QAction::triggered, this, [this] { EliminarSeleccionado(); });
    connect(aceptar, &QPushButton::clicked, this, [this] { Aceptar(); });
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);

    resize(480, 440);
    PrepararVentana(this, a, 35);
    llenar();
}

void Form35::llenar() {
    Grid1->setRowCount(0);
    try {
        for (const FilaConcepto& f : ListaConceptos(s_))
            AnadirFila(Grid1, {QString::number(f.Codigo), f.Nombre});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form35::Aceptar() {
    try {
        if (!GuardarConcepto(s_, d_, Text1->text(), Text2->text()))
            return;
        Text1->clear();
        Text2->clear();
        llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form35::ModificarSeleccionado() {
    const QString codigo = CeldaSeleccionada(Grid1, 0);
    if (codigo.isEmpty())
        return;
    Text1->setText(codigo);
    Text2->setText(CeldaSeleccionada(Grid1, 1));
    d_.Informar(MsgModificarConcepto);
    Text2->setFocus();
}

void Form35::EliminarSeleccionado() {
    const QString codigo = CeldaSeleccionada(Grid1, 0);
    if (codigo.isEmpty())
        return;
    try {
        if (EliminarConcepto(s_, d_, codigo.toLongLong()))
            llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form35::Imprimir() {
    try {
        ImprimirListado(this, a_, ListadoConceptos(s_));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

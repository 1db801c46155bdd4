#include "store/forms/Form70.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/CargarEmp.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"
#include "store/forms/Form17.h"
#include "store/forms/Form54.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

const QString MsgProcesoTerminado =
    QStringLiteral("Proceso terminado, se va a cerrar el programa.");

QPushButton* boton(const QString& texto, const QString& nombre) {
    auto* b = new QPushButton(texto);
    b->setObjectName(nombre);
    return b;
}

} // namespace

Form70::Form70(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form70"));
    setWindowTitle(QStringLiteral("Quilmar [Acceso a Empresas]"));

    MSFlexGrid1 = new QTableWidget(0, 3);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setHorizontalHeaderLabels(
        {QStringLiteral("Código"), QStringLiteral("Empresa"), QStringLiteral("Año")});
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->verticalHeader()->hide();
    MSFlexGrid1->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    MSFlexGrid1->setContextMenuPolicy(Qt::CustomContextMenu);
    MSFlexGrid1->setAlternatingRowColors(true);

    auto* Command1 = boton(QStringLiteral("&Seleccionar"), QStringLiteral("Command1"));
    auto* Command2 = boton(QStringLiteral("&Nueva"), QStringLiteral("Command2"));
    auto* Command3 = boton(QStringLiteral("&Configurar"), QStringLiteral("Command3"));
    auto* Command4 = boton(QStringLiteral("&Restaurar"), QStringLiteral("Command4"));
    auto* Command5 = boton(QStringLiteral("Sa&lir"), QStringLiteral("Command5"));
    Command1->setDefault(true);

    // Context entries of the list.
    auto* mnuActualizar = new QAction(QStringLiteral("Actualizar los datos de esta empresa"), this);
    mnuActualizar->setObjectName(QStringLiteral("mnuActualizar"));
    auto* mnuActTodas =
        new QAction(QStringLiteral("Actualizar los datos de todas las empresas"), this);
    mnuActTodas->setObjectName(QStringLiteral("mnuActTodas"));

    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3, Command4})
        botones->addWidget(b);
    botones->addStretch();
    botones->addWidget(Command5);
    auto* fila = new QHBoxLayout(this);
    fila->addWidget(MSFlexGrid1, 1);
    fila->addLayout(botones);

    connect(Command1, &QPushButton::clicked, this, &Form70::seleccionar);
    connect(MSFlexGrid1, &QTableWidget::cellDoubleClicked, this, &Form70::seleccionar);
    connect(Command2, &QPushButton::clicked, this, &Form70::nueva);
    connect(Command3, &QPushButton::clicked, this, &Form70::configurar);
    connect(Command4, &QPushButton::clicked, this, &Form70::restaurar);
    connect(Command5, &QPushButton::clicked, this, [this] {
        resultado_ = Terminar;
        done(QDialog::Rejected);
    });
    connect(mnuActualizar, &QAction::triggered, this, &Form70::actualizar);
    connect(mnuActTodas, &QAction::triggered, this, &Form70::actualizarTodas);
    connect(MSFlexGrid1, &QWidget::customContextMenuRequested, this, &Form70::menuContextual);

    resize(560, 360);
    PrepararVentana(this, a, 70);
    cargar();
}

void Form70::cargar() {
    QList<FilaEmpresa> filas;
    try {
        filas = CargarEmp(s_, d_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    MSFlexGrid1->setRowCount(0);
    MSFlexGrid1->setRowCount(static_cast<int>(filas.size()));
    const QString empresa = a_.leer(QStringLiteral("Inicio"), QStringLiteral("Empresa"));
    const QString ano = a_.leer(QStringLiteral("Inicio"), QStringLiteral("Año"));
    int elegida = filas.isEmpty() ? -1 : 0;
    for (int i = 0; i < filas.size(); ++i) {
        const FilaEmpresa& f = filas.at(i);
        MSFlexGrid1->setItem(i, 0, new QTableWidgetItem(f.Codigo));
        MSFlexGrid1->setItem(i, 1, new QTableWidgetItem(f.Empresa));
        MSFlexGrid1->setItem(i, 2, new QTableWidgetItem(f.Ano));
        if (f.Codigo.compare(empresa, Qt::CaseInsensitive) == 0 && f.Ano == ano)
            elegida = i;
    }
    MSFlexGrid1->resizeColumnToContents(0);
    MSFlexGrid1->resizeColumnToContents(2);
    if (elegida >= 0) {
        MSFlexGrid1->selectRow(elegida);
        MSFlexGrid1->scrollToItem(MSFlexGrid1->item(elegida, 0));
    }
    MSFlexGrid1->setFocus();
}

void Form70::seleccionar() {
    const int fila = MSFlexGrid1->currentRow();
    if (fila < 0 || fila >= MSFlexGrid1->rowCount())
        return;
    const QString empresa = MSFlexGrid1->item(fila, 0)->text();
    const QString nombre = MSFlexGrid1->item(fila, 1)->text().trimmed();
    const int ano = MSFlexGrid1->item(fila, 2)->text().toInt();
    try {
        if (!EntrarEnEmpresa(s_, a_, d_, empresa, nombre, ano))
            return;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    nombre_ = nombre;
    anos_.clear();
    for (int i = 0; i < MSFlexGrid1->rowCount(); ++i)
        if (MSFlexGrid1->item(i, 0)->text() == empresa)
            anos_ << MSFlexGrid1->item(i, 2)->text().toInt();
    resultado_ = Seleccionada;
    accept();
}

void Form70::nueva() {
    Form17 f(s_, a_, d_, this);
    const bool hecha = f.exec() == QDialog::Accepted;
    if (hecha) {
        nombre_ = f.nombreCreado();
        anos_ = {s_.AnoActual};
        resultado_ = Seleccionada;
        accept();
    } else if (s_.EmpresaActual.isEmpty()) {
        // No company was ever opened and none was made.
        resultado_ = Terminar;
        done(QDialog::Rejected);
    } else {
        resultado_ = Cerrada;
        done(QDialog::Rejected);
    }
}

void Form70::configurar() {
    Form54 f(s_, a_, d_, this);
    f.exec();
}

void Form70::terminarTrasReparar() {
    d_.Informar(MsgProcesoTerminado);
    resultado_ = Terminar;
    done(QDialog::Rejected);
}

void Form70::restaurar() {
    if (!d_.Preguntar(QStringLiteral("Este proceso le permite comprobar y actualizar los datos que "
                                     "se tienen de todas las empresas creadas en local. Desea "
                                     "continuar?")))
        return;
    try {
        ActEjercicios(s_, QString(), d_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    terminarTrasReparar();
}

void Form70::actualizar() {
    const int fila = MSFlexGrid1->currentRow();
    if (fila < 0)
        return;
    const QString carpeta = MSFlexGrid1->item(fila, 0)->text();
    const QString nombre = MSFlexGrid1->item(fila, 1)->text().trimmed();
    if (!d_.Preguntar(QStringLiteral("Este proceso le permite comprobar y actualizar los datos que "
                                     "se tienen de la empresa ") +
                      nombre + QStringLiteral(". Desea continuar?")))
        return;
    try {
        ActEjercicios(s_, carpeta, d_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    terminarTrasReparar();
}

void Form70::actualizarTodas() {
    if (!d_.Preguntar(QStringLiteral("Este proceso le permite comprobar y actualizar los datos que "
                                     "se tienen de todas las empresas creadas. Desea continuar?")))
        return;
    try {
        ActEjercicios(s_, QString(), d_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    terminarTrasReparar();
}

void Form70::menuContextual(const QPoint& donde) {
    QMenu menu(this);
    auto* uno = findChild<QAction*>(QStringLiteral("mnuActualizar"));
    uno->setEnabled(MSFlexGrid1->currentRow() >= 0);
    menu.addAction(uno);
    menu.addAction(findChild<QAction*>(QStringLiteral("mnuActTodas")));
    menu.exec(MSFlexGrid1->viewport()->mapToGlobal(donde));
}

void Form70::reject() {
    // Escape or the window's button: before any company is open there is nothing to go back
    // to, and the program ends as with Salir.
    resultado_ = s_.EmpresaActual.isEmpty() ? Terminar : Cerrada;
    QDialog::reject();
}

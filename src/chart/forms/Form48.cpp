#include "chart/forms/Form48.h"

#include "chart/Listados.h"
#include "chart/TiposIva.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
constexpr int ColNCuenta = 3;
}

Form48::Form48(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form48"));
    setWindowTitle(QStringLiteral("Quilmar [Tipos de IVA]"));
    auto* raiz = new QVBoxLayout(this);
    FG1 = NuevaLista(this, QStringLiteral("FG1"),
                     {QStringLiteral("Cuenta"), QStringLiteral("Porcentaje"),
                      QStringLiteral("Clase"), QStringLiteral("NCuenta")},
                     1);
    FG1->horizontalHeader()->resizeSection(0, 280);
    FG1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(FG1, 1);

    auto* campos = new QFormLayout;
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaximumWidth(80);
    Text1->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("[0-9]{0,3}([.,][0-9]{0,2})?")), Text1));
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->addItems(ClasesIva);
    Combo2->setCurrentIndex(-1);
    campos->addRow(QStringLiteral("Subcuenta:"), Combo1);
    campos->addRow(QStringLiteral("Porcentaje:"), Text1);
    campos->addRow(QStringLiteral("Clase:"), Combo2);
    raiz->addLayout(campos);

    auto* botones = new QHBoxLayout;
    auto* guardar = new QPushButton(QStringLiteral("Añadir/Modif."), this);
    guardar->setObjectName(QStringLiteral("Command1"));
    auto* imprimir = new QPushButton(QStringLiteral("Imprimir"), this);
    imprimir->setObjectName(QStringLiteral("Command2"));
    auto* exportar = new QPushButton(QStringLiteral("Exportar"), this);
    exportar->setObjectName(QStringLiteral("Command5"));
    auto* salir = new QPushButton(QStringLiteral("Salir"), this);
    salir->setObjectName(QStringLiteral("Command4"));
    for (QPushButton* b : {guardar, imprimir, exportar, salir})
        b->setAutoDefault(false);
    botones->addWidget(guardar);
    botones->addWidget(imprimir);
    botones->addWidget(exportar);
    botones->addStretch();
    botones->addWidget(salir);
    raiz->addLayout(botones);

    mnuTipos = new QMenu(this);
    mnuTipos->setObjectName(QStringLiteral("mnuTipos"));
    QAction* modificar = mnuTipos->addAction(QStringLiteral("Modificar"));
    modificar->setObjectName(QStringLiteral("mnuModificar"));
    QAction* eliminar = mnuTipos->addAction(QStringLiteral("Eliminar"));
    eliminar->setObjectName(QStringLiteral("mnuEliminar"));

    // Where the decimal mark is a comma, a typed point becomes one, so either key works.
    connect(Text1, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (!s_.PuntoDecimal && t.contains(QLatin1Char('.'))) {
            const int cursor = Text1->cursorPosition();
            Text1->setText(QString(t).replace(QLatin1Char('.'), QLatin1Char(',')));
            Text1->setCursorPosition(cursor);
        }
    });
    connect(FG1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = FG1->rowAt(p.y());
        if (f < 0)
            return;
        FG1->selectRow(f);
        mnuTipos->popup(FG1->viewport()->mapToGlobal(p));
    });
    connect(modificar, &QAction::triggered, this, [this] { ModificarSeleccionada(); });
    connect(eliminar, &QAction::triggered, this, [this] { EliminarSeleccionada(); });
    connect(guardar, &QPushButton::clicked, this, [this] { Guardar(); });
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    connect(imprimir, &QPushButton::clicked, this, [this] { Imprimir(); });
    connect(exportar, &QPushButton::clicked, this, [this] {
        try {
            ExportarListado(this, d_, ListadoTiposIva(s_));
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    });

    try {
        Conexion c = AbrirDatos(s_);
        for (const SubcuentaDeLista& sc : SubcuentasIva(c)) {
            Combo1->addItem(sc.Cuenta);
            codigos_ << sc.NCuenta;
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo1->setCurrentIndex(-1);
    llenar();
    resize(560, 460);
    PrepararVentana(this, a);
}

void Form48::llenar() {
    FG1->setRowCount(0);
    try {
        Conexion c = AbrirDatos(s_);
        for (const FilaTipoIva& f : ListaTiposIva(c)) {
            const int fila =
                AnadirFila(FG1, {f.Cuenta, Formato(f.Porcentaje, QStringLiteral("General Number")),
                                 f.Clase, f.NCuenta});
            FG1->item(fila, 1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form48::Guardar() {
    try {
        if (!GuardarTipoIva(s_, d_, codigos_.value(Combo1->currentIndex()), Text1->text(),
                            Combo2->currentText()))
            return;
        llenar();
        Text1->clear();
        Combo1->setCurrentIndex(-1);
        Combo2->setCurrentIndex(-1);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form48::ModificarSeleccionada() {
    const QString n = CeldaSeleccionada(FG1, ColNCuenta);
    if (n.isEmpty())
        return;
    Combo1->setCurrentIndex(codigos_.indexOf(n));
    Text1->setText(CeldaSeleccionada(FG1, 1));
    Combo2->setCurrentIndex(Combo2->findText(CeldaSeleccionada(FG1, 2)));
}

void Form48::EliminarSeleccionada() {
    const QString n = CeldaSeleccionada(FG1, ColNCuenta);
    if (n.isEmpty())
        return;
    try {
        if (EliminarTipoIva(s_, d_, n))
            llenar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form48::Imprimir() {
    try {
        ImprimirListado(this, a_, ListadoTiposIva(s_));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

#include "tax/forms/VentanaLibroIva.h"

#include "chart/Sectores.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"
#include "tax/ImpresionLibrosIva.h"
#include "tax/forms/Form25.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

VentanaLibroIva::GanchoMovimientos& VentanaLibroIva::VerMovimientos() {
    static GanchoMovimientos gancho;
    return gancho;
}

VentanaLibroIva::VentanaLibroIva(Sesion& s, Ajustes& a, Dialogo& d, const SeleccionLibroIva& sel,
                                 QWidget* padre)
    : VentanaLibro(s, a, d, 0, CaptionLibroIva(sel.libro), padre), sel_(sel) {
    setObjectName(NombreFormLibroIva(sel.libro));
    rejilla() = RejillaLibroIva(sel_);

    // The dates and the sector above the grid, the buttons under it.
    fechas_ = new QLabel(this);
    fechas_->setObjectName(QStringLiteral("Label1"));
    fechas_->setText(QStringLiteral("Desde ") + FormatoFecha(sel_.desde, "short date") +
                     QStringLiteral(" hasta ") + FormatoFecha(sel_.hasta, "short date"));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumContentsLength(20);
    Combo1->addItem(QString());
    try {
        for (const FilaSector& f : ListaSectores(s_))
            Combo1->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo1->setCurrentIndex(qMax(0, Combo1->findText(sel_.sector)));
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(fechas_);
    arriba->addStretch(1);
    auto* etiquetaSector = new QLabel(QStringLiteral("&Sector"), this);
    etiquetaSector->setBuddy(Combo1);
    arriba->addWidget(etiquetaSector);
    arriba->addWidget(Combo1);

    Command1 = new QPushButton(QStringLiteral("&Imprimir"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("&Exportar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    // The help of the books is not written yet.
    Command3->setEnabled(false);
    Command4 = new QPushButton(QStringLiteral("&Salir"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    auto* abajo = new QHBoxLayout;
    abajo->addStretch(1);
    for (QPushButton* b : {Command1, Command2, Command3, Command4}) {
        b->setAutoDefault(false);
        abajo->addWidget(b);
    }

    QWidget* vista = takeCentralWidget();
    auto* centro = new QWidget(this);
    auto* columna = new QVBoxLayout(centro);
    columna->addLayout(arriba);
    columna->addWidget(vista, 1);
    columna->addLayout(abajo);
    setCentralWidget(centro);

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    QAction* movimientos =
        nuevaAccion(QStringLiteral("mnuMovCta"),
                    EsLibroFacturas(sel_.libro) ? QStringLiteral("Ver Movimientos")
                                                : QStringLiteral("Ver movimientos"),
                    Accion::Movimientos, [this] { verMovimientos(filaActual()); });
    movimientos->setEnabled(static_cast<bool>(VerMovimientos()));
    alMenu(movimientos);
    connect(Command1, &QPushButton::clicked, imprimir, &QAction::trigger);
    connect(Command2, &QPushButton::clicked, accionExportar(), &QAction::trigger);
    connect(Command4, &QPushButton::clicked, accionCerrar(), &QAction::trigger);
    connect(tabla(), &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { verMovimientos(i.row()); });
    connect(Combo1, &QComboBox::currentIndexChanged, this, [this] {
        sel_.sector = Combo1->currentText().trimmed();
        LlenarLibro();
    });
}

VentanaLibroIva::~VentanaLibroIva() = default;

VentanaLibroIva* VentanaLibroIva::Abrir(Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro,
                                        QWidget* padre) {
    Form25 eleccion(s, a, d, libro, padre);
    if (eleccion.exec() != QDialog::Accepted)
        return nullptr;
    auto* f = new VentanaLibroIva(s, a, d, eleccion.seleccion(), padre);
    f->show();
    f->LlenarLibro();
    return f;
}

void VentanaLibroIva::LlenarLibro() {
    accion(QStringLiteral("mnuMovCta"))->setEnabled(static_cast<bool>(VerMovimientos()));
    Llenar([this](const Progreso& p) {
        // The columns follow the flags, so the grid is made anew before each fill.
        rejilla() = RejillaLibroIva(sel_);
        res_ = {};
        Conexion c = AbrirDatos(s_);
        res_ = LlenarLibroIva(c, sel_, rejilla(), p);
    });
}

void VentanaLibroIva::Refrescar() {
    if (isVisible())
        LlenarLibro();
}

std::optional<PeticionMovimientos> VentanaLibroIva::peticionDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla().Filas() ||
        rejilla().celda(fila, ColumnaFechaLibroIva(sel_.libro)).isEmpty())
        return std::nullopt;
    PeticionMovimientos p;
    p.ncuenta = rejilla().Celda(fila, ColumnaNCuentaLibroIva(sel_.libro));
    if (p.ncuenta.isEmpty())
        return std::nullopt;
    p.desde = sel_.desde;
    p.hasta = sel_.hasta;
    p.area = p.ncuenta.left(1);
    p.nombre = rejilla().Celda(fila, ColumnaNombreLibroIva(sel_.libro));
    return p;
}

void VentanaLibroIva::verMovimientos(int fila) {
    const auto p = peticionDeFila(fila);
    if (!p || !VerMovimientos())
        return;
    VerMovimientos()(this, *p);
}

void VentanaLibroIva::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM52), a_, d_, this);
    // "Imprimir Nº de Asiento" starts as the book shows it.
    if (auto* numero = f.findChild<QCheckBox*>(QStringLiteral("Check1")))
        numero->setChecked(sel_.verAsiento);
    f.exec();
    opciones_ = f.opciones();
    if (opciones_.cancelado)
        return;
    if (opciones_.numeroAsiento != sel_.verAsiento) {
        // What is printed is what the list shows.
        sel_.verAsiento = opciones_.numeroAsiento;
        LlenarLibro();
    }
    try {
        const QString empresa = NombreEmpresa(s_);
        ImpresionLibroIva impreso(rejilla(), sel_, empresa, opciones_);
        OpcionesImpresion op;
        op.titulo = TituloLibroIva(sel_.libro);
        op.orientacion = OrientacionLibroIva(sel_.libro);
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, impreso.Dibujo(), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

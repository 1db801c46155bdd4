#include "reports/forms/Form58.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "reports/ImpresionIngresosGastos.h"
#include "reports/forms/Form15.h"
#include "store/Conexiones.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QWidget>

Form58::Form58(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : VentanaLibro(s, a, d, 0, QStringLiteral("Quilmar [Ingresos y Gastos por meses]"), padre) {
    setObjectName(QStringLiteral("Form58"));
    sel_.ano = s.AnoActual;
    rejilla() = RejillaMesesIyG();

    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    ponerBarra({{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, {5, accionExportar()}});

    // The year and the sector stand in the toolbar, beside the buttons.
    auto* cajas = new QWidget(this);
    auto* fila = new QHBoxLayout(cajas);
    fila->setContentsMargins(12, 0, 0, 0);
    auto* ano = new QLabel(QStringLiteral("Año %1").arg(sel_.ano), cajas);
    ano->setObjectName(QStringLiteral("Label1"));
    fila->addWidget(ano);
    fila->addSpacing(16);
    fila->addWidget(new QLabel(QStringLiteral("Sector"), cajas));
    Text1 = new QLineEdit(cajas);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setPlaceholderText(QStringLiteral("(Todos)"));
    Text1->setFixedWidth(200);
    fila->addWidget(Text1);
    Command1 = new QPushButton(QStringLiteral("..."), cajas);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Elegir el sector"));
    Command1->setFixedWidth(32);
    fila->addWidget(Command1);
    fila->addStretch(1);
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("Toolbar1")))
        barra->addWidget(cajas);
    connect(Command1, &QPushButton::clicked, this, &Form58::ElegirSector);
    resize(1180, 560);
}

Form58* Form58::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    auto* f = new Form58(s, a, d, padre);
    f->show();
    QTimer::singleShot(0, f, &Form58::LlenarMeses);
    return f;
}

void Form58::LlenarMeses() {
    Llenar([this](const Progreso&) {
        Conexion c = AbrirDatos(s_);
        LlenarMesesIyG(c, sel_, rejilla());
    });
}

void Form58::ponerSector(const QString& sector) {
    sel_.sector = sector.trimmed();
    Text1->setText(sel_.sector);
    LlenarMeses();
}

void Form58::ElegirSector() {
    Form15 f(s_, d_, sel_.sector, this);
    if (f.exec() == QDialog::Accepted)
        ponerSector(f.sector());
}

void Form58::Refrescar() {
    if (isVisible())
        LlenarMeses();
}

void Form58::Imprimir() {
    try {
        const QString empresa = NombreEmpresa(s_);
        const OpcionesLibro op = OpcionesListadoIyG(a_);
        OpcionesImpresion oi;
        oi.titulo = TituloMesesIyG;
        oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        oi.orientacion = OrientacionMeses;
        ImprimirLibro(
            this,
            [this, empresa, op](Impresora& imp, int) {
                DibujarMesesIyG(imp, rejilla(), sel_, empresa, op);
            },
            oi);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

#include "reports/forms/Form40.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "reports/forms/Form2.h"
#include "reports/forms/Form41.h"
#include "reports/forms/LienzoGrafico.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QAction>
#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

int IndiceDe(TipoGrafico tipo) {
    for (int i = 0; i < EntradasGraficos().size(); ++i)
        if (EntradasGraficos().at(i).tipo == tipo)
            return i;
    return -1;
}

} // namespace

Form40::Form40(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QMainWindow(padre, Qt::Window), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form40"));
    setWindowTitle(QStringLiteral("Quilmar [Gráficos]"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* cuerpo = new QWidget(this);
    Combo1 = new QComboBox(cuerpo);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    for (const EntradaGrafico& e : EntradasGraficos())
        Combo1->addItem(e.texto);
    Combo1->setCurrentIndex(-1);
    Combo1->setPlaceholderText(QStringLiteral("Seleccione el gráfico"));

    vista_ = new QChartView(new QChart, cuerpo);
    vista_->setObjectName(QStringLiteral("MSChart1"));
    vista_->setRenderHint(QPainter::Antialiasing);
    vista_->setContextMenuPolicy(Qt::CustomContextMenu);

    auto boton = [&](const char* nombre, const QString& texto) {
        auto* b = new QPushButton(texto, cuerpo);
        b->setObjectName(QString::fromLatin1(nombre));
        return b;
    };
    Command1 = boton("Command1", QStringLiteral("&2-D"));
    Command2 = boton("Command2", QStringLiteral("&3-D"));
    Command3 = boton("Command3", QStringLiteral("&Barras"));
    Command4 = boton("Command4", QStringLiteral("&Circular"));
    for (QPushButton* b : {Command1, Command2, Command3, Command4})
        b->setCheckable(true);
    Check1 = new QCheckBox(QStringLiteral("Ver cantidades"), cuerpo);
    Check1->setObjectName(QStringLiteral("Check1"));
    Command5 = boton("Command5", QStringLiteral("I&mprimir"));
    Command6 = boton("Command6", QStringLiteral("Ay&uda"));
    Command6->setEnabled(false);
    Command7 = boton("Command7", QStringLiteral("&Salir"));

    auto* botones = new QVBoxLayout;
    for (QWidget* w : std::initializer_list<QWidget*>{Command1, Command2, Command3, Command4})
        botones->addWidget(w);
    botones->addSpacing(8);
    botones->addWidget(Check1);
    botones->addStretch(1);
    for (QWidget* w : std::initializer_list<QWidget*>{Command5, Command6, Command7})
        botones->addWidget(w);
    auto* rejilla = new QGridLayout(cuerpo);
    rejilla->addWidget(Combo1, 0, 0);
    rejilla->addWidget(vista_, 1, 0);
    rejilla->addLayout(botones, 1, 1);
    rejilla->setRowStretch(1, 1);
    rejilla->setColumnStretch(0, 1);
    setCentralWidget(cuerpo);

    // The copy stands on the window's menu, on the chart's own context menu and on Ctrl+C.
    copiar_ = new QAction(QStringLiteral("&Copiar"), this);
    copiar_->setObjectName(QStringLiteral("mnuGraf"));
    copiar_->setShortcut(QKeySequence::Copy);
    addAction(copiar_);
    menuBar()->addMenu(QStringLiteral("&Gráfico"))->addAction(copiar_);
    connect(copiar_, &QAction::triggered, this, &Form40::Copiar);
    connect(vista_, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        if (!datos_)
            return;
        QMenu menu(this);
        menu.addAction(copiar_);
        menu.exec(vista_->mapToGlobal(p));
    });

    connect(Combo1, &QComboBox::activated, this, [this](int i) { Mostrar(i); });
    connect(Command1, &QPushButton::clicked, this, [this] { pulsarDimension(false); });
    connect(Command2, &QPushButton::clicked, this, [this] { pulsarDimension(true); });
    connect(Command3, &QPushButton::clicked, this, &Form40::pulsarBarras);
    connect(Command4, &QPushButton::clicked, this, &Form40::pulsarCircular);
    connect(Check1, &QCheckBox::clicked, this, &Form40::pulsarCantidades);
    connect(Command5, &QPushButton::clicked, this, &Form40::Imprimir);
    connect(Command7, &QPushButton::clicked, this, &QWidget::close);
    marcarBotones();
    resize(1100, 760);
}

Form40::~Form40() = default;

Form40* Form40::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    auto* f = new Form40(s, a, d, padre);
    f->show();
    return f;
}

void Form40::marcarBotones() {
    const AspectoGrafico a = LeerAspectoGrafico(a_);
    Command1->setChecked(!a.tresD);
    Command2->setChecked(a.tresD);
    Command3->setChecked(!a.circular);
    Command4->setChecked(a.circular);
    const QSignalBlocker b(Check1);
    Check1->setChecked(a.cantidades);
    Command5->setEnabled(datos_.has_value());
    copiar_->setEnabled(datos_.has_value());
}

bool Form40::calcular(const std::function<DatosGrafico()>& calculo) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        datos_ = calculo();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(QStringLiteral("Error: ") + e.mensaje());
        return false;
    }
    QApplication::restoreOverrideCursor();
    dibujar();
    return true;
}

bool Form40::Mostrar(int indice) {
    const QList<EntradaGrafico>& entradas = EntradasGraficos();
    if (indice < 0 || indice >= entradas.size())
        return false;
    const EntradaGrafico e = entradas.at(indice);
    // A cancelled choice leaves the chart on show, and the list says which it is.
    const auto anular = [this] {
        const QSignalBlocker b(Combo1);
        Combo1->setCurrentIndex(indice_);
        return false;
    };
    if (e.tipo == TipoGrafico::Cuenta) {
        Form41 f(s_, a_, d_, this);
        if (f.exec() != QDialog::Accepted)
            return anular();
        return MostrarCuenta(f.cuenta());
    }
    if (e.tipo == TipoGrafico::Anos) {
        Form2 f(s_, a_, d_, this);
        if (f.exec() != QDialog::Accepted)
            return anular();
        return MostrarAnos(f.seleccion(), f.anos());
    }
    return mostrarDe(indice, [this, e] {
        Conexion c = AbrirDatos(s_);
        switch (e.tipo) {
        case TipoGrafico::IngresosGastos:
            return GraficoIyG(c, s_, e);
        case TipoGrafico::Meses:
            return GraficoMeses(c, s_, e);
        default:
            return GraficoArea(c, s_, e);
        }
    });
}

bool Form40::MostrarCuenta(const CuentaGrafico& cuenta) {
    cuenta_ = cuenta;
    return mostrarDe(IndiceDe(TipoGrafico::Cuenta), [this, cuenta] {
        Conexion c = AbrirDatos(s_);
        return GraficoCuenta(c, s_, cuenta.ncuenta, cuenta.nombre);
    });
}

bool Form40::MostrarAnos(const SeleccionAnosGrafico& sel, const QList<int>& anos) {
    anos_ = std::make_pair(sel, anos);
    return mostrarDe(IndiceDe(TipoGrafico::Anos),
                     [this, sel, anos] { return GraficoAnos(s_, sel, anos); });
}

bool Form40::mostrarDe(int indice, const std::function<DatosGrafico()>& calculo) {
    const QSignalBlocker b(Combo1);
    Combo1->setCurrentIndex(indice);
    if (!calcular(calculo)) {
        // A failure leaves the chart on show, and the list says which it is.
        Combo1->setCurrentIndex(indice_);
        return false;
    }
    indice_ = indice;
    return true;
}

void Form40::dibujar() {
    aspectoVista_ = LeerAspectoGrafico(a_);
    QChart* antiguo = vista_->chart();
    vista_->setChart(datos_ ? CrearGrafico(*datos_, aspectoVista_) : new QChart);
    delete antiguo;
    marcarBotones();
}

bool Form40::circularEnVista() const {
    return datos_ && DibujaCircular(datos_->tipo, aspectoVista_);
}

void Form40::pulsarDimension(bool tresD) {
    GuardarDimensiones(a_, tresD);
    if (datos_)
        dibujar();
    marcarBotones();
}

void Form40::pulsarBarras() {
    GuardarTipoChart(a_, false);
    if (datos_)
        dibujar();
    marcarBotones();
}

void Form40::pulsarCircular() {
    GuardarTipoChart(a_, true);
    // Charts of two series and comparisons of years stay bars; the setting waits for the next
    // chart that admits a pie.
    if (datos_ && AdmiteCircular(datos_->tipo))
        dibujar();
    marcarBotones();
}

void Form40::pulsarCantidades(bool ver) {
    GuardarVerImport(a_, ver);
    if (datos_)
        dibujar();
    marcarBotones();
}

QImage Form40::imagen() const {
    if (!datos_)
        return {};
    const QSize tamano = vista_->size().expandedTo(QSize(640, 420));
    return ImagenGrafico(*datos_, aspectoVista_, tamano);
}

void Form40::Copiar() {
    if (datos_)
        QApplication::clipboard()->setImage(imagen());
}

void Form40::Imprimir() {
    if (!datos_)
        return;
    OpcionesImpresion oi;
    oi.titulo = QStringLiteral("Gráfico");
    oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
    oi.orientacion = OrientacionGrafico;
    ImprimirLibro(this, DibujoGrafico(*datos_, aspectoVista_), oi);
}

void Form40::Refrescar() {
    if (!isVisible() || !datos_)
        return;
    switch (datos_->tipo) {
    case TipoGrafico::Cuenta:
        if (cuenta_)
            MostrarCuenta(*cuenta_);
        break;
    case TipoGrafico::Anos:
        if (anos_)
            MostrarAnos(anos_->first, anos_->second);
        break;
    default:
        Mostrar(indice_);
        break;
    }
}

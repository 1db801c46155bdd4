#include "reports/forms/FormOpcionesLibro.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Impresora.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/forms/CajaFecha.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

enum class Filtro { Ninguno, Cifras, Importe };

const char* const PropiedadFiltro = "filtroTeclas";

QLineEdit* Caja(const QString& nombre, Filtro filtro) {
    auto* e = new QLineEdit;
    e->setObjectName(nombre);
    e->setProperty(PropiedadFiltro, int(filtro));
    return e;
}

} // namespace

FormOpcionesLibro::FormOpcionesLibro(const ConfigOpciones& config, Ajustes& a, Dialogo& d,
                                     QWidget* padre)
    : QDialog(padre), config_(config), a_(a), d_(d) {
    setObjectName(config.nombre);
    setWindowTitle(config.titulo);
    opciones_.cancelado = true;
    const CajasOpciones inicial = CajasIniciales(config, a);

    DTPicker1 = new CajaFecha(inicial.fechaTrabajo);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    Text1 = Caja(QStringLiteral("Text1"), Filtro::Cifras);
    Text1->setText(inicial.margen);
    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(true);
    Combo1->addItems(config.fuentes.isEmpty() ? FuentesImpresion() : config.fuentes);
    Combo1->setCurrentText(inicial.fuente);
    Combo2 = new QComboBox;
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setEditable(true);
    for (int t = 7; t <= 12; ++t)
        Combo2->addItem(QString::number(t));
    Combo2->setCurrentText(inicial.tamano);

    auto* cajas = new QFormLayout;
    cajas->addRow(QStringLiteral("Fecha de trabajo"), DTPicker1);
    cajas->addRow(QStringLiteral("Margen izquierdo (milímetros)"), Text1);
    cajas->addRow(QStringLiteral("Fuente"), Combo1);
    cajas->addRow(QStringLiteral("Tamaño de la Fuente"), Combo2);
    orden_ << DTPicker1 << Text1 << Combo1 << Combo2;
    if (config.paginaInicial) {
        Text2 = Caja(QStringLiteral("Text2"), Filtro::Cifras);
        cajas->addRow(QStringLiteral("Página inicial"), Text2);
        orden_ << Text2;
    }
    if (config.sumasIniciales) {
        Text3 = Caja(QStringLiteral("Text3"), Filtro::Importe);
        Text4 = Caja(QStringLiteral("Text4"), Filtro::Importe);
        Text3->setAlignment(Qt::AlignRight);
        Text4->setAlignment(Qt::AlignRight);
        cajas->addRow(QStringLiteral("Suma inicial del Debe"), Text3);
        cajas->addRow(QStringLiteral("Suma inicial del Haber"), Text4);
        orden_ << Text3 << Text4;
    }

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(cajas);
    if (config.modelo) {
        auto* grupo = new QGroupBox;
        auto* g = new QVBoxLayout(grupo);
        Option1 = new QRadioButton(QStringLiteral("Borrador"));
        Option1->setObjectName(QStringLiteral("Option1"));
        Option2 = new QRadioButton(QStringLiteral("Modelo oficial"));
        Option2->setObjectName(QStringLiteral("Option2"));
        Option2->setChecked(true);
        Check1 = new QCheckBox(QStringLiteral("Incluir número de Documento"));
        Check1->setObjectName(QStringLiteral("Check1"));
        g->addWidget(Option1);
        g->addWidget(Option2);
        g->addWidget(Check1);
        columna->addWidget(grupo);
    }
    if (config.numeroAsiento) {
        Check1 = new QCheckBox(QStringLiteral("Imprimir Nº de Asiento"));
        Check1->setObjectName(QStringLiteral("Check1"));
        columna->addWidget(Check1);
    }
    if (config.nuevaPagina) {
        Check1 = new QCheckBox(QStringLiteral("Nueva página cada Cuenta"));
        Check1->setObjectName(QStringLiteral("Check1"));
        Check2 = new QCheckBox(QStringLiteral("Nueva página cada Subcuenta"));
        Check2->setObjectName(QStringLiteral("Check2"));
        columna->addWidget(Check1);
        columna->addWidget(Check2);
    }
    if (config.anoAnterior) {
        Check1 = new QCheckBox(QStringLiteral("Imprimir Año N-1"));
        Check1->setObjectName(QStringLiteral("Check1"));
        columna->addWidget(Check1);
    }

    Command1 = new QPushButton(QStringLiteral("&Aceptar"));
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("&Cancelar"));
    Command2->setObjectName(QStringLiteral("Command2"));
    // Enter in a box moves on; it presses a button only when the button has the focus.
    for (QPushButton* b : {Command1, Command2}) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    columna->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &FormOpcionesLibro::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    for (QWidget* w : orden_) {
        w->installEventFilter(this);
        if (auto* combo = qobject_cast<QComboBox*>(w))
            combo->lineEdit()->installEventFilter(this);
    }
    setMinimumWidth(380);
    PrepararVentana(this, a, config.numero);
}

CajasOpciones FormOpcionesLibro::cajas() const {
    CajasOpciones c;
    c.fechaTrabajo = DTPicker1->date();
    c.margen = Text1->text();
    c.fuente = Combo1->currentText();
    c.tamano = Combo2->currentText();
    if (Text2)
        c.paginaInicial = Text2->text();
    if (Text3) {
        c.sumaDebe = Text3->text();
        c.sumaHaber = Text4->text();
    }
    if (Option1)
        c.borrador = Option1->isChecked();
    if (config_.modelo)
        c.conDocumento = Check1->isChecked();
    if (config_.numeroAsiento)
        c.numeroAsiento = Check1->isChecked();
    if (config_.nuevaPagina) {
        c.nuevaPaginaCuenta = Check1->isChecked();
        c.nuevaPaginaSubcuenta = Check2->isChecked();
    }
    if (config_.anoAnterior)
        c.anoAnterior = Check1->isChecked();
    return c;
}

void FormOpcionesLibro::aceptar() {
    if (!DTPicker1->comprobar(d_))
        return;
    CajasOpciones c = cajas();
    OpcionesLibro op;
    const ResultadoOpciones r = AceptarOpciones(config_, c, a_, op);
    if (r == ResultadoOpciones::SumasIncompletas) {
        sumasIncompletas_ = true;
        d_.Informar(MsgSumasIniciales);
        reject();
        return;
    }
    if (r == ResultadoOpciones::ImporteNoValido) {
        d_.Informar(MsgSumaNoValida(c.sumaDebe, c.sumaHaber));
        return;
    }
    Text1->setText(c.margen); // FORM52 shows the margin it raised
    opciones_ = op;
    accept();
}

bool FormOpcionesLibro::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && filtrarTecla(objeto, static_cast<QKeyEvent*>(evento)))
        return true;
    return QDialog::eventFilter(objeto, evento);
}

bool FormOpcionesLibro::filtrarTecla(QObject* objeto, QKeyEvent* tecla) {
    // Enter moves the focus on, from the last box to "&Aceptar".
    if (EsIntro(tecla)) {
        QWidget* caja = qobject_cast<QWidget*>(objeto);
        if (auto* combo = qobject_cast<QComboBox*>(caja ? caja->parentWidget() : nullptr))
            caja = combo;
        const int i = orden_.indexOf(caja);
        if (i < 0)
            return false;
        if (i + 1 < orden_.size())
            orden_.at(i + 1)->setFocus(Qt::TabFocusReason);
        else
            Command1->setFocus(Qt::TabFocusReason);
        return true;
    }
    auto* caja = qobject_cast<QLineEdit*>(objeto);
    if (!caja)
        return false;
    const Filtro filtro = Filtro(caja->property(PropiedadFiltro).toInt());
    const QString texto = tecla->text();
    // Editing and moving keys carry no text, or a control character.
    if (filtro == Filtro::Ninguno || texto.isEmpty() || texto.at(0).isNull() ||
        texto.at(0).category() == QChar::Other_Control)
        return false;
    if (texto.size() == 1 && texto.at(0).isDigit())
        return false;
    if (filtro == Filtro::Importe) {
        if (texto == QLatin1String(".") || texto == QLatin1String(",")) {
            // The decimal mark of the amounts, whichever of the two was typed.
            caja->insert(QStringLiteral(","));
            return true;
        }
        for (int i = 0; i < 10; ++i)
            QApplication::beep();
    }
    return true;
}

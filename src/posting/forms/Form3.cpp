#include "posting/forms/Form3.h"

#include "chart/forms/Form73.h"
#include "platform/Ajustes.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Rutinas.h"
#include "store/forms/CampoTexto.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleValidator>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QLabel* valor(QWidget* padre) {
    auto* l = new QLabel(padre);
    l->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    l->setMinimumWidth(90);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return l;
}

} // namespace

Form3::Form3(CapturaIva& captura, Ajustes& ajustes, QWidget* padre)
    : QDialog(padre), c_(captura), ajustes_(ajustes) {
    setWindowTitle(QStringLiteral("Quilmar [Datos del IVA]"));
    setModal(true);

    Encabezado = new QLabel(this);
    QFont negrita = Encabezado->font();
    negrita.setBold(true);
    negrita.setPointSizeF(negrita.pointSizeF() + 2);
    Encabezado->setFont(negrita);

    Text1 = new QLineEdit(this);
    Text1->setAlignment(Qt::AlignRight);
    Label8 = valor(this);
    Label4 = valor(this);
    Label6 = valor(this);
    Label6->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Text2 = new QLineEdit(this);
    LimitarCampo(Text2, Campo::NFactura);
    Combo3 = new QComboBox(this);
    Combo1 = new QComboBox(this);
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->setMinimumWidth(260);
    Combo1->installEventFilter(this);
    Combo1->lineEdit()->installEventFilter(this);
    Combo2 = new QComboBox(this);
    Combo2->setVisible(false);
    Check1 = new QCheckBox(QStringLiteral("Incorporar a Libro de IVA "), this);
    Check2 = new QCheckBox(QStringLiteral("Incorporar a 347 (Ingresos y Pagos)"), this);
    Check3 = new QCheckBox(QStringLiteral("Factura de abono"), this);
    Option1 = new QRadioButton(QStringLiteral("Ingreso/Pago"), this);
    Option2 = new QRadioButton(QStringLiteral("Operación de Seguro"), this);
    Option3 = new QRadioButton(QStringLiteral("Arrendamiento locales"), this);
    Label10 = new QLabel(QStringLiteral("Importe Retención"), this);
    TDBN1 = new QLineEdit(this);
    TDBN1->setAlignment(Qt::AlignRight);
    auto* validador = new QDoubleValidator(0, ImporteMaximo, 2, TDBN1);
    validador->setNotation(QDoubleValidator::StandardNotation);
    TDBN1->setValidator(validador);
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command3->setEnabled(false); // no help pages yet
    Command1->setDefault(true);

    auto* importes = new QGridLayout;
    importes->addWidget(new QLabel(QStringLiteral("Base"), this), 0, 0);
    importes->addWidget(Text1, 1, 0);
    importes->addWidget(new QLabel(QStringLiteral("Porcentaje"), this), 0, 1);
    importes->addWidget(Label8, 1, 1);
    importes->addWidget(new QLabel(QStringLiteral("Cuota"), this), 0, 2);
    importes->addWidget(Label4, 1, 2);
    importes->addWidget(new QLabel(QStringLiteral("Clase"), this), 0, 3);
    importes->addWidget(Label6, 1, 3);

    auto* factura = new QGridLayout;
    factura->addWidget(new QLabel(QStringLiteral("Nº Factura"), this), 0, 0);
    factura->addWidget(Text2, 0, 1, 1, 3);
    LabelArea = new QLabel(QStringLiteral("Area"), this);
    LabelContra = new QLabel(QStringLiteral("Contrapartida"), this);
    factura->addWidget(LabelArea, 1, 0);
    factura->addWidget(Combo3, 1, 1);
    factura->addWidget(LabelContra, 2, 0);
    factura->addWidget(Combo1, 2, 1, 1, 3);
    factura->setColumnStretch(3, 1);

    auto* marcas = new QVBoxLayout;
    marcas->addWidget(Check1);
    marcas->addWidget(Check2);
    marcas->addWidget(Check3);

    auto* tipo = new QGroupBox(QStringLiteral("Tipo de operación"), this);
    auto* tipoL = new QVBoxLayout(tipo);
    tipoL->addWidget(Option1);
    tipoL->addWidget(Option2);
    tipoL->addWidget(Option3);
    auto* retencion = new QHBoxLayout;
    retencion->addWidget(Label10);
    retencion->addWidget(TDBN1);
    tipoL->addLayout(retencion);

    auto* medio = new QHBoxLayout;
    medio->addLayout(marcas);
    medio->addWidget(tipo);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Encabezado);
    todo->addLayout(importes);
    todo->addLayout(factura);
    todo->addLayout(medio);
    todo->addStretch();
    todo->addLayout(botones);

    desdeLogica();

    connect(Check1, &QCheckBox::toggled, this, [this] {
        aLogica();
        visibilidad();
    });
    connect(Check2, &QCheckBox::toggled, this, [this] {
        aLogica();
        visibilidad();
    });
    connect(Check3, &QCheckBox::toggled, this, [this](bool marcado) {
        if (cargando_)
            return;
        aLogica();
        c_.MarcarAbono(marcado);
        desdeLogica();
    });
    for (QRadioButton* o : {Option1, Option2, Option3})
        connect(o, &QRadioButton::toggled, this, [this] {
            aLogica();
            visibilidad();
        });
    connect(Combo3, &QComboBox::activated, this, [this] {
        if (Combo3->currentText().isEmpty())
            return;
        aLogica();
        c_.ElegirArea(Combo3->currentText());
        listas();
    });
    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        c_.ElegirContrapartida(i);
        cargando_ = true;
        Combo2->setCurrentIndex(i);
        cargando_ = false;
    });
    connect(Combo2, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (!cargando_)
            Combo1->setCurrentIndex(i);
    });
    connect(Command1, &QPushButton::clicked, this, &Form3::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);

    resize(sizeHint().expandedTo(QSize(520, 380)));
    PrepararVentana(this, ajustes_, 3);
}

Form3::~Form3() = default;

void Form3::desdeLogica() {
    cargando_ = true;
    Encabezado->setText(c_.Encabezado);
    Text1->setText(c_.Base);
    Label8->setText(c_.Porcentaje);
    Label4->setText(c_.Cuota);
    Label6->setText(c_.Clase);
    Text2->setText(c_.Factura);
    if (Combo3->count() == 0)
        Combo3->addItems(c_.Areas());
    Combo3->setCurrentText(c_.Area);
    listas();
    Check1->setChecked(c_.LibroIva);
    Check2->setChecked(c_.Modelo347);
    Check3->setChecked(c_.Abono);
    Option1->setChecked(c_.TipoOperacion == QLatin1String("N"));
    Option2->setChecked(c_.TipoOperacion == QLatin1String("S"));
    Option3->setChecked(c_.TipoOperacion == QLatin1String("A"));
    TDBN1->setText(c_.Retencion);
    cargando_ = false;
    visibilidad();
}

void Form3::listas() {
    const bool antes = cargando_;
    cargando_ = true;
    Combo1->clear();
    Combo2->clear();
    Combo1->addItems(c_.Nombres);
    Combo2->addItems(c_.Codigos);
    const int i = static_cast<int>(c_.Codigos.indexOf(c_.CuentaContra));
    Combo1->setCurrentIndex(i);
    Combo2->setCurrentIndex(i);
    Combo1->setCurrentText(c_.Contrapartida);
    cargando_ = antes;
}

void Form3::aLogica() {
    if (cargando_)
        return;
    c_.Base = Text1->text();
    c_.Factura = Text2->text();
    c_.LibroIva = Check1->isChecked();
    c_.Modelo347 = Check2->isChecked();
    c_.TipoOperacion = Option2->isChecked()   ? QStringLiteral("S")
                       : Option3->isChecked() ? QStringLiteral("A")
                                              : QStringLiteral("N");
    c_.Retencion = TDBN1->text();
}

void Form3::visibilidad() {
    Check2->setVisible(c_.Modelo347Visible);
    for (QWidget* w : {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Combo3),
                       static_cast<QWidget*>(LabelArea), static_cast<QWidget*>(LabelContra)})
        w->setVisible(c_.ListasVisibles());
    Label10->setVisible(c_.RetencionVisible());
    TDBN1->setVisible(c_.RetencionVisible());
}

void Form3::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    if (!primera_)
        return;
    primera_ = false;
    const CapturaIva::Foco foco = c_.PrimeraVista();
    desdeLogica();
    QWidget* destino = foco == CapturaIva::Foco::Factura         ? static_cast<QWidget*>(Text2)
                       : foco == CapturaIva::Foco::Contrapartida ? static_cast<QWidget*>(Combo1)
                                                                 : Command1;
    QTimer::singleShot(0, destino, [destino] { destino->setFocus(); });
}

bool Form3::eventFilter(QObject* objeto, QEvent* evento) {
    if ((objeto == Combo1 || objeto == Combo1->lineEdit()) && evento->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(evento);
        if (EsIntro(k)) {
            Command1->setFocus();
            return true;
        }
        if (k->text() == QLatin1String("+")) {
            if (ElegirEnPlan) {
                const QString codigo = ElegirEnPlan();
                if (!codigo.isEmpty() && c_.ElegirCodigo(codigo)) {
                    cargando_ = true;
                    Combo3->setCurrentText(c_.Area);
                    cargando_ = false;
                    listas();
                }
            }
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

void Form3::aceptar() {
    aLogica();
    // A name typed rather than chosen is looked up by name.
    const QString texto = Combo1->currentText().trimmed();
    if (texto != c_.Contrapartida.trimmed() || (!texto.isEmpty() && c_.CuentaContra.isEmpty())) {
        if (texto.isEmpty()) {
            c_.Contrapartida.clear();
            c_.CuentaContra.clear();
        } else if (!c_.ElegirContrapartida(texto)) {
            return;
        }
    }
    if (!c_.Aceptar())
        return;
    accept();
}

void PantallaIvaForm3::Mostrar(CapturaIva& captura) {
    Form3 f(captura, ajustes_, padre_);
    f.ElegirEnPlan = [this, &f] {
        return Form73::ElegirSubcuenta(s_, ajustes_, d_, &f);
    };
    if (alAbrir)
        alAbrir(f);
    // The busy pointer of the posting press gives way while the user answers.
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    f.exec();
    QApplication::restoreOverrideCursor();
}

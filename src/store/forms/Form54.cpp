#include "store/forms/Form54.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"
#include "store/forms/Form102.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

const QString Predeterminada = QStringLiteral("Predeterminada del sistema");
constexpr int AnchoTextos = 460;

QComboBox* comboLetras(const QString& nombre, const QString& actual) {
    auto* c = new QComboBox;
    c->setObjectName(nombre);
    QStringList familias{QStringLiteral("Arial"), QStringLiteral("Arial Narrow"),
                         QStringLiteral("Courier New")};
    for (const QString& f : QFontDatabase::families())
        if (!familias.contains(f))
            familias << f;
    if (!familias.contains(actual))
        familias << actual;
    c->addItems(familias);
    c->setCurrentText(actual);
    return c;
}

QComboBox* comboTamanos(const QString& nombre, const QString& actual) {
    auto* c = new QComboBox;
    c->setObjectName(nombre);
    QStringList tamanos;
    for (int t : {7, 8, 9, 10, 11, 12, 14, 16, 18})
        tamanos << QString::number(t);
    if (!tamanos.contains(actual))
        tamanos << actual;
    c->addItems(tamanos);
    c->setCurrentText(actual);
    return c;
}

// A wrapped text keeps the height of its lines at the width of the screen, which the layout of a
// dialog doesn't work out by itself.
QLabel* nota(const QString& texto, int ancho) {
    auto* l = new QLabel(texto);
    l->setWordWrap(true);
    l->setMinimumHeight(l->heightForWidth(ancho));
    return l;
}

QPushButton* boton(const QString& texto, const QString& nombre) {
    auto* b = new QPushButton(texto);
    b->setObjectName(nombre);
    return b;
}

} // namespace

Form54::Form54(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form54"));
    setWindowTitle(QStringLiteral("Quilmar [Configuración]"));
    const QString valores = QStringLiteral("Valores");

    // Screen font.
    auto* pantalla = new QGroupBox(QStringLiteral("Tipo de letra de la pantalla"));
    Combo1 = comboLetras(QStringLiteral("Combo1"), a_.leer(valores, QStringLiteral("NLetra")));
    Combo2 = comboTamanos(QStringLiteral("Combo2"), a_.leer(valores, QStringLiteral("TLetra")));
    auto* Command1 =
        boton(QStringLiteral("Utilizar la Predeterminada"), QStringLiteral("Command1"));
    auto* Command2 =
        boton(QStringLiteral("Utilizar el Predeterminado"), QStringLiteral("Command2"));
    auto* aviso = nota(QStringLiteral("Los cambios se aplicarán a las ventanas que se abran a "
                                      "partir de realizarlos"),
                       AnchoTextos);
    auto* g1 = new QGridLayout(pantalla);
    g1->addWidget(new QLabel(QStringLiteral("Fuente:")), 0, 0);
    g1->addWidget(Combo1, 0, 1);
    g1->addWidget(Command1, 0, 2);
    g1->addWidget(new QLabel(QStringLiteral("Tamaño:")), 1, 0);
    g1->addWidget(Combo2, 1, 1);
    g1->addWidget(Command2, 1, 2);
    g1->addWidget(aviso, 2, 0, 1, 3);
    g1->setColumnStretch(1, 1);

    // Printing.
    auto* impresion = new QGroupBox(QStringLiteral("Impresión"));
    Combo3 = new QComboBox;
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->addItem(Predeterminada);
    Combo3->addItems(QPrinterInfo::availablePrinterNames());
    const QString impresora = a_.leer(valores, QStringLiteral("Impresora"));
    if (Combo3->findText(impresora) < 0)
        Combo3->addItem(impresora);
    Combo3->setCurrentText(impresora);
    Combo4 = comboLetras(QStringLiteral("Combo4"), a_.leer(valores, QStringLiteral("NFImprimir")));
    Combo5 = comboTamanos(QStringLiteral("Combo5"), a_.leer(valores, QStringLiteral("TFImprimir")));
    auto* Command3 = boton(QStringLiteral("Predeterminada normal"), QStringLiteral("Command3"));
    auto* Command4 = boton(QStringLiteral("Predeterminada comprimida"), QStringLiteral("Command4"));
    auto* g2 = new QGridLayout(impresion);
    g2->addWidget(new QLabel(QStringLiteral("Impresora:")), 0, 0);
    g2->addWidget(Combo3, 0, 1, 1, 2);
    g2->addWidget(new QLabel(QStringLiteral("Fuente:")), 1, 0);
    g2->addWidget(Combo4, 1, 1);
    g2->addWidget(Command3, 1, 2);
    g2->addWidget(new QLabel(QStringLiteral("Tamaño:")), 2, 0);
    g2->addWidget(Combo5, 2, 1);
    g2->addWidget(Command4, 2, 2);
    g2->setColumnStretch(1, 1);

    // Where the databases are.
    auto* base = new QGroupBox(QStringLiteral("Base de Datos"));
    Option1 = new QRadioButton(QStringLiteral("En este ordenador"));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("En otro ordenador de la red"));
    Option2->setObjectName(QStringLiteral("Option2"));
    // They show the state; Modificar changes it.
    Option1->setAttribute(Qt::WA_TransparentForMouseEvents);
    Option2->setAttribute(Qt::WA_TransparentForMouseEvents);
    Option1->setFocusPolicy(Qt::NoFocus);
    Option2->setFocusPolicy(Qt::NoFocus);
    Label5 = new QLabel;
    Label5->setObjectName(QStringLiteral("Label5"));
    auto* Command5 = boton(QStringLiteral("Modificar"), QStringLiteral("Command5"));
    auto* g3 = new QGridLayout(base);
    g3->addWidget(new QLabel(QStringLiteral("Indica donde están situadas las bases de datos")), 0,
                  0, 1, 2);
    g3->addWidget(Option1, 1, 0);
    g3->addWidget(Command5, 1, 1, Qt::AlignRight);
    g3->addWidget(Option2, 2, 0);
    g3->addWidget(Label5, 3, 0, 1, 2);

    // Area of a subaccount.
    auto* area = new QGroupBox(QStringLiteral("Area al utilizar las Subcuentas"));
    Option3 = new QRadioButton(QStringLiteral("Referidas a las imágenes (0 al 6)"));
    Option3->setObjectName(QStringLiteral("Option3"));
    Option4 = new QRadioButton(QStringLiteral("Referidas a los Grupos del P.G.C. (1 al 7)"));
    Option4->setObjectName(QStringLiteral("Option4"));
    (a_.leer(valores, QStringLiteral("CArea")) == QLatin1String("Plan") ? Option4 : Option3)
        ->setChecked(true);
    auto* explicacion = nota(
        QStringLiteral("En el programa, cada Subcuenta pertenece a una de las Areas (imágenes) de "
                       "la pantalla principal. Sin embargo puede optar porque el Area esté "
                       "referida a los Grupos del Plan General de Contabilidad"),
        AnchoTextos);
    auto* g4 = new QVBoxLayout(area);
    g4->addWidget(Option3);
    g4->addWidget(Option4);
    g4->addWidget(explicacion);

    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(pantalla);
    columna->addWidget(impresion);
    columna->addWidget(base);
    columna->addWidget(area);
    columna->addWidget(botones);

    connect(Combo1, &QComboBox::currentTextChanged, this, [this](const QString& t) {
        escribir(QStringLiteral("NLetra"), t);
        s_.NombreLetra = t;
    });
    connect(Combo2, &QComboBox::currentTextChanged, this, [this](const QString& t) {
        escribir(QStringLiteral("TLetra"), t);
        s_.TamanoLetra = static_cast<qint16>(t.toInt());
    });
    connect(Command1, &QPushButton::clicked, this,
            [this] { Combo1->setCurrentText(QStringLiteral("Arial")); });
    connect(Command2, &QPushButton::clicked, this,
            [this] { Combo2->setCurrentText(QStringLiteral("9")); });
    connect(Combo3, &QComboBox::currentTextChanged, this,
            [this](const QString& t) { escribir(QStringLiteral("Impresora"), t); });
    connect(Combo4, &QComboBox::currentTextChanged, this, [this](const QString& t) {
        escribir(QStringLiteral("NFImprimir"), t);
        s_.NombreImprimir = t;
    });
    connect(Combo5, &QComboBox::currentTextChanged, this, [this](const QString& t) {
        escribir(QStringLiteral("TFImprimir"), t);
        s_.TamanoImprimir = static_cast<qint16>(t.toInt());
    });
    connect(Command3, &QPushButton::clicked, this,
            [this] { Combo4->setCurrentText(QStringLiteral("Arial")); });
    connect(Command4, &QPushButton::clicked, this,
            [this] { Combo4->setCurrentText(QStringLiteral("Arial Narrow")); });
    connect(Command5, &QPushButton::clicked, this, &Form54::modificarUbicacion);
    connect(Option3, &QRadioButton::toggled, this, [this](bool imagenes) {
        s_.CArea = imagenes ? QStringLiteral("Imagenes") : QStringLiteral("Plan");
        escribir(QStringLiteral("CArea"), s_.CArea);
        Q_EMIT areaCambiada(s_.CArea);
    });

    mostrarUbicacion();
    setMinimumWidth(AnchoTextos + 60);
    PrepararVentana(this, a);
}

void Form54::escribir(const QString& clave, const QString& valor) {
    a_.escribir(QStringLiteral("Valores"), clave, valor);
}

void Form54::mostrarUbicacion() {
    const bool principal = !s_.enServidor() && (s_.DataPath.isEmpty() || s_.esPrincipal());
    Option1->setChecked(principal);
    Option2->setChecked(!principal);
    // Books on a database server are on another machine of the network too: its address shows.
    Label5->setText(principal         ? QString()
                    : s_.enServidor() ? QStringLiteral("Servidor PostgreSQL %1").arg(s_.UrlServidor)
                                      : QDir::toNativeSeparators(s_.DataPath));
}

void Form54::modificarUbicacion() {
    Form102 f(s_, a_, d_, this);
    connect(&f, &Form102::ubicacionCambiada, this, [this](const QString&) { mostrarUbicacion(); });
    f.exec();
}

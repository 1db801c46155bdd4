#include "posting/forms/Form8.h"

#include "chart/NCuenta.h"
#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Ventana.h"
#include "posting/ImagenesTablero.h"
#include "store/Sesion.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

const QString MsgSeleccionarArea = QStringLiteral("Tiene primero que seleccionar el Area");
// The formats the program reads; Windows metafiles are not among them.
const QString FiltroImagenes = QStringLiteral(
    "Imágenes (*.jpg *.jpeg *.png *.gif *.bmp);;Formato JPG (*.jpg *.jpeg);;Formato PNG "
    "(*.png);;Formato GIF (*.gif);;Mapa de bits (*.bmp)");

Form8::Form8(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form8"));
    setWindowTitle(QStringLiteral("Quilmar [Imágenes]"));

    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    for (int i = 0; i < NumeroAreas; ++i)
        Combo1->addItem(EtiquetaArea(i));
    Combo1->setCurrentIndex(-1);
    Image1 = new QLabel;
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setFixedSize(280, 210);
    Image1->setAlignment(Qt::AlignCenter);
    Image1->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Label3 = new QLabel;
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setWordWrap(true);
    Label3->setMaximumWidth(280);
    auto boton = [](const QString& texto, const QString& nombre) {
        auto* b = new QPushButton(texto);
        b->setObjectName(nombre);
        return b;
    };
    Command1 = boton(QStringLiteral("&Buscar imagen"), QStringLiteral("Command1"));
    Command2 = boton(QStringLiteral("&Predeterminada"), QStringLiteral("Command2"));
    Command3 = boton(QStringLiteral("&Aceptar"), QStringLiteral("Command3"));
    Picture1 = new QLabel;
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setFixedSize(90, 26);
    Picture1->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    Picture1->setAutoFillBackground(true);
    Command4 = boton(QStringLiteral("&Seleccionar"), QStringLiteral("Command4"));
    Command5 = boton(QStringLiteral("Pre&determinado"), QStringLiteral("Command5"));
    Command6 = boton(QStringLiteral("A&ceptar"), QStringLiteral("Command6"));
    Command7 = boton(QStringLiteral("Sa&lir"), QStringLiteral("Command7"));

    auto* imagenes = new QGroupBox(QStringLiteral("Imágenes de las Areas"));
    auto* gi = new QGridLayout(imagenes);
    gi->addWidget(new QLabel(QStringLiteral("Area:")), 0, 0);
    gi->addWidget(Combo1, 0, 1);
    gi->addWidget(Image1, 1, 0, 1, 2);
    gi->addWidget(Label3, 2, 0, 1, 2);
    auto* bi = new QVBoxLayout;
    bi->addWidget(Command1);
    bi->addWidget(Command2);
    bi->addStretch();
    bi->addWidget(Command3);
    gi->addLayout(bi, 0, 2, 3, 1);

    auto* color = new QGroupBox(QStringLiteral("Color"));
    auto* gc = new QHBoxLayout(color);
    gc->addWidget(new QLabel(QStringLiteral("Color del fondo:")));
    gc->addWidget(Picture1);
    gc->addStretch();
    gc->addWidget(Command4);
    gc->addWidget(Command5);
    gc->addWidget(Command6);

    auto* pie = new QHBoxLayout;
    pie->addStretch();
    pie->addWidget(Command7);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(imagenes);
    todo->addWidget(color);
    todo->addLayout(pie);

    ElegirFichero = [this](const QString& carpeta, const QString& filtro) {
        return QFileDialog::getOpenFileName(this, QStringLiteral("Buscar imagen"), carpeta, filtro);
    };
    ElegirColor = [this](const QColor& actual) {
        return QColorDialog::getColor(actual, this, QStringLiteral("Color del fondo"));
    };

    connect(Combo1, &QComboBox::currentIndexChanged, this, &Form8::alElegirArea);
    connect(Command1, &QPushButton::clicked, this, &Form8::buscar);
    connect(Command2, &QPushButton::clicked, this, &Form8::predeterminada);
    connect(Command3, &QPushButton::clicked, this, &Form8::aceptarImagen);
    connect(Command4, &QPushButton::clicked, this, &Form8::seleccionarColor);
    connect(Command5, &QPushButton::clicked, this, &Form8::predeterminado);
    connect(Command6, &QPushButton::clicked, this, &Form8::aceptarColor);
    connect(Command7, &QPushButton::clicked, this, &QDialog::accept);

    color_ = ColorTablero(a_);
    mostrarColor();
    mostrarImagen();
    PrepararVentana(this, a_, 8);
}

bool Form8::hayArea() {
    if (Combo1->currentIndex() >= 0)
        return true;
    d_.Informar(MsgSeleccionarArea);
    return false;
}

void Form8::alElegirArea(int area) {
    ruta_ = area >= 0 ? RutaImagenArea(s_, a_, area) : QString();
    mostrarImagen();
}

void Form8::buscar() {
    if (!hayArea())
        return;
    const QString elegido = ElegirFichero(CarpetaImagenes(s_), FiltroImagenes);
    if (elegido.isEmpty())
        return;
    ruta_ = elegido;
    mostrarImagen();
}

void Form8::predeterminada() {
    if (!hayArea())
        return;
    ruta_ = RutaPredeterminada(s_, Combo1->currentIndex());
    mostrarImagen();
}

void Form8::aceptarImagen() {
    if (!hayArea() || ruta_.isEmpty())
        return;
    const int area = Combo1->currentIndex();
    GuardarImagenArea(a_, area, ruta_);
    Q_EMIT imagenCambiada(area);
}

void Form8::mostrarImagen() {
    Label3->setText(ruta_.isEmpty() ? QString() : QFileInfo(ruta_).fileName());
    QImage img(ruta_);
    if (img.isNull() && Combo1->currentIndex() >= 0 && ruta_.isEmpty())
        img = CargarImagenArea(s_, a_, Combo1->currentIndex());
    Image1->setPixmap(img.isNull() ? QPixmap()
                                   : QPixmap::fromImage(img.scaled(Image1->size() - QSize(4, 4),
                                                                   Qt::KeepAspectRatio,
                                                                   Qt::SmoothTransformation)));
}

void Form8::seleccionarColor() {
    const QColor c = ElegirColor(color_);
    if (!c.isValid())
        return;
    color_ = c;
    mostrarColor();
}

void Form8::predeterminado() {
    color_ = ColorTableroPredeterminado;
    mostrarColor();
}

void Form8::aceptarColor() {
    GuardarColorTablero(a_, color_);
    Q_EMIT colorCambiado(color_);
}

void Form8::mostrarColor() {
    QPalette p = Picture1->palette();
    p.setColor(QPalette::Window, color_);
    Picture1->setPalette(p);
}

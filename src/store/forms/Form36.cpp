#include "store/forms/Form36.h"

#include "platform/Ajustes.h"
#include "platform/forms/Ventana.h"
#include "store/forms/Portada.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form36::Form36(Ajustes& a, QWidget* padre) : QDialog(padre), a_(a) {
    setObjectName(QStringLiteral("Form36"));
    setWindowTitle(QStringLiteral("Quilmar [Bienvenida]"));

    auto* imagen = new QLabel;
    imagen->setPixmap(ImagenPortada(QSize(480, 150)));
    imagen->setAlignment(Qt::AlignCenter);
    auto* texto = new QLabel(QStringLiteral(
        "<p><b>Bienvenido a Quilmar.</b></p>"
        "<p>En la pantalla principal están las siete Areas de las cuentas: Capital, Cuentas y "
        "Efectivo, SE DEBE, Ingresos/Ganancias, NOS DEBEN, Bienes e Inversiones y "
        "Gastos/Pérdidas.</p>"
        "<p>Para contabilizar basta con arrastrar una Subcuenta sobre otra: se indica de dónde "
        "viene el dinero y a dónde va, y el programa hace el cargo y el abono.</p>"
        "<p>Pulse sobre la imagen de portada, o en el botón de Imágenes de la barra de "
        "herramientas, para ver las Areas. Las empresas y los ejercicios se eligen en el menú "
        "Acceso.</p>"));
    texto->setWordWrap(true);
    texto->setTextFormat(Qt::RichText);
    Check1 = new QCheckBox(QStringLiteral("No ver más esta pantalla"));
    Check1->setObjectName(QStringLiteral("Check1"));
    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(imagen);
    columna->addWidget(texto, 1);
    columna->addWidget(Check1);
    columna->addWidget(botones);
    PrepararVentana(this, a, 36);
}

bool Form36::SeMuestra(const Ajustes& a) {
    return a.leer(QStringLiteral("Inicio"), QStringLiteral("Presenta")).trimmed().toUpper() ==
           QLatin1String("SI");
}

void Form36::done(int r) {
    if (Check1->isChecked())
        a_.escribir(QStringLiteral("Inicio"), QStringLiteral("Presenta"), QStringLiteral("NO"));
    QDialog::done(r);
}

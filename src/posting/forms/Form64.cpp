#include "posting/forms/Form64.h"

#include "platform/Ajustes.h"
#include "platform/forms/Ventana.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

const QString MsgAvisoRapido = QStringLiteral(
    "Para contabilizar más rápidamente los Ingresos o Gastos, cuando operamos contra la misma "
    "cuenta de Efectivo/Bancos,  tras hacer el primer asiento basta con hacer clic sobre la "
    "cuenta del Ingreso o Gasto para realizar los sucesivos asientos.");

Form64::Form64(Ajustes& a, QWidget* padre) : QDialog(padre), a_(a) {
    setObjectName(QStringLiteral("Form64"));
    setWindowTitle(QStringLiteral("Quilmar [Información]"));

    auto* icono = new QLabel;
    icono->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(40, 40));
    icono->setAlignment(Qt::AlignTop);
    auto* texto = new QLabel(MsgAvisoRapido);
    texto->setObjectName(QStringLiteral("Label1"));
    texto->setWordWrap(true);
    texto->setMinimumWidth(380);
    Check1 = new QCheckBox(QStringLiteral("No ver más esta información"));
    Check1->setObjectName(QStringLiteral("Check1"));
    auto* botones = new QDialogButtonBox;
    auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
    aceptar->setObjectName(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);

    auto* fila = new QHBoxLayout;
    fila->addWidget(icono);
    fila->addWidget(texto, 1);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(fila);
    columna->addWidget(Check1);
    columna->addWidget(botones);
    PrepararVentana(this, a);
}

bool Form64::SeMuestra(const Ajustes& a) {
    return a.leer(QStringLiteral("Opciones"), QStringLiteral("AvisoRepe"))
               .trimmed()
               .compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
}

void Form64::done(int r) {
    if (Check1->isChecked())
        a_.escribir(QStringLiteral("Opciones"), QStringLiteral("AvisoRepe"),
                    QStringLiteral("False"));
    QDialog::done(r);
}

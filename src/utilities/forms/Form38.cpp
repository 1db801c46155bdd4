#include "utilities/forms/Form38.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Formato.h"
#include "utilities/forms/Form37.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Each new window a little below and right of the one before, so that all can be seen.
int ventanasAbiertas = 0;

} // namespace

Form38::Form38(Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso, const QDate& hoy,
               QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), aviso_(aviso), hoy_(hoy) {
    setObjectName(QStringLiteral("Form38"));
    setWindowTitle(QStringLiteral("AVISOS"));
    Label1 = new QLabel(QStringLiteral("AVISOS"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont grande = Label1->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.8);
    grande.setBold(true);
    Label1->setFont(grande);
    Label1->setStyleSheet(QStringLiteral("color: #b00000;"));
    Label1->setAlignment(Qt::AlignCenter);
    Label2 = new QLabel(FormatoFecha(aviso.Fecha, QStringLiteral("short date")), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setAlignment(Qt::AlignCenter);
    QFont negrita = Label2->font();
    negrita.setBold(true);
    Label2->setFont(negrita);
    Label3 = new QLabel(aviso.Texto, this);
    Label3->setObjectName(QStringLiteral("Label3"));
    Label3->setWordWrap(true);
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Command1 = new QPushButton(QStringLiteral("&Modificar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command2 = new QPushButton(QStringLiteral("&Eliminar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command3 = new QPushButton(QStringLiteral("&Salir"), this);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setDefault(true);

    auto* botones = new QHBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label1);
    todo->addWidget(Label2);
    todo->addWidget(Label3, 1);
    todo->addLayout(botones);

    Modificar = [this](long n) {
        Form37::Abrir(s_, a_, d_, parentWidget(), n, hoy_);
    };
    connect(Command1, &QPushButton::clicked, this, [this] {
        if (Modificar)
            Modificar(aviso_.NAviso);
        close();
    });
    connect(Command2, &QPushButton::clicked, this, &Form38::eliminar);
    connect(Command3, &QPushButton::clicked, this, &Form38::close);
    resize(340, 200);
    PrepararVentana(this, a);
}

Form38* Form38::NuevoAviso(Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso, const QDate& hoy,
                           QWidget* padre) {
    auto* f = new Form38(s, a, d, aviso, hoy, padre);
    f->setAttribute(Qt::WA_DeleteOnClose);
    const int n = ventanasAbiertas++ % 8;
    if (padre)
        f->move(padre->geometry().center() - QPoint(170, 100) + QPoint(24 * n, 24 * n));
    f->show();
    return f;
}

void Form38::eliminar() {
    try {
        if (!EliminarAvisoPreguntando(s_, d_, aviso_.NAviso))
            return;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    close();
}

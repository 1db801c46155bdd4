#include "utilities/forms/Form39.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QPointer<Form39> abierta;

// Years offered in the year box around today; moving past them adds the year.
constexpr int AnosAntes = 2, AnosDespues = 10;

} // namespace

Form39::Form39(Sesion& s, Ajustes& a, Dialogo& d, const QDate& hoy, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d), hoy_(hoy) {
    setObjectName(QStringLiteral("Form39"));
    setWindowTitle(QStringLiteral("Quilmar [Calendario de Avisos]"));

    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->addItems(NombresMeses());
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    for (int y = hoy.year() - AnosAntes; y <= hoy.year() + AnosDespues; ++y)
        Combo2->addItem(QString::number(y), y);
    Command1 = new QPushButton(style()->standardIcon(QStyle::SP_ArrowLeft), QString(), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Mes anterior"));
    Command2 = new QPushButton(style()->standardIcon(QStyle::SP_ArrowRight), QString(), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setToolTip(QStringLiteral("Mes siguiente"));
    Command3 = new QPushButton(QStringLiteral("Actualizar"), this);
    Command3->setObjectName(QStringLiteral("Command3"));

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(Command1);
    arriba->addWidget(Combo1);
    arriba->addWidget(Combo2);
    arriba->addWidget(Command2);
    arriba->addStretch();
    arriba->addWidget(Command3);

    auto* mes = new QGridLayout;
    mes->setSpacing(2);
    for (int d = 0; d < 7; ++d) {
        auto* cabecera = new QLabel(NombresDias().at(d), this);
        cabecera->setAlignment(Qt::AlignCenter);
        cabecera->setStyleSheet(d >= 5 ? QStringLiteral("font-weight: bold; color: #a00000;")
                                       : QStringLiteral("font-weight: bold;"));
        mes->addWidget(cabecera, 0, d);
    }
    for (int i = 0; i < CeldasCalendario; ++i) {
        auto* celda = new QToolButton(this);
        celda->setObjectName(QStringLiteral("Dia%1").arg(i));
        celda->setMinimumSize(56, 40);
        celda->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        auto* marca = new QLabel(QStringLiteral("●"), celda);
        marca->setObjectName(QStringLiteral("Marca%1").arg(i));
        marca->setStyleSheet(QStringLiteral("color: #d00000; background: transparent;"));
        marca->move(4, 2);
        marca->hide();
        mes->addWidget(celda, 1 + i / 7, i % 7);
        connect(celda, &QToolButton::pressed, this, [this, i] { ElegirDia(i); });
        Dia << celda;
        Marca << marca;
    }

    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setMaximumHeight(110);

    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addLayout(mes, 1);
    todo->addWidget(List1);

    connect(Command1, &QPushButton::clicked, this, &Form39::MesAnterior);
    connect(Command2, &QPushButton::clicked, this, &Form39::MesSiguiente);
    connect(Command3, &QPushButton::clicked, this, &Form39::Actualizar);
    connect(Combo1, &QComboBox::activated, this, [this] { pintar(); });
    connect(Combo2, &QComboBox::activated, this, [this] { pintar(); });

    resize(520, 440);
    PrepararVentana(this, a_, 39);
    try {
        EliminarAvisosVencidos(s_, a_, hoy_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    MostrarMes(hoy.year(), hoy.month());
    Actualizar();
}

Form39* Form39::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    if (!abierta) {
        abierta = new Form39(s, a, d, QDate::currentDate(), padre);
        abierta->setAttribute(Qt::WA_DeleteOnClose);
    }
    abierta->show();
    abierta->raise();
    abierta->activateWindow();
    return abierta;
}

int Form39::mes() const {
    return Combo1->currentIndex() + 1;
}

int Form39::ano() const {
    return Combo2->currentData().toInt();
}

void Form39::MostrarMes(int ano, int mes) {
    if (Combo2->findData(ano) < 0) {
        // Keep the years in order.
        int i = 0;
        while (i < Combo2->count() && Combo2->itemData(i).toInt() < ano)
            ++i;
        Combo2->insertItem(i, QString::number(ano), ano);
    }
    Combo2->setCurrentIndex(Combo2->findData(ano));
    Combo1->setCurrentIndex(mes - 1);
    pintar();
}

void Form39::MesAnterior() {
    const QDate f = QDate(ano(), mes(), 1).addMonths(-1);
    MostrarMes(f.year(), f.month());
}

void Form39::MesSiguiente() {
    const QDate f = QDate(ano(), mes(), 1).addMonths(1);
    MostrarMes(f.year(), f.month());
}

void Form39::Actualizar() {
    try {
        Conexion c = AbrirAvisos(s_);
        avisos_ = LeerAvisos(c);
    } catch (const ErrorQuilmar& e) {
        avisos_.clear();
        d_.Informar(e.mensaje());
    }
    pintar();
}

void Form39::pintar() {
    celdas_ = LlenarCalendario(avisos_, ano(), mes(), hoy_);
    List1->clear();
    for (int i = 0; i < CeldasCalendario; ++i) {
        const CeldaCalendario& c = celdas_[static_cast<size_t>(i)];
        QToolButton* b = Dia[i];
        b->setText(c.dia.isValid() ? QString::number(c.dia.day()) : QString());
        b->setEnabled(c.dia.isValid());
        b->setToolTip({});
        QString estilo;
        if (c.dia == hoy_)
            estilo =
                QStringLiteral("QToolButton { font-weight: bold; border: 2px solid #1f4e79; }");
        b->setStyleSheet(estilo);
        Marca[i]->setVisible(c.marca);
        if (c.marca) {
            QStringList textos;
            for (const Aviso& a : AvisosDelDia(avisos_, c.dia, hoy_))
                textos << a.Texto;
            b->setToolTip(textos.join(QLatin1Char('\n')));
        }
    }
}

void Form39::ElegirDia(int celda) {
    if (celda < 0 || celda >= CeldasCalendario)
        return;
    const CeldaCalendario& c = celdas_[static_cast<size_t>(celda)];
    List1->clear();
    if (!c.dia.isValid())
        return;
    for (const Aviso& a : AvisosDelDia(avisos_, c.dia, hoy_))
        List1->addItem(FormatoFecha(c.dia, QStringLiteral("short date")) + QStringLiteral("   ") +
                       a.Texto);
}

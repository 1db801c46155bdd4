#include "assets/forms/Form101.h"

#include "assets/Centros.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form101::Form101(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) : QDialog(padre), s_(s), d_(d) {
    setObjectName(QStringLiteral("Form101"));
    setWindowTitle(QStringLiteral("Quilmar [Amortizaciones]"));
    auto* raiz = new QVBoxLayout(this);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaxLength(10);
    Text1->setMaximumWidth(110);
    Text1->setToolTip(QStringLiteral("Pulse + para ver el calendario"));
    // The usual run closes the year.
    Text1->setText(FormatoFecha(s_.FechaFinEj, QStringLiteral("short date")));
    auto* fecha = new QFormLayout;
    fecha->addRow(QStringLiteral("Fecha hasta la que se realizará la amortización"), Text1);
    raiz->addLayout(fecha);

    auto* elementos =
        new QGroupBox(QStringLiteral("Elementos del activo que se amortizarán"), this);
    auto* e = new QVBoxLayout(elementos);
    Option1 = new QRadioButton(QStringLiteral("Todos"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option1->setChecked(true);
    Option2 = new QRadioButton(QStringLiteral("Sólo los localizados en"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEnabled(false);
    e->addWidget(Option1);
    auto* centro = new QHBoxLayout;
    centro->addWidget(Option2);
    centro->addWidget(Combo1, 1);
    e->addLayout(centro);
    raiz->addWidget(elementos);

    auto* agrupacion = new QGroupBox(QStringLiteral("Agrupación de los asientos"), this);
    auto* g = new QVBoxLayout(agrupacion);
    Option3 = new QRadioButton(
        QStringLiteral("Se realizará un asiento por cada elemento del Inventario"), this);
    Option3->setObjectName(QStringLiteral("Option3"));
    Option3->setChecked(true);
    Option4 = new QRadioButton(
        QStringLiteral("Se agrupurán en un asiento cuando tengan la misma Subcuenta de "
                       "amortización"),
        this);
    Option4->setObjectName(QStringLiteral("Option4"));
    g->addWidget(Option3);
    g->addWidget(Option4);
    raiz->addWidget(agrupacion);

    auto* botones = new QHBoxLayout;
    auto* aceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    aceptar->setObjectName(QStringLiteral("Command1"));
    auto* salir = new QPushButton(QStringLiteral("&Salir"), this);
    salir->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {aceptar, salir})
        b->setAutoDefault(false);
    botones->addStretch();
    botones->addWidget(aceptar);
    botones->addWidget(salir);
    raiz->addLayout(botones);

    connect(aceptar, &QPushButton::clicked, this, &Form101::Aceptar);
    connect(salir, &QPushButton::clicked, this, &QDialog::reject);
    connect(Option2, &QRadioButton::toggled, Combo1, &QWidget::setEnabled);
    connect(Text1, &QLineEdit::editingFinished, this, [this] { alSalirFecha(); });
    Text1->installEventFilter(this);

    try {
        for (const Centro& c : ListaCentros(s_))
            Combo1->addItem(c.Localizacion);
    } catch (const ErrorQuilmar& x) {
        d_.Informar(x.mensaje());
    }
    Option2->setEnabled(Combo1->count() > 0);
    PrepararVentana(this, a, 101);
}

PeticionAmortizacion Form101::peticion() const {
    PeticionAmortizacion p;
    p.fecha = Text1->text();
    if (Option2->isChecked())
        p.localizacion = Combo1->currentText();
    p.agrupar = Option4->isChecked();
    return p;
}

void Form101::alSalirFecha() {
    const QDate f = FechaDeTexto(Text1->text());
    if (f.isValid() && (f < s_.FechaIniEj || f > s_.FechaFinEj))
        d_.Informar(MsgFechaFueraDelEjercicio);
}

void Form101::Aceptar() {
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        resultado_ = RealizarAmortizaciones(s_, d_, peticion());
        QApplication::restoreOverrideCursor();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
        return;
    }
    if (!resultado_.hecho)
        return;
    realizada_ = true;
    if (!resultado_.asientos.isEmpty())
        Q_EMIT asientosContabilizados();
    accept();
}

bool Form101::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Text1 && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->text() == QLatin1String("+")) {
        auto* cal = new QCalendarWidget(this);
        cal->setWindowFlags(Qt::Popup);
        cal->setAttribute(Qt::WA_DeleteOnClose);
        cal->setDateRange(s_.FechaIniEj, s_.FechaFinEj);
        const QDate escrita = FechaDeTexto(Text1->text());
        if (escrita.isValid())
            cal->setSelectedDate(escrita);
        connect(cal, &QCalendarWidget::clicked, this, [this, cal](QDate f) {
            Text1->setText(FormatoFecha(f, QStringLiteral("short date")));
            cal->close();
            Text1->setFocus();
        });
        cal->adjustSize();
        cal->move(Text1->mapToGlobal(QPoint(0, Text1->height())));
        cal->show();
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

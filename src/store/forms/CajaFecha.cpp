#include "store/forms/CajaFecha.h"

#include "platform/Dialogo.h"
#include "platform/forms/Iconos.h"
#include "store/Formato.h"
#include "store/Rutinas.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>

CajaFecha::CajaFecha(const QDate& fecha, QWidget* padre) : QLineEdit(padre) {
    setMaxLength(10);
    setToolTip(QStringLiteral("Pulse + para ver el calendario"));
    QAction* boton = addAction(IconoDe(Accion::Calendario), TrailingPosition);
    PonerIcono(boton, Accion::Calendario);
    connect(boton, &QAction::triggered, this, &CajaFecha::abrirCalendario);
    setDate(fecha);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 36);
}

QDate CajaFecha::date() const {
    return FechaDeTexto(text().trimmed());
}

void CajaFecha::setDate(const QDate& fecha) {
    setText(FormatoFecha(fecha, QStringLiteral("short date")));
}

void CajaFecha::setDateRange(const QDate& minimo, const QDate& maximo) {
    minimo_ = minimo;
    maximo_ = maximo;
}

bool CajaFecha::comprobar(Dialogo& dialogo) {
    const QString valida = ValidarFecha(text(), dialogo);
    const QDate fecha = FechaDeTexto(valida);
    if (!fecha.isValid()) {
        // An empty box passes the rules silently, yet it holds no date.
        if (text().trimmed().isEmpty())
            dialogo.Informar(MsgFechaNoValida);
        setFocus();
        selectAll();
        return false;
    }
    setDate(fecha);
    if ((minimo_.isValid() && fecha < minimo_) || (maximo_.isValid() && fecha > maximo_)) {
        dialogo.Informar(QStringLiteral("La fecha debe estar entre el %1 y el %2.")
                             .arg(FormatoFecha(minimo_, QStringLiteral("short date")),
                                  FormatoFecha(maximo_, QStringLiteral("short date"))));
        setFocus();
        selectAll();
        return false;
    }
    return true;
}

void CajaFecha::keyPressEvent(QKeyEvent* evento) {
    if (evento->text() == QLatin1String("+")) {
        abrirCalendario();
        return;
    }
    QLineEdit::keyPressEvent(evento);
}

void CajaFecha::abrirCalendario() {
    if (!calendario_) {
        calendario_ = new QCalendarWidget(this);
        calendario_->setWindowFlags(Qt::Popup);
        calendario_->setGridVisible(true);
        connect(calendario_, &QCalendarWidget::clicked, this, [this](QDate f) {
            setDate(f);
            calendario_->hide();
            setFocus();
            Q_EMIT editingFinished();
        });
    }
    if (minimo_.isValid() && maximo_.isValid())
        calendario_->setDateRange(minimo_, maximo_);
    const QDate escrita = date();
    calendario_->setSelectedDate(escrita.isValid() ? escrita : QDate::currentDate());
    calendario_->adjustSize();
    calendario_->move(mapToGlobal(QPoint(0, height())));
    calendario_->show();
    calendario_->setFocus();
}

bool ComprobarFechas(std::initializer_list<CajaFecha*> cajas, Dialogo& dialogo) {
    for (CajaFecha* c : cajas)
        if (c && c->isEnabled() && !c->comprobar(dialogo))
            return false;
    return true;
}

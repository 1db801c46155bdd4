#include "posting/forms/CajasArea.h"

#include "chart/VistaArea.h"
#include "chart/forms/Form73.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

CajasArea::CajasArea(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, const QString& nombre,
                     bool todas)
    : QWidget(padre), s_(s), a_(a), d_(d), todas_(todas) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    area_ = new QComboBox(this);
    subcuenta_ = new QComboBox(this);
    if (!nombre.isEmpty()) {
        area_->setObjectName(nombre);
        const int n = nombre.right(1).toInt();
        subcuenta_->setObjectName(nombre.chopped(1) + QString::number(n + 1));
    }
    area_->setToolTip(QStringLiteral("Area"));
    area_->setMinimumWidth(50);
    subcuenta_->setMinimumWidth(260);
    subcuenta_->setToolTip(QStringLiteral("Pulse + para elegir o crear una Subcuenta"));
    subcuenta_->installEventFilter(this);
    fila->addWidget(area_);
    fila->addWidget(subcuenta_, 1);
    recargar();
    connect(area_, &QComboBox::activated, this, [this] {
        llenarSubcuentas();
        Q_EMIT cambiada();
    });
    connect(subcuenta_, &QComboBox::activated, this, [this] { Q_EMIT cambiada(); });
}

QString CajasArea::ncuenta() const {
    return subcuenta_->currentData().toString();
}

QString CajasArea::area() const {
    return area_->currentText();
}

void CajasArea::recargar() {
    const QString antes = ncuenta();
    const QString areaAntes = area();
    {
        const QSignalBlocker b(area_);
        area_->clear();
        area_->addItem(QString());
        area_->addItems(VistaArea::De(s_).digitos());
        area_->setCurrentIndex(std::max(0, area_->findText(areaAntes)));
    }
    llenarSubcuentas();
    if (!antes.isEmpty())
        poner(antes);
}

void CajasArea::ponerArea(const QString& digito) {
    const QSignalBlocker b(area_);
    area_->setCurrentIndex(std::max(0, area_->findText(digito)));
    llenarSubcuentas();
}

void CajasArea::poner(const QString& ncuenta) {
    const QString n = ncuenta.trimmed();
    if (n.isEmpty()) {
        const QSignalBlocker b(subcuenta_);
        subcuenta_->setCurrentIndex(todas_ ? 0 : -1);
        return;
    }
    ponerArea(VistaArea::De(s_).digitoDe(n));
    const QSignalBlocker b(subcuenta_);
    subcuenta_->setCurrentIndex(subcuenta_->findData(n));
}

void CajasArea::llenarSubcuentas() {
    const QSignalBlocker b(subcuenta_);
    subcuenta_->clear();
    if (todas_)
        subcuenta_->addItem(QString(), QString());
    const QString digito = area();
    if (!digito.isEmpty()) {
        try {
            Conexion c = AbrirDatos(s_);
            for (const SubcuentaDeLista& l : VistaArea::De(s_).subcuentas(c, s_, digito))
                subcuenta_->addItem(l.Cuenta, l.NCuenta);
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    }
    subcuenta_->setCurrentIndex(todas_ ? 0 : -1);
}

bool CajasArea::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == subcuenta_ && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->text() == QLatin1String("+")) {
        bool ok = false;
        const int digito = area().toInt(&ok);
        const int zona = ok ? (VistaArea::De(s_).porPlan() ? -1 : digito) : -1;
        const QString elegida = Form73::ElegirSubcuenta(s_, a_, d_, this, zona);
        // The chart may have gained subaccounts meanwhile.
        recargar();
        if (!elegida.isEmpty()) {
            poner(elegida);
            Q_EMIT cambiada();
        }
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

#include "assets/forms/Form50.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

Form50::Form50(Sesion& s, Ajustes& a, Dialogo& d, const QString& ruta, QWidget* padre)
    : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("Form50"));
    setWindowTitle(QStringLiteral("Quilmar [Presupuesto]"));
    const Presupuesto p = LeerPresupuesto(ruta);
    Sesion otra = s;
    otra.AnoActual = static_cast<qint16>(p.Ano.toInt());
    if (otra.AnoActual <= 0 || !ExisteEjercicio(otra, otra.AnoActual))
        throw ErrorAlmacen(QStringLiteral("No existe el ejercicio %1 de la empresa.").arg(p.Ano));
    QDate ini;
    {
        Conexion c = AbrirDatos(otra);
        ini = DeISO(c.escalar(QStringLiteral("SELECT FechaIni FROM Empresa")).toString().left(10));
    }

    auto* raiz = new QVBoxLayout(this);
    auto* nombre = new QLabel(NombreDePresupuesto(ruta), this);
    nombre->setObjectName(QStringLiteral("lblNombre"));
    QFont f = nombre->font();
    f.setBold(true);
    nombre->setFont(f);
    raiz->addWidget(nombre);
    raiz->addWidget(new QLabel(
        QStringLiteral("Seleccione el periodo del año respecto del que quiere ver el presupuesto"),
        this));
    completo_ =
        new QRadioButton(QStringLiteral("Año completo") + QStringLiteral(" (%1)").arg(p.Ano), this);
    completo_->setChecked(true);
    raiz->addWidget(completo_);
    auto* fila = new QHBoxLayout;
    entre_ = new QRadioButton(QStringLiteral("Entre"), this);
    desde_ = new QComboBox(this);
    hasta_ = new QComboBox(this);
    // The months of the exercise, in its order.
    for (int k = 0; k < 12; ++k) {
        const QDate m = ini.addMonths(k);
        const QString t = NombresMeses().value(m.month() - 1) + QStringLiteral(" %1").arg(m.year());
        desde_->addItem(t, m.month());
        hasta_->addItem(t, m.month());
    }
    hasta_->setCurrentIndex(11);
    fila->addWidget(entre_);
    fila->addWidget(desde_);
    fila->addWidget(new QLabel(QStringLiteral("y"), this));
    fila->addWidget(hasta_);
    raiz->addLayout(fila);
    auto elegirEntre = [this] {
        entre_->setChecked(true);
    };
    connect(desde_, &QComboBox::activated, this, elegirEntre);
    connect(hasta_, &QComboBox::activated, this, elegirEntre);
    connect(hasta_, &QComboBox::activated, this, [this] { comprobar(); });
    connect(desde_, &QComboBox::activated, this, [this] { comprobar(); });

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    auto* aceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    auto* cancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    aceptar->setDefault(true);
    botones->addWidget(aceptar);
    botones->addWidget(cancelar);
    connect(aceptar, &QPushButton::clicked, this, &Form50::Aceptar);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    raiz->addLayout(botones);
    PrepararVentana(this, a, 50);
}

bool Form50::comprobar() {
    if (entre_->isChecked() && hasta_->currentIndex() < desde_->currentIndex()) {
        d_.Informar(QStringLiteral("La fecha final debe ser mayor que la inicial"));
        return false;
    }
    return true;
}

PeriodoPresupuesto Form50::periodo() const {
    PeriodoPresupuesto p;
    if (entre_->isChecked()) {
        p.anual = false;
        p.mesDesde = desde_->currentData().toInt();
        p.mesHasta = hasta_->currentData().toInt();
    }
    return p;
}

void Form50::Aceptar() {
    if (comprobar())
        accept();
}

#include "assets/forms/Form47.h"

#include "chart/Sectores.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Ventana.h"
#include "reports/TablaImpresa.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "utilities/forms/Form32.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

const QString Std = QStringLiteral("standard");

QString importeTexto(double v) {
    return v == 0 ? QString() : Formato(v, Std);
}

} // namespace

PanelPresupuesto::PanelPresupuesto(Sesion& s, Ajustes& a, Dialogo& d, char tipo, QWidget* padre)
    : QWidget(padre), s_(s), d_(d), tipo_(tipo) {
    const bool ingresos = tipo == 'I';
    setObjectName(ingresos ? QStringLiteral("Entradas") : QStringLiteral("Salidas"));
    auto* caja =
        new QGroupBox(ingresos ? QStringLiteral("  Entradas") : QStringLiteral("  Salidas"), this);
    auto* exterior = new QVBoxLayout(this);
    exterior->setContentsMargins(0, 0, 0, 0);
    exterior->addWidget(caja);
    auto* raiz = new QVBoxLayout(caja);

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Subcuenta"), caja));
    subcuenta_ = new QComboBox(caja);
    subcuenta_->setObjectName(QStringLiteral("Subcuenta"));
    subcuenta_->addItem(QString(), QString());
    {
        // Group 7 lines are income, group 6 lines expense.
        Conexion c = AbrirDatos(s_);
        Lector l(c,
                 QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE NCuenta LIKE ? "
                                "ORDER BY Cuenta"),
                 {ingresos ? QStringLiteral("_7%") : QStringLiteral("_6%")});
        while (l.siguiente())
            subcuenta_->addItem(l.texto(1).trimmed(), l.texto(0).trimmed());
    }
    arriba->addWidget(subcuenta_, 1);
    arriba->addWidget(new QLabel(QStringLiteral("Importe anual"), caja));
    importe_ = new QLineEdit(caja);
    importe_->setObjectName(QStringLiteral("ImporteAnual"));
    importe_->setAlignment(Qt::AlignRight);
    InstalarCalculadora(importe_, ingresos ? QStringLiteral("F470") : QStringLiteral("F471"), s, a,
                        d);
    arriba->addWidget(importe_);
    raiz->addLayout(arriba);

    raiz->addWidget(new QLabel(QStringLiteral("Repartir Importe anual entre los meses"), caja));
    auto* tira = new QGridLayout;
    static const char* cortos[] = {"Ene", "Feb", "Mar", "Abr", "May", "Jun",
                                   "Jul", "Ago", "Sep", "Oct", "Nov", "Dic"};
    for (int m = 1; m <= 12; ++m) {
        auto* marca = new QCheckBox(QString::fromLatin1(cortos[m - 1]), caja);
        marca->setObjectName(QStringLiteral("Marca%1").arg(m));
        auto* mes = new QLineEdit(caja);
        mes->setObjectName(QStringLiteral("Mes%1").arg(m));
        mes->setAlignment(Qt::AlignRight);
        mes->setMinimumWidth(30);
        mes->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(mes, &QLineEdit::editingFinished, this, [this, m] { alSalirMes(m); });
        connect(mes, &QWidget::customContextMenuRequested, this, [this, m, mes](const QPoint& p) {
            QMenu menu(this);
            QAction* completar = menu.addAction(QStringLiteral("Completar con este mes"));
            completar->setObjectName(QStringLiteral("mnuCompletar"));
            if (menu.exec(mes->mapToGlobal(p)) == completar)
                Completar(m);
        });
        tira->addWidget(marca, 0, m - 1);
        tira->addWidget(mes, 1, m - 1);
        marcas_ << marca;
        meses_ << mes;
    }
    raiz->addLayout(tira);

    auto* botones = new QHBoxLayout;
    auto* marcar = new QPushButton(QStringLiteral("Marcar"), caja);
    auto* borrar = new QPushButton(QStringLiteral("Borrar"), caja);
    auto* igual = new QPushButton(QStringLiteral("Repartir por igual"), caja);
    anadir_ = new QPushButton(QStringLiteral("&Añadir"), caja);
    for (QPushButton* b : {marcar, borrar, igual, anadir_}) {
        b->setAutoDefault(false);
        botones->addWidget(b);
    }
    connect(marcar, &QPushButton::clicked, this, [this] { Marcar(); });
    connect(borrar, &QPushButton::clicked, this, [this] { Borrar(); });
    connect(igual, &QPushButton::clicked, this, [this] { RepartirIgual(); });
    connect(anadir_, &QPushButton::clicked, this, [this] { Anadir(); });
    raiz->addLayout(botones);

    lista_ = new QTableWidget(0, 16, caja);
    lista_->setObjectName(QStringLiteral("Lista"));
    QStringList titulos{QStringLiteral("Cuenta"), QStringLiteral("Importe anual"),
                        QStringLiteral("NCuenta"), QStringLiteral("Meses")};
    for (const char* c : cortos)
        titulos << QString::fromLatin1(c);
    lista_->setHorizontalHeaderLabels(titulos);
    lista_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lista_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lista_->setSelectionMode(QAbstractItemView::SingleSelection);
    lista_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    lista_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(lista_, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int fila = lista_->rowAt(p.y());
        if (fila < 0)
            return;
        QMenu menu(this);
        QAction* ver = menu.addAction(QStringLiteral("Ver reparto por meses"));
        ver->setObjectName(QStringLiteral("mnuReparto"));
        QAction* eliminar = menu.addAction(QStringLiteral("Eliminar partida"));
        eliminar->setObjectName(QStringLiteral("mnuEliminarPar"));
        QAction* elegida = menu.exec(lista_->viewport()->mapToGlobal(p));
        if (elegida == ver)
            VerReparto(fila);
        else if (elegida == eliminar)
            EliminarPartida(fila);
    });
    connect(lista_, &QTableWidget::cellDoubleClicked, this, [this](int f, int) { VerReparto(f); });
    raiz->addWidget(lista_, 1);

    auto* pie = new QHBoxLayout;
    pie->addStretch();
    pie->addWidget(new QLabel(
        ingresos ? QStringLiteral("Total Ingresos  ") : QStringLiteral("Total Gastos  "), caja));
    total_ = new QLabel(Formato(0, Std), caja);
    total_->setObjectName(QStringLiteral("Total"));
    pie->addWidget(total_);
    raiz->addLayout(pie);
}

QString PanelPresupuesto::total() const {
    return total_->text();
}

MesesMarcados PanelPresupuesto::marcados() const {
    MesesMarcados m{};
    for (int k = 0; k < 12; ++k)
        m[k] = marcas_[k]->isChecked();
    return m;
}

// The line as the panel holds it; ok false (with the message told) when it cannot be one.
PartidaPresupuesto PanelPresupuesto::actual(bool* ok) const {
    *ok = false;
    PartidaPresupuesto p;
    p.Tipo = tipo_;
    p.NCuenta = subcuenta_->currentData().toString();
    p.Cuenta = subcuenta_->currentText();
    if (p.NCuenta.isEmpty()) {
        d_.Informar(QStringLiteral("Tiene que seleccionar el nombre de la Cuenta."));
        return p;
    }
    const QString texto = importe_->text().trimmed();
    const std::optional<double> v = texto.isEmpty() ? std::nullopt : LeerImporte(texto);
    if (texto.isEmpty() || (v && *v <= 0)) {
        d_.Informar(QStringLiteral("Tiene que introducir el importe presupuestado para esta "
                                   "Cuenta."));
        importe_->setFocus();
        return p;
    }
    if (!v) {
        d_.Informar(MsgImporteNoValido(texto));
        importe_->setFocus();
        return p;
    }
    p.Anual = *v;
    for (int m = 1; m <= 12; ++m) {
        const QString t = meses_[m - 1]->text().trimmed();
        if (t.isEmpty())
            continue;
        const std::optional<double> x = LeerImporte(t);
        if (!x) {
            d_.Informar(MsgImporteNoValido(t));
            meses_[m - 1]->setFocus();
            return p;
        }
        p.Meses[m] = *x;
    }
    *ok = true;
    return p;
}

void PanelPresupuesto::Anadir() {
    bool ok = false;
    PartidaPresupuesto p = actual(&ok);
    if (!ok)
        return;
    if (cargada_ < 0)
        for (int f = 0; f < lista_->rowCount(); ++f)
            if (lista_->item(f, 2)->text() == p.NCuenta) {
                d_.Informar(QStringLiteral("Ya está introducida en el presupuesto la cuenta %1.")
                                .arg(p.Cuenta));
                return;
            }
    const QString error = ComprobarReparto(p, marcados());
    if (!error.isEmpty()) {
        d_.Informar(error);
        return;
    }
    int fila = cargada_;
    if (fila < 0) {
        fila = lista_->rowCount();
        lista_->insertRow(fila);
    }
    auto poner = [&](int c, const QString& t, bool derecha) {
        auto* it = new QTableWidgetItem(t);
        if (derecha)
            it->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        lista_->setItem(fila, c, it);
    };
    poner(0, p.Cuenta, false);
    poner(1, Formato(p.Anual, Std), true);
    poner(2, p.NCuenta, false);
    poner(3, QString::number(int(p.Meses[0])), true);
    for (int m = 1; m <= 12; ++m)
        poner(3 + m, importeTexto(p.Meses[m]), true);
    cargada_ = -1;
    anadir_->setText(QStringLiteral("&Añadir"));
    subcuenta_->setCurrentIndex(0);
    importe_->clear();
    Borrar();
    sumar();
}

void PanelPresupuesto::sumar() {
    double suma = 0;
    for (int f = 0; f < lista_->rowCount(); ++f)
        suma += ValorImporte(lista_->item(f, 1)->text());
    total_->setText(Formato(Centimos(suma), Std));
}

void PanelPresupuesto::RepartirIgual() {
    const std::optional<double> v = LeerImporte(importe_->text());
    if (importe_->text().trimmed().isEmpty() || !v || *v <= 0) {
        d_.Informar(QStringLiteral("Tiene que introducir el importe presupuestado para esta "
                                   "Cuenta."));
        importe_->setFocus();
        return;
    }
    PartidaPresupuesto p;
    p.Anual = *v;
    RepartirPorIgual(p, marcados());
    for (int m = 1; m <= 12; ++m)
        meses_[m - 1]->setText(importeTexto(p.Meses[m]));
    Anadir();
}

void PanelPresupuesto::Marcar() {
    const bool nuevo = !marcas_[0]->isChecked();
    for (QCheckBox* c : marcas_)
        c->setChecked(nuevo);
}

void PanelPresupuesto::Borrar() {
    for (int k = 0; k < 12; ++k) {
        marcas_[k]->setChecked(false);
        meses_[k]->clear();
    }
}

void PanelPresupuesto::alSalirMes(int m) {
    const double v = ValorImporte(meses_[m - 1]->text());
    if (v > 0)
        marcas_[m - 1]->setChecked(true);
    const std::optional<double> anual = LeerImporte(importe_->text());
    if (!anual || *anual <= 0)
        return;
    double suma = 0;
    for (QLineEdit* e : meses_)
        suma += ValorImporte(e->text());
    if (Centimos(suma) > Centimos(*anual))
        d_.Informar(QStringLiteral("El reparto excede al importe anual."));
    else if (m == 12 && Centimos(suma) == Centimos(*anual))
        d_.Informar(QStringLiteral("Reparto cuadrado con el importe anual."));
}

void PanelPresupuesto::Completar(int mes) {
    PartidaPresupuesto p;
    p.Anual = LeerImporte(importe_->text()).value_or(0);
    if (importe_->text().trimmed().isEmpty())
        p.Anual = 0;
    for (int m = 1; m <= 12; ++m)
        p.Meses[m] = ValorImporte(meses_[m - 1]->text());
    const QString msg = CompletarConMes(p, mes);
    if (msg == QLatin1String("Distribución mensual completada.")) {
        meses_[mes - 1]->setText(importeTexto(p.Meses[mes]));
        marcas_[mes - 1]->setChecked(p.Meses[mes] > 0);
    }
    d_.Informar(msg);
}

void PanelPresupuesto::VerReparto(int fila) {
    if (fila < 0 || fila >= lista_->rowCount())
        return;
    const int i = subcuenta_->findData(lista_->item(fila, 2)->text());
    subcuenta_->setCurrentIndex(qMax(0, i));
    importe_->setText(lista_->item(fila, 1)->text());
    for (int m = 1; m <= 12; ++m) {
        const QString t = lista_->item(fila, 3 + m)->text();
        meses_[m - 1]->setText(t);
        marcas_[m - 1]->setChecked(ValorImporte(t) > 0);
    }
    cargada_ = fila;
    anadir_->setText(QStringLiteral("&Modificar"));
}

void PanelPresupuesto::EliminarPartida(int fila) {
    if (fila < 0 || fila >= lista_->rowCount())
        return;
    lista_->removeRow(fila);
    if (cargada_ == fila) {
        cargada_ = -1;
        anadir_->setText(QStringLiteral("&Añadir"));
    } else if (cargada_ > fila) {
        --cargada_;
    }
    sumar();
}

void PanelPresupuesto::ponerPartida(const PartidaPresupuesto& p) {
    const int fila = lista_->rowCount();
    lista_->insertRow(fila);
    auto poner = [&](int c, const QString& t) {
        auto* it = new QTableWidgetItem(t);
        if (c == 1 || c >= 3)
            it->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        lista_->setItem(fila, c, it);
    };
    poner(0, p.Cuenta.isEmpty() ? p.NCuenta : p.Cuenta);
    poner(1, Formato(p.Anual, Std));
    poner(2, p.NCuenta);
    poner(3, QString::number(int(p.Meses[0])));
    for (int m = 1; m <= 12; ++m)
        poner(3 + m, importeTexto(p.Meses[m]));
    sumar();
}

QList<PartidaPresupuesto> PanelPresupuesto::partidas() const {
    QList<PartidaPresupuesto> r;
    for (int f = 0; f < lista_->rowCount(); ++f) {
        PartidaPresupuesto p;
        p.Tipo = tipo_;
        p.Cuenta = lista_->item(f, 0)->text();
        p.Anual = ValorImporte(lista_->item(f, 1)->text());
        p.NCuenta = lista_->item(f, 2)->text();
        p.Meses[0] = lista_->item(f, 3)->text().toInt();
        for (int m = 1; m <= 12; ++m)
            p.Meses[m] = ValorImporte(lista_->item(f, 3 + m)->text());
        r << p;
    }
    return r;
}

Form47::Form47(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, const QString& ruta)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form47"));
    setWindowTitle(ruta.isEmpty() ? QStringLiteral("Quilmar [Crear Presupuesto]")
                                  : QStringLiteral("Quilmar [Modificar Presupuesto]"));
    auto* raiz = new QVBoxLayout(this);
    auto* paneles = new QHBoxLayout;
    entradas_ = new PanelPresupuesto(s, a, d, 'I', this);
    salidas_ = new PanelPresupuesto(s, a, d, 'G', this);
    paneles->addWidget(entradas_);
    paneles->addWidget(salidas_);
    raiz->addLayout(paneles, 1);

    auto* abajo = new QHBoxLayout;
    abajo->addWidget(new QLabel(QStringLiteral("Año del Presupuesto"), this));
    ano_ = new QLineEdit(QString::number(s.AnoActual), this);
    ano_->setObjectName(QStringLiteral("Ano"));
    ano_->setMaxLength(4);
    ano_->setMaximumWidth(60);
    abajo->addWidget(ano_);
    abajo->addWidget(new QLabel(QStringLiteral("Nombre del Presupuesto"), this));
    nombre_ = new QLineEdit(this);
    nombre_->setObjectName(QStringLiteral("Nombre"));
    nombre_->setMaxLength(60);
    abajo->addWidget(nombre_, 1);
    abajo->addWidget(new QLabel(QStringLiteral(" Sector:"), this));
    sector_ = new QComboBox(this);
    sector_->setObjectName(QStringLiteral("Sector"));
    sector_->addItem(QString());
    for (const FilaSector& f : ListaSectores(s))
        if (f.Sector.size() <= 12)
            sector_->addItem(f.Sector);
    abajo->addWidget(sector_);
    auto* guardar = new QPushButton(QStringLiteral("&Guardar"), this);
    auto* imprimir = new QPushButton(QStringLiteral("I&mprimir"), this);
    auto* cancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    auto* ayuda = new QPushButton(QStringLiteral("Ay&uda"), this);
    for (QPushButton* b : {guardar, imprimir, cancelar, ayuda}) {
        b->setAutoDefault(false);
        abajo->addWidget(b);
    }
    connect(guardar, &QPushButton::clicked, this, &Form47::Guardar);
    connect(imprimir, &QPushButton::clicked, this, &Form47::Imprimir);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(ayuda, &QPushButton::clicked, this, [this] {
        d_.Informar(QStringLiteral(
            "Elija la subcuenta, teclee el importe anual y repártalo entre los meses: marque los "
            "meses y teclee el importe de cada uno, o pulse Repartir por igual. Con el botón "
            "derecho sobre un mes, Completar con este mes le da lo que falta; sobre la lista, "
            "puede ver el reparto de una partida o eliminarla. Pulse + en el importe anual para "
            "abrir la calculadora."));
    });
    raiz->addLayout(abajo);

    if (!ruta.isEmpty()) {
        const Presupuesto p = LeerPresupuesto(ruta, &s_);
        ano_->setText(p.Ano);
        nombre_->setText(p.Nombre);
        const int i = sector_->findText(p.Sector);
        if (i < 0 && !p.Sector.isEmpty())
            sector_->addItem(p.Sector);
        sector_->setCurrentText(p.Sector);
        for (const PartidaPresupuesto& q : p.partidas)
            (q.Tipo == 'I' ? entradas_ : salidas_)->ponerPartida(q);
    }
    PrepararVentana(this, a_);
    resize(qMax(width(), 1100), qMax(height(), 600));
}

Presupuesto Form47::presupuesto() const {
    Presupuesto p;
    p.Nombre = nombre_->text();
    p.Ano = ano_->text();
    p.Sector = sector_->currentText();
    p.partidas = entradas_->partidas() + salidas_->partidas();
    return p;
}

void Form47::Guardar() {
    try {
        if (GuardarPresupuesto(s_, d_, presupuesto()))
            accept();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form47::Imprimir() {
    const Presupuesto p = presupuesto();
    const Rejilla r = RejillaPresupuesto(p);
    const DisenoTabla diseno = DisenoPresupuesto(p);
    ImprimirLibro(this, [r, diseno](Impresora& imp, int) { DibujarTabla(imp, r, diseno); },
                  {QStringLiteral("Presupuesto"),
                   a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
}

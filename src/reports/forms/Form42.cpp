#include "reports/forms/Form42.h"

#include "chart/Sectores.h"
#include "chart/VistaArea.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/VistaRejilla.h"
#include "reports/ImpresionIngresosGastos.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int MaximoAnos = 10;
}

Form42::Form42(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : VentanaLibro(s, a, d, 42, QStringLiteral("Quilmar [Comparación entre años]"), padre) {
    setObjectName(QStringLiteral("Form42"));
    rejilla() = RejillaComparacion();
    QAction* imprimir = nuevaAccion(QStringLiteral("mnuImprimir"), QStringLiteral("Imprimir"),
                                    Accion::Imprimir, [this] { Imprimir(); });
    ponerBarra({{1, accionCerrar()}, {3, accionCopiar()}, {4, imprimir}, {5, accionExportar()}});
    // Until "&Ver" has filled the list there is nothing to print, copy or export.
    for (QAction* a : {imprimir, accionCopiar(), accionExportar()})
        a->setEnabled(false);

    auto* panel = new QWidget(this);
    auto* g = new QVBoxLayout(panel);
    Combo1 = new QComboBox(panel);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    for (int n = 2; n <= MaximoAnos; ++n)
        Combo1->addItem(QString::number(n));
    Combo1->setCurrentIndex(-1);
    Combo2 = new QComboBox(panel);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    try {
        QList<int> anos = EjerciciosEmpresa(s);
        std::sort(anos.begin(), anos.end());
        for (int ano : anos)
            Combo2->addItem(QString::number(ano));
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    Combo2->setCurrentIndex(-1);
    Option1 = new QRadioButton(QStringLiteral("Por Areas"), panel);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Por Cuentas"), panel);
    Option2->setObjectName(QStringLiteral("Option2"));
    auto* grupo = new QButtonGroup(panel);
    grupo->addButton(Option1);
    grupo->addButton(Option2);
    Option1->setChecked(true);
    Combo3 = new QComboBox(panel);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->addItems(VistaArea::De(s).digitos());
    Combo3->setCurrentIndex(-1);
    Combo4 = new QComboBox(panel);
    Combo4->setObjectName(QStringLiteral("Combo4"));
    Combo4->setMinimumContentsLength(26);
    Combo5 = new QComboBox(panel);
    Combo5->setObjectName(QStringLiteral("Combo5"));
    Combo5->addItem(QString());
    try {
        for (const FilaSector& f : ListaSectores(s))
            Combo5->addItem(f.Sector.trimmed());
    } catch (const ErrorQuilmar&) {
        // Without sectors the comparison takes every line.
    }
    Combo5->setMinimumContentsLength(12);
    Command1 = new QPushButton(QStringLiteral("&Ver"), panel);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Seleccione número de años a comparar"), panel));
    arriba->addWidget(Combo1);
    arriba->addSpacing(12);
    arriba->addWidget(new QLabel(QStringLiteral("años desde"), panel));
    arriba->addWidget(Combo2);
    arriba->addSpacing(24);
    arriba->addWidget(new QLabel(QStringLiteral("Sector  "), panel));
    arriba->addWidget(Combo5);
    arriba->addStretch(1);
    arriba->addWidget(Command1);
    auto* abajo = new QHBoxLayout;
    abajo->addWidget(Option1);
    abajo->addWidget(Option2);
    abajo->addSpacing(24);
    abajo->addWidget(new QLabel(QStringLiteral("Area"), panel));
    abajo->addWidget(Combo3);
    abajo->addSpacing(12);
    abajo->addWidget(new QLabel(QStringLiteral("Subcuenta"), panel));
    abajo->addWidget(Combo4, 1);
    g->addLayout(arriba);
    g->addLayout(abajo);
    addToolBarBreak();
    auto* barra = addToolBar(QStringLiteral("Selección"));
    barra->setObjectName(QStringLiteral("Toolbar2"));
    barra->setMovable(false);
    barra->addWidget(panel);

    connect(Combo3, &QComboBox::activated, this, [this] { llenarSubcuentas(); });
    connect(Option1, &QRadioButton::toggled, this, [this] { actualizarCajas(); });
    connect(Command1, &QPushButton::clicked, this, &Form42::Ver);
    actualizarCajas();
    // The columns stand in sight before the first "&Ver".
    vista()->mostrar(&rejilla());
    resize(1180, 480);
}

Form42* Form42::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    auto* f = new Form42(s, a, d, padre);
    f->show();
    return f;
}

void Form42::actualizarCajas() {
    Combo4->setEnabled(Option2->isChecked());
    if (Option2->isChecked() && Combo4->count() == 0 && Combo3->currentIndex() >= 0)
        llenarSubcuentas();
}

void Form42::llenarSubcuentas() {
    Combo4->clear();
    if (!Option2->isChecked() || Combo3->currentIndex() < 0)
        return;
    try {
        Conexion c = AbrirDatos(s_);
        const QList<SubcuentaDeLista> lista = VistaArea::De(s_).subcuentas(
            c, s_, Combo3->currentText(), false, OrdenSubcuentas::Nombre);
        if (lista.isEmpty()) {
            d_.Informar(MsgCompSinCuentas);
            return;
        }
        for (const SubcuentaDeLista& l : lista)
            Combo4->addItem(l.Cuenta, l.NCuenta);
        Combo4->setCurrentIndex(-1);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

CajasComparacion Form42::cajas() const {
    CajasComparacion c;
    c.numero = Combo1->currentIndex() < 0 ? 0 : Combo1->currentText().toInt();
    c.primerAno = Combo2->currentIndex() < 0 ? 0 : Combo2->currentText().toInt();
    c.porAreas = Option1->isChecked();
    c.area = Combo3->currentIndex() < 0 ? QString() : Combo3->currentText();
    c.subcuenta = Combo4->currentIndex() < 0 ? QString() : Combo4->currentText();
    c.sector = Combo5->currentText();
    return c;
}

void Form42::Ver() {
    try {
        const auto sel = ValidarComparacion(cajas(), s_, d_);
        if (!sel)
            return;
        sel_ = sel;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    Llenar([this](const Progreso&) { LlenarComparacion(s_, *sel_, rejilla()); });
    for (QAction* a : {accion(QStringLiteral("mnuImprimir")), accionCopiar(), accionExportar()})
        a->setEnabled(true);
}

void Form42::Refrescar() {
    if (isVisible() && sel_)
        Llenar([this](const Progreso&) { LlenarComparacion(s_, *sel_, rejilla()); });
}

void Form42::Imprimir() {
    if (!sel_)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        const OpcionesLibro op = OpcionesListadoIyG(a_);
        OpcionesImpresion oi;
        oi.titulo = TituloComparacion;
        oi.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        oi.orientacion = OrientacionMeses;
        const SeleccionComparacion sel = *sel_;
        ImprimirLibro(
            this,
            [this, empresa, op, sel](Impresora& imp, int) {
                DibujarComparacion(imp, rejilla(), sel, empresa, op);
            },
            oi);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

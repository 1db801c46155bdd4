#include "posting/forms/Form7.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Iconos.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/GestionVencimientos.h"
#include "posting/ImprimirAsiento.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/TableroAreas.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

QPointer<Form7> abierto;

QList<Form7::GanchoCrear>& ganchos() {
    static QList<Form7::GanchoCrear> g;
    return g;
}

// Amounts on this screen may be negative: a leading minus passes, besides the digits and the
// decimal mark of the locale ("." and "," are turned into it).
bool teclaEnImporte(QLineEdit* campo, const QKeyEvent* k, bool puntoDecimal) {
    if (EsTeclaDeEdicion(k))
        return false;
    if (k->text() == QLatin1String("-"))
        return campo->cursorPosition() != 0 || campo->text().startsWith(QLatin1Char('-'));
    switch (FiltrarTeclaImporte(k->text(), puntoDecimal)) {
    case TeclaImporte::Pasa:
        return false;
    case TeclaImporte::Cambia:
        campo->insert(puntoDecimal ? QStringLiteral(".") : QStringLiteral(","));
        return true;
    case TeclaImporte::Rechaza:
        return true;
    }
    return true;
}

// The reconciliation picture of a marked line, and the due-date button of a line.
class DelegadoF7 : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* p, const QStyleOptionViewItem& o, const QModelIndex& i) const override {
        QStyledItemDelegate::paint(p, o, i);
        if (i.column() == ColF7::Venc) {
            if (!i.siblingAtColumn(ColF7::NCuenta).data().toString().trimmed().isEmpty() &&
                Form7::VencimientosDeLinea())
                p->drawText(o.rect, Qt::AlignCenter, QStringLiteral("..."));
            return;
        }
        if (i.column() != ColF7::Imagen)
            return;
        const int n = i.data(RejillaAsiento::RolImagen).toInt();
        if (n <= 0)
            return;
        const QPixmap img = ImagenDeCasacion(n);
        p->drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, img.size(), o.rect),
                      img);
    }
};

QLabel* etiquetaValor(QWidget* padre) {
    auto* l = new QLabel(padre);
    l->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMinimumWidth(110);
    return l;
}

void ponerTexto(QLineEdit* campo, const QString& texto) {
    if (campo->text() != texto)
        campo->setText(texto);
}

// Puts the items of a combo and its current item.
void ponerLista(QComboBox* combo, const QStringList& items, int actual) {
    QStringList ahora;
    for (int i = 0; i < combo->count(); ++i)
        ahora << combo->itemText(i);
    if (ahora != items) {
        combo->clear();
        combo->addItems(items);
    }
    combo->setCurrentIndex(actual);
}

} // namespace

Form7::Form7(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), k_(s, d), pantalla_(s, a, d, this) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("Form7"));
    setWindowTitle(QStringLiteral("Quilmar [Gestión de Asientos]"));
    abierto = this;
    k_.Pantalla = &pantalla_;
    k_.LibrosCambiados = [this] {
        Q_EMIT librosCambiados();
    };

    Toolbar1 = new QToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    BotonImprimir = Toolbar1->addAction(IconoDe(Accion::Imprimir), QStringLiteral("Imprimir"));
    PonerIcono(BotonImprimir, Accion::Imprimir);
    BotonQuitar =
        Toolbar1->addAction(IconoDe(Accion::QuitarApunte), QStringLiteral("Quitar apunte"));
    PonerIcono(BotonQuitar, Accion::QuitarApunte);
    BotonSeleccionar =
        Toolbar1->addAction(IconoDe(Accion::SeleccionarApunte), QStringLiteral("Seleccionar"));
    PonerIcono(BotonSeleccionar, Accion::SeleccionarApunte);
    BotonEliminar =
        Toolbar1->addAction(IconoDe(Accion::EliminarAsiento), QStringLiteral("Eliminar asiento"));
    PonerIcono(BotonEliminar, Accion::EliminarAsiento);
    Toolbar1->addSeparator();
    BotonLetraMas = Toolbar1->addAction(QStringLiteral("A+"));
    BotonLetraMas->setToolTip(QStringLiteral("Aumentar el tamaño de la letra"));
    BotonLetraMenos = Toolbar1->addAction(QStringLiteral("A-"));
    BotonLetraMenos->setToolTip(QStringLiteral("Reducir el tamaño de la letra"));
    BotonPeriodico = Toolbar1->addAction(IconoDe(Accion::Periodico), QStringLiteral("Periódico"));
    PonerIcono(BotonPeriodico, Accion::Periodico);
    BotonPeriodico->setEnabled(false);

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaximumWidth(90);
    Text1->setAlignment(Qt::AlignRight);
    Text1->setToolTip(QStringLiteral("Pulse + para un asiento nuevo, o escriba el número de un "
                                     "asiento y pulse INTRO"));
    Label2 = new QLabel(this);
    Label2->setObjectName(QStringLiteral("Label2"));
    QFont negrita = Label2->font();
    negrita.setBold(true);
    negrita.setPointSizeF(negrita.pointSizeF() + 2);
    Label2->setFont(negrita);
    Label2->setMinimumWidth(80);
    Date1 = new QLineEdit(this);
    Date1->setObjectName(QStringLiteral("Date1"));
    Date1->setMaximumWidth(110);
    Label8 = new QLabel(this);
    Label8->setObjectName(QStringLiteral("Label8"));
    Label8->setVisible(false);
    Combo4 = new QComboBox(this);
    Combo4->setObjectName(QStringLiteral("Combo4"));
    Combo4->setMinimumWidth(140);
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setMaxLength(3);
    Text2->setMaximumWidth(50);
    Text2->setEnabled(false);

    Combo5 = new QComboBox(this);
    Combo5->setObjectName(QStringLiteral("Combo5"));
    Combo5->setMinimumWidth(50);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(280);
    Combo2 = new QComboBox(this);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setVisible(false);
    LabelSaldo = etiquetaValor(this);
    LabelSaldo->setObjectName(QStringLiteral("LabelSaldo"));
    Combo3 = new QComboBox(this);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->setEditable(true);
    Combo3->setInsertPolicy(QComboBox::NoInsert);
    LimitarCampo(Combo3->lineEdit(), Campo::Concepto);
    Combo3->setMinimumWidth(260);
    TDBN2 = new QLineEdit(this);
    TDBN2->setObjectName(QStringLiteral("TDBN2"));
    TDBN2->setAlignment(Qt::AlignRight);
    TDBN2->setMaximumWidth(120);
    TDBN3 = new QLineEdit(this);
    TDBN3->setObjectName(QStringLiteral("TDBN3"));
    TDBN3->setAlignment(Qt::AlignRight);
    TDBN3->setMaximumWidth(120);
    Text3 = new QLineEdit(this);
    Text3->setObjectName(QStringLiteral("Text3"));
    LimitarCampo(Text3, Campo::Documento);
    Text3->setMaximumWidth(140);
    Command1 = new QPushButton(CaptionAceptar, this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setMinimumWidth(100);
    TDBN1 = new QLineEdit(this);
    TDBN1->setObjectName(QStringLiteral("TDBN1"));
    TDBN1->setReadOnly(true);
    TDBN1->setAlignment(Qt::AlignRight);
    TDBN1->setMaximumWidth(120);

    MSFlexGrid1 = new QTableView(this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setModel(&k_.Rejilla);
    for (int c : {ColF7::NCuenta, ColF7::IdIVA, ColF7::CasacionN, ColF7::CasacionH, ColF7::Punteo})
        MSFlexGrid1->setColumnHidden(c, true);
    for (int c = ColF7::Contra; c <= ColF7::L347; ++c)
        MSFlexGrid1->setColumnHidden(c, true);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->verticalHeader()->setVisible(false);
    MSFlexGrid1->setItemDelegate(new DelegadoF7(this));
    const int anchos[ColF7::Total] = {220, 240, 100, 100, 0, 0, 100, 0, 0,
                                      110, 40,  0,   0,   0, 0, 0,   0, 40};
    for (int i = 0; i < ColF7::Total; ++i)
        if (anchos[i] > 0)
            MSFlexGrid1->setColumnWidth(i, anchos[i]);
    MSFlexGrid1->horizontalHeader()->setStretchLastSection(false);

    auto* asiento = new QHBoxLayout;
    asiento->addWidget(new QLabel(QStringLiteral("Asiento nº"), this));
    asiento->addWidget(Text1);
    asiento->addWidget(Label2);
    asiento->addSpacing(16);
    asiento->addWidget(new QLabel(QStringLiteral("Fecha"), this));
    asiento->addWidget(Date1);
    asiento->addSpacing(16);
    asiento->addWidget(new QLabel(QStringLiteral("Sector"), this));
    asiento->addWidget(Combo4);
    asiento->addStretch();
    asiento->addWidget(new QLabel(QStringLiteral("Pred."), this));
    asiento->addWidget(Text2);

    auto* apunte = new QGridLayout;
    apunte->addWidget(new QLabel(QStringLiteral("Area"), this), 0, 0);
    apunte->addWidget(new QLabel(QStringLiteral("Subcuenta"), this), 0, 1);
    apunte->addWidget(new QLabel(QStringLiteral("Saldo "), this), 0, 2);
    apunte->addWidget(Combo5, 1, 0);
    apunte->addWidget(Combo1, 1, 1);
    apunte->addWidget(LabelSaldo, 1, 2);
    apunte->addWidget(new QLabel(QStringLiteral("Concepto"), this), 2, 1);
    apunte->addWidget(new QLabel(QStringLiteral("Debe"), this), 2, 2);
    apunte->addWidget(new QLabel(QStringLiteral("Haber"), this), 2, 3);
    apunte->addWidget(new QLabel(QStringLiteral("Documento"), this), 2, 4);
    apunte->addWidget(Combo3, 3, 1);
    apunte->addWidget(TDBN2, 3, 2);
    apunte->addWidget(TDBN3, 3, 3);
    apunte->addWidget(Text3, 3, 4);
    apunte->addWidget(Command1, 3, 5);
    apunte->setColumnStretch(1, 1);

    auto* pie = new QHBoxLayout;
    pie->addStretch();
    pie->addWidget(new QLabel(QStringLiteral("Descuadre "), this));
    pie->addWidget(TDBN1);

    auto* todo = new QVBoxLayout(this);
    todo->setMenuBar(Toolbar1);
    todo->addLayout(asiento);
    todo->addLayout(apunte);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addLayout(pie);

    // Lists, the first date and the font.
    Combo5->addItem(QString());
    Combo5->addItems(k_.Areas());
    hacer([&] {
        Combo3->addItems(ConceptosPredefinidos(s));
        Combo4->addItems(SectoresConVacio(s));
    });
    if (Combo4->count() == 0)
        Combo4->addItem(QString());
    // The date last used on this screen, when it still falls in the exercise.
    QDate fecha = FechaDeTexto(a_.leer(QStringLiteral("Valores"), QStringLiteral("DateF7")));
    if (!fecha.isValid() || fecha < s.FechaIniEj || fecha > s.FechaFinEj)
        fecha = FechaInicialForm4(s, QDate::currentDate());
    tamanoLetra_ =
        a_.leerNumero(QStringLiteral("FontSize"), QStringLiteral("F7"),
                      a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TLetra"), 9));
    cambiarLetra(0);
    k_.Resaltar();
    hacer([this] { k_.Vaciar(); });
    k_.Fecha = FormatoFecha(fecha, QStringLiteral("short date"));
    desdeLogica();

    for (QWidget* w :
         {static_cast<QWidget*>(Text1), static_cast<QWidget*>(Date1), static_cast<QWidget*>(Combo4),
          static_cast<QWidget*>(Combo5), static_cast<QWidget*>(Combo1),
          static_cast<QWidget*>(Combo3->lineEdit()), static_cast<QWidget*>(TDBN2),
          static_cast<QWidget*>(TDBN3), static_cast<QWidget*>(Text3), static_cast<QWidget*>(Text2),
          static_cast<QWidget*>(Command1)})
        w->installEventFilter(this);

    connect(Combo5, &QComboBox::activated, this, [this](int i) {
        if (cargando_)
            return;
        aLogica();
        hacer([&] {
            k_.ElegirArea(Combo5->itemText(i));
            k_.LineaTocada();
        });
        desdeLogica();
    });
    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        if (cargando_)
            return;
        aLogica();
        hacer([&] { k_.ElegirSubcuenta(i); });
        desdeLogica();
    });
    connect(Combo2, &QComboBox::activated, this, [this](int i) {
        Combo1->setCurrentIndex(i);
        Q_EMIT Combo1->activated(i);
    });
    for (QLineEdit* campo : {Combo3->lineEdit(), TDBN2, TDBN3, Text3})
        connect(campo, &QLineEdit::textEdited, this, [this] {
            if (cargando_)
                return;
            k_.LineaTocada();
            Command1->setText(k_.Caption);
        });
    connect(Command1, &QPushButton::clicked, this, [this] { Pulsar(); });
    connect(MSFlexGrid1, &QTableView::clicked, this, &Form7::clicEnRejilla);
    connect(BotonImprimir, &QAction::triggered, this, &Form7::imprimir);
    connect(BotonQuitar, &QAction::triggered, this, [this] {
        aLogica();
        hacer([&] { k_.QuitarLinea(filaActual()); });
        desdeLogica();
    });
    connect(BotonSeleccionar, &QAction::triggered, this, [this] {
        aLogica();
        hacer([&] { k_.SeleccionarLinea(filaActual()); });
        desdeLogica();
    });
    connect(BotonEliminar, &QAction::triggered, this, [this] {
        aLogica();
        hacer([&] { k_.EliminarAsiento(); });
        desdeLogica();
    });
    connect(BotonLetraMas, &QAction::triggered, this, [this] { cambiarLetra(0.5); });
    connect(BotonLetraMenos, &QAction::triggered, this, [this] { cambiarLetra(-0.5); });
    connect(BotonPeriodico, &QAction::triggered, this, [this] {
        aLogica();
        hacer([&] { k_.HacerPeriodico(); });
        desdeLogica();
    });

    resize(1000, 560);
    PrepararVentana(this, a_, 7);
    Text1->setFocus();
    for (const auto& gancho : ganchos())
        gancho(*this, s_, a_, d_);
}

Form7::~Form7() = default;

Form7* Form7::Abierto() {
    return abierto.data();
}

void Form7::AlCrear(GanchoCrear gancho) {
    ganchos() << std::move(gancho);
}

void Form7::hacer(const std::function<void()>& accion) {
    try {
        accion();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
    }
}

bool Form7::VMAsiento(long nas) {
    bool hecho = false;
    hacer([&] { hecho = k_.VMAsiento(nas); });
    desdeLogica();
    if (hecho)
        MSFlexGrid1->scrollToTop();
    return hecho;
}

void Form7::Vaciar() {
    hacer([this] { k_.Vaciar(); });
    desdeLogica();
}

void Form7::NuevoConLineas(const QList<LineaF7>& lineas, const QDate& fecha) {
    hacer([&] { k_.NuevoConLineas(lineas, fecha); });
    desdeLogica();
    MSFlexGrid1->scrollToTop();
}

void Form7::FijarHacerPeriodico(std::function<void()> accion) {
    k_.AccionPeriodico = std::move(accion);
    BotonPeriodico->setEnabled(static_cast<bool>(k_.AccionPeriodico));
}

void Form7::FijarPredisenado(std::function<void(const QString&)> accion) {
    k_.AccionPredisenado = std::move(accion);
    Text2->setEnabled(static_cast<bool>(k_.AccionPredisenado));
}

void Form7::desdeLogica() {
    cargando_ = true;
    ponerTexto(Text1, k_.Numero);
    Label2->setText(k_.Label2);
    ponerTexto(Date1, k_.Fecha);
    Label8->setText(k_.Label8);
    const int area = k_.Area.isEmpty() ? 0 : Combo5->findText(k_.Area);
    Combo5->setCurrentIndex(std::max(area, 0));
    // By code: two subaccounts may share a name.
    const int elegida =
        k_.NCuenta.isEmpty() ? -1 : static_cast<int>(k_.Codigos.indexOf(k_.NCuenta));
    ponerLista(Combo1, k_.Nombres, elegida);
    ponerLista(Combo2, k_.Codigos, elegida);
    if (Combo1->currentIndex() < 0 && !k_.Cuenta.isEmpty()) {
        // A subaccount not offered in the list (parked since): its name still shows.
        Combo1->addItem(k_.Cuenta);
        Combo1->setCurrentIndex(Combo1->count() - 1);
    }
    Combo3->setEditText(k_.Concepto);
    ponerTexto(TDBN2, k_.Debe);
    ponerTexto(TDBN3, k_.Haber);
    ponerTexto(Text3, k_.Documento);
    const int sector = Combo4->findText(k_.Sector);
    if (sector >= 0) {
        Combo4->setCurrentIndex(sector);
    } else if (!k_.Sector.isEmpty()) {
        Combo4->addItem(k_.Sector);
        Combo4->setCurrentIndex(Combo4->count() - 1);
    } else {
        Combo4->setCurrentIndex(Combo4->count() - 1);
    }
    ponerTexto(Text2, k_.Pred);
    ponerTexto(TDBN1, k_.TextoDescuadre);
    LabelSaldo->setText(k_.Saldo);
    Command1->setText(k_.Caption);
    const bool cargado = !k_.EsNuevo && k_.NumeroAsiento > 0;
    BotonEliminar->setEnabled(cargado);
    cargando_ = false;
}

void Form7::aLogica() {
    k_.Numero = Text1->text();
    k_.Fecha = Date1->text();
    k_.Concepto = Combo3->currentText();
    k_.Debe = TDBN2->text();
    k_.Haber = TDBN3->text();
    k_.Documento = Text3->text();
    k_.Sector = Combo4->currentText();
    k_.Pred = Text2->text();
}

ResultadoF7 Form7::Pulsar() {
    aLogica();
    ResultadoF7 r;
    r.tipo = ResultadoF7::Tipo::Fallo;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    hacer([&] { r = k_.Pulsar(); });
    QApplication::restoreOverrideCursor();
    if (r.fecha.isValid())
        a_.escribir(QStringLiteral("Valores"), QStringLiteral("DateF7"),
                    FormatoFecha(r.fecha, QStringLiteral("short date")));
    desdeLogica();
    enfocar(r.foco);
    return r;
}

void Form7::enfocar(ResultadoF7::Foco foco) {
    switch (foco) {
    case ResultadoF7::Foco::Numero:
        Text1->setFocus();
        Text1->selectAll();
        break;
    case ResultadoF7::Foco::Fecha:
        Date1->setFocus();
        Date1->selectAll();
        break;
    case ResultadoF7::Foco::Area:
        Combo5->setFocus();
        break;
    case ResultadoF7::Foco::Boton:
        Command1->setFocus();
        break;
    case ResultadoF7::Foco::Ninguno:
        break;
    }
}

int Form7::filaActual() const {
    const QModelIndex i = MSFlexGrid1->currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

Form7::GanchoVencimientos& Form7::VencimientosDeLinea() {
    static GanchoVencimientos gancho;
    return gancho;
}

void Form7::clicEnRejilla(const QModelIndex& indice) {
    if (!indice.isValid())
        return;
    if (indice.column() == ColF7::Venc) {
        const int fila = indice.row() + 1;
        if (VencimientosDeLinea() && fila <= k_.Rejilla.ultima() &&
            !k_.Rejilla.celda(fila, ColF7::NCuenta).trimmed().isEmpty()) {
            aLogica();
            VencimientosDeLinea()(VencimientoDeLineaF7(k_.Rejilla, fila, s_, k_.Fecha));
        }
        return;
    }
    aLogica();
    hacer([&] { k_.SeleccionarLinea(indice.row() + 1); });
    desdeLogica();
}

void Form7::imprimir() {
    aLogica();
    k_.Descuadre();
    OpcionesAsientoImpreso o;
    o.numero = k_.Numero.trimmed().toLong();
    o.fecha = k_.Fecha;
    o.fuente = a_.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"));
    o.tamano = a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
    ImprimirLibro(this,
                  [&](Impresora& imp, int) {
                      ImprimirAsiento(imp, k_.Rejilla, o, ColumnasF7(), k_.TextoDescuadre);
                  },
                  {QStringLiteral("Asiento"),
                   a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
}

void Form7::cambiarLetra(double paso) {
    tamanoLetra_ = std::clamp(tamanoLetra_ + paso, 6.0, 24.0);
    QFont f = MSFlexGrid1->font();
    f.setPointSizeF(tamanoLetra_);
    MSFlexGrid1->setFont(f);
    MSFlexGrid1->verticalHeader()->setDefaultSectionSize(QFontMetrics(f).height() + 6);
    if (paso != 0)
        a_.escribir(QStringLiteral("FontSize"), QStringLiteral("F7"), tamanoLetra_);
}

QWidget* Form7::siguiente(QObject* campo) const {
    if (campo == Date1)
        return Combo4;
    if (campo == Combo4)
        return Combo5;
    if (campo == Combo5)
        return Combo1;
    if (campo == Combo1)
        return Combo3;
    if (campo == Combo3->lineEdit())
        return TDBN2;
    if (campo == TDBN2)
        return TDBN3;
    if (campo == TDBN3)
        return Text3;
    if (campo == Text3)
        return Command1;
    return nullptr;
}

bool Form7::eventFilter(QObject* objeto, QEvent* evento) {
    // The subaccount list needs an area first.
    if (objeto == Combo1 &&
        (evento->type() == QEvent::MouseButtonPress ||
         (evento->type() == QEvent::KeyPress &&
          !EsTeclaDeEdicion(static_cast<QKeyEvent*>(evento)))) &&
        Combo5->currentText().isEmpty()) {
        k_.Area.clear();
        k_.ElegirSubcuenta(0);
        return true;
    }
    if (evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    if (objeto == Text1) {
        if (EsIntro(k)) {
            aLogica();
            hacer([this] { k_.IntroNumero(); });
            desdeLogica();
            return true;
        }
        if (EsTeclaDeEdicion(k))
            return false;
        aLogica();
        bool entra = false;
        hacer([&] { entra = k_.TeclaNumero(k->text()); });
        if (!entra) {
            desdeLogica();
            if (k->text() == QLatin1String("+"))
                Text1->selectAll();
            return true;
        }
        return false;
    }
    if (objeto == Text2 && EsIntro(k)) {
        aLogica();
        hacer([this] { k_.Predisenado(); });
        desdeLogica();
        return true;
    }
    if ((objeto == TDBN2 || objeto == TDBN3) && k->text() == QLatin1String("+")) {
        // The calculator hands its result back into the debit or credit field.
        if (const Form4::GanchoCalculadora& calculadora = Form4::CalculadoraDeImporte())
            calculadora(static_cast<QLineEdit*>(objeto),
                        objeto == TDBN2 ? QStringLiteral("F7N2") : QStringLiteral("F7N3"));
        return true;
    }
    if ((objeto == TDBN2 || objeto == TDBN3) && !EsIntro(k) &&
        teclaEnImporte(static_cast<QLineEdit*>(objeto), k, s_.PuntoDecimal))
        return true;
    if (!EsIntro(k))
        return QWidget::eventFilter(objeto, evento);
    if (objeto == Command1) {
        Command1->click();
        return true;
    }
    if (QWidget* w = siguiente(objeto)) {
        w->setFocus();
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

Form7* VMAsiento(Sesion& s, Ajustes& a, Dialogo& d, long nas, Form1* tablero) {
    Form7* f = Form7::Abierto();
    if (!f) {
        if (!tablero)
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* t = qobject_cast<Form1*>(w))
                    tablero = t;
        f = new Form7(s, a, d, tablero);
        if (tablero) {
            ColocarEnZona(f, tablero->tablero()->zonaLibre());
            QObject::connect(f, &Form7::librosCambiados, tablero, &Form1::refrescarLibros);
            // An entry of another company or year must not be saved into this one.
            QObject::connect(tablero, &Form1::sesionCambiada, f, &QWidget::close);
        }
    }
    f->show();
    f->raise();
    f->activateWindow();
    if (nas > 0)
        f->VMAsiento(nas);
    return f;
}

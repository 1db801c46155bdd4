#include "posting/forms/Form89.h"

#include "platform/Ajustes.h"
#include "platform/Errores.h"
#include "platform/forms/ExportarDialogo.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/Contabilizar.h"
#include "posting/ImpresionVencimientos.h"
#include "posting/forms/Form4.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace {

QPointer<Form89> abierto;

const QString Datos = QStringLiteral("Datos");

// The first column of the list takes the colour of the row's urgency.
class DelegadoColor : public QStyledItemDelegate {
public:
    DelegadoColor(const Form89* f, QObject* padre) : QStyledItemDelegate(padre), f_(f) {}
    void paint(QPainter* p, const QStyleOptionViewItem& o, const QModelIndex& i) const override {
        const Rejilla& r = f_->Logica().Lista;
        if (i.row() < r.Filas() && !(o.state & QStyle::State_Selected))
            p->fillRect(o.rect, ColorFilaVenc(r, i.row(), f_->Hoy()));
        QStyleOptionViewItem op(o);
        op.backgroundBrush = Qt::NoBrush;
        op.features &= ~QStyleOptionViewItem::Alternate;
        op.palette.setColor(QPalette::Text, Qt::black);
        QStyledItemDelegate::paint(p, op, i);
    }

private:
    const Form89* f_;
};

// Digits and the decimal mark only, the mark typed either way.
class FiltroImporte : public QObject {
public:
    FiltroImporte(bool puntoDecimal, QObject* padre)
        : QObject(padre), puntoDecimal_(puntoDecimal) {}
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        auto* campo = qobject_cast<QLineEdit*>(objeto);
        if (!campo || evento->type() != QEvent::KeyPress)
            return false;
        auto* k = static_cast<QKeyEvent*>(evento);
        if (EsTeclaDeEdicion(k) || EsIntro(k))
            return false;
        switch (FiltrarTeclaImporte(k->text(), puntoDecimal_)) {
        case TeclaImporte::Pasa:
            return false;
        case TeclaImporte::Cambia:
            campo->insert(puntoDecimal_ ? QStringLiteral(".") : QStringLiteral(","));
            return true;
        case TeclaImporte::Rechaza:
            return true;
        }
        return true;
    }

private:
    bool puntoDecimal_;
};

QComboBox* combo(QWidget* padre, const QString& nombre, int ancho = 0) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nombre);
    if (ancho > 0)
        c->setMinimumWidth(ancho);
    return c;
}

QLineEdit* campo(QWidget* padre, const QString& nombre, int ancho = 0) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nombre);
    if (ancho > 0)
        e->setMaximumWidth(ancho);
    return e;
}

QLineEdit* campoFecha(QWidget* padre, const QString& nombre) {
    QLineEdit* e = campo(padre, nombre, 110);
    e->setMaxLength(10);
    e->setToolTip(QStringLiteral("dd/mm/aa, o ddmmaa"));
    return e;
}

QPushButton* boton(QWidget* padre, const QString& nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setAutoDefault(false);
    return b;
}

QCheckBox* casilla(QWidget* padre, const QString& nombre, const QString& texto) {
    auto* c = new QCheckBox(texto, padre);
    c->setObjectName(nombre);
    return c;
}

// Puts the items of a combo and its current item.
void ponerLista(QComboBox* c, const QStringList& items, int actual) {
    QStringList ahora;
    for (int i = 0; i < c->count(); ++i)
        ahora << c->itemText(i);
    if (ahora != items) {
        c->clear();
        c->addItems(items);
    }
    c->setCurrentIndex(actual);
}

void ponerTexto(QLineEdit* e, const QString& t) {
    if (e->text() != t)
        e->setText(t);
}

// The item of a combo holding a text (the empty first item for none).
void elegirTexto(QComboBox* c, const QString& t) {
    const int i = c->findText(t);
    if (i >= 0) {
        c->setCurrentIndex(i);
    } else if (!t.isEmpty()) {
        c->addItem(t);
        c->setCurrentIndex(c->count() - 1);
    } else {
        c->setCurrentIndex(0);
    }
}

} // namespace

Form89::Form89(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), g_(s, d) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("Form89"));
    setWindowTitle(QStringLiteral("Quilmar [Vencimientos]"));
    abierto = this;
    g_.VencimientosCambiados = [this] {
        Q_EMIT vencimientosCambiados();
    };

    // The fields of one due date.
    Date1 = campoFecha(this, QStringLiteral("Date1"));
    Combo1 = combo(this, QStringLiteral("Combo1"), 80);
    Combo1->addItems({QString(), TipoCobro, TipoPago});
    Combo2 = combo(this, QStringLiteral("Combo2"), 50);
    Combo3 = combo(this, QStringLiteral("Combo3"), 260);
    Combo4 = combo(this, QStringLiteral("Combo4"), 260);
    Combo4->setEditable(true);
    Combo4->setInsertPolicy(QComboBox::NoInsert);
    LimitarCampo(Combo4->lineEdit(), Campo::Concepto);
    Date2 = campoFecha(this, QStringLiteral("Date2"));
    Combo5 = combo(this, QStringLiteral("Combo5"), 200);
    Combo6 = combo(this, QStringLiteral("Combo6"), 120);
    Combo6->addItems(SituacionesVencimiento());
    Text1 = campo(this, QStringLiteral("Text1"), 130);
    Text1->setAlignment(Qt::AlignRight);
    Text1->installEventFilter(new FiltroImporte(s.PuntoDecimal, this));
    Text2 = campo(this, QStringLiteral("Text2"), 160);
    LimitarCampo(Text2, Campo::Documento);
    Text3 = campo(this, QStringLiteral("Text3"), 120);
    LimitarCampo(Text3, Campo::Remesa);
    Combo8 = combo(this, QStringLiteral("Combo8"), 140);
    Combo7 = combo(this, QStringLiteral("Combo7"), 120);
    Combo7->addItem(QString());
    Combo7->addItems(FormasVencimiento());

    auto* datos = new QGridLayout;
    auto etiqueta = [this](const char* texto) {
        return new QLabel(QString::fromUtf8(texto), this);
    };
    datos->addWidget(etiqueta("F.Vencimiento"), 0, 0);
    datos->addWidget(etiqueta("Tipo"), 0, 1);
    datos->addWidget(etiqueta("Area"), 0, 2);
    datos->addWidget(etiqueta("Subcuenta"), 0, 3);
    datos->addWidget(etiqueta("Forma"), 0, 4);
    datos->addWidget(Date1, 1, 0);
    datos->addWidget(Combo1, 1, 1);
    datos->addWidget(Combo2, 1, 2);
    datos->addWidget(Combo3, 1, 3);
    datos->addWidget(Combo7, 1, 4);
    datos->addWidget(etiqueta("F.Emisión"), 2, 0);
    datos->addWidget(etiqueta("Situación"), 2, 1, 1, 2);
    datos->addWidget(etiqueta("Concepto"), 2, 3);
    datos->addWidget(etiqueta("Caja/Banco"), 2, 4);
    datos->addWidget(Date2, 3, 0);
    datos->addWidget(Combo6, 3, 1, 1, 2);
    datos->addWidget(Combo4, 3, 3);
    datos->addWidget(Combo5, 3, 4);
    datos->addWidget(etiqueta("Importe"), 4, 0);
    datos->addWidget(etiqueta("Documento"), 4, 1, 1, 2);
    datos->addWidget(etiqueta("Remesa"), 4, 3);
    datos->addWidget(etiqueta("Sector"), 4, 4);
    datos->addWidget(Text1, 5, 0);
    datos->addWidget(Text2, 5, 1, 1, 2);
    datos->addWidget(Text3, 5, 3);
    datos->addWidget(Combo8, 5, 4);
    datos->setColumnStretch(3, 1);

    Command1 = boton(this, QStringLiteral("Command1"), QStringLiteral("&Añadir"));
    Command2 = boton(this, QStringLiteral("Command2"), QStringLiteral("&Modificar"));
    Command3 = boton(this, QStringLiteral("Command3"), QStringLiteral("&Eliminar"));
    Command4 = boton(this, QStringLiteral("Command4"), QStringLiteral("&Imprimir"));
    Command5 = boton(this, QStringLiteral("Command5"), QStringLiteral("Ay&uda"));
    Command5->setEnabled(false); // no help pages yet
    Command6 = boton(this, QStringLiteral("Command6"), QStringLiteral("&Salir"));
    auto* botones = new QGridLayout;
    botones->addWidget(Command1, 0, 0);
    botones->addWidget(Command2, 1, 0);
    botones->addWidget(Command3, 2, 0);
    botones->addWidget(Command4, 0, 1);
    botones->addWidget(Command5, 1, 1);
    botones->addWidget(Command6, 2, 1);
    botones->setRowStretch(3, 1);

    // "  Ver": the filters.
    auto* ver = new QGroupBox(QStringLiteral("  Ver"), this);
    ver->setObjectName(QStringLiteral("FrameVer"));
    Check1 = casilla(ver, QStringLiteral("Check1"), QStringLiteral("Vencidos"));
    Check1->setToolTip(QStringLiteral("Marcada: sólo los vencimientos de fecha anterior a hoy. "
                                      "Sin marcar: todos desde el 31/12/2000."));
    Check2 = casilla(ver, QStringLiteral("Check2"), QStringLiteral("Situación:"));
    Combo9 = combo(ver, QStringLiteral("Combo9"), 120);
    Combo9->addItem(QString());
    Combo9->addItems(SituacionesVencimiento());
    Check3 = casilla(ver, QStringLiteral("Check3"), QStringLiteral("Fecha Venc."));
    Date3 = campoFecha(ver, QStringLiteral("Date3"));
    Date4 = campoFecha(ver, QStringLiteral("Date4"));
    Check4 = casilla(ver, QStringLiteral("Check4"), QStringLiteral("Forma:"));
    Combo10 = combo(ver, QStringLiteral("Combo10"), 120);
    Combo10->addItem(QString());
    Combo10->addItems(FormasVencimiento());
    Check5 = casilla(ver, QStringLiteral("Check5"), QStringLiteral("Remesa:"));
    Text4 = campo(ver, QStringLiteral("Text4"), 120);
    Text4->setMaxLength(TamanoCampo(Campo::Remesa));
    Check6 = casilla(ver, QStringLiteral("Check6"), QStringLiteral("Subcta C/P:"));
    Combo11 = combo(ver, QStringLiteral("Combo11"), 220);
    Option1 = new QRadioButton(QStringLiteral("Cobros"), ver);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Pagos"), ver);
    Option2->setObjectName(QStringLiteral("Option2"));
    Option3 = new QRadioButton(QStringLiteral("Todos"), ver);
    Option3->setObjectName(QStringLiteral("Option3"));
    Command7 = boton(ver, QStringLiteral("Command7"), QStringLiteral("&Ver"));
    auto* filtros = new QGridLayout(ver);
    filtros->addWidget(Check1, 0, 0);
    filtros->addWidget(Check2, 1, 0);
    filtros->addWidget(Combo9, 1, 1, 1, 2);
    filtros->addWidget(Check3, 2, 0);
    filtros->addWidget(Date3, 2, 1);
    filtros->addWidget(Date4, 2, 2);
    filtros->addWidget(Check4, 0, 3);
    filtros->addWidget(Combo10, 0, 4);
    filtros->addWidget(Check5, 1, 3);
    filtros->addWidget(Text4, 1, 4);
    filtros->addWidget(Check6, 2, 3);
    filtros->addWidget(Combo11, 2, 4);
    auto* tipos = new QHBoxLayout;
    tipos->addWidget(Option1);
    tipos->addWidget(Option2);
    tipos->addWidget(Option3);
    tipos->addStretch(1);
    tipos->addWidget(Command7);
    filtros->addLayout(tipos, 3, 0, 1, 5);
    filtros->setColumnStretch(4, 1);

    // "  Buscar".
    auto* buscarCaja = new QGroupBox(QStringLiteral("  Buscar"), this);
    buscarCaja->setObjectName(QStringLiteral("FrameBuscar"));
    Text5 = campo(buscarCaja, QStringLiteral("Text5"));
    Combo12 = combo(buscarCaja, QStringLiteral("Combo12"), 140);
    Combo12->addItem(QString());
    const Rejilla columnas = RejillaVencimientos();
    for (int c = 0; c < ColV::IdVenc; ++c)
        Combo12->addItem(columnas.columna(c).titulo, c);
    Command8 = boton(buscarCaja, QStringLiteral("Command8"), QStringLiteral("&Buscar"));
    Command9 = boton(buscarCaja, QStringLiteral("Command9"), QStringLiteral("Bus&car Siguiente"));
    auto* busqueda = new QGridLayout(buscarCaja);
    busqueda->addWidget(new QLabel(QStringLiteral("Texto"), buscarCaja), 0, 0);
    busqueda->addWidget(Text5, 0, 1);
    busqueda->addWidget(new QLabel(QStringLiteral("Columna"), buscarCaja), 1, 0);
    busqueda->addWidget(Combo12, 1, 1);
    busqueda->addWidget(Command8, 2, 0);
    busqueda->addWidget(Command9, 2, 1);

    MSFlexGrid1 = new TablaRejilla(this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setAlternatingRowColors(false);
    MSFlexGrid1->setItemDelegateForColumn(ColV::FechaV, new DelegadoColor(this, MSFlexGrid1));
    LabelTotal = new QLabel(this);
    LabelTotal->setObjectName(QStringLiteral("LabelTotal"));
    LabelTotal->setFrameShape(QFrame::Panel);
    LabelTotal->setFrameShadow(QFrame::Sunken);
    LabelTotal->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LabelTotal->setMinimumWidth(
        LabelTotal->fontMetrics().horizontalAdvance(QStringLiteral("000.000.000.000,00")));
    auto* pie = new QHBoxLayout;
    pie->addStretch(1);
    pie->addWidget(new QLabel(EtiquetaTotalVenc, this));
    pie->addWidget(LabelTotal);

    // The menu "Vence", also the list's context menu.
    auto* barra = new QMenuBar(this);
    mnuVence = barra->addMenu(QStringLiteral("Vence"));
    mnuVence->setObjectName(QStringLiteral("mnuVence"));
    auto entrada = [this](QMenu* m, const char* nombre, const char* texto,
                          std::function<void()> hacer) {
        QAction* a = m->addAction(QString::fromUtf8(texto));
        a->setObjectName(QString::fromUtf8(nombre));
        connect(a, &QAction::triggered, this, [hacer = std::move(hacer)] { hacer(); });
        return a;
    };
    entrada(mnuVence, "mnuExportar", "Exportar",
            [this] { ExportarConDialogo(this, g_.Lista, d_, s_.AppPath); });
    entrada(mnuVence, "mnuModificar", "Modificar", [this] { Command2->click(); });
    entrada(mnuVence, "mnuEliminar", "Eliminar", [this] { Command3->click(); });
    mnuVence->addSeparator();
    entrada(mnuVence, "mnuEliminarCP", "Eliminar todos los Cobrados/Pagados", [this] {
        aLogica();
        hacer([this] { g_.EliminarCobradosPagados(Hoy()); });
        desdeLogica();
        mostrarLista();
    });
    QMenu* vencidos = mnuVence->addMenu(QStringLiteral("Eliminar Vencidos y no Cobrados/Pagados"));
    vencidos->setObjectName(QStringLiteral("mnuEliminarVencidos"));
    entrada(vencidos, "mnuVencTodos", "Todos", [this] { EliminarVenc(0); });
    entrada(vencidos, "mnuVenc1", "Vencido hace más de 1 mes", [this] { EliminarVenc(1); });
    entrada(vencidos, "mnuVenc6", "Vencido más de 6 meses", [this] { EliminarVenc(6); });
    entrada(vencidos, "mnuVenc12", "Vencido más de 1 año", [this] { EliminarVenc(12); });
    entrada(vencidos, "mnuVenc24", "Vencido más de 2 años", [this] { EliminarVenc(24); });
    connect(MSFlexGrid1, &TablaRejilla::prepararMenu, this, [this](QMenu* menu, int, int) {
        menu->addSeparator();
        for (QAction* a : mnuVence->actions())
            menu->addAction(a);
    });

    auto* arriba = new QHBoxLayout;
    arriba->addLayout(datos, 1);
    arriba->addSpacing(12);
    arriba->addLayout(botones);
    auto* medio = new QHBoxLayout;
    medio->addWidget(ver, 3);
    medio->addWidget(buscarCaja, 1);
    auto* todo = new QVBoxLayout(this);
    todo->setMenuBar(barra);
    todo->addLayout(arriba);
    todo->addLayout(medio);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addLayout(pie);

    // Lists and the state of the filters kept from the last run.
    cargando_ = true;
    Combo2->addItem(QString());
    Combo2->addItems(g_.Areas());
    hacer([&] {
        g_.Cargar(Hoy());
        Combo4->addItems(ConceptosPredefinidos(s));
        Combo8->addItems(SectoresConVacio(s));
    });
    if (Combo8->count() == 0)
        Combo8->addItem(QString());
    Combo5->addItems(g_.CajaNombres);
    Combo11->addItems(g_.FiltroNombres);
    Combo11->setCurrentIndex(-1);
    Check1->setChecked(a_.leer(Datos, QStringLiteral("VerVenc")) == QLatin1String("SI"));
    switch (TipoFiltroDeTexto(a_.leer(Datos, QStringLiteral("TipoVenc")))) {
    case TipoFiltro::Cobros:
        Option1->setChecked(true);
        break;
    case TipoFiltro::Pagos:
        Option2->setChecked(true);
        break;
    case TipoFiltro::Todos:
        Option3->setChecked(true);
        break;
    }
    g_.Filtros = FiltrosPantalla();
    cargando_ = false;
    desdeLogica();

    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        aLogica();
        hacer([&] { g_.ElegirTipo(Combo1->itemText(i)); });
        desdeLogica();
    });
    connect(Combo2, &QComboBox::activated, this, [this](int i) {
        aLogica();
        hacer([&] { g_.ElegirArea(Combo2->itemText(i)); });
        desdeLogica();
    });
    connect(Combo3, &QComboBox::activated, this, [this](int i) {
        aLogica();
        hacer([&] { g_.ElegirSubcuenta(i); });
        desdeLogica();
    });
    connect(Combo5, &QComboBox::activated, this, [this](int i) {
        aLogica();
        g_.ElegirCaja(i);
        desdeLogica();
    });
    connect(Combo6, &QComboBox::activated, this, [this](int i) {
        aLogica();
        g_.ElegirSituacion(Combo6->itemText(i));
        desdeLogica();
    });
    connect(Command1, &QPushButton::clicked, this, [this] {
        aLogica();
        hacer([this] { g_.Anadir(Hoy(), QDateTime::currentDateTime()); });
        desdeLogica();
        mostrarLista();
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        aLogica();
        hacer([this] { g_.Modificar(Hoy()); });
        desdeLogica();
        mostrarLista();
    });
    connect(Command3, &QPushButton::clicked, this, [this] {
        aLogica();
        hacer([this] { g_.Eliminar(Hoy()); });
        desdeLogica();
        mostrarLista();
    });
    connect(Command4, &QPushButton::clicked, this, &Form89::imprimir);
    connect(Command6, &QPushButton::clicked, this, &QWidget::close);
    connect(Command7, &QPushButton::clicked, this, &Form89::ver);
    for (QRadioButton* o : {Option1, Option2, Option3})
        connect(o, &QRadioButton::clicked, this, &Form89::ver);
    connect(Check1, &QCheckBox::clicked, this, &Form89::ver);
    connect(Command8, &QPushButton::clicked, this, [this] { buscar(false); });
    connect(Command9, &QPushButton::clicked, this, [this] { buscar(true); });
    connect(MSFlexGrid1, &QAbstractItemView::doubleClicked, this, &Form89::dobleClic);

    resize(1100, 720);
    PrepararVentana(this, a_);
    Date1->setFocus();
}

Form89::~Form89() {
    // The table's model reads the list, which goes with the members, before the table does.
    MSFlexGrid1->mostrar(nullptr);
}

Form89* Form89::Abierto() {
    return abierto.data();
}

Form89* Form89::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    Form89* f = abierto.data();
    if (!f) {
        try {
            f = new Form89(s, a, d, padre);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
            return nullptr;
        }
        f->show();
        f->LlenarVenc();
    } else {
        f->showNormal();
    }
    f->raise();
    f->activateWindow();
    return f;
}

QDate Form89::Hoy() const {
    return hoy_.isValid() ? hoy_ : QDate::currentDate();
}

void Form89::hacer(const std::function<void()>& accion) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        accion();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
        return;
    }
    QApplication::restoreOverrideCursor();
}

void Form89::VerTipo(const QString& tipo) {
    const TipoFiltro t = TipoFiltroDeTexto(tipo);
    (t == TipoFiltro::Cobros  ? Option1
     : t == TipoFiltro::Pagos ? Option2
                              : Option3)
        ->setChecked(true);
    ver();
}

void Form89::Prellenar(const DatosVencimientoLinea& linea) {
    hacer([&] { g_.Prellenar(linea); });
    desdeLogica();
    Date1->setFocus();
}

void Form89::EliminarVenc(int meses) {
    aLogica();
    hacer([&] { g_.EliminarVenc(meses, Hoy()); });
    desdeLogica();
    mostrarLista();
}

void Form89::Borrar() {
    g_.Borrar(Hoy());
    desdeLogica();
}

void Form89::LlenarVenc() {
    hacer([this] {
        g_.LlenarVenc(Hoy(), [](qint64, qint64) {
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    });
    mostrarLista();
}

void Form89::Color() {
    MSFlexGrid1->viewport()->update();
}

FiltrosVenc Form89::FiltrosPantalla() const {
    FiltrosVenc f;
    f.Vencidos = Check1->isChecked();
    f.PorSituacion = Check2->isChecked();
    f.Situacion = Combo9->currentText();
    f.PorFecha = Check3->isChecked();
    f.Desde = Date3->text();
    f.Hasta = Date4->text();
    f.PorForma = Check4->isChecked();
    f.Forma = Combo10->currentText();
    f.PorRemesa = Check5->isChecked();
    f.Remesa = Text4->text();
    f.PorSubcuenta = Check6->isChecked();
    const int i = Combo11->currentIndex();
    f.Subcuenta = i >= 0 && i < g_.FiltroCodigos.size() ? g_.FiltroCodigos.at(i) : QString();
    f.Tipo = Option1->isChecked()   ? TipoFiltro::Cobros
             : Option2->isChecked() ? TipoFiltro::Pagos
                                    : TipoFiltro::Todos;
    return f;
}

void Form89::ver() {
    guardarAjustes();
    bool hecho = false;
    hacer([this, &hecho] {
        hecho = g_.Ver(FiltrosPantalla(), Hoy(), [](qint64, qint64) {
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    });
    if (hecho)
        mostrarLista();
}

void Form89::guardarAjustes() {
    a_.escribir(Datos, QStringLiteral("VerVenc"),
                Check1->isChecked() ? QStringLiteral("SI") : QStringLiteral("NO"));
    a_.escribir(Datos, QStringLiteral("TipoVenc"), TextoTipoFiltro(FiltrosPantalla().Tipo));
}

void Form89::mostrarLista() {
    // The widths fit the first rows shown; later fills keep what the user made of them.
    if (anchosAjustados_) {
        MSFlexGrid1->actualizar();
    } else {
        MSFlexGrid1->mostrar(&g_.Lista);
        anchosAjustados_ = g_.Lista.Filas() > 0;
    }
    LabelTotal->setText(Formato(g_.Total, QStringLiteral("standard")));
    Color();
}

void Form89::buscar(bool siguiente) {
    const int actual =
        MSFlexGrid1->currentIndex().isValid() ? MSFlexGrid1->currentIndex().row() : -1;
    const int desde = siguiente ? actual + 1 : qMax(actual, 0);
    const int columna = Combo12->currentIndex() > 0 ? Combo12->currentData().toInt() : -1;
    const std::optional<int> fila = BuscarVenc(g_.Lista, columna, Text5->text(), desde, d_);
    if (!fila)
        return;
    const QModelIndex i = MSFlexGrid1->model()->index(*fila, columna);
    MSFlexGrid1->setCurrentIndex(i);
    MSFlexGrid1->scrollTo(i);
}

void Form89::imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Venc")), a_, d_,
                        this);
    f.exec();
    const OpcionesLibro op = f.opciones();
    if (op.cancelado)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        ImpresionVenc impreso(g_.Lista, empresa, op);
        OpcionesImpresion o;
        o.titulo = TituloVencimientos;
        o.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        o.orientacion = QPageLayout::Landscape;
        ImprimirLibro(this, impreso.Dibujo(), o);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

void Form89::dobleClic(const QModelIndex& indice) {
    if (!indice.isValid())
        return;
    hacer([&] { g_.CargarFila(indice.row()); });
    desdeLogica();
}

void Form89::aLogica() {
    if (cargando_)
        return;
    g_.FechaV = Date1->text();
    g_.Concepto = Combo4->currentText();
    g_.FechaE = Date2->text();
    g_.Importe = Text1->text();
    g_.Documento = Text2->text();
    g_.Remesa = Text3->text();
    g_.Sector = Combo8->currentText();
    g_.Forma = Combo7->currentText();
    g_.Tipo = Combo1->currentText();
    g_.Situacion = Combo6->currentText();
}

void Form89::desdeLogica() {
    cargando_ = true;
    ponerTexto(Date1, g_.FechaV);
    elegirTexto(Combo1, g_.Tipo);
    elegirTexto(Combo2, g_.Area);
    ponerLista(Combo3, g_.Nombres,
               g_.NCuenta1.isEmpty() ? -1 : int(g_.Codigos.indexOf(g_.NCuenta1)));
    Combo4->setEditText(g_.Concepto);
    ponerTexto(Date2, g_.FechaE);
    ponerLista(Combo5, g_.CajaNombres,
               g_.NCuenta2.isEmpty() ? -1 : int(g_.CajaCodigos.indexOf(g_.NCuenta2)));
    elegirTexto(Combo6, g_.Situacion);
    ponerTexto(Text1, g_.Importe);
    ponerTexto(Text2, g_.Documento);
    ponerTexto(Text3, g_.Remesa);
    elegirTexto(Combo8, g_.Sector);
    elegirTexto(Combo7, g_.Forma);
    cargando_ = false;
}

void Form89::closeEvent(QCloseEvent* e) {
    guardarAjustes();
    QWidget::closeEvent(e);
    // Closed, it is on its way out: the next opening makes a new one.
    if (e->isAccepted() && abierto == this)
        abierto = nullptr;
}

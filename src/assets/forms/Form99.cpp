#include "assets/forms/Form99.h"

#include "assets/Amortizacion.h"
#include "assets/Centros.h"
#include "assets/ImpresionInventario.h"
#include "assets/forms/Form100.h"
#include "assets/forms/Form101.h"
#include "chart/forms/Form73.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/ExportarDialogo.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/forms/Form4.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QPointer<Form99> abierto;

constexpr VerInventario Vistas[11] = {
    VerInventario::Todos,           VerInventario::DadosDeBaja,     VerInventario::NoDadosDeBaja,
    VerInventario::ConAmortizacion, VerInventario::SinAmortizacion, VerInventario::ConLocalizacion,
    VerInventario::Amortizables,    VerInventario::NoAmortizables,  VerInventario::Amortizados,
    VerInventario::NoAmortizados,   VerInventario::AdquiridosEntre};

const char* const PropiedadFecha = "campoFecha";
const char* const PropiedadImporte = "campoImporte";

QLineEdit* campo(QWidget* padre, const QString& nombre, int maximo = 0) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nombre);
    if (maximo > 0)
        e->setMaxLength(maximo);
    return e;
}

QLineEdit* campoFecha(QWidget* padre, const QString& nombre) {
    QLineEdit* e = campo(padre, nombre, 10);
    e->setProperty(PropiedadFecha, true);
    e->setToolTip(QStringLiteral("Pulse + para ver el calendario"));
    e->setMaximumWidth(110);
    return e;
}

QComboBox* lista(QWidget* padre, const QString& nombre, const QStringList& valores = {}) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nombre);
    c->addItems(valores);
    c->setCurrentIndex(-1);
    return c;
}

void elegirTexto(QComboBox* c, const QString& texto) {
    c->setCurrentIndex(texto.isEmpty() ? -1 : c->findText(texto, Qt::MatchFixedString));
}

void elegirCodigo(QComboBox* c, const QString& codigo) {
    c->setCurrentIndex(codigo.isEmpty() ? -1 : c->findData(codigo));
}

} // namespace

Form99::Form99(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), rejilla_(RejillaInventario()) {
    setObjectName(QStringLiteral("Form99"));
    setWindowTitle(QStringLiteral("Quilmar [Inventario]"));
    construir();
    resize(1240, 720);
    PrepararVentana(this, a, 99);
    try {
        llenarCentros();
        llenarSubcuentas();
        if (Combo5->count() == 0 || Combo6->count() == 0)
            d_.Informar(QStringLiteral("No hay Cuentas creadas."));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Ver();
}

Form99::~Form99() = default;

Form99* Form99::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    if (!abierto) {
        abierto = new Form99(s, a, d, padre);
        abierto->setAttribute(Qt::WA_DeleteOnClose);
    }
    abierto->show();
    abierto->raise();
    abierto->activateWindow();
    return abierto;
}

Form99* Form99::Abierto() {
    return abierto;
}

void Form99::construir() {
    auto* raiz = new QVBoxLayout(this);
    auto* arriba = new QHBoxLayout;
    raiz->addLayout(arriba);

    auto* ficha = new QGroupBox(this);
    auto* g = new QGridLayout(ficha);
    Text1 = campo(this, QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setFocusPolicy(Qt::NoFocus);
    Text1->setMaximumWidth(110);
    Text2 = campo(this, QStringLiteral("Text2"));
    LimitarCampo(Text2, Campo::NombreElemento);
    Combo1 = lista(this, QStringLiteral("Combo1"), NaturalezasElemento);
    Text3 = campoFecha(this, QStringLiteral("Text3"));
    Text4 = campo(this, QStringLiteral("Text4"), 20);
    Text4->setAlignment(Qt::AlignRight);
    Text4->setProperty(PropiedadImporte, true);
    Text5 = campo(this, QStringLiteral("Text5"));
    LimitarCampo(Text5, Campo::Proveedor);
    Combo2 = lista(this, QStringLiteral("Combo2"));
    Combo2->setToolTip(QStringLiteral("Pulse + para dar de alta un Centro"));
    Text6 = campoFecha(this, QStringLiteral("Text6"));
    Combo3 = lista(this, QStringLiteral("Combo3"), CausasBaja);
    Combo4 = lista(this, QStringLiteral("Combo4"), {QStringLiteral("SI"), QStringLiteral("NO")});
    Text7 = campo(this, QStringLiteral("Text7"), 12);
    Text7->setAlignment(Qt::AlignRight);
    Text7->setProperty(PropiedadImporte, true);
    Text8 = campoFecha(this, QStringLiteral("Text8"));
    Text9 = campoFecha(this, QStringLiteral("Text9"));
    Text10 = campo(this, QStringLiteral("Text10"), 20);
    Text10->setAlignment(Qt::AlignRight);
    Text10->setProperty(PropiedadImporte, true);
    Combo5 = lista(this, QStringLiteral("Combo5"));
    Combo6 = lista(this, QStringLiteral("Combo6"));
    for (QComboBox* c : {Combo5, Combo6})
        c->setToolTip(QStringLiteral("Pulse + para crear una Subcuenta"));

    auto poner = [&](int fila, int col, const QString& etiqueta, QWidget* w, int ancho = 1) {
        auto* l = new QLabel(etiqueta, this);
        l->setBuddy(w);
        g->addWidget(l, fila, col * 2);
        g->addWidget(w, fila, col * 2 + 1, 1, ancho);
    };
    poner(0, 0, QStringLiteral("Nº Elemento"), Text1);
    poner(0, 1, QStringLiteral("Nombre"), Text2, 3);
    poner(1, 0, QStringLiteral("Naturaleza"), Combo1);
    poner(1, 1, QStringLiteral("Fecha adquis."), Text3);
    poner(1, 2, QStringLiteral("Importe"), Text4);
    poner(2, 0, QStringLiteral("Fra / Proveedor"), Text5, 3);
    poner(2, 2, QStringLiteral("Localización"), Combo2);
    poner(3, 0, QStringLiteral("Fecha Baja"), Text6);
    poner(3, 1, QStringLiteral("Causa"), Combo3);
    poner(3, 2, QStringLiteral("Amortizable"), Combo4);
    poner(4, 0, QStringLiteral("Porcentaje"), Text7);
    poner(4, 1, QStringLiteral("Fin Amortiz."), Text8);
    poner(4, 2, QStringLiteral("Ultima Amort."), Text9);
    poner(5, 0, QStringLiteral("Amortizado"), Text10);
    poner(5, 1, QStringLiteral("Subcuenta de amortización"), Combo5, 3);
    poner(6, 1, QStringLiteral("Subcuenta de dotación"), Combo6, 3);
    // The fields keep together at the top when the Ver panel is taller.
    g->setRowStretch(7, 1);
    arriba->addWidget(ficha, 3);

    auto* ver = new QGroupBox(QStringLiteral("Ver"), this);
    auto* v = new QGridLayout(ver);
    for (int i = 0; i < 11; ++i) {
        Option[i] = new QRadioButton(TextoVer(Vistas[i]), this);
        Option[i]->setObjectName(QStringLiteral("Option%1").arg(i + 1));
    }
    Option[0]->setChecked(true);
    Combo7 = lista(this, QStringLiteral("Combo7"));
    Text11 = campoFecha(this, QStringLiteral("Text11"));
    Text12 = campoFecha(this, QStringLiteral("Text12"));
    Text11->setText(FormatoFecha(s_.FechaIniEj, QStringLiteral("short date")));
    Text12->setText(FormatoFecha(s_.FechaFinEj, QStringLiteral("short date")));
    for (int i = 0; i < 5; ++i)
        v->addWidget(Option[i], i, 0, 1, 2);
    v->addWidget(Option[5], 5, 0);
    v->addWidget(Combo7, 5, 1);
    for (int i = 6; i < 10; ++i)
        v->addWidget(Option[i], i, 0, 1, 2);
    v->addWidget(Option[10], 10, 0, 1, 2);
    auto* fechas = new QHBoxLayout;
    fechas->addWidget(Text11);
    fechas->addWidget(new QLabel(QStringLiteral("y"), this));
    fechas->addWidget(Text12);
    v->addLayout(fechas, 11, 0, 1, 2);
    auto* verBoton = new QPushButton(QStringLiteral("Ver"), this);
    verBoton->setObjectName(QStringLiteral("Command8"));
    v->addWidget(verBoton, 12, 1);
    arriba->addWidget(ver, 1);

    auto* botones = new QHBoxLayout;
    const QStringList textos{QStringLiteral("&Añadir"),
                             QStringLiteral("&Modificar"),
                             QStringLiteral("&Eliminar"),
                             QStringLiteral("&Imprimir"),
                             QStringLiteral("Realizar amortizaciones"),
                             QStringLiteral("Ay&uda"),
                             QStringLiteral("&Salir")};
    QList<QPushButton*> b;
    for (int i = 0; i < textos.size(); ++i) {
        auto* boton = new QPushButton(textos.at(i), this);
        boton->setObjectName(QStringLiteral("Command%1").arg(i + 1));
        boton->setAutoDefault(false);
        botones->addWidget(boton);
        b << boton;
    }
    // There is no help to show yet.
    b.at(5)->setEnabled(false);
    botones->insertStretch(5, 1);
    raiz->addLayout(botones);

    QStringList titulos = rejilla_.Titulos();
    titulos << QStringLiteral("...");
    Grid1 = new QTableWidget(0, titulos.size(), this);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setHorizontalHeaderLabels(titulos);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setDefaultSectionSize(Grid1->fontMetrics().height() + 8);
    Grid1->setColumnHidden(ColInvSubctaAmort, true);
    Grid1->setColumnHidden(ColInvSubctaDota, true);
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(Grid1, 1);

    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("mnuInventario"));
    auto entrada = [this](const char* nombre, const QString& texto, auto hacer) {
        QAction* a = menu_->addAction(texto);
        a->setObjectName(QString::fromLatin1(nombre));
        connect(a, &QAction::triggered, this, hacer);
        return a;
    };
    entrada("mnuExportar", QStringLiteral("Exportar"), [this] { Exportar(); });
    entrada("mnuCentros", QStringLiteral("Centros"), [this] { AbrirCentros(); });
    entrada("mnuModificar", QStringLiteral("Modificar"),
            [this] { CargarFila(Grid1->currentRow()); });
    entrada("mnuEliminar", QStringLiteral("Eliminar"), [this] {
        const qint64 n = numeroDeFila(Grid1->currentRow());
        if (n <= 0)
            return;
        try {
            if (EliminarElemento(s_, d_, n)) {
                if (n == cargado_)
                    Limpiar();
                Ver();
            }
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    });
    entrada("mnuElimBaja", QStringLiteral("Eliminar todos los elementos dados de baja"),
            [this] { EliminarBajas(); });
    connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = Grid1->rowAt(p.y());
        if (f >= 0)
            Grid1->selectRow(f);
        for (const char* nombre : {"mnuModificar", "mnuEliminar"})
            menu_->findChild<QAction*>(QString::fromLatin1(nombre))->setEnabled(f >= 0);
        menu_->popup(Grid1->viewport()->mapToGlobal(p));
    });
    connect(Grid1, &QTableWidget::cellDoubleClicked, this, [this](int f) { CargarFila(f); });

    connect(b.at(0), &QPushButton::clicked, this, &Form99::Anadir);
    connect(b.at(1), &QPushButton::clicked, this, &Form99::Modificar);
    connect(b.at(2), &QPushButton::clicked, this, &Form99::Eliminar);
    connect(b.at(3), &QPushButton::clicked, this, &Form99::Imprimir);
    connect(b.at(4), &QPushButton::clicked, this, &Form99::RealizarAmortizaciones);
    connect(b.at(6), &QPushButton::clicked, this, &QWidget::close);
    connect(verBoton, &QPushButton::clicked, this, &Form99::Ver);
    connect(Combo4, &QComboBox::currentTextChanged, this, [this] { alCambiarAmortizable(); });

    for (QWidget* w :
         {static_cast<QWidget*>(Text3), static_cast<QWidget*>(Text4), static_cast<QWidget*>(Text6),
          static_cast<QWidget*>(Text7), static_cast<QWidget*>(Text8), static_cast<QWidget*>(Text9),
          static_cast<QWidget*>(Text10), static_cast<QWidget*>(Text11),
          static_cast<QWidget*>(Text12), static_cast<QWidget*>(Combo2),
          static_cast<QWidget*>(Combo5), static_cast<QWidget*>(Combo6)})
        w->installEventFilter(this);
}

void Form99::llenarCentros() {
    const QString actual = Combo2->currentText();
    const QString actualVer = Combo7->currentText();
    Combo2->clear();
    Combo7->clear();
    for (const Centro& c : ListaCentros(s_)) {
        Combo2->addItem(c.Localizacion);
        Combo7->addItem(c.Localizacion);
    }
    elegirTexto(Combo2, actual);
    elegirTexto(Combo7, actualVer);
}

void Form99::llenarSubcuentas() {
    const QString amort = Combo5->currentData().toString();
    const QString dota = Combo6->currentData().toString();
    Combo5->clear();
    Combo6->clear();
    for (const SubcuentaOfrecida& c : SubcuentasAmortizacion(s_))
        Combo5->addItem(c.Cuenta, c.NCuenta);
    for (const SubcuentaOfrecida& c : SubcuentasDotacion(s_))
        Combo6->addItem(c.Cuenta, c.NCuenta);
    elegirCodigo(Combo5, amort);
    elegirCodigo(Combo6, dota);
}

void Form99::alCambiarAmortizable() {
    if (Combo4->currentText() == QLatin1String("NO")) {
        // A non-depreciable element has no depreciation subaccounts.
        Combo5->clear();
        Combo6->clear();
    } else if (Combo5->count() == 0 && Combo6->count() == 0) {
        try {
            llenarSubcuentas();
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    }
}

FichaElemento Form99::ficha() const {
    FichaElemento f;
    f.Nombre = Text2->text();
    f.Naturaleza = Combo1->currentText();
    f.FechaAdq = Text3->text();
    f.Importe = Text4->text();
    f.Proveedor = Text5->text();
    f.Localizacion = Combo2->currentText();
    f.FechaBaja = Text6->text();
    f.CausaBaja = Combo3->currentText();
    f.Amortizable = Combo4->currentText();
    f.Porcentaje = Text7->text();
    f.FinAmort = Text8->text();
    f.UltimaAmort = Text9->text();
    f.Amortizado = Text10->text();
    f.SubctaAmort = Combo5->currentData().toString();
    f.SubctaDota = Combo6->currentData().toString();
    return f;
}

void Form99::ponerFicha(const FichaElemento& f) {
    Text2->setText(f.Nombre);
    elegirTexto(Combo1, f.Naturaleza);
    Text3->setText(f.FechaAdq);
    Text4->setText(f.Importe);
    Text5->setText(f.Proveedor);
    elegirTexto(Combo2, f.Localizacion);
    Text6->setText(f.FechaBaja);
    elegirTexto(Combo3, f.CausaBaja);
    elegirTexto(Combo4, f.Amortizable);
    Text7->setText(f.Porcentaje);
    Text8->setText(f.FinAmort);
    Text9->setText(f.UltimaAmort);
    Text10->setText(f.Amortizado);
    elegirCodigo(Combo5, f.SubctaAmort);
    elegirCodigo(Combo6, f.SubctaDota);
}

void Form99::Limpiar() {
    cargado_ = 0;
    Text1->clear();
    ponerFicha({});
}

void Form99::enfocar(CampoElemento c) {
    QWidget* w = nullptr;
    switch (c) {
    case CampoElemento::Ninguno:
        return;
    case CampoElemento::Nombre:
        w = Text2;
        break;
    case CampoElemento::Naturaleza:
        w = Combo1;
        break;
    case CampoElemento::FechaAdq:
        w = Text3;
        break;
    case CampoElemento::Importe:
        w = Text4;
        break;
    case CampoElemento::Proveedor:
        w = Text5;
        break;
    case CampoElemento::Localizacion:
        w = Combo2;
        break;
    case CampoElemento::FechaBaja:
        w = Text6;
        break;
    case CampoElemento::CausaBaja:
        w = Combo3;
        break;
    case CampoElemento::Amortizable:
        w = Combo4;
        break;
    case CampoElemento::Porcentaje:
        w = Text7;
        break;
    case CampoElemento::FinAmort:
        w = Text8;
        break;
    case CampoElemento::UltimaAmort:
        w = Text9;
        break;
    case CampoElemento::Amortizado:
        w = Text10;
        break;
    case CampoElemento::SubctaAmort:
        w = Combo5;
        break;
    case CampoElemento::SubctaDota:
        w = Combo6;
        break;
    }
    w->setFocus();
}

FiltroInventario Form99::filtro() const {
    FiltroInventario f;
    for (int i = 0; i < 11; ++i)
        if (Option[i]->isChecked())
            f.ver = Vistas[i];
    f.localizacion = Combo7->currentText();
    f.desde = FechaDeTexto(Text11->text());
    f.hasta = FechaDeTexto(Text12->text());
    return f;
}

void Form99::Ver() {
    const FiltroInventario f = filtro();
    if (f.ver == VerInventario::AdquiridosEntre && (!f.desde.isValid() || !f.hasta.isValid())) {
        d_.Informar(QStringLiteral("La fecha introducida no es una fecha válida."));
        (f.desde.isValid() ? Text12 : Text11)->setFocus();
        return;
    }
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        LlenarInventario(s_, f, rejilla_);
        QApplication::restoreOverrideCursor();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        rejilla_.Vaciar();
        d_.Informar(e.mensaje());
    }
    mostrarLista();
}

void Form99::Refrescar() {
    Ver();
    if (cargado_ <= 0)
        return;
    try {
        if (const std::optional<Elemento> e = LeerElemento(s_, cargado_))
            ponerFicha(FichaDe(*e));
        else
            Limpiar();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::mostrarLista() {
    Grid1->setRowCount(0);
    Grid1->setRowCount(rejilla_.Filas());
    const int boton = rejilla_.Columnas();
    for (int f = 0; f < rejilla_.Filas(); ++f) {
        for (int c = 0; c < rejilla_.Columnas(); ++c) {
            auto* item = new QTableWidgetItem(rejilla_.Celda(f, c));
            if (rejilla_.Numerica(c))
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            Grid1->setItem(f, c, item);
        }
        auto* b = new QToolButton(Grid1);
        b->setText(QStringLiteral("..."));
        b->setAutoRaise(false);
        b->setMaximumHeight(Grid1->verticalHeader()->defaultSectionSize());
        b->setObjectName(QStringLiteral("Amortizar%1").arg(f));
        b->setToolTip(QStringLiteral("Realizar la amortización de este elemento"));
        const qint64 n = numeroDeFila(f);
        connect(b, &QToolButton::clicked, this, [this, n] {
            for (int i = 0; i < Grid1->rowCount(); ++i)
                if (numeroDeFila(i) == n) {
                    AmortizarFila(i);
                    return;
                }
        });
        Grid1->setCellWidget(f, boton, b);
    }
    Grid1->resizeColumnsToContents();
    Grid1->setColumnWidth(boton,
                          Grid1->fontMetrics().horizontalAdvance(QStringLiteral("...")) + 24);
}

qint64 Form99::numeroDeFila(int fila) const {
    if (fila < 0 || fila >= rejilla_.Filas())
        return 0;
    return rejilla_.Celda(fila, ColInvElemento).toLongLong();
}

void Form99::CargarFila(int fila) {
    const qint64 n = numeroDeFila(fila);
    if (n <= 0)
        return;
    try {
        const std::optional<Elemento> e = LeerElemento(s_, n);
        if (!e) {
            d_.Informar(
                QStringLiteral("No se encontró el elemento de Inventario en la base de datos."));
            return;
        }
        // An element may use a subaccount parked since: the lists show only those on offer.
        if (e->Amortizable && Combo5->count() == 0)
            llenarSubcuentas();
        cargado_ = n;
        Text1->setText(FormatoElemento(n));
        ponerFicha(FichaDe(*e));
        Text2->setFocus();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::Anadir() {
    try {
        const ResultadoFicha r = AnadirElemento(s_, d_, ficha());
        if (!r.hecho) {
            enfocar(r.foco);
            return;
        }
        Limpiar();
        Ver();
        for (int f = 0; f < Grid1->rowCount(); ++f)
            if (numeroDeFila(f) == r.numero)
                Grid1->selectRow(f);
        Text2->setFocus();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::Modificar() {
    try {
        FichaElemento f = ficha();
        const ResultadoFicha r = ModificarElemento(s_, d_, cargado_, f);
        // A value the user chose not to change is back in its field.
        Text9->setText(f.UltimaAmort);
        Text10->setText(f.Amortizado);
        if (!r.hecho) {
            enfocar(r.foco);
            return;
        }
        Limpiar();
        Ver();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::Eliminar() {
    const qint64 n = cargado_ > 0 ? cargado_ : numeroDeFila(Grid1->currentRow());
    if (n <= 0) {
        d_.Informar(QStringLiteral("Seleccione primero el elemento que quiere eliminar."));
        return;
    }
    try {
        if (!EliminarElemento(s_, d_, n))
            return;
        if (n == cargado_)
            Limpiar();
        Ver();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::EliminarBajas() {
    try {
        if (EliminarDadosDeBaja(s_, d_) >= 0) {
            Limpiar();
            Ver();
        }
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::Exportar() {
    ExportarConDialogo(this, rejilla_, d_);
}

void Form99::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("Invent")), a_, d_,
                        this);
    f.exec();
    const OpcionesLibro op = f.opciones();
    if (op.cancelado)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        ImpresionInventario impreso(rejilla_, empresa, op);
        OpcionesImpresion o;
        o.titulo = TituloInventario;
        o.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        o.orientacion = QPageLayout::Landscape;
        ImprimirLibro(this, impreso.Dibujo(), o);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

void Form99::AmortizarFila(int fila) {
    const qint64 n = numeroDeFila(fila);
    if (n <= 0)
        return;
    try {
        const ResultadoAmortizacion r = AmortizarElemento(s_, d_, n);
        if (!r.hecho)
            return;
        if (const std::optional<Elemento> e = LeerElemento(s_, n)) {
            const QStringList celdas = FilaInventario(*e);
            for (int c = 0; c < celdas.size(); ++c) {
                rejilla_.PonerCelda(fila, c, celdas.at(c));
                if (QTableWidgetItem* item = Grid1->item(fila, c))
                    item->setText(celdas.at(c));
            }
            if (n == cargado_)
                ponerFicha(FichaDe(*e));
        }
        Q_EMIT asientosContabilizados();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::AbrirCentros() {
    Form100 f(s_, a_, d_, this);
    f.exec();
    try {
        llenarCentros();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form99::RealizarAmortizaciones() {
    Form101 f(s_, a_, d_, this);
    connect(&f, &Form101::asientosContabilizados, this, &Form99::asientosContabilizados);
    f.exec();
    if (f.realizada())
        Refrescar();
}

void Form99::abrirCalendario(QLineEdit* campo) {
    auto* cal = new QCalendarWidget(this);
    cal->setWindowFlags(Qt::Popup);
    cal->setAttribute(Qt::WA_DeleteOnClose);
    cal->setGridVisible(true);
    const QDate escrita = FechaDeTexto(campo->text());
    cal->setSelectedDate(escrita.isValid() ? escrita : QDate::currentDate());
    connect(cal, &QCalendarWidget::clicked, this, [cal, campo](QDate f) {
        campo->setText(FormatoFecha(f, QStringLiteral("short date")));
        cal->close();
        campo->setFocus();
    });
    cal->adjustSize();
    cal->move(campo->mapToGlobal(QPoint(0, campo->height())));
    cal->show();
    cal->setFocus();
    calendario_ = cal;
}

void Form99::elegirSubcuenta(QComboBox* lista) {
    const int area = lista == Combo5 ? 0 : 6;
    const QString elegida = Form73::ElegirSubcuenta(s_, a_, d_, this, area);
    try {
        llenarSubcuentas();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    if (!elegida.isEmpty() && lista->findData(elegida) >= 0)
        elegirCodigo(lista, elegida);
}

bool Form99::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    const bool mas = k->text() == QLatin1String("+");
    if (mas && objeto == Combo2) {
        AbrirCentros();
        return true;
    }
    if (mas && (objeto == Combo5 || objeto == Combo6)) {
        elegirSubcuenta(static_cast<QComboBox*>(objeto));
        return true;
    }
    auto* e = qobject_cast<QLineEdit*>(objeto);
    if (!e)
        return QWidget::eventFilter(objeto, evento);
    if (mas && e->property(PropiedadFecha).toBool()) {
        abrirCalendario(e);
        return true;
    }
    if (e->property(PropiedadImporte).toBool() && !EsTeclaDeEdicion(k)) {
        switch (FiltrarTeclaImporte(k->text(), s_.PuntoDecimal)) {
        case TeclaImporte::Pasa:
            return false;
        case TeclaImporte::Cambia:
            e->insert(s_.PuntoDecimal ? QStringLiteral(".") : QStringLiteral(","));
            return true;
        case TeclaImporte::Rechaza:
            QApplication::beep();
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

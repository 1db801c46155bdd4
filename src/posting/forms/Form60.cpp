#include "posting/forms/Form60.h"

#include "chart/Conceptos.h"
#include "chart/Sectores.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/ImpresionCajaDia.h"
#include "posting/forms/CajasArea.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form68.h"
#include "reports/forms/FormOpcionesLibro.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QPointer<Form60> abierto;

QPushButton* boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QString::fromLatin1(nombre));
    return b;
}

} // namespace

Form60::Form60(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), tablero_(tablero), k_(s, d),
      rejilla_(RejillaCajaDia()) {
    setObjectName(QStringLiteral("Form60"));
    setWindowTitle(QStringLiteral("Quilmar [Caja del día]"));
    ElegirPasar = [this]() -> std::optional<CriterioPasar> {
        Form68 f(s_, !punteados_.isEmpty(), this);
        if (f.exec() != QDialog::Accepted)
            return std::nullopt;
        return f.criterio();
    };
    construir();
    resize(1100, 680);
    PrepararVentana(this, a, 60);
    LlenarLista();
}

Form60::~Form60() = default;

Form60* Form60::Abrir(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero) {
    if (!abierto) {
        abierto = new Form60(s, a, d, tablero, tablero);
        abierto->setAttribute(Qt::WA_DeleteOnClose);
    }
    abierto->show();
    abierto->raise();
    abierto->activateWindow();
    return abierto;
}

Form60* Form60::Abierto() {
    return abierto;
}

void Form60::construir() {
    auto* raiz = new QVBoxLayout(this);
    auto* ficha = new QGroupBox(this);
    auto* g = new QGridLayout(ficha);

    DTP1 = new QDateEdit(this);
    DTP1->setObjectName(QStringLiteral("DTP1"));
    DTP1->setCalendarPopup(true);
    DTP1->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    DTP1->setDateRange(s_.FechaIniEj, s_.FechaFinEj);
    const QDate hoy = QDate::currentDate();
    DTP1->setDate(hoy >= s_.FechaIniEj && hoy <= s_.FechaFinEj ? hoy : s_.FechaIniEj);
    Option1 = new QRadioButton(QStringLiteral("Cobro"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Pago"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Option1->setChecked(true);
    Cuenta1_ = new CajasArea(s_, a_, d_, this, QStringLiteral("Combo1"));
    Cuenta2_ = new CajasArea(s_, a_, d_, this, QStringLiteral("Combo3"));
    // The working subaccount is money: the area of cash and accounts comes chosen.
    Cuenta1_->ponerArea(QStringLiteral("1"));
    TDBN1 = new QLineEdit(this);
    TDBN1->setObjectName(QStringLiteral("TDBN1"));
    TDBN1->setAlignment(Qt::AlignRight);
    TDBN1->setMaxLength(20);
    TDBN1->setMaximumWidth(160);
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaxLength(TamanoCampo(Campo::Concepto));
    Text1->setToolTip(QStringLiteral("Escriba el número de un concepto y pulse Intro"));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setMaxLength(TamanoCampo(Campo::Documento));
    Text2->setMaximumWidth(200);
    Combo5 = new QComboBox(this);
    Combo5->setObjectName(QStringLiteral("Combo5"));
    try {
        for (const FilaSector& f : ListaSectores(s_))
            Combo5->addItem(f.Sector);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo5->addItem(QString());
    Combo5->setCurrentIndex(Combo5->count() - 1);

    auto* tipo = new QHBoxLayout;
    tipo->addWidget(Option1);
    tipo->addWidget(Option2);
    tipo->addStretch(1);
    auto etiqueta = [this](const QString& texto, QWidget* w) {
        auto* l = new QLabel(texto, this);
        l->setBuddy(w);
        return l;
    };
    g->addWidget(etiqueta(QStringLiteral("Fecha: "), DTP1), 0, 0);
    g->addWidget(DTP1, 0, 1);
    g->addLayout(tipo, 0, 2, 1, 2);
    g->addWidget(etiqueta(QStringLiteral("Cuenta de trabajo"), Cuenta1_->cajaSubcuenta()), 1, 0);
    g->addWidget(Cuenta1_, 1, 1, 1, 3);
    g->addWidget(etiqueta(QStringLiteral("Cta origen/destino"), Cuenta2_->cajaSubcuenta()), 2, 0);
    g->addWidget(Cuenta2_, 2, 1, 1, 3);
    g->addWidget(etiqueta(QStringLiteral(" Importe"), TDBN1), 3, 0);
    g->addWidget(TDBN1, 3, 1);
    g->addWidget(etiqueta(QStringLiteral("Concepto"), Text1), 4, 0);
    g->addWidget(Text1, 4, 1, 1, 3);
    g->addWidget(etiqueta(QStringLiteral(" Documento"), Text2), 5, 0);
    g->addWidget(Text2, 5, 1);
    g->addWidget(etiqueta(QStringLiteral(" Sector"), Combo5), 5, 2, Qt::AlignRight);
    g->addWidget(Combo5, 5, 3);
    g->setColumnStretch(3, 1);

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(ficha, 1);
    auto* botones = new QVBoxLayout;
    Command1 = boton(this, "Command1", QStringLiteral("&Añadir"));
    Command2 = boton(this, "Command2", QStringLiteral("&Modificar"));
    Command3 = boton(this, "Command3", QStringLiteral("&Eliminar"));
    Command4 = boton(this, "Command4", QStringLiteral("I&mprimir"));
    Command5 = boton(this, "Command5", QStringLiteral("Al &Diario"));
    Command6 = boton(this, "Command6", QStringLiteral("Ay&uda"));
    Command6->setEnabled(false); // no help pages yet
    Command7 = boton(this, "Command7", QStringLiteral("&Salir"));
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command5, Command6, Command7})
        botones->addWidget(b);
    botones->addStretch(1);
    arriba->addLayout(botones);
    raiz->addLayout(arriba);

    Grid1 = new QTableWidget(this);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->verticalHeader()->hide();
    raiz->addWidget(Grid1, 1);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    raiz->addWidget(Label1);

    for (QWidget* w : {static_cast<QWidget*>(TDBN1), static_cast<QWidget*>(Text1)})
        w->installEventFilter(this);
    connect(Command1, &QPushButton::clicked, this, &Form60::Anadir);
    connect(Command2, &QPushButton::clicked, this, &Form60::Modificar);
    connect(Command3, &QPushButton::clicked, this, &Form60::Eliminar);
    connect(Command4, &QPushButton::clicked, this, &Form60::Imprimir);
    connect(Command5, &QPushButton::clicked, this, &Form60::AlDiario);
    connect(Command7, &QPushButton::clicked, this, &QWidget::close);
    connect(Grid1, &QTableWidget::cellClicked, this, [this](int fila, int columna) {
        // The tick cell answers through its check box.
        if (columna != ColCaja::Punteo)
            CargarFila(fila);
    });
    connect(Grid1, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* i) {
        if (llenando_ || i->column() != ColCaja::Punteo)
            return;
        puntear(i->row(), i->checkState() == Qt::Checked);
    });
}

void Form60::LlenarLista() {
    QList<MovimientoCaja> movimientos;
    try {
        Conexion c = AbrirDatos(s_);
        movimientos = LeerCajaDia(c);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    // Ticks of rows that left the pad go with them.
    QSet<long> siguen;
    for (const MovimientoCaja& m : movimientos)
        if (punteados_.contains(m.Numero))
            siguen.insert(m.Numero);
    punteados_ = siguen;
    LlenarRejillaCajaDia(movimientos, rejilla_, punteados_);

    llenando_ = true;
    Grid1->clear();
    Grid1->setColumnCount(rejilla_.Columnas());
    Grid1->setHorizontalHeaderLabels(rejilla_.Titulos());
    Grid1->setRowCount(rejilla_.Filas());
    for (int f = 0; f < rejilla_.Filas(); ++f) {
        for (int c = 0; c < rejilla_.Columnas(); ++c) {
            auto* item = new QTableWidgetItem;
            if (c == ColCaja::Punteo) {
                item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
                item->setCheckState(rejilla_.Celda(f, c) == QLatin1String("-1") ? Qt::Checked
                                                                                : Qt::Unchecked);
            } else {
                item->setText(rejilla_.Celda(f, c));
                if (rejilla_.Numerica(c))
                    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            Grid1->setItem(f, c, item);
        }
    }
    for (int c = 0; c < rejilla_.Columnas(); ++c)
        Grid1->setColumnHidden(c, rejilla_.columna(c).oculta);
    Grid1->resizeColumnsToContents();
    Grid1->horizontalHeader()->setSectionResizeMode(ColCaja::Concepto, QHeaderView::Stretch);
    llenando_ = false;
    QStringList totales;
    for (const Rejilla::Total& t : rejilla_.Totales())
        totales << t.etiqueta + QStringLiteral(": ") + t.valor;
    Label1->setText(totales.join(QStringLiteral("      ")));
    habilitar();
}

void Form60::puntear(int fila, bool punteado) {
    if (fila < 0 || fila >= rejilla_.Filas())
        return;
    const long n = rejilla_.Celda(fila, ColCaja::Numero).toLong();
    if (punteado)
        punteados_.insert(n);
    else
        punteados_.remove(n);
    rejilla_.PonerCelda(fila, ColCaja::Punteo, punteado ? QStringLiteral("-1") : QString());
    llenando_ = true;
    if (QTableWidgetItem* i = Grid1->item(fila, ColCaja::Punteo))
        i->setCheckState(punteado ? Qt::Checked : Qt::Unchecked);
    llenando_ = false;
}

CamposCaja Form60::campos() const {
    CamposCaja m;
    m.fecha = DTP1->date();
    m.cobro = Option1->isChecked();
    m.ncuenta1 = Cuenta1_->ncuenta();
    m.ncuenta2 = Cuenta2_->ncuenta();
    m.importe = TDBN1->text();
    m.concepto = Text1->text();
    m.documento = Text2->text();
    m.sector = Combo5->currentText();
    return m;
}

void Form60::ponerCampos(const CamposCaja& m) {
    DTP1->setDate(m.fecha);
    (m.cobro ? Option1 : Option2)->setChecked(true);
    Cuenta1_->poner(m.ncuenta1);
    Cuenta2_->poner(m.ncuenta2);
    TDBN1->setText(m.importe);
    Text1->setText(m.concepto);
    Text2->setText(m.documento);
    const int i = Combo5->findText(m.sector.trimmed(), Qt::MatchFixedString);
    Combo5->setCurrentIndex(i >= 0 ? i : Combo5->count() - 1);
}

void Form60::CargarFila(int fila) {
    if (fila < 0 || fila >= rejilla_.Filas())
        return;
    CamposCaja m;
    m.fecha = FechaCelda(rejilla_.Celda(fila, ColCaja::Fecha));
    m.cobro = rejilla_.Celda(fila, ColCaja::CP) != QLatin1String("Pago");
    m.ncuenta1 = rejilla_.Celda(fila, ColCaja::NCuenta1);
    m.ncuenta2 = rejilla_.Celda(fila, ColCaja::NCuenta2);
    m.importe = rejilla_.Celda(fila, ColCaja::Importe);
    m.concepto = rejilla_.Celda(fila, ColCaja::Concepto);
    m.documento = rejilla_.Celda(fila, ColCaja::Documento);
    m.sector = rejilla_.Celda(fila, ColCaja::Sector);
    ponerCampos(m);
    numero_ = rejilla_.Celda(fila, ColCaja::Numero).toLong();
    habilitar();
}

void Form60::limpiar() {
    numero_ = 0;
    TDBN1->clear();
    Text1->clear();
    Text2->clear();
    Combo5->setCurrentIndex(Combo5->count() - 1);
    TDBN1->setFocus();
    habilitar();
}

void Form60::habilitar() {
    // A movement taken from the list can be changed or deleted while it is still in the pad;
    // printing and sending need a pad with something in it.
    bool sigue = false;
    for (int f = 0; f < rejilla_.Filas() && !sigue; ++f)
        sigue = rejilla_.Celda(f, ColCaja::Numero).toLong() == numero_;
    if (!sigue)
        numero_ = 0;
    Command2->setEnabled(numero_ > 0);
    Command3->setEnabled(numero_ > 0);
    Command4->setEnabled(rejilla_.Filas() > 0);
    Command5->setEnabled(rejilla_.Filas() > 0);
}

void Form60::Anadir() {
    if (!k_.Anadir(campos()))
        return;
    LlenarLista();
    // Date, kind and subaccounts stay for the next movement of the day.
    limpiar();
}

void Form60::Modificar() {
    if (numero_ <= 0) {
        d_.Informar(QStringLiteral("Seleccione en la lista el apunte que desea modificar."));
        return;
    }
    if (!k_.Modificar(numero_, campos()))
        return;
    LlenarLista();
    limpiar();
}

void Form60::Eliminar() {
    if (numero_ <= 0) {
        d_.Informar(QStringLiteral("Seleccione en la lista el apunte que desea eliminar."));
        return;
    }
    if (!k_.Eliminar(numero_))
        return;
    LlenarLista();
    limpiar();
}

void Form60::Imprimir() {
    FormOpcionesLibro f(ConfigFormOpciones(FormOpciones::FORM90, QStringLiteral("CDia")), a_, d_,
                        this);
    f.exec();
    const OpcionesLibro op = f.opciones();
    if (op.cancelado)
        return;
    try {
        const QString empresa = NombreEmpresa(s_);
        OpcionesImpresion o;
        o.titulo = TituloCajaDia;
        o.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(
            this,
            [this, empresa, op](Impresora& imp, int) {
                DibujarCajaDia(imp, rejilla_, empresa, op);
            },
            o);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

void Form60::AlDiario() {
    const std::optional<CriterioPasar> eleccion = ElegirPasar ? ElegirPasar() : std::nullopt;
    if (!eleccion)
        return;
    CriterioPasar criterio = *eleccion;
    criterio.punteadas = punteados_;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ResultadoPasar r = k_.PasarAlDiario(criterio, [](qint64, qint64) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    });
    QApplication::restoreOverrideCursor();
    if (!r.empezado)
        return;
    LlenarLista();
    if (r.pasados > 0) {
        Q_EMIT asientosContabilizados();
        if (tablero_)
            tablero_->refrescarLibros();
    }
    if (r.error.isEmpty())
        d_.Informar(r.pasados > 0
                        ? QStringLiteral("Se traspasaron al Diario %1 apuntes.").arg(r.pasados)
                        : QStringLiteral("No hay apuntes que traspasar al Diario."));
}

bool Form60::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    if (objeto == Text1 && EsIntro(k)) {
        // A number typed as the description is a predefined one.
        bool esNumero = false;
        const qint64 codigo = Text1->text().trimmed().toLongLong(&esNumero);
        if (esNumero) {
            try {
                const QString texto = TextoConcepto(s_, codigo);
                if (!texto.isEmpty()) {
                    Text1->setText(texto.left(TamanoCampo(Campo::Concepto)));
                    Text1->end(false);
                }
            } catch (const ErrorQuilmar& e) {
                d_.Informar(e.mensaje());
            }
        }
        Text2->setFocus();
        return true;
    }
    if (objeto == TDBN1 && k->text() == QLatin1String("+")) {
        // The calculator hands its result back into the amount.
        if (const Form4::GanchoCalculadora& calculadora = Form4::CalculadoraDeImporte())
            calculadora(TDBN1, QStringLiteral("F60T2"));
        return true;
    }
    if (objeto == TDBN1 && !EsTeclaDeEdicion(k)) {
        if (EsIntro(k)) {
            Text1->setFocus();
            return true;
        }
        switch (FiltrarTeclaImporte(k->text(), s_.PuntoDecimal)) {
        case TeclaImporte::Pasa:
            return false;
        case TeclaImporte::Cambia:
            TDBN1->insert(s_.PuntoDecimal ? QStringLiteral(".") : QStringLiteral(","));
            return true;
        case TeclaImporte::Rechaza:
            QApplication::beep();
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

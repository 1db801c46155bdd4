#include "posting/forms/Form4.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Iconos.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/ImprimirAsiento.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QCloseEvent>
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

int abiertos = 0;

QList<Form4::GanchoCrear>& ganchos() {
    static QList<Form4::GanchoCrear> g;
    return g;
}

// Applies the amount filter to a key press on a line edit; true when the key was handled.
bool teclaEnImporte(QLineEdit* campo, QKeyEvent* k, bool puntoDecimal, bool pitar) {
    if (EsTeclaDeEdicion(k))
        return false;
    switch (FiltrarTeclaImporte(k->text(), puntoDecimal)) {
    case TeclaImporte::Pasa:
        return false;
    case TeclaImporte::Cambia:
        campo->insert(puntoDecimal ? QStringLiteral(".") : QStringLiteral(","));
        return true;
    case TeclaImporte::Rechaza:
        // The grid complains loudly, as it always did.
        if (pitar)
            for (int i = 0; i < 10; ++i)
                QApplication::beep();
        return true;
    }
    return true;
}

// Amount cells edit in a line edit with the amount filter; the due-date and reconciliation
// columns draw their button and picture.
class DelegadoAsiento : public QStyledItemDelegate {
public:
    using Vencimientos = std::function<void(const DatosVencimientoLinea&)>;
    DelegadoAsiento(bool puntoDecimal, const Vencimientos* vencimientos, QObject* padre)
        : QStyledItemDelegate(padre), puntoDecimal_(puntoDecimal), vencimientos_(vencimientos) {}

    QWidget* createEditor(QWidget* padre, const QStyleOptionViewItem& o,
                          const QModelIndex& i) const override {
        QWidget* w = QStyledItemDelegate::createEditor(padre, o, i);
        if (i.column() == ColF4::Debe || i.column() == ColF4::Haber)
            w->installEventFilter(const_cast<DelegadoAsiento*>(this));
        return w;
    }

    void paint(QPainter* p, const QStyleOptionViewItem& o, const QModelIndex& i) const override {
        if (i.column() == ColF4::Imagen) {
            // The cell's ground (selection included), then the picture or the button text.
            QStyleOptionViewItem fondo(o);
            initStyleOption(&fondo, i);
            fondo.text.clear();
            const QWidget* w = o.widget;
            (w ? w->style() : QApplication::style())
                ->drawControl(QStyle::CE_ItemViewItem, &fondo, p, w);
            const int n = i.data(RejillaAsiento::RolImagen).toInt();
            if (n > 0) {
                const QPixmap img = ImagenDeCasacion(n);
                const QRect r =
                    QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, img.size(), o.rect);
                p->drawPixmap(r, img);
            } else {
                p->save();
                p->setPen(o.palette.color(QPalette::Disabled, QPalette::Text));
                p->drawText(o.rect, Qt::AlignCenter, QStringLiteral("..."));
                p->restore();
            }
            return;
        }
        QStyleOptionViewItem op(o);
        // The due-date button is greyed while there is no due-date screen to open.
        if (i.column() == ColF4::Venc && !*vencimientos_)
            op.palette.setColor(QPalette::Text,
                                o.palette.color(QPalette::Disabled, QPalette::Text));
        QStyledItemDelegate::paint(p, op, i);
    }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        auto* campo = qobject_cast<QLineEdit*>(objeto);
        if (campo && evento->type() == QEvent::KeyPress &&
            teclaEnImporte(campo, static_cast<QKeyEvent*>(evento), puntoDecimal_, true))
            return true;
        return QStyledItemDelegate::eventFilter(objeto, evento);
    }

private:
    bool puntoDecimal_;
    const Vencimientos* vencimientos_;
};

QLabel* etiquetaValor(QWidget* padre, Qt::Alignment alineacion) {
    auto* l = new QLabel(padre);
    l->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    l->setAlignment(alineacion | Qt::AlignVCenter);
    l->setMinimumWidth(110);
    return l;
}

} // namespace

TeclaImporte FiltrarTeclaImporte(const QString& texto, bool puntoDecimal) {
    if (texto.size() != 1)
        return TeclaImporte::Rechaza;
    const QChar c = texto.at(0);
    if (c.isDigit())
        return TeclaImporte::Pasa;
    const QChar marca = puntoDecimal ? QLatin1Char('.') : QLatin1Char(',');
    if (c == marca)
        return TeclaImporte::Pasa;
    if (c == QLatin1Char('.') || c == QLatin1Char(','))
        return TeclaImporte::Cambia;
    return TeclaImporte::Rechaza;
}

QPixmap ImagenDeCasacion(int numero) {
    // Image n is the mark n - 1: a circle for the start of a group and a square for a line
    // joined to it, hollow and orange while the group is open, filled and green once balanced.
    const int marca = std::clamp(numero, 1, 4) - 1;
    const bool inicio = marca == 0 || marca == 2;
    const bool casado = marca == 1 || marca == 2;
    const QColor c = casado ? QColor(0x2e, 0x7d, 0x32) : QColor(0xef, 0x6c, 0x00);
    QPixmap px(14, 14);
    px.fill(Qt::transparent);
    QPainter p(&px);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(c, 2));
    p.setBrush(casado ? QBrush(c) : QBrush(Qt::NoBrush));
    if (inicio)
        p.drawEllipse(QRectF(2, 2, 10, 10));
    else
        p.drawRect(QRectF(2.5, 2.5, 9, 9));
    return px;
}

Form4::Form4(Sesion& s, Ajustes& a, Dialogo& d, EstadoTablero& tablero, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), k_(s, d, tablero), pantalla_(s, a, d, this) {
    ++abiertos;
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Quilmar [Contabilizar]"));
    k_.Pantalla = &pantalla_;
    AbrirVencimientos = VencimientosDeLinea();
    if (const GanchoCalculadora& calculadora = CalculadoraDeImporte())
        AbrirCalculadora = [calculadora](QLineEdit* campo) {
            calculadora(campo, QStringLiteral("F4N1"));
        };

    Toolbar1 = new QToolBar(this);
    Toolbar1->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    BotonImprimir = Toolbar1->addAction(IconoDe(Accion::Imprimir), QStringLiteral("Imprimir"));
    PonerIcono(BotonImprimir, Accion::Imprimir);
    BotonImprimir->setEnabled(false);
    BotonLetraMas = Toolbar1->addAction(QStringLiteral("A+"));
    BotonLetraMas->setToolTip(QStringLiteral("Aumentar el tamaño de la letra"));
    BotonLetraMenos = Toolbar1->addAction(QStringLiteral("A-"));
    BotonLetraMenos->setToolTip(QStringLiteral("Reducir el tamaño de la letra"));
    BotonPeriodico = Toolbar1->addAction(IconoDe(Accion::Periodico), QStringLiteral("Periódico"));
    PonerIcono(BotonPeriodico, Accion::Periodico);
    BotonPeriodico->setEnabled(false);

    LabelNumero = new QLabel(this);
    QFont grande = LabelNumero->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() + 2);
    LabelNumero->setFont(grande);
    LabelNombre1 = etiquetaValor(this, Qt::AlignLeft);
    LabelNombre2 = etiquetaValor(this, Qt::AlignLeft);
    LabelSaldo1 = etiquetaValor(this, Qt::AlignRight);
    LabelSaldo2 = etiquetaValor(this, Qt::AlignRight);

    Date1 = new QLineEdit(this);
    Date1->setToolTip(QStringLiteral("Pulse + para ver el calendario"));
    Date1->setMaximumWidth(110);
    Combo1 = new QComboBox(this);
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    LimitarCampo(Combo1->lineEdit(), Campo::Concepto);
    Combo1->setMinimumWidth(300);
    TDBN1 = new QLineEdit(this);
    TDBN1->setAlignment(Qt::AlignRight);
    TDBN1->setMaximumWidth(140);
    Text2 = new QLineEdit(this);
    LimitarCampo(Text2, Campo::Documento);
    Text2->setMaximumWidth(160);
    Combo2 = new QComboBox(this);
    Combo2->setMinimumWidth(140);

    MSFlexGrid1 = new QTableView(this);
    MSFlexGrid1->setModel(&k_.Rejilla);
    MSFlexGrid1->setColumnHidden(ColF4::NCuenta, true);
    MSFlexGrid1->setColumnHidden(ColF4::Contra, true);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->verticalHeader()->setVisible(false);
    MSFlexGrid1->setItemDelegate(new DelegadoAsiento(s.PuntoDecimal, &AbrirVencimientos, this));
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    const int anchos[ColF4::Total] = {80, 170, 200, 90, 90, 0, 0, 80, 64, 76, 44, 36, 36, 28, 38};
    for (int i = 0; i < ColF4::Total; ++i)
        if (anchos[i] > 0)
            MSFlexGrid1->setColumnWidth(i, anchos[i]);
    MSFlexGrid1->horizontalHeader()->setStretchLastSection(false);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command3->setEnabled(false); // no help pages yet

    auto* cabecera = new QGridLayout;
    cabecera->addWidget(new QLabel(QStringLiteral("Asiento nº"), this), 0, 0);
    cabecera->addWidget(LabelNumero, 0, 1);
    cabecera->addWidget(new QLabel(QStringLiteral("Cuenta"), this), 0, 2);
    cabecera->addWidget(LabelNombre1, 0, 3);
    cabecera->addWidget(new QLabel(QStringLiteral("Saldo"), this), 0, 4);
    cabecera->addWidget(LabelSaldo1, 0, 5);
    cabecera->addWidget(new QLabel(QStringLiteral("Cuenta"), this), 1, 2);
    cabecera->addWidget(LabelNombre2, 1, 3);
    cabecera->addWidget(new QLabel(QStringLiteral("Saldo"), this), 1, 4);
    cabecera->addWidget(LabelSaldo2, 1, 5);
    cabecera->setColumnStretch(3, 1);

    auto* campos = new QGridLayout;
    const char* titulos[] = {"Fecha", "Concepto", "Importe", "Documento", "Sector"};
    QWidget* controles[] = {Date1, Combo1, TDBN1, Text2, Combo2};
    for (int i = 0; i < 5; ++i) {
        campos->addWidget(new QLabel(QString::fromUtf8(titulos[i]), this), 0, i);
        campos->addWidget(controles[i], 1, i);
    }
    campos->setColumnStretch(1, 1);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addWidget(Command3);

    auto* todo = new QVBoxLayout(this);
    todo->setMenuBar(Toolbar1);
    todo->addLayout(cabecera);
    todo->addLayout(campos);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addLayout(botones);

    // Lists, date and font.
    try {
        Combo1->addItems(ConceptosPredefinidos(s));
        Combo2->addItems(SectoresConVacio(s));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    if (Combo2->count() == 0)
        Combo2->addItem(QString());
    Combo2->setCurrentIndex(Combo2->count() - 1);
    Combo1->setCurrentIndex(-1);
    Combo1->setEditText(QString());
    Date1->setText(
        FormatoFecha(FechaInicialForm4(s, QDate::currentDate()), QStringLiteral("short date")));
    Date1->setCursorPosition(Date1->text().size());
    tamanoLetra_ =
        a_.leerNumero(QStringLiteral("FontSize"), QStringLiteral("F4"),
                      a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TLetra"), 9));
    cambiarLetra(0);

    for (QWidget* w : {static_cast<QWidget*>(Date1), static_cast<QWidget*>(Combo1),
                       static_cast<QWidget*>(Combo1->lineEdit()), static_cast<QWidget*>(TDBN1),
                       static_cast<QWidget*>(Text2), static_cast<QWidget*>(Combo2),
                       static_cast<QWidget*>(Command1)})
        w->installEventFilter(this);
    connect(Command1, &QPushButton::clicked, this, [this] { Aceptar(); });
    connect(Command2, &QPushButton::clicked, this, &QWidget::close);
    connect(BotonLetraMas, &QAction::triggered, this, [this] { cambiarLetra(0.5); });
    connect(BotonLetraMenos, &QAction::triggered, this, [this] { cambiarLetra(-0.5); });
    connect(BotonImprimir, &QAction::triggered, this, [this] {
        if (imprimir_)
            imprimir_();
    });
    // Printing the entry as it stands, through the print preview.
    FijarImprimir([this] {
        OpcionesAsientoImpreso o;
        o.numero = LabelNumero->text().remove(QLatin1Char('.')).toLong();
        o.fecha = Date1->text();
        o.fuente = a_.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"));
        o.tamano = a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
        ImprimirLibro(this, [&](Impresora& imp, int) { ImprimirAsiento(imp, k_.Rejilla, o); },
                      {QStringLiteral("Asiento"),
                       a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
    });
    connect(BotonPeriodico, &QAction::triggered, this, [this] {
        if (periodico_)
            periodico_();
    });
    connect(MSFlexGrid1, &QTableView::clicked, this, &Form4::clicEnRejilla);
    connect(&k_.Rejilla, &RejillaAsiento::celdaEditada, this, &Form4::celdaEditada);

    resize(1060, 540);
    PrepararVentana(this, a_, 4);
    Date1->setFocus();
    for (const auto& gancho : ganchos())
        gancho(*this, s_, a_, d_);
}

Form4::~Form4() {
    --abiertos;
}

bool Form4::Abierto() {
    return abiertos > 0;
}

Form4::GanchoCalculadora& Form4::CalculadoraDeImporte() {
    static GanchoCalculadora gancho;
    return gancho;
}

Form4::GanchoVencimientos& Form4::VencimientosDeLinea() {
    static GanchoVencimientos gancho;
    return gancho;
}

void Form4::AlCrear(GanchoCrear gancho) {
    ganchos() << std::move(gancho);
}

void Form4::CargarLineas(const QString& nombre1, const QString& ncuenta1, const QString& nombre2,
                         const QString& ncuenta2) {
    k_.CargarLineas(nombre1, ncuenta1, nombre2, ncuenta2);
}

void Form4::FijarModo(const QString& modo) {
    k_.Estado.Modo = modo;
}

int Form4::AnadirLinea(const QString& nombre, const QString& ncuenta) {
    const int f = k_.AnadirLinea(nombre, ncuenta);
    MSFlexGrid1->selectRow(f - 1);
    MSFlexGrid1->scrollTo(k_.Rejilla.index(f - 1, 0));
    return f;
}

void Form4::FijarNumeroAsiento(long numero) {
    LabelNumero->setText(Formato(static_cast<double>(numero), QStringLiteral("#,##0")));
}

void Form4::MostrarLineas() {
    const RejillaAsiento& r = k_.Rejilla;
    const int L = r.ultima();
    LabelNombre1->setText(r.celda(L - 1, ColF4::Cuenta));
    LabelNombre2->setText(r.celda(L, ColF4::Cuenta));
    try {
        Conexion c = AbrirDatos(s_);
        LabelSaldo1->setText(L >= 2 ? SaldoPorNaturaleza(c, r.celda(L - 1, ColF4::NCuenta))
                                    : QString());
        LabelSaldo2->setText(L >= 1 ? SaldoPorNaturaleza(c, r.celda(L, ColF4::NCuenta))
                                    : QString());
    } catch (const ErrorQuilmar&) {
        // The balances stay as they were when the books can't be read.
    }
}

void Form4::FijarOrigen(const QString& origen) {
    k_.AplicarOrigen(origen);
    MSFlexGrid1->setEditTriggers(origen == QLatin1String("F61")
                                     ? QAbstractItemView::DoubleClicked |
                                           QAbstractItemView::EditKeyPressed |
                                           QAbstractItemView::AnyKeyPressed
                                     : QAbstractItemView::NoEditTriggers);
}

void Form4::FijarHacerPeriodico(std::function<void()> accion) {
    periodico_ = std::move(accion);
    BotonPeriodico->setEnabled(static_cast<bool>(periodico_));
}

void Form4::FijarImprimir(std::function<void()> accion) {
    imprimir_ = std::move(accion);
    BotonImprimir->setEnabled(static_cast<bool>(imprimir_));
}

ResultadoAceptar Form4::Aceptar() {
    CamposForm4 c;
    c.Fecha = Date1->text();
    c.Concepto = Combo1->currentText();
    c.Importe = TDBN1->text();
    c.Documento = Text2->text();
    c.Sector = Combo2->currentText();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ResultadoAceptar r;
    try {
        r = k_.Aceptar(c);
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
        return r;
    }
    QApplication::restoreOverrideCursor();
    if (!r.fecha.isEmpty())
        Date1->setText(r.fecha);
    switch (r.tipo) {
    case ResultadoAceptar::Tipo::Aviso:
        enfocar(r.foco);
        break;
    case ResultadoAceptar::Tipo::Relleno:
    case ResultadoAceptar::Tipo::Cambio:
        MostrarLineas();
        Command1->setFocus();
        break;
    case ResultadoAceptar::Tipo::Contabilizado:
        Q_EMIT Contabilizado(r.numero);
        close();
        break;
    case ResultadoAceptar::Tipo::Abandonado:
    case ResultadoAceptar::Tipo::Fallo:
        break;
    }
    return r;
}

void Form4::enfocar(CampoForm4 campo) {
    switch (campo) {
    case CampoForm4::Fecha:
        Date1->setFocus();
        Date1->selectAll();
        break;
    case CampoForm4::Concepto:
        Combo1->setFocus();
        break;
    case CampoForm4::Importe:
        TDBN1->setFocus();
        break;
    case CampoForm4::Documento:
        Text2->setFocus();
        break;
    case CampoForm4::Sector:
        Combo2->setFocus();
        break;
    case CampoForm4::Ninguno:
        break;
    }
}

QWidget* Form4::siguiente(QObject* campo) const {
    if (campo == Date1)
        return Combo1;
    if (campo == Combo1->lineEdit())
        return TDBN1;
    if (campo == TDBN1)
        return Text2;
    if (campo == Text2)
        return Combo2;
    if (campo == Combo2)
        return Command1;
    return nullptr;
}

bool Form4::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    // An editable combo box has the focus itself and hands the keys to its line edit directly,
    // past any filter: its keys are taken here as the line edit's.
    if (objeto == Combo1)
        objeto = Combo1->lineEdit();
    if (objeto == Command1 && EsIntro(k)) {
        Command1->click();
        return true;
    }
    if (objeto == Date1 && k->text() == QLatin1String("+")) {
        abrirCalendario();
        return true;
    }
    if (objeto == TDBN1) {
        if (k->text() == QLatin1String("+")) {
            if (AbrirCalculadora)
                AbrirCalculadora(TDBN1);
            return true;
        }
        if (!EsIntro(k) && teclaEnImporte(TDBN1, k, s_.PuntoDecimal, false))
            return true;
    }
    if (!EsIntro(k))
        return QWidget::eventFilter(objeto, evento);
    if (objeto == Combo1->lineEdit()) {
        // A number stands for a predefined description.
        bool numero = false;
        Combo1->currentText().trimmed().toLongLong(&numero);
        if (numero) {
            const QString nombre = ConceptoDeCodigo(s_, Combo1->currentText());
            if (!nombre.isEmpty()) {
                Combo1->setEditText(nombre.left(TamanoCampo(Campo::Concepto)));
                Combo1->lineEdit()->setCursorPosition(Combo1->currentText().size());
                return true;
            }
        }
    }
    if (QWidget* w = siguiente(objeto)) {
        w->setFocus();
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

void Form4::abrirCalendario() {
    if (!Calendario) {
        Calendario = new QCalendarWidget(this);
        Calendario->setWindowFlags(Qt::Popup);
        Calendario->setGridVisible(true);
        connect(Calendario, &QCalendarWidget::clicked, this, [this](QDate f) {
            Date1->setText(FormatoFecha(f, QStringLiteral("short date")));
            Date1->setCursorPosition(Date1->text().size());
            Calendario->hide();
            Date1->setFocus();
        });
    }
    Calendario->setDateRange(s_.FechaIniEj, s_.FechaFinEj);
    const QDate hoy = QDate::currentDate();
    const QDate escrita = FechaDeTexto(Date1->text());
    if (hoy >= s_.FechaIniEj && hoy <= s_.FechaFinEj)
        Calendario->setSelectedDate(hoy);
    else if (escrita.isValid())
        Calendario->setSelectedDate(escrita);
    Calendario->adjustSize();
    Calendario->move(Date1->mapToGlobal(QPoint(0, Date1->height())));
    Calendario->show();
    Calendario->setFocus();
}

void Form4::cambiarLetra(double paso) {
    tamanoLetra_ = std::clamp(tamanoLetra_ + paso, 6.0, 24.0);
    QFont f = MSFlexGrid1->font();
    f.setPointSizeF(tamanoLetra_);
    MSFlexGrid1->setFont(f);
    MSFlexGrid1->verticalHeader()->setDefaultSectionSize(QFontMetrics(f).height() + 6);
    if (paso != 0)
        a_.escribir(QStringLiteral("FontSize"), QStringLiteral("F4"), tamanoLetra_);
}

void Form4::clicEnRejilla(const QModelIndex& indice) {
    if (!indice.isValid())
        return;
    const int fila = indice.row() + 1;
    if (indice.column() == ColF4::Venc) {
        if (AbrirVencimientos)
            AbrirVencimientos(VencimientoDeLinea(k_.Rejilla, fila, s_, Combo2->currentText()));
    } else if (indice.column() == ColF4::Imagen) {
        if (k_.Rejilla.celda(fila, ColF4::Casacion).trimmed().isEmpty() &&
            d_.Preguntar(QStringLiteral("Desea marcar este apunte como inicio de una casación?")))
            k_.MarcarInicioCasacion(fila);
    }
}

void Form4::celdaEditada(int fila, int col) {
    if (fila != k_.Rejilla.ultima() || (col != ColF4::Debe && col != ColF4::Haber))
        return;
    // The logic has already refused what is not an amount; an emptied cell leaves the field.
    const QString texto = k_.Rejilla.celda(fila, col).trimmed();
    if (!texto.isEmpty())
        TDBN1->setText(texto);
}

void Form4::closeEvent(QCloseEvent* e) {
    if (Calendario)
        Calendario->hide();
    QWidget::closeEvent(e);
}

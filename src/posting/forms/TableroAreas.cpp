#include "posting/forms/TableroAreas.h"

#include "chart/NCuenta.h"
#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "posting/EstadoTablero.h"
#include "posting/ImagenesTablero.h"
#include "posting/RejillaAsiento.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form64.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>

namespace {

// The drag carries the subaccount's code; what it means is the board's state.
const QString TipoArrastre = QStringLiteral("application/x-quilmar-subcuenta");

const char* const PropSuperficie = "superficieTablero";
const char* const PropArea = "areaTablero";

constexpr int AltoEtiqueta = 28;
constexpr int Margen = 7;
constexpr int AnchoTira = 22;

// The first repeat of a held arrow waits as a held key does, then the list runs.
constexpr int EsperaFlecha = 350;
constexpr int RepeticionFlecha = 55;

// The busy pointer while a drop is turned into an entry.
class Reloj {
public:
    Reloj() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Reloj() { QApplication::restoreOverrideCursor(); }
};

} // namespace

// ---- ImagenArea ---------------------------------------------------------------------------

ImagenArea::ImagenArea(int area, QWidget* padre) : QWidget(padre) {
    setObjectName(QStringLiteral("Picture1(%1)").arg(area));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setToolTip(QStringLiteral("Pulse para ver las subcuentas de %1").arg(EtiquetaArea(area)));
    Label1 = new QLabel(EtiquetaArea(area), this);
    Label1->setObjectName(QStringLiteral("Label1(%1)").arg(area));
    // The label is part of the picture for the pointer: a click or a drag over it is one on the
    // picture.
    Label1->setAttribute(Qt::WA_TransparentForMouseEvents);
    Label1->setStyleSheet(QStringLiteral(
        "QLabel { background: rgba(18, 38, 58, 185); color: white; font-weight: bold; "
        "padding: 0px 10px; border-top-left-radius: 6px; border-top-right-radius: 6px; }"));
    QFont f = Label1->font();
    f.setPointSizeF(f.pointSizeF() + 1.5);
    Label1->setFont(f);
}

void ImagenArea::setImagen(const QImage& imagen) {
    imagen_ = imagen;
    update();
}

void ImagenArea::resizeEvent(QResizeEvent*) {
    Label1->setGeometry(0, 0, width(), AltoEtiqueta);
}

void ImagenArea::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF r = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath marco;
    marco.addRoundedRect(r, 6, 6);
    p.setClipPath(marco);
    if (imagen_.isNull()) {
        p.fillRect(r, QColor(0xf4, 0xf6, 0xf8));
    } else {
        // The picture fills the place and keeps its proportions: what is left over is cut
        // evenly on both sides.
        const QSize t = imagen_.size().scaled(size(), Qt::KeepAspectRatioByExpanding);
        const QRect destino(QPoint((width() - t.width()) / 2, (height() - t.height()) / 2), t);
        p.drawImage(destino, imagen_);
    }
    p.setClipping(false);
    p.setPen(hasFocus() ? QPen(QColor(0x1f, 0x6f, 0xb2), 3) : QPen(QColor(0x8a, 0x9b, 0xab), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(hasFocus() ? r.adjusted(1, 1, -1, -1) : r, 6, 6);
}

// ---- ListaArea ----------------------------------------------------------------------------

ListaArea::ListaArea(int area, QWidget* padre) : QTableWidget(0, 2, padre), area_(area) {
    setObjectName(QStringLiteral("MSFlexGrid1(%1)").arg(area));
    horizontalHeader()->hide();
    verticalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    setColumnHidden(1, true);
    setShowGrid(false);
    setWordWrap(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    // The arrows at the side scroll a long list; the wheel still works.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setStyleSheet(QStringLiteral(
        "QTableWidget { background: white; alternate-background-color: #eef4f9; "
        "border: 1px solid #5b7a99; border-radius: 3px; selection-background-color: #1f6fb2; "
        "selection-color: white; } QTableWidget:focus { border: 2px solid #1f6fb2; }"));
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() + 1);
    setFont(f);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(f).height() + 7);
    hide();
}

void ListaArea::llenar(const QList<FilaArea>& filas) {
    clearContents();
    setRowCount(0);
    for (const FilaArea& f : filas)
        anadir(f);
}

void ListaArea::anadir(const FilaArea& fila) {
    const int r = rowCount();
    insertRow(r);
    setItem(r, 0, new QTableWidgetItem(QStringLiteral(" ") + fila.Nombre));
    setItem(r, 1, new QTableWidgetItem(fila.NCuenta));
    item(r, 0)->setData(Qt::UserRole, fila.Nombre);
}

FilaArea ListaArea::fila(int r) const {
    if (r < 0 || r >= rowCount() || !item(r, 0))
        return {};
    return {item(r, 0)->data(Qt::UserRole).toString(), item(r, 1)->text()};
}

QList<FilaArea> ListaArea::filas() const {
    QList<FilaArea> r;
    for (int i = 0; i < rowCount(); ++i)
        r << fila(i);
    return r;
}

FilaArea ListaArea::actual() const {
    return fila(currentRow());
}

int ListaArea::filasVisibles() const {
    const int alto = verticalHeader()->defaultSectionSize();
    return alto > 0 ? qMax(1, (height() - 2 * frameWidth()) / alto) : 1;
}

void ListaArea::ponerArriba(int r) {
    if (r < 0 || r >= rowCount())
        return;
    setCurrentCell(r, 0);
    scrollTo(model()->index(r, 0), QAbstractItemView::PositionAtTop);
}

// ---- AreaTablero --------------------------------------------------------------------------

AreaTablero::AreaTablero(int area, QWidget* padre) : QFrame(padre), area_(area) {
    setObjectName(QStringLiteral("Area%1").arg(area));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(150, 150);
    Picture1 = new ImagenArea(area, this);
    MSFlexGrid1 = new ListaArea(area, this);
    Picture2 = new QWidget(this);
    Picture2->setObjectName(QStringLiteral("Picture2(%1)").arg(area));
    Picture2->setAutoFillBackground(true);
    Picture2->setStyleSheet(
        QStringLiteral("QWidget#Picture2\\(%1\\) { background: #dbe5ee; border: 1px solid #5b7a99; "
                       "border-radius: 3px; }")
            .arg(area));
    Command1 = new QToolButton(Picture2);
    Command1->setObjectName(QStringLiteral("Command1(%1)").arg(area));
    Command1->setArrowType(Qt::UpArrow);
    Command1->setToolTip(QStringLiteral("Subir la lista"));
    Command2 = new QToolButton(Picture2);
    Command2->setObjectName(QStringLiteral("Command2(%1)").arg(area));
    Command2->setArrowType(Qt::DownArrow);
    Command2->setToolTip(QStringLiteral("Bajar la lista"));
    for (QToolButton* b : {Command1, Command2}) {
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoRaise(true);
    }
    Picture2->hide();
}

void AreaTablero::resizeEvent(QResizeEvent*) {
    colocar();
}

void AreaTablero::colocar() {
    Picture1->setGeometry(rect());
    QRect sitio(Margen, AltoEtiqueta + 4, width() - 2 * Margen,
                height() - AltoEtiqueta - 4 - Margen);
    // A short list takes only its rows' height, and the picture shows below it.
    const int necesario =
        MSFlexGrid1->rowCount() * MSFlexGrid1->verticalHeader()->defaultSectionSize() +
        2 * MSFlexGrid1->frameWidth() + 4;
    const bool largo = necesario > sitio.height();
    if (!largo)
        sitio.setHeight(necesario);
    MSFlexGrid1->setGeometry(sitio);
    if (largo) {
        // The name column narrows by the strip of the arrows.
        MSFlexGrid1->setGeometry(sitio.adjusted(0, 0, -(AnchoTira + 2), 0));
        Picture2->setGeometry(sitio.right() - AnchoTira + 1, sitio.top(), AnchoTira,
                              sitio.height());
        Command1->setGeometry(1, 1, AnchoTira - 2, AnchoTira + 6);
        Command2->setGeometry(1, sitio.height() - AnchoTira - 7, AnchoTira - 2, AnchoTira + 6);
    }
    Picture2->setVisible(largo && MSFlexGrid1->isVisible());
}

void AreaTablero::mostrarLista() {
    if (MSFlexGrid1->rowCount() == 0)
        return;
    MSFlexGrid1->show();
    MSFlexGrid1->raise();
    colocar();
    Picture2->raise();
    MSFlexGrid1->scrollToTop();
    MSFlexGrid1->setCurrentCell(0, 0);
}

void AreaTablero::ocultarLista() {
    MSFlexGrid1->hide();
    Picture2->hide();
}

bool AreaTablero::listaVisible() const {
    return MSFlexGrid1->isVisible();
}

// ---- TableroAreas -------------------------------------------------------------------------

TableroAreas::TableroAreas(Sesion& s, Ajustes& a, Dialogo& d, EstadoTablero& dinero, QWidget* padre)
    : QWidget(padre), s_(s), a_(a), d_(d), dinero_(dinero) {
    setObjectName(QStringLiteral("Tablero"));
    setFocusPolicy(Qt::ClickFocus);
    auto* rejilla = new QGridLayout(this);
    rejilla->setContentsMargins(12, 12, 12, 12);
    rejilla->setSpacing(12);
    for (int i = 0; i < NumeroAreas; ++i) {
        areas_[i] = new AreaTablero(i, this);
        // Four areas on the upper row, three on the lower, between them.
        rejilla->addWidget(areas_[i], i < 4 ? 0 : 1, i < 4 ? i * 2 : (i - 4) * 2 + 1, 1, 2);
        AreaTablero* ar = areas_[i];
        marcar(ar, Superficie::Otra, i);
        marcar(ar->Picture1, Superficie::Imagen, i);
        marcar(ar->MSFlexGrid1->viewport(), Superficie::Lista, i);
        // The keys of a list reach the list itself, not its viewport.
        ar->MSFlexGrid1->setProperty(PropArea, i);
        ar->MSFlexGrid1->installEventFilter(this);
        marcar(ar->Picture2, Superficie::Otra, i);
        marcar(ar->Command1, Superficie::Flecha1, i);
        marcar(ar->Command2, Superficie::Flecha2, i);
        auto* atajo = new QShortcut(QKeySequence(Qt::ALT | (Qt::Key_0 + i)), this);
        connect(atajo, &QShortcut::activated, this, [this, i] {
            if (!isVisible())
                return;
            clicImagen(i);
            if (area(i)->listaVisible())
                lista(i)->setFocus();
        });
    }
    marcar(this, Superficie::Suelo, -1);

    Text1 = new QLabel(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAttribute(Qt::WA_TransparentForMouseEvents);
    Text1->setStyleSheet(
        QStringLiteral("QLabel { background: #fff6c2; color: #1b1b1b; border: 1px solid #8a7a2a; "
                       "border-radius: 3px; padding: 3px 8px 3px 2px; font-weight: bold; }"));
    Text1->hide();

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer2 = new QTimer(this);
    Timer2->setObjectName(QStringLiteral("Timer2"));
    for (QTimer* t : {Timer1, Timer2})
        connect(t, &QTimer::timeout, this, [this, t] {
            t->setInterval(RepeticionFlecha);
            mover(t == Timer1 ? -1 : 1);
        });

    EjecutarArrastre = [](QDrag& arrastre) {
        return arrastre.exec(Qt::MoveAction);
    };
}

TableroAreas::~TableroAreas() = default;

AreaTablero* TableroAreas::area(int i) const {
    return i >= 0 && i < NumeroAreas ? areas_[i] : nullptr;
}

void TableroAreas::marcar(QWidget* w, Superficie tipo, int area) {
    w->setProperty(PropSuperficie, static_cast<int>(tipo));
    w->setProperty(PropArea, area);
    w->setAcceptDrops(true);
    w->installEventFilter(this);
}

void TableroAreas::llenar(const ListasAreas& listas) {
    for (int i = 0; i < NumeroAreas; ++i) {
        areas_[i]->MSFlexGrid1->llenar(listas[static_cast<size_t>(i)]);
        areas_[i]->colocar();
    }
    ocultarListas();
    Text1->hide();
}

void TableroAreas::anadirSubcuenta(const QString& ncuenta, const QString& nombre) {
    const int i = AreaDeCuenta(ncuenta);
    if (i < 0)
        return;
    areas_[i]->MSFlexGrid1->anadir({nombre.trimmed(), ncuenta});
    areas_[i]->colocar();
}

void TableroAreas::cargarImagenes() {
    for (int i = 0; i < NumeroAreas; ++i)
        areas_[i]->Picture1->setImagen(CargarImagenArea(s_, a_, i));
}

void TableroAreas::aplicarColor(const QColor& color) {
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, color);
    setPalette(p);
}

// ---- What the pointer and the keys do ----------------------------------------------------

void TableroAreas::ocultarListas() {
    for (AreaTablero* a : areas_)
        a->ocultarLista();
}

void TableroAreas::clicImagen(int i) {
    e_.LetraBusqueda.clear();
    for (int j = 0; j < NumeroAreas; ++j)
        if (j != i)
            areas_[j]->ocultarLista();
    areas_[i]->mostrarLista();
    pararFlechas();
}

void TableroAreas::buscarLetra(int i, const QString& letra) {
    e_.LetraBusqueda = letra;
    const int r = FilaPorLetra(lista(i)->filas(), e_.LetraBusqueda);
    lista(i)->ponerArriba(r);
    e_.LetraBusqueda.clear();
}

void TableroAreas::arrastrar(int i, int fila) {
    if (recogida_)
        cancelar();
    ListaArea* l = lista(i);
    e_.Pulsar(i);
    l->setCurrentCell(fila, 0);
    e_.SobreLista(i, l->fila(fila));

    QDrag arrastre(l->viewport());
    auto* datos = new QMimeData;
    datos->setData(TipoArrastre, e_.Origen.NCuenta.toUtf8());
    arrastre.setMimeData(datos);
    const QPixmap etiqueta = imagenTexto1();
    arrastre.setPixmap(etiqueta);
    // The label goes beside the pointer, not under it.
    arrastre.setHotSpot(QPoint(-18, etiqueta.height() / 2));
    soltado_ = false;
    pendiente_ = {-1, -1};
    // A running drag takes every key for itself; a filter set up once it runs sees the letters
    // first, to move the list under the pointer at the next movement.
    arrastrando_ = true;
    QTimer::singleShot(0, this, [this] {
        if (arrastrando_)
            qApp->installEventFilter(this);
    });
    EjecutarArrastre(arrastre);
    arrastrando_ = false;
    qApp->removeEventFilter(this);
    pararFlechas();
    if (soltado_)
        soltar(pendiente_.first, pendiente_.second);
    else
        cancelar();
}

void TableroAreas::recoger(int i) {
    ListaArea* l = lista(i);
    const int fila = l->currentRow();
    if (recogida_ || fila < 0)
        return;
    e_.Pulsar(i);
    e_.Armado = true;
    if (!e_.SobreLista(i, l->fila(fila)))
        return;
    recogida_ = true;
    mostrarTexto1(i, fila);
    Q_EMIT indicacion(QStringLiteral("Ha cogido «%1». Abra la lista de destino (Tab o Alt y el "
                                     "número del área), elija la subcuenta y pulse Intro. Esc "
                                     "para dejarla.")
                          .arg(e_.Origen.Nombre));
}

void TableroAreas::soltarEnFila(int t, int fila) {
    if (fila < 0)
        return;
    if (recogida_)
        soltar(t, fila);
    else
        clicFila(t, fila);
}

void TableroAreas::clicFila(int i, int fila) {
    // A click is a drag that ends where it began: the row is picked up and dropped on itself.
    ListaArea* l = lista(i);
    e_.Pulsar(i);
    l->setCurrentCell(fila, 0);
    e_.SobreLista(i, l->fila(fila));
    soltar(i, fila);
}

void TableroAreas::cancelar() {
    ocultarListas();
    Text1->hide();
    e_.Cancelar();
    pararFlechas();
    if (recogida_) {
        recogida_ = false;
        Q_EMIT indicacion(QString());
    }
}

void TableroAreas::sobreImagen(int i) {
    pararFlechas();
    e_.LetraBusqueda.clear();
    for (int j = 0; j < NumeroAreas; ++j)
        if (j != i && j != e_.AreaOrigen)
            areas_[j]->ocultarLista();
    // The target's list opens under the pointer, without a click.
    if (!areas_[i]->listaVisible())
        areas_[i]->mostrarLista();
}

void TableroAreas::sobreLista(int i, const QPoint& pos) {
    pararFlechas();
    ListaArea* l = lista(i);
    if (!e_.LetraBusqueda.isEmpty()) {
        l->ponerArriba(FilaPorLetra(l->filas(), e_.LetraBusqueda));
        e_.LetraBusqueda.clear();
    }
    const int fila = l->rowAt(pos.y());
    if (fila >= 0)
        l->setCurrentCell(fila, 0);
    if (i == e_.AreaOrigen && fila >= 0 && e_.SobreLista(i, l->fila(fila)))
        Text1->setText(e_.TextoFlotante());
}

AsientoAbierto TableroAreas::asientoAbierto() const {
    AsientoAbierto r;
    Form4* f = form4();
    if (!f)
        return r;
    const RejillaAsiento& g = f->Logica().Rejilla;
    const int L = g.ultima();
    r.Abierto = true;
    r.UltimaConImporte = L >= 1 && (!g.celda(L, ColF4::Debe).trimmed().isEmpty() ||
                                    !g.celda(L, ColF4::Haber).trimmed().isEmpty());
    r.Nombre1 = g.celda(1, ColF4::Cuenta);
    r.Nombre2 = g.celda(2, ColF4::Cuenta);
    return r;
}

void TableroAreas::soltar(int t, int fila) {
    const int s = e_.AreaOrigen;
    const FilaArea actualS = area(s) ? lista(s)->actual() : FilaArea{};
    const DecisionSoltar d = e_.Soltar(t, lista(t)->fila(fila), actualS, s_.EjCerrado,
                                       {dinero_.NombreDinero, dinero_.CuentaDinero},
                                       Form64::SeMuestra(a_), asientoAbierto());
    recogida_ = false;
    aplicar(d, s, t);
}

void TableroAreas::aplicar(const DecisionSoltar& d, int s, int t) {
    using Accion = DecisionSoltar::Accion;
    Text1->hide();
    pararFlechas();
    Q_EMIT indicacion(QString());
    if (d.accion == Accion::Cancelar) {
        ocultarListas();
        d_.Informar(d.Mensaje);
        return;
    }
    if (!d.Mensaje.isEmpty())
        d_.Informar(d.Mensaje);
    if (d.accion == Accion::Nada)
        return;

    Form4* f = nullptr;
    {
        Reloj reloj;
        f = d.accion == Accion::Nuevo ? abrirForm4() : form4();
        if (!f)
            return;
        if (d.accion == Accion::Nuevo) {
            const FilaArea& debe = d.Lineas.at(0);
            const FilaArea& haber = d.Lineas.at(1);
            f->CargarLineas(debe.Nombre, debe.NCuenta, haber.Nombre, haber.NCuenta);
        }
    }
    if (d.Aviso) {
        Form64 aviso(a_, this);
        aviso.exec();
    }
    {
        Reloj reloj;
        if (d.accion == Accion::Nuevo) {
            try {
                f->FijarNumeroAsiento(MaxAsiento(s_) + 1);
            } catch (const ErrorQuilmar& e) {
                d_.Informar(e.mensaje());
            }
        }
        if (d.accion == Accion::Anadir)
            for (const FilaArea& l : d.Lineas)
                f->AnadirLinea(l.Nombre, l.NCuenta);
        if (!d.Modo.isEmpty())
            f->FijarModo(d.Modo);
        f->MostrarLineas();
        if (area(s))
            area(s)->ocultarLista();
        if (area(t))
            area(t)->ocultarLista();
    }
    f->show();
    f->raise();
    f->activateWindow();
}

Form4* TableroAreas::form4() const {
    if (form4_)
        return form4_;
    // A posting screen opened by another screen is the one the board adds to.
    if (Form4::Abierto())
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* f = qobject_cast<Form4*>(w); f && f->isVisible())
                return f;
    return nullptr;
}

void TableroAreas::sesionCambiada() {
    if (empresa_ == s_.EmpresaActual && ano_ == s_.AnoActual)
        return;
    empresa_ = s_.EmpresaActual;
    ano_ = s_.AnoActual;
    cancelar();
    if (form4_)
        form4_->close();
}

Form4* TableroAreas::abrirForm4() {
    if (Form4* f = form4())
        return f;
    auto* f = new Form4(s_, a_, d_, dinero_, window());
    connect(f, &Form4::Contabilizado, this, &TableroAreas::asientoContabilizado);
    form4_ = f;
    ColocarEnZona(f, zonaLibre());
    return f;
}

QRect TableroAreas::zonaLibre() const {
    int abajo = mapToGlobal(QPoint(0, 0)).y();
    for (int i = 0; i < 4; ++i)
        abajo = qMax(abajo, areas_[i]->mapToGlobal(QPoint(0, areas_[i]->height())).y());
    const QPoint esquina = window()->mapToGlobal(QPoint(0, 0));
    return QRect(QPoint(esquina.x(), abajo + 6),
                 QPoint(esquina.x() + window()->width() - 1, esquina.y() + 100000));
}

// ---- Arrows -------------------------------------------------------------------------------

void TableroAreas::empezarFlecha(int area, int paso) {
    QTimer* t = paso < 0 ? Timer1 : Timer2;
    if (t->isActive() && e_.AreaFlechas == area)
        return;
    pararFlechas();
    e_.AreaFlechas = area;
    mover(paso);
    t->setInterval(EsperaFlecha);
    t->start();
}

void TableroAreas::pararFlechas() {
    Timer1->stop();
    Timer2->stop();
}

void TableroAreas::mover(int paso) {
    AreaTablero* a = area(e_.AreaFlechas);
    if (!a)
        return;
    QScrollBar* barra = a->MSFlexGrid1->verticalScrollBar();
    const int nuevo = barra->value() + paso;
    if (nuevo < barra->minimum() || nuevo > barra->maximum()) {
        pararFlechas();
        return;
    }
    barra->setValue(nuevo);
}

// ---- The floating label -------------------------------------------------------------------

void TableroAreas::mostrarTexto1(int area, int fila) {
    ListaArea* l = lista(area);
    Text1->setText(e_.TextoFlotante());
    Text1->adjustSize();
    const int y = l->rowViewportPosition(fila) + l->rowHeight(fila) / 2 - Text1->height() / 2;
    Text1->move(l->viewport()->mapTo(this, QPoint(50, y)));
    Text1->show();
    Text1->raise();
}

QPixmap TableroAreas::imagenTexto1() const {
    Text1->setText(e_.TextoFlotante());
    Text1->adjustSize();
    return Text1->grab();
}

// ---- Events -------------------------------------------------------------------------------

bool TableroAreas::eventFilter(QObject* objeto, QEvent* evento) {
    if (arrastrando_ && evento->type() == QEvent::KeyPress) {
        const QString texto = static_cast<QKeyEvent*>(evento)->text();
        if (texto.size() == 1 && texto.at(0).isLetter())
            e_.LetraBusqueda = texto;
        if (!objeto->isWidgetType())
            return false;
    }
    auto* w = qobject_cast<QWidget*>(objeto);
    if (!w)
        return false;
    if (evento->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(evento);
        if (auto* l = qobject_cast<ListaArea*>(w))
            return teclaEnLista(l->property(PropArea).toInt(), k);
        if (auto* img = qobject_cast<ImagenArea*>(w)) {
            const int i = img->property(PropArea).toInt();
            switch (k->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Space:
            case Qt::Key_Down:
                if (!recogida_)
                    e_.Pulsar(i);
                clicImagen(i);
                if (area(i)->listaVisible())
                    lista(i)->setFocus();
                return true;
            case Qt::Key_Escape:
                if (recogida_)
                    cancelar();
                return recogida_;
            default:
                return false;
            }
        }
        return false;
    }
    const QVariant tipo = w->property(PropSuperficie);
    if (!tipo.isValid())
        return false;
    const auto superficie = static_cast<Superficie>(tipo.toInt());
    const int i = w->property(PropArea).toInt();
    switch (evento->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return eventoDeArrastre(w, superficie, i, evento);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return eventoDeRaton(w, superficie, i, evento);
    default:
        return false;
    }
}

bool TableroAreas::eventoDeArrastre(QWidget* w, Superficie tipo, int i, QEvent* evento) {
    if (evento->type() == QEvent::DragLeave) {
        if (tipo == Superficie::Flecha1 || tipo == Superficie::Flecha2)
            pararFlechas();
        return true;
    }
    auto* e = static_cast<QDropEvent*>(evento);
    if (!e->mimeData()->hasFormat(TipoArrastre)) {
        e->ignore();
        return true;
    }
    e->setDropAction(Qt::MoveAction);
    e->accept();
    const QPoint pos = e->position().toPoint();
    if (evento->type() == QEvent::Drop) {
        // Only a row of a list takes a drop; anywhere else the drag is given up. The drop is
        // worked out once the drag has ended, so that its messages don't open inside it.
        const int fila = tipo == Superficie::Lista ? lista(i)->rowAt(pos.y()) : -1;
        soltado_ = fila >= 0;
        pendiente_ = {i, fila};
        return true;
    }
    switch (tipo) {
    case Superficie::Imagen:
        sobreImagen(i);
        break;
    case Superficie::Lista:
        sobreLista(i, pos);
        break;
    case Superficie::Flecha1:
        empezarFlecha(i, -1);
        break;
    case Superficie::Flecha2:
        empezarFlecha(i, 1);
        break;
    default:
        pararFlechas();
    }
    Q_UNUSED(w);
    return true;
}

bool TableroAreas::eventoDeRaton(QWidget* w, Superficie tipo, int i, QEvent* evento) {
    auto* m = static_cast<QMouseEvent*>(evento);
    const bool pulsa = evento->type() == QEvent::MouseButtonPress;
    const bool suelta = evento->type() == QEvent::MouseButtonRelease;
    switch (tipo) {
    case Superficie::Suelo:
        if (pulsa) {
            // A click on the ground puts every list away.
            if (recogida_)
                cancelar();
            ocultarListas();
            Text1->hide();
        }
        return false;
    case Superficie::Imagen:
        if (pulsa && m->button() == Qt::RightButton) {
            ocultarListas();
            return true;
        }
        if (pulsa && m->button() == Qt::LeftButton && !recogida_)
            e_.Pulsar(i);
        if (suelta && m->button() == Qt::LeftButton && w->rect().contains(m->position().toPoint()))
            clicImagen(i);
        return false;
    case Superficie::Flecha1:
    case Superficie::Flecha2:
        if (pulsa && m->button() == Qt::LeftButton)
            empezarFlecha(i, tipo == Superficie::Flecha1 ? -1 : 1);
        if (suelta)
            pararFlechas();
        return false;
    case Superficie::Lista: {
        ListaArea* l = lista(i);
        const QPoint pos = m->position().toPoint();
        if (evento->type() == QEvent::MouseButtonDblClick)
            return true;
        if (pulsa) {
            filaPulsada_ = -1;
            if (m->button() != Qt::LeftButton)
                return true;
            if (!recogida_)
                e_.Pulsar(i);
            l->setFocus();
            filaPulsada_ = l->rowAt(pos.y());
            areaPulsada_ = i;
            pulsacion_ = pos;
            if (filaPulsada_ >= 0)
                l->setCurrentCell(filaPulsada_, 0);
            return true;
        }
        if (evento->type() == QEvent::MouseMove) {
            if (filaPulsada_ >= 0 && areaPulsada_ == i && (m->buttons() & Qt::LeftButton) &&
                (pos - pulsacion_).manhattanLength() >= QApplication::startDragDistance()) {
                const int fila = filaPulsada_;
                filaPulsada_ = -1;
                arrastrar(i, fila);
            }
            return true;
        }
        if (suelta) {
            const int fila = filaPulsada_;
            filaPulsada_ = -1;
            if (fila >= 0 && areaPulsada_ == i && m->button() == Qt::LeftButton)
                soltarEnFila(i, fila);
            return true;
        }
        return false;
    }
    default:
        return false;
    }
}

bool TableroAreas::teclaEnLista(int i, QKeyEvent* k) {
    ListaArea* l = lista(i);
    const Qt::KeyboardModifiers mods = k->modifiers() & ~Qt::KeypadModifier;
    switch (k->key()) {
    case Qt::Key_Space:
        recoger(i);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        soltarEnFila(i, l->currentRow());
        return true;
    case Qt::Key_Escape:
        if (recogida_) {
            cancelar();
        } else {
            area(i)->ocultarLista();
            area(i)->Picture1->setFocus();
        }
        return true;
    default:
        break;
    }
    const QString texto = k->text();
    if (mods == Qt::NoModifier || mods == Qt::ShiftModifier) {
        if (texto.size() == 1 && texto.at(0).isLetter()) {
            buscarLetra(i, texto);
            return true;
        }
    }
    return false;
}

void TableroAreas::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Escape && recogida_) {
        cancelar();
        return;
    }
    QWidget::keyPressEvent(e);
}

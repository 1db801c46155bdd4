#include "posting/forms/Form86.h"

#include "journal/Casaciones.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "posting/forms/CajasArea.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form87.h"
#include "posting/forms/Form88.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Sesion.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

// The lines of the screen, with the tick as a check box and the state as a picture.
class ModeloPunteo : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void poner(QList<LineaPunteo> lineas) {
        beginResetModel();
        lineas_ = std::move(lineas);
        indice_.clear();
        for (int i = 0; i < lineas_.size(); ++i)
            indice_.insert(clave(lineas_.at(i).NAs, lineas_.at(i).NAp), i);
        endResetModel();
    }
    const QList<LineaPunteo>& lineas() const { return lineas_; }
    int fila(long nas, long nap) const { return indice_.value(clave(nas, nap), -1); }
    // A line changed: its row follows, when it is shown.
    void cambiar(const LineaPunteo& l) {
        const int f = fila(l.NAs, l.NAp);
        if (f < 0)
            return;
        lineas_[f] = l;
        Q_EMIT dataChanged(index(f, 0), index(f, ColF86::Total - 1));
    }
    void redibujar() {
        if (!lineas_.isEmpty())
            Q_EMIT dataChanged(index(0, ColF86::Casacion),
                               index(int(lineas_.size()) - 1, ColF86::Casacion));
    }

    int rowCount(const QModelIndex& p = {}) const override {
        return p.isValid() ? 0 : int(lineas_.size());
    }
    int columnCount(const QModelIndex& p = {}) const override {
        return p.isValid() ? 0 : ColF86::Total;
    }

    QVariant data(const QModelIndex& i, int rol) const override {
        if (!i.isValid() || i.row() >= lineas_.size())
            return {};
        const LineaPunteo& l = lineas_.at(i.row());
        const int c = i.column();
        if (rol == Qt::TextAlignmentRole) {
            if (c == ColF86::NAs || c == ColF86::NAp || c == ColF86::Debe || c == ColF86::Haber)
                return QVariant(int(Qt::AlignRight | Qt::AlignVCenter));
            if (c == ColF86::Punteo || c == ColF86::Casacion)
                return QVariant(int(Qt::AlignCenter));
            return {};
        }
        if (rol == Qt::CheckStateRole && c == ColF86::Punteo)
            return l.Punteo ? Qt::Checked : Qt::Unchecked;
        if (rol == Qt::DecorationRole && c == ColF86::Casacion && l.EnGrupo())
            return ImagenDeCasacion(l.CasacionN + 1);
        if (rol == Qt::ToolTipRole && c == ColF86::Casacion)
            return TextoEstadoCasacion(l);
        if (rol != Qt::DisplayRole)
            return {};
        switch (c) {
        case ColF86::NAs:
            return Formato(static_cast<double>(l.NAs), QStringLiteral("#,##0"));
        case ColF86::NAp:
            return QString::number(l.NAp);
        case ColF86::Fecha:
            return FormatoFecha(l.Fecha, QStringLiteral("short date"));
        case ColF86::Cuenta:
            return l.Cuenta;
        case ColF86::Concepto:
            return l.Concepto;
        case ColF86::Debe:
            return l.Debe != 0 ? Formato(l.Debe, QStringLiteral("standard")) : QString();
        case ColF86::Haber:
            return l.Haber != 0 ? Formato(l.Haber, QStringLiteral("standard")) : QString();
        case ColF86::Documento:
            return l.Documento;
        case ColF86::NCuenta:
            return l.NCuenta;
        case ColF86::CasacionH:
            return l.EnGrupo() ? TextoClaveCasacion(l.CasacionH) : QString();
        default:
            return {};
        }
    }

    QVariant headerData(int seccion, Qt::Orientation o, int rol) const override {
        if (o != Qt::Horizontal || rol != Qt::DisplayRole)
            return QAbstractTableModel::headerData(seccion, o, rol);
        static const char* const titulos[] = {"NAS",      "NAp",    "Fecha", "Cuenta",
                                              "Concepto", "Debe",   "Haber", "Documento",
                                              "NCuenta",  "Punteo", "Cas.",  "CasacionH"};
        return seccion >= 0 && seccion < ColF86::Total ? QString::fromUtf8(titulos[seccion])
                                                       : QVariant();
    }

    Qt::ItemFlags flags(const QModelIndex& i) const override {
        return i.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }

private:
    static qint64 clave(long nas, long nap) { return (static_cast<qint64>(nas) << 20) | nap; }

    QList<LineaPunteo> lineas_;
    QHash<qint64, int> indice_;
};

namespace {

QPointer<Form86> abierto;

} // namespace

Form86::Form86(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), a_(a), d_(d), tablero_(tablero), k_(s, d) {
    setObjectName(QStringLiteral("Form86"));
    setWindowTitle(QStringLiteral("Quilmar [Punteo y Casación]"));
    Elegir = Form87::Elegidor(this);
    VerGrupo = [this](double clave) {
        Form88 f(s_, d_, clave, this);
        f.exec();
    };
    sel_.desde = s_.FechaIniEj;
    sel_.hasta = s_.FechaFinEj;
    construir();
    crearMenu();
    resize(1240, 680); // the description keeps room beside the fixed columns
    PrepararVentana(this, a, 86);
    LlenarFlex();
}

Form86::~Form86() = default;

Form86* Form86::Abrir(Sesion& s, Ajustes& a, Dialogo& d, Form1* tablero) {
    if (!abierto) {
        abierto = new Form86(s, a, d, tablero, tablero);
        abierto->setAttribute(Qt::WA_DeleteOnClose);
        if (tablero)
            tablero->registrarLibro(abierto, QStringLiteral("Punteo"));
    }
    abierto->show();
    abierto->raise();
    abierto->activateWindow();
    return abierto;
}

Form86* Form86::Abierto() {
    return abierto;
}

void Form86::construir() {
    auto* raiz = new QVBoxLayout(this);
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Subcuenta:"), this));
    Cuenta_ = new CajasArea(s_, a_, d_, this, QStringLiteral("Combo1"), true);
    arriba->addWidget(Cuenta_, 1);
    arriba->addWidget(new QLabel(QStringLiteral("Entre"), this));
    DTPicker1 = new QDateEdit(sel_.desde, this);
    DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    arriba->addWidget(DTPicker1);
    arriba->addWidget(new QLabel(QStringLiteral("y"), this));
    DTPicker2 = new QDateEdit(sel_.hasta, this);
    DTPicker2->setObjectName(QStringLiteral("DTPicker2"));
    arriba->addWidget(DTPicker2);
    for (QDateEdit* f : {DTPicker1, DTPicker2}) {
        f->setCalendarPopup(true);
        f->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    }
    Command1 = new QPushButton(QStringLiteral("&Ver"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    arriba->addWidget(Command1);
    raiz->addLayout(arriba);

    modelo_ = new ModeloPunteo(this);
    Grid1 = new QTableView(this);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setModel(modelo_);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    Grid1->verticalHeader()->hide();
    Grid1->verticalHeader()->setDefaultSectionSize(Grid1->fontMetrics().height() + 6);
    QHeaderView* h = Grid1->horizontalHeader();
    h->setSectionResizeMode(ColF86::Concepto, QHeaderView::Stretch);
    const int ancho = Grid1->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const QList<std::pair<int, int>> anchos = {
        {ColF86::NAs, 6},    {ColF86::NAp, 4},      {ColF86::Fecha, 11},     {ColF86::Cuenta, 20},
        {ColF86::Debe, 12},  {ColF86::Haber, 12},   {ColF86::Documento, 10}, {ColF86::NCuenta, 10},
        {ColF86::Punteo, 6}, {ColF86::Casacion, 5}, {ColF86::CasacionH, 15}};
    for (const auto& [c, n] : anchos)
        Grid1->setColumnWidth(c, n * ancho + 12);
    Grid1->installEventFilter(this);
    raiz->addWidget(Grid1, 1);

    auto* abajo = new QHBoxLayout;
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    abajo->addWidget(Label1, 1);
    Command2 = new QPushButton(QStringLiteral("&Salir"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    abajo->addWidget(Command2);
    raiz->addLayout(abajo);

    connect(Command1, &QPushButton::clicked, this, [this] { llenar(); });
    connect(Command2, &QPushButton::clicked, this, &QWidget::close);
    connect(Cuenta_, &CajasArea::cambiada, this, [this] { llenar(); });
    connect(Grid1, &QTableView::clicked, this, [this](const QModelIndex& i) {
        if (i.column() == ColF86::Punteo)
            PuntearFila(i.row());
    });
    connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const QModelIndex i = Grid1->indexAt(p);
        if (i.isValid())
            seleccionarFila(i.row());
        habilitarMenu();
        mnuContexto->popup(Grid1->viewport()->mapToGlobal(p));
    });
}

void Form86::crearMenu() {
    mnuContexto = new QMenu(this);
    mnuContexto->setObjectName(QStringLiteral("mnuContexto"));
    auto nueva = [this](QMenu* menu, const char* nombre, const QString& texto, auto hacer) {
        QAction* a = menu->addAction(texto);
        a->setObjectName(QString::fromLatin1(nombre));
        connect(a, &QAction::triggered, this, hacer);
        return a;
    };
    QMenu* mnuMarcar = mnuContexto->addMenu(QStringLiteral("Marcar Casación"));
    mnuMarcar->menuAction()->setObjectName(QStringLiteral("mnuMarcar"));
    nueva(mnuMarcar, "mnuInicio", QStringLiteral("Como Inicio"), [this] { ComoInicio(); });
    nueva(mnuMarcar, "mnuFinal", QStringLiteral("Como Final"), [this] { ComoFinal(); });
    QMenu* mnuCasarDoc = mnuContexto->addMenu(QStringLiteral("Casar por Documento"));
    mnuCasarDoc->menuAction()->setObjectName(QStringLiteral("mnuCasarDoc"));
    nueva(mnuCasarDoc, "mnuDocSel", QStringLiteral("El registro seleccionado"),
          [this] { DocSeleccionado(); });
    nueva(mnuCasarDoc, "mnuDocTodos", QStringLiteral("Todos los registros"),
          [this] { DocTodos(); });
    nueva(mnuContexto, "mnuAnular", QStringLiteral("Anular Casación"), [this] { Anular(); });
    nueva(mnuContexto, "mnuComprobar", QStringLiteral("Verificar Casaciones existentes"),
          [this] { CompCasa(); });
    mnuContexto->addSeparator();
    nueva(mnuContexto, "mnuVerAs", QStringLiteral("Ver Asiento"), [this] { VerAsiento(); });
    nueva(mnuContexto, "mnuVerCas", QStringLiteral("Ver Casación"), [this] { VerCasacion(); });
    mnuContexto->addSeparator();
    QMenu* mnuSeleccionar = mnuContexto->addMenu(QStringLiteral("Seleccionar registros"));
    mnuSeleccionar->menuAction()->setObjectName(QStringLiteral("mnuSeleccionar"));
    nueva(mnuSeleccionar, "mnuVerTodos", QStringLiteral("Ver todos los registros"),
          [this] { LlenarFlex(); });
    nueva(mnuSeleccionar, "mnuVerPunteados", QStringLiteral("Ver Punteados"),
          [this] { VerPunteados(true); });
    nueva(mnuSeleccionar, "mnuVerNoPunte", QStringLiteral("Ver no Punteados"),
          [this] { VerPunteados(false); });
    nueva(mnuSeleccionar, "mnuVerCasadosT", QStringLiteral("Ver Casados totalmente"),
          [this] { VerCasado(1, 2); });
    nueva(mnuSeleccionar, "mnuVerCasadosP", QStringLiteral("Ver Casados parcialmente"),
          [this] { VerCasado(0, 3); });
    nueva(mnuSeleccionar, "mnuVerNoCasados", QStringLiteral("Ver no Casados"), [this] {
        sel_.vista = VistaPunteo::NoCasados;
        llenar();
    });
}

QAction* Form86::accion(const QString& nombre) const {
    return mnuContexto->findChild<QAction*>(nombre);
}

const QList<LineaPunteo>& Form86::lineas() const {
    return modelo_->lineas();
}

int Form86::filaDe(long nas, long nap) const {
    return modelo_->fila(nas, nap);
}

int Form86::filaActual() const {
    return Grid1->currentIndex().isValid() ? Grid1->currentIndex().row() : -1;
}

void Form86::seleccionarFila(int fila) {
    Grid1->setCurrentIndex(modelo_->index(fila, ColF86::Concepto));
    Grid1->selectRow(fila);
    habilitarMenu();
}

void Form86::habilitarMenu() {
    // What a line can take depends on whether it is in a group; the views, the verification
    // and matching every line by document need no line.
    const LineaPunteo* l = lineaActual();
    const bool libre = l && !l->EnGrupo();
    const bool enGrupo = l && l->EnGrupo();
    accion(QStringLiteral("mnuInicio"))->setEnabled(libre);
    accion(QStringLiteral("mnuFinal"))->setEnabled(libre);
    accion(QStringLiteral("mnuDocSel"))->setEnabled(libre && !l->Documento.trimmed().isEmpty());
    accion(QStringLiteral("mnuAnular"))->setEnabled(enGrupo);
    accion(QStringLiteral("mnuVerCas"))->setEnabled(enGrupo);
    accion(QStringLiteral("mnuVerAs"))->setEnabled(l != nullptr);
}

void Form86::ponerSeleccion(const QString& ncuenta, const QDate& desde, const QDate& hasta) {
    Cuenta_->poner(ncuenta);
    DTPicker1->setDate(desde);
    DTPicker2->setDate(hasta);
    llenar();
}

const LineaPunteo* Form86::lineaActual() {
    const int f = filaActual();
    return f >= 0 && f < modelo_->lineas().size() ? &modelo_->lineas().at(f) : nullptr;
}

bool Form86::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == Grid1 && evento->type() == QEvent::KeyPress) {
        const auto* k = static_cast<QKeyEvent*>(evento);
        // The space bar ticks the current line, as a click on its box does.
        if (k->key() == Qt::Key_Space && k->modifiers() == Qt::NoModifier) {
            PuntearFila(filaActual());
            return true;
        }
        if (k->key() == Qt::Key_Menu) {
            const QRect r = Grid1->visualRect(Grid1->currentIndex());
            mnuContexto->popup(Grid1->viewport()->mapToGlobal(r.center()));
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

// ---- Filling ------------------------------------------------------------------------------

void Form86::llenar() {
    sel_.ncuenta = Cuenta_->ncuenta();
    sel_.desde = DTPicker1->date();
    sel_.hasta = DTPicker2->date();
    const long nas = lineaActual() ? lineaActual()->NAs : 0;
    const long nap = lineaActual() ? lineaActual()->NAp : 0;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        Conexion c = AbrirDatos(s_);
        modelo_->poner(LeerLineasPunteo(c, sel_));
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
        return;
    }
    QApplication::restoreOverrideCursor();
    // The line the user was on stays under the cursor.
    const int f = modelo_->fila(nas, nap);
    if (f >= 0)
        seleccionarFila(f);
    mostrarTotales();
}

void Form86::mostrarTotales() {
    double debe = 0, haber = 0, debeP = 0, haberP = 0;
    for (const LineaPunteo& l : modelo_->lineas()) {
        debe += l.Debe;
        haber += l.Haber;
        if (l.Punteo) {
            debeP += l.Debe;
            haberP += l.Haber;
        }
    }
    auto f = [](double v) {
        return Formato(Centimos(v), QStringLiteral("standard"));
    };
    Label1->setText(
        QStringLiteral("Debe: %1   Haber: %2   Saldo: %3      Punteado  Debe: %4   "
                       "Haber: %5   Saldo: %6")
            .arg(f(debe), f(haber), f(debe - haber), f(debeP), f(haberP), f(debeP - haberP)));
}

void Form86::mostrarCambios(const QList<LineaPunteo>& cambiadas) {
    for (const LineaPunteo& l : cambiadas)
        modelo_->cambiar(l);
    mostrarTotales();
}

void Form86::AdImagen() {
    modelo_->redibujar();
}

void Form86::LlenarFlex() {
    sel_.vista = VistaPunteo::Todos;
    llenar();
}

void Form86::VerCasado(int a, int b) {
    const bool totalmente = (a == 1 || a == 2) && (b == 1 || b == 2);
    sel_.vista = totalmente ? VistaPunteo::CasadosTotalmente : VistaPunteo::CasadosParcialmente;
    llenar();
}

void Form86::VerPunteados(bool punteados) {
    sel_.vista = punteados ? VistaPunteo::Punteados : VistaPunteo::NoPunteados;
    llenar();
}

void Form86::Refrescar() {
    llenar();
}

// ---- Actions ------------------------------------------------------------------------------

void Form86::PuntearFila(int fila) {
    if (fila < 0 || fila >= modelo_->lineas().size())
        return;
    const LineaPunteo l = modelo_->lineas().at(fila);
    if (const std::optional<LineaPunteo> r = k_.Puntear(l.NAs, l.NAp))
        mostrarCambios({*r});
}

void Form86::ComoInicio() {
    if (const LineaPunteo* l = lineaActual())
        mostrarCambios(k_.ComoInicio(l->NAs, l->NAp));
}

void Form86::ComoFinal() {
    if (const LineaPunteo* l = lineaActual())
        mostrarCambios(k_.ComoFinal(l->NAs, l->NAp, Elegir));
}

void Form86::DocSeleccionado() {
    if (const LineaPunteo* l = lineaActual())
        mostrarCambios(k_.ComoFinal(l->NAs, l->NAp, Elegir, true));
}

void Form86::DocTodos() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const int n = k_.CasarTodosPorDocumento(sel_);
    QApplication::restoreOverrideCursor();
    if (n < 0)
        return;
    llenar();
    d_.Informar(QStringLiteral("Se casaron por documento %1 apuntes.").arg(n));
}

void Form86::Anular() {
    if (const LineaPunteo* l = lineaActual())
        mostrarCambios(k_.Anular(l->NAs, l->NAp));
}

void Form86::CompCasa() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const int n = k_.CompCasa();
    QApplication::restoreOverrideCursor();
    if (n < 0)
        return;
    llenar();
    d_.Informar(MsgProcesoTerminado);
}

void Form86::VerAsiento() {
    if (const LineaPunteo* l = lineaActual())
        ::VMAsiento(s_, a_, d_, l->NAs, tablero_);
}

void Form86::VerCasacion() {
    const LineaPunteo* l = lineaActual();
    if (!l)
        return;
    if (!l->EnGrupo()) {
        d_.Informar(MsgSinCasacion);
        return;
    }
    if (VerGrupo)
        VerGrupo(l->CasacionH);
}

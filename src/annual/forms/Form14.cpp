#include "annual/forms/Form14.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QPushButton* boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QString::fromLatin1(nombre));
    return b;
}

QComboBox* lista(QWidget* padre, const char* nombre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(QString::fromLatin1(nombre));
    return c;
}

} // namespace

Form14::Form14(Sesion& s, Ajustes& a, Dialogo& d, PlanMemoria plan, QWidget* padre)
    : QWidget(padre, Qt::Window), s_(s), d_(d), plan_(plan), ruta_(RutaFormulas(s, plan)) {
    setObjectName(plan == PlanMemoria::Nuevo ? QStringLiteral("Form107")
                                             : QStringLiteral("Form14"));
    setWindowTitle(QStringLiteral("Quilmar [Formulación Memoria]"));
    construir();
    resize(900, 560);
    PrepararVentana(this, a, 0);
    LlenarLista();
}

Form14* Form14::Abrir(Sesion& s, Ajustes& a, Dialogo& d, PlanMemoria plan, QWidget* padre) {
    try {
        if (!AsegurarFormulas(s, plan, d))
            return nullptr;
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return nullptr;
    }
    // One window per chart: a second one would rewrite the file behind the first one's list.
    static QPointer<Form14> abiertos[2];
    QPointer<Form14>& f = abiertos[plan == PlanMemoria::Nuevo ? 1 : 0];
    if (f && f->ruta_ != RutaFormulas(s, plan)) {
        f->close(); // another company or year; deleted later
        f = nullptr;
    }
    if (!f) {
        f = new Form14(s, a, d, plan, padre);
        f->setAttribute(Qt::WA_DeleteOnClose);
    }
    f->show();
    f->raise();
    f->activateWindow();
    return f;
}

void Form14::construir() {
    const bool nuevo = plan_ == PlanMemoria::Nuevo;
    auto* raiz = new QVBoxLayout(this);
    auto* arriba = new QHBoxLayout;
    auto* g = new QGridLayout;

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    SoloCifras(Text1, 3);
    Text1->setToolTip(QStringLiteral("Sólo tres cifras"));
    Text1->setMaximumWidth(60);
    Combo1 = lista(this, "Combo1");
    Combo1->addItems({TipoImporte, TipoTexto});
    Combo1->setCurrentIndex(-1);
    Combo3 = lista(this, "Combo3");
    Combo3->addItems(EjerciciosFormula());
    Combo3->setCurrentIndex(-1);
    Combo3->setVisible(nuevo);
    Combo2 = lista(this, "Combo2");
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setMaxLength(100);
    Text2->installEventFilter(this);

    auto etiqueta = [this](const QString& texto, QWidget* w) {
        auto* l = new QLabel(texto, this);
        l->setBuddy(w);
        return l;
    };
    auto* nombre = new QHBoxLayout;
    nombre->addWidget(new QLabel(QStringLiteral("F"), this));
    nombre->addWidget(Text1);
    nombre->addStretch(1);
    g->addWidget(etiqueta(QStringLiteral(" &Nombre"), Text1), 0, 0);
    g->addLayout(nombre, 0, 1);
    g->addWidget(etiqueta(QStringLiteral(" &Tipo"), Combo1), 0, 2);
    g->addWidget(Combo1, 0, 3);
    int fila = 1;
    if (nuevo) {
        g->addWidget(etiqueta(QStringLiteral("E&jercicio"), Combo3), 1, 0);
        g->addWidget(Combo3, 1, 1);
        g->addWidget(etiqueta(QStringLiteral(" &Periodo"), Combo2), 1, 2);
        g->addWidget(Combo2, 1, 3);
        fila = 2;
    } else {
        g->addWidget(etiqueta(QStringLiteral(" &Periodo"), Combo2), 1, 2);
        g->addWidget(Combo2, 1, 3);
        fila = 2;
    }
    g->addWidget(etiqueta(QStringLiteral(" C&ontenido"), Text2), fila, 0);
    g->addWidget(Text2, fila, 1, 1, 4);
    for (QComboBox* c : {Combo1, Combo2, Combo3})
        c->setMinimumWidth(140);
    g->setColumnStretch(4, 1);
    arriba->addLayout(g, 1);

    auto* botones = new QVBoxLayout;
    Command1 = boton(this, "Command1", QStringLiteral("&Añadir"));
    Command2 = boton(this, "Command2", QStringLiteral("&Modificar"));
    Command3 = boton(this, "Command3", QStringLiteral("&Eliminar"));
    Command4 = boton(this, "Command4", QStringLiteral("Ay&uda"));
    Command4->setEnabled(false); // no help pages yet
    Command5 = boton(this, "Command5", QStringLiteral("&Cancelar"));
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command5})
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
    QStringList columnas{QStringLiteral(" Nombre"), QStringLiteral(" Tipo"),
                         QStringLiteral(" Contenido"), QStringLiteral(" Periodo")};
    if (nuevo)
        columnas << QStringLiteral("Ejercicio");
    Grid1->setColumnCount(columnas.size());
    Grid1->setHorizontalHeaderLabels(columnas);
    Grid1->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    Grid1->setContextMenuPolicy(Qt::CustomContextMenu);
    raiz->addWidget(Grid1, 1);

    mnuFormulas = new QMenu(this);
    mnuFormulas->setObjectName(QStringLiteral("mnuFormulas"));
    QAction* modificar = mnuFormulas->addAction(QStringLiteral("Modificar"));
    QAction* eliminar = mnuFormulas->addAction(QStringLiteral("Eliminar"));

    connect(Combo1, &QComboBox::currentIndexChanged, this, &Form14::ponerPeriodos);
    connect(Combo3, &QComboBox::currentIndexChanged, this, &Form14::ponerPeriodos);
    connect(Command1, &QPushButton::clicked, this, &Form14::Anadir);
    connect(Command2, &QPushButton::clicked, this, &Form14::Modificar);
    connect(Command3, &QPushButton::clicked, this, &Form14::Eliminar);
    connect(Command5, &QPushButton::clicked, this, &QWidget::close);
    connect(Grid1, &QTableWidget::cellClicked, this, [this](int f, int) { CargarFila(f); });
    connect(Grid1, &QWidget::customContextMenuRequested, this, [this](const QPoint& p) {
        const int f = Grid1->rowAt(p.y());
        if (f < 0)
            return;
        Grid1->selectRow(f);
        CargarFila(f);
        mnuFormulas->popup(Grid1->viewport()->mapToGlobal(p));
    });
    connect(modificar, &QAction::triggered, this, [this] { Text2->setFocus(); });
    connect(eliminar, &QAction::triggered, this, &Form14::Eliminar);
    ponerPeriodos();
}

void Form14::ponerPeriodos() {
    const QString antes = Combo2->currentText();
    Combo2->clear();
    if (Combo1->currentText() == TipoTexto)
        Combo2->addItem(PeriodoNinguno);
    else if (Combo1->currentText() == TipoImporte)
        Combo2->addItems(plan_ == PlanMemoria::Nuevo ? PeriodosEjercicio(Combo3->currentText())
                                                     : PeriodosFormula(plan_));
    Combo2->setCurrentIndex(Combo2->findText(antes));
    if (Combo2->count() == 1)
        Combo2->setCurrentIndex(0);
}

void Form14::LlenarLista() {
    try {
        formulas_ = LeerFormulas(ruta_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        formulas_.clear();
    }
    const bool nuevo = plan_ == PlanMemoria::Nuevo;
    Grid1->setRowCount(formulas_.size());
    for (int f = 0; f < formulas_.size(); ++f) {
        const FormulaMemoria& x = formulas_[f];
        const bool texto = x.Tipo == TipoTexto;
        QStringList celdas{x.Nombre, x.Tipo, x.Contenido,
                           nuevo ? PeriodoDeGuardado(x.Periodo) : x.Periodo};
        if (nuevo)
            celdas << (texto ? QString() : EjercicioDePeriodo(x.Periodo));
        for (int c = 0; c < celdas.size(); ++c)
            Grid1->setItem(f, c, new QTableWidgetItem(celdas[c]));
    }
    Grid1->resizeColumnToContents(0);
    Grid1->resizeColumnToContents(1);
    Grid1->resizeColumnToContents(3);
}

void Form14::CargarFila(int fila) {
    if (fila < 0 || fila >= formulas_.size())
        return;
    const FormulaMemoria& x = formulas_[fila];
    cargada_ = x.Nombre;
    Text1->setText(x.Nombre.mid(1));
    Combo1->setCurrentIndex(Combo1->findText(x.Tipo));
    if (plan_ == PlanMemoria::Nuevo) {
        Combo3->setCurrentIndex(
            x.Tipo == TipoTexto ? -1 : Combo3->findText(EjercicioDePeriodo(x.Periodo)));
        ponerPeriodos();
        Combo2->setCurrentIndex(Combo2->findText(PeriodoDeGuardado(x.Periodo)));
    } else {
        ponerPeriodos();
        Combo2->setCurrentIndex(Combo2->findText(x.Periodo));
    }
    Text2->setText(x.Contenido);
}

EntradaFormula Form14::entrada() const {
    EntradaFormula e;
    e.digitos = Text1->text();
    e.tipo = Combo1->currentText();
    e.ejercicio = Combo3->currentText();
    // A text has no exercise; the 2007 screen asks one all the same, as it always has.
    e.periodo = plan_ == PlanMemoria::Nuevo
                    ? (Combo2->currentText().isEmpty()
                           ? QString()
                           : PeriodoGuardado(e.ejercicio, Combo2->currentText()))
                    : Combo2->currentText();
    e.contenido = Text2->text();
    return e;
}

bool Form14::guardar(const std::optional<QString>& anterior) {
    const EntradaFormula e = entrada();
    if (const auto error = ComprobarFormula(e, plan_)) {
        d_.Informar(error->mensaje);
        switch (error->campo) {
        case CampoFormula::Nombre:
            Text1->setFocus();
            break;
        case CampoFormula::Contenido:
            Text2->setFocus();
            break;
        case CampoFormula::Tipo:
            Combo1->setFocus();
            break;
        case CampoFormula::Ejercicio:
            Combo3->setFocus();
            break;
        case CampoFormula::Periodo:
            Combo2->setFocus();
            break;
        }
        return false;
    }
    try {
        if (!GuardarFormula(ruta_, plan_, FormulaDeEntrada(e), d_, anterior))
            return false;
    } catch (const ErrorQuilmar& x) {
        d_.Informar(x.mensaje());
        return false;
    }
    LlenarLista();
    cargada_ = FormulaDeEntrada(e).Nombre;
    return true;
}

void Form14::Anadir() {
    guardar(std::nullopt);
}

void Form14::Modificar() {
    // Nothing taken from the list: the fields name the formula to change.
    guardar(cargada_.isEmpty() ? std::nullopt : std::optional<QString>(cargada_));
}

void Form14::Eliminar() {
    QString nombre = cargada_;
    if (nombre.isEmpty() && Text1->text().size() == 3)
        nombre = QLatin1Char('F') + Text1->text();
    if (nombre.isEmpty())
        return;
    try {
        if (!EliminarFormula(ruta_, nombre, d_))
            return;
    } catch (const ErrorQuilmar& x) {
        d_.Informar(x.mensaje());
        return;
    }
    cargada_.clear();
    Text1->clear();
    Text2->clear();
    LlenarLista();
}

bool Form14::eventFilter(QObject* objeto, QEvent* evento) {
    // An amount formula is typed with brackets, operators, digits and its tokens only.
    if (objeto == Text2 && evento->type() == QEvent::KeyPress &&
        Combo1->currentText() == TipoImporte) {
        const auto* k = static_cast<QKeyEvent*>(evento);
        const QString t = k->text();
        if (!EsTeclaDeEdicion(k) && !t.isEmpty() && !std::all_of(t.begin(), t.end(), TeclaFormula))
            return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

#include "posting/forms/Form1.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Web.h"
#include "platform/forms/Iconos.h"
#include "platform/forms/Ventana.h"
#include "posting/ImagenesTablero.h"
#include "posting/LucesVencimiento.h"
#include "posting/forms/Form65.h"
#include "posting/forms/Form66.h"
#include "posting/forms/Form8.h"
#include "posting/forms/TableroAreas.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/Form19.h"
#include "store/forms/Form22.h"
#include "store/forms/Form36.h"
#include "store/forms/Form43.h"
#include "store/forms/Form54.h"
#include "store/forms/Form70.h"
#include "store/forms/Form75.h"
#include "store/forms/Portada.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

// The menus of the board, in order. Kind: 'M' a menu of the bar, 'E' an entry, '-' a separator,
// 'S' a submenu that the following 'e' entries fill until 's'. Entries whose screens don't exist
// yet are created disabled; conectarMenus() enables what is wired.
struct EntradaMenu {
    char tipo;
    const char* nombre;
    const char* texto;
};

const EntradaMenu Menus[] = {
    {'M', "mnuAcceso", "&Acceso"},
    {'E', "mnuEmpresas", "&Empresas..."},
    {'E', "mnuEjercicio", "E&jercicio..."},
    {'-', nullptr, nullptr},
    {'E', "mnuModDatos", "&Modificar datos de la Empresa..."},
    {'E', "mnuEliminarEmp", "E&liminar Empresa..."},
    {'-', nullptr, nullptr},
    {'E', "mnuClaves", "&Claves de acceso..."},
    {'E', "mnuConfigurar", "C&onfiguración..."},
    {'-', nullptr, nullptr},
    {'S', "mnuCopia_Seguridad", "Copias de &seguridad"},
    {'e', "mnuCopia", "Realizar Copia de &seguridad"},
    {'e', "mnuRestaurar", "Restaurar desde Copia"},
    {'e', "mnuCompactar", "Compactar Base de datos"},
    {'s', nullptr, nullptr},
    {'E', "mnuReorganizar", "&Reorganización de Datos..."},
    {'E', "mnuAdaptar", "&Adaptación al nuevo Plan General de Contabilidad..."},
    {'-', nullptr, nullptr},
    {'E', "mnuSalir", "&Salir"},

    {'M', "mnuCuentas", "&Cuentas"},
    {'E', "mnuGC", "&Gestión de Cuentas..."},
    {'E', "mnuAparcar", "&Aparcar Subcuentas..."},
    {'E', "mnuTipos", "&Tipos de IVA..."},
    {'E', "mnuSector", "&Sectores..."},
    {'E', "mnuConceptos", "&Conceptos predefinidos..."},
    {'-', nullptr, nullptr},
    {'E', "mnuImg", "&Imágenes y color..."},

    {'M', "mnuContabilidad", "C&ontabilidad"},
    {'E', "mnuImagenes", "&Contabilizar"},
    {'-', nullptr, nullptr},
    {'E', "mnuAsientos", "&Gestión de Asientos..."},
    {'E', "mnuPredisenados", "Asientos &prediseñados..."},
    {'E', "mnuPeriodicos", "Asientos pe&riódicos..."},
    {'E', "mnuCaja", "Caja del &día..."},
    {'-', nullptr, nullptr},
    {'E', "mnuEliminarAs", "&Eliminar Asientos..."},
    {'E', "mnuBuscarAs", "&Buscar Asiento..."},
    {'E', "mnuRenumerar", "&Renumerar Diario..."},
    {'-', nullptr, nullptr},
    {'E', "mnuPunteo", "P&unteo y Casación..."},
    {'E', "mnuVencimientos", "&Vencimientos..."},

    {'M', "mnuListados", "&Listados"},
    {'E', "mnuVerDiario", "&Diario..."},
    {'E', "mnuSumas", "&Sumas y Saldos..."},
    {'E', "mnuMayor", "&Mayor..."},
    {'E', "mnuMovimientos", "Movimientos de una S&ubcuenta..."},
    {'-', nullptr, nullptr},
    {'E', "mnuIngGas", "&Ingresos y Gastos..."},
    {'E', "mnuListaIG", "&Lista de Ingresos y Gastos..."},
    {'E', "mnuIGmeses", "Ingresos y Gastos por me&ses..."},
    {'E', "mnuES", "&Comparación entre años..."},
    {'E', "mnuGráficos", "&Gráficos..."},
    {'-', nullptr, nullptr},
    {'E', "mnuLIngresos", "Libro de I&ngresos..."},
    {'E', "mnuLGastos", "Libro de G&astos..."},
    {'E', "mnuLExpedidas", "Libro de Facturas &Expedidas..."},
    {'E', "mnuLRecibidas", "Libro de Facturas &Recibidas..."},

    {'M', "mnuAnuales", "Cuentas A&nuales"},
    {'E', "mnuSituacion", "&Balance de Situación..."},
    {'E', "mnuPyG", "Cuenta de &Pérdidas y Ganancias..."},
    {'-', nullptr, nullptr},
    {'E', "mnuMemNueva", "&Nueva Memoria..."},
    {'E', "mnuMemElaborar", "&Elaborar modelo de Memoria..."},
    {'E', "mnuMemVer", "&Ver Memoria..."},
    {'E', "mnuFormulas", "&Fórmulas de la Memoria..."},

    {'M', "mnuImpuestos", "&Impuestos"},
    {'E', "mnuM300", "Modelo &303..."},
    {'E', "mnuM130", "Modelo &130..."},
    {'E', "mnuM115", "Modelo 11&5..."},
    {'E', "mnuM347", "Modelo &347..."},

    {'M', "mnuUtilidades", "&Utilidades"},
    {'E', "mnuInventario", "&Inventario..."},
    {'E', "mnuAmortizaciones", "&Amortizaciones..."},
    {'S', "mnuPresupuestos", "&Presupuestos"},
    {'e', "mnuCrearP", "&Crear presupuesto..."},
    {'e', "mnuModificarP", "&Modificar presupuesto..."},
    {'e', "mnuAbrir", "C&omparar presupuesto..."},
    {'s', nullptr, nullptr},
    {'-', nullptr, nullptr},
    {'E', "mnuAvisos", "A&visos..."},
    {'E', "mnuCalendario", "Ca&lendario de Avisos..."},
    {'E', "mnuCalculadora", "Calculadora &financiera..."},

    {'M', "mnuAyudaMenu", "Ay&uda"},
    {'E', "mnuAyuda", "&Contenido"},
    {'E', "mnuAyudante", "Ayuda para &empezar..."},
    {'E', "mnuBienvenida", "Pantalla de &bienvenida"},
};

// The toolbar, by button index. A button without a menu entry of its own has a name of its own.
struct BotonBarra {
    int indice;
    const char* nombre; // nullptr: a separator
    const char* texto;
    Accion icono;
};

const BotonBarra Botones[] = {
    {1, "mnuSalir", "Salir", Accion::Salir},
    {2, "mnuGC", "Cuentas", Accion::Cuentas},
    {3, nullptr, nullptr, Accion::Salir},
    {4, "mnuImagenes", "Imágenes", Accion::Imagenes},
    {5, "mnuAsientos", "Asientos", Accion::Asientos},
    {6, "mnuVerDiario", "Diario", Accion::Diario},
    {7, "mnuSumas", "Sumas y Saldos", Accion::SumasSaldos},
    {8, "mnuMayor", "Mayor", Accion::Mayor},
    {9, nullptr, nullptr, Accion::Salir},
    {10, "mnuRenumerar", "Renumerar", Accion::Renumerar},
    {11, "mnuVencimientos", "Vencimientos", Accion::Vencimientos},
    {12, nullptr, nullptr, Accion::Salir},
    {13, "mnuMovimientos", "Movimientos", Accion::Movimientos},
    {14, "mnuIngGas", "Ingresos y Gastos", Accion::IngresosGastos},
    {15, "mnuIGmeses", "Por meses", Accion::PorMeses},
    {16, "mnuAvisos", "Avisos", Accion::Avisos},
    {17, "mnuCalculadora", "Calculadora", Accion::Calculadora},
    {18, "btnBancos", "Bancos", Accion::Bancos},
    {19, nullptr, nullptr, Accion::Salir},
    {20, "mnuAyuda", "Ayuda", Accion::Ayuda},
};

// The year box: light green for an open exercise, light orange for a closed one.
const QColor ColorAbierto(0xC0, 0xFF, 0xC0);
const QColor ColorCerrado(0xFF, 0xE0, 0xC0);

// The list of bank pages stays this long unless a page is chosen.
constexpr int EsperaBancos = 10000;
// The first-use question comes once the board has settled.
constexpr int EsperaAyudante = 2500;

// What the status bar says while the board is in sight and nothing else is under way.
const QString AyudaTablero =
    QStringLiteral("Pulse sobre una imagen para ver sus subcuentas y arrastre una subcuenta sobre "
                   "otra: desde donde sale el dinero hasta donde va.");

} // namespace

Form1::Form1(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QMainWindow(padre), s_(s), a_(a), d_(d) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Quilmar [Principal] "));
    crearMenus();
    crearBarra();
    crearCentro();
    Timer3 = new QTimer(this);
    Timer3->setObjectName(QStringLiteral("Timer3"));
    Timer3->setSingleShot(true);
    Timer3->setInterval(1500);
    connect(Timer3, &QTimer::timeout, this, &Form1::finTimer3);
    Timer4 = new QTimer(this);
    Timer4->setObjectName(QStringLiteral("Timer4"));
    Timer4->setSingleShot(true);
    Timer4->setInterval(EsperaBancos);
    connect(Timer4, &QTimer::timeout, this, [this] { List1->hide(); });
    Timer5 = new QTimer(this);
    Timer5->setObjectName(QStringLiteral("Timer5"));
    Timer5->setSingleShot(true);
    Timer5->setInterval(EsperaAyudante);
    connect(Timer5, &QTimer::timeout, this, &Form1::finTimer5);
    conectarMenus();
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    // Keys of the whole board, whichever of its controls has the focus.
    qApp->installEventFilter(this);
    resize(1024, 700);
}

void Form1::crearMenus() {
    QMenu* menu = nullptr;
    QMenu* sub = nullptr;
    for (const EntradaMenu& e : Menus) {
        const QString nombre = QString::fromUtf8(e.nombre ? e.nombre : "");
        const QString texto = QString::fromUtf8(e.texto ? e.texto : "");
        switch (e.tipo) {
        case 'M':
            menu = menuBar()->addMenu(texto);
            menu->setObjectName(nombre);
            break;
        case 'S':
            sub = menu->addMenu(texto);
            sub->setObjectName(nombre);
            break;
        case 's':
            sub = nullptr;
            break;
        case '-':
            menu->addSeparator();
            break;
        default: {
            auto* accion = new QAction(texto, this);
            accion->setObjectName(nombre);
            accion->setEnabled(false);
            (e.tipo == 'e' && sub ? sub : menu)->addAction(accion);
        }
        }
    }
    accion(QStringLiteral("mnuImagenes"))->setCheckable(true);
}

void Form1::crearBarra() {
    auto* barra = addToolBar(QStringLiteral("Herramientas"));
    barra->setObjectName(QStringLiteral("Toolbar1"));
    barra->setMovable(false);
    barra->setToolButtonStyle(Qt::ToolButtonIconOnly);
    barra->setIconSize(QSize(28, 28));
    botones_.fill(nullptr, 21);
    for (const BotonBarra& b : Botones) {
        if (!b.nombre) {
            botones_[b.indice] = barra->addSeparator();
            continue;
        }
        QAction* a = accion(QString::fromUtf8(b.nombre));
        if (!a) {
            a = new QAction(QString::fromUtf8(b.texto), this);
            a->setObjectName(QString::fromUtf8(b.nombre));
            a->setEnabled(false);
        }
        a->setIconText(QString::fromUtf8(b.texto));
        PonerIcono(a, b.icono);
        barra->addAction(a);
        botones_[b.indice] = a;
    }

    // The exercise box and the two due-date lights stand at the right of the toolbar.
    auto* hueco = new QWidget;
    hueco->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    barra->addWidget(hueco);
    auto* panel = new QWidget;
    auto* rejilla = new QGridLayout(panel);
    rejilla->setContentsMargins(6, 2, 6, 2);
    auto* etiqueta = new QLabel(QStringLiteral("Ejercicio:"));
    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(90);
    Command4 = new QPushButton(QStringLiteral("Cobros"));
    Command4->setObjectName(QStringLiteral("Command4"));
    Command5 = new QPushButton(QStringLiteral("Pagos"));
    Command5->setObjectName(QStringLiteral("Command5"));
    // The lights are painted and answer clicks once due dates exist.
    Command4->setEnabled(false);
    Command5->setEnabled(false);
    rejilla->addWidget(etiqueta, 0, 0);
    rejilla->addWidget(Combo1, 0, 1);
    rejilla->addWidget(Command4, 1, 0);
    rejilla->addWidget(Command5, 1, 1);
    barra->addWidget(panel);
    connect(Combo1, &QComboBox::activated, this, &Form1::anoElegido);
    colorearEjercicio();
}

void Form1::crearCentro() {
    centro_ = new QStackedWidget;
    centro_->setObjectName(QStringLiteral("Centro"));

    tablero_ = new TableroAreas(s_, a_, d_, dinero_);
    for (int i = 0; i < 7; ++i)
        areas_[i] = tablero_->area(i);
    connect(tablero_, &TableroAreas::asientoContabilizado, this, [this] {
        asientoHecho_ = true;
        refrescarLibros();
    });
    connect(tablero_, &TableroAreas::indicacion, this, &Form1::indicar);

    Picture4 = new QWidget;
    Picture4->setObjectName(QStringLiteral("Picture4"));
    Picture4->setAutoFillBackground(true);
    QPalette fondo = Picture4->palette();
    fondo.setColor(QPalette::Window, QColor(0x1f, 0x4e, 0x79));
    Picture4->setPalette(fondo);
    Picture4->setCursor(Qt::PointingHandCursor);
    Image2 = new QLabel;
    Image2->setObjectName(QStringLiteral("Image2"));
    Image2->setPixmap(ImagenPortada(QSize(640, 360)));
    Image2->setAlignment(Qt::AlignCenter);
    auto* columna = new QVBoxLayout(Picture4);
    columna->addWidget(Image2, 0, Qt::AlignCenter);
    Picture4->installEventFilter(this);
    Image2->installEventFilter(this);

    centro_->addWidget(tablero_);
    centro_->addWidget(Picture4);
    centro_->setCurrentWidget(Picture4);
    setCentralWidget(centro_);

    // The bank pages drop down under their button.
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setStyleSheet(
        QStringLiteral("QListWidget#List1 { background: white; border: 1px solid #5b7a99; } "
                       "QListWidget#List1::item { padding: 4px 10px; } "
                       "QListWidget#List1::item:hover { background: #dbe8f4; }"));
    List1->setMouseTracking(true);
    List1->hide();
    List2 = new QListWidget(this);
    List2->setObjectName(QStringLiteral("List2"));
    List2->hide();
    connect(List1, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const int i = List1->row(item);
        List1->hide();
        Timer4->stop();
        if (i >= List2->count())
            abrirPaginasWeb();
        else
            AbrirWeb(List2->item(i)->text(), d_, AbrirDireccion);
    });
}

// Every menu entry and button whose screen exists is wired here.
void Form1::conectarMenus() {
    Conectar(QStringLiteral("mnuEmpresas"), [this] {
        if (!AccesoEmpresas())
            close();
    });
    Conectar(QStringLiteral("mnuEjercicio"), [this] { abrirEjercicios(); });
    Conectar(QStringLiteral("mnuModDatos"), [this] { abrirModificarEmpresa(); });
    Conectar(QStringLiteral("mnuEliminarEmp"), [this] { abrirEliminarEmpresa(); });
    Conectar(QStringLiteral("mnuClaves"), [this] { abrirUsuarios(); });
    Conectar(QStringLiteral("mnuConfigurar"), [this] { abrirConfiguracion(); });
    Conectar(QStringLiteral("mnuSalir"), [this] { close(); });
    Conectar(QStringLiteral("mnuImagenes"), [this] { AlternarPortada(); });
    Conectar(QStringLiteral("mnuBienvenida"), [this] { abrirBienvenida(); });
    Conectar(QStringLiteral("mnuImg"), [this] { abrirImagenes(); });
    Conectar(QStringLiteral("mnuAyudante"), [this] { abrirAyudante(); });
    Conectar(QStringLiteral("btnBancos"), [this] { MostrarBancos(); });
    connect(Command4, &QPushButton::clicked, this, [this] {
        if (AbrirVencimientos)
            AbrirVencimientos(QStringLiteral("Cobro"));
    });
    connect(Command5, &QPushButton::clicked, this, [this] {
        if (AbrirVencimientos)
            AbrirVencimientos(QStringLiteral("Pago"));
    });
}

QAction* Form1::accion(const QString& nombre) const {
    return findChild<QAction*>(nombre, Qt::FindDirectChildrenOnly);
}

QAction* Form1::boton(int indice) const {
    return indice > 0 && indice < botones_.size() ? botones_.at(indice) : nullptr;
}

void Form1::Conectar(const QString& nombre, std::function<void()> hacer) {
    QAction* a = accion(nombre);
    if (!a) {
        qWarning("Form1: no existe la entrada de menú %s", qPrintable(nombre));
        return;
    }
    a->setEnabled(true);
    connect(a, &QAction::triggered, this, [hacer = std::move(hacer)] { hacer(); });
}

QFrame* Form1::area(int i) const {
    return i >= 0 && i < 7 ? areas_[i] : nullptr;
}

void Form1::Cargar() {
    s_.EscalaBoard = 1.0;
    QDir::setCurrent(s_.AppPath);
    a_.escribir(QStringLiteral("Valores"), QStringLiteral("DateF76"), QString());
    const QString valores = QStringLiteral("Valores");
    s_.NombreLetra = a_.leer(valores, QStringLiteral("NLetra"));
    s_.TamanoLetra = static_cast<qint16>(a_.leerNumero(valores, QStringLiteral("TLetra"), 9));
    s_.NombreImprimir = a_.leer(valores, QStringLiteral("NFImprimir"));
    s_.TamanoImprimir =
        static_cast<qint16>(a_.leerNumero(valores, QStringLiteral("TFImprimir"), 9));
    s_.CArea = a_.leer(valores, QStringLiteral("CArea"));
    PrepararVentana(this, a_);
    AplicarImagenes();
    AplicarColor(ColorTablero(a_));
    s_.CambioPeseta = CambioPesetaEuro;
    s_.PuntoDecimal = DetectarPuntoDecimal();
}

bool Form1::AccesoEmpresas() {
    QFile::remove(s_.rutaNemp());
    Form70 f(s_, a_, d_, this);
    f.exec();
    switch (f.resultado()) {
    case Form70::Seleccionada:
        aplicarSeleccion(f.nombreEmpresa(), f.anosEmpresa());
        return true;
    case Form70::Terminar:
        return false;
    case Form70::Cerrada:
        break;
    }
    return true;
}

void Form1::TrasAcceso() {
    Timer3->start();
    ColorVenc();
    Timer5->start();
    Q_EMIT cargaTerminada();
}

void Form1::aplicarSeleccion(const QString& nombre, const QList<int>& anos) {
    nombre_ = nombre;
    Combo1->clear();
    for (int ano : anos)
        Combo1->addItem(QString::number(ano), ano);
    Refrescar();
}

void Form1::Refrescar() {
    const int i = Combo1->findData(static_cast<int>(s_.AnoActual));
    if (i < 0 && s_.AnoActual != 0)
        Combo1->addItem(QString::number(s_.AnoActual), static_cast<int>(s_.AnoActual));
    Combo1->setCurrentIndex(Combo1->findData(static_cast<int>(s_.AnoActual)));
    colorearEjercicio();
    ponerTitulo();
    tablero_->sesionCambiada();
    LlenarAreas();
    ColorVenc();
    Q_EMIT sesionCambiada();
}

void Form1::LlenarAreas() {
    s_.UltimaSubcuenta = 0;
    if (s_.EmpresaActual.isEmpty()) {
        tablero_->llenar({});
        return;
    }
    tablero_->llenar(::LlenarAreas(s_, d_));
}

void Form1::AnadirSubcuenta(const QString& ncuenta, const QString& nombre) {
    tablero_->anadirSubcuenta(ncuenta, nombre);
}

void Form1::ponerTitulo() {
    if (nombre_.isEmpty())
        setWindowTitle(QStringLiteral("Quilmar [Principal] "));
    else if (boardVisible_)
        setWindowTitle(QStringLiteral("Quilmar [Contabilizar] ") + nombre_);
    else
        setWindowTitle(QStringLiteral("Quilmar Pro ") + nombre_);
}

void Form1::colorearEjercicio() {
    const QColor c = s_.EjCerrado ? ColorCerrado : ColorAbierto;
    // A flat fill: the style's own shading would lighten the colour that tells the state.
    Combo1->setStyleSheet(
        QStringLiteral("QComboBox#Combo1 { background-color: %1; color: black; border: 1px solid "
                       "#7a7a7a; border-radius: 2px; padding: 1px 4px; }")
            .arg(c.name()));
}

void Form1::anoElegido(int indice) {
    const int ano = Combo1->itemData(indice).toInt();
    if (ano == s_.AnoActual)
        return;
    bool hecho = false;
    try {
        hecho = CambiarEjercicio(s_, a_, d_, ano, false);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    if (!hecho) {
        // The year stays the one that could be opened.
        Combo1->setCurrentIndex(Combo1->findData(static_cast<int>(s_.AnoActual)));
        return;
    }
    Refrescar();
}

void Form1::AlternarPortada() {
    boardVisible_ = !boardVisible_;
    if (!boardVisible_)
        tablero_->cancelar();
    centro_->setCurrentIndex(boardVisible_ ? 0 : 1);
    accion(QStringLiteral("mnuImagenes"))->setChecked(boardVisible_);
    indicar({});
    if (boardVisible_)
        setWindowTitle(QStringLiteral("Quilmar [Contabilizar] ") + nombre_);
    else
        setWindowTitle(QStringLiteral("Quilmar [Principal] ") + nombre_);
}

bool Form1::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && objeto->isWidgetType()) {
        // Each key is looked at once, where it is first delivered: the control with the focus.
        auto* w = static_cast<QWidget*>(objeto);
        QWidget* foco = QApplication::focusWidget();
        if (w->window() == this && w == (foco ? foco : this) &&
            teclaDelTablero(static_cast<QKeyEvent*>(evento)))
            return true;
    }
    if ((objeto == Picture4 || objeto == Image2) && evento->type() == QEvent::MouseButtonRelease) {
        AlternarPortada();
        return true;
    }
    return QMainWindow::eventFilter(objeto, evento);
}

void Form1::abrirEjercicios() {
    Form22 f(s_, a_, d_, this);
    connect(&f, &Form22::anoCreado, this, [this](int ano) {
        if (Combo1->findData(ano) < 0)
            Combo1->addItem(QString::number(ano), ano);
    });
    connect(&f, &Form22::anoEliminado, this, [this](int ano) {
        const int i = Combo1->findData(ano);
        if (i >= 0)
            Combo1->removeItem(i);
    });
    connect(&f, &Form22::ejercicioCambiado, this, &Form1::Refrescar);
    f.exec();
}

void Form1::abrirModificarEmpresa() {
    Form75 f(s_, a_, d_, this);
    connect(&f, &Form75::datosGuardados, this, [this](const QString& nombre) {
        nombre_ = nombre;
        Refrescar();
    });
    f.exec();
}

void Form1::abrirEliminarEmpresa() {
    Form19 f(s_, a_, d_, this);
    f.exec();
}

void Form1::abrirUsuarios() {
    Form43 f(s_, a_, d_, this);
    f.exec();
}

void Form1::abrirConfiguracion() {
    Form54 f(s_, a_, d_, this);
    connect(&f, &Form54::areaCambiada, this, [this] { LlenarAreas(); });
    f.exec();
}

void Form1::abrirBienvenida() {
    auto* f = new Form36(a_, this);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
}

void Form1::finTimer3() {
    if (splash_)
        splash_->close();
    if (Form36::SeMuestra(a_))
        abrirBienvenida();
}

void Form1::closeEvent(QCloseEvent* e) {
    // Closing the board closes every other window, and with the last window the program ends.
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible())
            w->close();
    e->accept();
}

void Form1::registrarLibro(QWidget* ventana, const QString& tipo) {
    libros_ << qMakePair(QPointer<QWidget>(ventana), tipo);
    ColocarEnZona(ventana, tablero()->zonaLibre());
}

QList<QWidget*> Form1::librosAbiertos(const QString& tipo) const {
    QList<QWidget*> r;
    for (const auto& l : libros_)
        if (l.first && (tipo.isEmpty() || l.second == tipo))
            r << l.first.data();
    return r;
}

void Form1::cerrarLibros(const QString& tipo) {
    QList<QPointer<QWidget>> libros;
    for (QWidget* w : librosAbiertos(tipo))
        libros << w;
    for (const QPointer<QWidget>& w : libros)
        if (w)
            w->close();
    QCoreApplication::processEvents();
}

void Form1::refrescarLibros() {
    // A book's fill runs the event loop, where another book closed before may be deleted.
    QList<QPointer<QWidget>> libros;
    for (QWidget* w : librosAbiertos())
        libros << w;
    for (const QPointer<QWidget>& w : libros)
        if (w && w->metaObject()->indexOfSlot("Refrescar()") >= 0)
            QMetaObject::invokeMethod(w, "Refrescar");
}

// ---- The board's keys, pictures, lights and helpers ---------------------------------------

bool Form1::teclaDelTablero(QKeyEvent* k) {
    if (k->key() == Qt::Key_F12 && (k->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        if (!AbrirPredisenados)
            return false;
        AbrirPredisenados();
        return true;
    }
    if (k->key() == Qt::Key_Control) {
        if (!k->isAutoRepeat())
            teclas_.Control();
        return false;
    }
    // With Ctrl held, the digits of the pad count as those of the row.
    if ((k->modifiers() & Qt::ControlModifier) && k->key() >= Qt::Key_0 && k->key() <= Qt::Key_9) {
        const std::optional<int> codigo = teclas_.Digito(k->key() - Qt::Key_0);
        if (codigo && AbrirPredisenado)
            AbrirPredisenado(*codigo);
        return true;
    }
    if (k->key() != Qt::Key_Shift && k->key() != Qt::Key_Alt && k->key() != Qt::Key_Meta)
        teclas_.Otra();
    return false;
}

void Form1::AplicarImagenes() {
    try {
        InstalarImagenes(s_);
    } catch (const ErrorQuilmar&) {
        // Without the folder the shipped drawings are shown.
    }
    tablero_->cargarImagenes();
}

void Form1::AplicarColor(const QColor& color) {
    // The form, the toolbar and the areas' ground take the colour.
    QPalette p = palette();
    p.setColor(QPalette::Window, color);
    setPalette(p);
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("Toolbar1"))) {
        barra->setAutoFillBackground(true);
        barra->setPalette(p);
    }
    tablero_->aplicarColor(color);
}

void Form1::ColorVenc() {
    const QDate hoy = QDate::currentDate();
    const struct {
        const char* tipo;
        const char* plural;
        QPushButton* boton;
    } luces[] = {{"Cobro", "Cobros", Command4}, {"Pago", "Pagos", Command5}};
    for (const auto& l : luces) {
        LuzVencimiento luz = LuzVencimiento::Ninguna;
        if (!s_.EmpresaActual.isEmpty()) {
            try {
                luz = ::ColorVenc(s_, QString::fromLatin1(l.tipo), hoy);
            } catch (const ErrorQuilmar&) {
                // A company database that can't be read leaves the light off.
            }
        }
        const QColor c = ColorDeLuz(luz);
        l.boton->setStyleSheet(
            c.isValid() ? QStringLiteral("QPushButton { background-color: %1; color: black; "
                                         "border: 1px solid #7a7a7a; border-radius: 2px; "
                                         "padding: 1px 6px; }")
                              .arg(c.name())
                        : QString());
        l.boton->setProperty("luz", static_cast<int>(luz));
        static const char* const estados[] = {"sin vencimientos pendientes", "vence hoy", "vencido",
                                              "vence en menos de ocho días", "vence más adelante"};
        l.boton->setToolTip(QStringLiteral("%1: %2").arg(
            QString::fromLatin1(l.plural), QString::fromUtf8(estados[static_cast<int>(luz)])));
        l.boton->setEnabled(static_cast<bool>(AbrirVencimientos));
    }
}

void Form1::MostrarBancos() {
    const QList<PaginaWeb> paginas = PaginasBanco(a_);
    if (paginas.isEmpty()) {
        d_.Informar(MsgSinPaginasBanco);
        abrirPaginasWeb();
        return;
    }
    List1->clear();
    List2->clear();
    for (const PaginaWeb& p : paginas) {
        List1->addItem(p.Nombre);
        List2->addItem(p.Direccion);
    }
    auto* cambiar = new QListWidgetItem(QStringLiteral("Modificar la lista..."), List1);
    QFont f = cambiar->font();
    f.setItalic(true);
    cambiar->setFont(f);
    // Under the button, as a drop-down.
    QPoint sitio(width() / 2, 40);
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("Toolbar1")))
        if (QWidget* b = barra->widgetForAction(boton(18)))
            sitio = b->mapTo(this, QPoint(0, b->height()));
    const int ancho = qMax(220, List1->sizeHintForColumn(0) + 30);
    const int alto = List1->sizeHintForRow(0) * List1->count() + 2 * List1->frameWidth() + 4;
    List1->setGeometry(QRect(sitio, QSize(ancho, alto)));
    List1->show();
    List1->raise();
    List1->setFocus();
    Timer4->start();
}

void Form1::indicar(const QString& texto) {
    if (!texto.isEmpty())
        statusBar()->showMessage(texto);
    else if (boardVisible_)
        statusBar()->showMessage(AyudaTablero);
    else
        statusBar()->clearMessage();
}

void Form1::abrirPaginasWeb() {
    Form65 f(a_, this);
    f.exec();
}

void Form1::abrirImagenes() {
    Form8 f(s_, a_, d_, this);
    connect(&f, &Form8::imagenCambiada, this, [this] { tablero_->cargarImagenes(); });
    connect(&f, &Form8::colorCambiado, this, &Form1::AplicarColor);
    f.exec();
}

void Form1::abrirAyudante() {
    Form66 f(s_, a_, this);
    f.exec();
}

void Form1::finTimer5() {
    // The question waits for the welcome screen to be read and closed.
    for (auto* bienvenida : findChildren<Form36*>())
        if (bienvenida->isVisible()) {
            Timer5->start();
            return;
        }
    if (PreguntarAyudante(a_, d_, asientoHecho_))
        abrirAyudante();
}

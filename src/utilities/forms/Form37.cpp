#include "utilities/forms/Form37.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/TablaRejilla.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/Rutinas.h"
#include "utilities/Avisos.h"
#include "utilities/ListadoAvisos.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QPointer<Form37> abierta;

} // namespace

Form37::Form37(Sesion& s, Ajustes& a, Dialogo& d, const QDate& hoy, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d), hoy_(hoy), rejilla_(RejillaAvisos()) {
    setObjectName(QStringLiteral("Form37"));
    setWindowTitle(QStringLiteral("Quilmar [Avisos]"));

    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setMaxLength(10);
    Text1->setMaximumWidth(110);
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setMaxLength(TamanoCampo(Campo::TextoAviso));
    Check1 = new QCheckBox(QStringLiteral("El Aviso se repetirá con periodicidad de"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Text3 = CampoNumero(this, QStringLiteral("Text3"), 2, 40);
    Text3->setEnabled(false);
    Option1 = new QRadioButton(QStringLiteral("Añadir"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option1->setChecked(true);
    Option2 = new QRadioButton(QStringLiteral("Modificar"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Salir"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Check2 = new QCheckBox(
        QStringLiteral("Eliminar automáticamente los Avisos no periódicos vencidos"), this);
    Check2->setObjectName(QStringLiteral("Check2"));
    Text4 = CampoNumero(this, QStringLiteral("Text4"), 3, 50);
    MSFlexGrid1 = new TablaRejilla(this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));

    auto* datos = new QGridLayout;
    datos->addWidget(new QLabel(QStringLiteral("Fecha"), this), 0, 0);
    datos->addWidget(Text1, 0, 1, Qt::AlignLeft);
    datos->addWidget(new QLabel(QStringLiteral("Texto del Aviso "), this), 1, 0);
    datos->addWidget(Text2, 1, 1);
    auto* periodo = new QHBoxLayout;
    periodo->addWidget(Check1);
    periodo->addWidget(Text3);
    periodo->addWidget(new QLabel(QStringLiteral("vez/veces al año"), this));
    periodo->addStretch();
    datos->addLayout(periodo, 2, 0, 1, 2);
    datos->setColumnStretch(1, 1);

    auto* modo = new QGroupBox(this);
    auto* modoCapa = new QVBoxLayout(modo);
    modoCapa->addWidget(Option1);
    modoCapa->addWidget(Option2);
    auto* botones = new QVBoxLayout;
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    botones->addStretch();
    auto* arriba = new QHBoxLayout;
    arriba->addLayout(datos, 1);
    arriba->addWidget(modo);
    arriba->addLayout(botones);

    auto* dias = new QHBoxLayout;
    dias->addWidget(new QLabel(QStringLiteral("Los Avisos se harán desde"), this));
    dias->addWidget(Text4);
    dias->addWidget(new QLabel(QStringLiteral("días antes de su vencimiento"), this));
    dias->addStretch();

    auto* todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addWidget(Check2);
    todo->addLayout(dias);

    Check2->setChecked(
        a_.leer(QStringLiteral("Valores"), QStringLiteral("ElimAuto")).trimmed().toUpper() ==
        QLatin1String("SI"));
    Text4->setText(QString::number(DiasAviso(a_)));

    connect(Check1, &QCheckBox::toggled, this, [this](bool marcada) {
        Text3->setEnabled(marcada);
        if (marcada)
            Text3->setFocus();
    });
    connect(Text3, &QLineEdit::editingFinished, this, [this] {
        if (Text3->isEnabled() && !Text3->text().isEmpty())
            comprobarPeriodo();
    });
    connect(Command1, &QPushButton::clicked, this, &Form37::Aceptar);
    connect(Command2, &QPushButton::clicked, this, &Form37::close);
    connect(MSFlexGrid1, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { CargarFila(i.row()); });
    connect(MSFlexGrid1, &TablaRejilla::prepararMenu, this, [this](QMenu* menu, int fila, int) {
        QAction* modificar =
            menu->addAction(QStringLiteral("Modificar"), this, [this, fila] { CargarFila(fila); });
        modificar->setObjectName(QStringLiteral("mnuModificar"));
        QAction* eliminar =
            menu->addAction(QStringLiteral("Eliminar"), this, [this, fila] { EliminarFila(fila); });
        eliminar->setObjectName(QStringLiteral("mnuEliminar"));
        modificar->setEnabled(fila >= 0);
        eliminar->setEnabled(fila >= 0);
        QAction* imprimir = menu->addAction(QStringLiteral("Imprimir"), this, &Form37::Imprimir);
        imprimir->setObjectName(QStringLiteral("mnuImprimir"));
    });

    resize(640, 460);
    PrepararVentana(this, a_, 37);
    // Past reminders go as the window opens, when so configured.
    try {
        EliminarAvisosVencidos(s_, a_, hoy_);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    LlenarFlex();
    // The text takes what the date and the period leave, however long the texts added later.
    MSFlexGrid1->horizontalHeader()->setSectionResizeMode(ColAvTexto, QHeaderView::Stretch);
}

Form37* Form37::Abrir(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, long naviso,
                      const QDate& hoy) {
    if (!abierta) {
        abierta = new Form37(s, a, d, hoy.isValid() ? hoy : QDate::currentDate(), padre);
        abierta->setAttribute(Qt::WA_DeleteOnClose);
    }
    abierta->show();
    abierta->raise();
    abierta->activateWindow();
    if (naviso > 0)
        abierta->Cargar(naviso);
    return abierta;
}

void Form37::LlenarFlex() {
    try {
        Conexion c = AbrirAvisos(s_);
        LlenarRejillaAvisos(LeerAvisos(c), rejilla_);
    } catch (const ErrorQuilmar& e) {
        rejilla_.Vaciar();
        d_.Informar(e.mensaje());
    }
    if (MSFlexGrid1->rejilla())
        MSFlexGrid1->actualizar();
    else
        MSFlexGrid1->mostrar(&rejilla_);
}

bool Form37::Cargar(long naviso) {
    std::optional<Aviso> a;
    try {
        Conexion c = AbrirAvisos(s_);
        a = LeerAviso(c, naviso);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return false;
    }
    if (!a) {
        d_.Informar(MsgAvisoNoEncontrado);
        return false;
    }
    cargado_ = a->NAviso;
    Text1->setText(FormatoFecha(a->Fecha, QStringLiteral("short date")));
    Text2->setText(a->Texto);
    Check1->setChecked(a->Periodo > 0);
    Text3->setText(a->Periodo > 0 ? QString::number(a->Periodo) : QString());
    Option2->setChecked(true);
    return true;
}

void Form37::CargarFila(int fila) {
    if (fila < 0 || fila >= rejilla_.Filas())
        return;
    Cargar(rejilla_.Celda(fila, ColAvNAviso).toLong());
}

bool Form37::comprobarPeriodo() {
    if (LeerPeriodo(Text3->text()))
        return true;
    d_.Informar(MsgPeriodicidad);
    Text3->setFocus();
    Text3->selectAll();
    return false;
}

void Form37::Aceptar() {
    QDate fecha;
    if (!Text1->text().trimmed().isEmpty()) {
        const QString valida = ValidarFecha(Text1->text(), d_);
        if (valida.isEmpty()) {
            Text1->setFocus();
            Text1->selectAll();
            return;
        }
        fecha = FechaDeTexto(valida);
    }
    DatosAviso datos;
    datos.Fecha = fecha;
    datos.Texto = Text2->text();
    datos.Periodico = Check1->isChecked();
    datos.Periodo = Text3->text();
    try {
        const long n = GuardarAviso(s_, d_, datos, Option1->isChecked(), cargado_, hoy_);
        if (n == 0)
            return;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    LlenarFlex();
    Q_EMIT avisosCambiados();
}

void Form37::EliminarFila(int fila) {
    if (fila < 0 || fila >= rejilla_.Filas())
        return;
    const long n = rejilla_.Celda(fila, ColAvNAviso).toLong();
    try {
        if (!EliminarAvisoPreguntando(s_, d_, n))
            return;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return;
    }
    if (n == cargado_)
        cargado_ = 0;
    LlenarFlex();
    Q_EMIT avisosCambiados();
}

void Form37::Imprimir() {
    try {
        OpcionesImpresion op;
        op.titulo = TituloListaAvisos;
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, DibujoListaAvisos(rejilla_, OpcionesListaAvisos(a_, hoy_)), op);
    } catch (const ErrorQuilmar&) {
        // A failed run ends without a further message.
    }
}

void Form37::closeEvent(QCloseEvent* e) {
    // The settings are kept as the window closes; a wrong number of days keeps it open.
    if (!GuardarOpcionesAvisos(a_, d_, Text4->text(), Check2->isChecked())) {
        Text4->setFocus();
        Text4->selectAll();
        e->ignore();
        return;
    }
    e->accept();
}

void Form37::reject() {
    close();
}

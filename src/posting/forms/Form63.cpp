#include "posting/forms/Form63.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/Contabilizar.h"
#include "posting/ImprimirAsiento.h"
#include "posting/forms/Form4.h"
#include "store/Campos.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

QPushButton* boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QString::fromLatin1(nombre));
    b->setAutoDefault(false);
    return b;
}

void ponerTexto(QLineEdit* campo, const QString& texto) {
    if (campo->text() != texto)
        campo->setText(texto);
}

} // namespace

Form63::Form63(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d), k_(s, d) {
    setObjectName(QStringLiteral("Form63"));
    setWindowTitle(QStringLiteral("Quilmar [Ver/Modificar Asiento Periódico]"));
    setModal(true);

    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont negrita = Label1->font();
    negrita.setBold(true);
    negrita.setPointSizeF(negrita.pointSizeF() + 1);
    Label1->setFont(negrita);
    Date1 = new QLineEdit(this);
    Date1->setObjectName(QStringLiteral("Date1"));
    Date1->setMaximumWidth(110);
    Combo6 = new QComboBox(this);
    Combo6->setObjectName(QStringLiteral("Combo6"));
    for (const RitmoPeriodico& r : Ritmos())
        Combo6->addItem(r.nombre, static_cast<int>(r.periodicidad));
    Combo4 = new QComboBox(this);
    Combo4->setObjectName(QStringLiteral("Combo4"));
    Combo4->setMinimumWidth(140);
    Combo5 = new QComboBox(this);
    Combo5->setObjectName(QStringLiteral("Combo5"));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(260);
    Combo3 = new QComboBox(this);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->setEditable(true);
    Combo3->setInsertPolicy(QComboBox::NoInsert);
    LimitarCampo(Combo3->lineEdit(), Campo::Concepto);
    Combo3->setMinimumWidth(240);
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
    LabelSaldo = new QLabel(this);
    LabelSaldo->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    LabelSaldo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LabelSaldo->setMinimumWidth(110);
    TDBN1 = new QLineEdit(this);
    TDBN1->setObjectName(QStringLiteral("TDBN1"));
    TDBN1->setReadOnly(true);
    TDBN1->setAlignment(Qt::AlignRight);
    TDBN1->setMaximumWidth(120);

    MSFlexGrid1 = new QTableView(this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setModel(&k_.Rejilla);
    for (int c = 0; c < ColF7::Total; ++c)
        if (c != ColF7::Cuenta && c != ColF7::Concepto && c != ColF7::Debe && c != ColF7::Haber &&
            c != ColF7::Documento)
            MSFlexGrid1->setColumnHidden(c, true);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->verticalHeader()->setVisible(false);
    MSFlexGrid1->setColumnWidth(ColF7::Cuenta, 220);
    MSFlexGrid1->setColumnWidth(ColF7::Concepto, 240);
    MSFlexGrid1->setColumnWidth(ColF7::Debe, 100);
    MSFlexGrid1->setColumnWidth(ColF7::Haber, 100);
    MSFlexGrid1->setColumnWidth(ColF7::Documento, 110);

    Command2 = boton(this, "Command2", QStringLiteral("Añadir Apunte"));
    Command3 = boton(this, "Command3", QStringLiteral("Modificar Apunte"));
    Command4 = boton(this, "Command4", QStringLiteral("Eliminar Apunte"));
    Command5 = boton(this, "Command5", QStringLiteral("Eliminar Asiento"));
    Command6 = boton(this, "Command6", QStringLiteral("Imprimir Asiento"));
    Command1 = boton(this, "Command1", QStringLiteral("&Aceptar"));
    Command7 = boton(this, "Command7", QStringLiteral("&Salir"));
    Command8 = boton(this, "Command8", QStringLiteral("Ay&uda"));
    Command8->setEnabled(false); // no help pages yet

    auto* cabecera = new QGridLayout;
    cabecera->addWidget(Label1, 0, 0, 1, 6);
    cabecera->addWidget(new QLabel(QStringLiteral("Fecha próximo vencimiento"), this), 1, 0);
    cabecera->addWidget(Date1, 1, 1);
    cabecera->addWidget(new QLabel(QStringLiteral("Periodicidad"), this), 1, 2);
    cabecera->addWidget(Combo6, 1, 3);
    cabecera->addWidget(new QLabel(QStringLiteral("Sector"), this), 1, 4);
    cabecera->addWidget(Combo4, 1, 5);
    cabecera->setColumnStretch(6, 1);

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
    apunte->setColumnStretch(1, 1);

    auto* lineas = new QHBoxLayout;
    for (QPushButton* b : {Command2, Command3, Command4})
        lineas->addWidget(b);
    lineas->addStretch();
    lineas->addWidget(new QLabel(QStringLiteral("Descuadre "), this));
    lineas->addWidget(TDBN1);

    auto* botones = new QHBoxLayout;
    botones->addWidget(Command5);
    botones->addWidget(Command6);
    botones->addStretch();
    for (QPushButton* b : {Command1, Command7, Command8})
        botones->addWidget(b);

    auto* todo = new QVBoxLayout(this);
    todo->addLayout(cabecera);
    todo->addLayout(apunte);
    todo->addLayout(lineas);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addLayout(botones);

    Combo5->addItem(QString());
    Combo5->addItems(k_.Areas());
    hacer([&] {
        Combo3->addItems(ConceptosPredefinidos(s));
        Combo4->addItems(SectoresConVacio(s));
    });
    if (Combo4->count() == 0)
        Combo4->addItem(QString());
    Combo3->setEditText(QString());

    for (QWidget* w :
         {static_cast<QWidget*>(TDBN2), static_cast<QWidget*>(TDBN3), static_cast<QWidget*>(Date1),
          static_cast<QWidget*>(Combo3->lineEdit()), static_cast<QWidget*>(Text3)})
        w->installEventFilter(this);

    connect(Combo5, &QComboBox::activated, this, [this](int i) {
        if (cargando_)
            return;
        aLogica();
        hacer([&] { k_.ElegirArea(Combo5->itemText(i)); });
        desdeLogica();
    });
    connect(Combo1, &QComboBox::activated, this, [this](int i) {
        if (cargando_)
            return;
        aLogica();
        hacer([&] { k_.ElegirSubcuenta(i); });
        desdeLogica();
    });
    connect(MSFlexGrid1, &QTableView::clicked, this, [this](const QModelIndex& i) {
        aLogica();
        hacer([&] { k_.SeleccionarLinea(i.row() + 1); });
        desdeLogica();
    });
    auto accion = [this](QPushButton* b, std::function<void()> hacerla) {
        connect(b, &QPushButton::clicked, this, [this, hacerla] {
            aLogica();
            hacer(hacerla);
            desdeLogica();
        });
    };
    accion(Command2, [this] { k_.AnadirApunte(); });
    accion(Command3, [this] { k_.ModificarApunte(); });
    accion(Command4, [this] { k_.EliminarApunte(filaActual()); });
    accion(Command5, [this] {
        if (k_.EliminarAsiento())
            accept();
    });
    accion(Command1, [this] {
        if (k_.Aceptar())
            accept();
    });
    connect(Command6, &QPushButton::clicked, this, [this] {
        aLogica();
        imprimir();
    });
    connect(Command7, &QPushButton::clicked, this, &QDialog::reject);

    resize(980, 560);
    PrepararVentana(this, a_, 63);
}

bool Form63::Cargar(const QString& nombre) {
    bool hecho = false;
    hacer([&] { hecho = k_.Cargar(nombre); });
    desdeLogica();
    return hecho;
}

void Form63::Descuadre() {
    k_.Descuadre();
    desdeLogica();
}

void Form63::Resaltar() {
    k_.Resaltar();
}

void Form63::hacer(const std::function<void()>& accion) {
    try {
        accion();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
    }
}

int Form63::filaActual() const {
    const QModelIndex i = MSFlexGrid1->currentIndex();
    return i.isValid() ? i.row() + 1 : 0;
}

void Form63::desdeLogica() {
    cargando_ = true;
    Label1->setText(QStringLiteral("Asiento periódico: ") + k_.Nombre);
    ponerTexto(Date1, k_.Fecha);
    Combo6->setCurrentIndex(std::max(0, Combo6->findData(static_cast<int>(k_.Periodicidad))));
    const int sector = Combo4->findText(k_.Sector);
    if (sector >= 0) {
        Combo4->setCurrentIndex(sector);
    } else if (!k_.Sector.isEmpty()) {
        Combo4->addItem(k_.Sector);
        Combo4->setCurrentIndex(Combo4->count() - 1);
    } else {
        Combo4->setCurrentIndex(Combo4->count() - 1);
    }
    Combo5->setCurrentIndex(std::max(0, k_.Area.isEmpty() ? 0 : Combo5->findText(k_.Area)));
    Combo1->clear();
    Combo1->addItems(k_.Nombres);
    Combo1->setCurrentIndex(
        k_.NCuenta.isEmpty() ? -1 : static_cast<int>(k_.Codigos.indexOf(k_.NCuenta)));
    if (Combo1->currentIndex() < 0 && !k_.Cuenta.isEmpty()) {
        Combo1->addItem(k_.Cuenta);
        Combo1->setCurrentIndex(Combo1->count() - 1);
    }
    Combo3->setEditText(k_.Concepto);
    ponerTexto(TDBN2, k_.Debe);
    ponerTexto(TDBN3, k_.Haber);
    ponerTexto(Text3, k_.Documento);
    LabelSaldo->setText(k_.Saldo);
    ponerTexto(TDBN1, k_.TextoDescuadre);
    cargando_ = false;
}

void Form63::aLogica() {
    k_.Fecha = Date1->text();
    k_.Periodicidad = static_cast<qint16>(Combo6->currentData().toInt());
    k_.Sector = Combo4->currentText();
    k_.Concepto = Combo3->currentText();
    k_.Debe = TDBN2->text();
    k_.Haber = TDBN3->text();
    k_.Documento = Text3->text();
}

void Form63::imprimir() {
    k_.Descuadre();
    OpcionesAsientoImpreso o;
    o.fuente = a_.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"));
    o.tamano = a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
    const QStringList cabecera{QStringLiteral("Asiento periódico: ") + k_.Nombre,
                               QStringLiteral("Fecha próximo vencimiento: ") + k_.Fecha,
                               QStringLiteral("Periodicidad: ") + NombreRitmo(k_.Periodicidad),
                               QStringLiteral("Descuadre: ") + k_.TextoDescuadre};
    ImprimirLibro(this,
                  [&](Impresora& imp, int) {
                      ImprimirAsiento(imp, k_.Rejilla, o, ColumnasF7(), k_.TextoDescuadre,
                                      cabecera);
                  },
                  {QStringLiteral("Asiento periódico"),
                   a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"))});
}

bool Form63::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    if ((objeto == TDBN2 || objeto == TDBN3) && !EsIntro(k) && !EsTeclaDeEdicion(k)) {
        auto* campo = static_cast<QLineEdit*>(objeto);
        // A leading minus passes: a line may carry a negative amount, as in the maintenance
        // screen.
        if (k->text() == QLatin1String("-"))
            return campo->cursorPosition() != 0 || campo->text().startsWith(QLatin1Char('-'));
        switch (FiltrarTeclaImporte(k->text(), s_.PuntoDecimal)) {
        case TeclaImporte::Pasa:
            return false;
        case TeclaImporte::Cambia:
            campo->insert(s_.PuntoDecimal ? QStringLiteral(".") : QStringLiteral(","));
            return true;
        case TeclaImporte::Rechaza:
            return true;
        }
    }
    if (EsIntro(k)) {
        // Enter moves on, as in every line editor.
        focusNextChild();
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

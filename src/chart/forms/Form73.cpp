#include "chart/forms/Form73.h"

#include "chart/Listados.h"
#include "chart/NCuenta.h"
#include "chart/PlanCuentas.h"
#include "chart/forms/Ventanas.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

// Columns of the grids: FG2 Código, Cuenta, [NGrupo]; FG1 Cuenta, Subcuenta, [NCuenta].
constexpr int ColClave = 2;

QLineEdit* campo(QWidget* padre, const QString& nombre, int maximo = 0) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nombre);
    if (maximo > 0)
        e->setMaxLength(maximo);
    return e;
}

} // namespace

Form73::Form73(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, bool seleccionar)
    : QDialog(padre), s_(s), a_(a), d_(d), seleccionar_(seleccionar) {
    setObjectName(QStringLiteral("Form73"));
    setWindowTitle(QStringLiteral("Quilmar [Cuentas]"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    construir();
    try {
        Conexion c = AbrirDatos(s_);
        Combo3->addItems(Provincias(c));
        Combo4->addItems(Paises(c));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo3->setCurrentIndex(-1);
    Combo4->setCurrentIndex(-1);
    Option2->setChecked(true);
    MostrarArea(0);
    resize(940, 660);
    PrepararVentana(this, a_);
}

void Form73::construir() {
    auto* raiz = new QVBoxLayout(this);

    auto* arriba = new QHBoxLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Area:"), this));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    for (int i = 0; i < NumeroAreas; ++i)
        Combo1->addItem(EtiquetaArea(i));
    arriba->addWidget(Combo1);
    arriba->addSpacing(16);
    Option1 = new QRadioButton(QStringLiteral("Cuentas"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Subcuentas"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    arriba->addWidget(Option1);
    arriba->addWidget(Option2);
    arriba->addStretch();
    arriba->addWidget(new QLabel(QStringLiteral("Buscar:"), this));
    textoBuscar_ = campo(this, QStringLiteral("TextBuscar"));
    arriba->addWidget(textoBuscar_);
    auto* botonBuscar = new QPushButton(QStringLiteral("Buscar"), this);
    botonBuscar->setObjectName(QStringLiteral("cmdBuscar"));
    auto* botonSiguiente = new QPushButton(QStringLiteral("Buscar siguiente"), this);
    botonSiguiente->setObjectName(QStringLiteral("cmdBuscarSiguiente"));
    for (QPushButton* b : {botonBuscar, botonSiguiente})
        b->setAutoDefault(false);
    arriba->addWidget(botonBuscar);
    arriba->addWidget(botonSiguiente);
    raiz->addLayout(arriba);

    auto* listas = new QHBoxLayout;
    FG2 = NuevaLista(this, QStringLiteral("FG2"),
                     {QStringLiteral("Código"), QStringLiteral("Cuenta"), QStringLiteral("NGrupo")},
                     1);
    FG2->horizontalHeader()->resizeSection(0, 60);
    FG1 = NuevaLista(
        this, QStringLiteral("FG1"),
        {QStringLiteral("Cuenta"), QStringLiteral("Subcuenta"), QStringLiteral("NCuenta")}, 1);
    FG1->horizontalHeader()->resizeSection(0, 250);
    listas->addWidget(FG2, 2);
    listas->addWidget(FG1, 3);
    raiz->addLayout(listas, 1);

    auto* edicion = new QHBoxLayout;
    marcoCuenta_ = new QGroupBox(QStringLiteral("Cuenta"), this);
    auto* fc = new QFormLayout(marcoCuenta_);
    Text13 = campo(marcoCuenta_, QStringLiteral("Text13"), 3);
    Text13->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,3}")), Text13));
    Text13->setMaximumWidth(60);
    Text2 = campo(marcoCuenta_, QStringLiteral("Text2"));
    fc->addRow(QStringLiteral("Código:"), Text13);
    fc->addRow(QStringLiteral("Nombre:"), Text2);
    // The names are told and cut on acceptance when too long, as they always were.
    LimitarCampo(Text2, Campo::NombreCuenta, false);
    marcoSubcuenta_ = new QGroupBox(QStringLiteral("Subcuenta"), this);
    auto* fs = new QFormLayout(marcoSubcuenta_);
    Combo2 = new QComboBox(marcoSubcuenta_);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setPlaceholderText(QStringLiteral("(Seleccione la Cuenta)"));
    Text1 = campo(marcoSubcuenta_, QStringLiteral("Text1"));
    fs->addRow(QStringLiteral("Cuenta:"), Combo2);
    fs->addRow(QStringLiteral("Nombre:"), Text1);
    LimitarCampo(Text1, Campo::NombreSubcuenta, false);
    edicion->addWidget(marcoCuenta_, 2);
    edicion->addWidget(marcoSubcuenta_, 3);
    raiz->addLayout(edicion);

    marcoFicha_ = new QGroupBox(QStringLiteral("Datos del Cliente / Proveedor"), this);
    marcoFicha_->setObjectName(QStringLiteral("Frame1"));
    auto* ff = new QGridLayout(marcoFicha_);
    Text3 = campo(marcoFicha_, QStringLiteral("Text3"));
    textoDomicilio_ = campo(marcoFicha_, QStringLiteral("Text4"));
    textoMunicipio_ = campo(marcoFicha_, QStringLiteral("Text5"));
    textoCPostal_ = campo(marcoFicha_, QStringLiteral("Text6"));
    Combo3 = new QComboBox(marcoFicha_);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    textoTfn1_ = campo(marcoFicha_, QStringLiteral("Text7"));
    textoTfn2_ = campo(marcoFicha_, QStringLiteral("Text8"));
    textoContacto_ = campo(marcoFicha_, QStringLiteral("Text9"));
    Combo4 = new QComboBox(marcoFicha_);
    Combo4->setObjectName(QStringLiteral("Combo4"));
    textoObservaciones_ = campo(marcoFicha_, QStringLiteral("Text10"));
    LimitarCampo(Text3, Campo::NIF);
    LimitarCampo(textoDomicilio_, Campo::Domicilio);
    LimitarCampo(textoMunicipio_, Campo::Municipio);
    LimitarCampo(textoCPostal_, Campo::CPostal);
    LimitarCampo(textoTfn1_, Campo::Telefono);
    LimitarCampo(textoTfn2_, Campo::Telefono);
    LimitarCampo(textoContacto_, Campo::Contacto);
    LimitarCampo(textoObservaciones_, Campo::Observaciones);
    auto etiqueta = [&](const char* t) {
        return new QLabel(QString::fromUtf8(t), marcoFicha_);
    };
    ff->addWidget(etiqueta("NIF:"), 0, 0);
    ff->addWidget(Text3, 0, 1);
    ff->addWidget(etiqueta("Domicilio:"), 0, 2);
    ff->addWidget(textoDomicilio_, 0, 3, 1, 3);
    ff->addWidget(etiqueta("Municipio:"), 1, 0);
    ff->addWidget(textoMunicipio_, 1, 1);
    ff->addWidget(etiqueta("C. P.:"), 1, 2);
    ff->addWidget(textoCPostal_, 1, 3);
    ff->addWidget(etiqueta("Provincia:"), 1, 4);
    ff->addWidget(Combo3, 1, 5);
    ff->addWidget(etiqueta("Tfnº 1:"), 2, 0);
    ff->addWidget(textoTfn1_, 2, 1);
    ff->addWidget(etiqueta("Tfnº 2:"), 2, 2);
    ff->addWidget(textoTfn2_, 2, 3);
    ff->addWidget(etiqueta("País:"), 2, 4);
    ff->addWidget(Combo4, 2, 5);
    ff->addWidget(etiqueta("Contacto:"), 3, 0);
    ff->addWidget(textoContacto_, 3, 1);
    ff->addWidget(etiqueta("Observaciones:"), 3, 2);
    ff->addWidget(textoObservaciones_, 3, 3, 1, 3);
    ff->setColumnStretch(1, 2);
    ff->setColumnStretch(3, 2);
    ff->setColumnStretch(5, 2);
    raiz->addWidget(marcoFicha_);

    auto* botones = new QHBoxLayout;
    auto boton = [&](const QString& nombre, const QString& texto) {
        auto* b = new QPushButton(texto, this);
        b->setObjectName(nombre);
        b->setAutoDefault(false);
        botones->addWidget(b);
        return b;
    };
    Command1 = boton(QStringLiteral("Command1"), QStringLiteral("Añadir >>"));
    Command3 = boton(QStringLiteral("Command3"), QStringLiteral("Eliminar"));
    Command4 = boton(QStringLiteral("Command4"), QStringLiteral("Imprimir"));
    auto* exportar = boton(QStringLiteral("Command8"), QStringLiteral("Exportar"));
    botones->addStretch();
    Command7 = boton(QStringLiteral("Command7"), QStringLiteral("Seleccionar"));
    Command6 = boton(QStringLiteral("Command6"), QStringLiteral("Salir"));
    Command7->setVisible(seleccionar_);
    Command7->setEnabled(false);
    raiz->addLayout(botones);

    connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int i) {
        if (i >= 0)
            MostrarArea(i);
    });
    connect(Option1, &QRadioButton::toggled, this, [this] {
        Blanquear();
        actualizarPanel();
    });
    connect(FG2, &QTableWidget::cellClicked, this, [this] { alElegirCuenta(); });
    connect(FG1, &QTableWidget::cellClicked, this, [this] { alElegirSubcuenta(); });
    connect(FG1, &QTableWidget::itemSelectionChanged, this,
            [this] { Command7->setEnabled(!FG1->selectedItems().isEmpty()); });
    connect(FG1, &QTableWidget::cellDoubleClicked, this, [this] {
        if (seleccionar_)
            seleccionar();
    });
    connect(Command1, &QPushButton::clicked, this, [this] { aceptar(); });
    connect(Command3, &QPushButton::clicked, this, [this] { eliminar(); });
    connect(Command7, &QPushButton::clicked, this, [this] { seleccionar(); });
    connect(Command4, &QPushButton::clicked, this, [this] { Imprimir(); });
    connect(exportar, &QPushButton::clicked, this, [this] {
        try {
            ExportarListado(this, d_, Listar());
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    });
    connect(Command6, &QPushButton::clicked, this, &QDialog::reject);
    connect(botonBuscar, &QPushButton::clicked, this, [this] { buscar(false); });
    connect(botonSiguiente, &QPushButton::clicked, this, [this] { buscar(true); });
    connect(textoBuscar_, &QLineEdit::returnPressed, this, [this] { buscar(false); });
    connect(Text3, &QLineEdit::editingFinished, this, [this] { alSalirNIF(); });
    connect(Text1, &QLineEdit::textEdited, this, [this](const QString& t) { alEscribirNombre(t); });
}

QString Form73::ElegirSubcuenta(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, int area) {
    Form73 f(s, a, d, padre, true);
    if (area >= 0)
        f.MostrarArea(area);
    f.exec();
    return f.subcuentaElegida();
}

int Form73::area() const {
    return Combo1->currentIndex();
}

bool Form73::porCuentas() const {
    return Option1->isChecked();
}

void Form73::MostrarArea(int a) {
    if (a < 0 || a >= NumeroAreas)
        return;
    if (Combo1->currentIndex() != a) {
        Combo1->setCurrentIndex(a); // comes back here through the signal
        return;
    }
    Blanquear();
    llenarListas();
    actualizarPanel();
}

void Form73::llenarListas() {
    Borrar();
    Combo2->clear();
    gruposCombo2_.clear();
    try {
        Conexion c = AbrirDatos(s_);
        for (const FilaGrupo& g : GruposDeArea(c, area())) {
            AnadirFila(FG2, {g.codigo(), g.Grupo, g.NGrupo});
            Combo2->addItem(g.Grupo);
            gruposCombo2_ << g.NGrupo;
        }
        for (const FilaSubcuenta& sc : SubcuentasDeArea(c, s_, area(), seleccionar_))
            AnadirFila(FG1, {sc.Grupo, sc.Cuenta, sc.NCuenta});
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    Combo2->setCurrentIndex(-1);
}

void Form73::actualizarPanel() {
    marcoCuenta_->setEnabled(porCuentas());
    marcoSubcuenta_->setEnabled(!porCuentas());
    marcoFicha_->setVisible(!porCuentas() && AreaConFicha(area()));
}

void Form73::Blanquear() {
    for (QLineEdit* e :
         {Text13, Text2, Text1, Text3, textoDomicilio_, textoMunicipio_, textoCPostal_, textoTfn1_,
          textoTfn2_, textoContacto_, textoObservaciones_})
        e->clear();
    Combo2->setCurrentIndex(-1);
    Combo3->setCurrentIndex(-1);
    Combo4->setCurrentIndex(-1);
    nombreAnterior_.clear();
    editando_.clear();
    ponerModo(false);
}

void Form73::Borrar() {
    FG1->setRowCount(0);
    FG2->setRowCount(0);
}

void Form73::ponerModo(bool modificar) {
    Command1->setText(modificar ? QStringLiteral("Modificar >>") : QStringLiteral("Añadir >>"));
    Command3->setEnabled(modificar);
    Text13->setReadOnly(modificar);
    Combo2->setEnabled(!modificar);
    if (!modificar)
        editando_.clear();
}

void Form73::alElegirCuenta() {
    const QString ngrupo = CeldaSeleccionada(FG2, ColClave);
    if (ngrupo.isEmpty())
        return;
    if (!porCuentas())
        Option1->setChecked(true);
    Text13->setText(ngrupo.mid(1));
    Text2->setText(CeldaSeleccionada(FG2, 1));
    editando_ = ngrupo;
    ponerModo(true);
}

void Form73::alElegirSubcuenta() {
    const QString ncuenta = CeldaSeleccionada(FG1, ColClave);
    if (ncuenta.isEmpty())
        return;
    if (porCuentas())
        Option2->setChecked(true);
    Blanquear();
    Combo2->setCurrentIndex(gruposCombo2_.indexOf(ncuenta.left(4)));
    Text1->setText(CeldaSeleccionada(FG1, 1));
    nombreAnterior_ = Text1->text();
    if (AreaConFicha(area())) {
        try {
            Conexion c = AbrirDatos(s_);
            ponerFicha(ObtCliPro(c, ncuenta));
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    }
    editando_ = ncuenta;
    ponerModo(true);
}

FichaCliPro Form73::fichaDeCampos() const {
    FichaCliPro f;
    f.NIF = Text3->text();
    f.Domicilio = textoDomicilio_->text();
    f.Municipio = textoMunicipio_->text();
    f.CPostal = textoCPostal_->text();
    f.Provincia = Combo3->currentText();
    f.Tfn1 = textoTfn1_->text();
    f.Tfn2 = textoTfn2_->text();
    f.Contacto = textoContacto_->text();
    f.Pais = Combo4->currentText();
    f.Observaciones = textoObservaciones_->text();
    return f;
}

void Form73::ponerFicha(const FichaCliPro& f) {
    Text3->setText(f.NIF);
    textoDomicilio_->setText(f.Domicilio);
    textoMunicipio_->setText(f.Municipio);
    textoCPostal_->setText(f.CPostal);
    // A value that is not in the list (typed in older data) is still shown.
    auto elegir = [](QComboBox* c, const QString& v) {
        int i = c->findText(v, Qt::MatchFixedString);
        if (i < 0 && !v.isEmpty()) {
            c->addItem(v);
            i = c->count() - 1;
        }
        c->setCurrentIndex(i);
    };
    elegir(Combo3, f.Provincia);
    elegir(Combo4, f.Pais);
    textoTfn1_->setText(f.Tfn1);
    textoTfn2_->setText(f.Tfn2);
    textoContacto_->setText(f.Contacto);
    textoObservaciones_->setText(f.Observaciones);
}

void Form73::enfocar(int campo) {
    switch (static_cast<CampoPlan>(campo)) {
    case CampoPlan::NombreCuenta:
        Text2->setFocus();
        break;
    case CampoPlan::CodigoCuenta:
        Text13->setFocus();
        break;
    case CampoPlan::NombreSubcuenta:
        Text1->setFocus();
        break;
    case CampoPlan::CuentaSubcuenta:
        Combo2->setFocus();
        break;
    case CampoPlan::Ninguno:
        break;
    }
}

void Form73::aceptar() {
    try {
        ResultadoPlan r;
        const bool modificar = !editando_.isEmpty();
        if (porCuentas()) {
            r = modificar ? ModificarCuenta(s_, d_, editando_, Text2->text())
                          : AnadirCuenta(s_, d_, area(), Text13->text(), Text2->text());
            if (!r.textoCortado.isEmpty())
                Text2->setText(r.textoCortado);
        } else if (!modificar) {
            NuevaSubcuenta n;
            n.area = area();
            n.NGrupo = gruposCombo2_.value(Combo2->currentIndex());
            n.Cuenta = Text1->text();
            n.ficha = fichaDeCampos();
            r = AnadirSubcuenta(s_, d_, n);
            if (r.hecho)
                Q_EMIT subcuentaAnadida(r.NCuenta, Text1->text().trimmed());
        } else {
            const FichaCliPro f = fichaDeCampos();
            r = ModificarSubcuenta(s_, d_, editando_, Text1->text(),
                                   AreaConFicha(area()) ? &f : nullptr);
        }
        if (!r.hecho) {
            if (!porCuentas() && !r.textoCortado.isEmpty()) {
                Text1->setText(r.textoCortado);
                nombreAnterior_ = r.textoCortado;
            }
            enfocar(static_cast<int>(r.foco));
            return;
        }
        const QString clave = r.NCuenta;
        llenarListas();
        Blanquear();
        // Show where the row went.
        QTableWidget* lista = porCuentas() ? FG2 : FG1;
        for (int f = 0; f < lista->rowCount(); ++f)
            if (lista->item(f, ColClave)->text() == clave) {
                lista->selectRow(f);
                lista->scrollToItem(lista->item(f, 0));
            }
        if (modificar)
            Q_EMIT areasCambiadas();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form73::eliminar() {
    if (editando_.isEmpty())
        return;
    try {
        const ResultadoPlan r =
            porCuentas() ? EliminarCuenta(s_, d_, editando_) : EliminarSubcuenta(s_, d_, editando_);
        if (!r.hecho)
            return;
        llenarListas();
        Blanquear();
        Q_EMIT areasCambiadas();
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

Listado Form73::Listar() {
    return ListadoPlan(s_, area(), porCuentas());
}

void Form73::Imprimir() {
    try {
        ImprimirListado(this, a_, Listar());
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form73::seleccionar() {
    const QString n = CeldaSeleccionada(FG1, ColClave);
    if (n.isEmpty())
        return;
    elegida_ = n;
    accept();
}

void Form73::buscar(bool siguiente) {
    QTableWidget* lista = porCuentas() ? FG2 : FG1;
    const QList<QTableWidgetItem*> sel = lista->selectedItems();
    const int desde = siguiente && !sel.isEmpty() ? sel.first()->row() : -1;
    const int f = BuscarEnLista(lista, textoBuscar_->text(), desde);
    if (f < 0) {
        d_.Informar(QStringLiteral("Se llegó al final de la lista"));
        return;
    }
    lista->selectRow(f);
    lista->scrollToItem(lista->item(f, 0));
}

void Form73::alSalirNIF() {
    const QString nif = Text3->text().trimmed();
    if (nif.isEmpty() || !AreaConFicha(area()))
        return;
    try {
        Conexion c = AbrirDatos(s_);
        const QString otro = NotaNIF(c, area(), nif, editando_);
        if (!otro.isEmpty())
            d_.Informar(MsgNotaNIF(otro));
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
}

void Form73::alEscribirNombre(const QString& texto) {
    if (AreaConFicha(area()) && TieneAcentos(texto)) {
        const int cursor = Text1->cursorPosition();
        Text1->setText(nombreAnterior_);
        Text1->setCursorPosition(std::max(0, cursor - 1));
        d_.Informar(MsgSinAcentos);
        return;
    }
    nombreAnterior_ = texto;
}

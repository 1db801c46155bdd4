#include "tax/forms/Form108.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "store/Conexiones.h"
#include "tax/Vias.h"
#include "tax/forms/Cajas347.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QStringList Situaciones{
    QStringLiteral("Inmueble con Refª Cat. en España, excepto País Vasco y Navarra"),
    QStringLiteral("Inmueble situado en País Vasco o Navarra"),
    QStringLiteral("Inmuebleen situaciones anteriores pero sin Refª Catastral"),
    QStringLiteral("Inmueble situado en el extranjero")};

// A list of names with their codes behind, an empty entry first, the property's own selected
// (by code, else by name). A value typed on the sheet that the tables lack is kept as an entry
// of its own, so that accepting the dialog loses nothing.
void Llenar(QComboBox* c, const QList<OpcionVias>& opciones, const QString& codigo,
            const QString& nombre) {
    c->clear();
    c->addItem(QString(), QString());
    for (const OpcionVias& o : opciones)
        c->addItem(o.nombre, o.codigo);
    const QString cod = codigo.trimmed(), nom = nombre.trimmed();
    int i = 0;
    if (!cod.isEmpty() || !nom.isEmpty()) {
        i = !cod.isEmpty() ? c->findData(cod) : c->findText(nom, Qt::MatchFixedString);
        if (i < 0) {
            c->addItem(nom.isEmpty() ? cod : nom, cod);
            i = c->count() - 1;
        }
    }
    c->setCurrentIndex(i);
}

QString Codigo(const QComboBox* c) {
    return c->currentData().toString();
}

} // namespace

Form108::Form108(Sesion& s, Ajustes& a, Dialogo& d, const Inmueble347& inmueble, QWidget* padre)
    : QDialog(padre), s_(s), d_(d), inmueble_(inmueble) {
    setObjectName(QStringLiteral("Form108"));
    setWindowTitle(QStringLiteral("Quilmar [Domicilio del inmueble]"));
    auto campo = [](const char* nombre) -> const Campo347& {
        return *BuscarCampo347(Hoja347::Inmuebles, QString::fromLatin1(nombre));
    };
    auto texto = [&](const char* nombre) {
        const QString n = QString::fromLatin1(nombre);
        QLineEdit* e = NuevoCampo347(this, campo(nombre), n);
        e->setText(LeerInmueble347(inmueble_, n));
        textos_.insert(n, e);
        return e;
    };
    auto combo = [this](const char* nombre) {
        auto* c = new QComboBox(this);
        c->setObjectName(QString::fromLatin1(nombre));
        return c;
    };

    Situacion = combo("Situacion");
    Situacion->addItems(Situaciones);
    const int situacion = inmueble_.situacion.trimmed().toInt();
    Situacion->setCurrentIndex(situacion >= 1 && situacion <= 4 ? situacion - 1 : -1);
    TipoVia = combo("TipoVia");
    Provincia = combo("ProvinciaInm");
    Municipio = combo("Municipio");
    tipoNumero_ = NuevaLista347(this, campo("TipoNumero"), QStringLiteral("TipoNumero"));
    ElegirEnLista347(tipoNumero_, inmueble_.tipoNumero);
    calificador_ = NuevaLista347(this, campo("Calificador"), QStringLiteral("Calificador"));
    ElegirEnLista347(calificador_, inmueble_.calificador);

    // The street tables; when they cannot be read the lists stay empty and the rest works.
    try {
        Conexion vias = AbrirVias(s_);
        Llenar(TipoVia, TiposVia(vias), inmueble_.tipoVia, QString());
        Llenar(Provincia, ProvinciasVias(vias), inmueble_.codProvincia, inmueble_.provincia);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }
    llenarMunicipios();
    connect(Provincia, &QComboBox::currentIndexChanged, this, [this] {
        inmueble_.codMunicipio.clear();
        inmueble_.municipio.clear();
        llenarMunicipios();
    });

    auto* g = new QGridLayout;
    int fila = 0;
    auto par = [&](const QString& etiqueta, QWidget* w, int columna, int ancho = 1) {
        auto* l = new QLabel(etiqueta, this);
        l->setBuddy(w);
        g->addWidget(l, fila, columna, 1, ancho);
        g->addWidget(w, fila + 1, columna, 1, ancho);
    };
    par(QStringLiteral("Situación"), Situacion, 0, 6);
    par(campo("Referencia").etiqueta, texto("Referencia"), 6, 4);
    fila += 2;
    par(QStringLiteral("Tipo  vía"), TipoVia, 0, 2);
    par(campo("Via").etiqueta, texto("Via"), 2, 8);
    fila += 2;
    par(campo("TipoNumero").etiqueta, tipoNumero_, 0);
    par(campo("NumeroCasa").etiqueta, texto("NumeroCasa"), 1);
    par(campo("Calificador").etiqueta, calificador_, 2);
    int columna = 3;
    for (const char* parte : {"Bloque", "Portal", "Escalera", "Planta", "Puerta"})
        par(campo(parte).etiqueta, texto(parte), columna++);
    fila += 2;
    par(campo("Complemento").etiqueta, texto("Complemento"), 0, 6);
    par(campo("Localidad").etiqueta, texto("Localidad"), 6, 4);
    fila += 2;
    par(QStringLiteral("Provincia"), Provincia, 0, 3);
    par(QStringLiteral("Municipio"), Municipio, 3, 5);
    par(campo("CPostal").etiqueta, texto("CPostal"), 8, 2);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* columnaV = new QVBoxLayout(this);
    columnaV->addLayout(g);
    columnaV->addStretch(1);
    columnaV->addLayout(botones);
    PrepararVentana(this, a);
}

void Form108::llenarMunicipios() {
    const QString provincia = Codigo(Provincia);
    QList<OpcionVias> municipios;
    if (!provincia.isEmpty()) {
        try {
            Conexion vias = AbrirVias(s_);
            municipios = MunicipiosVias(vias, provincia);
        } catch (const ErrorQuilmar& e) {
            d_.Informar(e.mensaje());
        }
    }
    Llenar(Municipio, municipios, inmueble_.codMunicipio, inmueble_.municipio);
}

Inmueble347 Form108::inmueble() const {
    Inmueble347 r = inmueble_;
    r.situacion =
        Situacion->currentIndex() < 0 ? QString() : QString::number(Situacion->currentIndex() + 1);
    for (auto it = textos_.cbegin(); it != textos_.cend(); ++it)
        PonerInmueble347(r, it.key(), it.value()->text());
    r.tipoVia = Codigo(TipoVia);
    r.tipoNumero = tipoNumero_->currentText();
    r.calificador = calificador_->currentText();
    r.codProvincia = Codigo(Provincia);
    r.provincia = Mayusculas347(Provincia->currentText());
    r.codMunicipio = Codigo(Municipio);
    r.municipio = Mayusculas347(Municipio->currentText());
    return r;
}

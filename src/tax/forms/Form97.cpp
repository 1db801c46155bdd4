#include "tax/forms/Form97.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Ventana.h"
#include "tax/Campos347.h"
#include "tax/Listado347.h"
#include "tax/forms/Cajas347.h"
#include "tax/forms/Form108.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

int PorHoja(Hoja347 hoja) {
    return hoja == Hoja347::Inmuebles ? InmueblesPorHoja : DeclaradosPorHoja;
}

QWidget* Desplazable(QWidget* hoja) {
    auto* d = new QScrollArea;
    d->setWidgetResizable(true);
    d->setWidget(hoja);
    return d;
}

// A row of fields, each under its caption.
QGridLayout* FilaCampos(const QList<std::pair<QString, QWidget*>>& campos) {
    auto* g = new QGridLayout;
    g->setVerticalSpacing(1);
    int columna = 0;
    for (const auto& [etiqueta, w] : campos) {
        auto* l = new QLabel(etiqueta);
        l->setWordWrap(true);
        l->setBuddy(w);
        l->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        QFont f = l->font();
        f.setPointSizeF(f.pointSizeF() * 0.9);
        l->setFont(f);
        g->addWidget(l, 0, columna);
        g->addWidget(w, 1, columna);
        ++columna;
    }
    g->setColumnStretch(columna, 1);
    return g;
}

} // namespace

Form97::Form97(Sesion& s, Ajustes& a, Dialogo& d, const Modelo347& modelo, QWidget* padre)
    : PantallaModelo(s, a, d, QStringLiteral("Form97"), QStringLiteral("Quilmar [Modelo 347]"),
                     padre),
      m_(modelo) {
    orientacion_ = QPageLayout::Landscape;
    plataforma.elegirJava = [this] {
        return QFileDialog::getOpenFileName(this, QStringLiteral("Seleccione Java"),
                                            QStringLiteral("/"),
                                            QStringLiteral("Java (java java.exe);;Todos (*)"));
    };
    plataforma.abrirDocumento = [](const QString& ruta) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(ruta));
    };

    titulo_ = new QLabel(this);
    titulo_->setObjectName(QStringLiteral("Titulo"));
    QFont grande = titulo_->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.3);
    titulo_->setFont(grande);
    etiquetaHoja = new QLabel(this);
    etiquetaHoja->setObjectName(QStringLiteral("Hoja"));
    etiquetaHoja->setFont(grande);
    auto* cabecera = new QHBoxLayout;
    cabecera->addWidget(titulo_);
    cabecera->addStretch(1);
    cabecera->addWidget(etiquetaHoja);

    pila_ = new QStackedWidget(this);
    pila_->addWidget(Desplazable(crearResumen()));
    pila_->addWidget(Desplazable(crearDeclarados()));
    pila_->addWidget(Desplazable(crearInmuebles()));

    Command1 = new QPushButton(QStringLiteral("Hoja resumen"), this);
    Command2 = new QPushButton(QStringLiteral("Inmuebles"), this);
    Command3 = new QPushButton(QStringLiteral("< &Anterior"), this);
    Command4 = new QPushButton(QStringLiteral("Si&guiente >"), this);
    Command5 = new QPushButton(QStringLiteral("Imprimir &Borrador"), this);
    Command6 = new QPushButton(QStringLiteral("Imprimir &Mod. oficial"), this);
    Command7 = new QPushButton(QStringLiteral("Envío Telemático"), this);
    Command8 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command9 = new QPushButton(QStringLiteral("&Salir"), this);
    Command8->setEnabled(false); // no help pages yet
    auto* paso = new QHBoxLayout;
    auto* acciones = new QHBoxLayout;
    int i = 1;
    for (QPushButton* b : {Command1, Command2, Command3, Command4, Command5, Command6, Command7,
                           Command8, Command9}) {
        b->setObjectName(QStringLiteral("Command%1").arg(i));
        b->setAutoDefault(false);
        (i <= 4 ? paso : acciones)->addWidget(b);
        ++i;
    }
    paso->addStretch(1);
    acciones->insertStretch(3, 1);
    connect(Command1, &QPushButton::clicked, this, [this] { IrAHoja(Hoja347::Resumen); });
    connect(Command2, &QPushButton::clicked, this, [this] { IrAHoja(Hoja347::Inmuebles); });
    connect(Command3, &QPushButton::clicked, this, &Form97::Anterior);
    connect(Command4, &QPushButton::clicked, this, &Form97::Siguiente);
    connect(Command5, &QPushButton::clicked, this, &Form97::ImprimirBorrador);
    connect(Command6, &QPushButton::clicked, this, [this] { Presentar(0); });
    connect(Command7, &QPushButton::clicked, this, [this] { Presentar(1); });
    connect(Command9, &QPushButton::clicked, this, &QDialog::close);
    new QShortcut(QKeySequence(Qt::Key_PageDown), this, this, &Form97::Siguiente);
    new QShortcut(QKeySequence(Qt::Key_PageUp), this, this, &Form97::Anterior);

    auto* columna = new QVBoxLayout(this);
    columna->addLayout(cabecera);
    columna->addWidget(pila_, 1);
    columna->addLayout(paso);
    columna->addLayout(acciones);
    resize(1180, 860);
    PrepararVentana(this, a);
    IrAHoja(Hoja347::Resumen);
}

QWidget* Form97::caja(Hoja347 hoja, int linea, const Campo347& campo) {
    const QString nombre = linea < 0 ? campo.nombre : campo.nombre + QString::number(linea + 1);
    QWidget* w = nullptr;
    switch (campo.admite) {
    case Admite347::Importe: {
        CajaCasilla* c = NuevaCasilla(nombre);
        connect(c, &CajaCasilla::editada, this, [this, c] { escribir(c); });
        w = c;
        break;
    }
    case Admite347::Marca: {
        CajaMarca* c = NuevaMarca(nombre);
        connect(c, &QLineEdit::textChanged, this, [this, c] { escribir(c); });
        w = c;
        break;
    }
    case Admite347::TipoNumero:
    case Admite347::Calificador: {
        QComboBox* c = NuevaLista347(this, campo, nombre);
        connect(c, &QComboBox::activated, this, [this, c] { escribir(c); });
        w = c;
        break;
    }
    default: {
        // A party's NIF gathered from the books may be longer than the file takes: it is shown
        // whole, and refused in words when the user leaves it or the file is made.
        QLineEdit* e = NuevoCampo347(this, campo, nombre, campo.nombre == u"NifDeclarado");
        connect(e, &QLineEdit::editingFinished, this, [this, e] { escribir(e); });
        w = e;
        break;
    }
    }
    w->setToolTip(campo.etiqueta);
    ubicaciones_.insert(w, {hoja, linea, campo.nombre});
    return w;
}

QWidget* Form97::crearResumen() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);
    auto grupo = [&](const QString& titulo, const QList<QStringList>& filas) {
        auto* g = new QGroupBox(titulo);
        auto* v = new QVBoxLayout(g);
        for (const QStringList& fila : filas) {
            QList<std::pair<QString, QWidget*>> campos;
            for (const QString& nombre : fila) {
                const Campo347* c = BuscarCampo347(Hoja347::Resumen, nombre);
                campos.append({c->etiqueta, caja(Hoja347::Resumen, -1, *c)});
            }
            v->addLayout(FilaCampos(campos));
        }
        columna->addWidget(g);
    };
    grupo(QStringLiteral("Declarante"), {{QStringLiteral("NIF"), QStringLiteral("Nombre")},
                                         {QStringLiteral("Telefono"), QStringLiteral("Contacto")},
                                         {QStringLiteral("Representante")}});
    grupo(QStringLiteral("Tipo de declaración"),
          {{QStringLiteral("Ejercicio"), QStringLiteral("Impreso"), QStringLiteral("Telematico")},
           {QStringLiteral("Complementaria"), QStringLiteral("Modificacion"),
            QStringLiteral("Sustitutiva"), QStringLiteral("Justificante")}});
    grupo(QStringLiteral("Resumen de los datos incluidos en la declaración"),
          {{QStringLiteral("NumDeclarados"), QStringLiteral("TotalDeclarados")},
           {QStringLiteral("NumInmuebles"), QStringLiteral("TotalInmuebles")}});
    columna->addStretch(1);
    return hoja;
}

QWidget* Form97::crearDeclarados() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);
    const QList<QStringList> filas{
        {QStringLiteral("NifDeclarado"), QStringLiteral("NifRepresentante"),
         QStringLiteral("NombreDeclarado")},
        {QStringLiteral("Provincia"), QStringLiteral("Pais"), QStringLiteral("Clave"),
         QStringLiteral("Importe"), QStringLiteral("Seguro"), QStringLiteral("Arrendamiento"),
         QStringLiteral("Metalico"), QStringLiteral("AnoMetalico"),
         QStringLiteral("Transmisiones")}};
    for (int k = 0; k < DeclaradosPorHoja; ++k) {
        auto* g = new QGroupBox(QStringLiteral("Declarado %1").arg(k + 1));
        g->setObjectName(QStringLiteral("Declarado%1").arg(k + 1));
        auto* v = new QVBoxLayout(g);
        for (int f = 0; f < filas.size(); ++f) {
            QList<std::pair<QString, QWidget*>> campos;
            for (const QString& nombre : filas.at(f)) {
                const Campo347* c = BuscarCampo347(Hoja347::Declarados, nombre);
                campos.append({c->etiqueta, caja(Hoja347::Declarados, k, *c)});
            }
            QGridLayout* fila = FilaCampos(campos);
            if (f == 0) {
                auto* boton = new QPushButton(QStringLiteral("Quitar"), g);
                boton->setObjectName(QStringLiteral("Quitar%1").arg(k + 1));
                boton->setAutoDefault(false);
                boton->setToolTip(QStringLiteral("Quita este declarado de la declaración"));
                connect(boton, &QPushButton::clicked, this,
                        [this, k] { quitar(Hoja347::Declarados, k); });
                fila->addWidget(boton, 1, fila->columnCount());
            }
            v->addLayout(fila);
        }
        columna->addWidget(g);
    }
    columna->addStretch(1);
    return hoja;
}

QWidget* Form97::crearInmuebles() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);
    const QList<QStringList> filas{
        {QStringLiteral("NifArrendatario"), QStringLiteral("NifRepresentanteInm"),
         QStringLiteral("NombreArrendatario"), QStringLiteral("ImporteInm"),
         QStringLiteral("Situacion"), QStringLiteral("Referencia")},
        {QStringLiteral("TipoVia"), QStringLiteral("Via"), QStringLiteral("TipoNumero"),
         QStringLiteral("NumeroCasa"), QStringLiteral("Calificador"), QStringLiteral("Bloque"),
         QStringLiteral("Portal"), QStringLiteral("Escalera"), QStringLiteral("Planta"),
         QStringLiteral("Puerta")},
        {QStringLiteral("Complemento"), QStringLiteral("Localidad"), QStringLiteral("Municipio"),
         QStringLiteral("CodMunicipio"), QStringLiteral("ProvinciaInm"),
         QStringLiteral("CodProvincia"), QStringLiteral("CPostal")}};
    for (int k = 0; k < InmueblesPorHoja; ++k) {
        auto* g = new QGroupBox(QStringLiteral("Inmueble %1").arg(k + 1));
        g->setObjectName(QStringLiteral("Inmueble%1").arg(k + 1));
        auto* v = new QVBoxLayout(g);
        for (int f = 0; f < filas.size(); ++f) {
            QList<std::pair<QString, QWidget*>> campos;
            for (const QString& nombre : filas.at(f)) {
                const Campo347* c = BuscarCampo347(Hoja347::Inmuebles, nombre);
                campos.append({c->etiqueta, caja(Hoja347::Inmuebles, k, *c)});
            }
            QGridLayout* fila = FilaCampos(campos);
            // The address is kept in its own dialog, from any of the property's three rows.
            auto* detalle = new QPushButton(QStringLiteral("..."), g);
            detalle->setObjectName(QStringLiteral("Domicilio%1%2").arg(k + 1).arg(QChar(u'a' + f)));
            detalle->setAutoDefault(false);
            detalle->setToolTip(QStringLiteral("Domicilio del inmueble"));
            detalle->setFixedWidth(
                detalle->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 16);
            connect(detalle, &QPushButton::clicked, this, [this, k] { domicilio(k); });
            const int c = fila->columnCount();
            fila->addWidget(detalle, 1, c);
            if (f == 0) {
                auto* boton = new QPushButton(QStringLiteral("Quitar"), g);
                boton->setObjectName(QStringLiteral("QuitarInm%1").arg(k + 1));
                boton->setAutoDefault(false);
                boton->setToolTip(QStringLiteral("Quita este inmueble de la declaración"));
                connect(boton, &QPushButton::clicked, this,
                        [this, k] { quitar(Hoja347::Inmuebles, k); });
                fila->addWidget(boton, 1, c + 1);
            }
            v->addLayout(fila);
        }
        columna->addWidget(g);
    }
    columna->addStretch(1);
    return hoja;
}

int Form97::paginasPermitidas(Hoja347 hoja) const {
    const int n = hoja == Hoja347::Inmuebles ? m_.inmuebles.size() : m_.declarados.size();
    return std::max(1, Hojas347(n + 1, PorHoja(hoja)));
}

int Form97::indice(const Ubicacion& u) const {
    return u.linea < 0 ? -1 : pagina_ * PorHoja(u.hoja) + u.linea;
}

QString Form97::textoDe(QWidget* w) const {
    if (auto* e = qobject_cast<QLineEdit*>(w))
        return e->text();
    if (auto* c = qobject_cast<QComboBox*>(w))
        return c->currentText();
    return {};
}

void Form97::ponerTexto(QWidget* w, const QString& texto) {
    const bool antes = cargando_;
    cargando_ = true;
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        e->setText(texto);
        e->setModified(false);
    } else if (auto* c = qobject_cast<QComboBox*>(w)) {
        ElegirEnLista347(c, texto);
    }
    cargando_ = antes;
}

void Form97::escribir(QWidget* w) {
    if (cargando_ || !ubicaciones_.contains(w))
        return;
    const Ubicacion u = ubicaciones_.value(w);
    if (u.hoja != hoja_ && u.hoja != Hoja347::Resumen)
        return;
    try {
        PonerCampo347(m_, u.hoja, indice(u), u.campo, textoDe(w));
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        if (e.mensaje() == MsgRegistrosEnBlanco) {
            // The next free line takes what is typed.
            ponerTexto(w, QString());
            const int libre =
                u.hoja == Hoja347::Inmuebles ? m_.inmuebles.size() : m_.declarados.size();
            const int por = PorHoja(u.hoja);
            IrAHoja(u.hoja, libre / por);
            activateWindow();
            Enfocar(Campos347(u.hoja).first().nombre + QString::number(libre % por + 1));
            return;
        }
        ponerTexto(w, LeerCampo347(m_, u.hoja, indice(u), u.campo));
        activateWindow();
        w->setFocus();
        if (auto* l = qobject_cast<QLineEdit*>(w))
            l->selectAll();
        return;
    }
    mostrar();
}

void Form97::confirmarFoco() {
    QWidget* w = focusWidget();
    if (w && ubicaciones_.contains(w) && qobject_cast<QLineEdit*>(w))
        escribir(w);
}

void Form97::mostrar() {
    for (auto it = ubicaciones_.cbegin(); it != ubicaciones_.cend(); ++it) {
        const Ubicacion& u = it.value();
        if (u.hoja != Hoja347::Resumen && u.hoja != hoja_)
            continue;
        ponerTexto(it.key(), LeerCampo347(m_, u.hoja, indice(u), u.campo));
    }
    switch (hoja_) {
    case Hoja347::Resumen:
        titulo_->setText(QStringLiteral("Hoja resumen"));
        etiquetaHoja->clear();
        break;
    case Hoja347::Declarados:
    case Hoja347::Inmuebles: {
        const bool declarados = hoja_ == Hoja347::Declarados;
        titulo_->setText(declarados ? QStringLiteral("Relación de declarados")
                                    : QStringLiteral("Relación de inmuebles"));
        const int n = declarados ? m_.declarados.size() : m_.inmuebles.size();
        etiquetaHoja->setText(
            TextoHoja347(pagina_ + 1, std::max(Hojas347(n, PorHoja(hoja_)), pagina_ + 1)));
        break;
    }
    }
    Command3->setEnabled(hoja_ != Hoja347::Resumen);
    Command4->setEnabled(
        !(hoja_ == Hoja347::Inmuebles && pagina_ + 1 >= paginasPermitidas(Hoja347::Inmuebles)));
}

void Form97::IrAHoja(Hoja347 hoja, int pagina) {
    confirmarFoco();
    // The box keeps its place on the next page: what it held is written, and leaving it now must
    // not write it again on the other page's line.
    if (QWidget* w = focusWidget(); w && ubicaciones_.contains(w)) {
        cargando_ = true;
        w->clearFocus();
        cargando_ = false;
    }
    hoja_ = hoja;
    pagina_ = hoja == Hoja347::Resumen ? 0 : std::clamp(pagina, 0, paginasPermitidas(hoja) - 1);
    pila_->setCurrentIndex(static_cast<int>(hoja));
    mostrar();
}

void Form97::Siguiente() {
    switch (hoja_) {
    case Hoja347::Resumen:
        IrAHoja(Hoja347::Declarados, 0);
        return;
    case Hoja347::Declarados:
        if (pagina_ + 1 < paginasPermitidas(Hoja347::Declarados))
            IrAHoja(Hoja347::Declarados, pagina_ + 1);
        else
            IrAHoja(Hoja347::Inmuebles, 0);
        return;
    case Hoja347::Inmuebles:
        if (pagina_ + 1 < paginasPermitidas(Hoja347::Inmuebles))
            IrAHoja(Hoja347::Inmuebles, pagina_ + 1);
        return;
    }
}

void Form97::Anterior() {
    switch (hoja_) {
    case Hoja347::Resumen:
        return;
    case Hoja347::Declarados:
        IrAHoja(pagina_ > 0 ? Hoja347::Declarados : Hoja347::Resumen, pagina_ - 1);
        return;
    case Hoja347::Inmuebles:
        if (pagina_ > 0)
            IrAHoja(Hoja347::Inmuebles, pagina_ - 1);
        else
            IrAHoja(Hoja347::Declarados, paginasPermitidas(Hoja347::Declarados) - 1);
        return;
    }
}

void Form97::EnfocarFallo(const Fallo347& f) {
    // The message box that told the failure may leave this window inactive, and a box focused
    // in an inactive window would not write back what is typed in it when left.
    activateWindow();
    if (f.hoja == Hoja347::Resumen || f.indice < 0) {
        IrAHoja(Hoja347::Resumen);
        Enfocar(f.campo);
        return;
    }
    const int por = PorHoja(f.hoja);
    IrAHoja(f.hoja, f.indice / por);
    Enfocar(f.campo + QString::number(f.indice % por + 1));
}

void Form97::quitar(Hoja347 hoja, int linea) {
    confirmarFoco();
    const int i = pagina_ * PorHoja(hoja) + linea;
    const bool declarados = hoja == Hoja347::Declarados;
    if (i >= (declarados ? m_.declarados.size() : m_.inmuebles.size()))
        return;
    const QString cual =
        QStringLiteral("%1 %2 de la página %3")
            .arg(declarados ? QStringLiteral("el Declarado") : QStringLiteral("el Inmueble"))
            .arg(linea + 1)
            .arg(pagina_ + 1);
    if (!d_.Preguntar(QStringLiteral("¿Desea quitar de la declaración %1?").arg(cual)))
        return;
    if (declarados)
        m_.declarados.removeAt(i);
    else
        m_.inmuebles.removeAt(i);
    IrAHoja(hoja, pagina_);
}

void Form97::domicilio(int linea) {
    confirmarFoco();
    const int i = pagina_ * InmueblesPorHoja + linea;
    if (i >= m_.inmuebles.size() || m_.inmuebles.at(i).nif.trimmed().isEmpty()) {
        d_.Informar(MsgNifAntesQueDomicilio);
        Enfocar(QStringLiteral("NifArrendatario%1").arg(linea + 1));
        return;
    }
    Form108 f(s_, a_, d_, m_.inmuebles.at(i), this);
    if (f.exec() != QDialog::Accepted)
        return;
    m_.inmuebles[i] = f.inmueble();
    mostrar();
}

void Form97::ImprimirBorrador() {
    confirmarFoco();
    const Modelo347 m = m_;
    Imprimir([m](Impresora& imp, const QString& fuente,
                 double tamano) { DibujarBorrador347(imp, m, fuente, tamano); },
             QStringLiteral("Modelo 347"));
}

void Form97::Presentar(int indice) {
    confirmarFoco();
    Plataforma347 p = plataforma;
    p.elegirCarpeta = elegirCarpeta;
    std::optional<Fallo347> fallo;
    Intentar([&] { fallo = Presentar347(s_, a_, m_, indice, d_, p); });
    mostrar();
    if (fallo)
        EnfocarFallo(*fallo);
}

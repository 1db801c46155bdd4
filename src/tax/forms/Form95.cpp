#include "tax/forms/Form95.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form95::Form95(Sesion& s, Ajustes& a, Dialogo& d, const Modelo115& modelo, QWidget* padre)
    : PantallaModelo(s, a, d, QStringLiteral("Form95"), QStringLiteral("Quilmar [Modelo 115]"),
                     padre),
      m_(modelo) {
    QWidget* campos = crearCampos(); // first, so that the tab order starts at the fields
    Command1 = new QPushButton(QStringLiteral("&Imprimir Borrador"), this);
    Command2 = new QPushButton(QStringLiteral("Imprimir Mod. oficial"), this);
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command4 = new QPushButton(QStringLiteral("&Salir"), this);
    Command3->setEnabled(false); // no help pages yet
    connect(Command1, &QPushButton::clicked, this, &Form95::ImprimirBorrador);
    connect(Command2, &QPushButton::clicked, this, &Form95::ImprimirModOficial);
    connect(Command4, &QPushButton::clicked, this, &QDialog::close);

    Montar(campos, {Command1, Command2, Command3, Command4}, 2, {820, 720});
    mostrar();
}

QWidget* Form95::crearCampos() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);
    auto texto = [&](const char* nombre, int largo, QString Modelo115::*miembro,
                     QValidator* v = nullptr) {
        QLineEdit* e = NuevoTexto(QString::fromLatin1(nombre), largo, v);
        textos_.append({e, miembro});
        return e;
    };
    auto cifras = [&](const char* nombre, int largo, QString Modelo115::*miembro) {
        QLineEdit* e = NuevasCifras(QString::fromLatin1(nombre), largo);
        textos_.append({e, miembro});
        return e;
    };

    auto* oficina = new QGroupBox(QStringLiteral("Delegación y Administración de la AEAT"));
    auto* go = new QGridLayout(oficina);
    Fila(go, 0, 0, QStringLiteral("Código de la Administración"),
         cifras("Administracion", 5, &Modelo115::administracion));
    Fila(go, 0, 2, QStringLiteral("Delegación de"),
         texto("Delegacion", 20, &Modelo115::delegacion));
    Fila(go, 1, 2, QStringLiteral("Administración de"),
         texto("NombreAdministracion", 20, &Modelo115::nombreAdministracion));
    go->setColumnStretch(3, 1);
    columna->addWidget(oficina);

    auto* ident = new QGroupBox(QStringLiteral("Identificación"));
    auto* gi = new QGridLayout(ident);
    Fila(gi, 0, 0, QStringLiteral("Ejercicio"), cifras("Ejercicio", 4, &Modelo115::ejercicio));
    Fila(gi, 0, 2, QStringLiteral("Periodo"),
         texto("Periodo", 2, &Modelo115::periodo, new ValidadorMayusculas(nullptr)));
    Fila(gi, 1, 0, QStringLiteral("N.I.F."),
         texto("NIF", 9, &Modelo115::nif, new ValidadorMayusculas(nullptr)));
    Fila(gi, 1, 2, QStringLiteral("Apellidos o razón social"),
         texto("Apellidos", 30, &Modelo115::apellidos,
               new ValidadorNombre(CampoNombre::Apellidos, nullptr)));
    Fila(
        gi, 2, 2, QStringLiteral("Nombre"),
        texto("Nombre", 15, &Modelo115::nombre, new ValidadorNombre(CampoNombre::Nombre, nullptr)));
    Fila(gi, 3, 0, QStringLiteral("Calle/Pza./Avda"), texto("Siglas", 2, &Modelo115::siglas));
    Fila(gi, 3, 2, QStringLiteral("Nombre de la vía pública"), texto("Via", 17, &Modelo115::via));
    Fila(gi, 4, 0, QStringLiteral("Número"), texto("Numero", 4, &Modelo115::numero));
    Fila(gi, 4, 2, QStringLiteral("Esc."), texto("Escalera", 2, &Modelo115::escalera));
    Fila(gi, 5, 0, QStringLiteral("Piso"), texto("Piso", 2, &Modelo115::piso));
    Fila(gi, 5, 2, QStringLiteral("Pta."), texto("Puerta", 2, &Modelo115::puerta));
    Fila(gi, 6, 0, QStringLiteral("Teléfono"), cifras("Telefono", 9, &Modelo115::telefono));
    Fila(gi, 6, 2, QStringLiteral("Municipio"), texto("Municipio", 20, &Modelo115::municipio));
    Fila(gi, 7, 0, QStringLiteral("Cód. Postal"), cifras("CPostal", 5, &Modelo115::cpostal));
    Fila(gi, 7, 2, QStringLiteral("Provincia"), texto("Provincia", 15, &Modelo115::provincia));
    gi->setColumnStretch(3, 1);
    columna->addWidget(ident);

    auto* liquidacion = new QGroupBox(QStringLiteral("Retenciones e ingresos a cuenta"));
    auto* gl = new QGridLayout(liquidacion);
    Fila(gl, 0, 0, QStringLiteral("01  Nº de perceptores"),
         cifras("Casilla01", 6, &Modelo115::perceptores));
    const QStringList etiquetas{
        QStringLiteral("02  Base de las retenciones e ingresos a cuenta"),
        QStringLiteral("03  Retenciones e ingresos a cuenta"),
        QStringLiteral("04  A deducir: (exclusivamente en caso de declaración complementaria) "
                       "Resultado de la anterior declaración"),
        QStringLiteral("05  Resultado a ingresar")};
    for (int n = 2; n <= 5; ++n) {
        CajaCasilla* c = NuevaCasilla(QStringLiteral("Casilla%1").arg(n, 2, 10, QLatin1Char('0')));
        casillas_.insert(n, c);
        connect(c, &CajaCasilla::editada, this, [this, n] { casillaEditada(n); });
        Fila(gl, n - 1, 0, etiquetas.at(n - 2), c);
    }
    gl->setColumnStretch(0, 1);
    columna->addWidget(liquidacion);

    auto* ingreso = new QGroupBox(QStringLiteral("Ingreso"));
    auto* gp = new QGridLayout(ingreso);
    importe_ = NuevaCasilla(QStringLiteral("Importe"));
    connect(importe_, &CajaCasilla::editada, this, [this] { casillaEditada(0); });
    complementaria_ = NuevaMarca(QStringLiteral("Complementaria"));
    efectivo_ = NuevaMarca(QStringLiteral("Efectivo"), true);
    adeudo_ = NuevaMarca(QStringLiteral("Adeudo"), true);
    Excluyentes(efectivo_, adeudo_);
    cargo_ = NuevaCuenta(QStringLiteral("CuentaCargo"));
    Fila(gp, 0, 0, QStringLiteral("Importe:"), importe_);
    auto* formas = new QHBoxLayout;
    formas->addWidget(new QLabel(QStringLiteral("En efectivo")));
    formas->addWidget(efectivo_);
    formas->addSpacing(30);
    formas->addWidget(new QLabel(QStringLiteral("Adeudo en cuenta")));
    formas->addWidget(adeudo_);
    formas->addStretch(1);
    gp->addLayout(formas, 1, 0, 1, 2);
    gp->addWidget(cargo_, 2, 0, 1, 2);
    Fila(gp, 3, 0, QStringLiteral("Declaración complementaria"), complementaria_);
    Fila(gp, 4, 0, QStringLiteral("Nº de justificante"),
         texto("Justificante", 13, &Modelo115::justificante));
    columna->addWidget(ingreso);

    auto* firma = new QGroupBox(QStringLiteral("Lugar y fecha"));
    auto* gf = new QGridLayout(firma);
    CamposFirma(gf, 0);
    columna->addWidget(firma);
    columna->addStretch(1);
    return hoja;
}

void Form95::leerCampos() {
    for (const auto& [campo, miembro] : textos_)
        m_.*miembro = campo->text().trimmed();
    m_.complementaria = complementaria_->marcada();
    m_.efectivo = efectivo_->marcada();
    m_.adeudo = adeudo_->marcada();
    m_.cuentaCargo = cargo_->cuenta();
    m_.firma = Firma();
}

void Form95::mostrar() {
    for (const auto& [campo, miembro] : textos_)
        campo->setText(m_.*miembro);
    for (auto it = casillas_.cbegin(); it != casillas_.cend(); ++it) {
        it.value()->setText(TextoCasilla(m_[it.key()]));
        it.value()->setModified(false);
    }
    importe_->setText(TextoCasilla(m_.importe));
    importe_->setModified(false);
    complementaria_->marcar(m_.complementaria);
    efectivo_->marcar(m_.efectivo);
    adeudo_->marcar(m_.adeudo);
    cargo_->ponerCuenta(m_.cuentaCargo);
    PonerFirma(m_.firma);
}

bool Form95::casillaEditada(int n) {
    CajaCasilla* caja = n == 0 ? importe_ : casillas_.value(n);
    leerCampos();
    try {
        const Casilla v = LeerCasilla(caja->text());
        if (n == 0)
            m_.importe = v;
        else
            m_[n] = v;
    } catch (const Rechazo& e) {
        d_.Informar(e.mensaje());
        caja->setText(TextoCasilla(n == 0 ? m_.importe : m_[n]));
        caja->setFocus();
        caja->selectAll();
        return false;
    }
    Recalcular115(m_);
    mostrar();
    return true;
}

bool Form95::confirmarCasillas() {
    for (int n : {2, 3, 4, 5, 0}) {
        CajaCasilla* caja = n == 0 ? importe_ : casillas_.value(n);
        if (caja->text().trimmed() == TextoCasilla(n == 0 ? m_.importe : m_[n]))
            continue;
        if (!casillaEditada(n))
            return false;
    }
    leerCampos();
    return true;
}

void Form95::ImprimirBorrador() {
    if (!confirmarCasillas())
        return;
    const Modelo115 m = m_;
    Imprimir([m](Impresora& imp, const QString& fuente,
                 double tamano) { DibujarBorrador115(imp, m, fuente, tamano); },
             QStringLiteral("Modelo 115"));
}

void Form95::ImprimirModOficial() {
    if (!confirmarCasillas())
        return;
    std::optional<FalloModelo> fallo;
    Intentar([&] { fallo = Presentar115(s_, m_, d_, elegirCarpeta); });
    mostrar();
    if (fallo)
        Enfocar(fallo->campo);
}

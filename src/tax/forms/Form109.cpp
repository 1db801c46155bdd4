#include "tax/forms/Form109.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString Nombre(int n) {
    return QStringLiteral("Casilla%1").arg(n, 2, 10, QLatin1Char('0'));
}

QLabel* Cabeza(const QString& texto) {
    auto* l = new QLabel(texto);
    l->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

} // namespace

Form109::Form109(Sesion& s, Ajustes& a, Dialogo& d, const Modelo303& modelo, QWidget* padre)
    : PantallaModelo(s, a, d, QStringLiteral("Form109"), QStringLiteral("Quilmar [Modelo 303]"),
                     padre),
      m_(modelo), libros_(s) {
    QWidget* campos = crearCampos(); // first, so that the tab order starts at the fields
    Command1 = new QPushButton(QStringLiteral("&Imprimir Borrador"), this);
    Command2 = new QPushButton(QStringLiteral("Imprimir Mod. oficial"), this);
    Command3 = new QPushButton(QStringLiteral("Presentación internet"), this);
    Command4 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command5 = new QPushButton(QStringLiteral("&Salir"), this);
    Command4->setEnabled(false); // no help pages yet
    connect(Command1, &QPushButton::clicked, this, &Form109::ImprimirBorrador);
    connect(Command2, &QPushButton::clicked, this, &Form109::ImprimirModOficial);
    connect(Command3, &QPushButton::clicked, this, &Form109::PresentacionInternet);
    connect(Command5, &QPushButton::clicked, this, &QDialog::close);

    Montar(campos, {Command1, Command2, Command3, Command4, Command5}, 3, {900, 760});
    mostrar();
}

QWidget* Form109::crearCampos() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);

    // Identification.
    auto* ident = new QGroupBox(QStringLiteral("Identificación"));
    auto* gi = new QGridLayout(ident);
    ejercicio_ = NuevasCifras(QStringLiteral("Ejercicio"), 4);
    periodo_ = NuevoTexto(QStringLiteral("Periodo"), 2, new ValidadorMayusculas(nullptr));
    nif_ = NuevoTexto(QStringLiteral("NIF"), 9, new ValidadorMayusculas(nullptr));
    apellidos_ = NuevoTexto(QStringLiteral("Apellidos"), 30,
                            new ValidadorNombre(CampoNombre::Apellidos, nullptr));
    nombre_ =
        NuevoTexto(QStringLiteral("Nombre"), 15, new ValidadorNombre(CampoNombre::Nombre, nullptr));
    Fila(gi, 0, 0, QStringLiteral("Ejercicio"), ejercicio_);
    Fila(gi, 0, 2, QStringLiteral("Periodo"), periodo_);
    Fila(gi, 1, 0, QStringLiteral("N.I.F."), nif_);
    Fila(gi, 1, 2, QStringLiteral("Apellidos o razón social"), apellidos_);
    Fila(gi, 2, 2, QStringLiteral("Nombre"), nombre_);
    si_ = NuevaMarca(QStringLiteral("InscritoSi"));
    no_ = NuevaMarca(QStringLiteral("InscritoNo"));
    sinActividad_ = NuevaMarca(QStringLiteral("SinActividad"));
    auto* inscrito = new QHBoxLayout;
    inscrito->addWidget(
        new QLabel(QStringLiteral("¿Está inscrito en el Registro de devolución mensual?")));
    inscrito->addWidget(new QLabel(QStringLiteral("SI")));
    inscrito->addWidget(si_);
    inscrito->addWidget(new QLabel(QStringLiteral("NO")));
    inscrito->addWidget(no_);
    inscrito->addSpacing(30);
    inscrito->addWidget(new QLabel(QStringLiteral("Sin actividad")));
    inscrito->addWidget(sinActividad_);
    inscrito->addStretch(1);
    gi->addLayout(inscrito, 3, 0, 1, 4);
    gi->setColumnStretch(3, 1);
    columna->addWidget(ident);

    for (int n = 1; n <= 50; ++n) {
        CajaCasilla* c = NuevaCasilla(Nombre(n));
        casillas_.insert(n, c);
        connect(c, &CajaCasilla::editada, this, [this, n] { casillaEditada(n); });
    }
    importe_ = NuevaCasilla(QStringLiteral("Importe"));
    connect(importe_, &CajaCasilla::editada, this, [this] { casillaEditada(0); });

    // Output VAT: the rate lines, then the intra-community acquisitions and the total.
    auto* devengado = new QGroupBox(QStringLiteral("IVA devengado"));
    auto* gd = new QGridLayout(devengado);
    gd->addWidget(Cabeza(QStringLiteral("Base imponible")), 0, 1);
    gd->addWidget(Cabeza(QStringLiteral("Tipo %")), 0, 2);
    gd->addWidget(Cabeza(QStringLiteral("Cuota")), 0, 3);
    for (int linea = 0; linea < 6; ++linea) {
        if (linea == 0)
            gd->addWidget(new QLabel(QStringLiteral("Régimen general")), 1, 0);
        if (linea == 3)
            gd->addWidget(new QLabel(QStringLiteral("Recargo equivalencia")), 4, 0);
        for (int k = 0; k < 3; ++k)
            gd->addWidget(casillas_.value(3 * linea + 1 + k), linea + 1, k + 1);
    }
    gd->addWidget(new QLabel(QStringLiteral("Adq. intracomunitarias")), 7, 0);
    gd->addWidget(casillas_.value(19), 7, 1);
    gd->addWidget(casillas_.value(20), 7, 3);
    gd->addWidget(new QLabel(QStringLiteral("Total cuota devengada")), 8, 0);
    gd->addWidget(casillas_.value(21), 8, 3);
    gd->setColumnStretch(0, 1);
    columna->addWidget(devengado);

    // Input VAT.
    auto* deducible = new QGroupBox(QStringLiteral("IVA deducible"));
    auto* gs = new QGridLayout(deducible);
    gs->addWidget(Cabeza(QStringLiteral("Base imponible")), 0, 1);
    gs->addWidget(Cabeza(QStringLiteral("Cuota")), 0, 2);
    const QStringList pares{
        QStringLiteral("Por cuotas soportadas en op. interiores corrientes"),
        QStringLiteral("Por cuotas soportadas en op. interiores bienes inversión"),
        QStringLiteral("Por cuotas devengadas importaciones bienes corrientes"),
        QStringLiteral("Por cuotas devengadas importaciones bienes inversión"),
        QStringLiteral("En adquisiciones intracomunitarias de bienes corrientes"),
        QStringLiteral("En adquisiciones intracomunitarias de bienes inversión")};
    int fila = 1;
    for (int i = 0; i < pares.size(); ++i, ++fila) {
        gs->addWidget(new QLabel(pares.at(i)), fila, 0);
        gs->addWidget(casillas_.value(22 + 2 * i), fila, 1);
        gs->addWidget(casillas_.value(23 + 2 * i), fila, 2);
    }
    const QList<std::pair<int, QString>> sueltas{
        {34, QStringLiteral("Compensación Régimen Especial A. G. y P.")},
        {35, QStringLiteral("Regularización inversiones")},
        {36, QStringLiteral("Regularización por aplicación porcentaje definitivo de prorrata")},
        {37, QStringLiteral("Total a deducir")}};
    for (const auto& [n, etiqueta] : sueltas) {
        gs->addWidget(new QLabel(etiqueta), fila, 0);
        gs->addWidget(casillas_.value(n), fila++, 2);
    }
    gs->setColumnStretch(0, 1);
    columna->addWidget(deducible);

    // Result.
    auto* resultado = new QGroupBox(QStringLiteral("Liquidación"));
    auto* gr = new QGridLayout(resultado);
    const QList<std::pair<int, QString>> lineas{
        {38, QStringLiteral("Diferencia")},
        {39, QStringLiteral("% Atribuible a la Administración del Estado")},
        {40, QStringLiteral("Atribuible a la Administración del Estado")},
        {41, QStringLiteral("Cuotas a compensar de periodos anteriores")},
        {42, QStringLiteral("Entregas intracomunitarias")},
        {43, QStringLiteral("Exportaciones y operaciones asimiladas")},
        {44, QStringLiteral("Op.no sujetas o inversión S.P. con derecho a deduc.")},
        {45, QStringLiteral("Tributación conjunta a la Administración del Estado y a las "
                            "Diputaciones Forales")},
        {46, QStringLiteral("Resultado")},
        {47, QStringLiteral("A deducir en caso de complementaria")},
        {48, QStringLiteral("Rdo.de la liquidación")},
        {49, QStringLiteral("A compensar (C)")},
        {50, QStringLiteral("Devolución (D)")}};
    fila = 0;
    for (const auto& [n, etiqueta] : lineas) {
        gr->addWidget(new QLabel(QStringLiteral("%1  %2").arg(n).arg(etiqueta)), fila, 0);
        gr->addWidget(casillas_.value(n), fila++, 1);
    }
    devolucion_ = NuevaCuenta(QStringLiteral("CuentaDevolucion"));
    gr->addWidget(new QLabel(QStringLiteral("Cuenta para la devolución")), fila, 0);
    gr->addWidget(devolucion_, fila++, 1);
    gr->setColumnStretch(0, 1);
    columna->addWidget(resultado);

    // Payment.
    auto* ingreso = new QGroupBox(QStringLiteral("Ingreso"));
    auto* gp = new QGridLayout(ingreso);
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
    columna->addWidget(ingreso);

    // Complementary return, place and date.
    auto* otros = new QGroupBox(QStringLiteral("Declaración complementaria, lugar y fecha"));
    auto* go = new QGridLayout(otros);
    complementaria_ = NuevaMarca(QStringLiteral("Complementaria"));
    justificante_ = NuevoTexto(QStringLiteral("Justificante"), 13);
    Fila(go, 0, 0, QStringLiteral("Autoliquidación complementaria"), complementaria_);
    Fila(go, 0, 2, QStringLiteral("Nº justificante"), justificante_);
    CamposFirma(go, 1);
    columna->addWidget(otros);
    columna->addStretch(1);
    return hoja;
}

void Form109::leerCampos() {
    m_.ejercicio = ejercicio_->text().trimmed();
    m_.periodo = periodo_->text().trimmed();
    m_.nif = nif_->text().trimmed();
    m_.apellidos = apellidos_->text().trimmed();
    m_.nombre = nombre_->text().trimmed();
    m_.inscritoSi = si_->marcada();
    m_.inscritoNo = no_->marcada();
    m_.sinActividad = sinActividad_->marcada();
    m_.cuentaDevolucion = devolucion_->cuenta();
    m_.efectivo = efectivo_->marcada();
    m_.adeudo = adeudo_->marcada();
    m_.cuentaCargo = cargo_->cuenta();
    m_.complementaria = complementaria_->marcada();
    m_.justificante = justificante_->text().trimmed();
    m_.firma = Firma();
}

void Form109::mostrar() {
    ejercicio_->setText(m_.ejercicio);
    periodo_->setText(m_.periodo);
    nif_->setText(m_.nif);
    apellidos_->setText(m_.apellidos);
    nombre_->setText(m_.nombre);
    si_->marcar(m_.inscritoSi);
    no_->marcar(m_.inscritoNo);
    sinActividad_->marcar(m_.sinActividad);
    for (auto it = casillas_.cbegin(); it != casillas_.cend(); ++it) {
        it.value()->setText(TextoCasilla(m_[it.key()]));
        it.value()->setModified(false);
    }
    importe_->setText(TextoCasilla(m_.importe));
    importe_->setModified(false);
    devolucion_->ponerCuenta(m_.cuentaDevolucion);
    efectivo_->marcar(m_.efectivo);
    adeudo_->marcar(m_.adeudo);
    cargo_->ponerCuenta(m_.cuentaCargo);
    complementaria_->marcar(m_.complementaria);
    justificante_->setText(m_.justificante);
    PonerFirma(m_.firma);
}

bool Form109::casillaEditada(int n) {
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
    Recalcular303(m_, n);
    mostrar();
    return true;
}

bool Form109::confirmarCasillas() {
    for (int n = 0; n <= 50; ++n) {
        CajaCasilla* caja = n == 0 ? importe_ : casillas_.value(n);
        const Casilla& actual = n == 0 ? m_.importe : m_[n];
        if (caja->text().trimmed() == TextoCasilla(actual))
            continue;
        if (!casillaEditada(n))
            return false;
    }
    leerCampos();
    return true;
}

void Form109::ImprimirBorrador() {
    if (!confirmarCasillas())
        return;
    Intentar([this] {
        QList<LineaDesglose303> desglose;
        {
            Conexion c = AbrirDatos(libros_);
            desglose = Desglose303(c, m_.desde, m_.hasta);
        }
        const Modelo303 m = m_;
        Imprimir(
            [m, desglose](Impresora& imp, const QString& fuente, double tamano) {
                DibujarBorrador303(imp, m, desglose, fuente, tamano);
            },
            QStringLiteral("Modelo 303"));
    });
}

void Form109::ImprimirModOficial() {
    d_.Informar(MsgModeloOficial303);
}

void Form109::PresentacionInternet() {
    if (!confirmarCasillas())
        return;
    std::optional<FalloModelo> fallo;
    Intentar([&] { fallo = Presentar303(s_, m_, d_, elegirCarpeta); });
    mostrar(); // the period may have gained its leading zero
    if (fallo)
        Enfocar(fallo->campo);
}

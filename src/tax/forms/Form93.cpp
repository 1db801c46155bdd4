#include "tax/forms/Form93.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"

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

} // namespace

Form93::Form93(Sesion& s, Ajustes& a, Dialogo& d, const Modelo130& modelo, QWidget* padre)
    : PantallaModelo(s, a, d, QStringLiteral("Form93"), QStringLiteral("Quilmar [Modelo 130]"),
                     padre),
      m_(modelo) {
    QWidget* campos = crearCampos(); // first, so that the tab order starts at the fields
    Command1 = new QPushButton(QStringLiteral("&Imprimir Borrador"), this);
    Command2 = new QPushButton(QStringLiteral("Imprimir Mod. oficial"), this);
    Command3 = new QPushButton(QStringLiteral("Ay&uda"), this);
    Command4 = new QPushButton(QStringLiteral("&Salir"), this);
    Command3->setEnabled(false); // no help pages yet
    connect(Command1, &QPushButton::clicked, this, &Form93::ImprimirBorrador);
    connect(Command2, &QPushButton::clicked, this, &Form93::ImprimirModOficial);
    connect(Command4, &QPushButton::clicked, this, &QDialog::close);

    Montar(campos, {Command1, Command2, Command3, Command4}, 2, {820, 760});
    mostrar();
}

QWidget* Form93::crearCampos() {
    auto* hoja = new QWidget;
    auto* columna = new QVBoxLayout(hoja);

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
    Fila(gi, 1, 2, QStringLiteral("Apellidos"), apellidos_);
    Fila(gi, 2, 2, QStringLiteral("Nombre"), nombre_);
    aDeducir_ = NuevaMarca(QStringLiteral("ADeducir"));
    complementaria_ = NuevaMarca(QStringLiteral("Complementaria"));
    negativa_ = NuevaMarca(QStringLiteral("Negativa"));
    Fila(gi, 3, 0, QStringLiteral("Declaración a deducir en siguientes pagos fraccionados"),
         aDeducir_);
    Fila(gi, 4, 0, QStringLiteral("Declaración complementaria"), complementaria_);
    Fila(gi, 5, 0, QStringLiteral("Declaración Negativa"), negativa_);
    gi->setColumnStretch(3, 1);
    columna->addWidget(ident);

    for (int n = 1; n <= 19; ++n) {
        CajaCasilla* c = NuevaCasilla(Nombre(n));
        casillas_.insert(n, c);
        connect(c, &CajaCasilla::editada, this, [this, n] { casillaEditada(n); });
    }
    importe_ = NuevaCasilla(QStringLiteral("Importe"));
    connect(importe_, &CajaCasilla::editada, this, [this] { casillaEditada(0); });

    const QStringList etiquetas{
        QString(),
        QStringLiteral("Ingresos computables"),
        QStringLiteral("Gastos fiscalmente deducibles"),
        QStringLiteral("Rendimiento neto"),
        QStringLiteral("20 por ciento del importe positivo de la casilla 03"),
        QStringLiteral("A deducir: de trimestres anteriores, suma de 07 positivas menos suma "
                       "de 16"),
        QStringLiteral("Retenciones e ingresos a cuenta"),
        QStringLiteral("Pago fraccionado previo del trimestre"),
        QStringLiteral("Volumen de ingresos del trimestre"),
        QStringLiteral("2 por ciento de la casilla 08"),
        QStringLiteral("A deducir: retenciones e ingresos a cuenta del trimestre"),
        QStringLiteral("Pago fraccionado previo del trimestre"),
        QStringLiteral("Suma de los pago fraccionados"),
        QStringLiteral("A deducir: minoración por deducción artº 80 bis"),
        QStringLiteral("Diferencia"),
        QStringLiteral("Resultado negativo de trimestres anteriores"),
        QStringLiteral("Por pago de préstamos para adquisión vivienda"),
        QStringLiteral("Total"),
        QStringLiteral("A deducir, en caso de declaración complementaria"),
        QStringLiteral("Resultado de la declaración")};
    const QList<std::pair<QString, QList<int>>> secciones{
        {QStringLiteral("I. Actividades económicas en estimación directa"), {1, 2, 3, 4, 5, 6, 7}},
        {QStringLiteral("II. Actividades agrícolas, ganaderas, forestales y pesqueras"),
         {8, 9, 10, 11}},
        {QStringLiteral("III. Liquidación"), {12, 13, 14, 15, 16, 17, 18, 19}}};
    for (const auto& [titulo, numeros] : secciones) {
        auto* grupo = new QGroupBox(titulo);
        auto* g = new QGridLayout(grupo);
        int fila = 0;
        for (const int n : numeros) {
            g->addWidget(
                new QLabel(QStringLiteral("%1  %2").arg(Nombre(n).right(2), etiquetas.at(n))), fila,
                0);
            g->addWidget(casillas_.value(n), fila++, 1);
        }
        g->setColumnStretch(0, 1);
        columna->addWidget(grupo);
    }

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

    auto* otros = new QGroupBox(QStringLiteral("Justificante, lugar y fecha"));
    auto* go = new QGridLayout(otros);
    justificante_ = NuevoTexto(QStringLiteral("Justificante"), 13);
    Fila(go, 0, 0, QStringLiteral("Nº de justificante"), justificante_);
    CamposFirma(go, 1);
    columna->addWidget(otros);
    columna->addStretch(1);
    return hoja;
}

void Form93::leerCampos() {
    m_.ejercicio = ejercicio_->text().trimmed();
    m_.periodo = periodo_->text().trimmed();
    m_.nif = nif_->text().trimmed();
    m_.apellidos = apellidos_->text().trimmed();
    m_.nombre = nombre_->text().trimmed();
    m_.aDeducir = aDeducir_->marcada();
    m_.complementaria = complementaria_->marcada();
    m_.negativa = negativa_->marcada();
    m_.efectivo = efectivo_->marcada();
    m_.adeudo = adeudo_->marcada();
    m_.cuentaCargo = cargo_->cuenta();
    m_.justificante = justificante_->text().trimmed();
    m_.firma = Firma();
}

void Form93::mostrar() {
    ejercicio_->setText(m_.ejercicio);
    periodo_->setText(m_.periodo);
    nif_->setText(m_.nif);
    apellidos_->setText(m_.apellidos);
    nombre_->setText(m_.nombre);
    aDeducir_->marcar(m_.aDeducir);
    complementaria_->marcar(m_.complementaria);
    negativa_->marcar(m_.negativa);
    for (auto it = casillas_.cbegin(); it != casillas_.cend(); ++it) {
        it.value()->setText(TextoCasilla(m_[it.key()]));
        it.value()->setModified(false);
    }
    importe_->setText(TextoCasilla(m_.importe));
    importe_->setModified(false);
    efectivo_->marcar(m_.efectivo);
    adeudo_->marcar(m_.adeudo);
    cargo_->ponerCuenta(m_.cuentaCargo);
    justificante_->setText(m_.justificante);
    PonerFirma(m_.firma);
}

bool Form93::casillaEditada(int n) {
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
    const std::optional<QString> foco = Recalcular130(m_, d_);
    mostrar();
    if (foco)
        Enfocar(*foco);
    return true;
}

bool Form93::confirmarCasillas() {
    for (int n = 0; n <= 19; ++n) {
        CajaCasilla* caja = n == 0 ? importe_ : casillas_.value(n);
        if (caja->text().trimmed() == TextoCasilla(n == 0 ? m_.importe : m_[n]))
            continue;
        if (!casillaEditada(n))
            return false;
    }
    leerCampos();
    return true;
}

void Form93::ImprimirBorrador() {
    if (!confirmarCasillas())
        return;
    const Modelo130 m = m_;
    Imprimir([m](Impresora& imp, const QString& fuente,
                 double tamano) { DibujarBorrador130(imp, m, fuente, tamano); },
             QStringLiteral("Modelo 130"));
}

void Form93::ImprimirModOficial() {
    if (!confirmarCasillas())
        return;
    std::optional<FalloModelo> fallo;
    Intentar([&] { fallo = Presentar130(s_, m_, d_, elegirCarpeta); });
    mostrar();
    if (fallo)
        Enfocar(fallo->campo);
}

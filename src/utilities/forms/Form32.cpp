#include "utilities/forms/Form32.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Formato.h"
#include "utilities/Calculadora.h"
#include "utilities/forms/Form33.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <tuple>

namespace {

struct Boton {
    const char* texto;
    const char* tip;
    TeclaCalc tecla;
};

// The financial keys, in their rows.
const Boton Financieras[] = {
    {"n", "Número de periodos", TeclaCalc::N},
    {"i", "Tipo de interés por periodo (en %)", TeclaCalc::I},
    {"VA", "Valor actual del préstamo o amortización", TeclaCalc::VA},
    {"Pmt", "Importe del pago", TeclaCalc::Pmt},
    {"VF", "Valor final del préstamo o amortización", TeclaCalc::VF},
    {"IV", "Intereses de un vencimiento", TeclaCalc::IV},
    {"AV", "Amortización o principal de un vencimiento", TeclaCalc::AV},
    {"IAc", "Intereses acumulados hasta un periodo", TeclaCalc::IAc},
    {"AAc", "Amortización acumulada hasta un periodo", TeclaCalc::AAc},
    {"Int", "Cálculo del interés simple", TeclaCalc::Int},
    {"TAE", "Convierte Tasa nominal a efectiva. Con May viceversa", TeclaCalc::TAE},
    {"E-P", "Selecciona trabajar en Euros o en Ptas", TeclaCalc::EP},
    {"P-F", "Pagos se hacen a Principio o Fin de la anualidad", TeclaCalc::PF},
    {"Euro", "Convierte Ptas a Euros", TeclaCalc::Euro},
    {"Pta", "Convierte Euros a Ptas", TeclaCalc::Pta},
};

const QString Ayuda = QStringLiteral(
    "Calculadora con registros financieros.\n\n"
    "Teclee una cifra y pulse n, i, VA, Pmt o VF para guardarla en ese registro; pulse la tecla "
    "sin teclear nada para calcular su valor a partir de los demás. i es el tipo de interés por "
    "periodo en tanto por ciento.\n"
    "IV y AV dan los intereses y la amortización del vencimiento que muestra la pantalla; IAc y "
    "AAc, los acumulados hasta él.\n"
    "Lo que se recibe es positivo y lo que se paga, negativo, como en las hojas de cálculo.\n"
    "P-F elige pagos al principio (Pri) o al final (Fin) de cada periodo.\n"
    "Cuadro muestra el cuadro de amortización del préstamo de los registros.\n"
    "Intro devuelve la cifra al campo desde el que se abrió la calculadora.");

} // namespace

Form32::Form32(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre, const QString& etiqueta,
               QLineEdit* campo)
    : QDialog(padre), s_(s), a_(a), d_(d), k_(CalculadoraDelPrograma()), etiqueta_(etiqueta),
      campo_(campo) {
    setWindowTitle(QStringLiteral("Quilmar [Calculadora]"));
    setObjectName(QStringLiteral("Form32"));
    k_.LeerModo(a_);

    auto* raiz = new QVBoxLayout(this);
    auto* fila = new QHBoxLayout;
    modo_ = new QLabel(this);
    modo_->setObjectName(QStringLiteral("lblModo"));
    pagos_ = new QLabel(this);
    pagos_->setObjectName(QStringLiteral("lblPagos"));
    pantalla_ = new QLineEdit(this);
    pantalla_->setObjectName(QStringLiteral("Pantalla"));
    pantalla_->setReadOnly(true);
    pantalla_->setAlignment(Qt::AlignRight);
    pantalla_->setFocusPolicy(Qt::NoFocus);
    QFont f = pantalla_->font();
    f.setPointSizeF(f.pointSizeF() * 1.6);
    f.setBold(true);
    pantalla_->setFont(f);
    fila->addWidget(modo_);
    fila->addWidget(pagos_);
    fila->addWidget(pantalla_, 1);
    raiz->addLayout(fila);
    registros_ = new QLabel(this);
    registros_->setObjectName(QStringLiteral("lblRegistros"));
    raiz->addWidget(registros_);

    auto* financieras = new QGridLayout;
    int n = 0;
    for (const Boton& b : Financieras) {
        const TeclaCalc t = b.tecla;
        financieras->addWidget(nuevo(QString::fromUtf8(b.texto), QString::fromUtf8(b.tip),
                                     [this, t] {
                                         const auto m = QApplication::keyboardModifiers();
                                         k_.Tecla(t, m & Qt::ControlModifier,
                                                  m & Qt::ShiftModifier);
                                         if (t == TeclaCalc::EP)
                                             k_.GuardarModo(a_);
                                         refrescar();
                                     }),
                               n / 5, n % 5);
        ++n;
    }
    raiz->addLayout(financieras);

    auto* teclado = new QGridLayout;
    const char* cifras[4][3] = {{"7", "8", "9"}, {"4", "5", "6"}, {"1", "2", "3"}, {"0", ",", "="}};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 3; ++c) {
            const QString t = QString::fromUtf8(cifras[r][c]);
            teclado->addWidget(nuevo(t, {},
                                     [this, t] {
                                         if (t == QLatin1String("="))
                                             k_.Tecla(TeclaCalc::Igual);
                                         else
                                             k_.Teclear(t);
                                         refrescar();
                                     }),
                               r, c);
        }
    const QList<std::tuple<QString, QString, TeclaCalc>> operaciones = {
        {QStringLiteral("/"), {}, TeclaCalc::Dividir},
        {QStringLiteral("*"), {}, TeclaCalc::Multiplicar},
        {QStringLiteral("-"), {}, TeclaCalc::Restar},
        {QStringLiteral("+"), {}, TeclaCalc::Sumar},
        {QStringLiteral("CE"), QStringLiteral("Borra última entrada"), TeclaCalc::CE},
        {QStringLiteral("C"), QStringLiteral("Borra Memoria Operativa. Con Ctl borra todo"),
         TeclaCalc::C},
        {QStringLiteral("%"), QStringLiteral("Tanto por ciento"), TeclaCalc::Porcentaje},
        {QStringLiteral("+/-"), QStringLiteral("Cambio de signo"), TeclaCalc::CambioSigno},
    };
    int o = 0;
    for (const auto& [texto, tip, tecla] : operaciones) {
        const TeclaCalc t = tecla;
        teclado->addWidget(nuevo(texto, tip,
                                 [this, t] {
                                     const auto m = QApplication::keyboardModifiers();
                                     k_.Tecla(t, m & Qt::ControlModifier);
                                     refrescar();
                                 }),
                           o % 4, 3 + o / 4);
        ++o;
    }
    raiz->addLayout(teclado);

    auto* abajo = new QHBoxLayout;
    abajo->addWidget(nuevo(QStringLiteral("Cuadro"),
                           QStringLiteral("Cuadro de amortización del préstamo"),
                           [this] { abrirCuadro(); }));
    abajo->addWidget(nuevo(QStringLiteral("¿Para qué sirve?"), {}, [this] { d_.Informar(Ayuda); }));
    abajo->addWidget(nuevo(QStringLiteral("Copiar"), {}, [this] { Copiar(); }));
    abajo->addWidget(nuevo(QStringLiteral("Pegar"), {}, [this] { Pegar(); }));
    abajo->addWidget(nuevo(QStringLiteral("Fin"), QStringLiteral("Salir"), [this] { close(); }));
    raiz->addLayout(abajo);

    PrepararVentana(this, a_, 32);
    refrescar();
}

Form32::~Form32() = default;

QPushButton* Form32::nuevo(const QString& texto, const QString& tip, std::function<void()> hacer) {
    auto* b = new QPushButton(texto, this);
    b->setObjectName(QStringLiteral("cmd") + texto);
    b->setToolTip(tip);
    b->setAutoDefault(false);
    b->setFocusPolicy(Qt::NoFocus);
    connect(b, &QPushButton::clicked, this, [hacer = std::move(hacer)] { hacer(); });
    return b;
}

QPushButton* Form32::boton(const QString& texto) const {
    for (QPushButton* b : findChildren<QPushButton*>())
        if (b->text() == texto)
            return b;
    return nullptr;
}

QString Form32::Pantalla() const {
    return pantalla_->text();
}

void Form32::refrescar() {
    pantalla_->setText(k_.Pantalla());
    modo_->setText(k_.Modo());
    pagos_->setText(k_.Pagos());
    const QString fmt = k_.pesetas ? QStringLiteral("#,##0") : QStringLiteral("standard");
    registros_->setText(QStringLiteral("n = %1   i = %2 %   VA = %3   Pmt = %4   VF = %5")
                            .arg(std::fmod(k_.n, 1.0) != 0 ? k_.FormatoPantalla(k_.n, 2)
                                                           : Formato(k_.n, QStringLiteral("#,##0")),
                                 k_.FormatoPantalla(k_.i, 4), k_.FormatoPantalla(k_.PV),
                                 k_.FormatoPantalla(k_.PMT), k_.FormatoPantalla(k_.FV)));
}

void Form32::Intro() {
    if (campo_ && !k_.EnError()) {
        k_.Tecla(TeclaCalc::Igual);
        const QString t = k_.ParaCampo();
        if (!t.isEmpty()) {
            campo_->setText(t);
            campo_->setFocus();
            accept();
            return;
        }
    }
    k_.Tecla(TeclaCalc::Igual);
    refrescar();
}

void Form32::Copiar() {
    QApplication::clipboard()->setText(k_.EnError() ? QString() : k_.Pantalla());
}

void Form32::Pegar() {
    if (k_.Pegar(QApplication::clipboard()->text()))
        refrescar();
}

void Form32::abrirCuadro() {
    // The table needs the periods and a rate, and a capital or a final value.
    if (k_.n < 1 || CuadroPrestamo(k_).Filas() == 0) {
        k_.Tecla(TeclaCalc::CE);
        refrescar();
        pantalla_->setText(QStringLiteral("Error"));
        return;
    }
    auto* f = new Form33(s_, a_, d_, k_, parentWidget() ? parentWidget() : this);
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
}

void Form32::keyPressEvent(QKeyEvent* e) {
    if (EsIntro(e)) {
        Intro();
        return;
    }
    if (e->matches(QKeySequence::Copy)) {
        Copiar();
        return;
    }
    if (e->matches(QKeySequence::Paste)) {
        Pegar();
        return;
    }
    const QString t = e->text();
    if (t.size() == 1) {
        const QChar c = t.at(0);
        if (c.isDigit() || c == QLatin1Char(',') || c == QLatin1Char('.')) {
            k_.Teclear(t);
        } else if (c == QLatin1Char('+')) {
            k_.Tecla(TeclaCalc::Sumar);
        } else if (c == QLatin1Char('-')) {
            k_.Tecla(TeclaCalc::Restar);
        } else if (c == QLatin1Char('*')) {
            k_.Tecla(TeclaCalc::Multiplicar);
        } else if (c == QLatin1Char('/')) {
            k_.Tecla(TeclaCalc::Dividir);
        } else if (c == QLatin1Char('=')) {
            k_.Tecla(TeclaCalc::Igual);
        } else if (c == QLatin1Char('%')) {
            k_.Tecla(TeclaCalc::Porcentaje);
        } else {
            QDialog::keyPressEvent(e);
            return;
        }
        refrescar();
        return;
    }
    if (e->key() == Qt::Key_Delete) {
        k_.Tecla(TeclaCalc::CE);
        refrescar();
        return;
    }
    QDialog::keyPressEvent(e);
}

namespace {

class FiltroCalculadora : public QObject {
public:
    FiltroCalculadora(QLineEdit* campo, const QString& etiqueta, Sesion& s, Ajustes& a, Dialogo& d)
        : QObject(campo), campo_(campo), etiqueta_(etiqueta), s_(s), a_(a), d_(d) {}

protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (o == campo_ && e->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(e)->text() == QLatin1String("+")) {
            Form32 f(s_, a_, d_, campo_->window(), etiqueta_, campo_);
            f.exec();
            return true;
        }
        return false;
    }

private:
    QLineEdit* campo_;
    QString etiqueta_;
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
};

} // namespace

void InstalarCalculadora(QLineEdit* campo, const QString& etiqueta, Sesion& s, Ajustes& a,
                         Dialogo& d) {
    campo->installEventFilter(new FiltroCalculadora(campo, etiqueta, s, a, d));
    campo->setToolTip(QStringLiteral("Pulse + para abrir la calculadora"));
}

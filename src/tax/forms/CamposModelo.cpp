#include "tax/forms/CamposModelo.h"

#include "platform/Ajustes.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/ImprimirLibro.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "store/Sesion.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScrollArea>
#include <QVBoxLayout>

CajaCasilla::CajaCasilla(const QString& nombre, bool puntoDecimal, QWidget* padre)
    : QLineEdit(padre), puntoDecimal_(puntoDecimal) {
    setObjectName(nombre);
    setAlignment(Qt::AlignRight);
    setMaxLength(20);
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-999.999.999,99")) + 12);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        // Enter always recalculates; leaving the box, only after a change.
        if (intro_ || isModified()) {
            intro_ = false;
            setModified(false);
            Q_EMIT editada();
        }
    });
}

void CajaCasilla::keyPressEvent(QKeyEvent* e) {
    if (EsIntro(e))
        intro_ = true;
    const QString t = e->text();
    if (EsTeclaDeEdicion(e) || t.isEmpty()) {
        QLineEdit::keyPressEvent(e);
        return;
    }
    if (t == QLatin1String(".") || t == QLatin1String(",")) {
        insert(puntoDecimal_ ? QStringLiteral(".") : QStringLiteral(","));
        return;
    }
    if (t.size() == 1 && (t.at(0).isDigit() || t.at(0) == u'-' || t.at(0) == u'+')) {
        QLineEdit::keyPressEvent(e);
        return;
    }
    e->accept(); // anything else is dropped
}

CajaMarca::CajaMarca(const QString& nombre, bool alPulsar, QWidget* padre)
    : QLineEdit(padre), alPulsar_(alPulsar) {
    setObjectName(nombre);
    setMaxLength(1);
    setAlignment(Qt::AlignCenter);
    setContextMenuPolicy(Qt::NoContextMenu); // no paste: an X or nothing
    setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("XX")) + 14);
}

void CajaMarca::keyPressEvent(QKeyEvent* e) {
    const bool x =
        e->key() == Qt::Key_X || e->text().compare(QLatin1String("x"), Qt::CaseInsensitive) == 0;
    if (x && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        marcar(true);
        Q_EMIT marcadaPorUsuario();
        return;
    }
    if (e->key() == Qt::Key_Backspace || e->key() == Qt::Key_Delete) {
        marcar(false);
        return;
    }
    if (e->key() == Qt::Key_Tab || e->key() == Qt::Key_Backtab || EsIntro(e) ||
        e->key() == Qt::Key_Escape || (e->modifiers() & Qt::AltModifier)) {
        QLineEdit::keyPressEvent(e);
        return;
    }
    e->accept();
}

void CajaMarca::mouseDoubleClickEvent(QMouseEvent* e) {
    marcar(true);
    Q_EMIT marcadaPorUsuario();
    e->accept();
}

void CajaMarca::mousePressEvent(QMouseEvent* e) {
    QLineEdit::mousePressEvent(e);
    if (alPulsar_) {
        marcar(true);
        Q_EMIT marcadaPorUsuario();
    }
}

CajasCuenta::CajasCuenta(const QString& nombre, QWidget* padre) : QWidget(padre) {
    setObjectName(nombre);
    static const int Largos[4] = {4, 4, 2, 10};
    static const char* const Partes[4] = {"Entidad", "Sucursal", "DC", "Numero"};
    static const char* const Etiquetas[4] = {"Entidad", "Sucursal", "DC", "Número de cuenta"};
    auto* g = new QGridLayout(this);
    g->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 4; ++i) {
        auto* e = new QLineEdit(this);
        e->setObjectName(nombre + QString::fromLatin1(Partes[i]));
        SoloCifras(e, Largos[i]); // a paste with anything else is refused too
        e->setFixedWidth(fontMetrics().horizontalAdvance(QString(Largos[i], u'0')) + 14);
        e->installEventFilter(this);
        g->addWidget(new QLabel(QString::fromUtf8(Etiquetas[i]), this), 0, i);
        g->addWidget(e, 1, i);
        partes_[i] = e;
    }
    g->setColumnStretch(4, 1);
    setFocusProxy(partes_[0]);
}

bool CajasCuenta::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(evento);
        const QString t = k->text();
        if (!EsTeclaDeEdicion(k) && !t.isEmpty() && !(t.size() == 1 && t.at(0).isDigit())) {
            for (int i = 0; i < 10; ++i)
                QApplication::beep();
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

CuentaBanco CajasCuenta::cuenta() const {
    CuentaBanco c;
    c.entidad = partes_[0]->text().trimmed();
    c.sucursal = partes_[1]->text().trimmed();
    c.dc = partes_[2]->text().trimmed();
    c.numero = partes_[3]->text().trimmed();
    return c;
}

void CajasCuenta::ponerCuenta(const CuentaBanco& c) {
    partes_[0]->setText(c.entidad);
    partes_[1]->setText(c.sucursal);
    partes_[2]->setText(c.dc);
    partes_[3]->setText(c.numero);
}

QValidator::State ValidadorNombre::validate(QString& texto, int&) const {
    QString r;
    for (const QChar c : texto) {
        const QChar m = CaracterNombre(c, campo_);
        if (m.isNull())
            return Invalid;
        r += m;
    }
    texto = r;
    return Acceptable;
}

QValidator::State ValidadorMayusculas::validate(QString& texto, int&) const {
    const QString m = texto.toUpper();
    for (const QChar c : m)
        if (!((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')))
            return Invalid;
    texto = m;
    return Acceptable;
}

PantallaModelo::PantallaModelo(Sesion& s, Ajustes& a, Dialogo& d, const QString& nombre,
                               const QString& titulo, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d) {
    setObjectName(nombre);
    setWindowTitle(titulo);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    elegirCarpeta = [this] {
        return QFileDialog::getExistingDirectory(this, QStringLiteral("Seleccione la carpeta"));
    };
    imprimir = [this](const DibujoLibro& dibujo, const QString& t) {
        OpcionesImpresion op;
        op.titulo = t;
        op.orientacion = orientacion_;
        op.impresora = a_.leer(QStringLiteral("Valores"), QStringLiteral("Impresora"));
        ImprimirLibro(this, dibujo, op);
    };
}

void PantallaModelo::Enfocar(const QString& campo) {
    if (QWidget* w = findChild<QWidget*>(campo)) {
        w->setFocus(Qt::OtherFocusReason);
        if (auto* e = qobject_cast<QLineEdit*>(w->focusProxy() ? w->focusProxy() : w))
            e->selectAll();
    }
}

CajaCasilla* PantallaModelo::NuevaCasilla(const QString& nombre) {
    return new CajaCasilla(nombre, s_.PuntoDecimal, this);
}

CajaMarca* PantallaModelo::NuevaMarca(const QString& nombre, bool alPulsar) {
    return new CajaMarca(nombre, alPulsar, this);
}

CajasCuenta* PantallaModelo::NuevaCuenta(const QString& nombre) {
    return new CajasCuenta(nombre, this);
}

QLineEdit* PantallaModelo::NuevoTexto(const QString& nombre, int largo, QValidator* validador) {
    auto* e = new QLineEdit(this);
    e->setObjectName(nombre);
    e->setMaxLength(largo);
    // As wide as what it takes, so that a year or a period does not look like a line of text.
    e->setMaximumWidth(e->fontMetrics().horizontalAdvance(QString(largo + 1, u'M')) + 12);
    if (validador) {
        validador->setParent(e);
        e->setValidator(validador);
    }
    return e;
}

QLineEdit* PantallaModelo::NuevasCifras(const QString& nombre, int largo) {
    QLineEdit* e = NuevoTexto(nombre, largo);
    SoloCifras(e, largo);
    return e;
}

void PantallaModelo::Excluyentes(CajaMarca* a, CajaMarca* b) {
    connect(a, &CajaMarca::marcadaPorUsuario, b, [b] { b->marcar(false); });
    connect(b, &CajaMarca::marcadaPorUsuario, a, [a] { a->marcar(false); });
}

void PantallaModelo::Imprimir(const std::function<void(Impresora&, const QString&, double)>& dibujo,
                              const QString& titulo) {
    const QString fuente =
        a_.leer(QStringLiteral("Valores"), QStringLiteral("NFImprimir"), QStringLiteral("Arial"));
    const double tamano = a_.leerNumero(QStringLiteral("Valores"), QStringLiteral("TFImprimir"), 9);
    imprimir([dibujo, fuente, tamano](Impresora& imp, int) { dibujo(imp, fuente, tamano); },
             titulo);
}

bool PantallaModelo::Intentar(const std::function<void()>& accion) {
    try {
        accion();
        return true;
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
        return false;
    }
}

void PantallaModelo::Montar(QWidget* campos, const QList<QPushButton*>& botones, int antesDelHueco,
                            const QSize& tamano) {
    auto* desplazable = new QScrollArea(this);
    desplazable->setWidgetResizable(true);
    desplazable->setWidget(campos);
    auto* fila = new QHBoxLayout;
    int i = 1;
    for (QPushButton* b : botones) {
        b->setObjectName(QStringLiteral("Command%1").arg(i++));
        b->setAutoDefault(false);
        fila->addWidget(b);
    }
    fila->insertStretch(antesDelHueco, 1);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(desplazable, 1);
    columna->addLayout(fila);
    resize(tamano);
    PrepararVentana(this, a_);
}

void PantallaModelo::CamposFirma(QGridLayout* g, int fila) {
    lugar_ = NuevoTexto(QStringLiteral("Lugar"), 16);
    dia_ = NuevasCifras(QStringLiteral("Dia"), 2);
    mes_ = NuevoTexto(QStringLiteral("Mes"), 10, new ValidadorNombre(CampoNombre::Nombre, nullptr));
    ano_ = NuevasCifras(QStringLiteral("Ano"), 4);
    Fila(g, fila, 0, QStringLiteral("Lugar"), lugar_);
    Fila(g, fila, 2, QStringLiteral("Día"), dia_);
    Fila(g, fila + 1, 0, QStringLiteral("Mes"), mes_);
    Fila(g, fila + 1, 2, QStringLiteral("Año"), ano_);
}

FirmaModelo PantallaModelo::Firma() const {
    return {lugar_->text().trimmed(), dia_->text().trimmed(), mes_->text().trimmed(),
            ano_->text().trimmed()};
}

void PantallaModelo::PonerFirma(const FirmaModelo& f) {
    lugar_->setText(f.lugar);
    dia_->setText(f.dia);
    mes_->setText(f.mes);
    ano_->setText(f.ano);
}

void Fila(QGridLayout* g, int fila, int columna, const QString& etiqueta, QWidget* campo) {
    auto* l = new QLabel(etiqueta);
    l->setWordWrap(true);
    g->addWidget(l, fila, columna);
    g->addWidget(campo, fila, columna + 1);
}

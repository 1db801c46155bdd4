#include "posting/forms/MenusPlantillas.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/ContAsPer.h"
#include "posting/Periodicos.h"
#include "posting/Tablero.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form59.h"
#include "posting/forms/Form61.h"
#include "posting/forms/Form62.h"
#include "posting/forms/Form67.h"
#include "posting/forms/Form69.h"
#include "posting/forms/Form7.h"
#include "store/Conexiones.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "store/forms/Form36.h"

#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace {

// The keys of predesigned entries on the maintenance screen: F12 (and "+" in its "Pred." field)
// show the list; Ctrl + three digits post a template. Looked at once per key, where it is first
// delivered, before the screen's own filters.
class TeclasPredisenadoF7 : public QObject {
public:
    TeclasPredisenadoF7(Form7& f, Sesion& s, Ajustes& a, Dialogo& d)
        : QObject(&f), f_(&f), s_(s), a_(a), d_(d) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress || !objeto->isWidgetType() || !f_)
            return false;
        auto* w = static_cast<QWidget*>(objeto);
        QWidget* foco = QApplication::focusWidget();
        if (w->window() != f_ || w != (foco ? foco : f_.data()))
            return false;
        auto* k = static_cast<QKeyEvent*>(evento);
        const Qt::KeyboardModifiers mods = k->modifiers() & ~Qt::KeypadModifier;
        if ((k->key() == Qt::Key_F12 && mods == Qt::NoModifier) ||
            (objeto == f_->Text2 && k->text() == QLatin1String("+"))) {
            teclas_.Otra();
            QTimer::singleShot(0, f_, [this] { ElegirPredisenado(s_, a_, d_, f_); });
            return true;
        }
        if (k->key() == Qt::Key_Control) {
            if (!k->isAutoRepeat())
                teclas_.Control();
            return false;
        }
        if ((mods & Qt::ControlModifier) && k->key() >= Qt::Key_0 && k->key() <= Qt::Key_9) {
            if (const std::optional<int> codigo = teclas_.Digito(k->key() - Qt::Key_0))
                QTimer::singleShot(0, f_,
                                   [this, c = *codigo] { Form67::AsTipo(s_, a_, d_, c, f_); });
            return true;
        }
        if (k->key() != Qt::Key_Shift && k->key() != Qt::Key_Alt && k->key() != Qt::Key_Meta)
            teclas_.Otra();
        return false;
    }

private:
    QPointer<Form7> f_;
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
    TeclasCtrl teclas_;
};

void avisar(Dialogo& d, const std::function<void()>& accion) {
    try {
        accion();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d.Informar(e.mensaje());
    }
}

// The confirmation and the posting screen of the start-up run.
class PantallasPeriodicosEscritorio : public PantallasPeriodicos {
public:
    PantallasPeriodicosEscritorio(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d)
        : tablero_(tablero), s_(s), a_(a), d_(d) {}

    AccionForm61 Confirmar(const QString& nombre, const QDate& fecha, bool todos) override {
        Form61 f(a_, nombre, fecha, todos, &tablero_);
        f.exec();
        return f.accion();
    }

    long ContabilizarEnForm4(const AsientoPeriodico& a) override {
        auto* f = new Form4(s_, a_, d_, tablero_.estadoTablero(), &tablero_);
        f->FijarOrigen(QStringLiteral("F61"));
        CamposForm4 campos;
        {
            Conexion c = AbrirDatos(s_);
            campos = CargarPeriodicoEnForm4(f->Logica().Rejilla, c, a);
        }
        f->Date1->setText(campos.Fecha);
        f->Combo1->setEditText(campos.Concepto);
        f->TDBN1->setText(campos.Importe);
        f->Text2->setText(campos.Documento);
        const int sector = f->Combo2->findText(campos.Sector);
        f->Combo2->setCurrentIndex(sector >= 0 ? sector : f->Combo2->count() - 1);
        f->FijarNumeroAsiento(MaxAsiento(s_) + 1);
        f->MostrarLineas();
        long numero = 0;
        QObject::connect(f, &Form4::Contabilizado, f, [&numero](long n) { numero = n; });
        // Shown modally: the user changes amounts and documents and posts, or cancels.
        QEventLoop espera;
        QObject::connect(f, &QObject::destroyed, &espera, &QEventLoop::quit);
        f->setWindowModality(Qt::ApplicationModal);
        f->show();
        espera.exec();
        return numero;
    }

private:
    Form1& tablero_;
    Sesion& s_;
    Ajustes& a_;
    Dialogo& d_;
};

QList<LineaPeriodico> lineasForm4(const RejillaAsiento& r) {
    QList<LineaPeriodico> lineas;
    for (int f = 1; f <= r.ultima(); ++f) {
        LineaPeriodico l;
        l.NCuenta = r.celda(f, ColF4::NCuenta).trimmed();
        l.Concepto = r.celda(f, ColF4::Concepto).trimmed();
        l.Debe = r.valor(f, ColF4::Debe);
        l.Haber = r.valor(f, ColF4::Haber);
        l.Documento = r.celda(f, ColF4::Documento).trimmed();
        lineas << l;
    }
    return lineas;
}

QList<LineaPeriodico> lineasForm7(const RejillaF7& r) {
    QList<LineaPeriodico> lineas;
    for (int f = 1; f <= r.ultima(); ++f) {
        LineaPeriodico l;
        l.NCuenta = r.celda(f, ColF7::NCuenta).trimmed();
        l.Concepto = r.celda(f, ColF7::Concepto).trimmed();
        l.Debe = r.valor(f, ColF7::Debe);
        l.Haber = r.valor(f, ColF7::Haber);
        l.Documento = r.celda(f, ColF7::Documento).trimmed();
        lineas << l;
    }
    return lineas;
}

} // namespace

void ElegirPredisenado(Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
    std::optional<int> codigo;
    {
        Form69 f(s, a, d, padre);
        f.exec();
        codigo = f.elegido();
    }
    if (codigo)
        Form67::AsTipo(s, a, d, *codigo, padre);
}

void ConectarPlantillasForm4(Form4& f, Sesion& s, Ajustes& a, Dialogo& d) {
    Form4* p = &f;
    f.FijarHacerPeriodico([p, &s, &a, &d] {
        const RejillaAsiento& r = p->Logica().Rejilla;
        // The date of the first line is the entry's; before the first fill, the date field's.
        QDate fecha = FechaDeTexto(r.filas() > 1 ? r.celda(1, ColF4::Fecha) : QString());
        if (!fecha.isValid())
            fecha = FechaDeTexto(p->Date1->text());
        PantallaPeriodicidadForm59 form59(a, d, p);
        avisar(d, [&] {
            HacerPeriodico(s, d, form59, QStringLiteral("F4"), fecha, p->Combo2->currentText(),
                           lineasForm4(r));
        });
    });
}

void ConectarPlantillasForm7(Form7& f, Sesion& s, Ajustes& a, Dialogo& d) {
    Form7* p = &f;
    // Called by the screen with its fields already in the logic and the entry balanced.
    f.FijarHacerPeriodico([p, &s, &a, &d] {
        GestionAsientos& k = p->Logica();
        const QDate fecha = FechaDeTexto(ValidarFecha(k.Fecha, d));
        if (!fecha.isValid())
            return;
        PantallaPeriodicidadForm59 form59(a, d, p);
        avisar(d, [&] {
            HacerPeriodico(s, d, form59, QStringLiteral("F7"), fecha, k.Sector,
                           lineasForm7(k.Rejilla));
        });
    });
    f.FijarPredisenado([p, &s, &a, &d](const QString& codigo) {
        QTimer::singleShot(0, p,
                           [p, &s, &a, &d, c = codigo.toInt()] { Form67::AsTipo(s, a, d, c, p); });
    });
    new TeclasPredisenadoF7(f, s, a, d);
}

void ContAsPerEscritorio(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    if (s.EmpresaActual.isEmpty())
        return;
    PantallasPeriodicosEscritorio pantallas(tablero, s, a, d);
    const ResultadoContAsPer r =
        ContAsPer(s, d, tablero.estadoTablero(), pantallas, QDate::currentDate());
    if (!r.Contabilizados.isEmpty())
        tablero.refrescarLibros();
}

void ConectarPlantillas(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuPeriodicos"),
                     [t, &s, &a, &d] { Form62::Abrir(s, a, d, t); });
    tablero.Conectar(QStringLiteral("mnuPredisenados"),
                     [t, &s, &a, &d] { Form67::Abrir(s, a, d, t); });
    tablero.AbrirPredisenados = [t, &s, &a, &d] {
        QTimer::singleShot(0, t, [t, &s, &a, &d] { ElegirPredisenado(s, a, d, t); });
    };
    tablero.AbrirPredisenado = [t, &s, &a, &d](int codigo) {
        QTimer::singleShot(0, t, [t, &s, &a, &d, codigo] { Form67::AsTipo(s, a, d, codigo, t); });
    };
    // Every posting and maintenance screen made from now on, once for the whole program.
    static const bool enganchados = [] {
        Form4::AlCrear(&ConectarPlantillasForm4);
        Form7::AlCrear(&ConectarPlantillasForm7);
        return true;
    }();
    (void)enganchados;
    // Once, after the rest of the start-up: the splash gone, the welcome screen read and the
    // first-use question answered, so that no window of the start-up comes over the
    // confirmations.
    auto* espera = new QTimer(t);
    espera->setObjectName(QStringLiteral("EsperaPeriodicos"));
    espera->setInterval(250);
    QObject::connect(espera, &QTimer::timeout, t, [t, espera, &s, &a, &d] {
        const auto* portada = t->findChild<QTimer*>(QStringLiteral("Timer3"));
        if ((portada && portada->isActive()) || t->Timer5->isActive() ||
            QApplication::activeModalWidget())
            return;
        for (const Form36* bienvenida : t->findChildren<Form36*>())
            if (bienvenida->isVisible())
                return;
        espera->stop();
        ContAsPerEscritorio(*t, s, a, d);
    });
    QObject::connect(t, &Form1::cargaTerminada, espera, qOverload<>(&QTimer::start),
                     Qt::SingleShotConnection);
}

#include "posting/forms/Form76.h"

#include "posting/forms/Form4.h"

#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/forms/Teclas.h"
#include "platform/forms/Ventana.h"
#include "posting/Contabilizar.h"
#include "store/Campos.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "store/forms/CampoTexto.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QComboBox* lista(QWidget* padre, const QList<std::pair<QString, QString>>& cuentas) {
    auto* c = new QComboBox(padre);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    for (const auto& [codigo, nombre] : cuentas)
        c->addItem(nombre, codigo);
    return c;
}

// A list shows a value: the item whose code (or text) it is, or the value typed.
void mostrar(QComboBox* c, const QString& v) {
    int i = c->findData(v);
    if (i < 0)
        i = c->findText(v);
    if (i >= 0)
        c->setCurrentIndex(i);
    else
        c->setEditText(v);
}

} // namespace

Form76::Form76(const Sesion& s, Ajustes& a, Dialogo& d, TrabajoPredisenado& trabajo, int linea,
               const QDate& hoy, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d),
      k_(trabajo, linea, hoy, a.leer(QStringLiteral("Valores"), QStringLiteral("DateF76"))) {
    setObjectName(QStringLiteral("Form76"));
    setWindowTitle(QStringLiteral("Quilmar [Contabilizar Asiento Prediseñado]"));
    setModal(true);

    Label1 = new QLabel(QStringLiteral("Asiento Prediseñado: ") + k_.Codigo + QStringLiteral("  ") +
                            k_.NombreAsiento,
                        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont negrita = Label1->font();
    negrita.setBold(true);
    Label1->setFont(negrita);
    Label2 = new QLabel(
        QStringLiteral("Apunte: ") + k_.Etiqueta + QStringLiteral(" (") +
            (k_.DH == QLatin1String("D") ? QStringLiteral("Debe") : QStringLiteral("Haber")) +
            QLatin1Char(')'),
        this);
    Label2->setObjectName(QStringLiteral("Label2"));

    QList<std::pair<QString, QString>> subcuentas, terceros;
    QStringList conceptos, sectores;
    try {
        Conexion c = AbrirDatos(s);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE "
                                                "Aparcada = 0 ORDER BY Cuenta"));
        while (q.next())
            subcuentas.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed()});
        terceros = ClientesPredisenado(c) + ProveedoresPredisenado(c);
        conceptos = ConceptosPredefinidos(s);
        sectores = SectoresConVacio(s);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }

    auto* rejilla = new QGridLayout;
    for (int c = 0; c < CampoPredi::Total; ++c) {
        QWidget* w = nullptr;
        switch (c) {
        case CampoPredi::Subcuenta:
            w = lista(this, subcuentas);
            break;
        case CampoPredi::CliPro:
            w = lista(this, terceros);
            break;
        case CampoPredi::Concepto: {
            auto* combo = new QComboBox(this);
            combo->setEditable(true);
            combo->setInsertPolicy(QComboBox::NoInsert);
            combo->addItems(conceptos);
            LimitarCampo(combo->lineEdit(), Campo::Concepto);
            w = combo;
            break;
        }
        case CampoPredi::Sector: {
            auto* combo = new QComboBox(this);
            combo->addItems(sectores);
            w = combo;
            break;
        }
        default: {
            auto* campo = new QLineEdit(this);
            if (c == CampoPredi::Importe || c == CampoPredi::Base)
                campo->setAlignment(Qt::AlignRight);
            if (c == CampoPredi::Documento)
                LimitarCampo(campo, Campo::Documento);
            if (c == CampoPredi::Factura)
                LimitarCampo(campo, Campo::NFactura);
            w = campo;
        }
        }
        w->setObjectName(QStringLiteral("Campo%1").arg(c));
        if (auto* combo = qobject_cast<QComboBox*>(w)) {
            if (combo->isEditable())
                mostrar(combo, k_.Valores[c]);
            else
                combo->setCurrentIndex(std::max(0, combo->findText(k_.Valores[c])));
            // An editable list takes the keys itself and hands them to its edit past any
            // filter: both are watched.
            combo->installEventFilter(this);
            if (combo->lineEdit())
                combo->lineEdit()->installEventFilter(this);
        } else {
            static_cast<QLineEdit*>(w)->setText(k_.Valores[c]);
            w->installEventFilter(this);
        }
        w->setEnabled(k_.Variable[c]);
        Campos[c] = w;
        rejilla->addWidget(new QLabel(k_.NombreCampo(c), this), c, 0);
        rejilla->addWidget(new QLabel(TituloCampoPredi(c), this), c, 1);
        rejilla->addWidget(w, c, 2);
    }
    rejilla->setColumnStretch(2, 1);

    Command1 = new QPushButton(QStringLiteral("&Aceptar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("&Cancelar"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setAutoDefault(false);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label1);
    todo->addWidget(Label2);
    todo->addLayout(rejilla);
    todo->addStretch();
    todo->addLayout(botones);

    connect(Command1, &QPushButton::clicked, this, &Form76::aceptar);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    resize(560, 380);
    PrepararVentana(this, a_, 76);
    for (int c = 0; c < CampoPredi::Total; ++c)
        if (k_.Variable[c]) {
            Campos[c]->setFocus();
            break;
        }
}

QString Form76::valor(int campo) const {
    QWidget* w = Campos[campo];
    if (auto* combo = qobject_cast<QComboBox*>(w)) {
        // A subaccount or counterparty chosen in its list gives its code.
        const int i = combo->findText(combo->currentText());
        if (i >= 0 && combo->itemData(i).isValid())
            return combo->itemData(i).toString();
        return combo->currentText();
    }
    return static_cast<QLineEdit*>(w)->text();
}

void Form76::aceptar() {
    for (int c = 0; c < CampoPredi::Total; ++c)
        if (k_.Variable[c])
            k_.Valores[c] = valor(c);
    if (k_.Aceptar(s_, d_))
        accept();
}

bool Form76::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->text() == QLatin1String("+")) {
        // The amount and the VAT base take the calculator's result back.
        for (const auto& [c, etiqueta] : {std::pair{int(CampoPredi::Importe), "F76T4"},
                                          std::pair{int(CampoPredi::Base), "F76T6"}})
            if (auto* campo = qobject_cast<QLineEdit*>(Campos[c]); campo && objeto == campo) {
                if (const Form4::GanchoCalculadora& calculadora = Form4::CalculadoraDeImporte())
                    calculadora(campo, QString::fromLatin1(etiqueta));
                return true;
            }
    }
    if (evento->type() == QEvent::KeyPress && EsIntro(static_cast<QKeyEvent*>(evento))) {
        // Enter moves on to the next field that is asked, and from the last to "&Aceptar".
        int actual = -1;
        for (int c = 0; c < CampoPredi::Total; ++c) {
            auto* combo = qobject_cast<QComboBox*>(Campos[c]);
            if (objeto == Campos[c] || (combo && objeto == combo->lineEdit()))
                actual = c;
        }
        for (int c = actual + 1; c < CampoPredi::Total; ++c)
            if (k_.Variable[c]) {
                Campos[c]->setFocus();
                return true;
            }
        Command1->setFocus();
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

bool PantallaApunteForm76::Pedir(TrabajoPredisenado& trabajo, int linea) {
    Form76 f(s_, a_, d_, trabajo, linea, QDate::currentDate(), padre_);
    if (f.exec() != QDialog::Accepted)
        return false;
    if (!f.Logica().FechaTecleada().isEmpty())
        a_.escribir(QStringLiteral("Valores"), QStringLiteral("DateF76"),
                    f.Logica().FechaTecleada());
    return true;
}

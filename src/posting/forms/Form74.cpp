#include "posting/forms/Form74.h"

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

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QComboBox* lista(QWidget* padre, const QList<std::pair<QString, QString>>& cuentas) {
    auto* c = new QComboBox(padre);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    for (const auto& [codigo, nombre] : cuentas)
        c->addItem(nombre + QStringLiteral("  (") + codigo + QLatin1Char(')'), codigo);
    c->setMinimumWidth(260);
    return c;
}

QList<std::pair<QString, QString>> cuentas(Conexion& c, const QString& patron) {
    QList<std::pair<QString, QString>> r;
    QSqlQuery q = c.ejecutar(
        QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE NCuenta LIKE ? ORDER BY Cuenta"),
        {patron});
    while (q.next())
        r.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed()});
    return r;
}

QPushButton* boton(QWidget* padre, const char* nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(QString::fromLatin1(nombre));
    b->setAutoDefault(false);
    return b;
}

} // namespace

Form74::Form74(const Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre)
    : QDialog(padre), s_(s), a_(a), d_(d), k_(s, d) {
    setObjectName(QStringLiteral("Form74"));
    setWindowTitle(QStringLiteral("Quilmar [Crear o modificar Asiento Prediseñado]"));
    setModal(true);

    Text1 = CampoNumero(this, QStringLiteral("Text1"), 3, 60);
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    LimitarCampo(Text2, Campo::NombrePredi);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont negrita = Label1->font();
    negrita.setBold(true);
    Label1->setFont(negrita);
    Option1 = new QRadioButton(QStringLiteral("Debe"), this);
    Option1->setObjectName(QStringLiteral("Option1"));
    Option2 = new QRadioButton(QStringLiteral("Haber"), this);
    Option2->setObjectName(QStringLiteral("Option2"));
    Check1 = new QCheckBox(QStringLiteral("Libro de IVA"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Check2 = new QCheckBox(QStringLiteral("Mod. 347"), this);
    Check2->setObjectName(QStringLiteral("Check2"));
    Text3 = new QLineEdit(this);
    Text3->setObjectName(QStringLiteral("Text3"));
    LimitarCampo(Text3, Campo::ComentarioPredi);

    QList<std::pair<QString, QString>> subcuentas, terceros;
    QStringList sectores;
    try {
        Conexion c = AbrirDatos(s);
        QSqlQuery q = c.ejecutar(QStringLiteral("SELECT NCuenta, Cuenta FROM Cuentas WHERE "
                                                "Aparcada = 0 ORDER BY Cuenta"));
        while (q.next())
            subcuentas.append({q.value(0).toString().trimmed(), q.value(1).toString().trimmed()});
        terceros = cuentas(c, QStringLiteral("4%")) + cuentas(c, QStringLiteral("2%"));
        sectores = SectoresConVacio(s);
    } catch (const ErrorQuilmar& e) {
        d_.Informar(e.mensaje());
    }

    auto* campos = new QGridLayout;
    for (int c = 0; c < CampoPredi::Total; ++c) {
        Nombres[c] = new QLabel(this);
        Nombres[c]->setObjectName(QStringLiteral("LabelCampo%1").arg(c));
        Tipos[c] = new QComboBox(this);
        Tipos[c]->setObjectName(QStringLiteral("Tipo%1").arg(c));
        Tipos[c]->addItem(QString(), static_cast<int>(TipoCelda::Ninguno));
        for (TipoCelda t : TiposDeCampo(c))
            Tipos[c]->addItem(PalabraTipo(t, c), static_cast<int>(t));
        QWidget* w = nullptr;
        if (c == CampoPredi::Subcuenta) {
            w = lista(this, subcuentas);
        } else if (c == CampoPredi::CliPro) {
            w = lista(this, terceros);
        } else if (c == CampoPredi::Sector) {
            auto* combo = new QComboBox(this);
            combo->setEditable(true);
            combo->setInsertPolicy(QComboBox::NoInsert);
            combo->addItems(sectores);
            w = combo;
        } else {
            auto* campo = new QLineEdit(this);
            if (c == CampoPredi::Concepto)
                LimitarCampo(campo, Campo::Concepto);
            w = campo;
        }
        w->setObjectName(QStringLiteral("Valor%1").arg(c));
        Valores[c] = w;
        // An editable list takes the keys itself and hands them to its edit past any filter.
        w->installEventFilter(this);
        if (edicion(c) != w)
            edicion(c)->installEventFilter(this);
        campos->addWidget(Nombres[c], c, 0);
        campos->addWidget(new QLabel(TituloCampoPredi(c), this), c, 1);
        campos->addWidget(Tipos[c], c, 2);
        campos->addWidget(w, c, 3);
        connect(Tipos[c], &QComboBox::activated, this, [this, c] { tipoCambiado(c); });
    }
    campos->setColumnStretch(3, 1);

    auto* apunte = new QGroupBox(QStringLiteral("Apunte"), this);
    auto* cajaApunte = new QVBoxLayout(apunte);
    auto* lado = new QHBoxLayout;
    lado->addWidget(Label1);
    lado->addSpacing(20);
    lado->addWidget(Option1);
    lado->addWidget(Option2);
    lado->addSpacing(20);
    lado->addWidget(Check1);
    lado->addWidget(Check2);
    lado->addStretch();
    cajaApunte->addLayout(lado);
    cajaApunte->addLayout(campos);
    auto* comentario = new QHBoxLayout;
    comentario->addWidget(new QLabel(QStringLiteral("Comentario"), this));
    comentario->addWidget(Text3, 1);
    cajaApunte->addLayout(comentario);

    MSFlexGrid1 = new QTableWidget(0, 14, this);
    MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    MSFlexGrid1->setHorizontalHeaderLabels(
        {QStringLiteral("Apunte"), QStringLiteral("D/H"), QStringLiteral("Fecha"),
         QStringLiteral("Subcuenta"), QStringLiteral("Concepto"), QStringLiteral("Importe"),
         QStringLiteral("Sector"), QStringLiteral("Documento"), QStringLiteral("Base IVA"),
         QStringLiteral("Cliente/Proveedor"), QStringLiteral("Factura"), QStringLiteral("IVA"),
         QStringLiteral("347"), QStringLiteral("Comentario")});
    MSFlexGrid1->verticalHeader()->setVisible(false);
    MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
    MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    MSFlexGrid1->setMinimumHeight(140);

    Command1 = boton(this, "Command1", QStringLiteral("Nu&evo Ap."));
    Command2 = boton(this, "Command2", QStringLiteral("&Añadir Ap."));
    Command3 = boton(this, "Command3", QStringLiteral("&Modificar Ap"));
    Command4 = boton(this, "Command4", QStringLiteral("&Guardar"));
    Command5 = boton(this, "Command5", QStringLiteral("Borrar &Todo"));
    Command6 = boton(this, "Command6", QStringLiteral("&Salir"));

    auto* cabecera = new QHBoxLayout;
    cabecera->addWidget(new QLabel(QStringLiteral("Código"), this));
    cabecera->addWidget(Text1);
    cabecera->addSpacing(16);
    cabecera->addWidget(new QLabel(QStringLiteral("Nombre"), this));
    cabecera->addWidget(Text2, 1);
    auto* botonesLinea = new QHBoxLayout;
    for (QPushButton* b : {Command1, Command2, Command3})
        botonesLinea->addWidget(b);
    botonesLinea->addStretch();
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    for (QPushButton* b : {Command4, Command5, Command6})
        botones->addWidget(b);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(cabecera);
    todo->addWidget(apunte);
    todo->addLayout(botonesLinea);
    todo->addWidget(MSFlexGrid1, 1);
    todo->addLayout(botones);

    auto accion = [this](QPushButton* b, std::function<void()> hacerla) {
        connect(b, &QPushButton::clicked, this, [this, hacerla] {
            aLogica();
            hacer(hacerla);
            desdeLogica();
        });
    };
    accion(Command1, [this] { k_.NuevoAp(); });
    accion(Command2, [this] { k_.AnadirAp(); });
    accion(Command3, [this] { k_.ModificarAp(); });
    accion(Command4, [this] {
        if (k_.Guardar())
            d_.Informar(QStringLiteral("Se guardó el Asiento Prediseñado ") + k_.Codigo.trimmed() +
                        QLatin1Char('.'));
    });
    accion(Command5, [this] { k_.BorrarTodo(); });
    connect(Command6, &QPushButton::clicked, this, &QDialog::reject);
    connect(MSFlexGrid1, &QTableWidget::cellClicked, this, [this](int fila, int) {
        aLogica();
        k_.SeleccionarLinea(fila);
        desdeLogica();
    });

    resize(900, 720);
    PrepararVentana(this, a_);
    desdeLogica();
    Text1->setFocus();
}

bool Form74::Cargar(int codigo) {
    bool hecho = false;
    hacer([&] { hecho = k_.Cargar(codigo); });
    desdeLogica();
    return hecho;
}

void Form74::FijarCampo(int campo, TipoCelda tipo, const QString& texto) {
    Tipos[campo]->setCurrentIndex(std::max(0, Tipos[campo]->findData(static_cast<int>(tipo))));
    tipoCambiado(campo);
    if (auto* combo = qobject_cast<QComboBox*>(Valores[campo])) {
        const int i = combo->findData(texto);
        if (i >= 0)
            combo->setCurrentIndex(i);
        else
            combo->setEditText(texto);
    } else {
        static_cast<QLineEdit*>(Valores[campo])->setText(texto);
    }
}

void Form74::hacer(const std::function<void()>& accion) {
    try {
        accion();
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d_.Informar(e.mensaje());
    }
}

QLineEdit* Form74::edicion(int campo) const {
    if (auto* combo = qobject_cast<QComboBox*>(Valores[campo]))
        return combo->lineEdit();
    return static_cast<QLineEdit*>(Valores[campo]);
}

QString Form74::valor(int campo) const {
    if (auto* combo = qobject_cast<QComboBox*>(Valores[campo])) {
        // A subaccount or counterparty chosen in its list is kept by its code.
        const int i = combo->findText(combo->currentText());
        if (i >= 0 && combo->itemData(i).isValid())
            return combo->itemData(i).toString();
        return combo->currentText();
    }
    return static_cast<QLineEdit*>(Valores[campo])->text();
}

void Form74::tipoCambiado(int campo) {
    const auto tipo = static_cast<TipoCelda>(Tipos[campo]->currentData().toInt());
    const bool texto =
        tipo == TipoCelda::Fija || tipo == TipoCelda::Formula || tipo == TipoCelda::Variable;
    Valores[campo]->setEnabled(texto);
    if (!texto)
        edicion(campo)->clear();
}

void Form74::aLogica() {
    k_.Codigo = Text1->text();
    k_.Nombre = Text2->text();
    k_.DH = Option1->isChecked()   ? QStringLiteral("D")
            : Option2->isChecked() ? QStringLiteral("H")
                                   : QString();
    for (int c = 0; c < CampoPredi::Total; ++c) {
        k_.Campos[c].Tipo = static_cast<TipoCelda>(Tipos[c]->currentData().toInt());
        k_.Campos[c].Valor = valor(c);
    }
    k_.LibroIVA = Check1->isChecked();
    k_.Mod347 = Check2->isChecked();
    k_.Coment = Text3->text();
}

void Form74::desdeLogica() {
    cargando_ = true;
    if (Text1->text() != k_.Codigo)
        Text1->setText(k_.Codigo);
    if (Text2->text() != k_.Nombre)
        Text2->setText(k_.Nombre);
    Label1->setText(QStringLiteral("Apunte: ") + k_.Etiqueta());
    // Radio buttons of one group can't all be cleared unless the group lets them.
    Option1->setAutoExclusive(false);
    Option2->setAutoExclusive(false);
    Option1->setChecked(k_.DH == QLatin1String("D"));
    Option2->setChecked(k_.DH == QLatin1String("H"));
    Option1->setAutoExclusive(true);
    Option2->setAutoExclusive(true);
    for (int c = 0; c < CampoPredi::Total; ++c) {
        Nombres[c]->setText(k_.NombreCampo(c));
        FijarCampo(c, k_.Campos[c].Tipo, k_.Campos[c].Valor);
    }
    Check1->setChecked(k_.LibroIVA);
    Check2->setChecked(k_.Mod347);
    Text3->setText(k_.Coment);

    MSFlexGrid1->setRowCount(0);
    for (const LineaPredisenado& l : k_.Lineas) {
        const int f = MSFlexGrid1->rowCount();
        MSFlexGrid1->insertRow(f);
        QStringList celdas{l.Etiqueta, l.DH};
        for (const QString& c : l.Campos)
            celdas << c;
        celdas << (l.LibroIVA ? QStringLiteral("Sí") : QString())
               << (l.Mod347 ? QStringLiteral("Sí") : QString()) << l.Coment;
        for (int c = 0; c < celdas.size(); ++c)
            MSFlexGrid1->setItem(f, c, new QTableWidgetItem(celdas[c]));
    }
    MSFlexGrid1->resizeColumnsToContents();
    cargando_ = false;
}

bool Form74::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(objeto, evento);
    auto* k = static_cast<QKeyEvent*>(evento);
    if (EsTeclaDeEdicion(k) || EsIntro(k) || k->text().isEmpty())
        return QDialog::eventFilter(objeto, evento);
    int campo = -1;
    for (int c = 0; c < CampoPredi::Total; ++c)
        if (objeto == edicion(c) || objeto == Valores[c])
            campo = c;
    if (campo < 0)
        return QDialog::eventFilter(objeto, evento);
    const auto tipo = static_cast<TipoCelda>(Tipos[campo]->currentData().toInt());
    const QChar ch = k->text().at(0);
    if (campo == CampoPredi::Fecha && !EditorPredisenado::TeclaFecha(ch)) {
        d_.Informar(MsgFormatoFecha);
        return true;
    }
    if (tipo != TipoCelda::Formula)
        return QDialog::eventFilter(objeto, evento);
    if (campo == CampoPredi::Importe || campo == CampoPredi::Base)
        return !EditorPredisenado::TeclaFormulaImporte(ch);
    if (campo == CampoPredi::Subcuenta || campo == CampoPredi::CliPro) {
        // Nothing but the name of another field: "C", a line digit and a field digit.
        static const QRegularExpression prefijo(QStringLiteral("^C([1-9][0-8]?)?$"));
        QLineEdit* e = edicion(campo);
        QString nuevo = e->text();
        nuevo.remove(e->selectionStart() >= 0 ? e->selectionStart() : 0, e->selectedText().size());
        nuevo.insert(e->selectionStart() >= 0 ? e->selectionStart() : e->cursorPosition(),
                     ch.toUpper());
        if (!prefijo.match(nuevo.toUpper()).hasMatch()) {
            d_.Informar(MsgFormulaNombreCampo(campo));
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

#include "posting/forms/Form61.h"

#include "platform/forms/Ventana.h"
#include "store/Formato.h"

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

Form61::Form61(Ajustes& a, const QString& nombre, const QDate& fecha, bool todos, QWidget* padre)
    : QDialog(padre) {
    setObjectName(QStringLiteral("Form61"));
    setWindowTitle(QStringLiteral("Confirmar asiento"));
    setModal(true);

    auto* titulo =
        new QLabel(QStringLiteral("Confirmación de contabilización de asiento periódico"), this);
    QFont negrita = titulo->font();
    negrita.setBold(true);
    negrita.setPointSizeF(negrita.pointSizeF() + 2);
    titulo->setFont(negrita);
    Label1 = new QLabel(QStringLiteral("Asiento: ") + nombre, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label2 = new QLabel(
        QStringLiteral("Fecha: ") + FormatoFecha(fecha, QStringLiteral("short date")), this);
    Label2->setObjectName(QStringLiteral("Label2"));

    const struct {
        QPushButton** boton;
        const char* nombre;
        const char* texto;
        AccionForm61 accion;
    } botones[] = {
        {&Command1, "Command1", "&Contabilizar", AccionForm61::Contabilizar},
        {&Command2, "Command2", "C&ontabilizar todos", AccionForm61::ContabilizarTodos},
        {&Command3, "Command3", "&No contabilizar", AccionForm61::NoContabilizar},
        {&Command4, "Command4", "No contabilizar y &eliminar asiento periódico",
         AccionForm61::Eliminar},
    };
    auto* columna = new QVBoxLayout;
    for (const auto& b : botones) {
        *b.boton = new QPushButton(QString::fromUtf8(b.texto), this);
        (*b.boton)->setObjectName(QString::fromUtf8(b.nombre));
        const AccionForm61 accion = b.accion;
        connect(*b.boton, &QPushButton::clicked, this, [this, accion] {
            accion_ = accion;
            accept();
        });
        columna->addWidget(*b.boton);
    }
    Command5 = new QPushButton(QStringLiteral("&Ayuda"), this);
    Command5->setObjectName(QStringLiteral("Command5"));
    Command5->setEnabled(false); // no help pages yet
    columna->addWidget(Command5);
    Command1->setDefault(true);
    // Its VAT data have to be typed at each posting.
    Command2->setEnabled(todos);
    if (!todos)
        Command2->setToolTip(QStringLiteral("El asiento tiene líneas de IVA: hay que introducir "
                                            "sus datos al contabilizarlo."));

    auto* datos = new QVBoxLayout;
    datos->addWidget(Label1);
    datos->addWidget(Label2);
    datos->addStretch();
    auto* cuerpo = new QHBoxLayout;
    cuerpo->addLayout(datos, 1);
    cuerpo->addLayout(columna);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(titulo);
    todo->addLayout(cuerpo);
    PrepararVentana(this, a, 61);
    Command1->setFocus();
}

#include "posting/forms/Form88.h"

#include "journal/Casaciones.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form4.h"
#include "store/Conexiones.h"
#include "store/Formato.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QTableWidgetItem* celda(const QString& texto, bool cifra = false) {
    auto* i = new QTableWidgetItem(texto);
    if (cifra)
        i->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return i;
}

QString importe(double v) {
    return v != 0 ? Formato(v, QStringLiteral("standard")) : QString();
}

} // namespace

Form88::Form88(Sesion& s, Dialogo& d, double clave, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form88"));
    setWindowTitle(QStringLiteral("Quilmar [Ver Casación]"));
    QList<LineaPunteo> lineas;
    try {
        Conexion c = AbrirDatos(s);
        lineas = LineasCasacion(c, clave);
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
    }
    auto* raiz = new QVBoxLayout(this);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    raiz->addWidget(Label1);
    Grid1 = new QTableWidget(int(lineas.size()), 8, this);
    Grid1->setObjectName(QStringLiteral("Grid1"));
    Grid1->setHorizontalHeaderLabels({QString(), QStringLiteral("Nº As."), QStringLiteral("NAp"),
                                      QStringLiteral("Fecha"), QStringLiteral("Cuenta"),
                                      QStringLiteral("Concepto"), QStringLiteral("Debe"),
                                      QStringLiteral("Haber")});
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->verticalHeader()->hide();
    double debe = 0, haber = 0;
    for (int f = 0; f < lineas.size(); ++f) {
        const LineaPunteo& l = lineas.at(f);
        auto* imagen = new QTableWidgetItem;
        imagen->setIcon(ImagenDeCasacion(l.CasacionN + 1));
        imagen->setToolTip(TextoEstadoCasacion(l));
        Grid1->setItem(f, 0, imagen);
        Grid1->setItem(f, 1, celda(QString::number(l.NAs), true));
        Grid1->setItem(f, 2, celda(QString::number(l.NAp), true));
        Grid1->setItem(f, 3, celda(FormatoFecha(l.Fecha, QStringLiteral("short date"))));
        Grid1->setItem(f, 4, celda(l.Cuenta));
        Grid1->setItem(f, 5, celda(l.Concepto));
        Grid1->setItem(f, 6, celda(importe(l.Debe), true));
        Grid1->setItem(f, 7, celda(importe(l.Haber), true));
        debe += l.Debe;
        haber += l.Haber;
    }
    Grid1->resizeColumnsToContents();
    Grid1->horizontalHeader()->setSectionResizeMode(5, QHeaderView::Stretch);
    raiz->addWidget(Grid1, 1);
    const double diferencia = Centimos(debe - haber);
    Label1->setText(lineas.isEmpty()  ? MsgSinCasacion
                    : diferencia == 0 ? QStringLiteral("Casados totalmente")
                                      : QStringLiteral("Casados parcialmente"));
    Label2 = new QLabel(QStringLiteral("Debe: %1    Haber: %2    Diferencia: %3")
                            .arg(Formato(Centimos(debe), QStringLiteral("standard")),
                                 Formato(Centimos(haber), QStringLiteral("standard")),
                                 Formato(diferencia, QStringLiteral("standard"))),
                        this);
    Label2->setObjectName(QStringLiteral("Label2"));
    raiz->addWidget(Label2);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    Command1 = new QPushButton(QStringLiteral("&Salir"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    botones->addWidget(Command1);
    raiz->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    resize(820, 320);
}

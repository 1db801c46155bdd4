#include "posting/forms/Form66.h"

#include "chart/NCuenta.h"
#include "platform/Ajustes.h"
#include "platform/forms/Ventana.h"
#include "posting/ImagenesTablero.h"
#include "store/Sesion.h"

#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

struct Pagina {
    const char* titulo;
    const char* texto;
};

// The pages of the guide. The second and third both teach how an entry is made.
const Pagina Paginas[] = {
    {"Conozca las cuentas",
     "<p>Las cuentas de la empresa están repartidas en siete Areas, y cada una tiene su imagen "
     "en la pantalla principal:</p><ul>"
     "<li><b>(0) Capital</b>: lo que los dueños han puesto en el negocio y sus resultados.</li>"
     "<li><b>(1) Cuentas y Efectivo</b>: la caja y las cuentas de los bancos.</li>"
     "<li><b>(2) SE DEBE</b>: lo que debemos a proveedores, bancos y otros acreedores.</li>"
     "<li><b>(3) Ingresos/Ganancias</b>: las ventas y los demás ingresos.</li>"
     "<li><b>(4) NOS DEBEN</b>: lo que nos deben los clientes y otros deudores.</li>"
     "<li><b>(5) Bienes e Inversiones</b>: locales, vehículos, ordenadores y demás bienes.</li>"
     "<li><b>(6) Gastos/Pérdidas</b>: compras, suministros, sueldos y demás gastos.</li></ul>"
     "<p>Al pulsar sobre una imagen aparece la lista de sus subcuentas.</p>"},
    {"Hacer un asiento",
     "<p><b>Contabilicemos un gasto que se paga con cheque. El dinero va del Banco al "
     "Gasto.</b></p><ol>"
     "<li>Pulse sobre la imagen de <i>Cuentas y Efectivo</i>: aparece la lista de sus "
     "subcuentas.</li>"
     "<li>Pulse sobre el Banco y, sin soltar el botón del ratón, llévelo hasta la imagen de "
     "<i>Gastos/Pérdidas</i>: su lista se abre sola.</li>"
     "<li>Suelte el Banco sobre el gasto, por ejemplo <i>Teléfono</i>.</li></ol>"
     "<p>Siempre se arrastra desde donde sale el dinero hasta donde va.</p>"},
    {"Hacer un asiento",
     "<p>Se abre la ventana <b>Contabilizar</b> con las dos líneas del asiento: el Gasto en el "
     "Debe y el Banco en el Haber.</p>"
     "<p>Escriba la fecha, el concepto (por ejemplo «Teléfono de marzo») y el importe, y pulse "
     "<b>Aceptar</b>: el importe pasa a las dos líneas.</p>"
     "<p>Compruebe el asiento y pulse <b>Aceptar</b> otra vez: queda anotado en el Diario y "
     "los saldos se ponen al día.</p>"},
    {"Contabilizar un Ingreso",
     "<p>Cuando cobramos, el dinero va del Ingreso al Banco o a la Caja: arrastre la subcuenta "
     "del Ingreso (por ejemplo <i>Ventas</i>) y suéltela sobre el Banco. El Banco queda en el "
     "Debe y el Ingreso en el Haber.</p>"
     "<p>Después, los ingresos que entren en el mismo Banco se contabilizan con un solo clic "
     "sobre el Ingreso: el programa recuerda el Banco del último asiento.</p>"},
    {"Contabilizar dos Gastos",
     "<p>Un pago puede repartirse entre varios gastos. Arrastre el Banco sobre el primer gasto, "
     "escriba su importe y pulse <b>Aceptar</b>.</p>"
     "<p>Sin cerrar la ventana Contabilizar, arrastre otra vez el Banco sobre el segundo gasto: "
     "se añade una línea al Debe y el Haber del Banco crecerá con su importe. Escriba el "
     "importe del segundo gasto, pulse <b>Aceptar</b>, y <b>Aceptar</b> de nuevo para "
     "contabilizar.</p>"
     "<p>Si el gasto se paga con el mismo Banco que el asiento anterior, basta con hacer clic "
     "sobre el gasto.</p>"},
    {"Ayuda",
     "<p>También puede trabajar con el teclado: <b>Alt</b> y el número de un Area abren su "
     "lista; las flechas y las letras se mueven por ella; la <b>barra espaciadora</b> coge la "
     "subcuenta, e <b>Intro</b> la suelta sobre la subcuenta elegida en otra lista.</p>"
     "<p>Puede volver a ver este asistente desde el menú <i>Ayuda, Ayuda para empezar</i>. Las "
     "imágenes y el color de la pantalla se cambian en el menú <i>Cuentas, Imágenes y "
     "color</i>.</p>"},
};
constexpr int NumPaginas = sizeof(Paginas) / sizeof(Paginas[0]);

constexpr int AnchoDibujo = 520, AltoDibujo = 200;

} // namespace

Form66::Form66(const Sesion& s, const Ajustes& a, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Form66"));
    setWindowTitle(QStringLiteral("Ayuda para empezar a contabilizar"));
    for (int i = 0; i < NumeroAreas; ++i)
        imagenes_[i] = CargarImagenArea(s, a, i);

    Titulo = new QLabel;
    Titulo->setObjectName(QStringLiteral("Titulo"));
    QFont f = Titulo->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() + 4);
    Titulo->setFont(f);
    Imagen1 = new QLabel;
    Imagen1->setObjectName(QStringLiteral("Imagen1"));
    Imagen1->setAlignment(Qt::AlignCenter);
    Imagen1->setFixedSize(AnchoDibujo, AltoDibujo);
    Texto = new QLabel;
    Texto->setObjectName(QStringLiteral("Texto"));
    Texto->setTextFormat(Qt::RichText);
    Texto->setWordWrap(true);
    Texto->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Texto->setMinimumHeight(200);
    Numero = new QLabel;
    Numero->setObjectName(QStringLiteral("Numero"));
    Anterior = new QPushButton(QStringLiteral("< &Anterior"));
    Anterior->setObjectName(QStringLiteral("Anterior"));
    Siguiente = new QPushButton(QStringLiteral("&Siguiente >"));
    Siguiente->setObjectName(QStringLiteral("Siguiente"));
    Finalizar = new QPushButton(QStringLiteral("&Finalizar"));
    Finalizar->setObjectName(QStringLiteral("Finalizar"));
    Siguiente->setDefault(true);
    connect(Anterior, &QPushButton::clicked, this, [this] { mostrar(pagina_ - 1); });
    connect(Siguiente, &QPushButton::clicked, this, [this] { mostrar(pagina_ + 1); });
    connect(Finalizar, &QPushButton::clicked, this, &QDialog::accept);

    auto* botones = new QHBoxLayout;
    botones->addWidget(Numero);
    botones->addStretch();
    botones->addWidget(Anterior);
    botones->addWidget(Siguiente);
    botones->addWidget(Finalizar);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Titulo);
    todo->addWidget(Imagen1, 0, Qt::AlignHCenter);
    todo->addWidget(Texto, 1);
    todo->addLayout(botones);
    setMinimumWidth(AnchoDibujo + 40);
    mostrar(0);
}

int Form66::paginas() const {
    return NumPaginas;
}

QString Form66::tituloPagina() const {
    return QString::fromUtf8(Paginas[pagina_].titulo);
}

QString Form66::textoPagina() const {
    return QString::fromUtf8(Paginas[pagina_].texto);
}

void Form66::mostrar(int pagina) {
    pagina_ = qBound(0, pagina, NumPaginas - 1);
    Titulo->setText(tituloPagina());
    Texto->setText(textoPagina());
    Imagen1->setPixmap(dibujo(pagina_));
    Numero->setText(QStringLiteral("Página %1 de %2").arg(pagina_ + 1).arg(NumPaginas));
    Anterior->setEnabled(pagina_ > 0);
    Siguiente->setEnabled(pagina_ < NumPaginas - 1);
    (pagina_ < NumPaginas - 1 ? Siguiente : Finalizar)->setDefault(true);
}

QPixmap Form66::dibujo(int pagina) const {
    QPixmap px(AnchoDibujo, AltoDibujo);
    px.fill(QColor(0xe4, 0xec, 0xf2));
    QPainter p(&px);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);

    // An area as on the board: its picture with the label across the top, and a word below.
    auto area = [&](int i, const QRectF& r, const QString& pie = {}) {
        QPainterPath marco;
        marco.addRoundedRect(r, 5, 5);
        p.save();
        p.setClipPath(marco);
        const QImage& img = imagenes_[i];
        const QSizeF t = QSizeF(img.size()).scaled(r.size(), Qt::KeepAspectRatioByExpanding);
        p.drawImage(QRectF(r.center() - QPointF(t.width() / 2, t.height() / 2), t), img);
        const QRectF banda(r.left(), r.top(), r.width(), qMin(20.0, r.height() * 0.2));
        p.fillRect(banda, QColor(18, 38, 58, 185));
        QFont f = p.font();
        f.setBold(true);
        f.setPixelSize(qMax(8, static_cast<int>(banda.height() * 0.55)));
        // The label fits the thumbnail's width.
        while (f.pixelSize() > 7 &&
               QFontMetricsF(f).horizontalAdvance(EtiquetaArea(i)) > banda.width() - 8)
            f.setPixelSize(f.pixelSize() - 1);
        p.setFont(f);
        p.setPen(Qt::white);
        p.drawText(banda.adjusted(4, 0, -2, 0), Qt::AlignVCenter | Qt::AlignLeft, EtiquetaArea(i));
        p.restore();
        p.setPen(QPen(QColor(0x8a, 0x9b, 0xab), 1));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(r, 5, 5);
        if (!pie.isEmpty()) {
            QFont g = p.font();
            g.setBold(true);
            g.setPixelSize(15);
            p.setFont(g);
            p.setPen(QColor(0x12, 0x26, 0x3a));
            p.drawText(QRectF(r.left() - 20, r.bottom() + 4, r.width() + 40, 22), Qt::AlignCenter,
                       pie);
        }
    };
    // The drag: a thick arrow from one area to another.
    auto flecha = [&](QPointF a, QPointF b) {
        p.setPen(QPen(QColor(0xd3, 0x2f, 0x2f), 6, Qt::SolidLine, Qt::RoundCap));
        const QPointF d = b - a;
        const double largo = std::hypot(d.x(), d.y());
        const QPointF u = d / largo;
        const QPointF n(-u.y(), u.x());
        p.drawLine(a, b - u * 14);
        QPainterPath punta;
        punta.moveTo(b);
        punta.lineTo(b - u * 22 + n * 12);
        punta.lineTo(b - u * 22 - n * 12);
        punta.closeSubpath();
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0xd3, 0x2f, 0x2f));
        p.drawPath(punta);
    };
    auto linea = [&](const QRectF& r, const QString& cuenta, const QString& debe,
                     const QString& haber, bool cabecera) {
        p.setPen(QColor(0xb0, 0xbe, 0xc5));
        p.setBrush(cabecera ? QColor(0xdb, 0xe5, 0xee) : QColor(Qt::white));
        p.drawRect(r);
        QFont f = p.font();
        f.setBold(cabecera);
        f.setPixelSize(14);
        p.setFont(f);
        p.setPen(QColor(0x1b, 0x1b, 0x1b));
        const double w = r.width();
        p.drawText(QRectF(r.left() + 8, r.top(), w * 0.5, r.height()), Qt::AlignVCenter, cuenta);
        p.drawText(QRectF(r.left() + w * 0.5, r.top(), w * 0.24, r.height()),
                   Qt::AlignVCenter | Qt::AlignRight, debe);
        p.drawText(QRectF(r.left() + w * 0.74, r.top(), w * 0.24, r.height()),
                   Qt::AlignVCenter | Qt::AlignRight, haber);
    };

    switch (pagina) {
    case 0: {
        const double w = 112, h = 80, sep = 12;
        for (int i = 0; i < 7; ++i) {
            const double x = i < 4 ? 14 + i * (w + sep) : 14 + (w + sep) / 2 + (i - 4) * (w + sep);
            const double y = i < 4 ? 12 : 12 + h + sep;
            area(i, QRectF(x, y, w, h));
        }
        break;
    }
    case 1:
        area(1, QRectF(40, 30, 160, 120), QStringLiteral("Banco"));
        area(6, QRectF(320, 30, 160, 120), QStringLiteral("Gasto"));
        flecha(QPointF(212, 90), QPointF(310, 90));
        break;
    case 2:
        linea(QRectF(40, 40, 440, 32), QStringLiteral("Cuenta"), QStringLiteral("Debe"),
              QStringLiteral("Haber"), true);
        linea(QRectF(40, 72, 440, 32), QStringLiteral("Teléfono"), QStringLiteral("60,00"),
              QString(), false);
        linea(QRectF(40, 104, 440, 32), QStringLiteral("Banco"), QString(), QStringLiteral("60,00"),
              false);
        break;
    case 3:
        area(3, QRectF(40, 30, 160, 120), QStringLiteral("Ingreso"));
        area(1, QRectF(320, 30, 160, 120), QStringLiteral("Banco"));
        flecha(QPointF(212, 90), QPointF(310, 90));
        break;
    case 4: {
        area(1, QRectF(30, 40, 150, 112), QStringLiteral("Banco"));
        area(6, QRectF(320, 12, 112, 78));
        area(6, QRectF(320, 110, 112, 78));
        flecha(QPointF(190, 82), QPointF(310, 52));
        flecha(QPointF(190, 112), QPointF(310, 148));
        QFont g = p.font();
        g.setBold(true);
        g.setPixelSize(15);
        p.setFont(g);
        p.setPen(QColor(0x12, 0x26, 0x3a));
        p.drawText(QRectF(438, 38, 80, 22), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Gasto 1"));
        p.drawText(QRectF(438, 136, 80, 22), Qt::AlignLeft | Qt::AlignVCenter,
                   QStringLiteral("Gasto 2"));
        break;
    }
    default: {
        // The keys of the board: a list opened, a subaccount picked up, dropped on another.
        auto tecla = [&](const QRectF& r, const QString& texto) {
            p.setPen(QPen(QColor(0x7a, 0x86, 0x92), 1.5));
            p.setBrush(QColor(0xfa, 0xfb, 0xfc));
            p.drawRoundedRect(r, 6, 6);
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(0xd5, 0xdc, 0xe3));
            p.drawRoundedRect(QRectF(r.left() + 2, r.bottom() - 6, r.width() - 4, 4), 2, 2);
            QFont g = p.font();
            g.setBold(true);
            g.setPixelSize(14);
            p.setFont(g);
            p.setPen(QColor(0x1b, 0x1b, 0x1b));
            p.drawText(r.adjusted(0, 0, 0, -4), Qt::AlignCenter, texto);
        };
        auto rotulo = [&](const QRectF& r, const QString& texto) {
            QFont g = p.font();
            g.setBold(false);
            g.setPixelSize(13);
            p.setFont(g);
            p.setPen(QColor(0x12, 0x26, 0x3a));
            p.drawText(r, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, texto);
        };
        tecla(QRectF(20, 50, 52, 44), QStringLiteral("Alt"));
        tecla(QRectF(80, 50, 44, 44), QStringLiteral("1"));
        rotulo(QRectF(10, 104, 124, 60), QStringLiteral("abre la lista de Cuentas y Efectivo"));
        tecla(QRectF(160, 50, 120, 44), QStringLiteral("Espacio"));
        rotulo(QRectF(150, 104, 140, 60), QStringLiteral("coge el Banco"));
        tecla(QRectF(310, 50, 52, 44), QStringLiteral("Alt"));
        tecla(QRectF(370, 50, 44, 44), QStringLiteral("6"));
        rotulo(QRectF(300, 104, 124, 60), QStringLiteral("abre la lista de Gastos"));
        tecla(QRectF(440, 50, 64, 44), QStringLiteral("Intro"));
        rotulo(QRectF(430, 104, 84, 60), QStringLiteral("lo suelta en el gasto"));
        break;
    }
    }
    return px;
}

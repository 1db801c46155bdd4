#include "platform/forms/Iconos.h"

#include <QAction>
#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>
#include <QStyle>
#include <functional>

namespace {

using Dibujo = std::function<void(QPainter&)>;

// Pictures the style has none for, drawn on a 32-pixel square.
QIcon pintado(const Dibujo& dibujar) {
    QPixmap p(32, 32);
    p.fill(Qt::transparent);
    QPainter pintor(&p);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(QPen(QColor(0x37, 0x47, 0x4f), 2));
    dibujar(pintor);
    return QIcon(p);
}

void impresora(QPainter& p) {
    p.setBrush(Qt::white);
    p.drawRect(9, 3, 14, 10); // the paper going in
    p.setBrush(QColor(0x90, 0xa4, 0xae));
    p.drawRoundedRect(3, 12, 26, 12, 3, 3);
    p.setBrush(Qt::white);
    p.drawRect(9, 20, 14, 9); // the printed sheet
    p.drawLine(12, 24, 20, 24);
}

void hojas(QPainter& p) {
    p.setBrush(QColor(0xe3, 0xf2, 0xfd));
    p.drawRect(4, 3, 15, 19);
    p.setBrush(Qt::white);
    p.drawRect(12, 10, 15, 19);
    for (int y : {15, 19, 23})
        p.drawLine(15, y, 24, y);
}

void lupa(QPainter& p) {
    p.setBrush(QColor(0xe3, 0xf2, 0xfd));
    p.drawEllipse(QPointF(13, 13), 8.5, 8.5);
    p.setPen(QPen(QColor(0x5d, 0x40, 0x37), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(19, 19, 28, 28);
}

void calendario(QPainter& p) {
    p.setBrush(Qt::white);
    p.drawRect(4, 6, 24, 22);
    p.setBrush(QColor(0xc6, 0x28, 0x28));
    p.drawRect(4, 6, 24, 6);
    p.setPen(QPen(QColor(0x37, 0x47, 0x4f), 2));
    for (int x : {10, 16, 22})
        for (int y : {17, 23})
            p.drawPoint(x, y);
    p.drawLine(10, 3, 10, 8);
    p.drawLine(22, 3, 22, 8);
}

void desplegar(QPainter& p) {
    p.setBrush(QColor(0x37, 0x47, 0x4f));
    p.drawPolygon(QPolygon({QPoint(9, 12), QPoint(23, 12), QPoint(16, 21)}));
}

struct Entrada {
    Accion accion;
    QStyle::StandardPixmap estandar; // SP_CustomBase: drawn here
    Dibujo dibujo;
    const char* aviso;
};

const QList<Entrada>& tabla() {
    static const QList<Entrada> t{
        {Accion::Salir, QStyle::SP_DialogCloseButton, {}, "Salir"},
        {Accion::Cerrar, QStyle::SP_TitleBarCloseButton, {}, "Cerrar la ventana"},
        {Accion::Cuentas, QStyle::SP_FileDialogListView, {}, "Cuentas"},
        {Accion::Imagenes, QStyle::SP_DesktopIcon, {}, "Imágenes"},
        {Accion::Asientos, QStyle::SP_FileDialogDetailedView, {}, "Asientos"},
        {Accion::Diario, QStyle::SP_FileIcon, {}, "Diario"},
        {Accion::SumasSaldos, QStyle::SP_FileDialogContentsView, {}, "Sumas y Saldos"},
        {Accion::Mayor, QStyle::SP_DirOpenIcon, {}, "Mayor"},
        {Accion::Renumerar, QStyle::SP_BrowserReload, {}, "Renumerar"},
        {Accion::Vencimientos, QStyle::SP_MessageBoxWarning, {}, "Vencimientos"},
        {Accion::Movimientos, QStyle::SP_FileDialogInfoView, {}, "Movimientos de la subcuenta"},
        {Accion::IngresosGastos, QStyle::SP_ArrowUp, {}, "Ingresos y Gastos"},
        {Accion::PorMeses, QStyle::SP_ArrowDown, {}, "Ingresos y Gastos por meses"},
        {Accion::Avisos, QStyle::SP_MessageBoxInformation, {}, "Avisos"},
        {Accion::Calculadora, QStyle::SP_ComputerIcon, {}, "Calculadora"},
        {Accion::Bancos, QStyle::SP_DriveNetIcon, {}, "Bancos"},
        {Accion::Ayuda, QStyle::SP_DialogHelpButton, {}, "Ayuda"},
        {Accion::Imprimir, QStyle::SP_CustomBase, impresora, "Imprimir"},
        {Accion::Copiar, QStyle::SP_CustomBase, hojas, "Copiar"},
        {Accion::Exportar, QStyle::SP_DialogSaveButton, {}, "Exportar a Excel o a texto"},
        {Accion::VerAsiento, QStyle::SP_DialogOpenButton, {}, "Ver/Modificar Asiento"},
        {Accion::EliminarAsiento, QStyle::SP_TrashIcon, {}, "Eliminar Asiento"},
        {Accion::QuitarApunte,
         QStyle::SP_DialogDiscardButton,
         {},
         "Eliminar el apunte seleccionado"},
        {Accion::SeleccionarApunte, QStyle::SP_DialogApplyButton, {}, "Seleccionar el apunte"},
        {Accion::Periodico, QStyle::SP_CustomBase, calendario, "Guardar como asiento periódico"},
        {Accion::Buscar, QStyle::SP_CustomBase, lupa, "Buscar"},
        {Accion::PrimeraPagina, QStyle::SP_MediaSkipBackward, {}, "Primera página"},
        {Accion::PaginaAnterior, QStyle::SP_MediaSeekBackward, {}, "Página anterior"},
        {Accion::PaginaSiguiente, QStyle::SP_MediaSeekForward, {}, "Página siguiente"},
        {Accion::UltimaPagina, QStyle::SP_MediaSkipForward, {}, "Última página"},
        {Accion::Calendario, QStyle::SP_CustomBase, desplegar, "Calendario"},
        {Accion::Nuevo, QStyle::SP_FileDialogNewFolder, {}, "Nuevo"},
    };
    return t;
}

const Entrada& entrada(Accion a) {
    for (const Entrada& e : tabla())
        if (e.accion == a)
            return e;
    Q_UNREACHABLE();
}

} // namespace

QIcon IconoDe(Accion a) {
    const Entrada& e = entrada(a);
    if (e.estandar == QStyle::SP_CustomBase)
        return pintado(e.dibujo);
    return QApplication::style()->standardIcon(e.estandar);
}

QString AvisoDe(Accion a) {
    return QString::fromUtf8(entrada(a).aviso);
}

QList<Accion> AccionesConIcono() {
    QList<Accion> r;
    for (const Entrada& e : tabla())
        r << e.accion;
    return r;
}

void PonerIcono(QAction* accion, Accion a) {
    accion->setIcon(IconoDe(a));
    accion->setToolTip(AvisoDe(a));
    accion->setProperty("accion", static_cast<int>(a));
}

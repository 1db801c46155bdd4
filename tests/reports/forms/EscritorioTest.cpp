// The desktop as a Spanish user meets it: Qt's own texts in Spanish, one picture per action in
// every window, dialogs that answer Enter with their default button, forms that fit a
// 1024 x 768 screen and keep their size, and the posting screen placed where the areas the
// drags begin from stay in sight.

#include "../ComunLibros.h"
#include "forms/Pantallas.h"
#include "platform/Traducciones.h"
#include "platform/forms/Iconos.h"
#include "platform/forms/ImprimirLibro.h"
#include "posting/EstadoTablero.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form16.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form45.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form89.h"
#include "posting/forms/MenusVencimientos.h"
#include "posting/forms/TableroAreas.h"
#include "reports/forms/Form10.h"
#include "reports/forms/Form11.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form53.h"
#include "reports/forms/Form6.h"
#include "reports/forms/Form78.h"
#include "store/forms/Form102.h"
#include "store/forms/Form17.h"
#include "store/forms/Form19.h"
#include "store/forms/Form22.h"
#include "store/forms/Form43.h"
#include "store/forms/Form75.h"
#include "tax/forms/Form25.h"
#include "tax/forms/Form92.h"
#include "tax/forms/Form94.h"
#include "tax/forms/Form96.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace {

QImage imagen(const QIcon& i) {
    return i.pixmap(24, 24).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(Escritorio, LosDialogosDeQtHablanEspanol) {
    EXPECT_TRUE(CargarTraduccionesQt(*qApp).endsWith("qtbase_es.qm"));
    QDialogButtonBox botones(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                             QDialogButtonBox::Save | QDialogButtonBox::Yes | QDialogButtonBox::No);
    QStringList textos;
    for (auto b : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel, QDialogButtonBox::Save,
                   QDialogButtonBox::Yes, QDialogButtonBox::No})
        textos << botones.button(b)->text().remove('&');
    EXPECT_EQ(textos, QStringList({"Aceptar", "Cancelar", "Guardar", "Sí", "No"}));
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Look in:"), "Ver en:");
}

// Every picture of the table is one action's only: no two actions look alike.
TEST(Escritorio, UnDibujoPorAccion) {
    std::map<QString, QString> visto; // picture (as bytes) -> tooltip
    for (Accion a : AccionesConIcono()) {
        const QImage i = imagen(IconoDe(a));
        ASSERT_FALSE(i.isNull()) << AvisoDe(a).toStdString();
        const QString clave = QString::fromLatin1(
            QByteArray(reinterpret_cast<const char*>(i.constBits()), i.sizeInBytes()).toBase64());
        const auto [pos, nuevo] = visto.emplace(clave, AvisoDe(a));
        EXPECT_TRUE(nuevo) << AvisoDe(a).toStdString() << " looks like "
                           << pos->second.toStdString();
    }
}

// Walks the toolbars of the windows a user opens: the board, the posting and maintenance
// screens, the list windows of the books and the print preview. An action with a picture takes
// it from the table, with the table's tooltip, so that the same picture means the same thing in
// every window.
TEST(Escritorio, CadaVentanaUsaLosDibujosDeLaTabla) {
    Entorno e;
    e.instalarDemo();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    tablero.Cargar();
    EstadoTablero estado;
    std::vector<std::unique_ptr<QWidget>> ventanas;
    ventanas.emplace_back(new Form4(e.sesion, *e.ajustes, e.dialogo, estado));
    ventanas.emplace_back(new Form7(e.sesion, *e.ajustes, e.dialogo));
    ventanas.emplace_back(new Form5(e.sesion, *e.ajustes, e.dialogo, SeleccionDiario{}));
    ventanas.emplace_back(new Form10(e.sesion, *e.ajustes, e.dialogo));
    ventanas.emplace_back(
        new Form11(e.sesion, *e.ajustes, e.dialogo, QDate(2024, 1, 1), QDate(2024, 12, 31)));
    QPrinter impresora;
    ventanas.emplace_back(new VistaPrevia(
        &impresora, [](Impresora&, int) {}, "X"));

    std::map<QString, QString> dibujos; // picture -> tooltip
    int conDibujo = 0;
    QList<QWidget*> todas{&tablero};
    for (auto& v : ventanas)
        todas << v.get();
    for (QWidget* w : todas)
        for (QToolBar* barra : w->findChildren<QToolBar*>())
            for (QAction* a : barra->actions()) {
                if (a->icon().isNull())
                    continue;
                ++conDibujo;
                const QString donde = w->objectName() + ": " + a->toolTip();
                const QVariant accion = a->property("accion");
                ASSERT_TRUE(accion.isValid()) << donde.toStdString() << " has a picture of its own";
                const Accion cual = static_cast<Accion>(accion.toInt());
                EXPECT_EQ(imagen(a->icon()), imagen(IconoDe(cual))) << donde.toStdString();
                EXPECT_EQ(a->toolTip(), AvisoDe(cual)) << donde.toStdString();
                const QImage i = imagen(a->icon());
                const QString clave = QString::fromLatin1(
                    QByteArray(reinterpret_cast<const char*>(i.constBits()), i.sizeInBytes())
                        .toBase64());
                const auto [pos, nuevo] = dibujos.emplace(clave, a->toolTip());
                EXPECT_EQ(pos->second, a->toolTip()) << donde.toStdString();
            }
    EXPECT_GT(conDibujo, 30);
    // The case that was wrong: printing and copying no longer share a picture.
    EXPECT_NE(imagen(IconoDe(Accion::Imprimir)), imagen(IconoDe(Accion::Copiar)));
}

// The dialogs a user answers with Enter, each built as the program builds it.
struct DialogoProbado {
    const char* nombre;
    std::function<QDialog*(Entorno&)> crear;
};

const DialogoProbado Dialogos[] = {
    {"Form102",
     [](Entorno& e) {
         return new Form102(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form16",
     [](Entorno& e) {
         return new Form16(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form45",
     [](Entorno& e) {
         return new Form45(*e.ajustes, e.dialogo);
     }},
    {"Form22",
     [](Entorno& e) {
         return new Form22(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form43",
     [](Entorno& e) {
         return new Form43(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form75",
     [](Entorno& e) {
         return new Form75(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form17",
     [](Entorno& e) {
         return new Form17(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form19",
     [](Entorno& e) {
         return new Form19(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form6",
     [](Entorno& e) {
         return new Form6(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form53",
     [](Entorno& e) {
         return new Form53(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form78",
     [](Entorno& e) {
         return new Form78(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form25",
     [](Entorno& e) {
         return new Form25(e.sesion, *e.ajustes, e.dialogo, LibroIva::Recibidas);
     }},
    {"Form92",
     [](Entorno& e) {
         return new Form92(e.sesion, *e.ajustes, e.dialogo, "303");
     }},
    {"Form94",
     [](Entorno& e) {
         return new Form94(e.sesion, *e.ajustes, e.dialogo);
     }},
    {"Form96",
     [](Entorno& e) {
         return new Form96(e.sesion, *e.ajustes, e.dialogo);
     }},
};

TEST(Escritorio, IntroPulsaElBotonPredeterminadoYCadaFormaCabeEn1024x768) {
    for (const DialogoProbado& p : Dialogos) {
        SCOPED_TRACE(p.nombre);
        Entorno e;
        e.instalarDemo();
        std::unique_ptr<QDialog> d(p.crear(e));
        // Whole on a 1024 x 768 screen, with room for the window's title.
        EXPECT_LE(d->minimumSizeHint().width(), 1024);
        EXPECT_LE(d->minimumSizeHint().height(), 768 - 40);
        d->show();
        QApplication::setActiveWindow(d.get());
        QPushButton* predeterminado = nullptr;
        for (QPushButton* b : d->findChildren<QPushButton*>())
            if (b->isDefault())
                predeterminado = b;
        ASSERT_NE(predeterminado, nullptr);
        ASSERT_TRUE(predeterminado->isEnabled());
        // The first box that takes the keyboard, as the dialog opens.
        QWidget* caja = d->focusWidget();
        if (!caja || qobject_cast<QPushButton*>(caja)) {
            caja = d->nextInFocusChain();
            while (caja != d.get() && (qobject_cast<QPushButton*>(caja) || !caja->isEnabled() ||
                                       !caja->isVisible() || caja->focusPolicy() == Qt::NoFocus))
                caja = caja->nextInFocusChain();
        }
        ASSERT_NE(caja, d.get());
        caja->setFocus();
        QSignalSpy pulsado(predeterminado, &QPushButton::clicked);
        QTest::keyClick(caja, Qt::Key_Return);
        EXPECT_EQ(pulsado.count(), 1) << caja->objectName().toStdString();
    }
}

TEST(Escritorio, RenumerarYAvisosGuardanSuTamano) {
    Entorno e;
    e.crearEmpresa();
    for (int n : {16, 45}) {
        auto crear = [&]() -> QDialog* {
            if (n == 16)
                return new Form16(e.sesion, *e.ajustes, e.dialogo);
            return new Form45(*e.ajustes, e.dialogo);
        };
        {
            std::unique_ptr<QDialog> d(crear());
            d->show();
            d->resize(d->width() + 37, d->height() + 23);
            d->close();
        }
        const int ancho = e.ajustes->leerNumero("Opciones", QString("WF%1").arg(n), 0);
        const int alto = e.ajustes->leerNumero("Opciones", QString("HF%1").arg(n), 0);
        EXPECT_GT(ancho, 0) << n;
        std::unique_ptr<QDialog> d(crear());
        EXPECT_EQ(d->size(), QSize(ancho, alto)) << n;
    }
}

// On the board the posting screen opens below the upper row of areas (0 to 3), from which the
// drags that add lines begin, and inside the screen.
TEST(Escritorio, ElAsientoNoTapaLasAreasDeArriba) {
    Entorno e;
    e.instalarDemo();
    Form1 tablero(e.sesion, *e.ajustes, e.dialogo);
    tablero.Cargar();
    const QRect pantalla = QGuiApplication::primaryScreen()->availableGeometry();
    tablero.move(pantalla.topLeft());
    tablero.resize(qMin(1024, pantalla.width()), qMin(700, pantalla.height() - 60));
    tablero.Refrescar();
    tablero.show();
    tablero.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&tablero));
    tablero.AlternarPortada();
    QApplication::processEvents();
    TableroAreas* t = tablero.tablero();
    // The bank picked up from the keyboard and let go on an expense: Form4 opens.
    QTest::keyClick(&tablero, Qt::Key_1, Qt::AltModifier);
    ListaArea* bancos = t->lista(1);
    for (int r = 0; r < bancos->rowCount(); ++r)
        if (bancos->fila(r).Nombre == "Banco")
            bancos->setCurrentCell(r, 0);
    QTest::keyClick(bancos, Qt::Key_Space);
    ASSERT_TRUE(t->recogidaPorTeclado());
    QTest::keyClick(&tablero, Qt::Key_6, Qt::AltModifier);
    t->lista(6)->setCurrentCell(0, 0);
    QTest::keyClick(t->lista(6), Qt::Key_Return);
    QPointer<Form4> f = t->form4();
    ASSERT_TRUE(f);
    QApplication::processEvents();
    int abajo = 0;
    for (int i = 0; i < 4; ++i)
        abajo = qMax(abajo, t->area(i)->mapToGlobal(QPoint(0, t->area(i)->height())).y());
    const QRect sitio = f->frameGeometry();
    EXPECT_GT(sitio.top(), abajo) << "areas 0 to 3 stay in sight";
    EXPECT_TRUE(pantalla.contains(sitio))
        << "whole on the screen: " << sitio.x() << "," << sitio.y() << " " << sitio.width() << "x"
        << sitio.height() << " min " << f->minimumSizeHint().width() << "x"
        << f->minimumSizeHint().height();
    delete f.data();

    // The due dates, opened from the menu, go below them too, or, being taller than the room
    // left there, as low as the screen allows.
    ConectarVencimientos(tablero, e.sesion, *e.ajustes, e.dialogo);
    tablero.accion("mnuVencimientos")->trigger();
    QPointer<Form89> v = Form89::Abierto();
    ASSERT_TRUE(v);
    QApplication::processEvents();
    const QRect venc = v->frameGeometry();
    EXPECT_GE(venc.top(), qMin(abajo + 1, pantalla.bottom() + 1 - venc.height()))
        << venc.top() << " " << venc.height();
    EXPECT_LE(venc.bottom(), pantalla.bottom());
    EXPECT_LE(v->minimumSizeHint().width(), 1024);
    EXPECT_LE(v->minimumSizeHint().height(), 768 - 40);
    delete v.data();
}

} // namespace

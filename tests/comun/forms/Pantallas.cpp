#include "forms/Pantallas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

void AlAbrirseModal(std::function<void(QWidget*)> accion, int esperaMs) {
    QPointer<QWidget> anterior = QApplication::activeModalWidget();
    auto reloj = std::make_shared<QElapsedTimer>();
    reloj->start();
    auto* temporizador = new QTimer;
    temporizador->setInterval(10);
    QObject::connect(temporizador, &QTimer::timeout, [=]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal != anterior.data() && modal->isVisible()) {
            temporizador->stop();
            temporizador->deleteLater();
            accion(modal);
            return;
        }
        if (reloj->elapsed() > esperaMs) {
            temporizador->stop();
            temporizador->deleteLater();
            ADD_FAILURE() << "no se abrió ninguna ventana modal";
            // Unblock whatever waits for a window that never came.
            if (modal)
                modal->close();
        }
    });
    temporizador->start();
}

void Pulsar(const QWidget* ventana, const QString& boton) {
    auto* b = ventana->findChild<QAbstractButton*>(boton);
    if (!b) {
        ADD_FAILURE() << "no existe el botón " << boton.toStdString();
        return;
    }
    EXPECT_TRUE(b->isEnabled()) << boton.toStdString() << " está desactivado";
    // Near the left edge: on the indicator of a check or radio box, whose text may not fill it.
    QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(qMin(8, b->width() / 2), b->height() / 2));
}

void Escribir(const QWidget* ventana, const QString& campo, const QString& texto) {
    auto* e = ventana->findChild<QLineEdit*>(campo);
    if (!e) {
        ADD_FAILURE() << "no existe el campo " << campo.toStdString();
        return;
    }
    e->clear();
    // Key by key, as typed; QTest's own typing knows only ASCII keys.
    for (const QChar c : texto) {
        QKeyEvent pulsar(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(e, &pulsar);
        QKeyEvent soltar(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(e, &soltar);
    }
}

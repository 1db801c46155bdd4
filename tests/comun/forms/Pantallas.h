#pragma once
// Helpers of the screen tests: acting on a modal window from inside the event loop that shows
// it, finding controls by name, typing and clicking.

#include <QString>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>

// Runs `accion` on the next modal window to become active (other than the one active now), from
// within the event loop of whatever opened it. Fails the test if none opens in time.
void AlAbrirseModal(std::function<void(QWidget*)> accion, int esperaMs = 10000);

// A control of a window by its object name; fails the test when it is missing.
template <class T> T* Control(const QWidget* ventana, const QString& nombre) {
    T* w = ventana->findChild<T*>(nombre);
    if (!w)
        ADD_FAILURE_AT(__FILE__, __LINE__) << "no existe el control " << nombre.toStdString();
    return w;
}

// Clicks a button, check box or radio button by object name.
void Pulsar(const QWidget* ventana, const QString& boton);
// Replaces the text of a line edit by typing it.
void Escribir(const QWidget* ventana, const QString& campo, const QString& texto);

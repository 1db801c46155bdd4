#pragma once
// The desktop's Dialogo: message boxes over the window the user is working in, carrying its
// title; questions answer No unless the user says Yes.

#include "platform/Dialogo.h"

class QWidget;

class DialogoVentanas : public Dialogo {
public:
    // With no window given, the boxes go over the active window at the time they are shown.
    explicit DialogoVentanas(QWidget* ventana = nullptr) : ventana_(ventana) {}
    void Informar(const QString& texto) override;
    bool Preguntar(const QString& texto) override;
    bool PreguntarSi(const QString& texto) override;
    QString PedirTexto(const QString& texto, const QString& defecto) override;
    QString PedirClave(const QString& texto) override;

private:
    QWidget* padre() const;
    QString titulo() const;
    QWidget* ventana_;
};

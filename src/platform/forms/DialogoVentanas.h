#pragma once
// Dialogo on the desktop: message boxes titled as the window they belong to.
//
// Usage: DialogoVentanas dialogo(this);  then hand `dialogo` to the logic, which calls
// Informar / Preguntar (Sí/No, No by default) / PedirTexto.

#include "platform/Dialogo.h"

#include <QPointer>
#include <QWidget>

class DialogoVentanas : public Dialogo {
public:
    explicit DialogoVentanas(QWidget* padre = nullptr) : padre_(padre) {}
    void Informar(const QString& texto) override;
    bool Preguntar(const QString& texto) override;
    QString PedirTexto(const QString& texto, const QString& defecto) override;

private:
    QString titulo() const;
    QPointer<QWidget> padre_;
};

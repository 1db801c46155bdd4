#pragma once
// Long work of the utilities on the desktop: the busy pointer while it runs, back to normal for
// each message or question, which the user must be able to answer.

#include "platform/Dialogo.h"

class DialogoEnEspera : public Dialogo {
public:
    explicit DialogoEnEspera(Dialogo& d);
    ~DialogoEnEspera() override;
    DialogoEnEspera(const DialogoEnEspera&) = delete;
    DialogoEnEspera& operator=(const DialogoEnEspera&) = delete;

    void Informar(const QString& texto) override;
    bool Preguntar(const QString& texto) override;
    QString PedirTexto(const QString& texto, const QString& defecto) override;

private:
    Dialogo& d_;
};

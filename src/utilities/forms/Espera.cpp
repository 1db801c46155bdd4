#include "utilities/forms/Espera.h"

#include <QApplication>

DialogoEnEspera::DialogoEnEspera(Dialogo& d) : d_(d) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

DialogoEnEspera::~DialogoEnEspera() {
    QApplication::restoreOverrideCursor();
}

void DialogoEnEspera::Informar(const QString& texto) {
    QApplication::restoreOverrideCursor();
    d_.Informar(texto);
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

bool DialogoEnEspera::Preguntar(const QString& texto) {
    QApplication::restoreOverrideCursor();
    const bool r = d_.Preguntar(texto);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    return r;
}

QString DialogoEnEspera::PedirTexto(const QString& texto, const QString& defecto) {
    QApplication::restoreOverrideCursor();
    const QString r = d_.PedirTexto(texto, defecto);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    return r;
}

#include "platform/forms/DialogoVentanas.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

QString DialogoVentanas::titulo() const {
    const QString t = padre_ ? padre_->window()->windowTitle() : QString();
    return t.isEmpty() ? QStringLiteral("Quilmar") : t;
}

void DialogoVentanas::Informar(const QString& texto) {
    QMessageBox caja(QMessageBox::Information, titulo(), texto, QMessageBox::Ok, padre_);
    caja.exec();
}

bool DialogoVentanas::Preguntar(const QString& texto) {
    QMessageBox caja(QMessageBox::Question, titulo(), texto, QMessageBox::Yes | QMessageBox::No,
                     padre_);
    caja.button(QMessageBox::Yes)->setText(QStringLiteral("&Sí"));
    caja.button(QMessageBox::No)->setText(QStringLiteral("&No"));
    caja.setDefaultButton(QMessageBox::No);
    caja.setEscapeButton(QMessageBox::No);
    return caja.exec() == QMessageBox::Yes;
}

QString DialogoVentanas::PedirTexto(const QString& texto, const QString& defecto) {
    bool ok = false;
    const QString r =
        QInputDialog::getText(padre_, titulo(), texto, QLineEdit::Normal, defecto, &ok);
    return ok ? r : QString();
}

#include "platform/forms/DialogoVentanas.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

QWidget* DialogoVentanas::padre() const {
    if (ventana_)
        return ventana_->window();
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

QString DialogoVentanas::titulo() const {
    const QWidget* p = padre();
    const QString t = p ? p->windowTitle() : QString();
    return t.trimmed().isEmpty() ? QStringLiteral("Quilmar") : t;
}

void DialogoVentanas::Informar(const QString& texto) {
    QMessageBox caja(QMessageBox::Information, titulo(), texto, QMessageBox::Ok, padre());
    caja.button(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    caja.exec();
}

namespace {

bool preguntar(QWidget* padre, const QString& titulo, const QString& texto,
               QMessageBox::StandardButton defecto) {
    QMessageBox caja(QMessageBox::Question, titulo, texto, QMessageBox::Yes | QMessageBox::No,
                     padre);
    caja.button(QMessageBox::Yes)->setText(QStringLiteral("&Sí"));
    caja.button(QMessageBox::No)->setText(QStringLiteral("&No"));
    caja.setDefaultButton(defecto);
    caja.setEscapeButton(QMessageBox::No);
    return caja.exec() == QMessageBox::Yes;
}

} // namespace

bool DialogoVentanas::Preguntar(const QString& texto) {
    return preguntar(padre(), titulo(), texto, QMessageBox::No);
}

bool DialogoVentanas::PreguntarSi(const QString& texto) {
    return preguntar(padre(), titulo(), texto, QMessageBox::Yes);
}

QString DialogoVentanas::PedirClave(const QString& texto) {
    QInputDialog caja(padre());
    caja.setWindowTitle(titulo());
    caja.setLabelText(texto);
    caja.setTextEchoMode(QLineEdit::Password);
    caja.setOkButtonText(QStringLiteral("Aceptar"));
    caja.setCancelButtonText(QStringLiteral("Cancelar"));
    return caja.exec() == QDialog::Accepted ? caja.textValue() : QString();
}

QString DialogoVentanas::PedirTexto(const QString& texto, const QString& defecto) {
    QInputDialog caja(padre());
    caja.setWindowTitle(titulo());
    caja.setLabelText(texto);
    caja.setTextValue(defecto);
    caja.setOkButtonText(QStringLiteral("Aceptar"));
    caja.setCancelButtonText(QStringLiteral("Cancelar"));
    return caja.exec() == QDialog::Accepted ? caja.textValue() : QString();
}

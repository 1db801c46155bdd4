#include "platform/forms/Teclas.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>

bool EsIntro(const QKeyEvent* k) {
    return k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
}

bool EsTeclaDeEdicion(const QKeyEvent* k) {
    switch (k->key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return true;
    default:
        return k->text().isEmpty() || (k->modifiers() & Qt::ControlModifier);
    }
}

void SoloCifras(QLineEdit* campo, int cifras) {
    campo->setValidator(new QRegularExpressionValidator(
        QRegularExpression(QStringLiteral("\\d{0,%1}").arg(cifras)), campo));
}

QLineEdit* CampoNumero(QWidget* padre, const QString& nombre, int cifras, int ancho) {
    auto* t = new QLineEdit(padre);
    t->setObjectName(nombre);
    t->setAlignment(Qt::AlignRight);
    SoloCifras(t, cifras);
    if (ancho > 0)
        t->setMaximumWidth(ancho);
    return t;
}

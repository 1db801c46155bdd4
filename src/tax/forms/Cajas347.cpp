#include "tax/forms/Cajas347.h"

#include <QComboBox>
#include <QLineEdit>

QValidator::State ValidadorCampo347::validate(QString& texto, int&) const {
    QString r;
    for (const QChar c : texto) {
        const QChar m = Caracter347(c, campo_.admite);
        if (m.isNull())
            return Invalid;
        r += m;
    }
    if (!sinLimite_ && campo_.ancho > 0 && r.size() > campo_.ancho)
        return Invalid;
    texto = r;
    return Acceptable;
}

QLineEdit* NuevoCampo347(QWidget* padre, const Campo347& campo, const QString& nombre,
                         bool sinLimite) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nombre);
    if (!sinLimite)
        e->setMaxLength(campo.ancho);
    e->setValidator(new ValidadorCampo347(campo, sinLimite, e));
    e->setToolTip(campo.etiqueta);
    const int letras = std::min(campo.ancho, 30) + 1;
    e->setMinimumWidth(e->fontMetrics().horizontalAdvance(QString(std::min(letras, 6), u'M')) + 12);
    e->setMaximumWidth(e->fontMetrics().horizontalAdvance(QString(letras, u'M')) + 12);
    return e;
}

QComboBox* NuevaLista347(QWidget* padre, const Campo347& campo, const QString& nombre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nombre);
    c->addItem(QString());
    c->addItems(Valores347(campo.admite));
    c->setToolTip(campo.etiqueta);
    return c;
}

void ElegirEnLista347(QComboBox* lista, const QString& valor) {
    const int i = lista->findText(valor.trimmed());
    lista->setCurrentIndex(i < 0 ? 0 : i);
}

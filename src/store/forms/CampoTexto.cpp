#include "store/forms/CampoTexto.h"

#include <QLineEdit>
#include <QValidator>

namespace {

// Takes the control characters out of whatever reaches the box, keeping the caret in its place.
class ValidadorSinControles : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& texto, int& posicion) const override {
        if (TieneControles(texto)) {
            const int antes = static_cast<int>(SinControles(texto.left(posicion)).size());
            texto = SinControles(texto);
            posicion = antes;
        }
        return Acceptable;
    }
};

} // namespace

void SinControlesEnCaja(QLineEdit* caja) {
    caja->setValidator(new ValidadorSinControles(caja));
}

void LimitarCampo(QLineEdit* caja, Campo campo, bool limitarLargo) {
    SinControlesEnCaja(caja);
    if (limitarLargo)
        caja->setMaxLength(TamanoCampo(campo));
}

#pragma once
// The boxes of the Modelo 347's sheets and of Form108, made from the table of its fields: what
// a box lets the user type is what the field accepts.

#include "tax/Campos347.h"

#include <QValidator>

class QComboBox;
class QLineEdit;
class QWidget;

// Each character through Caracter347 (raised to capitals); over the width, refused unless the
// box was told to show longer texts (a NIF gathered from the books may be longer, and the file
// refuses it in words the user can act on).
class ValidadorCampo347 : public QValidator {
public:
    ValidadorCampo347(const Campo347& campo, bool sinLimite, QObject* padre)
        : QValidator(padre), campo_(campo), sinLimite_(sinLimite) {}
    State validate(QString& texto, int& pos) const override;

private:
    Campo347 campo_;
    bool sinLimite_;
};

// A text box for a field (not an amount, a mark or a list), named `nombre`, as wide as the field
// takes.
QLineEdit* NuevoCampo347(QWidget* padre, const Campo347& campo, const QString& nombre,
                         bool sinLimite = false);
// A list box for TipoNumero and Calificador: an empty entry and the field's values.
QComboBox* NuevaLista347(QWidget* padre, const Campo347& campo, const QString& nombre);
// Selects the value in a list box (the empty entry when it is not there).
void ElegirEnLista347(QComboBox* lista, const QString& valor);

#include "utilities/forms/MenusCalculadora.h"

#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "utilities/forms/Form32.h"

#include <QLineEdit>

void ConectarCalculadora(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuCalculadora"), [t, &s, &a, &d] {
        Form32 f(s, a, d, t);
        f.exec();
    });
    // "+" in the amount fields of the posting screens and entry maintenance.
    Form4::CalculadoraDeImporte() = [&s, &a, &d](QLineEdit* campo, const QString& etiqueta) {
        Form32 f(s, a, d, campo->window(), etiqueta, campo);
        f.exec();
    };
}

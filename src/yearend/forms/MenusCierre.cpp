#include "yearend/forms/MenusCierre.h"

#include "posting/forms/Form1.h"
#include "store/forms/Form22.h"
#include "yearend/forms/Form20.h"
#include "yearend/forms/Form23.h"

void ConectarCierre(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form22::CierreEjercicio() = [](Sesion& s, Ajustes& a, Dialogo& d, QWidget* padre) {
        Form23 f(s, a, d, padre);
        f.exec();
        return f.cerrado();
    };
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuReorganizar"), [t, &s, &a, &d] {
        Form20 f(s, a, d, t);
        f.exec();
        // Balances shown on the board and in open books come from Mayor.
        if (f.hecho()) {
            t->Refrescar();
            t->refrescarLibros();
        }
    });
}

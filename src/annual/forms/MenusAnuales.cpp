#include "annual/forms/MenusAnuales.h"

#include "annual/forms/FormEstado.h"
#include "posting/forms/Form1.h"

void ConectarAnuales(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    auto abrir = [t, &s, &a, &d](TipoEstado tipo) {
        if (FormEstado* f = FormEstado::Abrir(s, a, d, tipo, t))
            t->registrarLibro(f, QStringLiteral("Anuales"));
    };
    tablero.Conectar(QStringLiteral("mnuSituacion"), [abrir] { abrir(TipoEstado::Balance); });
    tablero.Conectar(QStringLiteral("mnuPyG"), [abrir] { abrir(TipoEstado::PyG); });
}

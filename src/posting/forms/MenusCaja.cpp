#include "posting/forms/MenusCaja.h"

#include "posting/forms/Form1.h"
#include "posting/forms/Form60.h"
#include "posting/forms/Form86.h"

void ConectarCajaYPunteo(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuCaja"), [t, &s, &a, &d] { Form60::Abrir(s, a, d, t); });
    tablero.Conectar(QStringLiteral("mnuPunteo"), [t, &s, &a, &d] { Form86::Abrir(s, a, d, t); });
    QObject::connect(t, &Form1::sesionCambiada, t, [] {
        if (Form60* f = Form60::Abierto())
            f->close();
        if (Form86* f = Form86::Abierto())
            f->close();
    });
}

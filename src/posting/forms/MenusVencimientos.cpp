#include "posting/forms/MenusVencimientos.h"

#include "platform/forms/Ventana.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form4.h"
#include "posting/forms/Form7.h"
#include "posting/forms/Form89.h"
#include "posting/forms/TableroAreas.h"

Form89* AbrirVencimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    const bool nueva = !Form89::Abierto();
    Form89* f = Form89::Abrir(s, a, d, &tablero);
    if (f && nueva) {
        QObject::connect(f, &Form89::vencimientosCambiados, &tablero, &Form1::ColorVenc);
        // Below the upper row of areas, like every window the board opens, so that the drags
        // and the lights stay at hand.
        ColocarEnZona(f, tablero.tablero()->zonaLibre());
    }
    return f;
}

void ConectarVencimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuVencimientos"),
                     [t, &s, &a, &d] { AbrirVencimientos(*t, s, a, d); });
    tablero.AbrirVencimientos = [t, &s, &a, &d](const QString& tipo) {
        if (Form89* f = AbrirVencimientos(*t, s, a, d))
            f->VerTipo(tipo);
    };
    const auto deLinea = [t, &s, &a, &d](const DatosVencimientoLinea& linea) {
        if (Form89* f = AbrirVencimientos(*t, s, a, d))
            f->Prellenar(linea);
    };
    Form4::VencimientosDeLinea() = deLinea;
    Form7::VencimientosDeLinea() = deLinea;
    // The lists of the screen belong to the company and year it opened with.
    QObject::connect(t, &Form1::sesionCambiada, t, [] {
        if (Form89* f = Form89::Abierto())
            f->close();
    });
    // The lights answer clicks now.
    tablero.ColorVenc();
}

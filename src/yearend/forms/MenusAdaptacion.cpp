#include "yearend/forms/MenusAdaptacion.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "yearend/Adaptacion.h"

void ConectarAdaptacion(Form1& tablero, Sesion& s, Ajustes&, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuAdaptar"), [t, &s, &d] {
        ResultadoAdaptacion r{ResultadoAdaptacion::NoConfirmada, {}};
        try {
            r = AdaptarPlanPreguntando(s, d);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
            return;
        }
        if (r.estado == ResultadoAdaptacion::YaAdaptada) {
            d.Informar(MsgYaAdaptada);
        } else if (r.estado == ResultadoAdaptacion::Hecha) {
            // Open books and the areas show codes and names that may have changed.
            t->cerrarLibros();
            t->LlenarAreas();
        }
    });
}

#include "utilities/forms/MenusUtilidades.h"

#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "store/BloqueoEmpresa.h"
#include "store/Sesion.h"
#include "utilities/Avisos.h"
#include "utilities/Compactar.h"
#include "utilities/forms/Espera.h"
#include "utilities/forms/Form110.h"
#include "utilities/forms/Form37.h"
#include "utilities/forms/Form38.h"
#include "utilities/forms/Form39.h"
#include "utilities/forms/Form46.h"

void NuevoAviso(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, const Aviso& aviso,
                const QDate& hoy) {
    Form38::NuevoAviso(s, a, d, aviso, hoy, &tablero);
}

void ConectarUtilidades(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, QDate hoy) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuAvisos"), [t, &s, &a, &d] { Form37::Abrir(s, a, d, t); });
    tablero.Conectar(QStringLiteral("mnuCalendario"),
                     [t, &s, &a, &d] { Form39::Abrir(s, a, d, t); });
    tablero.Conectar(QStringLiteral("mnuCopia"), [t, &s, &a, &d] {
        Form46 f(s, a, d, t);
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuRestaurar"), [t, &s, &a, &d] {
        Form110 f(s, a, d, t);
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuCompactar"), [&s, &d] {
        DialogoEnEspera dialogo(d);
        CompactarBasesDatos(s, dialogo);
    });

    // The company the board has open is held, so that nobody swaps its files under it.
    QObject::connect(t, &Form1::sesionCambiada, t, [&s, &d] {
        try {
            MarcarEmpresaAbierta(s);
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });

    // The reminders' step of the start-up: after the due-date lights, before the periodic
    // entries (which wait for the welcome screen); its windows don't block anything.
    QObject::connect(
        t, &Form1::cargaTerminada, t,
        [t, &s, &a, &d, hoy] {
            try {
                for (const Aviso& aviso :
                     PasoAvisosArranque(s, a, hoy.isValid() ? hoy : QDate::currentDate()))
                    NuevoAviso(*t, s, a, d, aviso, hoy);
            } catch (const ErrorQuilmar& e) {
                d.Informar(e.mensaje());
            }
        },
        Qt::SingleShotConnection);
}

#include "chart/forms/MenusCuentas.h"

#include "chart/forms/FORM84.h"
#include "chart/forms/Form21.h"
#include "chart/forms/Form35.h"
#include "chart/forms/Form48.h"
#include "chart/forms/Form73.h"
#include "posting/forms/Form1.h"

void ConectarCuentas(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuGC"), [t, &s, &a, &d] {
        Form73 f(s, a, d, t);
        // A new subaccount, a rename or a deletion: the board's lists follow.
        QObject::connect(&f, &Form73::subcuentaAnadida, t, &Form1::AnadirSubcuenta);
        QObject::connect(&f, &Form73::areasCambiadas, t, [t] {
            t->LlenarAreas();
            t->refrescarLibros(); // books open on screen show the names
        });
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuAparcar"), [t, &s, &a, &d] {
        Form21 f(s, a, d, t);
        QObject::connect(&f, &Form21::areasCambiadas, t, [t] { t->LlenarAreas(); });
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuTipos"), [t, &s, &a, &d] {
        Form48 f(s, a, d, t);
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuSector"), [t, &s, &a, &d] {
        FORM84 f(s, a, d, t);
        QObject::connect(&f, &FORM84::asientosEliminados, t, [t] { t->refrescarLibros(); });
        f.exec();
    });
    tablero.Conectar(QStringLiteral("mnuConceptos"), [t, &s, &a, &d] {
        Form35 f(s, a, d, t);
        f.exec();
    });
}

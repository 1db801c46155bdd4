#include "assets/forms/MenusInventario.h"

#include "assets/forms/Form101.h"
#include "assets/forms/Form99.h"
#include "posting/forms/Form1.h"

void ConectarInventario(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuInventario"), [t, &s, &a, &d] {
        const bool nuevo = Form99::Abierto() == nullptr;
        Form99* f = Form99::Abrir(s, a, d, t);
        if (nuevo)
            QObject::connect(f, &Form99::asientosContabilizados, t, &Form1::refrescarLibros);
    });
    tablero.Conectar(QStringLiteral("mnuAmortizaciones"), [t, &s, &a, &d] {
        Form101 f(s, a, d, t);
        QObject::connect(&f, &Form101::asientosContabilizados, t, &Form1::refrescarLibros);
        f.exec();
        // An open inventory shows the elements brought up.
        if (f.realizada())
            if (Form99* inventario = Form99::Abierto())
                inventario->Refrescar();
    });
}

#include "reports/forms/MenusMayor.h"

#include "posting/forms/Form1.h"
#include "posting/forms/Form7.h"
#include "reports/forms/Form10.h"
#include "reports/forms/Form11.h"
#include "reports/forms/Form5.h"
#include "reports/forms/Form55.h"

namespace {

// What follows a deletion from a book: the maintenance screen must not keep showing the entry
// that is gone, and the open books show the journal as it is now.
template <class F> void TrasEliminar(Form1* t, F* f) {
    QObject::connect(f, &F::asientoEliminado, t, [t](long nas) {
        if (Form7* f7 = Form7::Abierto();
            f7 && !f7->Logica().EsNuevo && f7->Logica().NumeroAsiento == nas)
            f7->Vaciar();
        t->refrescarLibros();
    });
}

Form10* Registrar(Form1& tablero, Form10* f) {
    if (!f)
        return nullptr;
    tablero.registrarLibro(f, QStringLiteral("Movimientos"));
    TrasEliminar(&tablero, f);
    return f;
}

} // namespace

Form10* AbrirMovimientos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d,
                         const PeticionMovimientos& p) {
    return Registrar(tablero, Form10::Abrir(s, a, d, p, &tablero));
}

void ConectarMayor(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuMovimientos"),
                     [t, &s, &a, &d] { Registrar(*t, Form10::AbrirConForm9(s, a, d, t)); });
    tablero.Conectar(QStringLiteral("mnuMayor"), [t, &s, &a, &d] {
        if (Form55* f = Form55::AbrirConForm53(s, a, d, t)) {
            t->registrarLibro(f, QStringLiteral("Mayor"));
            TrasEliminar(t, f);
        }
    });
    // The journal's "Ver Movimientos de la Subcuenta" and the trial balance's double click.
    const auto ver = [t, &s, &a, &d](QWidget*, const PeticionMovimientos& p) {
        AbrirMovimientos(*t, s, a, d, p);
    };
    Form5::VerMovimientos() = ver;
    Form11::VerMovimientos() = ver;
}

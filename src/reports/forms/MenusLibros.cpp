#include "reports/forms/MenusLibros.h"

#include "posting/GestionAsientos.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form7.h"
#include "reports/forms/Form11.h"
#include "reports/forms/Form5.h"
#include "reports/forms/MenusMayor.h"

Form5* AbrirDiario(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form5* f = Form5::Abrir(s, a, d, &tablero);
    if (!f)
        return nullptr;
    tablero.registrarLibro(f, QStringLiteral("Diario"));
    Form1* t = &tablero;
    QObject::connect(f, &Form5::asientoEliminado, t, [t](long nas) {
        // The maintenance screen must not keep showing the entry that is gone.
        if (Form7* f7 = Form7::Abierto();
            f7 && !f7->Logica().EsNuevo && f7->Logica().NumeroAsiento == nas)
            f7->Vaciar();
        t->refrescarLibros();
    });
    return f;
}

Form11* AbrirSumasSaldos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form11* f = Form11::Abrir(s, a, d, &tablero);
    if (f)
        tablero.registrarLibro(f, QStringLiteral("SyS"));
    return f;
}

void ConectarLibros(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    // "Ver/Modificar Asiento" and the double click of the books open the maintenance screen.
    Form5::VerModificarAsiento() = [t, &s, &a, &d](QWidget*, long nas) {
        VMAsiento(s, a, d, nas, t);
    };
    tablero.Conectar(QStringLiteral("mnuVerDiario"), [t, &s, &a, &d] { AbrirDiario(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuSumas"),
                     [t, &s, &a, &d] { AbrirSumasSaldos(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuBuscarAs"), [t, &s, &a, &d] {
        // The search works on an open journal; without one, the journal is opened first.
        const QList<QWidget*> abiertos = t->librosAbiertos(QStringLiteral("Diario"));
        Form5* f =
            abiertos.isEmpty() ? AbrirDiario(*t, s, a, d) : qobject_cast<Form5*>(abiertos.last());
        if (f)
            f->Buscar();
    });
    ConectarMayor(tablero, s, a, d);
}

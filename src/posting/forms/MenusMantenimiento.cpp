#include "posting/forms/MenusMantenimiento.h"

#include "journal/EjercicioAbierto.h"
#include "journal/EliminarAsientos.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "posting/forms/Form16.h"
#include "posting/forms/Form45.h"
#include "posting/forms/Form7.h"

#include <QApplication>

namespace {

bool abierto(Sesion& s, Dialogo& d) {
    try {
        return EjercicioAbierto(s, d);
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return false;
    }
}

} // namespace

void EliminarAsientosDesdeMenu(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    if (!abierto(s, d))
        return;
    std::optional<EleccionEliminar> e;
    {
        Form45 f(a, d, &tablero);
        f.exec();
        e = f.eleccion();
    }
    if (!e)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    int n = -1;
    try {
        n = EliminarAsientos(s, d, *e, [](qint64, qint64) {
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        });
    } catch (const ErrorQuilmar& x) {
        QApplication::restoreOverrideCursor();
        d.Informar(x.mensaje());
        return;
    }
    QApplication::restoreOverrideCursor();
    if (n > 0) {
        // The maintenance screen must not keep showing an entry that is gone.
        if (Form7* f7 = Form7::Abierto()) {
            const long nas = f7->Logica().NumeroAsiento;
            if (!f7->Logica().EsNuevo && nas >= e->desde && nas <= std::max(e->desde, e->hasta))
                f7->Vaciar();
        }
        tablero.refrescarLibros();
    }
}

void RenumerarDesdeMenu(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    if (!abierto(s, d))
        return;
    // An open journal would show stale numbers.
    tablero.cerrarLibros(QStringLiteral("Diario"));
    Form16 f(s, a, d, &tablero);
    QObject::connect(&f, &Form16::renumerado, &tablero, [&tablero] {
        // An entry on the maintenance screen no longer has the number it shows.
        if (Form7* f7 = Form7::Abierto(); f7 && !f7->Logica().EsNuevo)
            f7->Vaciar();
        tablero.refrescarLibros();
    });
    f.exec();
}

void ConectarMantenimiento(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuAsientos"), [t, &s, &a, &d] { VMAsiento(s, a, d, 0, t); });
    tablero.Conectar(QStringLiteral("mnuEliminarAs"),
                     [t, &s, &a, &d] { EliminarAsientosDesdeMenu(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuRenumerar"),
                     [t, &s, &a, &d] { RenumerarDesdeMenu(*t, s, a, d); });
}

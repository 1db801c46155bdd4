#include "reports/forms/MenusLibros.h"

#include "posting/forms/Form1.h"
#include "reports/forms/Form5.h"

Form5* AbrirDiario(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form5* f = Form5::Abrir(s, a, d, &tablero);
    if (!f)
        return nullptr;
    tablero.registrarLibro(f, QStringLiteral("Diario"));
    Form1* t = &tablero;
    QObject::connect(f, &Form5::diarioCambiado, t, [t] { t->refrescarLibros(); });
    return f;
}

void ConectarLibros(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuVerDiario"), [t, &s, &a, &d] { AbrirDiario(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuBuscarAs"), [t, &s, &a, &d] {
        // The search works on an open journal; without one, the journal is opened first.
        const QList<QWidget*> abiertos = t->librosAbiertos(QStringLiteral("Diario"));
        Form5* f =
            abiertos.isEmpty() ? AbrirDiario(*t, s, a, d) : qobject_cast<Form5*>(abiertos.last());
        if (f)
            f->Buscar();
    });
}

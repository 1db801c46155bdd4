#include "tax/forms/MenusModelos.h"

#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "store/Conexiones.h"
#include "store/Sesion.h"
#include "tax/forms/Form109.h"
#include "tax/forms/Form92.h"
#include "tax/forms/Form93.h"
#include "tax/forms/Form94.h"
#include "tax/forms/Form95.h"
#include "tax/forms/Form96.h"
#include "tax/forms/Form97.h"
#include "tax/forms/Form98.h"

#include <QApplication>

namespace {

// Fills a return while the pointer is busy. A store failure is told; the boxes reached so far
// stay, as the window shows them.
void Llenar(Dialogo& d, const std::function<void(Conexion&)>& llenar, Sesion& s) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        Conexion c = AbrirDatos(s);
        llenar(c);
    } catch (const ErrorQuilmar& e) {
        QApplication::restoreOverrideCursor();
        d.Informar(e.mensaje());
        return;
    }
    QApplication::restoreOverrideCursor();
}

template <class F> F* Mostrar(F* f) {
    f->setAttribute(Qt::WA_DeleteOnClose);
    f->show();
    f->raise();
    f->activateWindow();
    return f;
}

} // namespace

Form109* AbrirModelo303(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form92 f(s, a, d, s.AnoActual >= 2009 ? QStringLiteral("303") : QStringLiteral("300"),
             &tablero);
    if (f.exec() != QDialog::Accepted || f.argumento() != QLatin1String("303"))
        return nullptr;
    Modelo303 m;
    m.desde = f.desde();
    m.hasta = f.hasta();
    Llenar(
        d,
        [&](Conexion& c) {
            m = Nuevo303(c, f.desde(), f.hasta());
            Llenar303(c, m);
        },
        s);
    return Mostrar(new Form109(s, a, d, m, &tablero));
}

Form93* AbrirModelo130(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form94 f(s, a, d, &tablero);
    if (f.exec() != QDialog::Accepted)
        return nullptr;
    Modelo130 m;
    Llenar(
        d,
        [&](Conexion& c) {
            m = Nuevo130(c, f.desde(), f.hasta());
            Llenar130(c, m, f.actividades(), d);
        },
        s);
    return Mostrar(new Form93(s, a, d, m, &tablero));
}

Form95* AbrirModelo115(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form96 f(s, a, d, &tablero);
    if (f.exec() != QDialog::Accepted)
        return nullptr;
    Modelo115 m;
    Llenar(
        d,
        [&](Conexion& c) {
            m = Nuevo115(c, f.desde(), f.hasta());
            Llenar115(c, m);
        },
        s);
    return Mostrar(new Form95(s, a, d, m, &tablero));
}

Form97* AbrirModelo347(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form98 f(s, a, d, &tablero);
    if (f.exec() != QDialog::Accepted)
        return nullptr;
    Modelo347 m;
    m.desde = f.desde();
    m.hasta = f.hasta();
    m.anoFechas = f.desde().year();
    m.ejercicio = QString::number(m.anoFechas);
    m.limite = f.limite();
    Llenar(
        d, [&](Conexion& c) { m = Nuevo347(c, f.desde(), f.hasta(), f.limite()); }, s);
    return Mostrar(new Form97(s, a, d, m, &tablero));
}

void ConectarModelos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuM300"), [t, &s, &a, &d] { AbrirModelo303(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuM130"), [t, &s, &a, &d] { AbrirModelo130(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuM115"), [t, &s, &a, &d] { AbrirModelo115(*t, s, a, d); });
    tablero.Conectar(QStringLiteral("mnuM347"), [t, &s, &a, &d] { AbrirModelo347(*t, s, a, d); });
}

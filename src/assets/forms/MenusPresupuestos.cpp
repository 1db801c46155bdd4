#include "assets/forms/MenusPresupuestos.h"

#include "assets/forms/Form47.h"
#include "assets/forms/Form49.h"
#include "assets/forms/Form50.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/forms/Form1.h"
#include "store/Sesion.h"

#include <QFileDialog>

QString ElegirPresupuesto(QWidget* padre, const Sesion& s) {
    return QFileDialog::getOpenFileName(padre, QStringLiteral("Abrir presupuesto"),
                                        s.carpetaEmpresa(),
                                        QStringLiteral("Presupuesto Quilmar (*.prt)"));
}

void ConectarPresupuestos(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    tablero.Conectar(QStringLiteral("mnuCrearP"), [t, &s, &a, &d] {
        try {
            Form47 f(s, a, d, t);
            f.exec();
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });
    tablero.Conectar(QStringLiteral("mnuModificarP"), [t, &s, &a, &d] {
        const QString ruta = ElegirPresupuesto(t, s);
        if (ruta.isEmpty())
            return;
        try {
            Form47 f(s, a, d, t, ruta);
            f.exec();
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });
    tablero.Conectar(QStringLiteral("mnuAbrir"), [t, &s, &a, &d] {
        const QString ruta = ElegirPresupuesto(t, s);
        if (ruta.isEmpty())
            return;
        try {
            Form50 periodo(s, a, d, ruta, t);
            if (periodo.exec() != QDialog::Accepted)
                return;
            auto* f = new Form49(s, a, d, ruta, periodo.periodo(), t);
            f->setAttribute(Qt::WA_DeleteOnClose);
            f->show();
        } catch (const ErrorQuilmar& e) {
            d.Informar(e.mensaje());
        }
    });
}

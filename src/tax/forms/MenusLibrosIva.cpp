#include "tax/forms/MenusLibrosIva.h"

#include "posting/forms/Form1.h"
#include "reports/forms/MenusMayor.h"
#include "tax/forms/VentanaLibroIva.h"

VentanaLibroIva* AbrirLibroIva(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d, LibroIva libro) {
    VentanaLibroIva* f = VentanaLibroIva::Abrir(s, a, d, libro, &tablero);
    if (f)
        tablero.registrarLibro(f, QStringLiteral("LibrosIva"));
    return f;
}

void ConectarLibrosIva(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    const struct {
        const char* menu;
        LibroIva libro;
    } entradas[] = {{"mnuLIngresos", LibroIva::Ingresos},
                    {"mnuLGastos", LibroIva::Gastos},
                    {"mnuLExpedidas", LibroIva::Expedidas},
                    {"mnuLRecibidas", LibroIva::Recibidas}};
    for (const auto& e : entradas)
        tablero.Conectar(QString::fromLatin1(e.menu),
                         [t, &s, &a, &d, libro = e.libro] { AbrirLibroIva(*t, s, a, d, libro); });
    VentanaLibroIva::VerMovimientos() = [t, &s, &a, &d](QWidget*, const PeticionMovimientos& p) {
        AbrirMovimientos(*t, s, a, d, p);
    };
}

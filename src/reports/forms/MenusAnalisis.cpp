#include "reports/forms/MenusAnalisis.h"

#include "posting/forms/Form1.h"
#include "reports/forms/Form13.h"
#include "reports/forms/Form31.h"
#include "reports/forms/Form40.h"
#include "reports/forms/Form42.h"
#include "reports/forms/Form58.h"
#include "reports/forms/MenusMayor.h"

namespace {
const QString Tipo = QStringLiteral("Analisis");
}

void ConectarAnalisis(Form1& tablero, Sesion& s, Ajustes& a, Dialogo& d) {
    Form1* t = &tablero;
    const auto registrar = [t](QWidget* f) {
        if (f)
            t->registrarLibro(f, Tipo);
    };
    tablero.Conectar(QStringLiteral("mnuIngGas"),
                     [=, &s, &a, &d] { registrar(Form13::Abrir(s, a, d, t)); });
    tablero.Conectar(QStringLiteral("mnuListaIG"),
                     [=, &s, &a, &d] { registrar(Form31::Abrir(s, a, d, t)); });
    tablero.Conectar(QStringLiteral("mnuIGmeses"),
                     [=, &s, &a, &d] { registrar(Form58::Abrir(s, a, d, t)); });
    tablero.Conectar(QStringLiteral("mnuES"),
                     [=, &s, &a, &d] { registrar(Form42::Abrir(s, a, d, t)); });
    tablero.Conectar(QStringLiteral("mnuGráficos"),
                     [=, &s, &a, &d] { registrar(Form40::Abrir(s, a, d, t)); });
    Form13::VerMovimientos() = [t, &s, &a, &d](QWidget*, const PeticionMovimientos& p) {
        AbrirMovimientos(*t, s, a, d, p);
    };
}

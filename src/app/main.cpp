// quilmar: the desktop. Start-up runs in the order the program has always followed: the splash
// with its check of a second copy, the installation database, the login, the kind of
// installation on first use, the board and the access to companies.

#include "annual/forms/MenusAnuales.h"
#include "assets/forms/MenusInventario.h"
#include "assets/forms/MenusPresupuestos.h"
#include "chart/forms/MenusCuentas.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Errores.h"
#include "platform/Letras.h"
#include "platform/Traducciones.h"
#include "platform/forms/DialogoVentanas.h"
#include "posting/EmpresaDemo.h"
#include "posting/forms/Form1.h"
#include "posting/forms/MenusCaja.h"
#include "posting/forms/MenusMantenimiento.h"
#include "posting/forms/MenusPlantillas.h"
#include "posting/forms/MenusVencimientos.h"
#include "reports/forms/MenusAnalisis.h"
#include "reports/forms/MenusLibros.h"
#include "store/Arranque.h"
#include "store/CargarEmp.h"
#include "store/Conexiones.h"
#include "store/Instalacion.h"
#include "store/Sesion.h"
#include "store/Usuarios.h"
#include "store/forms/Form102.h"
#include "store/forms/Form29.h"
#include "store/forms/Form44.h"
#include "tax/forms/MenusLibrosIva.h"
#include "tax/forms/MenusModelos.h"
#include "utilities/forms/MenusCalculadora.h"
#include "utilities/forms/MenusUtilidades.h"
#include "yearend/Adaptacion.h"
#include "yearend/forms/MenusAdaptacion.h"
#include "yearend/forms/MenusCierre.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QLocale>
#include <cstdio>

namespace {

QString carpetaInstalacion(const QStringList& args) {
    const int i = args.indexOf(QStringLiteral("--datos"));
    const QString carpeta =
        i > 0 && i + 1 < args.size() ? args.at(i + 1) : CarpetaInstalacionPorDefecto();
    return QDir(carpeta).absolutePath();
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quilmar"));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    CargarTraduccionesQt(app);
    SustituirLetras();

    Sesion s;
    s.AppPath = carpetaInstalacion(app.arguments());
    QDir().mkpath(s.AppPath);
    Ajustes a(s.AppPath);
    DialogoVentanas d;
    InstalarAdaptacionPlan();

    // The splash: screen font, one copy of the program per installation, where the data are.
    s.NombreLetra = a.leer(QStringLiteral("Valores"), QStringLiteral("NLetra"));
    s.TamanoLetra =
        static_cast<qint16>(a.leerNumero(QStringLiteral("Valores"), QStringLiteral("TLetra"), 9));
    QApplication::setFont(QFont(s.NombreLetra, s.TamanoLetra));
    InstanciaUnica instancia(s.AppPath);
    if (!instancia.conseguida()) {
        d.Informar(MsgYaCargado);
        return 0;
    }
    Form29 splash(a);
    splash.show();
    QApplication::processEvents();
    if (ExistePLoc(s)) {
        // A damaged PLoc.dat, or a server folder out of reach, is told; the question of the kind
        // of installation that follows lets the user set it right.
        try {
            s.DataPath = CarpetaDatos(s);
        } catch (const ErrorQuilmar& e) {
            splash.hide();
            d.Informar(e.mensaje());
        }
    }

    // The books on a PostgreSQL server, when the installation says so: the first connection asks
    // for the password if the server wants one that the password file does not give. A server out
    // of reach is told by its cause, and the question of the kind of installation lets the user
    // set it right (or go back to the files).
    if (const QString url = ServidorElegido(a); !url.isEmpty()) {
        try {
            const Servidor servidor = Servidor::DeUrl(url);
            ConectarServidor(servidor, d);
            s.UrlServidor = servidor.url();
        } catch (const ErrorQuilmar& e) {
            splash.hide();
            d.Informar(e.mensaje());
            Form102 f(s, a, d);
            f.exec();
            if (!s.enServidor() && !ServidorElegido(a).isEmpty())
                return 1;
            splash.show();
        }
    }

    // The installation database; the program cannot go on without it.
    bool nueva = false;
    try {
        nueva = PrepararInstalacion(s);
        AbrirAvisos(s);
    } catch (const ErrorQuilmar& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.mensaje()));
        return 1;
    }

    try {
        const DecisionAcceso acceso = DecidirAcceso(s);
        if (acceso.necesario && !Form44::PedirAcceso(s, a, d, acceso))
            return 0;
    } catch (const ErrorQuilmar& e) {
        d.Informar(e.mensaje());
        return 1;
    }

    if (s.DataPath.isEmpty()) {
        Form102 f(s, a, d);
        f.exec();
        if (s.DataPath.isEmpty())
            s.DataPath = s.AppPath;
    }

    // A first start with no company anywhere brings the demo company, so that there is something
    // to look at at once. The choice of company is still the access screen's.
    if (nueva && !s.enServidor() && CarpetasEmpresa(s.DataPath).isEmpty()) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        try {
            InstalarEmpresaDemo(s, a);
        } catch (const ErrorQuilmar& e) {
            QApplication::restoreOverrideCursor();
            d.Informar(e.mensaje());
            QApplication::setOverrideCursor(Qt::WaitCursor);
        }
        QApplication::restoreOverrideCursor();
        s.EmpresaActual.clear();
        s.AnoActual = 0;
    }

    Form1 tablero(s, a, d);
    ConectarCuentas(tablero, s, a, d);
    ConectarMantenimiento(tablero, s, a, d);
    ConectarPlantillas(tablero, s, a, d);
    ConectarLibros(tablero, s, a, d);
    ConectarAnuales(tablero, s, a, d);
    ConectarLibrosIva(tablero, s, a, d);
    ConectarModelos(tablero, s, a, d);
    ConectarInventario(tablero, s, a, d);
    ConectarCajaYPunteo(tablero, s, a, d);
    ConectarCierre(tablero, s, a, d);
    ConectarPresupuestos(tablero, s, a, d);
    ConectarCalculadora(tablero, s, a, d);
    ConectarVencimientos(tablero, s, a, d);
    ConectarUtilidades(tablero, s, a, d);
    ConectarAnalisis(tablero, s, a, d);
    ConectarAdaptacion(tablero, s, a, d);
    tablero.setPresentacion(&splash);
    tablero.Cargar();
    tablero.show();
    if (!tablero.AccesoEmpresas())
        return 0;
    tablero.TrasAcceso();
    return app.exec();
}

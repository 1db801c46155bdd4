// quilmar-cli: the same logic as the screens, from the command line.

#include "cli/Cli.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Traducciones.h"
#include "posting/EmpresaDemo.h"
#include "store/Instalacion.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"
#include "yearend/Adaptacion.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <algorithm>
#include <cstdio>
#include <memory>

namespace {

const QStringList OpcionesGlobalesConValor{"datos",   "empresa", "ano",
                                           "usuario", "clave",   "servidor"};
const QStringList BanderasGlobales{"si", "help"};

QString ayudaGeneral() {
    QString t = QStringLiteral(
        "Uso: quilmar-cli [--datos CARPETA] [--servidor URL] [--empresa EmpNNN --ano AAAA]\n"
        "                 [--usuario U --clave C] [--si] VERBO [opciones]\n\n"
        "Opciones generales:\n"
        "  --datos CARPETA   carpeta de la instalación (por defecto ~/.local/share/Quilmar)\n"
        "  --servidor URL    libros en un servidor PostgreSQL:\n"
        "                    postgresql://usuario@servidor:puerto/base (la contraseña, en\n"
        "                    .pgpass, PGPASSFILE o PGPASSWORD; por defecto el ajuste\n"
        "                    Datos\\Servidor de la instalación)\n"
        "  --empresa EmpNNN  empresa con la que trabajar (por defecto la última elegida)\n"
        "  --ano AAAA        ejercicio (por defecto el último elegido o el más reciente)\n"
        "  --usuario, --clave  acceso cuando la instalación pide contraseña\n"
        "  --si              responde Sí a las preguntas de confirmación\n\n"
        "Verbos:\n");
    QList<Verbo> verbos = VerbosRegistrados();
    std::sort(verbos.begin(), verbos.end(),
              [](const Verbo& a, const Verbo& b) { return a.nombre < b.nombre; });
    // The column fits the longest name, so a name never runs into its summary.
    qsizetype ancho = 0;
    for (const Verbo& v : verbos)
        ancho = std::max(ancho, v.nombre.size());
    for (const Verbo& v : verbos)
        t += QStringLiteral("  %1%2\n").arg(v.nombre.leftJustified(ancho + 2, u' '), v.resumen);
    t += QStringLiteral("\n'quilmar-cli VERBO --help' muestra la ayuda de cada verbo.\n");
    return t;
}

} // namespace

int main(int argc, char** argv) {
    // Qt's own notices are not for the user of the command line.
    if (qEnvironmentVariableIsEmpty("QUILMAR_DEPURAR"))
        qInstallMessageHandler([](QtMsgType tipo, const QMessageLogContext&, const QString& m) {
            if (tipo == QtCriticalMsg || tipo == QtFatalMsg)
                std::fprintf(stderr, "%s\n", qPrintable(m));
        });
    // Fonts are needed to print books to PDF, also without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTextStream salida(stdout);
    salida.setEncoding(QStringConverter::Utf8);

    // The verb is known before the application is made: a chart needs a widget application.
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    const QList<Verbo>& verbos = VerbosRegistrados();
    const Verbo* verbo = nullptr;
    QList<QPair<QString, QString>> valores;
    QStringList posicionales;
    int antesDelVerbo = 0;
    for (int i = 0; i < args.size(); ++i) {
        const QString a = args.at(i);
        if (a.startsWith(QLatin1String("--"))) {
            QString nombre = a.mid(2), valor;
            const bool conIgual = nombre.contains(QLatin1Char('='));
            if (conIgual) {
                valor = nombre.section(QLatin1Char('='), 1);
                nombre = nombre.section(QLatin1Char('='), 0, 0);
            }
            const bool esBandera =
                BanderasGlobales.contains(nombre) || (verbo && verbo->banderas.contains(nombre));
            if (!conIgual && !esBandera) {
                if (i + 1 >= args.size()) {
                    std::fprintf(stderr, "Falta el valor de la opción --%s.\n", qPrintable(nombre));
                    return 1;
                }
                valor = args.at(++i);
            }
            valores << qMakePair(nombre, valor);
        } else if (!verbo) {
            auto it = std::find_if(verbos.begin(), verbos.end(),
                                   [&](const Verbo& v) { return v.nombre == a; });
            if (it == verbos.end()) {
                std::fprintf(stderr, "Verbo desconocido: %s. Use quilmar-cli --help.\n",
                             qPrintable(a));
                return 1;
            }
            verbo = &*it;
            antesDelVerbo = static_cast<int>(valores.size());
        } else {
            posicionales << a;
        }
    }
    std::unique_ptr<QGuiApplication> app;
    if (verbo && verbo->ventanas)
        app = std::make_unique<QApplication>(argc, argv);
    else
        app = std::make_unique<QGuiApplication>(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    CargarTraduccionesQt(*app);

    auto global = [&](const QString& n) {
        QString r;
        for (const auto& p : valores)
            if (p.first == n)
                r = p.second;
        return r;
    };
    const bool ayuda = std::any_of(valores.begin(), valores.end(),
                                   [](const auto& p) { return p.first == QLatin1String("help"); });
    if (!verbo) {
        salida << ayudaGeneral();
        salida.flush();
        return ayuda ? 0 : 1;
    }
    if (ayuda) {
        salida << verbo->uso << '\n';
        return 0;
    }

    Sesion sesion;
    const QString datos = global(QStringLiteral("datos"));
    sesion.AppPath = QDir(datos.isEmpty() ? CarpetaInstalacionPorDefecto() : datos).absolutePath();
    const bool si = std::any_of(valores.begin(), valores.end(),
                                [](const auto& p) { return p.first == QLatin1String("si"); });
    DialogoConsola dialogo(si);
    InstalarAdaptacionPlan();
    try {
        QDir().mkpath(sesion.AppPath);
        Ajustes ajustes(sesion.AppPath);
        // A first use of a folder makes a main installation, as the desktop does when its first
        // question is closed without a choice.
        if (!ExistePLoc(sesion))
            EscribirPLoc(sesion, sesion.AppPath);
        // The verb that repairs PLoc.dat is the one that may run while it is damaged.
        if (!verbo->antesDeDatos)
            sesion.DataPath = CarpetaDatos(sesion);
        // A verb that takes --servidor as its own (the migration) names a destination with it,
        // not the books to work on.
        QString servidor = verbo->propias.contains(QStringLiteral("servidor"))
                               ? QString()
                               : global(QStringLiteral("servidor"));
        if (servidor.isEmpty() && !verbo->propias.contains(QStringLiteral("servidor")))
            servidor = ajustes.leer(QStringLiteral("Datos"), QStringLiteral("Servidor"));
        if (!servidor.isEmpty()) {
            sesion.UrlServidor = Servidor::DeUrl(servidor).url();
        } else {
            PrimerArranque(sesion, ajustes);
        }
        sesion.PuntoDecimal = DetectarPuntoDecimal();

        ContextoCli ctx(sesion, ajustes, dialogo, salida);
        ctx.valores = valores;
        ctx.antesDelVerbo = antesDelVerbo;
        ctx.propias = verbo->propias;
        ctx.posicionales = posicionales;
        // The same login as the desktop, before any verb.
        ContextoCli::comprobarAcceso = ComprobarAccesoCli;
        ComprobarAccesoCli(ctx);
        const int r = verbo->ejecutar(ctx);
        salida.flush();
        return r;
    } catch (const ErrorQuilmar& e) {
        salida.flush();
        dialogo.Informar(e.mensaje());
        return 1;
    }
}

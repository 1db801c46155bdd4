#pragma once
// The command line: global options, the session it opens, and the verbs each subsystem registers
// (one file per subsystem, src/cli/Verbos<Subsystem>.cpp, each with static AltaVerbo objects).

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>
#include <memory>

class Ajustes;
class Dialogo;
struct Sesion;

class ContextoCli {
public:
    Sesion& sesion;
    Ajustes& ajustes;
    Dialogo& dialogo;
    QTextStream& salida;

    ContextoCli(Sesion& s, Ajustes& a, Dialogo& d, QTextStream& out)
        : sesion(s), ajustes(a), dialogo(d), salida(out) {}

    // Values of the verb's options: the last one given, every one given, or whether a flag is on.
    QString opcion(const QString& nombre, const QString& defecto = {}) const;
    QStringList opciones(const QString& nombre) const;
    bool bandera(const QString& nombre) const;
    bool tiene(const QString& nombre) const;
    // Arguments that are not options, after the verb.
    QStringList posicionales;

    // Opens the company and exercise of --empresa/--ano (else those of the Inicio settings, else
    // the company's latest exercise) into the session, checking the login. Throws ErrorQuilmar.
    void abrirEmpresa();
    // The hook that checks --usuario/--clave against the users of the installation; it runs
    // once per command.
    static std::function<void(ContextoCli&)> comprobarAcceso;
    bool accesoComprobado = false;

    // A global option (--usuario, --clave...): given before the verb, or after it unless the verb
    // takes an option of that name as its own.
    QString global(const QString& nombre) const;
    // An option the verb takes as its own although a global one has its name: after the verb.
    QString propia(const QString& nombre) const;

    QList<QPair<QString, QString>> valores; // (option, value), in order; flags have empty values
    int antesDelVerbo = 0;                  // how many of them were given before the verb
    QStringList propias;                    // the verb's own options that share a global name
};

struct Verbo {
    QString nombre;
    QString resumen;      // one line for the general help
    QString uso;          // the whole help of the verb
    QStringList banderas; // options of the verb that take no value
    std::function<int(ContextoCli&)> ejecutar;
    // Options of the verb named as a global one (user verbs take --clave for the new password);
    // after the verb they are the verb's.
    QStringList propias = {};
    // Runs before the folder of the companies is read from PLoc.dat (the verb that repairs it).
    bool antesDeDatos = false;
    // The verb draws with the screens' own drawing (charts): the command runs a widget
    // application, on the offscreen platform like every other.
    bool ventanas = false;
};

// The login of the desktop for the command line: when the installation asks for one, --usuario
// and --clave must let the user in, with the same rules and messages. Throws Rechazo.
void ComprobarAccesoCli(ContextoCli& c);

const QList<Verbo>& VerbosRegistrados();

struct AltaVerbo {
    explicit AltaVerbo(Verbo v);
};

// Prints a table as tab-separated lines.
void ImprimirFilas(QTextStream& salida, const QList<QStringList>& filas);

// Progress of long work on standard error, by stage ("Saldos: 40 %"): rewritten in place on a
// terminal, otherwise a line at each tenth, so that a log stays short.
std::function<void(const QString& etapa, qint64 hecho, qint64 total)> ProgresoConsola();

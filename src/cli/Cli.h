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
    // The hook that checks --usuario/--clave against the users of the installation.
    static std::function<void(ContextoCli&)> comprobarAcceso;

    QList<QPair<QString, QString>> valores; // (option, value), in order; flags have empty values
};

struct Verbo {
    QString nombre;
    QString resumen;      // one line for the general help
    QString uso;          // the whole help of the verb
    QStringList banderas; // options of the verb that take no value
    std::function<int(ContextoCli&)> ejecutar;
};

const QList<Verbo>& VerbosRegistrados();

struct AltaVerbo {
    explicit AltaVerbo(Verbo v);
};

// Prints a table as tab-separated lines.
void ImprimirFilas(QTextStream& salida, const QList<QStringList>& filas);

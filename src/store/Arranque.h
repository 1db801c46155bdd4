#pragma once
// What start-up decides before the board shows: one running copy per installation, and where
// the company folders are (main or client installation).

#include <QString>
#include <memory>

class Ajustes;
class Dialogo;
class QLockFile;
struct Servidor;
struct Sesion;

extern const QString MsgYaCargado; // "Ya está cargado el programa."
extern const QString MsgSinCarpetaServidor;

// Holds the installation folder for this process while it lives. A lock left by a process that
// is gone is taken over.
class InstanciaUnica {
public:
    explicit InstanciaUnica(const QString& carpeta);
    ~InstanciaUnica();
    InstanciaUnica(const InstanciaUnica&) = delete;
    InstanciaUnica& operator=(const InstanciaUnica&) = delete;
    // False when another copy of the program holds the folder.
    bool conseguida() const { return conseguida_; }

private:
    std::unique_ptr<QLockFile> bloqueo_;
    bool conseguida_ = false;
};

// Before the question of the kind of installation is shown: a first PLoc.dat naming the program
// folder (also over a damaged one), so that closing the question without a choice makes a main
// installation.
void PLocInicial(Sesion& s);

// The answer to that question: a main installation keeps its data in the program folder; a
// client names the main installation's folder. PLoc.dat and DataPath follow. Throws Rechazo with
// MsgSinCarpetaServidor when a client names no folder that exists.
void ElegirInstalacion(Sesion& s, bool principal, const QString& carpetaServidor = {});

// The third way: the books on a PostgreSQL server. The installation keeps its address (without
// password) in the setting Datos\Servidor; empty means the files.
QString ServidorElegido(const Ajustes& a);

// The server typed on the screen, checked field by field (Rechazo names the field at fault).
Servidor ServidorTecleado(const QString& host, const QString& puerto, const QString& base,
                          const QString& usuario);

// Opens a first connection to the server. Where the server asks for a password that neither the
// password file nor PGPASSWORD give, the user is asked for it (nothing shown as it is typed); it
// is kept in memory for the rest of the run and never written. Throws Rechazo with the cause in
// plain Spanish (not reachable, wrong user or password, no such database).
void ConectarServidor(const Servidor& servidor, Dialogo& d);

// Chooses the server: connects (as above) and, when it holds no installation yet, offers to copy
// this one's companies onto it; then saves the setting and puts the session on it. Throws Rechazo
// and changes nothing when it cannot be used.
void ElegirServidor(Sesion& s, Ajustes& a, Dialogo& d, const Servidor& servidor);
// Back to the files: the setting goes and the session works on DataPath again.
void QuitarServidor(Sesion& s, Ajustes& a);

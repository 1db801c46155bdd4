#pragma once
// What start-up decides before the board shows: one running copy per installation, and where
// the company folders are (main or client installation).

#include <QString>
#include <memory>

class QLockFile;
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

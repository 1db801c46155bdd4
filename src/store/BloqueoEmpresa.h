#pragma once
// Who has a company open. Every process that works on a company (the desktop from the moment it
// is chosen, the command line from the moment a verb opens it) holds a shared lock on the file
// Emp<ccc>.lck beside the company's folder, in the data folder, so that it is seen from every
// machine that shares that folder. Work that replaces the company's files (compaction, restore)
// must hold it alone, and is refused while anyone else holds it.
//
// Usage:
//     MarcarEmpresaAbierta(s);                       // after choosing s.EmpresaActual
//     EmpresaEnExclusiva sola(s, s.EmpresaActual);   // before swapping its files
//     if (!sola.conseguida()) { d.Informar(...); return; }

#include <QString>
#include <memory>

struct Sesion;

class BloqueoEmpresa {
public:
    enum class Modo { Compartido, Exclusivo };
    // Tries to take the lock, waiting up to `esperaMs` while a holder of the other mode keeps
    // it. conseguido() tells whether it was taken.
    BloqueoEmpresa(const QString& dataPath, const QString& empresa, Modo modo, int esperaMs = 0);
    ~BloqueoEmpresa();
    BloqueoEmpresa(const BloqueoEmpresa&) = delete;
    BloqueoEmpresa& operator=(const BloqueoEmpresa&) = delete;

    bool conseguido() const { return fd_ >= 0; }
    // Not taken because another holder keeps it (rather than a lock file that cannot be made).
    bool ocupado() const { return ocupado_; }
    QString empresa() const { return empresa_; }
    QString dataPath() const { return dataPath_; }
    // Lets the lock go now (and again takes it with the same mode and wait).
    void soltar();
    bool coger();

    static QString ruta(const QString& dataPath, const QString& empresa);

private:
    QString dataPath_, empresa_;
    Modo modo_;
    int espera_;
    int fd_ = -1;
    bool ocupado_ = false;
};

// How long a company being compacted or restored elsewhere is waited for before giving up.
constexpr int EsperaEmpresaOcupada = 30000;

extern const QString MsgEmpresaOcupada; // "%1": the company folder

// This process has s.EmpresaActual open: it holds its shared lock for the rest of the process,
// letting go the company held before (none when EmpresaActual is empty). Nothing happens when
// it already holds this one. Throws ErrorAlmacen (MsgEmpresaOcupada) when another process keeps
// it alone past the wait.
void MarcarEmpresaAbierta(const Sesion& s, int esperaMs = EsperaEmpresaOcupada);

// Holds a company alone while it lives. This process's own shared hold on it, if any, is let go
// for that time and taken back at the end.
class EmpresaEnExclusiva {
public:
    EmpresaEnExclusiva(const Sesion& s, const QString& empresa);
    ~EmpresaEnExclusiva();
    EmpresaEnExclusiva(const EmpresaEnExclusiva&) = delete;
    EmpresaEnExclusiva& operator=(const EmpresaEnExclusiva&) = delete;
    bool conseguida() const { return bloqueo_ && bloqueo_->conseguido(); }
    // Refused because another process has the company open.
    bool ocupada() const { return bloqueo_ && bloqueo_->ocupado(); }

private:
    std::shared_ptr<BloqueoEmpresa> propia_; // this process's hold, let go meanwhile
    std::unique_ptr<BloqueoEmpresa> bloqueo_;
};

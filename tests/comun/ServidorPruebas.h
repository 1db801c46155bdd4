#pragma once
// The throwaway PostgreSQL cluster of a test run (scripts/cluster-pruebas.sh: initdb and pg_ctl
// on a temporary folder and a free local port, as an unprivileged user when the run is root's).
// Under ctest one cluster serves the whole run; a binary run by hand starts its own on first use
// and removes it at exit. Where the server's programs are missing it says why, and the tests that
// need it skip with that reason.

#include <QString>

class ServidorPruebas {
public:
    static ServidorPruebas& instancia();
    ~ServidorPruebas();

    bool disponible() const { return !puerto_.isEmpty(); }
    // Why there is no server (to show in the skip message).
    QString motivo() const { return motivo_; }
    // A new, empty database of its own on the cluster: its address.
    QString nuevaBase();

private:
    ServidorPruebas();

    QString carpeta_;
    bool propio_ = false;
    QString puerto_;
    QString motivo_;
    int bases_ = 0;
};

// True when the tests of this run are to use the server (QUILMAR_PRUEBAS_MOTOR=servidor).
bool PruebasEnServidor();

// Skips the test, with the reason shown, when it needs the server and there is none.
#define SALTAR_SIN_SERVIDOR()                                                                      \
    do {                                                                                           \
        if (!ServidorPruebas::instancia().disponible())                                            \
            GTEST_SKIP() << "Sin servidor PostgreSQL para las pruebas: "                           \
                         << ServidorPruebas::instancia().motivo().toStdString();                   \
    } while (0)

// Skips, in the server run, a test of something only the files have (a list file's bytes, a
// file lock, a journal mode), with the reason shown.
#define SOLO_EN_ARCHIVOS(motivo)                                                                   \
    do {                                                                                           \
        if (PruebasEnServidor())                                                                   \
            GTEST_SKIP() << "Solo en archivos: " << (motivo);                                      \
    } while (0)

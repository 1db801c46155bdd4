#pragma once
// A temporary installation for one test: its own folder (AppPath = DataPath), settings, a
// scripted Dialogo, and helpers to make companies and post entries. With
// QUILMAR_PRUEBAS_MOTOR=servidor its books live on the test run's PostgreSQL cluster instead.

#include "ImprimirQt.h"
#include "journal/Escritor.h"
#include "platform/Ajustes.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "store/Sesion.h"

#include <QTemporaryDir>
#include <functional>
#include <memory>

class Entorno {
public:
    Entorno();
    QTemporaryDir dir;
    Sesion sesion;
    std::unique_ptr<Ajustes> ajustes;
    DialogoGuion dialogo;

    QString ruta(const QString& relativa) const { return dir.filePath(relativa); }
    // A company with the generic chart; leaves the session on it.
    void crearEmpresa(const QString& codigo = QStringLiteral("001"), int ano = 2024,
                      const QString& nombre = QStringLiteral("Pruebas SL"));
    void instalarDemo();
    Conexion datos() const;
    Conexion bavar() const;
    // Posts an entry through the journal writer.
    long asiento(const QDate& fecha, const QList<Apunte>& apuntes);

private:
    // Runs hacer on the files; in the server run the company is then copied to the server.
    void enArchivos(const QString& empresa, const std::function<void()>& hacer);
};

Apunte Debe(const QString& ncuenta, double importe,
            const QString& concepto = QStringLiteral("Prueba"));
Apunte Haber(const QString& ncuenta, double importe,
             const QString& concepto = QStringLiteral("Prueba"));

struct ResultadoCli {
    int codigo = -1;
    QString salida;
    QString error;
};

// The first column of the rows of a query joined by commas, on either engine (SQLite's
// group_concat has no like on the server).
QString Unidos(Conexion& c, const QString& sql, const QVariantList& valores = {});

// Runs the real quilmar-cli on a folder (given as --datos) and waits for it.
ResultadoCli EjecutarCli(const QString& datos, const QStringList& argumentos);

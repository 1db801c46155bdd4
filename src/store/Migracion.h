#pragma once
// Moving a file installation onto a PostgreSQL server: the installation's database, every
// company's database and every exercise its list names, each into its own schema, every table
// and every row, and the lists of companies and exercises as tables.

#include <QString>
#include <functional>

struct Sesion;
struct Servidor;
class Conexion;

struct ResultadoMigracion {
    int empresas = 0;
    int ejercicios = 0;
    qint64 filas = 0;
};

// The session is a file installation (AppPath, DataPath). A server that already holds an
// installation is refused, so that nothing there is ever overwritten; on any failure the schemas
// made so far are dropped again, and the server is as it was. progreso is told each database.
ResultadoMigracion MigrarAServidor(const Sesion& archivos, const Servidor& destino,
                                   const std::function<void(const QString&)>& progreso = {});
// One company of the file installation onto a server that already holds the installation.
ResultadoMigracion MigrarEmpresaAServidor(const Sesion& archivos, const Servidor& destino,
                                          const QString& carpeta);

// Copies the rows of one table between two databases of the same kind, on either engine and in
// either direction, in the callers' transactions; the columns both have. Returns the rows copied.
qint64 CopiarTabla(Conexion& origen, Conexion& destino, const QString& tabla);

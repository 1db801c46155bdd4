#pragma once
// Short-lived connections to the databases of the session, and the lookups every screen shares.

#include "platform/Almacen.h"

class Dialogo;
struct Sesion;

// Each opens a fresh connection, to be closed (destroyed) within one user action. They throw
// ErrorAlmacen with a Spanish message when the file is missing, damaged or not ours.
Conexion AbrirDatos(const Sesion& s);  // the exercise database
Conexion AbrirBavar(const Sesion& s);  // the company database
Conexion AbrirAvisos(const Sesion& s); // the installation database (Bavis)
Conexion AbrirVias(const Sesion& s);   // the street tables (shipped data: always the local file)
// Attaches the company database to a connection of the exercise database under the schema name
// Bavar, for an action that writes both (a depreciation run posts entries and brings the
// inventory up): one Transaccion on it then takes the write lock of both files and commits or
// rolls back both. The company's tables are named Bavar.Inventario and so on, the exercise's as
// ever. Call it before any transaction is open on the connection.
//     Conexion c = AbrirDatos(s);
//     AdjuntarBavar(c, s);
void AdjuntarBavar(Conexion& datos, const Sesion& s);

// The journal of the company databases: WAL on a main installation, the rollback journal on a
// client, whose company folders lie on another machine. The installation's own databases are
// always local and use WAL.
ModoDiario ModoDiarioEmpresas(const Sesion& s);
// A database of the company folders given by its path (another exercise, another company); on a
// server, the schema that stands for that file.
Conexion AbrirBaseEmpresa(const Sesion& s, const QString& ruta, TipoBase tipo);
// A schema of the session's server (EsquemaServidor names them).
Conexion AbrirServidor(const Sesion& s, const QString& esquema,
                       TipoBase tipo = TipoBase::Cualquiera, bool crear = false);

// Whether the company of the session has the exercise of that year: its file, or its schema on a
// server.
bool ExisteEjercicio(const Sesion& s, int ano);

// Trimmed name of a subaccount; empty for an empty code; a missing row says "Error en la cuenta."
QString NombreCuenta(const Sesion& s, Dialogo& dialogo, const QString& ncuenta);

// Highest entry number. On a main installation the session's number is the truth; on a client
// the journal is asked, so that two machines see each other's entries.
long MaxAsiento(Sesion& s);

// Loads the state of the current exercise into the session: UltimoAsiento from the journal, and
// from Empresa the dates, the closed flag and the numbers of the closing entries. A table without
// a row leaves UltimoAsiento at 0 and touches nothing else.
void CargarEjercicio(Sesion& s);
// The same on an open connection.
void CargarEjercicio(Sesion& s, Conexion& c);

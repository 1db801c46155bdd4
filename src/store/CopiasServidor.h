#pragma once
// Backups of the books kept on a server, in the same layout as those of the files, so that either
// restores into either: each database of a company becomes a SQLite file again (Bavar.db,
// Quilmar<yyyy>.db) beside its Selan.dat, and the installation's database becomes Bavis.db.
// Reading happens in one read-only snapshot, so a copy taken while others post holds whole
// entries only; a restore replaces the company's schemas in one server transaction.

#include <QString>
#include <QStringList>
#include <functional>

struct Sesion;

// The files CopiarEmpresaDeServidor writes for a company: its exercises, Bavar.db and Selan.dat.
int FicherosEmpresaServidor(const Sesion& s, const QString& empresa);

// Writes into the empty folder `carpeta` the databases of the company (folder name, "Emp001") and
// its Selan.dat, as they stood at one moment. `hecho` is called after each file. Throws
// ErrorQuilmar; what was written is the caller's to remove.
void CopiarEmpresaDeServidor(const Sesion& s, const QString& empresa, const QString& carpeta,
                             const std::function<void()>& hecho = {});
// The installation's database as the new SQLite file `destino`.
void CopiarBavisDeServidor(const Sesion& s, const QString& destino);

// Replaces the company of the checked copy `carpeta` (a folder Emp<ccc> with Selan.dat and its
// databases) on the server, and with `bavis` non-empty the installation's users and reminders
// too, in one transaction: on any failure the server keeps its books as they were. Writers of the
// company wait for it, and it waits for them.
void RestaurarEmpresaEnServidor(const Sesion& s, const QString& carpeta, const QString& bavis);

// The server's own upkeep of the schemas (free space marked for reuse, statistics renewed): run
// table by table outside any transaction, as the server demands. `paso` is told each schema done.
void MantenerEsquemas(const Sesion& s, const QStringList& esquemas,
                      const std::function<void()>& paso = {});

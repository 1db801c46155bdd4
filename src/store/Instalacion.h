#pragma once
// Where an installation lives and how it is made: the program folder (per user by default, or the
// folder given with --datos), PLoc.dat, and the installation databases.

#include <QString>

struct Sesion;

// The per-user data folder, ~/.local/share/Quilmar.
QString CarpetaInstalacionPorDefecto();

// PLoc.dat: the folder of the company folders (the program folder itself on a main installation).
bool ExistePLoc(const Sesion& s);
QString LeerPLoc(const Sesion& s); // trimmed content, empty when missing
void EscribirPLoc(const Sesion& s, const QString& ruta);

// Makes sure the program folder holds Bavis.db (with the user Administrador, no password) and
// VIAS.db. True when Bavis.db had to be created: a first start.
bool PrepararInstalacion(const Sesion& s);

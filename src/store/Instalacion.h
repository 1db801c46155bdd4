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

// The folder PLoc.dat names, checked: the absolute path of a folder that exists. An empty or
// garbled file, or a folder that cannot be reached, throws ErrorAlmacen with what to do, so that
// nothing is ever written anywhere else (the current folder, a folder named by garbage).
QString CarpetaDatos(const Sesion& s);
// True when PLoc.dat is there but says nothing usable (empty, garbled, not a path): the question
// of the kind of installation repairs it.
bool PLocDanado(const Sesion& s);
// Refuses to work on a DataPath that is not a folder that exists (same messages).
void ComprobarCarpetaDatos(const Sesion& s);
QString MsgPLocDanado(const Sesion& s);
QString MsgSinCarpetaDatos(const QString& carpeta);

// Makes sure the program folder holds Bavis.db (with the user Administrador, no password) and
// VIAS.db. True when Bavis.db had to be created: a first start.
bool PrepararInstalacion(const Sesion& s);

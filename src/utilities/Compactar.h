#pragma once
// Compaction of the open company's databases (mnuCompactar): the exercise's, Bavar.db and the
// installation's Bavis.db, in that order. Each is first copied to the folder Copbas of the data
// folder, replacing the copy of an earlier run only once the new one is complete, so Copbas
// always holds a good copy of each; then it is compacted in place as one transaction. Refused
// while another process has the company open. On a server the same three run the server's own
// upkeep instead (nothing rewritten, so no copies), and the progress counts one step each.

#include "platform/Dialogo.h"

#include <QString>

struct Sesion;

inline const QString MsgCompactar = QStringLiteral(
    "Mediante este proceso se compacta la base de datos para que ocupe menos espacio y permitir "
    "mayor rapidez. Debe hacerse con cierta periodicidad.  Antes de iniciar debe comprobar que "
    "ningún usuario está accediendo a las bases de datos y que no se acceda mientras se está "
    "realizando el proceso. Es buena práctica hacer copia de seguridad de los datos previamente. "
    "Desea realizar el proceso?");
inline const QString MsgCompactacionTerminada = QStringLiteral("Proceso terminado");

// The folder of the safety copies, in the data folder.
QString CarpetaCopbas(const Sesion& s);

// Asks MsgCompactar, then copies and compacts, ending with MsgCompactacionTerminada. False when not
// confirmed, refused or failed (told to the user). Progress counts six steps: a copy and a
// compaction per database.
bool CompactarBasesDatos(Sesion& s, Dialogo& d, const Progreso& progreso = {});

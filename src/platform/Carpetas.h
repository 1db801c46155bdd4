#pragma once
// File services for work on whole folders (backups and restores): copies that reach the disk,
// folders put in place in one step, and failures told by their cause.

#include <QString>

// Copies a plain file (the destination is replaced) and makes sure it is on the disk. Throws
// ErrorAlmacen with a Spanish message by cause: no space, no permission, missing source.
void CopiarFichero(const QString& origen, const QString& destino);

// Writes a folder's own entry list to the disk, so that files just renamed in it stay renamed
// after a power cut.
void SincronizarCarpeta(const QString& carpeta);

// Puts the complete folder `nueva` at `destino`, which may hold an older version. Where the
// system can, both are exchanged in one step; elsewhere the older one is first renamed to
// `apartada` and put back if the second rename fails. Either way `destino` is never half of one
// and half of the other, and the older version ends in `nueva` (after an exchange) or in
// `apartada`: the caller removes it. Throws ErrorAlmacen.
enum class Colocacion { Nueva, Intercambiada, Apartada };
Colocacion ColocarCarpeta(const QString& nueva, const QString& destino, const QString& apartada);

// Removes a folder and everything in it; false when something could not be removed.
bool BorrarCarpeta(const QString& carpeta);

// The same folder, whatever the spelling: the canonical path when it exists, else the clean
// absolute one.
QString RutaCanonica(const QString& ruta);

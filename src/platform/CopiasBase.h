#pragma once
// Work on whole database files that only the store knows how to do safely: a consistent copy
// while others write, the check of a copy, compaction, and a live database replaced in place.
// Each opens its own connection to the files and closes it before returning.

#include "platform/Almacen.h"

#include <QString>

// A consistent copy of the database `origen` as a new file `destino` (replaced if present):
// what was committed when the copy began, even while another process is posting. The copy is a
// single compacted file, with the marks that tell our databases apart. Throws ErrorAlmacen.
void CopiarBase(const QString& origen, const QString& destino);

// Checks a database without writing to it: every page sound (PRAGMA integrity_check) and, for a
// kind other than Cualquiera, one of ours of that kind. Throws ErrorAlmacen naming the file.
void ComprobarBase(const QString& ruta, TipoBase tipo = TipoBase::Cualquiera);

// Compacts a database in place, as one transaction: the pages left free by deleted rows are
// given back and the file shrinks. Other connections may be open; it waits for writers as any
// write does. Throws ErrorAlmacen.
void CompactarBase(const QString& ruta);

// Replaces everything in the live database `destino` with the content of `origen`, as one write
// transaction: a reader sees the old content or the new, never a mixture. Throws ErrorAlmacen.
void SustituirBase(const QString& origen, const QString& destino);

// The kind of a database of ours by its file name: Quilmar<yyyy>.db, Bavar.db, Bavis.db,
// VIAS.db; Cualquiera for any other name.
TipoBase TipoPorNombre(const QString& nombreFichero);

#pragma once
// The tables, views and indexes of the four databases: exercise (Quilmar<yyyy>.db), company
// (Bavar.db), installation (Bavis.db) and streets (VIAS.db).

#include "platform/Almacen.h"

#include <QStringList>

// Create the schema on an empty database (inside one transaction) and mark the file as ours.
void CrearEsquema(Conexion& c, TipoBase tipo);

// Creates a new database file of that kind with its schema; fails if the file exists.
void CrearBaseDatos(const QString& ruta, TipoBase tipo, ModoDiario modo = ModoDiario::WAL);

// On a server, after rows were written with their own rowid (a copy): moves the table's serial
// counters past them, so that rows added later sort after. Nothing to do on a file.
void AjustarContadores(Conexion& c, const QString& tabla);

// The tables of each database, in creation order.
QStringList TablasDe(TipoBase tipo);

#pragma once
// The directory walk other screens use to find a file anywhere under a folder (a runtime, say).

#include <QString>
#include <QStringList>

// The full paths of the files matching `patron` ("java*.exe", "*.txt": wildcards, any case) in
// `carpeta` and all its subfolders: first those of the folder, then each subfolder in turn,
// depth first, both in name order. Links to folders are not followed, so a loop of links cannot
// make the walk endless. A missing folder gives an empty list.
QStringList BuscarFicheros(const QString& carpeta, const QString& patron);

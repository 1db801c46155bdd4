#include "utilities/Directorios.h"

#include <QDir>

QStringList BuscarFicheros(const QString& carpeta, const QString& patron) {
    QStringList r;
    QDir d(carpeta);
    if (carpeta.isEmpty() || !d.exists())
        return r;
    d.setSorting(QDir::Name | QDir::IgnoreCase);
    d.setNameFilters({patron});
    d.setFilter(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& f : d.entryInfoList())
        r << f.absoluteFilePath();
    d.setNameFilters({});
    d.setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo& sub : d.entryInfoList())
        r += BuscarFicheros(sub.absoluteFilePath(), patron);
    return r;
}

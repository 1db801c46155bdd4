#include "platform/Traducciones.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

QString CargarTraduccionesQt(QCoreApplication& app) {
    // Owned by the application, so it lives as long as the texts it gives.
    auto* traductor = new QTranslator(&app);
    const QString carpeta = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!traductor->load(QLocale(QLocale::Spanish, QLocale::Spain), QStringLiteral("qtbase"),
                         QStringLiteral("_"), carpeta)) {
        delete traductor;
        return {};
    }
    app.installTranslator(traductor);
    return traductor->filePath();
}

#pragma once
// Qt's own texts (file, print and message dialogs, the context menus of text boxes) in Spanish,
// from the translations the system's Qt brings.

#include <QString>

class QCoreApplication;

// Loads and installs them for the life of the application. Returns the file loaded, or an empty
// text when the system has none (Qt then speaks English, and nothing else changes).
QString CargarTraduccionesQt(QCoreApplication& app);

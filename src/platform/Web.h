#pragma once
// Opening a web address in the system's browser.

#include <QString>
#include <QUrl>
#include <functional>

class Dialogo;

extern const QString MsgSinNavegador; // "No puedo encontrar el navegador"
extern const QString MsgErrorWeb;     // "Error.No se pudo abrir la página web."

// The address as typed ("www.mibanco.es") turned into one the browser takes.
QUrl DireccionWeb(const QString& direccion);

// Opens the address; false, after telling the user, when there is no browser or it fails.
// `abrir` replaces the system's opener (for tests); `hayNavegador` its detection.
bool AbrirWeb(const QString& direccion, Dialogo& d,
              const std::function<bool(const QUrl&)>& abrir = {},
              const std::function<bool()>& hayNavegador = {});

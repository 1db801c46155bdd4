#include "platform/Web.h"

#include "platform/Dialogo.h"

#include <QDesktopServices>
#include <QStandardPaths>

const QString MsgSinNavegador = QStringLiteral("No puedo encontrar el navegador");
const QString MsgErrorWeb = QStringLiteral("Error.No se pudo abrir la página web.");

namespace {

bool navegadorDelSistema() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    // Desktops open addresses through xdg-open.
    return !QStandardPaths::findExecutable(QStringLiteral("xdg-open")).isEmpty();
#else
    return true;
#endif
}

} // namespace

QUrl DireccionWeb(const QString& direccion) {
    return QUrl::fromUserInput(direccion.trimmed());
}

bool AbrirWeb(const QString& direccion, Dialogo& d, const std::function<bool(const QUrl&)>& abrir,
              const std::function<bool()>& hayNavegador) {
    if (!(hayNavegador ? hayNavegador() : navegadorDelSistema())) {
        d.Informar(MsgSinNavegador);
        return false;
    }
    const QUrl url = DireccionWeb(direccion);
    const bool hecho =
        url.isValid() && !url.isEmpty() && (abrir ? abrir(url) : QDesktopServices::openUrl(url));
    if (!hecho)
        d.Informar(MsgErrorWeb);
    return hecho;
}

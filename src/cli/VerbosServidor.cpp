// Verbs of the server mode: copying a file installation onto a PostgreSQL server.

#include "cli/Cli.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Migracion.h"
#include "store/Sesion.h"

namespace {

int migrarAServidor(ContextoCli& c) {
    const QString url = c.propia(QStringLiteral("servidor"));
    if (url.isEmpty())
        throw Rechazo(QStringLiteral("Indique el servidor con --servidor "
                                     "postgresql://usuario@servidor:puerto/base."));
    const Servidor destino = Servidor::DeUrl(url);
    if (!c.dialogo.Preguntar(
            QStringLiteral("Se copiarán todas las empresas y ejercicios de esta instalación al "
                           "servidor %1. Desea continuar?")
                .arg(destino.url())))
        return 1;
    const ResultadoMigracion r = MigrarAServidor(c.sesion, destino, [&](const QString& base) {
        c.salida << base << '\n';
        c.salida.flush();
    });
    c.salida << QStringLiteral("Copiadas %1 empresas, %2 ejercicios, %3 filas.\n")
                    .arg(r.empresas)
                    .arg(r.ejercicios)
                    .arg(r.filas);
    return 0;
}

const AltaVerbo altaMigrar{
    {QStringLiteral("migrar-a-servidor"),
     QStringLiteral("copia la instalación a un servidor PostgreSQL"),
     QStringLiteral(
         "Uso: quilmar-cli migrar-a-servidor --servidor postgresql://usuario@servidor:puerto/base "
         "--si\n\n"
         "Copia la base de datos de la instalación, la de cada empresa y la de cada uno de sus\n"
         "ejercicios (todas las tablas, todas las filas) a la base del servidor, cada una en su\n"
         "esquema (emp001, emp001_2026...), con las listas de empresas y ejercicios. Un servidor\n"
         "que ya tiene una instalación no se toca. La contraseña se toma de .pgpass, PGPASSFILE\n"
         "o PGPASSWORD. Después, trabaje con --servidor URL. Pide confirmación: añada --si."),
     {},
     migrarAServidor,
     {QStringLiteral("servidor")}}};

} // namespace

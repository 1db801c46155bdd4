// Verbs of entry maintenance: showing an entry, deleting one or a range, renumbering.

#include "cli/Cli.h"
#include "journal/EliminarAsientos.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "posting/GestionAsientos.h"
#include "posting/Renumerar.h"
#include "store/Formato.h"
#include "store/Sesion.h"

namespace {

// A positional or option value that must be an entry number; 0 is one, since an entry can be
// renumbered to it.
long numeroAsiento(const QString& texto, const QString& uso) {
    bool ok = false;
    const long n = texto.trimmed().toLong(&ok);
    if (texto.trimmed().isEmpty() || !ok || n < 0)
        throw Rechazo(QStringLiteral("Indique un número de asiento: %1").arg(uso));
    return n;
}

int verAsiento(ContextoCli& ctx) {
    const long nas = numeroAsiento(ctx.posicionales.value(0), QStringLiteral("quilmar-cli "
                                                                             "ver-asiento N"));
    ctx.abrirEmpresa();
    // The lines as the maintenance screen loads them.
    GestionAsientos k(ctx.sesion, ctx.dialogo);
    if (!k.VMAsiento(nas))
        return 1;
    QList<QStringList> filas{{QStringLiteral("NAp"), QStringLiteral("Fecha"),
                              QStringLiteral("NCuenta"), QStringLiteral("Cuenta"),
                              QStringLiteral("Concepto"), QStringLiteral("Debe"),
                              QStringLiteral("Haber"), QStringLiteral("Documento"),
                              QStringLiteral("Sector"), QStringLiteral("IVA")}};
    const RejillaF7& r = k.Rejilla;
    for (int f = 1; f <= r.ultima(); ++f)
        filas << QStringList{QString::number(f),
                             k.Fecha,
                             r.celda(f, ColF7::NCuenta),
                             r.celda(f, ColF7::Cuenta),
                             r.celda(f, ColF7::Concepto),
                             r.celda(f, ColF7::Debe),
                             r.celda(f, ColF7::Haber),
                             r.celda(f, ColF7::Documento),
                             r.celda(f, ColF7::Sector),
                             r.celda(f, ColF7::IdIVA).isEmpty() ? QString() : QStringLiteral("sí")};
    ImprimirFilas(ctx.salida, filas);
    if (!k.Cuadrado())
        ctx.salida << QStringLiteral("Descuadre\t") << k.TextoDescuadre << '\n';
    return 0;
}

int eliminarAsiento(ContextoCli& ctx) {
    const QString uso = QStringLiteral("quilmar-cli eliminar-asiento N [--hasta M] --si");
    numeroAsiento(ctx.posicionales.value(0), uso);
    const bool varios = ctx.tiene(QStringLiteral("hasta"));
    if (varios)
        numeroAsiento(ctx.opcion(QStringLiteral("hasta")), uso);
    const QString n = ctx.posicionales.value(0);
    const std::optional<EleccionEliminar> e =
        ValidarEliminar(ctx.dialogo, varios, n, n, ctx.opcion(QStringLiteral("hasta")));
    if (!e)
        return 1;
    ctx.abrirEmpresa();
    const int eliminados = EliminarAsientos(ctx.sesion, ctx.dialogo, *e);
    if (eliminados < 0)
        return 1;
    if (!varios)
        ctx.salida << QStringLiteral("Se eliminó el Asiento número %1.\n").arg(e->desde);
    else
        ctx.salida << QStringLiteral("Eliminados %1 asientos.\n").arg(eliminados);
    return 0;
}

int renumerar(ContextoCli& ctx) {
    const bool uno = ctx.tiene(QStringLiteral("asiento")) || ctx.tiene(QStringLiteral("a"));
    if (uno && (!ctx.tiene(QStringLiteral("asiento")) || !ctx.tiene(QStringLiteral("a"))))
        throw Rechazo(QStringLiteral("Para renumerar un asiento indique --asiento N --a M."));
    ctx.abrirEmpresa();
    Sesion& s = ctx.sesion;
    ResultadoRenumerar r;
    if (uno) {
        const QString de = ctx.opcion(QStringLiteral("asiento")),
                      a = ctx.opcion(QStringLiteral("a"));
        if (!ctx.dialogo.Preguntar(
                QStringLiteral("Se renumerará el asiento %1 como %2. ¿Continuar?").arg(de, a)))
            return 1;
        r = RenumerarUnAsiento(s, ctx.dialogo, de, a);
    } else {
        if (!ctx.dialogo.Preguntar(
                QStringLiteral("Se renumerará el Diario completo por fechas. ¿Continuar?")))
            return 1;
        r = RenumerarDiarioCompleto(s, ctx.dialogo);
    }
    if (!r.hecho)
        return 1;
    ctx.salida << QStringLiteral("Último asiento: %1\n").arg(std::lround(s.UltimoAsiento));
    return 0;
}

const AltaVerbo altaVerAsiento{
    {QStringLiteral("ver-asiento"),
     QStringLiteral("muestra las líneas de un asiento"),
     QStringLiteral(
         "Uso: quilmar-cli ver-asiento N\n\n"
         "Muestra las líneas del asiento N, separadas por tabuladores, con una línea\n"
         "de cabecera: NAp, Fecha, NCuenta, Cuenta, Concepto, Debe, Haber, Documento,\n"
         "Sector e IVA (\"sí\" en las líneas con datos de IVA). Si el asiento no cuadra,\n"
         "una última línea da el descuadre."),
     {},
     verAsiento}};

const AltaVerbo altaEliminarAsiento{
    {QStringLiteral("eliminar-asiento"),
     QStringLiteral("elimina un asiento o los de un intervalo"),
     QStringLiteral(
         "Uso: quilmar-cli eliminar-asiento N [--hasta M] --si\n\n"
         "Elimina el asiento N, o con --hasta todos los asientos del N al M (N menor que M),\n"
         "con sus datos de IVA, y descuenta sus importes del Mayor. Un intervalo se elimina\n"
         "entero o nada. Los números que quedan libres no se reutilizan: para cerrar los\n"
         "huecos, renumere el Diario. Pide confirmación: añada --si."),
     {},
     eliminarAsiento}};

const AltaVerbo altaRenumerar{
    {QStringLiteral("renumerar"),
     QStringLiteral("renumera el Diario por fechas, o un asiento"),
     QStringLiteral(
         "Uso: quilmar-cli renumerar [--asiento N --a M] --si\n\n"
         "Sin opciones numera de nuevo todo el Diario por orden de fecha (dentro de una fecha,\n"
         "por el número anterior), desde el 1. Con --asiento N --a M da al asiento N el número\n"
         "M, que no debe estar ocupado. Muestra el número de asiento más alto. Pide\n"
         "confirmación: añada --si."),
     {},
     renumerar}};

} // namespace

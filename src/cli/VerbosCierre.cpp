// Verbs of the year end: closing the exercise, undoing the close, reorganising the data.

#include "cli/Cli.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Conexiones.h"
#include "store/Ejercicios.h"
#include "store/Sesion.h"
#include "yearend/Cierre.h"
#include "yearend/InvertirCierre.h"
#include "yearend/Reorganizar.h"

#include <QFile>
#include <cmath>

namespace {

int cerrarEjercicio(ContextoCli& c) {
    const bool sinTraslado = c.bandera(QStringLiteral("sin-traslado"));
    const bool conTraslado = c.tiene(QStringLiteral("trasladar-a"));
    if (sinTraslado == conTraslado)
        throw Rechazo(QStringLiteral("Indique --trasladar-a AAAA o --sin-traslado."));
    if (sinTraslado && c.tiene(QStringLiteral("asiento-apertura")))
        throw Rechazo(QStringLiteral("--asiento-apertura sólo se indica al traspasar los saldos."));
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    PeticionCierre p;
    if (sinTraslado) {
        p.modo = PeticionCierre::Modo::SinTraspaso;
    } else {
        p.ano = c.opcion(QStringLiteral("trasladar-a")).trimmed();
        bool ok = false;
        const int ano = p.ano.toInt(&ok);
        if (!ok || p.ano.size() != 4)
            throw Rechazo(MsgIndiqueAno);
        // An exercise that does not exist yet is made on the spot.
        const bool existe =
            ano == s.AnoActual || EjerciciosEmpresa(s).contains(ano) || ExisteEjercicio(s, ano);
        if (existe) {
            p.modo = PeticionCierre::Modo::Existente;
            p.asiento = c.opcion(QStringLiteral("asiento-apertura"));
            if (c.tiene(QStringLiteral("asiento-apertura")) && p.asiento.trimmed().isEmpty())
                throw Rechazo(QStringLiteral("El número del asiento de apertura no es válido."));
        } else {
            if (c.tiene(QStringLiteral("asiento-apertura")))
                throw Rechazo(QStringLiteral("El ejercicio %1 no existe: se creará, y su asiento "
                                             "de apertura será el nº 1. No indique "
                                             "--asiento-apertura.")
                                  .arg(ano));
            p.modo = PeticionCierre::Modo::Nuevo;
        }
    }
    const RespuestaCierre r = PedirCierre(s, c.dialogo, p, ProgresoConsola());
    if (!r.cerrado)
        return 1;
    c.salida << QStringLiteral("Cerrado el ejercicio %1.").arg(s.AnoActual) << '\n';
    c.salida << QStringLiteral("Asiento de regularización\t%1")
                    .arg(s.NAsReg ? QString::number(s.NAsReg) : QStringLiteral("no hay"))
             << '\n';
    c.salida << QStringLiteral("Asiento final\t%1")
                    .arg(s.NAsFin ? QString::number(s.NAsFin) : QStringLiteral("no hay"))
             << '\n';
    if (r.anoDestino != 0)
        c.salida << QStringLiteral("Saldos traspasados al ejercicio %1, asiento de apertura nº %2.")
                        .arg(r.anoDestino)
                        .arg(p.modo == PeticionCierre::Modo::Existente &&
                                     !p.asiento.trimmed().isEmpty()
                                 ? p.asiento.trimmed()
                                 : QStringLiteral("1"))
                 << '\n';
    c.dialogo.Informar(QStringLiteral("Proceso terminado."));
    return 0;
}

int abrirEjercicio(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    if (!s.EjCerrado)
        throw Rechazo(MsgEjercicioNoCerrado(s.AnoActual));
    if (!c.dialogo.Preguntar(QStringLiteral("Se va a invertir el cierre del ejercicio %1, "
                                            "eliminándose los asientos de regularización y "
                                            "final. Desea continuar?")
                                 .arg(s.AnoActual)))
        return 1;
    InvertirCierre(s);
    c.salida << QStringLiteral("Abierto el ejercicio %1. Último asiento: %2.")
                    .arg(s.AnoActual)
                    .arg(std::lround(s.UltimoAsiento))
             << '\n';
    return 0;
}

int reorganizar(ContextoCli& c) {
    c.abrirEmpresa();
    const ResultadoReorganizacion r = Reorganizar(
        c.sesion, [&c](const QString& aviso) { c.salida << aviso << '\n'; }, ProgresoConsola());
    c.salida << QStringLiteral("Mayor reconstruido: %1 subcuentas.").arg(r.subcuentas) << '\n';
    c.salida << QStringLiteral("Registros de IVA sin apunte eliminados: %1.")
                    .arg(r.registrosIvaEliminados)
             << '\n';
    c.dialogo.Informar(QStringLiteral("Proceso terminado."));
    return 0;
}

const AltaVerbo altaCerrar{
    {QStringLiteral("cerrar-ejercicio"),
     QStringLiteral("cierra el ejercicio, traspasando o no los saldos (con --si)"),
     QStringLiteral(
         "Uso: quilmar-cli cerrar-ejercicio [--trasladar-a AAAA [--asiento-apertura N] |\n"
         "        --sin-traslado] --si\n\n"
         "Hace el asiento de regularización (grupos 6 y 7 contra 129) y el asiento final\n"
         "(todos los saldos a cero) y marca el ejercicio como cerrado. Con --trasladar-a, el\n"
         "asiento de apertura del ejercicio AAAA recibe los saldos: sustituye al asiento de\n"
         "apertura nº N (por defecto el 1) y, si el ejercicio no existe, se crea a partir de\n"
         "éste. El resultado pasa a la 120 (beneficio) o a la 121 (pérdida). Todo se escribe\n"
         "a la vez en los dos ejercicios, o nada. Las preguntas se responden con --si."),
     {QStringLiteral("sin-traslado")},
     cerrarEjercicio}};

const AltaVerbo altaAbrir{
    {QStringLiteral("abrir-ejercicio"),
     QStringLiteral("invierte el cierre del ejercicio (con --si)"),
     QStringLiteral("Uso: quilmar-cli abrir-ejercicio --si\n\n"
                    "Elimina los asientos de regularización y final del ejercicio cerrado y lo\n"
                    "deja abierto. El asiento de apertura del ejercicio al que se traspasaron los\n"
                    "saldos no se toca: un nuevo cierre lo actualiza."),
     {},
     abrirEjercicio}};

const AltaVerbo altaReorganizar{
    {QStringLiteral("reorganizar"),
     QStringLiteral("comprueba el Diario y reconstruye el Mayor"),
     QStringLiteral("Uso: quilmar-cli reorganizar\n\n"
                    "Comprueba que cada asiento cuadra, reconstruye el Mayor a partir del Diario\n"
                    "(sólo para las subcuentas del plan), elimina los registros de IVA que no\n"
                    "pertenecen a ningún apunte y avisa de los apuntes cuyo registro de IVA\n"
                    "falta. Muestra cada problema y, al final, lo reconstruido. El avance va a\n"
                    "la salida de errores."),
     {},
     reorganizar}};

} // namespace

// The adaptation of an exercise to the 2007 chart from the command line, and the translation of
// a subaccount code that the close uses.

#include "cli/Cli.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "store/Sesion.h"
#include "yearend/Adaptacion.h"
#include "yearend/TraducirCuenta.h"

#include <QRegularExpression>

namespace {

int adaptar(ContextoCli& c) {
    c.abrirEmpresa();
    const ResultadoAdaptacion r = AdaptarPlanPreguntando(c.sesion, c.dialogo);
    switch (r.estado) {
    case ResultadoAdaptacion::YaAdaptada:
        c.dialogo.Informar(MsgYaAdaptada);
        return 0;
    case ResultadoAdaptacion::NoConfirmada:
        return 1;
    case ResultadoAdaptacion::Hecha:
        break;
    }
    for (const RegistroTransnp& m : r.movidas)
        c.salida << m.antiguo << '\t' << m.nuevo << '\n';
    return 0;
}

int traducirCuenta(ContextoCli& c) {
    const QString ncuenta = c.posicionales.value(0).trimmed();
    static const QRegularExpression nueveCifras(QStringLiteral("^[0-9]{9}$"));
    if (!nueveCifras.match(ncuenta).hasMatch())
        throw Rechazo(QStringLiteral("Indique una subcuenta de nueve cifras: quilmar-cli "
                                     "traducir-cuenta NCUENTA"));
    c.abrirEmpresa();
    c.salida << TraducirCuenta(c.sesion, ncuenta) << '\n';
    return 0;
}

const AltaVerbo altaAdaptar{
    {QStringLiteral("adaptar"),
     QStringLiteral("adapta el ejercicio al Plan General de Contabilidad de 2007 (con --si)"),
     QStringLiteral("Uso: quilmar-cli adaptar [--empresa EmpNNN --ano AAAA] --si\n\n"
                    "Crea, renombra y elimina las cuentas que cambian en el plan para PYMES de\n"
                    "2007, pasa cada subcuenta de una cuenta que cambia a la nueva conservando\n"
                    "sus cinco últimas cifras (o la siguiente libre), marca su nombre con (*) y\n"
                    "guarda el cambio en Transnp.dat para el cierre. Muestra las subcuentas que\n"
                    "cambian de código (antigua y nueva). Un ejercicio ya adaptado no cambia."),
     {},
     adaptar}};

const AltaVerbo altaTraducirCuenta{
    {QStringLiteral("traducir-cuenta"),
     QStringLiteral("muestra el código de una subcuenta en el plan de 2007"),
     QStringLiteral(
         "Uso: quilmar-cli traducir-cuenta [--empresa EmpNNN --ano AAAA] NCUENTA\n\n"
         "El código que toma la subcuenta al traspasar saldos a un ejercicio del plan\n"
         "de 2007: el que guardó la adaptación en Transnp.dat, si no el de la tabla\n"
         "de cuentas que cambian (con las mismas cinco últimas cifras), si no el mismo."),
     {},
     traducirCuenta}};

} // namespace

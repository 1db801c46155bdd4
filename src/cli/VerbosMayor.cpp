// Verbs of the ledger: the movements of one subaccount and the whole ledger of a range of
// accounts, on the books' shared output.

#include "cli/Cli.h"
#include "cli/SalidaLibro.h"
#include "platform/Almacen.h"
#include "platform/Dialogo.h"
#include "platform/Errores.h"
#include "platform/Rejilla.h"
#include "reports/ImpresionMayor.h"
#include "reports/Mayor.h"
#include "reports/Movimientos.h"
#include "store/Conexiones.h"
#include "store/Formato.h"
#include "store/NombreEmpresa.h"
#include "store/Rutinas.h"
#include "store/Sesion.h"

namespace {

int movimientos(ContextoCli& c) {
    if (c.posicionales.size() != 1)
        throw Rechazo(QStringLiteral("Indique la subcuenta: quilmar-cli movimientos NCUENTA."));
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    SeleccionMovimientos sel;
    sel.ncuenta = c.posicionales.first().trimmed();
    sel.desde = FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj);
    sel.hasta = FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj);
    sel.sector = c.opcion(QStringLiteral("sector")).trimmed();
    if (sel.desde > sel.hasta)
        throw Rechazo(MsgMovFechas);
    {
        Conexion con = AbrirDatos(s);
        const QVariant nombre = con.escalar(
            QStringLiteral("SELECT Cuenta FROM Cuentas WHERE NCuenta = ?"), {sel.ncuenta});
        if (!nombre.isValid() || nombre.isNull())
            throw Rechazo(MsgMovErrorCuenta);
        sel.nombre = nombre.toString().trimmed();
    }
    const OpcionesLibro op = OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::Form80));
    Rejilla r = RejillaMovimientos();
    TotalesMovimientos t;
    {
        Conexion con = AbrirDatos(s);
        t = LlenarMovimientos(con, s, sel, r);
    }
    LibroCli libro;
    libro.titulo = TituloMayor;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarMovimientos(imp, r, t, sel, op);
    };
    const int codigo = SalidaLibroCli(c, libro);
    // The two lines under the list, after it, when the list went to the terminal as text.
    const QString formato = c.opcion(QStringLiteral("formato"), QStringLiteral("txt")).toLower();
    if (codigo == 0 && formato == QLatin1String("txt") &&
        c.opcion(QStringLiteral("salida")).isEmpty()) {
        auto linea = [&](const QString& nombre, const LineaTotales& l) {
            c.salida << nombre << "\t\t\t" << Formato(l.debe, QStringLiteral("standard")) << '\t'
                     << Formato(l.haber, QStringLiteral("standard")) << '\t'
                     << Formato(l.saldo, QStringLiteral("standard")) << '\n';
        };
        linea(QStringLiteral("PERIODO"), t.periodo);
        if (t.conAcumulado)
            linea(QStringLiteral("ACUMULADO"), t.acumulado);
    }
    return codigo;
}

int mayor(ContextoCli& c) {
    c.abrirEmpresa();
    Sesion& s = c.sesion;
    CajasMayor cajas{FechaOpcion(c, QStringLiteral("desde"), s.FechaIniEj),
                     FechaOpcion(c, QStringLiteral("hasta"), s.FechaFinEj),
                     c.opcion(QStringLiteral("desde-cuenta")),
                     c.opcion(QStringLiteral("hasta-cuenta"))};
    const auto sel = ValidarSeleccionMayor(cajas, c.dialogo);
    if (!sel)
        return 1;
    OpcionesLibro op = OpcionesImpresionCli(c, ConfigFormOpciones(FormOpciones::Form85));
    const QString nueva = c.opcion(QStringLiteral("nueva-pagina")).toLower();
    if (nueva == QLatin1String("cuenta"))
        op.nuevaPaginaCuenta = true;
    else if (nueva == QLatin1String("subcuenta"))
        op.nuevaPaginaSubcuenta = true;
    else if (!nueva.isEmpty())
        throw Rechazo(QStringLiteral("--nueva-pagina admite cuenta o subcuenta."));
    Rejilla r = RejillaMayor();
    QString empresa;
    {
        Conexion con = AbrirDatos(s);
        LlenarMayor(con, s, *sel, r);
        empresa = NombreEmpresa(con);
    }
    LibroCli libro;
    libro.titulo = TituloMayor;
    libro.rejilla = [&] {
        return r;
    };
    libro.dibujo = [&](Impresora& imp, int) {
        DibujarMayor(imp, r, *sel, empresa, op);
    };
    return SalidaLibroCli(c, libro);
}

const AltaVerbo altaMovimientos{
    {QStringLiteral("movimientos"),
     QStringLiteral("movimientos de una subcuenta con su saldo"),
     QStringLiteral("Uso: quilmar-cli movimientos NCUENTA [--desde FECHA --hasta FECHA] "
                    "[--sector S]\n"
                    "        [--margen MM --fuente F --tamano T --fecha-trabajo FECHA]\n"
                    "        [--formato txt|csv|xlsx|pdf] [--salida FICHERO] [--copias N]\n\n"
                    "Columnas: Nº As., Fecha, Concepto, Debe, Haber y Saldo, por número de "
                    "asiento. Si la\n"
                    "lista no empieza el primer día del ejercicio, la primera fila es el Saldo "
                    "Inicial\n"
                    "(sin filtrar por sector). En txt por la salida estándar siguen las líneas "
                    "PERIODO y\n"
                    "ACUMULADO.\n\n") +
         AyudaSalidaLibro,
     {},
     movimientos}};

const AltaVerbo altaMayor{
    {QStringLiteral("mayor"),
     QStringLiteral("el libro mayor de un intervalo de cuentas"),
     QStringLiteral("Uso: quilmar-cli mayor --desde-cuenta NNN --hasta-cuenta NNN "
                    "[--desde FECHA --hasta FECHA]\n"
                    "        [--nueva-pagina cuenta|subcuenta] [--margen MM --fuente F "
                    "--tamano T]\n"
                    "        [--fecha-trabajo FECHA] [--formato txt|csv|xlsx|pdf] "
                    "[--salida FICHERO]\n\n"
                    "Cuentas de tres dígitos. Cada subcuenta con apuntes en el periodo lleva su "
                    "cabecera,\n"
                    "su Saldo Inicial si no es cero, sus apuntes por fecha y número y dos filas "
                    "en blanco.\n"
                    "  --nueva-pagina cuenta|subcuenta  en el libro impreso, página nueva en "
                    "cada cuenta o\n"
                    "                                   en cada subcuenta\n\n") +
         AyudaSalidaLibro,
     {},
     mayor}};

} // namespace
